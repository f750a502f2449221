// NOAA Manual NOS NGS 5, "State Plane Coordinate System of 1983" (Stem, 1989), the transverse Mercator
// mapping equations: rectifying latitude as a power series in cos^2, closed both ways. What differs from
// them, and is to stay so, since coordinates that were computed before must come out again:
//
// - B6 of the inverse begins with 5 + 28 t^2 + 24 t^4, the numerator of B5, in place of 61 + 90 t^2 + 45 t^4.
//   The latitude of an inverse is off by up to 0.3 mm 2 degrees from the central meridian, as far as most
//   state plane zones reach, by 3.2 mm at latitude 45 degrees and 3 degrees from it, by 3.6 mm at worst at
//   the edges of a UTM zone (docs/accuracy.md has the few zones that reach farther). Nothing else is touched.
// - The rectifying radius ends with 255 n^4 / 64 where the series has 225 n^4 / 64: 4 parts in 10^12 of the
//   meridian distance, 0.04 mm over a quadrant. Forward and inverse share it.

#include "coordmath/modNAD83TMercator.hpp"

#include <cmath>

#include "coordmath/modMath.hpp"
#include "platform/modFaults.hpp"

namespace tarvek {
namespace {

TMercator83Zone ActiveZone;

double Square(double x) { return x * x; }

// angle + sin cos (c0 + c2 cos^2 + c4 cos^4 + c6 cos^6): the form of the series both ways.
double SeriesInCosines(double angle, double c0, double c2, double c4, double c6) {
    const double cosine = std::cos(angle);
    const double cos2 = cosine * cosine;
    return angle +
           std::sin(angle) * cosine * (c0 + c2 * cos2 + c4 * Square(cos2) + c6 * (Square(cos2) * cos2));
}

double RectifyingLatitude(const TMercator83Zone& zone, double phi) {
    return SeriesInCosines(phi, zone.U0, zone.U2, zone.U4, zone.U6);
}

double LatitudeFromRectifying(const TMercator83Zone& zone, double w) {
    return SeriesInCosines(w, zone.V0, zone.V2, zone.V4, zone.V6);
}

// Prime vertical radius times the scale of the central meridian.
double ScaledRadius(const TMercator83Zone& zone, double phi) {
    return zone.k0 * zone.a / std::sqrt(1 - Square(zone.e) * Square(std::sin(phi)));
}

}  // namespace

TMercator83Zone TMercator83ZoneOf(double a, double e, double phi0, double lam0, double FN, double FE,
                                  double k0) {
    TMercator83Zone zone;
    zone.a = a;
    zone.e = e;
    zone.phi0 = phi0;
    zone.lam0 = lam0;
    zone.FN = FN;
    zone.FE = FE;
    zone.k0 = k0;

    const double e2 = std::pow(e, 2);
    zone.ep2 = RequireFinite(e2 / (1 - e2));
    const double n = (1 - std::sqrt(1 - e2)) / (1 + std::sqrt(1 - e2));
    const double n2 = std::pow(n, 2);
    const double n3 = std::pow(n, 3);
    const double n4 = std::pow(n, 4);
    zone.r = RequireFinite(a * (1 - n) * (1 - n2) * (1 + 9 * n2 / 4 + 255 * n4 / 64));

    const double u2 = -3 * n / 2 + 9 * n3 / 16;
    const double u4 = 15 * n2 / 16 - 15 * n4 / 32;
    const double u6 = -35 * n3 / 48;
    const double u8 = 315 * n4 / 512;
    zone.U0 = 2 * (u2 - 2 * u4 + 3 * u6 - 4 * u8);
    zone.U2 = 8 * (u4 - 4 * u6 + 10 * u8);
    zone.U4 = 32 * (u6 - 6 * u8);
    zone.U6 = 128 * u8;

    const double c2 = 3 * n / 2 - 27 * n3 / 32;
    const double c4 = 21 * n2 / 16 - 55 * n4 / 32;
    const double c6 = 151 * n3 / 96;
    const double c8 = 1097 * n4 / 512;
    zone.V0 = 2 * (c2 - 2 * c4 + 3 * c6 - 4 * c8);
    zone.V2 = 8 * (c4 - 4 * c6 + 10 * c8);
    zone.V4 = 32 * (c6 - 6 * c8);
    zone.V6 = 128 * c8;

    zone.S0 = RequireFinite(k0 * RectifyingLatitude(zone, phi0) * zone.r);
    return zone;
}

PlanePosition TMercator83Plane(const TMercator83Zone& zone, double phi, double lam) {
    const double L = (lam - zone.lam0) * std::cos(phi);
    const double L2 = L * L;
    const double S = zone.k0 * RectifyingLatitude(zone, phi) * zone.r;
    const double t = std::tan(RequireNoPole(phi));
    const double t2 = t * t;
    const double t4 = t2 * t2;
    const double t6 = t4 * t2;
    const double eta2 = zone.ep2 * Square(std::cos(phi));
    const double R = ScaledRadius(zone, phi);

    const double A1 = -R;
    const double A2 = R * t / 2;
    const double A3 = (1 - t2 + eta2) / 6;
    const double A4 = (5 - t2 + eta2 * (9 + 4 * eta2)) / 12;
    const double A5 = (5 - 18 * t2 + t4 + eta2 * (14 - 58 * t2)) / 120;
    const double A6 = (61 - 58 * t2 + t4 + eta2 * (270 - 330 * t2)) / 360;
    const double A7 = (61 - 479 * t2 + 179 * t4 - t6) / 5040;
    const double C1 = -t;
    const double C3 = (1 + 3 * eta2 + 2 * Square(eta2)) / 3;
    const double C5 = (2 - t2) / 15;
    const double F2 = (1 + eta2) / 2;
    const double F4 = (5 - 4 * t2 + eta2 * (9 - 24 * t2)) / 12;

    return {.northing = RequireFinite(S - zone.S0 + zone.FN + A2 * L2 * (1 + L2 * (A4 + A6 * L2))),
            .easting = RequireFinite(zone.FE + A1 * L * (1 + L2 * (A3 + L2 * (A5 + A7 * L2)))),
            .convergence = RequireFinite(C1 * L * (1 + L2 * (C3 + C5 * L2))),
            .scale = RequireFinite(zone.k0 * (1 + F2 * L2 * (1 + F4 * L2)))};
}

GeographicPosition TMercator83Geographic(const TMercator83Zone& zone, double northing, double easting) {
    const double w = (northing - zone.FN + zone.S0) / (zone.r * zone.k0);
    const double phif = LatitudeFromRectifying(zone, w);
    const double t = std::tan(RequireNoPole(phif));
    const double t2 = t * t;
    const double t4 = t2 * t2;
    const double t6 = t4 * t2;
    const double eta2 = zone.ep2 * Square(std::cos(phif));
    const double Q = (easting - zone.FE) / ScaledRadius(zone, phif);
    const double Q2 = Q * Q;

    const double B2 = -t * (1 + eta2) / 2;
    const double B4 = -(5 + 3 * t2 + eta2 * (1 - 9 * t2) - 4 * Square(eta2)) / 12;
    const double B6 = (5 + 28 * t2 + 24 * t4 + eta2 * (46 - 252 * t2 - 90 * t4)) / 360;  // see the header
    const double B3 = -(1 + 2 * t2 + eta2) / 6;
    const double B5 = (5 + 28 * t2 + 24 * t4 + eta2 * (6 + 8 * t2)) / 120;
    const double B7 = -(61 + 662 * t2 + 1320 * t4 + 720 * t6) / 5040;
    const double D3 = -(1 + t2 - eta2 - 2 * Square(eta2)) / 3;
    const double D5 = (2 + 5 * t2 + 3 * t4) / 15;
    const double G2 = (1 + eta2) / 2;
    const double G4 = (1 + 5 * eta2) / 12;
    const double L = Q * (1 + Q2 * (B3 + Q2 * (B5 + B7 * Q2)));

    return {.phi = RequireFinite(phif + B2 * Q2 * (1 + Q2 * (B4 + B6 * Q2))),
            .lam = RequireFinite(zone.lam0 - L / std::cos(phif)),
            .convergence = RequireFinite(t * Q * (1 + Q2 * (D3 + D5 * Q2))),
            .scale = RequireFinite(zone.k0 * (1 + G2 * Q2 * (1 + G4 * Q2)))};
}

void TMercator83_SET_Zone(double a, double e, double phi0, double lam0, double FN, double FE, double k0) {
    ActiveZone = TMercator83ZoneOf(a, e, phi0, lam0, FN, FE, k0);
}

PlanePosition TMercator83_GET_Plane(double phi, double lam) { return TMercator83Plane(ActiveZone, phi, lam); }

GeographicPosition TMercator83_GET_Geographic(double northing, double easting) {
    return TMercator83Geographic(ActiveZone, northing, easting);
}

}  // namespace tarvek
