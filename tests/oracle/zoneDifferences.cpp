#include "oracle/zoneDifferences.hpp"

#include <algorithm>
#include <cmath>

#include "oracle/programProjection.hpp"

namespace tarvek::test {
namespace {

constexpr int Rows = 15;  // of the grid over an area of use
constexpr int Columns = 15;

// The 1927 zone Michigan West: the register lists the nine western counties of the upper peninsula, but gives
// the box of the whole peninsula. The line between Marquette and Alger counties is near 87 degrees west.
constexpr const char* MichiganWest = "5625";
constexpr double MichiganWestEnd = -87;

Area AreaOf(const SeedZone& zone) {
    Area area = AreaOfUse(zone.code);
    if (zone.code == MichiganWest) area.east = MichiganWestEnd;
    return area;
}

Differences DistortionDifferences(Distortion computed, Distortion wanted) {
    return {.convergence = std::fabs(computed.convergence - wanted.convergence) * 3600,
            .scale = std::fabs(computed.scale - wanted.scale)};
}

ZoneDifferences Measure(const ProgramWithSeeds& program, const SeedZone& zone) {
    const std::unique_ptr<TrueProjection> proj = ProjectionByPROJ(zone);
    const std::unique_ptr<TrueProjection> second = ProjectionByGeographicLib(zone);
    // PROJ makes scale and convergence of small differences, GeographicLib of formulas.
    const TrueProjection& distortion = second ? *second : *proj;
    const std::vector<Position> positions = PointsOf(zone);
    std::vector<PlanePoint> truth;
    for (const Position& position : positions) truth.push_back(proj->Forward(position));
    const auto plane = program.Forward(zone, positions);
    const auto inverse = program.Inverse(zone, truth);
    const auto returned = program.Inverse(zone, PlacesOf(plane));

    ZoneDifferences result{.zone = zone, .points = positions.size(), .largest = {}};
    for (std::size_t i = 0; i < positions.size(); ++i) {
        const GroundDistance there = DistanceOnGround(zone, proj->Inverse(truth[i]), inverse[i].where);
        const GroundDistance back = DistanceOnGround(zone, positions[i], returned[i].where);
        const Distortion wanted = distortion.DistortionAt(positions[i]);
        result.largest.Include({.northing = std::fabs(plane[i].where.northing - truth[i].northing) * 1000,
                                .easting = std::fabs(plane[i].where.easting - truth[i].easting) * 1000,
                                .latitude = std::fabs(there.north),
                                .longitude = std::fabs(there.east),
                                .returnedLatitude = std::fabs(back.north),
                                .returnedLongitude = std::fabs(back.east)});
        result.largest.Include(DistortionDifferences(plane[i].distortion, wanted));
        result.largest.Include(DistortionDifferences(inverse[i].distortion, wanted));
    }
    return result;
}

}  // namespace

void Differences::Include(const Differences& other) {
    for (const auto member : {&Differences::northing, &Differences::easting, &Differences::latitude,
                              &Differences::longitude, &Differences::convergence, &Differences::scale,
                              &Differences::returnedLatitude, &Differences::returnedLongitude}) {
        // A difference that is no number stays, and is within no bound.
        if (std::isnan(this->*member) || other.*member <= this->*member) continue;
        this->*member = other.*member;
    }
}

const std::vector<ZoneDifferences>& AllZoneDifferences() {
    static const std::vector<ZoneDifferences> all = [] {
        const ProgramWithSeeds program;
        std::vector<ZoneDifferences> measured;
        for (const SeedZone& zone : ReadSeedZones()) measured.push_back(Measure(program, zone));
        return measured;
    }();
    return all;
}

std::vector<Position> PointsOf(const SeedZone& zone) {
    const Area area = AreaOf(zone);
    const double turns = std::round(((area.west + area.east) / 2 - zone.longitude) / 360);
    std::vector<Position> points;
    for (int row = 0; row < Rows; ++row)
        for (int column = 0; column < Columns; ++column)
            points.push_back(
                {.latitude = area.south + (area.north - area.south) * row / (Rows - 1),
                 .longitude = area.west + (area.east - area.west) * column / (Columns - 1) - 360 * turns});
    return points;
}

Radii RadiiAt(const SeedZone& zone, double latitude) {
    const double e2 = zone.f * (2 - zone.f);
    const double sine = std::sin(latitude * RadiansInDegree);
    const double w2 = 1 - e2 * sine * sine;
    const double primeVertical = zone.a / std::sqrt(w2);
    return {.e2 = e2, .primeVertical = primeVertical, .meridian = primeVertical * (1 - e2) / w2};
}

GroundDistance DistanceOnGround(const SeedZone& zone, Position from, Position to) {
    const Radii radii = RadiiAt(zone, from.latitude);
    const double parallel = radii.primeVertical * std::cos(from.latitude * RadiansInDegree);
    const double east = std::remainder(to.longitude - from.longitude, 360);
    return {.north = (to.latitude - from.latitude) * RadiansInDegree * radii.meridian * 1000,
            .east = east * RadiansInDegree * parallel * 1000};
}

}  // namespace tarvek::test
