#include <sys/stat.h>

#include <filesystem>

#include "library/modAPICalls.hpp"
#include "platform/modFaults.hpp"
#include "support/testSupport.hpp"

namespace tarvek::test {
namespace {

namespace fs = std::filesystem;

// What a look-up finds in a file of these bytes.
std::string ValueIn(std::string_view bytes, std::string_view section, std::string_view key,
                    std::string_view whenEmpty = "none") {
    const TemporaryFolder folder;
    return GET_INIValue(folder.Put("a.ini", bytes), section, key, whenEmpty);
}

// The bytes of a file after one value was put.
std::string AfterPut(std::string_view bytes, std::string_view section, std::string_view key,
                     std::string_view value) {
    const TemporaryFolder folder;
    const std::string file = folder.Put("a.ini", bytes);
    EXPECT_TRUE(PUT_INIValue(file, section, key, value));
    return ReadBytes(file);
}

std::string AfterDelete(std::string_view bytes, std::string_view section) {
    const TemporaryFolder folder;
    const std::string file = folder.Put("a.ini", bytes);
    EXPECT_TRUE(DELETE_INISection(file, section));
    return ReadBytes(file);
}

std::string NamesIn(std::string_view bytes) {
    const TemporaryFolder folder;
    return GET_INISectionNames(folder.Put("a.ini", bytes));
}

template <std::size_t Size>
std::string Text(const char (&literal)[Size]) {
    return {literal, Size - 1};
}

TEST(GetINIValue, FindsTheKeyOfTheSection) {
    constexpr std::string_view File = "[A]\r\nk=1\r\n[B]\r\nk=2\r\nl=3\r\n";
    EXPECT_EQ(ValueIn(File, "A", "k"), "1");
    EXPECT_EQ(ValueIn(File, "B", "k"), "2");
    EXPECT_EQ(ValueIn(File, "A", "l"), "none");
    EXPECT_EQ(ValueIn(File, "C", "k"), "none");
}

TEST(GetINIValue, LetterCaseOfSectionAndKeyDoesNotCount) {
    EXPECT_EQ(ValueIn("[NAD 83]\nFull Name=x\n", "nad 83", "FULL name"), "x");
    EXPECT_EQ(ValueIn("[M\xFCnchen]\nStra\xDF\x65=x\n", "M\xDCNCHEN", "STRA\xDF\x45"), "x");
}

TEST(GetINIValue, FirstMatchWins) {
    EXPECT_EQ(ValueIn("[A]\nk=1\nK=2\n[a]\nk=3\n", "A", "K"), "1");
    // The second section of a name is never looked into.
    EXPECT_EQ(ValueIn("[A]\nk=1\n[A]\nl=3\n", "A", "l"), "none");
}

TEST(GetINIValue, ValueFollowsTheFirstEqualsSign) {
    EXPECT_EQ(ValueIn("[A]\nk=a=b=c\n", "A", "k"), "a=b=c");
    EXPECT_EQ(ValueIn("[A]\nk==\n", "A", "k"), "=");
    EXPECT_EQ(ValueIn("[A]\nk=1 ; no comment\n", "A", "k"), "1 ; no comment");
}

TEST(GetINIValue, BlanksAtBothEndsAreCut) {
    EXPECT_EQ(ValueIn("[A]\n  k  =   a b   \n", "A", "k"), "a b");
    EXPECT_EQ(ValueIn("[A]\nk= \t \n", "A", "k"), "\t");
    EXPECT_EQ(ValueIn("[A]\nk=v\n", "A", " k "), "v");
}

TEST(GetINIValue, OnePairOfQuotationMarksIsCut) {
    EXPECT_EQ(ValueIn("[A]\nk=\"a\"\n", "A", "k"), "a");
    EXPECT_EQ(ValueIn("[A]\nk=  \" a \"  \n", "A", "k"), " a ");
    EXPECT_EQ(ValueIn("[A]\nk=\"\"a\"\"\n", "A", "k"), "\"a\"");
    EXPECT_EQ(ValueIn("[A]\nk=\"a\n", "A", "k"), "\"a");
    EXPECT_EQ(ValueIn("[A]\nk=a\"\n", "A", "k"), "a\"");
    EXPECT_EQ(ValueIn("[A]\nk=\"\n", "A", "k"), "\"");
    EXPECT_EQ(ValueIn("[A]\nk='a'\n", "A", "k"), "'a'");
}

TEST(GetINIValue, EmptyValueAndMissingKeyBothGiveTheDefault) {
    EXPECT_EQ(ValueIn("[A]\nk=\n", "A", "k", "1"), "1");
    EXPECT_EQ(ValueIn("[A]\nk=   \n", "A", "k", "1"), "1");
    EXPECT_EQ(ValueIn("[A]\nk=\"\"\n", "A", "k", "1"), "1");
    EXPECT_EQ(ValueIn("[A]\n", "A", "k", "1"), "1");
    EXPECT_EQ(ValueIn("", "A", "k", "1"), "1");
    EXPECT_EQ(ValueIn("[A]\nk\n", "A", "k", "1"), "1");
    EXPECT_EQ(GET_INIValue("/nonexistent/a.ini", "A", "k", "1"), "1");
    EXPECT_EQ(GET_INIValue("/", "A", "k", "1"), "1");
}

TEST(GetINIValue, DefaultIsGivenAsItStands) { EXPECT_EQ(ValueIn("", "A", "k", " \"d\" "), " \"d\" "); }

TEST(GetINIValue, EmptyFirstMatchHidesALaterValue) { EXPECT_EQ(ValueIn("[A]\nk=\nk=2\n", "A", "k"), "none"); }

TEST(GetINIValue, AtMost24999CharactersAreReturned) {
    const std::string longest(24'999, 'x');
    EXPECT_EQ(ValueIn("[A]\nk=" + longest + "\n", "A", "k"), longest);
    EXPECT_EQ(ValueIn("[A]\nk=" + longest + "y\n", "A", "k"), longest);
    EXPECT_EQ(ValueIn("[A]\nk=\"" + longest + "y\"\n", "A", "k"), longest);
}

TEST(GetINIValue, NamesMayHoldBracketsBlanksAndHyphens) {
    EXPECT_EQ(ValueIn("[A [old] - (b)]\nNAD 83 (2007) - [x]=1\n", "A [old] - (b)", "NAD 83 (2007) - [x]"),
              "1");
    EXPECT_EQ(ValueIn("  [A] behind it\nk=1\n", "A", "k"), "1");
}

TEST(GetINIValue, KeyMayBeginWithABracket) {
    constexpr std::string_view File = "[A]\n[HARN] NAD 83=1\n [x]y = 2\n[]=3\n[q] r=[s] t\nk=4\n";
    EXPECT_EQ(ValueIn(File, "A", "[HARN] NAD 83"), "1");
    EXPECT_EQ(ValueIn(File, "A", "[x]y"), "2");
    EXPECT_EQ(ValueIn(File, "A", "[]"), "3");
    EXPECT_EQ(ValueIn(File, "A", "[q] r"), "[s] t");
    EXPECT_EQ(ValueIn(File, "A", "k"), "4");
    EXPECT_EQ(NamesIn(File), Text("A\0"));
}

TEST(GetINIValue, LineThatEndsInABracketIsASectionWhateverItHolds) {
    EXPECT_EQ(NamesIn("[a=b]\n[c] d=[e]\n  [f]  \n[]\n"), Text("a=b\0c] d=[e\0f\0\0"));
}

TEST(GetINIValue, SectionMayBeFollowedByAComment) {
    EXPECT_EQ(NamesIn("[A] ; see [B]\n[C]; k=1\n[D [e]] ;\n[F]x] ;]\n"), Text("A\0C\0D [e]\0F]x\0"));
    EXPECT_EQ(ValueIn("[A] ; of [B] = b\nk=1\n", "A", "k"), "1");
}

TEST(GetINIValue, OpenBracketAloneIsNoSection) {
    EXPECT_EQ(ValueIn("[A]\n[B\n[C=1\nk=2\n", "A", "k"), "2");
    EXPECT_EQ(ValueIn("[A]\n[B\n[C=1\nk=2\n", "A", "[C"), "1");
}

TEST(GetINIValue, CommentsAreNoKeys) {
    EXPECT_EQ(ValueIn("[A]\n;k=1\n  ; k=2\nk=3\n", "A", "k"), "3");
    EXPECT_EQ(ValueIn(";[A]\nk=1\n", "A", "k"), "none");
    EXPECT_EQ(ValueIn("[A]\n;k=1\n", "A", ";k"), "none");
}

TEST(GetINIValue, AnyLineEndAndAMissingLastOneServe) {
    for (const std::string end : {"\r\n", "\n", "\r"}) {
        const std::string file = "[A]" + end + "k=1" + end + end + "l=2";
        EXPECT_EQ(ValueIn(file, "A", "k"), "1");
        EXPECT_EQ(ValueIn(file, "A", "l"), "2");
    }
}

TEST(GetINIValue, ByteOrderMarkIsPassedOver) { EXPECT_EQ(ValueIn("\xEF\xBB\xBF[A]\nk=1\n", "A", "k"), "1"); }

TEST(GetINIValue, FileNameInOtherLetterCaseIsFound) {
    const TemporaryFolder folder;
    folder.Put("Zones.INI", "[A]\nk=1\n");
    EXPECT_EQ(GET_INIValue(folder.Path() + "\\zones.ini", "A", "k", ""), "1");
}

TEST(GetINIValue, ChangeOfTheFileIsSeenByTheNextCall) {
    const TemporaryFolder folder;
    const std::string file = folder.Put("a.ini", "[A]\nk=1\n");
    EXPECT_EQ(GET_INIValue(file, "A", "k", ""), "1");
    folder.Put("a.ini", "[A]\nk=2\n");
    EXPECT_EQ(GET_INIValue(file, "A", "k", ""), "2");
}

TEST(PutINIValue, ReplacesTheValueWhereItStands) {
    EXPECT_EQ(AfterPut("[A]\r\nj=0\r\nk=old\r\nl=2\r\n[B]\r\nk=3\r\n", "A", "k", "new"),
              "[A]\r\nj=0\r\nk=new\r\nl=2\r\n[B]\r\nk=3\r\n");
    EXPECT_EQ(AfterPut("[A]\nk=old\n", "a", "K", "n=w"), "[A]\nk=n=w\n");
    EXPECT_EQ(AfterPut("[A]\n K = \"old\"  \n", "A", "k", "new"), "[A]\n K = new  \n");
    EXPECT_EQ(AfterPut("[A]\nk=old", "A", "k", ""), "[A]\nk=");
    EXPECT_EQ(AfterPut("[A]\nk=", "A", "k", "new"), "[A]\nk=new");
    EXPECT_EQ(AfterPut("[A]\nk=  \n", "A", "k", "new"), "[A]\nk=  new\n");
    EXPECT_EQ(AfterPut("[A]\nk=1\nk=2\n[A]\nk=3\n", "A", "k", "new"), "[A]\nk=new\nk=2\n[A]\nk=3\n");
}

TEST(PutINIValue, NewKeyGoesToTheEndOfItsSection) {
    EXPECT_EQ(AfterPut("[A]\r\nk=1\r\n[B]\r\nl=2\r\n", "A", "m", "3"), "[A]\r\nk=1\r\nm=3\r\n[B]\r\nl=2\r\n");
    EXPECT_EQ(AfterPut("[A]\nk=1\n\n\n[B]\n", "A", "m", "3"), "[A]\nk=1\nm=3\n\n\n[B]\n");
    EXPECT_EQ(AfterPut("[A]\n\nk=1\n\nl=2\n\n[B]\n", "A", "m", "3"), "[A]\n\nk=1\n\nl=2\nm=3\n\n[B]\n");
    EXPECT_EQ(AfterPut("[A]\n[B]\n", "A", "m", "3"), "[A]\nm=3\n[B]\n");
    EXPECT_EQ(AfterPut("[A]\n  \n[B]\n", "A", "m", "3"), "[A]\nm=3\n  \n[B]\n");
    EXPECT_EQ(AfterPut("[B]\n[A]\nk=1", "A", "m", "3"), "[B]\n[A]\nk=1\nm=3\n");
    EXPECT_EQ(AfterPut("[A]", "A", "m", "3"), "[A]\r\nm=3\r\n");
}

TEST(PutINIValue, CommentsStayWhereTheyAre) {
    EXPECT_EQ(AfterPut("[A]\nk=1\n; of k\n\n; of B\n[B]\n", "A", "m", "3"),
              "[A]\nk=1\n; of k\nm=3\n\n; of B\n[B]\n");
    EXPECT_EQ(AfterPut("; head\n[A]\n;k=1\nk=2\n", "A", "k", "3"), "; head\n[A]\n;k=1\nk=3\n");
    EXPECT_EQ(AfterPut("[A]\n; of A\n\n; of B\n[B]\n", "A", "m", "3"), "[A]\n; of A\nm=3\n\n; of B\n[B]\n");
    EXPECT_EQ(AfterPut("[A]\nk=1\n; of k\n[B]\n", "A", "m", "3"), "[A]\nk=1\n; of k\nm=3\n[B]\n");
    EXPECT_EQ(AfterPut("[A]\nk=1\n\n; of l\nl=2\n[B]\n", "A", "m", "3"),
              "[A]\nk=1\n\n; of l\nl=2\nm=3\n[B]\n");
}

TEST(PutINIValue, NewSectionGoesToTheEndOfTheFile) {
    EXPECT_EQ(AfterPut("[A]\r\nk=1\r\n", "B", "m", "3"), "[A]\r\nk=1\r\n[B]\r\nm=3\r\n");
    EXPECT_EQ(AfterPut("[A]\r\nk=1", "B", "m", "3"), "[A]\r\nk=1\r\n[B]\r\nm=3\r\n");
    EXPECT_EQ(AfterPut("", "B [x] - (y)", "m", ""), "[B [x] - (y)]\r\nm=\r\n");
    EXPECT_EQ(AfterPut("\xEF\xBB\xBF", "B", "m", "3"), "\xEF\xBB\xBF[B]\r\nm=3\r\n");
    EXPECT_EQ(AfterPut("; only this", "B", "m", "3"), "; only this\r\n[B]\r\nm=3\r\n");
}

TEST(PutINIValue, LineEndsOfTheFileAreKept) {
    EXPECT_EQ(AfterPut("[A]\nk=1\n", "B", "m", "3"), "[A]\nk=1\n[B]\nm=3\n");
    EXPECT_EQ(AfterPut("[A]\rk=1\r", "B", "m", "3"), "[A]\rk=1\r[B]\rm=3\r");
    EXPECT_EQ(AfterPut("[A]\r\nk=1\r\n", "A", "m", "3"), "[A]\r\nk=1\r\nm=3\r\n");
    EXPECT_EQ(AfterPut("[A]\nk=1\r\nl=2\n", "A", "m", "3"), "[A]\nk=1\r\nl=2\nm=3\r\n");
}

TEST(PutINIValue, CreatesAMissingFile) {
    const TemporaryFolder folder;
    EXPECT_TRUE(PUT_INIValue(folder.File("new.ini"), "A", "k", "v"));
    EXPECT_EQ(ReadBytes(folder.File("new.ini")), "[A]\r\nk=v\r\n");
    EXPECT_EQ(folder.Names(), std::vector<std::string>{"new.ini"});
}

TEST(PutINIValue, FileOfOtherLetterCaseIsTheSameFile) {
    const TemporaryFolder folder;
    const std::string file = folder.Put("Zones.INI", "[A]\nk=1\n");
    EXPECT_TRUE(PUT_INIValue(folder.File("zones.ini"), "A", "k", "2"));
    EXPECT_EQ(ReadBytes(file), "[A]\nk=2\n");
    EXPECT_EQ(folder.Names(), std::vector<std::string>{"Zones.INI"});
}

TEST(PutINIValue, ManyKeysOfASectionInOneWrite) {
    const TemporaryFolder folder;
    const std::string file = folder.Put("a.ini", "[A]\nk=1\n\n[B]\n");
    const INIKeyValue values[] = {{"m", "3"}, {"k", "2"}, {"n", "4"}};
    EXPECT_TRUE(PUT_INIValues(file, "A", values));
    EXPECT_EQ(ReadBytes(file), "[A]\nk=2\nm=3\nn=4\n\n[B]\n");
}

ino_t FileNumber(const std::string& file) {
    struct stat status {};
    EXPECT_EQ(::stat(file.c_str(), &status), 0);
    return status.st_ino;
}

TEST(PutINIValue, UnchangedFileIsNotWritten) {
    const TemporaryFolder folder;
    const std::string file = folder.Put("a.ini", "[A]\nk=1\n");
    const ino_t before = FileNumber(file);
    EXPECT_TRUE(PUT_INIValue(file, "A", "k", "1"));
    EXPECT_EQ(FileNumber(file), before);
    EXPECT_TRUE(DELETE_INISection(file, "B"));
    EXPECT_EQ(FileNumber(file), before);
    EXPECT_TRUE(PUT_INIValue(file, "A", "k", "2"));
    EXPECT_NE(FileNumber(file), before);
}

TEST(PutINIValue, KeepsModeAndLink) {
    const TemporaryFolder folder;
    const std::string file = folder.Put("real.ini", "[A]\nk=1\n");
    ASSERT_EQ(::chmod(file.c_str(), 0640), 0);
    fs::create_symlink("real.ini", folder.File("link.ini"));
    EXPECT_TRUE(PUT_INIValue(folder.File("link.ini"), "A", "k", "2"));
    EXPECT_TRUE(fs::is_symlink(folder.File("link.ini")));
    EXPECT_EQ(ReadBytes(file), "[A]\nk=2\n");
    EXPECT_EQ(static_cast<unsigned>(fs::status(file).permissions()), 0640U);
}

void ExpectRefused(std::string_view section, std::string_view key, std::string_view value) {
    const TemporaryFolder folder;
    const std::string file = folder.Put("a.ini", "[A]\nk=1\n");
    EXPECT_EQ(FaultOf([&] { PUT_INIValue(file, section, key, value); }), Fault::InvalidCall)
        << section << " / " << key << " / " << value;
    EXPECT_EQ(ReadBytes(file), "[A]\nk=1\n");
}

TEST(PutINIValue, ControlCharactersInNamesAreRefused) {
    for (const std::string& bad :
         {std::string("x\ny"), std::string("x\ry"), std::string("x\ty"), std::string("\x1B[0m"),
          std::string("x\x7F"), std::string("\x01"), Text("x\0y")}) {
        ExpectRefused(bad, "k", "v");
        ExpectRefused("A", bad, "v");
    }
}

TEST(PutINIValue, LineEndsAndNULInAValueAreRefusedAndNothingElseIs) {
    for (const std::string& bad :
         {std::string("x\ny"), std::string("x\r"), std::string("\r\n"), Text("x\0y")})
        ExpectRefused("A", "k", bad);
    for (const std::string value : {"x\ty", "\t", "\x1B[0m", "x\x7F", "\x01", "\xB0\xFF"}) {
        EXPECT_EQ(AfterPut("[A]\nk=1\n", "A", "k", value), "[A]\nk=" + value + "\n");
        EXPECT_EQ(ValueIn("[A]\nk=" + value + "\n", "A", "k"), value);
    }
}

TEST(PutINIValue, KeysThatWouldNotBeReadBackAreRefused) {
    ExpectRefused("A", "", "v");
    ExpectRefused("A", "  ", "v");
    ExpectRefused("A", "a=b", "v");
    ExpectRefused("A", ";k", "v");
    ExpectRefused("A", "[B", "]");
    ExpectRefused("A", "[B] c", "[d]");
    ExpectRefused("A", "[B] c", "[d] ;e");
    ExpectRefused("", "k", "v");
}

TEST(PutINIValue, SectionsThatWouldNotBeReadBackAreRefused) {
    for (const char* section : {"A];", "A] ; see [B", "A]  ;x]"}) ExpectRefused(section, "k", "v");
}

TEST(PutINIValue, BracketsInNamesAreTaken) {
    EXPECT_EQ(AfterPut("[A]\n", "A]x", "k]", "v]"), "[A]\n[A]x]\nk]=v]\n");
    EXPECT_EQ(ValueIn("[A]\n[A]x]\nk]=v]\n", "A]x", "k]"), "v]");
    EXPECT_EQ(AfterPut("[A]\n", "A", "[HARN] NAD 83", "1"), "[A]\n[HARN] NAD 83=1\n");
    EXPECT_EQ(AfterPut("[A]\n[HARN] NAD 83=1\n[B]\n", "A", "[harn] nad 83", "22"),
              "[A]\n[HARN] NAD 83=22\n[B]\n");
    EXPECT_EQ(AfterPut("[A] ; see [B]\n[B]\n", "A", "k", "v"), "[A] ; see [B]\nk=v\n[B]\n");
}

TEST(PutINIValue, RefusalOfTheFileSystemIsToldAndFalse) {
    const TemporaryFolder folder;
    ScriptedPrompts prompts;
    EXPECT_FALSE(PUT_INIValue(folder.File("missing/a.ini"), "A", "k", "v"));
    ExpectToldOnly(prompts, "Path not found: '" + folder.File("missing/a.ini") + "'", "Tarvek Translator");
    prompts.told.clear();
    EXPECT_FALSE(DELETE_INISection(folder.Path(), "A"));
    ExpectToldOnly(prompts, "Path/File access error: '" + folder.Path() + "'", "Tarvek Translator");
}

// A file that is there and whose first byte can not be read, not even by the superuser.
constexpr const char* UnreadableFile = "/proc/self/mem";

TEST(PutINIValue, FileThatCanNotBeReadIsEmptyToLookUpsButNotReplaced) {
    ScriptedPrompts prompts;
    EXPECT_EQ(GET_INIValue(UnreadableFile, "A", "k", "none"), "none");
    EXPECT_EQ(GET_INISectionNames(UnreadableFile), "");
    ExpectNothingTold(prompts);
    EXPECT_FALSE(PUT_INIValue(UnreadableFile, "A", "k", "2"));
    ExpectToldOnly(prompts, "Device I/O error: '/proc/self/mem'", "Tarvek Translator");
}

TEST(DeleteINISection, RemovesTheSectionWithItsKeys) {
    EXPECT_EQ(AfterDelete("[A]\r\nk=1\r\n\r\n[B]\r\nl=2\r\nm=3\r\n\r\n[C]\r\nn=4\r\n", "b"),
              "[A]\r\nk=1\r\n\r\n[C]\r\nn=4\r\n");
    EXPECT_EQ(AfterDelete("[A]\nk=1\n", "A"), "");
    EXPECT_EQ(AfterDelete("[A]\n[B]\nk=1", "B"), "[A]\n");
    EXPECT_EQ(AfterDelete("[A]\n[B]\n", "A"), "[B]\n");
}

TEST(DeleteINISection, CommentsBehindTheLastKeyStay) {
    EXPECT_EQ(AfterDelete("[A]\n; of k\nk=1\n\n; of B\n[B]\nl=2\n", "A"), "; of B\n[B]\nl=2\n");
    EXPECT_EQ(AfterDelete("; of A\n[A]\nk=1\n; behind\n\n[B]\n", "A"), "; of A\n; behind\n\n[B]\n");
}

TEST(DeleteINISection, OnlyTheFirstOfTwoEqualSectionsGoes) {
    EXPECT_EQ(AfterDelete("[A]\nk=1\n[B]\n[a]\nk=2\n", "A"), "[B]\n[a]\nk=2\n");
}

TEST(DeleteINISection, MissingSectionOrFileIsNoFault) {
    EXPECT_EQ(AfterDelete("[A]\nk=1", "B"), "[A]\nk=1");
    const TemporaryFolder folder;
    EXPECT_TRUE(DELETE_INISection(folder.File("none.ini"), "A"));
    EXPECT_TRUE(folder.Names().empty());
}

TEST(GetINISectionNames, EachNameIsFollowedByNUL) {
    EXPECT_EQ(NamesIn("x=1\n[B]\nk=1\n;[C]\n[A b]\n[b]\n"), Text("B\0A b\0b\0"));
    EXPECT_EQ(NamesIn(""), "");
    EXPECT_EQ(NamesIn("no section\n"), "");
    EXPECT_EQ(GET_INISectionNames("/nonexistent/a.ini"), "");
}

TEST(GetINISectionNames, NamesAreSplitAtNUL) {
    const std::string names = Text("B\0A b\0\0c\0");
    EXPECT_EQ(SplitSectionNames(names), (std::vector<std::string_view>{"B", "A b", "", "c"}));
    EXPECT_TRUE(SplitSectionNames("").empty());
}

// 2,999 names of nine characters and NUL make 29,990 characters, 8 below the limit.
std::string ManySections() {
    std::string file;
    for (int i = 0; i < 2999; ++i) file += "[" + std::to_string(100'000'000 + i) + "]\n";
    return file;
}

TEST(GetINISectionNames, ListEndsAt29998Characters) {
    EXPECT_EQ(NamesIn(ManySections()).size(), 29'990U);
    // Seven characters and NUL fit to the last place.
    const std::string whole = NamesIn(ManySections() + "[1234567]\n[8]\n");
    EXPECT_EQ(whole.size(), 29'998U);
    EXPECT_EQ(whole.substr(29'990), Text("1234567\0"));
    // One character more is cut.
    const std::string cut = NamesIn(ManySections() + "[12345678]\n[9]\n");
    EXPECT_EQ(cut.size(), 29'998U);
    EXPECT_EQ(cut.substr(29'990), Text("1234567\0"));
    EXPECT_EQ(SplitSectionNames(cut).size(), 3000U);
    EXPECT_EQ(SplitSectionNames(cut).back(), "1234567");
    // No room for a character of the next name: there is no name without characters.
    const std::string full = NamesIn(ManySections() + "[123456]\n[9]\n");
    EXPECT_EQ(full.size(), 29'997U);
    EXPECT_EQ(full.substr(29'990), Text("123456\0"));
}

TEST(GetINISectionNames, OneNameLongerThanTheLimitIsCut) {
    const std::string names = NamesIn("[" + std::string(40'000, 'x') + "]\n");
    EXPECT_EQ(names, std::string(29'997, 'x') + '\0');
}

TEST(GetShortPath, IsThePathItselfUpTo255Characters) {
    EXPECT_EQ(GET_ShortPath("/home/a b/survey data.ctl"), "/home/a b/survey data.ctl");
    EXPECT_EQ(GET_ShortPath(std::string(255, 'x')), std::string(255, 'x'));
    EXPECT_EQ(GET_ShortPath(std::string(256, 'x')), "");
}

}  // namespace
}  // namespace tarvek::test
