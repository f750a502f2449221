#pragma once
// What the tests of NADCON share: points, a run over them, and a second computation to compare it with.

#include <gtest/gtest.h>

#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include "datumtools/modNADCON_32.hpp"
#include "datumtools/nadconGrid.hpp"
#include "library/libraryFolder.hpp"
#include "support/testSupport.hpp"
#include "surveyfiles/modSurveyRecords.hpp"

namespace tarvek::test {

inline constexpr double ToRadians = 0.017453292519943278;
inline constexpr double ToDegrees = 57.29577951308238;

inline constexpr const char* ThereMethod = "NADCON NAD 27 to NAD 83";
inline constexpr const char* BackMethod = "NADCON NAD 83 to NAD 27";
inline constexpr const char* ErrorCaption = "NADCON Error";
inline constexpr const char* OutsideText =
    "The point to be converted does not fall within the selected NADCON grid.  Can not convert point.";
inline constexpr const char* UnsettledText =
    "Maximum number of iterations exceeded for the NADCON Inverse Transformation.";

// A position in degrees, longitude positive west as files have it.
inline PointRecord PointAt(double latitude, double west) {
    PointRecord point;
    point.LT = latitude * ToRadians;
    point.LG = west * ToRadians;
    return point;
}

inline PointRecord PointAt(double latitude, double longitude, const char* latDir, const char* longDir) {
    PointRecord point = PointAt(latitude, longitude);
    point.LatDir = Word(latDir);
    point.LongDir = Word(longDir);
    return point;
}

// A second computation, from the layout of the files and the formulas alone.

inline double ThroughText(double value, std::chars_format format, int precision) {
    char text[400];
    const auto end = std::to_chars(std::begin(text), std::end(text), value, format, precision).ptr;
    double result = 0;
    std::from_chars(std::begin(text), end, result);
    return result;
}

enum class End { Shifted, Silent, Outside, Unsettled };

enum class Settled { StaysShifted, StartsAgain };

class SecondComputation {
  public:
    SecondComputation(std::string las, std::string los) : las_(std::move(las)), los_(std::move(los)) {
        NC_ = std::bit_cast<std::int32_t>(Word32(las_, 64 + 1));
        NR_ = std::bit_cast<std::int32_t>(Word32(las_, 68 + 1));
        XMin_ = Single(las_, 76 + 1);
        DX_ = Single(las_, 80 + 1);
        YMin_ = Single(las_, 84 + 1);
        DY_ = Single(las_, 88 + 1);
        XMax_ = static_cast<float>(double{DX_} * static_cast<double>(NC_ - 1) + double{XMin_});
        if (180 < XMax_) XMax_ = static_cast<float>(double{XMax_} - 360);
        YMax_ = static_cast<float>(double{DY_} * static_cast<double>(NR_ - 1) + double{YMin_});
        if (180 < YMax_) YMax_ = static_cast<float>(double{YMax_} - 360);
    }

    double Shift(double latitude, double longitude, bool ofLatitude) const {
        const std::string& file = ofLatitude ? las_ : los_;
        const double y = (latitude - double{YMin_}) / double{DY_};
        const double x = (longitude - double{XMin_}) / double{DX_};
        const auto iy = static_cast<std::int64_t>(std::floor(y));
        const auto ix = static_cast<std::int64_t>(std::floor(x));
        const double ty = y - static_cast<double>(iy);
        const double tx = x - static_cast<double>(ix);
        const std::int64_t p = 4 * NC_ * iy + 4 * iy + 4 * NC_ + 9 + 4 * ix;
        const float z1 = Single(file, p);
        const float z2 = Single(file, p + 4);
        const float z3 = Single(file, p + 4 + 4 * NC_);
        const float z4 = Single(file, p + 8 + 4 * NC_);
        const double A = z1;
        const auto B = static_cast<float>(double{z2} - double{z1});
        const auto C = static_cast<float>(double{z3} - double{z1});
        const double D = double{z4} - double{z2} - double{z3} + double{z1};
        return ((double{B} * tx + A) + double{C} * ty) + ty * (tx * D);
    }

    bool Forward(double& latitude, double& longitude) const {
        const double s = Shift(latitude, longitude, true);
        const double t = Shift(latitude, longitude, false);
        if (s == 0 || t == 0) return false;
        latitude = latitude + s / 3600.0;
        longitude = longitude - t / 3600.0;
        return true;
    }

    bool Inverse(double& latitude, double& longitude, Settled settled) const {
        double solvedLat = latitude;
        double solvedLon = longitude;
        double workLat = latitude;
        double workLon = longitude;
        for (int i = 0; i <= 10; ++i) {
            Forward(workLat, workLon);
            const double dLat = latitude - workLat;
            const double dLon = longitude - workLon;
            if (std::fabs(dLat) > 1e-9) solvedLat = solvedLat + dLat;
            if (std::fabs(dLat) > 1e-9 || settled == Settled::StartsAgain) workLat = solvedLat;
            if (std::fabs(dLon) > 1e-9) solvedLon = solvedLon + dLon;
            if (std::fabs(dLon) > 1e-9 || settled == Settled::StartsAgain) workLon = solvedLon;
            if (std::fabs(dLat) <= 1e-9 && std::fabs(dLon) <= 1e-9) {
                latitude = solvedLat;
                longitude = solvedLon;
                return true;
            }
        }
        return false;
    }

    // For a point north of the equator and west of Greenwich.
    End Transform(PointRecord& point, bool forward, Settled settled = Settled::StaysShifted) const {
        double latitude = ThroughText(point.LT * ToDegrees, std::chars_format::fixed, 9);
        double longitude = -ThroughText(point.LG * ToDegrees, std::chars_format::fixed, 9);
        if (!Holds(latitude, longitude)) return End::Outside;
        if (forward && !Forward(latitude, longitude)) return End::Silent;
        if (!forward && !Inverse(latitude, longitude, settled)) return End::Unsettled;
        point.LT = ThroughText(latitude, std::chars_format::general, 15) * ToRadians;
        point.LG = -(ThroughText(longitude, std::chars_format::general, 15) * ToRadians);
        return End::Shifted;
    }

    double North() const { return double{YMax_}; }
    double South() const { return double{YMin_}; }
    double East() const { return double{XMax_}; }
    double West() const { return double{XMin_}; }

  private:
    // `p` is counted from 1; what lies behind the file is zero.
    static std::uint32_t Word32(const std::string& file, std::int64_t p) {
        std::uint32_t word = 0;
        if (p < 1 || static_cast<std::size_t>(p) + 3 > file.size()) return word;
        for (int i = 3; i >= 0; --i)
            word = word * 256 + static_cast<unsigned char>(file[static_cast<std::size_t>(p - 1 + i)]);
        return word;
    }
    static float Single(const std::string& file, std::int64_t p) {
        return std::bit_cast<float>(Word32(file, p));
    }
    bool Holds(double latitude, double longitude) const {
        const auto y = static_cast<float>(latitude);
        const auto x = static_cast<float>(longitude);
        return YMin_ < y && y < YMax_ && XMin_ < x && x < XMax_;
    }

    std::string las_;
    std::string los_;
    std::int64_t NC_ = 0;
    std::int64_t NR_ = 0;
    float XMin_ = 0;
    float DX_ = 0;
    float YMin_ = 0;
    float DY_ = 0;
    float XMax_ = 0;
    float YMax_ = 0;
};

inline SecondComputation SecondOf(const NADCONGrid& grid) {
    return {grid.Bytes(grid.latitude), grid.Bytes(grid.longitude)};
}

class NADCON : public ::testing::Test {
  protected:
    NADCON() { Tables() = {}; }
    ~NADCON() override { Tables() = {}; }

    // One run over these points in place of those of the run before.
    static bool Run(const char* method, const std::vector<PointRecord>& points) {
        PointList& list = Tables().ConversionPoints;
        list = {};
        for (const PointRecord& point : points) list.Append(point);
        return NADCON_Transform(method);
    }
    static const PointRecord& Point(std::size_t index) { return Tables().ConversionPoints[index]; }

    static void ExpectAt(const PointRecord& point, double latitude, double west) {
        EXPECT_EQ(point.LT, latitude * ToRadians);
        EXPECT_EQ(point.LG, west * ToRadians);
    }

    void Put(const NADCONGrid& grid) const { PutGrid(home, "conus", grid); }
    // Puts the grid and opens it, for the steps of a run.
    void Open(const NADCONGrid& grid) const {
        Put(grid);
        ASSERT_TRUE(NADCON_SetGrid(ThereMethod));
        ASSERT_TRUE(NADCON_OpenGrid());
    }

    void ExpectOutside(const std::vector<PointRecord>& points) {
        EXPECT_FALSE(Run(ThereMethod, points));
        ExpectToldOnly(prompts, OutsideText, ErrorCaption);
        prompts.told.clear();
    }
    void ExpectInside(double latitude, double longitude) {
        EXPECT_TRUE(NADCON_InGrid(latitude, longitude)) << latitude << ' ' << longitude;
        ExpectNothingTold(prompts);
        prompts.told.clear();
    }
    void ExpectNotInside(double latitude, double longitude) {
        EXPECT_FALSE(NADCON_InGrid(latitude, longitude)) << latitude << ' ' << longitude;
        ExpectToldOnly(prompts, OutsideText, ErrorCaption);
        prompts.told.clear();
    }

    LibraryFolder home;
    ScriptedPrompts prompts;
};

class NADCONAgreement : public NADCON {
  protected:
    // Runs one point, expects what the second computation makes of it, and gives the end it came to.
    End RunAsSecond(const SecondComputation& second, bool forward, const PointRecord& point) {
        PointRecord expected = point;
        const End end = second.Transform(expected, forward);
        EXPECT_EQ(Run(forward ? ThereMethod : BackMethod, {point}), end == End::Shifted);
        EXPECT_EQ(Point(0).LT, expected.LT);
        EXPECT_EQ(Point(0).LG, expected.LG);
        if (end == End::Outside)
            ExpectToldOnly(prompts, OutsideText, ErrorCaption);
        else if (end == End::Unsettled)
            ExpectToldOnly(prompts, UnsettledText, ErrorCaption);
        else
            ExpectNothingTold(prompts);
        prompts.told.clear();
        return end;
    }
};

}  // namespace tarvek::test
