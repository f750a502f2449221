#pragma once
// A whole file as bytes, for files that are not walked by line.

#include <string>

namespace tarvek {

// The bytes of the file at `path`, taken as written. Raises the fault of the file system.
std::string ReadFileBytes(const std::string& path);

}  // namespace tarvek
