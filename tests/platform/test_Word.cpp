#include "platform/modWord.hpp"

#include <set>

#include "support/testSupport.hpp"

namespace tarvek {
namespace {

TEST(Word, EqualTextsAreOneWord) {
    const std::string text = "U.S. Survey Feet";
    const Word a{text};
    const Word b{std::string_view(text)};
    EXPECT_TRUE(a == b);
    EXPECT_EQ(&a.Text(), &b.Text());
    EXPECT_TRUE(a == "U.S. Survey Feet");
    EXPECT_TRUE(a == std::string_view("U.S. Survey Feet"));
    EXPECT_FALSE(a == Word("U.S. Survey feet"));
    EXPECT_FALSE(a == "U.S. Survey");
}

TEST(Word, NoTextIsTheEmptyWord) {
    EXPECT_TRUE(Word().empty());
    EXPECT_TRUE(Word() == Word(""));
    EXPECT_TRUE(Word() == "");
    EXPECT_EQ(&Word().Text(), &Word(std::string()).Text());
    EXPECT_FALSE(Word(" ").empty());
}

TEST(Word, KeepsItsTextWhateverComesLater) {
    const Word kept("kept");
    const std::string* const place = &kept.Text();
    std::set<const std::string*> places;
    for (int i = 0; i < 100000; ++i) places.insert(&Word("word " + std::to_string(i)).Text());
    EXPECT_EQ(places.size(), 100000U);
    EXPECT_EQ(&Word("kept").Text(), place);
    EXPECT_EQ(kept.Text(), "kept");
    for (int i = 0; i < 100000; i += 997)
        EXPECT_EQ(Word("word " + std::to_string(i)).Text(), "word " + std::to_string(i));
}

// Same length, same ends: only the middle tells them apart.
TEST(Word, SimilarTextsStayApart) {
    const Word a("aXb");
    const Word b("aYb");
    EXPECT_FALSE(a == b);
    EXPECT_TRUE(Word("aXb") == a);
    EXPECT_TRUE(Word("aYb") == b);
}

TEST(Word, MayHoldANul) {
    const std::string_view text("a\0b", 3);
    EXPECT_EQ(Word(text).Text().size(), 3U);
    EXPECT_FALSE(Word(text) == Word("a"));
}

TEST(Word, IsAsLargeAsAPointer) { EXPECT_EQ(sizeof(Word), sizeof(void*)); }

}  // namespace
}  // namespace tarvek
