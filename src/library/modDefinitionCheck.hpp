#pragma once
// The check of the translator definitions; a part of the check of the whole library.

#include <vector>

#include "library/modLibraryCheck.hpp"

namespace tarvek {

// Adds what is wrong with the .kti files of the program folder to `faults`. The key of a fault is the line of
// the definition that it is about: Program, Action, Input, Output or ConfigFile.
void CheckDefinitions(std::vector<LibraryFault>& faults);

}  // namespace tarvek
