// The Lambert equations of 1927 against themselves in long double, with the constants that are not to be
// refined.

#include "coordmath/modNAD27Lambert.hpp"

#include "coordmath/lambertCone.hpp"
#include "coordmath/nad27Test.hpp"

namespace tarvek::test {
namespace {

struct Definition {
    double phi1, phi2, phib, lam0, FE;
};

// Nebraska North, and a zone of the far south.
const Definition Nebraska = {Radians(42, 49), Radians(41, 51), Radians(41, 20), Radians(100), 2000000};
const Definition Florida = {Radians(30, 45), Radians(29, 35), Radians(29), Radians(84, 30), 2000000};

Lambert27Zone ZoneOf(const Definition& d, const Ellipsoid& on = Clarke1866, double FN = 0) {
    return Lambert27ZoneOf(d.phi1, d.phi2, d.phib, d.lam0, FN, d.FE, on.a, on.e);
}

// The equations once more. Latitudes stay in seconds, minutes are neither split off nor lent.
class Exact {
  public:
    explicit Exact(const Definition& d, const Ellipsoid& on = Clarke1866)
        : cone_(d.phi1, d.phi2, on), lam0_(d.lam0), FE_(d.FE) {
        const Real phi0 = std::asin(cone_.n);
        const Real W = ExactW(phi0, on.e);
        const Real Rm = on.a * (1 - static_cast<Real>(on.e) * on.e) / (W * W * W) * Feet;
        const Real Rn = on.a / W * Feet;
        const Real t = std::tan(phi0);
        R0_ = cone_.Radius(phi0) * Feet;
        Rb_ = cone_.Radius(d.phib) * Feet;
        kc_ = cone_.Scale(phi0);
        central_ = Rectified(phi0);
        L2_ = 1e16L / (6 * Rm * Rn);
        L3_ = 1e24L * t / (24 * std::pow(Rm * Rn, 1.5L));
        L4_ = 1e32L * (5 + 3 * t * t) / (120 * Rm * Cube(Rn));
    }

    ExactPlane Plane(Real phi, Real lam) const {
        const Real s = (central_ - Rectified(phi)) * 101.2794065L;
        const Real R = R0_ + kc_ * s * Lengthened(s / 1e8L);
        const Real theta = (lam0_ - lam) * cone_.n;
        return {Rb_ - R * std::cos(theta), FE_ + R * std::sin(theta), theta, Scale(phi, R)};
    }

    // By the substitutions, or by as many as it takes.
    ExactGeographic Geographic(Real northing, Real easting, int substitutions = 3) const {
        const Real theta = std::atan((easting - FE_) / (Rb_ - northing));
        const Real R = (Rb_ - northing) / std::cos(theta);
        const Real c = (R - R0_) / kc_;
        Real s = c;
        for (int i = 0; i < substitutions; ++i) s = c / Lengthened(s / 1e8L);
        const Real phi = FromRectified(central_ - s * 0.00987367553L) / SecondsInRadian;
        return {phi, lam0_ - theta / cone_.n, theta, Scale(phi, R)};
    }

    Real Scale(Real phi, Real R) const {
        return cone_.n * R * std::sqrt(1 - 0.006768658L * Square(std::sin(phi))) /
               (20925832.16L * std::cos(phi));
    }
    Real MappingRadius(Real phi) const { return cone_.Radius(phi) * Feet; }

  private:
    static constexpr Real Feet = 3937.0L / 1200;

    Real Lengthened(Real b) const { return 1 + L2_ * b * b - L3_ * b * b * b + L4_ * b * b * b * b; }

    ExactCone cone_;
    Real lam0_, FE_;
    Real R0_ = 0;
    Real Rb_ = 0;
    Real kc_ = 0;
    Real central_ = 0;
    Real L2_ = 0;
    Real L3_ = 0;
    Real L4_ = 0;
};

// Radii of 20,000,000 feet, with an exponent between them.
constexpr Within Rounding = {5e-7, 2e-14, 5e-14};

TEST(Lambert27, TheForwardEquationsAreThoseOfThePublication) {
    ForEveryPlace({40, 94}, {44, 106}, 0.45, [](double phi, double lam) {
        ExpectPosition(Lambert27Plane(ZoneOf(Nebraska), phi, lam), Exact(Nebraska).Plane(phi, lam), Rounding);
    });
    ForEveryPlace({26, 80}, {32, 88}, 0.7, [](double phi, double lam) {
        ExpectPosition(Lambert27Plane(ZoneOf(Florida), phi, lam), Exact(Florida).Plane(phi, lam), Rounding);
    });
}

TEST(Lambert27, TheInverseEquationsAreThoseOfThePublication) {
    for (double northing = -4e5; northing <= 1e6; northing += 123456.7)
        for (double easting = 1e6; easting <= 3e6; easting += 234567.8)
            ExpectPosition(Lambert27Geographic(ZoneOf(Nebraska), northing, easting),
                           Exact(Nebraska).Geographic(northing, easting), Rounding);
}

// Fifteen degrees from the parallels three of them leave a tenth of a second.
TEST(Lambert27, TheInverseMakesThreeSubstitutionsAndNoMore) {
    const double northing = Lambert27Plane(ZoneOf(Nebraska), Radians(57), Radians(100)).northing;
    const double actual = Lambert27Geographic(ZoneOf(Nebraska), northing, 2e6).phi;
    const Exact exact(Nebraska);
    ExpectNear(actual, exact.Geographic(northing, 2e6).phi, 1e-13);
    for (const int substitutions : {2, 4})
        EXPECT_GT(std::fabs(actual - static_cast<double>(exact.Geographic(northing, 2e6, substitutions).phi)),
                  1e-9);
}

TEST(Lambert27, TheEquationsAreTheProjectionWithinThreeHundredthsOfAFoot) {
    for (const double north : {41.0, 42.0, 43.0})
        for (const double west : {97.0, 100.0, 104.0}) {
            const PlanePosition plane = Lambert27Plane(ZoneOf(Nebraska), Radians(north), Radians(west));
            const Exact exact(Nebraska);
            const Real R = exact.MappingRadius(Radians(north));
            const Real theta = exact.Plane(Radians(north), Radians(west)).convergence;
            ExpectNear(plane.easting, 2000000 + R * std::sin(theta), 0.03);
            ExpectNear(plane.northing, exact.MappingRadius(Nebraska.phib) - R * std::cos(theta), 0.03);
        }
}

TEST(Lambert27, APointOnTheCentralMeridianHasTheFalseEastingAndNoConvergence) {
    for (const Definition& d : {Nebraska, Florida}) {
        const Lambert27Zone zone = ZoneOf(d);
        for (const double offset : {0.0, 0.5, 2.0}) {
            const PlanePosition plane = Lambert27Plane(zone, d.phib + Radians(offset), d.lam0);
            EXPECT_EQ(plane.easting, 2000000);
            EXPECT_EQ(plane.convergence, 0);
            const GeographicPosition back = Lambert27Geographic(zone, plane.northing, 2000000);
            ExpectNear(back.lam, d.lam0, 3e-16);
            EXPECT_EQ(back.convergence, 0);
        }
        // Where the northing begins the series is a hundredth of a foot from the radius of the closed form.
        EXPECT_NEAR(Lambert27Plane(zone, d.phib, d.lam0).northing, 0, 0.02);
    }
}

TEST(Lambert27, ThereAndBackIsTheSamePositionToAFewThousandthsOfASecond) {
    ForEveryPlace({41, 96}, {44, 104}, 0.6, [](double phi, double lam) {
        const PlanePosition plane = Lambert27Plane(ZoneOf(Nebraska), phi, lam);
        const GeographicPosition back = Lambert27Geographic(ZoneOf(Nebraska), plane.northing, plane.easting);
        ExpectNear(back.phi, phi, 0.003 / 206265);
        ExpectNear(back.lam, lam, 1e-13);
        ExpectNear(back.convergence, plane.convergence, 1e-13);
        ExpectNear(back.scale, plane.scale, 1e-9);
    });
}

TEST(Lambert27, ConvergenceIsPositiveEastOfTheCentralMeridian) {
    const Lambert27Zone zone = ZoneOf(Nebraska);
    EXPECT_GT(Lambert27Plane(zone, Radians(42), Radians(99)).convergence, 0);
    EXPECT_GT(Lambert27Plane(zone, Radians(42), Radians(99)).easting, 2000000);
    EXPECT_LT(Lambert27Plane(zone, Radians(42), Radians(101)).convergence, 0);
    EXPECT_GT(Lambert27Geographic(zone, 3e5, 2.1e6).convergence, 0);
    EXPECT_LT(Lambert27Geographic(zone, 3e5, 1.9e6).convergence, 0);
}

TEST(Lambert27, AFalseNorthingIsNotUsed) {
    const Lambert27Zone with = ZoneOf(Nebraska, Clarke1866, 1e6);
    ExpectSame(Lambert27Plane(with, 0.73, 1.7), Lambert27Plane(ZoneOf(Nebraska), 0.73, 1.7));
    ExpectSame(Lambert27Geographic(with, 3e5, 2.2e6), Lambert27Geographic(ZoneOf(Nebraska), 3e5, 2.2e6));
}

// The cone follows the ellipsoid of the zone; arc and scale stay those of Clarke 1866.
TEST(Lambert27, ClarkeStandsInArcAndScaleWhateverEllipsoidAZoneNames) {
    const Lambert27Zone other = ZoneOf(Nebraska, GRS80);
    for (const double north : {41.0, 43.5}) {
        const PlanePosition plane = Lambert27Plane(other, Radians(north), Radians(102));
        ExpectPosition(plane, Exact(Nebraska, GRS80).Plane(Radians(north), Radians(102)), Rounding);
        EXPECT_GT(std::fabs(plane.northing -
                            Lambert27Plane(ZoneOf(Nebraska), Radians(north), Radians(102)).northing),
                  0.1);
    }
    EXPECT_EQ(Lambert27Scale(other, 0, 20925832.16), other.n);
    EXPECT_EQ(Lambert27Scale(ZoneOf(Nebraska), 0, 20925832.16), ZoneOf(Nebraska).n);
}

TEST(Lambert27, WIsThatOfTheEquationsOf1983) {
    for (const double phi : {-0.5, 0.0, 0.7, 1.5}) {
        EXPECT_EQ(Lambert27_GET_W(phi, Clarke1866.e), Lambert83_GET_W(phi, Clarke1866.e));
        ExpectNear(Lambert27_GET_W(phi, Clarke1866.e), ExactW(phi, Clarke1866.e), 3e-16);
    }
}

TEST(Lambert27, RadiiThatRoundApartAreToldAndTheZoneIsSetAllTheSame) {
    ExpectMappingRadiusToldWhereItRoundsApart([](double phi1, double phi2, double a) {
        Lambert27_SET_Zone(phi1, phi2, phi2, 1, 0, 0, a, GRS80.e);
        const Lambert27Zone zone = Lambert27ZoneOf(phi1, phi2, phi2, 1, 0, 0, a, GRS80.e);
        ExpectSame(Lambert27_GET_Plane(0.7, 1), Lambert27Plane(zone, 0.7, 1));
    });
}

// ---- Faults and the zone in force ----

TEST(Lambert27, ParallelsWithoutAConeAreAnOverflow) {
    const ScriptedPrompts prompts;
    ExpectOverflow([] { Lambert27_SET_Zone(0.7, 0.7, 0.6, 1, 0, 0, Clarke1866.a, Clarke1866.e); });
    ExpectOverflow([] { Lambert27_SET_Zone(0.7, -0.7, 0.6, 1, 0, 0, Clarke1866.a, Clarke1866.e); });
    ExpectOverflow([] { Lambert27_SET_Zone(0.7, 0.6, 0.6, Infinite, 0, 0, Clarke1866.a, Clarke1866.e); });
    ExpectNothingTold(prompts);
}

TEST(Lambert27, WhatIsNoFiniteNumberIsAnOverflow) {
    const Lambert27Zone zone = ZoneOf(Nebraska);
    ExpectOverflowOfNoNumbers([&](double phi, double lam) { Lambert27Plane(zone, phi, lam); }, 0.73, 1.7);
    ExpectOverflowOfNoNumbers([&](double phi, double R) { Lambert27Scale(zone, phi, R); }, 0.73, 2e7);
    for (const double northing : {Infinite, -Infinite, NotANumber})
        ExpectOverflow([&] { Lambert27Geographic(zone, northing, 2.2e6); });
    for (const double easting : {Infinite, -Infinite, NotANumber})
        ExpectOverflow([&] { Lambert27Geographic(zone, 3e5, easting); });
    ExpectOverflow([&] { Lambert27Geographic(zone, zone.Rb, 1e6); });      // as high as the apex
    ExpectOverflow([&] { Lambert27Geographic(zone, zone.Rb, zone.FE); });  // the apex
}

TEST(Lambert27, APoleHasNoScaleAndIsAnOverflow) {
    const Lambert27Zone zone = ZoneOf(Nebraska);
    for (const double pole : {std::atan(1.0) * 2, std::atan(1.0) * -2}) {
        ExpectOverflow([&] { Lambert27Plane(zone, pole, 1.7); });
        ExpectOverflow([&] { Lambert27Scale(zone, pole, 2e7); });
    }
    EXPECT_NO_THROW(Lambert27Scale(zone, 1.5707, 2e7));
}

TEST(Lambert27, TheNamedProceduresWorkOnTheZoneThatWasSetLast) {
    const Definition& d = Nebraska;
    Lambert27_SET_Zone(0.6, 0.5, 0.4, 1, 2, 3, GRS80.a, GRS80.e);
    Lambert27_SET_Zone(d.phi1, d.phi2, d.phib, d.lam0, 123, d.FE, Clarke1866.a, Clarke1866.e);
    ExpectOverflow([] { Lambert27_SET_Zone(0.7, 0.7, 0.6, 1, 2, 3, GRS80.a, GRS80.e); });
    ExpectSame(Lambert27_GET_Plane(0.73, 1.7), Lambert27Plane(ZoneOf(d), 0.73, 1.7));
    ExpectSame(Lambert27_GET_Geographic(3e5, 2.2e6), Lambert27Geographic(ZoneOf(d), 3e5, 2.2e6));
    EXPECT_EQ(Lambert27_GET_Scale(0.73, 2e7), Lambert27Scale(ZoneOf(d), 0.73, 2e7));
}

}  // namespace
}  // namespace tarvek::test
