#include "coordmath/modZoneParameters.hpp"

#include "coordmath/modAngles.hpp"
#include "coordmath/modDistances.hpp"
#include "library/modINIFile.hpp"
#include "library/modINIText.hpp"
#include "library/modLibraryFiles.hpp"
#include "library/modMisc.hpp"
#include "platform/modNumbers.hpp"
#include "platform/modPrompts.hpp"

namespace tarvek {
namespace {

constexpr std::string_view ProjectionKey = "Projection";

// The keys of one zone, read as what they mean.
class ZoneKeys {
  public:
    ZoneKeys(const INIView& zones, std::string_view section, std::string_view equationUnit)
        : zones_(zones),
          section_(section),
          equationUnit_(equationUnit),
          latitudes_(Text("Positive Latitude Direction")),
          longitudes_(Text("Positive Longitude Direction")),
          linearUnits_(Text("Linear Units")) {}

    double Number(std::string_view key) const { return NumberFromText(Text(key)); }
    double Angle(std::string_view key) const { return Angles_GET_RadFromDMSPacked(Text(key)); }
    double Latitude(std::string_view key) const { return Angles_GET_Direction(Angle(key), latitudes_, "N"); }
    double Longitude(std::string_view key) const {
        return Angles_GET_Direction(Angle(key), longitudes_, "W");
    }
    double Length(std::string_view key) const {
        return Distances_GET_Convert(Number(key), linearUnits_, equationUnit_);
    }

  private:
    std::string_view Text(std::string_view key) const { return zones_.Value(section_, key); }

    const INIView& zones_;
    std::string_view section_;
    std::string_view equationUnit_;
    std::string_view latitudes_;
    std::string_view longitudes_;
    std::string_view linearUnits_;
};

// The section that has the zone; empty where none has.
std::string SectionOf(const INIView& zones, std::string_view coordinateSystem, std::string_view zone) {
    std::string section = ZoneSection(coordinateSystem, zone);
    if (!zones.Value(section, ProjectionKey).empty()) return section;
    return FIND_ZoneSection(coordinateSystem, zone);
}

void ReadEllipsoid(std::string_view name, ZoneParameters& parameters) {
    const INIView ellipsoids(ReadINIFile(EllipsoidsFile()));
    parameters.a = NumberFromText(ellipsoids.Value(name, "Semimajor Axis"));
    parameters.e = NumberFromText(ellipsoids.Value(name, "Eccentricity"));
}

std::string EllipsoidOf(const INIView& zones, std::string_view section, std::string_view horizontalDatum) {
    const std::string_view own = zones.Value(section, "Computational Ellipsoid");
    if (!own.empty()) return std::string(own);
    return std::string(INIView(ReadINIFile(DatumsFile())).Value(horizontalDatum, "Ellipsoid"));
}

}  // namespace

std::optional<ZoneParameters> ReadZoneParameters(std::string_view coordinateSystem, std::string_view zone,
                                                 std::string_view horizontalDatum) {
    const INIView zones(ReadINIFile(ZonesFile()));
    const std::string section = SectionOf(zones, coordinateSystem, zone);
    if (section.empty()) {
        std::string text = "Unknown Coordinate System or Zone '";
        text.append(coordinateSystem).append("' and '").append(zone).append("'.");
        TellFault(text, "Coordiante System Error");
        return std::nullopt;
    }
    ZoneParameters parameters;
    parameters.projection = FindProjection(zones.Value(section, ProjectionKey));
    ReadEllipsoid(EllipsoidOf(zones, section, horizontalDatum), parameters);
    if (parameters.projection == nullptr) return parameters;

    // In the order in which refusals are told.
    const ZoneKeys keys(zones, section, parameters.projection->unit);
    parameters.phi0 = keys.Latitude("Central Latitude");
    parameters.lam0 = keys.Longitude("Central Longitude");
    const ProjectionGroup group = parameters.projection->group;
    if (group == ProjectionGroup::TwoParallels) {
        parameters.northParallel = keys.Latitude("Northern Parallel");
        parameters.southParallel = keys.Latitude("Southern Parallel");
    } else {
        parameters.k0 = keys.Number("Scale Factor");
    }
    if (group == ProjectionGroup::Hotine) parameters.alpha = keys.Angle("Azimuth");
    parameters.FN = keys.Length("False Northing");
    parameters.FE = keys.Length("False Easting");
    return parameters;
}

}  // namespace tarvek
