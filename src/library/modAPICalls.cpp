#include "library/modAPICalls.hpp"

#include <algorithm>

#include "library/modINIFile.hpp"
#include "library/modINIText.hpp"
#include "platform/modFaults.hpp"
#include "platform/modText.hpp"

namespace tarvek {
namespace {

constexpr std::size_t LongestShortPath = 255;

void RefuseControlCharacters(std::string_view text) {
    const auto isControl = [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7F'; };
    if (std::any_of(text.begin(), text.end(), isControl)) RaiseFault(Fault::InvalidCall);
}

// A key may not turn its line into a comment or a section, nor end before its own end.
void RequireReadableKey(const INIKeyValue& pair) {
    const std::string_view key = Trim(pair.key);
    const std::string text = std::string(key).append("=").append(pair.value);
    const INILine line = ParseINILine(text);
    if (key.empty() || line.kind != INILineKind::Key || line.name != key) RaiseFault(Fault::InvalidCall);
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
    if (section.empty()) RaiseFault(Fault::InvalidCall);
    for (const INIKeyValue& pair : values) {
        RefuseControlCharacters(pair.key);
        RefuseControlCharacters(pair.value);
        RequireReadableKey(pair);
    }
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
