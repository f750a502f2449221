#include "platform/modPaths.hpp"

#include <unistd.h>

#include <filesystem>

#include "support/testSupport.hpp"

namespace tarvek {
namespace {

namespace fs = std::filesystem;
using test::TemporaryFolder;

TEST(Paths, BothSeparatorsAreUnderstood) {
    EXPECT_EQ(NativePath("NGS\\VERTCON/x.out"), "NGS/VERTCON/x.out");
    EXPECT_EQ(NativePath(""), "");
    const TemporaryFolder folder;
    fs::create_directories(folder.File("NGS/HTDP"));
    folder.Put("NGS/HTDP/htdp.out", "x");
    EXPECT_EQ(FindPath(folder.Path() + "\\NGS\\HTDP\\htdp.out"), folder.File("NGS/HTDP/htdp.out"));
    EXPECT_TRUE(FileExists(folder.Path() + "\\NGS/HTDP\\htdp.out"));
    EXPECT_TRUE(FolderExists(folder.Path() + "\\NGS\\HTDP\\"));
    EXPECT_TRUE(OutputFileExists(folder.Path() + "\\NGS\\HTDP\\htdp.out"));
}

TEST(Paths, LetterCaseMattersOnlyWhereTheNameExists) {
    const TemporaryFolder folder;
    folder.Put("Zones.ini", "");
    EXPECT_EQ(FindPath(folder.File("ZONES.INI")), folder.File("Zones.ini"));
    folder.Put("ZONES.ini", "");
    EXPECT_EQ(FindPath(folder.File("zones.ini")), folder.File("ZONES.ini"));  // first in byte order
    folder.Put("zones.ini", "");
    EXPECT_EQ(FindPath(folder.File("zones.ini")), folder.File("zones.ini"));
    EXPECT_EQ(FindPath(folder.File("zones.in")), "");
}

TEST(Paths, FoldersAreFoundInAnyCaseToo) {
    const TemporaryFolder folder;
    fs::create_directories(folder.File("Ngs/VertCon"));
    folder.Put("Ngs/VertCon/VERTCON.OUT", "");
    EXPECT_EQ(FindPath(folder.File("NGS\\VERTCON\\vertcon.out")), folder.File("Ngs/VertCon/VERTCON.OUT"));
    EXPECT_EQ(FindPath(folder.File("NGS//VERTCON/")), folder.File("Ngs/VertCon"));
    EXPECT_EQ(FindPath(folder.File("NGS/none/vertcon.out")), "");
}

TEST(Paths, RelativeNamesAreFoundInTheCurrentFolder) {
    const TemporaryFolder folder;
    const fs::path before = fs::current_path();
    fs::current_path(folder.Path());
    folder.Put("Job.txt", "");
    EXPECT_EQ(FindPath("JOB.TXT"), "Job.txt");
    EXPECT_EQ(FindPath(".\\job.txt"), "./Job.txt");
    EXPECT_EQ(FindPath("none.txt"), "");
    fs::current_path(before);
}

TEST(Paths, NameWithABackslashThatExistsIsTakenAsWritten) {
    const TemporaryFolder folder;
    folder.Put("a\\b", "");
    EXPECT_EQ(FindPath(folder.Path() + "/a\\b"), folder.Path() + "/a\\b");
}

TEST(Paths, EmptyNameIsNothing) {
    EXPECT_EQ(FindPath(""), "");
    EXPECT_FALSE(FileExists(""));
    EXPECT_FALSE(FolderExists(""));
    EXPECT_FALSE(OutputFileExists(""));
    EXPECT_EQ(FindPath("/"), "/");
    EXPECT_EQ(FindPath("\\"), "/");
}

TEST(Paths, FolderIsNoFile) {
    const TemporaryFolder folder;
    folder.Put("file", "");
    EXPECT_FALSE(FileExists(folder.Path()));
    EXPECT_FALSE(OutputFileExists(folder.Path()));
    EXPECT_TRUE(FolderExists(folder.Path()));
    EXPECT_FALSE(FolderExists(folder.File("file")));
    EXPECT_FALSE(FileExists(folder.File("file/")));
    EXPECT_FALSE(FileExists(folder.File("file\\")));
    EXPECT_TRUE(FileExists(folder.File("FILE")));
    EXPECT_FALSE(OutputFileExists(folder.File("FILE")));  // would be a second file
}

TEST(Paths, LinkThatLeadsNowhereIsNoFile) {
    const TemporaryFolder folder;
    fs::create_symlink("nowhere", folder.File("link"));
    EXPECT_EQ(FindPath(folder.File("link")), "");
    EXPECT_EQ(FindPath(folder.File("LINK")), "");
    EXPECT_FALSE(FileExists(folder.File("link")));
    folder.Put("nowhere", "");
    EXPECT_TRUE(FileExists(folder.File("LINK")));
}

TEST(Paths, JoinKeepsAbsolutePaths) {
    EXPECT_EQ(JoinPath("/a", "b/c"), "/a/b/c");
    EXPECT_EQ(JoinPath("/a/", "b"), "/a/b");
    EXPECT_EQ(JoinPath("/a", "/b"), "/b");
    EXPECT_EQ(JoinPath("", "b"), "b");
    EXPECT_EQ(JoinPath("/", "b"), "/b");
}

TEST(Paths, NameAndFolderOfAPath) {
    EXPECT_EQ(FileName("/a/b.c"), "b.c");
    EXPECT_EQ(FileName("b.c"), "b.c");
    EXPECT_EQ(FileName("/a/"), "");
    EXPECT_EQ(FolderOf("/a/b.c"), "/a");
    EXPECT_EQ(FolderOf("b.c"), ".");
    EXPECT_EQ(FolderOf("/b.c"), "/");
    EXPECT_EQ(FolderOf("a/b/c"), "a/b");
}

TEST(Paths, LinksAreFollowedToTheLast) {
    const TemporaryFolder folder;
    fs::create_directory(folder.File("sub"));
    fs::create_symlink("sub/second", folder.File("first"));
    fs::create_symlink("../target", folder.File("sub/second"));
    EXPECT_EQ(ResolveLinks(folder.File("first")), folder.File("sub/../target"));  // need not exist
    folder.Put("target", "");
    EXPECT_EQ(ResolveLinks(folder.File("first")), folder.File("sub/../target"));
    EXPECT_EQ(ResolveLinks(folder.File("target")), folder.File("target"));
    EXPECT_EQ(ResolveLinks(folder.File("none")), folder.File("none"));
}

TEST(Paths, LinksInACircleComeToAnEnd) {
    const TemporaryFolder folder;
    fs::create_symlink("b", folder.File("a"));
    fs::create_symlink("a", folder.File("b"));
    const std::string end = ResolveLinks(folder.File("a"));
    EXPECT_TRUE(fs::is_symlink(end)) << end;
    EXPECT_FALSE(FileExists(folder.File("a")));
}

// An open pipe has a name in /proc, and no path.
TEST(Paths, LinkToWhatHasNoPathStays) {
    int ends[2];
    ASSERT_EQ(::pipe(ends), 0);
    const std::string name = "/proc/self/fd/" + std::to_string(ends[1]);
    EXPECT_EQ(ResolveLinks(name), name);
    ::close(ends[0]);
    ::close(ends[1]);
}

}  // namespace
}  // namespace tarvek
