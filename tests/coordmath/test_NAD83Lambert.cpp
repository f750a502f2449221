// The Lambert conic with two parallels against its equations in long double, its message, and its faults.

#include "coordmath/modNAD83Lambert.hpp"

#include "coordmath/lambertCone.hpp"
#include "coordmath/projectionTest.hpp"

namespace tarvek::test {
namespace {

struct Definition {
    double phi1, phi2, phib, lam0, FN, FE;
};

// Nebraska, and a zone with a false northing and parallels far apart.
const Definition Nebraska = {Radians(43), Radians(40), Radians(39, 50), Radians(100), 0, 500000};
const Definition Wide = {Radians(60), Radians(20), Radians(40), Radians(96), 1234567.8, 2e6};

Lambert83Zone ZoneOf(const Definition& d, const Ellipsoid& on = GRS80) {
    return Lambert83ZoneOf(d.phi1, d.phi2, d.phib, d.lam0, d.FN, d.FE, on.a, on.e);
}

// The equations once more. The inverse goes on from the sphere's latitude for so many steps, or until nothing
// changes.
class Exact {
  public:
    explicit Exact(const Definition& d, const Ellipsoid& on = GRS80)
        : on_(on),
          cone_(d.phi1, d.phi2, on),
          lam0_(d.lam0),
          FN_(d.FN),
          FE_(d.FE),
          Rb_(cone_.Radius(d.phib)) {}

    ExactPlane Plane(Real phi, Real lam) const {
        const Real R = cone_.Radius(phi);
        const Real gamma = (lam0_ - lam) * cone_.n;
        return {FN_ + Rb_ - R * std::cos(gamma), FE_ + R * std::sin(gamma), gamma, cone_.Scale(phi)};
    }

    ExactGeographic Geographic(Real northing, Real easting, int steps = 50) const {
        const Real below = Rb_ - northing + FN_;
        const Real aside = easting - FE_;
        const Real gamma = std::atan(aside / below);
        const Real Q = std::log(cone_.K / std::hypot(below, aside)) / cone_.n;
        const Real e = on_.e;
        Real s = std::tanh(Q);
        for (int step = 0; step < steps; ++step) {
            const Real excess = std::atanh(s) - e * std::atanh(e * s) - Q;
            s -= excess / (1 / (1 - s * s) - e * e / (1 - e * e * s * s));
        }
        const Real phi = std::asin(s);
        return {phi, lam0_ - gamma / cone_.n, gamma,
                ExactW(phi, e) * cone_.n * std::hypot(below, aside) / (std::cos(phi) * on_.a)};
    }

    const ExactCone& Cone() const { return cone_; }

  private:
    Ellipsoid on_;
    ExactCone cone_;
    Real lam0_, FN_, FE_, Rb_;
};

constexpr Within Rounding = {2e-8, 1e-14};

TEST(Lambert83, IsometricLatitudeAndWAreThoseOfTheEllipsoid) {
    for (const double north : {-80.0, -10.0, 0.0, 0.001, 45.0, 89.0}) {
        const double phi = Radians(north);
        const double Q = Lambert83_GET_IsometricLatitude(phi, GRS80.e);
        ExpectNear(Q, ExactIsometric(phi, GRS80.e), north < 85 ? 1e-14 : 2e-13);  // of 1 - sin
        ExpectNear(Lambert83_GET_W(phi, GRS80.e), ExactW(phi, GRS80.e), 3e-16);
    }
    EXPECT_EQ(Lambert83_GET_IsometricLatitude(0, GRS80.e), 0);
    EXPECT_EQ(Lambert83_GET_W(0, GRS80.e), 1);
}

TEST(Lambert83, TheConstantsOfAZoneFollowFromItsParallels) {
    for (const Definition& definition : {Nebraska, Wide}) {
        const Lambert83Zone zone = ZoneOf(definition);
        const Exact exact(definition);
        const ExactCone& cone = exact.Cone();
        ExpectNear(zone.n, cone.n, 3e-15);
        ExpectNear(zone.K, cone.K, 1e-6);  // of 12,000 km, with an exponent of n Q
        ExpectNear(zone.Rb, cone.Radius(definition.phib), 1e-7);
        ExpectNear(zone.R0, cone.Radius(std::asin(cone.n)), 1e-7);
        ExpectNear(zone.k0, cone.Scale(std::asin(cone.n)), 1e-14);
        ExpectNear(zone.N0, exact.Plane(std::asin(cone.n), definition.lam0).northing, 2e-8);
    }
}

TEST(Lambert83, TheForwardEquationsAreThoseOfTheClosedForm) {
    const Lambert83Zone nebraska = ZoneOf(Nebraska);
    const Exact exactNebraska(Nebraska);
    ForEveryPlace({38, 94}, {45, 106}, 0.7, [&](double phi, double lam) {
        ExpectPosition(Lambert83Plane(nebraska, phi, lam), exactNebraska.Plane(phi, lam), Rounding);
    });
    const Lambert83Zone wide = ZoneOf(Wide);
    const Exact exactWide(Wide);
    ForEveryPlace({-20, 60}, {85, 130}, 6.5, [&](double phi, double lam) {
        ExpectPosition(Lambert83Plane(wide, phi, lam), exactWide.Plane(phi, lam), Rounding);
    });
}

TEST(Lambert83, TheInverseFindsTheLatitudeOfTheClosedForm) {
    const Lambert83Zone nebraska = ZoneOf(Nebraska);
    const Exact exact(Nebraska);
    for (double northing = -3e5; northing <= 8e5; northing += 98765.4)
        for (double easting = 0; easting <= 1e6; easting += 123456.7)
            ExpectPosition(Lambert83Geographic(nebraska, northing, easting),
                           exact.Geographic(northing, easting), Rounding);
    const Lambert83Zone wide = ZoneOf(Wide);
    const Exact exactWide(Wide);
    for (double northing = -2e6; northing <= 5e6; northing += 876543.2)
        ExpectPosition(Lambert83Geographic(wide, northing, 3e6), exactWide.Geographic(northing, 3e6),
                       Rounding);
}

// On a body far flatter than the earth three steps leave something behind that a fourth would take away.
TEST(Lambert83, TheInverseTakesThreeStepsAndNoMore) {
    constexpr Ellipsoid Flat = {6378137, 0.5};
    const Lambert83Zone zone = ZoneOf(Nebraska, Flat);
    const Exact exact(Nebraska, Flat);
    for (const double north : {40.0, 60.0, 80.0}) {
        SCOPED_TRACE(north);
        const double phi = Radians(north);
        const double northing = Lambert83Plane(zone, phi, Nebraska.lam0).northing;
        const double back = Lambert83Geographic(zone, northing, Nebraska.FE).phi;
        ExpectNear(back, exact.Geographic(northing, Nebraska.FE, 3).phi, 1e-12);
        EXPECT_GT(back - phi, 5e-8);
    }
}

TEST(Lambert83, APointOnTheCentralMeridianHasTheFalseEastingAndNoConvergence) {
    for (const Definition& definition : {Nebraska, Wide})
        for (const double north : {-10.0, 30.0, 41.7, 75.0}) {
            const Lambert83Zone zone = ZoneOf(definition);
            const PlanePosition plane = Lambert83Plane(zone, Radians(north), definition.lam0);
            EXPECT_EQ(plane.easting, definition.FE);
            EXPECT_EQ(plane.convergence, 0);
            const GeographicPosition back = Lambert83Geographic(zone, plane.northing, definition.FE);
            EXPECT_EQ(back.lam, definition.lam0);
            EXPECT_EQ(back.convergence, 0);
            ExpectNear(back.phi, Radians(north), 1e-14);
        }
}

TEST(Lambert83, TheCentralLatitudeOnTheCentralMeridianHasTheFalseNorthingAndEasting) {
    for (const Definition& definition : {Nebraska, Wide}) {
        const PlanePosition plane = Lambert83Plane(ZoneOf(definition), definition.phib, definition.lam0);
        ExpectNear(plane.northing, definition.FN, 2e-9);  // the last digit of the mapping radius
        EXPECT_EQ(plane.easting, definition.FE);
    }
}

TEST(Lambert83, ConvergenceIsPositiveEastOfTheCentralMeridian) {
    const Lambert83Zone zone = ZoneOf(Nebraska);
    EXPECT_GT(Lambert83Plane(zone, Radians(41), Radians(99)).convergence, 0);
    EXPECT_GT(Lambert83Plane(zone, Radians(41), Radians(99)).easting, 500000);
    EXPECT_LT(Lambert83Plane(zone, Radians(41), Radians(101)).convergence, 0);
    EXPECT_GT(Lambert83Geographic(zone, 1e5, 6e5).convergence, 0);
    EXPECT_LT(Lambert83Geographic(zone, 1e5, 4e5).convergence, 0);
}

TEST(Lambert83, TheScaleIsOneOnBothParallelsLessBetweenThemAndLeastOnTheCentralOne) {
    for (const Definition& definition : {Nebraska, Wide}) {
        const Lambert83Zone zone = ZoneOf(definition);
        const auto scaleAt = [&](double phi) { return Lambert83Plane(zone, phi, definition.lam0).scale; };
        const double central = std::asin(zone.n);
        EXPECT_NEAR(scaleAt(definition.phi1), 1, 5e-15);
        EXPECT_NEAR(scaleAt(definition.phi2), 1, 5e-15);
        EXPECT_NEAR(scaleAt(central), zone.k0, 5e-15);
        EXPECT_LT(zone.k0, 1);
        for (int part = 1; part < 10; ++part) {
            const double phi = definition.phi2 + (definition.phi1 - definition.phi2) * part / 10;
            EXPECT_LT(scaleAt(phi), 1);
            EXPECT_GE(scaleAt(phi), zone.k0 - 5e-15);
        }
        EXPECT_GT(scaleAt(definition.phi1 + 0.01), 1);
        EXPECT_GT(scaleAt(definition.phi2 - 0.01), 1);
    }
}

// ---- The message ----

TEST(Lambert83, NothingIsToldOfParallelsAroundACentralOne) {
    const ScriptedPrompts prompts;
    for (const double central : {15.0, 33.3, 41.5, 64.0})
        for (const double apart : {0.5, 1.5, 4.0})
            Lambert83_SET_Zone(Radians(central + apart), Radians(central - apart), Radians(central), 1, 0, 0,
                               GRS80.a, GRS80.e);
    ExpectNothingTold(prompts);
}

TEST(Lambert83, RadiiThatRoundApartAreToldAndTheFirstOneIsUsed) {
    ExpectMappingRadiusToldWhereItRoundsApart([](double phi1, double phi2, double a) {
        Lambert83_SET_Zone(phi1, phi2, phi2, 1, 0, 0, a, GRS80.e);
        const LambertCone cone = LambertConeOf(phi1, phi2, phi2, a, GRS80.e);
        const double Q1 = Lambert83_GET_IsometricLatitude(phi1, GRS80.e);
        const double W1 = Lambert83_GET_W(phi1, GRS80.e);
        EXPECT_EQ(cone.K, std::cos(phi1) * a * std::exp(cone.n * Q1) / (cone.n * W1));
        EXPECT_EQ(Lambert83_GET_Plane(0, 1).northing, cone.Rb - cone.K);
    });
}

// ---- Faults and the zone in force ----

TEST(Lambert83, ParallelsWithoutAConeAreAnOverflow) {
    const ScriptedPrompts prompts;
    const auto zoneOf = [](double phi1, double phi2) {
        return [=] { Lambert83_SET_Zone(phi1, phi2, 0.7, 1, 0, 0, GRS80.a, GRS80.e); };
    };
    ExpectOverflow(zoneOf(Radians(41), Radians(41)));
    ExpectOverflow(zoneOf(0, 0));
    ExpectOverflow(zoneOf(Radians(30), -Radians(30)));
    ExpectOverflow(zoneOf(Radians(90), Radians(40)));
    ExpectOverflow(zoneOf(NotANumber, Radians(40)));
    ExpectOverflow(zoneOf(Radians(43), Infinite));
    ExpectNothingTold(prompts);
}

TEST(Lambert83, APoleIsAnOverflow) {
    const Lambert83Zone zone = ZoneOf(Nebraska);
    ExpectOverflow([&] { Lambert83Plane(zone, Radians(90), 1.7); });
    ExpectOverflow([&] { Lambert83Plane(zone, -Radians(90), 1.7); });
    ExpectOverflow([] { Lambert83_GET_IsometricLatitude(Radians(90), GRS80.e); });
    ExpectOverflow([&] { Lambert83Geographic(zone, zone.Rb, 500000); });  // the apex
}

TEST(Lambert83, WhatIsNoFiniteNumberIsAnOverflow) {
    const Lambert83Zone zone = ZoneOf(Nebraska);
    ExpectOverflowOfNoNumbers([&](double phi, double lam) { Lambert83Plane(zone, phi, lam); }, 0.7, 1.7);
    ExpectOverflowOfNoNumbers([&](double N, double E) { Lambert83Geographic(zone, N, E); }, 1e5, 5e5);
    ExpectOverflowOfNoNumbers([](double phi, double e) { Lambert83_GET_W(phi, e); }, 0.7, GRS80.e);
}

// All mapping radii are negative there, and the inverse takes the logarithm of their quotient.
TEST(Lambert83, ASouthernZoneGoesForwardOnly) {
    const Definition southern = {-Radians(30), -Radians(45), -Radians(35), -Radians(145), 0, 0};
    const Lambert83Zone zone = ZoneOf(southern);
    ExpectPosition(Lambert83Plane(zone, -Radians(33), -Radians(147)),
                   Exact(southern).Plane(-Radians(33), -Radians(147)), Rounding);
    ExpectOverflow([&] { Lambert83Geographic(zone, 1e5, 1e5); });
}

TEST(Lambert83, TheNamedProceduresWorkOnTheZoneThatWasSetLast) {
    const Definition& d = Nebraska;
    Lambert83_SET_Zone(0.6, 0.5, 0.4, 1, 2, 3, Clarke1866.a, Clarke1866.e);
    Lambert83_SET_Zone(d.phi1, d.phi2, d.phib, d.lam0, d.FN, d.FE, GRS80.a, GRS80.e);
    const Lambert83Zone zone = ZoneOf(d);
    ExpectOverflow([] { Lambert83_SET_Zone(0.7, 0.7, 0.6, 1, 2, 3, GRS80.a, GRS80.e); });
    ExpectSame(Lambert83_GET_Plane(0.7, 1.7), Lambert83Plane(zone, 0.7, 1.7));
    ExpectSame(Lambert83_GET_Geographic(1e5, 6e5), Lambert83Geographic(zone, 1e5, 6e5));
}

}  // namespace
}  // namespace tarvek::test
