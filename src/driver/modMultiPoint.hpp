#pragma once
// The road of a translation that carries its points to another coordinate system before they are written.

#include "surveyfiles/modSurveyRecords.hpp"

namespace tarvek {

// Puts the members that are named in place of what the input file says of its system, units in every point
// too.
void OverrideInputSystem(const CoordSystemRef& named);

// Fills the output tables from the input tables, carried to the system that has the named members, with
// Options.ComputeScale and its like as they stand. Members left out stay as the input's, but zone and unit do
// not pass between plane and geographic systems: a zone then has its own unit, the geographic system "DDD MM
// SS.ssss". True when the set is ready to be written. False, after the user was told, where the way between
// the two systems can not be gone; the output tables are then as they were.
bool ConvertInputToOutput(const CoordSystemRef& named);

}  // namespace tarvek
