// The conversion between meters and the two feet.

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "coordmath/modDistances.hpp"
#include "support/testSupport.hpp"

namespace tarvek::test {
namespace {

struct UnitNames {
    const char* name;
    const char* letter;
};

constexpr UnitNames Meters = {"Meters", "M"};
constexpr UnitNames SurveyFeet = {"U.S. Survey Feet", "F"};
constexpr UnitNames InternationalFeet = {"International Feet", "I"};
constexpr UnitNames AllUnits[] = {Meters, SurveyFeet, InternationalFeet};

// Converts under all four pairs of names, which are to agree.
double Convert(double value, const UnitNames& from, const UnitNames& to) {
    const double result = Distances_GET_Convert(value, from.name, to.name);
    EXPECT_EQ(Distances_GET_Convert(value, from.name, to.letter), result) << from.name << ' ' << to.letter;
    EXPECT_EQ(Distances_GET_Convert(value, from.letter, to.name), result) << from.letter << ' ' << to.name;
    EXPECT_EQ(Distances_GET_Convert(value, from.letter, to.letter), result)
        << from.letter << ' ' << to.letter;
    return result;
}

TEST(Distances, TheSurveyFootIs1200Over3937Meters) {
    EXPECT_DOUBLE_EQ(Convert(1200, Meters, SurveyFeet), 3937);
    EXPECT_DOUBLE_EQ(Convert(3937, SurveyFeet, Meters), 1200);
    EXPECT_EQ(Convert(1, Meters, SurveyFeet), 3.2808333333333333);
    EXPECT_EQ(Convert(1, SurveyFeet, Meters), 0.3048006096012192);
}

TEST(Distances, TheInternationalFootHasATenDigitFactorOneWayAndAnExactOneBack) {
    EXPECT_EQ(Convert(1, Meters, InternationalFeet), 3.280839895);
    EXPECT_EQ(Convert(1, InternationalFeet, Meters), 0.3048);
    EXPECT_DOUBLE_EQ(Convert(1000, Meters, InternationalFeet), 3280.839895);
    EXPECT_DOUBLE_EQ(Convert(1250, InternationalFeet, Meters), 381);
}

TEST(Distances, TheFeetLieTwoPartsInAMillionApart) {
    EXPECT_DOUBLE_EQ(Convert(1e6, SurveyFeet, InternationalFeet), 1000002);
    EXPECT_DOUBLE_EQ(Convert(1e6, InternationalFeet, SurveyFeet), 999998);
}

// 1.000002 times 0.999998 lacks 4 parts in 10^12, and so does 3.280839895 times 0.3048.
TEST(Distances, TripsOverRoundedFactorsDoNotComeBackExactly) {
    const double feet = Convert(Convert(1e6, SurveyFeet, InternationalFeet), InternationalFeet, SurveyFeet);
    EXPECT_NEAR(feet, 1e6 - 4e-6, 1e-9);
    const double meters = Convert(Convert(1e6, Meters, InternationalFeet), InternationalFeet, Meters);
    EXPECT_NEAR(meters, 1e6 - 4e-6, 1e-9);
    EXPECT_NE(meters, 1e6);
}

TEST(Distances, AUnitIntoItselfIsExactUnderAnyOfItsNames) {
    for (const UnitNames& unit : AllUnits)
        for (const double value : {10.0, 0.1, -1e300, 0.0})
            EXPECT_EQ(Convert(value, unit, unit), value) << unit.name;
}

TEST(Distances, SignAndZeroPassThroughEveryConversion) {
    for (const UnitNames& from : AllUnits)
        for (const UnitNames& to : AllUnits) {
            EXPECT_EQ(Convert(0, from, to), 0);
            EXPECT_EQ(Convert(-12.5, from, to), -Convert(12.5, from, to));
        }
}

TEST(Distances, NoValueStaysNoValue) {
    for (const UnitNames& from : AllUnits)
        for (const UnitNames& to : AllUnits) EXPECT_EQ(Convert(-99999.0, from, to), -99999.0);
    EXPECT_EQ(Distances_GET_Convert(-99999.0, "M", "F"), -99999.0);
    EXPECT_EQ(Distances_GET_Convert(-99999.0, "M", "M"), -99999.0);
    EXPECT_EQ(Distances_GET_Convert(-99999.0, "Chains", "M"), -99999.0);
    EXPECT_EQ(Distances_GET_Convert(-99999.5, "I", "M"), -99999.5 * 0.3048);
}

TEST(Distances, AnUnknownUnitToConvertFromLeavesTheValue) {
    for (const char* unit : {"Chains", "", "m", "meters", "METERS", "Meters ", "US Survey Feet", "MF"}) {
        EXPECT_EQ(Distances_GET_Convert(10, unit, "M"), 10) << unit;
        EXPECT_EQ(Distances_GET_Convert(10, unit, "International Feet"), 10) << unit;
        EXPECT_EQ(Distances_GET_Convert(10, unit, "Rods"), 10) << unit;
    }
}

TEST(Distances, AnUnknownUnitToConvertToGivesNoValue) {
    for (const UnitNames& from : AllUnits)
        for (const char* unit : {"Chains", "", "m", "meters", "METERS", "Meters ", "US Survey Feet", "MF"}) {
            EXPECT_EQ(Distances_GET_Convert(10, from.name, unit), -99999.0) << unit;
            EXPECT_EQ(Distances_GET_Convert(10, from.letter, unit), -99999.0) << unit;
        }
}

TEST(Distances, LettersAndLongNamesStandForEachOther) {
    for (const UnitNames& unit : AllUnits) {
        EXPECT_EQ(Distances_GET_UnitName(unit.letter[0]), unit.name);
        EXPECT_EQ(Distances_GET_UnitLetter(unit.name), unit.letter);
        EXPECT_EQ(Distances_GET_UnitLetter(unit.letter), "");
    }
    for (const char letter : {'m', 'X', ' ', '\0'}) EXPECT_EQ(Distances_GET_UnitName(letter), "");
    for (const char* name : {"", "meters", "Chains", "DDD.MMSSssss"})
        EXPECT_EQ(Distances_GET_UnitLetter(name), "") << name;
}

TEST(Distances, TheSameTextTwiceLeavesTheValueWhateverItSays) {
    EXPECT_EQ(Distances_GET_Convert(10, "Chains", "Chains"), 10);
    EXPECT_EQ(Distances_GET_Convert(10, "", ""), 10);
    const double infinite = std::numeric_limits<double>::infinity();
    EXPECT_EQ(Distances_GET_Convert(infinite, "M", "M"), infinite);
}

// ---- Many values ----

TEST(DistanceConversion, IsTheConversionOfOneValueWithItsUnitsLookedUpBefore) {
    for (const char* from : {"Meters", "F", "I", "Chains", ""})
        for (const char* to : {"M", "U.S. Survey Feet", "International Feet", "Chains", ""}) {
            const DistanceConversion conversion(from, to);
            for (const double value : {0.0, -12.5, 1e300, -99999.0})
                EXPECT_EQ(conversion(value), Distances_GET_Convert(value, from, to)) << from << ' ' << to;
        }
}

TEST(RecordDistances, TakesTheUnitOfEveryRecordAnew) {
    RecordDistances lengths("Meters");
    EXPECT_EQ(lengths.Unit(), "Meters");
    EXPECT_EQ(lengths.Convert(10.0, "Meters"), 10);
    EXPECT_EQ(lengths.Convert(10.0, "I"), 3.048);
    EXPECT_EQ(lengths.Convert(10.0, "U.S. Survey Feet"), 3.048006096012192);
    EXPECT_EQ(lengths.Convert(10.0, "Chains"), 10);
    EXPECT_EQ(lengths.Convert(10.0, "I"), 3.048);
    EXPECT_EQ(lengths.Convert(-99999.0, "I"), -99999);
    EXPECT_EQ(lengths.Convert(10.0, "Meters"), 10);
}

TEST(RecordDistances, ToAnUnknownUnitLeavesWhatIsInItAndNothingElse) {
    RecordDistances lengths("Chains");
    EXPECT_EQ(lengths.Convert(10.0, "Chains"), 10);
    EXPECT_EQ(lengths.Convert(10.0, "Meters"), -99999);
    EXPECT_EQ(lengths.Convert(10.0F, "F"), -99999.0F);
    EXPECT_EQ(lengths.Convert(10.0, ""), 10);
}

// Widened, multiplied in 64 bits, and rounded to 32 once more.
TEST(RecordDistances, SinglesAreConvertedInDoubles) {
    RecordDistances lengths("Meters");
    const float converted = lengths.Convert(0.7F, "F");
    EXPECT_EQ(converted, static_cast<float>(static_cast<double>(0.7F) * 0.3048006096012192));
    EXPECT_NE(converted, 0.7F * 0.3048006096012192F);
    EXPECT_EQ(lengths.Convert(-99999.0F, "F"), -99999.0F);
    EXPECT_EQ(lengths.Convert(1.1F, "Meters"), 1.1F);
}

TEST(RecordDistances, ASingleBeyondItsRangeIsAnOverflow) {
    RecordDistances lengths("U.S. Survey Feet");
    EXPECT_EQ(FaultOf([&] { lengths.Convert(3e38F, "Meters"); }), Fault::Overflow);
    EXPECT_EQ(FaultOf([&] { lengths.Convert(-3e38F, "Meters"); }), Fault::Overflow);
    EXPECT_NO_THROW(lengths.Convert(1e38F, "Meters"));
}

}  // namespace
}  // namespace tarvek::test
