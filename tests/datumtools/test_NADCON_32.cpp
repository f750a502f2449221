#include "datumtools/modNADCON_32.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <iterator>
#include <limits>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "datumtools/nadconGrid.hpp"
#include "datumtools/nadconTest.hpp"
#include "support/testSupport.hpp"
#include "surveyfiles/modSurveyRecords.hpp"

namespace tarvek::test {
namespace {

namespace fs = std::filesystem;

constexpr double CutCircle = 6.28318530717958;  // as the change of directions has it
constexpr const char* MismatchText =
    "The 'conus' LAS and LOS file headers do not match.  Can not perform the NADCON conversion(s).";

// A cell whose shifts at 41.25 N, 97.5 W (half of the way east, a quarter of the way north) are 5" and -8":
// 2 + 1/2 (4 - 2) + 1/4 (6 - 2) + 1/8 (16 - 4 - 6 + 2) and -4 + 1/2 (-4) + 1/4 (-8) + 1/8 (0).
NADCONGrid WorkedGrid() {
    NADCONGrid grid;
    const auto cell = [](float southwest, float southeast, float northwest, float northeast) {
        return [=](int row, int column) {
            if (row == 1 && column == 12) return southwest;
            if (row == 1 && column == 13) return southeast;
            if (row == 2 && column == 12) return northwest;
            return row == 2 && column == 13 ? northeast : 1000.0F;
        };
    };
    grid.latitude = cell(2, 4, 6, 16);
    grid.longitude = cell(-4, -8, -12, -16);
    return grid;
}

// Such shifts carry a position there, to 15 digits: 41.25 + 5/3600 and 97.5 - 8/3600 degrees.
constexpr double WorkedLatitude = 41.2513888888889;
constexpr double WorkedWest = 97.4977777777778;

// ---- Methods ----

TEST_F(NADCON, UnknownMethodIsTold) {
    Put({});
    for (const char* method : {"", "NADCON", "NADCON NAD 27 to NAD 83 ", "nadcon NAD 27 to NAD 83",
                               "NADCON NAD 27 to NAD 83 (1986)", "NADCON Alabama HPGN to NAD 83 (1986)",
                               "NADCON Texas HPGN to NAD 83 (1986)",
                               "NADCON NAD 83 (1986) to Texas HPGN (East of 100\xC2\xB0 Longitude)"}) {
        EXPECT_FALSE(Run(method, {PointAt(41.25, 97.5)})) << method;
        ExpectToldOnly(prompts, "Unkown NADCON Conversion.", "Unkown NADCON Conversion");
        prompts.told.clear();
        ExpectAt(Point(0), 41.25, 97.5);
        EXPECT_FALSE(NADCON_SetGrid(method)) << method;
        ExpectToldOnly(prompts, "Unkown NADCON Conversion.", "Unkown NADCON Conversion");
        prompts.told.clear();
    }
}

struct Area {
    const char* name;
    const char* suffix;
    const char* grid;
};

constexpr Area Areas[] = {
    {"Alabama", "", "alhpgn"},
    {"Arkansas", "", "arhpgn"},
    {"Arizona", "", "azhpgn"},
    {"California", " (Above 37\xB0 Latitude)", "cnhpgn"},
    {"California", " (Below 37\xB0 Latitude)", "cshpgn"},
    {"Colorado", "", "cohpgn"},
    {"Florida", "", "flhpgn"},
    {"Georgia", "", "gahpgn"},
    {"Guam", "", "guhpgn"},
    {"Hawaii", "", "hihpgn"},
    {"Idaho-Montana", " (East of 133\xB0 Longitude)", "emhpgn"},
    {"Idaho-Montana", " (West of 133\xB0 Longitude)", "wmhpgn"},
    {"Iowa", "", "iahpgn"},
    {"Illinois", "", "ilhpgn"},
    {"Indiana", "", "inhpgn"},
    {"Kansas", "", "kshpgn"},
    {"Kentucky", "", "kyhpgn"},
    {"Louisiana", "", "lahpgn"},
    {"Maryland-Delaware", "", "mdhpgn"},
    {"Maine", "", "mehpgn"},
    {"Michigan", "", "mihpgn"},
    {"Minnesota", "", "mnhpgn"},
    {"Mississippi", "", "mshpgn"},
    {"Missouri", "", "mohpgn"},
    {"Nebraska", "", "nbhpgn"},
    {"Nevada", "", "nvhpgn"},
    {"New England", " (CT, MA, NH, RI, VT)", "nehpgn"},
    {"New Jersey", "", "njhpgn"},
    {"New Mexico", "", "nmhpgn"},
    {"New York", "", "nyhpgn"},
    {"North Carolina", "", "nchpgn"},
    {"North Dakota", "", "ndhpgn"},
    {"Ohio", "", "ohhpgn"},
    {"Oklahoma", "", "okhpgn"},
    {"Pennsylvania", "", "pahpgn"},
    {"Puerto Rico-Virgin Islands", "", "pvhpgn"},
    {"Samoa (Eastern Islands)", "", "eshpgn"},
    {"Samoa (Western Islands)", "", "wshpgn"},
    {"South Carolina", "", "schpgn"},
    {"South Dakota", "", "sdhpgn"},
    {"Tennessee", "", "tnhpgn"},
    {"Texas", " (East of 100\xB0 Longitude)", "ethpgn"},
    {"Texas", " (West of 100\xB0 Longitude)", "wthpgn"},
    {"Utah", "", "uthpgn"},
    {"Virginia", "", "vahpgn"},
    {"Washington-Oregon", "", "wohpgn"},
    {"West Virginia", "", "wvhpgn"},
    {"Velmora", "", "vlhpgn"},
    {"Wyoming", "", "wyhpgn"},
};
static_assert(std::size(Areas) == 49);

class NADCONMethodTest : public NADCON {
  protected:
    // With one grid alone in the folder, a shift of 3600" each way.
    void ExpectMethod(const std::string& method, const std::string& gridName, bool forward) {
        SCOPED_TRACE(method);
        fs::remove_all(home.File(GridFolder));
        NADCONGrid grid;
        grid.rows = 6;
        grid.latitude = grid.longitude = Constant(3600);
        PutGrid(home, gridName, grid);
        EXPECT_TRUE(Run(method.c_str(), {PointAt(42.25, 97.5)}));
        ExpectNothingTold(prompts);
        prompts.told.clear();
        ExpectAt(Point(0), forward ? 43.25 : 41.25, forward ? 98.5 : 96.5);
    }
};

TEST_F(NADCONMethodTest, EveryMethodGoesItsWayThroughItsGrid) {
    ExpectMethod(ThereMethod, "conus", true);
    ExpectMethod(BackMethod, "conus", false);
    for (const Area& area : Areas) {
        const std::string name = area.name;
        const std::string year = name == "Alabama" ? "1996" : "1986";
        ExpectMethod("NADCON NAD 83 (1986) to " + name + " HPGN" + area.suffix, area.grid, true);
        ExpectMethod("NADCON " + name + " HPGN to NAD 83 (" + year + ")" + area.suffix, area.grid, false);
    }
}

// ---- Interpolation ----

TEST_F(NADCON, ShiftOfAWorkedCell) {
    Put(WorkedGrid());
    EXPECT_TRUE(Run(ThereMethod, {PointAt(41.25, 97.5)}));
    ExpectNothingTold(prompts);
    ExpectAt(Point(0), WorkedLatitude, WorkedWest);
}

TEST_F(NADCON, ShiftsOfTheTwoFilesAreReadByTheirPlace) {
    // Shifts that lie on a plane, so that every place has its own.
    NADCONGrid grid;
    grid.columns = 31;
    grid.rows = 7;
    grid.latitude = [](int row, int column) { return static_cast<float>(1000 * row + column); };
    grid.longitude = [](int row, int column) { return static_cast<float>(-100 * column - row); };
    Open(grid);
    for (int row = 0; row < grid.rows - 1; ++row)
        for (int column = 0; column < grid.columns - 1; ++column) {
            const double latitude = 40.0 + row + 0.5;
            const double longitude = -110.0 + column + 0.25;
            EXPECT_EQ(NADCON_Interpolate(latitude, longitude, true), 1000 * (row + 0.5) + column + 0.25);
            EXPECT_EQ(NADCON_Interpolate(latitude, longitude, false), -100 * (column + 0.25) - row - 0.5);
        }
}

TEST_F(NADCON, ShiftAtANodeIsTheNodesOwn) {
    NADCONGrid grid;
    const auto node = [](int row, int column) { return 0.1F + static_cast<float>(row * 37 + column) / 7; };
    grid.latitude = node;
    grid.longitude = [node](int row, int column) { return -node(column, row); };
    Open(grid);
    for (int row = 0; row < grid.rows - 1; ++row)
        for (int column = 0; column < grid.columns - 1; ++column) {
            EXPECT_EQ(NADCON_Interpolate(40 + row, -110 + column, true), double{node(row, column)});
            EXPECT_EQ(NADCON_Interpolate(40 + row, -110 + column, false), -double{node(column, row)});
        }
}

// 0.1F is 13421773 / 2^27, and what lacks to 1 is 120795955 / 2^27; of that, 32 bits hold 15099494 / 2^24.
class NADCONCoefficients : public NADCON {
  protected:
    static Shifts Cell(float southwest, float southeast, float northwest, float northeast) {
        return [=](int row, int column) {
            if (row == 0) return column == 0 ? southwest : southeast;
            return column == 0 ? northwest : northeast;
        };
    }
    double MidShift(const Shifts& shifts, bool ofLatitude, double latitude, double longitude) const {
        NADCONGrid grid;
        (ofLatitude ? grid.latitude : grid.longitude) = shifts;
        Open(grid);
        return NADCON_Interpolate(latitude, longitude, ofLatitude);
    }
};

TEST_F(NADCONCoefficients, DifferenceEastIsRoundedTo32Bits) {
    // 15099494 / 2^25 + 13421773 / 2^27; all of 64 bits would give 73819750.5 / 2^27.
    for (const bool ofLatitude : {true, false})
        EXPECT_EQ(MidShift(Cell(0.1F, 1, 0.1F, 1), ofLatitude, 40, -109.5), std::ldexp(73819749.0, -27));
}

TEST_F(NADCONCoefficients, DifferenceNorthIsRoundedTo32Bits) {
    for (const bool ofLatitude : {true, false})
        EXPECT_EQ(MidShift(Cell(0.1F, 0.1F, 1, 1), ofLatitude, 40.5, -110), std::ldexp(73819749.0, -27));
}

TEST_F(NADCONCoefficients, ProductTermKeeps64Bits) {
    // 13421773 / 2^27 and a quarter of 120795955 / 2^27.
    for (const bool ofLatitude : {true, false})
        EXPECT_EQ(MidShift(Cell(0.1F, 0.1F, 0.1F, 1), ofLatitude, 40.5, -109.5),
                  std::ldexp(174483047.0, -29));
}

TEST_F(NADCON, ColumnsFrom8192OnOverflow) {
    NADCONGrid grid;
    grid.columns = 8200;
    grid.xMin = -170;
    grid.dx = 0.015625;
    grid.latitude = [](int, int column) { return column == 8191 ? 7200.0F : 3600.0F; };
    grid.longitude = Constant(3600);
    Put(grid);
    // Half of column 8191, half of the next: a shift of 5400".
    const double inLastColumn = 170 - 8191.5 / 64;
    const double behindIt = 170 - 8192.5 / 64;
    EXPECT_EQ(FaultNumberOf([&] {
                  Run(ThereMethod,
                      {PointAt(41.25, inLastColumn), PointAt(41.25, behindIt), PointAt(41.25, inLastColumn)});
              }),
              6);
    ExpectNothingTold(prompts);
    ExpectAt(Point(0), 42.75, inLastColumn + 1);
    ExpectAt(Point(1), 41.25, behindIt);
    ExpectAt(Point(2), 41.25, inLastColumn);
    EXPECT_EQ(FaultNumberOf([&] { Run(BackMethod, {PointAt(41.25, behindIt)}); }), 6);
    EXPECT_EQ(FaultNumberOf([&] { Run(ThereMethod, {PointAt(41.25, 170 - 8192.0 / 64)}); }), 6);
}

// ---- Limits ----

TEST_F(NADCON, EdgesAreOutside) {
    Open({});  // 40 to 43 N, 110 to 87 W
    ExpectInside(41.5, -98.5);
    for (const double latitude : {40.0, 43.0, 39.5, 43.5}) ExpectNotInside(latitude, -98.5);
    for (const double longitude : {-110.0, -87.0, -110.5, -86.5}) ExpectNotInside(41.5, longitude);
    for (const double latitude : {40.00001, 42.99999}) ExpectInside(latitude, -98.5);
    for (const double longitude : {-109.99999, -87.00001}) ExpectInside(41.5, longitude);
}

TEST_F(NADCON, WhatRoundsToAnEdgeIsOutside) {
    // 32-bit floats lie 3.8e-6 degrees apart here in latitude, 7.6e-6 in longitude.
    Open({});
    for (const double latitude : {40.000001, 42.999999}) ExpectNotInside(latitude, -98.5);
    for (const double longitude : {-109.999997, -87.000003}) ExpectNotInside(41.5, longitude);
    ExpectOutside({PointAt(40.000001, 98.5)});
    ExpectOutside({PointAt(41.5, 87.000003)});
    EXPECT_TRUE(Run(ThereMethod, {PointAt(40.00001, 98.5)}));
}

TEST_F(NADCON, LimitsAre32Bits) {
    // Steps of 0.1F and 0.3F end at 40.30000000447 N and 92.7999997139 W; the 32-bit limits are
    // 40.29999923706 N and 92.80000305176 W.
    NADCONGrid grid;
    grid.columns = 25;
    grid.xMin = -100;
    grid.dx = 0.3F;
    grid.dy = 0.1F;
    Open(grid);
    ExpectNotInside(40.3, -96);
    ExpectNotInside(40.2999995, -96);  // short of the limit in 64 bits
    ExpectNotInside(40.2999991, -96);  // short of the 32-bit limit too, but rounds to it
    ExpectInside(40.299996, -96);
    ExpectNotInside(40.15, -92.8);
    ExpectNotInside(40.15, -92.800002);
    ExpectNotInside(40.15, -92.800004);
    ExpectInside(40.15, -92.80001);
}

TEST_F(NADCON, LimitBeyond180IsTakenAroundTheCircle) {
    NADCONGrid grid;
    grid.columns = 380;
    grid.xMin = -190;  // to 189, which is -171
    Open(grid);
    ExpectInside(41.5, -180);
    ExpectInside(41.5, -171.001);
    ExpectNotInside(41.5, -171);
    ExpectNotInside(41.5, -100);
    ExpectNotInside(41.5, 185);
    EXPECT_TRUE(Run(ThereMethod, {PointAt(41.5, 175)}));

    grid.columns = 30;
    grid.xMin = 160;  // to 189, which is -171: no longitude lies within
    Open(grid);
    for (const double longitude : {170.0, 179.0, 185.0, -175.0}) ExpectNotInside(41.5, longitude);
}

TEST_F(NADCON, LimitOf180IsKept) {
    NADCONGrid grid;
    grid.xMin = 157;  // to 180
    Open(grid);
    ExpectInside(41.5, 179.99);
    // 180.0000055 degrees in 64 bits, which is 180 in 32.
    grid.dx = 1 + 2 * std::numeric_limits<float>::epsilon();
    Open(grid);
    ExpectInside(41.5, 179.99);
}

TEST_F(NADCON, LatitudesAreTakenAroundTheCircleAsWell) {
    NADCONGrid grid;
    grid.rows = 380;
    grid.yMin = -190;  // to 189, which is -171
    Open(grid);
    ExpectInside(-180, -98.5);
    ExpectNotInside(41.5, -98.5);
    grid.rows = 371;  // to 180
    Open(grid);
    ExpectInside(41.5, -98.5);
}

TEST_F(NADCON, NoValueIsOutside) {
    Put({});
    ExpectOutside({PointRecord()});
    PointRecord latitudeAlone = PointAt(41.5, 98.5);
    latitudeAlone.LG = NoValue;
    ExpectOutside({latitudeAlone});
    PointRecord longitudeAlone = PointAt(41.5, 98.5);
    longitudeAlone.LT = NoValue;
    ExpectOutside({longitudeAlone});
    EXPECT_EQ(Point(0).LT, NoValue);
    EXPECT_EQ(Point(0).LG, 98.5 * ToRadians);
}

TEST_F(NADCON, PointsBeforeOneOutsideStayShifted) {
    Put(WorkedGrid());
    EXPECT_FALSE(
        Run(ThereMethod, {PointAt(41.25, 97.5), PointAt(50, 97.5), PointAt(41.25, 97.5), PointAt(60, 97.5)}));
    ExpectToldOnly(prompts, OutsideText, ErrorCaption);
    ExpectAt(Point(0), WorkedLatitude, WorkedWest);
    ExpectAt(Point(1), 50, 97.5);
    ExpectAt(Point(2), 41.25, 97.5);
    ExpectAt(Point(3), 60, 97.5);
}

// ---- Numbers by way of text ----

TEST_F(NADCON, PositionIsTakenWithNineDecimals) {
    Put(WorkedGrid());
    EXPECT_TRUE(Run(ThereMethod, {PointAt(41.2500000004, 97.4999999996), PointAt(41.250000001, 97.5)}));
    ExpectAt(Point(0), WorkedLatitude, WorkedWest);
    EXPECT_NE(Point(1).LT, Point(0).LT);
}

TEST_F(NADCON, ResultIsGivenWith15Digits) {
    NADCONGrid grid;
    grid.latitude = grid.longitude = Constant(1);
    Put(grid);
    ASSERT_NE((41.25 + 1 / 3600.0) * ToRadians, 41.2502777777778 * ToRadians);
    ASSERT_NE((97.5 + 1 / 3600.0) * ToRadians, 97.5002777777778 * ToRadians);
    EXPECT_TRUE(Run(ThereMethod, {PointAt(41.25, 97.5)}));
    ExpectAt(Point(0), 41.2502777777778, 97.5002777777778);
}

// ---- Directions ----

TEST_F(NADCON, LatitudePositiveSouth) {
    Put(WorkedGrid());
    EXPECT_TRUE(Run(ThereMethod, {PointAt(-41.25, 97.5, "S", "W")}));
    ExpectAt(Point(0), -WorkedLatitude, WorkedWest);
    EXPECT_EQ(Point(0).LatDir, Word("S"));
}

TEST_F(NADCON, LongitudeNegativeWest) {
    Put(WorkedGrid());
    EXPECT_TRUE(Run(ThereMethod, {PointAt(41.25, -97.5, "N", "-W")}));
    ExpectAt(Point(0), WorkedLatitude, -WorkedWest);
    EXPECT_EQ(Point(0).LongDir, Word("-W"));
}

TEST_F(NADCON, LongitudePositiveEastBelowZeroComesOutOfTheFullCircle) {
    Put(WorkedGrid());
    EXPECT_TRUE(Run(ThereMethod, {PointAt(41.25, -97.5, "N", "E")}));
    EXPECT_EQ(Point(0).LT, WorkedLatitude * ToRadians);
    EXPECT_EQ(Point(0).LG, CutCircle - WorkedWest * ToRadians);
    EXPECT_EQ(Point(0).LongDir, Word("E"));
}

class NADCONFarEast : public NADCON {
  protected:
    // From 10 to 33 E, with shifts of a degree to the north and to the east.
    NADCONFarEast() {
        NADCONGrid grid;
        grid.xMin = 10;
        grid.latitude = Constant(3600);
        grid.longitude = Constant(-3600);
        Put(grid);
    }
};

// The circle that the change of directions counts with is one of radians, also where it turns degrees.
TEST_F(NADCONFarEast, LongitudePositiveEastLosesTheCircle) {
    // 20.25 - 6.28318530717958 + 1, of which 15 digits go on.
    EXPECT_TRUE(Run(ThereMethod, {PointAt(41.25, 20.25, "N", "E")}));
    EXPECT_EQ(Point(0).LT, 42.25 * ToRadians);
    EXPECT_NEAR(Point(0).LG, 14.9668146928204 * ToRadians, 4e-15);
    ExpectOutside({PointAt(41.25, 16, "N", "E")});
}

TEST_F(NADCONFarEast, LongitudeBelowZeroPositiveWestLosesTheCircle) {
    EXPECT_TRUE(Run(ThereMethod, {PointAt(41.25, -20.25, "N", "W")}));
    EXPECT_EQ(Point(0).LG, CutCircle - 14.9668146928204 * ToRadians);
}

TEST_F(NADCONFarEast, LongitudeNegativeWestKeepsItsDegreesBelowZeroOnly) {
    ExpectOutside({PointAt(41.25, 16, "N", "-W")});
    EXPECT_TRUE(Run(ThereMethod, {PointAt(41.25, 20.25, "N", "-W")}));
    EXPECT_NEAR(Point(0).LT, 42.25 * ToRadians, 1e-15);
}

TEST_F(NADCON, UnknownDirectionIsOutside) {
    Put({});
    ExpectOutside({PointAt(41.25, 97.5, "X", "W")});
    ExpectOutside({PointAt(41.25, 97.5, "N", "")});
    ExpectAt(Point(0), 41.25, 97.5);
}

// ---- Shifts of zero ----

class NADCONNoData : public NADCON {
  protected:
    // Shifts of 3600" but for a zero between 97 and 98 W, in one of the files or both.
    void PutWithHole(bool inLatitude, bool inLongitude) const {
        const auto hole = [](int, int column) { return column == 12 || column == 13 ? 0.0F : 3600.0F; };
        NADCONGrid grid;
        grid.latitude = grid.longitude = Constant(3600);
        if (inLatitude) grid.latitude = hole;
        if (inLongitude) grid.longitude = hole;
        Put(grid);
    }
    static std::vector<PointRecord> Points() {
        return {PointAt(41.25, 105.5), PointAt(41.25, 97.5), PointAt(41.25, 105.5)};
    }
};

TEST_F(NADCONNoData, ForwardStopsInSilence) {
    for (const auto& [inLatitude, inLongitude] : {std::pair(true, true), {true, false}, {false, true}}) {
        PutWithHole(inLatitude, inLongitude);
        EXPECT_FALSE(Run(ThereMethod, Points()));
        ExpectAt(Point(0), 42.25, 106.5);
        ExpectAt(Point(1), 41.25, 97.5);
        ExpectAt(Point(2), 41.25, 105.5);
    }
    ExpectNothingTold(prompts);
}

TEST_F(NADCONNoData, InverseLeavesThePointAndGoesOn) {
    for (const auto& [inLatitude, inLongitude] : {std::pair(true, true), {true, false}, {false, true}}) {
        PutWithHole(inLatitude, inLongitude);
        EXPECT_TRUE(Run(BackMethod, Points()));
        ExpectAt(Point(0), 40.25, 104.5);
        ExpectAt(Point(1), 41.25, 97.5);
        ExpectAt(Point(2), 40.25, 104.5);
    }
    ExpectNothingTold(prompts);
}

TEST_F(NADCONNoData, ZeroBetweenNodesCountsAsWell) {
    NADCONGrid grid;
    grid.latitude = [](int, int column) { return column % 2 == 0 ? -1.0F : 1.0F; };
    Put(grid);
    EXPECT_FALSE(Run(ThereMethod, {PointAt(41.25, 97.5)}));
    ExpectAt(Point(0), 41.25, 97.5);
    EXPECT_TRUE(Run(BackMethod, {PointAt(41.25, 97.5)}));
    ExpectAt(Point(0), 41.25, 97.5);
    ExpectNothingTold(prompts);
}

TEST_F(NADCONNoData, StepsLeaveThePosition) {
    NADCONGrid grid;
    grid.longitude = Constant(0);
    Open(grid);
    double latitude = 41.25;
    double longitude = -97.5;
    EXPECT_FALSE(NADCON_Forward(latitude, longitude));
    EXPECT_EQ(latitude, 41.25);
    EXPECT_EQ(longitude, -97.5);
    EXPECT_TRUE(NADCON_Inverse(latitude, longitude));
    EXPECT_EQ(latitude, 41.25);
    EXPECT_EQ(longitude, -97.5);
    ExpectNothingTold(prompts);
}

// ---- The way back ----

class NADCONInverse : public NADCON {
  protected:
    // Shifts of `steepness` degrees for each degree of latitude from 40 N, of longitude from 108 W.
    static NADCONGrid Steep(float steepness) {
        NADCONGrid grid;
        grid.rows = 24;
        const float seconds = std::round(steepness * 3600);
        grid.latitude = [=](int row, int) { return seconds * static_cast<float>(row); };
        grid.longitude = [=](int, int column) { return seconds * static_cast<float>(column - 2); };
        return grid;
    }
    // A shift of a degree in latitude everywhere, and one in longitude that grows by `seconds` a column.
    static NADCONGrid Uneven(float seconds) {
        NADCONGrid grid;
        grid.rows = 8;
        grid.latitude = Constant(3600);
        grid.longitude = [=](int, int column) { return 3600 + seconds * static_cast<float>(column); };
        return grid;
    }
};

TEST_F(NADCONInverse, EleventhRoundMaySettle) {
    // Each round leaves 0.12 of the difference of the round before, 1.2 degrees at first: 7e-10 in the last.
    // 1.12 phi - 4.8 = 50 and 0.88 lambda - 12.96 = -98.
    Put(Steep(0.12F));
    EXPECT_TRUE(Run(BackMethod, {PointAt(50, 98)}));
    ExpectNothingTold(prompts);
    EXPECT_NEAR(Point(0).LT * ToDegrees, 54.8 / 1.12, 1e-9);
    EXPECT_NEAR(Point(0).LG * ToDegrees, 85.04 / 0.88, 1.2e-9);
}

TEST_F(NADCONInverse, TwelfthRoundIsNotGone) {
    // 0.14 of 1.4 degrees: 4e-9 are left in the eleventh round, 6e-10 would be in the next.
    Put(Steep(0.14F));
    EXPECT_FALSE(Run(BackMethod, {PointAt(50, 98)}));
    ExpectToldOnly(prompts, UnsettledText, ErrorCaption);
    ExpectAt(Point(0), 50, 98);
}

TEST_F(NADCONInverse, UnsettledPointEndsTheRun) {
    // South of 44 N there is but one shift, so that the first point settles at once.
    NADCONGrid grid = Steep(0.14F);
    const Shifts steepLatitude = grid.latitude;
    const Shifts steepLongitude = grid.longitude;
    grid.latitude = [=](int row, int column) { return row < 5 ? 3600.0F : steepLatitude(row, column); };
    grid.longitude = [=](int row, int column) { return row < 5 ? 3600.0F : steepLongitude(row, column); };
    Put(grid);
    EXPECT_FALSE(Run(BackMethod, {PointAt(42.25, 97.5), PointAt(50, 98), PointAt(42.25, 97.5)}));
    ExpectToldOnly(prompts, UnsettledText, ErrorCaption);
    ExpectAt(Point(0), 41.25, 96.5);
    ExpectAt(Point(1), 50, 98);
    ExpectAt(Point(2), 42.25, 97.5);
}

TEST_F(NADCONInverse, SettledCoordinateGoesOnShifted) {
    // The latitude settles in rounds 2, 5, 8 and 11, for a settled coordinate goes on shifted and comes back
    // in two rounds more. The longitude keeps 0.0005 of its difference and settles in rounds 4 and 9: they
    // never meet.
    const NADCONGrid grid = Uneven(1.8F);
    const PointRecord point = PointAt(43.25, 97.5);
    PointRecord withNewStarts = point;
    ASSERT_EQ(SecondOf(grid).Transform(withNewStarts, false, Settled::StartsAgain), End::Shifted);
    Put(grid);
    EXPECT_FALSE(Run(BackMethod, {point}));
    ExpectToldOnly(prompts, UnsettledText, ErrorCaption);
    ExpectAt(Point(0), 43.25, 97.5);
}

TEST_F(NADCONInverse, CoordinatesThatSettleTogetherAgain) {
    // With 0.004 of the difference left by each round the longitude settles in the fifth, with 0.00001 in the
    // rounds 3, 7 and 11, and so does the latitude. lambda - 1 - 0.004 (lambda + 110) = -97.5. The nodes are
    // rounded to 1e-4".
    Put(Uneven(14.4F));
    EXPECT_TRUE(Run(BackMethod, {PointAt(43.25, 97.5)}));
    EXPECT_EQ(Point(0).LT, 42.25 * ToRadians);
    EXPECT_NEAR(Point(0).LG * ToDegrees, 96.06 / 0.996, 1e-7);
    Put(Uneven(0.036F));
    EXPECT_TRUE(Run(BackMethod, {PointAt(43.25, 97.5)}));
    EXPECT_EQ(Point(0).LT, 42.25 * ToRadians);
    EXPECT_NEAR(Point(0).LG * ToDegrees, 96.4989 / 0.99999, 1e-7);
    ExpectNothingTold(prompts);
}

// ---- Files ----

class NADCONFiles : public NADCON {
  protected:
    // The first `size` bytes of both files of WorkedGrid().
    void PutCut(std::size_t size) const {
        const NADCONGrid grid = WorkedGrid();
        PutGridFile(home, "conus.las", grid.Bytes(grid.latitude).substr(0, size));
        PutGridFile(home, "conus.los", grid.Bytes(grid.longitude).substr(0, size));
    }
    // The .los file differs from the .las file in the byte at `position` alone.
    void PutWithOtherByte(std::size_t position) const {
        NADCONGrid grid;
        std::string bytes = grid.Bytes(grid.latitude);
        PutGridFile(home, "conus.las", bytes);
        bytes[position] = static_cast<char>(bytes[position] ^ 1);
        PutGridFile(home, "conus.los", bytes);
    }
};

TEST_F(NADCONFiles, MissingGridHoldsNoPointAndIsNotMade) {
    const FilesByName before = FilesUnder(home.Path());
    ExpectOutside({PointAt(41.25, 97.5)});
    ExpectOutside({PointAt(0, 0)});
    EXPECT_FALSE(Run(BackMethod, {PointAt(41.25, 97.5)}));
    ExpectToldOnly(prompts, OutsideText, ErrorCaption);
    ExpectAt(Point(0), 41.25, 97.5);
    EXPECT_EQ(FilesUnder(home.Path()), before);
    EXPECT_FALSE(fs::exists(home.File("NGS")));
}

TEST_F(NADCONFiles, MissingOrEmptyFileOfThePairDoesNotMatch) {
    const NADCONGrid grid;
    for (const char* extension : {".las", ".los"}) {
        fs::remove_all(home.File(GridFolder));
        PutGridFile(home, std::string("conus") + extension, grid.Bytes(grid.latitude));
        const FilesByName before = FilesUnder(home.Path());
        EXPECT_FALSE(Run(ThereMethod, {PointAt(41.25, 97.5)}));
        ExpectToldOnly(prompts, MismatchText, ErrorCaption);
        prompts.told.clear();
        EXPECT_EQ(FilesUnder(home.Path()), before);
    }
    PutGridFile(home, "conus.las", "");
    EXPECT_FALSE(Run(ThereMethod, {PointAt(41.25, 97.5)}));
    ExpectToldOnly(prompts, MismatchText, ErrorCaption);
}

TEST_F(NADCONFiles, EmptyListNeedsNoGrid) {
    EXPECT_TRUE(Run(ThereMethod, {}));
    ExpectNothingTold(prompts);
}

TEST_F(NADCONFiles, HeadersMustAgreeInTheirIdentification) {
    NADCONGrid grid;
    PutGridFile(home, "conus.las", grid.Bytes(grid.latitude));
    grid.ident = "A GRID OF A TESTER";
    PutGridFile(home, "conus.los", grid.Bytes(grid.longitude));
    EXPECT_FALSE(Run(ThereMethod, {PointAt(41.25, 97.5)}));
    ExpectToldOnly(prompts, MismatchText, ErrorCaption);
    ExpectAt(Point(0), 41.25, 97.5);
}

TEST_F(NADCONFiles, HeadersMustAgreeInAllOf96Bytes) {
    for (std::size_t position = 0; position < 96; ++position) {
        SCOPED_TRACE(position);
        PutWithOtherByte(position);
        EXPECT_FALSE(Run(ThereMethod, {PointAt(41.25, 97.5)}));
        ExpectToldOnly(prompts, MismatchText, ErrorCaption);
        prompts.told.clear();
    }
    PutWithOtherByte(96);
    EXPECT_TRUE(Run(ThereMethod, {PointAt(41.25, 97.5)}));
    ExpectNothingTold(prompts);
}

TEST_F(NADCONFiles, MessageNamesTheGrid) {
    NADCONGrid grid;
    PutGridFile(home, "alhpgn.las", grid.Bytes(grid.latitude));
    EXPECT_FALSE(Run("NADCON Alabama HPGN to NAD 83 (1996)", {PointAt(41.25, 97.5)}));
    ExpectToldOnly(
        prompts,
        "The 'alhpgn' LAS and LOS file headers do not match.  Can not perform the NADCON conversion(s).",
        ErrorCaption);
}

TEST_F(NADCONFiles, HeaderThatIsCutHoldsNoPoint) {
    for (const std::size_t size : {0U, 1U, 64U, 72U, 76U, 80U, 84U, 88U}) {
        SCOPED_TRACE(size);
        PutCut(size);
        ExpectOutside({PointAt(41.25, 97.5)});
    }
}

TEST_F(NADCONFiles, NoDataBehindTheEnd) {
    for (const std::size_t size : {92U, 96U, 100U, 200U}) {  // rows begin at 100, the cell's at 200
        SCOPED_TRACE(size);
        PutCut(size);
        EXPECT_FALSE(Run(ThereMethod, {PointAt(41.25, 97.5)}));
        ExpectAt(Point(0), 41.25, 97.5);
        EXPECT_TRUE(Run(BackMethod, {PointAt(41.25, 97.5)}));
        ExpectAt(Point(0), 41.25, 97.5);
    }
    ExpectNothingTold(prompts);
}

TEST_F(NADCONFiles, HeaderThatIsCutEndsInZeros) {
    // The last four bytes, an angle that has no use, are zero in the whole one.
    const NADCONGrid grid;
    const std::string bytes = grid.Bytes(grid.latitude);
    PutGridFile(home, "conus.las", bytes);
    PutGridFile(home, "conus.los", bytes.substr(0, 92));
    EXPECT_FALSE(Run(ThereMethod, {PointAt(41.25, 97.5)}));
    ExpectNothingTold(prompts);
    PutGridFile(home, "conus.los", bytes.substr(0, 90));  // within the row spacing
    EXPECT_FALSE(Run(ThereMethod, {PointAt(41.25, 97.5)}));
    ExpectToldOnly(prompts, MismatchText, ErrorCaption);
}

TEST_F(NADCONFiles, CellThatIsCutIsZeroBehindTheEnd) {
    // Without the row to the north, 2 + 1/2 2 - 1/4 2 + 1/8 (0 - 4 - 0 + 2) and
    // -4 - 1/2 4 + 1/4 4 + 1/8 (0 + 8 - 0 - 4).
    PutCut(300);
    ASSERT_TRUE(NADCON_SetGrid(ThereMethod));
    ASSERT_TRUE(NADCON_OpenGrid());
    EXPECT_EQ(NADCON_Interpolate(41.25, -97.5, true), 2.25);
    EXPECT_EQ(NADCON_Interpolate(41.25, -97.5, false), -4.5);
    // With all but its last node, 16 and -16.
    PutCut(300 + 4 + 4 * 13);
    ASSERT_TRUE(NADCON_OpenGrid());
    EXPECT_EQ(NADCON_Interpolate(41.25, -97.5, true), 3.0);
    EXPECT_EQ(NADCON_Interpolate(41.25, -97.5, false), -6.0);
    PutCut(300 + 4 + 4 * 14);
    ASSERT_TRUE(NADCON_OpenGrid());
    EXPECT_EQ(NADCON_Interpolate(41.25, -97.5, true), 5.0);
    EXPECT_EQ(NADCON_Interpolate(41.25, -97.5, false), -8.0);
}

TEST_F(NADCONFiles, NamesAreFoundInAnyLetterCase) {
    const NADCONGrid grid = WorkedGrid();
    PutGridFile(home, "CONUS.LAS", grid.Bytes(grid.latitude));
    PutGridFile(home, "Conus.los", grid.Bytes(grid.longitude));
    EXPECT_TRUE(Run(ThereMethod, {PointAt(41.25, 97.5)}));
    ExpectAt(Point(0), WorkedLatitude, WorkedWest);
}

// ---- A run and what it leaves ----

TEST_F(NADCON, SuccessForgetsTheGrid) {
    Put({});
    EXPECT_TRUE(Run(ThereMethod, {PointAt(41.25, 97.5)}));
    ExpectNotInside(41.25, -97.5);
    EXPECT_TRUE(NADCON_OpenGrid());  // of no name
    ExpectNotInside(41.25, -97.5);
}

TEST_F(NADCON, FailureKeepsTheGrid) {
    Put({});
    ExpectOutside({PointAt(50, 97.5)});
    ExpectInside(41.25, -97.5);
    EXPECT_TRUE(NADCON_OpenGrid());
    ExpectInside(41.25, -97.5);
}

TEST_F(NADCON, EachRunReadsTheGridAnew) {
    Put({});
    EXPECT_TRUE(Run(ThereMethod, {PointAt(41.25, 97.5)}));
    Put(WorkedGrid());
    EXPECT_TRUE(Run(ThereMethod, {PointAt(41.25, 97.5)}));
    ExpectAt(Point(0), WorkedLatitude, WorkedWest);
}

TEST_F(NADCON, NothingButThePositionChanges) {
    Put(WorkedGrid());
    PointRecord point = PointAt(41.25, 97.5);
    point.PN = "12";
    point.Y = 1;
    point.X = 2;
    point.Z = 3;
    point.HE = 4;
    point.HG = 5;
    point.CA = 6;
    point.SF = 7;
    point.SY = point.SX = point.SZ = 8;
    point.HorizontalUnits = Word("Meters");
    point.VerticalUnits = Word("U.S. Survey Feet");
    EXPECT_TRUE(Run(ThereMethod, {point}));
    const PointRecord& after = Point(0);
    ExpectAt(after, WorkedLatitude, WorkedWest);
    EXPECT_EQ(after.PN, "12");
    EXPECT_EQ((std::vector{after.Y, after.X, after.Z, after.HE, after.HG, after.CA, after.SF}),
              (std::vector{1.0, 2.0, 3.0, 4.0, 5.0, 6.0, 7.0}));
    EXPECT_EQ((std::vector{after.SY, after.SX, after.SZ}), (std::vector{8.0F, 8.0F, 8.0F}));
    EXPECT_EQ(after.HorizontalUnits, Word("Meters"));
    EXPECT_EQ(after.VerticalUnits, Word("U.S. Survey Feet"));
    EXPECT_EQ(after.LatDir, Word("N"));
    EXPECT_EQ(after.LongDir, Word("W"));
    EXPECT_FALSE(after.IsGeographic);
}

// ---- Against the second computation ----

TEST_F(NADCONAgreement, RandomShifts) {
    std::mt19937 random(20260202);
    std::uniform_real_distribution<float> seconds(-5, 5);
    std::uniform_real_distribution<double> north(39.9, 43.5);
    std::uniform_real_distribution<double> west(84.5, 110.1);
    NADCONGrid grid;
    grid.columns = 40;
    grid.rows = 9;
    grid.dx = 0.625F;
    grid.dy = 0.4F;
    const auto anything = [&](int, int) { return seconds(random); };
    const std::string las = grid.Bytes(anything);
    const std::string los = grid.Bytes(anything);
    PutGridFile(home, "conus.las", las);
    PutGridFile(home, "conus.los", los);
    const SecondComputation second(las, los);
    int shifted[2] = {};
    int outside[2] = {};
    int unsettled = 0;
    for (int i = 0; i < 4000; ++i) {
        const bool forward = i % 2 == 0;
        const End end = RunAsSecond(second, forward, PointAt(north(random), west(random)));
        shifted[i % 2] += end == End::Shifted;
        outside[i % 2] += end == End::Outside;
        unsettled += end == End::Unsettled;
    }
    EXPECT_GT(shifted[0], 1000);
    EXPECT_GT(shifted[1], 500);
    EXPECT_GT(outside[0], 50);
    EXPECT_GT(outside[1], 50);
    EXPECT_GT(unsettled, 0);
}

TEST_F(NADCONAgreement, InterpolationToTheLastBit) {
    std::mt19937 random(20260203);
    std::uniform_real_distribution<float> seconds(-50, 50);
    std::uniform_real_distribution<double> north(40, 44);
    std::uniform_real_distribution<double> east(-110, -87);
    NADCONGrid grid;
    grid.rows = 5;
    const auto anything = [&](int, int) { return seconds(random); };
    const std::string las = grid.Bytes(anything);
    const std::string los = grid.Bytes(anything);
    PutGridFile(home, "conus.las", las);
    PutGridFile(home, "conus.los", los);
    ASSERT_TRUE(NADCON_SetGrid(ThereMethod));
    ASSERT_TRUE(NADCON_OpenGrid());
    const SecondComputation second(las, los);
    for (int i = 0; i < 2000; ++i) {
        const double latitude = north(random);
        const double longitude = east(random);
        for (const bool ofLatitude : {true, false})
            EXPECT_EQ(NADCON_Interpolate(latitude, longitude, ofLatitude),
                      second.Shift(latitude, longitude, ofLatitude))
                << latitude << ' ' << longitude;
    }
}

}  // namespace
}  // namespace tarvek::test
