// The one-parallel Lambert projection in the form of the Lambert conic near-conformal of EPSG Guidance Note
// 7-2: a power series in the meridian arc from the parallel, here carried on from s^3 to s^7, which makes it
// conformal again. What is to be known of it before anything is changed:
//
// - Against the projection itself it is off by less than 0.1 mm within 2 degrees of latitude of the parallel;
//   the series ends at s^7. The arc ends at e^6: 0.03 mm over a quadrant.
// - The latitude of an inverse ends when a Newton step is below 0.00005 m on the arc and 0.0000005 radians on
//   the latitude; such steps square their error, so that less than 0.001 mm is left.
// - An inverse whose arc is exactly 0 divides 0 by 0, and is the run time's fault.
// - The Newton loops have no bound of their own. One that is still going after ten thousand steps would never
//   end, and is the fault too.

#include "coordmath/modLambertNI.hpp"

#include <cmath>

#include "platform/modFaults.hpp"

namespace tarvek {
namespace {

LambertNIZone ActiveZone;

// Some twenty times what the farthest point needs that still has a result.
constexpr int EndlessSteps = 10000;

// Meridian arc from the equator, meters.
double Arc(const LambertNIZone& zone, double phi) {
    return zone.a * (zone.A0 * phi - zone.A2 * std::sin(2 * phi) + zone.A4 * std::sin(4 * phi) -
                     zone.A6 * std::sin(6 * phi));
}

// The terms of the mapping radius behind the first, for an arc s from the central parallel, positive north.
struct Terms {
    double u1;
    double u2;
    double u3;
    double u4;
    double u5;
};

Terms TermsOf(const LambertNIZone& zone, double s) {
    const double s2 = s * s;
    const double s3 = s2 * s;
    const double s4 = s2 * s2;
    const LambertNISeries& u = zone.series;
    return {.u1 = s3 / u.D1,
            .u2 = s4 * zone.T * u.P2 / u.D2,
            .u3 = s4 * s * u.P3 / u.D3,
            .u4 = s3 * s3 * zone.T * u.P4 / u.D4,
            .u5 = s4 * s3 * u.P5 / u.D5};
}

// The polynomials of tangent and cosine of the parallel, and the products of its radii below them.
LambertNISeries SeriesOf(const LambertNIZone& zone) {
    const double N = zone.N0r;
    const double M = zone.M0r;
    const double N2 = N * N;
    const double N3 = N2 * N;
    const double M2 = M * M;
    const double T2 = zone.T * zone.T;
    const double C2 = zone.C * zone.C;
    return {.P2 = 1 - 4 * zone.ep2 * C2,
            .P3 = 5 + 3 * T2 - 3 * zone.ep2 - zone.ep2 * C2,
            .P4 = 7 + 4 * T2,
            .P5 = 61 + 180 * T2 + 60 * (T2 * T2),
            .D1 = 6 * M * N,
            .D2 = 24 * N2 * M,
            .D3 = 120 * N2 * M2,
            .D4 = 240 * N3 * M2,
            .D5 = 5040 * N3 * (M2 * M)};
}

// The point scale at an arc s from the central parallel.
double ScaleAt(const LambertNIZone& zone, double s) {
    const double s2 = s * s;
    const double N = zone.N0r;
    const double M = zone.M0r;
    const double T = zone.T;
    return RequireFinite(zone.k0 * (1 + s2 / (2 * M * N) + s2 * s * T / (6 * (N * N) * M) +
                                    s2 * s2 * (5 + 3 * (T * T)) / (24 * (N * N) * (M * M))));
}

// One more step of a loop, which must be finite and not lead on for ever.
double CheckedStep(double step, int& steps) {
    if (++steps > EndlessSteps) RaiseFault(Fault::Overflow);
    return RequireFinite(step);
}

// The arc from the central parallel whose mapping radius lies c nearer to the apex. An arc of exactly 0 is 0
// over 0 in the derivative, and so the fault.
double ArcFromRadius(const LambertNIZone& zone, double c) {
    double s = c;
    double d = 1.0;
    int steps = 0;
    while (!(std::fabs(d) < 0.00005)) {
        const Terms u = TermsOf(zone, s);
        const double F = c - s - u.u1 - u.u2 - u.u3 - u.u4 - u.u5;
        const double D = 1 + 3 * u.u1 / s + 4 * u.u2 / s + 5 * u.u3 / s + 6 * u.u4 / s + 7 * u.u5 / s;
        d = CheckedStep(F / D, steps);
        s = s + d;
    }
    return s;
}

double LatitudeFromArc(const LambertNIZone& zone, double m) {
    double phi = m / (zone.A0 * zone.a);
    double d = 1.0;
    int steps = 0;
    while (!(std::fabs(d) < 0.0000005)) {
        const double F = m - Arc(zone, phi);
        const double D = zone.a * (zone.A0 - 2 * zone.A2 * std::cos(2 * phi) +
                                   4 * zone.A4 * std::cos(4 * phi) - 6 * zone.A6 * std::cos(6 * phi));
        d = CheckedStep(F / D, steps);
        phi = phi + d;
    }
    return phi;
}

}  // namespace

LambertNIZone LambertNIZoneOf(double a, double e, double phi0, double lam0, double FN, double FE, double k0) {
    const double e2 = e * e;
    const double e4 = e2 * e2;
    const double e6 = e4 * e2;
    const double sine = std::sin(phi0);
    const double w = 1 - e2 * (sine * sine);

    LambertNIZone zone;
    zone.a = a;
    zone.e = e;
    zone.ep2 = RequireFinite(e2 / (1 - e2));
    zone.phi0 = phi0;
    zone.lam0 = lam0;
    zone.FN = FN;
    zone.FE = FE;
    zone.k0 = k0;
    zone.S = sine;
    zone.C = std::cos(phi0);
    zone.T = std::tan(phi0);
    zone.N0r = RequireFinite(a / std::sqrt(w));
    zone.M0r = RequireFinite((1 - e2) * a / std::pow(w, 1.5));
    zone.rho0 = RequireFinite(zone.N0r * k0 / zone.T);
    zone.A0 = 1 - e2 / 4 - 3 * e4 / 64 - 5 * e6 / 256;
    zone.A2 = 3.0 / 8 * (e2 + e4 / 4 + 15 * e6 / 128);
    zone.A4 = 15.0 / 256 * (e4 + 3 * e6 / 4);
    zone.A6 = 35.0 / 3072 * e6;
    zone.M0 = RequireFinite(Arc(zone, phi0));
    zone.series = SeriesOf(zone);
    return zone;
}

PlanePosition LambertNIPlane(const LambertNIZone& zone, double phi, double lam) {
    const double s = Arc(zone, phi) - zone.M0;
    const Terms u = TermsOf(zone, s);
    const double L = (s + u.u1 + u.u2 + u.u3 + u.u4 + u.u5) * zone.k0;
    const double theta = (lam * -1.0 - zone.lam0 * -1.0) * zone.S;
    const double P = (zone.rho0 - L) * std::sin(theta);
    return {.northing = RequireFinite(zone.FN + L + std::tan(theta / 2) * P),
            .easting = RequireFinite(zone.FE + P),
            .convergence = RequireFinite(theta),
            .scale = ScaleAt(zone, s)};
}

GeographicPosition LambertNIGeographic(const LambertNIZone& zone, double northing, double easting) {
    const double theta = RequireFinite(std::atan((easting - zone.FE) / (zone.rho0 - northing + zone.FN)));
    const double L = northing - zone.FN - (easting - zone.FE) * std::tan(theta / 2);
    const double s = ArcFromRadius(zone, RequireFinite(L / zone.k0));
    const double phi = RequireFinite(LatitudeFromArc(zone, zone.M0 + s));
    return {.phi = phi,
            .lam = RequireFinite((theta / zone.S - zone.lam0) * -1.0),
            .convergence = theta,
            .scale = LambertNIScale(zone, phi)};
}

double LambertNIScale(const LambertNIZone& zone, double phi) {
    return ScaleAt(zone, Arc(zone, phi) - zone.M0);
}

void LambertNI_SET_Zone(double a, double e, double phi0, double lam0, double FN, double FE, double k0) {
    ActiveZone = LambertNIZoneOf(a, e, phi0, lam0, FN, FE, k0);
}

PlanePosition LambertNI_GET_Plane(double phi, double lam) { return LambertNIPlane(ActiveZone, phi, lam); }

GeographicPosition LambertNI_GET_Geographic(double northing, double easting) {
    return LambertNIGeographic(ActiveZone, northing, easting);
}

double LambertNI_GET_Scale(double phi) { return LambertNIScale(ActiveZone, phi); }

}  // namespace tarvek
