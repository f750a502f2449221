#pragma once
// The native survey files, tagged line by line: control files (CTL), a header and a list of control points;
// points-and-chains files (PAC), computed points and the chains that join them; project, edited and
// calculated files (PRJ, EDI, CAL), one format that may hold all of it.

#include <string>

namespace tarvek {

// Each fills InputHeader, InputPoints and InputChains; true if the file was read to its end. False after a
// message, the tables untouched: "File Not Found" for a missing file, and messages with path, line number and
// reason for a blank line, a coordinate of the wrong kind, a name that is too long or a value that is not
// numeric. There is always at least one point, since the one being read is appended at the file's end
// whatever it holds; InputChains is allocated only where a chain was met.
bool ReadControlFile(const std::string& path);
bool ReadPointsAndChainsFile(const std::string& path);
bool ReadProjectFile(const std::string& path);

// Each prints OutputHeader, OutputPoints and (but for control files) OutputChains, replacing what is at
// `path`; true when the file was written.
bool WriteControlFile(const std::string& path);
bool WritePointsAndChainsFile(const std::string& path);
bool WriteProjectFile(const std::string& path);

}  // namespace tarvek
