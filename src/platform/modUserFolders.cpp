#include "platform/modUserFolders.hpp"

#include <cstdlib>

#include "platform/modPaths.hpp"

namespace tarvek {
namespace {

std::string AbsoluteFrom(const char* variable) {
    const char* value = std::getenv(variable);
    return value != nullptr && value[0] == PathSeparator ? value : "";
}

std::string UserFolder(const char* variable, const char* behindHome) {
    std::string base = AbsoluteFrom(variable);
    if (base.empty()) {
        const std::string home = AbsoluteFrom("HOME");
        if (home.empty()) return {};
        base = JoinPath(home, behindHome);
    }
    return JoinPath(base, ProgramFolderName);
}

}  // namespace

std::string ConfigFolder() { return UserFolder("XDG_CONFIG_HOME", ".config"); }
std::string DataFolder() { return UserFolder("XDG_DATA_HOME", ".local/share"); }

}  // namespace tarvek
