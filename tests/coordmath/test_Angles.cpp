// Angles: the four text formats both ways, carries, refusals and faults, and the direction conventions.

#include <gtest/gtest.h>

#include <cctype>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "coordmath/modAngles.hpp"
#include "support/testSupport.hpp"

namespace tarvek::test {
namespace {

constexpr double ToRadians = 0.017453292519943278;
constexpr double ToDegrees = 57.29577951308238;
constexpr double FullCircle = 6.28318530717958;
constexpr double None = -99999.0;

constexpr const char* DMS = "DDD MM SS.ssss";
constexpr const char* Packed = "DDD.MMSSssss";
constexpr const char* Degrees = "DDD.dddddd";
constexpr const char* DM = "DDD MM.mmmm";

struct Row {
    const char* text;
    double degrees;  // the value in decimal degrees, to 15 digits
};

class Angles : public ::testing::Test {
  protected:
    void ExpectDegrees(const char* format, std::initializer_list<Row> rows) {
        for (const Row& row : rows)
            EXPECT_EQ(Angles_GET_Radians(row.text, format), row.degrees * ToRadians)
                << format << ": " << row.text;
        ExpectNothingTold(prompts_);
    }

    void ExpectMinutesRefused(const char* format, const std::string& text) {
        prompts_.told.clear();
        EXPECT_EQ(Angles_GET_Radians(text, format), None) << text;
        ExpectToldOnly(prompts_,
                       "Invalid Angle '" + text + "'. Minutes portion must be positive and not exceed 59.",
                       "Invalid Angle");
    }

    void ExpectSecondsToldOnly(const std::string& text) {
        ExpectToldOnly(
            prompts_,
            "Invalid Angle '" + text + "'. Seconds portion must be positive and not exceed 59.9999999999999.",
            "Invalid Angle");
        prompts_.told.clear();
    }

    void ExpectSecondsRefused(const char* format, const std::string& text) {
        prompts_.told.clear();
        EXPECT_EQ(Angles_GET_Radians(text, format), None) << text;
        ExpectSecondsToldOnly(text);
    }

    void ExpectFault(int number, const char* format, std::initializer_list<const char*> texts) {
        for (const char* text : texts)
            EXPECT_EQ(FaultNumberOf([&] { Angles_GET_Radians(text, format); }), number)
                << format << ": " << text;
        ExpectNothingTold(prompts_);
    }

    ScriptedPrompts prompts_;
};

// ---- Text to radians ----

TEST_F(Angles, DegreesMinutesAndSecondsAreRead) {
    ExpectDegrees(DMS, {
                           {"45 30 15.5", 45.5043055555556},
                           {"45 30", 45.5},
                           {"45", 45},
                           {"0 0 0", 0},
                           {"0 0 1", 0.000277777777777778},
                           {"359 59 59.9999", 359.999999972222},
                           {"1 1 1", 1.01694444444444},
                           {"045 05 05", 45.0847222222222},
                           {"32767 0 0", 32767},
                           {"10 59 0", 10.9833333333333},
                           {"10 30 1E1", 10.5027777777778},
                           {"10 30 15 99", 10.5041666666667},  // a fourth field is not looked at
                       });
}

TEST_F(Angles, WholeFieldsAreRoundedWithTiesToEven) {
    ExpectDegrees(DMS,
                  {{"10.5 0 0", 10}, {"11.5 0 0", 12}, {"10 30.5 0", 10.5}, {"10 14.5 0", 10.2333333333333}});
    ExpectDegrees(DMS, {{"-0.5 30 0", 0.5}, {"-0.6 30 0", -1.5}});
}

TEST_F(Angles, TheSignIsThatOfTheWholeDegrees) {
    ExpectDegrees(DMS, {{"-45 30 00", -45.5}, {"-1 0 0", -1}, {"-0 30 00", 0.5}, {"+45 30 00", 45.5}});
    ExpectDegrees(Packed, {{"-45.3000", -45.5}, {"-0.3000", 0.5}, {"-1", -1}});
    ExpectDegrees(DM, {{"-45 30", -45.5}, {"-0 30", 0.5}});
    EXPECT_EQ(Angles_GET_RadFromDMS("-45 30 00"), -Angles_GET_RadFromDMS("45 30 00"));
    EXPECT_FALSE(std::signbit(Angles_GET_RadFromDMS("-0 0 0")));
}

TEST_F(Angles, RadiansAreThoseOfFifteenDigitsOfDegrees) {
    // 1/3 degree and 2/3 of a second: 17 digits of their sum would give other radians.
    const double fifteenDigits = 100.333518518519 * ToRadians;
    EXPECT_EQ(Angles_GET_RadFromDMS("100 20 0.666666666666667"), fifteenDigits);
    EXPECT_NE((20 / 60.0 + 100 + 0.666666666666667 / 3600.0) * ToRadians, fifteenDigits);
}

TEST_F(Angles, PackedAnglesAreRead) {
    ExpectDegrees(Packed, {
                              {"45.30155", 45.5043055555556},
                              {"45.3015", 45.5041666666667},
                              {"45", 45},
                              {"45.3", 45.5},    // tens of minutes
                              {"45.03", 45.05},  // minutes
                              {"45.301", 45.5},  // a third digit alone is dropped
                              {"45.30010", 45.5002777777778},
                              {".3000", 0.5},
                              {"0.0001", 0.000277777777777778},
                              {"0.00000001", 2.77777777777778e-8},
                              {"45.0", 45},
                              {" 45.3000", 45.5},
                              {"45. 3", 45.05},
                              {"1E2", 100},
                              {"11.5959999999", 11.9999999997222},
                              {"4.5.3000", 4.09166666666667},  // minutes "5.", seconds "30.00",
                          });
}

TEST_F(Angles, PackedAndSpacedTextsGiveTheSameRadians) {
    EXPECT_EQ(Angles_GET_Radians("45 30 15.5", DMS), Angles_GET_Radians("45.30155", Packed));
}

TEST_F(Angles, DegreesAndDecimalMinutesAreRead) {
    ExpectDegrees(DM, {
                          {"45 30.5", 45.5083333333333},
                          {"45 30", 45.5},
                          {"45 0.25", 45.0041666666667},
                          {"0 59.5", 0.991666666666667},
                          {"10 30.25 99", 10.5041666666667},
                          {"10.5 30", 10.5},
                      });
}

TEST_F(Angles, DecimalDegreesAreRead) {
    ExpectDegrees(Degrees, {{"45.5", 45.5},
                            {"-45.5", -45.5},
                            {" 45.5 ", 45.5},
                            {"1E2", 100},
                            {"-0.5", -0.5},
                            {".5", 0.5},
                            {"5.", 5},
                            {"720", 720},
                            {"123.4567890123456", 123.4567890123456}});
}

TEST_F(Angles, DecimalDegreesThatAreNoNumberGiveNoValueWithoutAWord) {
    for (const char* text : {"", " ", "N45", "45 30 15", "45,5", "1E", "nan", "inf", "1E400", "0x10"})
        EXPECT_EQ(Angles_GET_Radians(text, Degrees), None) << text;
    ExpectNothingTold(prompts_);
}

TEST_F(Angles, MinutesBeyondTheirLimitsAreTold) {
    ExpectMinutesRefused(DMS, "10 60 00");
    ExpectMinutesRefused(DMS, "10 -1 00");
    ExpectMinutesRefused(DMS, "-10 60 75");  // minutes are looked at first
    ExpectMinutesRefused(DMS, "10 59.5 0");  // 60, to the even neighbour
    ExpectMinutesRefused(Packed, "10.6000");
    ExpectMinutesRefused(Packed, "10.6");
    ExpectMinutesRefused(Packed, "10.9");
    ExpectMinutesRefused(Packed, "10.-1");
    ExpectMinutesRefused(DM, "10 60.0");
    ExpectMinutesRefused(DM, "10 -1");
    ExpectMinutesRefused(DM, "10 -1.5");
}

TEST_F(Angles, SecondsBeyondTheirLimitsAreTold) {
    ExpectSecondsRefused(DMS, "10 00 60");
    ExpectSecondsRefused(DMS, "10 00 -0.001");
    ExpectSecondsRefused(DMS, "10 00 59.99999999999999");
    ExpectSecondsRefused(Packed, "10.0060");
    ExpectSecondsRefused(Packed, "10.005999999999999999");  // 14 nines behind 59
    ExpectSecondsRefused(Packed, "10.00-1");
    ExpectSecondsRefused(DM, "10 -0.5");
    ExpectSecondsRefused(DM, "10 0.9999999999999999");  // 59.999999999999994 seconds
}

TEST_F(Angles, TheLargestSecondsAreAccepted) {
    // 59.9999999999999 seconds are 0.0166666666666666 degrees: to 15 digits the sum is 10.0166666666667.
    ExpectDegrees(DMS, {{"10 00 59.9999999999999", 10.0166666666667}});
    ExpectDegrees(Packed, {{"10.00599999999999999", 10.0166666666667}});  // 13 nines behind 59
    ExpectDegrees(DM, {{"10 0.999999999999998", 10.0166666666667}});      // 59.99999999999988 seconds
}

TEST_F(Angles, AnUnknownFormatIsTold) {
    for (const char* format : {"", "DMS", "DDD MM SS", "ddd.dddddd", "DDD.dddddd "}) {
        prompts_.told.clear();
        EXPECT_EQ(Angles_GET_Radians("45 30 15", format), None);
        ExpectToldOnly(prompts_, "Unknown Angular Format. Can not convert angle to radians.",
                       "Invalid Angular Format");
    }
}

TEST_F(Angles, AFieldThatIsNoNumberIsATypeMismatch) {
    ExpectFault(13, DMS,
                {"", " ", "A", "45  30", "45 ", "45 30 ", "45 A", "45 30 A", "45 30 15\"", "N45 0 0"});
    ExpectFault(13, Packed, {"", "45.", ".", "-.3000", "A", "45.A", "45.3A", "45.30A5", "45.301A"});
    ExpectFault(13, DM, {"", "A 30", "45 A", "45  30", "45 "});
}

TEST_F(Angles, AFieldBeyondSixteenBitsIsAnOverflow) {
    ExpectFault(6, DMS, {"32768", "-32769 0 0", "1E20", "45 40000 0"});
    ExpectFault(6, Packed, {"32768", "32768.3000", "-40000.0000"});
    ExpectFault(6, DM, {"32768 0", "45 32768", "45 -1E10"});
}

// The lowest number of 16 bits can be read, but its size has no place in them.
TEST_F(Angles, TheLowestDegreesAreAnOverflow) {
    ExpectFault(6, DMS, {"-32768", "-32768 0 0", "-32768 30 15.5", "-32768.4 0 0"});
    ExpectFault(6, Packed, {"-32768", "-32768.3", "-32768.0000"});
    ExpectFault(6, DM, {"-32768 0", "-32768 30.5"});
    ExpectDegrees(DMS, {{"-32767 0 0", -32767}});
    ExpectDegrees(Packed, {{"-32767.0000", -32767}});
    ExpectDegrees(DM, {{"-32767 0", -32767}});
}

TEST_F(Angles, TheLowestDegreesOverflowWhereTheSignIsTakenOff) {
    // Degrees, minutes and seconds take it off before they look at the minutes; the others look first.
    ExpectFault(6, DMS, {"-32768 60 0", "-32768 0 60"});
    ExpectMinutesRefused(Packed, "-32768.6000");
    ExpectSecondsRefused(Packed, "-32768.0060");
    ExpectMinutesRefused(DM, "-32768 60");
    ExpectSecondsRefused(DM, "-32768 -0.5");
}

TEST_F(Angles, DegreesWithoutMinutesAreASubscriptFault) {
    ExpectFault(9, DM, {"45", "-45", "45.5"});
    // The degrees are looked at before.
    ExpectFault(13, DM, {"N"});
}

// ---- Radians to text ----

TEST_F(Angles, DegreesArePrinted) {
    const double radians = 45.5 / ToDegrees;
    EXPECT_EQ(Angles_GET_TextDegrees(radians, 6, false), "45.500000");
    EXPECT_EQ(Angles_GET_TextDegrees(radians, 6, true), "45.500000\xB0");
    EXPECT_EQ(Angles_GET_TextDegrees(radians, 1, false), "45.5");
    EXPECT_EQ(Angles_GET_TextDegrees(-radians, 2, false), "-45.50");
    EXPECT_EQ(Angles_GET_TextDegrees(0.25 / ToDegrees, 2, false), "0.25");
    EXPECT_EQ(Angles_GET_TextDegrees(-0.25 / ToDegrees, 2, false), "-0.25");
    EXPECT_EQ(Angles_GET_TextDegrees(-1e-9, 2, false), "0.00");
    EXPECT_EQ(Angles_GET_TextDegrees(1, 10, false), "57.2957795131");
    EXPECT_EQ(Angles_GET_TextDegrees(1, 0, false), "57");
    EXPECT_EQ(Angles_GET_TextDegrees(1, 0, true), "57\xB0");
    EXPECT_EQ(Angles_GET_TextDegrees(1000, 3, false), "57295.780");
}

TEST_F(Angles, DegreesAndMinutesArePrinted) {
    const double radians = 45.5083333333333 * ToRadians;  // 45 30.5
    EXPECT_EQ(Angles_GET_TextDM(radians, 2, false), "45 30.50");
    EXPECT_EQ(Angles_GET_TextDM(radians, 2, true), "45\xB0 30.50'");
    EXPECT_EQ(Angles_GET_TextDM(-radians, 4, false), "-45 30.5000");
    EXPECT_EQ(Angles_GET_TextDM(-radians, 4, true), "-45\xB0 30.5000'");
    EXPECT_EQ(Angles_GET_TextDM(5.1 * ToRadians, 1, false), "5 06.0");
    EXPECT_EQ(Angles_GET_TextDM(-0.5 * ToRadians, 1, false), "-0 30.0");
    EXPECT_EQ(Angles_GET_TextDM(0, 1, false), "0 00.0");
    EXPECT_EQ(Angles_GET_TextDM(123.25 * ToRadians, 0, false), "123 15.");
    EXPECT_EQ(Angles_GET_TextDM(123.25 * ToRadians, 0, true), "123\xB0 15.'");
}

TEST_F(Angles, MinutesCarryIntoDegrees) {
    // 29.999999 degrees are 29 degrees 59.99994 minutes.
    EXPECT_EQ(Angles_GET_TextDM(29.999999 / ToDegrees, 2, false), "30 00.00");
    EXPECT_EQ(Angles_GET_TextDM(-29.999999 / ToDegrees, 2, false), "-30 00.00");
    EXPECT_EQ(Angles_GET_TextDM(29.99999999 / ToDegrees, 2, false), "30 00.00");
    EXPECT_EQ(Angles_GET_TextDM(359.999999 / ToDegrees, 2, true), "360\xB0 00.00'");
    EXPECT_EQ(Angles_GET_TextDM(29.9999 / ToDegrees, 2, false), "29 59.99");
}

TEST_F(Angles, DegreesMinutesAndSecondsArePrinted) {
    const double radians = 45.5043055555556 * ToRadians;  // 45 30 15.5
    EXPECT_EQ(Angles_GET_TextDMS(radians, 2, false), "45 30 15.50");
    EXPECT_EQ(Angles_GET_TextDMS(radians, 5, false), "45 30 15.50000");
    EXPECT_EQ(Angles_GET_TextDMS(radians, 2, true), "45\xB0 30' 15.50\"");
    EXPECT_EQ(Angles_GET_TextDMS(-radians, 2, true), "-45\xB0 30' 15.50\"");
    EXPECT_EQ(Angles_GET_TextDMS(5.0847222222222 * ToRadians, 1, false), "5 05 05.0");
    EXPECT_EQ(Angles_GET_TextDMS(-0.5 * ToRadians, 2, false), "-0 30 00.00");
    EXPECT_EQ(Angles_GET_TextDMS(0, 2, false), "0 00 00.00");
    EXPECT_EQ(Angles_GET_TextDMS(-1e-12, 2, false), "0 00 00.00");
    EXPECT_EQ(Angles_GET_TextDMS(-400.25 * ToRadians, 1, false), "-400 15 00.0");
}

TEST_F(Angles, NoDecimalsOfSecondsLeaveAPoint) {
    EXPECT_EQ(Angles_GET_TextDMS(45.2 * ToRadians, 0, false), "45 12 00.");
    EXPECT_EQ(Angles_GET_TextDMS(45.2 * ToRadians, 0, true), "45\xB0 12' 00.\"");
    EXPECT_EQ(Angles_GET_TextDMSPacked(45.2 * ToRadians, 0), "45.1200");
}

// The parts are those of the degrees rounded to four digits more than the seconds have: with no decimals that
// is 0.36 of a second.
TEST_F(Angles, SecondsComeFromTheRoundedDegrees) {
    // 10 20 29.4 is 10.3415 degrees to 4 digits, which is 10 20 29.4; 29.6 is 10.3416, which is 29.76.
    EXPECT_EQ(Angles_GET_TextDMS(10.3415 * ToRadians, 0, false), "10 20 29.");
    EXPECT_EQ(Angles_GET_TextDMS((10 + 20 / 60.0 + 29.6 / 3600) * ToRadians, 0, false), "10 20 30.");
    // 29.45 lies nearer to 29 than to 30, but its degrees round to 10.3415 where 29.6 lies on the other side.
    EXPECT_EQ(Angles_GET_TextDMS((10 + 20 / 60.0 + 29.45 / 3600) * ToRadians, 0, false), "10 20 29.");
    // 29.59 would be 30 seconds; its degrees, 10.341553, round to 10.3416 and print 30 as well, while 29.57,
    // 10.341547, rounds to 10.3415 and prints 29.
    EXPECT_EQ(Angles_GET_TextDMS((10 + 20 / 60.0 + 29.59 / 3600) * ToRadians, 0, false), "10 20 30.");
    EXPECT_EQ(Angles_GET_TextDMS((10 + 20 / 60.0 + 29.57 / 3600) * ToRadians, 0, false), "10 20 29.");
}

TEST_F(Angles, SecondsCarryIntoMinutesAndDegrees) {
    // 29.999999 degrees are 29 59 59.9964.
    EXPECT_EQ(Angles_GET_TextDMS(29.999999 / ToDegrees, 2, false), "30 00 00.00");
    EXPECT_EQ(Angles_GET_TextDMS(-29.999999 / ToDegrees, 2, false), "-30 00 00.00");
    EXPECT_EQ(Angles_GET_TextDMS(29.99999999 / ToDegrees, 2, false), "30 00 00.00");
    EXPECT_EQ(Angles_GET_TextDMSPacked(29.999999 / ToDegrees, 2), "30.000000");
    EXPECT_EQ(Angles_GET_TextDMS(359.999999 / ToDegrees, 2, true), "360\xB0 00' 00.00\"");
    // 10.016666 degrees are 10 00 59.9976: a carry into the minutes alone.
    EXPECT_EQ(Angles_GET_TextDMS(10.016666 / ToDegrees, 2, false), "10 01 00.00");
    // 10.9999 degrees are 10 59 59.64.
    EXPECT_EQ(Angles_GET_TextDMS(10.9999 / ToDegrees, 0, false), "11 00 00.");
    EXPECT_EQ(Angles_GET_TextDMS(10.9999 / ToDegrees, 2, false), "10 59 59.64");
    ExpectNothingTold(prompts_);
}

TEST_F(Angles, SecondsThatWouldPrintBeyondTheirLimitAreTold) {
    // A sixtieth of a degree, 2.908882086657213E-4 radians, less 3E-19 radians, which are 6E-14 seconds.
    const double radians = 2.90888208665721E-4;
    EXPECT_EQ(Angles_GET_TextDMS(radians, 14, false), "-99999");
    ExpectSecondsToldOnly("0 00 59.99999999999994");
    EXPECT_EQ(Angles_GET_TextDMS(radians, 14, true), "-99999");
    ExpectSecondsToldOnly("0\xB0 00' 59.99999999999994\"");
    EXPECT_EQ(Angles_GET_TextDMS(-radians, 14, false), "-99999");
    ExpectSecondsToldOnly("-0 00 59.99999999999994");
    EXPECT_EQ(Angles_GET_TextDMSPacked(radians, 14), "-99999");
    ExpectSecondsToldOnly("0 00 59.99999999999994");
}

TEST_F(Angles, SecondsUpToTheirLimitArePrinted) {
    // With a digit less the same angle prints as the limit itself, with two less as a minute.
    EXPECT_EQ(Angles_GET_TextDMS(2.90888208665721E-4, 13, false), "0 00 59.9999999999999");
    EXPECT_EQ(Angles_GET_TextDMS(2.90888208665721E-4, 12, false), "0 01 00.000000000000");
    // Less 5E-19 radians, which are 10E-14 seconds.
    EXPECT_EQ(Angles_GET_TextDMS(2.908882086657208E-4, 14, false), "0 00 59.99999999999990");
    EXPECT_EQ(Angles_GET_TextDMSPacked(2.908882086657208E-4, 14), "0.005999999999999990");
    ExpectNothingTold(prompts_);
}

TEST_F(Angles, PackedAnglesArePrinted) {
    const double radians = 45.5043055555556 * ToRadians;
    EXPECT_EQ(Angles_GET_TextDMSPacked(radians, 1), "45.30155");
    EXPECT_EQ(Angles_GET_TextDMSPacked(radians, 5), "45.301550000");
    EXPECT_EQ(Angles_GET_TextDMSPacked(radians, 5, true), "45.301550000");
    EXPECT_EQ(Angles_GET_TextDMSPacked(-radians, 1), "-45.30155");
    EXPECT_EQ(Angles_GET_TextDMSPacked(5.0847222222222 * ToRadians, 3), "5.0505000");
    EXPECT_EQ(Angles_GET_TextDMSPacked(-0.5 * ToRadians, 0), "-0.3000");
    EXPECT_EQ(Angles_GET_TextDMSPacked(0, 0), "0.0000");
}

TEST_F(Angles, DegreesAndMinutesAloneKnowTheNoValueNumber) {
    const double radians = -99999.0 / ToDegrees;
    EXPECT_EQ(Angles_GET_TextDM(radians, 2, false), "-99999.000000");
    EXPECT_EQ(Angles_GET_TextDM(radians, 2, true), "-99999.000000");
    EXPECT_EQ(Angles_GET_TextDMS(radians, 2, false), "-99999 00 00.00");
}

TEST_F(Angles, AnAngleThatIsNotFiniteIsAnOverflow) {
    const double infinite = HUGE_VAL;
    EXPECT_EQ(FaultNumberOf([&] { Angles_GET_TextDegrees(infinite, 2, false); }), 6);
    EXPECT_EQ(FaultNumberOf([&] { Angles_GET_TextDM(-infinite, 2, false); }), 6);
    EXPECT_EQ(FaultNumberOf([&] { Angles_GET_TextDMS(std::nan(""), 2, false); }), 6);
    EXPECT_EQ(FaultNumberOf([&] { Angles_GET_TextDMSPacked(infinite, 2); }), 6);
}

// ---- Both ways, against a computation of its own ----

// The numbers in a text, blanks and all marks apart, with their shape: "9 99 99.99" for every digit.
struct Parts {
    std::vector<long double> numbers;
    std::string shape;
    bool negative = false;
};

Parts PartsOf(const std::string& text) {
    Parts parts;
    std::size_t at = 0;
    if (text[0] == '-') parts.negative = ++at > 0;
    for (const char c : text.substr(at))
        parts.shape += std::isdigit(static_cast<unsigned char>(c)) != 0 ? '9' : c;
    while (at < text.size()) {
        std::size_t end = text.find(' ', at);
        if (end == std::string::npos) end = text.size();
        parts.numbers.push_back(std::strtold(text.substr(at, end - at).c_str(), nullptr));
        at = end + 1;
    }
    return parts;
}

long double DegreesOf(const Parts& parts) {
    long double degrees = 0;
    for (std::size_t i = parts.numbers.size(); i-- > 0;) degrees = degrees / 60 + parts.numbers[i];
    return parts.negative ? -degrees : degrees;
}

TEST_F(Angles, RandomAnglesPrintWithinTheirRounding) {
    std::mt19937_64 random(42);
    std::uniform_real_distribution<double> radians(-2 * FullCircle, 2 * FullCircle);
    for (int i = 0; i < 20000; ++i) {
        const double angle = i % 7 == 0 ? radians(random) / 1000 : radians(random);
        const int decimals = i % 6;
        const long double exact = static_cast<long double>(angle) * 57.29577951308238L;
        const long double unit = std::pow(10.0L, -decimals);
        const long double rounding = unit / 10000 / 2 + 1e-12L;  // of the degrees, before they are parted

        const std::string dms = Angles_GET_TextDMS(angle, decimals, false);
        const Parts parts = PartsOf(dms);
        EXPECT_LE(std::fabs(DegreesOf(parts) - exact), unit / 3600 / 2 + rounding) << dms;
        EXPECT_EQ(parts.shape.substr(parts.shape.find(' ')),
                  " 99 99." + std::string(std::size_t(decimals), '9'));
        EXPECT_LT(parts.numbers[1], 60) << dms;
        EXPECT_LT(parts.numbers[2], 60) << dms;

        const std::string packed = Angles_GET_TextDMSPacked(angle, decimals);
        std::string joined = dms;
        joined.erase(joined.find('.'), 1);
        joined.replace(joined.find(' '), 1, ".");
        joined.erase(joined.find(' '), 1);
        EXPECT_EQ(packed, joined);

        const std::string dm = Angles_GET_TextDM(angle, decimals, false);
        const Parts minutes = PartsOf(dm);
        EXPECT_LE(std::fabs(DegreesOf(minutes) - exact), unit / 60 / 2 + rounding) << dm;
        EXPECT_EQ(minutes.shape.substr(minutes.shape.find(' ')),
                  " 99." + std::string(std::size_t(decimals), '9'));
        EXPECT_LT(minutes.numbers[1], 60) << dm;

        const std::string degrees = Angles_GET_TextDegrees(angle, decimals, false);
        EXPECT_LE(std::fabs(std::strtold(degrees.c_str(), nullptr) - exact), unit / 2 + 1e-12L) << degrees;
        if (HasFailure()) break;
    }
    ExpectNothingTold(prompts_);
}

TEST_F(Angles, RandomTextsAreReadToFifteenDigits) {
    std::mt19937 random(43);
    for (int i = 0; i < 20000; ++i) {
        const int degrees = static_cast<int>(random() % 720) - 360;
        const int minutes = static_cast<int>(random() % 60);
        const int seconds = static_cast<int>(random() % 60000000);  // in millionths
        const long double size = std::abs(degrees) + minutes / 60.0L + seconds / 3.6e9L;
        const long double exact = (degrees < 0 ? -size : size) * 0.017453292519943278L;
        const double tolerance = 0.51 * 1e-12 * 0.0174533 + 1e-15;  // half of the fifteenth digit, below 1000

        char dms[60], packed[60], dm[60];
        std::snprintf(dms, sizeof dms, "%d %d %d.%06d", degrees, minutes, seconds / 1000000,
                      seconds % 1000000);
        std::snprintf(packed, sizeof packed, "%d.%02d%02d%06d", degrees, minutes, seconds / 1000000,
                      seconds % 1000000);
        std::snprintf(dm, sizeof dm, "%d %.17g", degrees, minutes + seconds / 6e7);
        EXPECT_NEAR(Angles_GET_Radians(dms, DMS), static_cast<double>(exact), tolerance) << dms;
        EXPECT_EQ(Angles_GET_Radians(packed, Packed), Angles_GET_Radians(dms, DMS)) << packed;
        EXPECT_NEAR(Angles_GET_Radians(dm, DM), static_cast<double>(exact), 2 * tolerance) << dm;
        if (HasFailure()) break;
    }
    ExpectNothingTold(prompts_);
}

TEST_F(Angles, WhatIsPrintedIsReadBackAsPrinted) {
    std::mt19937_64 random(44);
    std::uniform_real_distribution<double> radians(0.02,
                                                   FullCircle);  // from 1 degree on, for the sign's sake
    for (int i = 0; i < 5000; ++i) {
        const double angle = i % 2 == 0 ? radians(random) : -radians(random);
        const std::string dms = Angles_GET_TextDMS(angle, 5, false);
        EXPECT_EQ(Angles_GET_TextDMS(Angles_GET_RadFromDMS(dms), 5, false), dms);
        const std::string packed = Angles_GET_TextDMSPacked(angle, 5);
        EXPECT_EQ(Angles_GET_TextDMSPacked(Angles_GET_RadFromDMSPacked(packed), 5), packed);
        const std::string dm = Angles_GET_TextDM(angle, 5, false);
        EXPECT_EQ(Angles_GET_TextDM(Angles_GET_RadFromDM(dm), 5, false), dm);
        const std::string degrees = Angles_GET_TextDegrees(angle, 9, false);
        EXPECT_EQ(Angles_GET_TextDegrees(Angles_GET_RadFromDegrees(degrees), 9, false), degrees);
        if (HasFailure()) break;
    }
    ExpectNothingTold(prompts_);
}

// ---- Directions ----

TEST_F(Angles, EveryPairOfDirectionsGivesItsValue) {
    struct Pair {
        const char* in;
        const char* out;
        double ofPlus;   // the result for +0.5
        double ofMinus;  // the result for -0.5
    };
    const double c = FullCircle;
    const Pair pairs[] = {
        {"N", "N", 0.5, -0.5},
        {"N", "S", -0.5, 0.5},
        {"S", "S", 0.5, -0.5},
        {"S", "N", -0.5, 0.5},
        {"E", "E", 0.5, -0.5 + c},
        {"E", "W", c - 0.5, c - (-0.5 + c)},
        {"E", "-W", 0.5 - c, -0.5 + c - c},
        {"W", "W", 0.5, -0.5 + c},
        {"W", "E", c - 0.5, c - (-0.5 + c)},
        {"W", "-W", -0.5, -(-0.5 + c)},
        {"-W", "W", -0.5 + c, 0.5},
        {"-W", "E", c - (-0.5 + c), c - 0.5},
        {"-W", "-W", -(-0.5 + c), -0.5},
    };
    const char* directions[] = {"N", "S", "E", "W", "-W", "", "n", "e", "NE", "-E", "w", " W"};
    for (const char* in : directions)
        for (const char* out : directions) {
            double ofPlus = None, ofMinus = None;
            for (const Pair& pair : pairs)
                if (std::string_view(pair.in) == in && std::string_view(pair.out) == out) {
                    ofPlus = pair.ofPlus;
                    ofMinus = pair.ofMinus;
                }
            EXPECT_EQ(Angles_GET_Direction(0.5, in, out), ofPlus) << in << " to " << out;
            EXPECT_EQ(Angles_GET_Direction(-0.5, in, out), ofMinus) << in << " to " << out;
            EXPECT_EQ(Angles_GET_Direction(None, in, out), None) << in << " to " << out;
        }
    ExpectNothingTold(prompts_);
}

TEST_F(Angles, LongitudesOfTheDirectionsAreThoseOfTheMap) {
    EXPECT_NEAR(Angles_GET_Direction(-89 * ToRadians, "-W", "W") * ToDegrees, 89, 1e-12);
    EXPECT_NEAR(Angles_GET_Direction(271 * ToRadians, "E", "W") * ToDegrees, 89, 1e-12);
    EXPECT_NEAR(Angles_GET_Direction(-89 * ToRadians, "E", "W") * ToDegrees, 89, 1e-12);
    EXPECT_NEAR(Angles_GET_Direction(10 * ToRadians, "E", "-W") * ToDegrees, -350, 1e-12);
    EXPECT_NEAR(Angles_GET_Direction(89 * ToRadians, "W", "-W") * ToDegrees, -89, 1e-12);
    EXPECT_NEAR(Angles_GET_Direction(89 * ToRadians, "W", "E") * ToDegrees, 271, 1e-12);
}

TEST_F(Angles, ZeroBecomesAFullCircleAcrossTheMeridian) {
    EXPECT_EQ(Angles_GET_Direction(0, "E", "W"), FullCircle);
    EXPECT_EQ(Angles_GET_Direction(0, "W", "E"), FullCircle);
    EXPECT_EQ(Angles_GET_Direction(0, "E", "-W"), -FullCircle);
    EXPECT_EQ(Angles_GET_Direction(0, "E", "E"), 0);
}

}  // namespace
}  // namespace tarvek::test
