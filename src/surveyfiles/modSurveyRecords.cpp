#include "surveyfiles/modSurveyRecords.hpp"

namespace tarvek {

Word PointRecord::PointGeometry() {
    static const Word point("P");
    return point;
}

Word PointRecord::North() {
    static const Word north("N");
    return north;
}

Word PointRecord::West() {
    static const Word west("W");
    return west;
}

SurveyTables& Tables() {
    static SurveyTables tables;
    return tables;
}

void InitPoint(PointRecord& point) { point = PointRecord(); }

void ClearInputTables() {
    SurveyTables& tables = Tables();
    tables.InputHeader = {};
    tables.InputPoints = {};
    tables.InputChains = {};
}

void CopyInputToOutput() {
    SurveyTables& tables = Tables();
    tables.OutputHeader = tables.InputHeader;
    tables.OutputPoints = CopyAllocated(tables.InputPoints);
    tables.OutputChains = tables.InputChains;
}

}  // namespace tarvek
