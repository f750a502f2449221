#include "coordmath/modCoordConvertDatum.hpp"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "coordmath/modCoordConvert.hpp"
#include "datumtools/nadconGrid.hpp"
#include "library/libraryFolder.hpp"
#include "support/testSupport.hpp"
#include "surveyfiles/modSurveyRecords.hpp"

namespace tarvek::test {
namespace {

constexpr double ToRadians = 0.017453292519943278;
constexpr const char* Meters = "Meters";
constexpr const char* SurveyFeet = "U.S. Survey Feet";
constexpr const char* InternationalFeet = "International Feet";
constexpr const char* Geographic = "GCS - Geographic Coordinates";

constexpr std::string_view There = "NADCON NAD 27 to NAD 83";
constexpr std::string_view Back = "NADCON NAD 83 to NAD 27";

PointRecord GeographicPoint() {
    PointRecord point;
    point.LT = 42.25 * ToRadians;
    point.LG = 97.5 * ToRadians;
    point.HorizontalUnits = Word("DDD.MMSSssss");
    point.VerticalUnits = Word(Meters);
    return point;
}

class CoordConvertDatum : public ::testing::Test {
  protected:
    CoordConvertDatum() {
        Tables() = {};
        Put(GeographicPoint());
    }
    ~CoordConvertDatum() override { Tables() = {}; }

    // Two datums, the first with `key`, the second with no way to another.
    void PutDatums(std::string_view key, std::string_view ellipsoidA, std::string_view ellipsoidB) const {
        std::string text = "[A]\r\nType=Horizontal\r\nEllipsoid=";
        text.append(ellipsoidA).append("\r\n").append(key).append("\r\n\r\n[B]\r\nEllipsoid=");
        home.PutDatums(text.append(ellipsoidB).append("\r\n"));
    }
    // From A to B by `method`.
    void PutMethod(std::string_view method) const {
        PutDatums("B=" + std::string(method), "GRS 80", "GRS 80");
    }

    // Shifts of a degree north and west.
    void PutShifts() const {
        NADCONGrid grid;
        grid.rows = 6;
        grid.latitude = grid.longitude = Constant(3600);
        PutGrid(home, "conus", grid);
    }

    static void Put(const PointRecord& point) {
        Tables().ConversionPoints = {};
        Tables().ConversionPoints.Append(point);
    }
    static const PointRecord& Point(std::size_t index = 0) { return Tables().ConversionPoints[index]; }
    static void ExpectAt(double latitude, double west) {
        EXPECT_EQ(Point().LT, latitude * ToRadians);
        EXPECT_EQ(Point().LG, west * ToRadians);
    }
    static void ExpectUnmoved() { ExpectAt(42.25, 97.5); }

    void ExpectToldAndForget(std::string_view text, std::string_view caption) {
        ExpectToldOnly(prompts, text, caption);
        prompts.told.clear();
    }
    void ExpectNoTransformation(std::string_view datumIn, std::string_view datumOut) {
        std::string text = "No datum transformation exists for '";
        text.append(datumIn).append("' to '").append(datumOut).append("'.");
        ExpectToldAndForget(text, "No Datum Transformation");
    }
    void ExpectMissingStage(std::string_view name) {
        std::string text = "This version does not have the transformation '";
        ExpectToldAndForget(text.append(name).append("'."), "Tarvek Translator");
    }

    LibraryFolder home;
    ScriptedPrompts prompts;
};

// ---- Horizontal datums ----

class HorizontalDatum : public CoordConvertDatum {};

TEST_F(HorizontalDatum, NADCONShifts) {
    PutShifts();
    PutMethod(There);
    EXPECT_TRUE(CoordConvert_HorizontalDatum("A", "B"));
    ExpectAt(43.25, 98.5);
    PutMethod(Back);
    EXPECT_TRUE(CoordConvert_HorizontalDatum("A", "B"));
    ExpectUnmoved();
    ExpectNothingTold(prompts);
}

TEST_F(HorizontalDatum, SectionOfTheOneAndKeyOfTheOtherNameTheMethod) {
    PutShifts();
    home.PutDatums(
        "[NAD 27]\r\nNAD 83=NADCON NAD 27 to NAD 83\r\nNAD 83 (1986)=NADCON NAD 83 to NAD 27\r\n"
        "[NAD 83]\r\nNAD 27=NADCON NAD 83 to NAD 27\r\n");
    EXPECT_TRUE(CoordConvert_HorizontalDatum("NAD 27", "NAD 83"));
    ExpectAt(43.25, 98.5);
    EXPECT_TRUE(CoordConvert_HorizontalDatum("NAD 83", "NAD 27"));
    ExpectUnmoved();
    EXPECT_TRUE(CoordConvert_HorizontalDatum("NAD 27", "NAD 83 (1986)"));
    ExpectAt(41.25, 96.5);
}

TEST_F(HorizontalDatum, FailureOfNADCONIsToldOnce) {
    PutMethod(There);  // and no grid
    EXPECT_FALSE(CoordConvert_HorizontalDatum("A", "B"));
    ExpectToldAndForget(
        "The point to be converted does not fall within the selected NADCON grid.  Can not convert point.",
        "NADCON Error");
    PutMethod("NADCON of a later day");
    EXPECT_FALSE(CoordConvert_HorizontalDatum("A", "B"));
    ExpectToldAndForget("Unkown NADCON Conversion.", "Unkown NADCON Conversion");
    PutMethod("NADCONUS");
    EXPECT_FALSE(CoordConvert_HorizontalDatum("A", "B"));
    ExpectToldAndForget("Unkown NADCON Conversion.", "Unkown NADCON Conversion");
    ExpectUnmoved();
}

TEST_F(HorizontalDatum, SilentFailureOfNADCONStaysSilent) {
    NADCONGrid grid;
    grid.latitude = Constant(0);
    PutGrid(home, "conus", grid);
    PutMethod(There);
    EXPECT_FALSE(CoordConvert_HorizontalDatum("A", "B"));
    ExpectNothingTold(prompts);
    ExpectUnmoved();
}

TEST_F(HorizontalDatum, StagesThatThisVersionDoesNotHave) {
    for (const char* method :
         {"GEOCON Beta NAD 83 (HARN) to NAD 83 (2007) - CONUS",
          "GEOCON11 Beta NAD 83 (2007) to NAD 83 (2011) - Alaska", "GEOCON",
          "HTDP 3.2.3 NAD 83 (2007/2011/CORS) to WGS 84 (G1674)", "HTDP 3.2.3", "HTDP 3.2.31"}) {
        SCOPED_TRACE(method);
        PutMethod(method);
        EXPECT_FALSE(CoordConvert_HorizontalDatum("A", "B"));
        ExpectMissingStage(method);
        ExpectUnmoved();
    }
}

TEST_F(HorizontalDatum, MethodOfAnotherBeginningMovesNothing) {
    PutShifts();
    for (const char* method : {"nadcon NAD 27 to NAD 83", "NADCO", "NAD CON", "The NADCON NAD 27 to NAD 83",
                               "geocon", "GEOCO", "HTDP 3.2.2 NAD 83 to WGS 84", "HTDP", "HTDP 3.2.",
                               "GEOID99 NAD 83 to NAVD 88", "VERTCON NGVD 29 to NAVD 88", "0"}) {
        SCOPED_TRACE(method);
        PutMethod(method);
        EXPECT_TRUE(CoordConvert_HorizontalDatum("A", "B"));
        ExpectNothingTold(prompts);
        ExpectUnmoved();
    }
}

TEST_F(HorizontalDatum, WithoutMethodAndWithOtherEllipsoidIsTold) {
    for (const char* key : {"C=NADCON NAD 27 to NAD 83", "B="}) {
        PutDatums(key, "Clarke 1866", "GRS 80");
        EXPECT_FALSE(CoordConvert_HorizontalDatum("A", "B"));
        ExpectNoTransformation("A", "B");
        ExpectUnmoved();
    }
    EXPECT_FALSE(CoordConvert_HorizontalDatum("A", "Nowhere"));
    ExpectNoTransformation("A", "Nowhere");
    EXPECT_FALSE(CoordConvert_HorizontalDatum("Nowhere", "B"));
    ExpectNoTransformation("Nowhere", "B");
}

TEST_F(HorizontalDatum, WithoutMethodAndWithTheSameEllipsoidIsAsked) {
    for (const auto& [answer, goesOn] : {std::pair(Button::Yes, true), {Button::No, false}}) {
        PutDatums("B=", "GRS 80", "GRS 80");
        prompts.answers = {answer};
        EXPECT_EQ(CoordConvert_HorizontalDatum("A", "B"), goesOn);
        EXPECT_TRUE(prompts.answers.empty());
        ASSERT_EQ(prompts.told.size(), 1U);
        const Message& question = prompts.told[0];
        EXPECT_EQ(
            question.text,
            "No datum transformation exists for 'A' to 'B' but these datums share the same ellipsoid.  The "
            "coordiantes can be converted without a datum transformation but this may introduce errors.  Do "
            "you want to convert the coordinates without applying a datum transformation?");
        EXPECT_EQ(question.caption, "Convert Coordiantes Without Datum Transformation?");
        EXPECT_EQ(question.icon, Icon::Exclamation);
        EXPECT_EQ(question.buttons, Buttons::YesNo);
        ExpectUnmoved();
        prompts.told.clear();
    }
}

// ---- Vertical datums ----

class VerticalDatum : public CoordConvertDatum {};

TEST_F(VerticalDatum, WithoutMethodIsToldWhateverTheEllipsoids) {
    for (const char* ellipsoid : {"GRS 80", "Clarke 1866"}) {
        PutDatums("B=", "GRS 80", ellipsoid);
        EXPECT_FALSE(CoordConvert_VerticalDatum("A", "B"));
        ExpectNoTransformation("A", "B");
        EXPECT_FALSE(CoordConvert_VerticalDatum("B", "A"));
        ExpectNoTransformation("B", "A");
    }
    EXPECT_FALSE(CoordConvert_VerticalDatum("None", "A"));
    ExpectNoTransformation("None", "A");
}

TEST_F(VerticalDatum, StagesThatThisVersionDoesNotHave) {
    for (const char* method :
         {"VERTCON NGVD 29 to NAVD 88", "VERTCON NAVD 88 to NGVD 29", "GEOID99 NAD 83 to NAVD 88",
          "GEOID03 NAD 83 to NAVD 88", "GEOID06 NAD 83 to NAVD 88", "GEOID09 NAD 83 to NAVD 88",
          "GEOID99 NAVD 88 to NAD 83", "GEOID03 NAVD 88 to NAD 83", "GEOID06 NAVD 88 to NAD 83",
          "GEOID09 NAVD 88 to NAD 83"}) {
        SCOPED_TRACE(method);
        PutMethod(method);
        EXPECT_FALSE(CoordConvert_VerticalDatum("A", "B"));
        ExpectMissingStage(method);
    }
}

TEST_F(VerticalDatum, HeightsThatMovedWithThePositionsStay) {
    for (const char* method : {"GEOCON Beta NAD 83 (HARN) to NAD 83 (2007) - CONUS",
                               "GEOCON Beta NAD 83 (2007) to NAD 83 (HARN) - CONUS"}) {
        SCOPED_TRACE(method);
        PutMethod(method);
        PointRecord point = GeographicPoint();
        point.Z = 12;
        point.HE = 24;
        Put(point);
        EXPECT_TRUE(CoordConvert_VerticalDatum("A", "B"));
        ExpectNothingTold(prompts);
        EXPECT_EQ(Point().Z, 12);
        EXPECT_EQ(Point().HE, 24);
        ExpectUnmoved();
    }
}

TEST_F(VerticalDatum, UnknownMethodIsTold) {
    for (const char* method :
         {"GEOID12A NAD 83 to NAVD 88", "GEOID12A NAVD 88 to NAD 83", "VERTCON", "vertcon NGVD 29 to NAVD 88",
          "VERTCON NGVD 29 to NAVD 88 (1994)", "NADCON NAD 27 to NAD 83",
          "GEOCON Beta NAD 83 (HARN) to NAD 83 (2007) - Alaska",
          "GEOCON11 Beta NAD 83 (2007) to NAD 83 (2011) - CONUS",
          "HTDP 3.2.3 NAD 83 (2007/2011/CORS) to WGS 84 (G1674)", "0"}) {
        SCOPED_TRACE(method);
        PutMethod(method);
        EXPECT_FALSE(CoordConvert_VerticalDatum("A", "B"));
        ExpectToldAndForget("Unknown vertical transformation method '" + std::string(method) + "'.",
                            "Unknown Transformation Method");
    }
}

// ---- The vertical stage ----

class VerticalChange : public CoordConvertDatum {
  protected:
    static PointRecord PointWithHeights(const char* units) {
        PointRecord point = GeographicPoint();
        point.Z = 12;
        point.SZ = 0.3F;
        point.HE = -24;
        point.HG = 0.5;
        point.VerticalUnits = Word(units);
        return point;
    }
    // Another unit, with the datum as it is and no geoid.
    static bool ChangeUnits(std::string_view unitsOut) {
        return CoordConvert_VerticalChange("A", "A", unitsOut, false, "");
    }
};

TEST_F(VerticalChange, HeightsChangeTheirUnit) {
    Put(PointWithHeights(Meters));
    EXPECT_TRUE(ChangeUnits(SurveyFeet));
    ExpectNothingTold(prompts);
    EXPECT_DOUBLE_EQ(Point().Z, 39.37);
    EXPECT_DOUBLE_EQ(Point().HE, -78.74);
    EXPECT_DOUBLE_EQ(Point().HG, 3937 / 2400.0);
    // 0.300000011920929 * 3.28083333333333 is 0.98425003911, nearest to the first of two neighbours; a
    // product of 32-bit factors is the second.
    EXPECT_EQ(Point().SZ, 0.98425007F);
    EXPECT_EQ(Point().VerticalUnits, Word(SurveyFeet));
}

TEST_F(VerticalChange, UnitsFollowTheRecord) {
    Tables().ConversionPoints = {};
    for (const char* units : {SurveyFeet, Meters, InternationalFeet, Meters})
        Tables().ConversionPoints.Append(PointWithHeights(units));
    EXPECT_TRUE(ChangeUnits(Meters));
    EXPECT_DOUBLE_EQ(Point(0).Z, 12 * 0.3048006096012192);
    EXPECT_EQ(Point(1).Z, 12);
    EXPECT_EQ(Point(1).SZ, 0.3F);
    EXPECT_DOUBLE_EQ(Point(2).Z, 12 * 0.3048);
    EXPECT_DOUBLE_EQ(Point(2).HE, -24 * 0.3048);
    EXPECT_EQ(Point(3).HE, -24);
    for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(Point(i).VerticalUnits, Word(Meters)) << i;
}

TEST_F(VerticalChange, NoValueStays) {
    Put(GeographicPoint());
    EXPECT_TRUE(ChangeUnits(SurveyFeet));
    EXPECT_EQ(Point().Z, -99999.0);
    EXPECT_EQ(Point().SZ, -99999.0F);
    EXPECT_EQ(Point().HE, -99999.0);
    EXPECT_EQ(Point().HG, -99999.0);
    EXPECT_EQ(Point().VerticalUnits, Word(SurveyFeet));
    // Each by itself.
    PointRecord point = GeographicPoint();
    point.HE = 12;
    Put(point);
    EXPECT_TRUE(ChangeUnits(SurveyFeet));
    EXPECT_EQ(Point().Z, -99999.0);
    EXPECT_DOUBLE_EQ(Point().HE, 39.37);
}

TEST_F(VerticalChange, HorizontalMembersStay) {
    PointRecord point = PointWithHeights(Meters);
    point.Y = 1;
    point.X = 2;
    point.SY = 3;
    point.SX = 4;
    point.CA = 5;
    point.SF = 6;
    point.HorizontalUnits = Word(Meters);
    Put(point);
    EXPECT_TRUE(ChangeUnits(SurveyFeet));
    EXPECT_EQ((std::vector{Point().Y, Point().X, Point().CA, Point().SF}), (std::vector{1.0, 2.0, 5.0, 6.0}));
    EXPECT_EQ((std::vector{Point().SY, Point().SX}), (std::vector{3.0F, 4.0F}));
    EXPECT_EQ(Point().HorizontalUnits, Word(Meters));
    ExpectUnmoved();
}

TEST_F(VerticalChange, UnknownUnitOfARecordKeepsTheNumbers) {
    Put(PointWithHeights("Rods"));
    EXPECT_TRUE(ChangeUnits(Meters));
    EXPECT_EQ(Point().Z, 12);
    EXPECT_EQ(Point().SZ, 0.3F);
    EXPECT_EQ(Point().VerticalUnits, Word(Meters));
}

TEST_F(VerticalChange, UnknownUnitOfTheOutputLosesTheNumbers) {
    Put(PointWithHeights(Meters));
    EXPECT_TRUE(ChangeUnits("Rods"));
    EXPECT_EQ(Point().Z, -99999.0);
    EXPECT_EQ(Point().SZ, -99999.0F);
    EXPECT_EQ(Point().VerticalUnits, Word("Rods"));
}

TEST_F(VerticalChange, ErrorEstimateBeyond32BitsOverflows) {
    PointRecord point = PointWithHeights(Meters);
    point.SZ = 2e38F;
    Put(point);
    EXPECT_EQ(FaultNumberOf([] { ChangeUnits(SurveyFeet); }), 6);
}

TEST_F(VerticalChange, SameDatumNeedsNoTransformation) {
    Put(PointWithHeights(Meters));  // and there is no library
    EXPECT_TRUE(ChangeUnits(SurveyFeet));
    EXPECT_DOUBLE_EQ(Point().Z, 39.37);
}

TEST_F(VerticalChange, FailureOfTheDatumEndsTheStage) {
    Put(PointWithHeights(Meters));
    EXPECT_FALSE(CoordConvert_VerticalChange("A", "B", SurveyFeet, true, "GEOID18"));
    ExpectNoTransformation("A", "B");
    EXPECT_EQ(Point().Z, 12);
    EXPECT_EQ(Point().VerticalUnits, Word(Meters));
}

TEST_F(VerticalChange, DatumThenUnit) {
    PutMethod("GEOCON Beta NAD 83 (HARN) to NAD 83 (2007) - CONUS");
    Put(PointWithHeights(Meters));
    EXPECT_TRUE(CoordConvert_VerticalChange("A", "B", SurveyFeet, false, "GEOID18"));
    ExpectNothingTold(prompts);
    EXPECT_DOUBLE_EQ(Point().Z, 39.37);
}

TEST_F(VerticalChange, UnknownGeoidModelIsTold) {
    for (const char* model : {"GEOID18", "", "geoid99", "GEOID12B", "GEOID12", "EGM2008"}) {
        SCOPED_TRACE(model);
        Put(PointWithHeights(Meters));
        EXPECT_FALSE(CoordConvert_VerticalChange("A", "A", SurveyFeet, true, model));
        ExpectToldAndForget(
            "Unknown Geoid Model '" + std::string(model) + "'.  Can not compute geoid heights.",
            "Geoid Error");
        EXPECT_EQ(Point().Z, 12);
        EXPECT_EQ(Point().VerticalUnits, Word(Meters));
    }
}

TEST_F(VerticalChange, GeoidModelsThatThisVersionDoesNotHave) {
    for (const char* model : {"GEOID99", "GEOID03", "GEOID06", "GEOID09", "GEOID12A", "EGM96"}) {
        SCOPED_TRACE(model);
        Put(PointWithHeights(Meters));
        EXPECT_FALSE(CoordConvert_VerticalChange("A", "A", SurveyFeet, true, model));
        ExpectMissingStage(model);
        EXPECT_EQ(Point().Z, 12);
    }
}

// ---- The pipeline ----

class CoordConvertRun : public CoordConvertDatum {
  protected:
    CoordConvertRun() {
        CoordSystemRef& in = Options().InputSystem;
        in.CS = Geographic;
        in.HD = "A";
        in.HorizontalUnits = "DDD.MMSSssss";
        in.VD = "V";
        in.VerticalUnits = Meters;
        Options().OutputSystem = in;
        Options().OutputSystem.VerticalUnits = SurveyFeet;
        PointRecord point = GeographicPoint();
        point.Y = 1;
        point.X = 2;
        point.Z = 12;
        point.CA = 3;
        point.SF = 4;
        Put(point);
    }
    static ConversionOptions& Options() { return Tables().Options; }
    static void ExpectNoProjection() {
        EXPECT_EQ((std::vector{Point().Y, Point().X, Point().CA, Point().SF}),
                  (std::vector{1.0, 2.0, 3.0, 4.0}));
    }
    static void ExpectHeight(double height, const char* units) {
        EXPECT_DOUBLE_EQ(Point().Z, height);
        EXPECT_EQ(Point().VerticalUnits, Word(units));
    }
};

TEST_F(CoordConvertRun, GeographicToGeographicOfOneDatumIsTheVerticalStageAlone) {
    EXPECT_TRUE(CoordConvert_Run());  // with no library at all
    ExpectNothingTold(prompts);
    ExpectUnmoved();
    ExpectNoProjection();
    ExpectHeight(39.37, SurveyFeet);
    EXPECT_TRUE(Options().OutputGeographic);
}

TEST_F(CoordConvertRun, OtherVerticalDatumAloneLeavesPositions) {
    PutShifts();
    home.PutDatums(
        "[A]\r\nA=NADCON NAD 27 to NAD 83\r\n"
        "[V]\r\nW=GEOCON Beta NAD 83 (HARN) to NAD 83 (2007) - CONUS\r\n");
    Options().OutputSystem.VD = "W";
    EXPECT_TRUE(CoordConvert_Run());
    ExpectNothingTold(prompts);
    ExpectUnmoved();
    ExpectNoProjection();
    ExpectHeight(39.37, SurveyFeet);
}

TEST_F(CoordConvertRun, OtherHorizontalDatumShiftsPositions) {
    PutShifts();
    PutMethod(There);
    Options().OutputSystem.HD = "B";
    EXPECT_TRUE(CoordConvert_Run());
    ExpectAt(43.25, 98.5);
    ExpectNoProjection();
    ExpectHeight(39.37, SurveyFeet);
}

TEST_F(CoordConvertRun, FailureOfTheHorizontalDatumEndsTheRun) {
    PutMethod(There);  // and no grid
    Options().OutputSystem.HD = "B";
    Options().OutputSystem.VD = "W";
    EXPECT_FALSE(CoordConvert_Run());
    ExpectToldAndForget(
        "The point to be converted does not fall within the selected NADCON grid.  Can not convert point.",
        "NADCON Error");
    ExpectHeight(12, Meters);
}

TEST_F(CoordConvertRun, RefusalToGoOnWithoutTransformationEndsTheRun) {
    PutDatums("B=", "GRS 80", "GRS 80");
    Options().OutputSystem.HD = "B";
    prompts.answers = {Button::No, Button::Yes};
    EXPECT_FALSE(CoordConvert_Run());
    ExpectHeight(12, Meters);
    EXPECT_TRUE(CoordConvert_Run());
    EXPECT_EQ(prompts.told.size(), 2U);
    ExpectHeight(39.37, SurveyFeet);
    ExpectUnmoved();
}

TEST_F(CoordConvertRun, FailureOfTheVerticalStageKeepsTheShift) {
    PutShifts();
    PutMethod(There);
    Options().OutputSystem.HD = "B";
    Options().OutputSystem.VD = "W";
    EXPECT_FALSE(CoordConvert_Run());
    ExpectNoTransformation("V", "W");
    ExpectAt(43.25, 98.5);
    ExpectHeight(12, Meters);
}

TEST_F(CoordConvertRun, FailureOfTheInputSystemComesBeforeTheDatums) {
    Options().InputSystem.CS = "No System";
    Options().InputSystem.ZN = "No Zone";
    Options().OutputSystem.HD = "B";
    EXPECT_FALSE(CoordConvert_Run());
    ExpectToldAndForget("Unknown Coordinate System or Zone 'No System' and 'No Zone'.",
                        "Coordiante System Error");
    ExpectUnmoved();
}

TEST_F(CoordConvertRun, FailureOfTheOutputSystemComesLast) {
    PutShifts();
    PutMethod(There);
    Options().OutputSystem.CS = "No System";
    Options().OutputSystem.ZN = "No Zone";
    Options().OutputSystem.HD = "B";
    EXPECT_FALSE(CoordConvert_Run());
    ExpectToldAndForget("Unknown Coordinate System or Zone 'No System' and 'No Zone'.",
                        "Coordiante System Error");
    ExpectAt(43.25, 98.5);
    ExpectHeight(39.37, SurveyFeet);
    EXPECT_FALSE(Options().OutputGeographic);
}

// ---- The line of the geoid model ----

TEST(GeoidLine, StandsBehindHeaderTextOrAlone) {
    ConversionOptions options;
    options.ComputeGeoid = true;
    options.GeoidModel = "GEOID12A";
    ProjectHeader header;
    AddGeoidLine(header, options);
    EXPECT_EQ(header.HeaderLines, "GD:GEOID12A");
    header.HeaderLines = "CM:first\r\nCM:second";
    AddGeoidLine(header, options);
    EXPECT_EQ(header.HeaderLines, "CM:first\r\nCM:second\r\nGD:GEOID12A");
}

TEST(GeoidLine, IsLeftOutWithoutGeoidHeights) {
    ConversionOptions options;
    options.GeoidModel = "GEOID12A";
    ProjectHeader header;
    AddGeoidLine(header, options);
    EXPECT_EQ(header.HeaderLines, "");
    header.HeaderLines = "CM:first";
    AddGeoidLine(header, options);
    EXPECT_EQ(header.HeaderLines, "CM:first");
}

}  // namespace
}  // namespace tarvek::test
