// One translation from the command line: its checks in their order, definition files, and the routines.

#include "driver/modTranslate.hpp"

#include "driverTest.hpp"

namespace tarvek {
namespace {

using test::ControlLabel;
using test::ExpectNothingTold;
using test::ExpectToldOnly;
using test::FaultOf;

constexpr std::string_view DefaultCaption = "Tarvek Translator";

class Translate : public test::DriverTest {
  protected:
    void ExpectOverwriteAsked() {
        ASSERT_EQ(prompts.told.size(), 1U);
        EXPECT_EQ(prompts.told[0].text,
                  "The specified output file '" + out + "' already exists.  Overwrite it?");
        EXPECT_EQ(prompts.told[0].caption, DefaultCaption);
        EXPECT_EQ(prompts.told[0].buttons, Buttons::YesNo);
    }
};

// The checks

TEST_F(Translate, LooksForTheDefinitionFirst) {
    const std::string definition = home.File("none.kti");
    folder.Put("out.ctl", "old");
    TranslateFromCommandLine(definition, in, out, folder.File("none.trn"));
    ExpectToldOnly(prompts, "The specified translation file '" + definition + "' does not exist.",
                   DefaultCaption);
}

TEST_F(Translate, LooksForTheInputSecond) {
    const std::string definition = PutDefinition("x", "");
    folder.Put("out.ctl", "old");
    TranslateFromCommandLine(definition, in, out, folder.File("none.trn"));
    ExpectToldOnly(prompts, "The specified input file '" + in + "' does not exist.", DefaultCaption);
}

TEST_F(Translate, AsksBeforeItReadsTheDefinition) {
    const std::string definition = PutDefinition("x", "");
    PutInput();
    folder.Put("out.ctl", "old");
    prompts.answers = {Button::No};
    TranslateFromCommandLine(definition, in, out, folder.File("none.trn"));
    ExpectOverwriteAsked();
    EXPECT_EQ(test::ReadBytes(out), "old");
}

TEST_F(Translate, ReadsTheDefinitionBeforeItLooksForTheConfigurationFile) {
    const std::string definition = PutDefinition("x", "Replace\r\nAction\r\n");
    PutInput();
    EXPECT_EQ(FaultOf([&] { TranslateFromCommandLine(definition, in, out, folder.File("none.trn")); }),
              Fault::EndOfFilePassed);
    ExpectNothingTold(prompts);
}

TEST_F(Translate, LooksForTheConfigurationFileBeforeItRuns) {
    for (const std::string_view program : {"Replace", "ConvertFile", "No such routine"}) {
        prompts.told.clear();
        const std::string definition = PutDefinition("x", program, ControlLabel, ControlLabel);
        PutInput();
        const std::string config = folder.File("none.trn");
        TranslateFromCommandLine(definition, in, out, config);
        ExpectToldOnly(prompts, "The specified Translation/Filter file '" + config + "' does not exist.",
                       DefaultCaption);
        EXPECT_FALSE(OutputExists());
    }
}

TEST_F(Translate, LeavesTheOutputAtANo) {
    const std::string definition = PutControlToControl("x");
    PutInput();
    folder.Put("out.ctl", "old");
    prompts.answers = {Button::No};
    TranslateFromCommandLine(definition, in, out, "");
    ExpectOverwriteAsked();
    EXPECT_EQ(test::ReadBytes(out), "old");
}

TEST_F(Translate, ReplacesTheOutputAtAYes) {
    const std::string definition = PutControlToControl("x");
    PutInput();
    folder.Put("out.ctl", "old");
    prompts.answers = {Button::Yes};
    TranslateFromCommandLine(definition, in, out, "");
    ExpectOverwriteAsked();
    EXPECT_EQ(test::ReadBytes(out), ConvertedInput());
}

TEST_F(Translate, WritesOverItsOwnInput) {
    const std::string definition = PutControlToControl("x");
    PutInput();
    prompts.answers = {Button::Yes};
    TranslateFromCommandLine(definition, in, in, "");
    EXPECT_EQ(test::ReadBytes(in), ConvertedInput());
}

TEST_F(Translate, TakesAnOutputWithoutExtension) {
    const std::string definition = PutControlToControl("x");
    PutInput();
    TranslateFromCommandLine(definition, in, folder.File("out"), "");
    ExpectNothingTold(prompts);
    EXPECT_EQ(test::ReadBytes(folder.File("out")), ConvertedInput());
}

// Definition files

TEST_F(Translate, NeedsFourLinesOfADefinition) {
    PutInput();
    for (const std::string_view bytes : {"", "ConvertFile", "ConvertFile\r\nAction\r\n",
                                         "ConvertFile\nAction\nTarvek Control Files (*.CTL)"}) {
        SCOPED_TRACE(bytes);
        const std::string definition = PutDefinition("x", bytes);
        EXPECT_EQ(FaultOf([&] { TranslateFromCommandLine(definition, in, out, ""); }),
                  Fault::EndOfFilePassed);
        ExpectNothingTold(prompts);
        EXPECT_FALSE(OutputExists());
    }
}

TEST_F(Translate, TakesFourLinesWithEveryLineEnd) {
    PutInput();
    const std::string label(ControlLabel);
    for (const std::string end : {"\r\n", "\n", "\r"}) {
        const std::string text = "ConvertFile" + end + "Action" + end + label + end + label;
        for (const std::string& bytes : {text, text + end, text + end + end}) {
            std::filesystem::remove(out);
            TranslateFromCommandLine(PutDefinition("x", bytes), in, out, "");
            ExpectNothingTold(prompts);
            EXPECT_EQ(test::ReadBytes(out), ConvertedInput());
        }
    }
}

TEST_F(Translate, TakesTheFifthLineForTheConfigurationFile) {
    PutInput();
    const std::string config = folder.File("five.trn");
    const std::string text = "Replace\r\nAction\r\nx\r\ny\r\n" + config + "\r\n";
    const std::string definition = PutDefinition("x", text);
    TranslateFromCommandLine(definition, in, out, "");
    ExpectToldOnly(prompts, "The specified Translation/Filter file '" + config + "' does not exist.",
                   DefaultCaption);
    prompts.told.clear();
    folder.Put("five.trn", "PN:A PN:FIVE");
    TranslateFromCommandLine(definition, in, out, "");
    ExpectNothingTold(prompts);
    EXPECT_EQ(test::ReadBytes(out), "AC:PR\r\nUL:M\r\nAC:OS\r\nPN:FIVE\r\n");
}

TEST_F(Translate, PrefersTheConfigurationFileOfTheCommandLine) {
    PutInput();
    folder.Put("command.trn", "PN:A PN:COMMAND");
    const std::string definition = PutDefinition("x", "Replace\r\nAction\r\nx\r\ny\r\nnone.trn\r\n");
    TranslateFromCommandLine(definition, in, out, folder.File("command.trn"));
    ExpectNothingTold(prompts);
    EXPECT_EQ(test::ReadBytes(out), "AC:PR\r\nUL:M\r\nAC:OS\r\nPN:COMMAND\r\n");
}

TEST_F(Translate, LooksForABareConfigurationFileInTheCurrentFolder) {
    PutInput();
    std::filesystem::create_directory(home.File("TRNFiles"));
    home.Put("TRNFiles/bare-name.trn", "PN:A PN:B");
    const std::string definition = PutDefinition("x", "Replace\r\nAction\r\nx\r\ny\r\nbare-name.trn\r\n");
    TranslateFromCommandLine(definition, in, out, "");
    ExpectToldOnly(prompts, "The specified Translation/Filter file 'bare-name.trn' does not exist.",
                   DefaultCaption);
}

TEST_F(Translate, TakesTheLinesOfADefinitionWhole) {
    PutInput();
    for (const std::string_view program : {"ConvertFile ", " ConvertFile", "convertfile", "ConvertFile;"}) {
        prompts.told.clear();
        TranslateFromCommandLine(PutDefinition("x", program, ControlLabel, ControlLabel), in, out, "");
        ExpectToldOnly(prompts, "Unknown Translation Routine. Could not perform translation.",
                       "Unknown Routine");
        EXPECT_FALSE(OutputExists());
    }
}

// Routines

TEST_F(Translate, TellsARoutineThatTheCommandLineDoesNotHave) {
    PutInput();
    for (const std::string_view program :
         {"", "MultiPoint", "SinglePoint", "GROUNDIT.EXE", "CTRL2ZONE.EXE", "ROUTE2STATION.EXE", "replace"}) {
        SCOPED_TRACE(program);
        prompts.told.clear();
        TranslateFromCommandLine(PutDefinition("x", program, ControlLabel, ControlLabel), in, out, "");
        ExpectToldOnly(prompts, "Unknown Translation Routine. Could not perform translation.",
                       "Unknown Routine");
        EXPECT_FALSE(OutputExists());
    }
}

TEST_F(Translate, RunsTheReplacement) {
    PutInput();
    folder.Put("x.trn", "PN:A PN:B");
    TranslateFromCommandLine(PutDefinition("x", "Replace", "x", "y"), in, out, folder.File("x.trn"));
    ExpectNothingTold(prompts);
    EXPECT_EQ(test::ReadBytes(out), "AC:PR\r\nUL:M\r\nAC:OS\r\nPN:B\r\n");
}

TEST_F(Translate, TellsAReplacementWithoutItsFile) {
    PutInput();
    TranslateFromCommandLine(PutDefinition("x", "Replace", "x", "y"), in, out, "");
    ExpectToldOnly(prompts, "The file '' can not be found.", "File Not Found");
    EXPECT_FALSE(OutputExists());
}

TEST_F(Translate, ConvertsAFileSilently) {
    PutInput();
    TranslateFromCommandLine(PutControlToControl("x"), in, out, "");
    ExpectNothingTold(prompts);
    EXPECT_TRUE(prompts.viewed.empty());
    EXPECT_EQ(test::ReadBytes(out), ConvertedInput());
    EXPECT_FALSE(Tables().CoordinatesConverted);
}

TEST_F(Translate, TellsWhatTheReaderRefusesAndEndsInAFault) {
    folder.Put("in.ctl", "AC:PR\r\n\r\n");
    Tables().InputPoints.Append({});
    const std::string definition = PutControlToControl("x");
    EXPECT_EQ(FaultOf([&] { TranslateFromCommandLine(definition, in, out, ""); }),
              Fault::SubscriptOutOfRange);
    ExpectToldOnly(prompts,
                   "Invalid Tarvek Control File '" + in +
                       "'.\nError on line 2.\nAn Tarvek Control File can not contain blank lines.",
                   "Invalid Tarvek Control File");
    EXPECT_FALSE(OutputExists());
}

TEST_F(Translate, ReadsNothingByAnUnknownLabel) {
    PutInput();
    for (const std::string_view label :
         {"", "tarvek control files (*.CTL)", "Tarvek Control Files (*.CTL) ", "Tarvek Control Files"}) {
        SCOPED_TRACE(label);
        Tables().InputHeader.PR = "PR:left over";
        Tables().InputPoints.Append({});
        const std::string definition = PutDefinition("x", "ConvertFile", label, ControlLabel);
        EXPECT_EQ(FaultOf([&] { TranslateFromCommandLine(definition, in, out, ""); }),
                  Fault::SubscriptOutOfRange);
        ExpectNothingTold(prompts);
        EXPECT_EQ(Tables().InputHeader.PR, "");
        EXPECT_FALSE(OutputExists());
    }
}

TEST_F(Translate, WritesNothingByAnUnknownLabel) {
    PutInput();
    for (const std::string_view label : {"", "NGS Data Sheets (*.TXT)", "Tarvek Project Files (*.PRJ)",
                                         "OGC/Google KML Version 2.2 (*.KML)", "No such files (*.XYZ)"}) {
        SCOPED_TRACE(label);
        TranslateFromCommandLine(PutDefinition("x", "ConvertFile", ControlLabel, label), in, out, "");
        ExpectNothingTold(prompts);
        EXPECT_FALSE(OutputExists());
        EXPECT_EQ(Tables().OutputPoints.size(), 1U);
    }
}

// Runs asked for by another program, without a definition

TEST_F(Translate, AsksForNoFileOfACoordinateConversion) {
    TranslateFromCommandLine("", "tccin.tmp", "tccout.tmp", "");
    for (const Message& message : prompts.told)
        EXPECT_EQ(message.text.find("does not exist"), std::string::npos) << message.text;
}

TEST_F(Translate, TakesOtherNamesForNoCoordinateConversion) {
    const std::pair<const char*, const char*> names[] = {
        {"TCCIN.TMP", "tccout.tmp"}, {"tccin.tmp", "tccout.TMP"}, {"./tccin.tmp", "tccout.tmp"}};
    for (const auto& [input, output] : names) {
        prompts.told.clear();
        TranslateFromCommandLine("", input, output, "");
        ExpectToldOnly(prompts, "The specified translation file '' does not exist.", DefaultCaption);
    }
}

// The question and the defaults

TEST_F(Translate, AsksToOverwrite) {
    prompts.answers = {Button::Yes, Button::No};
    EXPECT_TRUE(AskToOverwrite(out));
    ExpectOverwriteAsked();
    EXPECT_FALSE(AskToOverwrite(out));
}

TEST_F(Translate, KeepsTheDefaultsOfTheDialog) {
    SetTranslateDefaults(true, "in/", "out/", "filters", "base");
    const TranslateDefaults& defaults = CurrentTranslateDefaults();
    EXPECT_TRUE(defaults.ShowResult);
    EXPECT_EQ(defaults.InputFolder, "in/");
    EXPECT_EQ(defaults.OutputFolder, "out/");
    EXPECT_EQ(defaults.FilterFolder, "filters");
    EXPECT_EQ(defaults.BaseName, "base");
}

}  // namespace
}  // namespace tarvek
