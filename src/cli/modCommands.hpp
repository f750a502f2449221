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

// The coordinate system to carry the points to. What is left out stays as the input's; with anything given
// the file goes by way of a coordinate conversion.
struct OutputSystemOptions {
    CoordSystemRef system;
    bool scale = true;
    bool convergence = true;
    bool latLong = false;

    bool IsGiven() const;
};

struct ConvertOptions : RunOptions {
    const FileType* from = nullptr;
    const FileType* to = nullptr;
    std::string report;  // path of the JSON report, or empty
    OutputSystemOptions outputSystem;
};

struct ReplaceOptions : RunOptions {
    std::string trnFile;
};

int RunConvertCommand(const ConvertOptions& options);
int RunReplaceCommand(const ReplaceOptions& options);

}  // namespace tarvek
