// C&GS Publication 62-4, "State Plane Coordinates by Automatic Data Processing" (Claire, 1968). Its series
// stand with the digits it prints. There and back they do not close: the latitude comes back within 0.0001
// seconds, 3 mm. Longer series or Clarke 1866 constants of more digits would be another system of
// coordinates.

#include "coordmath/modNAD27Series.hpp"

#include <cmath>

#include "coordmath/modAngles.hpp"

namespace tarvek {

CurvatureRadii RadiiInFeet(double a, double e, double sinPhi) {
    const double w = 1 - e * e * (sinPhi * sinPhi);
    return {.meridian = (1 - e * e) * a / std::pow(w, 1.5) * SurveyFeetPerMeter,
            .primeVertical = a / std::sqrt(w) * SurveyFeetPerMeter};
}

MinutesAndSeconds MinutesAndSecondsOf(double phi) {
    const double minutes = std::trunc(phi * DegreesPerRadian * 60);
    return {.minutes = minutes, .seconds = phi * DegreesPerRadian * 3600.0 - minutes * 60.0};
}

double RectifyingSeconds(double phi) {
    const double c = std::cos(phi);
    const double s = std::sin(phi);
    return (1052.893882 - c * c * (4.483344 - 0.02352 * (c * c))) * s * c;
}

MinutesAndSeconds RectifiedLatitude(double phi) {
    const double V = phi * SecondsPerRadian - RectifyingSeconds(phi);
    const double minutes = std::trunc(V / 60);
    return {.minutes = minutes, .seconds = V - minutes * 60.0};
}

double SecondsFromRectified(std::int16_t minutes, double seconds) {
    const double p = (minutes * 60.0 + seconds) * RadiansPerSecond;
    const double c = std::cos(p);
    const double s = std::sin(p);
    return (c * c * (0.050912 * (c * c) + 6.19276) + 1047.54671) * s * c + seconds;
}

}  // namespace tarvek
