#include "platform/modFileCalls.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>

namespace tarvek {
namespace {

int OpenFile(const char* path, int flags, mode_t mode) { return ::open(path, flags, mode); }

const FileCalls* InForce = &SystemFileCalls;

}  // namespace

const FileCalls SystemFileCalls = {OpenFile, ::write, ::fchmod, ::fchown,
                                   ::fsync,  ::close, ::rename, ::unlink};

const FileCalls& CurrentFileCalls() { return *InForce; }
void SetFileCalls(const FileCalls* calls) { InForce = calls ? calls : &SystemFileCalls; }

}  // namespace tarvek
