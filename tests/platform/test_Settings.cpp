#include "platform/modSettings.hpp"

#include <sys/stat.h>

#include <filesystem>
#include <random>

#include "environment.hpp"
#include "platform/modFaults.hpp"
#include "platform/modFileCalls.hpp"
#include "support/testSupport.hpp"

namespace tarvek {
namespace {

namespace fs = std::filesystem;
using test::ReadBytes;
using test::TemporaryFolder;
using test::Variable;

class Settings : public ::testing::Test {
  protected:
    // Puts a settings file of these bytes in place.
    void PutFile(std::string_view bytes) const {
        fs::create_directories(folder_.File("tarvek-translator"));
        folder_.Put("tarvek-translator/settings.ini", bytes);
    }
    std::string FileBytes() const { return ReadBytes(folder_.File("tarvek-translator/settings.ini")); }

    TemporaryFolder folder_;
    Variable config_{"XDG_CONFIG_HOME", folder_.Path()};
};

TEST_F(Settings, LieInTheConfigurationFolder) {
    EXPECT_EQ(SettingsFile(), folder_.File("tarvek-translator/settings.ini"));
    const Variable home("HOME", "/home/somebody");
    const Variable none("XDG_CONFIG_HOME", nullptr);
    EXPECT_EQ(SettingsFile(), "/home/somebody/.config/tarvek-translator/settings.ini");
}

TEST_F(Settings, FallBackWhereNothingIsStored) {
    EXPECT_EQ(GetSetting("FlexIn", "Zone", "none"), "none");
    PutFile("[FlexIn]\nZone=\n[FlexOut]\nDatum=x\n");
    EXPECT_EQ(GetSetting("FlexIn", "Zone", "none"), "");
    EXPECT_EQ(GetSetting("FlexIn", "Datum", "none"), "none");
    EXPECT_EQ(GetSetting("Flexin", "Zone", "none"), "none");
    EXPECT_EQ(GetSetting("FlexIn", "zone", "none"), "none");
    EXPECT_EQ(GetSetting("", "Zone", "none"), "none");
}

TEST_F(Settings, FirstValueMakesFileAndFolder) {
    EXPECT_TRUE(PutSetting("FlexIn", "Latitude Direction", "N"));
    EXPECT_EQ(FileBytes(), "[FlexIn]\nLatitude%20Direction=N\n");
    EXPECT_EQ(GetSetting("FlexIn", "Latitude Direction", ""), "N");
    struct stat status {};
    ASSERT_EQ(::stat(folder_.File("tarvek-translator").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0700U);
}

// Byte for byte what QSettings of Qt 6.4 writes for the same values, its order of the keys apart.
TEST_F(Settings, AreWrittenLikeQSettingsWritesThem) {
    EXPECT_TRUE(PutSetting("", "Top", "t"));
    EXPECT_TRUE(PutSettings("FlexIn", {{"Latitude Direction", "N"},
                                       {"a,b;c", "x, y; z=1"},
                                       {"at", "@home"},
                                       {"blank", "  lead"},
                                       {"ctl",
                                        "\x01"
                                        "f\x1F"
                                        "g"},
                                       {"empty", ""},
                                       {"lines", "one\r\ntwo\tthree"},
                                       {"plain", "it's 5%"},
                                       {"quote", "say \"hi\" \\ there"},
                                       {"slash", "C:\\dir\\x"},
                                       {"trail", "x "},
                                       {"uni", "Z\xC3\xBCrich \xE6\x97\xA5\xE6\x9C\xAC"}}));
    EXPECT_TRUE(PutSetting("General", "k", "g"));
    EXPECT_TRUE(PutSetting("a b", "50%", "v"));
    EXPECT_EQ(FileBytes(),
              "[General]\nTop=t\n\n"
              "[FlexIn]\nLatitude%20Direction=N\na%2Cb%3Bc=\"x, y; z=1\"\nat=@@home\nblank=\"  lead\"\n"
              "ctl=\\x1\\x66\\x1fg\nempty=\nlines=one\\r\\ntwo\\tthree\nplain=it's 5%\n"
              "quote=say \\\"hi\\\" \\\\ there\nslash=C:\\\\dir\\\\x\ntrail=\"x \"\n"
              "uni=Z\xC3\xBCrich \xE6\x97\xA5\xE6\x9C\xAC\n\n"
              "[%General]\nk=g\n\n"
              "[a%20b]\n50%25=v\n");
}

TEST_F(Settings, EveryTextComesBack) {
    const char* const pieces[] = {",", ";",        "\"", "\\", "\n", "\r",   "\t",          " ",    "=",
                                  "@", "\xC2\xB0", "a",  "7",  "f",  "\x01", "\x1F",        "\x7F", "%",
                                  "[", "]",        "'",  "#",  "x",  "\\n",  "\xE2\x82\xAC"};
    FileCalls quick = SystemFileCalls;
    quick.fsync = [](int) { return 0; };
    SetFileCalls(&quick);
    std::mt19937 random(3);
    for (int round = 0; round < 300; ++round) {
        std::string value;
        for (auto count = random() % 9; count > 0; --count) value += pieces[random() % std::size(pieces)];
        ASSERT_TRUE(PutSetting("FlexOut", "Zone", value));
        ASSERT_EQ(GetSetting("FlexOut", "Zone", "fallback"), value);
    }
    SetFileCalls(nullptr);
    const std::string withNul("a\0b\0f", 5);
    EXPECT_TRUE(PutSetting("FlexOut", "Zone", withNul));
    EXPECT_EQ(GetSetting("FlexOut", "Zone", ""), withNul);
}

TEST_F(Settings, OtherSpellingsAreRead) {
    PutFile(
        "; a remark\n[FlexIn]\n  Zone = Texas \n"
        "a=\"quoted \" ; remark\nb=one \"two \"\nc=\\x41\\x20ac!\\101\\q\\'\nd=@String(x)\n"
        "Latitude Direction=S\n%4cower=l\n;Zone=remark\n"
        "[General]\nTop=t\n");
    EXPECT_EQ(GetSetting("FlexIn", "Zone", ""), "Texas");
    EXPECT_EQ(GetSetting("FlexIn", "a", ""), "quoted ");
    EXPECT_EQ(GetSetting("FlexIn", "b", ""), "one two ");
    EXPECT_EQ(GetSetting("FlexIn", "c", ""),
              "A\xE2\x82\xAC"
              "!A'");
    EXPECT_EQ(GetSetting("FlexIn", "d", ""), "x");
    EXPECT_EQ(GetSetting("FlexIn", "Latitude Direction", ""), "S");
    EXPECT_EQ(GetSetting("FlexIn", "Lower", ""), "l");
    EXPECT_EQ(GetSetting("", "Top", ""), "t");
    EXPECT_EQ(GetSetting("General", "Top", "none"), "none");
}

TEST_F(Settings, LastOfSeveralHolds) {
    PutFile("[A]\nk=1\n[B]\nk=2\n[A]\nk=3\nj=4\n");
    EXPECT_EQ(GetSetting("A", "k", ""), "3");
    EXPECT_TRUE(PutSetting("A", "k", "5"));
    EXPECT_EQ(FileBytes(), "[A]\nk=1\n[B]\nk=2\n[A]\nk=5\nj=4\n");
    EXPECT_EQ(GetSetting("A", "k", ""), "5");
}

TEST_F(Settings, OtherLinesStayAsTheyAre) {
    PutFile(
        "; remark\n\n[Other]\nList=a, b, c\nRaw=@ByteArray(\\x1\\x2)\n strange line "
        "\n\n[FlexIn]\nOld=1\nZone=x\n\n"
        "[Last]\nk=v");
    EXPECT_TRUE(PutSettings("FlexIn", {{"Zone", "y"}, {"New", "n"}}));
    EXPECT_TRUE(PutSetting("Fresh", "k", "v"));
    EXPECT_EQ(FileBytes(),
              "; remark\n\n[Other]\nList=a, b, c\nRaw=@ByteArray(\\x1\\x2)\n strange line "
              "\n\n[FlexIn]\nOld=1\nZone=y\n"
              "New=n\n\n[Last]\nk=v\n\n[Fresh]\nk=v\n");
}

TEST_F(Settings, TextOfTheCodePageIsStoredInUtf8) {
    EXPECT_TRUE(PutSetting("FlexIn", "Zone", "45\xB0"));
    EXPECT_EQ(GetSetting("FlexIn", "Zone", ""), "45\xC2\xB0");
}

TEST_F(Settings, NamesBeyondPlainTextAreInvalid) {
    for (const char* name : {"a\nb", "Z\xC3\xBC", "\x7F"}) {
        EXPECT_THROW(GetSetting("S", name, ""), RuntimeFault);
        EXPECT_THROW(GetSetting(name, "k", ""), RuntimeFault);
        EXPECT_THROW(PutSetting("S", name, ""), RuntimeFault);
        EXPECT_THROW(PutSetting(name, "k", ""), RuntimeFault);
    }
    EXPECT_EQ(folder_.Names(), std::vector<std::string>());
}

TEST_F(Settings, WhatCanNotBeStoredIsFalseAndNoFault) {
    folder_.Put("tarvek-translator", "a file where the folder should be");
    EXPECT_FALSE(PutSetting("S", "k", "v"));
    EXPECT_EQ(GetSetting("S", "k", "fallback"), "fallback");
    const Variable noConfig("XDG_CONFIG_HOME", nullptr);
    const Variable noHome("HOME", nullptr);
    EXPECT_EQ(SettingsFile(), "");
    EXPECT_FALSE(PutSetting("S", "k", "v"));
    EXPECT_EQ(GetSetting("S", "k", "fallback"), "fallback");
}

}  // namespace
}  // namespace tarvek
