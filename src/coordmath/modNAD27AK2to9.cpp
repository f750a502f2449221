// C&GS Publication 62-4, "State Plane Coordinates by Automatic Data Processing" (Claire, 1968), the equations
// of Alaska zones 2 to 9. They are the legal coordinates of 1927; nothing in them is to be refined:
//
// - One constant of the inverse is 0.0068147489 where every other line has 0.0068147849. It moves the
//   latitude by 0.05 mm 500,000 feet from the central meridian.
// - Against the projection itself they are off by less than 0.001 feet (0.3 mm) within a zone, but for the
//   longitude of the inverse in zone 9, 0.0017 feet at 3.16 degrees from its meridian: a term in x^7 is left
//   out.
// - The sine is taken as the root of 1 - cos^2, which is positive: the equations serve northern latitudes
//   alone.
// - Clarke 1866, the scale 0.9999 and the central latitude 54 stand in the constants.
// - The inverse works out convergence and scale at the position found, as the forward equations do.

#include "coordmath/modNAD27AK2to9.hpp"

#include <cmath>

#include "coordmath/modMath.hpp"
#include "coordmath/modNAD27Series.hpp"
#include "platform/modFaults.hpp"

namespace tarvek {
namespace {

// Seconds east of the central meridian, in units of 10,000.
double EastOf(double lamc, double lam) { return (lamc * SecondsPerRadian - lam * SecondsPerRadian) / 1e4; }

}  // namespace

double AK27_GET_Convergence(double lamc, double phi, double lam) {
    const double d = EastOf(lamc, lam);
    const double dd = d * d;
    const double c = std::cos(phi);
    const double cc = c * c;
    const double P = (3 * (cc * cc) - cc) * (0.3683 / 1e2) * (dd * dd);
    const double Qd =
        10000.0 + 7.83481 * dd * (cc + 2.044 / 1e2 * (cc * cc) + 0.9 / 1e4 * (cc * cc * cc)) + P;
    return RequireFinite(d * std::sqrt(1 - cc) * Qd * RadiansPerSecond);
}

double AK27_GET_Scale(double phi, double easting, double FE) {
    const double c = std::cos(phi);
    const double w = 1 + 0.0068147849 * (c * c);
    const double x = (easting - FE) / 1e6;
    return RequireFinite(0.9999 * (1 + w * w / 881.572821 * (x * x)));
}

PlanePosition AK27Plane(const AK27Zone& zone, double phi, double lam) {
    const double c = std::cos(phi);
    const double cc = c * c;
    const double c4 = cc * cc;
    const double c6 = cc * cc * cc;
    const double s = std::sqrt(1 - cc);
    const double d = EastOf(zone.lamc, lam);
    const double dd = d * d;
    const double d4 = dd * dd;
    const double D = 1 + 0.0068147849 * cc;

    const double E4 = 4.60382 / 1e8 * d4 * (1 - 20 * cc + 23.6047 * c4 + 0.4907 * c6);
    const double E2 = 1 - (1 - 2 * cc - 0.681478 / 1e2 * c4) * (3.91740509 / 1e4) * dd + E4;
    const double easting = RequireFinite(d * (c * 1017862.15 / std::sqrt(D)) * E2 + zone.FE);

    const double N4 = 1.5346 / 1e8 * d4 * (1 - 60 * cc + 117.75 * c4 + 4.089 * c6);
    const double N2 = (6 * cc - 1 + 6.133306 / 1e2 * c4 + 1.8577 / 1e4 * c6) * (1.958703 / 1e4) * dd + 1 + N4;
    const double N3 = dd * (s * 24673.6748 * c / std::sqrt(D)) * N2;
    const double rectifying = (1052.893943 - 4.483386 * cc + 2.3559 / 1e2 * c4) * s * c;
    const double northing = (phi * SecondsPerRadian - 193900.05442 - rectifying) * 101.269278503 + N3;
    return {.northing = RequireFinite(northing),
            .easting = easting,
            .convergence = AK27_GET_Convergence(zone.lamc, phi, lam),
            .scale = AK27_GET_Scale(phi, easting, zone.FE)};
}

GeographicPosition AK27Geographic(const AK27Zone& zone, double northing, double easting) {
    const double q = northing * 0.00987466302498 + 193900.05442;
    const double c0 = std::cos(q * RadiansPerSecond);
    const double c02 = c0 * c0;
    const double f =
        (6.193011 * c02 + 1047.546691 + 5.0699 / 1e2 * (c02 * c02)) * std::sqrt(1 - c02) * c0 + q;
    const double c = std::cos(RequireNoPole(f * RadiansPerSecond));
    const double cc = c * c;
    const double c4 = cc * cc;
    const double D = 1 + 0.0068147849 * cc;
    const double x = (easting - zone.FE) / 1e6;
    const double xx = x * x;
    const double x4 = xx * xx;

    const double P1 = D * (1.42969 / 1e8) * x4 * (45 / c4 + 15.5 - 0.307 / cc + 1.53 * cc);
    const double P2 =
        1 - (2.79 / 1e4 * c4 + 3 / cc + 1.9591113 + 8.1359 / 1e2 * cc) * (1.8905604 / 1e4) * xx + P1;
    const double w = 1 + 0.0068147489 * cc;  // not D
    const double phis = f - w * w * xx * 233.973645 * std::sqrt(1 / cc - 1) * P2;
    const double phi = RequireFinite(phis * RadiansPerSecond);

    const double D1 = 4.2890624 / 1e8 * (D * D) * x4 * (24 / c4 + 1.054 - 20 / cc - 1.36 / 1e2 * cc);
    const double D2 = 1 - (0.0068147849 * cc + 2 / cc - 1) * D * (3.7811208 / 1e4) * xx + D1;
    const double lams = zone.lamc * SecondsPerRadian - x * (std::sqrt(D) / c * 9824.513072) * D2;
    const double lam = RequireFinite(lams * RadiansPerSecond);
    return {.phi = phi,
            .lam = lam,
            .convergence = AK27_GET_Convergence(zone.lamc, phi, lam),
            .scale = AK27_GET_Scale(phi, easting, zone.FE)};
}

PlanePosition AK27_GET_Plane(double phi, double lam, double FE, double /*phi0*/, double lamc) {
    return AK27Plane({.FE = FE, .lamc = lamc}, phi, lam);
}

GeographicPosition AK27_GET_Geographic(double northing, double easting, double FE, double /*phi0*/,
                                       double lamc) {
    return AK27Geographic({.FE = FE, .lamc = lamc}, northing, easting);
}

}  // namespace tarvek
