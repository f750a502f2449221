#pragma once
// The parameters of a zone as the library has them, in the units and directions of the projections: radians,
// latitudes positive north, longitudes positive west.

#include <optional>
#include <string_view>

#include "library/modLibraryNames.hpp"

namespace tarvek {

struct ZoneParameters {
    const Projection* projection =
        nullptr;               // nullptr where its name is none of the six; a and e alone follow
    double a = 0;              // semimajor axis, meters
    double e = 0;              // first eccentricity
    double phi0 = 0;           // central latitude
    double lam0 = 0;           // central longitude
    double northParallel = 0;  // of projections with two parallels
    double southParallel = 0;
    double k0 = 0;  // scale on the central meridian, parallel or axis; of projections without two parallels
    double alpha = 0;  // azimuth of the axis; of the oblique projection
    double FN = 0;     // false northing and
    double FE = 0;     // false easting, in the linear unit of the projection's equations
};

// The parameters of a zone, named by section or by the short names of its two parts. An ellipsoid that the
// zone names comes before that of the datum. Nothing where the library has no such zone: "Unknown Coordinate
// System or Zone '...' and '...'." / "Coordiante System Error". An angle that is refused is told and stands
// as -99999. Fault::TypeMismatch for a number that is missing or none.
std::optional<ZoneParameters> ReadZoneParameters(std::string_view coordinateSystem, std::string_view zone,
                                                 std::string_view horizontalDatum);

}  // namespace tarvek
