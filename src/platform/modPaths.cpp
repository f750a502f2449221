#include "platform/modPaths.hpp"

#include <filesystem>
#include <system_error>

#include "platform/modText.hpp"

namespace tarvek {
namespace {

namespace fs = std::filesystem;

bool Exists(const std::string& path) {
    std::error_code error;
    return !path.empty() && fs::exists(fs::path(path), error);
}

// The entry of `folder` whose name is `name` but for letter case, the first in byte order; empty where there
// is none.
std::string FindNameIgnoringCase(const std::string& folder, std::string_view name) {
    std::string best;
    std::error_code error;
    for (fs::directory_iterator entry(folder.empty() ? "." : folder, error), end; !error && entry != end;
         entry.increment(error)) {
        const std::string found = entry->path().filename().string();
        const bool isBetter = best.empty() || found < best;
        if (isBetter && EqualsIgnoringCase(found, name) && Exists(entry->path().string())) best = found;
    }
    return best;
}

}  // namespace

std::string NativePath(std::string_view given) { return ReplaceAll(given, "\\", "/"); }

std::string FindPath(std::string_view given) {
    if (Exists(std::string(given))) return std::string(given);
    std::string native = NativePath(given);
    if (Exists(native)) return native;
    std::string path = native.starts_with('/') ? "/" : "";
    for (const std::string_view name : Split(native, '/')) {
        if (name.empty()) continue;
        const std::string asWritten = path + std::string(name);
        const std::string found = Exists(asWritten) ? std::string(name) : FindNameIgnoringCase(path, name);
        if (found.empty()) return {};
        path += found + '/';
    }
    if (path.size() > 1) path.pop_back();
    return path;
}

bool FileExists(std::string_view given) {
    const std::string path = FindPath(given);
    std::error_code error;
    return !path.empty() && !given.ends_with('/') && !given.ends_with('\\') && !fs::is_directory(path, error);
}

std::string OutputPath(std::string_view given) {
    return Exists(std::string(given)) ? std::string(given) : NativePath(given);
}

bool OutputFileExists(std::string_view given) {
    const std::string path = OutputPath(given);
    std::error_code error;
    return Exists(path) && !fs::is_directory(path, error);
}

bool FolderExists(std::string_view given) {
    const std::string path = FindPath(given);
    std::error_code error;
    return !path.empty() && fs::is_directory(path, error);
}

std::string JoinPath(std::string_view folder, std::string_view path) {
    if (path.starts_with('/') || folder.empty()) return std::string(path);
    std::string joined(folder);
    if (!joined.ends_with('/')) joined += '/';
    return joined.append(path);
}

std::string FileName(std::string_view path) {
    const std::size_t separator = path.rfind('/');
    return std::string(separator == std::string_view::npos ? path : path.substr(separator + 1));
}

std::string FolderOf(std::string_view path) {
    const std::size_t separator = path.rfind('/');
    if (separator == std::string_view::npos) return ".";
    return separator == 0 ? "/" : std::string(path.substr(0, separator));
}

std::string ResolveLinks(const std::string& path) {
    std::string target = path;
    std::error_code error;
    for (int hops = 0; hops < 40 && fs::is_symlink(target, error); ++hops) {
        const std::string next = fs::read_symlink(target, error).string();
        if (error) break;
        const std::string followed = JoinPath(FolderOf(target), next);
        // What stands behind a link in /proc (a pipe as standard output) may have no path of its own.
        if (!Exists(followed) && !fs::is_symlink(followed, error) && Exists(target)) break;
        target = followed;
    }
    return target;
}

}  // namespace tarvek
