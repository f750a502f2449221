#pragma once
// Four functions that the projections need beside those of the language. Each has exactly the form given at
// its name: results in the last digits are those of that form, which for Sinh near zero is not the most
// exact one. A result that is not finite ends in Fault::Overflow: ASin beyond -1 to 1, ACosh below 1, Sinh
// and Cosh beyond about 709.8 either way.

namespace tarvek {

// Radians, -pi/2 to pi/2: atan(x / sqrt(1 - x^2)), and 2 atan(1) with the sign of x at exactly 1 and -1.
double ASin(double x);
// (exp(x) - exp(-x)) / 2
double Sinh(double x);
// (exp(x) + exp(-x)) / 2
double Cosh(double x);
// The one that is not negative: ln(sqrt(x^2 - 1) + x)
double ACosh(double x);

// The latitude itself, radians; Fault::Overflow at a pole. No double is exactly 90 degrees, so there tan and
// 1 / cos give some large number where they have no value; within a billionth of a second of arc of it a
// latitude is the pole.
double RequireNoPole(double phi);

}  // namespace tarvek
