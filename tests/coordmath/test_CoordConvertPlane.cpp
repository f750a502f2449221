// Point lists carried between plane systems and geographic positions: which equations, which units, what is
// written to a point and what is left.

#include "coordmath/modCoordConvertPlane.hpp"

#include <string>

#include "coordmath/modLambertNI.hpp"
#include "coordmath/modNAD27AK2to9.hpp"
#include "coordmath/modNAD27Lambert.hpp"
#include "coordmath/modNAD27TMercator.hpp"
#include "coordmath/modNAD83Lambert.hpp"
#include "coordmath/modNAD83OMercator.hpp"
#include "coordmath/modNAD83TMercator.hpp"
#include "coordmath/modZoneParameters.hpp"
#include "coordmath/projectionTest.hpp"
#include "coordmath/zoneLibrary.hpp"
#include "surveyfiles/modSurveyRecords.hpp"

namespace tarvek::test {
namespace {

constexpr double None = -99999.0;
constexpr float NoneSingle = -99999.0F;

PointRecord PlanePoint(double Y, double X, std::string_view unit = "Meters") {
    PointRecord point;
    point.Y = Y;
    point.X = X;
    point.HorizontalUnits = unit;
    return point;
}

PointRecord GeographicPoint(double LT, double LG, std::string_view latitudes = "N",
                            std::string_view longitudes = "W") {
    PointRecord point;
    point.LT = LT;
    point.LG = LG;
    point.LatDir = latitudes;
    point.LongDir = longitudes;
    point.IsGeographic = true;
    return point;
}

// Both ways of the equations of a zone, by the parameters that the library has of it.
struct Equations {
    std::string_view zone;
    PlanePosition (*plane)(const ZoneParameters& z, double phi, double lam);
    GeographicPosition (*geographic)(const ZoneParameters& z, double northing, double easting);
};

TMercator83Zone TMercator83Of(const ZoneParameters& z) {
    return TMercator83ZoneOf(z.a, z.e, z.phi0, z.lam0, z.FN, z.FE, z.k0);
}
LambertNIZone LambertNIOf(const ZoneParameters& z) {
    return LambertNIZoneOf(z.a, z.e, z.phi0, z.lam0, z.FN, z.FE, z.k0);
}
Lambert83Zone Lambert83Of(const ZoneParameters& z) {
    return Lambert83ZoneOf(z.northParallel, z.southParallel, z.phi0, z.lam0, z.FN, z.FE, z.a, z.e);
}
OMercator83Zone OMercator83Of(const ZoneParameters& z) {
    return OMercator83ZoneOf(z.a, z.e, z.phi0, z.lam0, z.FN, z.FE, z.k0, z.alpha);
}
TMercator27Zone TMercator27Of(const ZoneParameters& z) {
    return TMercator27ZoneOf(z.a, z.e, z.phi0, z.lam0, z.FN, z.FE, z.k0);
}
Lambert27Zone Lambert27Of(const ZoneParameters& z) {
    return Lambert27ZoneOf(z.northParallel, z.southParallel, z.phi0, z.lam0, z.FN, z.FE, z.a, z.e);
}

using Z = const ZoneParameters&;
constexpr Equations AllEquations[] = {
    {TransverseZone, [](Z z, double phi, double lam) { return TMercator83Plane(TMercator83Of(z), phi, lam); },
     [](Z z, double N, double E) { return TMercator83Geographic(TMercator83Of(z), N, E); }},
    {OneParallelZone, [](Z z, double phi, double lam) { return LambertNIPlane(LambertNIOf(z), phi, lam); },
     [](Z z, double N, double E) { return LambertNIGeographic(LambertNIOf(z), N, E); }},
    {TwoParallelsZone, [](Z z, double phi, double lam) { return Lambert83Plane(Lambert83Of(z), phi, lam); },
     [](Z z, double N, double E) { return Lambert83Geographic(Lambert83Of(z), N, E); }},
    {ObliqueZone, [](Z z, double phi, double lam) { return OMercator83Plane(OMercator83Of(z), phi, lam); },
     [](Z z, double N, double E) { return OMercator83Geographic(OMercator83Of(z), N, E); }},
    {TransverseZone27,
     [](Z z, double phi, double lam) { return TMercator27Plane(TMercator27Of(z), phi, lam); },
     [](Z z, double N, double E) { return TMercator27Geographic(TMercator27Of(z), N, E); }},
    {LambertZone27, [](Z z, double phi, double lam) { return Lambert27Plane(Lambert27Of(z), phi, lam); },
     [](Z z, double N, double E) { return Lambert27Geographic(Lambert27Of(z), N, E); }},
};

class PlaneConversion : public ::testing::Test {
  protected:
    PlaneConversion() { Tables() = {}; }
    ~PlaneConversion() override { Tables() = {}; }

    static void Add(const PointRecord& point) { Tables().ConversionPoints.Append(point); }
    static const PointRecord& Point(std::size_t index) { return Tables().ConversionPoints[index]; }
    static bool ToGeographic(std::string_view zone, std::string_view datum = "NAD 83") {
        return CoordConvert_PlaneToGeographic(TestSystem, zone, datum);
    }
    static bool ToPlane(std::string_view zone, std::string_view unit = "Meters") {
        return CoordConvert_GeographicToPlane(TestSystem, zone, "NAD 83", unit);
    }
    static ZoneParameters ParametersOf(std::string_view zone, std::string_view datum = "NAD 83") {
        return ReadZoneParameters(TestSystem, zone, datum).value();
    }
    static std::string UnitOf(std::string_view zone) {
        return std::string(ParametersOf(zone).projection->unit);
    }
    // A position some way from the origin of a zone.
    static GeographicPosition PlaceIn(std::string_view zone) {
        const ZoneParameters z = ParametersOf(zone);
        return {.phi = z.phi0 + 0.013, .lam = z.lam0 - 0.021};
    }

    static void ExpectGeographic(const PointRecord& point, const GeographicPosition& expected) {
        EXPECT_EQ(point.LT, expected.phi);
        EXPECT_EQ(point.LG, expected.lam);
        EXPECT_EQ(point.CA, expected.convergence);
        EXPECT_EQ(point.SF, expected.scale);
        EXPECT_EQ(point.LatDir, "N");
        EXPECT_EQ(point.LongDir, "W");
        EXPECT_TRUE(point.IsGeographic);
    }
    static void ExpectPlane(const PointRecord& point, const PlanePosition& expected) {
        EXPECT_EQ(point.Y, expected.northing);
        EXPECT_EQ(point.X, expected.easting);
        EXPECT_EQ(point.CA, expected.convergence);
        EXPECT_EQ(point.SF, expected.scale);
        EXPECT_FALSE(point.IsGeographic);
    }

    ZoneLibrary library;
    ScriptedPrompts prompts;
};

// ---- Which equations ----

TEST_F(PlaneConversion, EveryProjectionGoesByItsEquationsBothWays) {
    for (const Equations& equations : AllEquations) {
        SCOPED_TRACE(equations.zone);
        Tables() = {};
        const ZoneParameters z = ParametersOf(equations.zone);
        const GeographicPosition place = PlaceIn(equations.zone);
        const PlanePosition plane = equations.plane(z, place.phi, place.lam);
        Add(GeographicPoint(place.phi, place.lam));
        EXPECT_TRUE(ToPlane(equations.zone, z.projection->unit));
        ExpectPlane(Point(0), plane);
        EXPECT_TRUE(ToGeographic(equations.zone));
        ExpectGeographic(Point(0), equations.geographic(z, plane.northing, plane.easting));
        ExpectNear(Point(0).LT, place.phi, 1e-8);
        ExpectNear(Point(0).LG, place.lam, 1e-8);
    }
    ExpectNothingTold(prompts);
}

TEST_F(PlaneConversion, AZoneFoundByItsShortNamesIsAsGoodAsTheExactOne) {
    Add(PlanePoint(50000, 210000));
    Add(PlanePoint(50000, 210000));
    EXPECT_TRUE(CoordConvert_PlaneToGeographic("TST", "10", "NAD 83"));
    const ZoneParameters z = ParametersOf(TransverseZone);
    ExpectGeographic(Point(1), TMercator83Geographic(TMercator83Of(z), 50000, 210000));
    EXPECT_TRUE(CoordConvert_GeographicToPlane("tst", "10", "NAD 83", "Meters"));
    ExpectNear(Point(0).Y, 50000, 1e-4);
    ExpectNothingTold(prompts);
}

TEST_F(PlaneConversion, AZoneWithoutAnEllipsoidOfItsOwnComputesOnThatOfTheDatum) {
    for (const char* datum : {"NAD 83", "NAD 27"}) {
        SCOPED_TRACE(datum);
        Tables() = {};
        Add(PlanePoint(50000, 210000));
        EXPECT_TRUE(ToGeographic(TransverseZone, datum));
        const ZoneParameters z = ParametersOf(TransverseZone, datum);
        EXPECT_EQ(z.a, datum == std::string("NAD 27") ? 6378206.4 : 6378137);
        ExpectGeographic(Point(0), TMercator83Geographic(TMercator83Of(z), 50000, 210000));
    }
}

// ---- Alaska ----

constexpr double FarFE = 12345678;

// Sets another transverse Mercator zone of 1927, which would show itself in every coordinate.
void SetFarZone() { TMercator27_SET_Zone(Clarke1866.a, Clarke1866.e, 0.1, 0.2, 0, FarFE, 1); }
bool IsFarZoneInForce() { return TMercator27_GET_Plane(0.1, 0.2).easting == FarFE; }

TEST_F(PlaneConversion, Alaska2To9GoByTheirOwnEquationsWithoutAZoneBeingSet) {
    for (const char* zone : {"5002 - Alaska 2", "5005", "5009 - Alaska 9", " 5003 - Alaska 3", "5004x"}) {
        SCOPED_TRACE(zone);
        Tables() = {};
        library.PutTransverse27Zone(zone);
        SetFarZone();
        const ZoneParameters z = ParametersOf(zone);
        const AK27Zone alaska = {.FE = z.FE, .lamc = z.lam0};
        Add(PlanePoint(3e6, 6e5, "U.S. Survey Feet"));
        EXPECT_TRUE(ToGeographic(zone));
        const GeographicPosition position = AK27Geographic(alaska, 3e6, 6e5);
        ExpectGeographic(Point(0), position);
        EXPECT_TRUE(ToPlane(zone, "U.S. Survey Feet"));
        ExpectPlane(Point(0), AK27Plane(alaska, position.phi, position.lam));
        EXPECT_TRUE(IsFarZoneInForce());
    }
}

TEST_F(PlaneConversion, TheZonesBesideThemGoByTheOtherEquationsOf1927) {
    for (const char* zone : {"5001 - Alaska 1", "5010 - Alaska 10", "Alaska 5002", "50020", "5", ""}) {
        SCOPED_TRACE(zone);
        Tables() = {};
        library.PutTransverse27Zone(zone);
        SetFarZone();
        const TMercator27Zone other = TMercator27Of(ParametersOf(zone));
        Add(PlanePoint(3e6, 6e5, "U.S. Survey Feet"));
        EXPECT_TRUE(ToGeographic(zone));
        EXPECT_FALSE(IsFarZoneInForce());
        const GeographicPosition position = TMercator27Geographic(other, 3e6, 6e5);
        ExpectGeographic(Point(0), position);
        EXPECT_NE(position.phi, AK27_GET_Geographic(3e6, 6e5, other.FE, 0, Radians(150)).phi);
        EXPECT_TRUE(ToPlane(zone, "U.S. Survey Feet"));
        ExpectPlane(Point(0), TMercator27Plane(other, position.phi, position.lam));
    }
}

TEST_F(PlaneConversion, AnotherProjectionIsNotAlaskaWhateverItsNumber) {
    constexpr const char* zone = "5002 - Transverse";
    library.PutZone(zone,
                    "Projection=Transverse Mercator\nCentral Latitude=54\nCentral Longitude=142\n"
                    "False Northing=0\nFalse Easting=500000\nScale Factor=0.9999\nLinear Units=Meters\n");
    Add(PlanePoint(1e6, 6e5));
    EXPECT_TRUE(ToGeographic(zone));
    ExpectGeographic(Point(0), TMercator83Geographic(TMercator83Of(ParametersOf(zone)), 1e6, 6e5));
}

// ---- Plane to geographic: units and what is written ----

TEST_F(PlaneConversion, CoordinatesAndTheirErrorsGoToTheUnitOfTheEquations) {
    struct Row {
        std::string_view zone;
        const char* unit;
        double factor;
    };
    for (const Row& row :
         {Row{TransverseZone, "U.S. Survey Feet", 0.3048006096012192}, Row{TransverseZone, "I", 0.3048},
          Row{TransverseZone, "Meters", 1}, Row{TransverseZone, "Chains", 1},
          Row{TwoParallelsZone, "F", 0.3048006096012192}, Row{TransverseZone27, "Meters", 3.2808333333333333},
          Row{TransverseZone27, "International Feet", 0.999998},
          Row{LambertZone27, "M", 3.2808333333333333}}) {
        SCOPED_TRACE(::testing::Message() << row.zone << ", " << row.unit);
        Tables() = {};
        PointRecord point = PlanePoint(654321.125, 765432.25, row.unit);
        point.SY = 1.1F;
        point.SX = 0.7F;
        Add(point);
        EXPECT_TRUE(ToGeographic(row.zone));
        EXPECT_EQ(Point(0).Y, 654321.125 * row.factor);
        EXPECT_EQ(Point(0).X, 765432.25 * row.factor);
        EXPECT_EQ(Point(0).SY, static_cast<float>(static_cast<double>(1.1F) * row.factor));
        EXPECT_EQ(Point(0).SX, static_cast<float>(static_cast<double>(0.7F) * row.factor));
        EXPECT_EQ(Point(0).HorizontalUnits, UnitOf(row.zone));
        EXPECT_TRUE(Point(0).IsGeographic);
    }
}

TEST_F(PlaneConversion, EveryPointHasAUnitOfItsOwn) {
    const double meters = 50000;
    Add(PlanePoint(meters, meters));
    Add(PlanePoint(meters / 0.3048, meters / 0.3048, "I"));
    Add(PlanePoint(meters, meters, "Meters"));
    Add(PlanePoint(meters / 1200 * 3937, meters / 1200 * 3937, "F"));
    EXPECT_TRUE(ToGeographic(TransverseZone));
    for (std::size_t i = 0; i < 4; ++i) {
        ExpectNear(Point(i).Y, meters, 1e-10);
        ExpectNear(Point(i).LT, Point(0).LT, 1e-15);
        EXPECT_EQ(Point(i).HorizontalUnits, "Meters");
    }
}

TEST_F(PlaneConversion, ErrorsThatAreNotKnownStayUnknown) {
    Add(PlanePoint(50000, 210000, "U.S. Survey Feet"));
    EXPECT_TRUE(ToGeographic(TransverseZone));
    EXPECT_EQ(Point(0).SY, NoneSingle);
    EXPECT_EQ(Point(0).SX, NoneSingle);
    EXPECT_TRUE(ToPlane(TransverseZone, "International Feet"));
    EXPECT_EQ(Point(0).SY, NoneSingle);
    EXPECT_EQ(Point(0).SX, NoneSingle);
}

TEST_F(PlaneConversion, AnErrorThatLeavesThirtyTwoBitsIsAnOverflow) {
    PointRecord point = PlanePoint(50000, 210000, "Meters");
    point.SY = 3e38F;
    Add(point);
    ExpectOverflow([] { ToGeographic(TransverseZone27); });
    Tables() = {};
    point = GeographicPoint(0.5, 1.5);
    point.SX = 3e38F;
    Add(point);
    ExpectOverflow([] { ToPlane(TransverseZone, "U.S. Survey Feet"); });
}

TEST_F(PlaneConversion, WhatAPointHasBesideItsPositionStays) {
    PointRecord point = PlanePoint(50000, 210000, "U.S. Survey Feet");
    point.PN = "A";
    point.Z = 12.5;
    point.SZ = 0.25F;
    point.HE = 3;
    point.HG = -4;
    point.VerticalUnits = "U.S. Survey Feet";
    point.LatDir = "S";
    point.LongDir = "E";
    Add(point);
    EXPECT_TRUE(ToGeographic(TransverseZone));
    EXPECT_TRUE(ToPlane(TransverseZone, "Meters"));
    EXPECT_EQ(Point(0).PN, "A");
    EXPECT_EQ(Point(0).Z, 12.5);
    EXPECT_EQ(Point(0).SZ, 0.25F);
    EXPECT_EQ(Point(0).HE, 3);
    EXPECT_EQ(Point(0).HG, -4);
    EXPECT_EQ(Point(0).VerticalUnits, "U.S. Survey Feet");
    EXPECT_EQ(Point(0).LatDir, "N");  // the inverse told both
    EXPECT_EQ(Point(0).LongDir, "W");
}

TEST_F(PlaneConversion, APointWithoutAPositionIsPassedOver) {
    Add(PlanePoint(50000, 210000));
    Add(PlanePoint(None, 210000, "U.S. Survey Feet"));
    Add(PlanePoint(50000, None, "U.S. Survey Feet"));
    Add(PlanePoint(60000, 220000));
    EXPECT_TRUE(ToGeographic(TransverseZone));
    for (const std::size_t without : {1U, 2U}) {
        EXPECT_FALSE(Point(without).IsGeographic);
        EXPECT_EQ(Point(without).LT, None);
        EXPECT_EQ(Point(without).HorizontalUnits, "U.S. Survey Feet");
        EXPECT_EQ(Point(without).SF, None);
    }
    EXPECT_EQ(Point(1).X, 210000);
    EXPECT_EQ(Point(2).Y, 50000);
    const TMercator83Zone zone = TMercator83Of(ParametersOf(TransverseZone));
    ExpectGeographic(Point(0), TMercator83Geographic(zone, 50000, 210000));
    ExpectGeographic(Point(3), TMercator83Geographic(zone, 60000, 220000));
}

// ---- Geographic to plane ----

TEST_F(PlaneConversion, PlaneCoordinatesComeInTheUnitThatIsAskedFor) {
    struct Row {
        std::string_view zone;
        const char* unit;
        double factor;
    };
    for (const Row& row :
         {Row{TransverseZone, "Meters", 1}, Row{TransverseZone, "U.S. Survey Feet", 3.2808333333333333},
          Row{TransverseZone, "International Feet", 3.280839895},
          Row{TwoParallelsZone, "F", 3.2808333333333333}, Row{TransverseZone27, "Meters", 0.3048006096012192},
          Row{TransverseZone27, "U.S. Survey Feet", 1}, Row{LambertZone27, "International Feet", 1.000002}}) {
        SCOPED_TRACE(::testing::Message() << row.zone << ", " << row.unit);
        Tables() = {};
        const GeographicPosition place = PlaceIn(row.zone);
        Add(GeographicPoint(place.phi, place.lam));
        EXPECT_TRUE(ToPlane(row.zone, UnitOf(row.zone)));
        const PlanePosition plane = {Point(0).Y, Point(0).X, Point(0).CA, Point(0).SF};
        PointRecord point = GeographicPoint(place.phi, place.lam);
        point.SY = 1.1F;
        point.SX = 0.7F;
        point.HorizontalUnits = "DDD.MMSSssss";
        Tables() = {};
        Add(point);
        EXPECT_TRUE(ToPlane(row.zone, row.unit));
        ExpectPlane(Point(0), {plane.northing * row.factor, plane.easting * row.factor, plane.convergence,
                               plane.scale});
        EXPECT_EQ(Point(0).SY, static_cast<float>(static_cast<double>(1.1F) * row.factor));
        EXPECT_EQ(Point(0).SX, static_cast<float>(static_cast<double>(0.7F) * row.factor));
        EXPECT_EQ(Point(0).HorizontalUnits, row.unit);
    }
}

TEST_F(PlaneConversion, LatitudeAndLongitudeTurnWhileTheirDirectionsStay) {
    struct Row {
        double LT;
        const char* latitudes;
        double LG;
        const char* longitudes;
    };
    const double phi = Radians(31);
    const double lam = Radians(85);
    const double circle = 6.28318530717958;
    for (const Row& row :
         {Row{phi, "N", lam, "W"}, Row{-phi, "S", lam, "W"}, Row{phi, "N", circle - lam, "E"},
          Row{phi, "N", -lam, "E"}, Row{phi, "N", -lam, "-W"}, Row{-phi, "S", -lam, "-W"},
          Row{phi, "N", lam - circle, "W"}}) {
        SCOPED_TRACE(::testing::Message() << row.LT << row.latitudes << ' ' << row.LG << row.longitudes);
        Tables() = {};
        Add(GeographicPoint(row.LT, row.LG, row.latitudes, row.longitudes));
        EXPECT_TRUE(ToPlane(TransverseZone));
        EXPECT_EQ(Point(0).LT, phi);
        ExpectNear(Point(0).LG, lam, 2e-15);
        EXPECT_EQ(Point(0).LatDir, row.latitudes);
        EXPECT_EQ(Point(0).LongDir, row.longitudes);
        ExpectPlane(Point(0),
                    TMercator83Plane(TMercator83Of(ParametersOf(TransverseZone)), phi, Point(0).LG));
    }
}

TEST_F(PlaneConversion, APointWithoutLatitudeOrLongitudeIsPassedOver) {
    const double phi = Radians(31);
    const double lam = Radians(85);
    Add(GeographicPoint(None, lam, "S", "E"));
    Add(GeographicPoint(phi, None));
    Add(GeographicPoint(phi, lam));
    EXPECT_TRUE(ToPlane(TransverseZone));
    for (const std::size_t without : {0U, 1U}) {
        EXPECT_TRUE(Point(without).IsGeographic);
        EXPECT_EQ(Point(without).Y, None);
        EXPECT_TRUE(Point(without).HorizontalUnits.empty());
    }
    EXPECT_EQ(Point(0).LG, lam);
    ExpectPlane(Point(2), TMercator83Plane(TMercator83Of(ParametersOf(TransverseZone)), phi, lam));
}

TEST_F(PlaneConversion, APointOfAnUnknownDirectionIsPassedOver) {
    Add(GeographicPoint(0.5, 1.5, "", "W"));
    Add(GeographicPoint(0.5, 1.5, "N", "X"));
    EXPECT_TRUE(ToPlane(TransverseZone));
    for (const std::size_t unknown : {0U, 1U}) {
        EXPECT_EQ(Point(unknown).LT, 0.5);
        EXPECT_EQ(Point(unknown).LG, 1.5);
        EXPECT_EQ(Point(unknown).Y, None);
        EXPECT_TRUE(Point(unknown).IsGeographic);
    }
}

// ---- Lists ----

TEST_F(PlaneConversion, AListWithoutRecordsIsTrueWithNothingDone) {
    for (const Equations& equations : AllEquations) {
        EXPECT_TRUE(ToGeographic(equations.zone));
        EXPECT_TRUE(ToPlane(equations.zone));
    }
    EXPECT_FALSE(Tables().ConversionPoints.IsAllocated());
    ExpectNothingTold(prompts);
}

TEST_F(PlaneConversion, AListThatSharesItsRecordsStaysAsItWas) {
    constexpr std::size_t Count = 600;  // more than two blocks
    for (std::size_t i = 0; i < Count; ++i) {
        const double offset = static_cast<double>(i) * 100;
        Tables().InputPoints.Append(PlanePoint(50000 + offset, 210000 - offset, "U.S. Survey Feet"));
    }
    Tables().ConversionPoints = Tables().InputPoints;
    EXPECT_TRUE(ToGeographic(TransverseZone));
    const PointList geographic = Tables().ConversionPoints;
    EXPECT_TRUE(ToPlane(TransverseZone));
    for (std::size_t i = 0; i < Count; ++i) {
        const double offset = static_cast<double>(i) * 100;
        const PointRecord& input = Tables().InputPoints[i];
        EXPECT_EQ(input.Y, 50000 + offset);
        EXPECT_EQ(input.LT, None);
        EXPECT_FALSE(input.IsGeographic);
        EXPECT_EQ(input.HorizontalUnits, "U.S. Survey Feet");
        EXPECT_TRUE(geographic[i].IsGeographic);
        EXPECT_FALSE(Point(i).IsGeographic);
        ExpectNear(Point(i).Y, (50000 + offset) * 1200 / 3937, 1e-4);
        ExpectNear(Point(i).X, (210000 - offset) * 1200 / 3937, 1e-4);
    }
}

// ---- Refusals and faults ----

TEST_F(PlaneConversion, AnUnknownZoneIsToldAndThePointsStay) {
    Add(PlanePoint(50000, 210000, "U.S. Survey Feet"));
    constexpr std::string_view text =
        "Unknown Coordinate System or Zone 'TST - Test System' and '99 - None'.";
    EXPECT_FALSE(ToGeographic("99 - None"));
    ExpectToldOnly(prompts, text, "Coordiante System Error");
    EXPECT_EQ(Point(0).Y, 50000);
    EXPECT_EQ(Point(0).HorizontalUnits, "U.S. Survey Feet");
    EXPECT_EQ(Point(0).LT, None);
    EXPECT_FALSE(Point(0).IsGeographic);

    prompts.told.clear();
    Tables() = {};
    Add(GeographicPoint(-0.5, 1.5, "S", "E"));
    EXPECT_FALSE(ToPlane("99 - None"));
    ExpectToldOnly(prompts, text, "Coordiante System Error");
    EXPECT_EQ(Point(0).LT, -0.5);
    EXPECT_EQ(Point(0).LG, 1.5);
    EXPECT_EQ(Point(0).Y, None);
    EXPECT_TRUE(Point(0).IsGeographic);
}

TEST_F(PlaneConversion, AnUnknownProjectionIsTrueAndThePointsStay) {
    library.Change(TransverseZone, "Projection", "Mercator");
    Add(PlanePoint(50000, 210000, "U.S. Survey Feet"));
    EXPECT_TRUE(ToGeographic(TransverseZone));
    EXPECT_EQ(Point(0).Y, 50000);
    EXPECT_EQ(Point(0).HorizontalUnits, "U.S. Survey Feet");
    EXPECT_EQ(Point(0).LT, None);
    EXPECT_FALSE(Point(0).IsGeographic);
    Tables() = {};
    Add(GeographicPoint(-0.5, 1.5, "S", "E"));
    EXPECT_TRUE(ToPlane(TransverseZone));
    EXPECT_EQ(Point(0).LT, -0.5);
    EXPECT_EQ(Point(0).Y, None);
    EXPECT_TRUE(Point(0).IsGeographic);
    ExpectNothingTold(prompts);
}

TEST_F(PlaneConversion, AZoneThatCanNotBeReadLeavesThePoints) {
    library.Change(TransverseZone, "Scale Factor", "");
    Add(PlanePoint(50000, 210000, "U.S. Survey Feet"));
    EXPECT_EQ(FaultOf([] { ToGeographic(TransverseZone); }), Fault::TypeMismatch);
    EXPECT_EQ(Point(0).Y, 50000);
    EXPECT_EQ(Point(0).LT, None);
}

// The angle stands as -99999 radians, with which the equations are set up all the same.
TEST_F(PlaneConversion, ARefusedAngleIsToldAndTheComputationGoesOn) {
    library.Change(TransverseZone, "Central Longitude", "85.600000000");
    Add(PlanePoint(50000, 200000));
    EXPECT_TRUE(ToGeographic(TransverseZone));
    ExpectToldOnly(prompts,
                   "Invalid Angle '85.600000000'. Minutes portion must be positive and not exceed 59.",
                   "Invalid Angle");
    EXPECT_EQ(Point(0).LG, None);
    EXPECT_TRUE(Point(0).IsGeographic);
}

TEST_F(PlaneConversion, AFaultInTheMiddleLeavesThePointsBeforeItChanged) {
    Add(PlanePoint(310000, 610000, "U.S. Survey Feet"));
    Add(PlanePoint(300000, 600000));  // the origin, where the loop of the arc divides by nothing
    Add(PlanePoint(320000, 620000, "U.S. Survey Feet"));
    ExpectOverflow([] { ToGeographic(OneParallelZone); });
    EXPECT_TRUE(Point(0).IsGeographic);
    EXPECT_EQ(Point(0).HorizontalUnits, "Meters");
    EXPECT_FALSE(Point(1).IsGeographic);
    EXPECT_EQ(Point(1).LT, None);
    EXPECT_FALSE(Point(2).IsGeographic);
    EXPECT_EQ(Point(2).Y, 320000);
    EXPECT_EQ(Point(2).HorizontalUnits, "U.S. Survey Feet");

    Tables() = {};
    Add(GeographicPoint(Radians(31), Radians(85)));
    Add(GeographicPoint(Radians(90), Radians(85)));
    Add(GeographicPoint(-Radians(31), Radians(85), "S"));
    ExpectOverflow([] { ToPlane(TransverseZone); });
    EXPECT_FALSE(Point(0).IsGeographic);
    EXPECT_NE(Point(0).Y, None);
    EXPECT_TRUE(Point(1).IsGeographic);
    EXPECT_EQ(Point(1).Y, None);
    EXPECT_TRUE(Point(2).IsGeographic);
    EXPECT_EQ(Point(2).LT, -Radians(31));
    ExpectNothingTold(prompts);
}

// A point is carried to the unit of the equations before they are worked.
TEST_F(PlaneConversion, ThePointOfAFaultIsInTheUnitOfTheEquations) {
    PointRecord origin = PlanePoint(300000 / 0.3048, 600000 / 0.3048, "International Feet");
    origin.SY = 10;
    Add(origin);
    ExpectOverflow([] { ToGeographic(OneParallelZone); });
    EXPECT_EQ(Point(0).Y, 300000);
    EXPECT_EQ(Point(0).SY, static_cast<float>(10 * 0.3048));
    EXPECT_EQ(Point(0).HorizontalUnits, "Meters");
    EXPECT_EQ(Point(0).LT, None);
    Tables() = {};
    Add(GeographicPoint(-Radians(90), 1, "S"));
    ExpectOverflow([] { ToPlane(TransverseZone); });
    EXPECT_EQ(Point(0).LT, Radians(90));
    EXPECT_EQ(Point(0).Y, None);
}

}  // namespace
}  // namespace tarvek::test
