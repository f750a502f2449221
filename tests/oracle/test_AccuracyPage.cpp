// docs/accuracy.md has the figures that are measured now. The target accuracy_page writes them anew.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <optional>
#include <sstream>

#include "oracle/zoneDifferences.hpp"
#include "support/testSupport.hpp"

namespace tarvek::test {
namespace {

// All of the page behind this line is written by this test.
constexpr std::string_view Mark = "<!-- From here on by: cmake --build build --target accuracy_page -->\n";
// Smaller figures are rounding, and differ from machine to machine. Of scales, in parts of 10^9, that is
// PROJ's: the one of the oblique zones is made of differences.
constexpr double Least = 0.001;
constexpr double LeastScale = 0.1;

// The equations as the page tells them apart.
struct Equations {
    const char* name;
    const char* letters;
    const char* projection;
    const char* system;  // what the name of the system begins with
};

constexpr Equations Alaska27 = {"NAD 27 equations, Alaska 2 to 9", "AK27", "", ""};
constexpr Equations AllEquations[] = {
    {"Transverse Mercator, state plane zones", "TM", "Transverse Mercator", "SPC"},
    {"Transverse Mercator, UTM zones", "TM", "Transverse Mercator", "UTM"},
    {"Lambert, two parallels", "L2", "Lambert Conformal Conic - Two Parallels", ""},
    {"Lambert, one parallel", "L1", "Lambert Conformal Conic - One Parallel", ""},
    {"Oblique Mercator", "OM", "Oblique Mercator - Hotine", ""},
    {"NAD 27 equations, transverse Mercator", "TM27", "Transverse Mercator - NAD 27 Equations", ""},
    Alaska27,
    {"NAD 27 equations, Lambert", "L27", "Lambert Conformal Conic - NAD 27 Equations", ""},
};

bool IsOn(const SeedZone& zone, const Equations& equations) {
    const bool alaska = std::string_view(equations.letters) == Alaska27.letters;
    if (IsAlaska2To9Of1927(zone) && zone.projection.ends_with("NAD 27 Equations")) return alaska;
    return !alaska && zone.projection == equations.projection && zone.system.starts_with(equations.system);
}

const char* LettersOf(const SeedZone& zone) {
    for (const Equations& equations : AllEquations)
        if (IsOn(zone, equations)) return equations.letters;
    return "";
}

// A figure with two digits, rounded up.
std::string Figure(double value, double least = Least) {
    if (value < least) return "< " + Figure(least, 0);
    int exponent = static_cast<int>(std::floor(std::log10(value))) - 1;
    double digits = std::ceil(value / std::pow(10.0, exponent) - 1e-9);
    if (digits == 100) {
        digits = 10;
        ++exponent;
    }
    char text[64];
    std::snprintf(text, sizeof text, "%.*f", std::max(0, -exponent), digits * std::pow(10.0, exponent));
    return text;
}

std::string Row(std::initializer_list<std::string> cells) {
    std::string row = "|";
    for (const std::string& cell : cells) row.append(" ").append(cell).append(" |");
    return row + "\n";
}

std::string Summary() {
    std::string text =
        "## Summary\n\n"
        "| Equations | | Zones | Northing | Easting | Latitude | Longitude | Convergence | Scale | "
        "There and back |\n"
        "|---|---|--:|--:|--:|--:|--:|--:|--:|--:|\n";
    for (const Equations& equations : AllEquations) {
        int zones = 0;
        Differences largest;
        for (const ZoneDifferences& measured : AllZoneDifferences()) {
            if (!IsOn(measured.zone, equations)) continue;
            ++zones;
            largest.Include(measured.largest);
        }
        text += Row({equations.name, equations.letters, std::to_string(zones), Figure(largest.northing),
                     Figure(largest.easting), Figure(largest.latitude), Figure(largest.longitude),
                     Figure(largest.convergence), Figure(largest.scale * 1e9, LeastScale),
                     Figure(std::max(largest.returnedLatitude, largest.returnedLongitude))});
    }
    return text;
}

// A table of the zones for each coordinate system.
std::string Zones() {
    std::string text;
    std::string system;
    for (const ZoneDifferences& measured : AllZoneDifferences()) {
        const SeedZone& zone = measured.zone;
        if (zone.system != system) {
            system = zone.system;
            text.append("\n## ").append(system).append("\n\n");
            text +=
                "| Zone | Equations | Northing | Easting | Latitude | Longitude |\n"
                "|---|---|--:|--:|--:|--:|\n";
        }
        const Differences& largest = measured.largest;
        text += Row({zone.zone, LettersOf(zone), Figure(largest.northing), Figure(largest.easting),
                     Figure(largest.latitude), Figure(largest.longitude)});
    }
    return text;
}

std::string EditionLine() { return "Areas of use: EPSG " + RegisterEdition() + ".\n"; }

std::string FreshFigures() { return "\n" + EditionLine() + "\n" + Summary() + Zones(); }

std::string PagePath() { return std::string(TARVEK_SOURCE) + "/docs/accuracy.md"; }

// A page in two: up to and with the mark, and the figures behind it.
struct Page {
    std::string words;
    std::string figures;
};

Page ReadPage() {
    const std::string text = ReadBytes(PagePath());
    const std::size_t mark = text.find(Mark);
    if (mark == std::string::npos) return {.words = text + "\n" + std::string(Mark), .figures = {}};
    const std::size_t end = mark + Mark.size();
    return {.words = text.substr(0, end), .figures = text.substr(end)};
}

std::vector<std::string> Parts(const std::string& text, char separator) {
    std::vector<std::string> parts;
    std::istringstream stream(text);
    for (std::string part; std::getline(stream, part, separator);) parts.push_back(part);
    return parts;
}

// The number of a cell that is a figure; of "< 0.0010" that number.
std::optional<double> FigureIn(const std::string& cell) {
    const char* const begin = cell.c_str() + (cell.starts_with(" < ") ? 3 : 0);
    char* end = nullptr;
    const double value = std::strtod(begin, &end);
    if (end == begin || std::string_view(end) != " ") return std::nullopt;
    return value;
}

// Whether two cells are the same but for a tenth, a step of the second digit at the least.
bool IsSameCell(const std::string& one, const std::string& other) {
    const std::optional<double> a = FigureIn(one);
    const std::optional<double> b = FigureIn(other);
    if (!a || !b) return one == other;
    return std::fabs(*a - *b) <= 0.101 * std::max(std::fabs(*a), std::fabs(*b));
}

bool IsSameLine(const std::string& one, const std::string& other) {
    const std::vector<std::string> cells = Parts(one, '|');
    const std::vector<std::string> others = Parts(other, '|');
    return std::equal(cells.begin(), cells.end(), others.begin(), others.end(), IsSameCell);
}

TEST(AccuracyPage, HasTheFiguresThatAreMeasured) {
    const Page page = ReadPage();
    const std::string fresh = FreshFigures();
    if (const char* target = std::getenv("TARVEK_ACCURACY_PAGE")) {
        std::ofstream(target, std::ios::binary) << page.words << fresh;
        return;
    }
    const std::string edition = EditionLine();
    if (page.figures.find("EPSG ") != std::string::npos && page.figures.find(edition) == std::string::npos)
        GTEST_SKIP() << "The page is made with another edition of the register: " << edition;
    const std::vector<std::string> committed = Parts(page.figures, '\n');
    const std::vector<std::string> wanted = Parts(fresh, '\n');
    ASSERT_EQ(committed.size(), wanted.size()) << "Build the target accuracy_page.";
    for (std::size_t i = 0; i < wanted.size(); ++i)
        EXPECT_TRUE(IsSameLine(committed[i], wanted[i])) << committed[i] << "\n"
                                                         << wanted[i] << "\nBuild the target accuracy_page.";
}

TEST(AccuracyPage, FiguresHaveTwoDigitsRoundedUp) {
    EXPECT_EQ(Figure(0.00099), "< 0.0010");
    EXPECT_EQ(Figure(0.09, LeastScale), "< 0.10");
    EXPECT_EQ(Figure(0.00101), "0.0011");
    EXPECT_EQ(Figure(0.0321), "0.033");
    EXPECT_EQ(Figure(0.999), "1.0");
    EXPECT_EQ(Figure(5.67), "5.7");
    EXPECT_EQ(Figure(99.5), "100");
    EXPECT_EQ(Figure(683.2), "690");
}

TEST(AccuracyPage, AFigureMayBeATenthOffAndNoMore) {
    EXPECT_TRUE(IsSameLine("| a | 0.033 | < 0.0010 | 1.0 |", "| a | 0.034 | 0.0011 | 1.1 |"));
    EXPECT_FALSE(IsSameLine("| a | 0.033 |", "| a | 0.038 |"));
    EXPECT_FALSE(IsSameLine("| a | 0.033 |", "| b | 0.033 |"));
    EXPECT_FALSE(IsSameLine("| a | 0.033 |", "| a | 0.033 | 1 |"));
}

}  // namespace
}  // namespace tarvek::test
