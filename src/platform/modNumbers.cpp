#include "platform/modNumbers.hpp"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>

#include "platform/modFaults.hpp"
#include "platform/modText.hpp"

namespace tarvek {
namespace {

constexpr auto PowersOfTen = [] {
    std::array<std::uint64_t, 16> powers{1};
    for (std::size_t i = 1; i < powers.size(); ++i) powers[i] = powers[i - 1] * 10;
    return powers;
}();

// "00" to "99"; what std::to_chars of GCC 12 has in its place is laid on the stack anew by every call.
constexpr auto DigitPairs = [] {
    std::array<char, 200> pairs{};
    for (std::size_t i = 0; i < pairs.size(); ++i) {
        const std::size_t number = i / 2;
        pairs[i] = static_cast<char>('0' + (i % 2 == 0 ? number / 10 : number % 10));
    }
    return pairs;
}();

// Where the parts of a number at the beginning of a text lie, and its digits.
struct NumberShape {
    std::size_t unsignedStart = 0;  // behind the sign
    std::size_t end = 0;            // behind the last character of the number; 0 where there is none
    bool negative = false;
    bool hasExponent = false;
    std::size_t digits = 0;      // of the mantissa, leading zeros among them
    std::size_t decimals = 0;    // those of them behind the point
    std::uint64_t mantissa = 0;  // their value, where they are no more than 19
};

NumberShape FindNumber(std::string_view text) {
    NumberShape shape;
    std::size_t at = 0;
    if (at < text.size() && (text[at] == '+' || text[at] == '-')) shape.negative = text[at++] == '-';
    shape.unsignedStart = at;
    const auto skipDigits = [&] {
        const std::size_t from = at;
        while (at < text.size() && IsDigit(text[at])) ++at;
        return at - from;
    };
    const auto takeDigits = [&] {
        const std::size_t from = at;
        for (; at < text.size() && IsDigit(text[at]); ++at)
            shape.mantissa = shape.mantissa * 10 + static_cast<std::uint64_t>(text[at] - '0');
        return at - from;
    };
    shape.digits = takeDigits();
    if (at < text.size() && text[at] == '.') {
        ++at;
        shape.decimals = takeDigits();
        shape.digits += shape.decimals;
    }
    if (shape.digits == 0) return shape;
    shape.end = at;
    if (at < text.size() && (text[at] == 'E' || text[at] == 'e')) {
        ++at;
        if (at < text.size() && (text[at] == '+' || text[at] == '-')) ++at;
        shape.hasExponent = skipDigits() > 0;
        if (shape.hasExponent) shape.end = at;
    }
    return shape;
}

// True if the number, known to lie outside a double's range, is too small and not too large: the power of ten
// of its first digit that is not zero tells.
bool IsTooSmall(std::string_view number) {
    const std::size_t exponentAt = std::min(number.find_first_of("Ee"), number.size());
    const std::size_t point = std::min(number.find('.'), exponentAt);
    const std::size_t firstDigit = number.find_first_of("123456789");
    const double power = static_cast<double>(point) - static_cast<double>(firstDigit);
    bool negativeExponent = false;
    double exponent = 0;
    for (const char c : number.substr(exponentAt)) {
        if (c == '-') negativeExponent = true;
        if (IsDigit(c)) exponent = exponent * 10 + (c - '0');
    }
    return power + (negativeExponent ? -exponent : exponent) < 0;
}

// The value of a number of up to 15 digits without exponent: whole number and power of ten are exact doubles,
// and so their quotient is the nearest one. (W. D. Clinger, How to Read Floating Point Numbers Accurately,
// 1990.)
std::optional<double> ShortValueOf(const NumberShape& shape) {
    if (shape.hasExponent || shape.digits > 15) return std::nullopt;
    const double value =
        static_cast<double>(shape.mantissa) / static_cast<double>(PowersOfTen[shape.decimals]);
    return shape.negative ? -value : value;
}

std::optional<double> ValueOf(std::string_view text, const NumberShape& shape) {
    if (const std::optional<double> value = ShortValueOf(shape)) return value;
    const std::string_view number = text.substr(shape.unsignedStart, shape.end - shape.unsignedStart);
    double value = 0;
    const auto result = std::from_chars(number.data(), number.data() + number.size(), value);
    if (result.ec == std::errc::result_out_of_range) {
        if (!IsTooSmall(number)) return std::nullopt;
        value = 0;
    }
    return shape.negative ? -value : value;
}

template <class Integer>
Integer RoundToInteger(double value) {
    const double rounded = std::nearbyint(value);
    if (!(rounded >= std::numeric_limits<Integer>::min() && rounded <= std::numeric_limits<Integer>::max()))
        RaiseFault(Fault::Overflow);
    return static_cast<Integer>(rounded);
}

void AppendDigits(std::string& out, std::uint64_t whole, std::size_t decimals) {
    char digits[24];
    char* const end = digits + sizeof digits;
    char* start = end;
    for (; whole >= 100; whole /= 100) {
        start -= 2;
        std::memcpy(start, &DigitPairs[whole % 100 * 2], 2);
    }
    if (whole >= 10) {
        start -= 2;
        std::memcpy(start, &DigitPairs[whole * 2], 2);
    } else {
        *--start = static_cast<char>('0' + whole);
    }

    const auto count = static_cast<std::size_t>(end - start);
    if (count > decimals) {
        out.append(start, count - decimals);
        if (decimals == 0) return;
        out += '.';
        out.append(end - decimals, decimals);
    } else {
        out += "0.";
        out.append(decimals - count, '0');
        out.append(start, count);
    }
}

// The fast road for the numbers of a survey: |value| * 10^decimals, formed exactly in 128 bits and rounded
// there to the nearest whole number, ties to even. Nothing where the value is too large or the decimals too
// many for that.
std::optional<std::uint64_t> ScaledExactly(double value, std::size_t decimals) {
    if (decimals >= PowersOfTen.size()) return std::nullopt;
    const auto bits = std::bit_cast<std::uint64_t>(value);
    const int exponent = static_cast<int>(bits >> 52 & 0x7FF) - 1075;
    if (exponent > -1 || exponent < -1074) return std::nullopt;  // 2^52 and more, subnormal or not finite
    const std::uint64_t mantissa = (bits & 0xFFFFFFFFFFFFFull) | 0x10000000000000ull;
    __extension__ using Wide = unsigned __int128;
    const Wide scaled = static_cast<Wide>(mantissa) * PowersOfTen[decimals];
    const int shift = -exponent;
    if (shift >= 110) return 0;  // below 2^(53+50-110)
    const Wide kept = scaled >> shift;
    if (kept > 9'999'999'999'999'999'999ull) return std::nullopt;
    const auto whole = static_cast<std::uint64_t>(kept);
    const Wide half = Wide{1} << (shift - 1);
    const Wide rest = scaled - (kept << shift);
    return rest > half || (rest == half && (whole & 1) != 0) ? whole + 1 : whole;
}

bool AppendFixedExactly(std::string& out, double value, std::size_t decimals) {
    const std::optional<std::uint64_t> whole = ScaledExactly(value, decimals);
    if (!whole) return false;
    if (value < 0 && *whole != 0) out += '-';
    AppendDigits(out, *whole, decimals);
    return true;
}

// The nearest double to the value rounded to so many decimals, which is the quotient of two whole numbers
// that doubles hold. Nothing where they do not.
std::optional<double> RoundedExactly(double value, std::size_t decimals) {
    constexpr std::uint64_t LargestExact = std::uint64_t{1} << 53;
    const std::optional<std::uint64_t> whole = ScaledExactly(value, decimals);
    if (!whole || *whole > LargestExact) return std::nullopt;
    const double rounded = static_cast<double>(*whole) / static_cast<double>(PowersOfTen[decimals]);
    return value < 0 && *whole != 0 ? -rounded : rounded;
}

// Of a value from 1 to less than 10^15.
std::size_t WholeDigits(double positive) {
    constexpr double Powers[] = {1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7, 1e8,
                                 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    std::size_t digits = 1;
    while (positive >= Powers[digits - 1]) ++digits;
    return digits;
}

// The fast road to 15 significant digits for values from 1 on, whose plain form needs no exponent.
bool AppendGeneralExactly(std::string& out, double value) {
    const double positive = std::fabs(value);
    if (!(positive >= 1 && positive < 1e15)) return false;
    const std::size_t wholeDigits = WholeDigits(positive);
    const std::size_t start = out.size();
    if (!AppendFixedExactly(out, value, 15 - wholeDigits)) return false;
    const std::size_t sign = out[start] == '-' ? 1 : 0;
    if (wholeDigits == 15) {
        if (out.size() - start - sign == 15) return true;
        out.resize(start);  // rounded up to a sixteenth digit
        return false;
    }
    out.erase(out.find_last_not_of('0') + 1);
    if (out.back() == '.') out.pop_back();
    return true;
}

}  // namespace

std::optional<double> ParseNumber(std::string_view text) {
    text = Trim(text);
    const NumberShape shape = FindNumber(text);
    if (shape.end == 0 || shape.end != text.size()) return std::nullopt;
    return ValueOf(text, shape);
}

double NumberFromText(std::string_view text) {
    const std::optional<double> value = ParseNumber(text);
    if (!value) RaiseFault(Fault::TypeMismatch);
    return *value;
}

std::int16_t Integer16FromText(std::string_view text) { return Integer16FromNumber(NumberFromText(text)); }
std::int32_t Integer32FromText(std::string_view text) { return Integer32FromNumber(NumberFromText(text)); }
std::int16_t Integer16FromNumber(double value) { return RoundToInteger<std::int16_t>(value); }
std::int32_t Integer32FromNumber(double value) { return RoundToInteger<std::int32_t>(value); }

float SingleFromNumber(double value) {
    constexpr double FirstTooLarge = 0x1.FFFFFFp127;  // half a unit above the largest float
    if (!(std::fabs(value) < FirstTooLarge)) RaiseFault(Fault::Overflow);
    return static_cast<float>(value);
}

bool BooleanFromText(std::string_view text) {
    if (EqualsIgnoringCase(Trim(text), "True")) return true;
    if (EqualsIgnoringCase(Trim(text), "False")) return false;
    return NumberFromText(text) != 0;
}

double LeadingNumber(std::string_view text) {
    text = TrimLeft(text);
    const NumberShape shape = FindNumber(text);
    return shape.end == 0 ? 0 : ValueOf(text, shape).value_or(0);
}

std::string GeneralText(double value) {
    RequireFinite(value);
    if (value == 0) return "0";
    if (std::string text; AppendGeneralExactly(text, value)) return text;
    char scientific[32];
    const auto result = std::to_chars(scientific, scientific + sizeof scientific, std::fabs(value),
                                      std::chars_format::scientific, 14);
    const std::string_view text(scientific, static_cast<std::size_t>(result.ptr - scientific));
    const std::size_t mark = text.find('e');
    const int exponent = static_cast<int>(LeadingNumber(text.substr(mark + 1)));
    std::string digits = text[0] + std::string(text.substr(2, mark - 2));
    digits.erase(digits.find_last_not_of('0') + 1);
    const int count = static_cast<int>(digits.size());

    std::string out = value < 0 ? "-" : "";
    if (exponent >= 15 || count - 1 - exponent > 15) {
        out += digits[0];
        if (count > 1) out += '.' + digits.substr(1);
        const std::string power = std::to_string(std::abs(exponent));
        return out + (exponent < 0 ? "E-" : "E+") + (power.size() < 2 ? "0" : "") + power;
    }
    if (exponent < 0) return out + "0." + std::string(static_cast<std::size_t>(-exponent - 1), '0') + digits;
    const auto whole = static_cast<std::size_t>(exponent) + 1;
    if (digits.size() < whole) digits.append(whole - digits.size(), '0');
    out += digits.substr(0, whole);
    if (digits.size() > whole) out += '.' + digits.substr(whole);
    return out;
}

void AppendFixed(std::string& out, double value, int decimals) {
    RequireFinite(value);
    const auto places = static_cast<std::size_t>(std::max(decimals, 0));
    if (AppendFixedExactly(out, value, places)) return;
    const std::size_t start = out.size();
    out.resize(start + 320 + places);  // 309 digits of the largest double, sign and point
    const auto end = std::to_chars(out.data() + start, out.data() + out.size(), value,
                                   std::chars_format::fixed, static_cast<int>(places))
                         .ptr;
    out.resize(static_cast<std::size_t>(end - out.data()));
    const bool isZero = out.find_first_of("123456789", start) == std::string::npos;
    if (isZero && out[start] == '-') out.erase(start, 1);
}

std::string FixedText(double value, int decimals) {
    std::string text;
    AppendFixed(text, value, decimals);
    return text;
}

double RoundedAsFixedText(double value, int decimals) {
    const auto rounded = RoundedExactly(value, static_cast<std::size_t>(std::max(decimals, 0)));
    return rounded ? *rounded : NumberFromText(FixedText(value, decimals));
}

double RoundedAsGeneralText(double value) {
    const double positive = std::fabs(value);
    if (positive >= 1 && positive < 1e15) {
        const std::optional<double> rounded = RoundedExactly(value, 15 - WholeDigits(positive));
        if (rounded) return *rounded;
    }
    return NumberFromText(GeneralText(value));
}

void AppendTwoDigitFixed(std::string& out, double value, int decimals) {
    const std::size_t start = out.size();
    AppendFixed(out, value, decimals);
    const std::size_t first = start + (out[start] == '-' ? 1 : 0);
    const std::size_t point = std::min(out.find('.', start), out.size());
    if (point - first < 2) out.insert(first, 1, '0');
    if (decimals <= 0) out += '.';
}

}  // namespace tarvek
