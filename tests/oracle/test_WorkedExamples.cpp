// Published examples through the equations: of USGS Professional Paper 1395 (Snyder, "Map Projections - A
// Working Manual", 1987), of IOGP Guidance Note 373-7-2 (formerly EPSG Guidance Note 7-2) and of the Ordnance
// Survey's "A guide to coordinate systems in Great Britain"; and those of a table of real data beside the
// project, where it is there.

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <map>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "coordmath/modLambertNI.hpp"
#include "coordmath/modNAD27AK2to9.hpp"
#include "coordmath/modNAD27Lambert.hpp"
#include "coordmath/modNAD27TMercator.hpp"
#include "coordmath/modNAD83Lambert.hpp"
#include "coordmath/modNAD83OMercator.hpp"
#include "coordmath/modNAD83TMercator.hpp"
#include "oracle/trueProjections.hpp"
#include "support/testSupport.hpp"

namespace tarvek::test {
namespace {

constexpr double Foot = MetersPerSurveyFoot;

struct Ellipsoid {
    double a;  // meters
    double e;
};

Ellipsoid ByFlattening(double a, double inverseFlattening) {
    const double f = 1 / inverseFlattening;
    return {.a = a, .e = std::sqrt(f * (2 - f))};
}
Ellipsoid BySquare(double a, double e2) { return {.a = a, .e = std::sqrt(e2)}; }

const Ellipsoid Clarke1866 = BySquare(6378206.4, 1 - (6356583.8 / 6378206.4) * (6356583.8 / 6378206.4));
const Ellipsoid ClarkeOfSnyder = BySquare(6378206.4, 0.00676866);
const Ellipsoid GRS80 = ByFlattening(6378137, 298.257222101);
const Ellipsoid WGS84 = ByFlattening(6378137, 298.257223563);
const Ellipsoid International1924 = ByFlattening(6378388, 297);
const Ellipsoid Airy1830 = ByFlattening(6377563.396, 299.3249646);

// The names of the projections in the table beside the project.
constexpr std::string_view TransverseMercator = "Transverse Mercator";
constexpr std::string_view OneParallel = "Lambert Conformal Conic - One Parallel";
constexpr std::string_view TwoParallels = "Lambert Conformal Conic - Two Parallels";
constexpr std::string_view Oblique = "Oblique Mercator - Hotine";
constexpr std::string_view Lambert27 = "Lambert Conformal Conic - NAD 27 Equations";

// Degrees north and east; meters.
struct Definition {
    std::string_view projection;
    Ellipsoid ellipsoid;
    double latitude;
    double longitude;
    double falseEasting = 0;
    double falseNorthing = 0;
    double scale = 1;
    double northParallel = 0;
    double southParallel = 0;
    double azimuth = 0;
};

double Degrees(double degrees, double minutes, double seconds = 0) {
    return degrees + minutes / 60 + seconds / 3600;
}

// What the equations take: radians, longitudes positive west, lengths in their unit.
struct Arguments {
    double a, e, phi0, lam0, phi1, phi2, FN, FE, k0, alpha;
    double phi, lam, northing, easting;
};

struct Projected {
    PlanePosition plane;
    GeographicPosition geographic;
};

// Both ways over a zone.
template <class Zone>
Projected Both(const Zone& zone, PlanePosition (*plane)(const Zone&, double, double),
               GeographicPosition (*geographic)(const Zone&, double, double), const Arguments& z) {
    return {.plane = plane(zone, z.phi, z.lam), .geographic = geographic(zone, z.northing, z.easting)};
}

struct Equations {
    std::string_view projection;
    double unit;  // meters; the equations in feet know no false northing
    Projected (*project)(const Arguments& z);
};

constexpr Equations AllEquations[] = {
    {TransverseMercator, 1,
     [](const Arguments& z) {
         return Both(TMercator83ZoneOf(z.a, z.e, z.phi0, z.lam0, z.FN, z.FE, z.k0), TMercator83Plane,
                     TMercator83Geographic, z);
     }},
    {OneParallel, 1,
     [](const Arguments& z) {
         return Both(LambertNIZoneOf(z.a, z.e, z.phi0, z.lam0, z.FN, z.FE, z.k0), LambertNIPlane,
                     LambertNIGeographic, z);
     }},
    {TwoParallels, 1,
     [](const Arguments& z) {
         return Both(Lambert83ZoneOf(z.phi1, z.phi2, z.phi0, z.lam0, z.FN, z.FE, z.a, z.e), Lambert83Plane,
                     Lambert83Geographic, z);
     }},
    {Oblique, 1,
     [](const Arguments& z) {
         return Both(OMercator83ZoneOf(z.a, z.e, z.phi0, z.lam0, z.FN, z.FE, z.k0, z.alpha), OMercator83Plane,
                     OMercator83Geographic, z);
     }},
    {"Transverse Mercator - NAD 27 Equations", Foot,
     [](const Arguments& z) {
         return Both(TMercator27ZoneOf(z.a, z.e, z.phi0, z.lam0, 0, z.FE, z.k0), TMercator27Plane,
                     TMercator27Geographic, z);
     }},
    {"NAD 27 Alaska zones 2 to 9", Foot,
     [](const Arguments& z) {
         return Both(AK27Zone{.FE = z.FE, .lamc = z.lam0}, AK27Plane, AK27Geographic, z);
     }},
    {Lambert27, Foot,
     [](const Arguments& z) {
         return Both(Lambert27ZoneOf(z.phi1, z.phi2, z.phi0, z.lam0, 0, z.FE, z.a, z.e), Lambert27Plane,
                     Lambert27Geographic, z);
     }},
};

const Equations* FindEquations(std::string_view projection) {
    for (const Equations& equations : AllEquations)
        if (equations.projection == projection) return &equations;
    return nullptr;
}

// A position, and a plane point in meters, both ways; the plane position comes in meters.
Projected Project(const Definition& d, Position position, PlanePoint point) {
    const Equations& equations = *FindEquations(d.projection);
    const double unit = equations.unit;
    const double apart = unit == 1 ? 0 : d.falseNorthing;  // from what the equations know
    Projected projected = equations.project({.a = d.ellipsoid.a,
                                             .e = d.ellipsoid.e,
                                             .phi0 = d.latitude * RadiansInDegree,
                                             .lam0 = -d.longitude * RadiansInDegree,
                                             .phi1 = d.northParallel * RadiansInDegree,
                                             .phi2 = d.southParallel * RadiansInDegree,
                                             .FN = (d.falseNorthing - apart) / unit,
                                             .FE = d.falseEasting / unit,
                                             .k0 = d.scale,
                                             .alpha = d.azimuth * RadiansInDegree,
                                             .phi = position.latitude * RadiansInDegree,
                                             .lam = -position.longitude * RadiansInDegree,
                                             .northing = (point.northing - apart) / unit,
                                             .easting = point.easting / unit});
    projected.plane.northing = projected.plane.northing * unit + apart;
    projected.plane.easting = projected.plane.easting * unit;
    return projected;
}

struct Example {
    std::string source;
    Definition definition;
    Position position;
    double easting;  // in this unit, as is the northing
    double northing;
    double unit;              // meters
    double tolerance;         // in the unit, for easting and northing
    double inverseTolerance;  // for the position on the ellipsoid, in the unit; none where it is 0
};

// Compares both ways; gives what was computed.
Projected ExpectPublished(const Example& example) {
    SCOPED_TRACE(example.source);
    const Projected projected =
        Project(example.definition, example.position,
                {.northing = example.northing * example.unit, .easting = example.easting * example.unit});
    EXPECT_NEAR(projected.plane.easting / example.unit, example.easting, example.tolerance);
    EXPECT_NEAR(projected.plane.northing / example.unit, example.northing, example.tolerance);
    if (example.inverseTolerance > 0) {
        // On a sphere of the major axis, which is exact enough for a difference.
        const double radius = example.definition.ellipsoid.a / example.unit;
        const double phi = example.position.latitude * RadiansInDegree;
        const double lam = -example.position.longitude * RadiansInDegree;
        EXPECT_NEAR((projected.geographic.phi - phi) * radius, 0, example.inverseTolerance);
        EXPECT_NEAR((projected.geographic.lam - lam) * radius * std::cos(phi), 0, example.inverseTolerance);
    }
    return projected;
}

// The axis through two points, as azimuth and longitude at a central latitude: Snyder (1987), pages 72 and
// 73, equations 9-11 to 9-24.
struct Axis {
    double longitude;
    double azimuth;
};

Axis AxisThrough(const Ellipsoid& ellipsoid, double latitude, Position one, Position two) {
    const double e = ellipsoid.e;
    const auto sine = [](double degrees) { return std::sin(degrees * RadiansInDegree); };
    const auto t = [&](double degrees) {
        const double es = e * sine(degrees);
        return std::tan((90 - degrees) / 2 * RadiansInDegree) / std::pow((1 - es) / (1 + es), e / 2);
    };
    const double phi0 = latitude * RadiansInDegree;
    const double B = std::sqrt(1 + e * e * std::pow(std::cos(phi0), 4) / (1 - e * e));
    const double w = 1 - std::pow(e * sine(latitude), 2);
    const double D = B * std::sqrt(1 - e * e) / (std::cos(phi0) * std::sqrt(w));
    const double F0 = D + std::sqrt(D * D - 1);
    const double E = F0 * std::pow(t(latitude), B);
    const double H = std::pow(t(one.latitude), B);
    const double L = std::pow(t(two.latitude), B);
    const double F = E / H;
    const double J = (E * E - L * H) / (E * E + L * H);
    const double P = (L - H) / (L + H);
    const double half = B * (one.longitude - two.longitude) / 2 * RadiansInDegree;
    const double lambda0 =
        (one.longitude + two.longitude) / 2 * RadiansInDegree - std::atan(J * std::tan(half) / P) / B;
    const double gamma0 =
        std::atan(2 * std::sin(B * (one.longitude * RadiansInDegree - lambda0)) / (F - 1 / F));
    const double G = (F0 - 1 / F0) / 2;
    return {.longitude = (lambda0 + std::asin(G * std::tan(gamma0)) / B) / RadiansInDegree,
            .azimuth = std::asin(D * std::sin(gamma0)) / RadiansInDegree};
}

TEST(WorkedExamples, OfSnyder) {
    const std::string source = "USGS Professional Paper 1395, page ";
    ExpectPublished({.source = source + "269, transverse Mercator",
                     .definition = {.projection = TransverseMercator,
                                    .ellipsoid = ClarkeOfSnyder,
                                    .latitude = 0,
                                    .longitude = -75,
                                    .scale = 0.9996},
                     .position = {.latitude = 40.5, .longitude = -73.5},
                     .easting = 127106.5,
                     .northing = 4484124.4,
                     .unit = 1,
                     .tolerance = 0.06,
                     .inverseTolerance = 0.08});
    const Projected lambert = ExpectPublished({.source = source + "296, Lambert conformal conic",
                                               .definition = {.projection = TwoParallels,
                                                              .ellipsoid = ClarkeOfSnyder,
                                                              .latitude = 23,
                                                              .longitude = -96,
                                                              .northParallel = 45,
                                                              .southParallel = 33},
                                               .position = {.latitude = 35, .longitude = -75},
                                               .easting = 1894410.9,
                                               .northing = 1564649.5,
                                               .unit = 1,
                                               .tolerance = 0.06,
                                               .inverseTolerance = 0.08});
    EXPECT_NEAR(lambert.plane.scale, 0.9970171, 5e-8);
    const Axis axis = AxisThrough(ClarkeOfSnyder, 40, {.latitude = 47.5, .longitude = -Degrees(122, 18)},
                                  {.latitude = Degrees(25, 42), .longitude = -Degrees(80, 12)});
    ExpectPublished({.source = source + "274, Hotine oblique Mercator, alternate A",
                     .definition = {.projection = Oblique,
                                    .ellipsoid = ClarkeOfSnyder,
                                    .latitude = 40,
                                    .longitude = axis.longitude,
                                    .falseEasting = 4000000,
                                    .falseNorthing = 500000,
                                    .scale = 0.9996,
                                    .azimuth = axis.azimuth},
                     .position = {.latitude = Degrees(40, 48), .longitude = -74},
                     .easting = 963436.1,
                     .northing = 4369142.8,
                     .unit = 1,
                     .tolerance = 0.06,
                     .inverseTolerance = 0.08});
}

constexpr const char* GuidanceNote = "IOGP Guidance Note 373-7-2, ";

Definition TexasSouthCentral(std::string_view projection) {
    return {.projection = projection,
            .ellipsoid = Clarke1866,
            .latitude = Degrees(27, 50),
            .longitude = -99,
            .falseEasting = 2000000 * Foot,
            .northParallel = Degrees(30, 17),
            .southParallel = Degrees(28, 23)};
}

Example TexasSouthCentralExample(std::string_view projection, double tolerance) {
    return {.source = std::string(GuidanceNote) + "NAD27 / Texas South Central",
            .definition = TexasSouthCentral(projection),
            .position = {.latitude = 28.5, .longitude = -96},
            .easting = 2963503.91,
            .northing = 254759.80,
            .unit = Foot,
            .tolerance = tolerance,
            .inverseTolerance = tolerance};
}

TEST(WorkedExamples, OfTheGuidanceNote) {
    ExpectPublished(TexasSouthCentralExample(TwoParallels, 0.006));
    ExpectPublished(TexasSouthCentralExample(Lambert27, 0.03));
    // The cone of Michigan has its scale from an enlarged ellipsoid.
    ExpectPublished({.source = std::string(GuidanceNote) + "NAD27 / Michigan Central",
                     .definition = {.projection = TwoParallels,
                                    .ellipsoid = {.a = Clarke1866.a * 1.0000382, .e = Clarke1866.e},
                                    .latitude = Degrees(43, 19),
                                    .longitude = -Degrees(84, 20),
                                    .falseEasting = 2000000 * Foot,
                                    .northParallel = Degrees(45, 42),
                                    .southParallel = Degrees(44, 11)},
                     .position = {.latitude = Degrees(43, 45), .longitude = -Degrees(83, 10)},
                     .easting = 2308335.75,
                     .northing = 160210.48,
                     .unit = Foot,
                     .tolerance = 0.006,
                     .inverseTolerance = 0.01});
    ExpectPublished({.source = std::string(GuidanceNote) + "JAD69 / Jamaica National Grid",
                     .definition = {.projection = OneParallel,
                                    .ellipsoid = Clarke1866,
                                    .latitude = 18,
                                    .longitude = -77,
                                    .falseEasting = 250000,
                                    .falseNorthing = 150000},
                     .position = {.latitude = Degrees(17, 55, 55.80), .longitude = -Degrees(76, 56, 37.26)},
                     .easting = 255966.58,
                     .northing = 142493.51,
                     .unit = 1,
                     .tolerance = 0.006,
                     .inverseTolerance = 0.01});
}

TEST(WorkedExamples, OfTheBritishNationalGrid) {
    const Definition grid = {.projection = TransverseMercator,
                             .ellipsoid = Airy1830,
                             .latitude = 49,
                             .longitude = -2,
                             .falseEasting = 400000,
                             .falseNorthing = -100000,
                             .scale = 0.9996012717};
    ExpectPublished({.source = std::string(GuidanceNote) + "OSGB36 / British National Grid",
                     .definition = grid,
                     .position = {.latitude = 50.5, .longitude = 0.5},
                     .easting = 577274.99,
                     .northing = 69740.50,
                     .unit = 1,
                     .tolerance = 0.01,
                     .inverseTolerance = 0.02});
    ExpectPublished({.source = "A guide to coordinate systems in Great Britain, annex C, Caister water tower",
                     .definition = grid,
                     .position = {.latitude = Degrees(52, 39, 27.2531), .longitude = Degrees(1, 43, 4.5177)},
                     .easting = 651409.903,
                     .northing = 313177.270,
                     .unit = 1,
                     .tolerance = 0.003,
                     .inverseTolerance = 0.02});
}

// ---- The table of real data

using Words = std::map<std::string, std::string>;

std::vector<std::string> Split(const std::string& text, char separator) {
    std::vector<std::string> parts;
    std::istringstream stream(text);
    for (std::string part; std::getline(stream, part, separator);) parts.push_back(part);
    return parts;
}

// "key=value key=value"
Words WordsOf(const std::string& text) {
    Words words;
    for (const std::string& word : Split(text, ' ')) {
        const std::size_t equals = word.find('=');
        if (equals != std::string::npos) words[word.substr(0, equals)] = word.substr(equals + 1);
    }
    return words;
}

double NumberOf(const Words& words, const char* key, double otherwise = 0) {
    const auto found = words.find(key);
    return found == words.end() ? otherwise : std::stod(found->second);
}

Ellipsoid EllipsoidNamed(const std::string& name) {
    const std::map<std::string, Ellipsoid> known = {{"clrk66", Clarke1866},
                                                    {"Clarke 1866", Clarke1866},
                                                    {"GRS80", GRS80},
                                                    {"WGS 84", WGS84},
                                                    {"International 1924", International1924}};
    const auto found = known.find(name);
    if (found != known.end()) return found->second;
    const Words words = WordsOf(name);
    return BySquare(NumberOf(words, "a"), NumberOf(words, "es"));
}

double UnitNamed(const std::string& name) {
    const std::map<std::string, double> known = {{"m", 1}, {"us-ft", Foot}, {"ft", 0.3048}};
    return known.at(name);
}

Definition DefinitionOf(std::string_view projection, const Ellipsoid& ellipsoid, const Words& words) {
    return {.projection = projection,
            .ellipsoid = ellipsoid,
            .latitude = NumberOf(words, "lat_0"),
            .longitude = NumberOf(words, "lon_0"),
            .falseEasting = NumberOf(words, "FE"),
            .falseNorthing = NumberOf(words, "FN"),
            .scale = NumberOf(words, "k", 1),
            .northParallel = NumberOf(words, "lat_1"),
            .southParallel = NumberOf(words, "lat_2"),
            .azimuth = NumberOf(words, "alpha")};
}

// The columns: source, projection, ellipsoid, parameters, latitude, longitude, easting, northing, unit,
// tolerance, note.
std::optional<Example> ExampleOf(const std::vector<std::string>& columns) {
    const Equations* const equations = FindEquations(columns[1]);
    if (equations == nullptr) return std::nullopt;
    Example example{
        .source = columns[0],
        .definition = DefinitionOf(equations->projection, EllipsoidNamed(columns[2]), WordsOf(columns[3])),
        .position = {.latitude = std::stod(columns[4]), .longitude = std::stod(columns[5])},
        .easting = std::stod(columns[6]),
        .northing = std::stod(columns[7]),
        .unit = UnitNamed(columns[8]),
        .tolerance = std::stod(columns[9]),
        .inverseTolerance = 0};
    // The NAD 27 equations are those of Clarke 1866; a zone on an enlarged ellipsoid is on the true cone.
    if (equations->projection == Lambert27 && example.definition.ellipsoid.a != Clarke1866.a)
        example.definition.projection = TwoParallels;
    const double reach = std::fabs(example.position.longitude - example.definition.longitude);
    if (reach < 4) example.inverseTolerance = 2 * example.tolerance;
    return example;
}

// "scale S convergence D M S", the degrees with their sign.
void ExpectNotedDistortion(const std::string& note, const PlanePosition& plane) {
    std::istringstream words(note);
    std::string word;
    std::string degrees;
    double scale = 0;
    double minutes = 0;
    double seconds = 0;
    if (!(words >> word >> scale >> word >> degrees >> minutes >> seconds)) return;
    const double sign = degrees.starts_with('-') ? -1 : 1;
    const double convergence = sign * Degrees(std::fabs(std::stod(degrees)), minutes, seconds);
    EXPECT_NEAR(plane.scale, scale, 6e-9) << note;
    EXPECT_NEAR(plane.convergence / RadiansInDegree, convergence, 0.06 / 3600) << note;
}

TEST(WorkedExamples, OfTheTableBesideTheProject) {
    const std::string path = RealDataFolder() + "/projections/worked_examples.tsv";
    std::ifstream lines(path);
    if (RealDataFolder().empty() || !lines) GTEST_SKIP() << "no table of worked examples";
    std::string line;
    std::getline(lines, line);  // names of columns
    int examples = 0;
    while (std::getline(lines, line)) {
        const std::vector<std::string> columns = Split(line, '\t');
        ASSERT_GE(columns.size(), 10U) << line;
        const std::optional<Example> example = ExampleOf(columns);
        if (!example) continue;
        SCOPED_TRACE(line);
        const Projected projected = ExpectPublished(*example);
        if (columns.size() > 10) ExpectNotedDistortion(columns[10], projected.plane);
        ++examples;
    }
    EXPECT_GE(examples, 200);
}

}  // namespace
}  // namespace tarvek::test
