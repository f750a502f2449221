#pragma once
// The kinds of survey file that a translation can name, with the reader and the writer of each.

#include <string>
#include <string_view>

namespace tarvek {

// Reads into the input tables, or prints the output tables; false after the user was told why not.
using FileRoutine = bool (*)(const std::string& path);

struct FileType {
    std::string_view label;      // as translator definitions and the dialog name it, compared exactly
    std::string_view key;        // short name on the command line; several labels can share one
    FileRoutine read;            // nullptr where the kind can not be read
    FileRoutine write;           // nullptr where the kind can not be written by a plain file conversion
    FileRoutine writeConverted;  // nullptr where it can not be written after a coordinate conversion
};

// nullptr for a label or key that is not known.
const FileType* FileTypeOfLabel(std::string_view label);
const FileType* FileTypeOfKey(std::string_view key);
// By the extension of a path, in any letter case.
const FileType* FileTypeOfPath(std::string_view path);

// The keys of all kinds that have a routine, joined by blanks, for help texts.
std::string KeysWith(FileRoutine FileType::*routine);

}  // namespace tarvek
