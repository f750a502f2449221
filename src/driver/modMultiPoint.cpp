#include "driver/modMultiPoint.hpp"

#include "library/modComboBoxList.hpp"
#include "library/modMisc.hpp"
#include "platform/modPrompts.hpp"

namespace tarvek {
namespace {

// The item of the list that `name` selects, or `name` where it selects none.
std::string Selected(ComboBoxList& list, const std::string& name) {
    SET_ComboBoxText(list, name);
    return list.ListIndex() < 0 ? name : list.Text();
}

// The stages of a conversion by what they change. Lengths in another unit need none: writers carry them over.
struct Stage {
    std::string CoordSystemRef::*changes;
    const char* name;
};

constexpr Stage Stages[] = {
    {&CoordSystemRef::CS, "coordinate system"},
    {&CoordSystemRef::ZN, "zone"},
    {&CoordSystemRef::HD, "horizontal datum"},
    {&CoordSystemRef::VD, "vertical datum"},
};

// True if the two systems differ in nothing that points would have to be computed for.
bool NeedsNoStage(const CoordSystemRef& input, const CoordSystemRef& output) {
    for (const Stage& stage : Stages) {
        const std::string& from = input.*stage.changes;
        const std::string& to = output.*stage.changes;
        if (from == to) continue;
        TellFault("This version can not carry points to another " + std::string(stage.name) + ": from '" +
                  from + "' to '" + to + "'.");
        return false;
    }
    return true;
}

}  // namespace

CoordSystemRef WithLongNames(CoordSystemRef system) {
    ComboBoxList systems;
    LOAD_CS_ComboBoxList(systems);
    systems.Add(GeographicSystem);
    system.CS = Selected(systems, system.CS);
    ComboBoxList zones;
    LOAD_Zones_ComboBoxList(zones, true, system.CS);
    system.ZN = Selected(zones, system.ZN);
    return system;
}

bool ConvertInputToOutput(const CoordSystemRef& output) {
    SurveyTables& tables = Tables();
    tables.Options.InputSystem = WithLongNames(tables.InputHeader.System);
    tables.Options.OutputSystem = WithLongNames(output);
    if (!NeedsNoStage(tables.Options.InputSystem, tables.Options.OutputSystem)) return false;
    tables.ConversionPoints = CopyAllocated(tables.InputPoints);
    tables.CoordinatesConverted = true;
    tables.OutputHeader = tables.InputHeader;
    tables.OutputHeader.System = tables.Options.OutputSystem;
    tables.OutputPoints = tables.ConversionPoints;
    tables.OutputChains = tables.InputChains;
    return true;
}

}  // namespace tarvek
