#pragma once
// Random points as records and as lines of a file, and what of a record must come back from a file.

#include <cmath>
#include <random>
#include <string>
#include <string_view>

#include "surveyTest.hpp"

namespace tarvek::test {

// How a family of files prints a point.
struct PointStyle {
    bool isControl = true;          // "YC:" and its like, not "YY:"
    bool printsGeometry = false;    // "GM:" always stands
    bool hasSingleHeights = false;  // an ellipsoid height has no more digits than single precision holds
};

class RandomRecords {
  public:
    double Uniform(double low, double high) {
        return std::uniform_real_distribution<double>(low, high)(random_);
    }
    long long Whole(long long low, long long high) {
        return std::uniform_int_distribution<long long>(low, high)(random_);
    }
    bool Toss() { return Whole(0, 1) == 1; }
    std::string Letters(int longest) {
        std::string text;
        for (long long i = Whole(1, longest); i > 0; --i) text += static_cast<char>('A' + Whole(0, 25));
        return text;
    }

    PointRecord Point() {
        PointRecord point;
        point.PN = Letters(8);
        point.HorizontalUnits = point.VerticalUnits = "Meters";
        point.Y = Uniform(-1e7, 1e7);
        point.X = Uniform(-1e7, 1e7);
        if (Toss()) point.Z = Uniform(-500, 9000);
        if (Toss()) point.LT = Uniform(-1.5, 1.5);
        if (Toss()) point.LG = Uniform(0, 6.28);
        if (Toss()) point.HE = Uniform(-500, 9000);
        if (Toss()) point.HG = Uniform(-100, 100);
        if (Toss()) point.SF = Uniform(0.99, 1.01);
        if (Toss()) point.CA = Uniform(-0.05, 0.05);
        if (Toss()) point.SY = static_cast<float>(Uniform(0, 5));
        if (Toss()) point.SX = static_cast<float>(Uniform(0, 5));
        if (Toss()) point.SZ = static_cast<float>(Uniform(0, 5));
        if (Toss()) point.FE = Letters(6);
        if (Toss()) point.CL = Letters(2);
        if (Toss()) point.GR = Letters(3);
        if (Toss()) point.PD = "PD:" + Letters(20) + (Toss() ? "\r\nPD:" + Letters(9) : "");
        if (Toss()) point.Others = "CM:" + Letters(20) + (Toss() ? "\r\nNM:" + Letters(9) : "");
        return point;
    }

    // A number as a file has it: digits of an integer with a point before the last `decimals`.
    std::string Number(long long low, long long high, std::size_t decimals) {
        const long long whole = Whole(low, high);
        std::string digits = std::to_string(whole < 0 ? -whole : whole);
        if (digits.size() <= decimals) digits = std::string(decimals + 1 - digits.size(), '0').append(digits);
        std::string number = whole < 0 ? "-" : "";
        number.append(digits, 0, digits.size() - decimals).append(".");
        return number.append(digits, digits.size() - decimals, decimals);
    }
    std::string TwoDigits() {
        const std::string digits = std::to_string(Whole(0, 59));
        return digits.size() < 2 ? std::string("0").append(digits) : digits;
    }
    // Degrees, minutes, seconds and `decimals` digits of a second in packed form.
    std::string Angle(long long low, long long high, std::size_t decimals) {
        std::string angle = std::to_string(Whole(low, high)) + "." + TwoDigits() + TwoDigits();
        for (std::size_t i = 0; i < decimals; ++i) angle += static_cast<char>('0' + Whole(0, 9));
        return angle;
    }

    // The lines of a point behind its activity, in the order and with the digits in which they are printed.
    std::string PointLines(const PointStyle& style) {
        std::string text;
        const auto add = [&](std::string_view tag, const std::string& value) {
            text.append(tag).append(value).append("\r\n");
        };
        add("PN:", Letters(8));
        add(style.isControl ? "YC:" : "YY:", Number(-99999999999, 99999999999, 4));
        add(style.isControl ? "XC:" : "XX:", Number(-99999999999, 99999999999, 4));
        add(style.isControl ? "ZC:" : "ZZ:", Number(-9999999, 99999999, 4));
        if (Toss()) add("LT:", Angle(1, 89, 5));
        if (Toss()) add("LG:", Angle(0, 359, 5));
        if (Toss()) add("HE:", Number(-999999, style.hasSingleHeights ? 999999 : 9999999, 3));
        if (Toss()) add("PD:", Letters(30));
        if (Toss()) add("FE:", Letters(6));
        if (style.printsGeometry) add("GM:", Letters(1));
        if (Toss()) add("HG:", Number(-99999, 99999, 3));
        if (Toss()) add("SF:", Number(99000000, 101000000, 8));
        if (Toss()) add("CA:", (Toss() ? "-" : "") + Angle(1, 9, 1));
        if (Toss()) add("GR:", Letters(3));
        if (Toss()) add("CL:", Letters(3));
        if (Toss()) add("CM:", Letters(30));
        if (Toss()) add("SY:", Number(0, 999999, 4));
        if (Toss()) add("SX:", Number(0, 999999, 4));
        if (Toss()) add("SZ:", Number(0, 999999, 4));
        return text;
    }

  private:
    std::mt19937_64 random_{20260202};
};

// Half a unit of the last digit printed, and the rounding of the comparison itself.
inline double HalfUnit(int decimals, double value) {
    return 0.5 * std::pow(10, -decimals) + std::fabs(value) * 1e-15;
}

inline void ExpectKept(double before, double after, double tolerance) {
    if (before == -99999.0)
        EXPECT_EQ(after, -99999.0);
    else
        EXPECT_NEAR(after, before, tolerance);
}

// Packed text loses the sign of an angle that is under one degree when it is rounded.
inline double AfterPackedText(double radians, double rounding) {
    constexpr double OneDegree = 0.0174532925199433;
    return radians > rounding - OneDegree && radians < 0 ? -radians : radians;
}

inline void ExpectAngleKept(double before, double after, int decimalsOfSecond) {
    constexpr double RadiansPerSecond = 4.84813681109536e-6;
    // Half a unit of the last digit, and half a unit of the ten-thousandth of it to which degrees are rounded
    // before they are divided into minutes and seconds.
    const double halfUnit = 0.5 * std::pow(10, -decimalsOfSecond);
    const double halfDegreeUnit = 0.5 * std::pow(10, -decimalsOfSecond - 4) * 3600;
    const double tolerance = (halfUnit + halfDegreeUnit) * RadiansPerSecond * 1.001;
    ExpectKept(before == -99999.0 ? before : AfterPackedText(before, tolerance), after, tolerance);
}

inline void ExpectPointKept(const PointRecord& before, const PointRecord& after,
                            bool hasSingleHeights = false) {
    EXPECT_EQ(after.PN, before.PN);
    EXPECT_EQ(after.PD, before.PD);
    EXPECT_EQ(after.Others, before.Others);
    for (Word PointRecord::*word : {&PointRecord::FE, &PointRecord::CL, &PointRecord::GR, &PointRecord::GM,
                                    &PointRecord::HorizontalUnits, &PointRecord::VerticalUnits})
        EXPECT_EQ((after.*word).Text(), (before.*word).Text());
    for (double PointRecord::*length : {&PointRecord::Y, &PointRecord::X, &PointRecord::Z})
        ExpectKept(before.*length, after.*length, HalfUnit(4, before.*length));
    // Single precision has 24 binary digits.
    const double rounding = hasSingleHeights ? std::fabs(before.HE) * std::pow(2, -24) * 1.001 : 0;
    ExpectKept(before.HE, after.HE, HalfUnit(3, before.HE) + rounding);
    ExpectKept(before.HG, after.HG, HalfUnit(3, before.HG));
    for (float PointRecord::*estimate : {&PointRecord::SY, &PointRecord::SX, &PointRecord::SZ})
        ExpectKept(before.*estimate, after.*estimate, HalfUnit(4, 0) + 1e-6);
    ExpectKept(before.SF, after.SF, HalfUnit(8, 1));
    ExpectAngleKept(before.LT, after.LT, 5);
    ExpectAngleKept(before.LG, after.LG, 5);
    ExpectAngleKept(before.CA, after.CA, 1);
}

}  // namespace tarvek::test
