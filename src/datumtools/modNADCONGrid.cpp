#include "datumtools/modNADCONGrid.hpp"

#include <bit>

#include "platform/modFileBytes.hpp"
#include "platform/modPaths.hpp"
#include "platform/modProgramFolder.hpp"

namespace tarvek {
namespace {

constexpr std::size_t WordSize = 4;

// The little-endian word at `position`.
std::uint32_t WordAt(std::string_view bytes, std::size_t position) {
    std::uint32_t word = 0;
    for (std::size_t i = 0; i < WordSize; ++i)
        word |= std::uint32_t{static_cast<unsigned char>(bytes[position + i])} << (8 * i);
    return word;
}

float FloatAt(std::string_view bytes, std::size_t position) {
    return std::bit_cast<float>(WordAt(bytes, position));
}

std::int32_t IntegerAt(std::string_view bytes, std::size_t position) {
    return std::bit_cast<std::int32_t>(WordAt(bytes, position));
}

}  // namespace

NADCONFile::NADCONFile(const std::string& path) {
    const std::string found = FindPath(path);
    if (found.empty()) return;
    bytes_ = ReadFileBytes(found);
    headerBytes_ = bytes_.substr(0, HeaderSize);
    headerBytes_.resize(HeaderSize, '\0');
}

NADCONHeader NADCONFile::Header() const {
    // Ident stands at 0, Program at 56; NZ at 72 and Angle at 92 have no use.
    return {.NC = IntegerAt(headerBytes_, 64),
            .NR = IntegerAt(headerBytes_, 68),
            .XMin = FloatAt(headerBytes_, 76),
            .DX = FloatAt(headerBytes_, 80),
            .YMin = FloatAt(headerBytes_, 84),
            .DY = FloatAt(headerBytes_, 88)};
}

float NADCONFile::ShiftAt(std::int64_t position) const {
    if (position < 0 || bytes_.size() < WordSize) return 0;
    const auto at = static_cast<std::size_t>(position);
    return at <= bytes_.size() - WordSize ? FloatAt(bytes_, at) : 0;
}

std::string NADCONFolder() { return ProgramFolder() + "/NGS/NADCON"; }

std::string NADCONPath(std::string_view grid, std::string_view extension) {
    return NADCONFolder() + '/' + std::string(grid) + std::string(extension);
}

}  // namespace tarvek
