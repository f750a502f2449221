#include "oracle/programProjection.hpp"

#include "coordmath/modCoordConvertPlane.hpp"
#include "surveyfiles/modSurveyRecords.hpp"

namespace tarvek::test {
namespace {

// The unit that a zone's equations are in, and its length.
struct EquationUnit {
    const char* name;
    double meters;
};

EquationUnit UnitOf(const SeedZone& zone) {
    if (zone.projection.ends_with("NAD 27 Equations"))
        return {.name = "U.S. Survey Feet", .meters = MetersPerSurveyFoot};
    return {.name = "Meters", .meters = 1};
}

Distortion DistortionOf(const PointRecord& point) {
    return {.convergence = point.CA / RadiansInDegree, .scale = point.SF};
}

Computed<PlanePoint> PlaneOf(const PointRecord& point, double meters) {
    return {.where = {.northing = point.Y * meters, .easting = point.X * meters},
            .distortion = DistortionOf(point)};
}

Computed<Position> PositionOf(const PointRecord& point) {
    return {.where = {.latitude = point.LT / RadiansInDegree, .longitude = -point.LG / RadiansInDegree},
            .distortion = DistortionOf(point)};
}

}  // namespace

ProgramWithSeeds::ProgramWithSeeds() {
    for (const char* file : {"zones.ini", "datums.ini", "ellipsoids.ini"})
        folder_.Put(file, ReadBytes(std::string(TARVEK_SOURCE) + "/data/" + file));
}

std::vector<Computed<PlanePoint>> ProgramWithSeeds::Forward(const SeedZone& zone,
                                                            const std::vector<Position>& positions) const {
    const EquationUnit unit = UnitOf(zone);
    PointList& points = Tables().ConversionPoints;
    points = {};
    for (const Position& position : positions) {
        PointRecord record;
        record.LT = position.latitude * RadiansInDegree;
        record.LG = -position.longitude * RadiansInDegree;
        points.Append(record);
    }
    EXPECT_TRUE(CoordConvert_GeographicToPlane(zone.system, zone.zone, zone.datum, unit.name));
    std::vector<Computed<PlanePoint>> computed;
    for (std::size_t i = 0; i < points.size(); ++i) computed.push_back(PlaneOf(points[i], unit.meters));
    return computed;
}

std::vector<Computed<Position>> ProgramWithSeeds::Inverse(const SeedZone& zone,
                                                          const std::vector<PlanePoint>& plane) const {
    const EquationUnit unit = UnitOf(zone);
    PointList& points = Tables().ConversionPoints;
    points = {};
    for (const PlanePoint& point : plane) {
        PointRecord record;
        record.Y = point.northing / unit.meters;
        record.X = point.easting / unit.meters;
        record.HorizontalUnits = Word(unit.name);
        points.Append(record);
    }
    EXPECT_TRUE(CoordConvert_PlaneToGeographic(zone.system, zone.zone, zone.datum));
    std::vector<Computed<Position>> computed;
    for (std::size_t i = 0; i < points.size(); ++i) computed.push_back(PositionOf(points[i]));
    return computed;
}

}  // namespace tarvek::test
