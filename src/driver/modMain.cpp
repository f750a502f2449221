#include "driver/modMain.hpp"

#include <filesystem>
#include <vector>

#include "driver/modDialogPorts.hpp"
#include "driver/modTranslate.hpp"
#include "platform/modInstanceLock.hpp"
#include "platform/modNumbers.hpp"
#include "platform/modPaths.hpp"
#include "platform/modProgramFolder.hpp"
#include "platform/modPrompts.hpp"
#include "platform/modText.hpp"

namespace tarvek {
namespace {

using CommandLineArgs = std::vector<std::string_view>;

constexpr std::string_view DefinitionFolder = "KTIFiles/";

std::string FilterFolder() { return ProgramFolder() + "/TRNFiles"; }

// The definition file of a translator named without its extension, and with or without its folder.
std::string TranslatorPath(std::string_view translator) {
    const std::string name = NativePath(translator);
    const std::string_view folder = name.starts_with(DefinitionFolder) ? "" : DefinitionFolder;
    return ProgramFolder() + '/' + std::string(folder) + name + ".kti";
}

void TellWrongCount() { TellResult("Incorrect Number of Command Line Arguments."); }

void RunDialogDefaults() {
    std::error_code error;
    const std::string folder = std::filesystem::current_path(error).string();
    SetTranslateDefaults(false, folder, folder, FilterFolder(), "");
    ShowTranslateDialog();
}

void RunDialogArguments(const CommandLineArgs& args) {
    if (args.size() != 5) return TellWrongCount();
    SetTranslateDefaults(BooleanFromText(args[1]), std::string(args[2]), std::string(args[3]), FilterFolder(),
                         std::string(args[4]));
    ShowTranslateDialog();
}

void RunTranslationArguments(const CommandLineArgs& args) {
    if (args.size() != 4 && args.size() != 5) return TellWrongCount();
    const bool hasConfigFile = args.size() == 5;
    const bool isWithoutTranslator = !hasConfigFile && args[1].empty();
    TranslateFromCommandLine(isWithoutTranslator ? "" : TranslatorPath(args[1]), std::string(args[2]),
                             std::string(args[3]), hasConfigFile ? std::string(args[4]) : "");
}

}  // namespace

void Main(std::string_view commandLine) {
    const InstanceLock lock(ProgramFolder());
    if (!lock.Held()) return TellResult("An instance of Tarvek Translator is already running.");
    if (commandLine.empty()) return RunDialogDefaults();
    const CommandLineArgs args = Split(commandLine, '|');
    if (args[0] == "-t") return RunTranslationArguments(args);
    if (args[0] == "-s") return RunDialogArguments(args);
    TellResult("Invalid Command Line Argument.");
}

}  // namespace tarvek
