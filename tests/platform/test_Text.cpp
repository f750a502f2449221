#include "platform/modText.hpp"

#include "support/testSupport.hpp"

namespace tarvek {
namespace {

TEST(Text, TrimTakesBlanksAloneAway) {
    EXPECT_EQ(Trim("  a b  "), "a b");
    EXPECT_EQ(TrimLeft("  a "), "a ");
    EXPECT_EQ(TrimRight("  a "), "  a");
    EXPECT_EQ(Trim("   "), "");
    EXPECT_EQ(Trim(""), "");
    EXPECT_EQ(Trim(" \ta\t "), "\ta\t");
}

TEST(Text, ColumnsCountFromOne) {
    EXPECT_EQ(Columns("abcdef", 1, 3), "abc");
    EXPECT_EQ(Columns("abcdef", 4, 3), "def");
    EXPECT_EQ(Columns("abcdef", 5, 9), "ef");
    EXPECT_EQ(Columns("abcdef", 6, 1), "f");
    EXPECT_EQ(Columns("abcdef", 7, 1), "");
    EXPECT_EQ(Columns("abcdef", 700, 1), "");
    EXPECT_EQ(Columns("", 1, 1), "");
    EXPECT_EQ(ColumnsFrom("abcdef", 3), "cdef");
    EXPECT_EQ(ColumnsFrom("abcdef", 7), "");
    EXPECT_EQ(Column("abc", 1), 'a');
    EXPECT_EQ(Column("abc", 3), 'c');
    EXPECT_EQ(Column("abc", 4), '\0');
}

TEST(Text, SplitKeepsEmptyFields) {
    using Fields = std::vector<std::string_view>;
    EXPECT_EQ(Split("a,b", ','), (Fields{"a", "b"}));
    EXPECT_EQ(Split(",a,,b,", ','), (Fields{"", "a", "", "b", ""}));
    EXPECT_EQ(Split("", ','), (Fields{""}));
    EXPECT_EQ(Split(",", ','), (Fields{"", ""}));
    EXPECT_EQ(Split("a b", ','), (Fields{"a b"}));
}

TEST(Text, AppendLinePartsLinesByCarriageReturnAndLineFeed) {
    std::string member;
    AppendLine(member, "one");
    EXPECT_EQ(member, "one");
    AppendLine(member, "two");
    AppendLine(member, "");
    EXPECT_EQ(member, "one\r\ntwo\r\n");
}

TEST(Text, LetterCaseIsIgnoredInAsciiOnly) {
    EXPECT_TRUE(EqualsIgnoringCase("VertCon.OUT", "vertcon.out"));
    EXPECT_TRUE(EqualsIgnoringCase("", ""));
    EXPECT_FALSE(EqualsIgnoringCase("a", "ab"));
    EXPECT_FALSE(EqualsIgnoringCase("@", "`"));  // 32 apart like a letter and its capital
    EXPECT_FALSE(EqualsIgnoringCase("[", "{"));
    EXPECT_FALSE(EqualsIgnoringCase("\xC4", "\xE4"));
}

TEST(Text, ReplaceAllDoesNotReplaceWhatItPutThere) {
    EXPECT_EQ(ReplaceAll("a.b.c", ".", "::"), "a::b::c");
    EXPECT_EQ(ReplaceAll("aaa", "a", "aa"), "aaaaaa");
    EXPECT_EQ(ReplaceAll("aaa", "aa", "b"), "ba");
    EXPECT_EQ(ReplaceAll("abc", "", "x"), "abc");
    EXPECT_EQ(ReplaceAll("abc", "b", ""), "ac");
    EXPECT_EQ(ReplaceAll("", "b", "c"), "");
}

TEST(Text, MaskAlignsAndNeverCuts) {
    EXPECT_EQ(MaskText("ab", "@@@@"), "  ab");
    EXPECT_EQ(MaskText("ab", "!@@@@"), "ab  ");
    EXPECT_EQ(MaskText("abcde", "@@@"), "abcde");
    EXPECT_EQ(MaskText("abcde", "!@@@"), "abcde");
    EXPECT_EQ(MaskText("", "@@"), "  ");
    EXPECT_EQ(MaskText("ab", ""), "ab");
}

}  // namespace
}  // namespace tarvek
