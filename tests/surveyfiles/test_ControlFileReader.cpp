// Reading control files: what every tag fills, and every refusal.

#include <cmath>

#include "surveyTest.hpp"

namespace tarvek {
namespace {

using test::ExpectNothingTold;
using test::ExpectToldOnly;
using test::RadiansOf;

class ControlFileReader : public test::SurveyTest {
  protected:
    const PointRecord& Point(std::size_t index) const { return Tables().InputPoints[index]; }
    const CoordSystemRef& System() const { return Tables().InputHeader.System; }

    // Reads a point of this one line behind an empty header.
    const PointRecord& PointOf(std::string_view line) {
        EXPECT_TRUE(ReadLines({"AC:PR", "AC:OS", line})) << line;
        EXPECT_EQ(Tables().InputPoints.size(), 1U) << line;
        return Point(0);
    }

    // Expects that the line, the second of its file, is refused in the words of a field fault.
    void ExpectFieldRefused(std::string_view line, std::string_view reason) {
        SCOPED_TRACE(line);
        prompts.told.clear();
        Tables().InputHeader.PR = "PR:before";
        EXPECT_FALSE(ReadLines({"AC:PR", line, "PN:NEXT"}));
        const std::string file = folder.File("input.ctl");
        ExpectToldOnly(
            prompts,
            "Invalid Tarvek Points and Chains File: '" + file + "'\nError on Line: 2\n" + std::string(reason),
            "Invalid Tarvek Points and Chains File");
        EXPECT_EQ(Tables().InputHeader.PR, "PR:before");
    }

    void ExpectFileRefused(std::string_view bytes, int lineNumber, std::string_view reason) {
        SCOPED_TRACE(reason);
        prompts.told.clear();
        EXPECT_FALSE(ReadBytesAsControlFile(bytes));
        ExpectToldOnly(prompts,
                       "Invalid Tarvek Control File '" + folder.File("input.ctl") + "'.\nError on line " +
                           std::to_string(lineNumber) + ".\n" + std::string(reason),
                       "Invalid Tarvek Control File");
        EXPECT_FALSE(Tables().InputPoints.IsAllocated());
    }
};

constexpr std::string_view BlankLine = "An Tarvek Control File can not contain blank lines.";
constexpr std::string_view Computed = "An Tarvek Control File can not contain computed coordinates.";

// The file as a whole

TEST_F(ControlFileReader, TellsAMissingFile) {
    const std::string path = folder.File("none.ctl");
    EXPECT_FALSE(ReadControlFile(path));
    ExpectToldOnly(prompts, "The file '" + path + "' can not be found.", "File Not Found");
}

TEST_F(ControlFileReader, TakesAFolderForNoFile) {
    EXPECT_FALSE(ReadControlFile(folder.Path()));
    ExpectToldOnly(prompts, "The file '" + folder.Path() + "' can not be found.", "File Not Found");
}

TEST_F(ControlFileReader, GivesOneFreshPointForAnEmptyFile) {
    EXPECT_TRUE(ReadBytesAsControlFile(""));
    ASSERT_EQ(Tables().InputPoints.size(), 1U);
    EXPECT_EQ(Point(0).PN, "");
    EXPECT_EQ(Point(0).GM, "P");
    EXPECT_EQ(Point(0).Y, -99999.0);
    ExpectNothingTold(prompts);
}

TEST_F(ControlFileReader, GivesOneFreshPointForAHeaderAlone) {
    EXPECT_TRUE(ReadLines({"AC:PR", "UL:M"}));
    ASSERT_EQ(Tables().InputPoints.size(), 1U);
    EXPECT_EQ(Point(0).PN, "");
    EXPECT_EQ(Point(0).HorizontalUnits, "Meters");
}

TEST_F(ControlFileReader, ReadsALastLineWithoutLineEnd) {
    EXPECT_TRUE(ReadBytesAsControlFile("AC:PR\r\nAC:OS\r\nPN:LAST"));
    EXPECT_EQ(Point(0).PN, "LAST");
}

TEST_F(ControlFileReader, ReadsEveryKindOfLineEnd) {
    for (const std::string_view bytes :
         {"AC:PR\nAC:OS\nPN:A\nAC:OS\nPN:B\n", "AC:PR\rAC:OS\rPN:A\rAC:OS\rPN:B\r",
          "AC:PR\r\nAC:OS\nPN:A\rAC:OS\r\nPN:B"}) {
        ASSERT_TRUE(ReadBytesAsControlFile(bytes)) << bytes;
        ASSERT_EQ(Tables().InputPoints.size(), 2U) << bytes;
        EXPECT_EQ(Point(0).PN, "A");
        EXPECT_EQ(Point(1).PN, "B");
    }
}

TEST_F(ControlFileReader, ReplacesWhatTheTablesHeld) {
    ASSERT_TRUE(ReadLines({"PR:old", "AC:PR", "CM:old", "CS:OLD", "UL:M", "AC:OS", "PN:A", "AC:OS", "PN:B"}));
    Tables().InputChains.Append({});
    ASSERT_TRUE(ReadLines({"AC:PR", "AC:OS", "PN:C"}));
    EXPECT_EQ(Tables().InputHeader.PR, "");
    EXPECT_EQ(Tables().InputHeader.HeaderLines, "");
    EXPECT_EQ(System().CS, "");
    EXPECT_EQ(System().HorizontalUnits, "");
    ASSERT_EQ(Tables().InputPoints.size(), 1U);
    EXPECT_EQ(Point(0).PN, "C");
    EXPECT_FALSE(Tables().InputChains.IsAllocated());
}

TEST_F(ControlFileReader, KeepsTheTablesWhenItRefuses) {
    ASSERT_TRUE(ReadLines({"PR:old", "AC:PR", "CS:OLD", "AC:OS", "PN:A", "AC:OS", "PN:B"}));
    ASSERT_FALSE(ReadLines({"PR:new", "AC:PR", "CS:NEW", "AC:OS", "PN:C", "YC:bad"}));
    EXPECT_EQ(Tables().InputHeader.PR, "PR:old");
    EXPECT_EQ(System().CS, "OLD");
    ASSERT_EQ(Tables().InputPoints.size(), 2U);
    EXPECT_EQ(Point(1).PN, "B");
}

// Header tags

TEST_F(ControlFileReader, KeepsTheProjectLineWholeWhereverItStands) {
    ASSERT_TRUE(ReadLines({"AC:PR", "AC:OS", "PN:A", "PR:Late project"}));
    EXPECT_EQ(Tables().InputHeader.PR, "PR:Late project");
    EXPECT_EQ(Point(0).Others, "");
}

TEST_F(ControlFileReader, KeepsTheLastOfSeveralProjectLines) {
    ASSERT_TRUE(ReadLines({"PR:one", "PR:two", "AC:PR"}));
    EXPECT_EQ(Tables().InputHeader.PR, "PR:two");
}

TEST_F(ControlFileReader, FillsTheCoordinateSystem) {
    ASSERT_TRUE(ReadLines({"AC:PR", "CS:VELCRS", "ZN:ADAMS", "HD:NAD 83", "VD:NAVD 88", "UL:F"}));
    EXPECT_EQ(System().CS, "VELCRS");
    EXPECT_EQ(System().ZN, "ADAMS");
    EXPECT_EQ(System().HD, "NAD 83");
    EXPECT_EQ(System().VD, "NAVD 88");
    EXPECT_EQ(System().HorizontalUnits, "U.S. Survey Feet");
    EXPECT_EQ(System().VerticalUnits, "U.S. Survey Feet");
}

TEST_F(ControlFileReader, TakesAHeaderTagInsideAPoint) {
    ASSERT_TRUE(ReadLines({"AC:PR", "CS:ONE", "AC:OS", "PN:A", "CS:TWO", "ZN:Z", "HD:H", "VD:V"}));
    EXPECT_EQ(System().CS, "TWO");
    EXPECT_EQ(System().ZN, "Z");
    EXPECT_EQ(System().HD, "H");
    EXPECT_EQ(System().VD, "V");
    EXPECT_EQ(Point(0).Others, "");
}

TEST_F(ControlFileReader, KeepsValuesAsTheyStandButForTrailingBlanks) {
    ASSERT_TRUE(ReadLines({"PR: x  ", "AC:PR", "CS: A B   ", "AC:OS", "PN: 7 ", "FE:\t"}));
    EXPECT_EQ(Tables().InputHeader.PR, "PR: x");
    EXPECT_EQ(System().CS, " A B");
    EXPECT_EQ(Point(0).PN, " 7");
    EXPECT_EQ(Point(0).FE, "\t");
}

TEST_F(ControlFileReader, TakesAnEmptyValue) {
    ASSERT_TRUE(ReadLines({"AC:PR", "CS:A", "CS:", "AC:OS", "PN:A", "PN:", "FE:B", "FE:"}));
    EXPECT_EQ(System().CS, "");
    EXPECT_EQ(Point(0).PN, "");
    EXPECT_EQ(Point(0).FE, "");
}

TEST_F(ControlFileReader, CollectsOtherHeaderLines) {
    ASSERT_TRUE(ReadLines({"AC:PR", "CM:one", "RE:two", "VR:old", "DT:old", "xy", "cs:lower", "CS :gap"}));
    EXPECT_EQ(Tables().InputHeader.HeaderLines,
              "CM:one\r\nRE:two\r\nVR:old\r\nDT:old\r\nxy\r\ncs:lower\r\nCS :gap");
    EXPECT_EQ(System().CS, "");
}

// Units

TEST_F(ControlFileReader, KnowsTheUnitByItsFirstLetter) {
    const std::pair<std::string_view, std::string_view> units[] = {
        {"UL:M", "Meters"},
        {"UL:F", "U.S. Survey Feet"},
        {"UL:I", "International Feet"},
        {"UL:Furlongs", "U.S. Survey Feet"},
    };
    for (const auto& [line, name] : units) {
        ASSERT_TRUE(ReadLines({"AC:PR", line, "AC:OS", "PN:A"}));
        EXPECT_EQ(System().HorizontalUnits, name);
        EXPECT_EQ(System().VerticalUnits, name);
        EXPECT_EQ(Point(0).HorizontalUnits, name);
        EXPECT_EQ(Point(0).VerticalUnits, name);
    }
}

TEST_F(ControlFileReader, LeavesTheUnitAtAnyOtherLetter) {
    for (const std::string_view line : {"UL:m", "UL:f", "UL:i", "UL:X", "UL:", "UL: M"}) {
        ASSERT_TRUE(ReadLines({"AC:PR", line, "AC:OS", "PN:A"})) << line;
        EXPECT_EQ(System().HorizontalUnits, "") << line;
        EXPECT_EQ(System().VerticalUnits, "") << line;
        EXPECT_EQ(Point(0).HorizontalUnits, "") << line;
    }
    ASSERT_TRUE(ReadLines({"AC:PR", "UL:F", "UL:X"}));
    EXPECT_EQ(System().HorizontalUnits, "U.S. Survey Feet");
    EXPECT_EQ(System().VerticalUnits, "U.S. Survey Feet");
}

TEST_F(ControlFileReader, GivesEachPointTheUnitInForceWhenItIsClosed) {
    ASSERT_TRUE(ReadLines({"AC:PR", "UL:M", "AC:OS", "PN:A", "AC:OS", "PN:B", "UL:F", "AC:OS", "PN:C"}));
    EXPECT_EQ(Point(0).HorizontalUnits, "Meters");
    EXPECT_EQ(Point(1).HorizontalUnits, "U.S. Survey Feet");
    EXPECT_EQ(Point(1).VerticalUnits, "U.S. Survey Feet");
    EXPECT_EQ(Point(2).HorizontalUnits, "U.S. Survey Feet");
}

// Activity

TEST_F(ControlFileReader, LeavesTheHeaderAtTheFirstActivity) {
    ASSERT_TRUE(ReadLines({"AC:PR", "CM:header", "AC:OS", "PN:A", "CM:point"}));
    ASSERT_EQ(Tables().InputPoints.size(), 1U);
    EXPECT_EQ(Tables().InputHeader.HeaderLines, "CM:header");
    EXPECT_EQ(Point(0).Others, "CM:point");
}

TEST_F(ControlFileReader, ClosesAPointAtEachFurtherActivity) {
    ASSERT_TRUE(ReadLines({"AC:PR", "AC:OS", "PN:A", "AC:SS", "PN:B", "AC:", "PN:C"}));
    ASSERT_EQ(Tables().InputPoints.size(), 3U);
    EXPECT_EQ(Point(0).PN, "A");
    EXPECT_EQ(Point(1).PN, "B");
    EXPECT_EQ(Point(2).PN, "C");
    EXPECT_EQ(Point(1).AC, "");
}

TEST_F(ControlFileReader, KeepsAnEmptyFirstPointOfAFileWithoutHeader) {
    ASSERT_TRUE(ReadLines({"AC:OS", "PN:A", "AC:OS", "PN:B"}));
    ASSERT_EQ(Tables().InputPoints.size(), 3U);
    EXPECT_EQ(Point(0).PN, "");
    EXPECT_EQ(Point(1).PN, "A");
    EXPECT_EQ(Point(2).PN, "B");
}

TEST_F(ControlFileReader, LooksAtTwoLettersOfTheActivity) {
    ASSERT_TRUE(ReadLines({"AC:PROJECT", "CM:header", "AC:OS", "PN:A"}));
    EXPECT_EQ(Tables().InputPoints.size(), 1U);
    EXPECT_EQ(Tables().InputHeader.HeaderLines, "CM:header");
    ASSERT_TRUE(ReadLines({"AC:pr", "CM:not the header", "AC:OS", "PN:A"}));
    EXPECT_EQ(Tables().InputPoints.size(), 3U);
    ASSERT_TRUE(ReadLines({"AC: PR", "AC:OS", "PN:A"}));
    EXPECT_EQ(Tables().InputPoints.size(), 3U);
}

TEST_F(ControlFileReader, GoesBackToTheHeaderWithoutClosingThePoint) {
    ASSERT_TRUE(ReadLines({"AC:PR", "AC:OS", "PN:A", "AC:PR", "CM:header", "AC:OS", "FE:X"}));
    ASSERT_EQ(Tables().InputPoints.size(), 1U);
    EXPECT_EQ(Point(0).PN, "A");
    EXPECT_EQ(Point(0).FE, "X");
    EXPECT_EQ(Tables().InputHeader.HeaderLines, "CM:header");
}

TEST_F(ControlFileReader, GivesPointLinesInTheHeaderToTheFirstPoint) {
    ASSERT_TRUE(ReadLines({"AC:PR", "PN:A", "YC:5", "AC:OS", "XC:6"}));
    ASSERT_EQ(Tables().InputPoints.size(), 1U);
    EXPECT_EQ(Point(0).PN, "A");
    EXPECT_EQ(Point(0).Y, 5);
    EXPECT_EQ(Point(0).X, 6);
}

// Point tags

TEST_F(ControlFileReader, TakesEightCharactersOfAName) {
    EXPECT_EQ(PointOf("PN:12345678").PN, "12345678");
    EXPECT_EQ(PointOf("PN:12345678   ").PN, "12345678");
    ExpectFieldRefused("PN:123456789", "Point Name can not exceeed 8 characters.");
    ExpectFieldRefused("PN:  1234567", "Point Name can not exceeed 8 characters.");
}

TEST_F(ControlFileReader, TakesControlCoordinates) {
    EXPECT_EQ(PointOf("YC:12.5").Y, 12.5);
    EXPECT_TRUE(Point(0).HorizontalControl);
    EXPECT_FALSE(Point(0).VerticalControl);
    EXPECT_EQ(PointOf("XC:-3.25").X, -3.25);
    EXPECT_TRUE(Point(0).HorizontalControl);
    EXPECT_FALSE(Point(0).VerticalControl);
    EXPECT_EQ(PointOf("ZC:7").Z, 7);
    EXPECT_FALSE(Point(0).HorizontalControl);
    EXPECT_TRUE(Point(0).VerticalControl);
}

TEST_F(ControlFileReader, TakesEveryOtherNumber) {
    EXPECT_EQ(PointOf("HE:1.125").HE, 1.125);
    EXPECT_EQ(PointOf("HG:-30.5").HG, -30.5);
    EXPECT_EQ(PointOf("SF:0.9996").SF, 0.9996);
    EXPECT_EQ(PointOf("SX:0.1").SX, 0.1F);
    EXPECT_EQ(PointOf("SY:0.2").SY, 0.2F);
    EXPECT_EQ(PointOf("SZ:0.3").SZ, 0.3F);
}

TEST_F(ControlFileReader, TakesEveryFormOfANumber) {
    EXPECT_EQ(PointOf("YC: 12.5 ").Y, 12.5);
    EXPECT_EQ(PointOf("YC:+1").Y, 1);
    EXPECT_EQ(PointOf("YC:1.").Y, 1);
    EXPECT_EQ(PointOf("YC:.5").Y, 0.5);
    EXPECT_EQ(PointOf("YC:-.5").Y, -0.5);
    EXPECT_EQ(PointOf("YC:1.5E2").Y, 150);
    EXPECT_EQ(PointOf("YC:1.5e-1").Y, 0.15);
    EXPECT_EQ(PointOf("YC:1e+2").Y, 100);
    EXPECT_EQ(PointOf("YC:1e-400").Y, 0);
    EXPECT_EQ(PointOf("YC:0000000000000000000000000000000000000012").Y, 12);
}

TEST_F(ControlFileReader, TakesPackedAngles) {
    constexpr double Tolerance = 1e-14;
    EXPECT_NEAR(PointOf("LT:45.30155").LT, RadiansOf(45, 30, 15.5), Tolerance);
    EXPECT_NEAR(PointOf("LG:121.3015512").LG, RadiansOf(121, 30, 15.512), Tolerance);
    EXPECT_NEAR(PointOf("CA:1.0203").CA, RadiansOf(1, 2, 3), Tolerance);
    EXPECT_NEAR(PointOf("LT:45.3").LT, RadiansOf(45, 30, 0), Tolerance);
    EXPECT_NEAR(PointOf("LT:45.301").LT, RadiansOf(45, 30, 0), Tolerance);
    EXPECT_NEAR(PointOf("LT:45").LT, RadiansOf(45, 0, 0), Tolerance);
    EXPECT_NEAR(PointOf("LT:.3000").LT, RadiansOf(0, 30, 0), Tolerance);
    EXPECT_NEAR(PointOf("CA:-1.3000").CA, -RadiansOf(1, 30, 0), Tolerance);
    EXPECT_NEAR(PointOf("CA:-0.3000").CA, RadiansOf(0, 30, 0), Tolerance);
    EXPECT_EQ(Point(0).LatDir, "N");
    EXPECT_EQ(Point(0).LongDir, "W");
    ExpectNothingTold(prompts);
}

TEST_F(ControlFileReader, TellsAnAngleBeyondItsLimitsAndGoesOn) {
    const PointRecord& minutes = PointOf("LT:45.6000");
    EXPECT_EQ(minutes.LT, -99999.0);
    ExpectToldOnly(prompts, "Invalid Angle '45.6000'. Minutes portion must be positive and not exceed 59.",
                   "Invalid Angle");
    prompts.told.clear();
    EXPECT_EQ(PointOf("CA:1.0060").CA, -99999.0);
    ExpectToldOnly(
        prompts, "Invalid Angle '1.0060'. Seconds portion must be positive and not exceed 59.9999999999999.",
        "Invalid Angle");
}

TEST_F(ControlFileReader, TakesTheMarkerForNoValue) {
    EXPECT_EQ(PointOf("YC:-99999").Y, -99999.0);
    EXPECT_EQ(PointOf("HE:-99999.000").HE, -99999.0);
    EXPECT_EQ(PointOf("SX:-99999").SX, -99999.0F);
    EXPECT_EQ(PointOf("SF:-9.9999e4").SF, -99999.0);
    EXPECT_EQ(PointOf("LT:-99999").LT, -99999.0);
    EXPECT_EQ(PointOf("LG:-99999").LG, -99999.0);
    EXPECT_EQ(PointOf("CA:-99999.0").CA, -99999.0);
    ExpectNothingTold(prompts);
}

TEST_F(ControlFileReader, KeepsDescriptionLinesWithTheirTag) {
    ASSERT_TRUE(ReadLines({"AC:PR", "AC:OS", "PD:one", "FE:X", "PD:", "PD: two"}));
    EXPECT_EQ(Point(0).PD, "PD:one\r\nPD:\r\nPD: two");
}

TEST_F(ControlFileReader, KeepsTheLastOfARepeatedTag) {
    ASSERT_TRUE(ReadLines({"AC:PR", "AC:OS", "PN:A", "PN:B", "FE:1", "FE:2", "YC:1", "YC:2"}));
    EXPECT_EQ(Point(0).PN, "B");
    EXPECT_EQ(Point(0).FE, "2");
    EXPECT_EQ(Point(0).Y, 2);
}

TEST_F(ControlFileReader, TakesEveryTextTag) {
    EXPECT_EQ(PointOf("FE:IPF").FE, "IPF");
    EXPECT_EQ(PointOf("GM:N").GM, "N");
    EXPECT_EQ(PointOf("CL:2").CL, "2");
    EXPECT_EQ(PointOf("GR:9").GR, "9");
    EXPECT_EQ(Point(0).GM, "P");
    EXPECT_EQ(PointOf("GM:").GM, "");
}

TEST_F(ControlFileReader, CollectsOtherLinesOfAPoint) {
    ASSERT_TRUE(
        ReadLines({"AC:PR", "AC:OS", "CM:one", "GD:GEOID99", "pn:lower", "PN", ":", "CD:x", "AC:OS", "x"}));
    EXPECT_EQ(Point(0).Others, "CM:one\r\nGD:GEOID99\r\npn:lower\r\nPN\r\n:\r\nCD:x");
    EXPECT_TRUE(Point(0).GD.empty());
    EXPECT_EQ(Point(1).Others, "x");
}

TEST_F(ControlFileReader, StartsEachPointFresh) {
    ASSERT_TRUE(ReadLines({"AC:PR", "AC:OS", "PN:A", "GM:N", "CL:1", "FE:1", "PD:x", "YC:1",
                           "XC:1",  "ZC:1",  "SX:1", "SY:1", "SZ:1", "LT:1", "LG:1", "HE:1",
                           "HG:1",  "CA:1",  "SF:1", "GR:1", "CM:x", "AC:OS"}));
    ASSERT_EQ(Tables().InputPoints.size(), 2U);
    const PointRecord& fresh = Point(1);
    EXPECT_EQ(fresh.PN + fresh.PD + fresh.Others, "");
    EXPECT_EQ(fresh.GM, "P");
    EXPECT_TRUE(fresh.CL.empty() && fresh.FE.empty() && fresh.GR.empty());
    for (const double value :
         {fresh.Y, fresh.X, fresh.Z, fresh.LT, fresh.LG, fresh.HE, fresh.HG, fresh.CA, fresh.SF,
          static_cast<double>(fresh.SX), static_cast<double>(fresh.SY), static_cast<double>(fresh.SZ)})
        EXPECT_EQ(value, -99999.0);
    EXPECT_FALSE(fresh.HorizontalControl || fresh.VerticalControl || fresh.IsGeographic);
}

// Refusals

struct NumericTag {
    std::string_view tag;
    std::string_view reason;
};

constexpr NumericTag NumericTags[] = {
    {"XC:", "Easting Coordinate must be numeric."},
    {"YC:", "Northing Coordinate must be numeric."},
    {"ZC:", "Elevation Coordinate must be numeric."},
    {"SX:", "Easting Error Estimate must be numeric."},
    {"SY:", "Northing Error Estimate must be numeric."},
    {"SZ:", "Elevation Error Estimate must be numeric."},
    {"LT:", "Latitude must be numeric."},
    {"LG:", "Longitude must be numeric."},
    {"HE:", "Ellipsoid Height must be numeric."},
    {"HG:", "Geoid Height must be numeric."},
    {"CA:", "Convergance Angle must be numeric."},
    {"SF:", "Scale Factor must be numeric."},
};

TEST_F(ControlFileReader, RefusesWhatIsNoNumberInTheWordsOfTheTag) {
    for (const NumericTag& row : NumericTags) ExpectFieldRefused(std::string(row.tag) + "abc", row.reason);
}

TEST_F(ControlFileReader, RefusesEveryTextThatIsNoNumber) {
    for (const NumericTag& row : NumericTags)
        for (const std::string_view value :
             {"",         "   ",   "1 2",    "--1",   "+-1", "0x10",        "1e",  "1e+",
              ".",        "+",     "-",      "1.2.3", "nan", "NaN",         "inf", "-inf",
              "Infinity", "1e400", "-1e400", "1d5",   "1\t", "\xEF\xBC\x91"})
            ExpectFieldRefused(std::string(row.tag) + std::string(value), row.reason);
}

TEST_F(ControlFileReader, RefusesComputedCoordinatesWhateverTheirValue) {
    for (const std::string_view tag : {"XX:", "YY:", "ZZ:"})
        for (const std::string_view value : {"1", "", "abc"})
            ExpectFileRefused("AC:PR\r\nAC:OS\r\n" + std::string(tag) + std::string(value) + "\r\n", 3,
                              Computed);
}

TEST_F(ControlFileReader, RefusesABlankLineByItsNumber) {
    ExpectFileRefused("\r\n", 1, BlankLine);
    ExpectFileRefused("AC:PR\r\n\r\nAC:OS\r\n", 2, BlankLine);
    ExpectFileRefused("AC:PR\r\nAC:OS\r\n     \r\n", 3, BlankLine);
    ExpectFileRefused("AC:PR\nAC:OS\n\n", 3, BlankLine);
    ExpectFileRefused("AC:PR\rAC:OS\r\rPN:A", 3, BlankLine);
    ExpectFileRefused("AC:PR\r\nPN:A\r\n   ", 3, BlankLine);
}

TEST_F(ControlFileReader, TakesATabForNoBlank) {
    ASSERT_TRUE(ReadLines({"AC:PR", "\t", "\t  "}));
    EXPECT_EQ(Tables().InputHeader.HeaderLines, "\t\r\n\t");
}

TEST_F(ControlFileReader, TellsTheFirstFaultOnly) {
    EXPECT_FALSE(ReadLines({"AC:PR", "YC:a", "XC:b", ""}));
    EXPECT_EQ(prompts.told.size(), 1U);
}

}  // namespace
}  // namespace tarvek
