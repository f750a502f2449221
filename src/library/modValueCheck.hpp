#pragma once
// What can be wrong with a single value of the library's files. Each check gives a sentence for the user, or
// the empty text where nothing is wrong.

#include <string>
#include <string_view>

#include "library/modINIText.hpp"

namespace tarvek {

inline constexpr std::string_view ValueMissing = "The value is missing.";

// `value` between quotation marks, for such a sentence.
std::string Quoted(std::string_view value);

std::string CheckNumber(std::string_view value);
std::string CheckPositiveNumber(std::string_view value);
// A number that fits 16 bits.
std::string CheckShowFlag(std::string_view value);
// The name of a section of `view`, the file of that name.
std::string CheckSectionNamed(std::string_view value, const INIView& view, std::string_view file);

// An angle in packed form, DDD.MMSSssss, in degrees.
struct PackedAngle {
    double degrees = 0;
    std::string fault;  // empty where the angle is read as it is meant
};
PackedAngle ParsePackedAngle(std::string_view value);
// An angle in packed form between -limit and limit degrees.
std::string CheckAngle(std::string_view value, double limit);

}  // namespace tarvek
