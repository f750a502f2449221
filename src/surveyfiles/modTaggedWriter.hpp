#pragma once
// What the writers of the tagged survey files share: the unit of the file, the header and the lines of a
// point. A file family differs from another only in the opening and coordinate lines of its points.

#include <string>

#include "platform/modTextFileOut.hpp"
#include "surveyfiles/modSurveyRecords.hpp"

namespace tarvek {

struct WriterFamily {
    // Prints the activity line, and the coordinate lines behind the point's name.
    void (*printActivity)(TextFileOut&, const PointRecord&) = nullptr;
    void (*printCoordinates)(TextFileOut&, const PointRecord&) = nullptr;
    bool printsGeometry = false;         // "GM:"
    bool printsGroupNumber = false;      // the SRV group, under a second "GR:"
    bool printsChains = false;           // the chain block behind the points, where there are chains
    bool locatesGeographicSets = false;  // a geographic set gets "LT:" and "LG:" whatever the options say
};

// Prints OutputHeader and OutputPoints; true when the file is written. Values are carried to the unit of the
// file first and kept so in OutputPoints, and the header's horizontal unit becomes its letter. A set
// that was converted and is geographic, or has one unit for plane and heights, is told about the angle format
// of the file ("Angle Format"). A fault of the file system passes on, the old file kept.
bool WriteTaggedFile(const std::string& path, const WriterFamily& family);

// A line of a tag and a number with a fixed count of decimals.
void PrintNumber(TextFileOut& file, std::string_view tag, double value, int decimals);

}  // namespace tarvek
