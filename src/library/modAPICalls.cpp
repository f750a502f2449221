#include "library/modAPICalls.hpp"

#include <algorithm>

#include "library/modINIFile.hpp"
#include "library/modINIText.hpp"
#include "platform/modFaults.hpp"
#include "platform/modText.hpp"

namespace tarvek {
namespace {

constexpr std::size_t LongestShortPath = 255;

void RefuseControlCharacters(std::string_view name) {
    const auto isControl = [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7F'; };
    if (std::any_of(name.begin(), name.end(), isControl)) RaiseFault(Fault::InvalidCall);
}

// A value may hold any other character.
void RefuseLineEnds(std::string_view value) {
    constexpr std::string_view Refused("\r\n\0", 3);
    if (value.find_first_of(Refused) != std::string_view::npos) RaiseFault(Fault::InvalidCall);
}

// A line may not turn into one of another kind, nor may its name end before its own end.
void RequireReadable(const std::string& text, INILineKind kind, std::string_view name) {
    const INILine line = ParseINILine(text);
    if (name.empty() || line.kind != kind || line.name != name) RaiseFault(Fault::InvalidCall);
}

void RequireReadableKey(const INIKeyValue& pair) {
    RefuseControlCharacters(pair.key);
    RefuseLineEnds(pair.value);
    const std::string_view key = Trim(pair.key);
    RequireReadable(KeyLine(key, pair.value), INILineKind::Key, key);
}

}  // namespace

std::string GET_INIValue(std::string_view file, std::string_view section, std::string_view key,
                         std::string_view whenEmpty) {
    const std::string text = ReadINIFile(file);
    const std::string_view value = FindINIValue(text, section, key).value_or("");
    return std::string(value.empty() ? whenEmpty : value);
}

bool PUT_INIValue(std::string_view file, std::string_view section, std::string_view key,
                  std::string_view value) {
    const INIKeyValue pair = {key, value};
    return PUT_INIValues(file, section, {&pair, 1});
}

bool PUT_INIValues(std::string_view file, std::string_view section, std::span<const INIKeyValue> values) {
    RefuseControlCharacters(section);
    RequireReadable(SectionLine(section), INILineKind::Section, section);
    for (const INIKeyValue& pair : values) RequireReadableKey(pair);
    return EditINIFile(file, [section, values](std::string_view before) {
        std::string text(before);
        for (const INIKeyValue& pair : values) text = WithINIValue(text, section, pair.key, pair.value);
        return text;
    });
}

bool DELETE_INISection(std::string_view file, std::string_view section) {
    return EditINIFile(file,
                       [section](std::string_view before) { return WithoutINISection(before, section); });
}

std::string GET_INISectionNames(std::string_view file) { return INIView(ReadINIFile(file)).SectionNames(); }

std::vector<std::string_view> SplitSectionNames(std::string_view names) {
    std::vector<std::string_view> split = Split(names, '\0');
    split.pop_back();  // what stands behind the last NUL
    return split;
}

std::string GET_ShortPath(std::string_view path) {
    return std::string(path.size() > LongestShortPath ? std::string_view() : path);
}

}  // namespace tarvek
