#include "platform/modInstanceLock.hpp"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <filesystem>

#include "platform/modPaths.hpp"
#include "platform/modUserFolders.hpp"

namespace tarvek {
namespace {

namespace fs = std::filesystem;

// The folder's own name, whichever way it was given.
std::string CanonicalFolder(std::string_view folder) {
    std::error_code error;
    const fs::path canonical = fs::weakly_canonical(fs::path(folder), error);
    std::string name = error ? std::string(folder) : canonical.string();
    while (name.size() > 1 && name.ends_with(PathSeparator)) name.pop_back();
    return name;
}

// FNV-1a (Fowler, Noll, Vo), 64 bits, in hexadecimal digits.
std::string HashText(std::string_view text) {
    std::uint64_t hash = 0xCBF29CE484222325u;
    for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3u;
    std::string digits;
    for (int shift = 60; shift >= 0; shift -= 4) digits += "0123456789abcdef"[hash >> shift & 15];
    return digits;
}

// Opens a folder that belongs to this user and that nobody else can write to; -1 for any other.
int OpenOwnFolder(const std::string& folder) {
    const int file = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    if (file < 0) return -1;
    struct stat status {};
    const bool isOwn = ::fstat(file, &status) == 0 && status.st_uid == ::geteuid() &&
                       (status.st_mode & (S_IWGRP | S_IWOTH)) == 0;
    if (isOwn) return file;
    ::close(file);
    return -1;
}

int OpenRuntimeFolder() {
    const char* folder = std::getenv("XDG_RUNTIME_DIR");
    return folder != nullptr && folder[0] == PathSeparator ? OpenOwnFolder(folder) : -1;
}

int OpenTemporaryFolder() {
    std::error_code error;
    const fs::path temporary = fs::temp_directory_path(error);
    if (error) return -1;
    const std::string folder =
        JoinPath(temporary.string(), std::string(ProgramFolderName) + '-' + std::to_string(::geteuid()));
    ::mkdir(folder.c_str(), 0700);
    return OpenOwnFolder(folder);
}

// The sticky bit asks those who clear run-time folders to spare the file.
int OpenLockFile(int folder, const std::string& name) {
    const int file = ::openat(folder, name.c_str(), O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC, 0600);
    if (file >= 0) ::fchmod(file, 0600 | S_ISVTX);
    return file;
}

bool IsLockedByAnother(int file) {
    int result = 0;
    do {
        result = ::flock(file, LOCK_EX | LOCK_NB);
    } while (result != 0 && errno == EINTR);
    return result != 0 && errno == EWOULDBLOCK;
}

}  // namespace

// A start without the run-time folder's variable (by cron, by su) meets the others in the temporary folder.
InstanceLock::InstanceLock(std::string_view programFolder) {
    const std::string name =
        std::string(ProgramFolderName) + '-' + HashText(CanonicalFolder(programFolder)) + ".lock";
    for (const int folder : {OpenRuntimeFolder(), OpenTemporaryFolder()}) {
        if (folder < 0) continue;
        const int file = OpenLockFile(folder, name);
        ::close(folder);
        if (file < 0) continue;
        files_.push_back(file);
        if (IsLockedByAnother(file)) takenByAnother_ = true;
    }
}

// The files stay: whoever removed them could take them away from under the next holder.
InstanceLock::~InstanceLock() {
    for (const int file : files_) ::close(file);
}

}  // namespace tarvek
