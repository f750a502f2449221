#pragma once
// The text of an INI file: sections "[name]", keys "name=value", comment lines that begin with ";", and blank
// lines. Names are compared without regard to letter case, and of two equal ones the first counts. Blanks
// around a line and around a key do not count. What a line is not read for (a byte order mark among it) is
// kept by edits.
//
// Names may hold brackets, so a line that begins with "[" is read like this:
//   [A]   [A [old]]   [A]x]   a section: its name ends at the first "]" with nothing behind it
//   [A] ; see [B]             a section with a comment: its name ends at the first "]" with ";" behind it
//   [A] behind it             a section too, for without "=" it can be nothing else; its name ends at the
//   last
//                             "]"
//   [A] b=c                   a key, "[A] b"
// A section whose name has "]" and ";" with no more than blanks between them can not be written, nor can a
// key that begins with "[" have a value in which a "]" stands at the end or before a ";".

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tarvek {

inline constexpr std::size_t LongestINIValue = 24'999;
inline constexpr std::size_t LongestINISectionNames = 29'998;

enum class INILineKind { Section, Key, Comment, Blank, Other };

struct INILine {
    INILineKind kind = INILineKind::Other;
    std::string_view text;   // without its line end
    std::string_view name;   // of the section or key
    std::string_view value;  // of the key: all that follows "=", blanks and quotation marks included
};

INILine ParseINILine(std::string_view text);
// The line of a section or key, without its end.
std::string SectionLine(std::string_view section);
std::string KeyLine(std::string_view key, std::string_view value);

// The lines of a text from first to last.
class INILines {
  public:
    explicit INILines(std::string_view text);
    bool Next(INILine& line);
    // Where the next line begins.
    std::size_t Position() const { return at_; }

  private:
    std::string_view text_;
    std::size_t at_;
};

bool SameININame(std::string_view a, std::string_view b);

// A key's value without blanks at its ends and one enclosing pair of quotation marks.
std::string_view WholeINIValue(std::string_view value);
// The same as it is read: not longer than LongestINIValue.
std::string_view CutINIValue(std::string_view value);

// The value of the first such key in the first such section.
std::optional<std::string_view> FindINIValue(std::string_view text, std::string_view section,
                                             std::string_view key);

// `text` with that value in place of the old one. A new key goes to the end of its section, a new section to
// the end of the text, and every other byte stays. The section ends before the first blank line that no
// further key of it follows: a comment behind that line speaks of the next section and stays with it, while
// one that follows a key without a blank line belongs to the key.
std::string WithINIValue(std::string_view text, std::string_view section, std::string_view key,
                         std::string_view value);

// `text` without the first such section: its line, its keys with what stands between them, and the blank
// lines behind the last key. Comments behind that stay, for they may belong to what follows.
std::string WithoutINISection(std::string_view text, std::string_view section);

struct INIKey {
    std::string_view name;
    std::string_view value;  // as it is read
};

struct INISection {
    std::string_view name;
    std::vector<INIKey> keys;

    // The first key of that name; nullptr where there is none.
    const INIKey* Find(std::string_view key) const;
};

// An INI text taken apart, for a call that looks at many keys.
class INIView {
  public:
    explicit INIView(std::string text);
    ~INIView() = default;
    INIView(const INIView&) = delete;
    INIView& operator=(const INIView&) = delete;

    const std::string& Text() const { return text_; }
    // Every section in file order, also one that repeats an earlier name.
    const std::vector<INISection>& Sections() const { return sections_; }
    // The first section of that name; nullptr where there is none.
    const INISection* Find(std::string_view section) const;
    // The value of a key; `whenEmpty` where it is empty or the key or the section is missing.
    std::string_view Value(std::string_view section, std::string_view key,
                           std::string_view whenEmpty = {}) const;
    // The names of all sections, each followed by NUL; cut at LongestINISectionNames characters.
    std::string SectionNames() const;

  private:
    std::string text_;
    std::vector<INISection> sections_;
    std::unordered_map<std::string, std::size_t> firstOfName_;  // by the name in upper case
};

}  // namespace tarvek
