#pragma once
// The only access to the library's INI files, and to those of the flexible formats. Each call reads its file
// anew; nothing is kept between calls.

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tarvek {

// The value of a key without blanks at its ends and one enclosing pair of quotation marks, cut at 24,999
// characters; `whenEmpty` where it is empty or the key, the section or the file is missing.
std::string GET_INIValue(std::string_view file, std::string_view section, std::string_view key,
                         std::string_view whenEmpty);

struct INIKeyValue {
    std::string_view key;
    std::string_view value;
};

// Puts a value in place of the old one, or a new key at the end of its section, a new section at the end of
// the file, a file where there was none; nothing else changes. False, after the user was told, where the file
// system refuses, with the file as it was. Fault::InvalidCall, with nothing written, for a line end or NUL in
// the value, for a control character in section or key, and for a section or key that is empty or would not
// be read back as it is.
bool PUT_INIValue(std::string_view file, std::string_view section, std::string_view key,
                  std::string_view value);
// The same for many keys of one section, in one write: all of them stand afterwards or none.
bool PUT_INIValues(std::string_view file, std::string_view section, std::span<const INIKeyValue> values);

// Removes a section with all its keys; true also where there is none. False as above.
bool DELETE_INISection(std::string_view file, std::string_view section);

// The names of all sections in file order, each followed by NUL. At most 29,998 characters: where the names
// do not fit, the list stops there, its last name cut.
std::string GET_INISectionNames(std::string_view file);
// Those names one by one; they lie in `names`.
std::vector<std::string_view> SplitSectionNames(std::string_view names);

// The name of a path for tools that know short names alone. This platform has none: it is the path itself, or
// the empty text for a path of more than 255 characters, which such a tool can not take.
std::string GET_ShortPath(std::string_view path);

}  // namespace tarvek
