#include "surveyfiles/modTarvekFiles.hpp"

#include "surveyfiles/modTaggedReader.hpp"
#include "surveyfiles/modTaggedWriter.hpp"

namespace tarvek {
namespace {

using P = PointRecord;

constexpr std::string_view EastingFault = "Easting Coordinate must be numeric.";
constexpr std::string_view NorthingFault = "Northing Coordinate must be numeric.";
constexpr std::string_view ElevationFault = "Elevation Coordinate must be numeric.";

const TagTable& ControlTags() {
    static const TagRule rules[] = {
        {.tag = "XC:",
         .act = StoreCoordinate,
         .number = &P::X,
         .control = &P::HorizontalControl,
         .isControl = true,
         .refusal = EastingFault},
        {.tag = "YC:",
         .act = StoreCoordinate,
         .number = &P::Y,
         .control = &P::HorizontalControl,
         .isControl = true,
         .refusal = NorthingFault},
        {.tag = "ZC:",
         .act = StoreCoordinate,
         .number = &P::Z,
         .control = &P::VerticalControl,
         .isControl = true,
         .refusal = ElevationFault},
        {.tag = "XX:", .act = RefuseCoordinate},
        {.tag = "YY:", .act = RefuseCoordinate},
        {.tag = "ZZ:", .act = RefuseCoordinate},
    };
    static const TagTable tags(rules);
    return tags;
}

void PrintControlActivity(TextFileOut& file, const PointRecord&) { file.Line("AC:OS"); }

void PrintControlCoordinates(TextFileOut& file, const PointRecord& point) {
    if (!point.IsGeographic) {
        PrintNumber(file, "YC:", point.Y, 4);
        PrintNumber(file, "XC:", point.X, 4);
    }
    if (!point.IsGeographic || HasValue(point.Z)) PrintNumber(file, "ZC:", point.Z, 4);
}

}  // namespace

bool ReadControlFile(const std::string& path) {
    // Field faults bear the name of the points-and-chains family, also in a control file.
    const FileFamily family{
        .tags = ControlTags(),
        .name = "Invalid Tarvek Control File",
        .blankLineText = "An Tarvek Control File can not contain blank lines.",
        .wrongCoordinateText = "An Tarvek Control File can not contain computed coordinates.",
        .fieldFaultName = "Invalid Tarvek Points and Chains File"};
    return ReadTaggedFile(path, family);
}

bool WriteControlFile(const std::string& path) {
    return WriteTaggedFile(
        path, {.printActivity = PrintControlActivity, .printCoordinates = PrintControlCoordinates});
}

}  // namespace tarvek
