#pragma once
// The Lambert conformal conic projection with one standard parallel ("Lambert Conformal Conic - One
// Parallel"), as a power series in the meridian arc from that parallel.
//
// Meters and radians; latitudes are positive north, longitudes positive west, convergences positive east of
// the central meridian of a northern zone. It is good for some four degrees of latitude to either side of the
// parallel. A result that is not finite is the run time's fault Overflow; so is the inverse of a point on the
// central parallel where the arc comes out as exactly 0, the origin of the zone above all.

#include "coordmath/modPositions.hpp"

namespace tarvek {

// What the five terms of the mapping radius have of the zone: numerators P and denominators D.
struct LambertNISeries {
    double P2, P3, P4, P5;
    double D1, D2, D3, D4, D5;
};

struct LambertNIZone {
    double a = 0;     // semimajor axis, meters
    double e = 0;     // first eccentricity
    double ep2 = 0;   // second eccentricity squared, e^2 / (1 - e^2)
    double phi0 = 0;  // central parallel, radians, positive north
    double lam0 = 0;  // central longitude, radians, positive west
    double FN = 0;    // false northing, meters: northing of the central parallel on the central meridian
    double FE = 0;    // false easting, meters: easting of the central meridian
    double k0 = 0;    // scale on the central parallel
    double N0r = 0;   // prime vertical radius at phi0, meters
    double M0r = 0;   // meridian radius at phi0, meters
    double rho0 = 0;  // mapping radius of phi0, meters; negative south of the equator
    double A0 = 0;    // meridian arc over a: coefficients of phi and of the sines of 2, 4 and 6 phi
    double A2 = 0;
    double A4 = 0;
    double A6 = 0;
    double M0 = 0;  // meridian arc of phi0 from the equator, meters
    double S = 0;   // sine,
    double C = 0;   // cosine and
    double T = 0;   // tangent of phi0
    LambertNISeries series{};
};

// phi0 and lam0 are the origin, k0 the scale on the central parallel.
LambertNIZone LambertNIZoneOf(double a, double e, double phi0, double lam0, double FN, double FE, double k0);
PlanePosition LambertNIPlane(const LambertNIZone& zone, double phi, double lam);
GeographicPosition LambertNIGeographic(const LambertNIZone& zone, double northing, double easting);
// The point scale, the same all along a parallel.
double LambertNIScale(const LambertNIZone& zone, double phi);

// The same over the zone that was set last. A zone that ends in a fault leaves the zone before it in force.
void LambertNI_SET_Zone(double a, double e, double phi0, double lam0, double FN, double FE, double k0);
PlanePosition LambertNI_GET_Plane(double phi, double lam);
GeographicPosition LambertNI_GET_Geographic(double northing, double easting);
double LambertNI_GET_Scale(double phi);

}  // namespace tarvek
