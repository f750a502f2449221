#include "platform/modSettings.hpp"

#include <algorithm>
#include <filesystem>

#include "platform/modCodePage.hpp"
#include "platform/modFaults.hpp"
#include "platform/modPaths.hpp"
#include "platform/modText.hpp"
#include "platform/modTextFileIn.hpp"
#include "platform/modTextFileOut.hpp"
#include "platform/modUserFolders.hpp"

namespace tarvek {
namespace {

namespace fs = std::filesystem;

using Lines = std::vector<std::string>;

constexpr std::string_view HexDigits = "0123456789ABCDEF";  // in names; the small ones in values
constexpr std::string_view SmallHexDigits = "0123456789abcdef";

bool IsLetterOrDigit(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}

// The value of a hexadecimal digit, or -1.
int HexValue(char c) {
    const std::size_t at = HexDigits.find(c >= 'a' && c <= 'f' ? static_cast<char>(c - 'a' + 'A') : c);
    return at == std::string_view::npos ? -1 : static_cast<int>(at);
}

void RequirePlainName(std::string_view name) {
    for (const char c : name)
        if (c < ' ' || c > '~') RaiseFault(Fault::InvalidCall);
}

// ---- names of sections and keys: "Latitude%20Direction"

std::string EscapedName(std::string_view name) {
    std::string out;
    for (const char c : name) {
        if (IsLetterOrDigit(c) || c == '_' || c == '-' || c == '.') {
            out += c;
        } else if (c == '/') {
            out += '\\';
        } else {
            out += '%';
            out += HexDigits[static_cast<unsigned char>(c) >> 4];
            out += HexDigits[c & 15];
        }
    }
    return out;
}

// Others than ours, beyond ASCII, need not come out right, as they are only compared.
std::string UnescapedName(std::string_view escaped) {
    std::string out;
    for (std::size_t at = 0; at < escaped.size(); ++at) {
        const char c = escaped[at];
        const int high = c == '%' && at + 2 < escaped.size() ? HexValue(escaped[at + 1]) : -1;
        const int low = high >= 0 ? HexValue(escaped[at + 2]) : -1;
        if (low >= 0) {
            out += static_cast<char>(high * 16 + low);
            at += 2;
        } else {
            out += c == '\\' ? '/' : c;
        }
    }
    return out;
}

// "General" as a section of ours must not be taken for the keys outside of every section.
std::string SectionLine(std::string_view section) {
    if (section.empty()) return "[General]";
    if (EqualsIgnoringCase(section, "General")) return "[%" + std::string(section) + "]";
    return "[" + EscapedName(section) + "]";
}

bool IsSectionLine(std::string_view line) { return Trim(line).starts_with('['); }

bool IsSection(std::string_view line, std::string_view section) {
    line = Trim(line);
    const std::size_t end = line.find(']');
    if (!line.starts_with('[') || end == std::string_view::npos) return false;
    const std::string_view name = Trim(line.substr(1, end - 1));
    if (section.empty()) return EqualsIgnoringCase(name, "General");
    if (name.starts_with('%') && EqualsIgnoringCase(name.substr(1), "General"))
        return section == name.substr(1);
    return !EqualsIgnoringCase(name, "General") && UnescapedName(name) == section;
}

// True for a line "key=value"; `value` is then what follows the sign.
bool IsKeyLine(std::string_view line, std::string_view key, std::string_view& value) {
    const std::size_t sign = line.find('=');
    if (sign == std::string_view::npos || Trim(line).starts_with(';')) return false;
    if (UnescapedName(Trim(line.substr(0, sign))) != key) return false;
    value = line.substr(sign + 1);
    return true;
}

// ---- values

struct Escape {
    char letter;
    char character;
};

constexpr Escape Escapes[] = {{'a', '\a'}, {'b', '\b'}, {'f', '\f'}, {'n', '\n'},  {'r', '\r'},
                              {'t', '\t'}, {'v', '\v'}, {'"', '"'},  {'\\', '\\'}, {'\'', '\''}};

// What "\x" may be followed by is not bounded, so a digit that comes next is written in the same way.
std::string EscapedValue(std::string_view value) {
    std::string out = value.starts_with('@') ? "@" : "";  // a single one announces a type
    bool afterHex = false;
    for (const char c : value) {
        const auto* escape = std::find_if(std::begin(Escapes), std::end(Escapes),
                                          [c](const Escape& row) { return row.character == c; });
        const auto byte = static_cast<unsigned char>(c);
        if (escape != std::end(Escapes) && c != '\'') {
            out += {'\\', escape->letter};
            afterHex = false;
        } else if (byte < 0x20 || (afterHex && HexValue(c) >= 0)) {
            out += {'\\', 'x'};
            if (byte >= 0x10) out += SmallHexDigits[byte >> 4];
            out += SmallHexDigits[byte & 15];
            afterHex = true;
        } else {
            out += c;
            afterHex = false;
        }
    }
    const bool hasEndBlank = out.starts_with(' ') || out.ends_with(' ');
    const bool needsQuotes = hasEndBlank || out.find_first_of(",;=") != std::string::npos;
    return needsQuotes ? '"' + out + '"' : out;
}

// The escape sequence behind the backslash at `at`, which moves to the sequence's last character.
void AppendUnescaped(std::string& out, std::string_view text, std::size_t& at) {
    if (++at >= text.size()) return;
    const auto* escape = std::find_if(std::begin(Escapes), std::end(Escapes),
                                      [&](const Escape& row) { return row.letter == text[at]; });
    if (escape != std::end(Escapes)) {
        out += escape->character;
        return;
    }
    const bool isHex = text[at] == 'x';
    if (!isHex && (text[at] < '0' || text[at] > '7')) return;  // unknown: nothing
    char32_t code = 0;
    std::size_t next = isHex ? at + 1 : at;
    const int base = isHex ? 16 : 8;
    for (; next < text.size(); ++next) {
        const int digit = HexValue(text[next]);
        if (digit < 0 || digit >= base) break;
        code = (code * static_cast<char32_t>(base) + static_cast<char32_t>(digit)) & 0xFFFF;
    }
    AppendUtf8(out, code);
    at = next - 1;
}

// "@@" is a plain "@"; "@String(...)" is how QSettings writes a text with a NUL in it.
std::string WithoutTypeMark(const std::string& value) {
    constexpr std::string_view TextMark = "@String(";
    if (value.starts_with("@@")) return value.substr(1);
    if (!value.starts_with(TextMark) || !value.ends_with(')')) return value;
    return value.substr(TextMark.size(), value.size() - TextMark.size() - 1);
}

// Quotes may stand anywhere; blanks outside of them at either end do not belong to the value.
std::string UnescapedValue(std::string_view text) {
    text = Trim(text);
    std::string out;
    std::size_t quotedEnd = 0;
    bool quoted = false;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char c = text[at];
        if (c == '"') {
            quoted = !quoted;
            quotedEnd = out.size();
        } else if (c == ';' && !quoted) {
            break;  // the rest is a comment
        } else if (c == '\\') {
            AppendUnescaped(out, text, at);
            quotedEnd = out.size();
        } else {
            out += c;
        }
    }
    while (out.size() > quotedEnd && out.back() == ' ') out.pop_back();
    return WithoutTypeMark(out);
}

// ---- the file

// The lines of the settings file; none where there is no such file.
Lines ReadLines(const std::string& path) {
    Lines lines;
    if (!FileExists(path)) return lines;
    TextFileIn file(path);
    for (std::string_view line; file.NextLine(line);) lines.emplace_back(line);
    return lines;
}

void WriteLines(const std::string& path, const Lines& lines) {
    WriteTextFile(path, [&lines](TextFileOut& file) {
        for (const std::string& line : lines) {
            file.Text(line);
            file.Text("\n");
        }
    });
}

struct Place {
    bool sectionFound = false;
    bool keyFound = false;
    std::size_t line = 0;    // of the key, else the one before which it belongs
    std::string_view value;  // as it stands in the file
};

// Where a key stands, or belongs; the last one where there are several, since that one holds.
Place FindPlace(const Lines& lines, std::string_view section, std::string_view key) {
    Place place;
    place.line = lines.size();
    bool inSection = section.empty();
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (IsSectionLine(lines[i])) {
            inSection = IsSection(lines[i], section);
            place.sectionFound |= inSection;
        }
        if (!inSection) continue;
        const bool isKey = IsKeyLine(lines[i], key, place.value);
        place.keyFound |= isKey;
        const bool isContent = !Trim(lines[i]).empty();
        if (isKey) place.line = i;
        if (!place.keyFound && isContent) place.line = i + 1;
    }
    return place;
}

void PutLine(Lines& lines, std::string_view section, std::string_view key, std::string_view value) {
    const Place place = FindPlace(lines, section, key);
    const auto at = lines.begin() + static_cast<std::ptrdiff_t>(place.line);
    const std::string line = EscapedName(key) + "=" + EscapedValue(Utf8FromBytes(value));
    if (place.keyFound) {
        *at = line;
    } else if (place.sectionFound) {
        lines.insert(at, line);
    } else {
        if (!lines.empty()) lines.emplace_back();
        lines.push_back(SectionLine(section));
        lines.push_back(line);
    }
}

// A new folder is for its user alone.
void MakeFolder(const std::string& folder) {
    std::error_code error;
    const bool isNew = fs::create_directories(folder, error);
    if (isNew) fs::permissions(folder, fs::perms::owner_all, error);
}

}  // namespace

std::string SettingsFile() {
    const std::string folder = ConfigFolder();
    return folder.empty() ? folder : JoinPath(folder, "settings.ini");
}

std::string GetSetting(std::string_view section, std::string_view key, std::string_view fallback) {
    RequirePlainName(section);
    RequirePlainName(key);
    try {
        const Lines lines = ReadLines(SettingsFile());
        const Place place = FindPlace(lines, section, key);
        if (place.keyFound) return UnescapedValue(place.value);
    } catch (const RuntimeFault& fault) {
        if (!fault.IsFileFault()) throw;
    }
    return std::string(fallback);
}

bool PutSettings(std::string_view section, const SettingValues& values) {
    RequirePlainName(section);
    for (const auto& [key, value] : values) RequirePlainName(key);
    const std::string path = SettingsFile();
    if (path.empty()) return false;
    try {
        Lines lines = ReadLines(path);
        for (const auto& [key, value] : values) PutLine(lines, section, key, value);
        MakeFolder(FolderOf(path));
        WriteLines(path, lines);
        return true;
    } catch (const RuntimeFault& fault) {
        if (!fault.IsFileFault()) throw;
        return false;
    }
}

bool PutSetting(std::string_view section, std::string_view key, std::string_view value) {
    return PutSettings(section, {{key, value}});
}

}  // namespace tarvek
