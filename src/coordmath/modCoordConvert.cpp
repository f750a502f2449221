#include "coordmath/modCoordConvert.hpp"

#include "coordmath/modCoordConvertDatum.hpp"
#include "coordmath/modCoordConvertPlane.hpp"
#include "platform/modText.hpp"

namespace tarvek {
namespace {

// Points that come in by latitude and longitude live there from now on.
bool MarkGeographic(PointList& points) {
    for (std::size_t i = 0, count = points.size(); i < count; ++i)
        if (HasValue(points[i].LT) && HasValue(points[i].LG)) points.Change(i).IsGeographic = true;
    return true;
}

}  // namespace

bool CoordConvert_Run() {
    ConversionOptions& options = Tables().Options;
    const CoordSystemRef& input = options.InputSystem;
    const CoordSystemRef& output = options.OutputSystem;

    const bool isLocated = IsGeographicSystem(input)
                               ? MarkGeographic(Tables().ConversionPoints)
                               : CoordConvert_PlaneToGeographic(input.CS, input.ZN, input.HD);
    if (!isLocated) return false;
    if (output.HD != input.HD && !CoordConvert_HorizontalDatum(input.HD, output.HD)) return false;
    if (!CoordConvert_VerticalChange(input.VD, output.VD, output.VerticalUnits, options.ComputeGeoid,
                                     options.GeoidModel))
        return false;
    options.OutputGeographic = IsGeographicSystem(output);
    return options.OutputGeographic ||
           CoordConvert_GeographicToPlane(output.CS, output.ZN, output.HD, output.HorizontalUnits);
}

void AddGeoidLine(ProjectHeader& header, const ConversionOptions& options) {
    if (!options.ComputeGeoid) return;
    if (!header.HeaderLines.empty()) header.HeaderLines += LineEnd;
    header.HeaderLines += "GD:" + options.GeoidModel;
}

}  // namespace tarvek
