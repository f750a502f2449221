#pragma once
// What a projection gives: a position on the plane, a position on the ellipsoid, each with convergence and
// scale.
//
// Latitudes are positive north, longitudes positive west, all angles in radians. A convergence is the angle
// from true north to grid north, positive clockwise, as it is east of the central meridian of a northern
// zone. A scale is the point scale: length on the plane over length on the ellipsoid.

namespace tarvek {

struct PlanePosition {
    double northing = 0;  // in the linear unit of the projection's equations
    double easting = 0;
    double convergence = 0;
    double scale = 0;
};

struct GeographicPosition {
    double phi = 0;  // latitude
    double lam = 0;  // longitude
    double convergence = 0;
    double scale = 0;
};

}  // namespace tarvek
