#pragma once
// The native survey files, tagged line by line: the control file (CTL), a header and a list of control
// points.

#include <string>

namespace tarvek {

// Fills InputHeader and InputPoints; true if the file was read to its end. False after a message, the tables
// untouched: "File Not Found" for a missing file, "Invalid Tarvek Control File" for a blank line or a
// computed coordinate, and "Invalid Tarvek Points and Chains File" for a name that is too long or a value
// that is not numeric. Always at least one point, since the one being read is appended at the file's end
// whatever it holds.
bool ReadControlFile(const std::string& path);

// Prints OutputHeader and OutputPoints, replacing what is at `path`; true when the file was written.
bool WriteControlFile(const std::string& path);

}  // namespace tarvek
