#pragma once
// Text in memory is bytes as the files have them; the code page of survey files is Windows-1252. Where
// Unicode is needed (terminal, windows, KML, JSON) valid UTF-8 is taken as UTF-8 and anything else as
// Windows-1252.

#include <string>
#include <string_view>

namespace tarvek {

inline constexpr char DegreeSign = '\xB0';

// `bytes` in UTF-8. The five codes that Windows-1252 leaves undefined become U+FFFD.
std::string Utf8FromBytes(std::string_view bytes);
// Appends a character up to U+FFFF.
void AppendUtf8(std::string& out, char32_t code);
bool IsValidUtf8(std::string_view bytes);

// Upper case of every letter: ASCII, and the accented letters of Windows-1252 in text that is not valid
// UTF-8.
std::string UpperCaseText(std::string_view text);
// The same, put to where `to` points.
void CopyUpperCase(char* to, std::string_view text);

// UTF-8 text for a terminal: line ends become new lines, a tab a blank, and every other control character,
// also those that change the writing direction, a visible mark ("^[" for escape).
std::string TerminalText(std::string_view bytes);

}  // namespace tarvek
