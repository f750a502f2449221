#include "library/modLibraryFiles.hpp"

#include "library/modLibraryNames.hpp"
#include "platform/modPaths.hpp"
#include "platform/modProgramFolder.hpp"

namespace tarvek {

std::string ZonesFile() { return JoinPath(ProgramFolder(), ZonesFileName); }
std::string DatumsFile() { return JoinPath(ProgramFolder(), DatumsFileName); }
std::string EllipsoidsFile() { return JoinPath(ProgramFolder(), EllipsoidsFileName); }

}  // namespace tarvek
