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
    bool (*readDataLine)(Import&);  // false when the user has stopped the import
    bool hasEllipsoidHeightLine;
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
bool AcceptConflict(Import& import, DatumQuestion& datum) {
    if (datum.accepted) return true;
    const std::string name(datum.name);
    datum.accepted = Ask(
        {"A " + name + " conflict exists in the file.  Point '" + import.point.PN + "' does not match the " +
             name + " of previous points in the file.  Click 'OK' to import " + "using the previous points " +
             std::string(datum.nameInSentence) + " or click 'Cancel' to stop the import.",
         name + " Conflict", Icon::None, Buttons::OKCancel});
    return datum.accepted;
}

bool MatchHorizontalDatum(Import& import, std::string_view datum) {
    return datum == import.header.System.HD || AcceptConflict(import, import.horizontal);
}

// The first datum met becomes that of the file.
bool MatchVerticalDatum(Import& import, std::string_view datum) {
    std::string& datumOfFile = import.header.System.VD;
    if (datumOfFile.empty()) datumOfFile = datum;
    return datum == datumOfFile || AcceptConflict(import, import.vertical);
}

void TakePosition(Import& import, const PositionLayout& layout) {
    const std::string_view line = import.line;
    PointRecord& point = import.point;
    point.LT = Angles_GET_Radians(TextAt(line, layout.latitude), AngleFormatDMS);
    point.LatDir = Columns(line, layout.latitudeDirection, 1);
    point.LG = Angles_GET_Radians(TextAt(line, layout.longitude), AngleFormatDMS);
    point.LongDir = Columns(line, layout.longitudeDirection, 1);
    AppendTagged(point.Others, "AH:", TextFrom(line, layout.source));
}

void TakeElevation(Import& import, const HeightLayout& layout) {
    import.point.Z = NumberAt(import.line, layout.height);
    AppendTagged(import.point.Others, "AV:", TextFrom(import.line, layout.source));
}

void TakeEllipsoidHeight(Import& import, const HeightLayout& layout) {
    import.point.HE = NumberAt(import.line, layout.height);
    const std::string_view source = TextFrom(import.line, layout.source);
    if (source != Adjusted) AppendTagged(import.point.Others, "CM:ELLIPSOID HEIGHT SOURCE = ", source);
}

// Steps of both generations

void StartSheet(Import& import) {
    if (import.sheetSeen) import.points.Append(std::move(import.point));
    InitPoint(import.point);
    import.point.HorizontalUnits = import.meters;
    import.point.VerticalUnits = import.meters;
    AppendTagged(import.point.Others, "CM:", ColumnsFrom(import.line, 38));
    import.sheetSeen = true;
}

void ReadKeyLine(Import& import) {
    PointRecord& point = import.point;
    const std::string_view key = TextAt(import.line, Key);
    if (key == "CORS_ID") {
        AppendTagged(point.PD, "PD:CORS_ID = ", point.PN);
        point.SY = point.SX = point.SZ = CORSErrorEstimate;
    } else if (key == "DESIGNATION") {
        AppendTagged(point.PD, "NM:", TextFrom(import.line, 25));
    } else if (key == "PID") {
        point.PN = TextFrom(import.line, 25);
    } else {
        AppendTagged(point.Others, "CM:", TextFrom(import.line, 23));
    }
}

float OneSigma(std::string_view line, Field field) {
    return SingleFromNumber(NumberAt(line, field) / CentimetersAt95Percent);
}

// The label of the row of values is not looked at.
void ReadAccuracy(Import& import, const AccuracyBlock& block) {
    constexpr int LinesBehindTitle = 3;
    for (int i = 0; i < LinesBehindTitle; ++i) import.line = import.file.RequireLine();
    import.point.SY = OneSigma(import.line, block.north);
    import.point.SX = OneSigma(import.line, block.east);
    import.point.SZ = OneSigma(import.line, block.up);
}

// Before 1 May 2012

// The vertical line is the one behind the position, whatever it holds.
bool ReadNarrowVerticalLine(Import& import) {
    import.line = import.file.RequireLine();
    const std::string_view datum = TextAt(import.line, Key);
    if (!MatchVerticalDatum(import, datum)) return false;
    if (!TextFrom(import.line, HeightBefore2012.source).empty()) TakeElevation(import, HeightBefore2012);
    AppendTagged(import.point.Others, "VD:", datum);
    return true;
}

bool ReadNarrowPosition(Import& import) {
    const std::string_view datum = TextAt(import.line, Key);
    if (import.InFirstSheet()) import.header.System.HD = datum;
    if (!MatchHorizontalDatum(import, datum)) return false;
    TakePosition(import, NarrowPosition);
    AppendTagged(import.point.Others, "HD:", datum);
    return ReadNarrowVerticalLine(import);
}

void ReadWideVerticalLine(Import& import) {
    import.line = import.file.RequireLine();
    std::string& datumOfFile = import.header.System.VD;
    const std::string_view source = TextFrom(import.line, HeightBefore2012.source);
    if (source == Adjusted && datumOfFile.empty()) datumOfFile = TextAt(import.line, Key);
    const bool isTaken = source == Adjusted || (!source.empty() && !datumOfFile.empty());
    if (isTaken) TakeElevation(import, HeightBefore2012);
}

// 16 characters are kept as the file's datum and 12 are compared with it, so that a longer name is a conflict
// with itself.
bool ReadWidePosition(Import& import) {
    const std::string_view wideDatum = TextAt(import.line, WideDatum);
    if (import.InFirstSheet()) import.header.System.HD = wideDatum;
    const bool wasAccepted = import.horizontal.accepted;
    const bool differs = TextAt(import.line, Key) != import.header.System.HD;
    if (differs && !AcceptConflict(import, import.horizontal)) return false;
    if (differs && wasAccepted) AppendTagged(import.point.Others, "CM:HORIZONTAL DATUM = ", wideDatum);
    TakePosition(import, WidePosition);
    ReadWideVerticalLine(import);
    return true;
}

bool ReadDataLineBefore2012(Import& import) {
    if (Column(import.line, 22) == '-') return ReadNarrowPosition(import);
    if (Column(import.line, 26) == '-') return ReadWidePosition(import);
    return true;
}

// From 1 May 2012 on

// Takes "<...>" out of the label and the values of an orthometric height. A "<" that is never closed stays.
void RemoveMarks(Import& import) {
    constexpr std::size_t LabelStart = LabelSince2012.start - 1;
    if (import.line.find("ORTHO HEIGHT", LabelStart) == std::string_view::npos) return;
    std::string kept;
    std::size_t from = 0;
    for (std::size_t mark = LabelStart; (mark = import.line.find('<', mark)) != std::string_view::npos;) {
        const std::size_t end = import.line.find('>', mark);
        if (end == std::string_view::npos) break;
        kept += import.line.substr(from, mark - from);
        from = mark = end + 1;
    }
    kept += import.line.substr(from);
    import.changedLine = ReplaceAll(kept, "  ORTHO", " ORTHO");
    import.line = import.changedLine;
}

bool ReadPositionSince2012(Import& import, std::string_view datum) {
    if (import.InFirstSheet()) import.header.System.HD = datum;
    if (!MatchHorizontalDatum(import, datum)) return false;
    TakePosition(import, PositionSince2012);
    AppendTagged(import.point.Others, "HD:", datum);
    return true;
}

bool ReadEllipsoidHeightSince2012(Import& import, std::string_view /*datum*/) {
    TakeEllipsoidHeight(import, EllipsoidHeightSince2012);
    return true;
}

bool ReadEpoch(Import& import, std::string_view /*datum*/) {
    AppendTagged(import.point.Others, "CM:EPOCH = ", TextAt(import.line, {32, 11}));
    return true;
}

bool ReadOrthoHeight(Import& import, std::string_view datum) {
    if (!MatchVerticalDatum(import, datum)) return false;
    if (!TextFrom(import.line, ElevationSince2012.source).empty()) TakeElevation(import, ElevationSince2012);
    AppendTagged(import.point.Others, "VD:", datum);
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

bool ReadDataLineSince2012(Import& import) {
    RemoveMarks(import);
    if (Column(import.line, 31) != '-') return true;
    const std::string_view label = Columns(import.line, LabelSince2012.start, LabelSince2012.count);
    for (const Keyword& keyword : Keywords) {
        const std::size_t at = label.find(keyword.text);
        if (at != std::string_view::npos) return keyword.read(import, Trim(label.substr(0, at)));
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

// False when the user has stopped the import.
bool ReadLine(Import& import, const Generation& generation) {
    if (IsSheetStart(import.line)) StartSheet(import);
    if (import.sheetSeen) {
        if (Column(import.line, 22) == '-') ReadKeyLine(import);
        if (IsDataLine(import.line) && !generation.readDataLine(import)) return false;
    }
    if (generation.hasEllipsoidHeightLine && Columns(import.line, Key.start, Key.count) == "ELLIP HEIGHT")
        TakeEllipsoidHeight(import, HeightBefore2012);
    if (Columns(import.line, BlockTitle.start, BlockTitle.count) == generation.accuracy.title)
        ReadAccuracy(import, generation.accuracy);
    return true;
}

void ReplaceInput(Import& import) {
    CoordSystemRef& system = import.header.System;
    system.CS = GeographicSystem;
    system.HorizontalUnits = AngleFormatDMS;
    system.VerticalUnits = import.meters.Text();
    import.points.Append(std::move(import.point));
    SurveyTables& tables = Tables();
    tables.InputHeader = std::move(import.header);
    tables.InputPoints = std::move(import.points);
    tables.InputChains = {};
}

bool ReadSheets(const std::string& path, const Generation& generation) {
    if (!CheckFileExists(path)) return false;
    Import import(path);
    while (import.file.NextLine(import.line))
        if (!ReadLine(import, generation)) return false;
    if (!import.sheetSeen) {
        TellNoDatasheet();
        return false;
    }
    ReplaceInput(import);
    return true;
}

// Retrieval dates

constexpr std::string_view MonthNames[] = {"JANUARY",   "FEBRUARY", "MARCH",    "APRIL",
                                           "MAY",       "JUNE",     "JULY",     "AUGUST",
                                           "SEPTEMBER", "OCTOBER",  "NOVEMBER", "DECEMBER"};

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
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
