// Any text as a number, against the C library: what is accepted has the same value there, and what is printed
// has the same digits.

#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "fuzz/fuzzSupport.hpp"
#include "platform/modNumbers.hpp"

namespace {

using namespace tarvek;
using fuzz::Require;

void RequireSameValue(std::string_view text, double value) {
    const std::string copy(text);
    char* end = nullptr;
    const double other = std::strtod(copy.c_str(), &end);
    while (*end == ' ') ++end;
    Require(end == copy.c_str() + copy.size(), "the C library takes the whole text");
    // A value too small for a normal double may be rounded to zero.
    Require(value == other || (value == 0 && std::fabs(other) < 1e-300),
            "the value is that of the C library");
}

void RequireSameDigits(double value) {
    for (int decimals = 0; decimals <= 12; ++decimals) {
        char digits[400];
        std::snprintf(digits, sizeof digits, "%.*f", decimals, value);
        std::string expected = digits;
        const bool isZero = expected.find_first_of("123456789") == std::string::npos;
        if (isZero && expected.front() == '-') expected.erase(0, 1);
        Require(FixedText(value, decimals) == expected, "fixed decimals are those of the C library");
    }
}

void RequireReadBack(double value) {
    const std::string general = GeneralText(value);
    const auto again = ParseNumber(general);
    // A value within the last digits of the largest double may be rounded up beyond it.
    if (!again) return Require(std::fabs(value) > 1.79e308, "a general rendering is a number");
    // Half a unit of the fifteenth digit, and the rounding of the comparison itself.
    Require(std::fabs(*again - value) <= std::fabs(value) * 5.5e-15, "a general rendering is read back");
}

void RequireTypesOrFaults(std::string_view text) {
    fuzz::Succeeds([&] { return Integer16FromText(text) != 0; });
    fuzz::Succeeds([&] { return Integer32FromText(text) != 0; });
    fuzz::Succeeds([&] { return BooleanFromText(text); });
    Require(std::isfinite(LeadingNumber(text)), "a leading number is finite");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text = fuzz::TextOf(data, size);
    RequireTypesOrFaults(text);
    const auto value = ParseNumber(text);
    Require(IsNumericText(text) == value.has_value(), "the test and the value agree");
    if (!value) return 0;
    Require(std::isfinite(*value), "a number is finite");
    Require(LeadingNumber(text) == *value, "a number leads its own text");
    RequireSameValue(text, *value);
    RequireSameDigits(*value);
    RequireReadBack(*value);
    return 0;
}
