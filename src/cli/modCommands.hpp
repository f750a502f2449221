#pragma once
// The commands of `tarvek`. Each gives the exit status of the process: 0 done, 1 the run failed and its
// message was told. Wrong usage is found before a command runs.

#include <optional>
#include <string>

#include "cli/modAnsweringPrompts.hpp"
#include "driver/modFileTypes.hpp"
#include "surveyfiles/modSurveyRecords.hpp"

namespace tarvek {

// What every command that translates a file has.
struct RunOptions {
    std::string input;   // "-" for standard input
    std::string output;  // "-" for standard output
    PreparedAnswers answers;
    bool force = false;            // replace the output without asking
    std::optional<bool> progress;  // whether a bar is drawn; on a terminal where not said
};

// What the input says of its system is overridden by the members named here; with any member of the output
// named the file goes by way of a coordinate conversion.
struct ConversionChoices {
    CoordSystemRef input;
    CoordSystemRef output;
    bool scale = true;
    bool convergence = true;
    bool latLong = false;

    bool IsGiven() const;
};

struct ConvertOptions : RunOptions {
    const FileType* from = nullptr;
    const FileType* to = nullptr;
    std::string report;  // path of the JSON report, or empty
    ConversionChoices conversion;
};

struct ReplaceOptions : RunOptions {
    std::string trnFile;
};

int RunConvertCommand(const ConvertOptions& options);
int RunReplaceCommand(const ReplaceOptions& options);

}  // namespace tarvek
