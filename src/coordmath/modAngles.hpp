#pragma once
// Angle text into radians, radians into angle text, and the direction conventions of latitudes and
// longitudes.
//
// An angle value is a 64-bit float in radians; -99999 stands for no value, and "-99999" is its text. A parser
// gives -99999 and a formatter "-99999" on every refusal, after the user was told where a message is named. A
// field that is no number, a degrees field beyond 16 bits and a missing minutes field are faults of the run
// time and pass on.

#include <string>
#include <string_view>

namespace tarvek {

// The keys of the four formats.
inline constexpr std::string_view AngleFormatDMS = "DDD MM SS.ssss";
inline constexpr std::string_view AngleFormatPacked = "DDD.MMSSssss";
inline constexpr std::string_view AngleFormatDegrees = "DDD.dddddd";
inline constexpr std::string_view AngleFormatDM = "DDD MM.mmmm";

// The only factors between degrees and radians; they are not to be computed from pi.
inline constexpr double RadiansPerDegree = 0.017453292519943278;
inline constexpr double DegreesPerRadian = 57.29577951308238;

// Parses `text` by the named format. An unknown format is told: "Unknown Angular Format. ..." / "Invalid
// Angular Format".
double Angles_GET_Radians(std::string_view text, std::string_view angularFormat);

// Degrees, minutes and seconds parted by single blanks; minutes and seconds may be missing. The sign is that
// of the degrees as an integer, so "-0 30 00" is positive. Minutes beyond 0 to 59 and seconds beyond 0
// to 59.9999999999999 are told under "Invalid Angle".
double Angles_GET_RadFromDMS(std::string_view text);
// Degrees, a point, two digits of minutes, two of seconds, decimals of seconds. One digit behind the point is
// tens of minutes; a third digit alone is dropped. Sign and messages as above.
double Angles_GET_RadFromDMSPacked(std::string_view text);
// Degrees and decimal minutes parted by a blank; both are required. Sign and messages as above.
double Angles_GET_RadFromDM(std::string_view text);
// Decimal degrees; -99999 with no message for a text that is no number.
double Angles_GET_RadFromDegrees(std::string_view text);

// `decimals` counts the digits behind the point of the smallest unit; `withSymbols` adds the degree sign
// (byte 176) and the marks of minutes and seconds.
std::string Angles_GET_TextDegrees(double radians, int decimals, bool withSymbols);
std::string Angles_GET_TextDM(double radians, int decimals, bool withSymbols);
std::string Angles_GET_TextDMS(double radians, int decimals, bool withSymbols);
// The packed form has no symbols; it takes the argument for the sake of one signature.
std::string Angles_GET_TextDMSPacked(double radians, int decimals, bool withSymbols = false);

// Carries a value from one direction convention to another: "N" and "S" for latitudes, "E" (east positive),
// "W" (west positive) and "-W" (west negative) for longitudes. "E" to "-W" keeps the sense of 0 to 360
// degrees and takes off a full circle, "W" to "-W" only changes the sign. -99999, with no message, for other
// pairs and for -99999 itself.
double Angles_GET_Direction(double radians, std::string_view directionIn, std::string_view directionOut);

}  // namespace tarvek
