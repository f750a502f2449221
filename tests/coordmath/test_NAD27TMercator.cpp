// The transverse Mercator equations of 1927 against themselves in long double, with the constants that are
// not to be refined.

#include "coordmath/modNAD27TMercator.hpp"

#include "coordmath/nad27Test.hpp"

namespace tarvek::test {
namespace {

struct Definition {
    double phi0, lam0, FE, k0;
};

// Alabama East, and the zone of Alaska's far west.
const Definition Alabama = {Radians(30, 30), Radians(85, 50), 500000, 0.99996};
const Definition Alaska10 = {Radians(51), Radians(176), 3000000, 0.9999};

TMercator27Zone ZoneOf(const Definition& d, const Ellipsoid& on = Clarke1866, double FN = 0) {
    return TMercator27ZoneOf(on.a, on.e, d.phi0, d.lam0, FN, d.FE, d.k0);
}

// The equations once more. Angles stay in seconds, minutes are not split off.
class Exact {
  public:
    explicit Exact(const Definition& d, const Ellipsoid& on = Clarke1866)
        : FE_(d.FE), lam0_(d.lam0 * SecondsInRadian), k0_(d.k0), origin_(Rectified(d.phi0)) {
        const Real W = ExactW(d.phi0, on.e);
        const Real Rm = on.a * (1 - static_cast<Real>(on.e) * on.e) / (W * W * W) * 3937 / 1200;
        const Real Rn = on.a / W * 3937 / 1200;
        G_ = 1e15L / (6 * k0_ * k0_ * Rm * Rn);
    }

    // `feet` in a meter.
    ExactPlane Plane(Real phi, Real lam, Real feet = 3.28083333L) const {
        const Real d = lam0_ - lam * SecondsInRadian;
        const Real d1 = d - 3.9174L * Cube(d / 10000);
        const Real h = 30.92241724L * d1 * std::cos(phi) / std::sqrt(Clarke(phi));
        const Real x1 = h + 4.0831L * Cube(h / 100000);
        const Real x2 = k0_ * feet * x1;
        const Real easting = FE_ + x2 + G_ * Cube(x2 / 100000);
        const Real foot = FootLatitude(x1, phi);
        return {k0_ * 101.2794065L * (Rectified(foot) - origin_), easting, Convergence(foot, phi, d),
                Scale(phi, easting)};
    }

    ExactGeographic Geographic(Real northing, Real easting) const {
        const Real x = easting - FE_;
        const Real y1 = x - G_ * Cube(x / 100000);
        const Real y2 = x - G_ * Cube(y1 / 100000);
        const Real x3 = 0.3048006099L * y2 / k0_;
        const Real rectified = origin_ + 0.009873675553L * northing / k0_;
        const Real p1 = FromRectified(rectified) / SecondsInRadian;
        const Real phi =
            p1 - 25.52381L * Square(x3 / 100000) * Square(Clarke(p1)) * std::tan(p1) / SecondsInRadian;
        const Real h1 = x3 - 4.0831L * Cube(x3 / 100000);
        const Real h2 = x3 - 4.0831L * Cube(h1 / 100000);
        const Real g = std::sqrt(Clarke(phi)) * h2 / (30.92241724L * std::cos(phi));
        const Real g1 = g + 3.9174L * Cube(g / 10000);
        const Real d = g + 3.9174L * Cube(g1 / 10000);
        return {phi, (lam0_ - d) / SecondsInRadian, Convergence(FootLatitude(x3, phi), phi, d),
                Scale(phi, easting)};
    }

    Real Scale(Real phi, Real easting) const {
        const Real w = 1 + 0.0068147849L * Square(std::cos(phi));
        return k0_ + Square(w * (easting - FE_) / 1000000) / (k0_ * 881.749162L);
    }

  private:
    static Real Clarke(Real phi) { return 1 - 0.006768658L * Square(std::sin(phi)); }
    static Real FootLatitude(Real x, Real phi) {
        Real foot = phi;
        for (int step = 0; step < 2; ++step)
            foot = phi + 25.52381e-10L * x * x * Square(Clarke(foot)) * std::tan(foot) / SecondsInRadian;
        return foot;
    }
    static Real Convergence(Real foot, Real phi, Real d) {
        const Real middle = (foot + phi) / 2;
        const Real sine = std::sin(middle);
        return d * sine * (1 + 1.9587e-12L * Square(d * std::cos(middle))) / SecondsInRadian;
    }

    Real FE_, lam0_, k0_, origin_;
    Real G_ = 0;
};

constexpr Within Rounding = {5e-8, 5e-15};

TEST(TMercator27, TheForwardEquationsAreThoseOfThePublication) {
    ForEveryPlace({28, 83}, {36, 89}, 0.45, [](double phi, double lam) {
        ExpectPosition(TMercator27Plane(ZoneOf(Alabama), phi, lam), Exact(Alabama).Plane(phi, lam), Rounding);
    });
    ForEveryPlace({50, 170}, {55, 182}, 0.9, [](double phi, double lam) {
        ExpectPosition(TMercator27Plane(ZoneOf(Alaska10), phi, lam), Exact(Alaska10).Plane(phi, lam),
                       Rounding);
    });
}

TEST(TMercator27, TheInverseEquationsAreThoseOfThePublication) {
    for (double northing = -5e5; northing <= 2e6; northing += 123456.7)
        for (double easting = -5e5; easting <= 1.5e6; easting += 234567.8)
            ExpectPosition(TMercator27Geographic(ZoneOf(Alabama), northing, easting),
                           Exact(Alabama).Geographic(northing, easting), Rounding);
}

TEST(TMercator27, APointOnTheCentralMeridianHasTheFalseEastingAndTheScaleOfTheMeridian) {
    for (const double north : {25.0, 30.5, 33.21}) {
        const TMercator27Zone zone = ZoneOf(Alabama);
        const PlanePosition plane = TMercator27Plane(zone, Radians(north), Alabama.lam0);
        EXPECT_EQ(plane.easting, 500000);
        EXPECT_EQ(plane.convergence, 0);
        EXPECT_EQ(plane.scale, 0.99996);
        const GeographicPosition back = TMercator27Geographic(zone, plane.northing, 500000);
        ExpectNear(back.lam, Alabama.lam0, 1e-15);
        ExpectNear(back.convergence, 0, 1e-15);
        EXPECT_EQ(back.scale, 0.99996);
    }
    ExpectNear(TMercator27Plane(ZoneOf(Alabama), Alabama.phi0, Alabama.lam0).northing, 0, 1e-7);
}

TEST(TMercator27, ThereAndBackIsTheSamePositionToAFewThousandthsOfASecond) {
    ForEveryPlace({29, 84}, {36, 88}, 0.5, [](double phi, double lam) {
        const PlanePosition plane = TMercator27Plane(ZoneOf(Alabama), phi, lam);
        const GeographicPosition back = TMercator27Geographic(ZoneOf(Alabama), plane.northing, plane.easting);
        ExpectNear(back.phi, phi, 0.003 / 206265);
        ExpectNear(back.lam, lam, 0.003 / 206265);
        ExpectNear(back.convergence, plane.convergence, 0.01 / 206265);
        ExpectNear(back.scale, plane.scale, 1e-9);
    });
}

TEST(TMercator27, ConvergenceIsPositiveEastOfTheCentralMeridian) {
    const TMercator27Zone zone = ZoneOf(Alabama);
    EXPECT_GT(TMercator27Plane(zone, Radians(32), Radians(85)).convergence, 0);
    EXPECT_GT(TMercator27Plane(zone, Radians(32), Radians(85)).easting, 500000);
    EXPECT_LT(TMercator27Plane(zone, Radians(32), Radians(87)).convergence, 0);
    EXPECT_GT(TMercator27Geographic(zone, 5e5, 6e5).convergence, 0);
    EXPECT_LT(TMercator27Geographic(zone, 5e5, 4e5).convergence, 0);
}

// 3.28083333 in place of 3937/1200 lacks 1.016 parts in 10^9.
TEST(TMercator27, EastingsLackHalfAThousandthOfAFootInFiveHundredThousand) {
    const double phi = Radians(32);
    const double lam = Radians(84, 13);
    const double easting = TMercator27Plane(ZoneOf(Alabama), phi, lam).easting;
    EXPECT_NEAR(easting, 1000000, 5000);
    ExpectNear(easting, Exact(Alabama).Plane(phi, lam, 3937.0L / 1200).easting - 0.000508L, 5e-6);
}

TEST(TMercator27, AFalseNorthingIsNotUsed) {
    const TMercator27Zone with = ZoneOf(Alabama, Clarke1866, 1e6);
    ExpectSame(TMercator27Plane(with, 0.56, 1.5), TMercator27Plane(ZoneOf(Alabama), 0.56, 1.5));
    ExpectSame(TMercator27Geographic(with, 5e5, 4e5), TMercator27Geographic(ZoneOf(Alabama), 5e5, 4e5));
    TMercator27_SET_Zone(Clarke1866.a, Clarke1866.e, Alabama.phi0, Alabama.lam0, 1e6, Alabama.FE, Alabama.k0);
    ExpectSame(TMercator27_GET_Plane(0.56, 1.5), TMercator27Plane(ZoneOf(Alabama), 0.56, 1.5));
}

// The ellipsoid of the zone moves the cubic term alone.
TEST(TMercator27, ClarkeStandsInTheEquationsWhateverEllipsoidAZoneNames) {
    const TMercator27Zone other = ZoneOf(Alabama, GRS80);
    const TMercator27Zone clarke = ZoneOf(Alabama);
    EXPECT_NE(other.G, clarke.G);
    for (const double west : {84.0, 86.5}) {
        const PlanePosition a = TMercator27Plane(other, Radians(32), Radians(west));
        const PlanePosition b = TMercator27Plane(clarke, Radians(32), Radians(west));
        EXPECT_EQ(a.northing, b.northing);
        EXPECT_EQ(a.convergence, b.convergence);
        EXPECT_NE(a.easting, b.easting);
        ExpectPosition(a, Exact(Alabama, GRS80).Plane(Radians(32), Radians(west)), Rounding);
    }
}

TEST(TMercator27, TheScaleIsThatOfALatitudeAndAnEasting) {
    const TMercator27Zone zone = ZoneOf(Alabama);
    for (const double easting : {0.0, 500000.0, 7.5e5}) {
        ExpectNear(TMercator27Scale(zone, 0.56, easting), Exact(Alabama).Scale(0.56, easting), 1e-15);
        EXPECT_EQ(TMercator27Geographic(zone, 5e5, easting).scale,
                  TMercator27Scale(zone, TMercator27Geographic(zone, 5e5, easting).phi, easting));
    }
}

// ---- Faults and the zone in force ----

TEST(TMercator27, WhatIsNoFiniteNumberIsAnOverflow) {
    const TMercator27Zone zone = ZoneOf(Alabama);
    ExpectOverflowOfNoNumbers([&](double phi, double lam) { TMercator27Plane(zone, phi, lam); }, 0.56, 1.5);
    ExpectOverflowOfNoNumbers([&](double N, double E) { TMercator27Geographic(zone, N, E); }, 5e5, 4e5);
    ExpectOverflowOfNoNumbers([&](double phi, double E) { TMercator27Scale(zone, phi, E); }, 0.56, 4e5);
    ExpectOverflow([&] { TMercator27Plane(zone, 0.56, 1e200); });
}

TEST(TMercator27, AZoneThatIsNotFiniteIsAnOverflowAndLeavesTheOneBefore) {
    TMercator27_SET_Zone(Clarke1866.a, Clarke1866.e, Alaska10.phi0, Alaska10.lam0, 0, Alaska10.FE,
                         Alaska10.k0);
    ExpectOverflow([] { TMercator27_SET_Zone(Clarke1866.a, Clarke1866.e, NotANumber, 1, 0, 0, 1); });
    ExpectOverflow([] { TMercator27_SET_Zone(Clarke1866.a, Clarke1866.e, 0.5, Infinite, 0, 0, 1); });
    ExpectOverflow([] { TMercator27_SET_Zone(Clarke1866.a, Clarke1866.e, 0.5, 1, 0, 0, 0); });
    ExpectOverflow([] { TMercator27_SET_Zone(Clarke1866.a, 1, 0.5, 1, 0, 0, 1); });
    const TMercator27Zone zone = ZoneOf(Alaska10);
    ExpectSame(TMercator27_GET_Plane(0.9, 3), TMercator27Plane(zone, 0.9, 3));
    ExpectSame(TMercator27_GET_Geographic(5e5, 3.1e6), TMercator27Geographic(zone, 5e5, 3.1e6));
    EXPECT_EQ(TMercator27_GET_Scale(0.9, 3.1e6), TMercator27Scale(zone, 0.9, 3.1e6));
}

}  // namespace
}  // namespace tarvek::test
