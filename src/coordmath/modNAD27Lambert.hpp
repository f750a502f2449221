#pragma once
// The Lambert zones of the State Plane Coordinate System of 1927 ("Lambert Conformal Conic - NAD 27
// Equations"), by the equations that define their coordinates and not by those of the projection.
//
// U.S. survey feet and radians; longitudes are positive west, convergences positive east of the central
// meridian. A result that is not finite is the run time's fault Overflow.

#include "coordmath/modPositions.hpp"

namespace tarvek {

// The constants of a zone, made once and read for every point.
struct Lambert27Zone {
    double a;           // semimajor axis, meters
    double e;           // first eccentricity
    double FE;          // false easting, feet
    double lam0s;       // central longitude, seconds, positive west
    double n;           // sine of the central parallel, the cone constant
    double R0;          // mapping radius of the central parallel, feet
    double Rb;          // mapping radius of the zone's central latitude, feet
    double kc;          // scale on the central parallel
    double Mn;          // rectified latitude of the central parallel: whole minutes
    double Sn;          // and seconds beyond them
    double L2, L3, L4;  // series from the meridian arc to the mapping radius, in arcs of 10^8 feet
};

// Parallels, phib, lam0 and what is told of them as in modNAD83Lambert; FE is in feet, a in meters. FN is not
// used: the equations know no false northing.
Lambert27Zone Lambert27ZoneOf(double phi1, double phi2, double phib, double lam0, double FN, double FE,
                              double a, double e);
PlanePosition Lambert27Plane(const Lambert27Zone& zone, double phi, double lam);
GeographicPosition Lambert27Geographic(const Lambert27Zone& zone, double northing, double easting);
// The scale at a latitude and its mapping radius in feet.
double Lambert27Scale(const Lambert27Zone& zone, double phi, double R);

// The same over the zone that was set last. A zone that ends in a fault leaves the zone before it in force.
void Lambert27_SET_Zone(double phi1, double phi2, double phib, double lam0, double FN, double FE, double a,
                        double e);
PlanePosition Lambert27_GET_Plane(double phi, double lam);
GeographicPosition Lambert27_GET_Geographic(double northing, double easting);
double Lambert27_GET_Scale(double phi, double R);

// sqrt(1 - e^2 sin^2 phi), the same as Lambert83_GET_W.
double Lambert27_GET_W(double phi, double e);

}  // namespace tarvek
