#include "coordmath/modAngles.hpp"

#include <cmath>
#include <vector>

#include "platform/modCodePage.hpp"
#include "platform/modFaults.hpp"
#include "platform/modNumbers.hpp"
#include "platform/modPrompts.hpp"
#include "platform/modText.hpp"
#include "surveyfiles/modSurveyRecords.hpp"

namespace tarvek {
namespace {

constexpr double FullCircle = 6.28318530717958;  // 2 pi cut at 15 significant digits
constexpr double LargestSeconds = 59.9999999999999;

// True if minutes and seconds are within their limits; otherwise the user is told, with the angle's text.
bool CheckParts(double minutes, double seconds, std::string_view angle) {
    std::string_view fault;
    if (minutes < 0 || minutes > 59)
        fault = "'. Minutes portion must be positive and not exceed 59.";
    else if (seconds < 0 || seconds > LargestSeconds)
        fault = "'. Seconds portion must be positive and not exceed 59.9999999999999.";
    else
        return true;
    TellFault("Invalid Angle '" + std::string(angle) + std::string(fault), "Invalid Angle");
    return false;
}

// Degrees as a sign and a size; no 16 bits hold the size of -32768.
struct SignedDegrees {
    bool isNegative;
    double size;
};

SignedDegrees SignedDegreesOf(std::int16_t degrees) {
    const bool isNegative = degrees < 0;
    const int size = isNegative ? -degrees : degrees;
    return {isNegative, static_cast<double>(Integer16FromNumber(size))};
}

// The radians of parts whose limits have been checked. The detour over 15 digits is wanted: the radians are
// those of the rounded decimal degrees.
double RadiansOf(SignedDegrees degrees, double minutes, double seconds) {
    const double decimalDegrees = minutes / 60.0 + degrees.size + seconds / 3600.0;
    const double radians = RoundedAsGeneralText(decimalDegrees) * RadiansPerDegree;
    return degrees.isNegative ? radians * -1.0 : radians;
}

// The formatters work on degrees rounded to four decimals more than the smallest unit is printed with.
constexpr int SpareDecimals = 4;

double RoundedDegrees(double radians, int decimals) {
    return RoundedAsFixedText(radians * DegreesPerRadian, decimals + SpareDecimals);
}

// The degrees and the blank behind them.
std::string DegreesText(bool isNegative, double degrees, bool withSymbols) {
    std::string text(isNegative ? "-" : "");
    AppendFixed(text, degrees, 0);
    if (withSymbols) text += DegreeSign;
    text += ' ';
    return text;
}

double NotNegative(double value) { return value < 0 ? 0 : value; }

struct Parser {
    std::string_view format;
    double (*parse)(std::string_view);
};

constexpr Parser Parsers[] = {
    {AngleFormatDMS, Angles_GET_RadFromDMS},
    {AngleFormatPacked, Angles_GET_RadFromDMSPacked},
    {AngleFormatDegrees, Angles_GET_RadFromDegrees},
    {AngleFormatDM, Angles_GET_RadFromDM},
};

double TurnOver(double radians) { return radians * -1.0; }

double LatitudeDirection(double radians, std::string_view in, std::string_view out) {
    if (out != "N" && out != "S") return NoValue;
    return in == out ? radians : TurnOver(radians);
}

double LongitudeDirection(double radians, std::string_view in, std::string_view out) {
    if (radians < 0) radians += FullCircle;
    if (out == in) return radians;
    if (out == "-W") return in == "W" ? TurnOver(radians) : radians - FullCircle;
    return out == "E" || out == "W" ? FullCircle - radians : NoValue;
}

}  // namespace

double Angles_GET_Radians(std::string_view text, std::string_view angularFormat) {
    for (const Parser& parser : Parsers)
        if (parser.format == angularFormat) return parser.parse(text);
    TellFault("Unknown Angular Format. Can not convert angle to radians.", "Invalid Angular Format");
    return NoValue;
}

double Angles_GET_RadFromDMS(std::string_view text) {
    const std::vector<std::string_view> fields = Split(text, ' ');
    const SignedDegrees degrees = SignedDegreesOf(Integer16FromText(fields[0]));
    const double minutes = fields.size() > 1 ? Integer16FromText(fields[1]) : 0;
    const double seconds = fields.size() > 2 ? NumberFromText(fields[2]) : 0;
    return CheckParts(minutes, seconds, text) ? RadiansOf(degrees, minutes, seconds) : NoValue;
}

double Angles_GET_RadFromDMSPacked(std::string_view text) {
    const std::size_t point = text.find('.');
    std::int16_t degrees = 0;
    double minutes = 0;
    double seconds = 0;
    if (point == std::string_view::npos) {
        degrees = Integer16FromText(text);
    } else {
        const std::string_view behind = text.substr(point + 1);
        if (point > 0) degrees = Integer16FromText(text.substr(0, point));
        minutes = Integer16FromText(behind.substr(0, 2));
        if (behind.size() == 1) minutes *= 10;
        if (behind.size() >= 4) {
            std::string digits(behind.substr(2));
            digits.insert(2, 1, '.');
            seconds = NumberFromText(digits);
        }
    }
    if (!CheckParts(minutes, seconds, text)) return NoValue;
    return RadiansOf(SignedDegreesOf(degrees), minutes, RoundedAsGeneralText(seconds));
}

double Angles_GET_RadFromDM(std::string_view text) {
    const std::vector<std::string_view> fields = Split(text, ' ');
    const std::int16_t degrees = Integer16FromText(fields[0]);
    if (fields.size() < 2) RaiseFault(Fault::SubscriptOutOfRange);
    const double decimalMinutes = NumberFromText(fields[1]);
    const double minutes = Integer16FromNumber(std::trunc(decimalMinutes));
    const double seconds = (decimalMinutes - minutes) * 60.0;
    if (!CheckParts(minutes, seconds, text)) return NoValue;
    return RadiansOf(SignedDegreesOf(degrees), minutes, RoundedAsGeneralText(seconds));
}

double Angles_GET_RadFromDegrees(std::string_view text) {
    const std::optional<double> degrees = ParseNumber(text);
    return degrees ? *degrees * RadiansPerDegree : NoValue;
}

std::string Angles_GET_TextDegrees(double radians, int decimals, bool withSymbols) {
    std::string text = FixedText(radians * DegreesPerRadian, decimals);
    if (withSymbols) text += DegreeSign;
    return text;
}

std::string Angles_GET_TextDM(double radians, int decimals, bool withSymbols) {
    const double value = RoundedDegrees(radians, decimals);
    if (value == NoValue) return Angles_GET_TextDegrees(radians, decimals + SpareDecimals, false);
    const double positive = std::fabs(value);
    double degrees = std::trunc(positive);
    double minutes = (positive - degrees) * 60.0;
    if (RoundedAsFixedText(minutes, decimals) >= 60) {
        minutes = NotNegative(minutes - 60.0);
        degrees += 1;
    }
    std::string text = DegreesText(value < 0, degrees, withSymbols);
    AppendTwoDigitFixed(text, minutes, decimals);
    if (withSymbols) text += '\'';
    return text;
}

std::string Angles_GET_TextDMS(double radians, int decimals, bool withSymbols) {
    const double value = RoundedDegrees(radians, decimals);
    const double positive = std::fabs(value);
    double degrees = std::trunc(positive);
    const double decimalMinutes = (positive - degrees) * 60.0;
    double minutes = std::trunc(decimalMinutes);
    double seconds = (decimalMinutes - minutes) * 60.0;
    double printedSeconds = RoundedAsFixedText(seconds, decimals);
    if (printedSeconds >= 60.0) {
        seconds = NotNegative(seconds - 60.0);
        printedSeconds = RoundedAsFixedText(seconds, decimals);
        minutes += 1;
    }
    if (minutes >= 60) {
        minutes -= 60;
        degrees += 1;
    }
    std::string text = DegreesText(value < 0, degrees, withSymbols);
    if (minutes < 10) text += '0';
    AppendFixed(text, minutes, 0);
    if (withSymbols) text += '\'';
    text += ' ';
    AppendTwoDigitFixed(text, seconds, decimals);
    if (withSymbols) text += '"';
    return CheckParts(minutes, printedSeconds, text) ? text : NoValueText;
}

std::string Angles_GET_TextDMSPacked(double radians, int decimals, bool /*withSymbols*/) {
    std::string text = Angles_GET_TextDMS(radians, decimals, false);
    if (text == NoValueText) return text;
    text.erase(text.find('.'), 1);
    text.erase(text.rfind(' '), 1);
    text[text.find(' ')] = '.';
    return text;
}

double Angles_GET_Direction(double radians, std::string_view directionIn, std::string_view directionOut) {
    if (radians == NoValue) return NoValue;
    if (directionIn == "-W") return LongitudeDirection(TurnOver(radians), "W", directionOut);
    if (directionIn == "N" || directionIn == "S")
        return LatitudeDirection(radians, directionIn, directionOut);
    if (directionIn == "E" || directionIn == "W")
        return LongitudeDirection(radians, directionIn, directionOut);
    return NoValue;
}

}  // namespace tarvek
