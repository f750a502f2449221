#include "library/modValueCheck.hpp"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

#include "platform/modNumbers.hpp"

namespace tarvek {
namespace {

bool IsDigits(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

}  // namespace

std::string Quoted(std::string_view value) { return "'" + std::string(value) + "'"; }

PackedAngle ParsePackedAngle(std::string_view value) {
    if (value.empty()) return {0, std::string(ValueMissing)};
    const bool hasSign = value.front() == '-' || value.front() == '+';
    const std::string_view digits = value.substr(hasSign ? 1 : 0);
    const std::size_t point = std::min(digits.find('.'), digits.size());
    const std::string_view whole = digits.substr(0, point);
    const std::string_view rest = digits.substr(std::min(point + 1, digits.size()));
    const bool hasPoint = point < digits.size();
    if (!IsDigits(whole) || !IsDigits(rest) || whole.size() > 3 || (hasPoint ? rest : whole).empty())
        return {0, Quoted(value) + " is no angle in the form DDD.MMSSssss."};
    // The reader drops a third digit that stands alone, and takes the sign from the degrees.
    if (rest.size() == 3) return {0, "The last digit of " + Quoted(value) + " is not read."};
    const double minutes = LeadingNumber(rest.substr(0, 2)) * (rest.size() == 1 ? 10 : 1);
    const double seconds =
        rest.size() < 4 ? 0
                        : LeadingNumber(std::string(rest.substr(2, 2)) + '.' + std::string(rest.substr(4)));
    if (minutes >= 60) return {0, "The minutes of " + Quoted(value) + " are above 59."};
    if (seconds >= 60) return {0, "The seconds of " + Quoted(value) + " are 60 or more."};
    const double degrees = LeadingNumber(whole);
    const bool isNegative = value.front() == '-';
    if (isNegative && degrees == 0 && minutes + seconds > 0)
        return {0, "The sign of " + Quoted(value) + " is not read, for the degrees are 0."};
    const double size = degrees + minutes / 60 + seconds / 3600;
    return {isNegative ? -size : size, {}};
}

std::string CheckAngle(std::string_view value, double limit) {
    const PackedAngle angle = ParsePackedAngle(value);
    if (!angle.fault.empty()) return angle.fault;
    if (std::fabs(angle.degrees) <= limit) return {};
    return Quoted(value) + " is beyond " + GeneralText(limit) + " degrees.";
}

std::string CheckNumber(std::string_view value) {
    if (value.empty()) return std::string(ValueMissing);
    return IsNumericText(value) ? std::string() : Quoted(value) + " is no number.";
}

std::string CheckPositiveNumber(std::string_view value) {
    std::string fault = CheckNumber(value);
    if (fault.empty() && NumberFromText(value) <= 0) fault = Quoted(value) + " is not above 0.";
    return fault;
}

std::string CheckShowFlag(std::string_view value) {
    std::string fault = CheckNumber(value);
    if (fault.empty() && std::fabs(NumberFromText(value)) > std::numeric_limits<std::int16_t>::max())
        fault = Quoted(value) + " is too large.";
    return fault;
}

std::string CheckSectionNamed(std::string_view value, const INIView& view, std::string_view file) {
    if (value.empty()) return std::string(ValueMissing);
    if (view.Find(value) != nullptr) return {};
    return Quoted(value) + " is no section of " + std::string(file) + ".";
}

}  // namespace tarvek
