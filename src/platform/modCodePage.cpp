#include "platform/modCodePage.hpp"

#include <array>
#include <cstdint>
#include <cstring>
#include <optional>

namespace tarvek {
namespace {

using Byte = unsigned char;

// Unicode of the bytes 0x80 to 0x9F (the Unicode Consortium's table CP1252.TXT).
constexpr std::array<char32_t, 32> UpperControls = {
    0x20AC, 0xFFFD, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0xFFFD, 0x017D, 0xFFFD, 0xFFFD, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0xFFFD, 0x017E, 0x0178};

struct Utf8Sequence {
    std::size_t length;
    char32_t code;
};

// The well-formed sequence at `at` (RFC 3629: shortest form, no surrogates, up to U+10FFFF).
std::optional<Utf8Sequence> SequenceAt(std::string_view bytes, std::size_t at) {
    const auto lead = static_cast<Byte>(bytes[at]);
    if (lead < 0x80) return Utf8Sequence{1, lead};
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || at + length > bytes.size()) return std::nullopt;
    char32_t code = lead & (0x7Fu >> length);
    for (std::size_t i = 1; i < length; ++i) {
        const auto next = static_cast<Byte>(bytes[at + i]);
        if ((next & 0xC0) != 0x80) return std::nullopt;
        code = code << 6 | (next & 0x3F);
    }
    constexpr char32_t Smallest[] = {0, 0, 0x80, 0x800, 0x10000};
    if (code < Smallest[length] || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF)) return std::nullopt;
    return Utf8Sequence{length, code};
}

constexpr std::uint64_t EachByte = 0x0101010101010101U;
constexpr std::uint64_t HighBits = 0x80 * EachByte;

// Eight characters at once: the high bit of a byte is set where it lies from "a" to "z", and becomes the bit
// that parts the cases. Bytes beyond ASCII stay as they are.
std::uint64_t UpperCaseEight(std::uint64_t eight) {
    const std::uint64_t low = eight & ~HighBits;
    const std::uint64_t fromA = low + (0x80 - 'a') * EachByte;
    const std::uint64_t beyondZ = low + (0x80 - 'z' - 1) * EachByte;
    return eight - ((fromA & ~beyondZ & ~eight & HighBits) >> 2);
}

// A text of less than eight characters, its first one lowest and zero behind the last.
std::uint64_t FewerThanEight(std::string_view text) {
    std::uint64_t eight = 0;
    unsigned shift = 0;
    for (const char c : text) {
        eight |= std::uint64_t{static_cast<Byte>(c)} << shift;
        shift += 8;
    }
    return eight;
}

// The accented letters; every other byte as it is.
char UpperCase1252(char c) {
    const auto byte = static_cast<Byte>(c);
    if (byte == 0x9A || byte == 0x9C || byte == 0x9E) return static_cast<char>(byte - 0x10);
    if (byte == 0xFF) return '\x9F';
    if (byte >= 0xE0 && byte != 0xF7) return static_cast<char>(byte - 0x20);
    return c;
}

bool ChangesWritingDirection(char32_t code) {
    return code == 0x061C || (code >= 0x200E && code <= 0x200F) || (code >= 0x202A && code <= 0x202E) ||
           (code >= 0x2066 && code <= 0x2069);
}

void AppendHarmless(std::string& out, char32_t code, std::string_view sequence) {
    if (code == '\n') {
        out += '\n';
    } else if (code == '\t') {
        out += ' ';
    } else if (code < 0x20 || code == 0x7F) {
        out += '^';
        out += static_cast<char>(code ^ 0x40);
    } else if ((code >= 0x80 && code < 0xA0) || ChangesWritingDirection(code) || code == 0x2028 ||
               code == 0x2029) {
        AppendUtf8(out, 0xFFFD);
    } else {
        out += sequence;
    }
}

}  // namespace

void AppendUtf8(std::string& out, char32_t code) {
    if (code < 0x80) {
        out += static_cast<char>(code);
    } else if (code < 0x800) {
        out += static_cast<char>(0xC0 | code >> 6);
        out += static_cast<char>(0x80 | (code & 0x3F));
    } else {
        out += static_cast<char>(0xE0 | code >> 12);
        out += static_cast<char>(0x80 | (code >> 6 & 0x3F));
        out += static_cast<char>(0x80 | (code & 0x3F));
    }
}

bool IsValidUtf8(std::string_view bytes) {
    for (std::size_t at = 0; at < bytes.size();) {
        const auto sequence = SequenceAt(bytes, at);
        if (!sequence) return false;
        at += sequence->length;
    }
    return true;
}

std::string Utf8FromBytes(std::string_view bytes) {
    if (IsValidUtf8(bytes)) return std::string(bytes);
    std::string out;
    for (const char c : bytes) {
        const auto byte = static_cast<Byte>(c);
        AppendUtf8(out, byte >= 0x80 && byte < 0xA0 ? UpperControls[byte - 0x80u] : byte);
    }
    return out;
}

void CopyUpperCase(char* to, std::string_view text) {
    std::uint64_t allBytes = 0;
    const auto copyEight = [&](std::size_t at) {
        std::uint64_t eight = 0;
        std::memcpy(&eight, text.data() + at, sizeof eight);
        allBytes |= eight;
        eight = UpperCaseEight(eight);
        std::memcpy(to + at, &eight, sizeof eight);
    };
    const std::size_t size = text.size();
    if (size >= 8) {
        for (std::size_t at = 0; at + 8 < size; at += 8) copyEight(at);
        copyEight(size - 8);
    } else {
        const std::uint64_t few = FewerThanEight(text);
        allBytes = few;
        const std::uint64_t upper = UpperCaseEight(few);
        std::memcpy(to, &upper, size);
    }
    if ((allBytes & HighBits) == 0 || IsValidUtf8(text)) return;
    for (std::size_t i = 0; i < size; ++i) to[i] = UpperCase1252(to[i]);
}

std::string UpperCaseText(std::string_view text) {
    std::string upper(text.size(), '\0');
    CopyUpperCase(upper.data(), text);
    return upper;
}

std::string TerminalText(std::string_view bytes) {
    const std::string text = Utf8FromBytes(bytes);
    std::string out;
    for (std::size_t at = 0; at < text.size();) {
        const auto [length, code] = SequenceAt(text, at).value_or(Utf8Sequence{1, 0xFFFD});
        if (code == '\r') {
            if (at + 1 >= text.size() || text[at + 1] != '\n') out += '\n';
        } else {
            AppendHarmless(out, code, std::string_view(text).substr(at, length));
        }
        at += length;
    }
    return out;
}

}  // namespace tarvek
