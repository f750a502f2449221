#pragma once
// The entry of the desktop program and its run modes, chosen by one command-line string with fields parted by
// "|".

#include <string>
#include <string_view>

namespace tarvek {

// Runs the mode that the command line asks for: nothing for the translation dialog, "-s|..." for the dialog
// with the defaults of a calling program, "-t|..." for one translation without a dialog. A second instance is
// refused.
void Main(std::string_view commandLine);

}  // namespace tarvek
