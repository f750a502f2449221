// The road of a translation that carries its points to another system: what the two systems are taken for,
// and what the output tables hold in the end.

#include "driver/modMultiPoint.hpp"

#include <string>

#include "coordmath/zoneLibrary.hpp"

namespace tarvek {
namespace {

using test::ExpectNothingTold;
using test::ExpectToldOnly;
using test::FaultOf;

constexpr const char* Geographic = "GCS - Geographic Coordinates";
constexpr double Degree = 0.017453292519943295;

const std::string System(test::TestSystem);
const std::string Transverse(test::TransverseZone);
const std::string TwoParallels(test::TwoParallelsZone);

class MultiPoint : public ::testing::Test {
  protected:
    MultiPoint() {
        Tables() = {};
        for (const std::string_view zone : {test::TransverseZone, test::TwoParallelsZone}) {
            library.Change(zone, "Horizontal Datum", "NAD 83");
            library.Change(zone, "Linear Units", "International Feet");
            library.Change(zone, "False Northing", "0");
            library.Change(zone, "False Easting", "1000000");
        }
    }
    ~MultiPoint() override { Tables() = {}; }

    static ProjectHeader& Header() { return Tables().InputHeader; }
    static const CoordSystemRef& Input() { return Tables().Options.InputSystem; }
    static const CoordSystemRef& Output() { return Tables().Options.OutputSystem; }
    // The first point of the output, or an empty one where there is none.
    static PointRecord Point() {
        const bool hasPoint = Tables().OutputPoints.size() > 0;
        EXPECT_TRUE(hasPoint);
        return hasPoint ? Tables().OutputPoints[0] : PointRecord();
    }

    // A plane set of the transverse Mercator zone, in meters, with a point north of the origin.
    static void PutPlaneInput() {
        Header().System = {System, Transverse, "NAD 83", "Meters", "NAVD 88", "Meters"};
        PointRecord point;
        point.PN = "A";
        point.Y = 50000;
        point.X = 304800;
        point.HorizontalUnits = point.VerticalUnits = "Meters";
        Tables().InputPoints.Append(point);
    }
    static void PutGeographicInput() {
        Header().System = {Geographic, "", "NAD 83", "DDD.MMSSssss", "NAVD 88", "Meters"};
        PointRecord point;
        point.PN = "A";
        point.LT = 31 * Degree;
        point.LG = 85 * Degree;
        point.HorizontalUnits = "DDD.MMSSssss";
        point.VerticalUnits = "Meters";
        Tables().InputPoints.Append(point);
    }
    // Output tables of a run before.
    static void PutOldOutput() {
        Tables().OutputHeader.PR = "PR:OLD";
        PointRecord point;
        point.PN = "OLD";
        Tables().OutputPoints.Append(point);
    }
    static void ExpectOldOutput() {
        EXPECT_EQ(Tables().OutputHeader.PR, "PR:OLD");
        ASSERT_EQ(Tables().OutputPoints.size(), 1U);
        EXPECT_EQ(Point().PN, "OLD");
        EXPECT_FALSE(Tables().CoordinatesConverted);
    }
    static void ExpectSystem(const CoordSystemRef& actual, const CoordSystemRef& expected) {
        EXPECT_EQ(actual.CS, expected.CS);
        EXPECT_EQ(actual.ZN, expected.ZN);
        EXPECT_EQ(actual.HD, expected.HD);
        EXPECT_EQ(actual.HorizontalUnits, expected.HorizontalUnits);
        EXPECT_EQ(actual.VD, expected.VD);
        EXPECT_EQ(actual.VerticalUnits, expected.VerticalUnits);
    }
    void ExpectRefused(const CoordSystemRef& named, std::string_view text, std::string_view caption) {
        PutOldOutput();
        EXPECT_FALSE(ConvertInputToOutput(named));
        ExpectToldOnly(prompts, text, caption);
        ExpectOldOutput();
    }

    test::ZoneLibrary library;
    test::ScriptedPrompts prompts;
};

// ---- In place of what the file says ----

TEST_F(MultiPoint, WhatIsNamedTakesThePlaceOfWhatTheFileSays) {
    PutPlaneInput();
    OverrideInputSystem({"A", "B", "C", "International Feet", "D", "U.S. Survey Feet"});
    ExpectSystem(Header().System, {"A", "B", "C", "International Feet", "D", "U.S. Survey Feet"});
    EXPECT_EQ(Tables().InputPoints[0].HorizontalUnits, "International Feet");
    EXPECT_EQ(Tables().InputPoints[0].VerticalUnits, "U.S. Survey Feet");
    EXPECT_EQ(Tables().InputPoints[0].Y, 50000);  // told in another unit, not converted
}

TEST_F(MultiPoint, WhatIsNotNamedStaysAsTheFileSays) {
    PutPlaneInput();
    const PointList before = Tables().InputPoints;
    OverrideInputSystem({});
    ExpectSystem(Header().System, {System, Transverse, "NAD 83", "Meters", "NAVD 88", "Meters"});
    OverrideInputSystem({"", "B", "", "", "", ""});
    EXPECT_EQ(Header().System.ZN, "B");
    EXPECT_EQ(&Tables().InputPoints[0], &before[0]);  // not even copied
    OverrideInputSystem({"", "", "", "", "", "U.S. Survey Feet"});
    EXPECT_EQ(Tables().InputPoints[0].HorizontalUnits, "Meters");
    EXPECT_EQ(Tables().InputPoints[0].VerticalUnits, "U.S. Survey Feet");
    OverrideInputSystem({"", "", "", "International Feet", "", ""});
    EXPECT_EQ(Tables().InputPoints[0].HorizontalUnits, "International Feet");
    EXPECT_EQ(Tables().InputPoints[0].VerticalUnits, "U.S. Survey Feet");
    EXPECT_EQ(Header().System.HorizontalUnits, "International Feet");
    EXPECT_EQ(before[0].HorizontalUnits, "Meters");
}

TEST_F(MultiPoint, UnitsTakeThePlaceOfThoseOfEveryPoint) {
    for (int i = 0; i < 300; ++i) PutPlaneInput();
    OverrideInputSystem({"", "", "", "U.S. Survey Feet", "", ""});
    for (const PointRecord& point : Tables().InputPoints)
        EXPECT_EQ(point.HorizontalUnits, "U.S. Survey Feet");
}

// ---- What the systems are taken for ----

TEST_F(MultiPoint, WhatIsNotNamedOfTheOutputIsTheInputs) {
    PutPlaneInput();
    EXPECT_TRUE(ConvertInputToOutput({"", "", "", "International Feet", "", ""}));
    ExpectSystem(Output(), {System, Transverse, "NAD 83", "International Feet", "NAVD 88", "Meters"});
    ExpectSystem(Tables().OutputHeader.System, Output());
    EXPECT_NEAR(Point().X, 1000000, 1e-5);
    EXPECT_NEAR(Point().Y, 50000 / 0.3048, 1e-3);
    EXPECT_EQ(Point().HorizontalUnits, "International Feet");
    ExpectNothingTold(prompts);
}

TEST_F(MultiPoint, ShortNamesOfBothSidesAreMadeLong) {
    PutPlaneInput();
    Header().System.CS = "TST";
    Header().System.ZN = "10";
    EXPECT_TRUE(ConvertInputToOutput({"", "30", "", "", "", ""}));
    ExpectSystem(Input(), {System, Transverse, "NAD 83", "Meters", "NAVD 88", "Meters"});
    ExpectSystem(Output(), {System, TwoParallels, "NAD 83", "Meters", "NAVD 88", "Meters"});
    ExpectNothingTold(prompts);
}

TEST_F(MultiPoint, AHiddenZoneIsFoundAllTheSame) {
    PutPlaneInput();
    Header().System.CS = "TST";
    Header().System.ZN = "10";
    library.Change(test::TransverseZone, "Show In", "0");
    library.Change(test::TransverseZone, "Show Out", "0");
    EXPECT_TRUE(ConvertInputToOutput({"TST", "10", "", "", "", ""}));
    for (const CoordSystemRef& system : {Input(), Output()}) {
        EXPECT_EQ(system.CS, System);
        EXPECT_EQ(system.ZN, Transverse);
    }
    EXPECT_NEAR(Point().X, 304800, 1e-5);
    ExpectNothingTold(prompts);
}

TEST_F(MultiPoint, TheGeographicSystemTakesNoZoneAndAFormatOfAngles) {
    PutPlaneInput();
    EXPECT_TRUE(ConvertInputToOutput({"GCS", "", "", "", "", ""}));
    ExpectSystem(Output(), {Geographic, "", "NAD 83", "DDD MM SS.ssss", "NAVD 88", "Meters"});
    EXPECT_TRUE(Tables().Options.OutputGeographic);
    EXPECT_TRUE(Tables().Options.ComputeLatLong);
    EXPECT_TRUE(Point().IsGeographic);
    EXPECT_NEAR(Point().LG, (85 + 50 / 60.0) * Degree, 1e-11);  // on the central meridian
    ExpectNothingTold(prompts);
}

TEST_F(MultiPoint, AFormatThatIsNamedIsThatOfTheGeographicOutput) {
    PutPlaneInput();
    EXPECT_TRUE(ConvertInputToOutput({Geographic, "", "", "DDD.dddddd", "", ""}));
    EXPECT_EQ(Output().HorizontalUnits, "DDD.dddddd");
}

TEST_F(MultiPoint, APlaneSystemAfterAGeographicOneTakesTheUnitOfItsZone) {
    PutGeographicInput();
    EXPECT_TRUE(ConvertInputToOutput({"TST", "10", "", "", "", ""}));
    ExpectSystem(Output(), {System, Transverse, "NAD 83", "International Feet", "NAVD 88", "Meters"});
    EXPECT_FALSE(Tables().Options.OutputGeographic);
    EXPECT_FALSE(Point().IsGeographic);
    EXPECT_EQ(Point().HorizontalUnits, "International Feet");
    const double inFeet = Point().X;
    Tables() = {};
    PutGeographicInput();
    EXPECT_TRUE(ConvertInputToOutput({"TST", "10", "", "Meters", "", ""}));
    EXPECT_EQ(Output().HorizontalUnits, "Meters");
    EXPECT_NEAR(Point().X, inFeet * 0.3048, 1e-4);
}

TEST_F(MultiPoint, AZoneThatTellsNoUnitIsInMeters) {
    PutGeographicInput();
    library.Change(test::TransverseZone, "Linear Units", "");
    EXPECT_TRUE(ConvertInputToOutput({"TST", "10", "", "", "", ""}));
    EXPECT_EQ(Output().HorizontalUnits, "Meters");
    EXPECT_EQ(Point().HorizontalUnits, "Meters");
}

TEST_F(MultiPoint, GeographicToGeographicKeepsTheFormatOfTheInput) {
    PutGeographicInput();
    EXPECT_TRUE(ConvertInputToOutput({"GCS", "", "", "", "", ""}));
    ExpectSystem(Output(), {Geographic, "", "NAD 83", "DDD.MMSSssss", "NAVD 88", "Meters"});
    EXPECT_TRUE(Point().IsGeographic);
    EXPECT_EQ(Point().LT, 31 * Degree);
    EXPECT_EQ(Point().LG, 85 * Degree);
}

TEST_F(MultiPoint, AMissingHorizontalDatumIsThatOfTheZone) {
    PutPlaneInput();
    Header().System.HD.clear();
    Header().System.CS = "TST";
    Header().System.ZN = "10";
    EXPECT_TRUE(ConvertInputToOutput({"", "", "", "U.S. Survey Feet", "", ""}));
    EXPECT_EQ(Input().HD, "NAD 83");
    EXPECT_EQ(Output().HD, "NAD 83");
    EXPECT_EQ(Tables().OutputHeader.System.HD, "NAD 83");
}

TEST_F(MultiPoint, AMissingVerticalDatumIsNone) {
    PutPlaneInput();
    Header().System.VD.clear();
    Header().System.VerticalUnits.clear();
    EXPECT_TRUE(ConvertInputToOutput({"", "", "", "U.S. Survey Feet", "", ""}));
    EXPECT_EQ(Input().VD, "None");
    EXPECT_EQ(Output().VD, "None");
    ExpectNothingTold(prompts);
}

// ---- What the tables hold ----

TEST_F(MultiPoint, HeaderAndChainsComeAlongAndTheInputStays) {
    PutPlaneInput();
    Header().PR = "PR:BRIDGE";
    Header().HeaderLines = "XY:1";
    ChainRecord chain;
    chain.ChainName = "C";
    Tables().InputChains.Append(chain);
    PutOldOutput();
    EXPECT_TRUE(ConvertInputToOutput({"", "30", "", "", "", ""}));
    EXPECT_TRUE(Tables().CoordinatesConverted);
    EXPECT_EQ(Tables().OutputHeader.PR, "PR:BRIDGE");
    EXPECT_EQ(Tables().OutputHeader.HeaderLines, "XY:1");
    EXPECT_EQ(Tables().OutputHeader.System.ZN, TwoParallels);
    ASSERT_EQ(Tables().OutputChains.size(), 1U);
    EXPECT_EQ(Tables().OutputChains[0].ChainName, "C");
    ASSERT_EQ(Tables().OutputPoints.size(), 1U);
    EXPECT_EQ(Point().PN, "A");
    EXPECT_EQ(Header().System.ZN, Transverse);
    EXPECT_EQ(Tables().InputPoints[0].Y, 50000);
    EXPECT_EQ(Tables().InputPoints[0].X, 304800);
}

TEST_F(MultiPoint, AReaderThatRefusedItsFileLeavesNothingToConvert) {
    Header().System = {System, Transverse, "NAD 83", "Meters", "NAVD 88", "Meters"};
    EXPECT_EQ(FaultOf([] { ConvertInputToOutput({"", "30", "", "", "", ""}); }), Fault::SubscriptOutOfRange);
    EXPECT_FALSE(Tables().CoordinatesConverted);
}

// ---- Refusals ----

TEST_F(MultiPoint, AnAngularUnitIsNoneOfAPlaneSystem) {
    PutPlaneInput();
    ExpectRefused({"", "", "", "DDD.MMSSssss", "", ""},
                  "A plane coordinate system needs a linear unit, and 'DDD.MMSSssss' is none.",
                  "Tarvek Translator");
    EXPECT_FALSE(Tables().ConversionPoints.IsAllocated());
}

TEST_F(MultiPoint, AMissingPartOfAChoiceIsToldUnderItsCaption) {
    PutPlaneInput();
    Header().System.ZN.clear();
    ExpectRefused({"", "", "", "International Feet", "", ""}, "You must specify the input Zone.",
                  "Zone Required");
}

TEST_F(MultiPoint, AGeographicInputWithoutADatumIsToldAsMissingOne) {
    PutGeographicInput();
    Header().System.HD.clear();
    ExpectRefused({"TST", "10", "", "", "", ""}, "You must specify the input Horizonal Datum.",
                  "Horizontal Datum Requied");
}

TEST_F(MultiPoint, AZoneOfAnotherEllipsoidTakesADatumThatIsNamedAlone) {
    PutPlaneInput();
    library.Change(test::TwoParallelsZone, "Horizontal Datum", "NAD 27");
    ExpectRefused(
        {"", "30", "", "", "", ""},
        "The zone '30 - Two Parallels' is one of 'NAD 27', and the points are on 'NAD 83'.  Name the "
        "horizontal datum of the output.",
        "Tarvek Translator");
    EXPECT_TRUE(ConvertInputToOutput({"", "30", "NAD 83", "", "", ""}));
}

TEST_F(MultiPoint, TheZoneOfTheInputKeepsTheDatumThatTheFileSays) {
    PutPlaneInput();
    library.Change(test::TransverseZone, "Horizontal Datum", "NAD 27");
    EXPECT_TRUE(ConvertInputToOutput({"", "", "", "Meters", "", ""}));
    EXPECT_EQ(Output().HD, "NAD 83");
    ExpectNothingTold(prompts);
}

TEST_F(MultiPoint, APlaneInputInAnAngularUnitIsRefused) {
    PutPlaneInput();
    OverrideInputSystem({"", "", "", "DDD.dddddd", "", ""});
    ExpectRefused({Geographic, "", "", "", "", ""},
                  "A plane coordinate system needs a linear unit, and 'DDD.dddddd' is none.",
                  "Tarvek Translator");
}

TEST_F(MultiPoint, AnOutputZoneThatNobodyKnowsIsTold) {
    PutGeographicInput();
    ExpectRefused({"TST", "99", "", "", "", ""}, "Unknown Coordinate System or Zone 'TST' and '99'.",
                  "Coordiante System Error");
}

TEST_F(MultiPoint, AnUnknownZoneLeavesTheOutputTables) {
    PutPlaneInput();
    ExpectRefused({"", "99", "", "", "", ""},
                  "Unknown Coordinate System or Zone 'TST - Test System' and '99'.",
                  "Coordiante System Error");
}

TEST_F(MultiPoint, ALibraryWithASectionThatIsNoZoneIsToldAndServesUpToThere) {
    PutPlaneInput();
    library.PutZoneless();
    EXPECT_TRUE(ConvertInputToOutput({"", "30", "", "", "", ""}));
    ASSERT_EQ(prompts.told.size(), 4U);  // systems and zones of either side
    EXPECT_EQ(prompts.told[0].text,
              "Error: Error loading coordinate systems.\r\nFunction: modMisc.LOAD_CS_ComboBoxList");
    EXPECT_EQ(prompts.told[1].text,
              "Error: Error loading zones.\r\nFunction: modMisc.LOAD_Zones_ComboBoxList");
    EXPECT_EQ(Output().ZN, TwoParallels);
}

TEST_F(MultiPoint, APointWithoutAResultIsAFaultThatLeavesTheOutputTables) {
    PutGeographicInput();
    Tables().InputPoints.Change(0).LT = 90 * Degree;
    PutOldOutput();
    EXPECT_EQ(FaultOf([] { ConvertInputToOutput({"TST", "10", "", "", "", ""}); }), Fault::Overflow);
    ExpectOldOutput();
    EXPECT_EQ(Tables().InputPoints[0].LT, 90 * Degree);
}

}  // namespace
}  // namespace tarvek
