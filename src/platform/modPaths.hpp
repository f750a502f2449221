#pragma once
// Paths as users, definition files and tools write them: "/" and "\" both part folders, and a name that does
// not exist as written is looked up without regard to letter case. What the program makes or shows has this
// platform's "/".

#include <string>
#include <string_view>

namespace tarvek {

inline constexpr char PathSeparator = '/';

// `given` with every "\" turned into "/".
std::string NativePath(std::string_view given);

// The path under which a file or folder named by `given` exists: as written, with "\" as separator, or with
// other letter case in any of its names (the first in byte order where several fit). Empty where there is
// none.
std::string FindPath(std::string_view given);

// True if `given` names something that can be read as a file; a folder can not.
bool FileExists(std::string_view given);
bool FolderExists(std::string_view given);
// The path under which a file is written: its name is taken as written, also with a "\" in it where there is
// such a file; otherwise "\" parts folders.
std::string OutputPath(std::string_view given);
// True if there is a file at the output path; letter case counts.
bool OutputFileExists(std::string_view given);

// `path` itself where it is absolute, else behind `folder`.
std::string JoinPath(std::string_view folder, std::string_view path);
// What follows the last separator; what precedes it ("." where there is none, "/" for the root).
std::string FileName(std::string_view path);
std::string FolderOf(std::string_view path);
// The path with every link followed, whose last name need not exist yet.
std::string ResolveLinks(const std::string& path);

}  // namespace tarvek
