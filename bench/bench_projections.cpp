// Carries a list of a million points to a zone of the library and back, as a conversion does, and prints a
// line for each zone and way: its name, then nanoseconds a point (the median of several rounds)
//
//     of the list, whose records nobody shares
//     of the list while another shares its records, which are copied on the way
//     of the bare projection over plain numbers
//     of PROJ's true projection, without convergence and scale
//
// All four are measured in turn, round after round. The program folder is TARVEK_HOME.

#include <proj.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "benchAreas.hpp"
#include "coordmath/modCoordConvertPlane.hpp"
#include "coordmath/modDistances.hpp"
#include "coordmath/modLambertNI.hpp"
#include "coordmath/modNAD27AK2to9.hpp"
#include "coordmath/modNAD27Lambert.hpp"
#include "coordmath/modNAD27TMercator.hpp"
#include "coordmath/modNAD83Lambert.hpp"
#include "coordmath/modNAD83OMercator.hpp"
#include "coordmath/modNAD83TMercator.hpp"
#include "coordmath/modZoneParameters.hpp"
#include "surveyfiles/modSurveyRecords.hpp"

namespace {

using namespace tarvek;

constexpr std::size_t Count = 1'000'000;
constexpr int Rounds = 7;

// A zone of the library. The bare projections work on the zone that the list has set before them; those of
// Alaska have theirs in the arguments.
struct Zone {
    const char* name;
    const char* system;
    const char* zone;
    const char* datum;
    const Area& area;
    PlanePosition (*plane)(double phi, double lam);
    GeographicPosition (*geographic)(double northing, double easting);
};

constexpr double AlaskaFE = 500000;
constexpr double AlaskaMeridian = Radians(150);

constexpr Zone Zones[] = {
    {"transverse Mercator", "UTM83", "14N", "NAD 83", TransverseMercatorArea, TMercator83_GET_Plane,
     TMercator83_GET_Geographic},
    {"Lambert", "SPC83", "2600", "NAD 83", LambertArea, Lambert83_GET_Plane, Lambert83_GET_Geographic},
    {"oblique Mercator", "SPC83", "5001", "NAD 83", ObliqueArea, OMercator83_GET_Plane,
     OMercator83_GET_Geographic},
    {"one-parallel Lambert", "SPC27", "5300", "American Samoa 1962", OneParallelArea, LambertNI_GET_Plane,
     LambertNI_GET_Geographic},
    {"transverse Mercator of 1927", "SPC27", "0101", "NAD 27", TransverseMercator27Area,
     TMercator27_GET_Plane, TMercator27_GET_Geographic},
    {"Lambert of 1927", "SPC27", "2601", "NAD 27", Lambert27Area, Lambert27_GET_Plane,
     Lambert27_GET_Geographic},
    {"Alaska of 1927", "SPC27", "5004", "NAD 27", Alaska27Area,
     [](double phi, double lam) { return AK27_GET_Plane(phi, lam, AlaskaFE, 0, AlaskaMeridian); },
     [](double northing, double easting) {
         return AK27_GET_Geographic(northing, easting, AlaskaFE, 0, AlaskaMeridian);
     }},
};

double NanosecondsAPoint(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    const std::chrono::duration<double, std::nano> time = std::chrono::steady_clock::now() - start;
    return time.count() / static_cast<double>(Count);
}

double Median(std::vector<double> times) {
    std::nth_element(times.begin(), times.begin() + Rounds / 2, times.end());
    return times[Rounds / 2];
}

void Require(bool isDone, const Zone& zone) {
    if (isDone) return;
    std::fprintf(stderr, "no zone %s of %s\n", zone.zone, zone.system);
    std::exit(1);
}

std::string_view UnitOf(const Zone& zone) {
    const auto parameters = ReadZoneParameters(zone.system, zone.zone, zone.datum);
    Require(parameters.has_value(), zone);
    return parameters->projection->unit;
}

// One way of one zone.
class Way {
  public:
    Way(const Zone& zone, bool isForward) : zone_(zone), isForward_(isForward), unit_(UnitOf(zone)) {}

    void Measure(const Positions& positions, PJ* projection, const std::vector<PJ_COORD>& coordinates) {
        Fill(positions);
        list_.push_back(NanosecondsAPoint([&] { ConvertList(); }));
        Fill(positions);
        const PointList shared = Tables().ConversionPoints;
        shared_.push_back(NanosecondsAPoint([&] { ConvertList(); }));
        bare_.push_back(NanosecondsAPoint([&] { ConvertNumbers(positions); }));
        std::vector<PJ_COORD> points = coordinates;
        proj_.push_back(NanosecondsAPoint([&] {
            proj_trans_array(projection, isForward_ ? PJ_FWD : PJ_INV, points.size(), points.data());
        }));
    }

    void Print() const {
        std::printf("%s %s\t%.1f\t%.1f\t%.1f\t%.1f\n", zone_.name, isForward_ ? "forward" : "inverse",
                    Median(list_), Median(shared_), Median(bare_), Median(proj_));
    }

  private:
    // Records of points as a reader leaves them, in the unit of the equations.
    void Fill(const Positions& positions) const {
        PointRecord point;
        point.HorizontalUnits = unit_;
        PointList& points = Tables().ConversionPoints;
        points = {};
        for (std::size_t i = 0; i < Count; ++i) {
            (isForward_ ? point.LT : point.Y) = positions.first[i];
            (isForward_ ? point.LG : point.X) = isForward_ ? -positions.second[i] : positions.second[i];
            point.PN = std::to_string(i);
            points.Append(point);
        }
    }

    void ConvertList() const {
        Require(isForward_ ? CoordConvert_GeographicToPlane(zone_.system, zone_.zone, zone_.datum, unit_)
                           : CoordConvert_PlaneToGeographic(zone_.system, zone_.zone, zone_.datum),
                zone_);
    }

    void ConvertNumbers(const Positions& positions) {
        double sum = 0;  // of all that is computed, so that all of it is
        for (std::size_t i = 0; i < Count; ++i) {
            if (isForward_) {
                const PlanePosition at = zone_.plane(positions.first[i], -positions.second[i]);
                sum += at.northing + at.easting + at.convergence + at.scale;
            } else {
                const GeographicPosition at = zone_.geographic(positions.first[i], positions.second[i]);
                sum += at.phi + at.lam + at.convergence + at.scale;
            }
        }
        sum_ = sum;
    }

    const Zone& zone_;
    bool isForward_;
    std::string_view unit_;
    volatile double sum_ = 0;
    std::vector<double> list_, shared_, bare_, proj_;
};

std::vector<PJ_COORD> CoordinatesOf(const Positions& positions) {
    std::vector<PJ_COORD> coordinates;
    for (std::size_t i = 0; i < Count; ++i)
        coordinates.push_back(proj_coord(positions.second[i], positions.first[i], 0, 0));
    return coordinates;
}

// The northings and eastings of the list, which must be those of PROJ, give or take a meter.
Positions PlaneOfList(const Zone& zone, const std::vector<PJ_COORD>& projected) {
    const DistanceConversion toMeters(UnitOf(zone), "Meters");
    Positions plane;
    for (const PointRecord& point : Tables().ConversionPoints) {
        const PJ_XY& at = projected[plane.first.size()].xy;
        if (!(std::fabs(toMeters(point.Y) - at.y) < 1 && std::fabs(toMeters(point.X) - at.x) < 1)) {
            std::fprintf(stderr, "%s is not %s\n", zone.name, zone.area.proj);
            std::exit(1);
        }
        plane.first.push_back(point.Y);
        plane.second.push_back(point.X);
    }
    return plane;
}

void MeasureZone(const Zone& zone) {
    const Positions geographic = RandomPositions(zone.area, Count);
    const std::vector<PJ_COORD> coordinates = CoordinatesOf(geographic);
    PJ* const projection = proj_create(PJ_DEFAULT_CTX, zone.area.proj);
    std::vector<PJ_COORD> projected = coordinates;
    proj_trans_array(projection, PJ_FWD, Count, projected.data());

    Way forward(zone, true);
    Way inverse(zone, false);
    Positions plane;
    for (int round = 0; round < Rounds; ++round) {
        forward.Measure(geographic, projection, coordinates);
        if (round == 0) plane = PlaneOfList(zone, projected);
        inverse.Measure(plane, projection, projected);
    }
    proj_destroy(projection);
    forward.Print();
    inverse.Print();
}

}  // namespace

int main() {
    for (const Zone& zone : Zones) MeasureZone(zone);
}
