#include "oracle/seedZones.hpp"

#include <cmath>
#include <fstream>
#include <map>
#include <stdexcept>
#include <string_view>

namespace tarvek::test {
namespace {

struct Section {
    std::string name;
    std::map<std::string, std::string> keys;

    const std::string& Text(const std::string& key) const {
        const auto found = keys.find(key);
        if (found == keys.end()) throw std::runtime_error(name + ": no key " + key);
        return found->second;
    }
    bool Has(const std::string& key) const { return keys.count(key) != 0; }
    double Number(const std::string& key) const { return std::stod(Text(key)); }
};

std::vector<Section> ReadSections(const std::string& file) {
    std::ifstream lines(std::string(TARVEK_SOURCE) + "/data/" + file, std::ios::binary);
    if (!lines) throw std::runtime_error("no file " + file);
    std::vector<Section> sections;
    for (std::string line; std::getline(lines, line);) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        const std::size_t equals = line.find('=');
        if (line.starts_with('['))
            sections.push_back({.name = line.substr(1, line.size() - 2), .keys = {}});
        else if (equals != std::string::npos && !sections.empty())
            sections.back().keys[line.substr(0, equals)] = line.substr(equals + 1);
    }
    return sections;
}

const Section& SectionNamed(const std::vector<Section>& sections, const std::string& name) {
    for (const Section& section : sections)
        if (section.name == name) return section;
    throw std::runtime_error("no section " + name);
}

double MetersPer(const std::string& unit) {
    if (unit == "Meters") return 1;
    if (unit == "U.S. Survey Feet") return MetersPerSurveyFoot;
    if (unit == "International Feet") return 0.3048;
    throw std::runtime_error("no unit " + unit);
}

// The digits behind the last "(EPSG:".
std::string CodeIn(const std::string& fullName) {
    constexpr std::string_view mark = "(EPSG:";
    const std::size_t begin = fullName.rfind(mark);
    if (begin == std::string::npos) throw std::runtime_error("no code in " + fullName);
    return fullName.substr(begin + mark.size(), fullName.find(')', begin) - begin - mark.size());
}

SeedZone ZoneOf(const Section& section, const Section& ellipsoid) {
    const double north = section.Text("Positive Latitude Direction") == "N" ? 1 : -1;
    const double east = section.Text("Positive Longitude Direction") == "E" ? 1 : -1;
    const double unit = MetersPer(section.Text("Linear Units"));
    const auto angle = [&](const char* key) { return DegreesOfPacked(section.Text(key)); };
    const std::size_t separator = section.name.find('~');

    SeedZone zone;
    zone.system = section.name.substr(0, separator);
    zone.zone = section.name.substr(separator + 1);
    zone.datum = section.Text("Horizontal Datum");
    zone.projection = section.Text("Projection");
    zone.code = CodeIn(section.Text("Full Name"));
    zone.a = ellipsoid.Number("Semimajor Axis");
    zone.f = ellipsoid.Number("Flattening");
    zone.latitude = north * angle("Central Latitude");
    zone.longitude = east * angle("Central Longitude");
    zone.falseNorthing = section.Number("False Northing") * unit;
    zone.falseEasting = section.Number("False Easting") * unit;
    if (section.Has("Northern Parallel")) {
        zone.northParallel = north * angle("Northern Parallel");
        zone.southParallel = north * angle("Southern Parallel");
    } else {
        zone.scale = section.Number("Scale Factor");
    }
    if (section.Has("Azimuth")) zone.azimuth = angle("Azimuth");
    return zone;
}

}  // namespace

bool IsAlaska2To9Of1927(const SeedZone& zone) {
    return zone.system.starts_with("SPC27") && zone.zone >= "5002" && zone.zone < "5010";
}

double DegreesOfPacked(const std::string& text) {
    const bool negative = text.starts_with('-');
    const std::size_t point = text.find('.');
    const std::string fraction = text.substr(point + 1) + "0000";
    if (point == std::string::npos) throw std::runtime_error("no packed angle: " + text);
    const double degrees = std::stod(text.substr(negative ? 1 : 0, point));
    const double minutes = std::stod(fraction.substr(0, 2));
    const double seconds = std::stod(fraction.substr(2, 2) + "." + fraction.substr(4));
    const double value = degrees + minutes / 60 + seconds / 3600;
    return negative ? -value : value;
}

std::vector<SeedZone> ReadSeedZones() {
    const std::vector<Section> datums = ReadSections("datums.ini");
    const std::vector<Section> ellipsoids = ReadSections("ellipsoids.ini");
    std::vector<SeedZone> zones;
    for (const Section& section : ReadSections("zones.ini")) {
        std::string ellipsoid = section.Text("Computational Ellipsoid");
        if (ellipsoid.empty())
            ellipsoid = SectionNamed(datums, section.Text("Horizontal Datum")).Text("Ellipsoid");
        zones.push_back(ZoneOf(section, SectionNamed(ellipsoids, ellipsoid)));
    }
    return zones;
}

}  // namespace tarvek::test
