#include "platform/modText.hpp"
#include "surveyTest.hpp"

namespace tarvek::test {
namespace {

class ProjectFile : public SurveyTest {
  protected:
    bool Read(const std::string& lines) {
        return ReadProjectFile(folder.Put("in.prj", ReplaceAll(lines, "\n", "\r\n")));
    }
    std::string Written() {
        EXPECT_TRUE(WriteProjectFile(folder.File("out.prj")));
        return ReplaceAll(ReadBytes(folder.File("out.prj")), "\r\n", "\n");
    }

    SurveyTables& tables = Tables();
};

const std::string Head = "AC:PR\nVR:Tarvek Translator " TARVEK_VERSION "\nDT:02/02/2026\n";

TEST_F(ProjectFile, ActivitiesMoveOnePointUpAndTheLastIsBare) {
    ASSERT_TRUE(Read("AC:PR\nAC:OS\nPN:1\nAC:SS\nPN:2\nAC:BS1\nPN:3\n"));
    ASSERT_EQ(tables.InputPoints.size(), 3U);
    EXPECT_EQ(tables.InputPoints[0].AC, "SS");
    EXPECT_EQ(tables.InputPoints[1].AC, "BS1");
    EXPECT_TRUE(tables.InputPoints[2].AC.empty());
    CopyInputToOutput();
    const std::string point = "YY:-99999.0000\nXX:-99999.0000\nZZ:-99999.0000\nGM:P\n";
    EXPECT_EQ(Written(), Head + "AC:SS\nPN:1\n" + point + "AC:BS1\nPN:2\n" + point + "AC:\nPN:3\n" + point);
}

TEST_F(ProjectFile, LastCoordinateLineSetsTheControlFlag) {
    ASSERT_TRUE(Read("AC:PR\nAC:OS\nPN:1\nXC:1\nYY:2\nZC:3\nAC:OS\nPN:2\nYY:2\nXC:1\nZC:3\nZZ:4\n"));
    EXPECT_FALSE(tables.InputPoints[0].HorizontalControl);
    EXPECT_TRUE(tables.InputPoints[0].VerticalControl);
    EXPECT_TRUE(tables.InputPoints[1].HorizontalControl);
    EXPECT_FALSE(tables.InputPoints[1].VerticalControl);
}

TEST_F(ProjectFile, ElevationTagOfAPlanePointFollowsItsHorizontalCoordinates) {
    ASSERT_TRUE(Read("AC:PR\nAC:OS\nPN:1\nXX:1\nYY:2\nZC:3\nAC:OS\nPN:2\nXC:1\nYC:2\nZZ:3\n"));
    CopyInputToOutput();
    EXPECT_EQ(Written(), Head +
                             "AC:OS\nPN:1\nYY:2.0000\nXX:1.0000\nZZ:3.0000\nGM:P\n"
                             "AC:\nPN:2\nYC:2.0000\nXC:1.0000\nZC:3.0000\nGM:P\n");
}

TEST_F(ProjectFile, GeographicPointChoosesEachTagByItsOwnFlag) {
    PointRecord point;
    point.IsGeographic = true;
    point.HorizontalControl = true;
    tables.OutputPoints.Append(point);
    point.HorizontalControl = false;
    point.VerticalControl = true;
    tables.OutputPoints.Append(point);
    point.Z = 1.5;
    tables.OutputPoints.Append(point);
    point.HorizontalControl = true;
    point.VerticalControl = false;
    tables.OutputPoints.Append(point);
    EXPECT_EQ(Written(), Head +
                             "AC:\nPN:\nYC:-99999\nXC:-99999\nZZ:-99999\nGM:P\n"
                             "AC:\nPN:\nYY:-99999\nXX:-99999\nZC:-99999\nGM:P\n"
                             "AC:\nPN:\nYY:-99999\nXX:-99999\nZC:1.5000\nGM:P\n"
                             "AC:\nPN:\nYC:-99999\nXC:-99999\nZZ:1.5000\nGM:P\n");
}

TEST_F(ProjectFile, GeographicSetPrintsItsPositionsWhateverTheOptionsSay) {
    tables.CoordinatesConverted = true;
    tables.OutputHeader.System.HorizontalUnits = "DDD.MMSSssss";
    PointRecord point;
    point.LT = 0.5;
    point.LG = 1.5;
    tables.OutputPoints.Append(point);
    EXPECT_EQ(Written().find("LT:"), std::string::npos);
    tables.OutputHeader.System.CS = GeographicSystem;
    const std::string text = Written();
    // 0.5 rad is 28.647889757 degrees to 9 decimals, 28 38 52.4031252; 1.5 rad is 85.943669270, 85
    // 56 37.209372.
    EXPECT_NE(text.find("LT:28.385240313\nLG:85.563720937\n"), std::string::npos) << text;
    ExpectNothingTold(prompts);
}

TEST_F(ProjectFile, BlankLineIsRefusedInTheWordsOfTheOtherFamily) {
    EXPECT_FALSE(Read("AC:PR\n\nAC:OS\n"));
    ExpectToldOnly(prompts,
                   "Invalid Tarvek File '" + folder.File("in.prj") +
                       "'.\nError on line 2.\nAn Tarvek Points and Chains File can not contain blank lines.",
                   "Invalid Tarvek File");
}

TEST_F(ProjectFile, FieldFaultsBearTheFamilysNameButForControlElevations) {
    const std::tuple<const char*, const char*, const char*> faults[] = {
        {"PN:123456789", "Point Name can not exceeed 8 characters.", "Invalid Tarvek File"},
        {"XX:A", "Easting Coordinate must be numeric.", "Invalid Tarvek File"},
        {"XC:A", "Easting Coordinate must be numeric.", "Invalid Tarvek File"},
        {"YY:A", "Northing Coordinate must be numeric.", "Invalid Tarvek File"},
        {"YC:A", "Northing Coordinate must be numeric.", "Invalid Tarvek File"},
        {"ZZ:A", "Elevation Coordinate must be numeric.", "Invalid Tarvek File"},
        {"ZC:A", "Elevation Coordinate must be numeric.", "Invalid File"},
        {"SX:A", "Easting Error Estimate must be numeric.", "Invalid Tarvek File"},
        {"SY:A", "Northing Error Estimate must be numeric.", "Invalid Tarvek File"},
        {"SZ:A", "Elevation Error Estimate must be numeric.", "Invalid Tarvek File"},
        {"LT:A", "Latitude must be numeric.", "Invalid Tarvek File"},
        {"LG:A", "Longitude must be numeric.", "Invalid Tarvek File"},
        {"HE:A", "Ellipsoid Height must be numeric.", "Invalid Tarvek File"},
        {"HG:A", "Geoid Height must be numeric.", "Invalid Tarvek File"},
        {"SF:A", "Scale Factor must be numeric.", "Invalid Tarvek File"},
        {"CA:A", "Convergance Angle must be numeric.", "Invalid Tarvek File"},
    };
    for (const auto& [line, reason, caption] : faults) {
        prompts.told.clear();
        EXPECT_FALSE(Read(std::string("AC:PR\nAC:OS\n") + line + "\n"));
        ExpectToldOnly(prompts,
                       "Invalid Tarvek File: '" + folder.File("in.prj") + "'\nError on Line: 3\n" + reason,
                       caption);
    }
}

TEST_F(ProjectFile, ChainIsNotMarkedPending) {
    ASSERT_TRUE(Read("AC:PR\nAC:OS\nPN:1\nHE:1234.56789\nAC:CH\nPL:1,2\nEG:END CHAIN LIST\n"));
    ASSERT_EQ(tables.InputChains.size(), 1U);
    EXPECT_FALSE(tables.InputChains[0].Pending);
    EXPECT_EQ(tables.InputPoints[0].HE, static_cast<double>(1234.56789F));
    CopyInputToOutput();
    EXPECT_NE(
        Written().find("BG:BEGIN CHAIN LIST\nAC:CH\nPL:1,2\nEG:END CHAIN LIST\nCP:02/02/2026 2:40:00\n"),
        std::string::npos);
}

TEST_F(ProjectFile, SetFromAControlFileOpensEveryPointWithABareActivity) {
    ASSERT_TRUE(ReadControlFile(
        folder.Put("in.ctl", "AC:PR\r\nAC:OS\r\nPN:1\r\nYC:1\r\nXC:2\r\nZC:3\r\nAC:OS\r\nPN:2\r\n")));
    CopyInputToOutput();
    const std::string text = Written();
    EXPECT_NE(text.find("AC:\nPN:1\nYC:1.0000\nXC:2.0000\nZC:3.0000\n"), std::string::npos) << text;
    EXPECT_NE(text.find("AC:\nPN:2\n"), std::string::npos) << text;
}

}  // namespace
}  // namespace tarvek::test
