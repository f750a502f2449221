#pragma once
// The Alaska zones 2 to 9 of the State Plane Coordinate System of 1927: zones 5002 to 5009 of "Transverse
// Mercator - NAD 27 Equations", which have equations of their own.
//
// U.S. survey feet and radians; longitudes are positive west, convergences positive east of the central
// meridian. The northing is 0 at latitude 54, the scale 0.9999 on the central meridian of every zone. A
// result that is not finite is the run time's fault Overflow.

#include "coordmath/modPositions.hpp"

namespace tarvek {

// All that tells one of these zones from another.
struct AK27Zone {
    double FE;    // false easting, feet
    double lamc;  // central longitude, radians, positive west
};

PlanePosition AK27Plane(const AK27Zone& zone, double phi, double lam);
GeographicPosition AK27Geographic(const AK27Zone& zone, double northing, double easting);

// The same with the zone in the arguments; no zone is set before. phi0, the central latitude, is not used: it
// stands in the constants of the equations.
PlanePosition AK27_GET_Plane(double phi, double lam, double FE, double phi0, double lamc);
GeographicPosition AK27_GET_Geographic(double northing, double easting, double FE, double phi0, double lamc);
// The convergence at a position, by its latitude and longitude.
double AK27_GET_Convergence(double lamc, double phi, double lam);
// The scale at a latitude and an easting.
double AK27_GET_Scale(double phi, double easting, double FE);

}  // namespace tarvek
