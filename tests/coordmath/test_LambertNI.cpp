// The Lambert conic with one parallel against its series in long double, against the closed form of the
// projection, and the loops of its inverse.

#include "coordmath/modLambertNI.hpp"

#include <random>

#include "coordmath/projectionTest.hpp"

namespace tarvek::test {
namespace {

// The series once more, with the loops of the inverse.
class Exact {
  public:
    explicit Exact(const LambertNIZone& zone)
        : a_(zone.a),
          e2_(static_cast<Real>(zone.e) * zone.e),
          phi0_(zone.phi0),
          lam0_(zone.lam0),
          FN_(zone.FN),
          FE_(zone.FE),
          k0_(zone.k0) {
        const Real W = ExactW(phi0_, zone.e);
        N_ = a_ / W;
        M_ = a_ * (1 - e2_) / (W * W * W);
        rho0_ = k0_ * N_ / T();
    }

    ExactPlane Plane(Real phi, Real lam) const {
        const Real L = k0_ * Lengthened(ArcFrom(phi));
        const Real theta = (lam0_ - lam) * std::sin(phi0_);
        const Real aside = (rho0_ - L) * std::sin(theta);
        return {FN_ + L + aside * std::tan(theta / 2), FE_ + aside, theta, Scale(phi)};
    }

    ExactGeographic Geographic(Real northing, Real easting) const {
        const Real theta = std::atan((easting - FE_) / (rho0_ + FN_ - northing));
        const Real c = (northing - FN_ - (easting - FE_) * std::tan(theta / 2)) / k0_;
        Real s = c;
        for (Real d = 1; !(std::fabs(d) < 0.00005L); s += d)
            d = (c - Lengthened(s)) / ((Lengthened(s * 1.0001L) - Lengthened(s * 0.9999L)) / (s * 0.0002L));
        Real phi = phi0_ + s / M_;
        for (Real d = 1; !(std::fabs(d) < 1e-17L); phi += d) d = (s - ArcFrom(phi)) / M_;
        return {phi, lam0_ - theta / std::sin(phi0_), theta, Scale(phi)};
    }

    Real Scale(Real phi) const {
        const Real s = ArcFrom(phi);
        return k0_ * (1 + s * s / (2 * M_ * N_) + std::pow(s, 3.0L) * T() / (6 * N_ * N_ * M_) +
                      std::pow(s, 4.0L) * (5 + 3 * T() * T()) / (24 * N_ * N_ * M_ * M_));
    }

  private:
    Real T() const { return std::tan(phi0_); }
    // An arc from the central parallel as it is on the plane, at scale 1 on that parallel.
    Real Lengthened(Real s) const {
        const Real ep2 = e2_ / (1 - e2_);
        const Real C2 = std::cos(phi0_) * std::cos(phi0_);
        const Real T2 = T() * T();
        return s + std::pow(s, 3.0L) / (6 * M_ * N_) +
               std::pow(s, 4.0L) * T() * (1 - 4 * ep2 * C2) / (24 * N_ * N_ * M_) +
               std::pow(s, 5.0L) * (5 + 3 * T2 - 3 * ep2 - ep2 * C2) / (120 * N_ * N_ * M_ * M_) +
               std::pow(s, 6.0L) * T() * (7 + 4 * T2) / (240 * std::pow(N_, 3.0L) * M_ * M_) +
               std::pow(s, 7.0L) * (61 + 180 * T2 + 60 * T2 * T2) / (5040 * std::pow(N_ * M_, 3.0L));
    }
    Real Arc(Real phi) const {
        const Real e4 = e2_ * e2_;
        const Real e6 = e4 * e2_;
        return a_ *
               ((1 - e2_ / 4 - 3 * e4 / 64 - 5 * e6 / 256) * phi -
                (3 * e2_ / 8 + 3 * e4 / 32 + 45 * e6 / 1024) * std::sin(2 * phi) +
                (15 * e4 / 256 + 45 * e6 / 1024) * std::sin(4 * phi) - 35 * e6 / 3072 * std::sin(6 * phi));
    }
    Real ArcFrom(Real phi) const { return Arc(phi) - Arc(phi0_); }

    Real a_, e2_, phi0_, lam0_, FN_, FE_, k0_;
    Real N_ = 0;
    Real M_ = 0;
    Real rho0_ = 0;
};

LambertNIZone ZoneOf(double phi0) {
    return LambertNIZoneOf(GRS80.a, GRS80.e, phi0, Radians(96), 300000, 600000, 0.9998);
}

const LambertNIZone& Northern() {
    static const LambertNIZone zone = ZoneOf(Radians(41, 30));
    return zone;
}
const LambertNIZone& Southern() {
    static const LambertNIZone zone = ZoneOf(-Radians(14, 16));
    return zone;
}

constexpr Within Rounding = {2e-8, 1e-14};

// ---- The equations ----

TEST(LambertNI, TheForwardEquationsAreThoseOfTheSeries) {
    for (const LambertNIZone* zone : {&Northern(), &Southern()}) {
        const double south = zone->phi0 * 180 / static_cast<double>(Pi) - 4;
        ForEveryPlace({south, 90}, {south + 8, 102}, 0.55, [&](double phi, double lam) {
            ExpectPosition(LambertNIPlane(*zone, phi, lam), Exact(*zone).Plane(phi, lam), Rounding);
        });
    }
}

// Its loops end within 0.00005 m of the arc and 0.0000005 radians of latitude, each with a step that squares
// what it found.
TEST(LambertNI, TheInverseEquationsAreThoseOfTheSeries) {
    for (const LambertNIZone* zone : {&Northern(), &Southern()})
        for (double northing = -1.2e5; northing <= 8e5; northing += 98765.4)
            for (double easting = 2e5; easting <= 1e6; easting += 87654.3)
                ExpectPosition(LambertNIGeographic(*zone, northing, easting),
                               Exact(*zone).Geographic(northing, easting), Rounding);
}

TEST(LambertNI, ThereAndBackIsWithinTheToleranceOfTheLoops) {
    for (const LambertNIZone* zone : {&Northern(), &Southern()})
        for (const double offset : {-0.07, -0.003, -1e-7, 1e-7, 0.02, 0.07}) {
            const double phi = zone->phi0 + offset;
            const PlanePosition plane = LambertNIPlane(*zone, phi, Radians(93));
            const GeographicPosition back = LambertNIGeographic(*zone, plane.northing, plane.easting);
            ExpectNear(back.phi, phi, 0.00005 / 6.3e6);
            ExpectNear(back.lam, Radians(93), 1e-14);
            ExpectNear(back.convergence, plane.convergence, 1e-14);
            ExpectNear(back.scale, plane.scale, 1e-12);
        }
}

// The projection itself has the mapping radius rho0 exp(-n (Q - Q0)).
TEST(LambertNI, TheSeriesIsTheProjectionWithinATenthOfAMillimeterTwoDegreesFromItsParallel) {
    for (const LambertNIZone* zone : {&Northern(), &Southern()}) {
        const Real n = std::sin(static_cast<Real>(zone->phi0));
        const Real rho0 =
            GRS80.a / ExactW(zone->phi0, GRS80.e) * zone->k0 / std::tan(static_cast<Real>(zone->phi0));
        for (const double offset : {-2.0, -1.0, 0.5, 2.0}) {
            const double phi = zone->phi0 + Radians(offset);
            const Real rho =
                rho0 * std::exp(-n * (ExactIsometric(phi, GRS80.e) - ExactIsometric(zone->phi0, GRS80.e)));
            const Real theta = Radians(2) * n;
            const PlanePosition plane = LambertNIPlane(*zone, phi, zone->lam0 - Radians(2));
            ExpectNear(plane.northing, 300000 + rho0 - rho * std::cos(theta), 1e-4);
            ExpectNear(plane.easting, 600000 + rho * std::sin(theta), 1e-4);
            ExpectNear(plane.scale, rho * n * ExactW(phi, GRS80.e) / (GRS80.a * std::cos(phi)), 1e-6);
        }
    }
}

TEST(LambertNI, TheOriginHasTheFalseNorthingAndEastingAndTheScaleOfTheParallel) {
    for (const LambertNIZone* zone : {&Northern(), &Southern()}) {
        const PlanePosition plane = LambertNIPlane(*zone, zone->phi0, Radians(96));
        EXPECT_EQ(plane.northing, 300000);
        EXPECT_EQ(plane.easting, 600000);
        EXPECT_EQ(plane.convergence, 0);
        EXPECT_EQ(plane.scale, 0.9998);
    }
}

TEST(LambertNI, ScaleIsLeastOnTheParallelAndTheSameAllAlongAnyParallel) {
    for (const double offset : {-3.0, -0.5, 0.1, 2.5}) {
        const double phi = Northern().phi0 + Radians(offset);
        EXPECT_GT(LambertNIScale(Northern(), phi), 0.9998);
        EXPECT_EQ(LambertNIPlane(Northern(), phi, Radians(90)).scale, LambertNIScale(Northern(), phi));
        EXPECT_EQ(LambertNIPlane(Northern(), phi, Radians(99)).scale, LambertNIScale(Northern(), phi));
        ExpectNear(LambertNIScale(Northern(), phi), Exact(Northern()).Scale(phi), 1e-15);
    }
}

TEST(LambertNI, ConvergenceIsPositiveEastOfTheCentralMeridianInTheNorth) {
    EXPECT_GT(LambertNIPlane(Northern(), Radians(41), Radians(95)).convergence, 0);
    EXPECT_GT(LambertNIPlane(Northern(), Radians(41), Radians(95)).easting, 600000);
    EXPECT_LT(LambertNIPlane(Northern(), Radians(41), Radians(97)).convergence, 0);
    EXPECT_LT(LambertNIPlane(Southern(), -Radians(14), Radians(95)).convergence, 0);
    EXPECT_GT(LambertNIPlane(Southern(), -Radians(14), Radians(95)).easting, 600000);
}

// ---- The loops ----

TEST(LambertNI, AnArcOfExactlyNothingIsAnOverflow) {
    for (const LambertNIZone* zone : {&Northern(), &Southern()}) {
        ExpectOverflow([&] { LambertNIGeographic(*zone, 300000, 600000); });
        const GeographicPosition beside = LambertNIGeographic(*zone, 300000.001, 600000);
        ExpectNear(beside.phi, zone->phi0 + 0.001 / 0.9998 / zone->M0r, 1e-14);
    }
}

// An arc of 1e43 meters has no number beyond 64 bits in it yet, but its steps stand still below the arc's
// last digit and above the tolerance.
TEST(LambertNI, ALoopThatWouldGoOnForEverIsAnOverflow) {
    int endless = 0;
    for (double northing = 1e43; northing < 3e43; northing += 1e42)
        for (const double sign : {1.0, -1.0})
            endless += FaultNumberOf([&] { LambertNIGeographic(Northern(), sign * northing, 600000); }) == 6;
    EXPECT_GT(endless, 0);
}

TEST(LambertNI, EveryInverseEnds) {
    std::mt19937_64 draw(1);
    std::uniform_real_distribution<double> magnitude(-3, 80);
    std::uniform_int_distribution<int> sign(0, 1);
    const auto number = [&] { return std::pow(10.0, magnitude(draw)) * (sign(draw) == 1 ? 1 : -1); };
    int results = 0;
    for (int i = 0; i < 3000; ++i) {
        const double northing = number();
        const double easting = number();
        try {
            const GeographicPosition position = LambertNIGeographic(Northern(), northing, easting);
            EXPECT_TRUE(std::isfinite(position.phi + position.lam + position.convergence + position.scale));
            ++results;
        } catch (const RuntimeFault& fault) {
            EXPECT_EQ(fault.Number(), Fault::Overflow);
        }
    }
    EXPECT_GT(results, 100);
}

// ---- Faults and the zone in force ----

TEST(LambertNI, WhatIsNoFiniteNumberIsAnOverflow) {
    ExpectOverflowOfNoNumbers([](double phi, double lam) { LambertNIPlane(Northern(), phi, lam); }, 0.7, 1.7);
    ExpectOverflowOfNoNumbers([](double N, double E) { LambertNIGeographic(Northern(), N, E); }, 2e5, 5e5);
    ExpectOverflow([] { LambertNIScale(Northern(), NotANumber); });
    ExpectOverflow([] { LambertNIPlane(Northern(), 1e60, 1.7); });
}

TEST(LambertNI, AParallelWithoutAConeIsAnOverflow) {
    ExpectOverflow([] { ZoneOf(0); });
    ExpectOverflow([] { ZoneOf(NotANumber); });
    ExpectOverflow([] { LambertNIZoneOf(GRS80.a, 1, 0.7, 0, 0, 0, 1); });
}

TEST(LambertNI, TheNamedProceduresWorkOnTheZoneThatWasSetLast) {
    LambertNI_SET_Zone(Clarke1866.a, Clarke1866.e, 0.5, 1, 2, 3, 1);
    LambertNI_SET_Zone(GRS80.a, GRS80.e, Northern().phi0, Radians(96), 300000, 600000, 0.9998);
    ExpectOverflow([] { LambertNI_SET_Zone(GRS80.a, GRS80.e, 0, 1, 2, 3, 1); });
    ExpectSame(LambertNI_GET_Plane(0.7, 1.7), LambertNIPlane(Northern(), 0.7, 1.7));
    ExpectSame(LambertNI_GET_Geographic(2e5, 5e5), LambertNIGeographic(Northern(), 2e5, 5e5));
    EXPECT_EQ(LambertNI_GET_Scale(0.7), LambertNIScale(Northern(), 0.7));
}

}  // namespace
}  // namespace tarvek::test
