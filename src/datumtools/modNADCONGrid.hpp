#pragma once
// A NADCON grid: a pair of files, .las with the shifts of latitude and .los with those of longitude, in
// seconds of arc. A file is a sequence of records of NC + 1 words of 4 bytes, little-endian: the header, of
// which 96 bytes are read, then a record for each row from south to north, a word that is passed over and NC
// 32-bit floats from west to east. (NOAA Technical Memorandum NOS NGS-50, 1990, tells the method.)

#include <cstdint>
#include <string>
#include <string_view>

namespace tarvek {

struct NADCONHeader {
    std::int32_t NC = 0;  // columns
    std::int32_t NR = 0;  // rows
    float XMin = 0;       // longitude of the first column, degrees, positive east
    float DX = 0;         // degrees from column to column
    float YMin = 0;       // latitude of the first row, degrees
    float DY = 0;         // degrees from row to row
};

// One of the two files, held in memory. What lies behind the end of the file reads as zero, and so does a
// file that is not there.
class NADCONFile {
  public:
    static constexpr std::size_t HeaderSize = 96;

    NADCONFile() = default;
    // Raises the fault of the file system where a file is there but can not be read.
    explicit NADCONFile(const std::string& path);

    // The bytes of the header, identification and name of its program among them.
    const std::string& HeaderBytes() const { return headerBytes_; }
    NADCONHeader Header() const;
    // The shift at byte `position`, counted from 0.
    float ShiftAt(std::int64_t position) const;

  private:
    std::string bytes_;
    std::string headerBytes_ = std::string(HeaderSize, '\0');
};

// Where the files of a grid lie: NGS/NADCON in the program folder.
std::string NADCONFolder();
std::string NADCONPath(std::string_view grid, std::string_view extension);

}  // namespace tarvek
