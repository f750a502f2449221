#pragma once
// NADCON grids of a test's own making: a pair of files laid out as NOAA Technical Memorandum NOS NGS-50
// (1990) has them, every word little-endian whatever the machine.

#include <bit>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

#include "support/testSupport.hpp"

namespace tarvek::test {

inline void AppendWord(std::string& bytes, std::uint32_t word) {
    for (int i = 0; i < 4; ++i) bytes += static_cast<char>((word >> (8 * i)) & 0xFF);
}
inline void AppendSingle(std::string& bytes, float value) {
    AppendWord(bytes, std::bit_cast<std::uint32_t>(value));
}

// The shift in seconds of arc at a node, rows counted from the south, columns from the west.
using Shifts = std::function<float(int row, int column)>;

inline Shifts Constant(float seconds) {
    return [seconds](int, int) { return seconds; };
}

// Twenty-four columns are the fewest whose records hold the 96 bytes of the header.
struct NADCONGrid {
    int columns = 24;
    int rows = 4;
    float xMin = -110;
    float dx = 1;
    float yMin = 40;
    float dy = 1;
    Shifts latitude = Constant(1);
    Shifts longitude = Constant(1);
    std::string ident = "A GRID OF A TEST";
    std::string program = "NADGRD";

    // One of the two files.
    std::string Bytes(const Shifts& shifts) const {
        const std::size_t recordSize = (static_cast<std::size_t>(columns) + 1) * 4;
        std::string bytes = ident;
        bytes.resize(56, ' ');
        bytes += program;
        bytes.resize(64, ' ');
        for (const int number : {columns, rows, 1}) AppendWord(bytes, static_cast<std::uint32_t>(number));
        for (const float number : {xMin, dx, yMin, dy, 0.0F}) AppendSingle(bytes, number);
        bytes.resize(recordSize, '\0');
        for (int row = 0; row < rows; ++row) {
            AppendWord(bytes, 0x7FC00000);  // no number: whoever reads the word before a row shows it
            for (int column = 0; column < columns; ++column) AppendSingle(bytes, shifts(row, column));
        }
        return bytes;
    }
};

inline constexpr std::string_view GridFolder = "NGS/NADCON";

// A file of a grid in the program folder.
inline void PutGridFile(const TemporaryFolder& home, const std::string& name, std::string_view bytes) {
    std::filesystem::create_directories(home.File(GridFolder));
    home.Put(std::string(GridFolder) + "/" + name, bytes);
}

inline void PutGrid(const TemporaryFolder& home, const std::string& name, const NADCONGrid& grid) {
    PutGridFile(home, name + ".las", grid.Bytes(grid.latitude));
    PutGridFile(home, name + ".los", grid.Bytes(grid.longitude));
}

}  // namespace tarvek::test
