#pragma once
// The pipeline of a coordinate conversion: a whole point list from one system to another, always by way of
// geographic positions.

#include "surveyfiles/modSurveyRecords.hpp"

namespace tarvek {

// Carries ConversionPoints from Options.InputSystem to Options.OutputSystem: plane to geographic, across the
// horizontal datums, through the vertical stage, geographic to plane. A system named "GCS - Geographic
// Coordinates" needs no projection on its side. False, after the user was told, at the first stage that can
// not be gone through; what ran before it stays in the points.
bool CoordConvert_Run();

// Notes the geoid model of a run that computed geoid heights in the header lines of its output.
void AddGeoidLine(ProjectHeader& header, const ConversionOptions& options);

}  // namespace tarvek
