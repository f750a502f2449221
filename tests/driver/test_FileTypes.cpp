// The kinds of survey file: found by label, by key and by extension.

#include "driver/modFileTypes.hpp"

#include <gtest/gtest.h>

#include "foreignfiles/modNGSFiles.hpp"
#include "library/modTranslatorNames.hpp"
#include "surveyfiles/modTarvekFiles.hpp"

namespace tarvek {
namespace {

TEST(FileTypes, AreFoundByTheirWholeLabel) {
    for (const char* label :
         {"NGS Data Sheets (*.TXT)", "NGS Data Sheets (*.HTM)", "NGS Data Sheets (*.DAT)"}) {
        const FileType* type = FileTypeOfLabel(label);
        ASSERT_NE(type, nullptr) << label;
        EXPECT_EQ(type->label, label);
        EXPECT_EQ(type->key, "ngs");
        EXPECT_EQ(type->read, ReadNGSFile);
        EXPECT_EQ(type->write, nullptr);
    }
    const FileType* control = FileTypeOfLabel("Tarvek Control Files (*.CTL)");
    ASSERT_NE(control, nullptr);
    EXPECT_EQ(control->key, "ctl");
    EXPECT_EQ(control->read, ReadControlFile);
    EXPECT_EQ(control->write, WriteControlFile);
    const FileType* pointsAndChains = FileTypeOfLabel("Tarvek Points and Chains Files (*.PAC)");
    ASSERT_NE(pointsAndChains, nullptr);
    EXPECT_EQ(pointsAndChains->read, ReadPointsAndChainsFile);
    EXPECT_EQ(pointsAndChains->write, WritePointsAndChainsFile);
}

TEST(FileTypes, ProjectFilesAreWrittenOnlyAfterAConversion) {
    for (const char* label : {"Tarvek Project Files (*.PRJ)", "Tarvek Edited Project Files (*.EDI)",
                              "Tarvek Calculated Files (*.CAL)"}) {
        const FileType* type = FileTypeOfLabel(label);
        ASSERT_NE(type, nullptr) << label;
        EXPECT_EQ(type->read, ReadProjectFile);
        EXPECT_EQ(type->write, nullptr);
        EXPECT_EQ(type->writeConverted, WriteProjectFile);
    }
}

TEST(FileTypes, AreNotFoundByAnyOtherLabel) {
    for (const char* label :
         {"", "ctl", "Tarvek Control Files (*.ctl)", "Tarvek Control Files (*.CTL) ", "Tarvek Control Files",
          "ngs data sheets (*.TXT)", "Coordinate Conversion Manual Entry"})
        EXPECT_EQ(FileTypeOfLabel(label), nullptr) << label;
}

TEST(FileTypes, AreFoundByTheirKeyInAnyCase) {
    ASSERT_NE(FileTypeOfKey("ctl"), nullptr);
    EXPECT_EQ(FileTypeOfKey("ctl")->label, "Tarvek Control Files (*.CTL)");
    EXPECT_EQ(FileTypeOfKey("CtL"), FileTypeOfKey("ctl"));
    ASSERT_NE(FileTypeOfKey("ngs"), nullptr);
    EXPECT_EQ(FileTypeOfKey("ngs")->read, ReadNGSFile);
    for (const char* key : {"", " ctl", "ct", "ctl ", "*"}) EXPECT_EQ(FileTypeOfKey(key), nullptr) << key;
}

TEST(FileTypes, AreFoundByTheExtensionOfAPath) {
    const std::pair<const char*, const char*> paths[] = {
        {"a.ctl", "Tarvek Control Files (*.CTL)"},
        {"/x/y.z/A.CTL", "Tarvek Control Files (*.CTL)"},
        {"C:\\My Files\\a.Ctl", "Tarvek Control Files (*.CTL)"},
        {".ctl", "Tarvek Control Files (*.CTL)"},
        {"a.txt", "NGS Data Sheets (*.TXT)"},
        {"a.b.HTM", "NGS Data Sheets (*.HTM)"},
        {"sheet.dat", "NGS Data Sheets (*.DAT)"}};
    for (const auto& [path, label] : paths) {
        ASSERT_NE(FileTypeOfPath(path), nullptr) << path;
        EXPECT_EQ(FileTypeOfPath(path)->label, label) << path;
    }
}

TEST(FileTypes, AreNotGuessedFromOtherPaths) {
    for (const char* path :
         {"", "a", "ctl", "a.", "a.ctlx", "a.ct", "folder.ctl/a", "folder.ctl\\a", "a.ctl "})
        EXPECT_EQ(FileTypeOfPath(path), nullptr) << path;
}

// What `tarvek check` expects a definition to name is what the types can do.
TEST(FileTypes, DoWhatDefinitionsAreCheckedFor) {
    std::size_t known = 0;
    for (const TypeLabel& label : TypeLabels()) {
        const FileType* const type = FileTypeOfLabel(label.label);
        if (type == nullptr) continue;
        ++known;
        EXPECT_EQ(type->read != nullptr, (label.roles & Readable) != 0) << label.label;
        EXPECT_EQ(type->write != nullptr, (label.roles & Writable) != 0) << label.label;
        EXPECT_EQ(type->writeConverted != nullptr, (label.roles & WritableConverted) != 0) << label.label;
    }
    EXPECT_GE(known, 8U);
}

// Every key of a help text can be used, and comes once.
void ExpectKeysThatWork(const std::string& keys, FileRoutine FileType::*routine) {
    std::string seen = " ";
    std::string rest = keys + " ";
    for (std::size_t end; (end = rest.find(' ')) != std::string::npos; rest.erase(0, end + 1)) {
        const std::string key = rest.substr(0, end);
        ASSERT_NE(FileTypeOfKey(key), nullptr) << key;
        EXPECT_NE(FileTypeOfKey(key)->*routine, nullptr) << key;
        EXPECT_EQ(seen.find(" " + key + " "), std::string::npos) << key;
        seen += key + " ";
    }
}

TEST(FileTypes, NameTheKeysForHelpTexts) {
    ExpectKeysThatWork(KeysWith(&FileType::read), &FileType::read);
    ExpectKeysThatWork(KeysWith(&FileType::write), &FileType::write);
    EXPECT_NE((" " + KeysWith(&FileType::read) + " ").find(" ngs "), std::string::npos);
    EXPECT_EQ((" " + KeysWith(&FileType::write) + " ").find(" ngs "), std::string::npos);
}

}  // namespace
}  // namespace tarvek
