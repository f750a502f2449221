// NOAA Manual NOS NGS 5, "State Plane Coordinate System of 1983" (Stem, 1989), the Lambert conformal mapping
// equations; the same closed form as in USGS Professional Paper 1395 (Snyder, 1987), pages 107 to 109. What
// is to be known of it before anything is changed:
//
// - Nothing differs by more than rounding, below 0.0001 mm. Powers, quotients and logarithms keep their
//   order, so that the last digits stay.
// - The latitude of an inverse takes three Newton steps from the sphere's latitude, always three and with no
//   test; what is left after them is rounding.
// - The mapping radius is computed at both parallels, compared as 32-bit floats, which see half a meter, and
//   kept from the first.

#include "coordmath/modNAD83Lambert.hpp"

#include <cmath>

#include "coordmath/modMath.hpp"
#include "platform/modFaults.hpp"
#include "platform/modNumbers.hpp"
#include "platform/modPrompts.hpp"

namespace tarvek {
namespace {

Lambert83Zone ActiveZone;

// Isometric latitude of the latitude whose sine is s.
double IsometricFromSine(double s, double e) {
    return 0.5 * (std::log((1 + s) / (1 - s)) - e * std::log((1 + e * s) / (1 - e * s)));
}

double ScaleAt(const Lambert83Zone& zone, double phi, double R) {
    return Lambert83_GET_W(phi, zone.e) * zone.n * R / (std::cos(phi) * zone.a);
}

}  // namespace

double Lambert83_GET_IsometricLatitude(double phi, double e) {
    return RequireFinite(IsometricFromSine(std::sin(phi), e));
}

double Lambert83_GET_W(double phi, double e) {
    const double s = std::sin(phi);
    return RequireFinite(std::sqrt(1 - e * e * (s * s)));
}

LambertCone LambertConeOf(double phi1, double phi2, double phib, double a, double e) {
    const double Q1 = Lambert83_GET_IsometricLatitude(phi1, e);
    const double W1 = Lambert83_GET_W(phi1, e);
    const double Q2 = Lambert83_GET_IsometricLatitude(phi2, e);
    const double W2 = Lambert83_GET_W(phi2, e);
    const double Qb = Lambert83_GET_IsometricLatitude(phib, e);
    const double n = RequireFinite(std::log((std::cos(phi1) * W2) / (std::cos(phi2) * W1)) / (Q2 - Q1));
    const double phi0 = ASin(n);
    const double Q0 = Lambert83_GET_IsometricLatitude(phi0, e);
    const double W0 = Lambert83_GET_W(phi0, e);
    const double K = RequireFinite(std::cos(phi1) * a * std::exp(n * Q1) / (n * W1));
    const double K2 = RequireFinite(std::cos(phi2) * a * std::exp(n * Q2) / (W2 * n));
    if (SingleFromNumber(K) != SingleFromNumber(K2))
        TellFault("Error - Mapping Radius does not compute properly");
    const double R0 = RequireFinite(K / std::exp(n * Q0));
    return {.n = n,
            .phi0 = phi0,
            .K = K,
            .Rb = RequireFinite(K / std::exp(n * Qb)),
            .R0 = R0,
            .k0 = RequireFinite(std::tan(phi0) * W0 * R0 / a)};
}

Lambert83Zone Lambert83ZoneOf(double phi1, double phi2, double phib, double lam0, double FN, double FE,
                              double a, double e) {
    const LambertCone cone = LambertConeOf(phi1, phi2, phib, a, e);
    return {.a = a,
            .e = e,
            .lam0 = lam0,
            .FE = FE,
            .FN = FN,
            .n = cone.n,
            .K = cone.K,
            .Rb = cone.Rb,
            .R0 = cone.R0,
            .k0 = cone.k0,
            .N0 = RequireFinite(cone.Rb + FN - cone.R0)};
}

PlanePosition Lambert83Plane(const Lambert83Zone& zone, double phi, double lam) {
    const double Q = Lambert83_GET_IsometricLatitude(phi, zone.e);
    const double R = zone.K / std::exp(zone.n * Q);
    const double gamma = (zone.lam0 - lam) * zone.n;
    return {.northing = RequireFinite(zone.FN + zone.Rb - R * std::cos(gamma)),
            .easting = RequireFinite(R * std::sin(gamma) + zone.FE),
            .convergence = RequireFinite(gamma),
            .scale = RequireFinite(ScaleAt(zone, phi, R))};
}

GeographicPosition Lambert83Geographic(const Lambert83Zone& zone, double northing, double easting) {
    const double e = zone.e;
    const double e2 = e * e;
    const double Rp = zone.Rb - northing + zone.FN;
    const double Ep = easting - zone.FE;
    const double gamma = std::atan(Ep / Rp);
    const double R = std::sqrt(Rp * Rp + Ep * Ep);
    const double Q = RequireFinite(std::log(zone.K / R) / zone.n);
    const double E = std::exp(2 * Q);
    double s = (E - 1) / (E + 1);
    for (int step = 0; step < 3; ++step) {
        const double f1 = IsometricFromSine(s, e) - Q;
        const double f2 = 1 / (1 - s * s) - e2 / (1 - s * s * e2);
        s = -f1 / f2 + s;
    }
    const double phi = ASin(s);
    return {.phi = phi,
            .lam = RequireFinite(zone.lam0 - gamma / zone.n),
            .convergence = RequireFinite(gamma),
            .scale = RequireFinite(ScaleAt(zone, phi, R))};
}

void Lambert83_SET_Zone(double phi1, double phi2, double phib, double lam0, double FN, double FE, double a,
                        double e) {
    ActiveZone = Lambert83ZoneOf(phi1, phi2, phib, lam0, FN, FE, a, e);
}

PlanePosition Lambert83_GET_Plane(double phi, double lam) { return Lambert83Plane(ActiveZone, phi, lam); }

GeographicPosition Lambert83_GET_Geographic(double northing, double easting) {
    return Lambert83Geographic(ActiveZone, northing, easting);
}

}  // namespace tarvek
