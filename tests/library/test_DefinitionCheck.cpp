// The check of the translator definitions.

#include <filesystem>
#include <initializer_list>

#include "library/libraryFaults.hpp"
#include "library/libraryFolder.hpp"

namespace tarvek::test {
namespace {

namespace fs = std::filesystem;

constexpr const char* CTL = "Tarvek Control Files (*.CTL)";
constexpr const char* PAC = "Tarvek Points and Chains Files (*.PAC)";
constexpr const char* PRJ = "Tarvek Project Files (*.PRJ)";
constexpr const char* NGS = "NGS Data Sheets (*.TXT)";
constexpr const char* KML = "OGC/Google KML Version 2.2 (*.KML)";
constexpr const char* ByHand = "Coordinate Conversion Manual Entry";

class DefinitionCheck : public ::testing::Test {
  protected:
    DefinitionCheck() { fs::create_directory(folder.File("TRNFiles")); }

    void Put(const char* name, std::initializer_list<std::string_view> lines) {
        folder.Put("KTIFiles/" + std::string(name), Lines(lines));
    }
    // Expects one fault of a definition of these lines, or none.
    void ExpectFault(std::initializer_list<std::string_view> lines, const char* key, const char* text) {
        Put("x.kti", lines);
        EXPECT_EQ(CheckLibrary(), (Faults{{"KTIFiles/x.kti", "", key, text}})) << Lines(lines);
    }
    void ExpectSilence(std::initializer_list<std::string_view> lines) {
        Put("x.kti", lines);
        EXPECT_EQ(CheckLibrary(), Faults{}) << Lines(lines);
    }

    CleanLibraryFolder folder;
};

TEST_F(DefinitionCheck, IsSilentOnEveryFormOfAGoodDefinition) {
    folder.Put("TRNFiles/Filter.TRN", "");
    folder.Put("KTIFiles/four.kti", "ConvertFile\r\na\r\n" + std::string(CTL) + "\r\n" + PAC);
    Put("empty5.kti", {"ConvertFile", "b", CTL, PAC, ""});
    folder.Put("KTIFiles/bare.kti", "Replace\na\n" + std::string(CTL) + "\n" + CTL + "\nfilter.trn\n");
    Put("path.KTI", {"Replace", "b", CTL, CTL, folder.File("TRNFiles/Filter.TRN")});
    Put("back.kti", {"Replace", "c", CTL, CTL, folder.Path() + "\\TRNFiles\\filter.trn"});
    Put("six.kti", {"Replace", "d", CTL, CTL, "", "a sixth line is never read"});
    folder.Put("KTIFiles/notes.txt", "x");
    EXPECT_EQ(CheckLibrary(), Faults{});
}

TEST_F(DefinitionCheck, NamesWhatLacksItsLinesOrItsFile) {
    Put("a.kti", {"ConvertFile", "a", CTL});
    folder.Put("KTIFiles/b.KTI", "");
    Put("c.kti", {"Replace", "a", CTL, CTL, "filter.trn"});
    Put("d.kti", {"Replace", "b", CTL, CTL, "C:\\TRNFiles\\filter.trn"});
    folder.Put("filter.trn", "");  // not where a bare name lies
    const Faults expected = {
        {"KTIFiles/a.kti", "", "", "The definition has fewer than four lines."},
        {"KTIFiles/b.KTI", "", "", "The definition has fewer than four lines."},
        {"KTIFiles/c.kti", "", "ConfigFile", "There is no configuration file 'filter.trn'."},
        {"KTIFiles/d.kti", "", "ConfigFile", "There is no configuration file 'C:\\TRNFiles\\filter.trn'."},
    };
    EXPECT_EQ(CheckLibrary(), expected);
}

TEST_F(DefinitionCheck, NamesAFolderThatIsNotThereOrIsNone) {
    fs::remove_all(folder.File("KTIFiles"));
    const Faults missing = {{"KTIFiles", "", "", "There is no such folder."}};
    EXPECT_EQ(CheckLibrary(), missing);
    folder.Put("KTIFiles", "a file");
    EXPECT_EQ(CheckLibrary(), missing);
}

TEST_F(DefinitionCheck, NamesAFolderWithoutDefinitions) {
    fs::remove(folder.File("KTIFiles/clean.kti"));
    folder.Put("KTIFiles/readme.txt", "");
    const Faults expected = {{"KTIFiles", "", "", "The folder holds no definition."}};
    EXPECT_EQ(CheckLibrary(), expected);
}

TEST_F(DefinitionCheck, NamesAnUnknownRoutine) {
    for (const char* program : {"convertfile", "ConvertFile ", "RECODE", "recode.exe", "Report"})
        ExpectFault({program, "a", CTL, CTL}, "Program",
                    ("'" + std::string(program) + "' is no translation routine.").c_str());
}

TEST_F(DefinitionCheck, NamesAnEmptyLine) {
    ExpectFault({"", "a", CTL, CTL}, "Program", "The value is missing.");
    ExpectFault({"ConvertFile", "", CTL, CTL}, "Action", "The value is missing.");
    ExpectFault({"ConvertFile", "a", "", CTL}, "Input", "The value is missing.");
    ExpectFault({"ConvertFile", "a", CTL, ""}, "Output", "The value is missing.");
    ExpectFault({"Replace", "a", "", CTL}, "Input", "The value is missing.");
}

TEST_F(DefinitionCheck, NamesALabelThatIsNotOneOfTheFixedOnes) {
    ExpectFault({"ConvertFile", "a", "Tarvek Control Files (*.ctl)", CTL}, "Input",
                "'Tarvek Control Files (*.ctl)' is no type that ConvertFile takes here.");
    ExpectFault({"ConvertFile", "a", CTL, "Tarvek Control Files (*.CTL) "}, "Output",
                "'Tarvek Control Files (*.CTL) ' is no type that ConvertFile takes here.");
    ExpectFault({"MultiPoint", "a", "Notes (*.NTS)", PRJ}, "Input",
                "'Notes (*.NTS)' is no type that MultiPoint takes here.");
}

TEST_F(DefinitionCheck, NamesATypeThatTheRoutineCanNotReadOrWrite) {
    ExpectFault({"ConvertFile", "a", CTL, PRJ}, "Output",
                "'Tarvek Project Files (*.PRJ)' is no type that ConvertFile takes here.");
    ExpectFault({"ConvertFile", "a", KML, CTL}, "Input",
                "'OGC/Google KML Version 2.2 (*.KML)' is no type that ConvertFile takes here.");
    ExpectFault({"ConvertFile", "a", CTL, NGS}, "Output",
                "'NGS Data Sheets (*.TXT)' is no type that ConvertFile takes here.");
    ExpectFault({"MultiPoint", "a", CTL, KML}, "Output",
                "'OGC/Google KML Version 2.2 (*.KML)' is no type that MultiPoint takes here.");
    ExpectFault({"MultiPoint", "a", ByHand, CTL}, "Input",
                "'Coordinate Conversion Manual Entry' is no type that MultiPoint takes here.");
    ExpectFault({"SinglePoint", "a", CTL, ByHand}, "Input",
                "'Tarvek Control Files (*.CTL)' is no type that SinglePoint takes here.");
    ExpectSilence({"ConvertFile", "a", NGS, KML});
    ExpectSilence({"MultiPoint", "a", NGS, PRJ});
    ExpectSilence({"SinglePoint", "a", ByHand, ByHand});
}

// Search and replace and the tools look at no label: it serves the dialog, by the pattern at its end.
TEST_F(DefinitionCheck, TakesALabelOfOnesOwnWhereNoRoutineLooksAtIt) {
    ExpectSilence({"Replace", "a", "Field Books (*.FBK)", "Field Books (*.FBK)"});
    ExpectSilence({"LEVELIN.EXE", "a", "Level Files (*.GSI)", PRJ});
    ExpectSilence({"PTORDER.EXE", "a", CTL, "Any (*.*)"});
    for (const char* label :
         {"Field Books", "Field Books (FBK)", "Books (*.FBK) old", "(*.)", ")(*.FBK", ByHand})
        ExpectFault(
            {"Replace", "a", label, CTL}, "Input",
            ("'" + std::string(label) + "' does not end in a file pattern, as in 'Text Files (*.TXT)'.")
                .c_str());
}

TEST_F(DefinitionCheck, NamesTheSecondDefinitionOfOneChoice) {
    Put("y.kti", {"ConvertFile", "Copy", CTL, PAC});
    Put("z.kti", {"MultiPoint", "Copy", CTL, PAC});
    const Faults expected = {
        {"KTIFiles/z.kti", "", "Action",
         "'KTIFiles/y.kti' has the same input, action and output; one of the two is never chosen."}};
    EXPECT_EQ(CheckLibrary(), expected);
    // Letter case counts, and so does each of the three.
    Put("z.kti", {"ConvertFile", "copy", CTL, PAC});
    EXPECT_EQ(CheckLibrary(), Faults{});
    Put("z.kti", {"ConvertFile", "Copy", PAC, PAC});
    EXPECT_EQ(CheckLibrary(), Faults{});
}

TEST_F(DefinitionCheck, NamesADefinitionThatCanNotBeRead) {
    fs::create_symlink("/proc/self/mem", folder.File("KTIFiles/m.kti"));
    const Faults faults = CheckLibrary();
    ASSERT_EQ(faults.size(), 1U);
    EXPECT_EQ(faults[0].file, "KTIFiles/m.kti");
    EXPECT_TRUE(faults[0].text.starts_with("Device I/O error")) << faults[0].text;
}

}  // namespace
}  // namespace tarvek::test
