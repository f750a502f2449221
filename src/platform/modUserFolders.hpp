#pragma once
// Where this user's files belong by the XDG base directory rules.

#include <string>

namespace tarvek {

inline constexpr const char* ProgramFolderName = "tarvek-translator";

// The program's own folder for settings and for data; it need not exist. Empty for a user without a home. A
// variable that holds no absolute path counts as not set.
std::string ConfigFolder();
std::string DataFolder();

}  // namespace tarvek
