#pragma once
// The words of the library's files: their names, and the values that are chosen from a list.

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace tarvek {

inline constexpr std::string_view ZonesFileName = "zones.ini";
inline constexpr std::string_view DatumsFileName = "datums.ini";
inline constexpr std::string_view EllipsoidsFileName = "ellipsoids.ini";

// A section of zones.ini is named coordinate system, this character, short name of the zone.
inline constexpr char ZoneSeparator = '~';

// The geographic coordinate system. It has no zones and so no section; dialogs add it to their lists.
inline constexpr std::string_view GeographicSystem = "GCS - Geographic Coordinates";

// The types of a datum.
inline constexpr std::string_view DatumHorizontal = "Horizontal";
inline constexpr std::string_view DatumVertical = "Vertical";
inline constexpr std::string_view Datum3D = "3D";
inline constexpr std::string_view DatumTypes[] = {DatumHorizontal, DatumVertical, Datum3D};

// What stands for a vertical datum where heights have none.
inline constexpr std::string_view NoDatum = "None";

inline constexpr std::string_view LinearUnits[] = {"Meters", "U.S. Survey Feet", "International Feet"};
inline constexpr std::string_view AngularFormats[] = {"DDD MM SS.ssss", "DDD.MMSSssss", "DDD.dddddd",
                                                      "DDD MM.mmmm"};
inline constexpr std::string_view LatitudeDirections[] = {"N", "S"};
inline constexpr std::string_view LongitudeDirections[] = {"E", "W"};

// Which parameters a projection has beside its origin: one scale factor, two parallels, or a scale factor and
// an azimuth.
enum class ProjectionGroup { OneParallel, TwoParallels, Hotine };

struct Projection {
    std::string_view name;
    ProjectionGroup group;
    std::string_view unit;  // the linear unit that its equations are in
};

// The six projections in the order in which they are offered.
std::span<const Projection> Projections();
// nullptr for any other name; letter case counts.
const Projection* FindProjection(std::string_view name);

std::string ZoneSection(std::string_view coordinateSystem, std::string_view zone);

// The short name of a coordinate system or zone: what precedes the first "-", without blanks at its ends.
// Nothing where there is no "-".
std::optional<std::string_view> ShortNameOf(std::string_view name);

}  // namespace tarvek
