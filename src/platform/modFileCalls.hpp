#pragma once
// The system calls through which files are written, gathered so that a test can let any one of them fail.

#include <sys/types.h>

#include <cstddef>

namespace tarvek {

struct FileCalls {
    int (*open)(const char* path, int flags, mode_t mode);
    ssize_t (*write)(int file, const void* bytes, std::size_t count);
    int (*fchmod)(int file, mode_t mode);
    int (*fchown)(int file, uid_t owner, gid_t group);
    int (*fsync)(int file);
    int (*close)(int file);
    int (*rename)(const char* from, const char* to);
    int (*unlink)(const char* path);
};

extern const FileCalls SystemFileCalls;

// The calls in force.
const FileCalls& CurrentFileCalls();
// Puts other calls in force; nullptr restores those of the system.
void SetFileCalls(const FileCalls* calls);

}  // namespace tarvek
