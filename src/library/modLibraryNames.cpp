#include "library/modLibraryNames.hpp"

#include "platform/modText.hpp"

namespace tarvek {
namespace {

constexpr Projection TheProjections[] = {
    {"Transverse Mercator", ProjectionGroup::OneParallel, "Meters"},
    {"Lambert Conformal Conic - One Parallel", ProjectionGroup::OneParallel, "Meters"},
    {"Lambert Conformal Conic - Two Parallels", ProjectionGroup::TwoParallels, "Meters"},
    {"Oblique Mercator - Hotine", ProjectionGroup::Hotine, "Meters"},
    {"Transverse Mercator - NAD 27 Equations", ProjectionGroup::OneParallel, "U.S. Survey Feet"},
    {"Lambert Conformal Conic - NAD 27 Equations", ProjectionGroup::TwoParallels, "U.S. Survey Feet"},
};

}  // namespace

std::span<const Projection> Projections() { return TheProjections; }

const Projection* FindProjection(std::string_view name) {
    for (const Projection& projection : TheProjections)
        if (projection.name == name) return &projection;
    return nullptr;
}

std::string ZoneSection(std::string_view coordinateSystem, std::string_view zone) {
    return (std::string(coordinateSystem) += ZoneSeparator).append(zone);
}

std::optional<std::string_view> ShortNameOf(std::string_view name) {
    const std::size_t hyphen = name.find('-');
    if (hyphen == std::string_view::npos) return std::nullopt;
    return Trim(name.substr(0, hyphen));
}

}  // namespace tarvek
