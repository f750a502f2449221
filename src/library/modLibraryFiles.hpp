#pragma once
// Where the library lies: three INI files in the program folder, which the user edits.

#include <string>

namespace tarvek {

std::string ZonesFile();
std::string DatumsFile();
std::string EllipsoidsFile();

}  // namespace tarvek
