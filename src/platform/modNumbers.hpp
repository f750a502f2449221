#pragma once
// Numbers in text, both ways, the same in every locale: the decimal separator is a point and nothing is
// grouped.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tarvek {

// The whole-text numeric test with its value: blanks, an optional sign, digits with at most one point and at
// least one digit, an optional exponent ("E" or "e"), blanks. Nothing else is a number, nor is a value beyond
// the range of a double; a value too small for a double is zero.
std::optional<double> ParseNumber(std::string_view text);
inline bool IsNumericText(std::string_view text) { return ParseNumber(text).has_value(); }

// The value of a numeric text; Fault::TypeMismatch for any other text.
double NumberFromText(std::string_view text);
// Rounded to the nearest whole number, ties to even. Fault::TypeMismatch as above, Fault::Overflow beyond the
// type.
std::int16_t Integer16FromText(std::string_view text);
std::int32_t Integer32FromText(std::string_view text);
std::int16_t Integer16FromNumber(double value);
std::int32_t Integer32FromNumber(double value);
// The nearest 32-bit float; Fault::Overflow beyond its range.
float SingleFromNumber(double value);
// "True" or "False" in any case, or a number that is zero or not; Fault::TypeMismatch otherwise.
bool BooleanFromText(std::string_view text);
// The value of the longest number at the text's beginning, behind blanks; 0 where there is none.
double LeadingNumber(std::string_view text);

// General rendering: up to 15 significant digits, no trailing zeros; an exponent ("1E+20", "1.5E-16") only
// where the plain form would need more than 15 digits before or behind the point. Fault::Overflow for a value
// that is not finite.
std::string GeneralText(double value);

// Exactly `decimals` digits behind the point, the correctly rounded decimal of the double (exact halves to
// even), a leading zero, and no minus sign on a value that rounds to zero. No point when `decimals` is 0.
// Fault::Overflow for a value that is not finite.
void AppendFixed(std::string& out, double value, int decimals);
std::string FixedText(double value, int decimals);
// The same under a pattern of two zeros, a point and `decimals` zeros ("00.00"): at least two digits before
// the point, and the point stands also when `decimals` is 0.
void AppendTwoDigitFixed(std::string& out, double value, int decimals);

// What NumberFromText makes of those texts, without the detour: the value of GeneralText, of FixedText.
double RoundedAsGeneralText(double value);
double RoundedAsFixedText(double value, int decimals);

}  // namespace tarvek
