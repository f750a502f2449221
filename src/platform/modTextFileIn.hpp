#pragma once
// The one place where a text file is opened for reading. Lines end in CR LF, LF or CR, the last one also at
// the end of the file; a UTF-8 byte order mark at the beginning is passed over. Bytes are handed on as they
// are.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/modProgress.hpp"

namespace tarvek {

class TextFileIn {
  public:
    // Opens the file that `given` names by the rules of modPaths. Raises the fault of the file system.
    explicit TextFileIn(std::string_view given);
    ~TextFileIn();
    TextFileIn(const TextFileIn&) = delete;
    TextFileIn& operator=(const TextFileIn&) = delete;

    // The next line without its end; false at the end of the file. The line is valid until the next call.
    bool NextLine(std::string_view& line);
    // The next line where there must be one; Fault::EndOfFilePassed at the end of the file.
    std::string_view RequireLine();

    // Size of the file in bytes when it was opened; 0 for what is no regular file.
    std::uint64_t Size() const { return size_; }

  private:
    void Refill();

    std::string path_;
    int file_ = -1;
    std::uint64_t size_ = 0;
    std::uint64_t bytesRead_ = 0;
    bool atEnd_ = false;
    std::vector<char> window_;  // the part of the file in memory, and room for the sentinel
    char* at_ = nullptr;        // start of the next line
    char* end_ = nullptr;       // behind the last byte read; a line feed stands there as sentinel
    ProgressTask progress_;
};

}  // namespace tarvek
