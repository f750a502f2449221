#include "surveyfiles/modTaggedReader.hpp"

#include <optional>

#include "coordmath/modAngles.hpp"
#include "coordmath/modDistances.hpp"
#include "platform/modNumbers.hpp"
#include "platform/modPaths.hpp"
#include "platform/modPrompts.hpp"
#include "platform/modText.hpp"
#include "platform/modTextFileIn.hpp"

namespace tarvek {
namespace {

constexpr std::size_t LongestPointName = 8;

bool RefuseField(const TaggedReading& reading, std::string_view reason, std::string_view caption = {}) {
    const std::string name(reading.family.fieldFaultName);
    TellFault(name + ": '" + reading.path + "'\nError on Line: " + std::to_string(reading.lineNumber) + "\n" +
                  std::string(reason),
              caption.empty() ? name : std::string(caption));
    return false;
}

bool RefuseLine(const TaggedReading& reading, std::string_view reason) {
    const std::string name(reading.family.name);
    TellFault(name + " '" + reading.path + "'.\nError on line " + std::to_string(reading.lineNumber) + ".\n" +
                  std::string(reason),
              name);
    return false;
}

// The value of the line as a number, or nothing after the rule's refusal was told.
std::optional<double> NumberOrRefusal(const TaggedReading& reading, const TagRule& rule) {
    const std::optional<double> value = ParseNumber(reading.Value());
    if (!value) RefuseField(reading, rule.refusal, rule.refusalCaption);
    return value;
}

void ClosePoint(TaggedReading& reading) {
    reading.pending.HorizontalUnits = reading.horizontalUnits;
    reading.pending.VerticalUnits = reading.verticalUnits;
    reading.points.Append(std::move(reading.pending));
    InitPoint(reading.pending);
}

bool StoreProject(TaggedReading& reading, const TagRule&) {
    reading.header.PR = reading.line;
    return true;
}

void OpenChain(TaggedReading& reading) {
    if (reading.chainOpen) reading.chains.Append(reading.chain);
    ChainRecord& chain = reading.chain;
    for (std::string ChainRecord::*text : {&ChainRecord::FE, &ChainRecord::CD, &ChainRecord::FG,
                                           &ChainRecord::PL, &ChainRecord::CH, &ChainRecord::Others})
        (chain.*text).clear();
    if (reading.family.startsChainsPending) {
        chain.Station.clear();
        chain.Pending = true;
    }
    reading.chainOpen = true;
}

// "PR" opens the header and "CH" a chain, beside which the pending point stays open; any other activity
// closes the pending point, unless it is the first one behind the header.
bool ChangeActivity(TaggedReading& reading, const TagRule&) {
    const std::string_view activity = reading.Value().substr(0, 2);
    if (activity == "PR") {
        reading.inHeader = true;
        return true;
    }
    if (activity == "CH" && reading.family.hasChains) {
        OpenChain(reading);
    } else if (!reading.inHeader) {
        if (reading.family.keepsActivity) reading.pending.AC = Word(reading.Value());
        ClosePoint(reading);
    }
    reading.inHeader = false;
    return true;
}

bool StoreName(TaggedReading& reading, const TagRule&) {
    if (reading.Value().size() > LongestPointName)
        return RefuseField(reading, "Point Name can not exceeed 8 characters.");
    reading.pending.PN = reading.Value();
    return true;
}

bool StoreNumber(TaggedReading& reading, const TagRule& rule) {
    const std::optional<double> value = NumberOrRefusal(reading, rule);
    if (value) reading.pending.*rule.number = *value;
    return value.has_value();
}

bool StoreSingle(TaggedReading& reading, const TagRule& rule) {
    const std::optional<double> value = NumberOrRefusal(reading, rule);
    if (value) reading.pending.*rule.single = SingleFromNumber(*value);
    return value.has_value();
}

// A packed angle; the number -99999 stands for no value and is not taken for one.
bool StoreAngle(TaggedReading& reading, const TagRule& rule) {
    const std::optional<double> value = NumberOrRefusal(reading, rule);
    if (value)
        reading.pending.*rule.number =
            HasValue(*value) ? Angles_GET_RadFromDMSPacked(reading.Value()) : NoValue;
    return value.has_value();
}

bool StoreWord(TaggedReading& reading, const TagRule& rule) {
    reading.pending.*rule.word = Word(reading.Value());
    return true;
}

bool AddDescription(TaggedReading& reading, const TagRule&) {
    AppendLine(reading.pending.PD, reading.line);
    return true;
}

bool StoreSystem(TaggedReading& reading, const TagRule& rule) {
    reading.header.System.*rule.system = reading.Value();
    return true;
}

bool StoreUnits(TaggedReading& reading, const TagRule&) {
    CoordSystemRef& system = reading.header.System;
    const std::string_view name = Distances_GET_UnitName(Column(reading.Value(), 1));
    if (!name.empty()) system.HorizontalUnits = name;
    system.VerticalUnits = system.HorizontalUnits;
    reading.horizontalUnits = system.HorizontalUnits;
    reading.verticalUnits = system.VerticalUnits;
    return true;
}

bool KeepLine(TaggedReading& reading) {
    std::string& record = reading.chainOpen ? reading.chain.Others : reading.pending.Others;
    AppendLine(reading.inHeader ? reading.header.HeaderLines : record, reading.line);
    return true;
}

bool StoreHeightSingly(TaggedReading& reading, const TagRule& rule) {
    const std::optional<double> value = NumberOrRefusal(reading, rule);
    if (value) reading.pending.*rule.number = static_cast<double>(SingleFromNumber(*value));
    return value.has_value();
}

bool StoreFeature(TaggedReading& reading, const TagRule& rule) {
    if (!reading.chainOpen) return StoreWord(reading, rule);
    reading.chain.FE = reading.Value();
    return true;
}

bool StoreChainText(TaggedReading& reading, const TagRule& rule) {
    reading.chain.*rule.chain = reading.Value();
    return true;
}

bool AddChainValue(TaggedReading& reading, const TagRule& rule) {
    AppendLine(reading.chain.*rule.chain, reading.Value());
    return true;
}

bool AddChainLine(TaggedReading& reading, const TagRule& rule) {
    AppendLine(reading.chain.*rule.chain, reading.line);
    return true;
}

bool CloseChain(TaggedReading& reading, const TagRule&) {
    reading.chains.Append(reading.chain);
    reading.chainOpen = false;
    return true;
}

bool PassOver(TaggedReading&, const TagRule&) { return true; }

using P = PointRecord;
using S = CoordSystemRef;
using C = ChainRecord;

constexpr std::string_view EllipsoidHeightFault = "Ellipsoid Height must be numeric.";

const TagRule RulesOfChains[] = {
    {.tag = "CP:", .act = PassOver},
    {.tag = "BG:", .act = PassOver},
    {.tag = "EG:", .act = CloseChain},
    {.tag = "FE:", .act = StoreFeature, .word = &P::FE},
    {.tag = "CD:", .act = AddChainValue, .chain = &C::CD},
    {.tag = "FG:", .act = StoreChainText, .chain = &C::FG},
    {.tag = "PL:", .act = AddChainLine, .chain = &C::PL},
    {.tag = "CH:", .act = AddChainLine, .chain = &C::CH},
    // Only some 7 digits of an ellipsoid height survive in these families.
    {.tag = "HE:", .act = StoreHeightSingly, .number = &P::HE, .refusal = EllipsoidHeightFault},
};

const TagRule CommonRules[] = {
    {.tag = "PR:", .act = StoreProject},
    {.tag = "AC:", .act = ChangeActivity},
    {.tag = "PN:", .act = StoreName},
    {.tag = "SX:",
     .act = StoreSingle,
     .single = &P::SX,
     .refusal = "Easting Error Estimate must be numeric."},
    {.tag = "SY:",
     .act = StoreSingle,
     .single = &P::SY,
     .refusal = "Northing Error Estimate must be numeric."},
    {.tag = "SZ:",
     .act = StoreSingle,
     .single = &P::SZ,
     .refusal = "Elevation Error Estimate must be numeric."},
    {.tag = "LT:", .act = StoreAngle, .number = &P::LT, .refusal = "Latitude must be numeric."},
    {.tag = "LG:", .act = StoreAngle, .number = &P::LG, .refusal = "Longitude must be numeric."},
    {.tag = "HE:", .act = StoreNumber, .number = &P::HE, .refusal = EllipsoidHeightFault},
    {.tag = "HG:", .act = StoreNumber, .number = &P::HG, .refusal = "Geoid Height must be numeric."},
    {.tag = "CA:", .act = StoreAngle, .number = &P::CA, .refusal = "Convergance Angle must be numeric."},
    {.tag = "SF:", .act = StoreNumber, .number = &P::SF, .refusal = "Scale Factor must be numeric."},
    {.tag = "PD:", .act = AddDescription},
    {.tag = "FE:", .act = StoreWord, .word = &P::FE},
    {.tag = "GM:", .act = StoreWord, .word = &P::GM},
    {.tag = "CL:", .act = StoreWord, .word = &P::CL},
    {.tag = "GR:", .act = StoreWord, .word = &P::GR},
    {.tag = "CS:", .act = StoreSystem, .system = &S::CS},
    {.tag = "ZN:", .act = StoreSystem, .system = &S::ZN},
    {.tag = "HD:", .act = StoreSystem, .system = &S::HD},
    {.tag = "VD:", .act = StoreSystem, .system = &S::VD},
    {.tag = "UL:", .act = StoreUnits},
};

bool ReadLine(TaggedReading& reading) {
    if (reading.line.empty()) return RefuseLine(reading, reading.family.blankLineText);
    const TagRule* rule = reading.family.tags.Find(reading.line);
    return rule != nullptr ? rule->act(reading, *rule) : KeepLine(reading);
}

void FillInputTables(TaggedReading& reading) {
    SurveyTables& tables = Tables();
    tables.InputHeader = std::move(reading.header);
    tables.InputPoints = std::move(reading.points);
    tables.InputChains = std::move(reading.chains);
}

}  // namespace

TagTable::TagTable(std::initializer_list<std::span<const TagRule>> familyRules) {
    for (const std::span<const TagRule> rules : familyRules)
        for (const TagRule& rule : rules) Add(rule);
    for (const TagRule& rule : CommonRules) Add(rule);
}

std::size_t TagTable::FirstSlot(std::string_view tag) {
    return (static_cast<unsigned char>(tag[0]) * 5U + static_cast<unsigned char>(tag[1])) % Slots;
}

void TagTable::Add(const TagRule& rule) {
    std::size_t slot = FirstSlot(rule.tag);
    while (!rules_[slot].tag.empty() && rules_[slot].tag != rule.tag) slot = (slot + 1) % Slots;
    if (rules_[slot].tag.empty()) rules_[slot] = rule;
}

const TagRule* TagTable::Find(std::string_view line) const {
    if (line.size() < 3) return nullptr;
    const std::string_view tag = line.substr(0, 3);
    for (std::size_t slot = FirstSlot(tag); !rules_[slot].tag.empty(); slot = (slot + 1) % Slots)
        if (rules_[slot].tag == tag) return &rules_[slot];
    return nullptr;
}

bool ReadTaggedFile(const std::string& path, const FileFamily& family) {
    if (!FileExists(path)) {
        TellFileNotFound(path);
        return false;
    }
    TaggedReading reading{.family = family, .path = path};
    TextFileIn file(path);
    for (std::string_view line; file.NextLine(line);) {
        ++reading.lineNumber;
        reading.line = TrimRight(line);
        if (!ReadLine(reading)) return false;
    }
    if (reading.chainOpen) reading.chains.Append(reading.chain);
    ClosePoint(reading);
    FillInputTables(reading);
    return true;
}

std::span<const TagRule> ChainRules() { return RulesOfChains; }

bool StoreCoordinate(TaggedReading& reading, const TagRule& rule) {
    if (!StoreNumber(reading, rule)) return false;
    reading.pending.*rule.control = rule.isControl;
    return true;
}

bool RefuseCoordinate(TaggedReading& reading, const TagRule&) {
    return RefuseLine(reading, reading.family.wrongCoordinateText);
}

}  // namespace tarvek
