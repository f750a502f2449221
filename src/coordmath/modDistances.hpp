#pragma once
// The only conversion between the linear units of the program: meters, U.S. survey feet and international
// feet, each told by its long name or its letter ("Meters" or "M", "U.S. Survey Feet" or "F", "International
// Feet" or "I").

#include <string_view>

namespace tarvek {

// The long name of the unit that a letter stands for; empty for any other letter.
std::string_view Distances_GET_UnitName(char letter);
// The letter of a unit told by its long name; empty for any other text.
std::string_view Distances_GET_UnitLetter(std::string_view name);

// `value` carried from one unit to another. The same text twice gives the value unchanged, and so does an
// unknown `unitFrom`; -99999 stays -99999; a known `unitFrom` with an unknown `unitTo` gives -99999. The
// factors between the feet, and from meters to international feet, are rounded ones, so a trip there and back
// is not exact.
double Distances_GET_Convert(double value, std::string_view unitFrom, std::string_view unitTo);

}  // namespace tarvek
