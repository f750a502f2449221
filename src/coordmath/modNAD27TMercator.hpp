#pragma once
// The transverse Mercator zones of the State Plane Coordinate System of 1927 ("Transverse Mercator - NAD 27
// Equations"), by the equations that define their coordinates and not by those of the projection.
//
// U.S. survey feet and radians; longitudes are positive west, convergences positive east of the central
// meridian. A result that is not finite is the run time's fault Overflow.

#include "coordmath/modPositions.hpp"

namespace tarvek {

// The constants of a zone, made once and read for every point.
struct TMercator27Zone {
    double a;      // semimajor axis, meters; a and e enter G and nothing else
    double e;      // first eccentricity
    double FE;     // false easting, feet
    double lam0s;  // central longitude, seconds, positive west
    double Mn;     // rectified central latitude: whole minutes
    double Sn;     // and seconds beyond them
    double k0;     // scale factor on the central meridian
    double G;      // 10^15 / (6 k0^2 times both radii of curvature in feet), of the cubic term of the easting
};

// phi0 and lam0 are the zone's central latitude and longitude in radians. FN is not used: the equations know
// no false northing.
TMercator27Zone TMercator27ZoneOf(double a, double e, double phi0, double lam0, double FN, double FE,
                                  double k0);
PlanePosition TMercator27Plane(const TMercator27Zone& zone, double phi, double lam);
GeographicPosition TMercator27Geographic(const TMercator27Zone& zone, double northing, double easting);
// The scale at a latitude and an easting.
double TMercator27Scale(const TMercator27Zone& zone, double phi, double easting);

// The same over the zone that was set last. A zone that ends in a fault leaves the zone before it in force.
void TMercator27_SET_Zone(double a, double e, double phi0, double lam0, double FN, double FE, double k0);
PlanePosition TMercator27_GET_Plane(double phi, double lam);
GeographicPosition TMercator27_GET_Geographic(double northing, double easting);
double TMercator27_GET_Scale(double phi, double easting);

}  // namespace tarvek
