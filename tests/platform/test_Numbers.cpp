#include "platform/modNumbers.hpp"

#include <bit>
#include <charconv>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <limits>
#include <locale>
#include <random>

#include "support/testSupport.hpp"

namespace tarvek {
namespace {

using test::FaultOf;

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();

struct NumericText {
    const char* text;
    double value;
};

TEST(Numbers, NumericTextsHaveTheirValue) {
    const NumericText table[] = {
        {"0", 0},
        {"12", 12},
        {" 12 ", 12},
        {"   -7.25", -7.25},
        {"+3", 3},
        {"5.", 5},
        {".5", 0.5},
        {"-.5", -0.5},
        {"+.5E+3", 500},
        {"1e3", 1000},
        {"1E-3", 0.001},
        {"5.E2", 500},
        {"007", 7},
        {"1e308", 1e308},
        {"0.1", 0.1},
        {"123456.789012345678901234567890", 123456.789012345678901234567890},
        {"1e-400", 0},
        {"-1e-400", 0},
        {"0e400", 0},
        {"0.0e99999999999999999999", 0},
        {"1e-99999999999999999999", 0},
        {"4.9e-324", std::numeric_limits<double>::denorm_min()},
        {"0.001e310", 1e307},
    };
    for (const NumericText& row : table) {
        const auto value = ParseNumber(row.text);
        ASSERT_TRUE(value.has_value()) << row.text;
        EXPECT_EQ(*value, row.value) << row.text;
        EXPECT_TRUE(IsNumericText(row.text)) << row.text;
    }
}

TEST(Numbers, OtherTextsAreNotNumeric) {
    for (const char* text :
         {"",     " ",     ".",    "-",   "+",   "e5",    "1e",     "1e+", "nan",  "NaN",   "inf",     "-inf",
          "0x10", "1,000", "5-",   "--5", "+-5", "1 2",   "1.2.3",  "12a", "a12",  "1e5.5", "$5",      "(5)",
          "5%",   "1d3",   "&H10", "\t5", "5\r", "1e400", "-1e400", "- 5", "1 e5", "1_000", "infinity"})
        EXPECT_FALSE(IsNumericText(text)) << text;
    EXPECT_FALSE(IsNumericText(std::string_view("5\0", 2)));
}

TEST(Numbers, LongTextsAreTakenWhole) {
    EXPECT_EQ(ParseNumber("0." + std::string(400, '0') + "1e401"), 1.0);
    EXPECT_EQ(ParseNumber("1" + std::string(400, '0') + "e-400"), 1.0);
    EXPECT_EQ(ParseNumber("0." + std::string(400, '0') + "1"), 0.0);
    EXPECT_EQ(ParseNumber("1" + std::string(400, '0')), std::nullopt);
    EXPECT_EQ(ParseNumber(std::string(1000000, '1') + "x"), std::nullopt);
}

TEST(Numbers, TextThatIsNoNumberIsATypeMismatch) {
    EXPECT_EQ(NumberFromText(" 2.5 "), 2.5);
    for (const char* text : {"", "abc", "1,5", "1e400"}) {
        EXPECT_EQ(FaultOf([&] { NumberFromText(text); }), Fault::TypeMismatch) << text;
        EXPECT_EQ(FaultOf([&] { Integer16FromText(text); }), Fault::TypeMismatch) << text;
        EXPECT_EQ(FaultOf([&] { Integer32FromText(text); }), Fault::TypeMismatch) << text;
    }
}

TEST(Numbers, IntegersRoundHalvesToEven) {
    const NumericText table[] = {{"0.5", 0},  {"1.5", 2},   {"2.5", 2},
                                 {"-0.5", 0}, {"-1.5", -2}, {"-2.5", -2},
                                 {"3.49", 3}, {"3.51", 4},  {"2.5000000000000004", 3},
                                 {"1e2", 100}};
    for (const NumericText& row : table) {
        EXPECT_EQ(Integer16FromText(row.text), row.value) << row.text;
        EXPECT_EQ(Integer32FromText(row.text), row.value) << row.text;
    }
}

TEST(Numbers, IntegersBeyondTheirTypeOverflow) {
    EXPECT_EQ(Integer16FromText("32767.4"), 32767);
    EXPECT_EQ(Integer16FromText("-32768.5"), -32768);
    EXPECT_EQ(FaultOf([] { Integer16FromText("32767.5"); }), Fault::Overflow);
    EXPECT_EQ(FaultOf([] { Integer16FromText("-32769"); }), Fault::Overflow);
    EXPECT_EQ(Integer32FromText("2147483647.4"), 2147483647);
    EXPECT_EQ(Integer32FromText("-2147483648.5"), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(FaultOf([] { Integer32FromText("2147483647.5"); }), Fault::Overflow);
    EXPECT_EQ(FaultOf([] { Integer32FromText("-2147483649"); }), Fault::Overflow);
    for (const double value : {NotANumber, Infinity, -Infinity, 1e300}) {
        EXPECT_EQ(FaultOf([&] { Integer16FromNumber(value); }), Fault::Overflow);
        EXPECT_EQ(FaultOf([&] { Integer32FromNumber(value); }), Fault::Overflow);
    }
}

TEST(Numbers, SinglesAreTheNearestFloat) {
    EXPECT_EQ(SingleFromNumber(0.1), 0.1F);
    EXPECT_EQ(SingleFromNumber(-99999), -99999.0F);
    EXPECT_EQ(SingleFromNumber(1e-60), 0.0F);
    constexpr double Largest = std::numeric_limits<float>::max();
    EXPECT_EQ(SingleFromNumber(Largest), std::numeric_limits<float>::max());
    const double firstTooLarge = Largest + std::ldexp(1.0, 103);  // half of the last bit, which is 2^104
    EXPECT_EQ(SingleFromNumber(std::nextafter(firstTooLarge, 0)), std::numeric_limits<float>::max());
    for (const double value : {firstTooLarge, -firstTooLarge, Infinity, NotANumber})
        EXPECT_EQ(FaultOf([&] { SingleFromNumber(value); }), Fault::Overflow) << value;
}

TEST(Numbers, BooleansAreWordsOrNumbers) {
    for (const char* text : {"True", "TRUE", " true ", "1", "-1", "0.1"}) EXPECT_TRUE(BooleanFromText(text));
    for (const char* text : {"False", "FALSE", " false", "0", "0.0", "-0"})
        EXPECT_FALSE(BooleanFromText(text));
    for (const char* text : {"", "yes", "T", "Truee"})
        EXPECT_EQ(FaultOf([&] { BooleanFromText(text); }), Fault::TypeMismatch) << text;
}

TEST(Numbers, LeadingNumberReadsAsFarAsItCan) {
    const NumericText table[] = {{"12 ft", 12}, {"  -3.5m", -3.5}, {"1e2x", 100}, {"1e", 1},   {"1e+", 1},
                                 {"12E", 12},   {"", 0},           {"abc", 0},    {"-", 0},    {".", 0},
                                 {".5.5", 0.5}, {"1,000", 1},      {"0x10", 0},   {"+7-2", 7}, {"5-", 5},
                                 {"1 2", 1},    {"nan", 0},        {"inf", 0}};
    for (const NumericText& row : table) EXPECT_EQ(LeadingNumber(row.text), row.value) << row.text;
}

TEST(Numbers, GeneralTextOfKnownValues) {
    const NumericText table[] = {{"0", 0.0},
                                 {"0", -0.0},
                                 {"1", 1},
                                 {"-99999", -99999},
                                 {"0.1", 0.1},
                                 {"0.3", 0.1 + 0.2},
                                 {"123456.789", 123456.789},
                                 {"100", 100},
                                 {"0.333333333333333", 1.0 / 3},
                                 {"0.666666666666667", 2.0 / 3},
                                 {"999999999999999", 999999999999999},
                                 {"1E+15", 1e15},
                                 {"1E+15", 999999999999999.9},
                                 {"1.5E+20", 1.5e20},
                                 {"-2.5E+100", -2.5e100},
                                 {"0.000000000000001", 1e-15},
                                 {"1E-16", 1e-16},
                                 {"0.00000000000012", 1.2e-13},
                                 {"1.23456789012346E-05", 1.23456789012346e-5},
                                 {"0.012345678901235", 0.012345678901235},
                                 {"1.79769313486232E+308", std::numeric_limits<double>::max()},
                                 {"4.94065645841247E-324", std::numeric_limits<double>::denorm_min()}};
    for (const NumericText& row : table) EXPECT_EQ(GeneralText(row.value), row.text);
    for (const double value : {Infinity, -Infinity, NotANumber})
        EXPECT_EQ(FaultOf([&] { GeneralText(value); }), Fault::Overflow);
}

// Doubles of many magnitudes: any bits, survey coordinates, angles, and whole numbers of halves.
double RandomDouble(std::mt19937_64& random) {
    const std::uint64_t bits = random();
    switch (random() % 4) {
        case 0: {
            const double any = std::bit_cast<double>(bits);
            return std::isfinite(any) ? any : 1.0;
        }
        case 1:
            return static_cast<double>(static_cast<std::int64_t>(bits) >> 20) * 1e-6;
        case 2:
            return std::ldexp(static_cast<double>(static_cast<std::int64_t>(bits) >> 11),
                              -static_cast<int>(random() % 110));
        default:  // few binary digits: exact halves at every count of decimals
            return std::ldexp(static_cast<double>(static_cast<std::int32_t>(bits)),
                              -static_cast<int>(random() % 32));
    }
}

TEST(Numbers, GeneralTextHasTheValueOfFifteenDigits) {
    std::mt19937_64 random(15);
    for (int i = 0; i < 200000; ++i) {
        const double value = RandomDouble(random);
        const std::string text = GeneralText(value);
        char expected[64];
        std::snprintf(expected, sizeof expected, "%.15g", value);
        ASSERT_EQ(std::strtod(text.c_str(), nullptr), std::strtod(expected, nullptr))
            << text << " " << expected;
        ASSERT_TRUE(text.find('.') == std::string::npos || !text.ends_with('0') ||
                    text.find('E') != std::string::npos)
            << text;
        ASSERT_LE(text.size(), 23U) << text;  // sign, 15 digits, point, "E-308"
    }
}

std::string FixedByLibrary(double value, int decimals) {
    char text[400];
    const auto end = std::to_chars(text, text + sizeof text, value, std::chars_format::fixed, decimals).ptr;
    std::string result(text, end);
    const bool isZero = result.find_first_of("123456789") == std::string::npos;
    return isZero && result[0] == '-' ? result.substr(1) : result;
}

TEST(Numbers, FixedTextIsTheCorrectlyRoundedDecimal) {
    std::mt19937_64 random(9);
    std::string text;
    for (int i = 0; i < 2000000; ++i) {
        const double value = RandomDouble(random);
        const int decimals = static_cast<int>(random() % 10);
        text.clear();
        AppendFixed(text, value, decimals);
        ASSERT_EQ(text, FixedByLibrary(value, decimals)) << std::hexfloat << value << " " << decimals;
    }
}

TEST(Numbers, FixedTextOfKnownValues) {
    struct Row {
        double value;
        int decimals;
        const char* text;
    };
    const Row table[] = {{0, 0, "0"},
                         {0, 3, "0.000"},
                         {-0.0, 2, "0.00"},
                         {0.5, 0, "0"},
                         {1.5, 0, "2"},
                         {2.5, 0, "2"},
                         {-0.5, 0, "0"},
                         {-1.5, 0, "-2"},
                         {0.125, 2, "0.12"},
                         {0.375, 2, "0.38"},
                         {-0.004, 2, "0.00"},
                         {-0.005, 2, "-0.01"},  // the double lies a little above 0.005 in size
                         {1.005, 2, "1.00"},    // and this one a little below
                         {999.9995, 3, "1000.000"},
                         {9.9999, 3, "10.000"},
                         {1e-30, 4, "0.0000"},
                         {5e-324, 9, "0.000000000"},
                         {-5e-324, 9, "0.000000000"},
                         {123456789.123, 3, "123456789.123"},
                         {9007199254740993.0, 1, "9007199254740992.0"},
                         {1e22, 2, "10000000000000000000000.00"},
                         {0.1, 20, "0.10000000000000000555"},
                         {7, -3, "7"}};
    for (const Row& row : table) EXPECT_EQ(FixedText(row.value, row.decimals), row.text);
    EXPECT_EQ(FixedText(std::numeric_limits<double>::max(), 0).size(), 309U);
    for (const double value : {Infinity, -Infinity, NotANumber})
        EXPECT_EQ(FaultOf([&] { FixedText(value, 2); }), Fault::Overflow);
    EXPECT_EQ(FaultOf([] { RoundedAsFixedText(Infinity, 2); }), Fault::Overflow);
    EXPECT_EQ(FaultOf([] { RoundedAsGeneralText(NotANumber); }), Fault::Overflow);
}

TEST(Numbers, FixedTextIsAppended) {
    std::string text = "-0.00 ";
    AppendFixed(text, -0.001, 2);
    AppendFixed(text, 1e300, 0);
    EXPECT_TRUE(text.starts_with("-0.00 0.00100000000")) << text;
}

std::string TwoDigitFixedText(double value, int decimals) {
    std::string text;
    AppendTwoDigitFixed(text, value, decimals);
    return text;
}

TEST(Numbers, TwoDigitPatternIsAppended) {
    std::string text = "9.5 ";
    AppendTwoDigitFixed(text, 5.25, 2);
    AppendTwoDigitFixed(text, 7, 0);
    EXPECT_EQ(text, "9.5 05.2507.");
}

// The values of the rounding procedures are those of the texts, for numbers of a survey and for all others.
TEST(Numbers, RoundedValuesAreThoseOfTheTexts) {
    std::mt19937_64 draw(7);
    std::uniform_real_distribution<double> mantissa(-10, 10);
    std::uniform_int_distribution<int> exponent(-40, 40);
    for (int i = 0; i < 200'000; ++i) {
        const double value = mantissa(draw) * std::pow(10, exponent(draw) / 2);
        EXPECT_EQ(RoundedAsGeneralText(value), NumberFromText(GeneralText(value))) << value;
        const int decimals = i % 17;
        EXPECT_EQ(RoundedAsFixedText(value, decimals), NumberFromText(FixedText(value, decimals))) << value;
    }
    for (const double value :
         {0.0, -0.0, 0.5, 2.5, -2.5, 1e15, 999999999999999.5, 9.9999999999999995, 1e300, 5e-324}) {
        EXPECT_EQ(RoundedAsGeneralText(value), NumberFromText(GeneralText(value))) << value;
        for (const int decimals : {-1, 0, 1, 9, 15, 20})
            EXPECT_EQ(RoundedAsFixedText(value, decimals), NumberFromText(FixedText(value, decimals)))
                << value;
    }
    EXPECT_FALSE(std::signbit(RoundedAsFixedText(-0.001, 2)));
}

TEST(Numbers, TwoDigitPatternHasALeadingZeroAndAlwaysAPoint) {
    EXPECT_EQ(TwoDigitFixedText(5.25, 2), "05.25");
    EXPECT_EQ(TwoDigitFixedText(0, 2), "00.00");
    EXPECT_EQ(TwoDigitFixedText(59.999, 2), "60.00");
    EXPECT_EQ(TwoDigitFixedText(9.996, 2), "10.00");
    EXPECT_EQ(TwoDigitFixedText(123.4, 1), "123.4");
    EXPECT_EQ(TwoDigitFixedText(-5.25, 1), "-05.2");
    EXPECT_EQ(TwoDigitFixedText(-0.001, 2), "00.00");
    EXPECT_EQ(TwoDigitFixedText(7, 0), "07.");
    EXPECT_EQ(TwoDigitFixedText(12, 0), "12.");
}

struct CommaPunctuation : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

// A locale of the C library with a comma takes part where one is installed.
TEST(Numbers, LocaleNeverEnters) {
    const std::string libraryBefore = std::setlocale(LC_ALL, nullptr);
    const std::locale before = std::locale::global(std::locale(std::locale(), new CommaPunctuation));
    for (const char* name : {"de_DE.UTF-8", "de_DE", "fr_FR.UTF-8", "fr_FR"})
        if (std::setlocale(LC_ALL, name) != nullptr) break;
    EXPECT_EQ(GeneralText(1234.5), "1234.5");
    EXPECT_EQ(GeneralText(1e25), "1E+25");
    EXPECT_EQ(FixedText(1234.5, 2), "1234.50");
    EXPECT_EQ(FixedText(1e20, 1), "100000000000000000000.0");
    EXPECT_EQ(TwoDigitFixedText(5.25, 2), "05.25");
    EXPECT_EQ(ParseNumber("1234.5"), 1234.5);
    EXPECT_FALSE(IsNumericText("1234,5"));
    EXPECT_EQ(LeadingNumber("1.234,5"), 1.234);
    std::locale::global(before);
    std::setlocale(LC_ALL, libraryBefore.c_str());
}

}  // namespace
}  // namespace tarvek
