#include "cli/modLibraryCommands.hpp"

#include <initializer_list>
#include <span>

#include "library/modComboBoxList.hpp"
#include "library/modErrorState.hpp"
#include "library/modINIFile.hpp"
#include "library/modINIText.hpp"
#include "library/modLibraryCheck.hpp"
#include "library/modLibraryFiles.hpp"
#include "library/modLibraryNames.hpp"
#include "library/modMisc.hpp"
#include "platform/modCodePage.hpp"
#include "platform/modPrompts.hpp"
#include "platform/modStandardOutput.hpp"
#include "platform/modText.hpp"

namespace tarvek {
namespace {

void AppendRow(std::string& text, std::initializer_list<std::string_view> columns) {
    std::string_view separator;
    for (const std::string_view column : columns) {
        text.append(separator).append(TerminalText(column));
        separator = "\t";
    }
    text += '\n';
}

// Prints the section's name, then the values of `keys`.
void PrintSections(const std::string& file, std::initializer_list<std::string_view> keys) {
    const INIView view(ReadINIFile(file));
    std::string text;
    for (const INISection& section : view.Sections()) {
        text += TerminalText(section.name);
        for (const std::string_view key : keys) text += '\t' + TerminalText(view.Value(section.name, key));
        text += '\n';
    }
    PrintToStandardOutput(text);
}

}  // namespace

int ListZones(const std::string& coordinateSystem) {
    ComboBoxList systems;
    if (!LOAD_CS_ComboBoxList(systems)) TellFault(GET_ErrorMessage());
    systems.Add(GeographicSystem);
    SET_ComboBoxText(systems, coordinateSystem);
    if (!coordinateSystem.empty() && systems.ListIndex() < 0) {
        TellFault("The library has no coordinate system '" + coordinateSystem + "'.");
        return 1;
    }
    const INIView zones(ReadINIFile(ZonesFile()));
    std::string text;
    for (const INISection& section : zones.Sections()) {
        const std::optional<ZoneName> name = SplitZoneSection(section.name);
        if (!name || (!coordinateSystem.empty() && Trim(name->coordinateSystem) != systems.Text())) continue;
        const auto value = [&](std::string_view key) { return zones.Value(section.name, key); };
        AppendRow(text, {Trim(name->coordinateSystem), Trim(name->zone), value("Projection"),
                         value("Horizontal Datum"), value("Linear Units"), value("Full Name")});
    }
    if (!coordinateSystem.empty() && text.empty())
        TellResult("The coordinate system '" + systems.Text() + "' has no zones.");
    PrintToStandardOutput(text);
    return 0;
}

int ListDatums() {
    PrintSections(DatumsFile(), {"Type", "Ellipsoid", "Full Name"});
    return 0;
}

int ListEllipsoids() {
    PrintSections(EllipsoidsFile(), {"Semimajor Axis", "Semiminor Axis", "Flattening", "Full Name"});
    return 0;
}

int CheckLibraryCommand() {
    const std::vector<LibraryFault> faults = CheckLibrary();
    std::string text;
    for (const LibraryFault& fault : faults)
        AppendRow(text, {fault.file, fault.section, fault.key, fault.text});
    PrintToStandardOutput(text);
    return faults.empty() ? 0 : 1;
}

}  // namespace tarvek
