#pragma once
// Small operations on text. Text is bytes as the file has them; a blank is the space character alone. Columns
// count from 1, so that the column in a format's description is the number in the code.

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tarvek {

inline bool IsDigit(char c) { return c >= '0' && c <= '9'; }

inline constexpr std::string_view LineEnd = "\r\n";

inline std::string_view TrimRight(std::string_view text) {
    while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
    return text;
}

inline std::string_view TrimLeft(std::string_view text) {
    while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
    return text;
}

inline std::string_view Trim(std::string_view text) { return TrimLeft(TrimRight(text)); }

// `count` characters from column `start`, fewer where the text ends before.
inline std::string_view Columns(std::string_view text, std::size_t start, std::size_t count) {
    return start > text.size() ? std::string_view() : text.substr(start - 1, count);
}

// Everything from column `start` on.
inline std::string_view ColumnsFrom(std::string_view text, std::size_t start) {
    return Columns(text, start, std::string_view::npos);
}

// The character in column `column`, or NUL behind the text's end.
inline char Column(std::string_view text, std::size_t column) {
    return column > text.size() ? '\0' : text[column - 1];
}

// The fields between single separators; empty fields are kept, and the empty text has one empty field.
std::vector<std::string_view> Split(std::string_view text, char separator);

// Appends `line` to `member`, behind a carriage return and line feed if the member is not empty.
void AppendLine(std::string& member, std::string_view line);

// ASCII letters compare equal in both cases.
bool EqualsIgnoringCase(std::string_view a, std::string_view b);

// A copy of `text` with every `from` replaced by `to`; an empty `from` replaces nothing.
std::string ReplaceAll(std::string_view text, std::string_view from, std::string_view to);

// `text` in a mask of "@" signs: right-aligned in the mask's width, left-aligned after a leading "!"; a
// longer text is not cut.
std::string MaskText(std::string_view text, std::string_view mask);

}  // namespace tarvek
