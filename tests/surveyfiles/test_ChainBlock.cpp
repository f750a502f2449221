#include "surveyfiles/modChainBlock.hpp"

#include <gtest/gtest.h>

#include <random>

namespace tarvek {
namespace {

// The routine as a person would do it by hand: the text is cut into pieces again and again.
std::string WrapByHand(std::string rest) {
    std::string out;
    while (rest.size() >= 81) {
        const std::size_t comma = rest.substr(0, 80).rfind(',');
        if (comma == std::string::npos) break;
        if (!out.empty()) out += "\r\n";
        out += std::string(Trim(rest.substr(0, comma + 1)));
        rest = "PL:" + std::string(Trim(rest.substr(comma + 1)));
    }
    return out.empty() ? rest : out + "\r\n" + rest;
}

TEST(WrapPointList, TextOf80CharactersStaysOnOneLine) {
    const std::string text = "PL:" + std::string(38, '1') + "," + std::string(38, '2');
    ASSERT_EQ(text.size(), 80U);
    EXPECT_EQ(WrapPointList(text), text);
}

TEST(WrapPointList, TextOf81CharactersIsBrokenAtItsLastComma) {
    const std::string text = "PL:" + std::string(37, '1') + ",33," + std::string(37, '2');
    ASSERT_EQ(text.size(), 81U);
    EXPECT_EQ(WrapPointList(text), "PL:" + std::string(37, '1') + ",33,\r\nPL:" + std::string(37, '2'));
}

TEST(WrapPointList, CommaAtColumn80EndsTheLineAndAtColumn81DoesNot) {
    const std::string at80 = "PL:1," + std::string(74, '2') + ",3";
    EXPECT_EQ(WrapPointList(at80), "PL:1," + std::string(74, '2') + ",\r\nPL:3");
    const std::string at81 = "PL:1," + std::string(75, '2') + ",3";
    EXPECT_EQ(WrapPointList(at81), "PL:1,\r\nPL:" + std::string(75, '2') + ",3");
}

TEST(WrapPointList, TextWithoutCommaAmongItsFirst80CharactersIsLeftOnOneLine) {
    const std::string text = "PL:" + std::string(100, '1') + ",2,3";
    EXPECT_EQ(WrapPointList(text), text);
}

TEST(WrapPointList, BlanksAroundABreakAreCut) {
    const std::string text = "PL:" + std::string(70, '1') + " ,   " + std::string(30, '2');
    EXPECT_EQ(WrapPointList(text), "PL:" + std::string(70, '1') + " ,\r\nPL:" + std::string(30, '2'));
}

TEST(WrapPointList, LineBreaksAlreadyInTheTextCountAndAreKept) {
    // Two lines as a reader joins them; the break falls on the first comma-ended line, behind which nothing
    // else fits.
    const std::string first = "PL:" + std::string(75, '1') + ",";
    const std::string text = first + "\r\nPL:2";
    EXPECT_EQ(WrapPointList(text), first + "\r\nPL:\r\nPL:2");
}

TEST(WrapPointList, AgreesWithTheHandMethodOnRandomLists) {
    std::mt19937 draw(7);
    for (int round = 0; round < 3000; ++round) {
        std::string text = "PL:";
        const std::size_t length = draw() % 400;
        while (text.size() < length) text += "0123456789AB,,,, \r\n"[draw() % 19];
        ASSERT_EQ(WrapPointList(text), WrapByHand(text)) << text;
    }
}

TEST(WrapPointList, LongListTakesTimeInProportionToItsLength) {
    std::string text = "PL:";
    for (int i = 0; i < 1'000'000; ++i) text += "12345,";
    const std::string wrapped = WrapPointList(text);
    EXPECT_GT(wrapped.size(), text.size());
}

}  // namespace
}  // namespace tarvek
