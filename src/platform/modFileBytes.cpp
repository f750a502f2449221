#include "platform/modFileBytes.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

#include "platform/modFaults.hpp"

namespace tarvek {
namespace {

// An open file that is closed at the end of its life.
class FileHandle {
  public:
    explicit FileHandle(const std::string& path) : file_(::open(path.c_str(), O_RDONLY | O_CLOEXEC)) {
        if (file_ < 0) RaiseFileFault(errno, path);
    }
    ~FileHandle() { ::close(file_); }
    FileHandle(const FileHandle&) = delete;
    FileHandle& operator=(const FileHandle&) = delete;

    int Number() const { return file_; }

  private:
    int file_;
};

}  // namespace

std::string ReadFileBytes(const std::string& path) {
    const FileHandle file(path);
    std::string bytes;
    char block[64 * 1024];
    for (;;) {
        const ssize_t count = ::read(file.Number(), block, sizeof block);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) RaiseFileFault(errno, path);
        if (count == 0) return bytes;
        bytes.append(block, static_cast<std::size_t>(count));
    }
}

}  // namespace tarvek
