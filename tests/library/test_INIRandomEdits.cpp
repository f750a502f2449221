// Ten thousand random edits of random files, each held against a model that keeps the file as a list of lines
// and finds its places by walking back from the end of a section.

#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <random>

#include "library/modAPICalls.hpp"
#include "platform/modFileCalls.hpp"
#include "support/testSupport.hpp"

namespace tarvek::test {
namespace {

struct Line {
    std::string text;
    std::string end;
};
using Lines = std::vector<Line>;

// The number of blanks at the beginning.
std::size_t BlanksBefore(const std::string& text) {
    std::size_t count = 0;
    while (count < text.size() && text[count] == ' ') ++count;
    return count;
}

std::string Stripped(std::string text) {
    text.erase(0, BlanksBefore(text));
    std::reverse(text.begin(), text.end());
    text.erase(0, BlanksBefore(text));
    std::reverse(text.begin(), text.end());
    return text;
}

std::string Lowered(std::string text) {
    for (char& c : text)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + 32);
    return text;
}

Lines LinesOf(const std::string& bytes) {
    Lines lines = {{}};
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (bytes[i] != '\r' && bytes[i] != '\n') {
            lines.back().text += bytes[i];
            continue;
        }
        lines.back().end = bytes[i];
        if (bytes[i] == '\r' && i + 1 < bytes.size() && bytes[i + 1] == '\n') lines.back().end += bytes[++i];
        lines.push_back({});
    }
    if (lines.back().text.empty()) lines.pop_back();
    return lines;
}

std::string BytesOf(const Lines& lines) {
    std::string bytes;
    for (const Line& line : lines) bytes += line.text + line.end;
    return bytes;
}

// Where the name of a header ends, npos where the line is none: at the first "]" with nothing or a comment
// behind it, found by walking back from the end.
std::size_t HeaderEnd(const std::string& text) {
    if (text.empty() || text[0] != '[') return std::string::npos;
    std::size_t found = std::string::npos;
    for (std::size_t i = text.size(); i-- > 0;) {
        const std::string behind = Stripped(text.substr(i + 1));
        if (text[i] == ']' && (behind.empty() || behind[0] == ';')) found = i;
    }
    const bool isKey = text.find('=') != std::string::npos;
    return found == std::string::npos && !isKey ? text.rfind(']') : found;
}

bool IsHeader(const Line& line) { return HeaderEnd(Stripped(line.text)) != std::string::npos; }

std::string HeaderName(const Line& line) {
    const std::string text = Stripped(line.text);
    return text.substr(1, HeaderEnd(text) - 1);
}

bool IsBlank(const Line& line) { return Stripped(line.text).empty(); }

bool IsKey(const Line& line) {
    return !IsHeader(line) && Stripped(line.text)[0] != ';' && line.text.find('=') != std::string::npos;
}

// The lines of the first section of a name: from its header to before the next one.
struct Range {
    std::size_t first;
    std::size_t last;
};

bool FindSection(const Lines& lines, const std::string& name, Range& range) {
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (!IsHeader(lines[i]) || Lowered(HeaderName(lines[i])) != Lowered(name)) continue;
        range = {i, i + 1};
        while (range.last < lines.size() && !IsHeader(lines[range.last])) ++range.last;
        return true;
    }
    return false;
}

// The index of the line of a key; the section's last line where there is none.
std::size_t FindKey(const Lines& lines, const Range& range, const std::string& key) {
    std::size_t i = range.first + 1;
    while (i < range.last && !(IsKey(lines[i]) && Lowered(Stripped(lines[i].text.substr(
                                                      0, lines[i].text.find('=')))) == Lowered(key)))
        ++i;
    return i;
}

// Behind the last key of a section, or behind its header.
std::size_t BehindLastKey(const Lines& lines, const Range& range) {
    std::size_t i = range.last;
    while (i > range.first + 1 && !IsKey(lines[i - 1])) --i;
    return i;
}

std::string EndsUsed(const std::string& bytes) {
    if (bytes.find("\r\n") != std::string::npos) return "\r\n";
    if (bytes.find('\n') != std::string::npos) return "\n";
    return bytes.find('\r') != std::string::npos ? "\r" : "\r\n";
}

void InsertLines(Lines& lines, std::size_t at, const std::vector<std::string>& texts,
                 const std::string& end) {
    if (at > 0 && lines[at - 1].end.empty()) lines[at - 1].end = end;
    for (const std::string& text : texts) lines.insert(lines.begin() + static_cast<long>(at++), {text, end});
}

std::string ModelPut(const std::string& bytes, const std::string& section, const std::string& key,
                     const std::string& value) {
    Lines lines = LinesOf(bytes);
    const std::string end = EndsUsed(bytes);
    Range range{};
    if (!FindSection(lines, section, range)) {
        InsertLines(lines, lines.size(), {"[" + section + "]", key + "=" + value}, end);
        return BytesOf(lines);
    }
    if (const std::size_t found = FindKey(lines, range, key); found < range.last) {
        std::string& text = lines[found].text;
        const std::size_t equals = text.find('=') + 1;
        const std::string old = text.substr(equals);
        const std::string before = old.substr(0, BlanksBefore(old));
        const std::string behind =
            Stripped(old).empty() ? "" : old.substr(before.size() + Stripped(old).size());
        text = text.substr(0, equals) + before + value + behind;
        return BytesOf(lines);
    }
    std::size_t at = BehindLastKey(lines, range);
    while (at < range.last && !IsBlank(lines[at])) ++at;
    InsertLines(lines, at, {key + "=" + value}, end);
    return BytesOf(lines);
}

std::string ModelDelete(const std::string& bytes, const std::string& section) {
    Lines lines = LinesOf(bytes);
    Range range{};
    if (!FindSection(lines, section, range)) return bytes;
    std::size_t end = BehindLastKey(lines, range);
    while (end < range.last && IsBlank(lines[end])) ++end;
    lines.erase(lines.begin() + static_cast<long>(range.first), lines.begin() + static_cast<long>(end));
    return BytesOf(lines);
}

std::string ModelGet(const std::string& bytes, const std::string& section, const std::string& key) {
    const Lines lines = LinesOf(bytes);
    Range range{};
    if (!FindSection(lines, section, range)) return "none";
    const std::size_t found = FindKey(lines, range, key);
    if (found == range.last) return "none";
    std::string value = Stripped(lines[found].text.substr(lines[found].text.find('=') + 1));
    if (value.size() > 1 && value[0] == '"' && value.back() == '"') value = value.substr(1, value.size() - 2);
    return value.empty() ? "none" : value;
}

std::string ModelNames(const std::string& bytes) {
    std::string names;
    for (const Line& line : LinesOf(bytes))
        if (IsHeader(line)) names += HeaderName(line) + '\0';
    return names;
}

// True where both lines that such an edit may write are what they are meant to be.
bool IsWritable(const std::string& section, const std::string& key, const std::string& value) {
    const Line header = {"[" + section + "]", ""};
    const Line line = {key + "=" + value, ""};
    return HeaderName(header) == section && IsKey(line);
}

// Text that likes to go wrong.
class OddText {
  public:
    explicit OddText(unsigned seed) : random_(seed) {}

    int Below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random_); }
    template <std::size_t Count>
    std::string OneOf(const char* const (&texts)[Count]) {
        return texts[Below(Count)];
    }

    std::string Section() {
        return OneOf({"A", "a", "B b", "C [c]", "D~d - e", "\xB0", " F", "G]", "A] ; b"});
    }
    std::string Key() {
        return OneOf({"k", "K", "key two", "(3) - x", "\xFE\xFF", "k]", "\"q\"", "[A] k", "[A"});
    }
    std::string Value() {
        return OneOf({"", " ", "1", "long value with words", "\"quoted\"", "\"", " blanks ", "a=b", "[A]",
                      ";", "\xB0\xFE", "'", "\t", "[A] ; x"});
    }
    std::string OddBytes() {
        std::string bytes;
        for (int i = Below(8); i > 0; --i) {
            char c = static_cast<char>(Below(256));
            if (c == '\n' || c == '\r') c = '\0';
            bytes += c;
        }
        return bytes;
    }
    std::string AnyLine() {
        switch (Below(10)) {
            case 0:
                return "";
            case 1:
                return "  ";
            case 2:
                return ";" + OddBytes();
            case 3:
                return OddBytes();
            case 4:
                return OneOf({"", " "}) + "[" + Section() + "]" +
                       OneOf({"", " ", " ; x", "; [B b]", " x", " = x"});
            case 5:
                return "[" + OddBytes() + "]";
            case 6:
                return "[no end";
            default:
                return OneOf({"", " "}) + Key() + OneOf({"=", " = ", "=  "}) + Value() + OneOf({"", "  "});
        }
    }
    std::string File() {
        const std::string end = OneOf({"\r\n", "\n", "\r"});
        const bool isMixed = Below(5) == 0;
        std::string bytes;
        for (int i = Below(14); i > 0; --i)
            bytes += AnyLine() + (isMixed ? OneOf({"\r\n", "\n", "\r"}) : end);
        if (Below(3) == 0) bytes += AnyLine();
        return bytes;
    }

  private:
    std::mt19937 random_;
};

// Makes every write as durable as a random test needs it: not at all. A rename still syncs its folder, which
// costs nothing in memory.
int NoSync(int) { return 0; }

class WithoutSync {
  public:
    WithoutSync() {
        calls_.fsync = NoSync;
        SetFileCalls(&calls_);
        if (::access(MemoryFolder, W_OK) == 0) ::setenv("TMPDIR", MemoryFolder, 1);
    }
    ~WithoutSync() {
        SetFileCalls(nullptr);
        if (before_)
            ::setenv("TMPDIR", before_->c_str(), 1);
        else
            ::unsetenv("TMPDIR");
    }
    WithoutSync(const WithoutSync&) = delete;
    WithoutSync& operator=(const WithoutSync&) = delete;

  private:
    static constexpr const char* MemoryFolder = "/dev/shm";

    static std::optional<std::string> TemporaryFolderName() {
        const char* name = std::getenv("TMPDIR");
        return name != nullptr ? std::optional<std::string>(name) : std::nullopt;
    }

    FileCalls calls_ = SystemFileCalls;
    std::optional<std::string> before_ = TemporaryFolderName();
};

std::string Shown(const std::string& bytes) {
    std::string text;
    for (const char c : bytes) {
        char hex[8];
        std::snprintf(hex, sizeof hex, "\\x%02X", static_cast<unsigned>(static_cast<unsigned char>(c)));
        if (c >= ' ' && c <= '~')
            text += c;
        else
            text += c == '\n' ? "\\n\n" : hex;
    }
    return text;
}

TEST(INIRandomEdits, TenThousandEditsChangeWhatTheModelChanges) {
    const WithoutSync withoutSync;
    const TemporaryFolder folder;
    OddText odd(20240611);
    int changed = 0;
    int refused = 0;
    std::string bytes;
    for (int i = 0; i < 10'000; ++i) {
        if (i % 5 == 0) {
            bytes = odd.File();
            folder.Put("a.ini", bytes);
        }
        const std::string file = folder.File("a.ini");
        const std::string section = odd.Section();
        const std::string key = odd.Key();
        const std::string value = odd.Value();
        ASSERT_EQ(GET_INIValue(file, section, key, "none"), ModelGet(bytes, section, key)) << Shown(bytes);
        ASSERT_EQ(GET_INISectionNames(file), ModelNames(bytes)) << Shown(bytes);

        const bool isDelete = odd.Below(5) == 0;
        if (!isDelete && !IsWritable(section, key, value)) {
            ASSERT_EQ(FaultOf([&] { PUT_INIValue(file, section, key, value); }), Fault::InvalidCall);
            ASSERT_EQ(ReadBytes(file), bytes);
            ++refused;
            continue;
        }
        const std::string expected =
            isDelete ? ModelDelete(bytes, section) : ModelPut(bytes, section, key, value);
        ASSERT_TRUE(isDelete ? DELETE_INISection(file, section) : PUT_INIValue(file, section, key, value));
        const std::string after = ReadBytes(file);
        ASSERT_EQ(Shown(after), Shown(expected))
            << (isDelete ? "delete " : "put ") << section << " / " << key << " / " << value << "\n"
            << Shown(bytes);
        if (!isDelete) {
            const std::string read = GET_INIValue(file, section, key, "none");
            ASSERT_EQ(read, ModelGet("[x]\nk=" + value, "x", "k"));
        }
        changed += after != bytes ? 1 : 0;
        bytes = after;
    }
    EXPECT_GT(changed, 6000);
    EXPECT_GT(refused, 500);
    EXPECT_EQ(folder.Names(), std::vector<std::string>{"a.ini"});
}

}  // namespace
}  // namespace tarvek::test
