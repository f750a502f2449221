// The lines of chains in points-and-chains and project files: which record they go to, in whatever order they
// stand, and how a point list is printed.

#include "chainFamilies.hpp"

namespace tarvek::test {
namespace {

class ChainLines : public SurveyTest, public ::testing::WithParamInterface<ChainFamily> {
  protected:
    // Reads a file of these lines behind a header and one open point "1".
    void Read(std::initializer_list<std::string_view> lines) {
        Tables() = {};
        const std::string head = Lines({"AC:PR", "AC:OS", "PN:1"});
        ASSERT_TRUE(GetParam().read(folder.Put("in", head + Lines(lines))));
        ExpectNothingTold(prompts);
    }
    // The chain block of the file that is written of one chain with this point list, without its last line.
    std::string WrittenBlock(const std::string& pointList) {
        Tables() = {};
        ChainRecord chain;
        chain.PL = pointList;
        Tables().OutputPoints.Append({});
        Tables().OutputChains.Append(chain);
        return Block(WrittenFile());
    }
    // The same of what was read.
    std::string RewrittenBlock() {
        CopyInputToOutput();
        return Block(WrittenFile());
    }
    std::string WrittenFile() {
        EXPECT_TRUE(GetParam().write(folder.File("out")));
        return ReadBytes(folder.File("out"));
    }
    static std::string Block(const std::string& file) {
        const std::size_t start = file.find("BG:BEGIN CHAIN LIST\r\n");
        const std::size_t end = file.find("CP:");
        EXPECT_LT(start, end) << file;
        return file.substr(start, end - start);
    }
    static std::string BlockOf(const std::string& pointList) {
        return Lines({"BG:BEGIN CHAIN LIST", "AC:CH", pointList, "EG:END CHAIN LIST"});
    }

    const PointRecord& Point(std::size_t index) { return Tables().InputPoints[index]; }
    const ChainRecord& Chain(std::size_t index) { return Tables().InputChains[index]; }
    std::size_t Points() { return Tables().InputPoints.size(); }
    std::size_t Chains() { return Tables().InputChains.size(); }
};

INSTANTIATE_TEST_SUITE_P(Families, ChainLines, ::testing::ValuesIn(ChainFamilies), NameOfFamily);

// Names of 7 characters and a comma each.
std::string Names(int count) {
    std::string names;
    for (int i = 0; i < count; ++i) names += std::to_string(1'000'000 + i) + ",";
    return names;
}

// The point list as it is printed

TEST_P(ChainLines, PointListOf80CharactersIsPrintedOnOneLine) {
    const std::string list = "PL:" + Names(9) + "12345";
    ASSERT_EQ(list.size(), 80U);
    EXPECT_EQ(WrittenBlock(list), BlockOf(list));
}

TEST_P(ChainLines, PointListOf81CharactersIsPrintedOnTwoLines) {
    const std::string list = "PL:" + Names(9) + "123456";
    ASSERT_EQ(list.size(), 81U);
    EXPECT_EQ(WrittenBlock(list), BlockOf("PL:" + Names(9) + "\r\nPL:123456"));
}

TEST_P(ChainLines, LongPointListComesBackWithAllItsNames) {
    // 9 names fill a line to 75 characters: 3 and 9 times 8; the tenth does not fit.
    const std::string list = "PL:" + Names(25) + "1";
    const std::string block = WrittenBlock(list);
    const std::string names = Names(25);
    EXPECT_EQ(block, BlockOf("PL:" + names.substr(0, 72) + "\r\nPL:" + names.substr(72, 72) +
                             "\r\nPL:" + names.substr(144) + "1"));
}

TEST_P(ChainLines, RewrittenListGainsALineWithNothingBehindItsTag) {
    const std::string full = "PL:" + Names(9) + "1234,";
    ASSERT_EQ(full.size(), 80U);
    Read({"AC:CH", full, "PL:9", "EG:"});
    // The break falls on the end of the first line; the line end that is there already follows the new tag.
    EXPECT_EQ(RewrittenBlock(), BlockOf(full + "\r\nPL:\r\nPL:9"));
    Read({"AC:CH", full, "PL:", "PL:9", "EG:"});
    EXPECT_EQ(Chain(0).PL, full + "\r\nPL:\r\nPL:9");
    EXPECT_EQ(RewrittenBlock(), BlockOf(full + "\r\nPL:\r\nPL:\r\nPL:9"));
}

TEST_P(ChainLines, RewrittenListOfShortLinesStaysAsItWas) {
    Read({"AC:CH", "PL:1,2,", "PL:3,4", "EG:"});
    EXPECT_EQ(RewrittenBlock(), BlockOf("PL:1,2,\r\nPL:3,4"));
}

// "EG:" wherever it stands

TEST_P(ChainLines, EndWithoutAChainAppendsWhatChainTagsHaveBuilt) {
    Read({"PL:1,2", "CD:words", "FG:F", "CH:9", "EG:"});
    ASSERT_EQ(Chains(), 1U);
    EXPECT_EQ(Chain(0).PL, "PL:1,2");
    EXPECT_EQ(Chain(0).CD, "words");
    EXPECT_EQ(Chain(0).FG, "F");
    EXPECT_EQ(Chain(0).CH, "CH:9");
    ASSERT_EQ(Points(), 1U);
    EXPECT_EQ(Point(0).Others, "");
}

TEST_P(ChainLines, SecondEndAppendsTheSameRecordAgain) {
    Read({"AC:CH", "PL:1", "EG:", "EG:"});
    ASSERT_EQ(Chains(), 2U);
    EXPECT_EQ(Chain(0).PL, "PL:1");
    EXPECT_EQ(Chain(1).PL, "PL:1");
}

TEST_P(ChainLines, TagsBehindAnEndGoOnWithTheRecord) {
    Read({"AC:CH", "PL:1", "EG:", "PL:2", "FG:G", "EG:"});
    ASSERT_EQ(Chains(), 2U);
    EXPECT_EQ(Chain(0).PL, "PL:1");
    EXPECT_EQ(Chain(0).FG, "");
    EXPECT_EQ(Chain(1).PL, "PL:1\r\nPL:2");
    EXPECT_EQ(Chain(1).FG, "G");
}

TEST_P(ChainLines, TagsWithoutAnyChainAreLostAtTheEndOfTheFile) {
    Read({"PL:1,2", "CH:9"});
    EXPECT_FALSE(Tables().InputChains.IsAllocated());
    EXPECT_EQ(Point(0).Others, "");
}

TEST_P(ChainLines, TagsAreTakenInTheHeaderToo) {
    Tables() = {};
    ASSERT_TRUE(GetParam().read(
        folder.Put("in", Lines({"AC:PR", "PL:1", "CD:x", "CP:gone", "BG:gone", "EG:", "CM:kept", "AC:OS"}))));
    ASSERT_EQ(Chains(), 1U);
    EXPECT_EQ(Chain(0).PL, "PL:1");
    EXPECT_EQ(Tables().InputHeader.HeaderLines, "CM:kept");
}

// Lines that belong to points, and those that do not

TEST_P(ChainLines, FeatureAndOtherLinesBehindTheEndGoToThePoint) {
    Read({"FE:BEFORE", "AC:CH", "FE:EDGE", "CM:of the chain", "PL:1", "EG:", "FE:BEHIND", "CM:of the point"});
    ASSERT_EQ(Chains(), 1U);
    EXPECT_EQ(Chain(0).FE, "EDGE");
    EXPECT_EQ(Chain(0).Others, "CM:of the chain");
    ASSERT_EQ(Points(), 1U);
    EXPECT_EQ(Point(0).FE, "BEHIND");
    EXPECT_EQ(Point(0).Others, "CM:of the point");
}

TEST_P(ChainLines, PointLineInsideAChainClosesThePointAndNotTheChain) {
    Read({"AC:CH", "PL:1", "AC:PD", "PN:2", "FE:EDGE", "CM:of the chain", "PL:2", "AC:PD", "PN:3"});
    ASSERT_EQ(Points(), 3U);
    EXPECT_EQ(Point(0).PN, "1");
    EXPECT_EQ(Point(1).PN, "2");
    EXPECT_EQ(Point(2).PN, "3");
    EXPECT_EQ(Point(1).FE, "");
    EXPECT_EQ(Point(1).Others, "");
    ASSERT_EQ(Chains(), 1U);
    EXPECT_EQ(Chain(0).FE, "EDGE");
    EXPECT_EQ(Chain(0).Others, "CM:of the chain");
    EXPECT_EQ(Chain(0).PL, "PL:1\r\nPL:2");
}

TEST_P(ChainLines, NewChainStartsEmpty) {
    Read({"AC:CH", "FE:A", "CD:B", "FG:C", "PL:D", "CH:E", "ZQ:F", "AC:CH", "AC:CH", "PL:2", "EG:"});
    ASSERT_EQ(Chains(), 3U);
    EXPECT_EQ(Chain(0).FE + Chain(0).CD + Chain(0).FG + Chain(0).PL + Chain(0).CH + Chain(0).Others,
              "ABCPL:DCH:EZQ:F");
    EXPECT_EQ(Chain(1).FE + Chain(1).CD + Chain(1).FG + Chain(1).PL + Chain(1).CH + Chain(1).Others, "");
    EXPECT_EQ(Chain(2).PL, "PL:2");
    EXPECT_EQ(Chain(2).FE + Chain(2).CD + Chain(2).FG + Chain(2).CH + Chain(2).Others, "");
}

TEST_P(ChainLines, NewChainClearsWhatTagsHaveBuiltWithoutOne) {
    Read({"FE:POINT", "CD:B", "FG:C", "PL:D", "CH:E", "AC:CH", "PL:2", "EG:"});
    ASSERT_EQ(Chains(), 1U);
    EXPECT_EQ(Chain(0).PL, "PL:2");
    EXPECT_EQ(Chain(0).FE + Chain(0).CD + Chain(0).FG + Chain(0).CH, "");
    EXPECT_EQ(Point(0).FE, "POINT");
}

TEST_P(ChainLines, ActivityOfAChainIsToldByTwoLetters) {
    Read({"AC:CHAIN 7", "PL:1"});
    ASSERT_EQ(Chains(), 1U);
    EXPECT_EQ(Points(), 1U);
    Read({"AC:ch", "PL:1"});
    EXPECT_FALSE(Tables().InputChains.IsAllocated());
    EXPECT_EQ(Points(), 2U);
}

}  // namespace
}  // namespace tarvek::test
