#include "platform/modCodePage.hpp"

#include "support/testSupport.hpp"

namespace tarvek {
namespace {

TEST(CodePage, Utf8StaysAsItIs) {
    for (const char* text :
         {"", "plain", "Z\xC3\xBCrich", "\xE2\x82\xAC", "\xF0\x9F\x98\x80", "\xEF\xBB\xBFx"})
        EXPECT_EQ(Utf8FromBytes(text), text);
}

TEST(CodePage, OtherBytesAreWindows1252) {
    EXPECT_EQ(Utf8FromBytes("45\xB0 N"), "45\xC2\xB0 N");
    EXPECT_EQ(Utf8FromBytes("\x80"), "\xE2\x82\xAC");                      // euro sign
    EXPECT_EQ(Utf8FromBytes("\x93hi\x94"), "\xE2\x80\x9Chi\xE2\x80\x9D");  // curly quotes
    EXPECT_EQ(Utf8FromBytes("\xFF"), "\xC3\xBF");
    EXPECT_EQ(Utf8FromBytes("\xA0"), "\xC2\xA0");
    for (const char* undefined : {"\x81", "\x8D", "\x8F", "\x90", "\x9D"})
        EXPECT_EQ(Utf8FromBytes(undefined), "\xEF\xBF\xBD");
}

// One bad byte decides for the whole text.
TEST(CodePage, TextIsOneOrTheOther) { EXPECT_EQ(Utf8FromBytes("\xC3\xBC\xFC"), "\xC3\x83\xC2\xBC\xC3\xBC"); }

TEST(CodePage, IllFormedUtf8IsRecognised) {
    for (const char* text :
         {"\x80", "\xC3", "\xC0\xAF", "\xC1\x81", "\xE0\x80\xAF", "\xE0\x9F\xBF", "\xE2\x82", "\xED\xA0\x80",
          "\xED\xBF\xBF", "\xF0\x80\x80\x80", "\xF0\x8F\xBF\xBF", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80",
          "\xFE", "\xFF", "\xC3(", "\xE2\x82("})
        EXPECT_FALSE(IsValidUtf8(text)) << Utf8FromBytes(text);
    for (const char* text : {"\x7F", "\xC2\x80", "\xDF\xBF", "\xE0\xA0\x80", "\xED\x9F\xBF", "\xEE\x80\x80",
                             "\xEF\xBF\xBF", "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF"})
        EXPECT_TRUE(IsValidUtf8(text)) << text;
}

TEST(CodePage, UpperCaseOfBothCodes) {
    EXPECT_EQ(UpperCaseText("abc xyz {|} `@ 09"), "ABC XYZ {|} `@ 09");
    EXPECT_EQ(UpperCaseText("stra\xDF"
                            "e \xE4\xF6\xFC\xF7\xFF\x9A\x9C\x9E\xE0\xFE"),
              "STRA\xDF"
              "E \xC4\xD6\xDC\xF7\x9F\x8A\x8C\x8E\xC0\xDE");
    EXPECT_EQ(UpperCaseText("z\xC3\xBCrich"), "Z\xC3\xBCRICH");
    EXPECT_EQ(UpperCaseText(""), "");
}

TEST(CodePage, AppendUtf8WritesOneToThreeBytes) {
    std::string out;
    for (const char32_t code : {U'A', U'\u00B0', U'\u20AC', U'\uFFFD'}) AppendUtf8(out, code);
    EXPECT_EQ(out, "A\xC2\xB0\xE2\x82\xAC\xEF\xBF\xBD");
}

TEST(CodePage, TerminalTextHasNoControlCharacter) {
    std::string all;
    for (int code = 0; code < 128; ++code) all += static_cast<char>(code);
    for (const unsigned char c : TerminalText(all))
        EXPECT_TRUE(c == '\n' || (c >= 0x20 && c < 0x7F)) << int{c};
    EXPECT_EQ(TerminalText("\x1B[31mred\x07\x7F"), "^[[31mred^G^?");
    EXPECT_EQ(TerminalText(std::string_view("a\0b", 3)), "a^@b");
    EXPECT_EQ(TerminalText("a\tb"), "a b");
}

TEST(CodePage, TerminalTextHasNewLinesOnly) {
    EXPECT_EQ(TerminalText("a\r\nb\rc\nd\r"), "a\nb\nc\nd\n");
    EXPECT_EQ(TerminalText("\r\r\n\n"), "\n\n\n");
}

TEST(CodePage, TerminalTextMarksControlsBeyondAscii) {
    const std::string mark = "\xEF\xBF\xBD";
    EXPECT_EQ(TerminalText("\xC2\x9B"
                           "31m"),
              mark + "31m");  // CSI in one character
    EXPECT_EQ(TerminalText("a\xE2\x80\xAE"
                           "b"),
              "a" + mark + "b");
    EXPECT_EQ(TerminalText("a\xE2\x81\xA6"
                           "b"),
              "a" + mark + "b");
    EXPECT_EQ(TerminalText("a\xD8\x9C"
                           "b"),
              "a" + mark + "b");
    EXPECT_EQ(TerminalText("a\xE2\x80\xA8"
                           "b"),
              "a" + mark + "b");
    EXPECT_EQ(TerminalText("Z\xC3\xBCrich \x20"), "Z\xC3\xBCrich  ");
    EXPECT_EQ(TerminalText("\x9B"
                           "31m \xB0"),
              "\xE2\x80\xBA"
              "31m \xC2\xB0");  // one angle quote in Windows-1252
}

}  // namespace
}  // namespace tarvek
