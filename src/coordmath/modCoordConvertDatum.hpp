#pragma once
// The stages of the pipeline that change datums and heights. Each works on ConversionPoints, whose positions
// are geographic by then.

#include <string_view>

namespace tarvek {

// Runs the transformation that datums.ini names from one horizontal datum to the other. Without one the user
// may agree to go on with datums of the same ellipsoid, the positions as they are. False where the user does
// not, where the ellipsoids differ, or where the transformation fails; the user was told. A transformation
// that no procedure knows by its first characters moves nothing, and is true.
bool CoordConvert_HorizontalDatum(std::string_view datumIn, std::string_view datumOut);

// The same for vertical datums; here an unknown transformation is told, and false.
bool CoordConvert_VerticalDatum(std::string_view datumIn, std::string_view datumOut);

// The whole vertical stage: another datum, geoid heights where they are asked for, another unit. False, after
// the user was told, where the datum or the geoid model can not be served.
bool CoordConvert_VerticalChange(std::string_view datumIn, std::string_view datumOut,
                                 std::string_view unitsOut, bool computeGeoid, std::string_view geoidModel);

}  // namespace tarvek
