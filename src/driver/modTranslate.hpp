#pragma once
// One translation from the command line, and the defaults that the translation dialog starts from.

#include <string>

namespace tarvek {

// The values that one translation works from.
struct TranslationRequest {
    std::string InputType;  // label of the input type
    std::string InputFile;
    std::string Action;      // label of the action
    std::string OutputType;  // label of the output type
    std::string OutputFile;
    std::string ConfigFile;  // search-and-replace or filter file, or empty
    std::string Program;     // name of the routine that performs the translation
};

struct TranslateDefaults {
    bool ShowResult = false;  // open a finished output in the viewer
    std::string InputFolder;
    std::string OutputFolder;
    std::string FilterFolder;
    std::string BaseName;  // stem of the default file names
};

void SetTranslateDefaults(bool showResult, const std::string& inputFolder, const std::string& outputFolder,
                          const std::string& filterFolder, const std::string& baseName);
const TranslateDefaults& CurrentTranslateDefaults();

// Asks whether an output file that exists may be replaced (Yes, No).
bool AskToOverwrite(const std::string& outputFile);

// Performs the translation that a definition file (".kti": program, action, input label, output label and
// optionally a configuration file, a line each) describes. An empty definition with the files "tccin.tmp" and
// "tccout.tmp" is a coordinate conversion asked for by another program. Everything is told through messages
// and the output file; a finished run is silent. A reader that refused its file leaves nothing to copy, which
// ends the run in Fault::SubscriptOutOfRange after the reader's own message.
void TranslateFromCommandLine(const std::string& translatorFile, const std::string& inputFile,
                              const std::string& outputFile, const std::string& configFile);

}  // namespace tarvek
