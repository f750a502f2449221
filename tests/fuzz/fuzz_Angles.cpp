// Any text as an angle in every format: a parser gives a finite value, the marker or a fault, and what a
// formatter prints is read back as the same angle.

#include <cmath>

#include "coordmath/modAngles.hpp"
#include "fuzz/fuzzSupport.hpp"

namespace {

using namespace tarvek;
using fuzz::Require;

constexpr double Marker = -99999.0;
constexpr std::string_view Formats[] = {AngleFormatDMS, AngleFormatPacked, AngleFormatDegrees, AngleFormatDM};
constexpr int Decimals = 6;
// A millionth of a degree, the coarsest unit printed, and the rounding of degrees up to 16 bits.
constexpr double Tolerance = 1e-6 * 0.0174532925199433;

double ParsedOr(std::string_view text, std::string_view format, double otherwise) {
    try {
        return Angles_GET_Radians(text, format);
    } catch (const RuntimeFault&) {
        return otherwise;
    }
}

// Signs get lost under one degree, and degrees beyond 16 bits can not be read again.
bool IsReadable(double radians) {
    const double degrees = std::fabs(radians) * 57.2957795130823;
    return degrees < 32766 && (radians >= 0 || degrees > 1.001);
}

void RequireReadBack(double radians) {
    const std::string texts[] = {
        Angles_GET_TextDMS(radians, Decimals, false), Angles_GET_TextDMSPacked(radians, Decimals),
        Angles_GET_TextDegrees(radians, Decimals, false), Angles_GET_TextDM(radians, Decimals, false)};
    for (std::size_t i = 0; i < std::size(Formats); ++i) {
        const double again = ParsedOr(texts[i], Formats[i], HUGE_VAL);
        Require(std::fabs(again - radians) <= Tolerance, "a printed angle is read back");
    }
}

void RequireDirections(double radians) {
    const double south = Angles_GET_Direction(radians, "N", "S");
    Require(Angles_GET_Direction(south, "S", "N") == radians, "north over south is north");
    const double west = Angles_GET_Direction(radians, "-W", "W");
    Require(std::isfinite(west), "a direction is finite");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::QuietPrompts prompts;
    for (const std::string_view format : Formats) {
        const double radians = ParsedOr(fuzz::TextOf(data, size), format, Marker);
        Require(std::isfinite(radians), "a parsed angle is finite");
        if (radians == Marker) continue;
        RequireDirections(radians);
        if (IsReadable(radians)) RequireReadBack(radians);
    }
    return 0;
}
