#pragma once
// The checks of zones; a part of the check of the whole library.

#include <vector>

#include "library/modINIText.hpp"
#include "library/modLibraryCheck.hpp"

namespace tarvek {

// The three files of the library, taken apart.
struct LibraryViews {
    INIView zones;
    INIView datums;
    INIView ellipsoids;
};

// Adds what is wrong with a section of zones.ini to `faults`.
void CheckZone(const INISection& zone, const LibraryViews& library, std::vector<LibraryFault>& faults);

// Adds a fault for each section that short names never reach, because those of an earlier one are the same.
void CheckShortNames(const INIView& zones, std::vector<LibraryFault>& faults);

}  // namespace tarvek
