#include "oracle/trueProjections.hpp"

#include <proj.h>

#include <GeographicLib/LambertConformalConic.hpp>
#include <GeographicLib/TransverseMercatorExact.hpp>
#include <cstdio>
#include <stdexcept>

namespace tarvek::test {
namespace {

struct Destroy {
    void operator()(PJ* object) const { proj_destroy(object); }
    void operator()(PJ_CONTEXT* context) const { proj_context_destroy(context); }
};
using Handle = std::unique_ptr<PJ, Destroy>;

PJ_CONTEXT* Context() {
    static const std::unique_ptr<PJ_CONTEXT, Destroy> context(proj_context_create());
    return context.get();
}

std::string Option(const char* key, double value) {
    char text[64];
    std::snprintf(text, sizeof text, " +%s=%.15g", key, value);
    return text;
}

std::string Kind(const SeedZone& zone) {
    const std::string origin = Option("lat_0", zone.latitude);
    const std::string meridian = Option("lon_0", zone.longitude);
    const std::string scale = Option("k_0", zone.scale);
    if (IsTransverseMercator(zone)) return "+proj=tmerc +algo=poder_engsager" + origin + meridian + scale;
    if (!IsLambert(zone))
        return "+proj=omerc +no_uoff" + origin + Option("lonc", zone.longitude) + scale +
               Option("alpha", zone.azimuth);
    if (zone.northParallel == 0)
        return "+proj=lcc" + origin + meridian + scale + Option("lat_1", zone.latitude);
    return "+proj=lcc" + origin + meridian + Option("lat_1", zone.northParallel) +
           Option("lat_2", zone.southParallel);
}

class ByPROJ : public TrueProjection {
  public:
    explicit ByPROJ(const SeedZone& zone) {
        const std::string definition = Kind(zone) + Option("x_0", zone.falseEasting) +
                                       Option("y_0", zone.falseNorthing) + Option("a", zone.a) +
                                       Option("f", zone.f) + " +units=m";
        projection_.reset(proj_create(Context(), definition.c_str()));
        if (!projection_) throw std::runtime_error("PROJ refuses " + definition);
    }

    PlanePoint Forward(Position position) const override {
        const PJ_COORD point = proj_trans(projection_.get(), PJ_FWD, Radians(position));
        return {.northing = point.xy.y, .easting = point.xy.x};
    }
    Position Inverse(PlanePoint point) const override {
        const PJ_COORD position =
            proj_trans(projection_.get(), PJ_INV, proj_coord(point.easting, point.northing, 0, 0));
        return {.latitude = proj_todeg(position.lp.phi), .longitude = proj_todeg(position.lp.lam)};
    }
    // By differences of the projection itself; good to some 1e-10.
    Distortion DistortionAt(Position position) const override {
        const PJ_FACTORS factors = proj_factors(projection_.get(), Radians(position));
        return {.convergence = proj_todeg(factors.meridian_convergence), .scale = factors.meridional_scale};
    }

  private:
    static PJ_COORD Radians(Position position) {
        return proj_coord(proj_torad(position.longitude), proj_torad(position.latitude), 0, 0);
    }

    Handle projection_;
};

GeographicLib::LambertConformalConic ConeOf(const SeedZone& zone) {
    if (zone.northParallel == 0) return {zone.a, zone.f, zone.latitude, zone.scale};
    return {zone.a, zone.f, zone.southParallel, zone.northParallel, 1};
}

// Both projections of GeographicLib have the same procedures.
template <class Projection>
class ByGeographicLib : public TrueProjection {
  public:
    ByGeographicLib(const SeedZone& zone, const Projection& projection)
        : projection_(projection), meridian_(zone.longitude) {
        const PlanePoint origin = Forward({.latitude = zone.latitude, .longitude = zone.longitude});
        north_ = zone.falseNorthing - origin.northing;
        east_ = zone.falseEasting;
    }

    PlanePoint Forward(Position position) const override {
        double x = 0;
        double y = 0;
        projection_.Forward(meridian_, position.latitude, position.longitude, x, y);
        return {.northing = y + north_, .easting = x + east_};
    }
    Position Inverse(PlanePoint point) const override {
        Position position{};
        projection_.Reverse(meridian_, point.easting - east_, point.northing - north_, position.latitude,
                            position.longitude);
        return position;
    }
    Distortion DistortionAt(Position position) const override {
        double x = 0;
        double y = 0;
        Distortion distortion{};
        projection_.Forward(meridian_, position.latitude, position.longitude, x, y, distortion.convergence,
                            distortion.scale);
        return distortion;
    }

  private:
    Projection projection_;
    double meridian_;
    double north_ = 0;
    double east_ = 0;
};

}  // namespace

bool IsTransverseMercator(const SeedZone& zone) { return zone.projection.starts_with("Transverse"); }
bool IsLambert(const SeedZone& zone) { return zone.projection.starts_with("Lambert"); }

std::unique_ptr<TrueProjection> ProjectionByPROJ(const SeedZone& zone) {
    return std::make_unique<ByPROJ>(zone);
}

std::unique_ptr<TrueProjection> ProjectionByGeographicLib(const SeedZone& zone) {
    using GeographicLib::LambertConformalConic;
    using GeographicLib::TransverseMercatorExact;
    if (IsTransverseMercator(zone))
        return std::make_unique<ByGeographicLib<TransverseMercatorExact>>(
            zone, TransverseMercatorExact(zone.a, zone.f, zone.scale));
    if (IsLambert(zone)) return std::make_unique<ByGeographicLib<LambertConformalConic>>(zone, ConeOf(zone));
    return nullptr;
}

Area AreaOfUse(const std::string& code) {
    const Handle system(
        proj_create_from_database(Context(), "EPSG", code.c_str(), PJ_CATEGORY_CRS, 0, nullptr));
    Area area{};
    if (!system || proj_get_area_of_use(Context(), system.get(), &area.west, &area.south, &area.east,
                                        &area.north, nullptr) == 0)
        throw std::runtime_error("PROJ has no area of use of EPSG:" + code);
    if (area.east < area.west) area.east += 360;
    return area;
}

std::string RegisterEdition() {
    const char* edition = proj_context_get_database_metadata(Context(), "EPSG.VERSION");
    return edition == nullptr ? std::string() : edition;
}

}  // namespace tarvek::test
