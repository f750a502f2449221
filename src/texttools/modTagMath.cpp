#include "texttools/modTagMath.hpp"

#include <cmath>

#include "coordmath/modAngles.hpp"
#include "platform/modFaults.hpp"
#include "platform/modNumbers.hpp"
#include "platform/modPrompts.hpp"
#include "platform/modText.hpp"
#include "surveyfiles/modSurveyRecords.hpp"

namespace tarvek {
namespace {

struct TagClass {
    std::string_view mathType;
    std::string_view tags;  // two characters each, parted by blanks
};

constexpr TagClass TagClasses[] = {
    {"Bearing", "BR"},
    {"PointID", "BS OS PN RN FG OD"},
    {"Angle", "AZ CA DA DC HZ LG LT VT"},
    {"Seconds", "CE EH EV VE"},
    {"Math",
     "AA AR BP CF DD DH DI DP DS DV DX DY DZ E1 E2 ED EF EX FM HE HG HH HO HT IH L1 L2 LC LN LO MO NS OF OO "
     "PC PM PO R1 R2 R3 RA RO RR S1 S2 S3 SE SF SH SS SX SY SZ TE TL TN VH VO VV W3 WD XC XE XX YC YE YY ZC "
     "ZE ZZ"},
};

// The circle, cut at 15 significant digits, and its parts; not to be computed from pi.
constexpr double Pi = 3.14159265358979;
constexpr double TwoPi = 6.28318530717958;
constexpr double ThreeHalvesPi = 4.712388980384685;
constexpr double HalfPi = 1.570796326794895;

constexpr std::size_t LongestPointName = 8;

double Combined(double value, std::string_view mathOperator, double operand) {
    if (mathOperator == "+") return RequireFinite(value + operand);
    if (mathOperator == "-") return RequireFinite(value - operand);
    if (mathOperator == "*") return RequireFinite(value * operand);
    if (operand == 0) RaiseFault(Fault::DivisionByZero);
    return RequireFinite(value / operand);
}

// While the angle is greater than a full circle, a full circle is taken off. Between two powers of two every
// such subtraction is rounded alike and takes off the same amount, so the steps down to the lower power are
// made at once. An angle so large that nothing comes off would have no end.
double LessFullCircles(double radians) {
    constexpr double FirstForMany = 64;
    while (radians > TwoPi) {
        const double less = radians - TwoPi;
        const double step = radians - less;
        if (step == 0) RaiseFault(Fault::Overflow);
        radians = less;
        if (less < FirstForMany) continue;
        const double lowerPower = std::exp2(std::ilogb(less));
        const double steps = std::floor((less - lowerPower) / step) - 1;
        if (steps > 0) radians = less - steps * step;
    }
    return radians;
}

struct Arithmetic {
    std::string_view value;
    double number;  // that the value is, in the classes where it must be one
    std::string_view mathOperator;
    double operand;
};

std::string NumberMath(const Arithmetic& math) {
    return GeneralText(Combined(math.number, math.mathOperator, math.operand));
}

double RadiansFromSeconds(double seconds) { return seconds / 3600 * RadiansPerDegree; }

std::string SecondsMath(const Arithmetic& math) {
    const double value = RadiansFromSeconds(math.number);
    const double result = Combined(value, math.mathOperator, RadiansFromSeconds(math.operand));
    return FixedText(result * DegreesPerRadian * 3600, 3);
}

std::string AngleMath(const Arithmetic& math) {
    const double value = Angles_GET_RadFromDMSPacked(math.value);
    const double operand = Angles_GET_RadFromDMSPacked(GeneralText(math.operand));
    if (!HasValue(value) || !HasValue(operand)) return NoValueText;
    const double result = Combined(value, math.mathOperator, operand);
    return Angles_GET_TextDMSPacked(LessFullCircles(result), 0);
}

// The azimuth of a bearing in a quadrant is origin + sense * bearing.
struct Quadrant {
    char first;
    char second;
    double above;  // the azimuths of the quadrant lie strictly between these two
    double below;
    double origin;
    double sense;
};

constexpr Quadrant Quadrants[] = {
    {'N', 'W', ThreeHalvesPi, TwoPi, TwoPi, -1},
    {'S', 'W', Pi, ThreeHalvesPi, Pi, 1},
    {'S', 'E', HalfPi, Pi, Pi, -1},
    {'N', 'E', -HUGE_VAL, HalfPi, 0, 1},
};

// The azimuth of a bearing; letters of no quadrant are taken for N and E.
double AzimuthOf(char first, char second, double bearing) {
    for (const Quadrant& quadrant : Quadrants)
        if (quadrant.first == first && quadrant.second == second)
            return quadrant.origin + quadrant.sense * bearing;
    return bearing;
}

std::string BearingText(char first, char second, double bearing) {
    return first + Angles_GET_TextDMSPacked(bearing, 0) + second;
}

// An azimuth on one of the four cardinal directions lies in no quadrant: it keeps the letters of the value,
// and the azimuth itself stands between them.
std::string BearingMath(const Arithmetic& math) {
    const char first = math.value.front();
    const char second = math.value.back();
    const std::string_view between = math.value.size() < 2 ? "" : math.value.substr(1, math.value.size() - 2);
    const double bearing = Angles_GET_RadFromDMSPacked(between);
    const double operand = Angles_GET_RadFromDMSPacked(GeneralText(math.operand));
    if (!HasValue(bearing) || !HasValue(operand)) return NoValueText;
    const double azimuth =
        LessFullCircles(Combined(AzimuthOf(first, second, bearing), math.mathOperator, operand));
    for (const Quadrant& quadrant : Quadrants)
        if (quadrant.above < azimuth && azimuth < quadrant.below)
            return BearingText(quadrant.first, quadrant.second, quadrant.sense * (azimuth - quadrant.origin));
    return BearingText(first, second, azimuth);
}

// Where a text of digits, a point, digits, a sign and blanks, read from the end, has its beginning.
std::size_t NumericTailShape(std::string_view name) {
    std::size_t start = name.size();
    const auto skipDigits = [&] {
        while (start > 0 && IsDigit(name[start - 1])) --start;
    };
    skipDigits();
    if (start == name.size()) return start;
    if (start > 0 && name[start - 1] == '.') --start;
    skipDigits();
    if (start > 0 && (name[start - 1] == '+' || name[start - 1] == '-')) --start;
    while (start > 0 && name[start - 1] == ' ') --start;
    return start;
}

// Where the longest run of last characters begins that is numeric, as every shorter run is. An exponent never
// gets into it: in "1E5" the run ends before "E5", which is no number.
std::size_t NumericTailStart(std::string_view name) {
    constexpr std::size_t DigitsOfLargestNumber = 309;
    std::size_t start = NumericTailShape(name);
    if (name.size() - start < DigitsOfLargestNumber || IsNumericText(name.substr(start))) return start;
    // Hundreds of digits, too large a number: each digit less makes it smaller, down to the last one.
    std::size_t numeric = name.size() - 1;
    while (start + 1 < numeric) {
        const std::size_t middle = start + (numeric - start) / 2;
        (IsNumericText(name.substr(middle)) ? numeric : start) = middle;
    }
    return numeric;
}

std::string PointNameMath(const Arithmetic& math) {
    const std::size_t tail = NumericTailStart(math.value);
    if (tail == math.value.size()) return std::string(math.value);
    const double number = Integer32FromText(math.value.substr(tail));
    const double result = Combined(number, math.mathOperator, math.operand);
    std::string name(math.value.substr(0, tail));
    name += std::to_string(Integer32FromNumber(result));
    if (name.size() <= LongestPointName) return name;
    TellFault("Point ID Assignment Error.", "Invalid Point ID");
    return std::string(math.value);
}

struct ClassMath {
    std::string_view mathType;
    bool needsNumber;
    std::string (*apply)(const Arithmetic& math);
};

constexpr ClassMath ClassMaths[] = {
    {"Math", true, NumberMath},      {"Seconds", true, SecondsMath},    {"Angle", true, AngleMath},
    {"Bearing", false, BearingMath}, {"PointID", false, PointNameMath},
};

}  // namespace

std::string_view ClassifyMathTag(std::string_view tag) {
    const std::string_view firstTwo = tag.substr(0, 2);
    if (firstTwo.size() < 2) return {};
    for (const TagClass& row : TagClasses)
        for (std::size_t at = 0; at < row.tags.size(); at += 3)
            if (row.tags.substr(at, 2) == firstTwo) return row.mathType;
    return {};
}

std::optional<std::string> TryTagMath(std::string_view value, double mathValue, std::string_view mathOperator,
                                      std::string_view mathType) {
    for (const ClassMath& row : ClassMaths) {
        if (row.mathType != mathType) continue;
        const std::optional<double> number = row.needsNumber ? ParseNumber(value) : NoValue;
        if (!number) return std::nullopt;
        if (value.empty() || value == NoValueText) break;
        return row.apply({value, *number, mathOperator, mathValue});
    }
    return std::string(value);
}

std::string ApplyTagMath(std::string_view value, double mathValue, std::string_view mathOperator,
                         std::string_view mathType) {
    if (value.empty()) return {};
    const std::optional<std::string> result = TryTagMath(value, mathValue, mathOperator, mathType);
    if (!result) RaiseFault(Fault::TypeMismatch);
    return *result;
}

}  // namespace tarvek
