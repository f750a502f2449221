#pragma once
// The program's own projections of the zones: its zones.ini, its choice of equations, its forward and
// inverse.
//
// Degrees, latitudes positive north, longitudes positive east; meters.

#include <vector>

#include "library/libraryFolder.hpp"
#include "oracle/trueProjections.hpp"

namespace tarvek::test {

// What the program makes of a point.
template <class Where>
struct Computed {
    Where where;
    Distortion distortion;
};

template <class Where>
std::vector<Where> PlacesOf(const std::vector<Computed<Where>>& computed) {
    std::vector<Where> places;
    for (const Computed<Where>& one : computed) places.push_back(one.where);
    return places;
}

// The program with a copy of the seeds as its program folder. One at a time.
class ProgramWithSeeds {
  public:
    ProgramWithSeeds();

    std::vector<Computed<PlanePoint>> Forward(const SeedZone& zone,
                                              const std::vector<Position>& positions) const;
    std::vector<Computed<Position>> Inverse(const SeedZone& zone,
                                            const std::vector<PlanePoint>& points) const;

  private:
    LibraryFolder folder_;
};

}  // namespace tarvek::test
