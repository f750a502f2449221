#pragma once
// Transverse Mercator of the State Plane Coordinate System of 1983 and of UTM on NAD 83, in meters and
// radians, latitude positive north, longitude positive west.
//
// It is good for some four degrees of longitude to either side of the central meridian. A result that is not
// finite, a pole and an eccentricity of 1 are the run time's fault Overflow.

#include "coordmath/modPositions.hpp"

namespace tarvek {

struct TMercator83Zone {
    double a = 0;     // semimajor axis, meters
    double e = 0;     // first eccentricity
    double ep2 = 0;   // second eccentricity squared, e^2 / (1 - e^2)
    double phi0 = 0;  // central latitude, radians, positive north
    double lam0 = 0;  // central longitude, radians, positive west
    double FN = 0;    // false northing, meters: northing of phi0 on the central meridian
    double FE = 0;    // false easting, meters: easting of the central meridian
    double k0 = 0;    // scale on the central meridian
    double r = 0;     // rectifying radius, meters
    double U0 = 0;    // latitude to rectifying latitude: coefficients of cos^0, cos^2, cos^4, cos^6
    double U2 = 0;
    double U4 = 0;
    double U6 = 0;
    double V0 = 0;  // rectifying latitude to latitude: the same
    double V2 = 0;
    double V4 = 0;
    double V6 = 0;
    double S0 = 0;  // meridian distance of phi0 from the equator times k0, meters
};

// phi0 and lam0 are the origin, k0 the scale on the central meridian.
TMercator83Zone TMercator83ZoneOf(double a, double e, double phi0, double lam0, double FN, double FE,
                                  double k0);
PlanePosition TMercator83Plane(const TMercator83Zone& zone, double phi, double lam);
GeographicPosition TMercator83Geographic(const TMercator83Zone& zone, double northing, double easting);

// The same over the zone that was set last. A zone that ends in a fault leaves the zone before it in force.
void TMercator83_SET_Zone(double a, double e, double phi0, double lam0, double FN, double FE, double k0);
PlanePosition TMercator83_GET_Plane(double phi, double lam);
GeographicPosition TMercator83_GET_Geographic(double northing, double easting);

}  // namespace tarvek
