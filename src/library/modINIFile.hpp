#pragma once
// INI files as a whole: read at once, and changed under a lock so that of two programs that edit at the same
// time neither loses what the other wrote.

#include <functional>
#include <string>
#include <string_view>

namespace tarvek {

// The bytes of the file; empty where there is none or it can not be read.
std::string ReadINIFile(std::string_view file);

// Puts what `edit` makes of the file's bytes in their place, whole or not at all; a missing file is created,
// and one that would not change is left alone. False, after the user was told the fault of the file system,
// where the file can not be read or written.
bool EditINIFile(std::string_view file, const std::function<std::string(std::string_view)>& edit);

}  // namespace tarvek
