#pragma once
// Input tables that a reader finds filled, and that its refusal must leave as they were.

#include "fuzz/fuzzSupport.hpp"
#include "surveyfiles/modSurveyRecords.hpp"

namespace tarvek::fuzz {

inline void FillInput() {
    Tables() = {};
    Tables().InputHeader.PR = "PR:before";
    PointRecord point;
    point.PN = "BEFORE";
    Tables().InputPoints.Append(point);
}

inline void RequireInputAsBefore() {
    const SurveyTables& tables = Tables();
    Require(tables.InputHeader.PR == "PR:before", "a refusal keeps the header");
    Require(tables.InputPoints.size() == 1 && tables.InputPoints[0].PN == "BEFORE",
            "a refusal keeps the points");
}

}  // namespace tarvek::fuzz
