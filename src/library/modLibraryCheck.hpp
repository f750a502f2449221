#pragma once
// Looks for everything in the library and the translator definitions that would be refused, misread or passed
// over in silence when it is used.

#include <string>
#include <string_view>
#include <vector>

namespace tarvek {

struct LibraryFault {
    std::string file;     // its name below the program folder
    std::string section;  // empty where the fault is the file's
    std::string key;      // empty where the fault is the section's or the file's
    std::string text;
};

// The faults of zones.ini, datums.ini, ellipsoids.ini and the .kti files of the program folder, file by file
// and in file order. None where all is well.
std::vector<LibraryFault> CheckLibrary();

// Adds a fault to `faults` unless its text is empty.
void AddFault(std::vector<LibraryFault>& faults, std::string_view file, std::string_view section,
              std::string_view key, std::string_view text);

}  // namespace tarvek
