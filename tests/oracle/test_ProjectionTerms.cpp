// Where coordinates differ from the true projection by more than rounding, the terms that their equations
// leave out, or have otherwise, tell by how much. With these terms taken away little may remain, in whatever
// zone and however far out. So the differences are those of the equations, and no others.

#include <gtest/gtest.h>

#include <GeographicLib/Ellipsoid.hpp>
#include <GeographicLib/LambertConformalConic.hpp>
#include <cmath>
#include <functional>
#include <string_view>

#include "oracle/programProjection.hpp"
#include "oracle/zoneDifferences.hpp"

namespace tarvek::test {
namespace {

constexpr double Millimeters = 1000;

// What the series of the projections are made of at a latitude.
struct Parts {
    double M;     // meridian and
    double N;     // prime vertical radius, meters
    double t;     // tangent
    double t2;    // and its square
    double eta2;  // second eccentricity squared times cos^2
    double ep2;   // second eccentricity squared
};

Parts PartsAt(const SeedZone& zone, double latitude) {
    const Radii radii = RadiiAt(zone, latitude);
    const double t = std::tan(latitude * RadiansInDegree);
    const double cosine = std::cos(latitude * RadiansInDegree);
    const double ep2 = radii.e2 / (1 - radii.e2);
    return {.M = radii.meridian,
            .N = radii.primeVertical,
            .t = t,
            .t2 = t * t,
            .eta2 = ep2 * cosine * cosine,
            .ep2 = ep2};
}

// A point of a zone with its true coordinates and the program's.
struct Point {
    const SeedZone& zone;
    Position position;
    PlanePoint plane;
    Distortion distortion;
    Position foot;  // on the central meridian at the same northing
    Computed<PlanePoint> forward;
    Position inverse;

    double NorthingMoved() const { return (forward.where.northing - plane.northing) * Millimeters; }
    double EastingMoved() const { return (forward.where.easting - plane.easting) * Millimeters; }
    // Longitude from the central meridian times the cosine of the latitude, radians.
    double L() const {
        return std::remainder(position.longitude - zone.longitude, 360) * RadiansInDegree *
               std::cos(position.latitude * RadiansInDegree);
    }
    // Meters from the central meridian, the scale on it taken out.
    double X() const { return (plane.easting - zone.falseEasting) / zone.scale; }
};

using Look = std::function<void(const Point&)>;

void ForEachPointOf(const SeedZone& zone, const ProgramWithSeeds& program, const Look& look) {
    const std::unique_ptr<TrueProjection> proj = ProjectionByPROJ(zone);
    const std::unique_ptr<TrueProjection> exact = ProjectionByGeographicLib(zone);
    const std::vector<Position> positions = PointsOf(zone);
    std::vector<PlanePoint> truth;
    for (const Position& position : positions) truth.push_back(proj->Forward(position));
    const auto forward = program.Forward(zone, positions);
    const auto inverse = program.Inverse(zone, truth);
    for (std::size_t i = 0; i < positions.size(); ++i)
        look({.zone = zone,
              .position = positions[i],
              .plane = truth[i],
              .distortion = exact->DistortionAt(positions[i]),
              .foot = proj->Inverse({.northing = truth[i].northing, .easting = zone.falseEasting}),
              .forward = forward[i],
              .inverse = inverse[i].where});
}

// Looks at all points of the zones on a projection, Alaska 2 to 9 of 1927 left out; gives the number of
// zones.
int ForEachPointOn(std::string_view projection, const Look& look) {
    const ProgramWithSeeds program;
    int zones = 0;
    for (const SeedZone& zone : ReadSeedZones()) {
        if (zone.projection != projection || IsAlaska2To9Of1927(zone)) continue;
        SCOPED_TRACE(zone.Name());
        ForEachPointOf(zone, program, look);
        ++zones;
    }
    return zones;
}

// B6 of NOAA Manual NOS NGS 5 begins with 61 + 90 t^2 + 45 t^4; the program has 5 + 28 t^2 + 24 t^4.
double LatitudeByOtherB6(const Point& point) {
    const Parts foot = PartsAt(point.zone, point.foot.latitude);
    const double B2 = -foot.t * (1 + foot.eta2) / 2;
    const double changeOfB6 = -(56 + 62 * foot.t2 + 21 * foot.t2 * foot.t2) / 360;
    return B2 * changeOfB6 * std::pow(point.X() / foot.N, 6) * foot.M * Millimeters;
}

TEST(ProjectionTerms, OneCoefficientOfTheInverseMovesTheLatitude) {
    const int zones = ForEachPointOn("Transverse Mercator", [](const Point& point) {
        const double moved = DistanceOnGround(point.zone, point.position, point.inverse).north;
        EXPECT_NEAR(moved, LatitudeByOtherB6(point), 0.05);
    });
    EXPECT_EQ(zones, 101);
}

// The scale ends at L^4. The next term is that of USGS Professional Paper 1395 (Snyder, 1987), equation 8-11.
double ScaleOfNextTerm(const Point& point) {
    const Parts at = PartsAt(point.zone, point.position.latitude);
    return point.zone.scale * std::pow(point.L(), 6) * (61 - 148 * at.t2 + 16 * at.t2 * at.t2) / 720;
}

TEST(ProjectionTerms, TheScaleLacksTheTermOfSixthOrder) {
    ForEachPointOn("Transverse Mercator", [](const Point& point) {
        const double moved = point.forward.distortion.scale - point.distortion.scale;
        EXPECT_NEAR(moved, -ScaleOfNextTerm(point), 3e-10);
    });
}

// The NAD 27 equations go from longitude to easting by three cubes, each the beginning of a sine or its
// inverse on a sphere: of radius 1 / sqrt(6 4.0831e-15) for the second, of the origin's for the third. What
// is left over against the ellipsoid is of third order, what the cubes cut off of fifth.
double EastingByCubes(const Point& point) {
    const Parts at = PartsAt(point.zone, point.position.latitude);
    const Parts origin = PartsAt(point.zone, point.zone.latitude);
    const double L = point.L();
    const double third = at.N * at.N * (4.0831e-15 + 1 / (6 * origin.M * origin.N)) - (2 + at.eta2) / 6;
    const double fifth = -(15 + 2 * at.t2 + at.t2 * at.t2) / 120;
    return point.zone.scale * at.N * std::pow(L, 3) * (third + fifth * L * L) * Millimeters;
}

// They find the foot latitude by its term in x^2 alone, with a coefficient of seven digits and an x that
// lacks its last cube.
double NorthingByFootLatitude(const Point& point) {
    const Parts foot = PartsAt(point.zone, point.foot.latitude);
    const Parts origin = PartsAt(point.zone, point.zone.latitude);
    const double x = point.X();
    const double sine = std::sin(point.foot.latitude * RadiansInDegree);
    const double coefficient =
        25.52381e-10 * std::pow(1 - 0.006768658 * sine * sine, 2) * RadiansInDegree / 3600;
    const double second = coefficient - 1 / (2 * foot.M * foot.N);
    const double fourth =
        (5 + 3 * foot.t2 + foot.eta2 - 9 * foot.eta2 * foot.t2) / (24 * foot.M * std::pow(foot.N, 3)) -
        1 / (6 * foot.M * foot.N * origin.M * origin.N);
    const double latitude = foot.t * x * x * (second + fourth * x * x);
    return point.zone.scale * foot.M * latitude * Millimeters + foot.t * x / foot.N * EastingByCubes(point);
}

TEST(ProjectionTerms, TransverseMercatorOf1927LacksTermsOfTheEllipsoidAndOfHigherOrder) {
    const int zones = ForEachPointOn("Transverse Mercator - NAD 27 Equations", [](const Point& point) {
        const double easting = EastingByCubes(point);
        const double northing = NorthingByFootLatitude(point);
        EXPECT_NEAR(point.EastingMoved(), easting, 0.2);
        // Half a millimeter is what the digits of their meridian arc leave.
        EXPECT_NEAR(point.NorthingMoved(), northing, 0.6 + 0.01 * std::fabs(northing));
    });
    EXPECT_EQ(zones, 49);
}

// What a mapping radius comes out too short by, over the scale of the central parallel, at the meridian arc s
// from it, positive north. The NAD 27 equations have the coefficients of s^4 and s^5 of a sphere of mean
// radius where these are the ellipsoid's, and none beyond.
double ShorterRadius(const Parts& central, double s) {
    const auto& [M, N, t, t2, eta2, ep2] = central;
    const double fourth = t / 24 * (std::pow(M * N, -1.5) - (1 - 4 * eta2) / (N * N * M));
    const double fifth =
        ((5 + 3 * t2) / (N * N * N * M) - (5 + 3 * t2 - 3 * ep2 - eta2) / (N * N * M * M)) / 120;
    const double sixth = -t * (7 + 4 * t2) / (240 * std::pow(N, 3) * M * M);
    const double seventh = -(61 + 180 * t2 + 60 * t2 * t2) / (5040 * std::pow(N * M, 3));
    return std::pow(s, 4) * (fourth + s * (fifth + s * (sixth + s * seventh)));
}

TEST(ProjectionTerms, LambertOf1927LacksTermsOfTheEllipsoidAndOfHigherOrder) {
    const int zones = ForEachPointOn("Lambert Conformal Conic - NAD 27 Equations", [](const Point& point) {
        const SeedZone& zone = point.zone;
        const GeographicLib::LambertConformalConic cone(zone.a, zone.f, zone.southParallel,
                                                        zone.northParallel, 1);
        const GeographicLib::Ellipsoid ellipsoid(zone.a, zone.f);
        const double s = ellipsoid.MeridianDistance(point.position.latitude) -
                         ellipsoid.MeridianDistance(cone.OriginLatitude());
        const Parts central = PartsAt(zone, cone.OriginLatitude());
        const double shorter = cone.CentralScale() * ShorterRadius(central, s) * Millimeters;
        const double convergence = point.distortion.convergence * RadiansInDegree;
        EXPECT_NEAR(point.NorthingMoved(), shorter * std::cos(convergence), 0.1 + 0.02 * std::fabs(shorter));
        EXPECT_NEAR(point.EastingMoved(), -shorter * std::sin(convergence), 0.1);
    });
    EXPECT_EQ(zones, 71);
}

}  // namespace
}  // namespace tarvek::test
