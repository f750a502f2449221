// Data sheets as they were retrieved, and files composed of them. Each file is read a second time here, in
// another way: by parting the lines into words and searching these, with no regard to columns, and computing
// the angles in long double.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <numbers>
#include <optional>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "foreignfiles/modNGSFiles.hpp"
#include "platform/modFaults.hpp"
#include "support/testSupport.hpp"
#include "surveyfiles/modSurveyRecords.hpp"

namespace tarvek {
namespace {

namespace fs = std::filesystem;
using test::ExpectNothingTold;
using test::ExpectToldOnly;
using test::ReadBytes;
using test::RealDataFolder;
using test::ScriptedPrompts;
using test::TemporaryFolder;

enum class End { Imported, NoDatasheet, TypeMismatch };

struct RealFile {
    std::string_view name;
    End end;
    std::vector<std::string_view> conflicts;  // caption and point of the questions that are put
};

// Which labels of a sheet its reader knows.
enum class Labels { Before2012, Since2012, None };

// A sheet without a header before its first line with a star is refused; so are the sheets of 2025 with a
// shorter header. A year cut to 202 sends new sheets to the reader of old ones, which finds nothing in them
// but the names. In the sheets of Arizona two of the scaled positions stand one column too far right.
const RealFile RealFiles[] = {
    {"as_hosted/CZ0400.txt", End::NoDatasheet, {}},
    {"as_hosted/GP0331.txt", End::NoDatasheet, {}},
    {"as_hosted/HL0423.txt", End::NoDatasheet, {}},
    {"as_hosted/HT1801.txt", End::NoDatasheet, {}},
    {"as_hosted/LL0213.txt", End::NoDatasheet, {}},
    {"as_hosted/PB0780.txt", End::NoDatasheet, {}},
    {"as_hosted/SQ0270.txt", End::NoDatasheet, {}},
    {"as_hosted/TE1991.txt", End::NoDatasheet, {}},
    {"genuine/ac_2009_excerpt.txt", End::Imported, {}},
    {"genuine/az_2015_headerless.txt", End::NoDatasheet, {}},
    {"genuine/bq_2006_excerpt.txt", End::Imported, {}},
    {"genuine/ccgs_2025_excerpt.txt", End::NoDatasheet, {}},
    {"genuine/cj_2009_excerpt.txt", End::Imported, {}},
    {"genuine/mn_2006_excerpt.txt", End::Imported, {}},
    {"genuine/p055_2025_excerpt.txt", End::NoDatasheet, {}},
    {"genuine/vast_2025_excerpt.txt", End::NoDatasheet, {}},
    {"recomposed/cors_2025_february_headers.txt", End::Imported, {}},
    {"recomposed/cors_2025_may_headers.txt", End::Imported, {}},
    {"recomposed/post2012_az_2015.txt", End::TypeMismatch, {"Horizontal Datum Conflict of DN3518"}},
    {"recomposed/pre2012_az_co_1986_sheets.txt", End::Imported, {}},
    {"recomposed/pre2012_four_archive_sheets.txt",
     End::Imported,
     {"Horizontal Datum Conflict of AB9320", "Vertical Datum Conflict of AB9320"}},
    {"recomposed/pre2012_mixed_datums.txt", End::Imported, {"Horizontal Datum Conflict of PB0780"}},
};

// What the words of a sheet say.
struct FoundSheet {
    std::string name;
    std::string designation;
    std::optional<double> latitude;
    std::optional<double> longitude;
    std::string latitudeDirection;
    std::string longitudeDirection;
    std::string horizontalDatum;
    std::optional<double> elevation;
    std::optional<double> ellipsoidHeight;
    std::vector<double> accuracy;  // north, east and up in cm
    bool isCORS = false;
};

std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::size_t start = 0;
    for (std::size_t end; (end = text.find("\r\n", start)) != std::string::npos; start = end + 2)
        lines.push_back(text.substr(start, end - start));
    if (start < text.size()) lines.push_back(text.substr(start));
    return lines;
}

// The words of a line; a text in parentheses is a word of its own, and so is the dash behind a label.
std::vector<std::string> WordsOf(const std::string& line) {
    std::string spaced;
    for (const char c : line) {
        if (c == '(') spaced += ' ';
        spaced += c;
        if (c == ')') spaced += ' ';
    }
    std::istringstream in(spaced);
    std::vector<std::string> words;
    for (std::string word; in >> word;) {
        const bool endsLabel = word.size() > 1 && word.back() == '-' && word.front() != '-';
        if (endsLabel) word.pop_back();
        words.push_back(word);
        if (endsLabel) words.emplace_back("-");
    }
    return words;
}

constexpr std::size_t Nowhere = static_cast<std::size_t>(-1);

// Where the first of some words stands.
std::size_t PlaceOf(const std::vector<std::string>& words, const std::set<std::string>& wanted) {
    const auto found = std::find_if(words.begin(), words.end(),
                                    [&](const std::string& word) { return wanted.contains(word); });
    return found == words.end() ? Nowhere : static_cast<std::size_t>(found - words.begin());
}

// The words from `first` up to `last`, with single blanks between them.
std::string Joined(const std::vector<std::string>& words, std::size_t first, std::size_t last) {
    std::string text;
    for (std::size_t i = first; i < last; ++i) text += (text.empty() ? "" : " ") + words.at(i);
    return text;
}

// The angle whose degrees, minutes and seconds end before a place.
double RadiansBefore(const std::vector<std::string>& words, std::size_t place) {
    const long double degrees = std::stold(words.at(place - 3));
    const long double minutes = std::stold(words.at(place - 2));
    const long double seconds = std::stold(words.at(place - 1));
    const long double decimal = degrees + minutes / 60 + seconds / 3600;
    return static_cast<double>(decimal * std::numbers::pi_v<long double> / 180);
}

Labels LabelsKnownFor(const std::string& firstHeader) {
    if (firstHeader.find("= FEBRUARY") != std::string::npos && firstHeader.ends_with(", 2025"))
        return Labels::None;
    const int year = std::stoi(firstHeader.substr(firstHeader.rfind(' ')));
    return year < 2012 ? Labels::Before2012 : Labels::Since2012;
}

// "AB1234 PID - AB1234" and its like; the first word is the sheet's own identifier.
void FindNames(const std::vector<std::string>& words, FoundSheet& sheet) {
    if (words.size() < 4 || words[2] != "-") return;
    if (words[1] == "PID") sheet.name = words[3];
    if (words[1] == "DESIGNATION") sheet.designation = Joined(words, 3, words.size());
    if (words[1] == "CORS_ID") sheet.isCORS = true;
}

void FindPosition(const std::vector<std::string>& words, FoundSheet& sheet) {
    const std::size_t latitude = PlaceOf(words, {"(N)", "(S)"});
    const std::size_t longitude = PlaceOf(words, {"(E)", "(W)"});
    if (latitude == Nowhere || longitude == Nowhere) return;
    sheet.latitude = RadiansBefore(words, latitude);
    sheet.longitude = RadiansBefore(words, longitude);
    sheet.latitudeDirection = words[latitude].substr(1, 1);
    sheet.longitudeDirection = words[longitude].substr(1, 1);
    // "NAD 83 (2011)" in the words is "NAD 83(2011)" in the sheet.
    sheet.horizontalDatum = Joined(words, 1, std::min(PlaceOf(words, {"-"}), PlaceOf(words, {"POSITION"})));
    const std::size_t year = sheet.horizontalDatum.find(" (");
    if (year != std::string::npos) sheet.horizontalDatum.erase(year, 1);
}

// A height has its unit behind it, and a source at the end of the line.
void FindElevation(const std::vector<std::string>& words, FoundSheet& sheet) {
    const std::size_t unit = PlaceOf(words, {"(meters)", "(+/-2cm)"});
    if (unit != Nowhere && words.back().front() != '(') sheet.elevation = std::stod(words.at(unit - 1));
}

void FindControl(const std::string& line, Labels labels, FoundSheet& sheet) {
    const std::vector<std::string> words = WordsOf(line);
    if (words.size() < 4) return;
    const bool isControl = words[0].size() == 7 && words[0].back() == '*';
    const bool isOld = labels == Labels::Before2012;
    const bool isHeight = line.find(isOld ? "ELLIP HEIGHT-" : "ELLIP HT-") != std::string::npos;
    if (isHeight && isControl != isOld)
        sheet.ellipsoidHeight = std::stod(words.at(PlaceOf(words, {"(meters)"}) - 1));
    if (!isControl || isHeight) return;
    FindPosition(words, sheet);
    FindElevation(words, sheet);
}

// None of these new sheets has the title of an accuracy block of theirs.
void FindAccuracy(const std::vector<std::string>& words, FoundSheet& sheet) {
    if (words.size() < 6 || words[1] != "NETWORK") return;
    for (std::size_t i = words.size() - 3; i < words.size(); ++i)
        sheet.accuracy.push_back(std::stod(words[i]));
}

std::vector<FoundSheet> FindSheets(const std::string& text) {
    std::vector<FoundSheet> sheets;
    Labels labels = Labels::None;
    for (const std::string& line : LinesOf(text)) {
        if (line.find("Retrieval Date") != std::string::npos) {
            if (sheets.empty()) labels = LabelsKnownFor(line);
            sheets.emplace_back();
        }
        if (sheets.empty()) continue;
        FindNames(WordsOf(line), sheets.back());
        if (labels != Labels::None) FindControl(line, labels, sheets.back());
        if (labels == Labels::Before2012) FindAccuracy(WordsOf(line), sheets.back());
    }
    return sheets;
}

void ExpectAngle(double actual, const std::optional<double>& expected) {
    if (expected)
        EXPECT_NEAR(actual, *expected, 1e-12);
    else
        EXPECT_EQ(actual, NoValue);
}

void ExpectAccuracy(const PointRecord& point, const FoundSheet& sheet) {
    const float whole[] = {point.SY, point.SX, point.SZ};
    for (std::size_t i = 0; i < 3; ++i) {
        if (!sheet.accuracy.empty())
            EXPECT_NEAR(whole[i] * 195.99, sheet.accuracy[i], 1e-5);
        else
            EXPECT_EQ(whole[i], sheet.isCORS ? 0.0001F : NoValueSingle);
    }
}

bool HasLine(const std::string& member, const std::string& line) {
    return ("\r\n" + member + "\r\n").find("\r\n" + line + "\r\n") != std::string::npos;
}

void ExpectPoint(const PointRecord& point, const FoundSheet& sheet) {
    SCOPED_TRACE(sheet.name);
    EXPECT_NE(sheet.name, "");
    EXPECT_EQ(point.PN, sheet.name);
    EXPECT_TRUE(HasLine(point.PD, "NM:" + sheet.designation)) << point.PD;
    ExpectAngle(point.LT, sheet.latitude);
    ExpectAngle(point.LG, sheet.longitude);
    EXPECT_EQ(point.LatDir.Text(), sheet.latitude ? sheet.latitudeDirection : "N");
    EXPECT_EQ(point.LongDir.Text(), sheet.longitude ? sheet.longitudeDirection : "W");
    EXPECT_EQ(HasLine(point.Others, "HD:" + sheet.horizontalDatum), sheet.latitude.has_value())
        << point.Others;
    EXPECT_EQ(point.Z, sheet.elevation.value_or(NoValue));
    EXPECT_EQ(point.HE, sheet.ellipsoidHeight.value_or(NoValue));
    ExpectAccuracy(point, sheet);
}

void ExpectImported(const std::string& text) {
    const std::vector<FoundSheet> sheets = FindSheets(text);
    const PointList& points = Tables().InputPoints;
    ASSERT_EQ(points.size(), sheets.size());
    for (std::size_t i = 0; i < sheets.size(); ++i) ExpectPoint(points[i], sheets[i]);
    EXPECT_EQ(Tables().InputHeader.System.HD, sheets[0].horizontalDatum);
}

void ExpectConflicts(const ScriptedPrompts& prompts, const std::vector<std::string_view>& conflicts) {
    ASSERT_EQ(prompts.told.size(), conflicts.size());
    for (std::size_t i = 0; i < conflicts.size(); ++i) {
        const std::string& text = prompts.told[i].text;
        const std::size_t start = text.find('\'') + 1;
        const std::string name = text.substr(start, text.find('\'', start) - start);
        EXPECT_EQ(prompts.told[i].caption + " of " + name, conflicts[i]);
    }
}

class NGSRealSheets : public testing::Test {
  protected:
    void SetUp() override {
        ClearInputTables();
        if (!fs::is_directory(Folder())) GTEST_SKIP() << "no real data beside the project";
    }
    void TearDown() override { ClearInputTables(); }

    static std::string Folder() { return RealDataFolder() + "/ngs"; }
};

class NGSRealFiles : public NGSRealSheets, public testing::WithParamInterface<RealFile> {};

std::ostream& operator<<(std::ostream& out, const RealFile& file) { return out << file.name; }

INSTANTIATE_TEST_SUITE_P(Files, NGSRealFiles, testing::ValuesIn(RealFiles));

TEST_P(NGSRealFiles, AreImportedOrRefused) {
    const std::string path = Folder() + "/" + std::string(GetParam().name);
    const std::string before = ReadBytes(path);
    ScriptedPrompts prompts;
    prompts.answers.assign(GetParam().conflicts.size(), Button::OK);
    switch (GetParam().end) {
        case End::NoDatasheet:
            EXPECT_FALSE(ReadNGSFile(path));
            ExpectToldOnly(prompts,
                           "Can not determine datasheet retrieval date or version.  Can not read datasheet.",
                           "Datasheet Error");
            EXPECT_FALSE(Tables().InputPoints.IsAllocated());
            break;
        case End::TypeMismatch:
            EXPECT_EQ(test::FaultOf([&] { ReadNGSFile(path); }), Fault::TypeMismatch);
            ExpectConflicts(prompts, GetParam().conflicts);
            EXPECT_FALSE(Tables().InputPoints.IsAllocated());
            break;
        case End::Imported:
            EXPECT_TRUE(ReadNGSFile(path));
            ExpectConflicts(prompts, GetParam().conflicts);
            ExpectImported(before);
            break;
    }
    EXPECT_TRUE(ReadBytes(path) == before);
}

TEST_F(NGSRealSheets, EveryRowOfTheTableHasItsFile) {
    std::set<std::string> known;
    for (const RealFile& file : RealFiles) known.emplace(file.name);
    std::set<std::string> present;
    for (const auto& entry : fs::recursive_directory_iterator(Folder()))
        if (entry.is_regular_file()) present.insert(fs::relative(entry.path(), Folder()).string());
    EXPECT_TRUE(std::includes(present.begin(), present.end(), known.begin(), known.end()));
}

// The same sheets with the two positions set back by the one column that they stand too far right.
TEST_F(NGSRealSheets, ArizonaSheetsAreImportedOncePositionsStandInTheirColumns) {
    std::string text = ReadBytes(Folder() + "/recomposed/post2012_az_2015.txt");
    for (std::size_t at; (at = text.find("       (N) ")) != std::string::npos;) {
        text.erase(at, 1);
        text.insert(text.find("(W)", at), " ");
    }
    const TemporaryFolder folder;
    ScriptedPrompts prompts;
    prompts.answers = {Button::OK};
    EXPECT_TRUE(ReadNGSFile(folder.Put("az.txt", text)));
    ExpectConflicts(prompts, {"Horizontal Datum Conflict of DN3518"});
    EXPECT_EQ(Tables().InputPoints.size(), 12U);
    ExpectImported(text);
    EXPECT_EQ(Tables().InputHeader.System.VD, "NAVD 88");
}

// Sheets without header, given one, are read by the reader of their time: eight sheets of 2000 to 2003.
TEST_F(NGSRealSheets, HostedSheetsAreImportedBehindAHeader) {
    std::size_t read = 0;
    for (const auto& entry : fs::directory_iterator(Folder() + "/as_hosted")) {
        std::string text = "1        National Geodetic Survey,   Retrieval Date = MARCH  1, 2000\r\n";
        for (const std::string& line : LinesOf(ReadBytes(entry.path().string()))) text += " " + line + "\r\n";
        const TemporaryFolder folder;
        ScriptedPrompts prompts;
        EXPECT_TRUE(ReadNGSFile(folder.Put("sheet.txt", text)));
        ExpectNothingTold(prompts);
        ExpectImported(text);
        EXPECT_TRUE(FindSheets(text)[0].latitude.has_value());
        ++read;
    }
    EXPECT_EQ(read, 8U);
}

// The second reading of this test is itself held against values read from the sheets by eye.
TEST_F(NGSRealSheets, WordsSayWhatTheEyeSees) {
    const std::vector<FoundSheet> sheets =
        FindSheets(ReadBytes(Folder() + "/recomposed/pre2012_four_archive_sheets.txt"));
    ASSERT_EQ(sheets.size(), 4U);
    EXPECT_EQ(sheets[0].elevation, 418.41);
    EXPECT_EQ(sheets[0].ellipsoidHeight, 389.68);
    EXPECT_EQ(sheets[1].accuracy, (std::vector<double>{1.67, 3.98, 7.45}));
    EXPECT_EQ(sheets[2].elevation, 5);
    EXPECT_EQ(sheets[3].horizontalDatum, "NAD 83(1986)");
    const std::vector<FoundSheet> since =
        FindSheets(ReadBytes(Folder() + "/recomposed/cors_2025_may_headers.txt"));
    ASSERT_EQ(since.size(), 3U);
    EXPECT_EQ(since[1].ellipsoidHeight, 668.45);
    EXPECT_EQ(since[1].horizontalDatum, "NAD 83(2011)");
    EXPECT_TRUE(since[1].latitude.has_value());
}

}  // namespace
}  // namespace tarvek
