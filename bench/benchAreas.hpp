#pragma once
// What the benches of the projections share: zones with the true projection in PROJ's words, and random
// points of their areas.

#include <random>
#include <vector>

#include "coordmath/modAngles.hpp"

namespace tarvek {

constexpr double Radians(double degrees) { return degrees * RadiansPerDegree; }

// A zone with the points of its area: latitude and longitude in degrees, east positive.
struct Area {
    const char* proj;
    double south, north, west, east;
};

inline constexpr Area TransverseMercatorArea = {
    "+proj=tmerc +lat_0=0 +lon_0=-99 +k=0.9996 +x_0=500000 +ellps=GRS80", 30, 50, -102, -96};
inline constexpr Area LambertArea = {
    "+proj=lcc +lat_1=43 +lat_2=40 +lat_0=39.8333333333333 +lon_0=-100 +x_0=500000 +ellps=GRS80", 40, 43,
    -104, -95.3};
inline constexpr Area ObliqueArea = {
    "+proj=omerc +no_uoff +lat_0=57 +lonc=-133.666666666667 +alpha=323.130102361111 +gamma=323.130102361111 "
    "+k=0.9999 +x_0=5000000 +y_0=-5000000 +ellps=GRS80",
    54.5, 60, -139, -130};
inline constexpr Area OneParallelArea = {
    "+proj=lcc +lat_1=-14.2666666666667 +lat_0=-14.2666666666667 +lon_0=-170 +k_0=1 +x_0=152400.3048 "
    "+y_0=95169.31 +ellps=clrk66",
    -15, -14, -171, -169};
inline constexpr Area TransverseMercator27Area = {
    "+proj=tmerc +lat_0=30.5 +lon_0=-85.8333333333333 +k=0.99996 +x_0=152400.3048 +ellps=clrk66", 30.9, 35,
    -86.8, -85};
inline constexpr Area Lambert27Area = {
    "+proj=lcc +lat_1=41.85 +lat_2=42.8166666666667 +lat_0=41.3333333333333 +lon_0=-100 +x_0=609601.2192 "
    "+ellps=clrk66",
    41.6, 43, -104, -96.4};
inline constexpr Area Alaska27Area = {
    "+proj=tmerc +lat_0=54 +lon_0=-150 +k=0.9999 +x_0=152400.3048 +ellps=clrk66", 59, 70, -152, -148};

struct Positions {
    std::vector<double> first;   // latitudes or northings
    std::vector<double> second;  // longitudes, positive east, or eastings
};

// Latitudes and longitudes in radians.
inline Positions RandomPositions(const Area& area, std::size_t count) {
    std::mt19937_64 draw(1);
    std::uniform_real_distribution<double> latitude(area.south, area.north);
    std::uniform_real_distribution<double> longitude(area.west, area.east);
    Positions positions;
    for (std::size_t i = 0; i < count; ++i) {
        positions.first.push_back(Radians(latitude(draw)));
        positions.second.push_back(Radians(longitude(draw)));
    }
    return positions;
}

}  // namespace tarvek
