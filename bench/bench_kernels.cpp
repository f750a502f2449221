// The arithmetic alone, one core: each projection against PROJ and GeographicLib on the same points, and
// angle text. Ours computes convergence and scale along with every position; GeographicLib does too, PROJ
// does not.

#include <benchmark/benchmark.h>
#include <proj.h>
#include <GeographicLib/LambertConformalConic.hpp>
#include <GeographicLib/TransverseMercator.hpp>

#include <random>
#include <string>
#include <vector>

#include "benchAreas.hpp"
#include "coordmath/modAngles.hpp"
#include "coordmath/modNAD83Lambert.hpp"
#include "coordmath/modNAD83OMercator.hpp"
#include "coordmath/modNAD83TMercator.hpp"

namespace {

using namespace tarvek;

constexpr double A = 6378137.0;
constexpr double E = 0.0818191910428158;
constexpr std::size_t Count = 4096;

const TMercator83Zone& TransverseMercatorZone() {
    static const TMercator83Zone zone = TMercator83ZoneOf(A, E, 0, Radians(99), 0, 500000, 0.9996);
    return zone;
}
const Lambert83Zone& LambertZone() {
    static const Lambert83Zone zone =
        Lambert83ZoneOf(Radians(43), Radians(40), Radians(39.8333333333333), Radians(100), 0, 500000, A, E);
    return zone;
}
const OMercator83Zone& ObliqueZone() {
    static const OMercator83Zone zone = OMercator83ZoneOf(
        A, E, Radians(57), Radians(133.666666666667), -5000000, 5000000, 0.9999, Radians(-36.869897638889));
    return zone;
}

template <class Plane>
Positions Projected(const Area& area, const Plane& plane) {
    Positions positions = RandomPositions(area, Count);
    for (std::size_t i = 0; i < Count; ++i) {
        const PlanePosition at = plane(positions.first[i], -positions.second[i]);
        positions.first[i] = at.northing;
        positions.second[i] = at.easting;
    }
    return positions;
}

void CountPoints(benchmark::State& state) {
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()) * static_cast<std::int64_t>(Count));
}

template <class Zone, class Plane>
void OursForward(benchmark::State& state, const Area& area, const Zone& zone, const Plane& plane) {
    const Positions positions = RandomPositions(area, Count);
    for (auto _ : state)
        for (std::size_t i = 0; i < Count; ++i)
            benchmark::DoNotOptimize(plane(zone, positions.first[i], -positions.second[i]));
    CountPoints(state);
}

template <class Zone, class Plane, class Geographic>
void OursInverse(benchmark::State& state, const Area& area, const Zone& zone, const Plane& plane,
                 const Geographic& geographic) {
    const Positions positions =
        Projected(area, [&](double phi, double lam) { return plane(zone, phi, lam); });
    for (auto _ : state)
        for (std::size_t i = 0; i < Count; ++i)
            benchmark::DoNotOptimize(geographic(zone, positions.first[i], positions.second[i]));
    CountPoints(state);
}

// PROJ's array call works in place, so each round begins with a copy, as one of ours would.
void Proj(benchmark::State& state, const Area& area, PJ_DIRECTION direction) {
    PJ* const projection = proj_create(PJ_DEFAULT_CTX, area.proj);
    const Positions positions = RandomPositions(area, Count);
    std::vector<PJ_COORD> given(Count);
    for (std::size_t i = 0; i < Count; ++i)
        given[i] = proj_coord(positions.second[i], positions.first[i], 0, 0);
    if (direction == PJ_INV) proj_trans_array(projection, PJ_FWD, Count, given.data());
    std::vector<PJ_COORD> points(Count);
    for (auto _ : state) {
        points = given;
        proj_trans_array(projection, direction, Count, points.data());
        benchmark::DoNotOptimize(points.data());
    }
    proj_destroy(projection);
    CountPoints(state);
}

template <class Projection>
void GeographicLibForward(benchmark::State& state, const Area& area, const Projection& projection,
                          double meridian) {
    const Positions positions = RandomPositions(area, Count);
    double x = 0;
    double y = 0;
    double convergence = 0;
    double scale = 0;
    for (auto _ : state)
        for (std::size_t i = 0; i < Count; ++i) {
            projection.Forward(meridian, positions.first[i] * DegreesPerRadian,
                               positions.second[i] * DegreesPerRadian, x, y, convergence, scale);
            benchmark::DoNotOptimize(x);
            benchmark::DoNotOptimize(y);
        }
    CountPoints(state);
}

template <class Projection>
void GeographicLibInverse(benchmark::State& state, const Area& area, const Projection& projection,
                          double meridian) {
    Positions positions = RandomPositions(area, Count);
    for (std::size_t i = 0; i < Count; ++i) {
        double x = 0;
        double y = 0;
        projection.Forward(meridian, positions.first[i] * DegreesPerRadian,
                           positions.second[i] * DegreesPerRadian, x, y);
        positions.first[i] = y;
        positions.second[i] = x;
    }
    double latitude = 0;
    double longitude = 0;
    double convergence = 0;
    double scale = 0;
    for (auto _ : state)
        for (std::size_t i = 0; i < Count; ++i) {
            projection.Reverse(meridian, positions.second[i], positions.first[i], latitude, longitude,
                               convergence, scale);
            benchmark::DoNotOptimize(latitude);
            benchmark::DoNotOptimize(longitude);
        }
    CountPoints(state);
}

std::vector<std::string> PackedAngles() {
    std::mt19937_64 draw(2);
    std::uniform_real_distribution<double> angle(-180, 180);
    std::vector<std::string> texts;
    for (std::size_t i = 0; i < Count; ++i)
        texts.push_back(Angles_GET_TextDMSPacked(Radians(angle(draw)), 5));
    return texts;
}

void PackedAngleRead(benchmark::State& state) {
    const std::vector<std::string> texts = PackedAngles();
    for (auto _ : state)
        for (const std::string& text : texts) benchmark::DoNotOptimize(Angles_GET_RadFromDMSPacked(text));
    CountPoints(state);
}

void PackedAnglePrinted(benchmark::State& state) {
    std::vector<double> angles;
    for (const std::string& text : PackedAngles()) angles.push_back(Angles_GET_RadFromDMSPacked(text));
    for (auto _ : state)
        for (const double angle : angles) benchmark::DoNotOptimize(Angles_GET_TextDMSPacked(angle, 5));
    CountPoints(state);
}

void RegisterAll() {
    using benchmark::RegisterBenchmark;
    using benchmark::State;
    static const GeographicLib::TransverseMercator transverse(A, 1 / 298.257222101, 0.9996);
    static const GeographicLib::LambertConformalConic conic(A, 1 / 298.257222101, 43, 40, 1);

    RegisterBenchmark("transverse Mercator forward/ours", [](State& state) {
        OursForward(state, TransverseMercatorArea, TransverseMercatorZone(), TMercator83Plane);
    });
    RegisterBenchmark("transverse Mercator forward/PROJ",
                      [](State& state) { Proj(state, TransverseMercatorArea, PJ_FWD); });
    RegisterBenchmark("transverse Mercator forward/GeographicLib", [](State& state) {
        GeographicLibForward(state, TransverseMercatorArea, transverse, -99);
    });
    RegisterBenchmark("transverse Mercator inverse/ours", [](State& state) {
        OursInverse(state, TransverseMercatorArea, TransverseMercatorZone(), TMercator83Plane,
                    TMercator83Geographic);
    });
    RegisterBenchmark("transverse Mercator inverse/PROJ",
                      [](State& state) { Proj(state, TransverseMercatorArea, PJ_INV); });
    RegisterBenchmark("transverse Mercator inverse/GeographicLib", [](State& state) {
        GeographicLibInverse(state, TransverseMercatorArea, transverse, -99);
    });
    RegisterBenchmark("Lambert forward/ours",
                      [](State& state) { OursForward(state, LambertArea, LambertZone(), Lambert83Plane); });
    RegisterBenchmark("Lambert forward/PROJ", [](State& state) { Proj(state, LambertArea, PJ_FWD); });
    RegisterBenchmark("Lambert forward/GeographicLib",
                      [](State& state) { GeographicLibForward(state, LambertArea, conic, -100); });
    RegisterBenchmark("Lambert inverse/ours", [](State& state) {
        OursInverse(state, LambertArea, LambertZone(), Lambert83Plane, Lambert83Geographic);
    });
    RegisterBenchmark("Lambert inverse/PROJ", [](State& state) { Proj(state, LambertArea, PJ_INV); });
    RegisterBenchmark("Lambert inverse/GeographicLib",
                      [](State& state) { GeographicLibInverse(state, LambertArea, conic, -100); });
    RegisterBenchmark("oblique Mercator forward/ours",
                      [](State& state) { OursForward(state, ObliqueArea, ObliqueZone(), OMercator83Plane); });
    RegisterBenchmark("oblique Mercator forward/PROJ",
                      [](State& state) { Proj(state, ObliqueArea, PJ_FWD); });
    RegisterBenchmark("oblique Mercator inverse/ours", [](State& state) {
        OursInverse(state, ObliqueArea, ObliqueZone(), OMercator83Plane, OMercator83Geographic);
    });
    RegisterBenchmark("oblique Mercator inverse/PROJ",
                      [](State& state) { Proj(state, ObliqueArea, PJ_INV); });
    RegisterBenchmark("packed angle read/ns", PackedAngleRead);
    RegisterBenchmark("packed angle printed/ns", PackedAnglePrinted);
}

}  // namespace

int main(int argc, char** argv) {
    RegisterAll();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
