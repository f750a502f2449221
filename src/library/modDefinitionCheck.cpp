#include "library/modDefinitionCheck.hpp"

#include <algorithm>
#include <filesystem>
#include <map>
#include <string>
#include <system_error>
#include <utility>

#include "library/modTranslatorNames.hpp"
#include "library/modValueCheck.hpp"
#include "platform/modFaults.hpp"
#include "platform/modPaths.hpp"
#include "platform/modProgramFolder.hpp"
#include "platform/modText.hpp"
#include "platform/modTextFileIn.hpp"

namespace tarvek {
namespace {

namespace fs = std::filesystem;

using Faults = std::vector<LibraryFault>;

constexpr std::string_view DefinitionFolder = "KTIFiles";
constexpr std::string_view DefinitionExtension = ".kti";
constexpr std::string_view FilterFolder = "TRNFiles";

// The lines of a definition; the last one need not be there.
enum DefinitionLine : std::size_t { Program, Action, Input, Output, ConfigFile, DefinitionLines };
constexpr std::string_view LineNames[DefinitionLines] = {"Program", "Action", "Input", "Output",
                                                         "ConfigFile"};
constexpr std::size_t RequiredLines = ConfigFile;

struct Definition {
    std::string file;  // its name below the program folder
    std::vector<std::string> lines;
};

// What a user chooses a translation by, and the file that defines it.
using Choices = std::map<std::vector<std::string>, std::string>;

std::vector<std::string> DefinitionsIn(const std::string& folder) {
    std::vector<std::string> names;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        const std::string name = entry->path().filename().string();
        const std::size_t point = std::min(name.rfind('.'), name.size());
        if (EqualsIgnoringCase(name.substr(point), DefinitionExtension)) names.push_back(name);
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::vector<std::string> ReadDefinition(const std::string& path) {
    std::vector<std::string> lines;
    TextFileIn file(path);
    std::string_view line;
    while (lines.size() < DefinitionLines && file.NextLine(line)) lines.emplace_back(line);
    return lines;
}

// True for a label that ends in the pattern of its files, as in "Text Files (*.TXT)".
bool HasFilePattern(std::string_view label) {
    constexpr std::string_view PatternStart = "(*.";
    const std::size_t pattern = label.rfind(PatternStart);
    return pattern != std::string_view::npos && label.ends_with(')') &&
           pattern + PatternStart.size() + 1 < label.size();
}

std::string CheckProgram(std::string_view program) {
    return FindTranslationRoutine(program) != nullptr ? std::string()
                                                      : Quoted(program) + " is no translation routine.";
}

// `role` is what the routine asks of the type.
std::string CheckLabel(std::string_view label, unsigned role, const TranslationRoutine& routine) {
    if (role == 0)
        return HasFilePattern(label)
                   ? std::string()
                   : Quoted(label) + " does not end in a file pattern, as in 'Text Files (*.TXT)'.";
    const TypeLabel* const type = FindTypeLabel(label);
    if (type != nullptr && (type->roles & role) != 0) return {};
    return Quoted(label) + " is no type that " + std::string(routine.program) + " takes here.";
}

std::string CheckConfigFile(std::string_view name) {
    const bool isBareName = name.find_first_of("\\/") == std::string_view::npos;
    const std::string path =
        isBareName ? JoinPath(JoinPath(ProgramFolder(), FilterFolder), name) : std::string(name);
    return FileExists(path) ? std::string() : "There is no configuration file " + Quoted(name) + ".";
}

void CheckLines(const Definition& definition, Faults& faults) {
    const auto tell = [&](DefinitionLine line, std::string_view text) {
        AddFault(faults, definition.file, "", LineNames[line],
                 definition.lines[line].empty() ? ValueMissing : text);
    };
    const std::vector<std::string>& lines = definition.lines;
    const TranslationRoutine* const routine = FindTranslationRoutine(lines[Program]);
    tell(Program, CheckProgram(lines[Program]));
    tell(Action, "");
    tell(Input, routine == nullptr ? "" : CheckLabel(lines[Input], routine->input, *routine));
    tell(Output, routine == nullptr ? "" : CheckLabel(lines[Output], routine->output, *routine));
    if (lines.size() > ConfigFile && !lines[ConfigFile].empty())
        tell(ConfigFile, CheckConfigFile(lines[ConfigFile]));
}

// The user can tell two translations apart by nothing but these three.
void CheckChoice(const Definition& definition, Choices& choices, Faults& faults) {
    const std::vector<std::string>& lines = definition.lines;
    const auto [earlier, isNew] =
        choices.try_emplace({lines[Input], lines[Action], lines[Output]}, definition.file);
    if (isNew) return;
    AddFault(
        faults, definition.file, "", LineNames[Action],
        Quoted(earlier->second) + " has the same input, action and output; one of the two is never chosen.");
}

void CheckDefinition(const Definition& definition, Choices& choices, Faults& faults) {
    if (definition.lines.size() < RequiredLines)
        return AddFault(faults, definition.file, "", "", "The definition has fewer than four lines.");
    CheckLines(definition, faults);
    CheckChoice(definition, choices, faults);
}

}  // namespace

void CheckDefinitions(Faults& faults) {
    const std::string folder = JoinPath(ProgramFolder(), DefinitionFolder);
    if (!FolderExists(folder)) return AddFault(faults, DefinitionFolder, "", "", "There is no such folder.");
    const std::vector<std::string> names = DefinitionsIn(FindPath(folder));
    if (names.empty()) AddFault(faults, DefinitionFolder, "", "", "The folder holds no definition.");
    Choices choices;
    for (const std::string& name : names) {
        Definition definition = {JoinPath(DefinitionFolder, name), {}};
        try {
            definition.lines = ReadDefinition(JoinPath(FindPath(folder), name));
        } catch (const RuntimeFault& fault) {
            AddFault(faults, definition.file, "", "", fault.Text());
            continue;
        }
        CheckDefinition(definition, choices, faults);
    }
}

}  // namespace tarvek
