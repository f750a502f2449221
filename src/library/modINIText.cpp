#include "library/modINIText.hpp"

#include <algorithm>
#include <utility>

#include "platform/modCodePage.hpp"
#include "platform/modText.hpp"

namespace tarvek {
namespace {

constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";

std::size_t ContentStart(std::string_view text) {
    return text.starts_with(ByteOrderMark) ? ByteOrderMark.size() : 0;
}

// The line end that new lines get: the file's own kind.
std::string_view LineEndOf(std::string_view text) {
    for (const std::string_view end : {LineEnd, std::string_view("\n"), std::string_view("\r")})
        if (text.find(end) != std::string_view::npos) return end;
    return LineEnd;
}

std::string Replaced(std::string_view text, std::size_t at, std::size_t count, std::string_view with) {
    std::string result;
    result.reserve(text.size() - count + with.size());
    result.append(text.substr(0, at)).append(with).append(text.substr(at + count));
    return result;
}

// New lines at `at`, the beginning of a line or the end of a text whose last line may lack its end.
std::string WithLines(std::string_view text, std::size_t at, const std::vector<std::string>& lines) {
    const std::string_view end = LineEndOf(text);
    const bool followsOpenLine =
        at > ContentStart(text) && text[at - 1] != LineEnd.back() && text[at - 1] != LineEnd.front();
    std::string added(followsOpenLine ? end : std::string_view());
    for (const std::string& line : lines) added.append(line).append(end);
    return Replaced(text, at, 0, added);
}

// Walks to the first section of that name, past its line; false where there is none.
bool EnterSection(INILines& lines, std::string_view section) {
    INILine line;
    while (lines.Next(line))
        if (line.kind == INILineKind::Section && SameININame(line.name, section)) return true;
    return false;
}

// The next line that still belongs to the section entered.
bool NextOfSection(INILines& lines, INILine& line) {
    return lines.Next(line) && line.kind != INILineKind::Section;
}

// The "]" that ends the name of a section, in a line without blanks at its ends; npos where the line is none.
std::size_t FindSectionEnd(std::string_view line) {
    if (line.front() != '[') return std::string_view::npos;
    for (std::size_t at = line.find(']'); at != std::string_view::npos; at = line.find(']', at + 1)) {
        const std::string_view behind = TrimLeft(line.substr(at + 1));
        if (behind.empty() || behind.front() == ';') return at;
    }
    return line.find('=') == std::string_view::npos ? line.rfind(']') : std::string_view::npos;
}

bool HasAccent(std::string_view text) {
    return std::any_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) > 127; });
}

}  // namespace

INILine ParseINILine(std::string_view text) {
    INILine line;
    line.text = text;
    const std::string_view content = Trim(text);
    if (content.empty()) {
        line.kind = INILineKind::Blank;
    } else if (content.front() == ';') {
        line.kind = INILineKind::Comment;
    } else if (const std::size_t close = FindSectionEnd(content); close != std::string_view::npos) {
        line.kind = INILineKind::Section;
        line.name = content.substr(1, close - 1);
    } else if (const std::size_t equals = text.find('='); equals != std::string_view::npos) {
        line.kind = INILineKind::Key;
        line.name = Trim(text.substr(0, equals));
        line.value = text.substr(equals + 1);
    }
    return line;
}

std::string SectionLine(std::string_view section) { return '[' + std::string(section) + ']'; }

std::string KeyLine(std::string_view key, std::string_view value) {
    return (std::string(key) += '=').append(value);
}

INILines::INILines(std::string_view text) : text_(text), at_(ContentStart(text)) {}

bool INILines::Next(INILine& line) {
    if (at_ >= text_.size()) return false;
    const std::size_t end = std::min(text_.find_first_of(LineEnd, at_), text_.size());
    line = ParseINILine(text_.substr(at_, end - at_));
    const bool isPair = text_.substr(end, LineEnd.size()) == LineEnd;
    at_ = std::min(end + (isPair ? 2 : 1), text_.size());
    return true;
}

bool SameININame(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    return EqualsIgnoringCase(a, b) || (HasAccent(a) && UpperCaseText(a) == UpperCaseText(b));
}

std::string_view WholeINIValue(std::string_view value) {
    value = Trim(value);
    const bool isQuoted = value.size() >= 2 && value.front() == '"' && value.back() == '"';
    return isQuoted ? value.substr(1, value.size() - 2) : value;
}

std::string_view CutINIValue(std::string_view value) {
    return WholeINIValue(value).substr(0, LongestINIValue);
}

std::optional<std::string_view> FindINIValue(std::string_view text, std::string_view section,
                                             std::string_view key) {
    key = Trim(key);
    INILines lines(text);
    if (!EnterSection(lines, section)) return std::nullopt;
    INILine line;
    while (NextOfSection(lines, line))
        if (line.kind == INILineKind::Key && SameININame(line.name, key)) return CutINIValue(line.value);
    return std::nullopt;
}

std::string WithINIValue(std::string_view text, std::string_view section, std::string_view key,
                         std::string_view value) {
    key = Trim(key);
    const std::string newLine = KeyLine(key, value);
    INILines lines(text);
    if (!EnterSection(lines, section)) return WithLines(text, text.size(), {SectionLine(section), newLine});

    std::size_t end = lines.Position();  // of what the section holds, blank lines behind it left out
    bool isBehindBlank = false;
    INILine line;
    while (NextOfSection(lines, line)) {
        if (line.kind == INILineKind::Key && SameININame(line.name, key)) {
            // From the left first: of a value of blanks alone all stay before the new one.
            const std::string_view old = TrimRight(TrimLeft(line.value));
            return Replaced(text, static_cast<std::size_t>(old.data() - text.data()), old.size(), value);
        }
        if (line.kind == INILineKind::Blank) isBehindBlank = true;
        // Behind a blank line only a key goes on with the section; a comment there speaks of the next one.
        if (line.kind == INILineKind::Key) isBehindBlank = false;
        if (!isBehindBlank) end = lines.Position();
    }
    return WithLines(text, end, {newLine});
}

std::string WithoutINISection(std::string_view text, std::string_view section) {
    INILines lines(text);
    INILine line;
    std::size_t start = 0;
    do {
        start = lines.Position();
        if (!lines.Next(line)) return std::string(text);
    } while (line.kind != INILineKind::Section || !SameININame(line.name, section));

    std::size_t end = lines.Position();
    bool onlyBlankSince = true;
    while (NextOfSection(lines, line)) {
        if (line.kind == INILineKind::Key) onlyBlankSince = true;
        if (line.kind != INILineKind::Key && line.kind != INILineKind::Blank) onlyBlankSince = false;
        if (onlyBlankSince) end = lines.Position();
    }
    return Replaced(text, start, end - start, {});
}

const INIKey* INISection::Find(std::string_view key) const {
    key = Trim(key);
    for (const INIKey& candidate : keys)
        if (SameININame(candidate.name, key)) return &candidate;
    return nullptr;
}

INIView::INIView(std::string text) : text_(std::move(text)) {
    INILines lines(text_);
    INILine line;
    while (lines.Next(line)) {
        if (line.kind == INILineKind::Section) {
            firstOfName_.emplace(UpperCaseText(line.name), sections_.size());
            sections_.push_back({line.name, {}});
        } else if (line.kind == INILineKind::Key && !sections_.empty()) {
            sections_.back().keys.push_back({line.name, CutINIValue(line.value)});
        }
    }
}

const INISection* INIView::Find(std::string_view section) const {
    const auto found = firstOfName_.find(UpperCaseText(section));
    return found == firstOfName_.end() ? nullptr : &sections_[found->second];
}

std::string_view INIView::Value(std::string_view section, std::string_view key,
                                std::string_view whenEmpty) const {
    const INISection* const found = Find(section);
    const INIKey* const entry = found == nullptr ? nullptr : found->Find(key);
    return entry == nullptr || entry->value.empty() ? whenEmpty : entry->value;
}

std::string INIView::SectionNames() const {
    std::string names;
    for (const INISection& section : sections_) {
        const std::size_t room = LongestINISectionNames - names.size();
        if (room < 2) break;
        names.append(section.name.substr(0, room - 1)) += '\0';
        if (section.name.size() >= room) break;
    }
    return names;
}

}  // namespace tarvek
