#include "coordmath/modConversionChoice.hpp"

#include <algorithm>
#include <iterator>

#include "library/modLibraryNames.hpp"
#include "platform/modPrompts.hpp"

namespace tarvek {
namespace {

using Options = ConversionOptions;
using System = CoordSystemRef;

bool LacksZone(const System& system) { return !IsGeographicSystem(system) && system.ZN.empty(); }
bool LacksVerticalUnits(const System& system) { return system.VD != NoDatum && system.VerticalUnits.empty(); }

struct Requirement {
    bool (*isLacking)(const Options& options);
    const char* text;
    const char* caption;
};

// In the order in which they are told.
constexpr Requirement Requirements[] = {
    {[](const Options& o) { return o.InputSystem.CS.empty(); },
     "You must specify the input Coordinate System.", "Coordinate System Required"},
    {[](const Options& o) { return LacksZone(o.InputSystem); }, "You must specify the input Zone.",
     "Zone Required"},
    {[](const Options& o) { return o.InputSystem.HD.empty(); }, "You must specify the input Horizonal Datum.",
     "Horizontal Datum Requied"},
    {[](const Options& o) { return o.InputSystem.HorizontalUnits.empty(); },
     "You must specify the input Horizontal Units.", "Horizontal Units Required"},
    {[](const Options& o) { return LacksVerticalUnits(o.InputSystem); },
     "You must specify the Vertical Units.", "Vertical Units Required"},
    {[](const Options& o) { return o.OutputSystem.CS.empty(); },
     "You must specify the output Coordinate System.", "Coordinate System Required"},
    {[](const Options& o) { return LacksZone(o.OutputSystem); }, "You must specify the output Zone.",
     "Zone Required"},
    {[](const Options& o) { return o.OutputSystem.HD.empty(); },
     "You must specify the output Horizonal Datum.", "Horizontal Datum Requied"},
    {[](const Options& o) { return o.OutputSystem.HorizontalUnits.empty(); },
     "You must specify the output Horizontal Units.", "Horizontal Units Required"},
    {[](const Options& o) { return o.InputSystem.VD.empty(); }, "You must specify the input Vertical Datum.",
     "Vertical Datum Requied"},
    {[](const Options& o) { return o.OutputSystem.VD.empty(); },
     "You must specify the output Vertical Datum.", "Vertical Datum Required"},
    {[](const Options& o) { return LacksVerticalUnits(o.OutputSystem); },
     "You must specify the output Vertical Units.", "Vertical Units Required"},
    {[](const Options& o) { return o.ComputeGeoid && o.GeoidModel.empty(); },
     "You must specfiy the Geoid Model to use in order to Compute Geoid Heights.", "Geoid Model Required"},
};

bool IsMet(const Requirement& requirement, const Options& options) {
    if (!requirement.isLacking(options)) return true;
    TellFault(requirement.text, requirement.caption);
    return false;
}

}  // namespace

bool CheckConversionChoice(const ConversionOptions& options) {
    return std::all_of(std::begin(Requirements), std::end(Requirements),
                       [&](const Requirement& requirement) { return IsMet(requirement, options); });
}

}  // namespace tarvek
