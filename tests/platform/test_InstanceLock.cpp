#include "platform/modInstanceLock.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <memory>

#include "environment.hpp"
#include "support/testSupport.hpp"

namespace tarvek {
namespace {

namespace fs = std::filesystem;
using test::TemporaryFolder;
using test::Variable;

// A process that holds the lock until it is killed or told to end.
class Holder {
  public:
    explicit Holder(const std::string& programFolder) {
        int ready[2];
        if (::pipe(ready) != 0 || ::pipe(stay_) != 0) return;
        process_ = ::fork();
        if (process_ == 0) {
            const InstanceLock lock(programFolder);
            const char answer = lock.Held() ? 'y' : 'n';
            ::close(stay_[1]);
            char byte = 0;
            if (::write(ready[1], &answer, 1) != 1 || ::read(stay_[0], &byte, 1) < 0) ::_exit(1);
            ::_exit(0);
        }
        char answer = 0;
        held_ = ::read(ready[0], &answer, 1) == 1 && answer == 'y';
        for (const int file : {ready[0], ready[1], stay_[0]}) ::close(file);
    }
    ~Holder() { End(0); }
    Holder(const Holder&) = delete;
    Holder& operator=(const Holder&) = delete;

    bool Held() const { return held_; }
    void End(int signal) {
        if (process_ <= 0) return;
        if (signal != 0) ::kill(process_, signal);
        ::close(stay_[1]);
        ::waitpid(process_, nullptr, 0);
        process_ = -1;
    }

  private:
    pid_t process_ = -1;
    int stay_[2] = {-1, -1};
    bool held_ = false;
};

class Lock : public ::testing::Test {
  protected:
    Lock() { ::chmod(runtime_.Path().c_str(), 0700); }

    TemporaryFolder runtime_;
    TemporaryFolder temporary_;
    Variable runtimeVariable_{"XDG_RUNTIME_DIR", runtime_.Path()};
    Variable temporaryVariable_{"TMPDIR", temporary_.Path()};
    std::string ownFolder_ = "tarvek-translator-" + std::to_string(::geteuid());
};

TEST_F(Lock, OnlyOneProcessHoldsIt) {
    Holder first("/opt/tarvek");
    EXPECT_TRUE(first.Held());
    EXPECT_FALSE(InstanceLock("/opt/tarvek").Held());
    EXPECT_FALSE(Holder("/opt/tarvek").Held());
    first.End(0);
    EXPECT_TRUE(InstanceLock("/opt/tarvek").Held());
}

TEST_F(Lock, KilledProcessLeavesNothingBehind) {
    Holder first("/opt/tarvek");
    ASSERT_TRUE(first.Held());
    first.End(SIGKILL);
    EXPECT_TRUE(InstanceLock("/opt/tarvek").Held());
}

TEST_F(Lock, EveryProgramFolderHasItsOwn) {
    const InstanceLock lock("/opt/tarvek");
    EXPECT_TRUE(lock.Held());
    EXPECT_TRUE(InstanceLock("/opt/tarvek2").Held());
    EXPECT_FALSE(InstanceLock("/opt/tarvek/").Held());
    EXPECT_FALSE(InstanceLock("/opt/other/../tarvek").Held());
}

TEST_F(Lock, LinkToTheFolderIsTheFolder) {
    const TemporaryFolder folder;
    fs::create_directory(folder.File("real"));
    fs::create_directory_symlink("real", folder.File("link"));
    const InstanceLock lock(folder.File("real"));
    EXPECT_FALSE(InstanceLock(folder.File("link")).Held());
}

TEST_F(Lock, LiesInTheRuntimeFolderAndAmongTheTemporaryFiles) {
    const InstanceLock lock("/opt/tarvek");
    EXPECT_EQ(runtime_.Names().size(), 1U);
    EXPECT_EQ(temporary_.Names(), std::vector<std::string>{ownFolder_});
}

TEST_F(Lock, IsMetByAStartWithoutTheRuntimeFoldersVariable) {
    const InstanceLock lock("/opt/tarvek");
    const Variable runtime("XDG_RUNTIME_DIR", nullptr);
    EXPECT_FALSE(InstanceLock("/opt/tarvek").Held());
}

TEST_F(Lock, LiesAmongTemporaryFilesWithoutAUsableRuntimeFolder) {
    const std::string open = runtime_.File("open");
    fs::create_directory(open);
    ASSERT_EQ(::chmod(open.c_str(), 0777), 0);
    fs::create_directory_symlink(runtime_.Path(), runtime_.File("link"));
    for (const std::string& unusable :
         {std::string(), std::string("relative"), runtime_.File("none"), open, runtime_.File("link")}) {
        const Variable runtime("XDG_RUNTIME_DIR", unusable);
        const InstanceLock lock("/opt/tarvek");
        EXPECT_TRUE(lock.Held());
        EXPECT_FALSE(InstanceLock("/opt/tarvek").Held()) << unusable;
        EXPECT_EQ(temporary_.Names(), std::vector<std::string>{ownFolder_}) << unusable;
    }
    EXPECT_TRUE(fs::is_empty(open));
    struct stat status {};
    ASSERT_EQ(::stat(temporary_.File(ownFolder_).c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0700U);
}

// Whoever made the folder or a link of its name before us must not get a say.
TEST_F(Lock, ForeignFolderIsNotUsedAndKeepsNobodyFromWorking) {
    const Variable runtime("XDG_RUNTIME_DIR", nullptr);
    const std::string own = temporary_.File(ownFolder_);
    const std::string elsewhere = temporary_.File("elsewhere");
    fs::create_directory(elsewhere);
    fs::create_directory_symlink(elsewhere, own);
    EXPECT_TRUE(InstanceLock("/opt/tarvek").Held());
    EXPECT_TRUE(fs::is_empty(elsewhere));
    fs::remove(own);
    fs::create_directory(own);
    ASSERT_EQ(::chmod(own.c_str(), 0777), 0);
    EXPECT_TRUE(InstanceLock("/opt/tarvek").Held());
    EXPECT_TRUE(fs::is_empty(own));
    if (::geteuid() != 0) return;
    ASSERT_EQ(::chmod(own.c_str(), 0700), 0);
    ASSERT_EQ(::chown(own.c_str(), 65534, 65534), 0);
    EXPECT_TRUE(InstanceLock("/opt/tarvek").Held());
    EXPECT_TRUE(fs::is_empty(own));
}

TEST_F(Lock, LockFileThatIsALinkIsNotFollowed) {
    { const InstanceLock lock("/opt/tarvek"); }
    const std::string name = runtime_.Names().at(0);
    fs::remove(runtime_.File(name));
    fs::create_symlink("victim", runtime_.File(name));
    EXPECT_TRUE(InstanceLock("/opt/tarvek").Held());
    EXPECT_FALSE(fs::exists(runtime_.File("victim")));
}

// A tool that outlives the program must not hold the lock on.
TEST_F(Lock, IsNotHandedToOtherPrograms) {
    const int free = ::dup(0);
    ::close(free);
    const InstanceLock lock("/opt/tarvek");
    bool found = false;
    for (int file = free; file < free + 3; ++file) {
        const int flags = ::fcntl(file, F_GETFD);
        if (flags < 0) continue;
        found = true;
        EXPECT_NE(flags & FD_CLOEXEC, 0);
    }
    EXPECT_TRUE(found);
}

}  // namespace
}  // namespace tarvek
