#pragma once
// NADCON datum shifts between NAD 27, NAD 83 and the high precision networks (HPGN) of the states, by the
// published grids (NOAA Technical Memorandum NOS NGS-50, 1990). A way back is solved by iterating the way
// there.
//
// Single and double precision are part of the results and are to stay: header values and limits of a grid are
// 32-bit floats, the test against the limits is made in 32 bits, two coefficients of the interpolation are
// rounded to them.

#include <string_view>

namespace tarvek {

// Shifts LT and LG of all ConversionPoints by one of the hundred methods of the library. True when every
// point was shifted. False, with the points before shifted, where the method is unknown, the headers of the
// grid's two files differ, a point lies on or beyond the edge of the grid or an iteration does not settle;
// the user was told. False with no word where a forward shift is exactly zero, which stands for no data. A
// missing grid holds no point.
bool NADCON_Transform(std::string_view method);

// The steps of it. Latitude and longitude are decimal degrees, positive north and east.

// Chooses grid and direction by a method's name, letter by letter.
bool NADCON_SetGrid(std::string_view method);
// Reads the two files of the grid and sets its limits.
bool NADCON_OpenGrid();
// True for a position strictly within the limits.
bool NADCON_InGrid(double latitude, double longitude);
// The shift in seconds of arc, of latitude (positive north) or longitude (positive west).
double NADCON_Interpolate(double latitude, double longitude, bool useLatitudeGrid);
// Applies both shifts; false, with nothing changed, where one is exactly zero.
bool NADCON_Forward(double& latitude, double& longitude);
// The position whose shifted place is the one given, within 1e-9 degrees; at most eleven rounds.
bool NADCON_Inverse(double& latitude, double& longitude);

}  // namespace tarvek
