#include "platform/modProgramFolder.hpp"

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>

#include "platform/modFaults.hpp"
#include "platform/modPaths.hpp"
#include "platform/modTextFileIn.hpp"
#include "platform/modTextFileOut.hpp"
#include "platform/modUserFolders.hpp"

namespace tarvek {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view StampName = ".filled-by-version";

struct State {
    std::optional<std::string> folder;
};
State TheState;

std::string WithoutLastSeparator(std::string path) {
    while (path.size() > 1 && path.ends_with(PathSeparator)) path.pop_back();
    return path;
}

std::string ExecutableFolder() {
    std::error_code error;
    const fs::path executable = fs::read_symlink("/proc/self/exe", error);
    return error ? std::string(".") : FolderOf(executable.string());
}

void RequireNoError(const std::error_code& error, const std::string& path) {
    if (error) RaiseFileFault(error.value(), path);
}

// A name in other letter case is the same file to this program, and a link that leads nowhere is a file too.
bool IsThere(const std::string& path) {
    std::error_code error;
    return fs::symlink_status(path, error).type() != fs::file_type::not_found || !FindPath(path).empty();
}

void CopyBytes(const std::string& from, TextFileOut& to) {
    std::ifstream file(from, std::ios::binary);
    if (!file) RaiseFileFault(errno, from);
    char block[65536];
    while (file.read(block, sizeof block) || file.gcount() > 0)
        to.Text({block, static_cast<std::size_t>(file.gcount())});
    if (file.bad()) RaiseFault(Fault::DeviceError);
}

// The copy can be written by its user, whatever the installed file says, and run where that can be run.
void CopyFile(const std::string& from, const std::string& to) {
    WriteTextFile(to, [&from](TextFileOut& file) { CopyBytes(from, file); });
    std::error_code error;
    const bool runs = (fs::status(from, error).permissions() & fs::perms::owner_exec) != fs::perms::none;
    if (runs) fs::permissions(to, fs::perms::owner_exec, fs::perm_options::add, error);
}

// Copies what is missing.
void CopyMissing(const std::string& from, const std::string& to) {
    std::error_code error;
    fs::create_directories(to, error);
    RequireNoError(error, to);
    for (fs::directory_iterator entry(from, error), end; !error && entry != end; entry.increment(error)) {
        const std::string source = entry->path().string();
        const std::string target = JoinPath(to, FileName(source));
        std::error_code ignored;
        if (entry->is_directory(ignored)) {
            const std::string existing = FindPath(target);
            CopyMissing(source, existing.empty() ? target : existing);
        } else if (entry->is_regular_file(ignored) && !IsThere(target)) {
            CopyFile(source, target);
        }
    }
    RequireNoError(error, from);
}

bool IsFilledByThisVersion(const std::string& stamp) {
    if (!FileExists(stamp)) return false;
    TextFileIn file(stamp);
    std::string_view version;
    return file.NextLine(version) && version == TARVEK_VERSION;
}

void Fill(const std::string& folder, const std::string& installed) {
    const std::string stamp = JoinPath(folder, StampName);
    if (!FolderExists(installed) || IsFilledByThisVersion(stamp)) return;
    CopyMissing(installed, folder);
    WriteTextFile(stamp, [](TextFileOut& file) { file.Line(TARVEK_VERSION); });
}

}  // namespace

std::string FindProgramFolder(const std::string& executableFolder) {
    if (const char* home = std::getenv("TARVEK_HOME"); home != nullptr && home[0] != '\0') {
        std::error_code error;
        const fs::path absolute = fs::absolute(home, error);
        return WithoutLastSeparator(error ? std::string(home) : absolute.lexically_normal().string());
    }
    const std::string folder = DataFolder();
    if (folder.empty() || FileExists(JoinPath(executableFolder, "zones.ini")))
        return WithoutLastSeparator(executableFolder);
    Fill(folder, JoinPath(FolderOf(executableFolder), std::string("share/") + ProgramFolderName));
    return WithoutLastSeparator(folder);
}

const std::string& ProgramFolder() {
    if (!TheState.folder) TheState.folder = FindProgramFolder(ExecutableFolder());
    return *TheState.folder;
}

void ForgetProgramFolder() { TheState.folder.reset(); }

}  // namespace tarvek
