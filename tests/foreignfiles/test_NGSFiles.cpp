// The sheets are put together here from texts and the columns where they stand; angles are computed from
// degrees, minutes and seconds in long double, error estimates are chosen to be round multiples of 195.99 cm.

#include <gtest/gtest.h>

#include <initializer_list>
#include <numbers>
#include <string>
#include <string_view>
#include <vector>

#include "foreignfiles/modNGSFiles.hpp"
#include "support/testSupport.hpp"
#include "surveyfiles/modSurveyRecords.hpp"

namespace tarvek {
namespace {

using test::ExpectNothingTold;
using test::ExpectToldOnly;
using test::Lines;
using test::ReadBytes;
using test::ScriptedPrompts;
using test::TemporaryFolder;

constexpr std::string_view NoDatasheet =
    "Can not determine datasheet retrieval date or version.  Can not read datasheet.";

using Reader = bool (*)(const std::string&);

struct Placed {
    std::size_t column;
    std::string_view text;
};

// A line with each text at its column; a text may not cover the one before.
std::string Line(std::initializer_list<Placed> texts) {
    std::string line;
    for (const Placed& placed : texts) {
        EXPECT_LE(line.size() + 1, placed.column) << placed.text;
        line.resize(placed.column - 1, ' ');
        line += placed.text;
    }
    return line;
}

// Stands for its own line end, so that it can be one of the lines.
std::string Sheet(std::initializer_list<std::string_view> lines) {
    std::string text = Lines(lines);
    text.resize(text.size() - 2);
    return text;
}

std::string Header(std::string_view date) {
    return "1        National Geodetic Survey,   Retrieval Date = " + std::string(date);
}

const std::string& OldHeader() {
    static const std::string header = Header("MARCH  1, 2000");
    return header;
}

const std::string& NewHeader() {
    static const std::string header = Header("MAY 26, 2015");
    return header;
}

std::string KeyLine(std::string_view key, std::string_view value) {
    return Line({{2, "ZZ0001"}, {10, key}, {22, "-"}, {25, value}});
}

std::string NarrowPosition(std::string_view datum, std::string_view source = "ADJUSTED") {
    return Line({{2, "ZZ0001*"},
                 {10, datum},
                 {22, "-"},
                 {25, "36 42 49.     (N)"},
                 {46, "111 59 03.     (W)"},
                 {69, source}});
}

std::string NarrowVertical(std::string_view datum, std::string_view height, std::string_view source) {
    return Line({{2, "ZZ0001*"}, {10, datum}, {22, "-"}, {27, height}, {39, "(meters)"}, {69, source}});
}

std::string WidePosition(std::string_view datum) {
    return Line({{2, "ZZ0001*"},
                 {10, datum},
                 {26, "-"},
                 {29, "36 42 49.25000(N)"},
                 {47, "111 59 03.50000(W)"},
                 {69, "ADJUSTED"}});
}

std::string NewPosition(std::string_view datum) {
    return Line({{2, "ZZ0001*"},
                 {10, std::string(datum) + " POSITION"},
                 {31, "-"},
                 {33, "36 54 31.19183(N)"},
                 {51, "111 27 45.63634(W)"},
                 {72, "ADJUSTED"}});
}

std::string NewOrtho(std::string_view datum, std::string_view height, std::string_view source) {
    return Line({{2, "ZZ0001*"},
                 {10, std::string(datum) + " ORTHO HEIGHT"},
                 {31, "-"},
                 {34, height},
                 {44, "(meters)"},
                 {72, source}});
}

std::string OldAccuracyTitle() {
    return Line({{10, "------- Accuracy Estimates (at 95% Confidence Level in cm) --------"}});
}

std::string NewAccuracyTitle() {
    return Line({{10, "FGDC Geospatial Positioning Accuracy Standards (95% confidence, cm)"}});
}

double Radians(long double degrees, long double minutes, long double seconds) {
    const long double decimal = degrees + minutes / 60 + seconds / 3600;
    return static_cast<double>(decimal * std::numbers::pi_v<long double> / 180);
}

void ExpectAngle(double actual, long double degrees, long double minutes, long double seconds) {
    EXPECT_NEAR(actual, Radians(degrees, minutes, seconds), 1e-12);
}

class NGSFiles : public testing::Test {
  protected:
    NGSFiles() {
        ClearInputTables();
        PointRecord kept;
        kept.PN = "KEPT";
        Tables().InputHeader.PR = "PR:KEPT";
        Tables().InputPoints.Append(kept);
        Tables().InputChains.Append(ChainRecord());
    }
    ~NGSFiles() override { ClearInputTables(); }

    // Imports a file of these bytes.
    bool Read(Reader reader, std::string_view bytes) { return reader(folder_.Put("sheets.txt", bytes)); }

    // Imports what must go through without a word.
    void ReadQuietly(Reader reader, std::string_view bytes) {
        EXPECT_TRUE(Read(reader, bytes));
        ExpectNothingTold(prompts_);
    }

    // The fault of the run time that ends the import.
    Fault FaultOf(Reader reader, std::string_view bytes) {
        return test::FaultOf([&] { Read(reader, bytes); });
    }

    void ExpectTablesKept() {
        EXPECT_EQ(Tables().InputHeader.PR, "PR:KEPT");
        EXPECT_EQ(Tables().InputHeader.System.CS, "");
        ASSERT_EQ(Tables().InputPoints.size(), 1U);
        EXPECT_EQ(Tables().InputPoints[0].PN, "KEPT");
        EXPECT_EQ(Tables().InputChains.size(), 1U);
    }

    // The points just imported; there must be `count` of them.
    const PointList& Points(std::size_t count) {
        EXPECT_EQ(Tables().InputPoints.size(), count);
        if (Tables().InputPoints.size() != count) throw std::runtime_error("other count of points");
        return Tables().InputPoints;
    }
    const PointRecord& OnlyPoint() { return Points(1)[0]; }
    const CoordSystemRef& System() { return Tables().InputHeader.System; }

    void ExpectQuestion(std::size_t index, std::string_view text, std::string_view caption) {
        ASSERT_GT(prompts_.told.size(), index);
        EXPECT_EQ(prompts_.told[index].text, text);
        EXPECT_EQ(prompts_.told[index].caption, caption);
        EXPECT_EQ(prompts_.told[index].icon, Icon::None);
        EXPECT_EQ(prompts_.told[index].buttons, Buttons::OKCancel);
    }

    ScriptedPrompts prompts_;
    TemporaryFolder folder_;
};

constexpr Reader AllReaders[] = {ReadNGSFile, ReadNGSFileBefore2012, ReadNGSFile2012};

// Files as a whole

TEST_F(NGSFiles, MissingFileIsToldByEveryReader) {
    const std::string path = folder_.File("none.txt");
    for (const Reader reader : AllReaders) {
        ScriptedPrompts prompts;
        EXPECT_FALSE(reader(path));
        ExpectToldOnly(prompts, "The file '" + path + "' does not exist.", "File Does Not Exist");
        ExpectTablesKept();
    }
}

TEST_F(NGSFiles, FolderIsNoFile) {
    EXPECT_FALSE(ReadNGSFile(folder_.Path()));
    ExpectToldOnly(prompts_, "The file '" + folder_.Path() + "' does not exist.", "File Does Not Exist");
}

TEST_F(NGSFiles, DataBeforeAnyRetrievalDateAreRefused) {
    EXPECT_FALSE(Read(ReadNGSFile, Lines({NarrowPosition("NAD 83(1986)"), OldHeader()})));
    ExpectToldOnly(prompts_, NoDatasheet, "Datasheet Error");
    ExpectTablesKept();
}

TEST_F(NGSFiles, StarInAnotherColumnIsNoData) {
    ReadQuietly(ReadNGSFile, Lines({Line({{7, "*"}}), Line({{9, "*"}}), OldHeader()}));
    OnlyPoint();
}

TEST_F(NGSFiles, FileWithoutSheetIsToldByEveryReader) {
    for (const Reader reader : AllReaders) {
        ScriptedPrompts prompts;
        EXPECT_FALSE(Read(reader, Lines({"some text", KeyLine("PID", "AA0001")})));
        ExpectToldOnly(prompts, NoDatasheet, "Datasheet Error");
        ExpectTablesKept();
    }
}

// The direct readers need no retrieval date to be told apart, but lines count only behind a sheet's header.
TEST_F(NGSFiles, LinesBeforeTheFirstSheetAreIgnored) {
    ReadQuietly(ReadNGSFileBefore2012, Lines({KeyLine("PID", "AA0001"), NarrowPosition("NAD 27"),
                                              Line({{10, "ELLIP HEIGHT-"}, {30, "1.5"}}), OldHeader()}));
    const PointRecord& old = OnlyPoint();
    EXPECT_EQ(old.PN, "");
    EXPECT_EQ(old.LT, NoValue);
    EXPECT_EQ(old.HE, NoValue);
    EXPECT_EQ(old.Others, "CM:Retrieval Date = MARCH  1, 2000");
    EXPECT_EQ(System().HD, "");
    EXPECT_EQ(System().VD, "");
    ReadQuietly(ReadNGSFile2012, Lines({KeyLine("PID", "AA0001"), NewPosition("NAD 27"), NewHeader()}));
    EXPECT_EQ(OnlyPoint().PN, "");
    EXPECT_EQ(OnlyPoint().LT, NoValue);
    EXPECT_EQ(System().HD, "");
}

TEST_F(NGSFiles, NumbersBeforeTheFirstSheetAreNotRead) {
    const std::string height = Line({{10, "ELLIP HEIGHT-"}, {30, "no number"}});
    const std::string values = Line({{52, "no number"}});
    ReadQuietly(ReadNGSFile, Lines({height, OldAccuracyTitle(), "", "", values, OldHeader()}));
    EXPECT_EQ(OnlyPoint().HE, NoValue);
    EXPECT_EQ(OnlyPoint().SY, NoValueSingle);
    ReadQuietly(ReadNGSFile, Lines({NewAccuracyTitle(), "", "", values, NewHeader()}));
    EXPECT_EQ(OnlyPoint().SZ, NoValueSingle);
}

// The title of a block does not take the header, within the three lines behind it, for a line of its own.
TEST_F(NGSFiles, AccuracyTitleBeforeTheFirstSheetLeavesTheHeaderAlone) {
    for (const auto& [title, header] :
         {std::pair(OldAccuracyTitle(), OldHeader()), std::pair(NewAccuracyTitle(), NewHeader())}) {
        ReadQuietly(ReadNGSFile, Lines({title, header, KeyLine("PID", "AA0001"), KeyLine("PID", "AA0002")}));
        EXPECT_EQ(OnlyPoint().PN, "AA0002");
        ReadQuietly(ReadNGSFile, Lines({title, "", "", header, KeyLine("PID", "AA0003")}));
        EXPECT_EQ(OnlyPoint().PN, "AA0003");
        EXPECT_EQ(OnlyPoint().SY, NoValueSingle);
    }
}

TEST_F(NGSFiles, HeaderAloneGivesAnEmptyPointWithUnits) {
    ReadQuietly(ReadNGSFile, NewHeader());
    const PointRecord& point = OnlyPoint();
    EXPECT_EQ(point.PN, "");
    EXPECT_EQ(point.PD, "");
    EXPECT_EQ(point.GM, "P");
    EXPECT_EQ(point.LT, NoValue);
    EXPECT_EQ(point.LG, NoValue);
    EXPECT_EQ(point.Z, NoValue);
    EXPECT_EQ(point.HE, NoValue);
    EXPECT_EQ(point.SY, NoValueSingle);
    EXPECT_EQ(point.SX, NoValueSingle);
    EXPECT_EQ(point.SZ, NoValueSingle);
    EXPECT_EQ(point.HorizontalUnits, "Meters");
    EXPECT_EQ(point.VerticalUnits, "Meters");
    EXPECT_FALSE(point.IsGeographic);
}

TEST_F(NGSFiles, SuccessReplacesHeaderAndPoints) {
    ReadQuietly(ReadNGSFile, NewHeader());
    EXPECT_EQ(Tables().InputHeader.PR, "");
    EXPECT_EQ(System().CS, "GCS - Geographic Coordinates");
    EXPECT_EQ(System().ZN, "");
    EXPECT_EQ(System().HorizontalUnits, "DDD MM SS.ssss");
    EXPECT_EQ(System().VerticalUnits, "Meters");
    EXPECT_EQ(Tables().InputChains.size(), 1U) << "data sheets have no chains, and leave those of the table";
}

TEST_F(NGSFiles, HeaderTextFromColumn38IsKeptUntrimmed) {
    ReadQuietly(ReadNGSFile, Header("MAY  9, 2011  "));
    EXPECT_EQ(OnlyPoint().Others, "CM:Retrieval Date = MAY  9, 2011  ");
}

TEST_F(NGSFiles, HeaderMustStandExactly) {
    EXPECT_FALSE(Read(ReadNGSFile, "1    National Geodetic Survey, Retrieval Date = FEBRUARY 18, 2025"));
    EXPECT_FALSE(Read(ReadNGSFile, " " + OldHeader()));
    EXPECT_EQ(prompts_.told.size(), 2U);
    ExpectTablesKept();
}

TEST_F(NGSFiles, EverySheetGivesAPointInOrder) {
    std::string text;
    for (int i = 0; i < 1000; ++i) text += Lines({OldHeader(), KeyLine("PID", "P" + std::to_string(i))});
    ReadQuietly(ReadNGSFile, text);
    const PointList& points = Points(1000);
    for (std::size_t i = 0; i < points.size(); ++i) EXPECT_EQ(points[i].PN, "P" + std::to_string(i));
}

TEST_F(NGSFiles, SheetStartsFromAFreshRecord) {
    ReadQuietly(ReadNGSFile, Lines({OldHeader(), KeyLine("CORS_ID", "ABCD"), KeyLine("DESIGNATION", "ROCK"),
                                    KeyLine("PID", "AA0001"), NarrowPosition("NAD 83(1986)"),
                                    NarrowVertical("NAVD 88", "12.5", "ADJUSTED"), OldHeader()}));
    const PointRecord& second = Points(2)[1];
    EXPECT_EQ(second.PN, "");
    EXPECT_EQ(second.PD, "");
    EXPECT_EQ(second.Others, "CM:Retrieval Date = MARCH  1, 2000");
    EXPECT_EQ(second.LT, NoValue);
    EXPECT_EQ(second.Z, NoValue);
    EXPECT_EQ(second.SY, NoValueSingle);
}

// Retrieval dates

struct DateCase {
    std::string_view date;
    char generation;  // 'B'efore, 'S'ince, or '-' for no date
};

std::ostream& operator<<(std::ostream& out, const DateCase& date) { return out << date.date; }

class NGSDates : public NGSFiles, public testing::WithParamInterface<DateCase> {};

// Only sheets before 2012 have a line of their own for the ellipsoid height, only those since have an epoch.
TEST_P(NGSDates, DecidesTheGeneration) {
    const std::string text = Lines(
        {"a title", Header(GetParam().date), Line({{10, "ELLIP HEIGHT="}, {30, "1.5"}, {69, "ADJUSTED"}}),
         Line({{8, "*"}, {10, "NAD 83(2011) EPOCH"}, {31, "-"}, {34, "2010.00"}})});
    if (GetParam().generation == '-') {
        EXPECT_EQ(FaultOf(ReadNGSFile, text), Fault::TypeMismatch);
        ExpectTablesKept();
        return;
    }
    ReadQuietly(ReadNGSFile, text);
    const bool isOld = OnlyPoint().HE == 1.5;
    const bool isNew = OnlyPoint().Others.ends_with("\r\nCM:EPOCH = 2010.00");
    EXPECT_EQ(isOld, GetParam().generation == 'B');
    EXPECT_EQ(isNew, GetParam().generation == 'S');
}

// Behind the blank at column 54 the date has 16 characters: the cut years are noted.
constexpr DateCase Dates[] = {
    {"MAY 1, 2012", 'S'},
    {"MAY  1, 2012", 'S'},
    {"MAY 01, 2012", 'S'},
    {"APRIL 30, 2012", 'B'},
    {"MAY 2, 2011", 'B'},
    {"JANUARY 1, 2013", 'S'},
    {"DECEMBER 31, 2011", 'B'},   // 201
    {"DECEMBER 1, 2013", 'S'},    // 16 characters
    {"FEBRUARY 19, 2025", 'B'},   // 202
    {"FEBRUARY  9, 2025", 'B'},   // 202
    {"NOVEMBER 12, 2019", 'B'},   // 201
    {"SEPTEMBER 30, 2011", 'S'},  // 20, which is 2020
    {"SEPTEMBER 30, 1998", 'S'},  // 19, which is 2019
    {"SEPTEMBER 3, 2011", 'B'},   // 201
    {"MAY 1, 29", 'S'},           // 2029
    {"MAY 1, 30", 'B'},           // 1930
    {"MAY 1, 00", 'B'},           // 2000
    {"MAY 1, 99", 'B'},           // 1999
    {"MAY 1, 12", 'S'},
    {"may 1, 2012", 'S'},
    {"May 1 2012", 'S'},
    {"Apr 30, 2012", 'B'},
    {"JUN 14,2013", 'S'},
    {"AUGUST 5 , 2012", 'S'},
    {"5/1/2012", 'S'},
    {"05/01/2012", 'S'},
    {"4/30/2012", 'B'},
    {"12/31/11", 'B'},
    {"FEBRUARY 29, 2012", '-'},  // 201 is no leap year
    {"FEB 29, 2012", 'B'},
    {"FEB 29, 2011", '-'},
    {"FEB 31, 2013", '-'},
    {"MAY 0, 2013", '-'},
    {"MAY 123, 2013", '-'},
    {"MAY 12, 20133", '-'},
    {"MAY 12", '-'},
    {"MAY", '-'},
    {"MAYO 12, 2013", '-'},
    {"MA 12, 2013", '-'},
    {"MAY 12, 2013 x", '-'},
    {"13/1/2013", '-'},
    {"2/30/2013", '-'},
    {"2-3-2013", '-'},
    {"5/1", '-'},
    {"12 MAY 2013", '-'},
    {"", '-'},
    {"?", '-'},
};

INSTANTIATE_TEST_SUITE_P(Dates, NGSDates, testing::ValuesIn(Dates));

TEST_F(NGSFiles, FirstSheetDecidesForTheFile) {
    ReadQuietly(ReadNGSFile, Lines({NewHeader(), Header("no date at all"), OldHeader(),
                                    Line({{10, "ELLIP HEIGHT-"}, {30, "no number"}})}));
    Points(3);
}

TEST_F(NGSFiles, DateStopsBeforeColumn71) {
    // "MAY 1, 2012" filled up to column 70, and a text behind it.
    ReadQuietly(ReadNGSFile, Header("MAY 1, 2012     text behind"));
    OnlyPoint();
}

// Key lines

struct NamedReader {
    std::string_view name;
    Reader read;
};

std::ostream& operator<<(std::ostream& out, const NamedReader& reader) { return out << reader.name; }

class NGSKeyLines : public NGSFiles, public testing::WithParamInterface<NamedReader> {};

INSTANTIATE_TEST_SUITE_P(Generations, NGSKeyLines,
                         testing::Values(NamedReader{"before 2012", ReadNGSFileBefore2012},
                                         NamedReader{"since 2012", ReadNGSFile2012}));

TEST_P(NGSKeyLines, GoToTheirMembers) {
    ReadQuietly(GetParam().read,
                Lines({OldHeader(), KeyLine("DESIGNATION", "  QUARRY BEND  "), KeyLine("PID", "  AA0001 "),
                       KeyLine("STATE/COUNTY", "XX/ALDER"), KeyLine("USGS QUAD", ""), "",
                       KeyLine("DESIGNATION", "SECOND NAME")}));
    const PointRecord& point = OnlyPoint();
    EXPECT_EQ(point.PN, "AA0001");
    EXPECT_EQ(point.PD, "NM:QUARRY BEND\r\nNM:SECOND NAME");
    EXPECT_EQ(point.Others, "CM:Retrieval Date = MARCH  1, 2000\r\nCM:XX/ALDER\r\nCM:");
}

TEST_P(NGSKeyLines, OtherKeysKeepTheirTextFromColumn23) {
    ReadQuietly(GetParam().read,
                Lines({OldHeader(), Line({{10, "USGS QUAD"}, {22, "-A  B"}}), Line({{10, "pid"}, {22, "-C"}}),
                       Line({{9, "-----------------------------"}})}));
    EXPECT_EQ(OnlyPoint().Others,
              "CM:Retrieval Date = MARCH  1, 2000\r\nCM:A  B\r\nCM:C\r\nCM:---------------");
    EXPECT_EQ(OnlyPoint().PN, "");
}

TEST_P(NGSKeyLines, ValuesOfKnownKeysBeginInColumn25) {
    ReadQuietly(GetParam().read, Lines({OldHeader(), Line({{10, "PID"}, {22, "-XYZ01"}}),
                                        Line({{10, "DESIGNATION"}, {22, "-XYROCK"}})}));
    EXPECT_EQ(OnlyPoint().PN, "Z01");
    EXPECT_EQ(OnlyPoint().PD, "NM:ROCK");
}

TEST_P(NGSKeyLines, WithoutDashInColumn22AreNone) {
    ReadQuietly(GetParam().read, Lines({OldHeader(), Line({{10, "PID"}, {21, "-"}, {25, "AA0001"}}),
                                        Line({{10, "PID"}, {23, "-"}, {25, "AA0001"}})}));
    EXPECT_EQ(OnlyPoint().PN, "");
    EXPECT_EQ(OnlyPoint().Others, "CM:Retrieval Date = MARCH  1, 2000");
}

TEST_P(NGSKeyLines, CORSIdentifierTakesTheNameAsItStands) {
    ReadQuietly(GetParam().read, Lines({OldHeader(), KeyLine("CORS_ID", "ABCD"), KeyLine("PID", "AA0001"),
                                        OldHeader(), KeyLine("PID", "AA0002"), KeyLine("CORS_ID", "EFGH"),
                                        KeyLine("DESIGNATION", "ROCK")}));
    EXPECT_EQ(Points(2)[0].PD, "PD:CORS_ID = ");
    EXPECT_EQ(Points(2)[0].PN, "AA0001");
    EXPECT_EQ(Points(2)[1].PD, "PD:CORS_ID = AA0002\r\nNM:ROCK");
    for (const PointRecord& point : Points(2)) {
        EXPECT_EQ(point.SY, 0.0001F);
        EXPECT_EQ(point.SX, 0.0001F);
        EXPECT_EQ(point.SZ, 0.0001F);
    }
}

// Sheets before 1 May 2012

TEST_F(NGSFiles, NarrowSheetFillsThePoint) {
    ReadQuietly(ReadNGSFile,
                Lines({"                SURVEY CONTROL DATA", OldHeader(),
                       " ZZ0001 ***********************************************************************",
                       " ZZ0001  DESIGNATION -  WINDMILL", " ZZ0001  PID         -  ZZ0001",
                       " ZZ0001  USGS QUAD   -  ", " ZZ0001",
                       " ZZ0001                         *CURRENT SURVEY CONTROL",
                       " ZZ0001  ___________________________________________________________________",
                       " ZZ0001* NAD 83(2007)-  17 32 45.26389(N)    061 45 57.14524(W)     NO CHECK  ",
                       " ZZ0001* LOCAL TIDAL -         5.     (meters)      16.     (feet)  GPS OBS   ",
                       " ZZ0001  X           -   2,877,821.345 (meters)                     COMP",
                       " ZZ0001  ELLIP HEIGHT-         -34.569 (meters)          (02/10/07) NO CHECK",
                       " ZZ0001  ------- Accuracy Estimates (at 95% Confidence Level in cm) --------",
                       " ZZ0001  Type    PID    Designation                      North   East  Ellip",
                       " ZZ0001  -------------------------------------------------------------------",
                       " ZZ0001  NETWORK ZZ0001 WINDMILL                        19.599 39.198 97.995",
                       " ZZ0001  -------------------------------------------------------------------",
                       " ZZ0001.Free text."}));
    const PointRecord& point = OnlyPoint();
    EXPECT_EQ(point.PN, "ZZ0001");
    EXPECT_EQ(point.PD, "NM:WINDMILL");
    ExpectAngle(point.LT, 17, 32, 45.26389L);
    ExpectAngle(point.LG, 61, 45, 57.14524L);
    EXPECT_EQ(point.LatDir, "N");
    EXPECT_EQ(point.LongDir, "W");
    EXPECT_EQ(point.Z, 5.0);
    EXPECT_EQ(point.HE, -34.569);
    EXPECT_EQ(point.HG, NoValue);
    EXPECT_EQ(point.X, NoValue);
    EXPECT_EQ(point.Y, NoValue);
    EXPECT_EQ(point.SY, 0.1F);
    EXPECT_EQ(point.SX, 0.2F);
    EXPECT_EQ(point.SZ, 0.5F);
    EXPECT_EQ(point.Others,
              "CM:Retrieval Date = MARCH  1, 2000\r\n"
              "CM:\r\n"
              "CM:17 32 45.26389(N)    061 45 57.14524(W)     NO CHECK\r\n"
              "AH:NO CHECK\r\n"
              "HD:NAD 83(2007)\r\n"
              "AV:GPS OBS\r\n"
              "VD:LOCAL TIDAL\r\n"
              "CM:2,877,821.345 (meters)                     COMP\r\n"
              "CM:-34.569 (meters)          (02/10/07) NO CHECK\r\n"
              "CM:ELLIPSOID HEIGHT SOURCE = NO CHECK\r\n"
              "CM:------------------------------------------------------");
    EXPECT_EQ(System().HD, "NAD 83(2007)");
    EXPECT_EQ(System().VD, "LOCAL TIDAL");
}

TEST_F(NGSFiles, NarrowFieldsReachToTheirLastColumn) {
    ReadQuietly(
        ReadNGSFileBefore2012,
        Lines({OldHeader(),
               Line({{8, "*"},
                     {10, "DATUM OF 12!"},
                     {22, "-x"},
                     {24, "017 32 45.26389"},
                     {39, "xSxxxx"},
                     {45, "0061 45 57.14524"},
                     {61, "xExxxxxx"},
                     {69, "A"}}),
               Line({{9, "xHEIGHTS OF 1x"}, {23, "x"}, {24, "-123456789.1234"}, {39, "x"}, {68, "xB"}}),
               Line({{9, "xELLIP HEIGHTx"}, {23, "x"}, {24, "-987654321.1234"}, {39, "x"}, {68, "xC"}})}));
    const PointRecord& point = OnlyPoint();
    ExpectAngle(point.LT, 17, 32, 45.26389L);
    ExpectAngle(point.LG, 61, 45, 57.14524L);
    EXPECT_EQ(point.LatDir, "S");
    EXPECT_EQ(point.LongDir, "E");
    EXPECT_EQ(point.Z, -123456789.1234);
    EXPECT_EQ(point.HE, -987654321.1234);
    EXPECT_EQ(System().HD, "DATUM OF 12!");
    EXPECT_EQ(System().VD, "HEIGHTS OF 1");
    EXPECT_TRUE(
        point.Others.ends_with("\r\nAH:A\r\nHD:DATUM OF 12!\r\nAV:B\r\nVD:HEIGHTS OF 1\r\n"
                               "CM:ELLIPSOID HEIGHT SOURCE = C"))
        << point.Others;
}

TEST_F(NGSFiles, NarrowAccuracyFieldsReachToTheirLastColumn) {
    ReadQuietly(
        ReadNGSFileBefore2012,
        Lines({OldHeader(),
               Line({{10, "------- Accuracy Estimates (at 95% Confidence Level in cm) --------x"}}), "1", "2",
               Line({{56, "x"},
                     {57, "19.599"},
                     {63, "x"},
                     {64, "39.198"},
                     {70, "x"},
                     {71, "97.995"},
                     {77, "x"}})}));
    EXPECT_EQ(OnlyPoint().SY, 0.1F);
    EXPECT_EQ(OnlyPoint().SX, 0.2F);
    EXPECT_EQ(OnlyPoint().SZ, 0.5F);
}

TEST_F(NGSFiles, AccuracyTitleMustStandExactly) {
    ReadQuietly(ReadNGSFileBefore2012,
                Lines({OldHeader(),
                       Line({{11, "------- Accuracy Estimates (at 95% Confidence Level in cm) --------"}}),
                       NewAccuracyTitle(),
                       Line({{10, "------- Accuracy Estimates (at 95% Confidence Level in cm) -------"}})}));
    EXPECT_EQ(OnlyPoint().SY, NoValueSingle);
}

TEST_F(NGSFiles, OldElevationNeedsASource) {
    ReadQuietly(
        ReadNGSFileBefore2012,
        Lines({OldHeader(), NarrowPosition("NAD 83(1986)"), NarrowVertical("NAVD 88", "1.5", ""), OldHeader(),
               NarrowPosition("NAD 83(1986)"), NarrowVertical("NAVD 88", "2.5", "ADJUSTED"), OldHeader(),
               NarrowPosition("NAD 83(1986)"), NarrowVertical("NAVD 88", "3.5", "POSTED")}));
    const PointList& points = Points(3);
    EXPECT_EQ(points[0].Z, NoValue);
    EXPECT_TRUE(points[0].Others.ends_with("HD:NAD 83(1986)\r\nVD:NAVD 88"));
    EXPECT_EQ(points[1].Z, 2.5);
    EXPECT_TRUE(points[1].Others.ends_with("AV:ADJUSTED\r\nVD:NAVD 88"));
    EXPECT_EQ(points[2].Z, 3.5);
    EXPECT_TRUE(points[2].Others.ends_with("AV:POSTED\r\nVD:NAVD 88"));
}

TEST_F(NGSFiles, LineBehindAPositionIsTheVerticalLineAndStillAnEllipsoidHeight) {
    ReadQuietly(ReadNGSFileBefore2012,
                Lines({OldHeader(), NarrowPosition("NAD 83(1986)"),
                       " ZZ0001  ELLIP HEIGHT-         -34.569 (meters)          (02/10/07) NO CHECK"}));
    EXPECT_EQ(OnlyPoint().Z, -34.569);
    EXPECT_EQ(OnlyPoint().HE, -34.569);
    EXPECT_EQ(System().VD, "ELLIP HEIGHT");
    // No "CM:" line of its own: the key lines come before the data lines.
    EXPECT_TRUE(OnlyPoint().Others.ends_with(
        "\r\nHD:NAD 83(1986)\r\nAV:NO CHECK\r\nVD:ELLIP HEIGHT\r\nCM:ELLIPSOID HEIGHT SOURCE = NO CHECK"));
}

TEST_F(NGSFiles, LineBehindAPositionIsStillAnAccuracyTitle) {
    ReadQuietly(ReadNGSFileBefore2012,
                Lines({OldHeader(), WidePosition("NAD 83(1986)"), OldAccuracyTitle(), "1",
                       KeyLine("PID", "NOT READ"), Line({{57, "19.599"}, {64, "39.198"}, {71, "97.995"}})}));
    EXPECT_EQ(OnlyPoint().SZ, 0.5F);
    EXPECT_EQ(OnlyPoint().Z, NoValue);
    EXPECT_EQ(OnlyPoint().PN, "");
}

TEST_F(NGSFiles, SheetHeaderBehindAPositionIsTheVerticalLine) {
    ReadQuietly(ReadNGSFileBefore2012,
                Lines({OldHeader(), NarrowPosition("NAD 83(1986)"), OldHeader(), KeyLine("PID", "AA0002")}));
    EXPECT_EQ(OnlyPoint().PN, "AA0002");
    EXPECT_EQ(System().VD, "National Geo");
    EXPECT_TRUE(OnlyPoint().Others.ends_with("\r\nVD:National Geo"));
}

TEST_F(NGSFiles, EmptyVerticalDatumIsFilledByALaterSheet) {
    ReadQuietly(ReadNGSFileBefore2012,
                Lines({OldHeader(), NarrowPosition("NAD 83(1986)"), "", OldHeader(),
                       NarrowPosition("NAD 83(1986)"), NarrowVertical("NGVD 29", "1.5", "ADJUSTED")}));
    EXPECT_TRUE(Points(2)[0].Others.ends_with("\r\nHD:NAD 83(1986)\r\nVD:"));
    EXPECT_EQ(System().VD, "NGVD 29");
}

TEST_F(NGSFiles, EllipsoidHeightNeedsNoStarAndTellsOtherSources) {
    ReadQuietly(ReadNGSFileBefore2012,
                Lines({OldHeader(), Line({{10, "ELLIP HEIGHT="}, {30, "1.25"}, {69, " ADJUSTED "}}),
                       OldHeader(), Line({{8, "*"}, {10, "ELLIP HEIGHT="}, {30, "2.25"}, {69, "GPS OBS"}}),
                       OldHeader(), Line({{10, "ELLIP HEIGHT="}, {30, "3.25"}})}));
    const PointList& points = Points(3);
    EXPECT_EQ(points[0].HE, 1.25);
    EXPECT_EQ(points[0].Others, "CM:Retrieval Date = MARCH  1, 2000");
    EXPECT_EQ(points[1].HE, 2.25);
    EXPECT_TRUE(points[1].Others.ends_with("\r\nCM:ELLIPSOID HEIGHT SOURCE = GPS OBS"));
    EXPECT_EQ(points[2].HE, 3.25);
    EXPECT_TRUE(points[2].Others.ends_with("\r\nCM:ELLIPSOID HEIGHT SOURCE = "));
}

TEST_F(NGSFiles, OrderOfCORSIdentifierAndAccuracyBlockDecides) {
    const std::string block =
        Sheet({OldAccuracyTitle(), "", "", Line({{57, "19.599"}, {64, "39.198"}, {71, "97.995"}})});
    ReadQuietly(ReadNGSFileBefore2012, Lines({OldHeader(), KeyLine("CORS_ID", "ABCD"), block, OldHeader(),
                                              block, KeyLine("CORS_ID", "ABCD")}));
    EXPECT_EQ(Points(2)[0].SY, 0.1F);
    EXPECT_EQ(Points(2)[0].SX, 0.2F);
    EXPECT_EQ(Points(2)[0].SZ, 0.5F);
    EXPECT_EQ(Points(2)[1].SY, 0.0001F);
    EXPECT_EQ(Points(2)[1].SZ, 0.0001F);
}

TEST_F(NGSFiles, LabelOfTheAccuracyRowIsNotLookedAt) {
    ReadQuietly(ReadNGSFileBefore2012,
                Lines({OldHeader(), OldAccuracyTitle(), "", "",
                       Line({{10, "LOCAL"}, {57, "19.599"}, {64, "39.198"}, {71, "97.995"}})}));
    EXPECT_EQ(OnlyPoint().SY, 0.1F);
    EXPECT_EQ(OnlyPoint().Others, "CM:Retrieval Date = MARCH  1, 2000");
    ReadQuietly(ReadNGSFile2012, Lines({NewHeader(), NewAccuracyTitle(), "", "",
                                        Line({{10, "LOCAL"}, {52, "19.599"}, {60, "39.198"}})}));
    EXPECT_EQ(OnlyPoint().SY, 0.1F);
    EXPECT_EQ(OnlyPoint().Others, "CM:Retrieval Date = MAY 26, 2015");
}

TEST_F(NGSFiles, DirectionsAreWhatStandsInTheirColumns) {
    ReadQuietly(ReadNGSFileBefore2012,
                Lines({OldHeader(), Line({{8, "*"}, {10, "NAD 27"}, {22, "-"}, {24, "36 42"}, {45, "111"}}),
                       NarrowVertical("NAVD 88", "1.5", "ADJUSTED")}));
    ExpectAngle(OnlyPoint().LT, 36, 42, 0);
    ExpectAngle(OnlyPoint().LG, 111, 0, 0);
    EXPECT_EQ(OnlyPoint().LatDir, " ");
    EXPECT_EQ(OnlyPoint().LongDir, "");
}

TEST_F(NGSFiles, AngleBeyondItsLimitsIsToldAndTheImportGoesOn) {
    EXPECT_TRUE(
        Read(ReadNGSFileBefore2012,
             Lines({OldHeader(),
                    Line({{8, "*"}, {10, "NAD 27"}, {22, "-"}, {24, "36 60 49."}, {45, "111 59 03."}}),
                    NarrowVertical("NAVD 88", "1.5", "ADJUSTED")})));
    ExpectToldOnly(prompts_, "Invalid Angle '36 60 49.'. Minutes portion must be positive and not exceed 59.",
                   "Invalid Angle");
    EXPECT_EQ(OnlyPoint().LT, NoValue);
    ExpectAngle(OnlyPoint().LG, 111, 59, 3);
    EXPECT_EQ(OnlyPoint().Z, 1.5);
}

// Wide position lines

TEST_F(NGSFiles, WideSheetFillsThePoint) {
    ReadQuietly(ReadNGSFileBefore2012,
                Lines({OldHeader(), KeyLine("PID", "AA0001"), WidePosition("NAD 83(2007)"),
                       NarrowVertical("NAVD 88", "418.41", "ADJUSTED")}));
    const PointRecord& point = OnlyPoint();
    ExpectAngle(point.LT, 36, 42, 49.25L);
    ExpectAngle(point.LG, 111, 59, 3.5L);
    EXPECT_EQ(point.LatDir, "N");
    EXPECT_EQ(point.LongDir, "W");
    EXPECT_EQ(point.Z, 418.41);
    EXPECT_EQ(point.Others, "CM:Retrieval Date = MARCH  1, 2000\r\nAH:ADJUSTED\r\nAV:ADJUSTED");
    EXPECT_EQ(System().HD, "NAD 83(2007)");
    EXPECT_EQ(System().VD, "NAVD 88");
}

TEST_F(NGSFiles, WideFieldsReachToTheirLastColumn) {
    // The longitude's field takes in column 46 and ends before the direction two columns behind it.
    ReadQuietly(
        ReadNGSFileBefore2012,
        Lines({OldHeader(),
               Line({{8, "*"},
                     {10, "NAD 83"},
                     {26, "-x"},
                     {28, "017 32 45.26389"},
                     {43, "xSx"},
                     {46, "0061 45 57.14524"},
                     {62, "xExxxxx"},
                     {69, "A"}}),
               Line({{10, "NAVD 88"}, {23, "x"}, {24, "-123456789.1234"}, {39, "x"}, {69, "ADJUSTED"}})}));
    const PointRecord& point = OnlyPoint();
    ExpectAngle(point.LT, 17, 32, 45.26389L);
    ExpectAngle(point.LG, 61, 45, 57.14524L);
    EXPECT_EQ(point.LatDir, "S");
    EXPECT_EQ(point.LongDir, "E");
    EXPECT_EQ(point.Z, -123456789.1234);
    EXPECT_EQ(point.Others, "CM:Retrieval Date = MARCH  1, 2000\r\nAH:A\r\nAV:ADJUSTED");
}

TEST_F(NGSFiles, DashInColumn22MakesAPositionNarrow) {
    ReadQuietly(ReadNGSFileBefore2012,
                Lines({OldHeader(),
                       Line({{8, "*"}, {10, "NAD 27"}, {22, "-"}, {26, "-36 42"}, {45, "111"}, {69, "A"}}),
                       NarrowVertical("NAVD 88", "1.5", "")}));
    ExpectAngle(OnlyPoint().LT, -36, -42, 0);
    EXPECT_TRUE(OnlyPoint().Others.ends_with("\r\nAH:A\r\nHD:NAD 27\r\nVD:NAVD 88"));
}

TEST_F(NGSFiles, WideVerticalLineOfAnotherSourceNeedsADatumInTheHeader) {
    ReadQuietly(ReadNGSFileBefore2012,
                Lines({OldHeader(), WidePosition("NAD 83"), NarrowVertical("NAVD 88", "1.5", "POSTED"),
                       OldHeader(), WidePosition("NAD 83"), NarrowVertical("NGVD 29", "2.5", "ADJUSTED"),
                       OldHeader(), WidePosition("NAD 83"), NarrowVertical("NAVD 88", "3.5", "POSTED"),
                       OldHeader(), WidePosition("NAD 83"), NarrowVertical("NAVD 88", "4.5", "ADJUSTED"),
                       OldHeader(), WidePosition("NAD 83"), NarrowVertical("NAVD 88", "5.5", "")}));
    const PointList& points = Points(5);
    EXPECT_EQ(points[0].Z, NoValue);
    EXPECT_TRUE(points[0].Others.ends_with("\r\nAH:ADJUSTED"));
    EXPECT_EQ(points[1].Z, 2.5);
    EXPECT_EQ(points[2].Z, 3.5);
    EXPECT_TRUE(points[2].Others.ends_with("\r\nAH:ADJUSTED\r\nAV:POSTED"));
    EXPECT_EQ(points[3].Z, 4.5);
    EXPECT_EQ(points[4].Z, NoValue);
    EXPECT_EQ(System().VD, "NGVD 29");
}

TEST_F(NGSFiles, AdjustedWideElevationNeedsNoDatum) {
    ReadQuietly(ReadNGSFileBefore2012,
                Lines({OldHeader(), WidePosition("NAD 83"), NarrowVertical("", "1.5", "ADJUSTED")}));
    EXPECT_EQ(OnlyPoint().Z, 1.5);
    EXPECT_EQ(System().VD, "");
}

TEST_F(NGSFiles, WideDatumBeyond12CharactersIsInConflictWithItself) {
    prompts_.answers = {Button::OK};
    EXPECT_TRUE(Read(ReadNGSFileBefore2012,
                     Lines({OldHeader(), KeyLine("PID", "AA0001"), WidePosition("NAD 83(NSRS2007)"), "",
                            OldHeader(), KeyLine("PID", "AA0002"), WidePosition("NAD 83(NSRS2007)"), ""})));
    ASSERT_EQ(prompts_.told.size(), 1U);
    ExpectQuestion(
        0,
        "A Horizontal Datum conflict exists in the file.  Point 'AA0001' does not match the "
        "Horizontal Datum of previous points in the file.  Click 'OK' to import using the previous "
        "points horizontal datum or click 'Cancel' to stop the import.",
        "Horizontal Datum Conflict");
    EXPECT_EQ(System().HD, "NAD 83(NSRS2007)");
    EXPECT_EQ(Points(2)[0].Others, "CM:Retrieval Date = MARCH  1, 2000\r\nAH:ADJUSTED");
    EXPECT_EQ(Points(2)[1].Others,
              "CM:Retrieval Date = MARCH  1, 2000\r\nCM:HORIZONTAL DATUM = NAD 83(NSRS2007)\r\nAH:ADJUSTED");
}

TEST_F(NGSFiles, WideDatumIsCommentedOnlyBehindTheFirstConflict) {
    prompts_.answers = {Button::OK};
    EXPECT_TRUE(Read(
        ReadNGSFileBefore2012,
        Lines({OldHeader(), WidePosition("NAD 83"), "", OldHeader(), WidePosition("NAD 27"), "", OldHeader(),
               WidePosition("PUERTO RICO 1940"), "", OldHeader(), WidePosition("NAD 83"), ""})));
    EXPECT_EQ(prompts_.told.size(), 1U);
    const PointList& points = Points(4);
    EXPECT_EQ(points[1].Others, "CM:Retrieval Date = MARCH  1, 2000\r\nAH:ADJUSTED");
    EXPECT_EQ(points[2].Others,
              "CM:Retrieval Date = MARCH  1, 2000\r\nCM:HORIZONTAL DATUM = PUERTO RICO 1940\r\nAH:ADJUSTED");
    EXPECT_EQ(points[3].Others, "CM:Retrieval Date = MARCH  1, 2000\r\nAH:ADJUSTED");
    EXPECT_EQ(System().HD, "NAD 83");
}

// Conflicts of datums

constexpr std::string_view HorizontalConflict =
    "A Horizontal Datum conflict exists in the file.  Point 'AA0002' does not match the Horizontal Datum of "
    "previous points in the file.  Click 'OK' to import using the previous points horizontal datum or click "
    "'Cancel' to stop the import.";
constexpr std::string_view VerticalConflict =
    "A Vertical Datum conflict exists in the file.  Point 'AA0002' does not match the Vertical Datum of "
    "previous "
    "points in the file.  Click 'OK' to import using the previous points vertical datum or click 'Cancel' to "
    "stop the import.";

std::string OldSheet(std::string_view name, std::string_view horizontal, std::string_view vertical) {
    return Sheet({OldHeader(), KeyLine("PID", name), NarrowPosition(horizontal),
                  NarrowVertical(vertical, "1.5", "ADJUSTED")});
}

std::string WideSheet(std::string_view name, std::string_view horizontal, std::string_view vertical) {
    return Sheet({OldHeader(), KeyLine("PID", name), WidePosition(horizontal),
                  NarrowVertical(vertical, "1.5", "ADJUSTED")});
}

std::string NewSheet(std::string_view name, std::string_view horizontal, std::string_view vertical) {
    return Sheet(
        {NewHeader(), KeyLine("PID", name), NewPosition(horizontal), NewOrtho(vertical, "1.5", "ADJUSTED")});
}

struct Layout {
    std::string_view name;
    Reader reader;
    std::string (*sheet)(std::string_view, std::string_view, std::string_view);
};

std::ostream& operator<<(std::ostream& out, const Layout& layout) { return out << layout.name; }

constexpr Layout Layouts[] = {
    {"narrow", ReadNGSFileBefore2012, OldSheet},
    {"wide", ReadNGSFileBefore2012, WideSheet},
    {"since 2012", ReadNGSFile2012, NewSheet},
};

class NGSConflicts : public NGSFiles, public testing::WithParamInterface<Layout> {
  protected:
    bool ReadThree(std::string_view horizontal2, std::string_view vertical2, std::string_view horizontal3,
                   std::string_view vertical3) {
        const auto sheet = GetParam().sheet;
        return Read(GetParam().reader,
                    Lines({sheet("AA0001", "NAD 83", "NAVD 88"), sheet("AA0002", horizontal2, vertical2),
                           sheet("AA0003", horizontal3, vertical3)}));
    }
};

INSTANTIATE_TEST_SUITE_P(Layouts, NGSConflicts, testing::ValuesIn(Layouts));

TEST_P(NGSConflicts, SameDatumsAskNothing) {
    EXPECT_TRUE(ReadThree("NAD 83", "NAVD 88", "NAD 83", "NAVD 88"));
    ExpectNothingTold(prompts_);
}

TEST_P(NGSConflicts, HorizontalIsAskedOnceAndKeepsTheFirstDatum) {
    prompts_.answers = {Button::OK};
    EXPECT_TRUE(ReadThree("NAD 27", "NAVD 88", "OLD HAWAIIAN", "NAVD 88"));
    ASSERT_EQ(prompts_.told.size(), 1U);
    ExpectQuestion(0, HorizontalConflict, "Horizontal Datum Conflict");
    EXPECT_EQ(System().HD, "NAD 83");
    const PointList& points = Points(3);
    EXPECT_EQ(points[1].LT, points[0].LT);  // nothing is shifted
    EXPECT_EQ(points[2].PN, "AA0003");
}

TEST_P(NGSConflicts, HorizontalCancelStops) {
    prompts_.answers = {Button::Cancel};
    EXPECT_FALSE(ReadThree("NAD 27", "NAVD 88", "NAD 83", "NAVD 88"));
    ASSERT_EQ(prompts_.told.size(), 1U);
    ExpectQuestion(0, HorizontalConflict, "Horizontal Datum Conflict");
    ExpectTablesKept();
}

TEST_P(NGSConflicts, AreForgottenWithTheFile) {
    prompts_.answers = {Button::OK, Button::OK};
    EXPECT_TRUE(ReadThree("NAD 27", "NAVD 88", "NAD 27", "NAVD 88"));
    EXPECT_TRUE(ReadThree("NAD 27", "NAVD 88", "NAD 27", "NAVD 88"));
    EXPECT_EQ(prompts_.told.size(), 2U);
}

// The wide layout has no question for the vertical datum.
class NGSVerticalConflicts : public NGSConflicts {};

INSTANTIATE_TEST_SUITE_P(Layouts, NGSVerticalConflicts, testing::Values(Layouts[0], Layouts[2]));

TEST_P(NGSVerticalConflicts, AreAskedOnceAndKeepTheFirstDatum) {
    prompts_.answers = {Button::OK};
    EXPECT_TRUE(ReadThree("NAD 83", "NGVD 29", "NAD 83", "IGLD 85"));
    ASSERT_EQ(prompts_.told.size(), 1U);
    ExpectQuestion(0, VerticalConflict, "Vertical Datum Conflict");
    EXPECT_EQ(System().VD, "NAVD 88");
    EXPECT_EQ(Points(3)[1].Z, 1.5);
    EXPECT_TRUE(Points(3)[1].Others.ends_with("\r\nVD:NGVD 29"));
    EXPECT_TRUE(Points(3)[2].Others.ends_with("\r\nVD:IGLD 85"));
}

TEST_P(NGSVerticalConflicts, CancelStops) {
    prompts_.answers = {Button::Cancel};
    EXPECT_FALSE(ReadThree("NAD 83", "NGVD 29", "NAD 83", "NAVD 88"));
    ASSERT_EQ(prompts_.told.size(), 1U);
    ExpectQuestion(0, VerticalConflict, "Vertical Datum Conflict");
    ExpectTablesKept();
}

TEST_P(NGSVerticalConflicts, EachDatumHasItsOwnQuestion) {
    prompts_.answers = {Button::OK, Button::OK};
    EXPECT_TRUE(ReadThree("NAD 27", "NGVD 29", "NAD 27", "NGVD 29"));
    ASSERT_EQ(prompts_.told.size(), 2U);
    ExpectQuestion(0, HorizontalConflict, "Horizontal Datum Conflict");
    ExpectQuestion(1, VerticalConflict, "Vertical Datum Conflict");
    EXPECT_NE(Points(3)[1].Others.find("\r\nHD:NAD 27\r\n"), std::string::npos);
}

TEST_P(NGSVerticalConflicts, CancelBehindAnAcceptedHorizontalConflictStops) {
    prompts_.answers = {Button::OK, Button::Cancel};
    EXPECT_FALSE(ReadThree("NAD 27", "NGVD 29", "NAD 27", "NGVD 29"));
    EXPECT_EQ(prompts_.told.size(), 2U);
    ExpectTablesKept();
}

TEST_F(NGSFiles, WideLayoutTakesOtherVerticalDatumsWithoutQuestion) {
    ReadQuietly(ReadNGSFileBefore2012,
                Lines({WideSheet("AA0001", "NAD 83", "NAVD 88"), WideSheet("AA0002", "NAD 83", "NGVD 29")}));
    EXPECT_EQ(System().VD, "NAVD 88");
    EXPECT_EQ(Points(2)[1].Z, 1.5);
    EXPECT_EQ(Points(2)[1].Others.find("VD:"), std::string::npos);
}

TEST_F(NGSFiles, QuestionHasTheNameOfThatMoment) {
    prompts_.answers = {Button::OK};
    EXPECT_TRUE(Read(ReadNGSFileBefore2012,
                     Lines({OldSheet("AA0001", "NAD 83", "NAVD 88"), OldHeader(), NarrowPosition("NAD 27"),
                            NarrowVertical("NAVD 88", "1.5", ""), KeyLine("PID", "AA0002")})));
    ExpectQuestion(
        0,
        "A Horizontal Datum conflict exists in the file.  Point '' does not match the Horizontal Datum "
        "of previous points in the file.  Click 'OK' to import using the previous points horizontal "
        "datum or click 'Cancel' to stop the import.",
        "Horizontal Datum Conflict");
    EXPECT_EQ(Points(2)[1].PN, "AA0002");
}

// Only the first sheet gives the file its horizontal datum, even if it has none to give.
TEST_P(NGSConflicts, FirstSheetWithoutPositionConflictsWithTheNext) {
    prompts_.answers = {Button::OK};
    EXPECT_TRUE(
        Read(GetParam().reader, Lines({OldHeader(), GetParam().sheet("AA0002", "NAD 83", "NAVD 88")})));
    ASSERT_EQ(prompts_.told.size(), 1U);
    ExpectQuestion(0, HorizontalConflict, "Horizontal Datum Conflict");
    EXPECT_EQ(System().HD, "");
}

// Within the first sheet the last position decides the file's datum.
TEST_F(NGSFiles, SecondPositionOfTheFirstSheetIsNoConflict) {
    ReadQuietly(ReadNGSFileBefore2012,
                Lines({OldHeader(), NarrowPosition("NAD 83"), "", NarrowPosition("NAD 27"), ""}));
    EXPECT_EQ(System().HD, "NAD 27");
    ReadQuietly(ReadNGSFile2012, Lines({NewHeader(), NewPosition("NAD 83"), NewPosition("NAD 27")}));
    EXPECT_EQ(System().HD, "NAD 27");
}

// Sheets from 1 May 2012 on

TEST_F(NGSFiles, NewSheetFillsThePoint) {
    ReadQuietly(
        ReadNGSFile,
        Lines({NewHeader(), " ZZ0001 ***********************************************************************",
               " ZZ0001  DESIGNATION -  WINDMILL", " ZZ0001  PID         -  ZZ0001", " ZZ0001",
               " ZZ0001                         *CURRENT SURVEY CONTROL",
               " ZZ0001  ______________________________________________________________________",
               " ZZ0001* NAD 83(2011) POSITION- 36 54 31.19183(N) 111 27 45.63634(W)   ADJUSTED  ",
               " ZZ0001* NAD 83(2011) ELLIP HT-  1302.744 (meters)        (08/\?\?/11)   NO CHECK",
               " ZZ0001* NAD 83(2011) EPOCH   -  2010.00",
               " ZZ0001* NAVD 88 ORTHO HEIGHT -  2136.194  (meters)    7008.50  (feet) ADJUSTED  ",
               " ZZ0001  ______________________________________________________________________",
               " ZZ0001  GEOID HEIGHT    -        -23.50  (meters)                     GEOID12B",
               " ZZ0001  FGDC Geospatial Positioning Accuracy Standards (95% confidence, cm)",
               " ZZ0001  Type                                      Horiz   Ellip",
               " ZZ0001  -------------------------------------------------------------------",
               " ZZ0001  NETWORK                                   19.599  97.995",
               " ZZ0001  ------- Accuracy Estimates (at 95% Confidence Level in cm) --------"}));
    const PointRecord& point = OnlyPoint();
    EXPECT_EQ(point.PN, "ZZ0001");
    EXPECT_EQ(point.PD, "NM:WINDMILL");
    ExpectAngle(point.LT, 36, 54, 31.19183L);
    ExpectAngle(point.LG, 111, 27, 45.63634L);
    EXPECT_EQ(point.LatDir, "N");
    EXPECT_EQ(point.LongDir, "W");
    EXPECT_EQ(point.Z, 2136.194);
    EXPECT_EQ(point.HE, 1302.744);
    EXPECT_EQ(point.SY, 0.1F);
    EXPECT_EQ(point.SX, 0.1F);
    EXPECT_EQ(point.SZ, 0.5F);
    EXPECT_EQ(point.HorizontalUnits, "Meters");
    EXPECT_EQ(point.VerticalUnits, "Meters");
    EXPECT_EQ(point.Others,
              "CM:Retrieval Date = MAY 26, 2015\r\n"
              "AH:ADJUSTED\r\n"
              "HD:NAD 83(2011)\r\n"
              "CM:ELLIPSOID HEIGHT SOURCE = NO CHECK\r\n"
              "CM:EPOCH = 2010.00\r\n"
              "AV:ADJUSTED\r\n"
              "VD:NAVD 88");
    EXPECT_EQ(System().HD, "NAD 83(2011)");
    EXPECT_EQ(System().VD, "NAVD 88");
}

TEST_F(NGSFiles, NewFieldsReachToTheirLastColumn) {
    ReadQuietly(
        ReadNGSFile2012,
        Lines({NewHeader(),
               Line({{8, "*xDATUM OF 12 POSITION"},
                     {31, "-"},
                     {32, "017 32 45.26389"},
                     {47, "xSx"},
                     {50, "0061 45 57.14524"},
                     {66, "xExxxx"},
                     {72, "A"}}),
               Line({{8, "*"}, {23, "ELLIP HT-"}, {32, "-12345.6789"}, {43, "x"}, {71, "xB"}}),
               Line({{8, "*"}, {26, "EPOCH-"}, {32, "ABCDEFGHIJK"}, {43, "x"}}),
               Line({{8, "* V ORTHO HEIGHT"}, {31, "-"}, {32, "-123456.7891"}, {44, "x"}, {71, "xC"}}),
               Line({{10, "FGDC Geospatial Positioning Accuracy Standards (95% confidence, cm)x"}}), "", "",
               Line({{51, "x"}, {52, "19.5990"}, {59, "x"}, {60, "39.1980"}, {67, "x"}})}));
    const PointRecord& point = OnlyPoint();
    ExpectAngle(point.LT, 17, 32, 45.26389L);
    ExpectAngle(point.LG, 61, 45, 57.14524L);
    EXPECT_EQ(point.LatDir, "S");
    EXPECT_EQ(point.LongDir, "E");
    EXPECT_EQ(point.HE, -12345.6789);
    EXPECT_EQ(point.Z, -123456.7891);
    EXPECT_EQ(point.SY, 0.1F);
    EXPECT_EQ(point.SX, 0.1F);
    EXPECT_EQ(point.SZ, 0.2F);
    EXPECT_EQ(point.Others,
              "CM:Retrieval Date = MAY 26, 2015\r\nAH:A\r\nHD:DATUM OF 12\r\n"
              "CM:ELLIPSOID HEIGHT SOURCE = B\r\nCM:EPOCH = ABCDEFGHIJK\r\nAV:C\r\nVD:V");
}

TEST_F(NGSFiles, NewLabelNeedsItsDashAndItsStar) {
    ReadQuietly(ReadNGSFile2012, Lines({NewHeader(), Line({{8, "*"}, {10, "NAD 83 POSITION"}, {30, "-"}}),
                                        Line({{8, "*"}, {10, "NAD 83 POSITION"}, {32, "-"}}),
                                        Line({{7, "*"}, {10, "NAD 83 POSITION"}, {31, "-"}})}));
    EXPECT_EQ(OnlyPoint().Others, "CM:Retrieval Date = MAY 26, 2015");
}

TEST_F(NGSFiles, KeywordMustLieWithinTheLabel) {
    ReadQuietly(ReadNGSFile2012, Lines({NewHeader(), Line({{8, "*"}, {10, "NAD 83"}, {31, "- POSITION"}}),
                                        Line({{8, "*"}, {10, "GEOID HEIGHT"}, {31, "-"}})}));
    EXPECT_EQ(OnlyPoint().Others, "CM:Retrieval Date = MAY 26, 2015");
}

// "POSITION" is looked for first, "ORTHO HEIGHT" last, wherever they stand.
TEST_F(NGSFiles, FirstKeywordOfTheOrderDecides) {
    ReadQuietly(ReadNGSFile2012,
                Lines({NewHeader(), Line({{8, "*"}, {10, "EPOCH POSITION"}, {31, "-"}, {32, "1"}, {50, "2"}}),
                       Line({{8, "*"}, {10, "EPOCH ELLIP HT"}, {31, "-"}, {32, "3.5"}, {72, "ADJUSTED"}}),
                       Line({{8, "*"}, {10, "ORTHO HEIGHT EPOCH"}, {31, "-"}, {32, "4"}})}));
    EXPECT_EQ(System().HD, "EPOCH");
    EXPECT_EQ(OnlyPoint().HE, 3.5);
    EXPECT_EQ(System().VD, "");
    EXPECT_EQ(OnlyPoint().Others, "CM:Retrieval Date = MAY 26, 2015\r\nAH:\r\nHD:EPOCH\r\nCM:EPOCH = 4");
}

TEST_F(NGSFiles, NewElevationNeedsASource) {
    ReadQuietly(ReadNGSFile2012, Lines({NewHeader(), NewOrtho("NAVD 88", "**", ""), NewHeader(),
                                        NewOrtho("NAVD 88", "2.5", "ADJUSTED"), NewHeader(),
                                        NewOrtho("NAVD 88", "3.5", "GPS OBS")}));
    const PointList& points = Points(3);
    EXPECT_EQ(points[0].Z, NoValue);
    EXPECT_EQ(points[0].Others, "CM:Retrieval Date = MAY 26, 2015\r\nVD:NAVD 88");
    EXPECT_EQ(points[1].Z, 2.5);
    EXPECT_EQ(points[1].Others, "CM:Retrieval Date = MAY 26, 2015\r\nAV:ADJUSTED\r\nVD:NAVD 88");
    EXPECT_EQ(points[2].Z, 3.5);
    EXPECT_EQ(points[2].Others, "CM:Retrieval Date = MAY 26, 2015\r\nAV:GPS OBS\r\nVD:NAVD 88");
}

TEST_F(NGSFiles, NewEllipsoidHeightNeedsAStar) {
    ReadQuietly(ReadNGSFile2012, Lines({NewHeader(), Line({{10, "ELLIP HEIGHT-"}, {30, "no number"}}),
                                        Line({{10, "NAD 83(2011) ELLIP HT-"}, {32, "no number"}})}));
    EXPECT_EQ(OnlyPoint().HE, NoValue);
}

TEST_F(NGSFiles, NewSheetWithoutAccuracyBlockKeepsNoValue) {
    ReadQuietly(ReadNGSFile2012, Lines({NewSheet("AA0001", "NAD 83(2011)", "NAVD 88")}));
    EXPECT_EQ(OnlyPoint().SY, NoValueSingle);
    EXPECT_EQ(OnlyPoint().SX, NoValueSingle);
    EXPECT_EQ(OnlyPoint().SZ, NoValueSingle);
}

struct MarkCase {
    std::string_view name;
    std::string line;
    double elevation;
    std::string_view tail;  // of Others
};

std::ostream& operator<<(std::ostream& out, const MarkCase& mark) { return out << mark.name; }

class NGSMarks : public NGSFiles, public testing::WithParamInterface<MarkCase> {};

TEST_P(NGSMarks, AreTakenOutOfOrthoHeightLines) {
    ReadQuietly(ReadNGSFile2012, Lines({NewHeader(), GetParam().line}));
    EXPECT_EQ(OnlyPoint().Z, GetParam().elevation);
    EXPECT_EQ(OnlyPoint().Others, "CM:Retrieval Date = MAY 26, 2015" + std::string(GetParam().tail));
}

const MarkCase Marks[] = {
    {"none", Line({{8, "* NAVD 88 ORTHO HEIGHT -  2136.194"}, {72, "ADJUSTED"}}), 2136.194,
     "\r\nAV:ADJUSTED\r\nVD:NAVD 88"},
    {"one around the label", Line({{8, "* <b>NAVD 88 ORTHO HEIGHT</b> -  2136.194"}, {79, "ADJUSTED"}}),
     2136.194, "\r\nAV:ADJUSTED\r\nVD:NAVD 88"},
    {"an opening sign within a mark",
     Line({{8, "* <a<b>NAVD 88 ORTHO HEIGHT -  2136.194"}, {77, "ADJUSTED"}}), 2136.194,
     "\r\nAV:ADJUSTED\r\nVD:NAVD 88"},
    {"a closing sign alone", Line({{8, "* NAVD 88 ORTHO HEIGHT -  2136.194"}, {72, "A>B"}}), 2136.194,
     "\r\nAV:A>B\r\nVD:NAVD 88"},
    {"behind the values", Line({{8, "* NAVD 88 ORTHO HEIGHT -  2136.194"}, {72, "ADJ<i>USTED"}}), 2136.194,
     "\r\nAV:ADJUSTED\r\nVD:NAVD 88"},
    {"before column 10", Line({{1, "<A>"}, {8, "* NAVD 88 ORTHO HEIGHT -  2136.194"}, {72, "ADJUSTED"}}),
     2136.194, "\r\nAV:ADJUSTED\r\nVD:NAVD 88"},
    {"in column 9 are left", Line({{8, "*<>NAVD 88 ORTHO HEIGHT-  2136.194"}, {72, "ADJUSTED"}}), 2136.194,
     "\r\nAV:ADJUSTED\r\nVD:>NAVD 88"},
    {"from column 10 on", Line({{8, "* <>NAVD 88 ORTHO HEIGHT -  2136.194"}, {74, "ADJUSTED"}}), 2136.194,
     "\r\nAV:ADJUSTED\r\nVD:NAVD 88"},
    {"never closed", Line({{8, "* NAVD 88 ORTHO HEIGHT -  2136.194"}, {72, "A<B"}}), 2136.194,
     "\r\nAV:A<B\r\nVD:NAVD 88"},
    {"closed, then never closed", Line({{8, "* <b>NAVD 88 ORTHO HEIGHT -  2136.194"}, {75, "A<B"}}), 2136.194,
     "\r\nAV:A<B\r\nVD:NAVD 88"},
    {"never closed, with two blanks before the keyword",
     Line({{8, "* NAVD 88  ORTHO HEIGHT -  2136.194"}, {73, "A<B"}}), 2136.194, "\r\nAV:A<B\r\nVD:NAVD 88"},
    {"two blanks before the keyword", Line({{8, "* NAVD 88  ORTHO HEIGHT -  2136.194"}, {73, "ADJUSTED"}}),
     2136.194, "\r\nAV:ADJUSTED\r\nVD:NAVD 88"},
    {"two blanks left by a mark", Line({{8, "* NAVD 88 <b> ORTHO HEIGHT -  2136.194"}, {76, "ADJUSTED"}}),
     2136.194, "\r\nAV:ADJUSTED\r\nVD:NAVD 88"},
    {"every pair of blanks", Line({{8, "* NAVD 88 ORTHO HEIGHT -  2136.194"}, {72, "A  ORTHO  ORTHO"}}),
     2136.194, "\r\nAV:A ORTHO ORTHO\r\nVD:NAVD 88"},
    {"three blanks become two", Line({{8, "* NAVD   ORTHO HEIGHT   -  2136.194"}, {73, "A"}}), 2136.194,
     "\r\nAV:A\r\nVD:NAVD"},
    {"in the keyword itself are left", Line({{8, "* NAVD 88 ORTHO<b> HEIGHT -  2136.194"}}), NoValue, ""},
    {"in a line without star are left", Line({{10, "NAVD 88 ORTHO HEIGHT<b> -  2136.194"}}), NoValue, ""},
};

INSTANTIATE_TEST_SUITE_P(Marks, NGSMarks, testing::ValuesIn(Marks));

TEST_F(NGSFiles, MarksOfOtherLinesStay) {
    ReadQuietly(ReadNGSFile2012,
                Lines({NewHeader(), Line({{8, "* <2011> EPOCH"}, {31, "-"}, {32, "<2010.00>"}})}));
    EXPECT_EQ(OnlyPoint().Others, "CM:Retrieval Date = MAY 26, 2015\r\nCM:EPOCH = <2010.00>");
}

TEST_F(NGSFiles, MillionMarksAreTakenOutInOneGo) {
    std::string line = Line({{8, "* NAVD 88 ORTHO HEIGHT -  2136.194"}, {72, "ADJUSTED"}});
    for (int i = 0; i < 1'000'000; ++i) line += "<b>";
    ReadQuietly(ReadNGSFile2012, Lines({NewHeader(), line}));
    EXPECT_EQ(OnlyPoint().Z, 2136.194);
    EXPECT_TRUE(OnlyPoint().Others.ends_with("\r\nAV:ADJUSTED\r\nVD:NAVD 88"));
}

// Broken files

struct BrokenCase {
    std::string_view name;
    std::string bytes;
    std::size_t points;  // imported; 0 where the user is told that there is no data sheet
};

std::ostream& operator<<(std::ostream& out, const BrokenCase& broken) { return out << broken.name; }

class NGSBroken : public NGSFiles, public testing::WithParamInterface<BrokenCase> {};

TEST_P(NGSBroken, AreToldOrReadAndLeftAlone) {
    EXPECT_EQ(Read(ReadNGSFile, GetParam().bytes), GetParam().points > 0);
    if (GetParam().points > 0) {
        ExpectNothingTold(prompts_);
        EXPECT_EQ(Tables().InputPoints.size(), GetParam().points);
        EXPECT_EQ(Tables().InputPoints[0].PN, "AA0001");
        EXPECT_EQ(Tables().InputPoints[0].Z, 1.5);
    } else {
        ExpectToldOnly(prompts_, NoDatasheet, "Datasheet Error");
        ExpectTablesKept();
    }
    EXPECT_EQ(folder_.Names(), std::vector<std::string>{"sheets.txt"});
    EXPECT_TRUE(ReadBytes(folder_.File("sheets.txt")) == GetParam().bytes);
}

std::string WithLineEnds(std::string text, std::string_view lineEnd) {
    for (std::size_t at = 0; (at = text.find("\r\n", at)) != std::string::npos; at += lineEnd.size())
        text.replace(at, 2, lineEnd);
    return text;
}

std::string EveryByte() {
    std::string bytes;
    for (int i = 0; i < 256; ++i) bytes += static_cast<char>(i);
    return bytes;
}

const std::string& TwoSheets() {
    static const std::string sheets =
        Lines({OldSheet("AA0001", "NAD 83", "NAVD 88"), OldSheet("AA0002", "NAD 83", "NAVD 88")});
    return sheets;
}

constexpr std::size_t Long = 50 * 1024 * 1024;

INSTANTIATE_TEST_SUITE_P(
    Files, NGSBroken,
    testing::Values(BrokenCase{"empty", "", 0}, BrokenCase{"blanks", "          ", 0},
                    BrokenCase{"blank lines", " \r\n\r\n  \r\n", 0},
                    BrokenCase{"one line without end", "text", 0},
                    BrokenCase{"a star in column 8", "       *", 0},
                    BrokenCase{"half a header", OldHeader().substr(0, 52), 0},
                    BrokenCase{"no end of the last line", TwoSheets().substr(0, TwoSheets().size() - 2), 2},
                    BrokenCase{"CR", WithLineEnds(TwoSheets(), "\r"), 2},
                    BrokenCase{"LF", WithLineEnds(TwoSheets(), "\n"), 2},
                    BrokenCase{"byte order mark", "\xEF\xBB\xBF" + TwoSheets(), 2},
                    BrokenCase{"two byte characters",
                               std::string("\xFF\xFE"
                                           "1\0 \0",
                                           6),
                               0},
                    BrokenCase{"NUL bytes", std::string(1000, '\0'), 0},
                    BrokenCase{"NUL bytes behind the sheets", TwoSheets() + std::string(1000, '\0'), 2},
                    BrokenCase{"every byte", EveryByte(), 0},
                    BrokenCase{"every byte behind the sheets", TwoSheets() + EveryByte(), 2},
                    BrokenCase{"one long line", std::string(Long, 'x'), 0},
                    BrokenCase{"a long line behind the sheets", TwoSheets() + std::string(Long, 'x'), 2}));

TEST_F(NGSFiles, BytesOfATextPassUnchanged) {
    std::string bytes = EveryByte();
    bytes.erase(bytes.find('\r'), 1);
    bytes.erase(bytes.find('\n'), 1);
    ReadQuietly(ReadNGSFile, Lines({OldHeader(), KeyLine("DESIGNATION", bytes), KeyLine("PID", bytes)}));
    EXPECT_EQ(OnlyPoint().PD, "NM:" + bytes);
    EXPECT_EQ(OnlyPoint().PN, bytes);
}

TEST_F(NGSFiles, LongDesignationIsKeptWhole) {
    ReadQuietly(ReadNGSFile, Lines({OldHeader(), KeyLine("DESIGNATION", std::string(Long, 'x'))}));
    EXPECT_EQ(OnlyPoint().PD.size(), Long + 3);
}

// Every numeric field, with the text "#" for its value, faults alike: the sheet is read by its own reader, in
// the middle of a file, and nothing is imported.
struct NumberField {
    std::string_view name;
    Reader reader;
    std::vector<std::string> lines;
};

const NumberField NumberFields[] = {
    {"narrow elevation",
     ReadNGSFileBefore2012,
     {NarrowPosition("NAD 83"), NarrowVertical("NAVD 88", "#", "X")}},
    {"wide elevation",
     ReadNGSFileBefore2012,
     {WidePosition("NAD 83"), NarrowVertical("NAVD 88", "#", "ADJUSTED")}},
    {"ellipsoid height", ReadNGSFileBefore2012, {Line({{10, "ELLIP HEIGHT-"}, {24, "#"}})}},
    {"accuracy north",
     ReadNGSFileBefore2012,
     {OldAccuracyTitle(), "", "", Line({{57, "#"}, {64, "1"}, {71, "1"}})}},
    {"accuracy east",
     ReadNGSFileBefore2012,
     {OldAccuracyTitle(), "", "", Line({{57, "1"}, {64, "#"}, {71, "1"}})}},
    {"accuracy up",
     ReadNGSFileBefore2012,
     {OldAccuracyTitle(), "", "", Line({{57, "1"}, {64, "1"}, {71, "#"}})}},
    {"narrow latitude", ReadNGSFileBefore2012, {Line({{8, "*"}, {22, "-"}, {24, "#"}, {45, "1"}}), ""}},
    {"narrow longitude", ReadNGSFileBefore2012, {Line({{8, "*"}, {22, "-"}, {24, "1"}, {45, "#"}}), ""}},
    {"wide latitude", ReadNGSFileBefore2012, {Line({{8, "*"}, {26, "-"}, {28, "#"}, {46, "1"}}), ""}},
    {"wide longitude", ReadNGSFileBefore2012, {Line({{8, "*"}, {26, "-"}, {28, "1"}, {46, "#"}}), ""}},
    {"elevation since 2012", ReadNGSFile2012, {NewOrtho("NAVD 88", "#", "X")}},
    {"ellipsoid height since 2012",
     ReadNGSFile2012,
     {Line({{8, "*"}, {10, "ELLIP HT"}, {31, "-"}, {32, "#"}})}},
    {"latitude since 2012",
     ReadNGSFile2012,
     {Line({{8, "*"}, {10, "POSITION"}, {31, "-"}, {32, "#"}, {50, "1"}})}},
    {"longitude since 2012",
     ReadNGSFile2012,
     {Line({{8, "*"}, {10, "POSITION"}, {31, "-"}, {32, "1"}, {50, "#"}})}},
    {"horizontal accuracy since 2012",
     ReadNGSFile2012,
     {NewAccuracyTitle(), "", "", Line({{52, "#"}, {60, "1"}})}},
    {"vertical accuracy since 2012",
     ReadNGSFile2012,
     {NewAccuracyTitle(), "", "", Line({{52, "1"}, {60, "#"}})}},
};

class NGSNumbers : public NGSFiles, public testing::WithParamInterface<NumberField> {
  protected:
    // A file whose second sheet has the field with this text over the columns where "#" stands.
    static std::string FileWith(std::string_view value) {
        std::string text = Lines({OldHeader(), KeyLine("PID", "AA0001"), OldHeader()});
        for (std::string line : GetParam().lines) {
            const std::size_t at = line.find('#');
            if (at != std::string::npos) line.replace(at, value.size(), value);
            text += line + "\r\n";
        }
        return text;
    }
};

std::ostream& operator<<(std::ostream& out, const NumberField& field) { return out << field.name; }

INSTANTIATE_TEST_SUITE_P(Fields, NGSNumbers, testing::ValuesIn(NumberFields));

TEST_P(NGSNumbers, NumberIsTaken) {
    prompts_.answers = {Button::OK};  // some of the lines have no datum or another one
    EXPECT_TRUE(Read(GetParam().reader, FileWith("12")));
    Points(2);
}

TEST_P(NGSNumbers, NoNumberIsAFault) {
    for (const std::string_view value :
         {"1e400", "nan  ", "inf  ", "x    ", "     ", "1,5  ", "0x10 ", "--1  "}) {
        SCOPED_TRACE(value);
        prompts_.answers = {Button::OK};
        EXPECT_EQ(FaultOf(GetParam().reader, FileWith(value)), Fault::TypeMismatch);
        ExpectTablesKept();
        EXPECT_EQ(folder_.Names(), std::vector<std::string>{"sheets.txt"});
    }
}

TEST_F(NGSFiles, ErrorEstimateBeyond32BitsIsAFault) {
    EXPECT_EQ(FaultOf(ReadNGSFileBefore2012, Lines({OldHeader(), OldAccuracyTitle(), "", "",
                                                    Line({{57, "1e300"}, {64, "1"}, {71, "1"}})})),
              Fault::Overflow);
    ExpectTablesKept();
}

TEST_F(NGSFiles, FileEndingWithinABlockIsAFault) {
    EXPECT_EQ(FaultOf(ReadNGSFile, Lines({OldHeader(), NarrowPosition("NAD 83")})), Fault::EndOfFilePassed);
    EXPECT_EQ(FaultOf(ReadNGSFile, Lines({OldHeader(), WidePosition("NAD 83")})), Fault::EndOfFilePassed);
    EXPECT_EQ(FaultOf(ReadNGSFile, Lines({OldHeader(), OldAccuracyTitle(), "", ""})), Fault::EndOfFilePassed);
    EXPECT_EQ(FaultOf(ReadNGSFile, Lines({NewHeader(), NewAccuracyTitle(), "", ""})), Fault::EndOfFilePassed);
    ExpectTablesKept();
    ExpectNothingTold(prompts_);
}

// The samples that come with the program

TEST_F(NGSFiles, SampleBefore2012IsImported) {
    EXPECT_TRUE(ReadNGSFile(TARVEK_SOURCE "/samples/ngs_before_2012.txt"));
    ExpectNothingTold(prompts_);
    const PointList& points = Points(3);
    EXPECT_EQ(points[0].PN, "ZZ0101");
    EXPECT_EQ(points[0].PD, "NM:QUARRY BEND");
    ExpectAngle(points[0].LT, 43, 12, 7.48213L);
    ExpectAngle(points[0].LG, 108, 31, 55.20946L);
    EXPECT_EQ(points[0].Z, 1617.466);
    EXPECT_EQ(points[0].HE, 1604.218);
    EXPECT_FLOAT_EQ(points[0].SY, 0.0029083117F);  // 0.57 cm
    EXPECT_FLOAT_EQ(points[0].SX, 0.0025001276F);  // 0.49 cm
    EXPECT_FLOAT_EQ(points[0].SZ, 0.0060207154F);  // 1.18 cm
    EXPECT_EQ(points[1].PN, "ZZ0102");
    EXPECT_EQ(points[1].Z, 1585.02);
    EXPECT_EQ(points[2].PD, "NM:MILLPOND COLLEGE CORS ARP\r\nPD:CORS_ID = ");
    EXPECT_EQ(points[2].SZ, 0.0001F);
    EXPECT_EQ(points[2].HE, 1733.086);
    EXPECT_EQ(System().HD, "NAD 83(2007)");
    EXPECT_EQ(System().VD, "NAVD 88");
}

TEST_F(NGSFiles, SampleSince2012IsImported) {
    EXPECT_TRUE(ReadNGSFile(TARVEK_SOURCE "/samples/ngs_since_2012.txt"));
    ExpectNothingTold(prompts_);
    const PointList& points = Points(3);
    EXPECT_EQ(points[0].PN, "ZZ0201");
    ExpectAngle(points[0].LT, 41, 55, 20.11876L);
    ExpectAngle(points[0].LG, 103, 7, 44.95031L);
    EXPECT_EQ(points[0].Z, 1206.412);
    EXPECT_EQ(points[0].HE, 1187.305);
    EXPECT_FLOAT_EQ(points[0].SY, 0.0043879790F);  // 0.86 cm
    EXPECT_FLOAT_EQ(points[0].SX, 0.0043879790F);
    EXPECT_FLOAT_EQ(points[0].SZ, 0.0097964182F);  // 1.92 cm
    EXPECT_EQ(points[1].Z, NoValue);
    EXPECT_EQ(points[1].SY, 0.0001F);
    EXPECT_EQ(points[2].PN, "ZZ0203");
    ExpectAngle(points[2].LT, 41, 39, 58);
    ExpectAngle(points[2].LG, 103, 30, 12);
    EXPECT_EQ(points[2].Z, 1301.087);
    EXPECT_EQ(points[2].HE, NoValue);
    EXPECT_EQ(System().HD, "NAD 83(2011)");
    EXPECT_EQ(System().VD, "NAVD 88");
}

}  // namespace
}  // namespace tarvek
