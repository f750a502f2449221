#include "coordmath/modCoordConvertDatum.hpp"

#include <algorithm>
#include <string>

#include "coordmath/modDistances.hpp"
#include "datumtools/modNADCON_32.hpp"
#include "library/modINIFile.hpp"
#include "library/modINIText.hpp"
#include "library/modLibraryFiles.hpp"
#include "platform/modPrompts.hpp"
#include "platform/modText.hpp"
#include "surveyfiles/modSurveyRecords.hpp"

namespace tarvek {
namespace {

std::string NoTransformation(std::string_view datumIn, std::string_view datumOut) {
    std::string text = "No datum transformation exists for '";
    text.append(datumIn).append("' to '").append(datumOut).append("'");
    return text;
}

bool TellNoTransformation(std::string_view datumIn, std::string_view datumOut) {
    TellFault(NoTransformation(datumIn, datumOut) + '.', "No Datum Transformation");
    return false;
}

bool AskWithoutTransformation(std::string_view datumIn, std::string_view datumOut) {
    return Ask(
        {.text =
             NoTransformation(datumIn, datumOut) +
             " but these datums share the same ellipsoid.  The coordiantes can be converted without a datum "
             "transformation but this may introduce errors.  Do you want to convert the coordinates without "
             "applying a datum transformation?",
         .caption = "Convert Coordiantes Without Datum Transformation?",
         .buttons = Buttons::YesNo});
}

// Stands for a stage that this version does not have.
bool TellMissingStage(std::string_view name) {
    std::string text = "This version does not have the transformation '";
    TellFault(text.append(name).append("'."));
    return false;
}

bool HeightsHaveMoved(std::string_view) { return true; }

// A procedure with the characters that its methods begin with.
struct HorizontalStage {
    std::string_view beginning;
    bool (*run)(std::string_view method);
};

constexpr HorizontalStage HorizontalStages[] = {
    {"NADCON", NADCON_Transform},
    {"GEOCON", TellMissingStage},
    {"HTDP 3.2.3", TellMissingStage},
};

struct VerticalStage {
    std::string_view method;
    bool (*run)(std::string_view method);
};

constexpr VerticalStage VerticalStages[] = {
    {"VERTCON NGVD 29 to NAVD 88", TellMissingStage},
    {"VERTCON NAVD 88 to NGVD 29", TellMissingStage},
    {"GEOID99 NAD 83 to NAVD 88", TellMissingStage},
    {"GEOID03 NAD 83 to NAVD 88", TellMissingStage},
    {"GEOID06 NAD 83 to NAVD 88", TellMissingStage},
    {"GEOID09 NAD 83 to NAVD 88", TellMissingStage},
    {"GEOID99 NAVD 88 to NAD 83", TellMissingStage},
    {"GEOID03 NAVD 88 to NAD 83", TellMissingStage},
    {"GEOID06 NAVD 88 to NAD 83", TellMissingStage},
    {"GEOID09 NAVD 88 to NAD 83", TellMissingStage},
    {"GEOCON Beta NAD 83 (HARN) to NAD 83 (2007) - CONUS", HeightsHaveMoved},
    {"GEOCON Beta NAD 83 (2007) to NAD 83 (HARN) - CONUS", HeightsHaveMoved},
};

constexpr VerticalStage GeoidModels[] = {
    {"GEOID99", TellMissingStage}, {"GEOID03", TellMissingStage},  {"GEOID06", TellMissingStage},
    {"GEOID09", TellMissingStage}, {"GEOID12A", TellMissingStage}, {"EGM96", TellMissingStage},
};

template <std::size_t Count>
const VerticalStage* FindStage(const VerticalStage (&stages)[Count], std::string_view method) {
    const auto* const found = std::find_if(std::begin(stages), std::end(stages),
                                           [&](const VerticalStage& s) { return s.method == method; });
    return found == std::end(stages) ? nullptr : found;
}

bool ComputeGeoidHeights(std::string_view model) {
    const VerticalStage* const stage = FindStage(GeoidModels, model);
    if (stage != nullptr) return stage->run(model);
    std::string text = "Unknown Geoid Model '";
    TellFault(text.append(model).append("'.  Can not compute geoid heights."), "Geoid Error");
    return false;
}

void ConvertHeights(PointList& points, std::string_view unitsOut) {
    RecordDistances heights(unitsOut);
    for (std::size_t i = 0, count = points.size(); i < count; ++i) {
        if (points[i].VerticalUnits == heights.Unit()) continue;
        PointRecord& point = points.Change(i);
        point.Z = heights.Convert(point.Z, point.VerticalUnits);
        point.SZ = heights.Convert(point.SZ, point.VerticalUnits);
        point.HE = heights.Convert(point.HE, point.VerticalUnits);
        point.HG = heights.Convert(point.HG, point.VerticalUnits);
        point.VerticalUnits = heights.Unit();
    }
}

}  // namespace

bool CoordConvert_HorizontalDatum(std::string_view datumIn, std::string_view datumOut) {
    const INIView datums(ReadINIFile(DatumsFile()));
    const std::string_view method = datums.Value(datumIn, datumOut);
    if (method.empty()) {
        if (datums.Value(datumIn, "Ellipsoid") != datums.Value(datumOut, "Ellipsoid"))
            return TellNoTransformation(datumIn, datumOut);
        return AskWithoutTransformation(datumIn, datumOut);
    }
    for (const HorizontalStage& stage : HorizontalStages)
        if (Trim(method.substr(0, stage.beginning.size())) == stage.beginning) return stage.run(method);
    return true;
}

bool CoordConvert_VerticalDatum(std::string_view datumIn, std::string_view datumOut) {
    const INIView datums(ReadINIFile(DatumsFile()));
    const std::string_view method = datums.Value(datumIn, datumOut);
    if (method.empty()) return TellNoTransformation(datumIn, datumOut);
    if (const VerticalStage* const stage = FindStage(VerticalStages, method)) return stage->run(method);
    std::string text = "Unknown vertical transformation method '";
    TellFault(text.append(method).append("'."), "Unknown Transformation Method");
    return false;
}

bool CoordConvert_VerticalChange(std::string_view datumIn, std::string_view datumOut,
                                 std::string_view unitsOut, bool computeGeoid, std::string_view geoidModel) {
    if (datumIn != datumOut && !CoordConvert_VerticalDatum(datumIn, datumOut)) return false;
    if (computeGeoid && !ComputeGeoidHeights(geoidModel)) return false;
    ConvertHeights(Tables().ConversionPoints, unitsOut);
    return true;
}

}  // namespace tarvek
