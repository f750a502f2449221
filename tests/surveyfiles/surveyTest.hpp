#pragma once
// What the tests of the survey files share: empty tables, a fixed date, a folder and scripted prompts of a
// test's own.

#include <gtest/gtest.h>

#include <cstdlib>
#include <initializer_list>
#include <numbers>
#include <string>
#include <string_view>

#include "platform/modFileCalls.hpp"
#include "support/testSupport.hpp"
#include "surveyfiles/modSurveyRecords.hpp"
#include "surveyfiles/modTarvekFiles.hpp"

namespace tarvek::test {

// The radians of degrees, minutes and seconds, by the textbook.
inline double RadiansOf(double degrees, double minutes, double seconds) {
    return (degrees + minutes / 60 + seconds / 3600) * std::numbers::pi / 180;
}

inline ChainRecord ChainNamed(const std::string& name) {
    ChainRecord chain;
    chain.ChainName = name;
    return chain;
}

class SurveyTest : public ::testing::Test {
  protected:
    SurveyTest() {
        Tables() = {};
        ::setenv("SOURCE_DATE_EPOCH", "1770000000", 1);  // 2 February 2026, 02:40 UTC
    }
    ~SurveyTest() override {
        SetFileCalls(nullptr);
        Tables() = {};
    }

    // The last two lines of every header that is written.
    static std::string ProgramAndDate() {
        return "VR:Tarvek Translator " TARVEK_VERSION "\r\nDT:02/02/2026\r\n";
    }

    bool ReadBytesAsControlFile(std::string_view bytes) {
        return ReadControlFile(folder.Put("input.ctl", bytes));
    }
    bool ReadLines(std::initializer_list<std::string_view> lines) {
        return ReadBytesAsControlFile(Lines(lines));
    }
    // The file that the output tables give; the caller looks at what was told.
    std::string Written() {
        EXPECT_TRUE(WriteControlFile(folder.File("output.ctl")));
        return ReadBytes(folder.File("output.ctl"));
    }

    ScriptedPrompts prompts;
    TemporaryFolder folder;
};

}  // namespace tarvek::test
