#pragma once
// The one place where a file is written. The content goes to a file of random name beside the target, which
// is synced and renamed into place at the end: after a crash, a kill or a full disk the path holds the old
// bytes or the whole new ones. A link as target is followed; owner and mode of an old file are kept.

#include <functional>
#include <string>
#include <string_view>

#include "platform/modText.hpp"

namespace tarvek {

class TextFileOut {
  public:
    // Begins a file at `given`, taken as written but for the separator. Raises the fault of the file system.
    explicit TextFileOut(std::string_view given);
    // Without Commit the target stays as it was.
    ~TextFileOut();
    TextFileOut(const TextFileOut&) = delete;
    TextFileOut& operator=(const TextFileOut&) = delete;

    // Appends text as it stands; a line gets its CR LF.
    void Text(std::string_view text) {
        buffer_ += text;
        if (buffer_.size() >= FullBuffer) Flush();
    }
    void Line(std::string_view line) {
        buffer_ += line;
        EndLine();
    }
    void Line(std::string_view tag, std::string_view value) {
        buffer_ += tag;
        Line(value);
    }
    // For text that is built in place: append to Buffer(), then call EndLine().
    std::string& Buffer() { return buffer_; }
    void EndLine() { Text(LineEnd); }

    // True where the path held a file before, which Commit would replace.
    bool ReplacesAFile() const { return replacesAFile_; }

    // Puts the content in place of what the path held. Raises the fault of the file system, the target
    // untouched.
    void Commit();

  private:
    static constexpr std::size_t FullBuffer = 256 * 1024;

    void Create();
    void Flush();
    void Discard();

    std::string target_;
    std::string temporary_;  // empty where the target is no regular file and is written directly
    int file_ = -1;
    bool replacesAFile_ = false;
    std::string buffer_;
};

// Writes a file by `print`. After a fault a file that was there before is as it was. Where none was, a fault
// of the file system leaves none, and any other leaves what was printed before it: an output begun stays on
// disk, but not at the cost of a file that may be the input itself. The fault is passed on.
void WriteTextFile(std::string_view path, const std::function<void(TextFileOut&)>& print);

}  // namespace tarvek
