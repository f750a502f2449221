// tarvek: what the desktop program can do, without a window, for scripts, servers and tests.

#include <CLI/CLI.hpp>
#include <filesystem>
#include <iostream>
#include <memory>
#include <sstream>
#include <string>

#include "cli/modCommands.hpp"
#include "cli/modLibraryCommands.hpp"
#include "coordmath/modDistances.hpp"
#include "library/modLibraryNames.hpp"
#include "platform/modCodePage.hpp"
#include "platform/modPaths.hpp"
#include "platform/modStandardOutput.hpp"
#include "platform/modText.hpp"
#include "platform/modTrap.hpp"

namespace {

using namespace tarvek;

constexpr int WrongUsage = 2;

void AddRunOptions(CLI::App& command, RunOptions& options) {
    command.add_option("INPUT", options.input, "File to read; - for standard input")->required();
    command.add_option("OUTPUT", options.output, "File to write; - for standard output")->required();
    command.add_flag("--yes", options.answers.yesToAll, "Answer every question Yes or OK");
    command
        .add_option("--answer", options.answers.answers,
                    "Answer the question of this caption with this button (repeatable)")
        ->type_name("CAPTION=BUTTON")
        ->check([](const std::string& answer) {
            return answer.find('=') == std::string::npos ? "an answer is CAPTION=BUTTON, not " + answer
                                                         : std::string();
        })
        ->allow_extra_args(false);
    command.add_flag("--force", options.force, "Overwrite OUTPUT without asking");
    command.add_flag("--progress,!--no-progress", options.progress,
                     "Draw a progress bar, or none; by default on a terminal, for work over half a second");
}

// The type that an option names, or else the extension of the path; it must have the routine.
const FileType& ChooseType(const std::string& key, const std::string& path, const char* option,
                           FileRoutine FileType::*routine) {
    const std::string known = KeysWith(routine);
    const FileType* type = key.empty() ? FileTypeOfPath(path) : FileTypeOfKey(key);
    const auto isNone = [&](std::string_view name) {
        return CLI::ValidationError(option, "not '" + std::string(name) + "', but one of: " + known);
    };
    if (type == nullptr && key.empty())
        throw CLI::ValidationError(option,
                                   "the name '" + path + "' does not tell the format; name one of: " + known);
    if (type == nullptr) throw isNone(key);
    if (type->*routine != nullptr) return *type;
    if (type->writeConverted == nullptr) throw isNone(type->key);
    throw CLI::ValidationError(option, "'" + std::string(type->key) +
                                           "' is written only with an output system: --out-cs and the like");
}

// Where a path leads, whether or not there is a file yet.
std::filesystem::path PlaceOf(const std::string& path) {
    std::error_code error;
    return std::filesystem::weakly_canonical(std::filesystem::absolute(ResolveLinks(path), error), error);
}

bool IsSameFile(const std::string& a, const std::string& b) {
    std::error_code error;
    return PlaceOf(a) == PlaceOf(b) || std::filesystem::equivalent(a, b, error);
}

// The report as a file against those that are read and written, each under the path that is really used.
bool IsReportInTheWay(const ConvertOptions& options) {
    if (options.report == "-") return options.output == "-";
    const std::string report = OutputPath(options.report);
    const std::string input = FindPath(options.input);
    return (options.input != "-" && IsSameFile(report, input.empty() ? options.input : input)) ||
           (options.output != "-" && IsSameFile(report, OutputPath(options.output)));
}

// A report never takes the place of what was read or written.
void RequireReportOfItsOwn(const CLI::App& command, const ConvertOptions& options) {
    if (command.count("--report") == 0) return;
    if (options.report.empty()) throw CLI::ValidationError("--report", "the name of the file is empty");
    if (IsReportInTheWay(options))
        throw CLI::ValidationError("--report", "the report can not go where INPUT or OUTPUT is");
}

// The long name of a unit told by name or letter in any case, or the format of angles.
std::string UnitNamed(const std::string& text, bool angular) {
    std::string known;
    for (const std::string_view unit : LinearUnits) {
        if (EqualsIgnoringCase(unit, text) || EqualsIgnoringCase(Distances_GET_UnitLetter(unit), text))
            return std::string(unit);
        known.append(known.empty() ? "" : ", ").append(unit);
    }
    for (const std::string_view format : AngularFormats) {
        if (!angular) break;
        if (EqualsIgnoringCase(format, text)) return std::string(format);
        known.append(", ").append(format);
    }
    throw CLI::ValidationError("'" + text + "' is none of: " + known);
}

std::string HorizontalUnitNamed(const std::string& text) { return UnitNamed(text, true); }
std::string VerticalUnitNamed(const std::string& text) { return UnitNamed(text, false); }

// The options of one side, "in" or "out".
void AddSystemOptions(CLI::App& command, const std::string& side, const std::string& file,
                      CoordSystemRef& system) {
    const auto add = [&](const char* name, std::string& member, const std::string& text) {
        return command.add_option("--" + side + "-" + name, member, text)
            ->group("Coordinate system of " + file);
    };
    add("cs", system.CS, "Coordinate system, such as SPC83, or GCS for latitudes and longitudes");
    add("zone", system.ZN, "Zone, such as 2600");
    add("hd", system.HD, "Horizontal datum, such as \"NAD 83\"");
    add("hunits", system.HorizontalUnits, "Horizontal unit: M, F, I or its name; format of angles")
        ->transform(HorizontalUnitNamed);
    add("vd", system.VD, "Vertical datum, such as \"NAVD 88\"");
    add("vunits", system.VerticalUnits, "Vertical unit: M, F, I or its name")->transform(VerticalUnitNamed);
}

void AddConversionOptions(CLI::App& command, ConversionChoices& choices) {
    AddSystemOptions(command, "in", "INPUT, in place of what the file says", choices.input);
    AddSystemOptions(command, "out", "OUTPUT, by default that of INPUT", choices.output);
    command.add_flag("!--no-scale", choices.scale, "Leave scale factors out");
    command.add_flag("!--no-convergence", choices.convergence, "Leave convergence angles out");
    command.add_flag("--lat-long", choices.latLong, "Write latitudes and longitudes too");
}

// Every command is added with what it takes and what it does; `status` is what its run comes to.

void AddConvertCommand(CLI::App& app, int& status) {
    struct Arguments {
        ConvertOptions options;
        std::string from;
        std::string to;
    };
    const auto arguments = std::make_shared<Arguments>();
    ConvertOptions& options = arguments->options;
    CLI::App& command = *app.add_subcommand("convert", "Read a survey file and write it in another format");
    AddRunOptions(command, options);
    command.add_option("--from", arguments->from,
                       "Format of INPUT (" + KeysWith(&FileType::read) + "); default by extension");
    command.add_option("--to", arguments->to,
                       "Format of OUTPUT (" + KeysWith(&FileType::write) + "; with an output system " +
                           KeysWith(&FileType::writeConverted) + "); default by extension");
    command.add_option("--report", options.report,
                       "Write what happened to this file, as JSON; - for standard output");
    AddConversionOptions(command, options.conversion);
    command.footer(
        "Example: turn the data sheets that NGS has sent into a control file\n"
        "  tarvek convert datasheets.txt control.ctl\n"
        "The same in a script, with the output replaced and datum conflicts accepted\n"
        "  tarvek convert datasheets.txt control.ctl --force --yes --report run.json\n"
        "Carry a control file to a zone of state plane coordinates, in its own unit\n"
        "  tarvek convert control.ctl nebraska.ctl --out-cs SPC83 --out-zone 2600");
    command.callback([arguments, &command, &options, &status] {
        options.from = &ChooseType(arguments->from, options.input, "--from", &FileType::read);
        options.to = &ChooseType(arguments->to, options.output, "--to",
                                 options.conversion.IsGiven() ? &FileType::writeConverted : &FileType::write);
        RequireReportOfItsOwn(command, options);
        status = RunConvertCommand(options);
    });
}

void AddReplaceCommand(CLI::App& app, int& status) {
    const auto options = std::make_shared<ReplaceOptions>();
    CLI::App& command =
        *app.add_subcommand("replace", "Apply a search-and-replace file to a tagged survey file");
    AddRunOptions(command, *options);
    command.add_option("TRN", options->trnFile, "Search-and-replace file (*.TRN)")->required();
    command.footer(
        "Example: drop the comments of a control file\n"
        "  tarvek replace control.ctl plain.ctl DropComments.TRN");
    command.callback([options, &status] { status = RunReplaceCommand(*options); });
}

void AddLibraryCommands(CLI::App& app, int& status) {
    const auto system = std::make_shared<std::string>();
    CLI::App& zones = *app.add_subcommand("zones", "List the zones of the library, tab-separated");
    zones.add_option("CS", *system, "Only those of this coordinate system, such as SPC83");
    zones.callback([system, &status] { status = ListZones(*system); });
    app.add_subcommand("datums", "List the datums of the library, tab-separated")->callback([&status] {
        status = ListDatums();
    });
    app.add_subcommand("ellipsoids", "List the ellipsoids of the library, tab-separated")
        ->callback([&status] { status = ListEllipsoids(); });
    app.add_subcommand("check", "Name every fault in the library and the translator definitions")
        ->callback([&status] { status = CheckLibraryCommand(); });
}

// Names the word that is no command, where the parser would only say that one is missing.
void RequireKnownCommand(const CLI::App& app, int argc, char** argv) {
    if (argc < 2 || argv[1][0] == '-') return;
    const auto isNamed = [argv](const CLI::App* command) { return command->get_name() == argv[1]; };
    if (app.get_subcommands(isNamed).empty())
        throw CLI::ValidationError("'" + std::string(argv[1]) + "'",
                                   "there is no such command; tarvek --help lists them");
}

// The line ends of an argument are marks as well: nobody writes lines of his own into a message.
std::string WrongUsageText(const CLI::App*, const CLI::Error& error) {
    return ReplaceAll(ReplaceAll(error.what(), "\n", "^J"), "\r", "^M") +
           "\nRun with --help for more information.\n";
}

// Help and version on standard output, wrong usage on standard error; arguments are quoted there as harmless
// text.
int TellParseResult(const CLI::App& app, const CLI::ParseError& error) {
    std::ostringstream printed;
    std::ostringstream told;
    const int status = app.exit(error, printed, told);
    PrintToStandardOutput(printed.str());
    std::cerr << TerminalText(told.str());
    return status == 0 ? 0 : WrongUsage;
}

int RunCommandLine(int argc, char** argv) {
    CLI::App app("Tarvek Translator: carries survey points from one file format to another.", "tarvek");
    app.set_version_flag("--version", "tarvek " TARVEK_VERSION);
    app.require_subcommand(1);
    app.failure_message(WrongUsageText);
    int status = 0;
    AddConvertCommand(app, status);
    AddReplaceCommand(app, status);
    AddLibraryCommands(app, status);
    try {
        RequireKnownCommand(app, argc, argv);
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return TellParseResult(app, error);
    }
    return status;
}

}  // namespace

int main(int argc, char** argv) {
    PrepareProcess();
    return RunTrapped([&] { return RunCommandLine(argc, argv); });
}
