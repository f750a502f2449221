#pragma once
// A program folder with one zone for each projection, whose keys a test changes.

#include <string>
#include <string_view>

#include "library/libraryFolder.hpp"
#include "library/modINIText.hpp"
#include "library/modLibraryNames.hpp"

namespace tarvek::test {

inline constexpr std::string_view TestSystem = "TST - Test System";
inline constexpr std::string_view TransverseZone = "10 - Transverse";
inline constexpr std::string_view OneParallelZone = "20 - One Parallel";
inline constexpr std::string_view TwoParallelsZone = "30 - Two Parallels";
inline constexpr std::string_view ObliqueZone = "40 - Oblique";
inline constexpr std::string_view TransverseZone27 = "50 - Transverse 27";
inline constexpr std::string_view LambertZone27 = "60 - Lambert 27";

class ZoneLibrary : public LibraryFolder {
  public:
    ZoneLibrary() {
        PutEllipsoids(CleanEllipsoids);
        PutDatums(CleanDatums);
        PutZone(TransverseZone,
                "Computational Ellipsoid=\nProjection=Transverse Mercator\nCentral Latitude=30.300000000\n"
                "Central Longitude=85.500000000\nFalse Northing=1000\nFalse Easting=200000\nScale "
                "Factor=0.99996\n"
                "Linear Units=Meters\n");
        PutZone(OneParallelZone,
                "Projection=Lambert Conformal Conic - One Parallel\nCentral Latitude=41.300000000\n"
                "Central Longitude=96.000000000\nFalse Northing=300000\nFalse Easting=600000\nScale "
                "Factor=0.9998\n"
                "Linear Units=Meters\n");
        PutZone(TwoParallelsZone,
                "Projection=Lambert Conformal Conic - Two Parallels\nCentral Latitude=39.500000000\n"
                "Central Longitude=100.000000000\nFalse Northing=0\nFalse Easting=500000\n"
                "Northern Parallel=43.000000000\nSouthern Parallel=40.000000000\nLinear Units=Meters\n");
        PutZone(ObliqueZone,
                "Projection=Oblique Mercator - Hotine\nCentral Latitude=57.000000000\n"
                "Central Longitude=133.400000000\nFalse Northing=-5000000\nFalse Easting=5000000\n"
                "Scale Factor=0.9999\nAzimuth=-36.521163150\nLinear Units=Meters\n");
        PutZone(TransverseZone27, Transverse27Keys);
        PutZone(LambertZone27,
                "Computational Ellipsoid=Clarke 1866\nProjection=Lambert Conformal Conic - NAD 27 Equations\n"
                "Central Latitude=41.200000000\nCentral Longitude=100.000000000\nFalse Northing=0\n"
                "False Easting=2000000\nNorthern Parallel=42.490000000\nSouthern Parallel=41.510000000\n"
                "Linear Units=U.S. Survey Feet\n");
    }

    // A zone of the test system, north and west positive; it goes behind those that are there.
    void PutZone(std::string_view zone, std::string_view keys) {
        zones_ += "[" + ZoneSection(TestSystem, zone) +
                  "]\nPositive Latitude Direction=N\nPositive Longitude Direction=W\n" + std::string(keys) +
                  "\n";
        PutZones(zones_);
    }
    // One of the transverse Mercator equations of 1927.
    void PutTransverse27Zone(std::string_view zone) { PutZone(zone, Transverse27Keys); }
    // A section that names no zone, behind all zones.
    void PutZoneless() {
        zones_ += "[No zone]\nProjection=Transverse Mercator\n";
        PutZones(zones_);
    }
    // One key of a zone in place of what it was.
    void Change(std::string_view zone, std::string_view key, std::string_view value) {
        zones_ = WithINIValue(zones_, ZoneSection(TestSystem, zone), key, value);
        PutZones(zones_);
    }

  private:
    static constexpr std::string_view Transverse27Keys =
        "Computational Ellipsoid=Clarke 1866\nProjection=Transverse Mercator - NAD 27 Equations\n"
        "Central Latitude=54.000000000\nCentral Longitude=150.000000000\nFalse Northing=0\nFalse "
        "Easting=500000\n"
        "Scale Factor=0.9999\nLinear Units=U.S. Survey Feet\n";

    std::string zones_;
};

}  // namespace tarvek::test
