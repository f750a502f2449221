#pragma once
// Carries the points of ConversionPoints between a plane system of the library and geographic positions, by
// the equations that its zone names.

#include <string_view>

namespace tarvek {

// Every point with a northing and an easting gets latitude and longitude, positive north and west,
// convergence and scale; its lengths change to the unit of the equations. A point without is passed over.
// False, after the user was told, where the library has no such zone; the points are then as they were. A
// fault of the run time passes on: a number that is missing in the library, a point where the equations have
// no result. The points before it are changed by then.
bool CoordConvert_PlaneToGeographic(std::string_view coordinateSystem, std::string_view zone,
                                    std::string_view horizontalDatum);

// Every point with latitude and longitude gets northing, easting, convergence and scale, its lengths in the
// unit named. LT and LG are turned positive north and west, while LatDir and LongDir stay as they are; a
// point whose directions are none of N, S, E, W and -W is passed over. False and faults as above.
bool CoordConvert_GeographicToPlane(std::string_view coordinateSystem, std::string_view zone,
                                    std::string_view horizontalDatum, std::string_view horizontalUnits);

}  // namespace tarvek
