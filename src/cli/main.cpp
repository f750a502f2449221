// tarvek: what the desktop program can do, without a window, for scripts, servers and tests.

#include <CLI/CLI.hpp>
#include <iostream>

#include "cli/modCommands.hpp"
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
        ->allow_extra_args(false);
    command.add_flag("--force", options.force, "Overwrite OUTPUT without asking");
    command.add_flag("--progress,!--no-progress", options.progress,
                     "Draw a progress bar, or none; by default on a terminal, for work over half a second");
}

// The type that an option names, or else the extension of the path.
const FileType& ChooseType(const std::string& key, const std::string& path, const char* option,
                           FileRoutine FileType::*routine, const std::string& known) {
    const FileType* type = key.empty() ? FileTypeOfPath(path) : FileTypeOfKey(key);
    if (type == nullptr && key.empty())
        throw CLI::ValidationError(option,
                                   "the name '" + path + "' does not tell the format; name one of: " + known);
    if (type == nullptr || type->*routine == nullptr)
        throw CLI::ValidationError(
            option, "not '" + (key.empty() ? std::string(type->key) : key) + "', but one of: " + known);
    return *type;
}

// Names the word that is no command, where the parser would only say that one is missing.
void RequireKnownCommand(const CLI::App& app, int argc, char** argv) {
    if (argc < 2 || argv[1][0] == '-') return;
    const auto isNamed = [argv](const CLI::App* command) { return command->get_name() == argv[1]; };
    if (app.get_subcommands(isNamed).empty())
        throw CLI::ValidationError(argv[1], "there is no such command; tarvek --help lists them");
}

int RunCommandLine(int argc, char** argv) {
    CLI::App app("Tarvek Translator: carries survey points from one file format to another.", "tarvek");
    app.set_version_flag("--version", "tarvek " TARVEK_VERSION);
    app.require_subcommand(1);

    ConvertOptions convert;
    std::string from;
    std::string to;
    CLI::App& convertCommand =
        *app.add_subcommand("convert", "Read a survey file and write it in another format");
    AddRunOptions(convertCommand, convert);
    convertCommand.add_option("--from", from,
                              "Format of INPUT (" + ReadableKeys() + "); default by extension");
    convertCommand.add_option("--to", to, "Format of OUTPUT (" + WritableKeys() + "); default by extension");
    convertCommand.add_option("--report", convert.report, "Write what happened to this file, as JSON");
    convertCommand.footer(
        "Example: turn the data sheets that NGS has sent into a control file\n"
        "  tarvek convert datasheets.txt control.ctl\n"
        "The same in a script, with the output replaced and datum conflicts accepted\n"
        "  tarvek convert datasheets.txt control.ctl --force --yes --report run.json");

    ReplaceOptions replace;
    CLI::App& replaceCommand =
        *app.add_subcommand("replace", "Apply a search-and-replace file to a tagged survey file");
    AddRunOptions(replaceCommand, replace);
    replaceCommand.add_option("TRN", replace.trnFile, "Search-and-replace file (*.TRN)")->required();
    replaceCommand.footer(
        "Example: drop the comments of a control file\n"
        "  tarvek replace control.ctl plain.ctl \"Drop Comments.TRN\"");

    try {
        RequireKnownCommand(app, argc, argv);
        app.parse(argc, argv);
        if (replaceCommand.parsed()) return RunReplaceCommand(replace);
        convert.from = &ChooseType(from, convert.input, "--from", &FileType::read, ReadableKeys());
        convert.to = &ChooseType(to, convert.output, "--to", &FileType::write, WritableKeys());
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? 0 : WrongUsage;
    }
    return RunConvertCommand(convert);
}

}  // namespace

int main(int argc, char** argv) {
    IgnoreWriteSignals();
    return RunTrapped([&] { return RunCommandLine(argc, argv); });
}
