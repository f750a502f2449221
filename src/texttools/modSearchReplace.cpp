#include "texttools/modSearchReplace.hpp"

#include <algorithm>
#include <bitset>
#include <cstdint>
#include <cstring>
#include <deque>
#include <limits>
#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "platform/modCodePage.hpp"
#include "platform/modFaults.hpp"
#include "platform/modNumbers.hpp"
#include "platform/modPaths.hpp"
#include "platform/modPrompts.hpp"
#include "platform/modText.hpp"
#include "platform/modTextFileIn.hpp"
#include "platform/modTextFileOut.hpp"
#include "texttools/modTagMath.hpp"

namespace tarvek {
namespace {

constexpr std::string_view InvalidCommand = "Invalid Search and Replace Command";

// The first two bytes of a line as one number, NUL where it has fewer. A command looks for its tag among
// these keys alone, and touches a line only where the key fits.
using Key = std::uint16_t;

Key KeyOf(std::string_view text) {
    const auto byteAt = [&](std::size_t at) {
        return at < text.size() ? static_cast<unsigned char>(text[at]) : 0U;
    };
    return static_cast<Key>(byteAt(0) | byteAt(1) << 8);
}

// The bits of a key that a tag of this length decides.
Key MaskOf(std::size_t tagLength) {
    constexpr Key Masks[] = {0x0000, 0x00FF, 0xFFFF};
    return Masks[tagLength < 2 ? tagLength : 2];
}

// Up to 65,536 lines with their keys. A line's bytes stand behind their length in a chunk of memory that
// never moves; a line that outgrows its place gets a new one.
class LineBlock {
  public:
    LineBlock() {
        keys_.reserve(MostLines);
        places_.reserve(MostLines);
    }

    bool IsFull() const { return keys_.size() == MostLines; }
    std::size_t Count() const { return keys_.size(); }
    const Key* Keys() const { return keys_.data(); }

    std::string_view Line(std::size_t index) const {
        const char* const place = places_[index];
        return {place + sizeof(Length), LengthAt(place)};
    }

    // Appends a line in upper case and gives its key.
    Key AppendUpperCase(std::string_view text) {
        char* const place = Store(text);
        UpperCase(place + sizeof(Length), text.size());
        places_.push_back(place);
        keys_.push_back(KeyOf(Line(keys_.size())));
        return keys_.back();
    }

    // Puts `text`, which must not be the line itself, in place of a line and gives its key.
    Key Replace(std::size_t index, std::string_view text) {
        char* const place = places_[index];
        const std::size_t room = LengthAt(place);
        if (text.size() <= room) {
            Put(place, text);
            wasted_ += room - text.size();
        } else {
            places_[index] = Store(text);
            wasted_ += sizeof(Length) + room;
        }
        keys_[index] = KeyOf(text);
        if (wasted_ > ChunkSize && wasted_ > used_ / 2) Compact();
        return keys_[index];
    }

  private:
    using Length = std::uint32_t;

    static constexpr std::size_t MostLines = 64 * 1024;
    static constexpr std::size_t ChunkSize = 32 * 1024;

    static Length LengthAt(const char* place) {
        Length length = 0;
        std::memcpy(&length, place, sizeof length);
        return length;
    }

    static void Put(char* place, std::string_view text) {
        const auto length = static_cast<Length>(text.size());
        std::memcpy(place, &length, sizeof length);
        std::memcpy(place + sizeof length, text.data(), text.size());
    }

    char* Store(std::string_view text) {
        if (text.size() > std::numeric_limits<Length>::max()) RaiseFault(Fault::Overflow);
        const std::size_t size = sizeof(Length) + text.size();
        if (size > room_) {
            room_ = size > ChunkSize ? size : ChunkSize;
            chunks_.push_back(std::make_unique_for_overwrite<char[]>(room_));
            free_ = chunks_.back().get();
        }
        char* const place = free_;
        Put(place, text);
        free_ += size;
        room_ -= size;
        used_ += size;
        return place;
    }

    // Moves the lines into new chunks, without what has been left behind between them.
    void Compact() {
        const std::vector<std::unique_ptr<char[]>> old = std::move(chunks_);
        chunks_.clear();
        room_ = used_ = wasted_ = 0;
        for (char*& place : places_) place = Store({place + sizeof(Length), LengthAt(place)});
    }

    std::vector<Key> keys_;
    std::vector<char*> places_;
    std::vector<std::unique_ptr<char[]>> chunks_;
    char* free_ = nullptr;    // where the next text goes
    std::size_t room_ = 0;    // bytes that are left there
    std::size_t used_ = 0;    // bytes taken in all chunks
    std::size_t wasted_ = 0;  // those of them that no line needs any more
};

// The lines of the input file, in blocks, with the keys that occur or once occurred among them.
struct LineList {
    std::deque<LineBlock> blocks;
    std::bitset<std::numeric_limits<Key>::max() + 1> keys;

    void Append(std::string_view line) {
        if (blocks.empty() || blocks.back().IsFull()) blocks.emplace_back();
        keys.set(blocks.back().AppendUpperCase(line));
    }

    bool MayHold(std::string_view tag) const { return tag.size() < 2 || keys.test(KeyOf(tag)); }
};

// Lists that are kept from run to run: each is started anew by the first element that is read.
struct SearchReplaceState {
    LineList lines;
    std::vector<SearchReplaceCommand> commands;
    bool HasCommands = false;  // the .TRN file held a command
    std::string changedLine;   // where a changed line is put together
};

SearchReplaceState State;

bool TellFileNotFound(const std::string& path) {
    TellFault("The file '" + path + "' can not be found.", "File Not Found");
    return false;
}

bool RefuseTrnLine(std::string_view line, std::string_view reason) {
    TellFault("Invalid TRN.  The line '" + std::string(line) + "' is invalid.  " + std::string(reason),
              std::string(InvalidCommand));
    return false;
}

bool RefuseValue(const SearchReplaceCommand& command) {
    TellFault("Invalid math operation.  The line '" + command.FindTag + ": " + command.MathOperator +
                  GeneralText(command.MathValue) +
                  "' is invalid.  The math operation requires a numeric response.",
              std::string(InvalidCommand));
    return false;
}

bool IsMathOperator(char c) { return c == '+' || c == '-' || c == '*' || c == '/'; }

// The replacement items on lines of their own. The border between two items is the last blank before the
// second one's colon, so that a value may hold blanks.
std::string DivideItems(std::string_view text) {
    std::string items;
    for (;;) {
        const std::size_t nextColon = text.find(':', text.find(':') + 1);
        const std::size_t blank =
            nextColon == std::string_view::npos ? nextColon : text.substr(0, nextColon).rfind(' ');
        if (blank == std::string_view::npos) return items.append(text);
        items.append(TrimRight(text.substr(0, blank))).append(LineEnd);
        text.remove_prefix(blank + 1);
    }
}

// `rest` is what follows the find tag's colon and has a colon of its own at `colon`.
void ParseReplacement(std::string_view rest, std::size_t colon, SearchReplaceCommand& command) {
    const std::size_t blank = rest.substr(0, colon).rfind(' ');
    if (blank != std::string_view::npos) {
        command.FindValue = rest.substr(0, blank);
        rest.remove_prefix(blank + 1);
    }
    command.ReplaceText = DivideItems(rest);
}

bool ParseArithmetic(std::string_view line, std::string_view rest, SearchReplaceCommand& command) {
    command.MathOperator = rest.front();
    const std::optional<double> operand = ParseNumber(rest.substr(1));
    if (!operand) return RefuseTrnLine(line, "A mathematical operation requires a numeric value.");
    command.MathValue = *operand;
    command.MathType = ClassifyMathTag(command.FindTag);
    if (command.MathType.empty())
        return RefuseTrnLine(line, "The math operation can not be performed on this tag.");
    return true;
}

// Puts what the command makes of a value into `changed`; false, after the user was told, where it can not.
bool ChangeByArithmetic(const SearchReplaceCommand& command, std::string_view value, std::string& changed) {
    const std::optional<std::string> result =
        TryTagMath(value, command.MathValue, command.MathOperator, command.MathType);
    if (!result) return RefuseValue(command);
    changed = command.FindTag;
    changed += ':';
    changed += *result;
    return true;
}

void ChangeText(const SearchReplaceCommand& command, std::string_view value, std::string& changed) {
    if (command.ReplaceText.empty()) {
        changed = command.FindTag;
        changed += ':';
    } else {
        changed = command.ReplaceText;
        changed += value.substr(command.FindValue.size());
    }
}

bool IsArithmetic(const SearchReplaceCommand& command) { return !command.MathOperator.empty(); }

// Applies a command to a line whose key fits. False where the command failed and the run ends.
bool ApplyToLine(const SearchReplaceCommand& command, LineBlock& block, std::size_t index) {
    const std::string_view line = block.Line(index);
    const std::size_t tagLength = command.FindTag.size();
    const bool isDecidedByKey = tagLength <= sizeof(Key) && line.size() >= tagLength;
    if (!isDecidedByKey && !line.starts_with(command.FindTag)) return true;
    const std::string_view value = ColumnsFrom(line, tagLength + 2);  // behind tag and colon
    if (IsArithmetic(command)) {
        if (!ChangeByArithmetic(command, value, State.changedLine)) return false;
    } else {
        if (!value.starts_with(command.FindValue)) return true;
        ChangeText(command, value, State.changedLine);
    }
    State.lines.keys.set(block.Replace(index, State.changedLine));
    return true;
}

constexpr std::uint64_t EachKey = 0x0001000100010001U;

// Whether one of four keys may fit; looked at together, since most do not. (The test for a zero lane is from
// H. S. Warren, Hacker's Delight, 6-1.)
bool MayFit(const Key* four, std::uint64_t tagKeys, std::uint64_t masks) {
    std::uint64_t lanes = 0;
    std::memcpy(&lanes, four, sizeof lanes);
    lanes = (lanes & masks) ^ tagKeys;
    return ((lanes - EachKey) & ~lanes & (EachKey << 15)) != 0;
}

bool ApplyToBlock(const SearchReplaceCommand& command, LineBlock& block) {
    const Key mask = MaskOf(command.FindTag.size());
    const Key tagKey = KeyOf(command.FindTag);
    const Key* const keys = block.Keys();
    const std::size_t count = block.Count();
    for (std::size_t start = 0; start < count; start += 4) {
        const std::size_t end = start + 4 < count ? start + 4 : count;
        if (end - start == 4 && !MayFit(keys + start, tagKey * EachKey, mask * EachKey)) continue;
        for (std::size_t i = start; i < end; ++i)
            if ((keys[i] & mask) == tagKey && !ApplyToLine(command, block, i)) return false;
    }
    return true;
}

using Commands = std::span<const SearchReplaceCommand>;

// The commands at the beginning that may be taken together, block by block: those without arithmetic, which
// can neither fail nor tell anything, so that nobody sees their order across lines. Any other goes alone over
// all lines.
Commands FirstRun(Commands commands) {
    const auto end = std::find_if(commands.begin(), commands.end(), IsArithmetic);
    const auto count = static_cast<std::size_t>(end - commands.begin());
    return commands.first(count > 0 ? count : 1);
}

// False where a command failed.
bool ApplyToAllLines(Commands run) {
    for (LineBlock& block : State.lines.blocks)
        for (const SearchReplaceCommand& command : run)
            if (State.lines.MayHold(command.FindTag) && !ApplyToBlock(command, block)) return false;
    return true;
}

bool ApplyCommands(Commands commands) {
    while (!commands.empty()) {
        const Commands run = FirstRun(commands);
        if (!ApplyToAllLines(run)) return false;
        commands = commands.subspan(run.size());
    }
    return true;
}

// A tag without a value stands for an item that has been removed.
void WriteLine(TextFileOut& file, std::string_view line) {
    if (line.empty()) return;
    line = Trim(line);
    const bool isTagAlone = line.ends_with(':') && line.find(':') == line.size() - 1;
    if (!isTagAlone) file.Line(line);
}

}  // namespace

bool RunSearchReplace(const std::string& inputFile, const std::string& outputFile,
                      const std::string& trnFile) {
    if (!ReadSearchInput(inputFile) || !ReadTrnFile(trnFile)) return false;
    if (State.HasCommands && !ApplyCommands(State.commands)) return false;
    return WriteSearchOutput(outputFile);
}

bool ReadSearchInput(const std::string& path) {
    if (!FileExists(path)) return TellFileNotFound(path);
    TextFileIn file(path);
    bool isFirst = true;
    for (std::string_view line; file.NextLine(line);) {
        line = Trim(line);
        if (line.empty()) continue;
        if (isFirst) State.lines = LineList();
        isFirst = false;
        State.lines.Append(line);
    }
    return true;
}

bool ReadTrnFile(const std::string& path) {
    if (!FileExists(path)) return TellFileNotFound(path);
    TextFileIn file(path);
    State.HasCommands = false;
    for (std::string_view line; file.NextLine(line);) {
        line = TrimRight(line);
        if (line.empty()) continue;
        SearchReplaceCommand command;
        if (!ParseTrnLine(UpperCaseText(line), command)) return false;
        if (!State.HasCommands) State.commands.clear();
        State.HasCommands = true;
        State.commands.push_back(std::move(command));
    }
    return true;
}

bool WriteSearchOutput(const std::string& path) {
    WriteTextFile(path, [](TextFileOut& file) {
        for (const LineBlock& block : State.lines.blocks)
            for (std::size_t i = 0; i < block.Count(); ++i) WriteLine(file, block.Line(i));
    });
    return true;
}

bool ParseTrnLine(std::string_view line, SearchReplaceCommand& command) {
    command = SearchReplaceCommand();
    const std::size_t tagColon = line.find(':');
    if (tagColon == std::string_view::npos) return RefuseTrnLine(line, "The find tag is invalid");
    command.FindTag = line.substr(0, tagColon);
    const std::string_view rest = Trim(line.substr(tagColon + 1));
    const std::size_t colon = rest.find(':');
    if (colon != std::string_view::npos)
        ParseReplacement(rest, colon, command);
    else if (!rest.empty() && IsMathOperator(rest.front()))
        return ParseArithmetic(line, rest, command);
    else
        command.FindValue = rest;
    return true;
}

}  // namespace tarvek
