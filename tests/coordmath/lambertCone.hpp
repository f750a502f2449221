#pragma once
// What the tests of both Lambert systems with two parallels share: the cone in long double, and the parallels
// whose two mapping radii round apart.

#include <cmath>

#include "coordmath/modNAD83Lambert.hpp"
#include "coordmath/projectionTest.hpp"

namespace tarvek::test {

struct ExactCone {
    ExactCone(Real phi1, Real phi2, const Ellipsoid& on) : a(on.a), e(on.e) {
        const Real Q1 = ExactIsometric(phi1, e);
        const Real m1 = std::cos(phi1) / ExactW(phi1, e);
        const Real m2 = std::cos(phi2) / ExactW(phi2, e);
        n = (std::log(m1) - std::log(m2)) / (ExactIsometric(phi2, e) - Q1);
        K = a * m1 * std::exp(n * Q1) / n;
    }

    Real Radius(Real phi) const { return K * std::exp(-n * ExactIsometric(phi, e)); }
    Real Scale(Real phi) const { return n * Radius(phi) * ExactW(phi, e) / (a * std::cos(phi)); }

    Real a, e;
    Real n = 0;  // sine of the central parallel
    Real K = 0;  // mapping radius of the equator
};

// Both mapping radii of a cone are the same number, computed on two roads, and part in their last digits. So
// they round to two 32-bit floats only where they lie around a number half way between two floats. Here the
// semimajor axis is chosen to bring them there, with parallels so far apart that the radii differ by several
// units of their last digit. `setZone` takes both parallels and that axis.
template <class SetZone>
void ExpectMappingRadiusToldWhereItRoundsApart(const SetZone& setZone) {
    const double phi1 = Radians(89, 59, 59.9L);
    const double phi2 = Radians(0, 0, 1);
    const auto radius = [&](double a) { return LambertConeOf(phi1, phi2, phi2, a, GRS80.e).K; };
    ScriptedPrompts prompts;
    const auto below = static_cast<float>(radius(GRS80.a));
    const double halfWay = (double{below} + double{std::nextafter(below, 1e9F)}) / 2;
    double a = GRS80.a * (halfWay / radius(GRS80.a));
    for (int i = 0; i < 100; ++i) a = std::nextafter(a, 0);
    prompts.told.clear();
    int tellings = 0;
    int silences = 0;
    for (int i = 0; i < 200; ++i, a = std::nextafter(a, 1e9)) {
        setZone(phi1, phi2, a);
        if (prompts.told.empty()) {
            ++silences;
            continue;
        }
        ++tellings;
        for (const Message& message : prompts.told) {
            EXPECT_EQ(message.text, "Error - Mapping Radius does not compute properly");
            EXPECT_EQ(message.caption, "Tarvek Translator");
            EXPECT_EQ(message.buttons, Buttons::OK);
        }
        prompts.told.clear();
    }
    EXPECT_GT(tellings, 0);
    EXPECT_GT(silences, 0);
}

}  // namespace tarvek::test
