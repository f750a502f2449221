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

// The first stage that the way from one system to the other has; nullptr where points need not be computed.
const Stage* FirstStage(const CoordSystemRef& input, const CoordSystemRef& output) {
    for (const Stage& stage : Stages)
        if (input.*stage.changes != output.*stage.changes) return &stage;
    return nullptr;
}

bool TellMissing(const Stage& stage) {
    const ConversionOptions& options = Tables().Options;
    std::string text = "This version can not carry points to another ";
    text.append(stage.name).append(": from '").append(options.InputSystem.*stage.changes);
    text.append("' to '").append(options.OutputSystem.*stage.changes).append("'.");
    TellFault(text);
    return false;
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
    const Stage* missing = FirstStage(tables.Options.InputSystem, tables.Options.OutputSystem);
    if (missing != nullptr) return TellMissing(*missing);
    tables.ConversionPoints = CopyAllocated(tables.InputPoints);
    tables.CoordinatesConverted = true;
    tables.OutputHeader = tables.InputHeader;
    tables.OutputHeader.System = tables.Options.OutputSystem;
    tables.OutputPoints = tables.ConversionPoints;
    tables.OutputChains = tables.InputChains;
    return true;
}

}  // namespace tarvek
