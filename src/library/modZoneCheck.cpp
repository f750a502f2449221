#include "library/modZoneCheck.hpp"

#include <algorithm>
#include <optional>
#include <unordered_map>

#include "library/modLibraryNames.hpp"
#include "library/modMisc.hpp"
#include "library/modValueCheck.hpp"
#include "platform/modCodePage.hpp"
#include "platform/modText.hpp"

namespace tarvek {
namespace {

std::string CheckLatitude(std::string_view value) { return CheckAngle(value, 90); }
std::string CheckLongitudeOrAzimuth(std::string_view value) { return CheckAngle(value, 360); }

template <std::size_t Count>
std::string CheckOneOf(std::string_view value, const std::string_view (&words)[Count],
                       std::string_view kind) {
    if (value.empty()) return std::string(ValueMissing);
    if (std::find(std::begin(words), std::end(words), value) != std::end(words)) return {};
    return Quoted(value) + " is no " + std::string(kind) + ".";
}

std::string CheckLatitudeDirection(std::string_view value) {
    return CheckOneOf(value, LatitudeDirections, "direction of latitudes: N or S");
}
std::string CheckLongitudeDirection(std::string_view value) {
    return CheckOneOf(value, LongitudeDirections, "direction of longitudes: E or W");
}
std::string CheckLinearUnits(std::string_view value) {
    return CheckOneOf(value, LinearUnits, "linear unit: Meters, U.S. Survey Feet or International Feet");
}

std::string CheckShowFlagIfAny(std::string_view value) {
    return value.empty() ? std::string() : CheckShowFlag(value);
}

std::string CheckProjection(std::string_view value) {
    if (value.empty()) return std::string(ValueMissing);
    return FindProjection(value) != nullptr ? std::string()
                                            : Quoted(value) + " is none of the six projections.";
}

// Which zones have a key.
enum Having : unsigned {
    WithOneParallel = 1,
    WithTwoParallels = 2,
    WithHotine = 4,
    Every = 8,
};

unsigned GroupOf(const Projection* projection) {
    if (projection == nullptr) return Every;
    switch (projection->group) {
        case ProjectionGroup::OneParallel:
            return Every | WithOneParallel;
        case ProjectionGroup::TwoParallels:
            return Every | WithTwoParallels;
        case ProjectionGroup::Hotine:
            return Every | WithHotine;
    }
    return Every;
}

struct KeyRule {
    std::string_view key;
    unsigned having;
    std::string (*check)(std::string_view value);
};

constexpr KeyRule KeyRules[] = {
    {"Projection", Every, CheckProjection},
    {"Show In", Every, CheckShowFlagIfAny},
    {"Show Out", Every, CheckShowFlagIfAny},
    {"Central Latitude", Every, CheckLatitude},
    {"Central Longitude", Every, CheckLongitudeOrAzimuth},
    {"False Northing", Every, CheckNumber},
    {"False Easting", Every, CheckNumber},
    {"Scale Factor", WithOneParallel | WithHotine, CheckPositiveNumber},
    {"Northern Parallel", WithTwoParallels, CheckLatitude},
    {"Southern Parallel", WithTwoParallels, CheckLatitude},
    {"Azimuth", WithHotine, CheckLongitudeOrAzimuth},
    {"Positive Latitude Direction", Every, CheckLatitudeDirection},
    {"Positive Longitude Direction", Every, CheckLongitudeDirection},
    {"Linear Units", Every, CheckLinearUnits},
};

std::string_view ValueOf(const INISection& section, std::string_view key) {
    const INIKey* const found = section.Find(key);
    return found == nullptr ? std::string_view() : found->value;
}

bool HasShortName(std::string_view part) { return !ShortNameOf(part).value_or("").empty(); }

std::string CheckZoneName(std::string_view section) {
    const std::optional<ZoneName> name = SplitZoneSection(section);
    if (!name) return "The name has no '~' between coordinate system and zone.";
    if (Trim(name->coordinateSystem).empty() || Trim(name->zone).empty())
        return "The name lacks its coordinate system or its zone.";
    if (name->zone.find(ZoneSeparator) != std::string_view::npos) return "The name has more than one '~'.";
    if (!HasShortName(name->coordinateSystem) || !HasShortName(name->zone))
        return "A part of the name has no short name before a '-', and no file can name it.";
    if (UpperCaseText(*ShortNameOf(name->coordinateSystem)) == *ShortNameOf(GeographicSystem))
        return "The short name of the coordinate system is that of the geographic one, which has no zones.";
    return {};
}

// Coordinate system and zone as a survey file names them; empty where one of them has no short name.
std::string ShortNamesOf(std::string_view section) {
    const std::optional<ZoneName> name = SplitZoneSection(section);
    if (!name || !HasShortName(name->coordinateSystem) || !HasShortName(name->zone)) return {};
    return UpperCaseText(ZoneSection(*ShortNameOf(name->coordinateSystem), *ShortNameOf(name->zone)));
}

std::string CheckParallels(std::string_view northern, std::string_view southern) {
    const PackedAngle north = ParsePackedAngle(northern);
    const PackedAngle south = ParsePackedAngle(southern);
    if (!north.fault.empty() || !south.fault.empty()) return {};
    if (north.degrees == south.degrees) return "The two parallels are equal.";
    if (north.degrees == -south.degrees)
        return "The two parallels lie equally far north and south of the equator, and make no cone.";
    return {};
}

// A key whose value names a section of another file.
struct Reference {
    std::string_view key;
    INIView LibraryViews::*view;
    std::string_view file;
    bool isRequired;
    std::string_view unfitType;  // of a datum that can not stand there
};

constexpr Reference References[] = {
    {"Horizontal Datum", &LibraryViews::datums, DatumsFileName, true, DatumVertical},
    {"Computational Ellipsoid", &LibraryViews::ellipsoids, EllipsoidsFileName, false, {}},
    {"Vertical Datum", &LibraryViews::datums, DatumsFileName, false, DatumHorizontal},
};

std::string CheckReference(const Reference& reference, std::string_view value, const LibraryViews& library) {
    if (value.empty() && !reference.isRequired) return {};
    const INIView& view = library.*reference.view;
    std::string fault = CheckSectionNamed(value, view, reference.file);
    if (!fault.empty() || reference.unfitType.empty() || view.Value(value, "Type") != reference.unfitType)
        return fault;
    return Quoted(value) + " is a datum of type " + std::string(reference.unfitType) + ".";
}

}  // namespace

void CheckZone(const INISection& zone, const LibraryViews& library, std::vector<LibraryFault>& faults) {
    const auto tell = [&](std::string_view key, std::string_view text) {
        AddFault(faults, ZonesFileName, zone.name, key, text);
    };
    tell("", CheckZoneName(zone.name));
    for (const Reference& reference : References)
        tell(reference.key, CheckReference(reference, ValueOf(zone, reference.key), library));

    const unsigned group = GroupOf(FindProjection(ValueOf(zone, "Projection")));
    for (const KeyRule& rule : KeyRules)
        if ((rule.having & group) != 0) tell(rule.key, rule.check(ValueOf(zone, rule.key)));
    if ((group & WithTwoParallels) != 0)
        tell("Southern Parallel",
             CheckParallels(ValueOf(zone, "Northern Parallel"), ValueOf(zone, "Southern Parallel")));
}

void CheckShortNames(const INIView& zones, std::vector<LibraryFault>& faults) {
    std::unordered_map<std::string, std::string_view> firstOfNames;
    for (const INISection& zone : zones.Sections()) {
        const std::string names = ShortNamesOf(zone.name);
        if (names.empty() || zones.Find(zone.name) != &zone) continue;
        const auto [first, isNew] = firstOfNames.try_emplace(names, zone.name);
        if (!isNew)
            AddFault(faults, ZonesFileName, zone.name, "",
                     "Its short names are those of " + Quoted(first->second) + ", which is found first.");
    }
}

}  // namespace tarvek
