#pragma once
// How far the program's coordinates lie from the true projection, zone by zone, measured at a grid of points
// over the zone's area of use.

#include <vector>

#include "oracle/trueProjections.hpp"

namespace tarvek::test {

// The largest differences at the points of a zone, without sign. Lengths are millimeters, those of latitude
// and longitude on the ellipsoid.
struct Differences {
    double northing = 0;  // of the forward projection
    double easting = 0;
    double latitude = 0;  // of the inverse, at the true plane coordinates
    double longitude = 0;
    double convergence = 0;  // seconds; both ways
    double scale = 0;
    double returnedLatitude = 0;  // of the inverse of the program's own plane coordinates
    double returnedLongitude = 0;

    // Keeps the larger of each.
    void Include(const Differences& other);
};

struct ZoneDifferences {
    SeedZone zone;
    std::size_t points;
    Differences largest;
};

// Of every zone of the seeds, measured once for the process.
const std::vector<ZoneDifferences>& AllZoneDifferences();

// The points at which a zone is measured.
std::vector<Position> PointsOf(const SeedZone& zone);

// What the ellipsoid of a zone is at a latitude: its eccentricity squared and its radii in meters.
struct Radii {
    double e2;
    double primeVertical;
    double meridian;
};
Radii RadiiAt(const SeedZone& zone, double latitude);

// The way on the ellipsoid, in millimeters north and east, from one position to another close by.
struct GroundDistance {
    double north;
    double east;
};
GroundDistance DistanceOnGround(const SeedZone& zone, Position from, Position to);

}  // namespace tarvek::test
