#pragma once
// What the NAD 27 plane coordinate equations share: the units of angle and length they are worked in, and the
// meridian of the Clarke 1866 ellipsoid in seconds of arc.
//
// A latitude is worked as whole minutes and seconds of the rectified latitude, the latitude on a sphere whose
// meridian is as long as the ellipsoid's. One of its seconds is 101.2794065 feet of meridian.

#include <cstdint>

namespace tarvek {

inline constexpr double SecondsPerRadian = 206264.80624709657;
inline constexpr double RadiansPerSecond = 4.848136811095355e-06;
inline constexpr double SurveyFeetPerMeter = 3.2808333333333333;

// The radii of curvature at a latitude of this sine, in feet, of an ellipsoid whose semimajor axis is in
// meters.
struct CurvatureRadii {
    double meridian;
    double primeVertical;
};
CurvatureRadii RadiiInFeet(double a, double e, double sinPhi);

// Minutes of arc without a fraction, and the seconds beyond them; both bear the sign of the angle.
struct MinutesAndSeconds {
    double minutes;
    double seconds;
};

// A latitude in radians, taken apart.
MinutesAndSeconds MinutesAndSecondsOf(double phi);
// The latitude phi, in seconds, less its rectified latitude: C&GS Publication 62-4.
double RectifyingSeconds(double phi);
// The rectified latitude of phi in radians, taken apart.
MinutesAndSeconds RectifiedLatitude(double phi);
// The other way: a rectified latitude of `minutes` and `seconds` gives the seconds of the latitude beyond the
// same minutes.
double SecondsFromRectified(std::int16_t minutes, double seconds);

}  // namespace tarvek
