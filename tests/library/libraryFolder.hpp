#pragma once
// A program folder of a test's own, with a small library in which nothing is wrong.

#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>

#include "platform/modProgramFolder.hpp"
#include "support/testSupport.hpp"

namespace tarvek::test {

class LibraryFolder : public TemporaryFolder {
  public:
    LibraryFolder() {
        ::setenv("TARVEK_HOME", Path().c_str(), 1);
        ForgetProgramFolder();
    }
    ~LibraryFolder() {
        ::unsetenv("TARVEK_HOME");
        ForgetProgramFolder();
    }
    LibraryFolder(const LibraryFolder&) = delete;
    LibraryFolder& operator=(const LibraryFolder&) = delete;

    void PutZones(std::string_view text) const { Put("zones.ini", text); }
    void PutDatums(std::string_view text) const { Put("datums.ini", text); }
    void PutEllipsoids(std::string_view text) const { Put("ellipsoids.ini", text); }
};

// The figures of the two ellipsoids are the published ones.
inline constexpr std::string_view CleanEllipsoids =
    "; Ellipsoids\r\n"
    "[GRS 80]\r\n"
    "Full Name=Geodetic Reference System 1980\r\n"
    "Semimajor Axis=6378137\r\n"
    "Semiminor Axis=6356752.3141\r\n"
    "Flattening=0.00335281068118\r\n"
    "Eccentricity=0.0818191910428\r\n"
    "Show=1\r\n"
    "\r\n"
    "[Clarke 1866]\r\n"
    "Full Name=Clarke 1866\r\n"
    "Semimajor Axis=6378206.4\r\n"
    "Semiminor Axis=6356583.8\r\n"
    "Flattening=0.003390075304\r\n"
    "Eccentricity=0.0822718542230\r\n"
    "Show=0\r\n";

inline constexpr std::string_view CleanDatums =
    "[NAD 27]\r\n"
    "Type=Horizontal\r\n"
    "Ellipsoid=Clarke 1866\r\n"
    "Show In=1\r\n"
    "Show Out=0\r\n"
    "NAD 83=NADCON NAD 27 to NAD 83\r\n"
    "\r\n"
    "[NAD 83]\r\n"
    "Type=Horizontal\r\n"
    "Ellipsoid=GRS 80\r\n"
    "Show In=1\r\n"
    "Show Out=1\r\n"
    "NAD 27=NADCON NAD 83 to NAD 27\r\n"
    "NAD 83 (2007)=\r\n"
    "\r\n"
    "[NAVD 88]\r\n"
    "Type=Vertical\r\n"
    "Show In=1\r\n"
    "Show Out=1\r\n"
    "NAD 83 (2007)=GEOID09 NAVD 88 to NAD 83\r\n"
    "\r\n"
    "[NAD 83 (2007)]\r\n"
    "Type=3D\r\n"
    "Ellipsoid=GRS 80\r\n"
    "Show In=1\r\n"
    "Show Out=1\r\n"
    "NAVD 88=GEOID09 NAD 83 to NAVD 88\r\n"
    "NAD 83 (2011)=GEOCON11 Beta NAD 83 (2007) to NAD 83 (2011) - Alaska\r\n"
    "\r\n"
    "[NAD 83 (2011)]\r\n"
    "Type=3D\r\n"
    "Ellipsoid=GRS 80\r\n"
    "Show In=0\r\n"
    "Show Out=1\r\n";

inline constexpr std::string_view CleanZones =
    "[VEL - Velmora State Plane~E - East]\r\n"
    "Full Name=Velmora East\r\n"
    "Horizontal Datum=NAD 83\r\n"
    "Computational Ellipsoid=\r\n"
    "Vertical Datum=NAVD 88\r\n"
    "Projection=Transverse Mercator\r\n"
    "Show In=1\r\n"
    "Show Out=0\r\n"
    "Central Latitude=35.500000000\r\n"
    "Central Longitude=90.300000000\r\n"
    "False Northing=0\r\n"
    "False Easting=200000\r\n"
    "Scale Factor=0.999933333333333\r\n"
    "Positive Latitude Direction=N\r\n"
    "Positive Longitude Direction=W\r\n"
    "Linear Units=Meters\r\n"
    "\r\n"
    "[VEL - Velmora State Plane~W - West]\r\n"
    "Horizontal Datum=NAD 27\r\n"
    "Computational Ellipsoid=Clarke 1866\r\n"
    "Projection=Lambert Conformal Conic - NAD 27 Equations\r\n"
    "Central Latitude=33.000000000\r\n"
    "Central Longitude=95.150000000\r\n"
    "False Northing=0\r\n"
    "False Easting=2000000\r\n"
    "Northern Parallel=36.100000000\r\n"
    "Southern Parallel=34.2\r\n"
    "Positive Latitude Direction=N\r\n"
    "Positive Longitude Direction=W\r\n"
    "Linear Units=U.S. Survey Feet\r\n"
    "\r\n"
    "[AK - Alaska~5001 - Zone 1]\r\n"
    "Horizontal Datum=NAD 83\r\n"
    "Projection=Oblique Mercator - Hotine\r\n"
    "Central Latitude=57\r\n"
    "Central Longitude=-133.400000000\r\n"
    "False Northing=-5000000\r\n"
    "False Easting=5000000\r\n"
    "Scale Factor=0.9999\r\n"
    "Azimuth=323.074836860\r\n"
    "Positive Latitude Direction=N\r\n"
    "Positive Longitude Direction=E\r\n"
    "Linear Units=International Feet\r\n";

// A folder that holds that library, and one definition.
class CleanLibraryFolder : public LibraryFolder {
  public:
    CleanLibraryFolder() {
        std::filesystem::create_directory(File("KTIFiles"));
        Put("KTIFiles/clean.kti",
            "ConvertFile\r\nCopy\r\nTarvek Control Files (*.CTL)\r\nTarvek Control Files (*.CTL)\r\n");
        PutEllipsoids(CleanEllipsoids);
        PutDatums(CleanDatums);
        PutZones(CleanZones);
    }
};

}  // namespace tarvek::test
