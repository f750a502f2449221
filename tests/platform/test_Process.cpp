#include "platform/modProcess.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>

#include "environment.hpp"
#include "platform/modText.hpp"
#include "support/testSupport.hpp"

namespace tarvek {
namespace {

namespace fs = std::filesystem;
using test::FaultOf;
using test::ReadBytes;
using test::TemporaryFolder;
using test::Variable;

// The tools of these tests are small scripts, or programs of the system.
std::string PutTool(const TemporaryFolder& folder, const std::string& name, const std::string& script) {
    const std::string path = folder.Put(name, "#!/bin/sh\n" + script + "\n");
    ::chmod(path.c_str(), 0755);
    return path;
}

// What a program of the system prints.
std::string OutputOf(const std::string& program, const std::vector<std::string>& arguments) {
    const TemporaryFolder folder;
    const ProcessEnd end = RunProcess({program, arguments, folder.Path(), "", "out.txt"});
    EXPECT_EQ(end.outcome, ProcessOutcome::Done);
    EXPECT_EQ(end.exitCode, 0);
    return ReadBytes(folder.File("out.txt"));
}

TEST(Process, RunsInItsFolderWithItsFiles) {
    const TemporaryFolder folder;
    folder.Put("VertCon.con", "answer\r\n");
    const std::string tool = PutTool(folder, "tool", "read line; echo \"$1|$2|$line\"; pwd -P; exit 7");
    const fs::path before = fs::current_path();
    const ProcessEnd end = RunProcess({tool, {"one two", ""}, folder.Path(), "vertcon.con", "junk"});
    EXPECT_EQ(end.outcome, ProcessOutcome::Done);
    EXPECT_EQ(end.exitCode, 7);
    EXPECT_EQ(ReadBytes(folder.File("junk")),
              "one two||answer\r\n" + fs::canonical(folder.Path()).string() + "\n");
    EXPECT_EQ(fs::current_path(), before);
}

TEST(Process, SignalThatEndsTheToolIsToldAsAShellTellsIt) {
    const TemporaryFolder folder;
    const ProcessEnd end = RunProcess({PutTool(folder, "tool", "kill -9 $$"), {}, folder.Path(), "", ""});
    EXPECT_EQ(end.outcome, ProcessOutcome::Done);
    EXPECT_EQ(end.exitCode, 137);
}

TEST(Process, WaitsForTheEnd) {
    const TemporaryFolder folder;
    const std::string tool = PutTool(folder, "tool", "sleep 0.3; echo done > late.txt");
    RunProcess({tool, {}, folder.Path(), "", ""});
    EXPECT_EQ(ReadBytes(folder.File("late.txt")), "done\n");
}

// A tool that asks for more than it was given must not take the user's own input.
TEST(Process, WithoutAnInputFileThereIsNothingToRead) { EXPECT_EQ(OutputOf("/bin/cat", {}), ""); }

TEST(Process, NoShellReadsTheArguments) {
    EXPECT_EQ(OutputOf("/bin/echo", {"$(touch x)", "`id`", "*", ">y", "a b", "\"q\"", "\\n;&|"}),
              "$(touch x) `id` * >y a b \"q\" \\n;&|\n");
}

TEST(Process, EnvironmentIsItsOwn) {
    const Variable path("PATH", "/usr/bin:/bin");
    const Variable home("HOME", "/home/somebody");
    const Variable temporary("TMPDIR", "/tmp");
    const Variable language("LANG", "de_DE.UTF-8");
    const Variable numbers("LC_ALL", "de_DE.UTF-8");
    const Variable preload("LD_LIBRARY_PATH", "/somewhere");
    const Variable prefix("WINEPREFIX", "/prefix");
    const Variable secret("SECRET", "1");
    EXPECT_EQ(OutputOf("/usr/bin/env", {}), "PATH=/usr/bin:/bin\nLANG=C\nHOME=/home/somebody\nTMPDIR=/tmp\n");
    const Variable noTemporary("TMPDIR", nullptr);
    const Variable noHome("HOME", nullptr);
    EXPECT_EQ(OutputOf("/usr/bin/env", {}), "PATH=/usr/bin:/bin\nLANG=C\n");
}

TEST(Process, InheritsNoOpenFile) {
    const int leaky = ::open("/dev/null", O_RDONLY);  // not marked to be closed
    ASSERT_GE(leaky, 0);
    EXPECT_EQ(OutputOf("/bin/ls", {"/proc/self/fd"}), "0\n1\n2\n3\n");  // 3 is the folder that it lists
    ::close(leaky);
}

TEST(Process, LeavesNoOpenFileBehind) {
    const int before = ::dup(0);
    ::close(before);
    OutputOf("/bin/echo", {"x"});
    RunProcess({"/bin/cat", {}, "/", "no such file", ""});
    RunProcess({"/bin/cat", {}, "/no such folder", "", ""});
    const int after = ::dup(0);
    ::close(after);
    EXPECT_EQ(before, after);
}

unsigned long long SignalSet(const std::string& status, const std::string& name) {
    const std::size_t at = status.find(name + ":\t");
    return at == std::string::npos ? ~0ULL
                                   : std::stoull(status.substr(at + name.size() + 2, 16), nullptr, 16);
}

TEST(Process, SignalsAreAsUsualInTheTool) {
    const auto interrupt = std::signal(SIGINT, SIG_IGN);
    const auto pipe = std::signal(SIGPIPE, SIG_IGN);
    sigset_t blocked;
    sigset_t before;
    sigemptyset(&blocked);
    sigaddset(&blocked, SIGTERM);
    ::sigprocmask(SIG_BLOCK, &blocked, &before);
    const std::string status = OutputOf("/bin/cat", {"/proc/self/status"});
    ::sigprocmask(SIG_SETMASK, &before, nullptr);
    std::signal(SIGINT, interrupt);
    std::signal(SIGPIPE, pipe);
    const auto bit = [](int signal) { return 1ULL << (signal - 1); };
    EXPECT_EQ(SignalSet(status, "SigBlk"), 0U);
    EXPECT_EQ(SignalSet(status, "SigIgn") & (bit(SIGINT) | bit(SIGPIPE) | bit(SIGCHLD)), 0U);
}

TEST(Process, WorksWhereChildrenAreIgnored) {
    const auto before = std::signal(SIGCHLD, SIG_IGN);
    const TemporaryFolder folder;
    const ProcessEnd end =
        RunProcess({PutTool(folder, "tool", "echo ran > ran.txt"), {}, folder.Path(), "", ""});
    std::signal(SIGCHLD, before);
    EXPECT_EQ(end.outcome, ProcessOutcome::Done);
    EXPECT_EQ(ReadBytes(folder.File("ran.txt")), "ran\n");
}

TEST(Process, OutputFileIsMadeAnew) {
    const TemporaryFolder folder;
    folder.Put("victim", "untouched");
    fs::create_symlink("victim", folder.File("junk"));
    const std::string tool = PutTool(folder, "tool", "echo new");
    EXPECT_EQ(RunProcess({tool, {}, folder.Path(), "", "junk"}).outcome, ProcessOutcome::Done);
    EXPECT_EQ(ReadBytes(folder.File("victim")), "untouched");
    EXPECT_FALSE(fs::is_symlink(folder.File("junk")));
    EXPECT_EQ(ReadBytes(folder.File("junk")), "new\n");
    fs::create_hard_link(folder.File("victim"), folder.File("other"));
    RunProcess({tool, {}, folder.Path(), "", "other"});
    EXPECT_EQ(ReadBytes(folder.File("victim")), "untouched");
    EXPECT_EQ(ReadBytes(folder.File("other")), "new\n");
}

TEST(Process, WhatCanNotStartIsTold) {
    const TemporaryFolder folder;
    const auto outcome = [&](const std::string& program, const std::string& input,
                             const std::string& output) {
        return RunProcess({program, {}, folder.Path(), input, output}).outcome;
    };
    EXPECT_EQ(outcome(folder.File("none"), "", ""), ProcessOutcome::ProgramMissing);
    EXPECT_EQ(outcome(folder.Path(), "", ""), ProcessOutcome::ProgramMissing);
    EXPECT_EQ(outcome(folder.Put("plain", "text"), "", ""), ProcessOutcome::NotStarted);
    const std::string noInterpreter = folder.Put("script", "echo run by a shell > ran\n");
    ::chmod(noInterpreter.c_str(), 0755);
    EXPECT_EQ(outcome(noInterpreter, "", ""), ProcessOutcome::NotStarted);
    EXPECT_EQ(outcome("/bin/true", "no input", ""), ProcessOutcome::NotStarted);
    EXPECT_EQ(outcome("/bin/true", "", "no folder/junk"), ProcessOutcome::NotStarted);
    EXPECT_EQ(outcome("/bin/true", "", "../" + fs::path(folder.Path()).filename().string()),
              ProcessOutcome::NotStarted);
    EXPECT_EQ(RunProcess({"/bin/true", {}, folder.File("none"), "", ""}).outcome, ProcessOutcome::NotStarted);
    EXPECT_FALSE(fs::exists(folder.File("ran")));
}

TEST(Process, ControlCharactersAreRefused) {
    const TemporaryFolder folder;
    const std::string tool = PutTool(folder, "tool", "echo ran > ran");
    const std::string bad = "a\nb";
    for (const ProcessStart& start :
         {ProcessStart{tool, {bad}, folder.Path(), "", ""},
          ProcessStart{tool, {"\x7F"}, folder.Path(), "", ""},
          ProcessStart{tool, {std::string(1, '\0')}, folder.Path(), "", ""},
          ProcessStart{tool + "\n", {}, folder.Path(), "", ""},
          ProcessStart{tool, {}, folder.Path() + "\t", "", ""},
          ProcessStart{tool, {}, folder.Path(), bad, ""}, ProcessStart{tool, {}, folder.Path(), "", bad}})
        EXPECT_EQ(FaultOf([&] { RunProcess(start); }), Fault::InvalidCall);
    EXPECT_EQ(FaultOf([&] { RunProcess({"tool", {}, folder.Path(), "", ""}); }), Fault::InvalidCall);
    EXPECT_EQ(FaultOf([&] { RunProcess({"", {}, folder.Path(), "", ""}); }), Fault::InvalidCall);
    EXPECT_EQ(FaultOf([&] { FindTool(folder.Path(), bad); }), Fault::InvalidCall);
    EXPECT_EQ(FaultOf([&] { RunBatch(folder.File(bad)); }), Fault::InvalidCall);
    EXPECT_FALSE(fs::exists(folder.File("ran")));
}

// ---- finding tools

TEST(Process, ToolIsFoundInAnyCaseWithOrWithoutExtension) {
    const TemporaryFolder folder;
    PutTool(folder, "F477", "");
    PutTool(folder, "HTDP.EXE", "");
    EXPECT_EQ(FindTool(folder.Path(), "f477.exe"), folder.File("F477"));
    EXPECT_EQ(FindTool(folder.Path(), "F477"), folder.File("F477"));
    EXPECT_EQ(FindTool(folder.Path(), "htdp.exe"), folder.File("HTDP.EXE"));
    EXPECT_EQ(FindTool(folder.Path(), "htdp"), folder.File("HTDP.EXE"));
    EXPECT_EQ(FindTool(folder.Path(), "intg.exe"), "");
    EXPECT_EQ(FindTool(folder.File("none"), "htdp"), "");
}

TEST(Process, OddToolNamesFindNothing) {
    const TemporaryFolder folder;
    fs::create_directory(folder.File("sub"));
    PutTool(folder, "sub/tool", "");
    for (const char* name : {"", ".exe", "sub/tool", "sub\\tool", "..", ".", "sub", "sub.exe"})
        EXPECT_EQ(FindTool(folder.Path(), name), "") << name;
}

TEST(Process, ToolThatCanRunComesFirst) {
    const TemporaryFolder folder;
    const Variable path("PATH", "/nowhere");  // no wine
    folder.Put("vertcon.exe", "MZ...");
    EXPECT_EQ(FindTool(folder.Path(), "vertcon.exe"), folder.File("vertcon.exe"));
    PutTool(folder, "vertcon", "");
    EXPECT_EQ(FindTool(folder.Path(), "vertcon.exe"), folder.File("vertcon"));
    EXPECT_EQ(FindTool(folder.Path(), "VERTCON"), folder.File("vertcon"));
    PutTool(folder, "vertcon.exe", "");
    EXPECT_EQ(FindTool(folder.Path(), "vertcon.exe"), folder.File("vertcon.exe"));
}

// A "wine" in the current folder is not the one that is installed.
TEST(Process, WindowsToolNeedsWine) {
    if (fs::exists("/usr/bin/wine") || fs::exists("/usr/local/bin/wine")) GTEST_SKIP() << "wine is installed";
    const TemporaryFolder folder;
    const std::string tool = folder.Put("tool.exe", "MZ...");
    ::chmod(tool.c_str(), 0755);
    PutTool(folder, "wine", "echo ran > ran");
    const fs::path before = fs::current_path();
    fs::current_path(folder.Path());
    for (const char* searched : {"/nowhere", ".", "", ":"}) {
        const Variable path("PATH", searched);
        EXPECT_EQ(RunProcess({tool, {}, folder.Path(), "", ""}).outcome, ProcessOutcome::WineMissing)
            << searched;
    }
    fs::current_path(before);
}

TEST(Process, WindowsToolRunsUnderWine) {
    const TemporaryFolder folder;
    const TemporaryFolder programs;
    PutTool(programs, "wine", "echo \"wine $*\"; cat; echo $WINEPREFIX $WINEDEBUG $SECRET");
    const Variable path("PATH", "/nowhere:" + programs.Path() + ":/usr/bin:/bin");
    const Variable prefix("WINEPREFIX", "/prefix");
    const Variable secret("SECRET", "secret");
    const std::string tool = folder.Put("Tool.exe", "MZ...");  // needs no right of execution
    folder.Put("in", "answers\n");
    EXPECT_EQ(FindTool(folder.Path(), "tool"), tool);
    const ProcessEnd end = RunProcess({tool, {"oht"}, folder.Path(), "in", "out"});
    EXPECT_EQ(end.outcome, ProcessOutcome::Done);
    EXPECT_EQ(ReadBytes(folder.File("out")), "wine " + tool + " oht\nanswers\n/prefix -all\n");
}

// ---- batch files

TEST(Process, BatchDeletesAndRunsInItsFolder) {
    const TemporaryFolder folder;
    folder.Put("VERTCON.OUT", "old");
    folder.Put("vertcon.out", "old as well");
    folder.Put("JUNK", "old");
    folder.Put("kept", "kept");
    folder.Put("vertcon.CON", "answers\r\n");
    PutTool(folder, "VERTCON", "echo \"$*\" > vertcon.out; cat");
    folder.Put("vertcon.bat", "del vertcon.out\r\ndel junk\r\nvertcon oht <vertcon.con >junk\r\n");
    const ProcessEnd end = RunBatch(folder.Path() + "\\VERTCON.BAT");
    EXPECT_EQ(end.outcome, ProcessOutcome::Done);
    EXPECT_EQ(end.exitCode, 0);
    EXPECT_EQ(ReadBytes(folder.File("vertcon.out")), "oht\n");
    EXPECT_EQ(ReadBytes(folder.File("junk")), "answers\r\n");
    EXPECT_EQ(folder.Names(), (std::vector<std::string>{"VERTCON", "junk", "kept", "vertcon.CON",
                                                        "vertcon.bat", "vertcon.out"}));
}

TEST(Process, BatchNeedsNothingToDelete) {
    const TemporaryFolder folder;
    folder.Put("htdp.con", "");
    PutTool(folder, "htdp", "exit 3");
    const ProcessEnd end =
        RunBatch(folder.Put("htdp.bat", "DEL htdp.out\nDel  junk \nhtdp.exe   <htdp.con   >junk"));
    EXPECT_EQ(end.outcome, ProcessOutcome::Done);
    EXPECT_EQ(end.exitCode, 3);
}

TEST(Process, BatchRemovesALinkAndNotWhatItLeadsTo) {
    const TemporaryFolder folder;
    const TemporaryFolder other;
    const std::string victim = other.Put("victim", "untouched");
    fs::create_symlink(victim, folder.File("JUNK"));
    folder.Put("c", "");
    PutTool(folder, "tool", "echo x");
    EXPECT_EQ(RunBatch(folder.Put("a.bat", "del junk\r\ntool <c >junk\r\n")).outcome, ProcessOutcome::Done);
    EXPECT_EQ(ReadBytes(victim), "untouched");
    EXPECT_FALSE(fs::is_symlink(folder.File("junk")));
    EXPECT_FALSE(fs::exists(fs::symlink_status(folder.File("JUNK"))));
}

TEST(Process, BatchWithoutItsToolIsTold) {
    const TemporaryFolder folder;
    folder.Put("junk", "old");
    const std::string batch = folder.Put("a.bat", "del junk\r\nnone <c >junk\r\n");
    EXPECT_EQ(RunBatch(batch).outcome, ProcessOutcome::ProgramMissing);
    EXPECT_FALSE(fs::exists(folder.File("junk")));
    EXPECT_EQ(FaultOf([&] { RunBatch(folder.File("none.bat")); }), Fault::FileNotFound);
}

TEST(Process, OtherBatchLinesAreRefusedAndNothingIsDone) {
    const TemporaryFolder folder;
    folder.Put("c", "");
    folder.Put("junk", "kept");
    PutTool(folder, "tool", "echo ran > ran");
    const std::string first = "del junk\r\n";
    for (const char* rest : {"",
                             "echo hi\r\n",
                             "tool\r\n",
                             "tool <c\r\n",
                             "tool >junk\r\n",
                             "tool >junk <c\r\n",
                             "<c >junk\r\n",
                             "tool < c > junk\r\n",
                             "tool <c >junk\r\ntool <c >junk\r\n",
                             "tool <c >junk\r\ndel c\r\n",
                             "del ../x\r\ntool <c >junk\r\n",
                             "del ..\r\ntool <c >junk\r\n",
                             "del a\\b\r\ntool <c >junk\r\n",
                             "del *.*\r\ntool <c >junk\r\n",
                             "del C:x\r\ntool <c >junk\r\n",
                             "del \r\ntool <c >junk\r\n",
                             "del a b\r\ntool <c >junk\r\n",
                             "tool <../c >junk\r\n",
                             "tool <c >/tmp/junk\r\n",
                             "/bin/sh <c >junk\r\n",
                             "../tool <c >junk\r\n",
                             "tool a&b <c >junk\r\n",
                             "tool %PATH% <c >junk\r\n",
                             "tool <c >>junk\r\n",
                             "tool a;b <c >junk\r\n",
                             "tool a\tb <c >junk\r\n",
                             "\r\ntool <c >junk\r\n",
                             "tool <c >junk | more\r\n",
                             "tool <c> junk\r\n",
                             "rem x\r\ntool <c >junk\r\n"})
        EXPECT_EQ(FaultOf([&] { RunBatch(folder.Put("a.bat", first + rest)); }), Fault::InvalidCall) << rest;
    EXPECT_EQ(ReadBytes(folder.File("junk")), "kept");
    EXPECT_FALSE(fs::exists(folder.File("ran")));
}

}  // namespace
}  // namespace tarvek
