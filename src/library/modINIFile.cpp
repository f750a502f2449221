#include "library/modINIFile.hpp"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>

#include "platform/modFaults.hpp"
#include "platform/modPaths.hpp"
#include "platform/modPrompts.hpp"
#include "platform/modTextFileOut.hpp"

namespace tarvek {
namespace {

class FileHandle {
  public:
    FileHandle(const std::string& path, int flags) : file_(::open(path.c_str(), flags | O_CLOEXEC)) {}
    ~FileHandle() {
        if (file_ >= 0) ::close(file_);
    }
    FileHandle(const FileHandle&) = delete;
    FileHandle& operator=(const FileHandle&) = delete;

    int Number() const { return file_; }

  private:
    int file_;
};

// Held for the life of the object. The folder is what is locked: the file itself is replaced by every edit,
// and a file beside it would be litter. Where a file system has no locks, the edit goes on without.
class FolderLock {
  public:
    explicit FolderLock(const std::string& folder) : handle_(folder, O_RDONLY | O_DIRECTORY) {
        if (handle_.Number() < 0) return;
        while (::flock(handle_.Number(), LOCK_EX) != 0 && errno == EINTR) {
        }
    }

  private:
    FileHandle handle_;  // closing it lets the lock go
};

std::string ReadBytes(const std::string& path) {
    const FileHandle handle(path, O_RDONLY);
    if (handle.Number() < 0) RaiseFileFault(errno, path);
    std::string bytes;
    char block[64 * 1024];
    for (;;) {
        const ssize_t count = ::read(handle.Number(), block, sizeof block);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) RaiseFileFault(errno, path);
        if (count == 0) return bytes;
        bytes.append(block, static_cast<std::size_t>(count));
    }
}

void ReplaceBytes(std::string_view file, const std::function<std::string(std::string_view)>& edit) {
    const std::string found = FindPath(file);
    const std::string path = found.empty() ? NativePath(file) : found;
    const FolderLock lock(FolderOf(ResolveLinks(path)));
    const std::string before = FindPath(path).empty() ? std::string() : ReadBytes(path);
    const std::string after = edit(before);
    if (after == before) return;
    WriteTextFile(path, [&after](TextFileOut& out) { out.Text(after); });
}

}  // namespace

std::string ReadINIFile(std::string_view file) {
    const std::string path = FindPath(file);
    if (path.empty()) return {};
    try {
        return ReadBytes(path);
    } catch (const RuntimeFault& fault) {
        if (!fault.IsFileFault()) throw;
        return {};
    }
}

bool EditINIFile(std::string_view file, const std::function<std::string(std::string_view)>& edit) {
    try {
        ReplaceBytes(file, edit);
        return true;
    } catch (const RuntimeFault& fault) {
        if (!fault.IsFileFault()) throw;
        TellFault(fault.Text());
        return false;
    }
}

}  // namespace tarvek
