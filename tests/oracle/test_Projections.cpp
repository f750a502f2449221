// Every zone of the seeds against the true projection: how far coordinates, positions, convergences and
// scales may lie from it, by projection and zone.

#include <gtest/gtest.h>

#include <cmath>
#include <set>
#include <string_view>

#include "coordmath/modLambertNI.hpp"
#include "oracle/zoneDifferences.hpp"

namespace tarvek::test {
namespace {

constexpr double Foot = MetersPerSurveyFoot * 1000;  // in millimeters
constexpr double TenThousandthSecond = 3.1;          // of latitude, in millimeters

struct Bounds {
    std::string_view projection;
    std::string_view system;  // short name; empty for any
    std::string_view zones;   // short names between blanks; empty for any
    Differences largest;
};

constexpr std::string_view TransverseMercator = "Transverse Mercator";
constexpr std::string_view TransverseMercator27 = "Transverse Mercator - NAD 27 Equations";
constexpr std::string_view Lambert27 = "Lambert Conformal Conic - NAD 27 Equations";
constexpr std::string_view TwoParallels = "Lambert Conformal Conic - Two Parallels";
constexpr std::string_view OneParallel = "Lambert Conformal Conic - One Parallel";
constexpr std::string_view Hotine = "Oblique Mercator - Hotine";

// The NAD 83 transverse Mercator with these bounds of the latitude and the scale; all others are the same
// everywhere.
constexpr Differences TransverseMercatorBounds(double latitude, double scale) {
    return {.northing = 0.05,
            .easting = 0.05,
            .latitude = latitude,
            .longitude = 0.05,
            .convergence = 0.01,
            .scale = scale,
            .returnedLatitude = latitude + 0.05,
            .returnedLongitude = 0.05};
}

// The NAD 27 transverse Mercator with these bounds of both ways, in feet.
constexpr Differences TransverseMercator27Bounds(double north, double east, double convergence,
                                                 double scale) {
    return {.northing = north * Foot,
            .easting = east * Foot,
            .latitude = north * Foot,
            .longitude = east * Foot,
            .convergence = convergence,
            .scale = scale,
            .returnedLatitude = TenThousandthSecond,
            .returnedLongitude = 0.1};
}

constexpr Differences Lambert27Bounds(double length, double scale) {
    return {.northing = length * Foot,
            .easting = length * Foot,
            .latitude = length * Foot,
            .longitude = length * Foot,
            .convergence = 0.01,
            .scale = scale,
            .returnedLatitude = TenThousandthSecond,
            .returnedLongitude = 0.01};
}

constexpr Differences ExactBounds(double length, double scale) {
    return {.northing = length,
            .easting = length,
            .latitude = length,
            .longitude = length,
            .convergence = 0.01,
            .scale = scale,
            .returnedLatitude = length,
            .returnedLongitude = length};
}

// Alaska 2 to 9 of 1927 with this bound of the longitude. Their scale ends with the square of the easting.
constexpr Differences Alaska27Bounds(double longitude) {
    return {.northing = 0.001 * Foot,
            .easting = 0.001 * Foot,
            .latitude = 0.001 * Foot,
            .longitude = longitude * Foot,
            .convergence = 0.01,
            .scale = 4e-8,
            .returnedLatitude = 0.001 * Foot,
            .returnedLongitude = longitude * Foot};
}

// The first row that fits a zone is its own. The rows of single zones are those whose registered area reaches
// out farther from the central meridian, or the parallels, than the row of their projection allows for.
constexpr Bounds AllBounds[] = {
    // 3.35 degrees, west of the zone's own 6 degrees; and 3.01 degrees. See test_ProjectionTerms for the
    // latitude.
    {TransverseMercator, "UTM83 UTM27", "59N", TransverseMercatorBounds(5.7, 1e-9)},
    {TransverseMercator, "UTM83", "4N 5N", TransverseMercatorBounds(3.64, 2e-9)},
    {TransverseMercator, "UTM83 UTM27", "10N", TransverseMercatorBounds(3.64, 1e-9)},
    // South of latitude 20 the scale lacks up to 1.7e-9 at 3 degrees.
    {TransverseMercator, "UTM83", "2S 19N 20N 54N 55N", TransverseMercatorBounds(3.6, 2e-9)},
    {TransverseMercator, "UTM27", "13N 14N 15N 16N 17N", TransverseMercatorBounds(3.6, 2e-9)},
    {TransverseMercator, "UTM83 UTM27", "", TransverseMercatorBounds(3.6, 1e-9)},
    // 3.16, 2.31, 2.26 and 2.14 degrees.
    {TransverseMercator, "SPC83", "5009", TransverseMercatorBounds(3.3, 1e-9)},
    {TransverseMercator, "SPC83", "4903", TransverseMercatorBounds(0.71, 1e-9)},
    {TransverseMercator, "SPC83", "5008", TransverseMercatorBounds(0.48, 1e-9)},
    {TransverseMercator, "SPC83", "5005", TransverseMercatorBounds(0.33, 1e-9)},
    {TransverseMercator, "SPC83", "", TransverseMercatorBounds(0.3, 1e-9)},

    {TwoParallels, "", "", ExactBounds(0.01, 1e-9)},
    {OneParallel, "", "", ExactBounds(0.1, 1e-9)},
    {Hotine, "", "", ExactBounds(0.01, 1e-9)},

    {TransverseMercator27, "SPC27", "5009", Alaska27Bounds(0.0018)},  // 3.16 degrees, the term of x^7
    {TransverseMercator27, "SPC27", "5002 5003 5004 5005 5006 5007 5008", Alaska27Bounds(0.001)},
    // 2.31, 1.86, 1.75 and 1.52 degrees.
    {TransverseMercator27, "SPC27", "4903", TransverseMercator27Bounds(2.3, 0.12, 0.015, 4e-8)},
    {TransverseMercator27, "SPC27", "2102", TransverseMercator27Bounds(0.96, 0.09, 0.01, 2e-8)},
    {TransverseMercator27, "SPC27", "2103", TransverseMercator27Bounds(0.78, 0.09, 0.01, 2e-8)},
    {TransverseMercator27, "SPC27", "2702", TransverseMercator27Bounds(0.57, 0.09, 0.01, 2e-8)},
    {TransverseMercator27, "SPC27", "", TransverseMercator27Bounds(0.55, 0.09, 0.01, 2e-8)},

    {Lambert27, "SPC27", "1703", Lambert27Bounds(0.8, 3e-8)},  // its registered area is the whole state
    {Lambert27, "SPC27", "", Lambert27Bounds(0.03, 2e-9)},
};

// Whether a list of words has this one; an empty list has every word.
bool Has(std::string_view words, std::string_view word) {
    if (words.empty()) return true;
    const std::string padded = " " + std::string(words) + " ";
    return padded.find(" " + std::string(word) + " ") != std::string::npos;
}

std::string_view ShortName(std::string_view name) { return name.substr(0, name.find(' ')); }

const Bounds& BoundsOf(const SeedZone& zone) {
    for (const Bounds& bounds : AllBounds)
        if (bounds.projection == zone.projection && Has(bounds.system, ShortName(zone.system)) &&
            Has(bounds.zones, ShortName(zone.zone)))
            return bounds;
    throw std::runtime_error("no bounds for " + zone.Name());
}

struct Quantity {
    const char* name;
    double Differences::*member;
};

void ExpectWithinBounds(std::initializer_list<Quantity> quantities) {
    for (const ZoneDifferences& measured : AllZoneDifferences())
        for (const Quantity& quantity : quantities)
            EXPECT_LE(measured.largest.*quantity.member, BoundsOf(measured.zone).largest.*quantity.member)
                << quantity.name << " of " << measured.zone.Name();
}

TEST(Projections, EveryZoneIsMeasuredAtHundredsOfPoints) {
    EXPECT_EQ(AllZoneDifferences().size(), 304U);
    for (const ZoneDifferences& measured : AllZoneDifferences())
        EXPECT_GE(measured.points, 200U) << measured.zone.Name();
}

TEST(Projections, NorthingsAndEastingsAreWithinTheirBounds) {
    ExpectWithinBounds({{"northing", &Differences::northing}, {"easting", &Differences::easting}});
}

TEST(Projections, LatitudesAndLongitudesAreWithinTheirBounds) {
    ExpectWithinBounds({{"latitude", &Differences::latitude}, {"longitude", &Differences::longitude}});
}

TEST(Projections, ConvergencesAndScalesAreWithinTheirBounds) {
    ExpectWithinBounds({{"convergence", &Differences::convergence}, {"scale", &Differences::scale}});
}

TEST(Projections, ThereAndBackReturnsThePosition) {
    ExpectWithinBounds({{"latitude there and back", &Differences::returnedLatitude},
                        {"longitude there and back", &Differences::returnedLongitude}});
}

TEST(Projections, EveryBoundHasAZone) {
    std::set<const Bounds*> used;
    for (const ZoneDifferences& measured : AllZoneDifferences()) used.insert(&BoundsOf(measured.zone));
    EXPECT_EQ(used.size(), std::size(AllBounds));
}

TEST(Projections, TheTwoOraclesAgree) {
    for (const SeedZone& zone : ReadSeedZones()) {
        const auto proj = ProjectionByPROJ(zone);
        const auto second = ProjectionByGeographicLib(zone);
        if (!second) continue;
        SCOPED_TRACE(zone.Name());
        for (const Position& position : PointsOf(zone)) {
            const PlanePoint plane = proj->Forward(position);
            const PlanePoint other = second->Forward(position);
            EXPECT_NEAR(plane.northing, other.northing, 1e-7);
            EXPECT_NEAR(plane.easting, other.easting, 1e-7);
            const GroundDistance apart = DistanceOnGround(zone, proj->Inverse(plane), second->Inverse(plane));
            EXPECT_LE(std::hypot(apart.north, apart.east), 1e-4);
            const Distortion distortion = proj->DistortionAt(position);
            const Distortion otherDistortion = second->DistortionAt(position);
            EXPECT_NEAR(distortion.convergence, otherDistortion.convergence, 1e-5 / 3600);
            EXPECT_NEAR(distortion.scale, otherDistortion.scale, 1e-9);
        }
    }
}

// The seeds have one zone of this projection, and it is small. Here are cones of its own.
class OneParallelCone : public ::testing::TestWithParam<double> {
  protected:
    static SeedZone Zone() {
        SeedZone zone;
        zone.projection = OneParallel;
        zone.a = 6378137;
        zone.f = 1 / 298.257222101;
        zone.latitude = GetParam();
        zone.longitude = -100;
        zone.scale = 0.9999;
        zone.falseNorthing = 100000;
        zone.falseEasting = 500000;
        return zone;
    }
    static LambertNIZone Cone(const SeedZone& zone) {
        return LambertNIZoneOf(zone.a, std::sqrt(zone.f * (2 - zone.f)), zone.latitude * RadiansInDegree,
                               -zone.longitude * RadiansInDegree, zone.falseNorthing, zone.falseEasting,
                               zone.scale);
    }
};

TEST_P(OneParallelCone, IsTrueWithinTwoDegreesOfItsParallel) {
    const SeedZone zone = Zone();
    const LambertNIZone cone = Cone(zone);
    const auto proj = ProjectionByPROJ(zone);
    for (const double north : {-2.0, -1.3, -0.5, 0.2, 0.9, 1.6, 2.0})
        for (const double east : {-4.0, -1.7, 0.0, 2.3, 4.0}) {
            const Position position{.latitude = zone.latitude + north, .longitude = zone.longitude + east};
            SCOPED_TRACE(::testing::Message() << position.latitude << " " << position.longitude);
            const PlanePoint truth = proj->Forward(position);
            const PlanePosition plane = LambertNIPlane(cone, position.latitude * RadiansInDegree,
                                                       -position.longitude * RadiansInDegree);
            EXPECT_NEAR(plane.northing, truth.northing, 1e-4);
            EXPECT_NEAR(plane.easting, truth.easting, 1e-4);
            const GeographicPosition inverse = LambertNIGeographic(cone, truth.northing, truth.easting);
            const GroundDistance moved = DistanceOnGround(
                zone, position,
                {.latitude = inverse.phi / RadiansInDegree, .longitude = -inverse.lam / RadiansInDegree});
            EXPECT_LE(std::fabs(moved.north), 0.1);
            EXPECT_LE(std::fabs(moved.east), 0.1);
        }
}

INSTANTIATE_TEST_SUITE_P(Parallels, OneParallelCone, ::testing::Values(10, 20, 30, 40, 50, 60, 70));

TEST(SeedZones, APackedAngleIsReadInDegrees) {
    EXPECT_DOUBLE_EQ(DegreesOfPacked("30.300000000"), 30.5);
    EXPECT_DOUBLE_EQ(DegreesOfPacked("133.400000000"), 133 + 2.0 / 3);
    EXPECT_DOUBLE_EQ(DegreesOfPacked("-36.520736860"), -(36 + 52.0 / 60 + 7.3686 / 3600));
    EXPECT_DOUBLE_EQ(DegreesOfPacked("22.454375430"), 22 + 45.0 / 60 + 43.7543 / 3600);
}

}  // namespace
}  // namespace tarvek::test
