#pragma once
// What the tests of the projections share: angles and ellipsoids, comparisons with a computation of the
// test's own in long double, and the faults that every projection must end in.

#include <gtest/gtest.h>

#include <cmath>
#include <initializer_list>
#include <limits>

#include "coordmath/modPositions.hpp"
#include "support/testSupport.hpp"

namespace tarvek::test {

// What a test computes with: eleven bits more than the program has.
using Real = long double;

inline constexpr Real Pi = 3.14159265358979323846264338327950288L;

constexpr Real ExactRadians(Real degrees, Real minutes = 0, Real seconds = 0) {
    return (degrees + minutes / 60 + seconds / 3600) * Pi / 180;
}
constexpr double Radians(Real degrees, Real minutes = 0, Real seconds = 0) {
    return static_cast<double>(ExactRadians(degrees, minutes, seconds));
}

struct Ellipsoid {
    double a;  // semimajor axis, meters
    double e;  // first eccentricity
};

inline constexpr Ellipsoid GRS80 = {6378137.0, 0.0818191910428158};
inline constexpr Ellipsoid Clarke1866 = {6378206.4, 0.0822718542230038};

struct ExactPlane {
    Real northing;
    Real easting;
    Real convergence;
    Real scale;
};

struct ExactGeographic {
    Real phi;
    Real lam;
    Real convergence;
    Real scale;
};

// How far a result of the program may lie from the test's: lengths in the unit of the equations, radians,
// scale.
struct Within {
    double length;
    double angle;
    double scale = 1e-14;
};

inline void ExpectNear(double actual, Real expected, double within) {
    EXPECT_LE(std::fabs(static_cast<double>(actual - expected)), within)
        << "actual " << actual << ", expected " << static_cast<double>(expected);
}

inline void ExpectPosition(const PlanePosition& actual, const ExactPlane& expected, const Within& within) {
    ExpectNear(actual.northing, expected.northing, within.length);
    ExpectNear(actual.easting, expected.easting, within.length);
    ExpectNear(actual.convergence, expected.convergence, within.angle);
    ExpectNear(actual.scale, expected.scale, within.scale);
}

inline void ExpectPosition(const GeographicPosition& actual, const ExactGeographic& expected,
                           const Within& within) {
    ExpectNear(actual.phi, expected.phi, within.angle);
    ExpectNear(actual.lam, expected.lam, within.angle);
    ExpectNear(actual.convergence, expected.convergence, within.angle);
    ExpectNear(actual.scale, expected.scale, within.scale);
}

inline void ExpectSame(const PlanePosition& actual, const PlanePosition& expected) {
    EXPECT_EQ(actual.northing, expected.northing);
    EXPECT_EQ(actual.easting, expected.easting);
    EXPECT_EQ(actual.convergence, expected.convergence);
    EXPECT_EQ(actual.scale, expected.scale);
}

inline void ExpectSame(const GeographicPosition& actual, const GeographicPosition& expected) {
    EXPECT_EQ(actual.phi, expected.phi);
    EXPECT_EQ(actual.lam, expected.lam);
    EXPECT_EQ(actual.convergence, expected.convergence);
    EXPECT_EQ(actual.scale, expected.scale);
}

// A position of latitude north and longitude west, in degrees.
struct Place {
    double north;
    double west;
};

// Calls `check(phi, lam)` with every latitude and longitude of a grid of `step` degrees between two corners.
template <class Check>
void ForEveryPlace(Place southEast, Place northWest, double step, const Check& check) {
    for (double north = southEast.north; north <= northWest.north; north += step)
        for (double west = southEast.west; west <= northWest.west; west += step) {
            SCOPED_TRACE(::testing::Message() << north << " N, " << west << " W");
            check(Radians(north), Radians(west));
        }
}

inline constexpr double Infinite = std::numeric_limits<double>::infinity();
inline constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();

template <class Run>
void ExpectOverflow(const Run& run) {
    EXPECT_EQ(FaultOf(run), Fault::Overflow);
}

// `compute` takes two numbers, of which (first, second) are good ones; every other value that is no finite
// number must end in the fault.
template <class Compute>
void ExpectOverflowOfNoNumbers(const Compute& compute, double first, double second) {
    EXPECT_NO_THROW(compute(first, second));
    for (const double none : {Infinite, -Infinite, NotANumber}) {
        SCOPED_TRACE(none);
        ExpectOverflow([&] { compute(none, second); });
        ExpectOverflow([&] { compute(first, none); });
    }
}

// Length of the meridian from the equator, by Simpson's rule over the radius of curvature: no series.
inline Real MeridianArc(const Ellipsoid& ellipsoid, Real phi) {
    constexpr int Intervals = 2000;
    const Real e2 = static_cast<Real>(ellipsoid.e) * ellipsoid.e;
    const auto radius = [&](Real latitude) {
        const Real sine = std::sin(latitude);
        return ellipsoid.a * (1 - e2) / std::pow(1 - e2 * sine * sine, 1.5L);
    };
    Real sum = radius(0) + radius(phi);
    for (int i = 1; i < Intervals; ++i) sum += (i % 2 == 1 ? 4 : 2) * radius(phi * i / Intervals);
    return sum * phi / Intervals / 3;
}

// Isometric latitude by the inverse hyperbolic tangent.
inline Real ExactIsometric(Real phi, Real e) {
    const Real sine = std::sin(phi);
    return std::atanh(sine) - e * std::atanh(e * sine);
}

// a over the prime vertical radius: sqrt(1 - e^2 sin^2).
inline Real ExactW(Real phi, Real e) { return std::sqrt(1 - e * e * std::sin(phi) * std::sin(phi)); }

}  // namespace tarvek::test
