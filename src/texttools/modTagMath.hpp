#pragma once
// Arithmetic on the value of a tagged item, by the kind of quantity that the tag holds: a plain number,
// seconds of arc, a packed angle, a quadrant bearing or a point name.

#include <optional>
#include <string>
#include <string_view>

namespace tarvek {

// The math class of a tag, told by its first two characters: "Bearing", "PointID", "Angle", "Seconds" or
// "Math"; empty for a tag on which there is no arithmetic.
std::string_view ClassifyMathTag(std::string_view tag);

// `value` combined with `mathValue` by `mathOperator` ("+", "-", "*" or "/"), in that order, as the class
// `mathType` asks. The empty value and "-99999" come back unchanged.
//
// Seconds, angles and bearings are combined in radians, both sides: a factor of 2 on seconds is 2 seconds of
// arc, not 2. The operand of an angle or bearing is the packed angle that its digits are (1.3 is 1 degree 30
// minutes). An angle that can not be read is told by its parser and gives "-99999". A point name of more than
// 8 characters is told ("Point ID Assignment Error." / "Invalid Point ID") and the old name kept; a name with
// no number at its end comes back unchanged.
//
// Faults: Fault::TypeMismatch for a number, seconds or an angle that is not numeric, Fault::DivisionByZero
// for a divisor of zero, Fault::Overflow for a result that is not finite, a point number beyond 32 bits and
// an angle too large for full circles to be taken off, and those of the angle parser.
std::string ApplyTagMath(std::string_view value, double mathValue, std::string_view mathOperator,
                         std::string_view mathType);
// The same for a value that nobody has looked at yet: nothing where it must be numeric and is not. The empty
// value is not numeric.
std::optional<std::string> TryTagMath(std::string_view value, double mathValue, std::string_view mathOperator,
                                      std::string_view mathType);

}  // namespace tarvek
