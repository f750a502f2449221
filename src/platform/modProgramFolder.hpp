#pragma once
// The folder that holds the library, the translator definitions and the tools: the base of all fixed paths.

#include <string>

namespace tarvek {

// Without a separator at its end: $TARVEK_HOME if set; else the executable's folder if it holds zones.ini;
// else this user's data folder, which is filled from the installed data, ../share/tarvek-translator beside
// the executable's folder, at first use, and with what is missing at the first use of another version. A file
// that is there is never overwritten. Found once; raises the fault of the file system where the folder can
// not be filled.
const std::string& ProgramFolder();

// The same for an executable in `executableFolder`, found anew.
std::string FindProgramFolder(const std::string& executableFolder);

// Lets the next call of ProgramFolder look again.
void ForgetProgramFolder();

}  // namespace tarvek
