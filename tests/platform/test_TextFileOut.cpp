#include "platform/modTextFileOut.hpp"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <filesystem>

#include "platform/modFileCalls.hpp"
#include "platform/modPaths.hpp"
#include "support/testSupport.hpp"

namespace tarvek {
namespace {

namespace fs = std::filesystem;
using test::FaultMessageOf;
using test::FaultNumberOf;
using test::ReadBytes;
using test::TemporaryFolder;

constexpr uid_t Nobody = 65534;
constexpr std::string_view OldBytes = "old bytes, shorter than the new ones\r\n";

// More than two buffers full, so that a file takes several writes.
std::string NewBytes() {
    std::string bytes;
    for (int i = 0; bytes.size() < 600 * 1024; ++i)
        bytes += "line " + std::to_string(i) + " of the new bytes\r\n";
    return bytes;
}

void WriteNewBytes(const std::string& path) {
    const std::string bytes = NewBytes();
    WriteTextFile(path, [&bytes](TextFileOut& file) {
        for (std::size_t at = 0; at < bytes.size(); at += 1000)
            file.Text(std::string_view(bytes).substr(at, 1000));
    });
}

// How `run` ends in a process of its own: the value of waitpid.
template <class Procedure>
int StatusInChild(Procedure run) {
    const pid_t child = ::fork();
    if (child == 0) ::_exit(run());
    int status = 0;
    ::waitpid(child, &status, 0);
    return status;
}

TEST(TextFileOut, LinesEndInCarriageReturnAndLineFeed) {
    const TemporaryFolder folder;
    const std::string path = folder.File("out.txt");
    TextFileOut file(path);
    file.Line("one");
    file.Line("PN ", "12");
    file.Text("as it\nstands");
    file.Buffer() += "|built";
    file.EndLine();
    file.Commit();
    EXPECT_EQ(ReadBytes(path), "one\r\nPN 12\r\nas it\nstands|built\r\n");
}

TEST(TextFileOut, NothingIsThereBeforeCommit) {
    const TemporaryFolder folder;
    {
        TextFileOut file(folder.File("out.txt"));
        file.Line("lost");
        EXPECT_FALSE(fs::exists(folder.File("out.txt")));
    }
    EXPECT_EQ(folder.Names(), std::vector<std::string>());
    folder.Put("out.txt", OldBytes);
    {
        TextFileOut file(folder.File("out.txt"));
        file.Text(NewBytes());
    }
    EXPECT_EQ(ReadBytes(folder.File("out.txt")), OldBytes);
    EXPECT_EQ(folder.Names(), std::vector<std::string>{"out.txt"});
}

TEST(TextFileOut, WholeFileReplacesTheOldOne) {
    const TemporaryFolder folder;
    const std::string path = folder.Put("out.txt", OldBytes);
    WriteNewBytes(path);
    EXPECT_TRUE(ReadBytes(path) == NewBytes());
    EXPECT_EQ(folder.Names(), std::vector<std::string>{"out.txt"});
    WriteTextFile(path, [](TextFileOut&) {});
    EXPECT_EQ(ReadBytes(path), "");
}

TEST(TextFileOut, BackslashPartsFolders) {
    const TemporaryFolder folder;
    fs::create_directory(folder.File("sub"));
    WriteTextFile(folder.Path() + "\\sub\\out.txt", [](TextFileOut& file) { file.Line("x"); });
    EXPECT_EQ(ReadBytes(folder.File("sub/out.txt")), "x\r\n");
}

void PrintUntilAFaultOfTheRun(TextFileOut& file) {
    file.Line("begun");
    RaiseFault(Fault::TypeMismatch);
}

TEST(TextFileOut, FaultOfTheRunLeavesWhatWasPrintedWhereNoFileWas) {
    const TemporaryFolder folder;
    const std::string path = folder.File("out.txt");
    EXPECT_EQ(FaultNumberOf([&] { WriteTextFile(path, PrintUntilAFaultOfTheRun); }), 13);
    EXPECT_EQ(ReadBytes(path), "begun\r\n");
    EXPECT_EQ(folder.Names(), std::vector<std::string>{"out.txt"});
}

TEST(TextFileOut, FaultOfTheRunLeavesTheOldFile) {
    const TemporaryFolder folder;
    const std::string path = folder.Put("out.txt", OldBytes);
    EXPECT_EQ(FaultNumberOf([&] { WriteTextFile(path, PrintUntilAFaultOfTheRun); }), 13);
    EXPECT_EQ(ReadBytes(path), OldBytes);
    EXPECT_EQ(folder.Names(), std::vector<std::string>{"out.txt"});
}

TEST(TextFileOut, FaultOfTheFileSystemLeavesTheOldFile) {
    const TemporaryFolder folder;
    const std::string path = folder.Put("out.txt", OldBytes);
    EXPECT_EQ(FaultNumberOf([&] {
                  WriteTextFile(path, [](TextFileOut& file) {
                      file.Line("begun");
                      RaiseFileFault(EIO, "an input file");
                  });
              }),
              57);
    EXPECT_EQ(ReadBytes(path), OldBytes);
    EXPECT_EQ(folder.Names(), std::vector<std::string>{"out.txt"});
}

// ---- system calls that fail

enum class Call { None, Open, Write, Fchmod, Fchown, Fsync, Close, Rename, Unlink };

// Which call fails, at which time of its being called, and how.
struct Plan {
    Call call = Call::None;
    int nth = 0;
    int errorNumber = 0;
    bool everyWriteShort = false;
    int seen = 0;  // calls of that kind so far
    bool struck = false;
};
Plan ThePlan;

bool Strikes(Call call) {
    if (call != ThePlan.call || ++ThePlan.seen != ThePlan.nth) return false;
    ThePlan.struck = true;
    errno = ThePlan.errorNumber;
    return true;
}

const FileCalls FailingCalls = {
    [](const char* path, int flags, mode_t mode) {
        return Strikes(Call::Open) ? -1 : SystemFileCalls.open(path, flags, mode);
    },
    [](int file, const void* bytes, std::size_t count) -> ssize_t {
        if (Strikes(Call::Write)) return ThePlan.errorNumber == 0 ? 0 : -1;
        const bool isShort = ThePlan.everyWriteShort && count > 1;
        return SystemFileCalls.write(file, bytes, isShort ? count / 3 + 1 : count);
    },
    [](int file, mode_t mode) { return Strikes(Call::Fchmod) ? -1 : SystemFileCalls.fchmod(file, mode); },
    [](int file, uid_t owner, gid_t group) {
        return Strikes(Call::Fchown) ? -1 : SystemFileCalls.fchown(file, owner, group);
    },
    [](int file) { return Strikes(Call::Fsync) ? -1 : SystemFileCalls.fsync(file); },
    [](int file) {
        const bool strikes = Strikes(Call::Close);
        const int result = SystemFileCalls.close(file);  // a close that fails has closed
        if (strikes) errno = ThePlan.errorNumber;
        return strikes ? -1 : result;
    },
    [](const char* from, const char* to) {
        return Strikes(Call::Rename) ? -1 : SystemFileCalls.rename(from, to);
    },
    [](const char* path) { return Strikes(Call::Unlink) ? -1 : SystemFileCalls.unlink(path); },
};

// Writes the new bytes under a plan and gives the fault's number.
int FaultNumberUnder(const Plan& plan, const std::string& path) {
    ThePlan = plan;
    SetFileCalls(&FailingCalls);
    const int number = FaultNumberOf([&] { WriteNewBytes(path); });
    SetFileCalls(nullptr);
    return number;
}

struct Failure {
    int errorNumber;
    int faultNumber;
};
constexpr Failure Failures[] = {{ENOSPC, 61}, {EIO, 57}, {EINTR, 75}, {EACCES, 70}, {EDQUOT, 61}};

// Lets every call of one kind fail, one after the other, until none is left to fail. Gives how many struck.
int TryEveryCall(Call call, const Failure& failure, bool everyWriteShort = false) {
    for (int nth = 1;; ++nth) {
        const TemporaryFolder folder;
        const std::string path = folder.Put("out.txt", OldBytes);
        const int number = FaultNumberUnder({call, nth, failure.errorNumber, everyWriteShort}, path);
        if (!ThePlan.struck) {
            EXPECT_EQ(number, 0);
            EXPECT_TRUE(ReadBytes(path) == NewBytes());
            return nth - 1;
        }
        EXPECT_EQ(number, failure.faultNumber) << nth;
        EXPECT_TRUE(ReadBytes(path) == (number == 0 ? NewBytes() : OldBytes)) << nth;
        EXPECT_EQ(folder.Names(), std::vector<std::string>{"out.txt"}) << nth;
    }
}

TEST(TextFileOut, EveryFailingCallIsToldAndLeavesTheOldFile) {
    for (const Failure& failure : Failures) {
        EXPECT_EQ(TryEveryCall(Call::Open, failure), 1);
        EXPECT_EQ(TryEveryCall(Call::Fsync, failure), 1);
        EXPECT_EQ(TryEveryCall(Call::Close, failure), 1);
        EXPECT_EQ(TryEveryCall(Call::Rename, failure), 1);
        EXPECT_EQ(TryEveryCall(Call::Fchmod, failure), 1);
        if (failure.errorNumber == EINTR) continue;  // a write that was interrupted is tried again
        EXPECT_GE(TryEveryCall(Call::Write, failure), 3);
        EXPECT_GE(TryEveryCall(Call::Write, failure, true), 10);
    }
}

TEST(TextFileOut, InterruptedAndShortWritesGoOn) {
    EXPECT_GE(TryEveryCall(Call::Write, {EINTR, 0}), 3);
    EXPECT_GE(TryEveryCall(Call::Write, {EINTR, 0}, true), 10);
    EXPECT_EQ(TryEveryCall(Call::None, {0, 0}, true), 0);
}

// A write that takes nothing and reports nothing would otherwise be tried for ever.
TEST(TextFileOut, WriteThatTakesNothingIsAFullDisk) { EXPECT_GE(TryEveryCall(Call::Write, {0, 61}), 3); }

TEST(TextFileOut, NameThatIsTakenIsChosenAnew) { EXPECT_EQ(TryEveryCall(Call::Open, {EEXIST, 0}), 1); }

TEST(TextFileOut, FailureWithoutAnOldFileLeavesNothing) {
    for (const Call call : {Call::Open, Call::Write, Call::Fsync, Call::Close, Call::Rename}) {
        const TemporaryFolder folder;
        EXPECT_EQ(FaultNumberUnder({call, 1, ENOSPC}, folder.File("out.txt")), 61);
        EXPECT_EQ(folder.Names(), std::vector<std::string>());
    }
}

TEST(TextFileOut, FaultNamesTheTargetAndNotTheTemporaryFile) {
    const TemporaryFolder folder;
    const std::string path = folder.File("out.txt");
    ThePlan = {Call::Write, 1, ENOSPC};
    SetFileCalls(&FailingCalls);
    EXPECT_EQ(FaultMessageOf([&] { WriteNewBytes(path); }), "Run-time error '61': Disk full: '" + path + "'");
    SetFileCalls(nullptr);
}

// ---- a process that is killed

int CallsUntilDeath = 0;
bool DiesAfterTheCall = false;

// Carries out a call in a process that dies before or behind the one whose turn it is.
template <class Procedure>
auto Mortal(Procedure call) {
    const bool isTurn = --CallsUntilDeath == 0;
    if (isTurn && !DiesAfterTheCall) ::raise(SIGKILL);
    const auto result = call();
    if (isTurn) ::raise(SIGKILL);
    return result;
}

const FileCalls MortalCalls = {
    [](const char* path, int flags, mode_t mode) {
        return Mortal([&] { return SystemFileCalls.open(path, flags, mode); });
    },
    [](int file, const void* bytes, std::size_t count) {
        return Mortal([&] { return SystemFileCalls.write(file, bytes, count / 2 + 1); });
    },
    [](int file, mode_t mode) { return Mortal([&] { return SystemFileCalls.fchmod(file, mode); }); },
    [](int file, uid_t owner, gid_t group) {
        return Mortal([&] { return SystemFileCalls.fchown(file, owner, group); });
    },
    [](int file) { return Mortal([&] { return SystemFileCalls.fsync(file); }); },
    [](int file) { return Mortal([&] { return SystemFileCalls.close(file); }); },
    [](const char* from, const char* to) { return Mortal([&] { return SystemFileCalls.rename(from, to); }); },
    [](const char* path) { return Mortal([&] { return SystemFileCalls.unlink(path); }); },
};

// True if the writing process was killed at its call number `nth`; false once it has no such call any more.
bool KilledAt(int nth, bool afterTheCall, const std::string& path) {
    const int status = StatusInChild([&] {
        CallsUntilDeath = nth;
        DiesAfterTheCall = afterTheCall;
        SetFileCalls(&MortalCalls);
        WriteNewBytes(path);
        return 0;
    });
    if (WIFSIGNALED(status)) return WTERMSIG(status) == SIGKILL;
    EXPECT_EQ(status, 0);
    return false;
}

TEST(TextFileOut, KilledAtAnyCallLeavesOldOrNew) {
    for (const bool afterTheCall : {false, true}) {
        int oldOnes = 0;
        int newOnes = 0;
        for (int nth = 1;; ++nth) {
            const TemporaryFolder folder;
            const std::string path = folder.Put("out.txt", OldBytes);
            const bool killed = KilledAt(nth, afterTheCall, path);
            const std::string bytes = ReadBytes(path);
            EXPECT_TRUE(bytes == OldBytes || bytes == NewBytes()) << "killed at call " << nth;
            ++(bytes == OldBytes ? oldOnes : newOnes);
            if (!killed) break;
        }
        EXPECT_GE(oldOnes, 10);
        EXPECT_GE(newOnes, 1);
    }
}

// ---- targets of every kind

TEST(TextFileOut, LinkIsFollowedAndKept) {
    const TemporaryFolder folder;
    fs::create_directory(folder.File("real"));
    folder.Put("real/out.txt", OldBytes);
    fs::create_symlink("real/out.txt", folder.File("link"));
    WriteNewBytes(folder.File("link"));
    EXPECT_TRUE(fs::is_symlink(folder.File("link")));
    EXPECT_FALSE(fs::is_symlink(folder.File("real/out.txt")));
    EXPECT_TRUE(ReadBytes(folder.File("real/out.txt")) == NewBytes());
    EXPECT_EQ(folder.Names(), (std::vector<std::string>{"link", "real"}));
}

TEST(TextFileOut, LinkToNothingMakesItsTarget) {
    const TemporaryFolder folder;
    fs::create_symlink("out.txt", folder.File("link"));
    WriteTextFile(folder.File("link"), [](TextFileOut& file) { file.Line("x"); });
    EXPECT_TRUE(fs::is_symlink(folder.File("link")));
    EXPECT_EQ(ReadBytes(folder.File("out.txt")), "x\r\n");
}

TEST(TextFileOut, LinksInACircleAreAFault) {
    const TemporaryFolder folder;
    fs::create_symlink("b", folder.File("a"));
    fs::create_symlink("a", folder.File("b"));
    EXPECT_EQ(FaultNumberOf([&] { WriteNewBytes(folder.File("a")); }), 75);
    EXPECT_EQ(folder.Names(), (std::vector<std::string>{"a", "b"}));
    EXPECT_TRUE(fs::is_symlink(folder.File("a")));
}

struct stat StatusOf(const std::string& path) {
    struct stat status {};
    EXPECT_EQ(::stat(path.c_str(), &status), 0) << path;
    return status;
}

TEST(TextFileOut, ModeIsKept) {
    const TemporaryFolder folder;
    const std::string path = folder.Put("out.txt", OldBytes);
    for (const mode_t mode : {0600U, 0640U, 0755U, 0666U}) {
        ASSERT_EQ(::chmod(path.c_str(), mode), 0);
        WriteTextFile(path, [](TextFileOut& file) { file.Line("x"); });
        EXPECT_EQ(StatusOf(path).st_mode & 07777, mode);
    }
}

TEST(TextFileOut, NewFileHasTheUsualMode) {
    const TemporaryFolder folder;
    const mode_t before = ::umask(027);
    WriteTextFile(folder.File("out.txt"), [](TextFileOut& file) { file.Line("x"); });
    ::umask(before);
    EXPECT_EQ(StatusOf(folder.File("out.txt")).st_mode & 07777, 0640U);
}

mode_t ModeAtOpening = 0;

// Whoever may not read the file must not get hold of the one that is going to replace it either.
TEST(TextFileOut, FileInTheMakingIsClosedToOthers) {
    const TemporaryFolder folder;
    const std::string path = folder.Put("out.txt", OldBytes);
    FileCalls calls = SystemFileCalls;
    calls.open = [](const char* name, int flags, mode_t mode) {
        ModeAtOpening = mode;
        return SystemFileCalls.open(name, flags, mode);
    };
    SetFileCalls(&calls);
    WriteTextFile(path, [](TextFileOut& file) { file.Line("x"); });
    SetFileCalls(nullptr);
    EXPECT_EQ(ModeAtOpening & 077, 0U);
}

std::vector<std::string> OpenedPaths;

// Nobody can put a file or a link there in advance, and a rename never crosses to another disk.
TEST(TextFileOut, FileInTheMakingHasARandomNameBesideItsTarget) {
    const TemporaryFolder folder;
    FileCalls calls = SystemFileCalls;
    calls.open = [](const char* name, int flags, mode_t mode) {
        EXPECT_EQ(flags & (O_CREAT | O_EXCL | O_NOFOLLOW), O_CREAT | O_EXCL | O_NOFOLLOW);
        OpenedPaths.emplace_back(name);
        return SystemFileCalls.open(name, flags, mode);
    };
    OpenedPaths.clear();
    SetFileCalls(&calls);
    for (int i = 0; i < 2; ++i)
        WriteTextFile(folder.File("out.txt"), [](TextFileOut& file) { file.Line("x"); });
    SetFileCalls(nullptr);
    ASSERT_EQ(OpenedPaths.size(), 2U);
    EXPECT_NE(OpenedPaths[0], OpenedPaths[1]);
    for (const std::string& path : OpenedPaths) EXPECT_EQ(FolderOf(path), folder.Path());
}

TEST(TextFileOut, OwnerIsKept) {
    if (::geteuid() != 0) GTEST_SKIP() << "only root may give files away";
    const TemporaryFolder folder;
    const std::string path = folder.Put("out.txt", OldBytes);
    ASSERT_EQ(::chown(path.c_str(), Nobody, Nobody), 0);
    ASSERT_EQ(::chmod(path.c_str(), 0640), 0);
    WriteNewBytes(path);
    EXPECT_EQ(StatusOf(path).st_uid, Nobody);
    EXPECT_EQ(StatusOf(path).st_gid, Nobody);
    EXPECT_EQ(StatusOf(path).st_mode & 07777, 0640U);
}

TEST(TextFileOut, OwnerThatCanNotBeKeptIsNoFault) {
    if (::geteuid() != 0) GTEST_SKIP() << "only root has files of others to write";
    const TemporaryFolder folder;
    const std::string path = folder.Put("out.txt", OldBytes);
    ASSERT_EQ(::chown(path.c_str(), Nobody, Nobody), 0);
    ASSERT_EQ(::chmod(path.c_str(), 06755), 0);
    EXPECT_EQ(FaultNumberUnder({Call::Fchown, 1, EPERM}, path), 0);
    EXPECT_TRUE(ThePlan.struck);
    EXPECT_TRUE(ReadBytes(path) == NewBytes());
    EXPECT_EQ(StatusOf(path).st_mode & 07777, 0755U);
}

TEST(TextFileOut, FullDeviceIsTold) {
    EXPECT_EQ(FaultNumberOf([] { WriteNewBytes("/dev/full"); }), 61);
    EXPECT_EQ(FaultNumberOf([] { WriteTextFile("/dev/full", [](TextFileOut& file) { file.Line("x"); }); }),
              61);
    EXPECT_TRUE(fs::is_character_file("/dev/full"));
    EXPECT_EQ(FaultNumberOf([] { WriteNewBytes("/dev/null"); }), 0);
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

TEST(TextFileOut, PipeBehindALinkOfProcIsWritten) {
    int ends[2];
    ASSERT_EQ(::pipe(ends), 0);
    WriteTextFile("/proc/self/fd/" + std::to_string(ends[1]),
                  [](TextFileOut& file) { file.Line("through"); });
    char bytes[32] = {};
    EXPECT_EQ(::read(ends[0], bytes, sizeof bytes), 9);
    EXPECT_STREQ(bytes, "through\r\n");
    ::close(ends[0]);
    ::close(ends[1]);
}

TEST(TextFileOut, WhatIsNoFileIsAFault) {
    const TemporaryFolder folder;
    folder.Put("file", "");
    EXPECT_EQ(FaultNumberOf([&] { TextFileOut file(folder.Path()); }), 75);
    EXPECT_EQ(FaultNumberOf([&] { TextFileOut file(folder.File("none/out.txt")); }), 76);
    EXPECT_EQ(FaultNumberOf([&] { TextFileOut file(folder.File("file/out.txt")); }), 76);
    EXPECT_EQ(FaultNumberOf([&] { TextFileOut file(""); }), 53);
    EXPECT_EQ(folder.Names(), std::vector<std::string>{"file"});
}

// Runs as a user without privileges, whoever started the tests.
template <class Procedure>
int FaultNumberAsNobody(const TemporaryFolder& folder, Procedure run) {
    const bool isRoot = ::geteuid() == 0;
    if (isRoot && ::chown(folder.Path().c_str(), Nobody, Nobody) != 0) return -1;
    return WEXITSTATUS(StatusInChild([&] {
        if (isRoot && (::setgid(Nobody) != 0 || ::setuid(Nobody) != 0)) return 255;
        return FaultNumberOf(run);
    }));
}

TEST(TextFileOut, ReadOnlyFolderIsToldAndUnchanged) {
    const TemporaryFolder folder;
    const std::string path = folder.Put("out.txt", OldBytes);
    ASSERT_EQ(::chmod(path.c_str(), 0666), 0);
    ASSERT_EQ(::chmod(folder.Path().c_str(), 0555), 0);
    EXPECT_EQ(FaultNumberAsNobody(folder, [&] { WriteNewBytes(path); }), 70);
    EXPECT_EQ(FaultNumberAsNobody(folder, [&] { WriteNewBytes(folder.File("new.txt")); }), 70);
    EXPECT_EQ(ReadBytes(path), OldBytes);
    EXPECT_EQ(folder.Names(), std::vector<std::string>{"out.txt"});
    ::chmod(folder.Path().c_str(), 0755);
}

TEST(TextFileOut, ReadOnlyFileIsNotReplaced) {
    const TemporaryFolder folder;
    const std::string path = folder.Put("out.txt", OldBytes);
    ASSERT_EQ(::chmod(path.c_str(), 0444), 0);
    EXPECT_EQ(FaultNumberAsNobody(folder, [&] { WriteNewBytes(path); }), 70);
    EXPECT_EQ(ReadBytes(path), OldBytes);
    EXPECT_EQ(folder.Names(), std::vector<std::string>{"out.txt"});
}

// The limit of the system for the size of a file stands in for a disk that fills up half-way.
TEST(TextFileOut, FileThatMayNotGrowIsTold) {
    const TemporaryFolder folder;
    const std::string path = folder.Put("out.txt", OldBytes);
    const int status = StatusInChild([&] {
        ::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit = {300 * 1024, 300 * 1024};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        return FaultNumberOf([&] { WriteNewBytes(path); });
    });
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 61);
    EXPECT_EQ(ReadBytes(path), OldBytes);
    EXPECT_EQ(folder.Names(), std::vector<std::string>{"out.txt"});
}

}  // namespace
}  // namespace tarvek
