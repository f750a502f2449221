#include "driver/modMultiPoint.hpp"

#include "coordmath/modAngles.hpp"
#include "coordmath/modConversionChoice.hpp"
#include "coordmath/modCoordConvert.hpp"
#include "coordmath/modDistances.hpp"
#include "library/modComboBoxList.hpp"
#include "library/modErrorState.hpp"
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

bool IsGeographic(const CoordSystemRef& system) { return system.CS == GeographicSystem; }

// The system with coordinate system and zone in the library's long form where they are short names: "SPC83"
// and "2600" become "SPC83 - State Plane 1983" and "2600 - Nebraska". Names that the lists of that side do
// not have stay as they are, both of them, for the conversion to look up.
CoordSystemRef WithLongNames(const CoordSystemRef& system, bool inputSide) {
    ComboBoxList systems;
    TellLoad(LOAD_CS_ComboBoxList(systems));
    systems.Add(GeographicSystem);
    SET_ComboBoxText(systems, system.CS);
    if (systems.ListIndex() < 0) return system;
    CoordSystemRef named = system;
    named.CS = systems.Text();
    if (IsGeographic(named)) return named;
    ComboBoxList zones;
    TellLoad(LOAD_Zones_ComboBoxList(zones, inputSide, named.CS));
    SET_ComboBoxText(zones, system.ZN);
    if (zones.ListIndex() < 0) return system;
    named.ZN = zones.Text();
    return named;
}

// What a file leaves open: a zone tells its own datum, and no vertical datum is told as none.
CoordSystemRef InputSystemOf(const CoordSystemRef& read) {
    CoordSystemRef input = WithLongNames(read, true);
    if (input.HD.empty()) input.HD = GET_ZoneDefaults(input.CS, input.ZN).horizontalDatum;
    if (input.VD.empty()) input.VD = NoDatum;
    return input;
}

// The input's system with what is named in its place. Zone and unit do not pass between plane and geographic
// systems: the geographic one has no zone and its own format of angles, a zone has a linear unit of its own.
CoordSystemRef OutputSystemFrom(const CoordSystemRef& input, const CoordSystemRef& named) {
    CoordSystemRef output = input;
    TakeNamed(output, named);
    output = WithLongNames(output, false);
    if (IsGeographic(output) == IsGeographic(input)) return output;
    if (IsGeographic(output)) {
        output.ZN = named.ZN;
        output.HorizontalUnits = AngleFormatDMS;
    } else {
        output.HorizontalUnits = GET_ZoneDefaults(output.CS, output.ZN).linearUnits;
    }
    if (!named.HorizontalUnits.empty()) output.HorizontalUnits = named.HorizontalUnits;
    return output;
}

// Whether lengths on the plane can be told in the system's unit.
bool HasUnitOfItsKind(const CoordSystemRef& system) {
    if (IsGeographic(system) || !Distances_GET_UnitLetter(system.HorizontalUnits).empty()) return true;
    TellFault("A plane coordinate system needs a linear unit, and '" + system.HorizontalUnits + "' is none.");
    return false;
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
    if (!CheckConversionChoice(tables.Options)) return false;
    if (!HasUnitOfItsKind(tables.Options.OutputSystem)) return false;
    if (IsGeographic(tables.Options.OutputSystem)) tables.Options.ComputeLatLong = true;  // all that there is
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
