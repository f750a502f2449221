#pragma once
// The projections of the zones by two libraries that know them exactly: PROJ, and GeographicLib for the
// transverse Mercator and the Lambert zones.
//
// Degrees, latitudes positive north, longitudes positive east; meters.

#include <memory>
#include <numbers>
#include <string>

#include "oracle/seedZones.hpp"

namespace tarvek::test {

inline constexpr double RadiansInDegree = std::numbers::pi / 180;

struct Position {
    double latitude;
    double longitude;
};

struct PlanePoint {
    double northing;
    double easting;
};

struct Distortion {
    double convergence;  // degrees, positive where grid north lies east of true north
    double scale;
};

class TrueProjection {
  public:
    virtual ~TrueProjection() = default;
    virtual PlanePoint Forward(Position position) const = 0;
    virtual Position Inverse(PlanePoint point) const = 0;
    virtual Distortion DistortionAt(Position position) const = 0;
};

// A zone on the NAD 27 equations gets the projection that they stand for.
std::unique_ptr<TrueProjection> ProjectionByPROJ(const SeedZone& zone);
// Nothing for an oblique zone.
std::unique_ptr<TrueProjection> ProjectionByGeographicLib(const SeedZone& zone);

bool IsTransverseMercator(const SeedZone& zone);
bool IsLambert(const SeedZone& zone);

// A box in degrees, west below east, with the longitudes counted on over 180.
struct Area {
    double south, west, north, east;
};

// The area of use of a registered system, by PROJ's database; throws where it has none.
Area AreaOfUse(const std::string& code);
// The edition of the register in that database.
std::string RegisterEdition();

}  // namespace tarvek::test
