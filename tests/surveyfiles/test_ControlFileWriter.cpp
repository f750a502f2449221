// Writing control files: the header, the lines of a point in their order, units, print flags and messages.

#include "surveyTest.hpp"

namespace tarvek {
namespace {

using test::ExpectNothingTold;
using test::Lines;
using test::RadiansOf;

class ControlFileWriter : public test::SurveyTest {
  protected:
    CoordSystemRef& System() { return Tables().OutputHeader.System; }

    // Appends a point to the output that names no unit and has a position of round numbers.
    PointRecord& AddPoint(const std::string& name) {
        PointRecord point;
        point.PN = name;
        point.Y = 1;
        point.X = 2;
        point.Z = 3;
        Tables().OutputPoints.Append(point);
        return Tables().OutputPoints.Change(Tables().OutputPoints.size() - 1);
    }

    // What the writer prints behind the header, which names no unit unless the test has set one.
    std::string WrittenPoints() {
        const std::string bytes = Written();
        const std::size_t start = bytes.find(ProgramAndDate());
        EXPECT_NE(start, std::string::npos) << bytes;
        return bytes.substr(start + ProgramAndDate().size());
    }

    // What the writer prints of the header, without the lines of program and date.
    std::string WrittenHeader() {
        const std::string bytes = Written();
        return bytes.substr(0, bytes.find(ProgramAndDate()));
    }
};

constexpr std::string_view AngleFormatText =
    "Tarvek File Format specifies Latitudes and Longitudes be written in the 'DDD.MMSSssss' format.  "
    "Latitudes and Longitudes will be converted to this format.";

// The header

TEST_F(ControlFileWriter, PrintsAnEmptyHeader) {
    EXPECT_EQ(Written(), "AC:PR\r\n" + ProgramAndDate());
    ExpectNothingTold(prompts);
}

TEST_F(ControlFileWriter, PrintsAFullHeaderInOrder) {
    Tables().OutputHeader = {
        .PR = "PR:Bridge",
        .HeaderLines = "CM:one\r\nVR:Other 9\r\nDT:01/01/1999",
        .System = {"VELCRS - Velmora", "ADAMS - Adams", "NAD 83", "U.S. Survey Feet", "NAVD 88", ""}};
    EXPECT_EQ(Written(), Lines({"PR:Bridge", "AC:PR", "CM:one", "VR:Other 9", "DT:01/01/1999", "CS:VELCRS",
                                "ZN:ADAMS", "CO:Adams", "HD:NAD 83", "VD:NAVD 88", "UL:F"}) +
                             ProgramAndDate());
}

TEST_F(ControlFileWriter, CutsLongNamesAtTheirFirstHyphen) {
    System().CS = "ABC - One - Two";
    System().ZN = " N12-North - Zone ";
    EXPECT_EQ(WrittenHeader(), Lines({"AC:PR", "CS:ABC", "ZN:N12"}));
}

TEST_F(ControlFileWriter, LeavesNamesWithoutHyphenAsTheyAre) {
    System().CS = " ABC ";
    System().ZN = " N12 ";
    EXPECT_EQ(WrittenHeader(), Lines({"AC:PR", "CS: ABC ", "ZN: N12 "}));
}

TEST_F(ControlFileWriter, PrintsATagForANameThatIsOnlyADescription) {
    System().CS = "- Description";
    System().ZN = "-";
    EXPECT_EQ(WrittenHeader(), Lines({"AC:PR", "CS:", "ZN:"}));
}

TEST_F(ControlFileWriter, PrintsTheCountyOfTheTwoCountySystems) {
    for (const std::string system : {"VELCRS", "VCCS", "VELCRS - Velmora Counties", "VCCS-Counties"}) {
        System().CS = system;
        System().ZN = "ADAMS - Adams County - North ";
        const std::string shortName = system.substr(0, system.find_first_of(" -"));
        EXPECT_EQ(WrittenHeader(),
                  Lines({"AC:PR", "CS:" + shortName, "ZN:ADAMS", "CO:Adams County - North"}));
    }
}

TEST_F(ControlFileWriter, PrintsNoCountyWithoutHyphenOrOfOtherSystems) {
    System().CS = "VELCRS";
    System().ZN = "ADAMS";
    EXPECT_EQ(WrittenHeader(), Lines({"AC:PR", "CS:VELCRS", "ZN:ADAMS"}));
    System().ZN = "ADAMS - Adams";
    for (const std::string system : {"SPCS", "velcrs", "VELCRS2", " VELCRS"}) {
        System().CS = system;
        EXPECT_EQ(WrittenHeader(), Lines({"AC:PR", "CS:" + system, "ZN:ADAMS"}));
    }
    System().CS = "";
    EXPECT_EQ(WrittenHeader(), Lines({"AC:PR", "ZN:ADAMS"}));
}

TEST_F(ControlFileWriter, LeavesOutTheVerticalDatumNone) {
    System().VD = "None";
    EXPECT_EQ(WrittenHeader(), Lines({"AC:PR"}));
    System().VD = "none";
    EXPECT_EQ(WrittenHeader(), Lines({"AC:PR", "VD:none"}));
}

// The unit of the file and the message about angles

struct UnitCase {
    const char* horizontal;
    const char* vertical;
    const char* unitLine;  // empty where there is none
    bool tellsIfConverted;
    const char* horizontalAfterwards;
};

constexpr UnitCase UnitCases[] = {
    {"", "", "", false, ""},
    {"Meters", "", "UL:M", false, "M"},
    {"U.S. Survey Feet", "", "UL:F", false, "F"},
    {"International Feet", "", "UL:I", false, "I"},
    {"Meters", "Meters", "UL:M", true, "M"},
    {"International Feet", "International Feet", "UL:I", true, "I"},
    {"U.S. Survey Feet", "Meters", "UL:F", false, "F"},
    {"Meters", "U.S. Survey Feet", "UL:M", false, "M"},
    {"", "Meters", "", false, ""},
    {"M", "Meters", "UL:M", false, "M"},
    {"Chains", "", "UL:Chains", false, "Chains"},
    {"Chains", "Chains", "UL:Chains", true, "Chains"},
    {"DDD MM SS.ssss", "Meters", "UL:M", true, "M"},
    {"DDD.dddddd", "U.S. Survey Feet", "UL:F", true, "F"},
    {"DDD MM.mmmm", "", "", true, "DDD MM.mmmm"},
    {"DDD.MMSSssss", "International Feet", "UL:I", false, "I"},
    {"DDD.MMSSssss", "", "", false, "DDD.MMSSssss"},
    {"DDD.MMSSssss", "DDD.MMSSssss", "UL:DDD.MMSSssss", false, "DDD.MMSSssss"},
    {"DDDx", "Chains", "UL:DDDx", true, "DDDx"},
};

TEST_F(ControlFileWriter, DecidesTheUnitAndTellsTheAngleFormat) {
    for (const bool converted : {false, true})
        for (const UnitCase& row : UnitCases) {
            SCOPED_TRACE(std::string(row.horizontal) + "|" + row.vertical + (converted ? "|converted" : ""));
            prompts.told.clear();
            Tables().CoordinatesConverted = converted;
            System().HorizontalUnits = row.horizontal;
            System().VerticalUnits = row.vertical;
            const std::string unitLine = *row.unitLine ? std::string(row.unitLine) + "\r\n" : "";
            EXPECT_EQ(WrittenHeader(), "AC:PR\r\n" + unitLine);
            EXPECT_EQ(System().HorizontalUnits, row.horizontalAfterwards);
            EXPECT_EQ(System().VerticalUnits, row.vertical);
            ASSERT_EQ(prompts.told.size(), converted && row.tellsIfConverted ? 1U : 0U);
            if (prompts.told.empty()) continue;
            EXPECT_EQ(prompts.told[0].text, AngleFormatText);
            EXPECT_EQ(prompts.told[0].caption, "Angle Format");
            EXPECT_EQ(prompts.told[0].icon, Icon::Information);
            EXPECT_EQ(prompts.told[0].buttons, Buttons::OK);
        }
}

TEST_F(ControlFileWriter, TellsTheAngleFormatBeforeTheFileIsOpened) {
    Tables().CoordinatesConverted = true;
    System().HorizontalUnits = System().VerticalUnits = "Meters";
    EXPECT_THROW(WriteControlFile(folder.File("no/such/folder.ctl")), RuntimeFault);
    EXPECT_EQ(prompts.told.size(), 1U);
    EXPECT_EQ(System().HorizontalUnits, "M");
}

// The lines of a point

TEST_F(ControlFileWriter, PrintsEveryLineOfAPointInOrder) {
    PointRecord& point = AddPoint("FULL");
    point.Y = 123456.78904;
    point.X = 0.5;
    point.Z = -1.00006;
    point.LT = RadiansOf(45, 30, 15.5);
    point.LG = RadiansOf(121, 5, 9.000014);
    point.HE = 101.23449;
    point.HG = -22.0005001;
    point.SF = 0.99960004499;
    point.CA = -RadiansOf(1, 2, 3.44);
    point.PD = "PD:first\r\nPD:second";
    point.FE = "IPF";
    point.GR = "7";
    point.CL = "2";
    point.GM = "N";
    point.AC = "SS";
    point.GD = "GEOID99";
    point.GroupNumber = "12";
    point.Others = "CM:a\r\nCM:b";
    point.SY = 0.125F;
    point.SX = 0.0625F;
    point.SZ = 10;
    EXPECT_EQ(WrittenPoints(), Lines({"AC:OS",
                                      "PN:FULL",
                                      "YC:123456.7890",
                                      "XC:0.5000",
                                      "ZC:-1.0001",
                                      "LT:45.301550000",
                                      "LG:121.050900001",
                                      "HE:101.234",
                                      "PD:first",
                                      "PD:second",
                                      "FE:IPF",
                                      "HG:-22.001",
                                      "SF:0.99960004",
                                      "CA:-1.02034",
                                      "GR:7",
                                      "CL:2",
                                      "CM:a",
                                      "CM:b",
                                      "SY:0.1250",
                                      "SX:0.0625",
                                      "SZ:10.0000"}));
    ExpectNothingTold(prompts);
}

TEST_F(ControlFileWriter, PrintsTheCoordinatesOfAnEmptyPlanePoint) {
    Tables().OutputPoints.Append({});
    EXPECT_EQ(WrittenPoints(), Lines({"AC:OS", "PN:", "YC:-99999.0000", "XC:-99999.0000", "ZC:-99999.0000"}));
}

TEST_F(ControlFileWriter, PrintsOnlyTheElevationOfAGeographicPoint) {
    AddPoint("G").IsGeographic = true;
    EXPECT_EQ(WrittenPoints(), Lines({"AC:OS", "PN:G", "ZC:3.0000"}));
}

TEST_F(ControlFileWriter, PrintsNoElevationForAGeographicPointWithoutOne) {
    PointRecord& point = AddPoint("G");
    point.IsGeographic = true;
    point.Z = -99999;
    EXPECT_EQ(WrittenPoints(), Lines({"AC:OS", "PN:G"}));
}

TEST_F(ControlFileWriter, PrintsControlTagsWhateverThePointCameFrom) {
    PointRecord& point = AddPoint("C");
    point.HorizontalControl = point.VerticalControl = false;
    EXPECT_EQ(WrittenPoints(), Lines({"AC:OS", "PN:C", "YC:1.0000", "XC:2.0000", "ZC:3.0000"}));
}

TEST_F(ControlFileWriter, PrintsNumbersPlainly) {
    PointRecord& point = AddPoint("N");
    point.Y = 12345678901.5;
    point.X = -0.00004;
    point.Z = 1e-9;
    point.HE = -0.0004;
    point.SF = 1e10;
    EXPECT_EQ(WrittenPoints(), Lines({"AC:OS", "PN:N", "YC:12345678901.5000", "XC:0.0000", "ZC:0.0000",
                                      "HE:0.000", "SF:10000000000.00000000"}));
}

TEST_F(ControlFileWriter, CarriesSecondsThatRoundToSixty) {
    PointRecord& point = AddPoint("A");
    point.LT = RadiansOf(44, 59, 59.9999999);
    point.LG = RadiansOf(9, 59, 59.99);
    point.CA = RadiansOf(0, 59, 59.99);
    EXPECT_EQ(WrittenPoints(), Lines({"AC:OS", "PN:A", "YC:1.0000", "XC:2.0000", "ZC:3.0000",
                                      "LT:45.000000000", "LG:9.595999000", "CA:1.00000"}));
}

TEST_F(ControlFileWriter, TurnsAnglesNorthAndWest) {
    PointRecord& south = AddPoint("S");
    south.LT = RadiansOf(10, 0, 0);
    south.LatDir = "S";
    south.LG = RadiansOf(271, 0, 0);
    south.LongDir = "E";
    PointRecord& minusWest = AddPoint("W");
    minusWest.LT = RadiansOf(10, 0, 0);
    minusWest.LG = -RadiansOf(89, 0, 0);
    minusWest.LongDir = "-W";
    EXPECT_EQ(WrittenPoints(), Lines({"AC:OS", "PN:S", "YC:1.0000", "XC:2.0000", "ZC:3.0000",
                                      "LT:-10.000000000", "LG:89.000000000", "AC:OS", "PN:W", "YC:1.0000",
                                      "XC:2.0000", "ZC:3.0000", "LT:10.000000000", "LG:89.000000000"}));
}

TEST_F(ControlFileWriter, PrintsPointsFromTheFirstToTheLast) {
    std::string expected;
    for (int i = 0; i < 600; ++i) {
        AddPoint(std::to_string(i));
        expected += "AC:OS\r\nPN:" + std::to_string(i) + "\r\nYC:1.0000\r\nXC:2.0000\r\nZC:3.0000\r\n";
    }
    EXPECT_EQ(WrittenPoints(), expected);
}

TEST_F(ControlFileWriter, PrintsNoChains) {
    AddPoint("A");
    ChainRecord chain = test::ChainNamed("C");
    chain.PL = "PL:A,B";
    Tables().OutputChains.Append(chain);
    EXPECT_EQ(WrittenPoints(), Lines({"AC:OS", "PN:A", "YC:1.0000", "XC:2.0000", "ZC:3.0000"}));
}

// Print flags

struct FlagCase {
    bool converted;
    bool scale;
    bool convergence;
    bool latLong;
};

TEST_F(ControlFileWriter, HonoursThePrintFlagsOfAConversionOnly) {
    PointRecord& point = AddPoint("A");
    point.LT = RadiansOf(45, 0, 0);
    point.LG = RadiansOf(90, 0, 0);
    point.SF = 1;
    point.CA = RadiansOf(1, 0, 0);
    for (int bits = 0; bits < 16; ++bits) {
        const FlagCase row{(bits & 8) != 0, (bits & 4) != 0, (bits & 2) != 0, (bits & 1) != 0};
        SCOPED_TRACE(bits);
        Tables().CoordinatesConverted = row.converted;
        Tables().Options.ComputeScale = row.scale;
        Tables().Options.ComputeConvergence = row.convergence;
        Tables().Options.ComputeLatLong = row.latLong;
        std::string expected = Lines({"AC:OS", "PN:A", "YC:1.0000", "XC:2.0000", "ZC:3.0000"});
        if (!row.converted || row.latLong) expected += Lines({"LT:45.000000000", "LG:90.000000000"});
        if (!row.converted || row.scale) expected += Lines({"SF:1.00000000"});
        if (!row.converted || row.convergence) expected += Lines({"CA:1.00000"});
        EXPECT_EQ(WrittenPoints(), expected);
    }
}

// Units of the points

TEST_F(ControlFileWriter, CarriesFeetToMeters) {
    System().HorizontalUnits = System().VerticalUnits = "Meters";
    PointRecord& point = AddPoint("F");
    point.HorizontalUnits = point.VerticalUnits = "U.S. Survey Feet";
    point.Y = 1000;
    point.X = 2000;
    point.Z = 100;
    point.HE = 10;
    point.HG = -30;
    point.SY = 0.5F;
    point.SX = 0.25F;
    point.SZ = 1;
    const std::string bytes = Written();
    // 1 ft = 1200/3937 m = 0.30480060960 m
    EXPECT_EQ(bytes, Lines({"AC:PR", "UL:M"}) + ProgramAndDate() +
                         Lines({"AC:OS", "PN:F", "YC:304.8006", "XC:609.6012", "ZC:30.4801", "HE:3.048",
                                "HG:-9.144", "SY:0.1524", "SX:0.0762", "SZ:0.3048"}));
}

TEST_F(ControlFileWriter, CarriesBetweenAllUnits) {
    struct Case {
        const char* from;
        const char* to;
        const char* line;  // of a northing of 1000000
    };
    constexpr Case Cases[] = {
        {"Meters", "Meters", "YC:1000000.0000"},
        {"Meters", "U.S. Survey Feet", "YC:3280833.3333"},
        {"Meters", "International Feet", "YC:3280839.8950"},
        {"U.S. Survey Feet", "Meters", "YC:304800.6096"},
        {"U.S. Survey Feet", "U.S. Survey Feet", "YC:1000000.0000"},
        {"U.S. Survey Feet", "International Feet", "YC:1000002.0000"},
        {"International Feet", "Meters", "YC:304800.0000"},
        {"International Feet", "U.S. Survey Feet", "YC:999998.0000"},
        {"International Feet", "International Feet", "YC:1000000.0000"},
        {"", "Meters", "YC:1000000.0000"},
        {"Chains", "Meters", "YC:1000000.0000"},
        {"Meters", "", "YC:-99999.0000"},
        {"Meters", "Chains", "YC:-99999.0000"},
    };
    for (const Case& row : Cases) {
        SCOPED_TRACE(std::string(row.from) + " to " + row.to);
        Tables().OutputPoints = {};
        PointRecord& point = AddPoint("A");
        point.HorizontalUnits = row.from;
        point.Y = 1000000;
        System().HorizontalUnits = row.to;
        System().VerticalUnits = "";
        EXPECT_NE(WrittenPoints().find(std::string("\r\n") + row.line + "\r\n"), std::string::npos);
    }
}

TEST_F(ControlFileWriter, TakesTheHorizontalUnitForEveryErrorEstimate) {
    System().HorizontalUnits = System().VerticalUnits = "Meters";
    PointRecord& point = AddPoint("A");
    point.HorizontalUnits = "International Feet";
    point.VerticalUnits = "Meters";
    point.Y = point.X = 10;
    point.Z = point.HE = point.HG = 10;
    point.SY = point.SX = point.SZ = 10;
    EXPECT_EQ(WrittenPoints(), Lines({"AC:OS", "PN:A", "YC:3.0480", "XC:3.0480", "ZC:10.0000", "HE:10.000",
                                      "HG:10.000", "SY:3.0480", "SX:3.0480", "SZ:3.0480"}));
}

TEST_F(ControlFileWriter, TakesTheVerticalUnitForEveryHeight) {
    System().HorizontalUnits = System().VerticalUnits = "Meters";
    PointRecord& point = AddPoint("A");
    point.HorizontalUnits = "Meters";
    point.VerticalUnits = "International Feet";
    point.Z = point.HE = point.HG = 10;
    point.SZ = 10;
    EXPECT_EQ(WrittenPoints(), Lines({"AC:OS", "PN:A", "YC:1.0000", "XC:2.0000", "ZC:3.0480", "HE:3.048",
                                      "HG:3.048", "SZ:10.0000"}));
}

TEST_F(ControlFileWriter, LeavesTheMarkerForNoValueUnconverted) {
    System().HorizontalUnits = System().VerticalUnits = "Meters";
    PointRecord point;
    point.HorizontalUnits = point.VerticalUnits = "U.S. Survey Feet";
    Tables().OutputPoints.Append(point);
    EXPECT_EQ(WrittenPoints(), Lines({"AC:OS", "PN:", "YC:-99999.0000", "XC:-99999.0000", "ZC:-99999.0000"}));
}

TEST_F(ControlFileWriter, KeepsTheConvertedValuesInTheOutputAlone) {
    ASSERT_TRUE(ReadLines({"AC:PR", "UL:F", "AC:OS", "PN:A", "YC:1000", "XC:2000", "ZC:100", "HE:10", "HG:20",
                           "SY:1", "SX:2", "SZ:4", "AC:OS", "PN:B", "YC:5"}));
    CopyInputToOutput();
    System().HorizontalUnits = System().VerticalUnits = "Meters";
    Written();
    constexpr double MetersPerFoot = 1200.0 / 3937.0;
    const PointRecord& output = Tables().OutputPoints[0];
    EXPECT_NEAR(output.Y, 1000 * MetersPerFoot, 1e-9);
    EXPECT_NEAR(output.X, 2000 * MetersPerFoot, 1e-9);
    EXPECT_NEAR(output.Z, 100 * MetersPerFoot, 1e-9);
    EXPECT_NEAR(output.HE, 10 * MetersPerFoot, 1e-9);
    EXPECT_NEAR(output.HG, 20 * MetersPerFoot, 1e-9);
    EXPECT_EQ(output.SY, static_cast<float>(MetersPerFoot));
    EXPECT_EQ(output.SX, static_cast<float>(2 * MetersPerFoot));
    EXPECT_EQ(output.SZ, static_cast<float>(4 * MetersPerFoot));
    EXPECT_NEAR(Tables().OutputPoints[1].Y, 5 * MetersPerFoot, 1e-9);
    const PointRecord& input = Tables().InputPoints[0];
    EXPECT_EQ(input.Y, 1000);
    EXPECT_EQ(input.X, 2000);
    EXPECT_EQ(input.Z, 100);
    EXPECT_EQ(input.HE, 10);
    EXPECT_EQ(input.HG, 20);
    EXPECT_EQ(input.SY, 1);
    EXPECT_EQ(input.SX, 2);
    EXPECT_EQ(input.SZ, 4);
    EXPECT_EQ(Tables().InputPoints[1].Y, 5);
    EXPECT_EQ(Tables().InputHeader.System.HorizontalUnits, "U.S. Survey Feet");
}

TEST_F(ControlFileWriter, SharesPointsThatNeedNoConversion) {
    ASSERT_TRUE(ReadLines({"AC:PR", "UL:M", "AC:OS", "PN:A", "YC:1000"}));
    CopyInputToOutput();
    Written();
    EXPECT_EQ(&Tables().OutputPoints[0], &Tables().InputPoints[0]);
}

TEST_F(ControlFileWriter, LeavesThePlaneValuesOfAGeographicPointUnconverted) {
    System().HorizontalUnits = System().VerticalUnits = "Meters";
    PointRecord& point = AddPoint("G");
    point.HorizontalUnits = point.VerticalUnits = "International Feet";
    point.IsGeographic = true;
    EXPECT_EQ(WrittenPoints(), Lines({"AC:OS", "PN:G", "ZC:0.9144"}));
    EXPECT_EQ(Tables().OutputPoints[0].Y, 1);
    EXPECT_EQ(Tables().OutputPoints[0].X, 2);
}

// The file

TEST_F(ControlFileWriter, ReplacesAnOldFile) {
    folder.Put("output.ctl", std::string(100000, 'x'));
    EXPECT_EQ(Written(), "AC:PR\r\n" + ProgramAndDate());
    EXPECT_EQ(folder.Names(), std::vector<std::string>{"output.ctl"});
}

TEST_F(ControlFileWriter, ReadsAndWritesAFileOfItsOwnKindUnchanged) {
    const std::string bytes =
        Lines({"PR:Bridge", "AC:PR", "CM:kept", "CS:VELCRS", "ZN:ADAMS", "HD:NAD 83", "VD:NAVD 88", "UL:I"}) +
        ProgramAndDate() +
        Lines({"AC:OS",
               "PN:A",
               "YC:1.0000",
               "XC:2.0000",
               "ZC:3.0000",
               "LT:45.301550000",
               "LG:121.050900001",
               "HE:101.234",
               "PD:one",
               "PD:two",
               "FE:IPF",
               "HG:-22.001",
               "SF:0.99960004",
               "CA:-1.02034",
               "GR:7",
               "CL:2",
               "CM:a",
               "SY:0.1250",
               "SX:0.0625",
               "SZ:10.0000",
               "AC:OS",
               "PN:B",
               "YC:-99999.0000",
               "XC:-99999.0000",
               "ZC:-99999.0000"});
    ASSERT_TRUE(ReadBytesAsControlFile(bytes));
    CopyInputToOutput();
    // The lines of program and date that were read are kept before the fresh ones, behind the other line.
    std::string expected = bytes;
    expected.insert(expected.find("CS:"), ProgramAndDate());
    EXPECT_EQ(Written(), expected);
}

}  // namespace
}  // namespace tarvek
