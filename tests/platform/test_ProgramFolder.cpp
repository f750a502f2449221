#include "platform/modProgramFolder.hpp"

#include <sys/stat.h>

#include <filesystem>

#include "environment.hpp"
#include "platform/modFaults.hpp"
#include "support/testSupport.hpp"

namespace tarvek {
namespace {

namespace fs = std::filesystem;
using test::ReadBytes;
using test::TemporaryFolder;
using test::Variable;

// An installation with three files, and a user who has none yet.
class Folder : public ::testing::Test {
  protected:
    Folder() {
        fs::create_directories(install_.File("bin"));
        fs::create_directories(install_.File("share/tarvek-translator/KTIFiles"));
        Install("zones.ini", "[zones]\r\n");
        Install("datums.ini", std::string(100000, 'd'));
        Install("KTIFiles/a.kti", "kti\r\n");
    }

    void Install(const std::string& name, std::string_view bytes) const {
        install_.Put("share/tarvek-translator/" + name, bytes);
    }
    std::string Find() const { return FindProgramFolder(install_.File("bin")); }
    // What the stamp of an earlier version looks like is our own affair; any other text will do.
    void PretendOtherVersion() const {
        for (const auto& entry : fs::directory_iterator(own_))
            if (entry.path().filename().string().starts_with("."))
                user_.Put("tarvek-translator/" + entry.path().filename().string(), "0.0.1\r\n");
    }

    TemporaryFolder install_;
    TemporaryFolder user_;
    Variable home_{"TARVEK_HOME", nullptr};
    Variable data_{"XDG_DATA_HOME", user_.Path()};
    std::string own_ = user_.File("tarvek-translator");
};

TEST_F(Folder, VariableComesFirst) {
    const Variable home("TARVEK_HOME", "/srv/tarvek//");
    install_.Put("bin/zones.ini", "");
    EXPECT_EQ(Find(), "/srv/tarvek");
    const Variable root("TARVEK_HOME", "/");
    EXPECT_EQ(Find(), "/");
    const Variable relative("TARVEK_HOME", "here");
    EXPECT_EQ(Find(), (fs::current_path() / "here").string());
    EXPECT_EQ(user_.Names(), std::vector<std::string>());
}

TEST_F(Folder, ExecutableMayLieBesideTheLibrary) {
    install_.Put("bin/ZONES.INI", "");
    EXPECT_EQ(Find(), install_.File("bin"));
    EXPECT_EQ(FindProgramFolder(install_.File("bin") + "/"), install_.File("bin"));
    EXPECT_EQ(user_.Names(), std::vector<std::string>());
}

TEST_F(Folder, OwnFolderIsFilledAtFirstUse) {
    EXPECT_EQ(Find(), own_);
    EXPECT_EQ(ReadBytes(own_ + "/zones.ini"), "[zones]\r\n");
    EXPECT_EQ(ReadBytes(own_ + "/datums.ini"), std::string(100000, 'd'));
    EXPECT_EQ(ReadBytes(own_ + "/KTIFiles/a.kti"), "kti\r\n");
}

TEST_F(Folder, HomeHoldsTheDataWithoutAVariable) {
    const Variable data("XDG_DATA_HOME", nullptr);
    const Variable home("HOME", user_.Path());
    EXPECT_EQ(Find(), user_.File(".local/share/tarvek-translator"));
    EXPECT_TRUE(fs::exists(user_.File(".local/share/tarvek-translator/zones.ini")));
}

TEST_F(Folder, UserWithoutAHomeWorksBesideTheExecutable) {
    const Variable data("XDG_DATA_HOME", nullptr);
    const Variable home("HOME", nullptr);
    EXPECT_EQ(Find(), install_.File("bin"));
}

TEST_F(Folder, EditedFilesAreNeverOverwritten) {
    fs::create_directories(own_);
    user_.Put("tarvek-translator/zones.ini", "mine");
    Find();
    EXPECT_EQ(ReadBytes(own_ + "/zones.ini"), "mine");
    user_.Put("tarvek-translator/KTIFiles/a.kti", "my kti");
    PretendOtherVersion();
    Install("KTIFiles/a.kti", "newer");
    Find();
    EXPECT_EQ(ReadBytes(own_ + "/zones.ini"), "mine");
    EXPECT_EQ(ReadBytes(own_ + "/KTIFiles/a.kti"), "my kti");
}

TEST_F(Folder, NameInOtherLetterCaseIsTheUsersFile) {
    fs::create_directories(own_ + "/ktifiles");
    user_.Put("tarvek-translator/ZONES.INI", "mine");
    user_.Put("tarvek-translator/ktifiles/A.KTI", "my kti");
    Find();
    EXPECT_FALSE(fs::exists(own_ + "/zones.ini"));
    EXPECT_FALSE(fs::exists(own_ + "/KTIFiles"));
    EXPECT_FALSE(fs::exists(own_ + "/ktifiles/a.kti"));
}

TEST_F(Folder, LinkThatLeadsNowhereIsLeftAlone) {
    fs::create_directories(own_);
    fs::create_symlink("unmounted/zones.ini", own_ + "/zones.ini");
    Find();
    EXPECT_TRUE(fs::is_symlink(own_ + "/zones.ini"));
    EXPECT_FALSE(fs::exists(own_ + "/unmounted"));
}

TEST_F(Folder, DeletedFileStaysDeletedWithinOneVersion) {
    Find();
    fs::remove(own_ + "/datums.ini");
    Find();
    EXPECT_FALSE(fs::exists(own_ + "/datums.ini"));
}

TEST_F(Folder, OtherVersionAddsWhatIsMissing) {
    Find();
    fs::remove(own_ + "/datums.ini");
    Install("ellipsoids.ini", "new in this version");
    PretendOtherVersion();
    Find();
    EXPECT_TRUE(fs::exists(own_ + "/datums.ini"));
    EXPECT_EQ(ReadBytes(own_ + "/ellipsoids.ini"), "new in this version");
    fs::remove(own_ + "/datums.ini");
    Find();
    EXPECT_FALSE(fs::exists(own_ + "/datums.ini"));
}

TEST_F(Folder, FillingThatFailedIsTriedAgain) {
    fs::create_directories(own_);
    user_.Put("tarvek-translator/KTIFiles", "a file where a folder should be");
    EXPECT_THROW(Find(), RuntimeFault);
    fs::remove(own_ + "/KTIFiles");
    EXPECT_EQ(Find(), own_);
    EXPECT_EQ(ReadBytes(own_ + "/KTIFiles/a.kti"), "kti\r\n");
}

TEST_F(Folder, NothingInstalledIsNothingToFill) {
    fs::remove_all(install_.File("share"));
    EXPECT_EQ(Find(), own_);
    EXPECT_EQ(user_.Names(), std::vector<std::string>());
}

TEST_F(Folder, CopiesCanBeWrittenAndToolsRun) {
    const std::string tool = install_.File("share/tarvek-translator/tool");
    Install("tool", "#!/bin/sh\n");
    ASSERT_EQ(::chmod(tool.c_str(), 0555), 0);
    ASSERT_EQ(::chmod(install_.File("share/tarvek-translator/zones.ini").c_str(), 0444), 0);
    Find();
    const auto permissions = [this](const char* name) { return fs::status(own_ + "/" + name).permissions(); };
    EXPECT_NE(permissions("zones.ini") & fs::perms::owner_write, fs::perms::none);
    EXPECT_EQ(permissions("zones.ini") & fs::perms::owner_exec, fs::perms::none);
    EXPECT_NE(permissions("tool") & fs::perms::owner_write, fs::perms::none);
    EXPECT_NE(permissions("tool") & fs::perms::owner_exec, fs::perms::none);
}

TEST_F(Folder, IsFoundOnceUntilItIsForgotten) {
    ForgetProgramFolder();
    {
        const Variable home("TARVEK_HOME", "/first");
        EXPECT_EQ(ProgramFolder(), "/first");
    }
    const Variable home("TARVEK_HOME", "/second");
    EXPECT_EQ(ProgramFolder(), "/first");
    ForgetProgramFolder();
    EXPECT_EQ(ProgramFolder(), "/second");
    ForgetProgramFolder();
}

}  // namespace
}  // namespace tarvek
