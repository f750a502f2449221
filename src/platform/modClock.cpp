#include "platform/modClock.hpp"

#include <cstdlib>
#include <ctime>

#include "platform/modNumbers.hpp"

namespace tarvek {
namespace {

constexpr double EndOfYear9999 = 253402300799;  // beyond it a date has no form

std::string Padded(int value, std::size_t width) {
    const std::string digits = std::to_string(value);
    return digits.size() < width ? std::string(width - digits.size(), '0') + digits : digits;
}

}  // namespace

DateTime Now() {
    std::tm parts{};
    const char* fixed = std::getenv("SOURCE_DATE_EPOCH");
    const auto seconds = fixed ? ParseNumber(fixed) : std::nullopt;
    if (seconds && *seconds >= 0 && *seconds <= EndOfYear9999) {
        const auto when = static_cast<std::time_t>(*seconds);
        gmtime_r(&when, &parts);
    } else {
        const std::time_t when = std::time(nullptr);
        localtime_r(&when, &parts);
    }
    return {parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday, parts.tm_hour, parts.tm_min, parts.tm_sec};
}

std::string DateText(const DateTime& when) {
    return Padded(when.month, 2) + '/' + Padded(when.day, 2) + '/' + Padded(when.year, 4);
}

std::string DateTimeText(const DateTime& when) {
    return DateText(when) + ' ' + std::to_string(when.hour) + ':' + Padded(when.minute, 2) + ':' +
           Padded(when.second, 2);
}

}  // namespace tarvek
