#pragma once
// What the choice of a coordinate conversion must hold before it is run.

#include "surveyfiles/modSurveyRecords.hpp"

namespace tarvek {

// True where both systems are told well enough to be computed. Otherwise the first thing that is missing is
// told under its own caption ("You must specify the input Zone." / "Zone Required").
bool CheckConversionChoice(const ConversionOptions& options);

}  // namespace tarvek
