#include "library/modMisc.hpp"

#include <span>

#include "library/modAPICalls.hpp"
#include "library/modErrorState.hpp"
#include "library/modINIFile.hpp"
#include "library/modINIText.hpp"
#include "library/modLibraryFiles.hpp"
#include "library/modLibraryNames.hpp"
#include "platform/modCodePage.hpp"
#include "platform/modFaults.hpp"
#include "platform/modNumbers.hpp"
#include "platform/modPaths.hpp"
#include "platform/modText.hpp"
#include "platform/modTextFileIn.hpp"

namespace tarvek {
namespace {

constexpr int FirstHPGNYear = 1984;
constexpr int LastHPGNYear = 2025;
constexpr std::string_view Separators = "\\/";

std::string_view ShowKey(bool inputSide) { return inputSide ? "Show In" : "Show Out"; }

bool IsListedType(std::string_view type, bool horizontal, bool geographic, bool only3D) {
    if (horizontal) return geographic ? type != DatumVertical : type == DatumHorizontal;
    if (!geographic) return type == DatumVertical;
    return only3D ? type == Datum3D : type != DatumHorizontal;
}

bool HasShortName(std::string_view part, std::string_view shortName) {
    const std::optional<std::string_view> own = ShortNameOf(part);
    return own && UpperCaseText(*own) == UpperCaseText(Trim(shortName));
}

}  // namespace

bool LOAD_CS_ComboBoxList(ComboBoxList& list) {
    list.Clear();
    const std::string names = GET_INISectionNames(ZonesFile());
    for (const std::string_view section : SplitSectionNames(names)) {
        const std::optional<ZoneName> name = SplitZoneSection(section);
        if (!name) {
            SET_ErrorState(1, "Error loading coordinate systems.", "modMisc.LOAD_CS_ComboBoxList");
            return false;
        }
        const std::string_view coordinateSystem = Trim(name->coordinateSystem);
        if (!list.Contains(coordinateSystem)) list.Add(coordinateSystem);
    }
    return true;
}

bool LOAD_Zones_ComboBoxList(ComboBoxList& list, bool inputSide, std::string_view coordinateSystem) {
    list.Clear();
    const INIView zones(ReadINIFile(ZonesFile()));
    const std::string names = zones.SectionNames();
    for (const std::string_view section : SplitSectionNames(names)) {
        const std::optional<ZoneName> name = SplitZoneSection(section);
        if (!name) {
            SET_ErrorState(1, "Error loading zones.", "modMisc.LOAD_Zones_ComboBoxList");
            return false;
        }
        if (Trim(name->coordinateSystem) != coordinateSystem) continue;
        if (Integer16FromText(zones.Value(section, ShowKey(inputSide), "1")) == 1) list.Add(Trim(name->zone));
    }
    return true;
}

void LOAD_Datums_ComboBoxList(ComboBoxList& list, bool inputSide, bool horizontal, bool geographic,
                              bool only3D) {
    const bool wasNone = list.Text() == NoDatum;
    list.Clear();
    const INIView datums(ReadINIFile(DatumsFile()));
    const std::string names = datums.SectionNames();
    for (const std::string_view datum : SplitSectionNames(names)) {
        const std::string_view type = datums.Value(datum, "Type");
        const bool isShown = Integer16FromText(datums.Value(datum, ShowKey(inputSide))) == 1;
        if (isShown && IsListedType(type, horizontal, geographic, only3D)) list.Add(datum);
    }
    if (!horizontal) list.Insert(0, NoDatum);
    if (wasNone) list.SetText(NoDatum);
}

void LOAD_Units_ComboBoxList(ComboBoxList& list, bool linear) {
    list.Clear();
    for (const std::string_view unit : linear ? std::span<const std::string_view>(LinearUnits)
                                              : std::span<const std::string_view>(AngularFormats))
        list.Add(unit);
}

void LOAD_LocalDatums_ComboBoxList(ComboBoxList& list) {
    list.Clear();
    list.Add("NAD 1927", 1927);
    list.Add("NAD 1983", 1983);
    for (int year = FirstHPGNYear; year <= LastHPGNYear; ++year)
        list.Add("HPGN " + std::to_string(year), year);
}

void LOAD_LocalZones_ComboBoxList(ComboBoxList& list, std::string_view programFolder) {
    list.Clear();
    TextFileIn file(JoinPath(programFolder, "Lumara/zones.txt"));
    for (std::string_view line; file.NextLine(line);) {
        const std::string_view zone = TrimRight(line);
        if (!zone.starts_with('#')) list.Add(zone, Integer32FromNumber(LeadingNumber(zone.substr(0, 4))));
    }
}

ZoneDefaults GET_ZoneDefaults(std::string_view coordinateSystem, std::string_view zone) {
    const INIView zones(ReadINIFile(ZonesFile()));
    const std::string section = ZoneSection(coordinateSystem, zone);
    const auto value = [&](std::string_view key) { return std::string(zones.Value(section, key)); };
    return {value("Horizontal Datum"), value("Vertical Datum"), value("Linear Units")};
}

std::string FIND_ZoneSection(std::string_view coordinateSystemShort, std::string_view zoneShort) {
    const std::string names = GET_INISectionNames(ZonesFile());
    for (const std::string_view section : SplitSectionNames(names)) {
        const std::optional<ZoneName> name = SplitZoneSection(section);
        if (!name) RaiseFault(Fault::SubscriptOutOfRange);
        if (HasShortName(name->zone, zoneShort) &&
            HasShortName(name->coordinateSystem, coordinateSystemShort))
            return std::string(section);
    }
    return {};
}

std::optional<ZoneName> SplitZoneSection(std::string_view section) {
    const std::size_t separator = section.find(ZoneSeparator);
    if (separator == std::string_view::npos) return std::nullopt;
    return ZoneName{section.substr(0, separator), section.substr(separator + 1)};
}

std::string GET_FixedNumberText(double value) {
    std::string text = GeneralText(value);
    if (value < 0) return '0' + text;
    const std::size_t mark = text.find('E');
    if (mark == std::string::npos) return text;
    if (mark < 2) RaiseFault(Fault::InvalidCall);  // no point, and so no digits behind it to take over
    // The sign of the exponent is passed over: a large value comes out small as well.
    const auto exponent = static_cast<std::size_t>(LeadingNumber(std::string_view(text).substr(mark + 2)));
    return "0." + std::string(exponent - 1, '0') + text[0] + text.substr(2, mark - 2);
}

std::string GET_FileName(std::string_view path) {
    const std::size_t separator = path.find_last_of(Separators);
    return std::string(separator == std::string_view::npos ? path : path.substr(separator + 1));
}

bool IS_FileSpec(std::string_view text) {
    const std::size_t separator = text.find_last_of(Separators);
    const std::size_t point = text.rfind('.');
    if (separator == std::string_view::npos || point == std::string_view::npos) return false;
    return point + 1 < text.size() && point > separator + 1;
}

}  // namespace tarvek
