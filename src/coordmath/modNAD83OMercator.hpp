#pragma once
// The oblique Mercator projection of Hotine ("Oblique Mercator - Hotine"), rectified by the azimuth of its
// axis: the zone of the Alaska panhandle.
//
// Meters and radians; longitudes are positive west, convergences positive where grid north lies east of true
// north. A result that is not finite (an azimuth too large for the central latitude, a pole, a zone that was
// never set) is the run time's fault Overflow.

#include "coordmath/modPositions.hpp"

namespace tarvek {

// The constants of a zone, made once and read for every point.
struct OMercator83Zone {
    double a;         // semimajor axis, meters
    double e;         // first eccentricity
    double ep2;       // second eccentricity squared
    double FN;        // northing at the origin of the axis, meters
    double FE;        // easting at the origin of the axis, meters
    double alpha;     // azimuth of the axis at the central point, radians from north, positive east
    double sinAlpha;  // its sine and cosine
    double cosAlpha;
    double B;     // ratio of the longitudes on the aposphere to those on the ellipsoid
    double C;     // isometric latitude of the aposphere at the equator
    double Ak;    // A k0 / B: meters per radian along and across the axis, scaled
    double lamc;  // longitude of the origin of the axis, radians, positive west
    double sg;    // sine and
    double cg;    // cosine of gamma0, the azimuth of the axis where it crosses the aposphere's equator
    double Ka;    // A k0 / a, the factor of the scale
    double P0, P2, P4, P6;  // series from the conformal latitude to the latitude, in cos^2
};

// phi0 and lam0 are the central point, k0 the scale there, alpha the azimuth of the axis through it.
OMercator83Zone OMercator83ZoneOf(double a, double e, double phi0, double lam0, double FN, double FE,
                                  double k0, double alpha);
PlanePosition OMercator83Plane(const OMercator83Zone& zone, double phi, double lam);
// Convergence and scale are those of OMercator83Plane at the position that is given.
GeographicPosition OMercator83Geographic(const OMercator83Zone& zone, double northing, double easting);

// The same over the zone that was set last. A zone that ends in a fault leaves the zone before it in force.
void OMercator83_SET_Zone(double a, double e, double phi0, double lam0, double FN, double FE, double k0,
                          double alpha);
PlanePosition OMercator83_GET_Plane(double phi, double lam);
GeographicPosition OMercator83_GET_Geographic(double northing, double easting);

}  // namespace tarvek
