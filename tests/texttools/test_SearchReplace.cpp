// Search and replace: how a .TRN line is parsed, what each form of command does, what a run reads, keeps and
// writes, and the whole engine against a plain second one.

#include "texttools/modSearchReplace.hpp"

#include <gtest/gtest.h>

#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <initializer_list>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "platform/modFileCalls.hpp"
#include "support/testSupport.hpp"
#include "texttools/modTagMath.hpp"

namespace tarvek::test {
namespace {

constexpr const char* InvalidCommand = "Invalid Search and Replace Command";

using GivenLines = std::initializer_list<std::string_view>;

class SearchReplace : public ::testing::Test {
  protected:
    // Every output file is synced, which takes its time on a disk: the thousands of them go to memory.
    static void SetUpTestSuite() {
        if (::access("/dev/shm", W_OK) == 0) ::setenv("TMPDIR", "/dev/shm", 0);
    }

    bool Run(std::string_view input, std::string_view commands) {
        const std::string inputFile = folder_.Put("points.pac", input);
        const std::string trnFile = folder_.Put("commands.trn", commands);
        const bool done = RunSearchReplace(inputFile, Output(), trnFile);
        EXPECT_EQ(ReadBytes(inputFile), input);
        EXPECT_EQ(ReadBytes(trnFile), commands);
        return done;
    }

    // What a run writes that has nothing to tell.
    std::string OutputOf(std::string_view input, std::string_view commands) {
        EXPECT_TRUE(Run(input, commands));
        ExpectNothingTold(prompts_);
        return ReadBytes(Output());
    }

    void ExpectOutput(GivenLines input, GivenLines commands, GivenLines output) {
        EXPECT_EQ(OutputOf(Lines(input), Lines(commands)), Lines(output)) << Lines(commands);
    }

    // Runs over an output file that is there already, and expects the run to fail and to leave it alone.
    void ExpectRefusal(std::string_view input, std::string_view commands, std::string_view text,
                       std::string_view caption) {
        prompts_.told.clear();
        folder_.Put("output.pac", "before");
        EXPECT_FALSE(Run(input, commands));
        ExpectToldOnly(prompts_, text, caption);
        EXPECT_EQ(ReadBytes(Output()), "before");
    }

    std::string Output() const { return folder_.File("output.pac"); }

    TemporaryFolder folder_;
    ScriptedPrompts prompts_;
};

// ---- Parsing a line ----

struct ParsedLine {
    const char* line = "";
    SearchReplaceCommand command;
};

constexpr double None = -99999.0;

TEST_F(SearchReplace, EveryFormOfLineIsParsed) {
    const ParsedLine rows[] = {
        {"PN:100 PN:200", {"PN", "100", "PN:200", "", "", None}},
        {"XC: ZC:", {"XC", "", "ZC:", "", "", None}},
        {"XC:ZC:", {"XC", "", "ZC:", "", "", None}},
        {"PN:ZC:5", {"PN", "", "ZC:5", "", "", None}},
        {"XC:+100", {"XC", "", "", "+", "Math", 100}},
        {"XC:-0.5", {"XC", "", "", "-", "Math", 0.5}},
        {"XC:*-2", {"XC", "", "", "*", "Math", -2}},
        {"XC: / 1E2", {"XC", "", "", "/", "Math", 100}},
        {"AZ:-0.3000", {"AZ", "", "", "-", "Angle", 0.3}},
        {"BR:+1.0000", {"BR", "", "", "+", "Bearing", 1}},
        {"CE:*2", {"CE", "", "", "*", "Seconds", 2}},
        {"PN:+5", {"PN", "", "", "+", "PointID", 5}},
        {"XCX:+1", {"XCX", "", "", "+", "Math", 1}},
        {"CM:OLD", {"CM", "OLD", "", "", "", None}},
        {"CM: OLD WALL", {"CM", "OLD WALL", "", "", "", None}},
        {"CM:", {"CM", "", "", "", "", None}},
        {"CM:    ", {"CM", "", "", "", "", None}},
        {"CM:5+3", {"CM", "5+3", "", "", "", None}},
        {":", {"", "", "", "", "", None}},
        {":A", {"", "A", "", "", "", None}},
        {":A B:C", {"", "A", "B:C", "", "", None}},
        {"::", {"", "", ":", "", "", None}},
        {"A: :", {"A", "", ":", "", "", None}},
        {"A:B :", {"A", "B", ":", "", "", None}},
        {" PN:5", {" PN", "5", "", "", "", None}},
        {"PN :5", {"PN ", "5", "", "", "", None}},
        // An operator does not make arithmetic of a line with a further colon.
        {"XC:+100 YC:", {"XC", "+100", "YC:", "", "", None}},
        // All blanks but the last before the replacement belong to the find value.
        {"CM:OLD   CM:NEW", {"CM", "OLD  ", "CM:NEW", "", "", None}},
        {"CM:OLD WALL CM:NEW WALL", {"CM", "OLD WALL", "CM:NEW WALL", "", "", None}},
        {"CM: \t CM:NEW", {"CM", "\t", "CM:NEW", "", "", None}},
    };
    for (const ParsedLine& row : rows) {
        SearchReplaceCommand command{"x", "x", "x", "x", "x", 1};
        EXPECT_TRUE(ParseTrnLine(row.line, command)) << row.line;
        EXPECT_EQ(command.FindTag, row.command.FindTag) << row.line;
        EXPECT_EQ(command.FindValue, row.command.FindValue) << row.line;
        EXPECT_EQ(command.ReplaceText, row.command.ReplaceText) << row.line;
        EXPECT_EQ(command.MathOperator, row.command.MathOperator) << row.line;
        EXPECT_EQ(command.MathType, row.command.MathType) << row.line;
        EXPECT_EQ(command.MathValue, row.command.MathValue) << row.line;
    }
    ExpectNothingTold(prompts_);
}

TEST_F(SearchReplace, ReplacementItemsArePartedAtTheLastBlankBeforeAColon) {
    const struct {
        const char* line;
        const char* findValue;
        const char* replaceText;
    } rows[] = {
        {"PN:1 PN:2 XC:3.5 YC:4", "1", "PN:2\r\nXC:3.5\r\nYC:4"},
        {"PN:1 PN:2", "1", "PN:2"},
        {"CM:1 CM:OLD STONE WALL PD:OF STONE", "1", "CM:OLD STONE WALL\r\nPD:OF STONE"},
        {"PN:1 PN:2    XC:3", "1", "PN:2\r\nXC:3"},
        {"PN:1 PN:   XC:3", "1", "PN:\r\nXC:3"},
        {"PN:1 PN: XC:", "1", "PN:\r\nXC:"},
        {"PN:1 PN:2 :3", "1", "PN:2\r\n:3"},
        {"PN:1:2 XC:3", "", "1:2\r\nXC:3"},
        // From the first item on that has a second colon and no blank before it, nothing is parted any more.
        {"PN:1 PN:2:3 XC:4", "1", "PN:2:3 XC:4"},
        {"PN:1 PN:2 XC:3:4 YC:5 ZC:6", "1", "PN:2\r\nXC:3:4 YC:5 ZC:6"},
        {"PN:1 PN::2 XC:3", "1", "PN::2 XC:3"},
    };
    for (const auto& row : rows) {
        SearchReplaceCommand command;
        EXPECT_TRUE(ParseTrnLine(row.line, command)) << row.line;
        EXPECT_EQ(command.FindTag, "PN" == std::string_view(row.line).substr(0, 2) ? "PN" : "CM");
        EXPECT_EQ(command.FindValue, row.findValue) << row.line;
        EXPECT_EQ(command.ReplaceText, row.replaceText) << row.line;
    }
    ExpectNothingTold(prompts_);
}

TEST_F(SearchReplace, EveryRefusalOfALineIsToldInItsWords) {
    const struct {
        const char* line;
        const char* text;
    } rows[] = {
        {"PN", "Invalid TRN.  The line 'PN' is invalid.  The find tag is invalid"},
        {"  NO COLON HERE", "Invalid TRN.  The line '  NO COLON HERE' is invalid.  The find tag is invalid"},
        {"XC:+",
         "Invalid TRN.  The line 'XC:+' is invalid.  A mathematical operation requires a numeric value."},
        {"XC:*2X",
         "Invalid TRN.  The line 'XC:*2X' is invalid.  A mathematical operation requires a numeric value."},
        {"XC:- -",
         "Invalid TRN.  The line 'XC:- -' is invalid.  A mathematical operation requires a numeric value."},
        // The operand is looked at before the tag.
        {"CM:+A",
         "Invalid TRN.  The line 'CM:+A' is invalid.  A mathematical operation requires a numeric value."},
        {"CM:+1",
         "Invalid TRN.  The line 'CM:+1' is invalid.  The math operation can not be performed on this tag."},
        {"X:/1",
         "Invalid TRN.  The line 'X:/1' is invalid.  The math operation can not be performed on this tag."},
        {" XC:+1",
         "Invalid TRN.  The line ' XC:+1' is invalid.  The math operation can not be performed on this tag."},
        {":-1",
         "Invalid TRN.  The line ':-1' is invalid.  The math operation can not be performed on this tag."},
    };
    for (const auto& row : rows) {
        prompts_.told.clear();
        SearchReplaceCommand command;
        EXPECT_FALSE(ParseTrnLine(row.line, command)) << row.line;
        ExpectToldOnly(prompts_, row.text, InvalidCommand);
    }
}

// ---- The forms of a command ----

TEST_F(SearchReplace, ATagIsExchangedAndTheValueKept) {
    ExpectOutput({"PN:1", "XC:12.5", "YC:XC"}, {"XC: ZC:"}, {"PN:1", "ZC:12.5", "YC:XC"});
    ExpectOutput({"XC:A:B"}, {"XC: ZZZ:"}, {"ZZZ:A:B"});
    ExpectOutput({"XC: 12"}, {"XC: ZC:"}, {"ZC: 12"});
    ExpectOutput({"XC:5"}, {"XC: CM:WAS "}, {"CM:WAS5"});
}

TEST_F(SearchReplace, AFindValueIsABeginningOfTheValue) {
    ExpectOutput({"PN:100", "PN:10", "PN:1", "PN:210"}, {"PN:10 PN:20"},
                 {"PN:200", "PN:20", "PN:1", "PN:210"});
}

TEST_F(SearchReplace, BlanksOfTheFindValueMustBeThere) {
    ExpectOutput({"CM:OLD  WALL", "CM:OLD WALL"}, {"CM:OLD   CM:NEW"}, {"CM:NEWWALL", "CM:OLD WALL"});
}

TEST_F(SearchReplace, OneItemBecomesSeveralLines) {
    ExpectOutput({"PN:1", "CM:TEXT"}, {"PN:1 PN:2 XC:3.5 YC:4"}, {"PN:2", "XC:3.5", "YC:4", "CM:TEXT"});
    ExpectOutput({"PN:17"}, {"PN:1 PN:2 XC:"}, {"PN:2", "XC:7"});
}

// Only the first colon of the whole text counts, so an item without a value gets out in such company.
TEST_F(SearchReplace, ALineOfSeveralItemsIsWrittenAsItStands) {
    ExpectOutput({"PN:1"}, {"PN:1 PN:2 XC:"}, {"PN:2", "XC:"});
    ExpectOutput({"PN:1"}, {"PN:1 PN: XC:"}, {"PN:", "XC:"});
    ExpectOutput({"PN:1", "CM:Z"}, {"PN:1 PN:2 XC:", "XC:", "PN: PN:3 "}, {"PN:32", "XC:", "CM:Z"});
}

TEST_F(SearchReplace, ItemsAreRemovedByTag) {
    ExpectOutput({"PN:1", "CM:OLD", "PN:2", "CM:NEW"}, {"PN:"}, {"CM:OLD", "CM:NEW"});
}

TEST_F(SearchReplace, ItemsAreRemovedByTheBeginningOfTheirValue) {
    ExpectOutput({"CM:OLD WALL", "CM:OLDER", "CM:AN OLD WALL", "PD:OLD"}, {"CM:OLD"},
                 {"CM:AN OLD WALL", "PD:OLD"});
}

TEST_F(SearchReplace, ArithmeticOfEveryClassIsDone) {
    ExpectOutput({"XC:10.5", "PN:A0012", "AZ:45.3000", "CE:10", "BR:N45.0000E", "BR:N45.0000W"},
                 {"XC:+100", "PN:+1", "AZ:-0.3000", "CE:+2.5", "BR:+1.0000"},
                 {"XC:110.5", "PN:A13", "AZ:45.0000", "CE:12.500", "BR:N46.0000E", "BR:N44.0000W"});
    ExpectOutput({"XC: 12"}, {"XC:+1"}, {"XC:13"});
    ExpectOutput({"XCX:5"}, {"XCX:*4"}, {"XCX:20"});
    ExpectOutput({"XC:-99999", "PN:-99999", "AZ:-99999"}, {"XC:+1", "PN:+1", "AZ:+1"},
                 {"XC:-99999", "PN:-99999", "AZ:-99999"});
}

TEST_F(SearchReplace, BearingsAndPointNamesNeedNoNumber) {
    ExpectOutput({"PN:WALL", "PN:", "BR:", "CM:X"}, {"PN:+1", "BR:+1"}, {"PN:WALL", "CM:X"});
}

TEST_F(SearchReplace, ATagIsFoundAsABeginningOfTheLine) {
    ExpectOutput({"PN:1", "PD:X", "XP:1"}, {"P:"}, {"XP:1"});
    // Behind the tag "P" one character is taken for its colon.
    ExpectOutput({"PN:1", "PD:X"}, {"P: Q:"}, {"Q::1", "Q::X"});
    ExpectOutput({"XCAB:5"}, {"XCA: Q:"}, {"Q::5"});
    ExpectOutput({"PN", "P", "PN:1"}, {"PN: Q:A"}, {"Q:A", "P", "Q:A1"});
}

TEST_F(SearchReplace, AnEmptyTagFitsEveryLine) {
    ExpectOutput({"PN:1", "XC:2", "Z"}, {":"}, {});
    ExpectOutput({"PN:1", "XC:2"}, {":N"}, {"XC:2"});
    ExpectOutput({"PN:1", "XC:2"}, {":N CM:"}, {"CM::1", "XC:2"});
    ExpectOutput({"PN:1", "XC:2"}, {":CM:"}, {"CM:N:1", "CM:C:2"});
}

TEST_F(SearchReplace, ATagWithBlanksBeforeItFitsNothing) {
    ExpectOutput({"PN:1", "  PN:2"}, {" PN:", " PN:1 PN:3"}, {"PN:1", "PN:2"});
}

TEST_F(SearchReplace, ALaterCommandSeesWhatEarlierOnesMade) {
    ExpectOutput({"PN:1", "PN:2"}, {"PN:1 PN:2", "PN:2 PN:3"}, {"PN:3", "PN:3"});
    ExpectOutput({"PN:1", "PN:2"}, {"PN:2 PN:3", "PN:1 PN:2"}, {"PN:2", "PN:3"});
    ExpectOutput({"XX:5"}, {"XX: XC:", "XC:+1", "XC:6 CM:SIX"}, {"CM:SIX"});
    // A tag that no line had when the run began.
    ExpectOutput({"CM:A"}, {"Q7:A Q7:B", "CM: Q7:", "Q7:A Q7:B"}, {"Q7:B"});
    ExpectOutput({"CM:A"}, {"CM: Q:", "Q: R7:", "R7:A R8:Z", "R8:Z CM:OK"}, {"CM:OK"});
}

TEST_F(SearchReplace, CommandsGoOutsideAndLinesInside) {
    EXPECT_TRUE(Run("PN:99999999\nAZ:10.6000\nPN:AAAAAA99\n", "AZ:+1\nPN:+1\n"));
    ASSERT_EQ(prompts_.told.size(), 3U);
    EXPECT_EQ(prompts_.told[0].text,
              "Invalid Angle '10.6000'. Minutes portion must be positive and not exceed 59.");
    EXPECT_EQ(prompts_.told[0].caption, "Invalid Angle");
    for (const std::size_t i : {1U, 2U}) {
        EXPECT_EQ(prompts_.told[i].text, "Point ID Assignment Error.");
        EXPECT_EQ(prompts_.told[i].caption, "Invalid Point ID");
        EXPECT_EQ(prompts_.told[i].icon, Icon::Exclamation);
        EXPECT_EQ(prompts_.told[i].buttons, Buttons::OK);
    }
    EXPECT_EQ(ReadBytes(Output()), "PN:99999999\r\nAZ:-99999\r\nPN:AAAAAA99\r\n");
}

TEST_F(SearchReplace, CaseNeverMattersAndUpperCaseComesOut) {
    EXPECT_EQ(OutputOf("pn:abc\ncm:old\n", "Pn:aB pN:x\ncm:OLD pd:new\n"), Lines({"PN:XC", "PD:NEW"}));
}

// ---- Reading and writing ----

TEST_F(SearchReplace, NoCommandCopiesWithoutBlankAndEmptyItems) {
    const std::string input =
        "  pn:1  \r\n\r\n   \r\nXC:\r\nno colon\r\nCM: \r\nCM:A:\r\nYC :\r\nZ:4\r\n:\r\n:5\r\n";
    const std::string output = Lines({"PN:1", "NO COLON", "CM:A:", "Z:4", ":5"});
    EXPECT_EQ(OutputOf(input, ""), output);
    EXPECT_EQ(OutputOf(input, "   \r\n\r\n  \r\n"), output);
}

TEST_F(SearchReplace, ANoValueItemFromTheInputGoesWithAnyCommand) {
    ExpectOutput({"PN:1", "XC:", "YC:"}, {"PN:1 PN:2"}, {"PN:2"});
}

TEST_F(SearchReplace, AllKindsOfLineEndAreRead) {
    EXPECT_EQ(OutputOf("PN:1\nXC:2\rYC:3\r\nZC:4", "PN:1 PN:5\rXC:+1\nYC:+1\r\nZC:+1"),
              Lines({"PN:5", "XC:3", "YC:4", "ZC:5"}));
}

TEST_F(SearchReplace, TheOutputMayBeTheInput) {
    const std::string file = folder_.Put("points.pac", "PN:1\r\nXC:1\r\n");
    EXPECT_TRUE(RunSearchReplace(file, file, folder_.Put("commands.trn", "PN:1 PN:2")));
    EXPECT_EQ(ReadBytes(file), "PN:2\r\nXC:1\r\n");
    EXPECT_EQ(folder_.Names(), (std::vector<std::string>{"commands.trn", "points.pac"}));
}

TEST_F(SearchReplace, TheOutputReplacesALongerOne) {
    folder_.Put("output.pac", std::string(100000, 'x'));
    ExpectOutput({"PN:1"}, {"PN:1 PN:2"}, {"PN:2"});
}

// ---- State from run to run ----

TEST_F(SearchReplace, AnEmptyInputFindsTheLinesOfTheRunBefore) {
    ExpectOutput({"PN:1", "XC:5"}, {"PN:1 PN:2"}, {"PN:2", "XC:5"});
    EXPECT_EQ(OutputOf("", "PN:2 PN:3"), Lines({"PN:3", "XC:5"}));
    EXPECT_EQ(OutputOf("  \r\n\r\n", "XC:+1"), Lines({"PN:3", "XC:6"}));
    ExpectOutput({"CM:ALONE"}, {}, {"CM:ALONE"});
    EXPECT_EQ(OutputOf("", ""), Lines({"CM:ALONE"}));
}

// In a process of its own, where no run was before.
TEST_F(SearchReplace, AnEmptyInputAtFirstMakesAnEmptyOutput) {
    ::testing::FLAGS_gtest_death_test_style = "threadsafe";
    const auto runAndLeave = [&] {
        const bool isEmpty = Run("", "PN:1 PN:2\nXC:+1\n") && ReadBytes(Output()).empty();
        std::filesystem::remove_all(folder_.Path());
        std::_Exit(isEmpty && prompts_.told.empty() ? 0 : 1);
    };
    EXPECT_EXIT(runAndLeave(), ::testing::ExitedWithCode(0), "");
}

TEST_F(SearchReplace, RemovedItemsAreStillInTheListOfTheNextRun) {
    ExpectOutput({"PN:1", "XC:5"}, {"PN:"}, {"XC:5"});
    EXPECT_EQ(OutputOf("", "PN: PN:AGAIN"), Lines({"PN:AGAIN", "XC:5"}));
}

TEST_F(SearchReplace, AFailedRunLeavesWhatItHadMade) {
    EXPECT_FALSE(Run("PN:1\nXC:5\nXC:A\nXC:7\n", "PN:1 PN:2\nXC:+1\n"));
    prompts_.told.clear();
    EXPECT_EQ(OutputOf("", ""), Lines({"PN:2", "XC:6", "XC:A", "XC:7"}));
}

TEST_F(SearchReplace, CommandsOfTheRunBeforeAreNotDoneAgain) {
    ExpectOutput({"PN:1"}, {"PN:1 PN:2"}, {"PN:2"});
    ExpectOutput({"PN:1"}, {}, {"PN:1"});
    ExpectOutput({"PN:1"}, {"   "}, {"PN:1"});
    ExpectOutput({"PN:1", "XC:1"}, {"XC:1 XC:2"}, {"PN:1", "XC:2"});
}

TEST_F(SearchReplace, TheStepsOfARunWorkAlone) {
    EXPECT_TRUE(ReadSearchInput(folder_.Put("a.pac", "pn:1\nxc:\n\ncm:x\n")));
    EXPECT_TRUE(WriteSearchOutput(Output()));
    EXPECT_EQ(ReadBytes(Output()), Lines({"PN:1", "CM:X"}));
    EXPECT_TRUE(ReadTrnFile(folder_.Put("a.trn", "PN:\n")));
    EXPECT_TRUE(WriteSearchOutput(Output()));
    EXPECT_EQ(ReadBytes(Output()), Lines({"PN:1", "CM:X"}));
    ExpectNothingTold(prompts_);
}

// ---- Failures ----

TEST_F(SearchReplace, AMissingFileIsToldUnderItsPathAsGiven) {
    const std::string here = folder_.Put("here", "PN:1");
    const std::string gone = folder_.File("gone");
    EXPECT_FALSE(RunSearchReplace(gone, Output(), here));
    ExpectToldOnly(prompts_, "The file '" + gone + "' can not be found.", "File Not Found");
    prompts_.told.clear();
    EXPECT_FALSE(RunSearchReplace(here, Output(), gone));
    ExpectToldOnly(prompts_, "The file '" + gone + "' can not be found.", "File Not Found");
    prompts_.told.clear();
    EXPECT_FALSE(RunSearchReplace(here, Output(), ""));
    ExpectToldOnly(prompts_, "The file '' can not be found.", "File Not Found");
    prompts_.told.clear();
    EXPECT_FALSE(RunSearchReplace(folder_.Path(), Output(), here));
    ExpectToldOnly(prompts_, "The file '" + folder_.Path() + "' can not be found.", "File Not Found");
    EXPECT_EQ(folder_.Names(), std::vector<std::string>{"here"});
}

TEST_F(SearchReplace, BothFilesMissingAreToldOfOnce) {
    EXPECT_FALSE(RunSearchReplace(folder_.File("a"), Output(), folder_.File("b")));
    ExpectToldOnly(prompts_, "The file '" + folder_.File("a") + "' can not be found.", "File Not Found");
}

TEST_F(SearchReplace, ARefusedTrnLineEndsTheRunBeforeAnyCommand) {
    ExpectRefusal("PN:1\n", "PN:1 PN:2\nno colon  \nXC:+\n",
                  "Invalid TRN.  The line 'NO COLON' is invalid.  The find tag is invalid", InvalidCommand);
    ExpectRefusal(
        "PN:1\n", "xc:+1a \n",
        "Invalid TRN.  The line 'XC:+1A' is invalid.  A mathematical operation requires a numeric value.",
        InvalidCommand);
    ExpectRefusal(
        "PN:1\n", "  cm:+1\n",
        "Invalid TRN.  The line '  CM:+1' is invalid.  The math operation can not be performed on this tag.",
        InvalidCommand);
    prompts_.told.clear();
    EXPECT_EQ(OutputOf("", ""), Lines({"PN:1"}));
}

TEST_F(SearchReplace, AValueThatIsNoNumberEndsTheRun) {
    ExpectRefusal("XC:12A\n", "XC:+0100.50\n",
                  "Invalid math operation.  The line 'XC: +100.5' is invalid.  The math operation requires a "
                  "numeric response.",
                  InvalidCommand);
    ExpectRefusal("CE:A\n", "CE:/-3\n",
                  "Invalid math operation.  The line 'CE: /-3' is invalid.  The math operation requires a "
                  "numeric response.",
                  InvalidCommand);
    ExpectRefusal("AZ:N\n", "AZ:*1E20\n",
                  "Invalid math operation.  The line 'AZ: *1E+20' is invalid.  The math operation requires a "
                  "numeric response.",
                  InvalidCommand);
}

TEST_F(SearchReplace, AnItemWithoutAValueIsNoNumberEither) {
    ExpectRefusal("XC:\n", "XC:-1\n",
                  "Invalid math operation.  The line 'XC: -1' is invalid.  The math operation requires a "
                  "numeric response.",
                  InvalidCommand);
    ExpectRefusal("XC:5\n", "XC:5\nXC:-1\n",
                  "Invalid math operation.  The line 'XC: -1' is invalid.  The math operation requires a "
                  "numeric response.",
                  InvalidCommand);
    ExpectRefusal("XCAB:5\n", "XC:-1\n",
                  "Invalid math operation.  The line 'XC: -1' is invalid.  The math operation requires a "
                  "numeric response.",
                  InvalidCommand);
}

TEST_F(SearchReplace, AFaultLeavesTheOutputAsItWas) {
    const struct {
        const char* input;
        const char* commands;
        int fault;
    } rows[] = {
        {"XC:5\n", "XC:/0\n", 11},        {"PN:5\n", "PN:/0\n", 11},         {"XC:0\n", "XC:/0\n", 11},
        {"XC:1E300\n", "XC:*1E300\n", 6}, {"PN:3000000000\n", "PN:+1\n", 6}, {"AZ:40000\n", "AZ:+1\n", 6},
        {"AZ:45.\n", "AZ:+1\n", 13},      {"BR:NORTH\n", "BR:+1\n", 13},
    };
    for (const auto& row : rows) {
        folder_.Put("output.pac", "before");
        EXPECT_EQ(FaultNumberOf([&] { Run(row.input, row.commands); }), row.fault) << row.input;
        EXPECT_EQ(ReadBytes(Output()), "before");
        std::remove(Output().c_str());
        EXPECT_EQ(FaultNumberOf([&] { Run(row.input, row.commands); }), row.fault) << row.input;
        EXPECT_EQ(folder_.Names(), (std::vector<std::string>{"commands.trn", "points.pac"}));
    }
    ExpectNothingTold(prompts_);
}

TEST_F(SearchReplace, AFullDiskLeavesTheOutputAsItWas) {
    FileCalls fullDisk = SystemFileCalls;
    fullDisk.write = [](int, const void*, std::size_t) -> ssize_t {
        errno = ENOSPC;
        return -1;
    };
    folder_.Put("output.pac", "before");
    SetFileCalls(&fullDisk);
    EXPECT_EQ(FaultNumberOf([&] { Run("PN:1\n", "PN:1 PN:2\n"); }), 61);
    SetFileCalls(nullptr);
    EXPECT_EQ(ReadBytes(Output()), "before");
    EXPECT_EQ(folder_.Names(), (std::vector<std::string>{"commands.trn", "output.pac", "points.pac"}));
}

TEST_F(SearchReplace, AnOutputFolderThatIsMissingIsAFault) {
    const std::string file = folder_.Put("points.pac", "PN:1");
    EXPECT_EQ(FaultNumberOf([&] { RunSearchReplace(file, folder_.File("none/out.pac"), file); }), 76);
}

// ---- Broken files ----

// Upper case of the single bytes of code page 1252, from its table: the letters beyond ASCII lie 32 apart but
// for four of them.
char UpperByte(int byte) {
    if (byte >= 'a' && byte <= 'z') return static_cast<char>(byte - 32);
    if (byte >= 0xE0 && byte <= 0xFE && byte != 0xF7) return static_cast<char>(byte - 32);
    if (byte == 0x9A || byte == 0x9C || byte == 0x9E) return static_cast<char>(byte - 16);
    return static_cast<char>(byte == 0xFF ? 0x9F : byte);
}

std::string Bytes(int first, int last) {
    std::string bytes;
    for (int byte = first; byte <= last; ++byte) bytes += static_cast<char>(byte);
    return bytes;
}

std::string UpperBytes(int first, int last) {
    std::string bytes;
    for (int byte = first; byte <= last; ++byte) bytes += UpperByte(byte);
    return bytes;
}

TEST_F(SearchReplace, BrokenInputFilesAreWorkedOnAsFarAsTheyGo) {
    using namespace std::string_literals;
    const struct {
        const char* defect;
        std::string input;
        std::string output;
    } rows[] = {
        {"empty", "", "KEPT:1\r\n"},
        {"blanks only", "     ", "KEPT:1\r\n"},
        {"line ends only", "\r\n\n\r\r\n", "KEPT:1\r\n"},
        {"no line end", "pn:1", "PN:2\r\n"},
        {"CR only", "pn:1\rxc:3", "PN:2\r\nXC:4\r\n"},
        {"LF only", "pn:1\nxc:3\n", "PN:2\r\nXC:4\r\n"},
        {"UTF-8 byte order mark", "\xEF\xBB\xBFpn:1\r\n", "PN:2\r\n"},
        {"byte order mark alone", "\xEF\xBB\xBF", "KEPT:1\r\n"},
        {"byte order mark inside", "cm:a\r\n\xEF\xBB\xBFpn:1\r\n", "CM:A\r\n\xEF\xBB\xBFPN:1\r\n"},
        {"NUL bytes", "\0pn:1\r\nxc:3\0\r\npn\0:1\r\n"s.substr(0, 7) + "cm:\0\0a\r\n"s,
         "\0PN:1\r\n"s + "CM:\0\0A\r\n"s},
        {"a NUL alone", "\0"s, "\0\r\n"s},
        {"lines of one byte", "p\nx\n:\n", "P\r\nX\r\n"},
        {"tabs", "\tpn:1\r\npn:\t1\r\n\t\r\n", "\tPN:1\r\nPN:\t1\r\n\t\r\n"},
        {"letters of code page 1252",
         "cm:stra\xDF"
         "e \xE9\xF7\r\n",
         "CM:STRA\xDF"
         "E \xC9\xF7\r\n"},
        {"UTF-8",
         "cm:stra\xC3\x9F"
         "e \xC3\xA9\r\n",
         "CM:STRA\xC3\x9F"
         "E \xC3\xA9\r\n"},
        {"all bytes", Bytes(0, 255),
         UpperBytes(0, 9) + "\r\n" + UpperBytes(11, 12) + "\r\n" + UpperBytes(14, 255) + "\r\n"},
    };
    for (const auto& row : rows) {
        OutputOf("kept:1", "");
        EXPECT_EQ(OutputOf(row.input, "PN:1 PN:2\nXC:+1\n"), row.output) << row.defect;
    }
}

TEST_F(SearchReplace, NumbersThatAreNoneEndTheRun) {
    for (const char* value : {"1e400", "-1e400", "nan", "inf", "-inf", "0x10", "1e", "1,5", "1 000", "--1"})
        ExpectRefusal("xc:" + std::string(value), "xc:+1",
                      "Invalid math operation.  The line 'XC: +1' is invalid.  The math operation requires a "
                      "numeric response.",
                      InvalidCommand);
    prompts_.told.clear();
    ExpectOutput({"XC:1E-400", "XC:.5", "XC:5.", "XC:+5"}, {"XC:+1"}, {"XC:1", "XC:1.5", "XC:6", "XC:6"});
}

TEST_F(SearchReplace, OneLineOfFiftyMegabytesIsALine) {
    const std::string value = Repeated('x', 50'000'000);
    const std::string upper = Repeated('X', 50'000'000);
    EXPECT_TRUE(OutputOf("pn:1\ncm:" + value + "\nxc:1", "xc:+1\ncm:x pd:\n") ==
                "PN:1\r\nPD:" + upper.substr(1) + "\r\nXC:2\r\n");
    EXPECT_TRUE(OutputOf("pn:1", "pn:1 cm:" + value) == "CM:" + upper + "\r\n");
    EXPECT_FALSE(Run("pn:1", value));
    ASSERT_EQ(prompts_.told.size(), 1U);
    EXPECT_TRUE(prompts_.told[0].text ==
                "Invalid TRN.  The line '" + upper + "' is invalid.  The find tag is invalid");
    prompts_.told.clear();
    EXPECT_EQ(FaultNumberOf([&] { Run("pn:" + Repeated('7', 50'000'000), "pn:+1"); }), 6);
}

TEST_F(SearchReplace, BrokenTrnFilesAreReadAsFarAsTheyGo) {
    using namespace std::string_literals;
    const struct {
        const char* defect;
        std::string commands;
        std::string output;
    } rows[] = {
        {"empty", "", "PN:1\r\nXC:3\r\n"},
        {"blanks only", "     ", "PN:1\r\nXC:3\r\n"},
        {"line ends only", "\r\n\n\r\r\n", "PN:1\r\nXC:3\r\n"},
        {"no line end", "pn:1 pn:2", "PN:2\r\nXC:3\r\n"},
        {"CR only", "pn:1 pn:2\rxc:+1", "PN:2\r\nXC:4\r\n"},
        {"LF only", "pn:1 pn:2\nxc:+1\n", "PN:2\r\nXC:4\r\n"},
        {"UTF-8 byte order mark", "\xEF\xBB\xBFpn:1 pn:2\r\n", "PN:2\r\nXC:3\r\n"},
        {"byte order mark alone", "\xEF\xBB\xBF", "PN:1\r\nXC:3\r\n"},
        {"NUL bytes", "pn:1 pn:\0a\r\nxc:3\0\r\n"s, "PN:\0A\r\nXC:3\r\n"s},
        {"a NUL in a tag", "pn\0:\r\nx\0:\r\n\0:\r\n"s, "PN:1\r\nXC:3\r\n"},
    };
    for (const auto& row : rows) EXPECT_EQ(OutputOf("pn:1\nxc:3\n", row.commands), row.output) << row.defect;
    for (const char* operand : {"1e400", "nan", "inf", "", " ", "0x10", "1e"}) {
        const std::string line = "XC:+" + std::string(operand);
        std::string told = line == "XC:+ " ? "XC:+" : line;
        for (char& c : told) c = UpperByte(c);
        ExpectRefusal("XC:1", line,
                      "Invalid TRN.  The line '" + told +
                          "' is invalid.  A mathematical operation requires a numeric value.",
                      InvalidCommand);
    }
    ExpectRefusal("XC:1", Bytes(0, 255),
                  "Invalid TRN.  The line '" + Bytes(0, 9) + "' is invalid.  The find tag is invalid",
                  InvalidCommand);
}

// ---- Against a second engine ----

// The same run with lists of texts and plain loops, positions counted from 1 and 0 for not found.
class PlainEngine {
  public:
    std::vector<std::string> lines;

    // "told" gets the messages, but for those of the arithmetic on single values.
    bool Run(const std::string& input, const std::string& commands, std::vector<std::string>& told,
             std::string& output) {
        const std::vector<std::string> inputLines = SplitLines(input);
        bool isFirst = true;
        for (const std::string& line : inputLines) {
            if (Cut(line).empty()) continue;
            if (isFirst) lines.clear();
            isFirst = false;
            lines.push_back(Upper(Cut(line)));
        }
        std::vector<SearchReplaceCommand> list;
        for (std::string line : SplitLines(commands)) {
            while (!line.empty() && line.back() == ' ') line.pop_back();
            if (line.empty()) continue;
            SearchReplaceCommand command;
            const std::string refusal = Parse(Upper(line), command);
            if (!refusal.empty()) {
                told.push_back("Invalid TRN.  The line '" + Upper(line) + "' is invalid.  " + refusal);
                return false;
            }
            list.push_back(command);
        }
        for (const SearchReplaceCommand& command : list)
            for (std::string& line : lines)
                if (!Apply(command, line)) {
                    told.push_back("Invalid math operation.  The line '" + command.FindTag + ": " +
                                   command.MathOperator + Plain(command.MathValue) +
                                   "' is invalid.  The math operation requires a numeric response.");
                    return false;
                }
        output.clear();
        for (const std::string& line : lines) {
            if (line.empty()) continue;
            const std::string cut = Cut(line);
            if (InStr(1, cut, ":") == 0 || InStr(1, cut, ":") != cut.size()) output += cut + "\r\n";
        }
        return true;
    }

  private:
    static std::vector<std::string> SplitLines(const std::string& text) {
        std::vector<std::string> split(1);
        for (const char c : text)
            if (c == '\n')
                split.emplace_back();
            else if (c != '\r')
                split.back() += c;
        return split;
    }

    static std::string Cut(const std::string& text) {
        const std::size_t first = text.find_first_not_of(' ');
        return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(' ') - first + 1);
    }

    static std::string Upper(std::string text) {
        for (char& c : text)
            if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 32);
        return text;
    }

    static std::size_t InStr(std::size_t start, const std::string& text, const std::string& part) {
        for (std::size_t at = start; at + part.size() <= text.size() + 1; ++at)
            if (Mid(text, at, part.size()) == part) return at;
        return 0;
    }

    static std::string Mid(const std::string& text, std::size_t start, std::size_t count = 1000000) {
        return start > text.size() ? "" : text.substr(start - 1, count);
    }

    static std::string Left(const std::string& text, std::size_t count) { return Mid(text, 1, count); }

    static std::size_t LastBlankBefore(const std::string& text, std::size_t position) {
        for (std::size_t at = position; at > 1; --at)
            if (text[at - 2] == ' ') return at - 1;
        return 0;
    }

    // The operands of the random commands have at most three decimals.
    static std::string Plain(double value) {
        char text[40];
        std::snprintf(text, sizeof text, "%.10g", value);
        return text;
    }

    static bool IsNumber(const std::string& text) {
        const std::string cut = Cut(text);
        char* end = nullptr;
        if (cut.empty() || cut.find_first_not_of("0123456789+-.E") != std::string::npos) return false;
        std::strtod(cut.c_str(), &end);
        return *end == '\0';
    }

    static std::string Parse(const std::string& line, SearchReplaceCommand& command) {
        const std::size_t colon = InStr(1, line, ":");
        if (colon == 0) return "The find tag is invalid";
        command.FindTag = Left(line, colon - 1);
        const std::string rest = Cut(Mid(line, colon + 1));
        const std::size_t further = InStr(1, rest, ":");
        if (further > 0) {
            const std::size_t blank = LastBlankBefore(rest, further);
            if (blank > 0) command.FindValue = Left(rest, blank - 1);
            std::string left = Cut(Mid(rest, blank + 1));
            while (!left.empty()) {
                const std::size_t next = InStr(InStr(1, left, ":") + 1, left, ":");
                const std::size_t border = next > 0 ? LastBlankBefore(left, next) : 0;
                if (border > 0) {
                    command.ReplaceText += Cut(Left(left, border - 1));
                    left = "\r\n" + Cut(Mid(left, border + 1));
                } else {
                    command.ReplaceText += left;
                    left = "";
                }
            }
        } else if (!rest.empty() && InStr(1, "+-*/", Left(rest, 1)) > 0) {
            command.MathOperator = Left(rest, 1);
            if (!IsNumber(Mid(rest, 2))) return "A mathematical operation requires a numeric value.";
            command.MathValue = std::strtod(Cut(Mid(rest, 2)).c_str(), nullptr);
            command.MathType = std::string(ClassifyMathTag(command.FindTag));
            if (command.MathType.empty()) return "The math operation can not be performed on this tag.";
        } else {
            command.FindValue = rest;
        }
        return "";
    }

    static bool Apply(const SearchReplaceCommand& command, std::string& line) {
        const std::size_t length = command.FindTag.size();
        if (Left(line, length) != command.FindTag) return true;
        const std::string value = Mid(line, length + 2);
        const std::size_t found = command.FindValue.size();
        if (!command.ReplaceText.empty()) {
            if (found == 0)
                line = command.ReplaceText + value;
            else if (Left(value, found) == command.FindValue)
                line = command.ReplaceText + Mid(value, found + 1);
        } else if (!command.MathOperator.empty()) {
            const bool isFree = command.MathType == "Bearing" || command.MathType == "PointID";
            if (!isFree && !IsNumber(value)) return false;
            line = command.FindTag + ":" +
                   ApplyTagMath(value, command.MathValue, command.MathOperator, command.MathType);
        } else if (found == 0 || Left(value, found) == command.FindValue) {
            line = command.FindTag + ":";
        }
        return true;
    }
};

class RandomText {
  public:
    explicit RandomText(unsigned seed) : random_(seed) {}

    std::size_t Below(std::size_t count) { return random_() % count; }

    std::string OneOf(std::initializer_list<const char*> texts) { return texts.begin()[Below(texts.size())]; }

    std::string Tag() {
        return OneOf({"PN", "PN", "XC", "XC",  "YC",  "CM", "CM", "AZ",  "BR",  "CE", "P",
                      "X",  "C",  "",   "XCX", "PNA", "pn", "Q",  "BR:", " PN", "PN "});
    }

    std::string Value() {
        return OneOf({"1",         "10",        "100", "-5",     "2.5", "A1",      "A10",      "OLD",
                      "OLD WALL",  "old  wall", "",    " ",      " 7",  "45.3",    "359.5959", "N45.0000E",
                      "S10.3000W", "1:2",       ":",   "-99999", "x",   "A9999999"});
    }

    std::string Line() {
        std::string line =
            OneOf({"", "", "", " ", "   "}) + Tag() + OneOf({":", ":", ":", ":", "", ": "}) + Value();
        return line + OneOf({"", "", " ", "   "});
    }

    std::string Command() {
        const std::string tag = Tag();
        switch (Below(8)) {
            case 0:
                return tag + ":" + Value() + " " + Tag() + ":" + Value();
            case 1:
                return tag + ":" + OneOf({"", " "}) + Tag() + ":";
            case 2:
                return tag + ":" + Value() + OneOf({" ", "  "}) + Tag() + ":" + Value() +
                       OneOf({" ", "  ", ""}) + Tag() + ":" + Value() + " " + Tag() + ":" + Value();
            case 3:
            case 4:
                return OneOf({"XC", "YC", "PN", "AZ", "BR", "CE", "XCX"}) + ":" +
                       OneOf({"+", "-", "*", "/"}) + OneOf({"1", "1", "2.5", "100", "0.301", "-7", " 3"});
            case 5:
                return tag + ":" + Value();
            case 6:
                return tag + ":";
            default:
                return Below(20) == 0 ? Line() : "  ";
        }
    }

    std::string File(std::size_t mostLines, std::string (RandomText::*line)()) {
        std::string file;
        for (std::size_t count = Below(mostLines + 1); count > 0; --count)
            file += (this->*line)() + OneOf({"\r\n", "\n"});
        return file;
    }

  private:
    std::mt19937 random_;
};

TEST_F(SearchReplace, ThousandsOfRandomRunsAgreeWithAPlainEngine) {
    PlainEngine plain;
    RandomText random(2024);
    OutputOf("START:1", "");
    plain.lines = {"START:1"};
    int written = 0, refused = 0, faults = 0;
    for (int i = 0; i < 4000; ++i) {
        const std::string input = random.File(12, &RandomText::Line);
        const std::string commands = random.File(5, &RandomText::Command);
        std::string expected = "before";
        std::vector<std::string> told;
        bool plainDone = false;
        const int plainFault = FaultNumberOf([&] { plainDone = plain.Run(input, commands, told, expected); });
        const std::vector<Message> toldByMath = prompts_.told;
        prompts_.told.clear();

        folder_.Put("output.pac", "before");
        bool done = false;
        const int fault = FaultNumberOf([&] { done = Run(input, commands); });
        SCOPED_TRACE(input + "-----\n" + commands);
        ASSERT_EQ(fault, plainFault);
        ASSERT_EQ(done, plainDone);
        ASSERT_EQ(ReadBytes(Output()), expected);
        ASSERT_EQ(prompts_.told.size(), toldByMath.size() + told.size());
        for (std::size_t k = 0; k < toldByMath.size(); ++k)
            ASSERT_EQ(prompts_.told[k].text, toldByMath[k].text);
        if (!told.empty()) {
            ASSERT_EQ(prompts_.told.back().text, told[0]);
            ASSERT_EQ(prompts_.told.back().caption, InvalidCommand);
        }
        prompts_.told.clear();
        ++(fault != 0 ? faults : done ? written : refused);
    }
    EXPECT_GT(written, 1000);
    EXPECT_GT(refused, 200);
    EXPECT_GT(faults, 100);
}

// More lines than one block of memory holds, that grow and shrink from command to command.
TEST_F(SearchReplace, ALongFileAgreesWithAPlainEngine) {
    std::string input;
    RandomText random(5);
    for (int i = 0; i < 150000; ++i)
        input += random.OneOf({"PN:", "XC:", "CM:", "P", "Q9:"}) + std::to_string(i) + "\r\n";
    std::string commands = "PN:+7\nXC:*1.5\n";
    for (int i = 0; i < 6; ++i)
        commands +=
            "CM: CM:LONGER \nXC: XC:0\nPN:1 PN:11\nPN:22\nQ9:1 R" + std::to_string(i) + ":GROWN UP Q8:\n";
    commands += "CM:LONGERLONGER CM:\nR: S:\nXC:0000 XC:\nXC:+1\nP: T:\n";

    PlainEngine plain;
    std::vector<std::string> told;
    std::string expected;
    ASSERT_TRUE(plain.Run(input, commands, told, expected));
    ASSERT_TRUE(OutputOf(input, commands) == expected);
    ASSERT_TRUE(plain.Run("", commands, told, expected));
    ASSERT_TRUE(OutputOf("", commands) == expected);
}

// The files that come with the program.
TEST_F(SearchReplace, TheFilesOfAnInstallationDoWhatTheirNamesSay) {
    const std::string folder = std::string(TARVEK_SOURCE) + "/data/TRNFiles/";
    const auto outputOf = [&](const char* file, GivenLines lines) {
        return OutputOf(Lines(lines), ReadBytes(folder + file));
    };
    EXPECT_EQ(outputOf("RenumberBy1000.TRN", {"PN:12", "BS:A7", "OS:13", "XC:12"}),
              Lines({"PN:1012", "BS:A1007", "OS:1013", "XC:12"}));
    EXPECT_EQ(outputOf("ShiftCoordinates.TRN", {"PN:1", "YC:100.25", "XC:200.5", "ZC:3", "YY:1", "XX:2"}),
              Lines({"PN:1", "YC:200100.25", "XC:100200.5", "ZC:3", "YY:200001", "XX:100002"}));
    EXPECT_EQ(outputOf("ComputedToControl.TRN", {"PN:1", "YY:1.5", "XX:2.5", "ZZ:3.5", "ZC:4"}),
              Lines({"PN:1", "YC:1.5", "XC:2.5", "ZC:3.5", "ZC:4"}));
    EXPECT_EQ(outputOf("DropComments.TRN", {"PN:1", "CM:SHOT IN THE RAIN", "CM:", "PD:WALL"}),
              Lines({"PN:1", "PD:WALL"}));
}

}  // namespace
}  // namespace tarvek::test
