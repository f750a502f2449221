// The definitions that an installation brings, and the words that they are made of, against lists of their
// own: neither those of the program nor those of the tool that makes the files.

#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "library/modTranslatorNames.hpp"
#include "support/testSupport.hpp"

namespace tarvek::test {
namespace {

namespace fs = std::filesystem;

constexpr const char* Routines[] = {
    "RECODE.EXE",    "CURVE2TAN.EXE",     "TAN2CURVE.EXE", "PICKOUT.EXE", "GROUNDIT.EXE",
    "CTRL2ZONE.EXE", "ROUTE2STATION.EXE", "LEVELIN.EXE",   "PTORDER.EXE", "SinglePoint",
    "MultiPoint",    "CoordConvert",      "ConvertFile",   "Replace",
};

constexpr const char* Tagged[] = {
    "Tarvek Control Files (*.CTL)",           "Tarvek Project Files (*.PRJ)",
    "Tarvek Edited Project Files (*.EDI)",    "Tarvek Calculated Files (*.CAL)",
    "Tarvek Points and Chains Files (*.PAC)",
};
constexpr const char* Sheets[] = {
    "NGS Data Sheets (*.TXT)",
    "NGS Data Sheets (*.HTM)",
    "NGS Data Sheets (*.DAT)",
};
constexpr const char* Foreign[] = {
    "Velmora Summary Index Files (*.VSI)",
    "CAiCE SRV Files (*.SRV)",
    "User-Defined ASCII Files (*.*)",
};
constexpr const char* CTL = Tagged[0];
constexpr const char* PAC = Tagged[4];
constexpr const char* KML = "OGC/Google KML Version 2.2 (*.KML)";
constexpr const char* ByHand = "Coordinate Conversion Manual Entry";

using Labels = std::set<std::string>;

template <std::size_t... Counts>
Labels Joined(const char* const (&... lists)[Counts]) {
    Labels labels;
    (labels.insert(std::begin(lists), std::end(lists)), ...);
    return labels;
}

struct Definition {
    std::string routine;
    std::string action;
    std::string input;
    std::string output;
    bool asksForFile;  // a fifth line, which is empty: the file is chosen anew each time
};

std::vector<Definition> InstalledDefinitions() {
    std::vector<Definition> definitions;
    for (const auto& entry : fs::directory_iterator(std::string(TARVEK_SOURCE) + "/data/KTIFiles")) {
        std::vector<std::string> lines;
        std::string rest = ReadBytes(entry.path().string());
        for (std::size_t end; (end = rest.find("\r\n")) != std::string::npos; rest.erase(0, end + 2))
            lines.push_back(rest.substr(0, end));
        EXPECT_EQ(rest, "") << entry.path();
        const bool asksForFile = lines.size() == 5 && lines[4].empty();
        EXPECT_TRUE(asksForFile || lines.size() == 4) << entry.path();
        lines.resize(4);
        definitions.push_back({lines[0], lines[1], lines[2], lines[3], asksForFile});
    }
    return definitions;
}

// Input and output labels of the definitions of a routine.
std::set<std::pair<std::string, std::string>> PairsOf(std::string_view routine) {
    std::set<std::pair<std::string, std::string>> pairs;
    for (const Definition& definition : InstalledDefinitions())
        if (definition.routine == routine) pairs.emplace(definition.input, definition.output);
    return pairs;
}

std::set<std::pair<std::string, std::string>> AllPairs(const Labels& inputs, const Labels& outputs) {
    std::set<std::pair<std::string, std::string>> pairs;
    for (const std::string& input : inputs)
        for (const std::string& output : outputs) pairs.emplace(input, output);
    return pairs;
}

std::set<std::pair<std::string, std::string>> SamePairs(const Labels& labels) {
    std::set<std::pair<std::string, std::string>> pairs;
    for (const std::string& label : labels) pairs.emplace(label, label);
    return pairs;
}

TEST(InstalledDefinitions, EveryRoutineHasOne) {
    for (const char* routine : Routines) EXPECT_FALSE(PairsOf(routine).empty()) << routine;
}

TEST(InstalledDefinitions, HoldNoOtherWords) {
    const Labels routines = Joined(Routines);
    Labels labels = Joined(Tagged, Sheets, Foreign);
    labels.insert({KML, ByHand});
    for (const Definition& definition : InstalledDefinitions()) {
        EXPECT_TRUE(routines.contains(definition.routine)) << definition.routine;
        EXPECT_TRUE(labels.contains(definition.input)) << definition.input;
        EXPECT_TRUE(labels.contains(definition.output)) << definition.output;
        EXPECT_NE(definition.action, "");
    }
}

TEST(InstalledDefinitions, AskForAFileWhereTheRoutineNeedsOne) {
    const Labels needing = {"Replace", "RECODE.EXE", "PICKOUT.EXE"};
    for (const Definition& definition : InstalledDefinitions())
        EXPECT_EQ(definition.asksForFile, needing.contains(definition.routine)) << definition.routine;
}

TEST(InstalledDefinitions, NoTwoAreChosenAlike) {
    std::set<std::vector<std::string>> choices;
    for (const Definition& definition : InstalledDefinitions())
        EXPECT_TRUE(choices.insert({definition.input, definition.output, definition.action}).second)
            << definition.input << " | " << definition.output << " | " << definition.action;
}

TEST(InstalledDefinitions, EveryTypeThatIsReadGoesIntoEveryTypeThatIsWritten) {
    const Labels read = Joined(Tagged, Sheets, Foreign);
    Labels written = Joined(Foreign);
    written.insert({CTL, PAC, KML});
    EXPECT_EQ(PairsOf("ConvertFile"), AllPairs(read, written));
    EXPECT_EQ(PairsOf("MultiPoint"), AllPairs(read, Joined(Tagged, Foreign)));
}

TEST(InstalledDefinitions, SearchAndReplaceLeadsFromEveryTaggedTypeToEvery) {
    EXPECT_EQ(PairsOf("Replace"), AllPairs(Joined(Tagged), Joined(Tagged)));
}

TEST(InstalledDefinitions, ToolsTakeEveryTypeThatTheyCan) {
    const Labels tagged = Joined(Tagged);
    Labels alignments = tagged;
    alignments.erase(CTL);  // it has no chains
    const char* const ascii = Foreign[2];
    for (const char* routine : {"RECODE.EXE", "PICKOUT.EXE", "GROUNDIT.EXE", "PTORDER.EXE"})
        EXPECT_EQ(PairsOf(routine), SamePairs(tagged)) << routine;
    for (const char* routine : {"CURVE2TAN.EXE", "TAN2CURVE.EXE"})
        EXPECT_EQ(PairsOf(routine), SamePairs(alignments)) << routine;
    EXPECT_EQ(PairsOf("CTRL2ZONE.EXE"), AllPairs(tagged, {ascii}));
    EXPECT_EQ(PairsOf("ROUTE2STATION.EXE"), AllPairs(alignments, {ascii}));
    EXPECT_EQ(PairsOf("LEVELIN.EXE"), AllPairs({ascii}, {Tagged[1]}));
    EXPECT_EQ(PairsOf("SinglePoint"), SamePairs({ByHand}));
}

TEST(TranslatorNames, AreTheFixedWords) {
    Labels routines;
    for (const TranslationRoutine& routine : TranslationRoutines()) routines.emplace(routine.program);
    EXPECT_EQ(routines, Joined(Routines));
    EXPECT_EQ(TranslationRoutines().size(), std::size(Routines));

    Labels labels;
    for (const TypeLabel& type : TypeLabels()) labels.emplace(type.label);
    Labels expected = Joined(Tagged, Sheets, Foreign);
    expected.insert({KML, ByHand});
    EXPECT_EQ(labels, expected);
    EXPECT_EQ(TypeLabels().size(), expected.size());
}

}  // namespace
}  // namespace tarvek::test
