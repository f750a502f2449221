#pragma once
// The seeds as the oracle tests read it: by a parser and a converter of their own, so that a fault in
// the program's reading is seen as well. Degrees, latitudes positive north, longitudes positive east; meters.

#include <string>
#include <vector>

namespace tarvek::test {

inline constexpr double MetersPerSurveyFoot = 1200.0 / 3937.0;

struct SeedZone {
    std::string system;  // both parts of the section's name, whole
    std::string zone;
    std::string datum;
    std::string projection;
    std::string code;  // of the registered system, which the full name ends with
    double a = 0;      // semimajor axis
    double f = 0;      // flattening
    double latitude = 0;
    double longitude = 0;
    double northParallel = 0;  // of projections with two parallels
    double southParallel = 0;
    double scale = 1;  // of the others
    double azimuth = 0;
    double falseNorthing = 0;
    double falseEasting = 0;

    std::string Name() const { return system + "~" + zone; }
};

// Whether the zone is one of Alaska 2 to 9 of 1927, which have equations of their own.
bool IsAlaska2To9Of1927(const SeedZone& zone);

// The zones of the seeds, in their order. A file, a key or a number that is missing throws.
std::vector<SeedZone> ReadSeedZones();

// DDD.MMSSssss in degrees.
double DegreesOfPacked(const std::string& text);

}  // namespace tarvek::test
