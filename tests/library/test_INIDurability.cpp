// What an edit leaves behind when it is ended at any of its steps, and what two programs leave that edit at
// once.

#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>

#include "library/modAPICalls.hpp"
#include "platform/modFileCalls.hpp"
#include "support/testSupport.hpp"

namespace tarvek::test {
namespace {

constexpr std::string_view Before = "[A]\r\nk=old\r\nl=2\r\n\r\n[B]\r\nm=3\r\n";
constexpr std::string_view AfterPut = "[A]\r\nk=new\r\nl=2\r\n\r\n[B]\r\nm=3\r\n";
constexpr std::string_view AfterDelete = "[B]\r\nm=3\r\n";

// What befalls the call of the file system whose turn it is, counted from 1.
enum class Blow { KillBefore, KillAfter, DiskFull, HalfAWrite };
struct {
    int turn = 0;
    int calls = 0;
    Blow blow = Blow::KillBefore;
} Plan;

template <class Result, class Call>
Result Strike(Call call) {
    if (++Plan.calls != Plan.turn) return call();
    if (Plan.blow == Blow::KillAfter) call();
    if (Plan.blow == Blow::KillBefore || Plan.blow == Blow::KillAfter) ::kill(::getpid(), SIGKILL);
    errno = ENOSPC;
    return -1;
}

int Open(const char* path, int flags, mode_t mode) {
    return Strike<int>([=] { return SystemFileCalls.open(path, flags, mode); });
}
ssize_t Write(int file, const void* bytes, std::size_t count) {
    if (Plan.blow == Blow::HalfAWrite && Plan.calls + 1 == Plan.turn) {
        ++Plan.turn;  // the first half goes through, the rest does not
        ++Plan.calls;
        return SystemFileCalls.write(file, bytes, count / 2);
    }
    return Strike<ssize_t>([=] { return SystemFileCalls.write(file, bytes, count); });
}
int Mode(int file, mode_t mode) {
    return Strike<int>([=] { return SystemFileCalls.fchmod(file, mode); });
}
int Owner(int file, uid_t owner, gid_t group) {
    return Strike<int>([=] { return SystemFileCalls.fchown(file, owner, group); });
}
int Sync(int file) {
    return Strike<int>([=] { return SystemFileCalls.fsync(file); });
}
int Close(int file) {
    return Strike<int>([=] { return SystemFileCalls.close(file); });
}
int Rename(const char* from, const char* to) {
    return Strike<int>([=] { return SystemFileCalls.rename(from, to); });
}
int Unlink(const char* path) {
    return Strike<int>([=] { return SystemFileCalls.unlink(path); });
}

constexpr FileCalls StruckCalls = {Open, Write, Mode, Owner, Sync, Close, Rename, Unlink};

class BlowAt {
  public:
    BlowAt(Blow blow, int turn) {
        Plan = {turn, 0, blow};
        SetFileCalls(&StruckCalls);
    }
    ~BlowAt() { SetFileCalls(nullptr); }
    BlowAt(const BlowAt&) = delete;
    BlowAt& operator=(const BlowAt&) = delete;
};

using Edit = bool (*)(const std::string& file);
bool Put(const std::string& file) { return PUT_INIValue(file, "A", "k", "new"); }
bool Delete(const std::string& file) { return DELETE_INISection(file, "A"); }

// The wait status of a child that makes the edit and is struck at that call.
int RunStruck(Edit edit, const std::string& file, Blow blow, int turn) {
    const pid_t child = ::fork();
    if (child == 0) {
        const BlowAt struck(blow, turn);
        ::_exit(edit(file) ? 0 : 1);
    }
    int status = 0;
    EXPECT_EQ(::waitpid(child, &status, 0), child);
    return status;
}

void ExpectOldOrNewAfterKills(Edit edit, std::string_view after, Blow blow) {
    int kills = 0;
    bool wasOld = false;
    for (int turn = 1; turn < 50; ++turn) {
        const TemporaryFolder folder;
        const std::string file = folder.Put("a.ini", Before);
        const int status = RunStruck(edit, file, blow, turn);
        const std::string bytes = ReadBytes(file);
        if (!WIFSIGNALED(status)) {
            EXPECT_EQ(WEXITSTATUS(status), 0);
            EXPECT_EQ(bytes, after);
            break;
        }
        ++kills;
        EXPECT_TRUE(bytes == Before || bytes == after) << "killed at call " << turn << ":\n" << bytes;
        wasOld = wasOld || bytes == Before;
        // The next edit works, whatever the killed one left.
        EXPECT_TRUE(edit(file));
        EXPECT_EQ(ReadBytes(file), after);
    }
    EXPECT_GE(kills, 5);  // at least open, write, sync, close and rename
    EXPECT_TRUE(wasOld);
}

TEST(INIDurability, KillAtAnyCallLeavesTheOldOrTheNewFile) {
    for (const Blow blow : {Blow::KillBefore, Blow::KillAfter}) {
        ExpectOldOrNewAfterKills(Put, AfterPut, blow);
        ExpectOldOrNewAfterKills(Delete, AfterDelete, blow);
    }
}

// The number of calls that an edit made before one of them was not struck any more.
int ExpectOldOrNewAfterFullDisk(Edit edit, std::string_view after, Blow blow) {
    int failures = 0;
    for (int turn = 1; turn < 50; ++turn) {
        const TemporaryFolder folder;
        const std::string file = folder.Put("a.ini", Before);
        ScriptedPrompts prompts;
        bool done = false;
        bool struck = false;
        {
            const BlowAt blowAt(blow, turn);
            done = edit(file);
            struck = Plan.calls >= Plan.turn;
        }
        EXPECT_EQ(ReadBytes(file), done ? after : Before) << "full at call " << turn;
        EXPECT_EQ(folder.Names(), std::vector<std::string>{"a.ini"}) << "full at call " << turn;
        if (done) {
            ExpectNothingTold(prompts);
        } else {
            ++failures;
            ExpectToldOnly(prompts, "Disk full: '" + file + "'", "Tarvek Translator");
        }
        if (!struck) break;
    }
    return failures;
}

TEST(INIDurability, FullDiskAtAnyCallLeavesTheOldFileAndIsTold) {
    EXPECT_GE(ExpectOldOrNewAfterFullDisk(Put, AfterPut, Blow::DiskFull), 5);
    EXPECT_GE(ExpectOldOrNewAfterFullDisk(Delete, AfterDelete, Blow::DiskFull), 5);
    EXPECT_GE(ExpectOldOrNewAfterFullDisk(Put, AfterPut, Blow::HalfAWrite), 5);
}

TEST(INIDurability, MissingFileStaysMissingAfterAKill) {
    for (int turn = 1; turn <= 4; ++turn) {  // open, write, sync, close
        const TemporaryFolder folder;
        const int status = RunStruck(Put, folder.File("a.ini"), Blow::KillBefore, turn);
        ASSERT_TRUE(WIFSIGNALED(status));
        for (const std::string& name : folder.Names()) EXPECT_NE(name, "a.ini");
    }
}

constexpr int KeysOfEach = 200;

void PutKeys(const std::string& file, char who) {
    for (int i = 0; i < KeysOfEach; ++i) {
        const std::string key = who + std::to_string(i);
        const bool done = PUT_INIValue(file, i % 2 == 0 ? "Shared" : std::string(1, who), key, "v" + key);
        if (!done) ::_exit(1);
    }
    ::_exit(0);
}

TEST(INIDurability, TwoProcessesThatEditAtOnceLoseNothing) {
    const TemporaryFolder folder;
    const std::string file = folder.File("a.ini");
    const char names[] = {'x', 'y'};
    pid_t children[2] = {};
    for (int i = 0; i < 2; ++i) {
        children[i] = ::fork();
        if (children[i] == 0) PutKeys(file, names[i]);
    }
    for (const pid_t child : children) {
        int status = -1;
        EXPECT_EQ(::waitpid(child, &status, 0), child);
        EXPECT_EQ(status, 0);
    }
    for (const char who : names)
        for (int i = 0; i < KeysOfEach; ++i) {
            const std::string key = who + std::to_string(i);
            const std::string section = i % 2 == 0 ? "Shared" : std::string(1, who);
            EXPECT_EQ(GET_INIValue(file, section, key, "lost"), "v" + key);
        }
    EXPECT_EQ(folder.Names(), std::vector<std::string>{"a.ini"});
}

}  // namespace
}  // namespace tarvek::test
