#pragma once
// Console tools: found in their folder, started without a shell in an environment of their own, and waited
// for without limit. A tool that is a Windows executable runs under wine where wine is on the PATH.

#include <string>
#include <string_view>
#include <vector>

namespace tarvek {

struct ProcessStart {
    std::string program;                 // absolute path
    std::vector<std::string> arguments;  // without the program's own name
    std::string folder;                  // the working folder; input and output are relative to it
    std::string input;                   // the file read as standard input; none: there is nothing to read
    std::string output;                  // the file made anew for standard output; none: it is dropped
};

// How a start ended. Only Done has an exit code that means anything.
enum class ProcessOutcome { Done, ProgramMissing, WineMissing, NotStarted };

struct ProcessEnd {
    ProcessOutcome outcome = ProcessOutcome::NotStarted;
    int exitCode = -1;  // 128 and the signal's number for a tool that a signal ended
};

// Runs the tool to its end. Standard error is this program's own, every other open file stays here, and an
// old output file is removed and not written into. Fault::InvalidCall, and nothing is started, for a program
// that is no absolute path and for a control character in any path or argument.
ProcessEnd RunProcess(const ProcessStart& start);

// The path of the tool `name` in `folder`, in any letter case; "x.exe" also finds "x" and "x" also "x.exe".
// Of two the first that can run on this machine. Empty where there is none, and for a name with a separator.
std::string FindTool(std::string_view folder, std::string_view name);

// Carries out a batch file of ours in its own folder: lines "del NAME", where a missing file is no fault, and
// at the end one line "TOOL [WORD ...] <IN >OUT". Every name is a plain one, of letters, digits, ".", "-" and
// "_", and so never leaves the folder. Fault::InvalidCall, and nothing is done, for a batch with any other
// line; the fault of the file system for a batch that can not be read or a file that can not be deleted.
ProcessEnd RunBatch(std::string_view path);

}  // namespace tarvek
