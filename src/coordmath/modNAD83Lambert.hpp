#pragma once
// The Lambert conformal conic projection with two standard parallels ("Lambert Conformal Conic - Two
// Parallels") of the State Plane Coordinate System of 1983.
//
// Meters and radians; latitudes are positive north, longitudes positive west, convergences positive east of
// the central meridian. A result that is not finite is the run time's fault Overflow: equal parallels, or
// parallels whose cone has no apex since they lie at equal distance from the equator; a pole; the inverse in
// a zone of the southern hemisphere, whose mapping radii are negative and have no logarithm.

#include "coordmath/modPositions.hpp"

namespace tarvek {

struct Lambert83Zone {
    double a = 0;     // semimajor axis, meters
    double e = 0;     // first eccentricity
    double lam0 = 0;  // central longitude, radians, positive west
    double FE = 0;    // false easting, meters: easting of the central meridian
    double FN = 0;    // false northing, meters: northing of the central latitude on the central meridian
    double n = 0;     // sine of the central parallel, the cone constant
    double K = 0;     // mapping radius of the equator, meters
    double Rb = 0;    // mapping radius of the central latitude, meters
    double R0 = 0;    // mapping radius of the central parallel, meters
    double k0 = 0;    // scale on the central parallel
    double N0 = 0;    // northing of the central parallel on the central meridian, meters
};

// Isometric latitude on an ellipsoid of first eccentricity e: ln(tan(pi/4 + phi/2)) less the ellipsoid's
// part.
double Lambert83_GET_IsometricLatitude(double phi, double e);
// sqrt(1 - e^2 sin^2 phi): semimajor axis over prime vertical radius.
double Lambert83_GET_W(double phi, double e);

// The cone through two standard parallels, which both Lambert systems of state plane coordinates start from.
struct LambertCone {
    double n;     // sine of the central parallel
    double phi0;  // the central parallel
    double K;     // mapping radii in meters, of the equator,
    double Rb;    // of the central latitude
    double R0;    // and of the central parallel
    double k0;    // scale on the central parallel
};

// phi1 and phi2 are the northern and southern parallel, phib the central latitude, which is that of the
// origin. Parallels that give two mapping radii, compared as 32-bit floats, are told: "Error - Mapping Radius
// does not compute properly"; the cone is made all the same, with the radius of phi1.
LambertCone LambertConeOf(double phi1, double phi2, double phib, double a, double e);

// Parallels and central latitude as above; lam0 is the central longitude.
Lambert83Zone Lambert83ZoneOf(double phi1, double phi2, double phib, double lam0, double FN, double FE,
                              double a, double e);
PlanePosition Lambert83Plane(const Lambert83Zone& zone, double phi, double lam);
GeographicPosition Lambert83Geographic(const Lambert83Zone& zone, double northing, double easting);

// The same over the zone that was set last. A zone that ends in a fault leaves the zone before it in force.
void Lambert83_SET_Zone(double phi1, double phi2, double phib, double lam0, double FN, double FE, double a,
                        double e);
PlanePosition Lambert83_GET_Plane(double phi, double lam);
GeographicPosition Lambert83_GET_Geographic(double northing, double easting);

}  // namespace tarvek
