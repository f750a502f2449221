#include "surveyfiles/modTaggedWriter.hpp"

#include "coordmath/modAngles.hpp"
#include "coordmath/modDistances.hpp"
#include "library/modLibraryNames.hpp"
#include "platform/modClock.hpp"
#include "platform/modFaults.hpp"
#include "platform/modNumbers.hpp"
#include "platform/modProgress.hpp"
#include "platform/modPrompts.hpp"
#include "surveyfiles/modChainBlock.hpp"

namespace tarvek {
namespace {

constexpr std::size_t PointsPerProgress = 4096;

// Which of the computed values are printed: all of what was read, or what the user asked a conversion for.
struct PrintFlags {
    bool scale;
    bool convergence;
    bool latLong;
};

PrintFlags FlagsInForce(const WriterFamily& family) {
    const SurveyTables& tables = Tables();
    if (!tables.CoordinatesConverted) return {true, true, true};
    const ConversionOptions& options = tables.Options;
    const bool isGeographicSet = IsGeographicSystem(tables.OutputHeader.System);
    return {options.ComputeScale, options.ComputeConvergence,
            options.ComputeLatLong || (family.locatesGeographicSets && isGeographicSet)};
}

bool IsAngleFormat(std::string_view units) { return units.starts_with("DDD"); }

void TellAngleFormat(std::string_view horizontalUnits) {
    if (horizontalUnits == AngleFormatPacked || !Tables().CoordinatesConverted) return;
    TellResult(
        "Tarvek File Format specifies Latitudes and Longitudes be written in the 'DDD.MMSSssss' format.  "
        "Latitudes "
        "and Longitudes will be converted to this format.",
        "Angle Format");
}

// The linear unit of the file; the user may be told about the angle format on the way.
std::string DecideOutputUnits(const CoordSystemRef& system) {
    const std::string& horizontal = system.HorizontalUnits;
    const std::string& vertical = system.VerticalUnits;
    if (!IsAngleFormat(horizontal) && (vertical.empty() || horizontal != vertical)) return horizontal;
    TellAngleFormat(horizontal);
    return vertical;
}

// The part of `name` before its first "-" and the part behind it, both trimmed.
struct LongName {
    explicit LongName(std::string_view name) {
        const std::size_t hyphen = name.find('-');
        hasDescription = hyphen != std::string_view::npos;
        shortName = hasDescription ? Trim(name.substr(0, hyphen)) : name;
        if (hasDescription) description = Trim(name.substr(hyphen + 1));
    }

    std::string_view shortName;
    std::string_view description;
    bool hasDescription;
};

void PrintIfAny(TextFileOut& file, std::string_view tag, std::string_view value) {
    if (!value.empty()) file.Line(tag, value);
}

void PrintSystem(TextFileOut& file, const CoordSystemRef& system, const std::string& units) {
    const LongName coordinateSystem(system.CS);
    const LongName zone(system.ZN);
    if (!system.CS.empty()) file.Line("CS:", coordinateSystem.shortName);
    if (!system.ZN.empty()) file.Line("ZN:", zone.shortName);
    const bool hasCounties = coordinateSystem.shortName == "VELCRS" || coordinateSystem.shortName == "VCCS";
    if (zone.hasDescription && hasCounties) file.Line("CO:", zone.description);
    PrintIfAny(file, "HD:", system.HD);
    if (system.VD != NoDatum) PrintIfAny(file, "VD:", system.VD);
    if (!units.empty()) file.Line("UL:", system.HorizontalUnits);
}

void PrintHeader(TextFileOut& file, const ProjectHeader& header, const std::string& units) {
    PrintIfAny(file, "", header.PR);
    file.Line("AC:PR");
    PrintIfAny(file, "", header.HeaderLines);
    PrintSystem(file, header.System, units);
    file.Line("VR:", std::string(ProgramTitle) + " " + TARVEK_VERSION);
    file.Line("DT:", DateText(Now()));
}

// Carries the lengths that are printed to the unit of the file; SZ really does take the horizontal unit.
void ConvertLengths(PointRecord& point, std::string_view units) {
    if (!point.IsGeographic)
        for (double PointRecord::*length : {&PointRecord::Y, &PointRecord::X})
            point.*length = Distances_GET_Convert(point.*length, point.HorizontalUnits, units);
    for (float PointRecord::*estimate : {&PointRecord::SX, &PointRecord::SY, &PointRecord::SZ})
        point.*estimate = SingleFromNumber(
            Distances_GET_Convert(static_cast<double>(point.*estimate), point.HorizontalUnits, units));
    for (double PointRecord::*height : {&PointRecord::Z, &PointRecord::HE, &PointRecord::HG})
        point.*height = Distances_GET_Convert(point.*height, point.VerticalUnits, units);
}

void PrintValue(TextFileOut& file, std::string_view tag, double value, int decimals) {
    if (HasValue(value)) PrintNumber(file, tag, value, decimals);
}

void PrintValue(TextFileOut& file, std::string_view tag, float value, int decimals) {
    if (HasValue(value)) PrintNumber(file, tag, static_cast<double>(value), decimals);
}

void PrintAngle(TextFileOut& file, std::string_view tag, double radians, int decimals) {
    if (HasValue(radians)) file.Line(tag, Angles_GET_TextDMSPacked(radians, decimals));
}

void PrintPoint(TextFileOut& file, const PointRecord& point, const WriterFamily& family,
                const PrintFlags& flags) {
    family.printActivity(file, point);
    file.Line("PN:", point.PN);
    family.printCoordinates(file, point);
    if (flags.latLong) {
        PrintAngle(file, "LT:", Angles_GET_Direction(point.LT, point.LatDir, "N"), 5);
        PrintAngle(file, "LG:", Angles_GET_Direction(point.LG, point.LongDir, "W"), 5);
    }
    PrintValue(file, "HE:", point.HE, 3);
    PrintIfAny(file, "", point.PD);
    PrintIfAny(file, "FE:", point.FE);
    if (family.printsGeometry) PrintIfAny(file, "GM:", point.GM);
    PrintValue(file, "HG:", point.HG, 3);
    if (flags.scale) PrintValue(file, "SF:", point.SF, 8);
    if (flags.convergence) PrintAngle(file, "CA:", point.CA, 1);
    PrintIfAny(file, "GR:", point.GR);
    if (family.printsGroupNumber) PrintIfAny(file, "GR:", point.GroupNumber);
    PrintIfAny(file, "CL:", point.CL);
    PrintIfAny(file, "", point.Others);
    PrintValue(file, "SY:", point.SY, 4);
    PrintValue(file, "SX:", point.SX, 4);
    PrintValue(file, "SZ:", point.SZ, 4);
}

void PrintPoints(TextFileOut& file, PointList& points, const WriterFamily& family, const std::string& units) {
    const PrintFlags flags = FlagsInForce(family);
    const Word fileUnits(units);
    ProgressTask progress;
    progress.Begin("Writing points", points.size());
    for (std::size_t i = 0; i < points.size(); ++i) {
        if (i % PointsPerProgress == 0) progress.At(i);
        // A point that is in the file's unit already stays shared with the input table.
        if (!(points[i].HorizontalUnits == fileUnits && points[i].VerticalUnits == fileUnits))
            ConvertLengths(points.Change(i), fileUnits);
        PrintPoint(file, points[i], family, flags);
    }
}

}  // namespace

void PrintNumber(TextFileOut& file, std::string_view tag, double value, int decimals) {
    RequireFinite(value);  // before the tag, so that a fault leaves whole lines
    file.Buffer() += tag;
    AppendFixed(file.Buffer(), value, decimals);
    file.EndLine();
}

bool WriteTaggedFile(const std::string& path, const WriterFamily& family) {
    SurveyTables& tables = Tables();
    CoordSystemRef& system = tables.OutputHeader.System;
    const std::string units = DecideOutputUnits(system);
    const std::string_view letter = Distances_GET_UnitLetter(units);
    if (!letter.empty()) system.HorizontalUnits = letter;
    WriteTextFile(path, [&](TextFileOut& file) {
        PrintHeader(file, tables.OutputHeader, units);
        PrintPoints(file, tables.OutputPoints, family, units);
        if (family.printsChains) PrintChains(file, tables.OutputChains);
    });
    return true;
}

}  // namespace tarvek
