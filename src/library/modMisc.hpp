#pragma once
// Lists filled from the library, lookups in it, and small helpers of the dialogs. Every call reads its files
// anew, once each; a missing file is an empty one.

#include <optional>
#include <string>
#include <string_view>

#include "library/modComboBoxList.hpp"

namespace tarvek {

// Fills the list with the coordinate systems of zones.ini, each once, in file order, also those whose zones
// are all hidden. False at a section without "~", which leaves "Error loading coordinate systems." as error
// state and in the list what was added until then.
bool LOAD_CS_ComboBoxList(ComboBoxList& list);

// Fills the list with the zones of a coordinate system that are shown on the input or the output side. False
// as above, with "Error loading zones."; Fault::TypeMismatch for a show flag that is no number.
bool LOAD_Zones_ComboBoxList(ComboBoxList& list, bool inputSide, std::string_view coordinateSystem);

// Fills the list with the datums that are shown on that side: for the horizontal list of geographic positions
// all but the vertical ones and of plane coordinates the horizontal ones; for the vertical list of plane
// coordinates the vertical ones, of geographic positions the vertical and 3D ones, or with `only3D` the 3D
// ones alone. A vertical list begins with "None", and the text "None" outlasts the filling.
// Fault::TypeMismatch for a datum whose show flag is missing or no number.
void LOAD_Datums_ComboBoxList(ComboBoxList& list, bool inputSide, bool horizontal, bool geographic,
                              bool only3D);

// Fills the list with the linear units or the angular formats.
void LOAD_Units_ComboBoxList(ComboBoxList& list, bool linear);

// Fills the list with the datums of local scaling, "NAD 1927" to "HPGN 2025", the year as item data.
void LOAD_LocalDatums_ComboBoxList(ComboBoxList& list);

// Fills the list with the lines of Lumara/zones.txt in the program folder given, but for those that begin
// with "#"; the item data is the number in a line's first four characters, 0 where there is none. Raises the
// fault of the file system where the file is missing.
void LOAD_LocalZones_ComboBoxList(ComboBoxList& list, std::string_view programFolder);

struct ZoneDefaults {
    std::string horizontalDatum;
    std::string verticalDatum;
    std::string linearUnits;
};

// What the zone's section says of them; empty where it says nothing.
ZoneDefaults GET_ZoneDefaults(std::string_view coordinateSystem, std::string_view zone);

// The first section of zones.ini whose two parts have these short names, in any letter case: what precedes
// the first "-" of a part. Empty where there is none. Fault::SubscriptOutOfRange at a section without "~".
std::string FIND_ZoneSection(std::string_view coordinateSystemShort, std::string_view zoneShort);

// The parts of a section's name before and behind its first "~", as they stand; nothing where there is no
// "~".
struct ZoneName {
    std::string_view coordinateSystem;
    std::string_view zone;
};
std::optional<ZoneName> SplitZoneSection(std::string_view section);

// The general text of a value (15 digits), without an exponent where it is small. A value whose general text
// has an exponent and a single digit is Fault::InvalidCall; a negative one has a "0" before its sign.
std::string GET_FixedNumberText(double value);

// What follows the last "\" or "/"; the whole text where there is none.
std::string GET_FileName(std::string_view path);

// True for a text with a folder, a name and an extension: "\" or "/", at least one character, ".", at least
// one character.
bool IS_FileSpec(std::string_view text);

}  // namespace tarvek
