#pragma once
// The four parameters of an ellipsoid of revolution, each two of them from two others: semimajor axis a and
// semiminor axis b, in meters, flattening f = (a - b) / a, first eccentricity e = sqrt(a^2 - b^2) / a (not
// its square). A sphere is an ellipsoid too.
//
// A derivation whose axes come out in the wrong order records why in the error state (number 1) and gives
// -1.0; nobody is told here. A result that is not finite, as of a flattening of 1 or the square root of a
// negative number, is Fault::Overflow.

#include <string_view>

namespace tarvek {

// A parameter that is not known, and the result of a derivation that was refused.
inline constexpr double EllipsoidUnknown = -1.0;

// f and e from both axes, refused where a is below b.
double Ellipsoids_GET_fab(double a, double b);
double Ellipsoids_GET_eab(double a, double b);
// b from a and f, from a and e; refused where a is below the result.
double Ellipsoids_GET_baf(double a, double f);
double Ellipsoids_GET_bae(double a, double e);
// a from b and f, from b and e; refused where the result is below b.
double Ellipsoids_GET_abf(double b, double f);
double Ellipsoids_GET_abe(double b, double e);
// e from f and f from e; the axis is not looked at, and nothing is refused.
double Ellipsoids_GET_eaf(double a, double f);
double Ellipsoids_GET_fae(double a, double e);

// Completes the four parameters, of which those equal to -1.0 are not known. With `changed` empty it starts
// from the first known pair of a and b, a and f, a and e, b and f, b and e; with `changed` one of "a", "b",
// "f" and "e" that parameter has just been given a new value and the others follow: an axis takes the other
// axis as its partner if it is known, else f, else e; f and e take a. False, with the reason in the error
// state and all four as they were, when a derivation is refused, too little is known, or `changed` is another
// text.
bool Ellipsoids_GET_Parameters(double& a, double& b, double& f, double& e, std::string_view changed);

}  // namespace tarvek
