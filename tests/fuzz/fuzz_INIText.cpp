// Any bytes as an INI text, and an edit of it: section, key, value and text, parted by NUL. All ways of
// looking a value up agree, an edit changes what it is to change, and every other byte stays.

#include <algorithm>

#include "fuzz/fuzzSupport.hpp"
#include "library/modINIText.hpp"
#include "platform/modText.hpp"

namespace {

using namespace tarvek;
using fuzz::Require;

void RequireLookUpsAgree(std::string_view text) {
    const INIView view{std::string(text)};
    for (const INISection& section : view.Sections()) {
        const INISection* const first = view.Find(section.name);
        Require(first != nullptr && first <= &section, "a section is found by its name");
        if (first != &section) continue;
        for (const INIKey& key : section.keys) {
            const INIKey* const found = section.Find(key.name);
            Require(found != nullptr, "a key is found by its name");
            const auto value = FindINIValue(text, section.name, key.name);
            Require(value.has_value() && *value == found->value, "both look-ups give one value");
            Require(value->size() <= LongestINIValue, "a value is not longer than the limit");
        }
    }
    const std::string names = view.SectionNames();
    Require(names.size() <= LongestINISectionNames, "the list of names is not longer than the limit");
    Require(names.empty() || names.back() == '\0', "the last name is ended");
}

bool HasLineEnd(std::string_view text) { return text.find_first_of(LineEnd) != std::string_view::npos; }

bool IsReadBack(const std::string& line, INILineKind kind, std::string_view name) {
    const INILine parsed = ParseINILine(line);
    return !name.empty() && !HasLineEnd(line) && parsed.kind == kind && parsed.name == name;
}

// What both texts have in common at their two ends must be all but `size` characters of `before`.
void RequireOthersStay(std::string_view before, std::string_view after, std::size_t size) {
    const auto start = std::mismatch(before.begin(), before.end(), after.begin(), after.end());
    const auto same = static_cast<std::size_t>(start.first - before.begin());
    const std::string_view restBefore = before.substr(same);
    const std::string_view restAfter = after.substr(same);
    const auto end =
        std::mismatch(restBefore.rbegin(), restBefore.rend(), restAfter.rbegin(), restAfter.rend());
    Require(static_cast<std::size_t>(restBefore.rend() - end.first) <= size, "every other byte stays");
}

// The size of the value of a key as it stands in the text, without the blanks around it.
std::size_t WrittenSize(std::string_view text, std::string_view section, std::string_view key) {
    INILines lines(text);
    INILine line;
    while (lines.Next(line) && !(line.kind == INILineKind::Section && SameININame(line.name, section))) {
    }
    while (lines.Next(line))
        if (line.kind == INILineKind::Key && SameININame(line.name, Trim(key))) break;
    return Trim(line.value).size();
}

void RequirePut(std::string_view text, std::string_view section, std::string_view key,
                std::string_view value) {
    if (!IsReadBack(SectionLine(section), INILineKind::Section, section)) return;
    if (!IsReadBack(KeyLine(Trim(key), value), INILineKind::Key, Trim(key))) return;
    const std::string after = WithINIValue(text, section, key, value);
    const auto found = FindINIValue(after, section, key);
    Require(found.has_value() && *found == CutINIValue(value), "a value that was put is found");
    const INIView view{std::string(text)};
    const INISection* const old = view.Find(section);
    const bool isReplaced = old != nullptr && old->Find(key) != nullptr;
    // Where a value is replaced, no more than that goes, with its quotation marks and what was cut of it.
    RequireOthersStay(text, after, isReplaced ? WrittenSize(text, section, key) : 0);
    const INIView changed(after);
    Require(changed.Sections().size() == view.Sections().size() + (old == nullptr ? 1 : 0),
            "a section is added only where there was none");
    // Blanks at the ends of a value are none of it: they gather with each edit.
    Require(Trim(value) != value || WithINIValue(after, section, key, value) == after,
            "a second edit changes nothing");
}

void RequireDelete(std::string_view text, std::string_view section) {
    const INIView before{std::string(text)};
    const INIView after(WithoutINISection(text, section));
    const bool isThere = before.Find(section) != nullptr;
    Require(after.Sections().size() + (isThere ? 1 : 0) == before.Sections().size(), "one section goes");
    Require(isThere || after.Text() == text, "where there is no section nothing changes");
}

// Cuts the next part off, up to a NUL.
std::string_view NextPart(std::string_view& rest) {
    const std::string_view part = rest.substr(0, std::min(rest.find('\0'), rest.size()));
    rest.remove_prefix(std::min(part.size() + 1, rest.size()));
    return part;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string_view rest = fuzz::TextOf(data, size);
    const std::string_view section = NextPart(rest);
    const std::string_view key = NextPart(rest);
    const std::string_view value = NextPart(rest);
    RequireLookUpsAgree(rest);
    RequirePut(rest, section, key, value);
    RequireDelete(rest, section);
    return 0;
}
