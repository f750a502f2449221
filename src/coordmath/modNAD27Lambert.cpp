// C&GS Publication 62-4, "State Plane Coordinates by Automatic Data Processing" (Claire, 1968), the Lambert
// equations. The zone constants, which the publication tabulates, come from the parallels by the closed form
// of USGS Professional Paper 1395 (Snyder, 1987), page 107. They are the legal coordinates of 1927; nothing
// in them is to be refined:
//
// - Against the projection itself they are off by up to 0.03 feet (9 mm) within the states, and by 0.77 feet
//   (234 mm) in the far corners of Louisiana's offshore zone: the series in the meridian arc ends at s^5, and
//   its coefficient of s^4 is that of a sphere.
// - Clarke 1866 stands in the arc and the scale, whatever ellipsoid a zone names; only the zone constants
//   follow the zone's own.
// - The inverse finds the arc by three substitutions, with no test; 100 miles from the central parallel that
//   is below 0.01 mm.
// - No false northing.

#include "coordmath/modNAD27Lambert.hpp"

#include <cmath>
#include <cstdint>

#include "coordmath/modMath.hpp"
#include "coordmath/modNAD27Series.hpp"
#include "coordmath/modNAD83Lambert.hpp"
#include "platform/modFaults.hpp"
#include "platform/modNumbers.hpp"

namespace tarvek {
namespace {

Lambert27Zone ActiveZone{};

// 1 + L2 b^2 - L3 b^3 + L4 b^4 for an arc of b times 10^8 feet, positive south.
double ArcFactor(const Lambert27Zone& zone, double b) {
    return 1 + zone.L2 * (b * b) - zone.L3 * (b * b * b) + zone.L4 * (b * b) * (b * b);
}

}  // namespace

Lambert27Zone Lambert27ZoneOf(double phi1, double phi2, double phib, double lam0, double /*FN*/, double FE,
                              double a, double e) {
    const LambertCone cone = LambertConeOf(phi1, phi2, phib, a, e);
    const auto [Rm, Rn] = RadiiInFeet(a, e, cone.n);
    const double t = std::tan(cone.phi0);
    const MinutesAndSeconds central = RectifiedLatitude(cone.phi0);
    return {.a = a,
            .e = e,
            .FE = FE,
            .lam0s = RequireFinite(lam0 * SecondsPerRadian),
            .n = cone.n,
            .R0 = RequireFinite(cone.R0 * SurveyFeetPerMeter),
            .Rb = RequireFinite(cone.Rb * SurveyFeetPerMeter),
            .kc = cone.k0,
            .Mn = central.minutes,
            .Sn = central.seconds,
            .L2 = RequireFinite(1e16 * 1 / (Rm * 6 * Rn)),
            .L3 = RequireFinite(1e24 * t / (std::pow(Rm * Rn, 1.5) * 24)),
            .L4 = RequireFinite(1e32 * (5 + 3 * (t * t)) / (Rn * Rn * Rn * Rm * 120))};
}

double Lambert27Scale(const Lambert27Zone& zone, double phi, double R) {
    const double s = std::sin(phi);
    return RequireFinite(zone.n * R * std::sqrt(1 - 0.006768658 * (s * s)) /
                         (std::cos(RequireNoPole(phi)) * 20925832.16));
}

PlanePosition Lambert27Plane(const Lambert27Zone& zone, double phi, double lam) {
    const MinutesAndSeconds latitude = MinutesAndSecondsOf(phi);
    const double s =
        (RectifyingSeconds(phi) + (zone.Mn - latitude.minutes) * 60.0 + zone.Sn - latitude.seconds) *
        101.2794065;
    const double b = s / 1e8;
    const double R = zone.kc * s * (1 + b * b * (zone.L2 - b * zone.L3 + b * b * zone.L4)) + zone.R0;
    const double theta = (zone.lam0s - lam * SecondsPerRadian) * zone.n * RadiansPerSecond;
    const double half = std::sin(theta / 2);
    return {.northing = RequireFinite(2 * (half * half) * R + zone.Rb - R),
            .easting = RequireFinite(std::sin(theta) * R + zone.FE),
            .convergence = RequireFinite(theta),
            .scale = Lambert27Scale(zone, phi, R)};
}

GeographicPosition Lambert27Geographic(const Lambert27Zone& zone, double northing, double easting) {
    const double theta = std::atan(RequireFinite((easting - zone.FE) / (zone.Rb - northing)));
    const double lam = RequireFinite((zone.lam0s - theta * SecondsPerRadian / zone.n) * RadiansPerSecond);
    const double R = (zone.Rb - northing) / std::cos(theta);
    const double half = std::sin(theta / 2);
    const double c = (2 * R * (half * half) + zone.Rb - zone.R0 - northing) / zone.kc;
    double s = c;
    for (int substitution = 0; substitution < 3; ++substitution) s = c / ArcFactor(zone, s / 1e8);

    // 600 minutes are lent to the seconds, which so stay positive.
    const double q = zone.Sn + 36000.0 - s * 0.00987367553;
    const std::int16_t Mi = Integer16FromNumber(zone.Mn - 600.0);
    const double q2 = SecondsFromRectified(Mi, q);
    const double phi = RequireFinite((Mi * 60.0 + q2) * RadiansPerSecond);
    return {.phi = phi, .lam = lam, .convergence = theta, .scale = Lambert27Scale(zone, phi, R)};
}

void Lambert27_SET_Zone(double phi1, double phi2, double phib, double lam0, double FN, double FE, double a,
                        double e) {
    ActiveZone = Lambert27ZoneOf(phi1, phi2, phib, lam0, FN, FE, a, e);
}

PlanePosition Lambert27_GET_Plane(double phi, double lam) { return Lambert27Plane(ActiveZone, phi, lam); }

GeographicPosition Lambert27_GET_Geographic(double northing, double easting) {
    return Lambert27Geographic(ActiveZone, northing, easting);
}

double Lambert27_GET_Scale(double phi, double R) { return Lambert27Scale(ActiveZone, phi, R); }

double Lambert27_GET_W(double phi, double e) { return Lambert83_GET_W(phi, e); }

}  // namespace tarvek
