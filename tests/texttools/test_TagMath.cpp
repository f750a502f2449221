// Arithmetic on values: the class of every tag, and every class by hand-calculated results.

#include "texttools/modTagMath.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "platform/modNumbers.hpp"
#include "support/testSupport.hpp"

namespace tarvek::test {
namespace {

struct Row {
    const char* value;
    const char* mathOperator;
    double operand;
    const char* result;
};

class TagMath : public ::testing::Test {
  protected:
    void ExpectResults(const char* mathType, std::initializer_list<Row> rows) {
        for (const Row& row : rows)
            EXPECT_EQ(ApplyTagMath(row.value, row.operand, row.mathOperator, mathType), row.result)
                << mathType << ": " << row.value << ' ' << row.mathOperator << ' ' << row.operand;
        ExpectNothingTold(prompts_);
    }

    ScriptedPrompts prompts_;
};

TEST_F(TagMath, EveryTagHasItsClassAndNoOtherTagHasOne) {
    const struct {
        const char* mathType;
        std::vector<const char*> tags;
    } classes[] = {
        {"Bearing", {"BR"}},
        {"PointID", {"BS", "OS", "PN", "RN", "FG", "OD"}},
        {"Angle", {"AZ", "CA", "DA", "DC", "HZ", "LG", "LT", "VT"}},
        {"Seconds", {"CE", "EH", "EV", "VE"}},
        {"Math", {"AA", "AR", "BP", "CF", "DD", "DH", "DI", "DP", "DS", "DV", "DX", "DY", "DZ", "E1",
                  "E2", "ED", "EF", "EX", "FM", "HE", "HG", "HH", "HO", "HT", "IH", "L1", "L2", "LC",
                  "LN", "LO", "MO", "NS", "OF", "OO", "PC", "PM", "PO", "R1", "R2", "R3", "RA", "RO",
                  "RR", "S1", "S2", "S3", "SE", "SF", "SH", "SS", "SX", "SY", "SZ", "TE", "TL", "TN",
                  "VH", "VO", "VV", "W3", "WD", "XC", "XE", "XX", "YC", "YE", "YY", "ZC", "ZE", "ZZ"}},
    };
    std::map<std::string, std::string> classOf;
    for (const auto& row : classes)
        for (const char* tag : row.tags) classOf[tag] = row.mathType;
    ASSERT_EQ(classOf.size(), 1U + 6U + 8U + 4U + 70U);
    for (int first = 0; first < 256; ++first)
        for (int second = 0; second < 256; ++second) {
            const std::string tag = {static_cast<char>(first), static_cast<char>(second)};
            const auto found = classOf.find(tag);
            EXPECT_EQ(ClassifyMathTag(tag), found == classOf.end() ? "" : found->second) << tag;
        }
}

TEST_F(TagMath, OnlyTheFirstTwoCharactersOfATagCount) {
    EXPECT_EQ(ClassifyMathTag("XCX"), "Math");
    EXPECT_EQ(ClassifyMathTag("BR: "), "Bearing");
    EXPECT_EQ(ClassifyMathTag("PNUMBER"), "PointID");
    EXPECT_EQ(ClassifyMathTag(""), "");
    EXPECT_EQ(ClassifyMathTag("X"), "");
    EXPECT_EQ(ClassifyMathTag("B"), "");
    EXPECT_EQ(ClassifyMathTag(" XC"), "");
    EXPECT_EQ(ClassifyMathTag("xc"), "");
    EXPECT_EQ(ClassifyMathTag("C X"), "");
}

TEST_F(TagMath, AnEmptyValueAndTheNoValueTextStayInEveryClass) {
    for (const char* mathType : {"Math", "Seconds", "Angle", "Bearing", "PointID"})
        for (const char* mathOperator : {"+", "-", "*", "/"})
            for (const char* value : {"", "-99999"})
                EXPECT_EQ(ApplyTagMath(value, 0, mathOperator, mathType), value) << mathType;
    ExpectNothingTold(prompts_);
}

TEST_F(TagMath, ANumberThatOnlyEqualsNoValueIsReckonedWith) {
    ExpectResults("Math", {{"-99999.0", "+", 1, "-99998"}, {" -99999", "+", 1, "-99998"}});
}

TEST_F(TagMath, NumbersAreCombinedInTheOrderOfValueAndOperand) {
    ExpectResults("Math", {
                              {"10.5", "+", 100, "110.5"},
                              {"10.5", "-", 100, "-89.5"},
                              {"12.5", "*", 3, "37.5"},
                              {"12.5", "/", 4, "3.125"},
                              {"1", "/", 3, "0.333333333333333"},
                              {"0.1", "+", 0.2, "0.3"},
                              {" 12", "+", 1, "13"},
                              {"12.500", "+", 0, "12.5"},
                              {"1E3", "+", 1, "1001"},
                              {"-5", "+", 5, "0"},
                              {"1234567.8901", "*", 10, "12345678.901"},
                              {"123456.789", "/", 7, "17636.6841428571"},
                              {"999999999999999", "+", 1, "1E+15"},
                              {"+7", "-", -3, "10"},
                          });
}

TEST_F(TagMath, NumbersAgreeWithAFormattingOfTheLibrary) {
    std::mt19937_64 random(71);
    std::uniform_real_distribution<double> numbers(-1e6, 1e6);
    for (int i = 0; i < 20000; ++i) {
        char value[40];
        std::snprintf(value, sizeof value, "%.4f", numbers(random));
        const double number = std::strtod(value, nullptr);
        const double operand = numbers(random);
        const char mathOperator[] = {"+-*/"[i % 4], '\0'};
        const double result = i % 4 == 0   ? number + operand
                              : i % 4 == 1 ? number - operand
                              : i % 4 == 2 ? number * operand
                                           : number / operand;
        const double magnitude = std::fabs(result);
        if (magnitude < 0.1 || magnitude >= 1e14) continue;  // near these an exponent is written
        char expected[40];
        std::snprintf(expected, sizeof expected, "%.15g", result);
        EXPECT_EQ(ApplyTagMath(value, operand, mathOperator, "Math"), expected)
            << value << mathOperator << operand;
    }
}

TEST_F(TagMath, SecondsAddAndSubtractAsSeconds) {
    ExpectResults("Seconds", {
                                 {"10", "+", 2.5, "12.500"},
                                 {"2", "-", 10, "-8.000"},
                                 {"0.5", "+", 0, "0.500"},
                                 {"10", "-", 10.0001, "0.000"},
                                 {"3600", "+", 0.0004, "3600.000"},
                             });
}

// The two factors between degrees and radians undo each other: with the factor next to the first, the last
// digits would differ.
TEST_F(TagMath, SecondsComeBackFromRadiansToTheLastDigit) {
    ExpectResults("Seconds", {{"1000000000000", "+", 0, "1000000000000.000"},
                              {"30000000000000", "+", 0, "30000000000000.000"}});
}

// 2 seconds of arc are 9.69627362219072E-06 radians, 1 radian is 206264.806247096 seconds.
TEST_F(TagMath, SecondsMultiplyAndDivideInRadiansOnBothSides) {
    ExpectResults("Seconds", {
                                 {"100000", "*", 2, "0.970"},
                                 {"10", "*", 2, "0.000"},
                                 {"10", "/", 2, "1031324.031"},
                                 {"-10", "/", 4, "-515662.016"},
                             });
}

TEST_F(TagMath, AnglesAreCombinedAsPackedAngles) {
    ExpectResults("Angle", {
                               {"45.3000", "+", 1, "46.3000"},
                               {"45.3000", "-", 0.3, "45.0000"},
                               {"10.2030", "+", 0.5945, "11.2015"},
                               {"45", "+", 0.0001, "45.0001"},
                               {"45.3", "+", 0, "45.3000"},
                               {" 45.3000", "+", 0, "45.3000"},
                               {"45.301", "+", 0, "45.3000"},
                               {"45.0000", "/", 45, "57.1745"},  // 1 radian
                               {"45.0000", "*", 2, "1.3415"},    // 0.0274155677808 radians
                           });
}

// The operand is read from its general number text: 1.3010 is "1.301", whose third digit is dropped.
TEST_F(TagMath, AnOperandLosesTheZerosAtItsEnd) {
    ExpectResults("Angle", {{"10.0000", "+", 1.3010, "11.3000"},
                            {"10.0000", "+", 1.3011, "11.3011"},
                            {"10.0000", "+", 1.30, "11.3000"},
                            {"10.0000", "+", 1.3, "11.3000"}});
}

TEST_F(TagMath, AnglesBeyondAFullCircleAreBroughtBackAndNegativeOnesStay) {
    ExpectResults("Angle", {
                               {"359.5959", "+", 0.0002, "0.0001"},
                               {"350.0000", "+", 20, "10.0000"},
                               {"180.0000", "+", 180, "360.0000"},  // a full circle is not greater than one
                               {"10.0000", "-", 11, "-1.0000"},
                               {"10.0000", "-", 800, "-790.0000"},
                               {"1000.0000", "+", 100, "20.0000"},
                           });
}

// 32767 degrees over one second of arc is 117,961,200 radians: nearly 19 million full circles, one by one.
TEST_F(TagMath, ManyFullCirclesComeOffAsTheyWouldOneByOne) {
    constexpr double ToRadians = 0.017453292519943278;
    for (const char* value : {"359.0000", "32767.0000", "1.0000", "77.0000"})
        for (const char* operand : {"0.0001", "0.0017", "0.3"}) {
            const double minutesAndSeconds = std::strtod(operand, nullptr) * 10000;
            const double seconds = std::fmod(std::round(minutesAndSeconds), 100);
            const double minutes = std::floor(minutesAndSeconds / 100 + 1e-9);
            char degrees[40];
            std::snprintf(degrees, sizeof degrees, "%.15g", minutes / 60.0 + seconds / 3600.0);
            double radians =
                std::strtod(value, nullptr) * ToRadians / (std::strtod(degrees, nullptr) * ToRadians);
            while (radians > 6.28318530717958) radians -= 6.28318530717958;
            const std::string result = ApplyTagMath(value, std::strtod(operand, nullptr), "/", "Angle");
            char expected[40];
            std::snprintf(expected, sizeof expected, "%.4f", radians * 57.29577951308238);
            const std::size_t point = result.find('.');
            const double printed = std::strtod(result.substr(0, point).c_str(), nullptr) +
                                   std::strtod(result.substr(point + 1, 2).c_str(), nullptr) / 60 +
                                   std::strtod(result.substr(point + 3).c_str(), nullptr) / 3600;
            EXPECT_NEAR(printed, std::strtod(expected, nullptr), 0.5001 / 3600) << value << " / " << operand;
        }
}

// Up to 10^16 radians, reckoned apart from this program in exact fractions with every subtraction rounded to
// the 53 bits of a double. The remainder of a division would be another angle altogether.
TEST_F(TagMath, TheRoundingOfEverySubtractionCounts) {
    ExpectResults("Angle", {{"359.0000", "/", 1e-9, "344.3046"},
                            {"32767.0000", "/", 1e-9, "2.2345"},
                            {"359.0000", "/", 1e-11, "38.5921"},
                            {"32767.0000", "/", 1e-12, "301.5117"}});
}

TEST_F(TagMath, AnAngleFromWhichNoFullCircleComesOffIsAFault) {
    const auto divide = [] { ApplyTagMath("359.0000", 0.000000000000001, "/", "Angle"); };
    EXPECT_EQ(FaultNumberOf(divide), 6);
}

TEST_F(TagMath, AnAngleThatCanNotBeReadIsToldAndBecomesNoValue) {
    EXPECT_EQ(ApplyTagMath("10.6000", 1, "+", "Angle"), "-99999");
    ExpectToldOnly(prompts_, "Invalid Angle '10.6000'. Minutes portion must be positive and not exceed 59.",
                   "Invalid Angle");
}

TEST_F(TagMath, AnOperandThatIsNoAngleIsToldAndMakesNoValue) {
    EXPECT_EQ(ApplyTagMath("10.0000", 1.006, "+", "Angle"), "11.0000");
    ExpectNothingTold(prompts_);
    EXPECT_EQ(ApplyTagMath("10.0000", 1.006012, "+", "Angle"), "-99999");
    ExpectToldOnly(
        prompts_,
        "Invalid Angle '1.006012'. Seconds portion must be positive and not exceed 59.9999999999999.",
        "Invalid Angle");
}

TEST_F(TagMath, ValueAndOperandAreBothToldInTheirOrder) {
    EXPECT_EQ(ApplyTagMath("N10.7000E", 1.6, "+", "Bearing"), "-99999");
    ASSERT_EQ(prompts_.told.size(), 2U);
    EXPECT_EQ(prompts_.told[0].text,
              "Invalid Angle '10.7000'. Minutes portion must be positive and not exceed 59.");
    EXPECT_EQ(prompts_.told[1].text,
              "Invalid Angle '1.6'. Minutes portion must be positive and not exceed 59.");
}

TEST_F(TagMath, FaultsOfTheAngleParserPass) {
    EXPECT_EQ(FaultNumberOf([] { ApplyTagMath("45.", 1, "+", "Angle"); }), 13);
    EXPECT_EQ(FaultNumberOf([] { ApplyTagMath("40000", 1, "+", "Angle"); }), 6);
    EXPECT_EQ(FaultNumberOf([] { ApplyTagMath("45", 1e20, "+", "Angle"); }), 6);
    EXPECT_EQ(FaultNumberOf([] { ApplyTagMath("N", 1, "+", "Bearing"); }), 13);
    EXPECT_EQ(FaultNumberOf([] { ApplyTagMath("NE", 1, "+", "Bearing"); }), 13);
    EXPECT_EQ(FaultNumberOf([] { ApplyTagMath("NORTHE", 1, "+", "Bearing"); }), 13);
}

TEST_F(TagMath, BearingsGoOverTheirAzimuth) {
    ExpectResults("Bearing", {
                                 {"N45.0000E", "+", 1, "N46.0000E"},
                                 {"N45.0000W", "+", 1, "N44.0000W"},   // 315 to 316
                                 {"S45.0000E", "+", 1, "S44.0000E"},   // 135 to 136
                                 {"S45.0000W", "+", 1, "S46.0000W"},   // 225 to 226
                                 {"N80.0000E", "+", 20, "S80.0000E"},  // 80 to 100
                                 {"S10.0000E", "+", 20, "S10.0000W"},  // 170 to 190
                                 {"S80.0000W", "+", 20, "N80.0000W"},  // 260 to 280
                                 {"N45.0000W", "+", 46, "N1.0000E"},   // 315 to 361, back to 1
                                 {"N45.0000W", "-", 46, "S89.0000W"},  // 315 to 269
                                 {"N45.0000E", "-", 0.3, "N44.3000E"},
                                 {"N45.0000E", "/", 45, "N57.1745E"},  // 1 radian
                                 {"N45.0000E", "*", 2, "N1.3415E"},    // 0.0274155677808 radians
                             });
}

TEST_F(TagMath, ANegativeAzimuthStaysNegativeInTheFirstQuadrant) {
    ExpectResults("Bearing", {{"N10.0000E", "-", 11, "N-1.0000E"}, {"S45.0000W", "-", 226, "N-1.0000E"}});
}

TEST_F(TagMath, LettersOfNoQuadrantCountAsNorthAndEast) {
    ExpectResults("Bearing", {{"E45.0000N", "+", 1, "N46.0000E"},
                              {"X45.0000Y", "+", 1, "N46.0000E"},
                              {"W45.0000N", "+", 50, "S85.0000E"},
                              {"145.00000", "+", 1, "N46.0000E"}});
}

// On a cardinal direction the letters of the value and the azimuth itself are kept.
TEST_F(TagMath, TheFourCardinalDirectionsKeepLettersAndAzimuth) {
    ExpectResults("Bearing", {
                                 {"N45.0000E", "+", 45, "N90.0000E"},
                                 {"S45.0000E", "-", 45, "S90.0000E"},
                                 {"N90.0000E", "+", 0, "N90.0000E"},
                                 {"S45.0000E", "+", 45, "S180.0000E"},
                                 {"S0.0000E", "+", 0, "S180.0000E"},
                                 {"S0.0000W", "+", 0, "S180.0000W"},
                                 {"S45.0000W", "+", 45, "S270.0000W"},
                                 {"N90.0000W", "+", 0, "N270.0000W"},
                                 {"S90.0000W", "+", 0, "S270.0000W"},
                                 {"N45.0000W", "+", 45, "N360.0000W"},
                                 {"N0.0000W", "+", 0, "N360.0000W"},
                                 {"N0.0000E", "+", 0, "N0.0000E"},
                                 {"X45.0000Y", "+", 45, "X90.0000Y"},
                             });
}

TEST_F(TagMath, PointNamesCountOnInTheirNumericTail) {
    ExpectResults("PointID", {
                                 {"100", "+", 1, "101"},
                                 {"A0012", "+", 1, "A13"},
                                 {"A9", "+", 1, "A10"},
                                 {"A10", "-", 1, "A9"},
                                 {"TP7", "*", 3, "TP21"},
                                 {"A1B2", "+", 5, "A1B7"},
                                 {"0007", "+", 1, "8"},
                                 {"A1", "-", 5, "A-4"},
                                 {" 5", "+", 1, "6"},
                                 {"A 5", "+", 1, "A6"},
                                 {"1 5", "+", 1, "16"},
                                 {"A-5", "+", 1, "A-4"},
                                 {"3-5", "+", 1, "3-4"},
                                 {"1.5", "+", 1, "3"},  // the tail 1.5 is 2, ties going to even
                                 {"2.5", "+", 1, "3"},
                                 {"1.2.5", "+", 1, "1.3"},
                                 {"A.4", "+", 1, "A1"},
                             });
}

TEST_F(TagMath, AnExponentIsNeverPartOfTheTail) {
    ExpectResults("PointID", {{"1E5", "+", 1, "1E6"}, {"2E10", "+", 1, "2E11"}, {"1E-5", "+", 1, "1E-4"}});
}

TEST_F(TagMath, PointNumbersAreRoundedWithTiesToEven) {
    ExpectResults("PointID", {{"A5", "*", 0.5, "A2"},
                              {"A7", "*", 0.5, "A4"},
                              {"A5", "/", 2, "A2"},
                              {"A7", "/", 2, "A4"},
                              {"A5", "+", 0.4, "A5"},
                              {"A5", "+", 0.6, "A6"},
                              {"A1", "-", 1.5, "A0"}});
}

TEST_F(TagMath, ANameWithNoNumberAtItsEndStaysWithoutAWord) {
    ExpectResults("PointID", {{"AB", "+", 1, "AB"},
                              {"A12B", "+", 1, "A12B"},
                              {"5 ", "+", 1, "5 "},
                              {"5.", "+", 1, "5."},
                              {"5-", "+", 1, "5-"},
                              {"AB", "/", 0, "AB"}});
}

TEST_F(TagMath, ANameOfMoreThanEightCharactersIsToldAndTheOldOneKept) {
    EXPECT_EQ(ApplyTagMath("ABCDEF9", 1, "+", "PointID"), "ABCDEF10");
    ExpectNothingTold(prompts_);
    EXPECT_EQ(ApplyTagMath("ABCDEF99", 1, "+", "PointID"), "ABCDEF99");
    ExpectToldOnly(prompts_, "Point ID Assignment Error.", "Invalid Point ID");
    EXPECT_EQ(ApplyTagMath("99999999", 1, "+", "PointID"), "99999999");
    EXPECT_EQ(ApplyTagMath("A0000000012", 1, "+", "PointID"), "A13");
    EXPECT_EQ(prompts_.told.size(), 2U);
}

TEST_F(TagMath, PointNumbersBeyond32BitsAreFaults) {
    EXPECT_EQ(FaultNumberOf([] { ApplyTagMath("2147483648", 1, "+", "PointID"); }), 6);
    EXPECT_EQ(FaultNumberOf([] { ApplyTagMath("2147483647", 1, "+", "PointID"); }), 6);
    EXPECT_EQ(FaultNumberOf([] { ApplyTagMath("A2000000000", 2, "*", "PointID"); }), 6);
    EXPECT_EQ(FaultNumberOf([] { ApplyTagMath("A1", 1e300, "+", "PointID"); }), 6);
    EXPECT_EQ(ApplyTagMath("2147483647", 2147483646, "-", "PointID"), "1");
    EXPECT_EQ(ApplyTagMath("2147483648A1", 1, "+", "PointID"), "2147483648A1");  // 12 characters
    EXPECT_EQ(prompts_.told.size(), 1U);
}

bool IsNumericByHand(const std::string& text) {
    std::size_t at = text.find_first_not_of(' ');
    const std::size_t last = text.find_last_not_of(' ');
    if (at == std::string::npos) return false;
    if (text[at] == '+' || text[at] == '-') ++at;
    int digits = 0, points = 0;
    std::size_t exponentAt = std::string::npos;
    for (; at <= last; ++at) {
        const bool inExponent = exponentAt != std::string::npos;
        const bool isSign = text[at] == '+' || text[at] == '-';
        if (text[at] >= '0' && text[at] <= '9')
            ++digits;
        else if (text[at] == 'E' && !inExponent && digits > 0)
            exponentAt = at;
        else if (!(isSign && inExponent && at == exponentAt + 1 && at < last) &&
                 !(text[at] == '.' && !inExponent && ++points == 1))
            return false;
    }
    return digits > 0 && exponentAt != last && std::isfinite(std::strtod(text.c_str(), nullptr));
}

// The tail found as it is told: one character more at a time, up to the first text that is no number.
std::size_t TailByHand(const std::string& name) {
    std::size_t tail = name.size();
    for (std::size_t k = 1; k <= name.size() && IsNumericByHand(name.substr(name.size() - k)); ++k)
        tail = name.size() - k;
    return tail;
}

std::string NextNameByHand(const std::string& name) {
    const std::size_t tail = TailByHand(name);
    if (tail == name.size() || name.empty()) return name;
    const double number = std::nearbyint(std::strtod(name.substr(tail).c_str(), nullptr));
    if (std::fabs(number) > 2e9) return "Overflow";
    const std::string next = name.substr(0, tail) + std::to_string(static_cast<long>(number) + 1);
    return next.size() > 8 ? name : next;
}

TEST_F(TagMath, TailsAgreeWithASearchCharacterByCharacter) {
    std::mt19937 random(17);
    std::set<std::string> different;
    for (int i = 0; i < 200000; ++i) {
        std::string name;
        for (auto length = random() % 9; length > 0; --length) name += "0125 .+-EA"[random() % 10];
        different.insert(name);
        if (name == "-99999") continue;
        ASSERT_EQ(ApplyTagMath(name, 1, "+", "PointID"), NextNameByHand(name)) << '\'' << name << '\'';
    }
    EXPECT_GT(different.size(), 90000U);
}

TEST_F(TagMath, TailsOfHundredsOfDigitsAgreeWithASearchCharacterByCharacter) {
    std::mt19937 random(18);
    for (int i = 0; i < 300; ++i) {
        std::string name(300 + random() % 60, '0');
        for (auto count = random() % 4; count > 0; --count)
            name[random() % name.size()] = "123456789"[random() % 9];
        if (i % 3 == 0) name.insert(random() % 12, 1, 'A');
        std::string result;
        const int fault = FaultNumberOf([&] { result = ApplyTagMath(name, 1, "+", "PointID"); });
        ASSERT_EQ(fault == 6 ? "Overflow" : result, NextNameByHand(name)) << name;
    }
}

TEST_F(TagMath, ANameOfMillionsOfDigitsIsNoWorkForMinutes) {
    EXPECT_EQ(ApplyTagMath(Repeated('0', 20'000'000) + "7", 1, "+", "PointID"), "8");
    EXPECT_EQ(FaultNumberOf([] { ApplyTagMath(Repeated('7', 20'000'000), 1, "+", "PointID"); }), 6);
}

TEST_F(TagMath, ADivisorOfZeroIsAFaultInEveryClass) {
    EXPECT_EQ(FaultNumberOf([] { ApplyTagMath("1", 0, "/", "Math"); }), 11);
    EXPECT_EQ(FaultNumberOf([] { ApplyTagMath("0", 0, "/", "Math"); }), 11);
    EXPECT_EQ(FaultNumberOf([] { ApplyTagMath("1", 0, "/", "Seconds"); }), 11);
    EXPECT_EQ(FaultNumberOf([] { ApplyTagMath("1.0000", 0, "/", "Angle"); }), 11);
    EXPECT_EQ(FaultNumberOf([] { ApplyTagMath("1.0000", 0.001, "/", "Angle"); }), 11);  // reads 0
    EXPECT_EQ(FaultNumberOf([] { ApplyTagMath("N1.0000E", 0, "/", "Bearing"); }), 11);
    EXPECT_EQ(FaultNumberOf([] { ApplyTagMath("A1", 0, "/", "PointID"); }), 11);
}

TEST_F(TagMath, AResultThatIsNotFiniteIsAFault) {
    EXPECT_EQ(FaultNumberOf([] { ApplyTagMath("1E300", 1e300, "*", "Math"); }), 6);
    EXPECT_EQ(FaultNumberOf([] { ApplyTagMath("1E300", 1e-300, "/", "Math"); }), 6);
    EXPECT_EQ(FaultNumberOf([] { ApplyTagMath("1E308", 1e308, "+", "Math"); }), 6);
    EXPECT_EQ(FaultNumberOf([] { ApplyTagMath("1E308", 1e-300, "/", "Seconds"); }), 6);
}

TEST_F(TagMath, ATextThatIsNoNumberIsRefusedWhereANumberIsNeeded) {
    for (const char* mathType : {"Math", "Seconds", "Angle"})
        for (const char* value : {"", " ", "A", "1A", "1 2", "NAN", "INF", "1E400", "&H10", "1,5"}) {
            EXPECT_FALSE(TryTagMath(value, 1, "+", mathType).has_value()) << mathType << ' ' << value;
            if (*value != '\0') {
                EXPECT_EQ(FaultNumberOf([&] { ApplyTagMath(value, 1, "+", mathType); }), 13) << value;
            }
        }
    EXPECT_EQ(TryTagMath("", 1, "+", "Bearing"), "");
    EXPECT_EQ(TryTagMath("", 1, "+", "PointID"), "");
    ExpectNothingTold(prompts_);
}

}  // namespace
}  // namespace tarvek::test
