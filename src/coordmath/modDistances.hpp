#pragma once
// The only conversion between the linear units of the program: meters, U.S. survey feet and international
// feet, each told by its long name or its letter ("Meters" or "M", "U.S. Survey Feet" or "F", "International
// Feet" or "I").

#include <string_view>

#include "surveyfiles/modSurveyRecords.hpp"

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

// The same for many values, with the units looked up once.
class DistanceConversion {
  public:
    DistanceConversion(std::string_view unitFrom, std::string_view unitTo);

    double operator()(double value) const { return isKnown_ && HasValue(value) ? value * factor_ : NoValue; }

  private:
    double factor_ = 1;    // also where the unit to convert from is unknown
    bool isKnown_ = true;  // false where there is no way from a known unit
};

// The same for the records of a list, whose units seldom change from one to the next.
class RecordDistances {
  public:
    explicit RecordDistances(std::string_view unitTo);

    // The unit that it converts to.
    Word Unit() const { return unitTo_; }
    double Convert(double value, Word unitFrom) {
        if (!(unitFrom == unitFrom_)) Begin(unitFrom);
        return conversion_(value);
    }
    // Rounded to 32 bits; Fault::Overflow beyond their range.
    float Convert(float value, Word unitFrom);

  private:
    void Begin(Word unitFrom);

    Word unitTo_;
    Word unitFrom_;
    DistanceConversion conversion_;
};

}  // namespace tarvek
