#include "driver/modTranslate.hpp"

#include "driver/modFileTypes.hpp"
#include "platform/modPaths.hpp"
#include "platform/modPrompts.hpp"
#include "platform/modTextFileIn.hpp"
#include "surveyfiles/modSurveyRecords.hpp"
#include "texttools/modSearchReplace.hpp"

namespace tarvek {
namespace {

TranslateDefaults& Defaults() {
    static TranslateDefaults defaults;
    return defaults;
}

bool TellMissing(const std::string& beginning, const std::string& path) {
    TellFault(beginning + path + "' does not exist.");
    return false;
}

// The three checks before anything is read.
bool FilesAreReady(const std::string& translatorFile, const TranslationRequest& request) {
    if (!FileExists(translatorFile)) return TellMissing("The specified translation file '", translatorFile);
    if (!FileExists(request.InputFile)) return TellMissing("The specified input file '", request.InputFile);
    return !OutputFileExists(request.OutputFile) || AskToOverwrite(request.OutputFile);
}

// Fills the request from the lines of a definition file. A configuration file that is given already is kept,
// and the fifth line is then not read. The lines are taken whole.
void ReadTranslatorFile(const std::string& path, TranslationRequest& request) {
    TextFileIn file(path);
    request.Program = file.RequireLine();
    request.Action = file.RequireLine();
    request.InputType = file.RequireLine();
    request.OutputType = file.RequireLine();
    std::string_view line;
    if (request.ConfigFile.empty() && file.NextLine(line)) request.ConfigFile = line;
}

void RunReplace(const TranslationRequest& request) {
    RunSearchReplace(request.InputFile, request.OutputFile, request.ConfigFile);
}

// Reads, copies and writes. A label that is not known reads or writes nothing, and nobody is told.
void RunConvertFile(const TranslationRequest& request) {
    ClearInputTables();
    const FileType* input = FileTypeOfLabel(request.InputType);
    if (input != nullptr && input->read != nullptr) input->read(request.InputFile);
    CopyInputToOutput();
    const FileType* output = FileTypeOfLabel(request.OutputType);
    if (output != nullptr && output->write != nullptr) output->write(request.OutputFile);
}

struct Routine {
    std::string_view program;
    void (*run)(const TranslationRequest&);
};

constexpr Routine Routines[] = {
    {"Replace", RunReplace},
    {"ConvertFile", RunConvertFile},
};

void RunProgram(const TranslationRequest& request) {
    for (const Routine& routine : Routines)
        if (routine.program == request.Program) return routine.run(request);
    TellFault("Unknown Translation Routine. Could not perform translation.", "Unknown Routine");
}

}  // namespace

void SetTranslateDefaults(bool showResult, const std::string& inputFolder, const std::string& outputFolder,
                          const std::string& filterFolder, const std::string& baseName) {
    Defaults() = {showResult, inputFolder, outputFolder, filterFolder, baseName};
}

const TranslateDefaults& CurrentTranslateDefaults() { return Defaults(); }

bool AskToOverwrite(const std::string& outputFile) {
    return Ask({.text = "The specified output file '" + outputFile + "' already exists.  Overwrite it?",
                .buttons = Buttons::YesNo});
}

void TranslateFromCommandLine(const std::string& translatorFile, const std::string& inputFile,
                              const std::string& outputFile, const std::string& configFile) {
    TranslationRequest request;
    request.InputFile = inputFile;
    request.OutputFile = outputFile;
    request.ConfigFile = configFile;
    const bool isCoordConvert =
        translatorFile.empty() && inputFile == "tccin.tmp" && outputFile == "tccout.tmp";
    if (isCoordConvert) {
        request.Program = "CoordConvert";
        request.ConfigFile.clear();
    } else {
        if (!FilesAreReady(translatorFile, request)) return;
        ReadTranslatorFile(translatorFile, request);
    }
    if (!request.ConfigFile.empty() && !FileExists(request.ConfigFile)) {
        TellMissing("The specified Translation/Filter file '", request.ConfigFile);
        return;
    }
    RunProgram(request);
}

}  // namespace tarvek
