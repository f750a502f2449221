#pragma once
// The commands of `tarvek` that show what the library holds: one entry a line on standard output, its columns
// parted by tabs. Each gives the exit status of the process.

#include <string>

namespace tarvek {

// Coordinate system, zone, projection, horizontal datum, linear units and full name of every zone in file
// order, or of those of one coordinate system, by its long or short name. 1, after a message, where there is
// no such system. The geographic system has no zones, which is told. At a section without "~" the fault is
// told, and the list goes on.
int ListZones(const std::string& coordinateSystem);
// Name, type, ellipsoid and full name of every datum.
int ListDatums();
// Name, semimajor and semiminor axis in meters, flattening and full name of every ellipsoid.
int ListEllipsoids();

// File, section, key and text of every fault in the library and the translator definitions. 0 and nothing
// printed where there is none, else 1.
int CheckLibraryCommand();

}  // namespace tarvek
