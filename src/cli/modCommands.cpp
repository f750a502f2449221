#include "cli/modCommands.hpp"

#include <unistd.h>

#include <algorithm>
#include <string>
#include <vector>

#include "cli/modRunReport.hpp"
#include "cli/modStandardStreams.hpp"
#include "driver/modMultiPoint.hpp"
#include "driver/modTranslate.hpp"
#include "platform/modPaths.hpp"
#include "platform/modProgress.hpp"
#include "platform/modTrap.hpp"
#include "surveyfiles/modSurveyRecords.hpp"
#include "texttools/modSearchReplace.hpp"

namespace tarvek {
namespace {

constexpr int Done = 0;
constexpr int Failed = 1;

// Draws progress for as long as it lives, where the options or the terminal ask for it.
class ProgressInForce {
  public:
    explicit ProgressInForce(const RunOptions& options) : bar_(stderr) {
        if (options.progress.value_or(::isatty(STDERR_FILENO) == 1)) SetProgress(&bar_);
    }
    ~ProgressInForce() { SetProgress(nullptr); }
    ProgressInForce(const ProgressInForce&) = delete;
    ProgressInForce& operator=(const ProgressInForce&) = delete;

  private:
    ConsoleProgress bar_;
};

// An output file that exists is replaced only with the user's consent. Nobody is asked where an input is
// missing, which is the reader's to tell.
bool MayWrite(const RunOptions& options, const std::vector<std::string>& inputs, const std::string& output) {
    if (options.force || options.output == "-" || !OutputFileExists(output)) return true;
    return !std::all_of(inputs.begin(), inputs.end(), FileExists) || AskToOverwrite(output);
}

// Runs `translate(input, output)` on the files of the options, with "-" standing for the standard streams.
// `others` are the files that it reads beside the input.
template <class Translate>
int RunTranslation(const RunOptions& options, AnsweringPrompts& prompts,
                   const std::vector<std::string>& others, const Translate& translate) {
    const ProgressInForce progress(options);
    return RunTrapped([&] {
        StandardStreams streams;
        const std::string input = streams.Input(options.input);
        const std::string output = streams.Output(options.output);
        if (input != options.input) prompts.CallFile(input, "standard input");
        if (output != options.output) prompts.CallFile(output, "standard output");
        std::vector<std::string> inputs = others;
        inputs.push_back(input);
        if (!MayWrite(options, inputs, output) || !translate(input, output)) return Failed;
        streams.Deliver();
        return Done;
    });
}

bool ReadInput(const ConvertOptions& options, const std::string& path, FileReport& report) {
    ClearInputTables();
    if (!options.from->read(path)) return false;
    OverrideInputSystem(options.conversion.input);
    const SurveyTables& tables = Tables();
    report.points = tables.InputPoints.size();
    report.chains = tables.InputChains.size();
    report.system = tables.InputHeader.System;
    return true;
}

// Fills the output tables, by way of a coordinate conversion where an output system is given.
bool FillOutput(const ConversionChoices& options) {
    SurveyTables& tables = Tables();
    if (!options.IsGiven()) {
        CopyInputToOutput();
        return true;
    }
    tables.Options.ComputeScale = options.scale;
    tables.Options.ComputeConvergence = options.convergence;
    tables.Options.ComputeLatLong = options.latLong;
    return ConvertInputToOutput(options.output);
}

bool WriteOutput(FileRoutine write, const std::string& path, FileReport& report) {
    const SurveyTables& tables = Tables();
    report.system = tables.OutputHeader.System;  // as it was before a writer shortens its units
    if (!write(path)) return false;
    report.points = tables.OutputPoints.size();
    report.chains = tables.OutputChains.size();
    return true;
}

}  // namespace

bool ConversionChoices::IsGiven() const {
    const std::string* const members[] = {
        &output.CS, &output.ZN, &output.HD, &output.HorizontalUnits, &output.VD, &output.VerticalUnits};
    return std::any_of(std::begin(members), std::end(members),
                       [](const std::string* member) { return !member->empty(); });
}

int RunConvertCommand(const ConvertOptions& options) {
    AnsweringPrompts prompts(options.answers);
    RunReport report;
    report.input.file = options.input;
    report.input.format = options.from->key;
    report.output.file = options.output;
    report.output.format = options.to->key;
    const int status =
        RunTranslation(options, prompts, {}, [&](const std::string& input, const std::string& output) {
            if (!ReadInput(options, input, report.input)) return false;
            if (!FillOutput(options.conversion)) return false;
            const bool isConverted = options.conversion.IsGiven();
            return WriteOutput(isConverted ? options.to->writeConverted : options.to->write, output,
                               report.output);
        });
    if (options.report.empty()) return status;
    report.done = status == Done;
    return RunTrapped([&] {
        WriteRunReport(options.report, report, prompts.Told());
        return status;
    });
}

int RunReplaceCommand(const ReplaceOptions& options) {
    AnsweringPrompts prompts(options.answers);
    const auto replace = [&](const std::string& input, const std::string& output) {
        return RunSearchReplace(input, output, options.trnFile);
    };
    return RunTranslation(options, prompts, {options.trnFile}, replace);
}

}  // namespace tarvek
