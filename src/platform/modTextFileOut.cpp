#include "platform/modTextFileOut.hpp"

#include <fcntl.h>
#include <sys/random.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>

#include "platform/modFaults.hpp"
#include "platform/modFileCalls.hpp"
#include "platform/modPaths.hpp"

namespace tarvek {
namespace {

std::string RandomName() {
    std::uint64_t bits = 0;
    if (::getrandom(&bits, sizeof bits, 0) != sizeof bits) RaiseFault(Fault::DeviceError);
    std::string name = ".tarvek-";
    for (int i = 0; i < 13; ++i, bits >>= 5) name += "0123456789abcdefghijklmnopqrstuv"[bits & 31];
    return name;
}

// Makes the names of a folder durable; a file system that can not do that is no fault.
void SyncFolder(const std::string& folder) {
    const int file = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (file < 0) return;
    ::fsync(file);
    ::close(file);
}

// The new file gets mode and owner of the old one, as far as this user may give them away.
void KeepModeAndOwner(int file, const struct stat& old, const std::string& path) {
    struct stat created {};
    if (::fstat(file, &created) != 0) RaiseFileFault(errno, path);
    const bool isSameOwner = created.st_uid == old.st_uid && created.st_gid == old.st_gid;
    const bool ownerKept = isSameOwner || CurrentFileCalls().fchown(file, old.st_uid, old.st_gid) == 0;
    // Where the owner could not be kept, a set-user or set-group bit would speak for somebody else.
    const mode_t mode = old.st_mode & (ownerKept ? 07777u : 0777u);
    if (CurrentFileCalls().fchmod(file, mode) != 0) RaiseFileFault(errno, path);
}

}  // namespace

TextFileOut::TextFileOut(std::string_view given) : target_(ResolveLinks(OutputPath(given))) {
    if (target_.empty()) RaiseFileFault(ENOENT, given);
    buffer_.reserve(FullBuffer + 4096);
    try {
        Create();
    } catch (...) {
        Discard();
        throw;
    }
}

TextFileOut::~TextFileOut() { Discard(); }

void TextFileOut::Create() {
    const FileCalls& calls = CurrentFileCalls();
    struct stat old {};
    const bool exists = ::stat(target_.c_str(), &old) == 0;
    replacesAFile_ = exists && S_ISREG(old.st_mode);
    if (!exists && errno != ENOENT) RaiseFileFault(errno, target_);  // links in a circle, a locked folder
    if (exists && S_ISDIR(old.st_mode)) RaiseFileFault(EISDIR, target_);
    if (exists && !S_ISREG(old.st_mode)) {  // a device or pipe has nothing to keep
        file_ = calls.open(target_.c_str(), O_WRONLY | O_CLOEXEC, 0);
    } else {
        // A file that its owner has locked against writing is not replaced behind his back.
        if (exists && ::access(target_.c_str(), W_OK) != 0) RaiseFileFault(errno, target_);
        constexpr int Fresh = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
        const mode_t mode = exists ? 0600 : 0666;  // until it has the old one's, nobody else may look in
        do {
            temporary_ = JoinPath(FolderOf(target_), RandomName());
            file_ = calls.open(temporary_.c_str(), Fresh, mode);
        } while (file_ < 0 && errno == EEXIST);
    }
    if (file_ < 0) {
        temporary_.clear();
        RaiseFileFault(errno == ENOENT ? ENOTDIR : errno, target_);
    }
    if (exists && !temporary_.empty()) KeepModeAndOwner(file_, old, target_);
}

void TextFileOut::Flush() {
    std::string_view rest = buffer_;
    while (!rest.empty()) {
        const ssize_t count = CurrentFileCalls().write(file_, rest.data(), rest.size());
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) RaiseFileFault(count == 0 ? ENOSPC : errno, target_);
        rest.remove_prefix(static_cast<std::size_t>(count));
    }
    buffer_.clear();
}

void TextFileOut::Commit() {
    const FileCalls& calls = CurrentFileCalls();
    Flush();
    if (!temporary_.empty() && calls.fsync(file_) != 0) RaiseFileFault(errno, target_);
    const int file = file_;
    file_ = -1;
    if (calls.close(file) != 0) RaiseFileFault(errno, target_);
    if (temporary_.empty()) return;
    if (calls.rename(temporary_.c_str(), target_.c_str()) != 0) RaiseFileFault(errno, target_);
    temporary_.clear();
    SyncFolder(FolderOf(target_));
}

void TextFileOut::Discard() {
    if (file_ >= 0) CurrentFileCalls().close(file_);
    if (!temporary_.empty()) CurrentFileCalls().unlink(temporary_.c_str());
    file_ = -1;
    temporary_.clear();
}

void WriteTextFile(std::string_view path, const std::function<void(TextFileOut&)>& print) {
    TextFileOut file(path);
    try {
        print(file);
    } catch (const RuntimeFault& fault) {
        if (!fault.IsFileFault() && !file.ReplacesAFile()) file.Commit();
        throw;
    }
    file.Commit();
}

}  // namespace tarvek
