#include "driver/modMultiPoint.hpp"

#include <optional>

#include "coordmath/modAngles.hpp"
#include "coordmath/modConversionChoice.hpp"
#include "coordmath/modCoordConvert.hpp"
#include "coordmath/modDistances.hpp"
#include "library/modComboBoxList.hpp"
#include "library/modErrorState.hpp"
#include "library/modINIFile.hpp"
#include "library/modINIText.hpp"
#include "library/modLibraryFiles.hpp"
#include "library/modLibraryNames.hpp"
#include "library/modMisc.hpp"
#include "platform/modPrompts.hpp"

namespace tarvek {
namespace {

// Tells why a list could not be filled to its end; the names in it serve all the same.
void TellLoad(bool isLoaded) {
    if (!isLoaded) TellFault(GET_ErrorMessage());
}

constexpr std::string CoordSystemRef::*SystemMembers[] = {
    &CoordSystemRef::CS, &CoordSystemRef::ZN,           &CoordSystemRef::HD, &CoordSystemRef::HorizontalUnits,
    &CoordSystemRef::VD, &CoordSystemRef::VerticalUnits};

void TakeNamed(CoordSystemRef& system, const CoordSystemRef& named) {
    for (const auto member : SystemMembers)
        if (!(named.*member).empty()) system.*member = named.*member;
}

// The system by the names that the lists of its side have for its coordinate system and zone: "SPC83" and
// "2600" become "SPC83 - State Plane 1983" and "2600 - Nebraska". Nothing where the lists do not have them.
std::optional<CoordSystemRef> NamedByLists(CoordSystemRef system, bool inputSide) {
    ComboBoxList systems;
    TellLoad(LOAD_CS_ComboBoxList(systems));
    systems.Add(GeographicSystem);
    SET_ComboBoxText(systems, system.CS);
    if (systems.ListIndex() < 0) return std::nullopt;
    system.CS = systems.Text();
    if (IsGeographicSystem(system)) return system;
    ComboBoxList zones;
    TellLoad(LOAD_Zones_ComboBoxList(zones, inputSide, system.CS));
    SET_ComboBoxText(zones, system.ZN);
    if (zones.ListIndex() < 0) return std::nullopt;
    system.ZN = zones.Text();
    return system;
}

// The same for a zone that is hidden in the lists. Names that the library does not have stay as they are, for
// the conversion to tell.
CoordSystemRef WithLongNames(const CoordSystemRef& system, bool inputSide) {
    if (const auto named = NamedByLists(system, inputSide)) return *named;
    const std::string section = FIND_ZoneSection(system.CS, system.ZN);
    CoordSystemRef found = system;
    if (const auto name = SplitZoneSection(section)) {
        found.CS = name->coordinateSystem;
        found.ZN = name->zone;
    }
    return found;
}

// What a file leaves open: its zone tells the datum, and no vertical datum is told as none.
CoordSystemRef InputSystemOf(const CoordSystemRef& read) {
    CoordSystemRef input = WithLongNames(read, true);
    if (input.HD.empty()) input.HD = GET_ZoneDefaults(input.CS, input.ZN).horizontalDatum;
    if (input.VD.empty()) input.VD = NoDatum;
    return input;
}

std::string LinearUnitOfZone(const CoordSystemRef& system) {
    const std::string unit = GET_ZoneDefaults(system.CS, system.ZN).linearUnits;
    return unit.empty() ? std::string(LinearUnits[0]) : unit;
}

// The input's system with what is named in its place. Zone and unit do not pass between plane and geographic
// systems: the geographic one has no zone and its own format of angles, a zone has a linear unit of its own.
CoordSystemRef OutputSystemFrom(const CoordSystemRef& input, const CoordSystemRef& named) {
    CoordSystemRef output = input;
    TakeNamed(output, named);
    output = WithLongNames(output, false);
    const bool isGeographic = IsGeographicSystem(output);
    if (isGeographic == IsGeographicSystem(input)) return output;
    if (isGeographic) output.ZN = named.ZN;
    if (named.HorizontalUnits.empty())
        output.HorizontalUnits = isGeographic ? std::string(AngleFormatDMS) : LinearUnitOfZone(output);
    return output;
}

// Lengths on the plane are told in a linear unit.
bool HasLinearUnit(const CoordSystemRef& system) {
    if (IsGeographicSystem(system) || !Distances_GET_UnitLetter(system.HorizontalUnits).empty()) return true;
    TellFault("A plane coordinate system needs a linear unit, and '" + system.HorizontalUnits + "' is none.");
    return false;
}

// The input's datum does not go with every zone: on another ellipsoid than that of its own datum a zone gives
// coordinates that are none of either. A datum that is named is the user's to answer for.
bool InputDatumFitsOutputZone(const ConversionOptions& options) {
    const CoordSystemRef& output = options.OutputSystem;
    const std::string own = GET_ZoneDefaults(output.CS, output.ZN).horizontalDatum;
    const INIView datums(ReadINIFile(DatumsFile()));
    const std::string_view ellipsoid = datums.Value(own, "Ellipsoid");
    if (ellipsoid.empty() || ellipsoid == datums.Value(output.HD, "Ellipsoid")) return true;
    TellFault("The zone '" + output.ZN + "' is one of '" + own + "', and the points are on '" + output.HD +
              "'.  Name the horizontal datum of the output.");
    return false;
}

bool IsSameZone(const CoordSystemRef& a, const CoordSystemRef& b) { return a.CS == b.CS && a.ZN == b.ZN; }

bool CanBeRun(const ConversionOptions& options, bool isDatumNamed) {
    if (!CheckConversionChoice(options)) return false;
    if (!HasLinearUnit(options.InputSystem) || !HasLinearUnit(options.OutputSystem)) return false;
    return isDatumNamed || IsSameZone(options.InputSystem, options.OutputSystem) ||
           InputDatumFitsOutputZone(options);
}

}  // namespace

void OverrideInputSystem(const CoordSystemRef& named) {
    SurveyTables& tables = Tables();
    TakeNamed(tables.InputHeader.System, named);
    const Word horizontalUnits(named.HorizontalUnits);
    const Word verticalUnits(named.VerticalUnits);
    if (horizontalUnits.empty() && verticalUnits.empty()) return;
    for (std::size_t i = 0; i < tables.InputPoints.size(); ++i) {
        PointRecord& point = tables.InputPoints.Change(i);
        if (!horizontalUnits.empty()) point.HorizontalUnits = horizontalUnits;
        if (!verticalUnits.empty()) point.VerticalUnits = verticalUnits;
    }
}

bool ConvertInputToOutput(const CoordSystemRef& named) {
    SurveyTables& tables = Tables();
    tables.Options.InputSystem = InputSystemOf(tables.InputHeader.System);
    tables.Options.OutputSystem = OutputSystemFrom(tables.Options.InputSystem, named);
    if (!CanBeRun(tables.Options, !named.HD.empty())) return false;
    if (IsGeographicSystem(tables.Options.OutputSystem))
        tables.Options.ComputeLatLong = true;  // all that there is
    tables.ConversionPoints = CopyAllocated(tables.InputPoints);
    if (!CoordConvert_Run()) return false;
    tables.CoordinatesConverted = true;
    tables.OutputHeader = tables.InputHeader;
    tables.OutputHeader.System = tables.Options.OutputSystem;
    AddGeoidLine(tables.OutputHeader, tables.Options);
    tables.OutputPoints = tables.ConversionPoints;
    tables.OutputChains = tables.InputChains;
    return true;
}

}  // namespace tarvek
