// The entry of the desktop program: its run modes and what it refuses.

#include "driver/modMain.hpp"

#include "driver/modDialogPorts.hpp"
#include "driverTest.hpp"
#include "platform/modInstanceLock.hpp"

namespace tarvek {
namespace {

using test::ExpectNothingTold;
using test::ExpectToldOnly;
using test::FaultOf;

class MainTest : public test::DriverTest {
  protected:
    MainTest() {
        Dialogs().ShowTranslate = [this] { ++dialogsShown; };
    }
    ~MainTest() override { Dialogs() = {}; }

    void ExpectResultToldOnly(std::string_view text) {
        ASSERT_EQ(prompts.told.size(), 1U);
        EXPECT_EQ(prompts.told[0].text, text);
        EXPECT_EQ(prompts.told[0].caption, "Tarvek Translator");
        EXPECT_EQ(prompts.told[0].icon, Icon::Information);
        EXPECT_EQ(prompts.told[0].buttons, Buttons::OK);
        EXPECT_EQ(dialogsShown, 0);
    }

    void ExpectDefinitionMissing(const std::string& path) {
        ExpectToldOnly(prompts, "The specified translation file '" + path + "' does not exist.",
                       "Tarvek Translator");
        prompts.told.clear();
    }

    std::string Files() const { return in + "|" + out; }

    int dialogsShown = 0;
};

// Translations

TEST_F(MainTest, TranslatesByTheBareNameOfADefinition) {
    PutControlToControl("x");
    PutInput();
    Main("-t|x|" + Files());
    ExpectNothingTold(prompts);
    EXPECT_EQ(test::ReadBytes(out), ConvertedInput());
    EXPECT_EQ(dialogsShown, 0);
}

TEST_F(MainTest, TranslatesByTheNameWithItsFolder) {
    PutControlToControl("x");
    PutInput();
    Main("-t|KTIFiles\\x|" + Files());
    ExpectNothingTold(prompts);
    EXPECT_EQ(test::ReadBytes(out), ConvertedInput());
}

TEST_F(MainTest, TakesNoOtherSpellingForTheFolder) {
    PutControlToControl("x");
    PutInput();
    Main("-t|ktifiles\\x|" + Files());
    ExpectDefinitionMissing(home.File("KTIFiles/ktifiles/x.kti"));
    Main("-t|KTIFilesx|" + Files());
    ExpectDefinitionMissing(home.File("KTIFiles/KTIFilesx.kti"));
    Main("-t| KTIFiles\\x|" + Files());
    ExpectDefinitionMissing(home.File("KTIFiles/ KTIFiles/x.kti"));
    EXPECT_FALSE(OutputExists());
}

TEST_F(MainTest, KeepsBlanksInTheFields) {
    PutControlToControl("two words");
    folder.Put("in file.ctl", "AC:PR\r\nUL:M\r\nAC:OS\r\nPN:A\r\n");
    Main("-t|two words|" + folder.File("in file.ctl") + "|" + folder.File("out file.ctl"));
    ExpectNothingTold(prompts);
    EXPECT_EQ(test::ReadBytes(folder.File("out file.ctl")), ConvertedInput());
}

TEST_F(MainTest, TakesAFifthFieldForTheConfigurationFile) {
    PutDefinition("x", "Replace", "x", "y");
    PutInput();
    folder.Put("x.trn", "PN:A PN:B");
    Main("-t|x|" + Files() + "|" + folder.File("x.trn"));
    ExpectNothingTold(prompts);
    EXPECT_EQ(test::ReadBytes(out), "AC:PR\r\nUL:M\r\nAC:OS\r\nPN:B\r\n");
}

TEST_F(MainTest, TakesAnEmptyFifthFieldForNone) {
    PutControlToControl("x");
    PutInput();
    Main("-t|x|" + Files() + "|");
    ExpectNothingTold(prompts);
    EXPECT_EQ(test::ReadBytes(out), ConvertedInput());
}

TEST_F(MainTest, NamesNoDefinitionForAnEmptyFieldOfFour) {
    Main("-t||" + Files());
    ExpectDefinitionMissing("");
}

TEST_F(MainTest, NamesADefinitionForAnEmptyFieldOfFive) {
    Main("-t||" + Files() + "|");
    ExpectDefinitionMissing(home.File("KTIFiles/.kti"));
    Main("-t||tccin.tmp|tccout.tmp|");
    ExpectDefinitionMissing(home.File("KTIFiles/.kti"));
}

TEST_F(MainTest, PassesOnTheFaultOfATranslation) {
    PutDefinition("x", "one line");
    PutInput();
    EXPECT_EQ(FaultOf([&] { Main("-t|x|" + Files()); }), Fault::EndOfFilePassed);
}

TEST_F(MainTest, RefusesAWrongCountOfFieldsForATranslation) {
    for (const std::string_view line : {"-t", "-t|", "-t|x|in.ctl", "-t|x|in.ctl|out.ctl|x.trn|more"}) {
        SCOPED_TRACE(line);
        prompts.told.clear();
        Main(line);
        ExpectResultToldOnly("Incorrect Number of Command Line Arguments.");
    }
}

// The dialog

TEST_F(MainTest, ShowsTheDialogForAnEmptyCommandLine) {
    Main("");
    ExpectNothingTold(prompts);
    EXPECT_EQ(dialogsShown, 1);
    const TranslateDefaults& defaults = CurrentTranslateDefaults();
    const std::string current = std::filesystem::current_path().string();
    EXPECT_FALSE(defaults.ShowResult);
    EXPECT_EQ(defaults.InputFolder, current);
    EXPECT_EQ(defaults.OutputFolder, current);
    EXPECT_EQ(defaults.FilterFolder, home.File("TRNFiles"));
    EXPECT_EQ(defaults.BaseName, "");
}

TEST_F(MainTest, ShowsTheDialogWithTheDefaultsOfACaller) {
    Main("-s|True|C:\\In Folder\\|/out/|base name");
    ExpectNothingTold(prompts);
    EXPECT_EQ(dialogsShown, 1);
    const TranslateDefaults& defaults = CurrentTranslateDefaults();
    EXPECT_TRUE(defaults.ShowResult);
    EXPECT_EQ(defaults.InputFolder, "C:\\In Folder\\") << "taken as given";
    EXPECT_EQ(defaults.OutputFolder, "/out/");
    EXPECT_EQ(defaults.FilterFolder, home.File("TRNFiles"));
    EXPECT_EQ(defaults.BaseName, "base name");
}

TEST_F(MainTest, SetsTheDefaultsBeforeTheDialogIsShown) {
    std::string seen;
    Dialogs().ShowTranslate = [&] { seen = CurrentTranslateDefaults().BaseName; };
    Main("-s|0|a|b|base");
    EXPECT_EQ(seen, "base");
}

TEST_F(MainTest, ReadsTheShowResultFlagAsABoolean) {
    const std::pair<std::string_view, bool> flags[] = {{"True", true}, {"true", true},   {"False", false},
                                                       {"1", true},    {"-1", true},     {"0", false},
                                                       {"0.0", false}, {" TRUE ", true}, {"2.5", true}};
    for (const auto& [flag, shown] : flags) {
        Main("-s|" + std::string(flag) + "|a|b|c");
        EXPECT_EQ(CurrentTranslateDefaults().ShowResult, shown) << flag;
    }
}

TEST_F(MainTest, FaultsOnAFlagThatIsNoBoolean) {
    for (const std::string_view line : {"-s|yes|a|b|c", "-s||a|b|c"})
        EXPECT_EQ(FaultOf([&] { Main(line); }), Fault::TypeMismatch);
    EXPECT_EQ(dialogsShown, 0);
}

TEST_F(MainTest, RefusesAWrongCountOfFieldsForTheDialog) {
    for (const std::string_view line : {"-s", "-s|True|a|b", "-s|True|a|b|c|d", "-s|yes|a|b"}) {
        SCOPED_TRACE(line);
        prompts.told.clear();
        Main(line);
        ExpectResultToldOnly("Incorrect Number of Command Line Arguments.");
    }
}

TEST_F(MainTest, TellsWhereNoDialogCanBeShown) {
    Dialogs() = {};
    Main("");
    ExpectToldOnly(prompts, "The translation dialog can not be shown here.", "Tarvek Translator");
}

// Refusals

TEST_F(MainTest, RefusesAnyOtherSwitch) {
    PutControlToControl("x");
    PutInput();
    for (const std::string_view line :
         {"-T|x|", "-S|True|a|b|c", " -t|x|", "-t |x|", "t|x|", "|x|", "/t|x|", " "}) {
        SCOPED_TRACE(line);
        prompts.told.clear();
        const std::string fields = line.ends_with("x|") ? Files() : "";
        Main(std::string(line) + fields);
        ExpectResultToldOnly("Invalid Command Line Argument.");
        EXPECT_FALSE(OutputExists());
    }
}

TEST_F(MainTest, RefusesEveryStartWhileAnotherInstanceRuns) {
    const InstanceLock other(ProgramFolder());
    ASSERT_TRUE(other.Held());
    PutControlToControl("x");
    PutInput();
    for (const std::string& line : {std::string(), "-t|x|" + Files(), std::string("-T"), std::string("-s")}) {
        SCOPED_TRACE(line);
        prompts.told.clear();
        Main(line);
        ExpectResultToldOnly("An instance of Tarvek Translator is already running.");
        EXPECT_FALSE(OutputExists());
    }
}

TEST_F(MainTest, StartsAgainOnceTheOtherInstanceHasEnded) {
    PutControlToControl("x");
    PutInput();
    { const InstanceLock other(ProgramFolder()); }
    Main("-t|x|" + Files());
    ExpectNothingTold(prompts);
    EXPECT_TRUE(OutputExists());
}

}  // namespace
}  // namespace tarvek
