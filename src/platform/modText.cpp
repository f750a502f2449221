#include "platform/modText.hpp"

namespace tarvek {
namespace {

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

}  // namespace

std::vector<std::string_view> Split(std::string_view text, char separator) {
    std::vector<std::string_view> fields;
    std::size_t start = 0;
    for (std::size_t end; (end = text.find(separator, start)) != std::string_view::npos; start = end + 1)
        fields.push_back(text.substr(start, end - start));
    fields.push_back(text.substr(start));
    return fields;
}

void AppendLine(std::string& member, std::string_view line) {
    if (member.empty()) {
        // Takes no more room than the line needs: most members have one line only.
        member = std::string(line);
        return;
    }
    member += LineEnd;
    member += line;
}

bool EqualsIgnoringCase(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (Lower(a[i]) != Lower(b[i])) return false;
    return true;
}

std::string ReplaceAll(std::string_view text, std::string_view from, std::string_view to) {
    if (from.empty()) return std::string(text);
    std::string result;
    std::size_t start = 0;
    for (std::size_t at; (at = text.find(from, start)) != std::string_view::npos; start = at + from.size()) {
        result += text.substr(start, at - start);
        result += to;
    }
    result += text.substr(start);
    return result;
}

std::string MaskText(std::string_view text, std::string_view mask) {
    const bool alignLeft = !mask.empty() && mask.front() == '!';
    const std::size_t width = mask.size() - (alignLeft ? 1 : 0);
    const std::string padding(width > text.size() ? width - text.size() : 0, ' ');
    return alignLeft ? std::string(text) + padding : padding + std::string(text);
}

}  // namespace tarvek
