#include "surveyfiles/modTarvekFiles.hpp"

#include "surveyfiles/modTaggedReader.hpp"
#include "surveyfiles/modTaggedWriter.hpp"

namespace tarvek {
namespace {

using P = PointRecord;

// How the families treat the two kinds of coordinate.

constexpr TagRule Easting(std::string_view tag, bool isControl) {
    return {.tag = tag,
            .act = StoreCoordinate,
            .number = &P::X,
            .control = &P::HorizontalControl,
            .isControl = isControl,
            .refusal = "Easting Coordinate must be numeric."};
}

constexpr TagRule Northing(std::string_view tag, bool isControl) {
    return {.tag = tag,
            .act = StoreCoordinate,
            .number = &P::Y,
            .control = &P::HorizontalControl,
            .isControl = isControl,
            .refusal = "Northing Coordinate must be numeric."};
}

constexpr TagRule Elevation(std::string_view tag, bool isControl, std::string_view caption = {}) {
    return {.tag = tag,
            .act = StoreCoordinate,
            .number = &P::Z,
            .control = &P::VerticalControl,
            .isControl = isControl,
            .refusal = "Elevation Coordinate must be numeric.",
            .refusalCaption = caption};
}

constexpr TagRule Refused(std::string_view tag) { return {.tag = tag, .act = RefuseCoordinate}; }

const TagTable& ControlTags() {
    static const TagRule rules[] = {Easting("XC:", true), Northing("YC:", true), Elevation("ZC:", true),
                                    Refused("XX:"),       Refused("YY:"),        Refused("ZZ:")};
    static const TagTable tags({rules});
    return tags;
}

const TagTable& PointsAndChainsTags() {
    static const TagRule rules[] = {Easting("XX:", false), Northing("YY:", false), Elevation("ZZ:", false),
                                    Refused("XC:"),        Refused("YC:"),         Refused("ZC:")};
    static const TagTable tags({rules, ChainRules()});
    return tags;
}

const TagTable& ProjectTags() {
    static const TagRule rules[] = {Easting("XX:", false),   Northing("YY:", false),
                                    Elevation("ZZ:", false), Easting("XC:", true),
                                    Northing("YC:", true),   Elevation("ZC:", true, "Invalid File")};
    static const TagTable tags({rules, ChainRules()});
    return tags;
}

constexpr std::string_view PointsAndChainsBlankLine =
    "An Tarvek Points and Chains File can not contain blank lines.";

// A coordinate line that stands also where there is no value: a number with 4 decimals, or "-99999" as it is.
void PrintElevation(TextFileOut& file, std::string_view tag, double elevation) {
    if (HasValue(elevation))
        PrintNumber(file, tag, elevation, 4);
    else
        file.Line(tag, NoValueText);
}

void PrintPlane(TextFileOut& file, const PointRecord& point, bool isControl) {
    PrintNumber(file, isControl ? "YC:" : "YY:", point.Y, 4);
    PrintNumber(file, isControl ? "XC:" : "XX:", point.X, 4);
    PrintNumber(file, isControl ? "ZC:" : "ZZ:", point.Z, 4);
}

void PrintGeographic(TextFileOut& file, const PointRecord& point, bool isControl, bool isVerticalControl) {
    file.Line(isControl ? "YC:" : "YY:", NoValueText);
    file.Line(isControl ? "XC:" : "XX:", NoValueText);
    PrintElevation(file, isVerticalControl ? "ZC:" : "ZZ:", point.Z);
}

void PrintControlCoordinates(TextFileOut& file, const PointRecord& point) {
    if (!point.IsGeographic)
        PrintPlane(file, point, true);
    else if (HasValue(point.Z))
        PrintNumber(file, "ZC:", point.Z, 4);
}

void PrintComputedCoordinates(TextFileOut& file, const PointRecord& point) {
    if (point.IsGeographic)
        PrintGeographic(file, point, false, false);
    else
        PrintPlane(file, point, false);
}

// For a plane point the tag of the elevation follows the horizontal coordinates.
void PrintProjectCoordinates(TextFileOut& file, const PointRecord& point) {
    if (point.IsGeographic)
        PrintGeographic(file, point, point.HorizontalControl, point.VerticalControl);
    else
        PrintPlane(file, point, point.HorizontalControl);
}

void PrintControlActivity(TextFileOut& file, const PointRecord&) { file.Line("AC:OS"); }
void PrintComputedActivity(TextFileOut& file, const PointRecord&) { file.Line("AC:PD"); }
void PrintOwnActivity(TextFileOut& file, const PointRecord& point) { file.Line("AC:", point.AC); }

}  // namespace

bool ReadControlFile(const std::string& path) {
    // Field faults bear the name of the points-and-chains family, also in a control file.
    return ReadTaggedFile(
        path, {.tags = ControlTags(),
               .name = "Invalid Tarvek Control File",
               .blankLineText = "An Tarvek Control File can not contain blank lines.",
               .wrongCoordinateText = "An Tarvek Control File can not contain computed coordinates.",
               .fieldFaultName = "Invalid Tarvek Points and Chains File"});
}

bool ReadPointsAndChainsFile(const std::string& path) {
    return ReadTaggedFile(
        path, {.tags = PointsAndChainsTags(),
               .name = "Invalid Tarvek Points and Chains File",
               .blankLineText = PointsAndChainsBlankLine,
               .wrongCoordinateText = "An Tarvek Points and Chains File can not contain control coordinates.",
               .fieldFaultName = "Invalid Tarvek Points and Chains File",
               .hasChains = true,
               .startsChainsPending = true});
}

bool ReadProjectFile(const std::string& path) {
    return ReadTaggedFile(path, {.tags = ProjectTags(),
                                 .name = "Invalid Tarvek File",
                                 .blankLineText = PointsAndChainsBlankLine,
                                 .wrongCoordinateText = {},
                                 .fieldFaultName = "Invalid Tarvek File",
                                 .hasChains = true,
                                 .keepsActivity = true});
}

bool WriteControlFile(const std::string& path) {
    return WriteTaggedFile(
        path, {.printActivity = PrintControlActivity, .printCoordinates = PrintControlCoordinates});
}

bool WritePointsAndChainsFile(const std::string& path) {
    return WriteTaggedFile(path, {.printActivity = PrintComputedActivity,
                                  .printCoordinates = PrintComputedCoordinates,
                                  .printsGeometry = true,
                                  .printsGroupNumber = true,
                                  .printsChains = true});
}

bool WriteProjectFile(const std::string& path) {
    return WriteTaggedFile(path, {.printActivity = PrintOwnActivity,
                                  .printCoordinates = PrintProjectCoordinates,
                                  .printsGeometry = true,
                                  .printsChains = true,
                                  .locatesGeographicSets = true});
}

}  // namespace tarvek
