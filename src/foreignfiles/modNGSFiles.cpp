#include "foreignfiles/modNGSFiles.hpp"

#include <chrono>
#include <string_view>
#include <utility>

#include "coordmath/modAngles.hpp"
#include "platform/modFaults.hpp"
#include "platform/modNumbers.hpp"
#include "platform/modPaths.hpp"
#include "platform/modPrompts.hpp"
#include "platform/modText.hpp"
#include "platform/modTextFileIn.hpp"
#include "surveyfiles/modSurveyRecords.hpp"

namespace tarvek {
namespace {

constexpr std::string_view SheetStart = "1        National Geodetic Survey,   Retrieval Date =";
constexpr std::chrono::year_month_day FirstDayOfNewLayout{std::chrono::year(2012), std::chrono::May,
                                                          std::chrono::day(1)};
constexpr std::string_view Adjusted = "ADJUSTED";
constexpr float CORSErrorEstimate = 0.0001F;
constexpr double CentimetersAt95Percent = 195.99;  // in a meter at one sigma

// `count` characters from column `start`.
struct Field {
    std::size_t start;
    std::size_t count;
};

constexpr Field Key = {10, 12};
constexpr Field WideDatum = {10, 16};
constexpr Field LabelSince2012 = {10, 21};
constexpr Field BlockTitle = {10, 67};

struct PositionLayout {
    Field latitude;
    std::size_t latitudeDirection;
    Field longitude;
    std::size_t longitudeDirection;
    std::size_t source;
};

constexpr PositionLayout NarrowPosition = {{24, 15}, 40, {45, 16}, 62, 69};
constexpr PositionLayout WidePosition = {{28, 15}, 44, {46, 16}, 63, 69};
constexpr PositionLayout PositionSince2012 = {{32, 15}, 48, {50, 16}, 67, 72};

struct HeightLayout {
    Field height;
    std::size_t source;
};

constexpr HeightLayout HeightBefore2012 = {{24, 15}, 69};
constexpr HeightLayout EllipsoidHeightSince2012 = {{32, 11}, 72};
constexpr HeightLayout ElevationSince2012 = {{32, 12}, 72};

// A title, two lines of column heads, and a line of values.
struct AccuracyBlock {
    std::string_view title;
    Field north;
    Field east;
    Field up;
};

// One of the two datums of a file, and whether the user has agreed to a sheet on another one.
struct DatumQuestion {
    std::string_view name;
    std::string_view nameInSentence;
    bool accepted = false;
};

// An import under way.
struct Import {
    explicit Import(const std::string& path) : file(path) {}

    TextFileIn file;
    std::string_view line;    // the current line; a step that reads on leaves its last line here
    std::string changedLine;  // the current line where a step had to change it
    ProjectHeader header;
    PointList points;        // of the sheets that are finished
    PointRecord point;       // of the current sheet
    bool sheetSeen = false;  // before the first sheet nothing is a line of a sheet
    DatumQuestion horizontal{"Horizontal Datum", "horizontal datum"};
    DatumQuestion vertical{"Vertical Datum", "vertical datum"};
    const Word meters{"Meters"};

    bool InFirstSheet() const { return points.size() == 0; }
};

// What parts the two generations.
struct Generation {
    bool (*readDataLine)(Import&) = nullptr;  // false when the user has stopped the import
    bool hasEllipsoidHeightLine = false;
    AccuracyBlock accuracy;
};

std::string_view TextAt(std::string_view line, Field field) {
    return Trim(Columns(line, field.start, field.count));
}

std::string_view TextFrom(std::string_view line, std::size_t column) {
    return Trim(ColumnsFrom(line, column));
}

double NumberAt(std::string_view line, Field field) { return NumberFromText(TextAt(line, field)); }

void AppendTagged(std::string& member, std::string_view tag, std::string_view value) {
    AppendLine(member, tag);
    member += value;
}

bool IsSheetStart(std::string_view line) { return line.starts_with(SheetStart); }
bool IsDataLine(std::string_view line) { return Column(line, 8) == '*'; }

bool CheckFileExists(const std::string& path) {
    if (FileExists(path)) return true;
    TellFault("The file '" + path + "' does not exist.", "File Does Not Exist");
    return false;
}

void TellNoDatasheet() {
    TellFault("Can not determine datasheet retrieval date or version.  Can not read datasheet.",
              "Datasheet Error");
}

// True if the import goes on; the user is asked once for each of the two datums.
bool AcceptConflict(Import& in, DatumQuestion& datum) {
    if (datum.accepted) return true;
    const std::string name(datum.name);
    const std::string text = "A " + name + " conflict exists in the file.  Point '" + in.point.PN +
                             "' does not match the " + name + " of previous points in the file.  " +
                             "Click 'OK' to import using the previous points " +
                             std::string(datum.nameInSentence) + " or click 'Cancel' to stop the import.";
    datum.accepted = Ask({text, name + " Conflict", Icon::None, Buttons::OKCancel});
    return datum.accepted;
}

bool MatchHorizontalDatum(Import& in, std::string_view datum) {
    return datum == in.header.System.HD || AcceptConflict(in, in.horizontal);
}

// The first datum met becomes that of the file.
bool MatchVerticalDatum(Import& in, std::string_view datum) {
    std::string& datumOfFile = in.header.System.VD;
    if (datumOfFile.empty()) datumOfFile = datum;
    return datum == datumOfFile || AcceptConflict(in, in.vertical);
}

void TakePosition(Import& in, const PositionLayout& layout) {
    const std::string_view line = in.line;
    PointRecord& point = in.point;
    point.LT = Angles_GET_Radians(TextAt(line, layout.latitude), AngleFormatDMS);
    point.LatDir = Columns(line, layout.latitudeDirection, 1);
    point.LG = Angles_GET_Radians(TextAt(line, layout.longitude), AngleFormatDMS);
    point.LongDir = Columns(line, layout.longitudeDirection, 1);
    AppendTagged(point.Others, "AH:", TextFrom(line, layout.source));
}

void TakeElevation(Import& in, const HeightLayout& layout) {
    in.point.Z = NumberAt(in.line, layout.height);
    AppendTagged(in.point.Others, "AV:", TextFrom(in.line, layout.source));
}

void TakeEllipsoidHeight(Import& in, const HeightLayout& layout) {
    in.point.HE = NumberAt(in.line, layout.height);
    const std::string_view source = TextFrom(in.line, layout.source);
    if (source != Adjusted) AppendTagged(in.point.Others, "CM:ELLIPSOID HEIGHT SOURCE = ", source);
}

// Steps of both generations

void StartSheet(Import& in) {
    if (in.sheetSeen) in.points.Append(std::move(in.point));
    InitPoint(in.point);
    in.point.HorizontalUnits = in.meters;
    in.point.VerticalUnits = in.meters;
    AppendTagged(in.point.Others, "CM:", ColumnsFrom(in.line, 38));
    in.sheetSeen = true;
}

void ReadKeyLine(Import& in) {
    PointRecord& point = in.point;
    const std::string_view key = TextAt(in.line, Key);
    if (key == "CORS_ID") {
        AppendTagged(point.PD, "PD:CORS_ID = ", point.PN);
        point.SY = point.SX = point.SZ = CORSErrorEstimate;
    } else if (key == "DESIGNATION") {
        AppendTagged(point.PD, "NM:", TextFrom(in.line, 25));
    } else if (key == "PID") {
        point.PN = TextFrom(in.line, 25);
    } else {
        AppendTagged(point.Others, "CM:", TextFrom(in.line, 23));
    }
}

float OneSigma(std::string_view line, Field field) {
    return SingleFromNumber(NumberAt(line, field) / CentimetersAt95Percent);
}

// The label of the row of values is not looked at.
void ReadAccuracy(Import& in, const AccuracyBlock& block) {
    constexpr int LinesBehindTitle = 3;
    for (int i = 0; i < LinesBehindTitle; ++i) in.line = in.file.RequireLine();
    in.point.SY = OneSigma(in.line, block.north);
    in.point.SX = OneSigma(in.line, block.east);
    in.point.SZ = OneSigma(in.line, block.up);
}

// Before 1 May 2012

// The vertical line is the one behind the position, whatever it holds.
bool ReadNarrowVerticalLine(Import& in) {
    in.line = in.file.RequireLine();
    const std::string_view datum = TextAt(in.line, Key);
    if (!MatchVerticalDatum(in, datum)) return false;
    if (!TextFrom(in.line, HeightBefore2012.source).empty()) TakeElevation(in, HeightBefore2012);
    AppendTagged(in.point.Others, "VD:", datum);
    return true;
}

bool ReadNarrowPosition(Import& in) {
    const std::string_view datum = TextAt(in.line, Key);
    if (in.InFirstSheet()) in.header.System.HD = datum;
    if (!MatchHorizontalDatum(in, datum)) return false;
    TakePosition(in, NarrowPosition);
    AppendTagged(in.point.Others, "HD:", datum);
    return ReadNarrowVerticalLine(in);
}

void ReadWideVerticalLine(Import& in) {
    in.line = in.file.RequireLine();
    std::string& datumOfFile = in.header.System.VD;
    const std::string_view source = TextFrom(in.line, HeightBefore2012.source);
    if (source == Adjusted && datumOfFile.empty()) datumOfFile = TextAt(in.line, Key);
    const bool isTaken = source == Adjusted || (!source.empty() && !datumOfFile.empty());
    if (isTaken) TakeElevation(in, HeightBefore2012);
}

// 16 characters are kept as the file's datum and 12 are compared with it, so that a longer name is a conflict
// with itself.
bool ReadWidePosition(Import& in) {
    const std::string_view wideDatum = TextAt(in.line, WideDatum);
    if (in.InFirstSheet()) in.header.System.HD = wideDatum;
    const bool wasAccepted = in.horizontal.accepted;
    const bool differs = TextAt(in.line, Key) != in.header.System.HD;
    if (differs && !AcceptConflict(in, in.horizontal)) return false;
    if (differs && wasAccepted) AppendTagged(in.point.Others, "CM:HORIZONTAL DATUM = ", wideDatum);
    TakePosition(in, WidePosition);
    ReadWideVerticalLine(in);
    return true;
}

bool ReadDataLineBefore2012(Import& in) {
    if (Column(in.line, 22) == '-') return ReadNarrowPosition(in);
    if (Column(in.line, 26) == '-') return ReadWidePosition(in);
    return true;
}

// From 1 May 2012 on

// Takes "<...>" out of the label and the values of an orthometric height. A "<" that is never closed stays.
void RemoveMarks(Import& in) {
    constexpr std::size_t LabelStart = LabelSince2012.start - 1;
    if (in.line.find("ORTHO HEIGHT", LabelStart) == std::string_view::npos) return;
    std::string kept;
    std::size_t from = 0;
    for (std::size_t mark = LabelStart; (mark = in.line.find('<', mark)) != std::string_view::npos;) {
        const std::size_t end = in.line.find('>', mark);
        if (end == std::string_view::npos) break;
        kept += in.line.substr(from, mark - from);
        from = mark = end + 1;
    }
    kept += in.line.substr(from);
    in.changedLine = ReplaceAll(kept, "  ORTHO", " ORTHO");
    in.line = in.changedLine;
}

bool ReadPositionSince2012(Import& in, std::string_view datum) {
    if (in.InFirstSheet()) in.header.System.HD = datum;
    if (!MatchHorizontalDatum(in, datum)) return false;
    TakePosition(in, PositionSince2012);
    AppendTagged(in.point.Others, "HD:", datum);
    return true;
}

bool ReadEllipsoidHeightSince2012(Import& in, std::string_view /*datum*/) {
    TakeEllipsoidHeight(in, EllipsoidHeightSince2012);
    return true;
}

bool ReadEpoch(Import& in, std::string_view /*datum*/) {
    AppendTagged(in.point.Others, "CM:EPOCH = ", TextAt(in.line, {32, 11}));
    return true;
}

bool ReadOrthoHeight(Import& in, std::string_view datum) {
    if (!MatchVerticalDatum(in, datum)) return false;
    if (!TextFrom(in.line, ElevationSince2012.source).empty()) TakeElevation(in, ElevationSince2012);
    AppendTagged(in.point.Others, "VD:", datum);
    return true;
}

struct Keyword {
    std::string_view text;
    bool (*read)(Import&, std::string_view datum);
};

// In the order in which a label is searched for them.
constexpr Keyword Keywords[] = {
    {"POSITION", ReadPositionSince2012},
    {"ELLIP HT", ReadEllipsoidHeightSince2012},
    {"EPOCH", ReadEpoch},
    {"ORTHO HEIGHT", ReadOrthoHeight},
};

bool ReadDataLineSince2012(Import& in) {
    RemoveMarks(in);
    if (Column(in.line, 31) != '-') return true;
    const std::string_view label = Columns(in.line, LabelSince2012.start, LabelSince2012.count);
    for (const Keyword& keyword : Keywords) {
        const std::size_t at = label.find(keyword.text);
        if (at != std::string_view::npos) return keyword.read(in, Trim(label.substr(0, at)));
    }
    return true;
}

constexpr Generation Before2012 = {
    ReadDataLineBefore2012,
    true,
    {"------- Accuracy Estimates (at 95% Confidence Level in cm) --------", {57, 6}, {64, 6}, {71, 6}}};

// The one horizontal value stands for north and east.
constexpr Generation Since2012 = {
    ReadDataLineSince2012,
    false,
    {"FGDC Geospatial Positioning Accuracy Standards (95% confidence, cm)", {52, 7}, {52, 7}, {60, 7}}};

// The file as a whole

// False when the user has stopped the import. What stands before the first sheet is passed over.
bool ReadLine(Import& in, const Generation& generation) {
    if (IsSheetStart(in.line)) StartSheet(in);
    if (!in.sheetSeen) return true;
    if (Column(in.line, 22) == '-') ReadKeyLine(in);
    if (IsDataLine(in.line) && !generation.readDataLine(in)) return false;
    if (generation.hasEllipsoidHeightLine && Columns(in.line, Key.start, Key.count) == "ELLIP HEIGHT")
        TakeEllipsoidHeight(in, HeightBefore2012);
    if (Columns(in.line, BlockTitle.start, BlockTitle.count) == generation.accuracy.title)
        ReadAccuracy(in, generation.accuracy);
    return true;
}

void ReplaceInput(Import& in) {
    CoordSystemRef& system = in.header.System;
    system.CS = GeographicSystem;
    system.HorizontalUnits = AngleFormatDMS;
    system.VerticalUnits = in.meters.Text();
    in.points.Append(std::move(in.point));
    SurveyTables& tables = Tables();
    tables.InputHeader = std::move(in.header);
    tables.InputPoints = std::move(in.points);
}

bool ReadSheets(const std::string& path, const Generation& generation) {
    if (!CheckFileExists(path)) return false;
    Import in(path);
    while (in.file.NextLine(in.line))
        if (!ReadLine(in, generation)) return false;
    if (!in.sheetSeen) {
        TellNoDatasheet();
        return false;
    }
    ReplaceInput(in);
    return true;
}

// Retrieval dates

constexpr std::string_view MonthNames[] = {"JANUARY",   "FEBRUARY", "MARCH",    "APRIL",
                                           "MAY",       "JUNE",     "JULY",     "AUGUST",
                                           "SEPTEMBER", "OCTOBER",  "NOVEMBER", "DECEMBER"};

bool IsLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

// Takes the characters of one kind off the beginning of `text`.
std::string_view TakeLeading(std::string_view& text, bool (*isOfKind)(char)) {
    std::size_t count = 0;
    while (count < text.size() && isOfKind(text[count])) ++count;
    const std::string_view taken = text.substr(0, count);
    text.remove_prefix(count);
    return taken;
}

bool TakeOne(std::string_view& text, char c) {
    if (!text.starts_with(c)) return false;
    text.remove_prefix(1);
    return true;
}

// A month or a day: one digit or two.
unsigned TakeNumber(std::string_view& text) {
    const std::string_view digits = TakeLeading(text, IsDigit);
    if (digits.size() > 2) RaiseFault(Fault::TypeMismatch);
    return static_cast<unsigned>(Integer16FromText(digits));
}

// Two digits stand for 1930 to 2029.
std::chrono::year TakeYear(std::string_view& text) {
    const std::string_view digits = TakeLeading(text, IsDigit);
    if (digits.size() > 4) RaiseFault(Fault::TypeMismatch);
    const int year = Integer16FromText(digits);
    if (digits.size() > 2) return std::chrono::year(year);
    return std::chrono::year(year + (year < 30 ? 2000 : 1900));
}

// The month of a name in full or of its first three letters.
std::chrono::month MonthNamed(std::string_view name) {
    unsigned number = 0;
    for (const std::string_view month : MonthNames) {
        ++number;
        if (EqualsIgnoringCase(name, month) || EqualsIgnoringCase(name, month.substr(0, 3)))
            return std::chrono::month(number);
    }
    RaiseFault(Fault::TypeMismatch);
}

// "MAY 1, 2012", with or without the comma.
std::chrono::year_month_day TakeWrittenDate(std::string_view& text) {
    const std::chrono::month month = MonthNamed(TakeLeading(text, IsLetter));
    text = TrimLeft(text);
    const std::chrono::day day(TakeNumber(text));
    text = TrimLeft(text);
    TakeOne(text, ',');
    text = TrimLeft(text);
    return {TakeYear(text), month, day};
}

// "5/1/2012"
std::chrono::year_month_day TakeNumericDate(std::string_view& text) {
    const std::chrono::month month(TakeNumber(text));
    if (!TakeOne(text, '/')) RaiseFault(Fault::TypeMismatch);
    const std::chrono::day day(TakeNumber(text));
    if (!TakeOne(text, '/')) RaiseFault(Fault::TypeMismatch);
    return {TakeYear(text), month, day};
}

std::chrono::year_month_day DateFromText(std::string_view text) {
    text = Trim(text);
    const bool isNumeric = !text.empty() && IsDigit(text.front());
    const std::chrono::year_month_day date = isNumeric ? TakeNumericDate(text) : TakeWrittenDate(text);
    if (!text.empty() || !date.ok()) RaiseFault(Fault::TypeMismatch);
    return date;
}

// The generation of the first sheet; none where there are data before any retrieval date.
const Generation* FindGeneration(const std::string& path) {
    TextFileIn file(path);
    for (std::string_view line; file.NextLine(line);) {
        if (IsSheetStart(line))
            return DateFromText(Columns(line, 54, 17)) < FirstDayOfNewLayout ? &Before2012 : &Since2012;
        if (IsDataLine(line)) return nullptr;
    }
    return &Before2012;
}

}  // namespace

bool ReadNGSFile(const std::string& path) {
    if (!CheckFileExists(path)) return false;
    const Generation* generation = FindGeneration(path);
    if (generation) return ReadSheets(path, *generation);
    TellNoDatasheet();
    return false;
}

bool ReadNGSFileBefore2012(const std::string& path) { return ReadSheets(path, Before2012); }
bool ReadNGSFile2012(const std::string& path) { return ReadSheets(path, Since2012); }

}  // namespace tarvek
