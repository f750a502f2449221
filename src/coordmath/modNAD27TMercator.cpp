// C&GS Publication 62-4, "State Plane Coordinates by Automatic Data Processing" (Claire, 1968), the
// transverse Mercator equations. They are the legal coordinates of 1927; nothing in them is to be refined:
//
// - Against the projection itself the northing is off by up to 0.55 feet (170 mm) 1.5 degrees from
//   the central meridian, and 2.3 feet (690 mm) in the one zone that reaches 2.3 degrees, because the series
//   for the foot latitude has one term.
// - The forward equations turn meters to feet by 3.28083333, and not by 3.2808333333333333: the easting is
//   short by 0.0005 feet (0.15 mm) 500,000 feet from the central meridian. The inverse turns feet to meters
//   by 0.3048006099, not 0.3048006096012192: the same distance comes out 0.15 mm longer.
// - Clarke 1866 stands in the constants, whatever ellipsoid a zone names; only the cubic term of the easting,
//   through G, follows the zone's own.
// - No false northing.
// - The inverse works out convergence and scale at the position found, by a foot latitude of its own.

#include "coordmath/modNAD27TMercator.hpp"

#include <cmath>
#include <cstdint>

#include "coordmath/modMath.hpp"
#include "coordmath/modNAD27Series.hpp"
#include "platform/modFaults.hpp"
#include "platform/modNumbers.hpp"

namespace tarvek {
namespace {

TMercator27Zone ActiveZone{};

double Cube(double x) { return x * x * x; }

// 1 - e^2 sin^2 on Clarke 1866.
double Clarke(double phi) {
    const double s = std::sin(phi);
    return 1 - 0.006768658 * (s * s);
}

// A step towards the foot latitude of a point at latitude phi, `x` meters from the central meridian; sine and
// tangent are taken at the estimate before.
double FootLatitudeStep(double x, double phi, double estimate) {
    const double w = Clarke(estimate);
    return (x * x * 25.52381 / 1e10 * (w * w) * std::tan(estimate) + phi * SecondsPerRadian) *
           RadiansPerSecond;
}

double FootLatitude(double x, double phi) { return FootLatitudeStep(x, phi, FootLatitudeStep(x, phi, phi)); }

// Of a point `d` seconds east of the central meridian.
double Convergence(double footLatitude, double phi, double d) {
    const double pm = (footLatitude + phi) / 2;
    const double s = std::sin(pm);
    const double c = std::cos(pm);
    return (c * c * (1.9587 / 1e12) * (d * d) * s + s) * d * RadiansPerSecond;
}

}  // namespace

TMercator27Zone TMercator27ZoneOf(double a, double e, double phi0, double lam0, double /*FN*/, double FE,
                                  double k0) {
    const auto [Rm, Rn] = RadiiInFeet(a, e, std::sin(phi0));
    const MinutesAndSeconds central = RectifiedLatitude(phi0);
    return {.a = a,
            .e = e,
            .FE = FE,
            .lam0s = RequireFinite(lam0 * SecondsPerRadian),
            .Mn = RequireFinite(central.minutes),
            .Sn = RequireFinite(central.seconds),
            .k0 = k0,
            .G = RequireFinite(1e15 * 1 / (k0 * k0 * Rm * 6 * Rn))};
}

double TMercator27Scale(const TMercator27Zone& zone, double phi, double easting) {
    const double c = std::cos(phi);
    const double w = 1 + 0.0068147849 * (c * c);
    const double x = (easting - zone.FE) / 1e6;
    return RequireFinite(zone.k0 * (1 + w * w / (zone.k0 * zone.k0 * 881.749162) * (x * x)));
}

PlanePosition TMercator27Plane(const TMercator27Zone& zone, double phi, double lam) {
    const double d = zone.lam0s - lam * SecondsPerRadian;
    const double d1 = d - Cube(d / 1e4) * 3.9174;
    const double h = d1 * std::cos(phi) * 30.92241724 / std::sqrt(Clarke(phi));
    const double x1 = Cube(h / 1e5) * 4.0831 + h;
    const double x2 = x1 * 3.28083333 * zone.k0;
    const double easting = RequireFinite(Cube(x2 / 1e5) * zone.G + x2 + zone.FE);

    const double p2 = FootLatitude(x1, phi);
    const MinutesAndSeconds foot = MinutesAndSecondsOf(p2);
    const double northing =
        zone.k0 * 101.2794065 *
        ((foot.minutes - zone.Mn) * 60.0 + foot.seconds - zone.Sn - RectifyingSeconds(p2));
    return {.northing = RequireFinite(northing),
            .easting = easting,
            .convergence = RequireFinite(Convergence(p2, phi, d)),
            .scale = TMercator27Scale(zone, phi, easting)};
}

GeographicPosition TMercator27Geographic(const TMercator27Zone& zone, double northing, double easting) {
    const double x = easting - zone.FE;
    const double y1 = x - Cube(x / 1e5) * zone.G;
    const double y2 = x - Cube(y1 / 1e5) * zone.G;
    const double x3 = y2 * 0.3048006099 / zone.k0;

    const double q = 0.009873675553 / zone.k0 * northing + zone.Sn;
    const std::int16_t Mi = Integer16FromNumber(zone.Mn);
    const double q2 = SecondsFromRectified(Mi, q);
    const double p1 = RequireNoPole((zone.Mn * 60.0 + q2) * RadiansPerSecond);
    const double w = Clarke(p1);
    const double x5 = x3 / 1e5;
    const double q3 = q2 - x5 * x5 * 25.52381 * (w * w) * std::tan(p1);
    const double phi = RequireFinite((zone.Mn * 60.0 + q3) * RadiansPerSecond);

    const double h1 = x3 - Cube(x3 / 1e5) * 4.0831;
    const double h2 = x3 - Cube(h1 / 1e5) * 4.0831;
    const double g = std::sqrt(Clarke(phi)) * h2 / (std::cos(phi) * 30.92241724);
    const double g1 = Cube(g / 1e4) * 3.9174 + g;
    const double d2 = zone.lam0s - g - Cube(g1 / 1e4) * 3.9174;
    const double lam = RequireFinite(d2 * RadiansPerSecond);

    const double d = zone.lam0s - lam * SecondsPerRadian;
    return {.phi = phi,
            .lam = lam,
            .convergence = RequireFinite(Convergence(FootLatitude(x3, phi), phi, d)),
            .scale = TMercator27Scale(zone, phi, easting)};
}

void TMercator27_SET_Zone(double a, double e, double phi0, double lam0, double FN, double FE, double k0) {
    ActiveZone = TMercator27ZoneOf(a, e, phi0, lam0, FN, FE, k0);
}

PlanePosition TMercator27_GET_Plane(double phi, double lam) { return TMercator27Plane(ActiveZone, phi, lam); }

GeographicPosition TMercator27_GET_Geographic(double northing, double easting) {
    return TMercator27Geographic(ActiveZone, northing, easting);
}

double TMercator27_GET_Scale(double phi, double easting) {
    return TMercator27Scale(ActiveZone, phi, easting);
}

}  // namespace tarvek
