#pragma once
// What the tests of the driver share: a program folder and a working folder of a test's own, scripted
// prompts, empty tables and a fixed date.

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>

#include "driver/modTranslate.hpp"
#include "platform/modProgramFolder.hpp"
#include "support/testSupport.hpp"
#include "surveyfiles/modSurveyRecords.hpp"

namespace tarvek::test {

inline constexpr std::string_view ControlLabel = "Tarvek Control Files (*.CTL)";

class DriverTest : public ::testing::Test {
  protected:
    DriverTest() {
        Tables() = {};
        SetTranslateDefaults(false, "", "", "", "");
        ::setenv("SOURCE_DATE_EPOCH", "1770000000", 1);
        ::setenv("TARVEK_HOME", home.Path().c_str(), 1);
        ::setenv("XDG_RUNTIME_DIR", home.Path().c_str(), 1);
        ForgetProgramFolder();
        std::filesystem::create_directory(home.File("KTIFiles"));
    }
    ~DriverTest() override { Tables() = {}; }

    // A definition file of these lines in the program folder; gives its path.
    std::string PutDefinition(std::string_view name, std::string_view bytes) const {
        return home.Put("KTIFiles/" + std::string(name) + ".kti", bytes);
    }
    std::string PutDefinition(std::string_view name, std::string_view program, std::string_view input,
                              std::string_view output) const {
        return PutDefinition(name, std::string(program) + "\r\nAn action\r\n" + std::string(input) + "\r\n" +
                                       std::string(output) + "\r\n");
    }
    std::string PutControlToControl(std::string_view name) const {
        return PutDefinition(name, "ConvertFile", ControlLabel, ControlLabel);
    }
    std::string PutInput() const { return folder.Put("in.ctl", "AC:PR\r\nUL:M\r\nAC:OS\r\nPN:A\r\n"); }

    // What a conversion makes of PutInput().
    static std::string ConvertedInput() {
        return "AC:PR\r\nUL:M\r\nVR:Tarvek Translator " TARVEK_VERSION
               "\r\nDT:02/02/2026\r\nAC:OS\r\nPN:A\r\nYC:-99999.0000\r\nXC:-99999.0000\r\nZC:-99999.0000\r\n";
    }

    bool OutputExists() const { return std::filesystem::exists(out); }

    TemporaryFolder home;
    TemporaryFolder folder;
    const std::string in = folder.File("in.ctl");
    const std::string out = folder.File("out.ctl");
    ScriptedPrompts prompts;
};

}  // namespace tarvek::test
