// The oblique Mercator projection against its equations in long double, with the hyperbolic functions of the
// language.

#include "coordmath/modNAD83OMercator.hpp"

#include "coordmath/projectionTest.hpp"

namespace tarvek::test {
namespace {

struct Definition {
    double phi0, lam0, FN, FE, k0, alpha;
};

// Alaska zone 1, whose axis has the slope -3/4, and one with its axis to the north east.
const Definition Alaska = {Radians(57), Radians(133, 40), -5000000, 5000000, 0.9999, std::atan(-3.0 / 4)};
const Definition NorthEast = {Radians(40), Radians(75), 1000, 2000, 1.0002, Radians(30)};
const Definition North = {Radians(45), Radians(100), 0, 500000, 0.9996, 0};

OMercator83Zone ZoneOf(const Definition& d) {
    return OMercator83ZoneOf(GRS80.a, GRS80.e, d.phi0, d.lam0, d.FN, d.FE, d.k0, d.alpha);
}

// The equations once more, the latitude series in sines of multiple angles.
class Exact {
  public:
    explicit Exact(const Definition& d)
        : FN_(d.FN), FE_(d.FE), alpha_(d.alpha), e2_(static_cast<Real>(GRS80.e) * GRS80.e) {
        const Real c = std::cos(static_cast<Real>(d.phi0));
        const Real W = ExactW(d.phi0, GRS80.e);
        const Real Q = ExactIsometric(d.phi0, GRS80.e);
        B_ = std::sqrt(1 + e2_ / (1 - e2_) * std::pow(c, 4.0L));
        A_ = GRS80.a * B_ * std::sqrt(1 - e2_) / (W * W);
        C_ = std::acosh(B_ * std::sqrt(1 - e2_) / (W * c)) - B_ * Q;
        k0_ = d.k0;
        gamma_ = std::asin(GRS80.a * std::sin(alpha_) * c / (A_ * W));
        lamc_ = d.lam0 + std::asin(std::tan(gamma_) * std::sinh(B_ * Q + C_)) / B_;
    }

    ExactPlane Plane(Real phi, Real lam) const {
        const Real L = B_ * (lam - lamc_);
        const Real q = B_ * ExactIsometric(phi, GRS80.e) + C_;
        const Real sg = std::sin(gamma_);
        const Real cg = std::cos(gamma_);
        const Real r = A_ * k0_ / B_;
        const Real u = r * std::atan((cg * std::sinh(q) - sg * std::sin(L)) / std::cos(L));
        const Real v = -r * std::atanh((sg * std::sinh(q) + cg * std::sin(L)) / std::cosh(q));
        const Real turned =
            std::atan((sg - cg * std::sinh(q) * std::sin(L)) / (cg * std::cosh(q) * std::cos(L)));
        return {FN_ + u * std::cos(alpha_) - v * std::sin(alpha_),
                FE_ + u * std::sin(alpha_) + v * std::cos(alpha_), turned - alpha_,
                A_ * k0_ / GRS80.a * ExactW(phi, GRS80.e) * std::cos(u / r) / (std::cos(L) * std::cos(phi))};
    }

    ExactGeographic Geographic(Real northing, Real easting) const {
        const Real r = A_ * k0_ / B_;
        const Real north = northing - FN_;
        const Real east = easting - FE_;
        const Real u = (north * std::cos(alpha_) + east * std::sin(alpha_)) / r;
        const Real v = (east * std::cos(alpha_) - north * std::sin(alpha_)) / r;
        const Real sg = std::sin(gamma_);
        const Real cg = std::cos(gamma_);
        const Real q = std::atanh((cg * std::sin(u) - sg * std::sinh(v)) / std::cosh(v));
        const Real phi = FromConformal(std::asin(std::tanh((q - C_) / B_)));
        const Real lam = lamc_ - std::atan((sg * std::sin(u) + cg * std::sinh(v)) / std::cos(u)) / B_;
        const ExactPlane plane = Plane(phi, lam);
        return {phi, lam, plane.convergence, plane.scale};
    }

    // Latitude of the origin of the axis, where it crosses the equator of the aposphere.
    Real AxisLongitude() const { return lamc_; }
    Real AxisAngle() const { return gamma_; }

  private:
    Real FromConformal(Real chi) const {
        const auto e = [this](int power) { return std::pow(e2_, power / 2.0L); };
        return chi + (e(2) / 2 + 5 * e(4) / 24 + e(6) / 12 + 13 * e(8) / 360) * std::sin(2 * chi) +
               (7 * e(4) / 48 + 29 * e(6) / 240 + 811 * e(8) / 11520) * std::sin(4 * chi) +
               (7 * e(6) / 120 + 81 * e(8) / 1120) * std::sin(6 * chi) +
               4279 * e(8) / 161280 * std::sin(8 * chi);
    }

    Real FN_, FE_, alpha_, e2_;
    Real A_ = 0;
    Real B_ = 0;
    Real C_ = 0;
    Real k0_ = 0;
    Real gamma_ = 0;
    Real lamc_ = 0;
};

constexpr Within Rounding = {5e-8, 2e-14};

TEST(OMercator83, TheForwardEquationsAreThoseOfTheManual) {
    ForEveryPlace({54, 129}, {60.5, 142}, 0.65, [](double phi, double lam) {
        ExpectPosition(OMercator83Plane(ZoneOf(Alaska), phi, lam), Exact(Alaska).Plane(phi, lam), Rounding);
    });
    ForEveryPlace({35, 70}, {45, 80}, 1.1, [](double phi, double lam) {
        ExpectPosition(OMercator83Plane(ZoneOf(NorthEast), phi, lam), Exact(NorthEast).Plane(phi, lam),
                       Rounding);
    });
}

TEST(OMercator83, TheInverseEquationsAreThoseOfTheManual) {
    for (double northing = 5e5; northing <= 1.3e6; northing += 87654.3)
        for (double easting = 2e5; easting <= 1e6; easting += 98765.4)
            ExpectPosition(OMercator83Geographic(ZoneOf(Alaska), northing, easting),
                           Exact(Alaska).Geographic(northing, easting), Rounding);
    for (double northing = 3.5e6; northing <= 4.5e6; northing += 123456.7)
        ExpectPosition(OMercator83Geographic(ZoneOf(NorthEast), northing, 2.1e6),
                       Exact(NorthEast).Geographic(northing, 2.1e6), Rounding);
}

TEST(OMercator83, ThereAndBackIsTheSamePositionToAHundredthOfAMillimeter) {
    ForEveryPlace({54, 129}, {60.5, 142}, 0.65, [](double phi, double lam) {
        const PlanePosition plane = OMercator83Plane(ZoneOf(Alaska), phi, lam);
        const GeographicPosition back = OMercator83Geographic(ZoneOf(Alaska), plane.northing, plane.easting);
        ExpectNear(back.phi, phi, 1e-5 / 6.4e6);
        ExpectNear(back.lam, lam, 1e-5 / 6.4e6);
    });
}

TEST(OMercator83, TheCentralPointLiesOnTheAxisWithTheScaleOfTheZone) {
    for (const Definition& d : {Alaska, NorthEast, North}) {
        const PlanePosition plane = OMercator83Plane(ZoneOf(d), d.phi0, d.lam0);
        const double fromAxis =
            (plane.easting - d.FE) * std::cos(d.alpha) - (plane.northing - d.FN) * std::sin(d.alpha);
        EXPECT_NEAR(fromAxis, 0, 1e-8);
        EXPECT_NEAR(plane.scale, d.k0, 1e-14);
        EXPECT_NEAR(plane.convergence, 0, 1e-14);
    }
}

// The axis is then the meridian of the central point.
TEST(OMercator83, AnAzimuthOfZeroTurnsNothing) {
    const OMercator83Zone zone = ZoneOf(North);
    EXPECT_EQ(zone.sg, 0);
    EXPECT_EQ(zone.cg, 1);
    EXPECT_EQ(zone.lamc, North.lam0);
    for (const double north : {30.0, 45.0, 60.0}) {
        const PlanePosition plane = OMercator83Plane(zone, Radians(north), North.lam0);
        EXPECT_NEAR(plane.easting, 500000, 1e-8);
        EXPECT_NEAR(plane.convergence, 0, 1e-15);
    }
}

TEST(OMercator83, TheAxisStartsWhereItsAzimuthLeads) {
    for (const Definition& d : {Alaska, NorthEast}) {
        const OMercator83Zone zone = ZoneOf(d);
        const Exact exact(d);
        ExpectNear(zone.lamc, exact.AxisLongitude(), 1e-14);
        ExpectNear(zone.sg, std::sin(exact.AxisAngle()), 1e-15);
        ExpectNear(zone.cg, std::cos(exact.AxisAngle()), 1e-15);
    }
    EXPECT_LT(ZoneOf(Alaska).lamc, Alaska.lam0);        // a north-westward axis comes from the east
    EXPECT_GT(ZoneOf(NorthEast).lamc, NorthEast.lam0);  // a north-eastward one from the west
}

TEST(OMercator83, ConvergenceAndScaleOfAnInverseAreThoseOfTheForwardComputationThere) {
    for (const Definition& d : {Alaska, NorthEast})
        for (double offset = -3e5; offset <= 3e5; offset += 54321) {
            const OMercator83Zone zone = ZoneOf(d);
            const PlanePosition center = OMercator83Plane(zone, d.phi0, d.lam0);
            const GeographicPosition position =
                OMercator83Geographic(zone, center.northing + offset, center.easting - offset / 2);
            const PlanePosition again = OMercator83Plane(zone, position.phi, position.lam);
            EXPECT_EQ(position.convergence, again.convergence);
            EXPECT_EQ(position.scale, again.scale);
        }
}

TEST(OMercator83, ConvergenceIsThatOfGridNorthNotOfTheAxis) {
    const OMercator83Zone zone = ZoneOf(Alaska);
    EXPECT_GT(OMercator83Plane(zone, Radians(57), Radians(132)).convergence, 0);
    EXPECT_LT(OMercator83Plane(zone, Radians(57), Radians(136)).convergence, 0);
    EXPECT_NEAR(OMercator83Plane(zone, Radians(57), Radians(132)).convergence, Radians(1, 24), Radians(0, 5));
}

// ---- Faults and the zone in force ----

TEST(OMercator83, AZoneWithoutAnAxisIsAnOverflow) {
    const auto zoneOf = [](double phi0, double alpha) {
        return [=] { OMercator83ZoneOf(GRS80.a, GRS80.e, phi0, 1, 0, 0, 1, alpha); };
    };
    ExpectOverflow(zoneOf(Radians(90), 0.5));
    ExpectOverflow(zoneOf(-Radians(90), 0.5));
    ExpectOverflow(zoneOf(NotANumber, 0.5));
    ExpectOverflow(zoneOf(0.9, Infinite));
    ExpectOverflow([] { OMercator83ZoneOf(GRS80.a, 1, 0.9, 1, 0, 0, 1, 0.5); });
    EXPECT_NO_THROW(zoneOf(0.9, 0.5)());
}

TEST(OMercator83, APoleIsAnOverflow) {
    for (const double pole : {Radians(90), -Radians(90)})
        ExpectOverflow([&] { OMercator83Plane(ZoneOf(Alaska), pole, Radians(133)); });
}

TEST(OMercator83, WhatIsNoFiniteNumberIsAnOverflow) {
    const OMercator83Zone zone = ZoneOf(Alaska);
    ExpectOverflowOfNoNumbers([&](double phi, double lam) { OMercator83Plane(zone, phi, lam); }, 1, 2.3);
    ExpectOverflowOfNoNumbers([&](double N, double E) { OMercator83Geographic(zone, N, E); }, 1e6, 8e5);
    ExpectOverflow([&] { OMercator83Geographic(zone, 1e6, 1e10); });
}

TEST(OMercator83, TheNamedProceduresWorkOnTheZoneThatWasSetLast) {
    const Definition& d = Alaska;
    OMercator83_SET_Zone(GRS80.a, GRS80.e, 0.5, 1, 2, 3, 1, 0.1);
    OMercator83_SET_Zone(GRS80.a, GRS80.e, d.phi0, d.lam0, d.FN, d.FE, d.k0, d.alpha);
    ExpectOverflow([] { OMercator83_SET_Zone(GRS80.a, GRS80.e, NotANumber, 1, 2, 3, 1, 0.1); });
    ExpectSame(OMercator83_GET_Plane(1, 2.3), OMercator83Plane(ZoneOf(d), 1, 2.3));
    ExpectSame(OMercator83_GET_Geographic(1e6, 8e5), OMercator83Geographic(ZoneOf(d), 1e6, 8e5));
}

}  // namespace
}  // namespace tarvek::test
