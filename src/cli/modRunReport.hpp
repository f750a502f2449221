#pragma once
// What happened in a run, as JSON for scripts: what was read and written, the systems, the stages of a
// conversion that ran, and every message told.

#include <string>
#include <vector>

#include "cli/modAnsweringPrompts.hpp"
#include "surveyfiles/modSurveyRecords.hpp"

namespace tarvek {

// One side of a run.
struct FileReport {
    std::string file;
    std::string format;  // key of the file type
    std::size_t points = 0;
    std::size_t chains = 0;
    CoordSystemRef system;
};

struct RunReport {
    FileReport input;
    FileReport output;
    bool done = false;
};

// Writes the report, in UTF-8, to `path`, whose old content is replaced, or to standard output for "-".
void WriteRunReport(const std::string& path, const RunReport& report, const std::vector<ToldMessage>& told);

}  // namespace tarvek
