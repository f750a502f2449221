#include "library/modLibraryCheck.hpp"

#include <algorithm>
#include <cmath>
#include <functional>
#include <unordered_set>

#include "library/modDefinitionCheck.hpp"
#include "library/modINIFile.hpp"
#include "library/modINIText.hpp"
#include "library/modLibraryFiles.hpp"
#include "library/modLibraryNames.hpp"
#include "library/modMethodNames.hpp"
#include "library/modValueCheck.hpp"
#include "library/modZoneCheck.hpp"
#include "platform/modCodePage.hpp"
#include "platform/modNumbers.hpp"
#include "platform/modPaths.hpp"
#include "platform/modText.hpp"

namespace tarvek {
namespace {

using Faults = std::vector<LibraryFault>;

// How far the semiminor axis may lie from the one that flattening or eccentricity makes of the semimajor
// axis, in meters: published axes are rounded to a centimeter at worst.
constexpr double AxisTolerance = 0.01;

// The keys of a datum that are no transformations.
constexpr std::string_view PlainDatumKeys[] = {"Full Name", "Type",     "Ellipsoid",
                                               "Show In",   "Show Out", "Show"};

// ---- what any INI file can suffer from

bool HasControlCharacter(std::string_view name) {
    return std::any_of(name.begin(), name.end(), [](char c) { return static_cast<unsigned char>(c) < ' '; });
}

std::string CheckName(std::string_view name) {
    if (HasControlCharacter(name)) return "The name holds a control character.";
    return Trim(name).size() != name.size() ? "The name has a blank at its end." : "";
}

// Lines that no look-up can reach, and values that are cut.
void CheckLines(std::string_view file, const INIView& view, Faults& faults) {
    INILines lines(view.Text());
    INILine line;
    std::string section;
    bool isInSection = false;
    while (lines.Next(line)) {
        if (line.kind == INILineKind::Section) {
            section = line.name;
            isInSection = true;
        } else if (line.kind == INILineKind::Other) {
            AddFault(faults, file, section, "", "The line " + Quoted(line.text) + " is never read.");
        } else if (line.kind == INILineKind::Key && !isInSection) {
            AddFault(faults, file, "", line.name, "The key stands before the first section.");
        } else if (line.kind == INILineKind::Key && WholeINIValue(line.value).size() > LongestINIValue) {
            AddFault(faults, file, section, line.name,
                     "The value is cut at " + std::to_string(LongestINIValue) + " characters.");
        }
    }
}

void CheckKeyNames(std::string_view file, const INISection& section, Faults& faults) {
    std::unordered_set<std::string> seen;
    for (const INIKey& key : section.keys) {
        AddFault(faults, file, section.name, key.name, CheckName(key.name));
        if (!seen.insert(UpperCaseText(key.name)).second)
            AddFault(faults, file, section.name, key.name,
                     "The key stands there already; this one is never read.");
    }
}

void CheckNames(std::string_view file, const INIView& view, Faults& faults) {
    std::size_t size = 0;
    for (const INISection& section : view.Sections()) {
        const auto tell = [&](std::string_view text) { AddFault(faults, file, section.name, "", text); };
        const std::size_t sizeBefore = size;
        size += section.name.size() + 1;
        if (size > LongestINISectionNames && sizeBefore <= LongestINISectionNames)
            tell("The names of the sections up to this one have more than " +
                 std::to_string(LongestINISectionNames) + " characters; the rest is never listed.");
        tell(CheckName(section.name));
        if (view.Find(section.name) != &section)
            tell("The section stands there already; this one is never read.");
        CheckKeyNames(file, section, faults);
    }
}

void CheckFile(const std::string& path, const INIView& view, Faults& faults) {
    const std::string file = FileName(path);
    if (!FileExists(path)) {
        AddFault(faults, file, "", "", "There is no such file.");
        return;
    }
    CheckLines(file, view, faults);
    CheckNames(file, view, faults);
}

// ---- the sections that are read

// What a method must be where a datum of a type is at either end of it.
struct MethodRule {
    std::string_view type;
    bool (*takes)(std::string_view method);
    std::string_view what;
};

constexpr MethodRule MethodRules[] = {
    {DatumHorizontal, IsPositionMethod, " moves no positions"},
    {DatumVertical, IsHeightMethod, " is not taken for heights"},
};

std::string CheckMethod(std::string_view method, std::string_view sourceType, std::string_view targetType) {
    if (method.empty()) return {};
    if (!IsMethodName(method)) return Quoted(method) + " is no transformation method.";
    for (const MethodRule& rule : MethodRules)
        if ((sourceType == rule.type || targetType == rule.type) && !rule.takes(method))
            return Quoted(method).append(rule.what) + ", all that a datum of type " + std::string(rule.type) +
                   " has.";
    return {};
}

void CheckTransformation(const INIKey& key, const INIView& datums, Faults& faults, std::string_view datum) {
    const auto tell = [&](std::string_view text) { AddFault(faults, DatumsFileName, datum, key.name, text); };
    if (datums.Find(key.name) == nullptr) tell("The target of the transformation is no section.");
    if (SameININame(key.name, datum)) tell("A datum is never transformed to itself.");
    tell(CheckMethod(key.value, datums.Value(datum, "Type"), datums.Value(key.name, "Type")));
}

void CheckDatum(const INISection& datum, const LibraryViews& library, Faults& faults) {
    const auto value = [&](std::string_view key) { return library.datums.Value(datum.name, key); };
    const auto tell = [&](std::string_view key, std::string_view text) {
        AddFault(faults, DatumsFileName, datum.name, key, text);
    };
    const std::string_view type = value("Type");
    if (type.empty())
        tell("Type", ValueMissing);
    else if (std::find(std::begin(DatumTypes), std::end(DatumTypes), type) == std::end(DatumTypes))
        tell("Type", Quoted(type) + " is no type of datum: Horizontal, Vertical or 3D.");
    if (type != DatumVertical)
        tell("Ellipsoid", CheckSectionNamed(value("Ellipsoid"), library.ellipsoids, EllipsoidsFileName));
    tell("Show In", CheckShowFlag(value("Show In")));
    tell("Show Out", CheckShowFlag(value("Show Out")));

    for (const INIKey& key : datum.keys) {
        const auto isKey = [&key](std::string_view plain) { return SameININame(plain, key.name); };
        const bool isPlain = std::any_of(std::begin(PlainDatumKeys), std::end(PlainDatumKeys), isKey);
        if (!isPlain) CheckTransformation(key, library.datums, faults, datum.name);
    }
}

// Flattening and eccentricity must make the semiminor axis of the semimajor one.
void CheckShape(double a, double b, double f, double e,
                const std::function<void(std::string_view key, std::string_view text)>& tell) {
    const auto fits = [a, b](double axisRatio) { return std::fabs(a * axisRatio - b) <= AxisTolerance; };
    if (b > a) {
        tell("Semiminor Axis", "The semiminor axis is longer than the semimajor axis.");
        return;
    }
    if (!fits(1 - f)) tell("Flattening", "The flattening does not fit the axes.");
    if (!fits(std::sqrt(1 - e * e))) tell("Eccentricity", "The eccentricity does not fit the axes.");
}

void CheckEllipsoid(const INISection& ellipsoid, const LibraryViews& library, Faults& faults) {
    const auto value = [&](std::string_view key) { return library.ellipsoids.Value(ellipsoid.name, key); };
    const auto tell = [&](std::string_view key, std::string_view text) {
        AddFault(faults, EllipsoidsFileName, ellipsoid.name, key, text);
    };
    const std::size_t faultsBefore = faults.size();
    tell("Semimajor Axis", CheckPositiveNumber(value("Semimajor Axis")));
    tell("Semiminor Axis", CheckPositiveNumber(value("Semiminor Axis")));
    tell("Flattening", CheckNumber(value("Flattening")));
    tell("Eccentricity", CheckNumber(value("Eccentricity")));
    if (faults.size() == faultsBefore)
        CheckShape(NumberFromText(value("Semimajor Axis")), NumberFromText(value("Semiminor Axis")),
                   NumberFromText(value("Flattening")), NumberFromText(value("Eccentricity")), tell);
    if (!value("Show").empty()) tell("Show", CheckShowFlag(value("Show")));
}

// Carries `check` over those sections of a file that are read.
template <class Check>
void CheckSections(const INIView& view, const LibraryViews& library, Check check, Faults& faults) {
    for (const INISection& section : view.Sections())
        if (view.Find(section.name) == &section) check(section, library, faults);
}

}  // namespace

std::vector<LibraryFault> CheckLibrary() {
    const LibraryViews library = {INIView(ReadINIFile(ZonesFile())), INIView(ReadINIFile(DatumsFile())),
                                  INIView(ReadINIFile(EllipsoidsFile()))};
    Faults faults;
    CheckFile(ZonesFile(), library.zones, faults);
    CheckShortNames(library.zones, faults);
    CheckSections(library.zones, library, CheckZone, faults);
    CheckFile(DatumsFile(), library.datums, faults);
    CheckSections(library.datums, library, CheckDatum, faults);
    CheckFile(EllipsoidsFile(), library.ellipsoids, faults);
    CheckSections(library.ellipsoids, library, CheckEllipsoid, faults);
    CheckDefinitions(faults);
    return faults;
}

void AddFault(std::vector<LibraryFault>& faults, std::string_view file, std::string_view section,
              std::string_view key, std::string_view text) {
    if (text.empty()) return;
    faults.push_back({std::string(file), std::string(section), std::string(key), std::string(text)});
}

}  // namespace tarvek
