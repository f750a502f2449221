#pragma once
// The reading loop of the tagged survey files: one line, one tag of two letters and a colon, one value. A
// file family differs from another only in the table of its tags and in the words of its refusals.

#include <array>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>

#include "surveyfiles/modSurveyRecords.hpp"

namespace tarvek {

struct FileFamily;

// A file while it is read. The tables of the process are filled from it only at the file's end.
struct TaggedReading {
    const FileFamily& family;
    const std::string& path;
    std::string_view line{};  // the current line without trailing blanks
    long lineNumber = 0;
    bool inHeader = false;
    ProjectHeader header{};
    Word horizontalUnits{};  // those of header.System, for every point that is closed
    Word verticalUnits{};
    PointRecord pending{};  // the point whose lines are being read
    PointList points{};
    ChainRecord chain{};  // the chain whose lines are being read
    bool chainOpen = false;
    ChainList chains{};

    std::string_view Value() const { return line.substr(3); }
};

// What a line of one tag does, and the member that it fills. `act` gives false after it has told the user why
// the line is refused.
struct TagRule {
    std::string_view tag;
    bool (*act)(TaggedReading&, const TagRule&) = nullptr;
    double PointRecord::*number = nullptr;
    float PointRecord::*single = nullptr;
    Word PointRecord::*word = nullptr;
    std::string CoordSystemRef::*system = nullptr;
    std::string ChainRecord::*chain = nullptr;
    bool PointRecord::*control = nullptr;  // becomes `isControl` together with a coordinate
    bool isControl = false;
    std::string_view refusal = {};         // the reason told for a value that is not numeric
    std::string_view refusalCaption = {};  // its caption where that is not the family's
};

// Rules, found by the tag of a line.
class TagTable {
  public:
    // The rules of one family and those that all families share; the first rule of a tag counts.
    TagTable(std::initializer_list<std::span<const TagRule>> familyRules);
    const TagRule* Find(std::string_view line) const;

  private:
    static constexpr std::size_t Slots = 128;
    static std::size_t FirstSlot(std::string_view tag);
    void Add(const TagRule& rule);

    std::array<TagRule, Slots> rules_{};
};

struct FileFamily {
    const TagTable& tags;
    std::string_view name;                 // caption and beginning of the texts below
    std::string_view blankLineText;        // last line of the message for a blank line
    std::string_view wrongCoordinateText;  // last line of the message for a coordinate of the wrong kind
    std::string_view fieldFaultName;       // caption and beginning of the text for a field fault
    bool hasChains = false;                // "AC:CH" opens a chain
    bool startsChainsPending = false;      // such a chain is marked for the SRV writer, with no station
    bool keepsActivity = false;            // a closed point gets the activity of the line that closes it
};

// Reads a file of a family into the input tables; true if it was read to its end. False after a message: no
// such file ("File Not Found"), or a line that is refused; the tables then hold what they held before.
bool ReadTaggedFile(const std::string& path, const FileFamily& family);

// Actions for the rules of a family.
bool StoreCoordinate(TaggedReading& reading, const TagRule& rule);
bool RefuseCoordinate(TaggedReading& reading, const TagRule& rule);

// The rules of the families that have chains: the lines of a chain, and heights of single precision.
std::span<const TagRule> ChainRules();

}  // namespace tarvek
