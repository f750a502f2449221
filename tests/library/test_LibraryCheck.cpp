#include "library/libraryFaults.hpp"
#include "library/libraryFolder.hpp"

namespace tarvek::test {
namespace {

TEST(CheckLibrary, CleanLibraryIsSilent) {
    const CleanLibraryFolder folder;
    EXPECT_EQ(CheckLibrary(), Faults{});
}

// A change of the clean library and the one fault that it makes.
struct Plant {
    const char* file;
    std::string_view from;  // stands in the file once
    std::string_view to;
    const char* section;
    const char* key;
    const char* text;
};

constexpr const char* East = "VEL - Velmora State Plane~E - East";
constexpr const char* West = "VEL - Velmora State Plane~W - West";
constexpr const char* Alaska = "AK - Alaska~5001 - Zone 1";

const Plant Plants[] = {
    // names of zones
    {"zones.ini", "~5001 - Zone 1]", "]", "AK - Alaska", "",
     "The name has no '~' between coordinate system and zone."},
    {"zones.ini", "~5001 - Zone 1]", "~5001~1]", "AK - Alaska~5001~1", "", "The name has more than one '~'."},
    {"zones.ini", "[AK - Alaska~", "[~", "~5001 - Zone 1", "",
     "The name lacks its coordinate system or its zone."},
    {"zones.ini", "~5001 - Zone 1]", "~]", "AK - Alaska~", "",
     "The name lacks its coordinate system or its zone."},
    {"zones.ini", "~5001 - Zone 1]", "~5001 - Zone 1 ]", "AK - Alaska~5001 - Zone 1 ", "",
     "The name has a blank at its end."},
    {"zones.ini", "~5001 - Zone 1]", "~5001 -\t]", "AK - Alaska~5001 -\t", "",
     "The name holds a control character."},
    {"zones.ini", "~5001 - Zone 1]", "~5001 Zone 1]", "AK - Alaska~5001 Zone 1", "",
     "A part of the name has no short name before a '-', and no file can name it."},
    {"zones.ini", "~5001 - Zone 1]", "~ - Zone 1]", "AK - Alaska~ - Zone 1", "",
     "A part of the name has no short name before a '-', and no file can name it."},
    {"zones.ini", "[AK - Alaska~", "[Alaska~", "Alaska~5001 - Zone 1", "",
     "A part of the name has no short name before a '-', and no file can name it."},
    {"zones.ini", "[AK - Alaska~", "[GCS - Geographic Coordinates~",
     "GCS - Geographic Coordinates~5001 - Zone 1", "",
     "The short name of the coordinate system is that of the geographic one, which has no zones."},
    {"zones.ini", "[AK - Alaska~", "[gcs - of mine~", "gcs - of mine~5001 - Zone 1", "",
     "The short name of the coordinate system is that of the geographic one, which has no zones."},
    {"zones.ini", "[AK - Alaska~5001 - Zone 1]", "[vel-other~ e -Zone 1]", "vel-other~ e -Zone 1", "",
     "Its short names are those of 'VEL - Velmora State Plane~E - East', which is found first."},
    // what a zone refers to
    {"zones.ini", "Horizontal Datum=NAD 83\r\nComp", "Horizontal Datum=NAD83\r\nComp", East,
     "Horizontal Datum", "'NAD83' is no section of datums.ini."},
    {"zones.ini", "Horizontal Datum=NAD 27", "Horizontal Datum=", West, "Horizontal Datum",
     "The value is missing."},
    {"zones.ini", "Ellipsoid=Clarke 1866", "Ellipsoid=Clarke 1867", West, "Computational Ellipsoid",
     "'Clarke 1867' is no section of ellipsoids.ini."},
    {"zones.ini", "Vertical Datum=NAVD 88", "Vertical Datum=NGVD 29", East, "Vertical Datum",
     "'NGVD 29' is no section of datums.ini."},
    {"zones.ini", "Horizontal Datum=NAD 27", "Horizontal Datum=NAVD 88", West, "Horizontal Datum",
     "'NAVD 88' is a datum of type Vertical."},
    {"zones.ini", "Vertical Datum=NAVD 88", "Vertical Datum=nad 27", East, "Vertical Datum",
     "'nad 27' is a datum of type Horizontal."},
    {"zones.ini", "Projection=Transverse Mercator", "Projection=Mercator", East, "Projection",
     "'Mercator' is none of the six projections."},
    {"zones.ini", "Projection=Transverse Mercator", "Projection=transverse mercator", East, "Projection",
     "'transverse mercator' is none of the six projections."},
    {"zones.ini", "Projection=Transverse Mercator", "; no projection", East, "Projection",
     "The value is missing."},
    // show flags
    {"zones.ini", "Show In=1", "Show In=yes", East, "Show In", "'yes' is no number."},
    {"zones.ini", "Show Out=0", "Show Out=0x", East, "Show Out", "'0x' is no number."},
    {"zones.ini", "Show Out=0", "Show Out=70000", East, "Show Out", "'70000' is too large."},
    // angles
    {"zones.ini", "Latitude=57", "Latitude=", Alaska, "Central Latitude", "The value is missing."},
    {"zones.ini", "Latitude=57", "Latitude=57 30 00", Alaska, "Central Latitude",
     "'57 30 00' is no angle in the form DDD.MMSSssss."},
    {"zones.ini", "Latitude=57", "Latitude=57.", Alaska, "Central Latitude",
     "'57.' is no angle in the form DDD.MMSSssss."},
    {"zones.ini", "Latitude=57", "Latitude=N57", Alaska, "Central Latitude",
     "'N57' is no angle in the form DDD.MMSSssss."},
    {"zones.ini", "Latitude=57", "Latitude=-", Alaska, "Central Latitude",
     "'-' is no angle in the form DDD.MMSSssss."},
    {"zones.ini", "Latitude=57", "Latitude=57.6", Alaska, "Central Latitude",
     "The minutes of '57.6' are above 59."},
    {"zones.ini", "Latitude=57", "Latitude=57.305", Alaska, "Central Latitude",
     "The last digit of '57.305' is not read."},
    {"zones.ini", "Latitude=57", "Latitude=-0.3", Alaska, "Central Latitude",
     "The sign of '-0.3' is not read, for the degrees are 0."},
    {"zones.ini", "Latitude=57", "Latitude=90.000000001", Alaska, "Central Latitude",
     "'90.000000001' is beyond 90 degrees."},
    {"zones.ini", "Longitude=90.300000000", "Longitude=90.306000000", East, "Central Longitude",
     "The seconds of '90.306000000' are 60 or more."},
    {"zones.ini", "Longitude=-133.400000000", "Longitude=-361.400000000", Alaska, "Central Longitude",
     "'-361.400000000' is beyond 360 degrees."},
    {"zones.ini", "Longitude=-133.400000000", "Longitude=1333.4", Alaska, "Central Longitude",
     "'1333.4' is no angle in the form DDD.MMSSssss."},
    {"zones.ini", "Azimuth=323.074836860", "Azimuth=323.754836860", Alaska, "Azimuth",
     "The minutes of '323.754836860' are above 59."},
    {"zones.ini", "Azimuth=323.074836860\r\n", "", Alaska, "Azimuth", "The value is missing."},
    {"zones.ini", "Northern Parallel=36.100000000", "Northern Parallel=96.1", West, "Northern Parallel",
     "'96.1' is beyond 90 degrees."},
    {"zones.ini", "Southern Parallel=34.2\r\n", "", West, "Southern Parallel", "The value is missing."},
    {"zones.ini", "Southern Parallel=34.2", "Southern Parallel=36.1", West, "Southern Parallel",
     "The two parallels are equal."},
    {"zones.ini", "Southern Parallel=34.2", "Southern Parallel=-36.1", West, "Southern Parallel",
     "The two parallels lie equally far north and south of the equator, and make no cone."},
    // numbers
    {"zones.ini", "Northing=-5000000", "Northing=-5,000,000", Alaska, "False Northing",
     "'-5,000,000' is no number."},
    {"zones.ini", "False Easting=5000000\r\n", "", Alaska, "False Easting", "The value is missing."},
    {"zones.ini", "Scale Factor=0.9999\r\n", "", Alaska, "Scale Factor", "The value is missing."},
    {"zones.ini", "Scale Factor=0.9999\r\n", "Scale Factor=1:10000\r\n", Alaska, "Scale Factor",
     "'1:10000' is no number."},
    {"zones.ini", "Scale Factor=0.999933333333333", "Scale Factor=0", East, "Scale Factor",
     "'0' is not above 0."},
    {"zones.ini", "Scale Factor=0.999933333333333", "Scale Factor=-1", East, "Scale Factor",
     "'-1' is not above 0."},
    // directions and units
    {"zones.ini", "Positive Longitude Direction=E", "Positive Longitude Direction=-W", Alaska,
     "Positive Longitude Direction", "'-W' is no direction of longitudes: E or W."},
    {"zones.ini", "Positive Longitude Direction=E", "Positive Longitude Direction=S", Alaska,
     "Positive Longitude Direction", "'S' is no direction of longitudes: E or W."},
    {"zones.ini", "Positive Longitude Direction=E\r\n", "", Alaska, "Positive Longitude Direction",
     "The value is missing."},
    {"zones.ini", "N\r\nPositive Longitude Direction=E", "n\r\nPositive Longitude Direction=E", Alaska,
     "Positive Latitude Direction", "'n' is no direction of latitudes: N or S."},
    {"zones.ini", "Linear Units=International Feet", "Linear Units=Feet", Alaska, "Linear Units",
     "'Feet' is no linear unit: Meters, U.S. Survey Feet or International Feet."},
    {"zones.ini", "Linear Units=International Feet", "", Alaska, "Linear Units", "The value is missing."},
    // what is never read, in any file
    {"zones.ini", "Azimuth=", "azimuth=1\r\nAzimuth=", Alaska, "Azimuth",
     "The key stands there already; this one is never read."},
    {"zones.ini", "[AK - Alaska~", "[VEL - velmora state plane~E - EAST]\r\n[AK - Alaska~",
     "VEL - velmora state plane~E - EAST", "", "The section stands there already; this one is never read."},
    {"zones.ini", "Full Name=Velmora East", "Full Name", East, "", "The line 'Full Name' is never read."},
    {"ellipsoids.ini", "; Ellipsoids", "Show=1", "", "Show", "The key stands before the first section."},
    {"zones.ini", "Azimuth=", "Azimuth\t=1\r\nAzimuth=", Alaska, "Azimuth\t",
     "The name holds a control character."},
    // datums
    {"datums.ini", "Type=Vertical", "Type=vertical\r\nEllipsoid=GRS 80", "NAVD 88", "Type",
     "'vertical' is no type of datum: Horizontal, Vertical or 3D."},
    {"datums.ini", "Type=Vertical", "Ellipsoid=GRS 80", "NAVD 88", "Type", "The value is missing."},
    {"datums.ini", "Ellipsoid=Clarke 1866\r\n", "", "NAD 27", "Ellipsoid", "The value is missing."},
    {"datums.ini", "Ellipsoid=Clarke 1866", "Ellipsoid=Clarke", "NAD 27", "Ellipsoid",
     "'Clarke' is no section of ellipsoids.ini."},
    {"datums.ini", "Show In=0\r\n", "", "NAD 83 (2011)", "Show In", "The value is missing."},
    {"datums.ini", "Show In=0", "Show In=no", "NAD 83 (2011)", "Show In", "'no' is no number."},
    {"datums.ini", "Show Out=0", "Show Out=", "NAD 27", "Show Out", "The value is missing."},
    {"datums.ini", "NAD 27=NADCON", "NAD27=NADCON", "NAD 83", "NAD27",
     "The target of the transformation is no section."},
    {"datums.ini", "NAD 27=NADCON NAD 83 to NAD 27", "NAD 27=NADCON", "NAD 83", "NAD 27",
     "'NADCON' is no transformation method."},
    {"datums.ini", "- Alaska", "- Guam", "NAD 83 (2007)", "NAD 83 (2011)",
     "'GEOCON11 Beta NAD 83 (2007) to NAD 83 (2011) - Guam' is no transformation method."},
    {"datums.ini", "NAVD 88=GEOID09 NAD 83", "navd 88=GEOID12 NAD 83", "NAD 83 (2007)", "navd 88",
     "'GEOID12 NAD 83 to NAVD 88' is no transformation method."},
    {"datums.ini", "NAD 83=NADCON NAD 27 to NAD 83", "NAD 83=VERTCON NGVD 29 to NAVD 88", "NAD 27", "NAD 83",
     "'VERTCON NGVD 29 to NAVD 88' moves no positions, all that a datum of type Horizontal has."},
    {"datums.ini", "NAD 83 (2007)=\r\n", "NAD 83 (2007)=GEOID09 NAVD 88 to NAD 83\r\n", "NAD 83",
     "NAD 83 (2007)",
     "'GEOID09 NAVD 88 to NAD 83' moves no positions, all that a datum of type Horizontal has."},
    {"datums.ini", "NAD 83 (2007)=GEOID09", "NAD 83=GEOID09", "NAVD 88", "NAD 83",
     "'GEOID09 NAVD 88 to NAD 83' moves no positions, all that a datum of type Horizontal has."},
    {"datums.ini", "NAD 83 (2007)=GEOID09 NAVD 88 to NAD 83", "NAD 83 (2007)=NADCON NAD 27 to NAD 83",
     "NAVD 88", "NAD 83 (2007)",
     "'NADCON NAD 27 to NAD 83' is not taken for heights, all that a datum of type Vertical has."},
    {"datums.ini", "NAVD 88=GEOID09 NAD 83 to NAVD 88", "NAVD 88=GEOID12A NAD 83 to NAVD 88", "NAD 83 (2007)",
     "NAVD 88",
     "'GEOID12A NAD 83 to NAVD 88' is not taken for heights, all that a datum of type Vertical has."},
    {"datums.ini", "NAD 83 (2011)=GEOCON11", "nad 83 (2007)=GEOCON11", "NAD 83 (2007)", "nad 83 (2007)",
     "A datum is never transformed to itself."},
    // ellipsoids
    {"ellipsoids.ini", "Semimajor Axis=6378137", "Semimajor Axis=6,378,137", "GRS 80", "Semimajor Axis",
     "'6,378,137' is no number."},
    {"ellipsoids.ini", "Semiminor Axis=6356583.8\r\n", "", "Clarke 1866", "Semiminor Axis",
     "The value is missing."},
    {"ellipsoids.ini", "Semiminor Axis=6356583.8", "Semiminor Axis=0", "Clarke 1866", "Semiminor Axis",
     "'0' is not above 0."},
    {"ellipsoids.ini", "Semiminor Axis=6356583.8", "Semiminor Axis=6378206.5", "Clarke 1866",
     "Semiminor Axis", "The semiminor axis is longer than the semimajor axis."},
    {"ellipsoids.ini", "Flattening=0.00335281068118", "Flattening=298.257222101", "GRS 80", "Flattening",
     "The flattening does not fit the axes."},
    {"ellipsoids.ini", "Flattening=0.00335281068118", "Flattening=0.003352815", "GRS 80", "Flattening",
     "The flattening does not fit the axes."},
    {"ellipsoids.ini", "Flattening=0.00335281068118", "Flattening=1/298", "GRS 80", "Flattening",
     "'1/298' is no number."},
    {"ellipsoids.ini", "Eccentricity=0.0818191910428", "Eccentricity=0.00669438", "GRS 80", "Eccentricity",
     "The eccentricity does not fit the axes."},
    {"ellipsoids.ini", "Eccentricity=0.0818191910428", "Eccentricity=2", "GRS 80", "Eccentricity",
     "The eccentricity does not fit the axes."},
    {"ellipsoids.ini", "Eccentricity=0.0818191910428", "Eccentricity=", "GRS 80", "Eccentricity",
     "The value is missing."},
    {"ellipsoids.ini", "Show=0", "Show=off", "Clarke 1866", "Show", "'off' is no number."},
};

std::string Planted(const std::string& clean, const Plant& plant) {
    const std::size_t at = clean.find(plant.from);
    EXPECT_NE(at, std::string::npos) << plant.from;
    EXPECT_EQ(clean.find(plant.from, at + 1), std::string::npos) << "twice in the file: " << plant.from;
    return std::string(clean).replace(at, plant.from.size(), plant.to);
}

TEST(CheckLibrary, EachPlantedFaultIsNamed) {
    static_assert(std::size(Plants) >= 25);
    for (const Plant& plant : Plants) {
        const CleanLibraryFolder folder;
        folder.Put(plant.file, Planted(ReadBytes(folder.File(plant.file)), plant));
        const Faults expected = {{plant.file, plant.section, plant.key, plant.text}};
        EXPECT_EQ(CheckLibrary(), expected) << plant.from << " -> " << plant.to;
    }
}

// A value that a conversion or an editor takes must not be told as a fault.
TEST(CheckLibrary, OddButReadableValuesAreSilent) {
    const Plant harmless[] = {
        {"zones.ini", "Show In=1", "Show In=", "", "", ""},
        {"zones.ini", "Show In=1", "Show In= +1.0 ", "", "", ""},
        {"zones.ini", "Latitude=57", "Latitude=+57.0", "", "", ""},
        {"zones.ini", "Latitude=57", "Latitude=.3", "", "", ""},
        {"zones.ini", "Latitude=57", "Latitude=-90.000000000", "", "", ""},
        {"zones.ini", "Longitude=-133.400000000", "Longitude=-0", "", "", ""},
        {"zones.ini", "Longitude=-133.400000000", "Longitude=360", "", "", ""},
        {"zones.ini", "Northing=-5000000", "Northing=\"-5E6\"", "", "", ""},
        {"zones.ini", "Datum=NAD 27", "Datum=nad 27", "", "", ""},
        {"zones.ini", "False Easting=200000\r\n", "False Easting=200000\r\nNote=x\r\n", "", "", ""},
        {"zones.ini", "Southern Parallel=34.2", "Southern Parallel=-34.2", "", "", ""},
        {"zones.ini", "[AK - Alaska~5001 - Zone 1]", "[VEL - Velmora State Plane~E2 - East]", "", "", ""},
        {"zones.ini", "Vertical Datum=NAVD 88", "Vertical Datum=NAD 83 (2011)", "", "", ""},
        {"zones.ini", "Datum=NAD 27", "Datum=NAD 83 (2011)", "", "", ""},
        {"datums.ini", "NAD 83 (2007)=GEOID09 NAVD 88 to NAD 83",
         "NAD 83 (2007)=GEOCON Beta NAD 83 (HARN) to NAD 83 (2007) - CONUS", "", "", ""},
        {"datums.ini", "NAD 83 (2007)=\r\n",
         "NAD 83 (2007)=HTDP 3.2.3 NAD 83 (2007/2011/CORS) to WGS 84 (G1674)\r\n", "", "", ""},
        {"datums.ini", "Type=Vertical", "Type=Vertical\r\nEllipsoid=gone", "", "", ""},
        {"datums.ini", "Type=Vertical", "Type=Vertical\r\nfull name=x\r\nShow=1", "", "", ""},
        {"ellipsoids.ini", "Semiminor Axis=6356752.3141", "Semiminor Axis=6356752.31", "", "", ""},
        {"ellipsoids.ini", "Show=0\r\n", "", "", "", ""},
    };
    for (const Plant& plant : harmless) {
        const CleanLibraryFolder folder;
        folder.Put(plant.file, Planted(ReadBytes(folder.File(plant.file)), plant));
        EXPECT_EQ(CheckLibrary(), Faults{}) << plant.from << " -> " << plant.to;
    }
}

TEST(CheckLibrary, ParametersOfAnUnknownProjectionAreNotAskedFor) {
    const CleanLibraryFolder folder;
    const Plant plant = {
        "zones.ini", "Mercator\r\nShow In=1", "Something\r\nScale Factor=x\r\nShow In=1", "", "", ""};
    folder.Put(plant.file, Planted(std::string(CleanZones), plant));
    const Faults faults = CheckLibrary();
    ASSERT_EQ(faults.size(), 2U);
    EXPECT_EQ(faults[0].text, "The key stands there already; this one is never read.");
    EXPECT_EQ(faults[1].text, "'Transverse Something' is none of the six projections.");
}

TEST(CheckLibrary, SeveralFaultsComeInOrder) {
    const CleanLibraryFolder folder;
    folder.PutEllipsoids("[GRS 80]\nSemimajor Axis=x\nSemiminor Axis=y\n");
    folder.PutZones("");
    folder.PutDatums("[A]\nType=3D\nEllipsoid=GRS 80\nShow In=1\nShow Out=1\nB=x\n");
    const Faults expected = {
        {"datums.ini", "A", "B", "The target of the transformation is no section."},
        {"datums.ini", "A", "B", "'x' is no transformation method."},
        {"ellipsoids.ini", "GRS 80", "Semimajor Axis", "'x' is no number."},
        {"ellipsoids.ini", "GRS 80", "Semiminor Axis", "'y' is no number."},
        {"ellipsoids.ini", "GRS 80", "Flattening", "The value is missing."},
        {"ellipsoids.ini", "GRS 80", "Eccentricity", "The value is missing."},
    };
    EXPECT_EQ(CheckLibrary(), expected);
}

TEST(CheckLibrary, MissingFilesAreTold) {
    const LibraryFolder folder;
    const Faults expected = {{"zones.ini", "", "", "There is no such file."},
                             {"datums.ini", "", "", "There is no such file."},
                             {"ellipsoids.ini", "", "", "There is no such file."},
                             {"KTIFiles", "", "", "There is no such folder."}};
    EXPECT_EQ(CheckLibrary(), expected);
}

TEST(CheckLibrary, ValueThatIsCutIsTold) {
    const CleanLibraryFolder folder;
    const std::string longest(24'999, 'x');
    const auto zones = [&](const std::string& name) {
        return std::string(CleanZones) + "Full Name=\"" + name + "\"\r\n";
    };
    folder.PutZones(zones(longest));
    EXPECT_EQ(CheckLibrary(), Faults{});
    folder.PutZones(zones(longest + "x"));
    const Faults expected = {{"zones.ini", Alaska, "Full Name", "The value is cut at 24999 characters."}};
    EXPECT_EQ(CheckLibrary(), expected);
}

TEST(CheckLibrary, NamesBeyondTheListsLimitAreTold) {
    const CleanLibraryFolder folder;
    std::string datums(CleanDatums);
    const auto add = [&](const std::string& name) {
        datums += "[" + name + "]\r\nType=Vertical\r\nShow In=1\r\nShow Out=1\r\n";
    };
    // The five names of the clean file take 6 + 6 + 7 + 13 + 13 characters and five NULs.
    std::size_t size = 6 + 6 + 7 + 13 + 13 + 5;
    for (int i = 0; size + 31 <= 29'998; ++i, size += 31)
        add(std::to_string(i + 1000) + std::string(26, 'x'));
    add(std::string(29'998 - size - 1, 'y'));
    folder.PutDatums(datums);
    EXPECT_EQ(CheckLibrary(), Faults{});
    add("z1");
    add("z2");
    folder.PutDatums(datums);
    const Faults expected = {{"datums.ini", "z1", "",
                              "The names of the sections up to this one have more than 29998 characters; the "
                              "rest is never listed."}};
    EXPECT_EQ(CheckLibrary(), expected);
}

}  // namespace
}  // namespace tarvek::test
