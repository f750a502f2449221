#pragma once
// The road of a translation that carries its points to another coordinate system before they are written.

#include "surveyfiles/modSurveyRecords.hpp"

namespace tarvek {

// The system with its coordinate system and zone in the library's long form where they were short names:
// "SPC83" and "2600" become "SPC83 - State Plane 1983" and "2600 - Nebraska", "GCS" the geographic system.
// Other names stay.
CoordSystemRef WithLongNames(CoordSystemRef system);

// Fills the output tables from the input tables, carried to `output`, with Options.ComputeScale and its like
// as they stand. True when the set is ready to be written. False, after the user was told, where the way
// between the two systems has a stage that this program does not have; the output tables are then as they
// were.
bool ConvertInputToOutput(const CoordSystemRef& output);

}  // namespace tarvek
