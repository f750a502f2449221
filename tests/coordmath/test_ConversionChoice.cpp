// What a conversion must tell of its two systems: every text under its caption, in order.

#include "coordmath/modConversionChoice.hpp"

#include <iterator>

#include "support/testSupport.hpp"

namespace tarvek::test {
namespace {

constexpr const char* Geographic = "GCS - Geographic Coordinates";

ConversionOptions CompleteOptions() {
    ConversionOptions options;
    options.InputSystem = {
        "SPC83 - State Plane 1983", "2600 - Nebraska", "NAD 83", "Meters", "NAVD 88", "Meters"};
    options.OutputSystem = {"UTM83 - UTM on NAD 83", "14 - Zone 14", "NAD 83", "Meters", "NAVD 88", "Meters"};
    options.ComputeGeoid = true;
    options.GeoidModel = "GEOID99";
    return options;
}

struct Row {
    void (*spoil)(ConversionOptions& options);
    const char* text;
    const char* caption;
};

using O = ConversionOptions&;
constexpr Row Rows[] = {
    {[](O o) { o.InputSystem.CS.clear(); }, "You must specify the input Coordinate System.",
     "Coordinate System Required"},
    {[](O o) { o.InputSystem.ZN.clear(); }, "You must specify the input Zone.", "Zone Required"},
    {[](O o) { o.InputSystem.HD.clear(); }, "You must specify the input Horizonal Datum.",
     "Horizontal Datum Requied"},
    {[](O o) { o.InputSystem.HorizontalUnits.clear(); }, "You must specify the input Horizontal Units.",
     "Horizontal Units Required"},
    {[](O o) { o.InputSystem.VerticalUnits.clear(); }, "You must specify the Vertical Units.",
     "Vertical Units Required"},
    {[](O o) { o.OutputSystem.CS.clear(); }, "You must specify the output Coordinate System.",
     "Coordinate System Required"},
    {[](O o) { o.OutputSystem.ZN.clear(); }, "You must specify the output Zone.", "Zone Required"},
    {[](O o) { o.OutputSystem.HD.clear(); }, "You must specify the output Horizonal Datum.",
     "Horizontal Datum Requied"},
    {[](O o) { o.OutputSystem.HorizontalUnits.clear(); }, "You must specify the output Horizontal Units.",
     "Horizontal Units Required"},
    {[](O o) { o.InputSystem.VD.clear(); }, "You must specify the input Vertical Datum.",
     "Vertical Datum Requied"},
    {[](O o) { o.OutputSystem.VD.clear(); }, "You must specify the output Vertical Datum.",
     "Vertical Datum Required"},
    {[](O o) { o.OutputSystem.VerticalUnits.clear(); }, "You must specify the output Vertical Units.",
     "Vertical Units Required"},
    {[](O o) { o.GeoidModel.clear(); },
     "You must specfiy the Geoid Model to use in order to Compute Geoid Heights.", "Geoid Model Required"},
};

void ExpectTold(const ConversionOptions& options, const Row& row) {
    const ScriptedPrompts prompts;
    EXPECT_FALSE(CheckConversionChoice(options));
    ExpectToldOnly(prompts, row.text, row.caption);
}

void ExpectComplete(const ConversionOptions& options) {
    const ScriptedPrompts prompts;
    EXPECT_TRUE(CheckConversionChoice(options));
    ExpectNothingTold(prompts);
}

TEST(ConversionChoice, AllThatIsTold) { ExpectComplete(CompleteOptions()); }

TEST(ConversionChoice, EveryThingThatIsMissingIsToldUnderItsCaption) {
    for (const Row& row : Rows) {
        SCOPED_TRACE(row.text);
        ConversionOptions options = CompleteOptions();
        row.spoil(options);
        ExpectTold(options, row);
    }
}

TEST(ConversionChoice, TheFirstThingThatIsMissingIsToldAlone) {
    ConversionOptions options = CompleteOptions();
    for (auto row = std::rbegin(Rows); row != std::rend(Rows); ++row) {
        SCOPED_TRACE(row->text);
        row->spoil(options);
        ExpectTold(options, *row);
    }
}

TEST(ConversionChoice, TheGeographicSystemNeedsNoZone) {
    ConversionOptions options = CompleteOptions();
    options.InputSystem.CS = options.OutputSystem.CS = Geographic;
    options.InputSystem.ZN.clear();
    options.OutputSystem.ZN.clear();
    ExpectComplete(options);
    options.InputSystem.CS = "GCS";  // its name alone is exact
    ExpectTold(options, Rows[1]);
}

TEST(ConversionChoice, TheVerticalDatumNoneNeedsNoUnitOnItsSide) {
    ConversionOptions options = CompleteOptions();
    options.InputSystem.VerticalUnits.clear();
    options.OutputSystem.VerticalUnits.clear();
    options.InputSystem.VD = "None";
    ExpectTold(options, Rows[11]);
    options.OutputSystem.VD = "None";
    ExpectComplete(options);
    options.InputSystem.VD = "none";
    ExpectTold(options, Rows[4]);
}

TEST(ConversionChoice, WithoutGeoidHeightsNoModelIsNeeded) {
    ConversionOptions options = CompleteOptions();
    options.GeoidModel.clear();
    options.ComputeGeoid = false;
    ExpectComplete(options);
}

}  // namespace
}  // namespace tarvek::test
