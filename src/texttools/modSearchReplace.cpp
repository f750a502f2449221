#include "texttools/modSearchReplace.hpp"

#include <algorithm>
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
#include "texttools/modLineList.hpp"
#include "texttools/modTagMath.hpp"

namespace tarvek {
namespace {

constexpr std::string_view InvalidCommand = "Invalid Search and Replace Command";

// Lists that are kept from run to run: each is started anew by the first element that is read.
struct SearchReplaceState {
    LineList lines;
    std::vector<SearchReplaceCommand> commands;
    bool HasCommands = false;  // the .TRN file held a command
    std::string changedLine;   // where a changed line is put together
};

SearchReplaceState State;

bool IsFound(const std::string& path) {
    if (FileExists(path)) return true;
    TellFileNotFound(path);
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

using Commands = std::span<const SearchReplaceCommand>;

// The commands at the beginning that may be taken together, line by line: those without arithmetic, which
// can neither fail nor tell anything, so that nobody sees their order across lines. Any other goes alone over
// all lines.
Commands FirstRun(Commands commands) {
    const auto end = std::find_if(commands.begin(), commands.end(), IsArithmetic);
    const auto count = static_cast<std::size_t>(end - commands.begin());
    return commands.first(count > 0 ? count : 1);
}

// A command with what it looks for among the keys.
struct KeyedCommand {
    const SearchReplaceCommand* command;
    Key mask;
    Key key;

    bool Fits(Key lineKey) const { return (lineKey & mask) == key; }
};

std::vector<KeyedCommand> Keyed(Commands run) {
    std::vector<KeyedCommand> keyed;
    keyed.reserve(run.size());
    for (const SearchReplaceCommand& command : run)
        keyed.push_back({&command, MaskOf(command.FindTag.size()), KeyOf(command.FindTag)});
    return keyed;
}

bool FindsNothing(const SearchReplaceCommand& command) { return !State.lines.MayHold(command.FindTag); }

// The keys that some command of the run looks for.
KeySet KeysOf(const std::vector<KeyedCommand>& run) {
    KeySet keys;
    for (const KeyedCommand& keyed : run)
        for (std::size_t key = keyed.key; key < keys.size(); key += std::size_t{keyed.mask} + 1)
            keys.set(key);
    return keys;
}

// False where a command failed.
bool ApplyToAllLines(Commands commands) {
    // Where none finds a line as they stand, none is changed for another to find.
    if (std::all_of(commands.begin(), commands.end(), FindsNothing)) return true;
    const std::vector<KeyedCommand> run = Keyed(commands);
    const KeySet keys = KeysOf(run);
    for (LineBlock& block : State.lines.blocks) {
        const Key* const lineKeys = block.Keys();
        for (std::size_t i = 0, count = block.Count(); i < count; ++i) {
            if (!keys.test(lineKeys[i])) continue;
            for (const KeyedCommand& keyed : run)
                if (keyed.Fits(lineKeys[i]) && !ApplyToLine(*keyed.command, block, i)) return false;
        }
    }
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
    if (!IsFound(path)) return false;
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
    if (!IsFound(path)) return false;
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
