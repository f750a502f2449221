#include "coordmath/modCoordConvertPlane.hpp"

#include "coordmath/modAngles.hpp"
#include "coordmath/modDistances.hpp"
#include "coordmath/modLambertNI.hpp"
#include "coordmath/modNAD27AK2to9.hpp"
#include "coordmath/modNAD27Lambert.hpp"
#include "coordmath/modNAD27TMercator.hpp"
#include "coordmath/modNAD83Lambert.hpp"
#include "coordmath/modNAD83OMercator.hpp"
#include "coordmath/modNAD83TMercator.hpp"
#include "coordmath/modZoneParameters.hpp"
#include "platform/modNumbers.hpp"
#include "platform/modProgress.hpp"
#include "surveyfiles/modSurveyRecords.hpp"

namespace tarvek {
namespace {

constexpr std::string_view TransverseMercator27 = "Transverse Mercator - NAD 27 Equations";

// The procedures of a projection. The second and third work on the zone that the first has set.
struct Equations {
    std::string_view projection;
    void (*setZone)(const ZoneParameters& zone);
    PlanePosition (*plane)(double phi, double lam);
    GeographicPosition (*geographic)(double northing, double easting);
};

constexpr Equations AllEquations[] = {
    {"Transverse Mercator",
     [](const ZoneParameters& z) { TMercator83_SET_Zone(z.a, z.e, z.phi0, z.lam0, z.FN, z.FE, z.k0); },
     TMercator83_GET_Plane, TMercator83_GET_Geographic},
    {"Lambert Conformal Conic - One Parallel",
     [](const ZoneParameters& z) { LambertNI_SET_Zone(z.a, z.e, z.phi0, z.lam0, z.FN, z.FE, z.k0); },
     LambertNI_GET_Plane, LambertNI_GET_Geographic},
    {"Lambert Conformal Conic - Two Parallels",
     [](const ZoneParameters& z) {
         Lambert83_SET_Zone(z.northParallel, z.southParallel, z.phi0, z.lam0, z.FN, z.FE, z.a, z.e);
     },
     Lambert83_GET_Plane, Lambert83_GET_Geographic},
    {"Oblique Mercator - Hotine",
     [](const ZoneParameters& z) {
         OMercator83_SET_Zone(z.a, z.e, z.phi0, z.lam0, z.FN, z.FE, z.k0, z.alpha);
     },
     OMercator83_GET_Plane, OMercator83_GET_Geographic},
    {TransverseMercator27,
     [](const ZoneParameters& z) { TMercator27_SET_Zone(z.a, z.e, z.phi0, z.lam0, z.FN, z.FE, z.k0); },
     TMercator27_GET_Plane, TMercator27_GET_Geographic},
    {"Lambert Conformal Conic - NAD 27 Equations",
     [](const ZoneParameters& z) {
         Lambert27_SET_Zone(z.northParallel, z.southParallel, z.phi0, z.lam0, z.FN, z.FE, z.a, z.e);
     },
     Lambert27_GET_Plane, Lambert27_GET_Geographic},
};

const Equations& EquationsOf(const Projection& projection) {
    for (const Equations& equations : AllEquations)
        if (equations.projection == projection.name) return equations;
    RaiseFault(Fault::InvalidCall);
}

// Alaska 2 to 9 of 1927, told by the number that a zone's name begins with, have equations of their own.
bool IsAlaska2To9(const Projection& projection, std::string_view zone) {
    const double number = LeadingNumber(zone);
    return projection.name == TransverseMercator27 && number > 5001 && number < 5010;
}

constexpr std::size_t PointsPerProgress = 4096;

// Calls `change` with every point that has what `isMet` asks for.
template <class IsMet, class Change>
void ChangePoints(PointList& points, const IsMet& isMet, const Change& change) {
    ProgressTask progress;
    progress.Begin("Converting coordinates", points.size());
    for (std::size_t i = 0, count = points.size(); i < count; ++i) {
        if (i % PointsPerProgress == 0) progress.At(i);
        if (isMet(points[i])) change(points.Change(i));
    }
}

bool HasPlanePosition(const PointRecord& point) { return HasValue(point.Y) && HasValue(point.X); }
bool HasGeographicPosition(const PointRecord& point) { return HasValue(point.LT) && HasValue(point.LG); }

template <class Inverse>
void ToGeographic(std::string_view equationUnit, const Inverse& inverse) {
    RecordDistances lengths(equationUnit);
    const Word north("N");
    const Word west("W");
    ChangePoints(Tables().ConversionPoints, HasPlanePosition, [&](PointRecord& point) {
        point.Y = lengths.Convert(point.Y, point.HorizontalUnits);
        point.X = lengths.Convert(point.X, point.HorizontalUnits);
        point.SY = lengths.Convert(point.SY, point.HorizontalUnits);
        point.SX = lengths.Convert(point.SX, point.HorizontalUnits);
        point.HorizontalUnits = lengths.Unit();
        const GeographicPosition position = inverse(point.Y, point.X);
        point.LT = position.phi;
        point.LG = position.lam;
        point.CA = position.convergence;
        point.SF = position.scale;
        point.LatDir = north;
        point.LongDir = west;
        point.IsGeographic = true;
    });
}

// A latitude positive north, a longitude positive west; -99999 where the record has no such direction. Most
// records have these directions already, in which a longitude changes only below zero.
double NorthernLatitude(const PointRecord& point, Word north) {
    return point.LatDir == north ? point.LT : Angles_GET_Direction(point.LT, point.LatDir, "N");
}
double WesternLongitude(const PointRecord& point, Word west) {
    return point.LongDir == west && point.LG >= 0 ? point.LG
                                                  : Angles_GET_Direction(point.LG, point.LongDir, "W");
}

template <class Forward>
void ToPlane(std::string_view equationUnit, std::string_view unit, const Forward& forward) {
    RecordDistances lengths(unit);
    const Word from(equationUnit);
    const Word north("N");
    const Word west("W");
    ChangePoints(Tables().ConversionPoints, HasGeographicPosition, [&](PointRecord& point) {
        const double phi = NorthernLatitude(point, north);
        const double lam = WesternLongitude(point, west);
        if (!HasValue(phi) || !HasValue(lam)) return;  // nobody can tell where it is
        point.LT = phi;
        point.LG = lam;
        const PlanePosition position = forward(phi, lam);
        point.Y = lengths.Convert(position.northing, from);
        point.X = lengths.Convert(position.easting, from);
        point.CA = position.convergence;
        point.SF = position.scale;
        point.SY = lengths.Convert(point.SY, from);
        point.SX = lengths.Convert(point.SX, from);
        point.HorizontalUnits = lengths.Unit();
        point.IsGeographic = false;
    });
}

// Reads the zone and calls `convert` with the unit, the inverse and the forward of its equations, ready for
// points. An unknown projection has none, and so changes nothing.
template <class Convert>
bool ConvertByZone(std::string_view coordinateSystem, std::string_view zone, std::string_view horizontalDatum,
                   const Convert& convert) {
    const auto read = ReadZoneParameters(coordinateSystem, zone, horizontalDatum);
    if (!read) return false;
    const ZoneParameters& z = *read;
    if (z.projection == nullptr) return true;
    if (IsAlaska2To9(*z.projection, zone)) {
        convert(
            z.projection->unit,
            [&](double northing, double easting) {
                return AK27_GET_Geographic(northing, easting, z.FE, z.phi0, z.lam0);
            },
            [&](double phi, double lam) { return AK27_GET_Plane(phi, lam, z.FE, z.phi0, z.lam0); });
        return true;
    }
    const Equations& equations = EquationsOf(*z.projection);
    equations.setZone(z);
    convert(z.projection->unit, equations.geographic, equations.plane);
    return true;
}

}  // namespace

bool CoordConvert_PlaneToGeographic(std::string_view coordinateSystem, std::string_view zone,
                                    std::string_view horizontalDatum) {
    return ConvertByZone(
        coordinateSystem, zone, horizontalDatum,
        [](std::string_view unit, const auto& inverse, const auto&) { ToGeographic(unit, inverse); });
}

bool CoordConvert_GeographicToPlane(std::string_view coordinateSystem, std::string_view zone,
                                    std::string_view horizontalDatum, std::string_view horizontalUnits) {
    return ConvertByZone(coordinateSystem, zone, horizontalDatum,
                         [&](std::string_view unit, const auto&, const auto& forward) {
                             ToPlane(unit, horizontalUnits, forward);
                         });
}

}  // namespace tarvek
