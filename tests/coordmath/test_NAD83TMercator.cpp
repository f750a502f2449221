// Transverse Mercator of 1983 against its equations in long double, against the meridian itself, and where it
// differs from what was published.

#include "coordmath/modNAD83TMercator.hpp"

#include "coordmath/projectionTest.hpp"

namespace tarvek::test {
namespace {

// The equations once more, powers written out and the series in sines of multiple angles.
class Exact {
  public:
    explicit Exact(const TMercator83Zone& zone)
        : a_(zone.a), e_(zone.e), lam0_(zone.lam0), FN_(zone.FN), FE_(zone.FE), k0_(zone.k0) {
        const Real root = std::sqrt(1 - e_ * e_);
        n_ = (1 - root) / (1 + root);
        ep2_ = e_ * e_ / (1 - e_ * e_);
        r_ = a_ * (1 - n_) * (1 - n_ * n_) * (1 + 9 * n_ * n_ / 4 + 255 * std::pow(n_, 4.0L) / 64);
        S0_ = Arc(zone.phi0);
    }

    ExactPlane Plane(Real phi, Real lam) const {
        const Real L = (lam - lam0_) * std::cos(phi);
        const Real t = std::tan(phi);
        const Real h = Eta2(phi);
        const Real R = Radius(phi);
        const auto L_ = [L](int power) { return std::pow(L, static_cast<Real>(power)); };
        const auto t_ = [t](int power) { return std::pow(t, static_cast<Real>(power)); };
        const Real northing = R * t *
                              (L_(2) / 2 + L_(4) * (5 - t_(2) + 9 * h + 4 * h * h) / 24 +
                               L_(6) * (61 - 58 * t_(2) + t_(4) + 270 * h - 330 * h * t_(2)) / 720);
        const Real easting = R * (L + L_(3) * (1 - t_(2) + h) / 6 +
                                  L_(5) * (5 - 18 * t_(2) + t_(4) + 14 * h - 58 * h * t_(2)) / 120 +
                                  L_(7) * (61 - 479 * t_(2) + 179 * t_(4) - t_(6)) / 5040);
        const Real convergence = t * (L + L_(3) * (1 + 3 * h + 2 * h * h) / 3 + L_(5) * (2 - t_(2)) / 15);
        const Real scale =
            1 + L_(2) * (1 + h) / 2 + L_(4) * (1 + h) / 2 * (5 - 4 * t_(2) + 9 * h - 24 * h * t_(2)) / 12;
        return {Arc(phi) - S0_ + FN_ + northing, FE_ - easting, -convergence, k0_ * scale};
    }

    // The latitude with the coefficient of the sixth power as published, where it is asked for.
    ExactGeographic Geographic(Real northing, Real easting, bool published = false) const {
        const Real foot = FootLatitude((northing - FN_ + S0_) / (r_ * k0_));
        const Real t = std::tan(foot);
        const Real h = Eta2(foot);
        const Real Q = (easting - FE_) / Radius(foot);
        const auto Q_ = [Q](int power) { return std::pow(Q, static_cast<Real>(power)); };
        const auto t_ = [t](int power) { return std::pow(t, static_cast<Real>(power)); };
        const Real head = published ? 61 + 90 * t_(2) + 45 * t_(4) : 5 + 28 * t_(2) + 24 * t_(4);
        const Real sixth = (head + 46 * h - 252 * h * t_(2) - 90 * h * t_(4)) / 720;
        const Real latitude =
            t * (1 + h) *
            (Q_(2) / 2 - Q_(4) * (5 + 3 * t_(2) + h - 9 * h * t_(2) - 4 * h * h) / 24 + Q_(6) * sixth);
        const Real longitude = Q - Q_(3) * (1 + 2 * t_(2) + h) / 6 +
                               Q_(5) * (5 + 28 * t_(2) + 24 * t_(4) + 6 * h + 8 * h * t_(2)) / 120 -
                               Q_(7) * (61 + 662 * t_(2) + 1320 * t_(4) + 720 * t_(6)) / 5040;
        const Real convergence =
            t * (Q - Q_(3) * (1 + t_(2) - h - 2 * h * h) / 3 + Q_(5) * (2 + 5 * t_(2) + 3 * t_(4)) / 15);
        const Real scale = 1 + Q_(2) * (1 + h) / 2 + Q_(4) * (1 + h) * (1 + 5 * h) / 24;
        return {foot - latitude, lam0_ - longitude / std::cos(foot), convergence, k0_ * scale};
    }

    Real Radius(Real phi) const { return k0_ * a_ / ExactW(phi, e_); }

  private:
    Real Eta2(Real phi) const { return ep2_ * std::cos(phi) * std::cos(phi); }
    Real Power(int power) const { return std::pow(n_, static_cast<Real>(power)); }
    Real Arc(Real phi) const {
        return k0_ * r_ *
               (phi + (-3 * n_ / 2 + 9 * Power(3) / 16) * std::sin(2 * phi) +
                (15 * Power(2) / 16 - 15 * Power(4) / 32) * std::sin(4 * phi) -
                35 * Power(3) / 48 * std::sin(6 * phi) + 315 * Power(4) / 512 * std::sin(8 * phi));
    }
    Real FootLatitude(Real w) const {
        return w + (3 * n_ / 2 - 27 * Power(3) / 32) * std::sin(2 * w) +
               (21 * Power(2) / 16 - 55 * Power(4) / 32) * std::sin(4 * w) +
               151 * Power(3) / 96 * std::sin(6 * w) + 1097 * Power(4) / 512 * std::sin(8 * w);
    }

    Real a_, e_, lam0_, FN_, FE_, k0_;
    Real n_ = 0;
    Real ep2_ = 0;
    Real r_ = 0;
    Real S0_ = 0;
};

constexpr Within Rounding = {1e-8, 3e-15};

TMercator83Zone ZoneOf(double phi0, double lam0, double FN, double FE, double k0) {
    return TMercator83ZoneOf(GRS80.a, GRS80.e, phi0, lam0, FN, FE, k0);
}

const double Meridian = Radians(99);

// A zone of UTM, and one with a central latitude and a false northing.
const TMercator83Zone& UTM() {
    static const TMercator83Zone zone = ZoneOf(0, Meridian, 0, 500000, 0.9996);
    return zone;
}
const TMercator83Zone& StatePlane() {
    static const TMercator83Zone zone = ZoneOf(Radians(30, 30), Radians(85, 50), 250000, 200000, 0.99996);
    return zone;
}

// ---- The equations ----

TEST(TMercator83, TheForwardEquationsAreThoseOfTheManual) {
    const Exact utm(UTM());
    ForEveryPlace({-80, 95}, {84, 103}, 0.8, [&](double phi, double lam) {
        ExpectPosition(TMercator83Plane(UTM(), phi, lam), utm.Plane(phi, lam), Rounding);
    });
    const Exact statePlane(StatePlane());
    ForEveryPlace({29, 84}, {36, 88}, 0.5, [&](double phi, double lam) {
        ExpectPosition(TMercator83Plane(StatePlane(), phi, lam), statePlane.Plane(phi, lam), Rounding);
    });
}

TEST(TMercator83, TheInverseEquationsAreThoseOfTheManualButForOneCoefficient) {
    const Exact utm(UTM());
    for (double northing = -8.9e6; northing <= 9.3e6; northing += 123456)
        for (double easting = 150000; easting <= 850000; easting += 34567)
            ExpectPosition(TMercator83Geographic(UTM(), northing, easting), utm.Geographic(northing, easting),
                           Rounding);
    const Exact statePlane(StatePlane());
    for (double northing = 1e5; northing <= 9e5; northing += 43210)
        ExpectPosition(TMercator83Geographic(StatePlane(), northing, 123456.789),
                       statePlane.Geographic(northing, 123456.789), Rounding);
}

TEST(TMercator83, APointOnTheCentralMeridianHasNoConvergenceAndTheScaleOfTheMeridian) {
    for (const double north : {-60.0, 0.0, 1.5, 45.0, 83.9}) {
        const PlanePosition plane = TMercator83Plane(UTM(), Radians(north), Meridian);
        EXPECT_EQ(plane.easting, 500000) << north;
        EXPECT_EQ(plane.convergence, 0) << north;
        EXPECT_EQ(plane.scale, 0.9996) << north;
        const GeographicPosition back = TMercator83Geographic(UTM(), plane.northing, 500000);
        EXPECT_EQ(back.lam, Meridian) << north;
        EXPECT_EQ(back.convergence, 0) << north;
        EXPECT_EQ(back.scale, 0.9996) << north;
    }
}

TEST(TMercator83, TheOriginOfAZoneHasTheFalseNorthingAndEasting) {
    const PlanePosition plane = TMercator83Plane(StatePlane(), Radians(30, 30), Radians(85, 50));
    EXPECT_EQ(plane.northing, 250000);
    EXPECT_EQ(plane.easting, 200000);
    const GeographicPosition back = TMercator83Geographic(StatePlane(), 250000, 200000);
    ExpectNear(back.phi, Radians(30, 30), 1e-11);  // the series there and back, cut at n^4
    EXPECT_EQ(back.lam, Radians(85, 50));
}

TEST(TMercator83, ConvergenceIsPositiveEastOfTheMeridianInTheNorthAndWestOfItInTheSouth) {
    for (const double offset : {0.001, 1.0, 3.5}) {
        const double east = Radians(99 - offset);
        const double west = Radians(99 + offset);
        const double northern = Radians(40);
        EXPECT_GT(TMercator83Plane(UTM(), northern, east).convergence, 0);
        EXPECT_LT(TMercator83Plane(UTM(), northern, west).convergence, 0);
        EXPECT_LT(TMercator83Plane(UTM(), -northern, east).convergence, 0);
        EXPECT_GT(TMercator83Plane(UTM(), -northern, west).convergence, 0);
        EXPECT_GT(TMercator83Plane(UTM(), northern, east).easting, 500000);
        EXPECT_LT(TMercator83Plane(UTM(), northern, west).easting, 500000);
    }
    EXPECT_GT(TMercator83Geographic(UTM(), 4e6, 600000).convergence, 0);
    EXPECT_LT(TMercator83Geographic(UTM(), 4e6, 400000).convergence, 0);
}

// The series end at the seventh power of some 0.05.
TEST(TMercator83, ConvergenceAndScaleOfBothWaysAgreeToTheSeriesAccuracy) {
    ForEveryPlace({25, 96}, {50, 102}, 0.5, [](double phi, double lam) {
        const PlanePosition plane = TMercator83Plane(UTM(), phi, lam);
        const GeographicPosition back = TMercator83Geographic(UTM(), plane.northing, plane.easting);
        ExpectNear(back.convergence, plane.convergence, 5e-9);
        ExpectNear(back.scale, plane.scale, 5e-9);
        EXPECT_GE(back.convergence * plane.convergence, 0);
        EXPECT_GE(plane.scale, 0.9996);
    });
}

// ---- What differs from the published equations ----

// Latitude of the way there and back less that of the start, in meters.
double LatitudeMisclosure(const TMercator83Zone& zone, double phi, double lam) {
    const PlanePosition plane = TMercator83Plane(zone, phi, lam);
    const GeographicPosition back = TMercator83Geographic(zone, plane.northing, plane.easting);
    return (back.phi - phi) * 6.37e6;
}

TEST(TMercator83, AtFortyFiveDegreesAndThreeFromTheMeridianTheLatitudeComesBackThreeMillimetersOff) {
    const double phi = Radians(45);
    const double lam = Radians(96);
    const PlanePosition plane = TMercator83Plane(UTM(), phi, lam);
    const GeographicPosition back = TMercator83Geographic(UTM(), plane.northing, plane.easting);
    EXPECT_NEAR(LatitudeMisclosure(UTM(), phi, lam), 0.0032, 0.0002);
    EXPECT_NEAR((back.lam - lam) * 6.37e6 * std::cos(phi), 0, 0.00001);
}

// The sixth power's numerator lacks 56 + 62 t^2 + 21 t^4 of what was published.
TEST(TMercator83, TheInverseLatitudeLacksJustWhatItsCoefficientLacks) {
    const Exact exact(UTM());
    ForEveryPlace({20, 96}, {70, 97.5}, 1, [&](double phi, double lam) {
        const PlanePosition plane = TMercator83Plane(UTM(), phi, lam);
        const Real foot = exact.Geographic(plane.northing, 500000).phi;
        const Real t2 = std::pow(std::tan(foot), 2.0L);
        const Real e2 = static_cast<Real>(GRS80.e) * GRS80.e;
        const Real h = e2 / (1 - e2) * std::pow(std::cos(foot), 2.0L);
        const Real Q = (plane.easting - 500000) / exact.Radius(foot);
        const Real lacking =
            std::tan(foot) * (1 + h) / 2 * std::pow(Q, 6.0L) * (56 + 62 * t2 + 21 * t2 * t2) / 360;
        const double actual = TMercator83Geographic(UTM(), plane.northing, plane.easting).phi;
        ExpectNear(actual, exact.Geographic(plane.northing, plane.easting, true).phi + lacking, 3e-15);
        EXPECT_GT(lacking, 1e-13);  // which the comparison would see
    });
}

TEST(TMercator83, InAStatePlaneZoneTheLatitudeComesBackWithinThreeTenthsOfAMillimeter) {
    const double east = Radians(85, 50) - Radians(1.8L);
    EXPECT_NEAR(LatitudeMisclosure(StatePlane(), Radians(31), east), 0, 0.0003);
    EXPECT_GT(LatitudeMisclosure(StatePlane(), Radians(31), east), 0.00005);
}

// 255 n^4 / 64 in the rectifying radius, where the meridian has 225: 30 n^4 / 64 of every meridian distance.
TEST(TMercator83, MeridianDistancesAreLongerThanTheMeridianByFourPartsInTenToTheTwelfth) {
    const TMercator83Zone zone = ZoneOf(0, 0, 0, 0, 1);
    const Real root = std::sqrt(1 - static_cast<Real>(GRS80.e) * GRS80.e);
    const Real n = (1 - root) / (1 + root);
    for (const double north : {-75.0, 30.0, 60.0, 89.0}) {
        const Real arc = MeridianArc(GRS80, Radians(north));
        const Real longer = arc * 30 * std::pow(n, 4.0L) / 64;
        EXPECT_GT(std::fabs(longer), 1e-5);
        const double northing = TMercator83Plane(zone, Radians(north), 0).northing;
        ExpectNear(northing, arc + longer, 2e-7);  // what the series has beyond n^4
        ExpectNear(TMercator83Geographic(zone, northing, 0).phi, Radians(north), 2e-13);
    }
}

// ---- Faults and the zone in force ----

TEST(TMercator83, APoleIsAnOverflow) {
    for (const double pole : {Radians(90), -Radians(90)}) {
        ExpectOverflow([&] { TMercator83Plane(UTM(), pole, Meridian); });
        ExpectOverflow([&] { TMercator83Plane(UTM(), pole, Radians(97)); });
        const double northing = UTM().k0 * UTM().r * pole;
        ExpectOverflow([&] { TMercator83Geographic(UTM(), northing, 500000); });
    }
    EXPECT_NO_THROW(TMercator83Plane(UTM(), Radians(89, 59, 59.99999L), Radians(97)));
    EXPECT_NO_THROW(TMercator83Plane(UTM(), -Radians(89, 59, 59.99999L), Radians(97)));
}

TEST(TMercator83, WhatIsNoFiniteNumberIsAnOverflow) {
    ExpectOverflowOfNoNumbers([](double phi, double lam) { TMercator83Plane(UTM(), phi, lam); }, 0.7, 1.7);
    ExpectOverflowOfNoNumbers([](double N, double E) { TMercator83Geographic(UTM(), N, E); }, 4e6, 5e5);
    ExpectOverflow([] { TMercator83Plane(UTM(), Radians(40), 1e300); });
    ExpectOverflow([] { TMercator83Geographic(UTM(), 4e6, 1e300); });
}

TEST(TMercator83, TheNamedProceduresWorkOnTheZoneThatWasSetLast) {
    TMercator83_SET_Zone(GRS80.a, GRS80.e, 0, Meridian, 0, 500000, 0.9996);
    TMercator83_SET_Zone(GRS80.a, GRS80.e, Radians(30, 30), Radians(85, 50), 250000, 200000, 0.99996);
    ExpectSame(TMercator83_GET_Plane(0.55, 1.5), TMercator83Plane(StatePlane(), 0.55, 1.5));
    ExpectSame(TMercator83_GET_Geographic(3e5, 2.2e5), TMercator83Geographic(StatePlane(), 3e5, 2.2e5));
}

TEST(TMercator83, AZoneThatEndsInAFaultLeavesTheOneBefore) {
    TMercator83_SET_Zone(GRS80.a, GRS80.e, 0, Meridian, 0, 500000, 0.9996);
    ExpectOverflow([] { TMercator83_SET_Zone(GRS80.a, 1, 0, 0, 0, 0, 1); });
    ExpectOverflow([] { TMercator83_SET_Zone(NotANumber, GRS80.e, 0, 0, 0, 0, 1); });
    ExpectOverflow([] { TMercator83_SET_Zone(GRS80.a, GRS80.e, Infinite, 0, 0, 0, 1); });
    ExpectOverflow([] { TMercator83_SET_Zone(GRS80.a, GRS80.e, 0.5, 0, 0, 0, NotANumber); });
    ExpectSame(TMercator83_GET_Plane(0.7, 1.7), TMercator83Plane(UTM(), 0.7, 1.7));
}

}  // namespace
}  // namespace tarvek::test
