// The four functions that the projections need, in the form that gives their last digits.

#include "coordmath/modMath.hpp"

#include <cfenv>

#include "coordmath/projectionTest.hpp"

namespace tarvek::test {
namespace {

TEST(ASin, IsTheArcSine) {
    for (const double x : {-0.999, -0.5, -1e-9, 0.0, 1e-300, 0.25, 0.5, 0.75, 0.9999999})
        ExpectNear(ASin(x), std::asin(static_cast<Real>(x)), 3e-16 / std::sqrt(1 - x * x));
}

TEST(ASin, OfOneAndMinusOneIsARightAngleWithNoDivisionByZero) {
    std::feclearexcept(FE_ALL_EXCEPT);
    EXPECT_EQ(ASin(1.0), 2 * std::atan(1.0));
    EXPECT_EQ(ASin(-1.0), -2 * std::atan(1.0));
    EXPECT_EQ(std::fetestexcept(FE_DIVBYZERO), 0);
}

TEST(ASin, OfTheNeighborsOfOneIsStillFinite) {
    // 1 - x^2 is 2^-52 there, so the arc sine lies 2^-26 below a right angle.
    EXPECT_NEAR(ASin(std::nextafter(1.0, 0.0)), static_cast<double>(Pi / 2 - 0x1p-26L), 1e-15);
    EXPECT_NEAR(ASin(-std::nextafter(1.0, 0.0)), static_cast<double>(0x1p-26L - Pi / 2), 1e-15);
}

TEST(ASin, BeyondOneIsAnOverflow) {
    for (const double x : {std::nextafter(1.0, 2.0), -1.0000001, 2.0, -1e300, Infinite, NotANumber}) {
        SCOPED_TRACE(x);
        ExpectOverflow([x] { ASin(x); });
    }
}

TEST(HyperbolicSineAndCosine, AreHalvesOfExponentials) {
    for (const double x : {-700.0, -3.5, -0.1, 0.5, 1.0, 20.0, 700.0}) {
        EXPECT_NEAR(Sinh(x) / static_cast<double>(std::sinh(static_cast<Real>(x))), 1, 3e-15) << x;
        EXPECT_NEAR(Cosh(x) / static_cast<double>(std::cosh(static_cast<Real>(x))), 1, 1e-15) << x;
        EXPECT_EQ(Sinh(-x), -Sinh(x));
        EXPECT_EQ(Cosh(-x), Cosh(x));
    }
    EXPECT_EQ(Sinh(0), 0);
    EXPECT_EQ(Cosh(0), 1);
}

// exp(1e-17) is 1 in 64 bits, so both halves cancel; a hyperbolic sine of more care would give 1e-17.
TEST(HyperbolicSineAndCosine, NearZeroTheSineHasTheDigitsOfTheDifference) {
    EXPECT_EQ(Sinh(1e-17), 0);
    EXPECT_NE(Sinh(1e-10), 1e-10);
    EXPECT_NEAR(Sinh(1e-10), 1e-10, 2e-16);
}

TEST(HyperbolicSineAndCosine, BeyondTheRangeOfTheExponentialAreAnOverflow) {
    EXPECT_NO_THROW(Sinh(709.7));
    EXPECT_NO_THROW(Cosh(-709.7));
    for (const double x : {710.0, -710.0, 1e300, Infinite, -Infinite, NotANumber}) {
        SCOPED_TRACE(x);
        ExpectOverflow([x] { Sinh(x); });
        ExpectOverflow([x] { Cosh(x); });
    }
}

TEST(ACosh, IsTheInverseOfTheHyperbolicCosineThatIsNotNegative) {
    EXPECT_EQ(ACosh(1), 0);
    for (const double x : {1.01, 1.5, 2.0, 10.0, 1e9, 1e150})
        ExpectNear(ACosh(x), std::acosh(static_cast<Real>(x)), 1e-15 * (1 + ACosh(x)));
}

// The square of 1 + 2^-30 is 1 + 2^-29 in 64 bits: what remains of it has lost 2^-60.
TEST(ACosh, NearOneHasTheDigitsOfTheSquare) {
    const double x = 1 + 0x1p-30;
    ExpectNear(ACosh(x), std::log(x + std::sqrt(0x1p-29L)), 2e-16);
    EXPECT_GT(std::fabs(ACosh(x) - static_cast<double>(std::acosh(static_cast<Real>(x)))), 5e-15);
}

TEST(ACosh, BelowOneIsAnOverflow) {
    for (const double x : {std::nextafter(1.0, 0.0), 0.0, -1.0, -2.0, -Infinite, NotANumber}) {
        SCOPED_TRACE(x);
        ExpectOverflow([x] { ACosh(x); });
    }
}

TEST(ACosh, OfANumberWhoseSquareIsTooLargeIsAnOverflow) {
    for (const double x : {1e155, Infinite}) ExpectOverflow([x] { ACosh(x); });
}

}  // namespace
}  // namespace tarvek::test
