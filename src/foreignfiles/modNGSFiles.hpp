#pragma once
// Reads files of NGS data sheets, one or more sheets behind each other, each of which gives one point. A
// place in a sheet is a column; the columns changed with the sheets retrieved from 1 May 2012 on, so there
// are two readers, and one file has sheets of one generation only.
//
// The points are geographic: latitude and longitude in radians with the sheet's hemisphere letters, heights
// in meters, error estimates in meters at one sigma. The header has the horizontal datum of the first sheet
// and the first vertical datum that is met. A sheet on another datum is imported unchanged once the user
// agrees, which is asked once in a file for the horizontal and once for the vertical datum (but for the
// vertical one of the wide layout).
//
// Each reader gives true when InputPoints and InputHeader were replaced, and false, with the tables as they
// were, when the user was told that the file does not exist or has no sheets, or when the user stopped at a
// question. A field that is no number, or a file that ends within a block of lines, is a fault of the run
// time that passes on, again with the tables as they were.

#include <string>

namespace tarvek {

// Reads the file with the reader for the retrieval date of its first sheet. Fault::TypeMismatch where that is
// no calendar date: "MAY 1, 2012" with or without the comma, the month in full or by three letters, or
// "5/1/2012". The date has 16 characters behind a blank, and what a longer one loses is lost: the year
// of "FEBRUARY 18, 2025" is 202.
bool ReadNGSFile(const std::string& path);

// Sheets retrieved before 1 May 2012, and from that day on.
bool ReadNGSFileBefore2012(const std::string& path);
bool ReadNGSFile2012(const std::string& path);

}  // namespace tarvek
