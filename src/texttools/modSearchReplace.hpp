#pragma once
// Search and replace over a tagged survey file, by the commands of a .TRN file. The work is on lines of text,
// not on survey records, and is all in memory: the output file is written at the end, and only if no command
// failed. What comes out is in upper case, without blank lines and without items that have no value (but for
// those among several that replaced one). Letters beyond ASCII in a line of UTF-8 keep their case.
//
// The .TRN file has one command a line, in any letter case:
//
//     PN:100 PN:200     replace: another tag, another value, or several items for one
//     XC:+100           arithmetic on the value; also "-", "*" and "/"
//     CM:OLD            remove the item if its value begins with the text
//     CM:               remove the item
//
// Tags and values are found as beginnings: "PN:10 PN:20" makes "PN:200" of "PN:100". A later command sees
// what the earlier ones made of every line.

#include <string>
#include <string_view>

#include "surveyfiles/modSurveyRecords.hpp"

namespace tarvek {

struct SearchReplaceCommand {
    std::string FindTag;         // what a line must begin with
    std::string FindValue;       // what the value must begin with; empty for any value
    std::string ReplaceText;     // replaces tag and find value; several items are parted by CR LF
    std::string MathOperator;    // "+", "-", "*" or "/"; empty for a command that is not arithmetic
    std::string MathType;        // class of FindTag, see ClassifyMathTag; empty likewise
    double MathValue = NoValue;  // the operand; -99999 likewise
};

// Applies a .TRN file to an input file. True when the output file has been written; a refusal has been told.
// A fault of arithmetic or of the file system passes on; the output file is then as it was before.
//
// An input file without a line leaves the lines of the run before in memory, and these are worked on.
bool RunSearchReplace(const std::string& inputFile, const std::string& outputFile,
                      const std::string& trnFile);

// The steps of a run. Both readers tell "The file '...' can not be found." / "File Not Found".
bool ReadSearchInput(const std::string& path);
bool ReadTrnFile(const std::string& path);
bool WriteSearchOutput(const std::string& path);

// Parses one line of a .TRN file, given in upper case and without trailing blanks. A refusal is told under
// "Invalid Search and Replace Command": no colon, an operand that is no number, arithmetic on a tag that has
// no math class.
bool ParseTrnLine(std::string_view line, SearchReplaceCommand& command);

}  // namespace tarvek
