#pragma once
// What the tests of the 1927 equations share: the meridian of Clarke 1866 in seconds, in long double.

#include <cmath>

#include "coordmath/projectionTest.hpp"

namespace tarvek::test {

inline constexpr Real SecondsInRadian = 648000 / Pi;

inline Real Square(Real x) { return x * x; }
inline Real Cube(Real x) { return x * x * x; }

// The rectified latitude of phi in radians, in seconds.
inline Real Rectified(Real phi) {
    const Real c2 = Square(std::cos(phi));
    return phi * SecondsInRadian -
           std::sin(phi) * std::cos(phi) * (1052.893882L - 4.483344L * c2 + 0.02352L * c2 * c2);
}

// A rectified latitude in seconds gives the latitude, in seconds.
inline Real FromRectified(Real seconds) {
    const Real p = seconds / SecondsInRadian;
    const Real c2 = Square(std::cos(p));
    return seconds + std::sin(p) * std::cos(p) * (1047.54671L + 6.19276L * c2 + 0.050912L * c2 * c2);
}

}  // namespace tarvek::test
