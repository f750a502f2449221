// NOAA Manual NOS NGS 5, "State Plane Coordinate System of 1983" (Stem, 1989), the oblique Mercator equations
// of Alaska zone 1. What differs from them, on purpose:
//
// - The coefficients of the latitude series are made from e, for any ellipsoid, and end at e^8. What is cut
//   off moves the latitude of an inverse by 0.001 mm.
// - The hyperbolic functions and the arc sine are those of modMath, made of exp, log, sqrt and atan: less
//   than 0.001 mm.
// - The inverse takes convergence and scale from a forward computation at the position it found, so both ways
//   give the same bits there.

#include "coordmath/modNAD83OMercator.hpp"

#include <cmath>

#include "coordmath/modMath.hpp"
#include "coordmath/modNAD83Lambert.hpp"
#include "platform/modFaults.hpp"

namespace tarvek {
namespace {

OMercator83Zone ActiveZone{};

}  // namespace

OMercator83Zone OMercator83ZoneOf(double a, double e, double phi0, double lam0, double FN, double FE,
                                  double k0, double alpha) {
    const double e2 = e * e;
    const double e4 = e2 * e2;
    const double e6 = e4 * e2;
    const double e8 = e4 * e4;
    const double c1 = e2 / 2 + 5 * e4 / 24 + e6 / 12 + 13 * e8 / 360;
    const double c2 = 7 * e4 / 48 + 29 * e6 / 240 + 811 * e8 / 11520;
    const double c3 = 7 * e6 / 120 + 81 * e8 / 1120;
    const double c4 = 4279 * e8 / 161280;

    OMercator83Zone zone{};
    zone.a = a;
    zone.e = e;
    zone.ep2 = e2 / (1 - e2);
    zone.FN = FN;
    zone.FE = FE;
    zone.alpha = alpha;
    zone.sinAlpha = std::sin(alpha);
    zone.cosAlpha = std::cos(alpha);
    zone.P0 = 2 * (c1 - 2 * c2 + 3 * c3 - 4 * c4);
    zone.P2 = 8 * (c2 - 4 * c3 + 10 * c4);
    zone.P4 = 32 * (c3 - 6 * c4);
    zone.P6 = 128 * c4;

    const double c = std::cos(phi0);
    const double W0 = std::sqrt(1 - e2 * std::sin(phi0) * std::sin(phi0));
    zone.B = RequireFinite(std::sqrt(1 + zone.ep2 * (c * c) * (c * c)));
    const double A = zone.B * a * std::sqrt(1 - e2) / (W0 * W0);
    const double Q0 = Lambert83_GET_IsometricLatitude(phi0, e);
    zone.C = RequireFinite(ACosh(zone.B * std::sqrt(1 - e2) / (c * W0)) - zone.B * Q0);
    zone.Ak = RequireFinite(A * k0 / zone.B);
    const double gamma0 = RequireFinite(ASin(std::sin(alpha) * a * c / (A * W0)));
    zone.sg = std::sin(gamma0);
    zone.cg = std::cos(gamma0);
    zone.lamc = RequireFinite(ASin(zone.sg * Sinh(zone.B * Q0 + zone.C) / zone.cg) / zone.B + lam0);
    zone.Ka = RequireFinite(A * k0 / a);
    return zone;
}

PlanePosition OMercator83Plane(const OMercator83Zone& zone, double phi, double lam) {
    const double sg = zone.sg;
    const double cg = zone.cg;
    const double L = (lam - zone.lamc) * zone.B;
    const double sinL = std::sin(L);
    const double cosL = std::cos(L);
    const double q = zone.B * Lambert83_GET_IsometricLatitude(phi, zone.e) + zone.C;
    const double J = Sinh(q);
    const double K = Cosh(q);
    const double u = zone.Ak * std::atan((cg * J - sg * sinL) / cosL);
    const double v = zone.Ak / 2 * std::log((K - sg * J - cg * sinL) / (sg * J + K + cg * sinL));
    const double sinPhi = std::sin(phi);
    return {.northing = RequireFinite(zone.cosAlpha * u - zone.sinAlpha * v + zone.FN),
            .easting = RequireFinite(zone.cosAlpha * v + zone.sinAlpha * u + zone.FE),
            .convergence = RequireFinite(std::atan((sg - cg * J * sinL) / (cg * K * cosL)) - zone.alpha),
            .scale = RequireFinite(zone.Ka * std::sqrt(1 - zone.e * zone.e * (sinPhi * sinPhi)) *
                                   std::cos(u / zone.Ak) / (cosL * std::cos(phi)))};
}

GeographicPosition OMercator83Geographic(const OMercator83Zone& zone, double northing, double easting) {
    const double sg = zone.sg;
    const double cg = zone.cg;
    const double u = (northing - zone.FN) * zone.cosAlpha + (easting - zone.FE) * zone.sinAlpha;
    const double v = (easting - zone.FE) * zone.cosAlpha - (northing - zone.FN) * zone.sinAlpha;
    const double J = Sinh(v / zone.Ak);
    const double K = Cosh(v / zone.Ak);
    const double S = std::sin(u / zone.Ak);
    const double Qc = (0.5 * std::log((K - sg * J + cg * S) / (sg * J + K - cg * S)) - zone.C) / zone.B;
    const double chi = 2 * std::atan((std::exp(Qc) - 1) / (std::exp(Qc) + 1));
    const double s = std::sin(chi);
    const double c = std::cos(chi);
    const double cc = c * c;
    const double phi = RequireFinite(
        chi + s * c * (zone.P0 + zone.P2 * cc + zone.P4 * (cc * cc) + zone.P6 * (cc * cc * cc)));
    const double lam =
        RequireFinite(zone.lamc - 1 / zone.B * std::atan((sg * S + cg * J) / std::cos(u / zone.Ak)));
    const PlanePosition plane = OMercator83Plane(zone, phi, lam);
    return {.phi = phi, .lam = lam, .convergence = plane.convergence, .scale = plane.scale};
}

void OMercator83_SET_Zone(double a, double e, double phi0, double lam0, double FN, double FE, double k0,
                          double alpha) {
    ActiveZone = OMercator83ZoneOf(a, e, phi0, lam0, FN, FE, k0, alpha);
}

PlanePosition OMercator83_GET_Plane(double phi, double lam) { return OMercator83Plane(ActiveZone, phi, lam); }

GeographicPosition OMercator83_GET_Geographic(double northing, double easting) {
    return OMercator83Geographic(ActiveZone, northing, easting);
}

}  // namespace tarvek
