#include "coordmath/modCoordConvert.hpp"

#include "coordmath/modCoordConvertPlane.hpp"
#include "coordmath/modDistances.hpp"
#include "platform/modPrompts.hpp"

namespace tarvek {
namespace {

bool TellMissing(const char* datum, const std::string& from, const std::string& to) {
    std::string text = "This version can not carry points to another ";
    text.append(datum).append(": from '").append(from).append("' to '").append(to).append("'.");
    TellFault(text);
    return false;
}

bool IsGeographicSystem(const CoordSystemRef& system) { return system.CS == GeographicSystem; }

// Points that come in by latitude and longitude live there from now on.
void MarkGeographic(PointList& points) {
    for (std::size_t i = 0; i < points.size(); ++i)
        if (HasValue(points[i].LT) && HasValue(points[i].LG)) points.Change(i).IsGeographic = true;
}

void ConvertHeights(PointList& points, std::string_view verticalUnits) {
    RecordDistances heights(verticalUnits);
    for (std::size_t i = 0; i < points.size(); ++i) {
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

bool CoordConvert_Run() {
    ConversionOptions& options = Tables().Options;
    PointList& points = Tables().ConversionPoints;
    const CoordSystemRef& input = options.InputSystem;
    const CoordSystemRef& output = options.OutputSystem;

    if (IsGeographicSystem(input)) {
        MarkGeographic(points);
    } else if (!CoordConvert_PlaneToGeographic(input.CS, input.ZN, input.HD)) {
        return false;
    }
    if (output.HD != input.HD) return TellMissing("horizontal datum", input.HD, output.HD);
    if (output.VD != input.VD) return TellMissing("vertical datum", input.VD, output.VD);
    ConvertHeights(points, output.VerticalUnits);
    options.OutputGeographic = IsGeographicSystem(output);
    return options.OutputGeographic ||
           CoordConvert_GeographicToPlane(output.CS, output.ZN, output.HD, output.HorizontalUnits);
}

}  // namespace tarvek
