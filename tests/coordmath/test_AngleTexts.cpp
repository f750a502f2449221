// The packed angle of the tagged files, read and printed, against a literal step-by-step version that goes
// through every text on the way, with the C library's own numbers. Both must give the same bits.

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>

#include "coordmath/modAngles.hpp"
#include "support/testSupport.hpp"

namespace tarvek::test {
namespace {

std::string Printed(const char* format, int digits, double value) {
    char text[400];
    std::snprintf(text, sizeof text, format, digits, value);
    return text;
}

// Fixed decimals, with no sign on a zero.
std::string Fixed(double value, int decimals) {
    std::string text = Printed("%.*f", decimals, value);
    const bool isZero = text.find_first_of("123456789") == std::string::npos;
    return isZero && text[0] == '-' ? text.substr(1) : text;
}

std::string TwoDigits(double value, int decimals) {
    std::string text = Fixed(value, decimals);
    if (text.size() == 1 || text[1] == '.') text.insert(0, "0");
    return decimals == 0 ? text + "." : text;
}

double Number(const std::string& text) { return std::strtod(text.c_str(), nullptr); }

double LiteralRadFromDMS(const std::string& text) {
    const std::size_t first = text.find(' ');
    const std::size_t second = text.find(' ', first + 1);
    double degrees = Number(text.substr(0, first));
    const bool isNegative = degrees < 0;
    if (isNegative) degrees = -degrees;
    const double minutes = Number(text.substr(first + 1, second - first - 1));
    const double seconds = Number(text.substr(second + 1));
    const double radians =
        Number(Printed("%.*g", 15, minutes / 60.0 + degrees + seconds / 3600.0)) * 0.017453292519943278;
    return isNegative ? radians * -1.0 : radians;
}

// Of a text with four digits or more behind its point.
double LiteralRadFromPacked(const std::string& text) {
    const std::size_t point = text.find('.');
    const double degrees = Number(text.substr(0, point));
    const double minutes = Number(text.substr(point + 1, 2));
    const double seconds = Number(text.substr(point + 3, 2) + "." + text.substr(point + 5));
    return LiteralRadFromDMS(Printed("%.*g", 15, degrees) + " " + Printed("%.*g", 15, minutes) + " " +
                             Printed("%.*g", 15, seconds));
}

std::string LiteralPacked(double radians, int decimals) {
    double value = Number(Fixed(radians * 57.29577951308238, decimals + 4));
    const bool isNegative = value < 0;
    if (isNegative) value = -value;
    double degrees = std::trunc(value);
    const double m = (value - degrees) * 60.0;
    double minutes = std::trunc(m);
    double seconds = (m - minutes) * 60.0;
    if (Number(Fixed(seconds, decimals)) >= 60.0) {
        seconds -= 60.0;
        if (seconds < 0.0) seconds = 0.0;
        minutes += 1;
    }
    if (minutes >= 60) {
        minutes -= 60;
        degrees += 1;
    }
    std::string secondsText = TwoDigits(seconds, decimals);
    secondsText.erase(secondsText.find('.'), 1);
    const std::string minutesText = Fixed(minutes, 0);
    return (isNegative ? "-" : "") + Fixed(degrees, 0) + "." + (minutes < 10 ? "0" : "") + minutesText +
           secondsText;
}

TEST(AngleTexts, PackedAnglesAreReadBitForBit) {
    std::mt19937_64 draw(11);
    std::uniform_int_distribution<int> degrees(-360, 360);
    std::uniform_int_distribution<int> minutes(0, 59);
    std::uniform_real_distribution<double> seconds(0, 59.4);
    for (int i = 0; i < 200'000; ++i) {
        std::string secondsText = TwoDigits(seconds(draw), i % 16);
        secondsText.erase(secondsText.find('.'), 1);
        const int minute = minutes(draw);
        const std::string text = std::to_string(degrees(draw)) + "." + (minute < 10 ? "0" : "") +
                                 std::to_string(minute) + secondsText;
        ASSERT_EQ(Angles_GET_RadFromDMSPacked(text), LiteralRadFromPacked(text)) << text;
    }
}

TEST(AngleTexts, PackedAnglesArePrintedByteForByte) {
    std::mt19937_64 draw(12);
    std::uniform_real_distribution<double> angle(-7, 7);
    for (int i = 0; i < 200'000; ++i) {
        const double radians = angle(draw);
        ASSERT_EQ(Angles_GET_TextDMSPacked(radians, i % 10), LiteralPacked(radians, i % 10)) << radians;
    }
}

// Just below, at and above whole minutes and degrees, where seconds and minutes carry.
TEST(AngleTexts, CarriesArePrintedByteForByte) {
    for (int minutes = -3 * 60; minutes <= 3 * 60; ++minutes)
        for (const double off : {-1e-3, -4e-5, -1e-6, -1e-9, -1e-13, 0.0, 1e-13, 1e-9, 1e-6, 4e-5})
            for (int decimals = 0; decimals < 8; ++decimals) {
                const double radians = (minutes / 60.0 + off / 3600) * 0.017453292519943278;
                ASSERT_EQ(Angles_GET_TextDMSPacked(radians, decimals), LiteralPacked(radians, decimals))
                    << minutes << " minutes and " << off << " seconds, " << decimals << " decimals";
            }
}

TEST(AngleTexts, TheMarkOfNoValueIsAnAngleLikeAnyOther) {
    EXPECT_EQ(Angles_GET_TextDMSPacked(-99999, 5), LiteralPacked(-99999, 5));
}

}  // namespace
}  // namespace tarvek::test
