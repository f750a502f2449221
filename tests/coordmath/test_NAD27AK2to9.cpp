// The equations of Alaska zones 2 to 9 against themselves in long double, with the two constants that do not
// agree.

#include "coordmath/modNAD27AK2to9.hpp"

#include "coordmath/nad27Test.hpp"

namespace tarvek::test {
namespace {

constexpr AK27Zone Zone4 = {.FE = 500000, .lamc = Radians(150)};
constexpr Real Usual = 0.0068147849L;
constexpr Real Unlike = 0.0068147489L;

// The equations once more, in powers of the cosine. `ofLatitude` is the constant of the inverse latitude.
ExactPlane Plane(Real phi, Real lam) {
    const Real c = std::cos(phi);
    const Real s = std::sin(phi);
    const Real d = (Zone4.lamc - lam) * SecondsInRadian / 10000;
    const Real root = std::sqrt(1 + Usual * c * c);
    const auto c_ = [c](int power) { return std::pow(c, static_cast<Real>(power)); };
    const Real easting =
        1017862.15L * c / root *
        (d - 3.91740509e-4L * Cube(d) * (1 - 2 * c_(2) - 0.00681478L * c_(4)) +
         4.60382e-8L * std::pow(d, 5.0L) * (1 - 20 * c_(2) + 23.6047L * c_(4) + 0.4907L * c_(6)));
    const Real aside =
        24673.6748L * s * c / root *
        (d * d +
         1.958703e-4L * std::pow(d, 4.0L) * (6 * c_(2) - 1 + 0.06133306L * c_(4) + 0.00018577L * c_(6)) +
         1.5346e-8L * std::pow(d, 6.0L) * (1 - 60 * c_(2) + 117.75L * c_(4) + 4.089L * c_(6)));
    const Real along = phi * SecondsInRadian - 193900.05442L -
                       s * c * (1052.893943L - 4.483386L * c_(2) + 0.023559L * c_(4));
    const Real convergence = s *
                             (10000 * d + 7.83481L * Cube(d) * (c_(2) + 0.02044L * c_(4) + 0.00009L * c_(6)) +
                              0.003683L * std::pow(d, 5.0L) * (3 * c_(4) - c_(2))) /
                             SecondsInRadian;
    const Real x = easting / 1e6L;
    return {along * 101.269278503L + aside, easting + Zone4.FE, convergence,
            0.9999L + 0.9999L * Square((1 + Usual * c * c) * x) / 881.572821L};
}

ExactGeographic Geographic(Real northing, Real easting, Real ofLatitude = Unlike) {
    const Real q = 193900.05442L + 0.00987466302498L * northing;
    const Real c0 = std::cos(q / SecondsInRadian);
    const Real foot = q + std::sin(q / SecondsInRadian) * c0 *
                              (1047.546691L + 6.193011L * c0 * c0 + 0.050699L * std::pow(c0, 4.0L));
    const Real c = std::cos(foot / SecondsInRadian);
    const Real t = std::tan(foot / SecondsInRadian);
    const Real x = (easting - Zone4.FE) / 1e6L;
    const Real w = 1 + Usual * c * c;
    const auto c_ = [c](int power) { return std::pow(c, static_cast<Real>(power)); };
    const Real latitude =
        foot -
        233.973645L * Square(1 + ofLatitude * c * c) * t * x * x *
            (1 - 1.8905604e-4L * x * x * (1.9591113L + 3 / c_(2) + 0.081359L * c_(2) + 0.000279L * c_(4)) +
             1.42969e-8L * std::pow(x, 4.0L) * w * (15.5L + 45 / c_(4) - 0.307L / c_(2) + 1.53L * c_(2)));
    const Real longitude =
        9824.513072L * std::sqrt(w) / c *
        (x - 3.7811208e-4L * Cube(x) * w * (2 / c_(2) - 1 + Usual * c_(2)) +
         4.2890624e-8L * std::pow(x, 5.0L) * w * w * (1.054L + 24 / c_(4) - 20 / c_(2) - 0.0136L * c_(2)));
    const Real phi = latitude / SecondsInRadian;
    const Real lam = Zone4.lamc - longitude / SecondsInRadian;
    const Real cosine = std::cos(phi);
    return {phi, lam, Plane(phi, lam).convergence,
            0.9999L + 0.9999L * Square((1 + Usual * cosine * cosine) * x) / 881.572821L};
}

constexpr Within Rounding = {5e-8, 3e-15};

TEST(AK27, TheForwardEquationsAreThoseOfThePublication) {
    ForEveryPlace({53.5, 146}, {71.5, 154}, 0.65, [](double phi, double lam) {
        ExpectPosition(AK27Plane(Zone4, phi, lam), Plane(phi, lam), Rounding);
    });
}

TEST(AK27, TheInverseEquationsAreThoseOfThePublication) {
    for (double northing = -1e5; northing <= 6.5e6; northing += 345678.9)
        for (double easting = 0; easting <= 1e6; easting += 87654.3)
            ExpectPosition(AK27Geographic(Zone4, northing, easting), Geographic(northing, easting), Rounding);
}

// (0.0068147849 - 0.0068147489) c^2 of twice the latitude's first term: a twentieth of a millimeter at most.
TEST(AK27, TheInverseLatitudeHasAConstantOfItsOwn) {
    for (const double northing : {2e5, 2e6, 5e6}) {
        const double easting = 950000;
        const Real alike = Geographic(northing, easting, Usual).phi;
        const double phi = AK27Geographic(Zone4, northing, easting).phi;
        const Real c = std::cos(alike);
        const Real first = 233.973645L * std::tan(alike) * Square(0.45L) / SecondsInRadian;
        ExpectNear(phi, alike + 2 * 3.6e-8L * c * c * first, 2e-14);
        EXPECT_GT(phi - static_cast<double>(alike), 3e-12);
    }
}

TEST(AK27, APointOnTheCentralMeridianHasTheFalseEastingAndTheScaleOfEveryZone) {
    for (const double north : {54.0, 56.5, 64.0, 71.0}) {
        const PlanePosition plane = AK27Plane(Zone4, Radians(north), Zone4.lamc);
        EXPECT_EQ(plane.easting, 500000);
        EXPECT_EQ(plane.scale, 0.9999);
        EXPECT_EQ(plane.convergence, 0);
        const GeographicPosition back = AK27Geographic(Zone4, plane.northing, 500000);
        ExpectNear(back.lam, Zone4.lamc, 1e-15);
        EXPECT_EQ(back.scale, 0.9999);
        ExpectNear(back.convergence, 0, 1e-15);
    }
    ExpectNear(AK27Plane(Zone4, Radians(54), Zone4.lamc).northing, 0, 0.01);
}

TEST(AK27, ThereAndBackIsTheSamePositionToAFewThousandthsOfASecond) {
    ForEveryPlace({54, 147}, {71, 153}, 0.9, [](double phi, double lam) {
        const PlanePosition plane = AK27Plane(Zone4, phi, lam);
        const GeographicPosition back = AK27Geographic(Zone4, plane.northing, plane.easting);
        ExpectNear(back.phi, phi, 0.003 / 206265);
        ExpectNear(back.lam, lam, 0.003 / 206265);
        ExpectNear(back.convergence, plane.convergence, 0.003 / 206265);
        ExpectNear(back.scale, plane.scale, 1e-10);
    });
}

TEST(AK27, ConvergenceIsPositiveEastOfTheCentralMeridian) {
    EXPECT_GT(AK27Plane(Zone4, Radians(60), Radians(149)).convergence, 0);
    EXPECT_GT(AK27Plane(Zone4, Radians(60), Radians(149)).easting, 500000);
    EXPECT_LT(AK27Plane(Zone4, Radians(60), Radians(151)).convergence, 0);
}

TEST(AK27, TheZoneStandsInTheArgumentsAndTheCentralLatitudeIsNotUsed) {
    for (const double phi0 : {Radians(54), 0.0, -99999.0, NotANumber}) {
        ExpectSame(AK27_GET_Plane(1.1, 2.6, 500000, phi0, Zone4.lamc), AK27Plane(Zone4, 1.1, 2.6));
        ExpectSame(AK27_GET_Geographic(3e6, 6e5, 500000, phi0, Zone4.lamc), AK27Geographic(Zone4, 3e6, 6e5));
    }
}

TEST(AK27, ConvergenceAndScaleOfAnInverseAreThoseOfThePositionFound) {
    const GeographicPosition position = AK27Geographic(Zone4, 3e6, 9e5);
    EXPECT_EQ(position.convergence, AK27_GET_Convergence(Zone4.lamc, position.phi, position.lam));
    EXPECT_EQ(position.scale, AK27_GET_Scale(position.phi, 9e5, 500000));
    ExpectNear(AK27_GET_Convergence(Zone4.lamc, 1.1, 2.6), Plane(1.1, 2.6).convergence, 3e-15);
    ExpectNear(AK27_GET_Scale(1.1, 500000 + 1e6, 500000),
               0.9999L * (1 + Square(1 + Usual * Square(std::cos(1.1L))) / 881.572821L), 1e-15);
}

TEST(AK27, TheInverseAtThePoleIsAnOverflow) {
    const double northing =
        (90 * 3600 - 193900.05442) / 0.00987466302498;  // where the latitude series vanishes
    ExpectOverflow([&] { AK27Geographic(Zone4, northing, 501000); });
    EXPECT_NO_THROW(AK27Geographic(Zone4, northing - 1e5, 501000));
}

TEST(AK27, WhatIsNoFiniteNumberIsAnOverflow) {
    ExpectOverflowOfNoNumbers([](double phi, double lam) { AK27Plane(Zone4, phi, lam); }, 1.1, 2.6);
    ExpectOverflowOfNoNumbers([](double N, double E) { AK27Geographic(Zone4, N, E); }, 3e6, 6e5);
    ExpectOverflowOfNoNumbers([](double phi, double lam) { AK27_GET_Convergence(2.6, phi, lam); }, 1.1, 2.6);
    ExpectOverflowOfNoNumbers([](double phi, double E) { AK27_GET_Scale(phi, E, 500000); }, 1.1, 6e5);
    ExpectOverflow([] { AK27Plane({.FE = Infinite, .lamc = 2.6}, 1.1, 2.6); });
    ExpectOverflow([] { AK27Plane({.FE = 500000, .lamc = NotANumber}, 1.1, 2.6); });
}

}  // namespace
}  // namespace tarvek::test
