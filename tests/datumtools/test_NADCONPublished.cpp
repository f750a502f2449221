// The published grids and the points published with them, where the machine has them.

#include <gtest/gtest.h>

#include <charconv>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "datumtools/nadconGrid.hpp"
#include "datumtools/nadconTest.hpp"
#include "support/testSupport.hpp"

namespace tarvek::test {
namespace {

namespace fs = std::filesystem;

struct PublishedPoint {
    std::string grid;
    bool forward = true;
    double latIn = 0;
    double lonIn = 0;
    double latOut = 0;
    double lonOut = 0;
    double toleranceSeconds = 0;
    std::string line;
    std::string note;
};

std::vector<std::string> Fields(const std::string& line) {
    std::vector<std::string> fields;
    std::istringstream in(line + "\t");
    for (std::string field; std::getline(in, field, '\t');) fields.push_back(field);
    return fields;
}

std::vector<PublishedPoint> ReadPublishedPoints(const std::string& path) {
    std::vector<PublishedPoint> points;
    std::ifstream lines(path);
    std::string line;
    std::getline(lines, line);  // the names of the columns
    while (std::getline(lines, line)) {
        const std::vector<std::string> fields = Fields(line);
        if (fields.size() < 7) {
            ADD_FAILURE() << "too few columns: " << line;
            continue;
        }
        PublishedPoint point;
        point.grid = fields[0];
        point.forward = fields[1] == "forward";
        point.line = line;
        double* const numbers[] = {&point.latIn, &point.lonIn, &point.latOut, &point.lonOut,
                                   &point.toleranceSeconds};
        for (std::size_t i = 0; i < std::size(numbers); ++i) {
            const std::string& text = fields[i + 2];
            const auto end = std::from_chars(text.data(), text.data() + text.size(), *numbers[i]).ptr;
            EXPECT_EQ(end, text.data() + text.size()) << line;
        }
        if (fields.size() > 8) point.note = fields[8];
        points.push_back(point);
    }
    return points;
}

class NADCONPublished : public NADCONAgreement {
  protected:
    static std::string Folder() { return RealDataFolder() + "/nadcon"; }
    static std::string GridFile(const std::string& name) { return Folder() + "/converted/" + name; }

    void SetUp() override {
        if (RealDataFolder().empty() || !fs::exists(Folder() + "/points.tsv"))
            GTEST_SKIP() << "no published grids";
    }

    // Puts a published pair under the name that the methods used here read.
    SecondComputation PutPublished(const std::string& pair) const {
        const std::string las = ReadBytes(pair + ".las");
        const std::string los = ReadBytes(pair + ".los");
        EXPECT_GT(las.size(), 96U) << pair;
        PutGridFile(home, "conus.las", las);
        PutGridFile(home, "conus.los", los);
        return {las, los};
    }
};

// The points that the agencies' own programs and others publish. Those noted as not converging keep one
// coordinate shifted while the other goes on, as in SettledCoordinateGoesOnShifted: with shifts this even the
// two settle in turns, and eleven rounds end before they meet.
TEST_F(NADCONPublished, PublishedPoints) {
    constexpr int MostUnsettled = 8;
    constexpr double HalfLastDecimal = 0.5e-9;  // of the degrees that a position is taken with
    int compared = 0;
    int refused = 0;
    int unsettled = 0;
    std::string inPlace;
    for (const PublishedPoint& published : ReadPublishedPoints(Folder() + "/points.tsv")) {
        SCOPED_TRACE(published.line);
        if (published.grid != inPlace) PutPublished(GridFile(published.grid));
        inPlace = published.grid;
        const bool isShifted = Run(published.forward ? ThereMethod : BackMethod,
                                   {PointAt(published.latIn, published.lonIn, "N", "-W")});
        if (published.note.starts_with("outside the grid")) {
            EXPECT_FALSE(isShifted);
            ExpectToldOnly(prompts, OutsideText, ErrorCaption);
            ++refused;
        } else if (!isShifted && published.note.find("do not converge") != std::string::npos) {
            ExpectToldOnly(prompts, UnsettledText, ErrorCaption);
            ++unsettled;
        } else {
            EXPECT_TRUE(isShifted);
            ExpectNothingTold(prompts);
            const double tolerance = published.toleranceSeconds / 3600 + HalfLastDecimal;
            EXPECT_NEAR(Point(0).LT * ToDegrees, published.latOut, tolerance);
            EXPECT_NEAR(Point(0).LG * ToDegrees, published.lonOut, tolerance);
            ++compared;
        }
        prompts.told.clear();
    }
    EXPECT_GE(compared, 150);
    EXPECT_GE(refused, 1);
    EXPECT_LE(unsettled, MostUnsettled);
    RecordProperty("compared", compared);
    RecordProperty("unsettled", unsettled);
}

TEST_F(NADCONPublished, EveryGridAgreesWithTheSecondComputation) {
    int grids = 0;
    int shifted = 0;
    int unsettled = 0;
    for (const char* folder : {"converted", "genuine"})
        for (const auto& entry : fs::directory_iterator(Folder() + "/" + folder)) {
            if (entry.path().extension() != ".las") continue;
            SCOPED_TRACE(entry.path().filename().string());
            const SecondComputation second =
                PutPublished(fs::path(entry.path()).replace_extension().string());
            const double height = second.North() - second.South();
            const double width = second.East() - second.West();
            ASSERT_GT(height, 0);
            if (second.East() > 0 || second.South() < 0) continue;  // the second computation is for N and W
            ++grids;
            for (int i = 0; i < 60; ++i) {
                const double north = second.South() + height * (0.05 + 0.9 * (i % 10) / 9.0);
                const double west = -second.West() - width * (0.05 + 0.9 * (i / 10) / 5.0);
                const End end = RunAsSecond(second, i % 2 == 0, PointAt(north, west));
                EXPECT_NE(end, End::Outside);
                shifted += end == End::Shifted;
                unsettled += end == End::Unsettled;
            }
        }
    EXPECT_GT(grids, 40);
    EXPECT_GT(shifted, 10 * unsettled);
}

}  // namespace
}  // namespace tarvek::test
