#include "platform/modText.hpp"
#include "surveyTest.hpp"

namespace tarvek::test {
namespace {

class PointsAndChainsFile : public SurveyTest {
  protected:
    bool Read(const std::string& lines) {
        return ReadPointsAndChainsFile(folder.Put("in.pac", ReplaceAll(lines, "\n", "\r\n")));
    }
    std::string Written() {
        CopyInputToOutput();
        EXPECT_TRUE(WritePointsAndChainsFile(folder.File("out.pac")));
        return ReplaceAll(ReadBytes(folder.File("out.pac")), "\r\n", "\n");
    }

    SurveyTables& tables = Tables();
};

const std::string Stamp = "VR:Tarvek Translator " TARVEK_VERSION "\nDT:02/02/2026\n";

TEST_F(PointsAndChainsFile, ComputedCoordinatesClearTheControlFlags) {
    ASSERT_TRUE(Read("AC:PR\nAC:PD\nPN:1\nYY:10\nXX:20\nZZ:30\n"));
    const PointRecord& point = tables.InputPoints[0];
    EXPECT_EQ(point.Y, 10);
    EXPECT_EQ(point.X, 20);
    EXPECT_EQ(point.Z, 30);
    EXPECT_FALSE(point.HorizontalControl);
    EXPECT_FALSE(point.VerticalControl);
    ExpectNothingTold(prompts);
}

TEST_F(PointsAndChainsFile, ControlCoordinateIsRefused) {
    for (const char* tag : {"XC:", "YC:", "ZC:"}) {
        prompts.told.clear();
        EXPECT_FALSE(Read(std::string("AC:PR\nAC:PD\n") + tag + "1\n"));
        ExpectToldOnly(
            prompts,
            "Invalid Tarvek Points and Chains File '" + folder.File("in.pac") +
                "'.\nError on line 3.\nAn Tarvek Points and Chains File can not contain control coordinates.",
            "Invalid Tarvek Points and Chains File");
    }
    EXPECT_FALSE(tables.InputPoints.IsAllocated());
}

TEST_F(PointsAndChainsFile, BlankLineIsRefused) {
    EXPECT_FALSE(Read("AC:PR\n  \nAC:PD\n"));
    ExpectToldOnly(prompts,
                   "Invalid Tarvek Points and Chains File '" + folder.File("in.pac") +
                       "'.\nError on line 2.\nAn Tarvek Points and Chains File can not contain blank lines.",
                   "Invalid Tarvek Points and Chains File");
}

TEST_F(PointsAndChainsFile, FieldFaultsBearTheFamilysName) {
    const std::pair<const char*, const char*> faults[] = {
        {"PN:123456789", "Point Name can not exceeed 8 characters."},
        {"XX:A", "Easting Coordinate must be numeric."},
        {"YY:", "Northing Coordinate must be numeric."},
        {"ZZ:1,5", "Elevation Coordinate must be numeric."},
        {"HE:nan", "Ellipsoid Height must be numeric."},
    };
    for (const auto& [line, reason] : faults) {
        prompts.told.clear();
        EXPECT_FALSE(Read(std::string("AC:PR\nAC:PD\n") + line + "\n"));
        ExpectToldOnly(prompts,
                       "Invalid Tarvek Points and Chains File: '" + folder.File("in.pac") +
                           "'\nError on Line: 3\n" + reason,
                       "Invalid Tarvek Points and Chains File");
    }
}

TEST_F(PointsAndChainsFile, EllipsoidHeightKeepsSinglePrecisionOnly) {
    ASSERT_TRUE(Read("AC:PR\nAC:PD\nPN:1\nHE:1234.56789\n"));
    EXPECT_EQ(tables.InputPoints[0].HE, static_cast<double>(1234.56789F));
    EXPECT_NE(tables.InputPoints[0].HE, 1234.56789);
}

TEST_F(PointsAndChainsFile, ChainLinesGoToTheChainAndPointLinesToThePendingPoint) {
    ASSERT_TRUE(Read(
        "AC:PR\nAC:PD\nPN:1\nCL:A\nGR:1\nAC:CH\nFE:EDGE\nCD:first\nCD:second\nFG:OLD\nFG:NEW\nPL:1,2\nPL:3\n"
        "CH:10\nCH:20\nZQ:kept\nCL:B\nGR:2\nPD:words\nGM:L\n"));
    ASSERT_EQ(tables.InputChains.size(), 1U);
    const ChainRecord& chain = tables.InputChains[0];
    EXPECT_EQ(chain.FE, "EDGE");
    EXPECT_EQ(chain.CD, "first\r\nsecond");
    EXPECT_EQ(chain.FG, "NEW");
    EXPECT_EQ(chain.PL, "PL:1,2\r\nPL:3");
    EXPECT_EQ(chain.CH, "CH:10\r\nCH:20");
    EXPECT_EQ(chain.Others, "ZQ:kept");
    EXPECT_TRUE(chain.Pending);
    EXPECT_TRUE(chain.CL.empty());
    EXPECT_TRUE(chain.GR.empty());
    ASSERT_EQ(tables.InputPoints.size(), 1U);
    const PointRecord& point = tables.InputPoints[0];
    EXPECT_EQ(point.CL, "B");
    EXPECT_EQ(point.GR, "2");
    EXPECT_EQ(point.PD, "PD:words");
    EXPECT_EQ(point.GM, "L");
    EXPECT_TRUE(point.FE.empty());
}

TEST_F(PointsAndChainsFile, OpenChainIsKeptAtTheEndOfTheFile) {
    ASSERT_TRUE(Read("AC:PR\nAC:PD\nPN:1\nBG:BEGIN CHAIN LIST\nAC:CH\nPL:1,2\n"));
    ASSERT_EQ(tables.InputChains.size(), 1U);
    EXPECT_EQ(tables.InputChains[0].PL, "PL:1,2");
}

TEST_F(PointsAndChainsFile, TwoChainLinesInARowKeepBothChains) {
    ASSERT_TRUE(
        Read("AC:PR\nAC:PD\nPN:1\nAC:CH\nPL:1,2\nAC:CH\nFE:X\nEG:END CHAIN LIST\nCP:01/01/2020 1:00:00\n"));
    ASSERT_EQ(tables.InputChains.size(), 2U);
    EXPECT_EQ(tables.InputChains[0].PL, "PL:1,2");
    EXPECT_EQ(tables.InputChains[1].FE, "X");
    EXPECT_TRUE(tables.InputChains[1].PL.empty());
}

TEST_F(PointsAndChainsFile, StrayEndAppendsTheRecordBeingBuilt) {
    ASSERT_TRUE(Read("AC:PR\nAC:PD\nPN:1\nEG:END CHAIN LIST\n"));
    ASSERT_EQ(tables.InputChains.size(), 1U);
    EXPECT_TRUE(tables.InputChains[0].PL.empty());
}

TEST_F(PointsAndChainsFile, ChainLeavesTheHeaderAndThePendingPointOpen) {
    ASSERT_TRUE(Read("AC:PR\nCM:head\nAC:CH\nPL:1\nCM:in chain\nEG:\nPN:7\n"));
    ASSERT_EQ(tables.InputPoints.size(), 1U);
    EXPECT_EQ(tables.InputPoints[0].PN, "7");
    EXPECT_EQ(tables.InputHeader.HeaderLines, "CM:head");
    EXPECT_EQ(tables.InputChains[0].Others, "CM:in chain");
}

TEST_F(PointsAndChainsFile, FileWithoutChainLeavesTheListUnallocatedAndPrintsNoBlock) {
    ASSERT_TRUE(Read("AC:PR\nUL:M\nAC:PD\nPN:1\nYY:1\nXX:2\nZZ:3\n"));
    EXPECT_FALSE(tables.InputChains.IsAllocated());
    EXPECT_EQ(Written(), "AC:PR\nUL:M\n" + Stamp + "AC:PD\nPN:1\nYY:1.0000\nXX:2.0000\nZZ:3.0000\nGM:P\n");
}

TEST_F(PointsAndChainsFile, EveryLineOfAPointAndAChainInItsPlace) {
    ASSERT_TRUE(Read(
        "PR:JOB\nAC:PR\nCM:note\nUL:F\nAC:PD\nPN:1\nYY:1\nXX:2\nZZ:3\nLT:41.30\nLG:96.30\nHE:12.5\nPD:"
        "pin\nFE:IP\n"
        "GM:P\nHG:-20.25\nSF:0.9996\nCA:1.30\nGR:4\nCL:K\nZQ:other\nSY:0.1\nSX:0.2\nSZ:0.3\n"
        "BG:BEGIN CHAIN LIST\nAC:CH\nFE:EDGE\nCD:words\nFG:F1\nPL:1,2\nCH:1\nQZ:more\nEG:END CHAIN LIST\n"));
    tables.InputPoints.Change(0).GroupNumber = "12";
    EXPECT_EQ(
        Written(),
        "PR:JOB\nAC:PR\nCM:note\nUL:F\n" + Stamp +
            "AC:PD\nPN:1\nYY:1.0000\nXX:2.0000\nZZ:3.0000\nLT:41.300000000\nLG:96.300000000\nHE:12.500\nPD:"
            "pin\n"
            "FE:IP\nGM:P\nHG:-20.250\nSF:0.99960000\nCA:1.30000\nGR:4\nGR:12\nCL:K\nZQ:other\nSY:0.1000\n"
            "SX:0.2000\nSZ:0.3000\nBG:BEGIN CHAIN LIST\nAC:CH\nFE:EDGE\nwords\nFG:F1\nPL:1,2\nCH:1\nQZ:more\n"
            "EG:END CHAIN LIST\nCP:02/02/2026 2:40:00\n");
}

TEST_F(PointsAndChainsFile, GeographicPointHasLiteralPlaneLines) {
    tables.OutputPoints = {};
    PointRecord point;
    point.IsGeographic = true;
    tables.OutputPoints.Append(point);
    point.Z = 12;
    tables.OutputPoints.Append(point);
    ASSERT_TRUE(WritePointsAndChainsFile(folder.File("out.pac")));
    EXPECT_EQ(ReplaceAll(ReadBytes(folder.File("out.pac")), "\r\n", "\n"),
              "AC:PR\n" + Stamp +
                  "AC:PD\nPN:\nYY:-99999\nXX:-99999\nZZ:-99999\nGM:P\n"
                  "AC:PD\nPN:\nYY:-99999\nXX:-99999\nZZ:12.0000\nGM:P\n");
}

TEST_F(PointsAndChainsFile, ChainWithoutPointsPrintsAnEmptyLineThatTheReaderRefuses) {
    ASSERT_TRUE(Read("AC:PR\nAC:PD\nPN:1\nAC:CH\nFE:X\n"));
    EXPECT_NE(Written().find("AC:CH\nFE:X\n\nEG:END CHAIN LIST\n"), std::string::npos);
    EXPECT_FALSE(ReadPointsAndChainsFile(folder.File("out.pac")));
    ASSERT_EQ(prompts.told.size(), 1U);
}

TEST_F(PointsAndChainsFile, WrittenFileReadsBackWithItsPointsAndChainsButDescriptionsLoseTheirTag) {
    std::string lines = "AC:PR\nUL:M\n";
    for (int i = 1; i <= 700; ++i) lines += "AC:PD\nPN:" + std::to_string(i) + "\nYY:1\nXX:2\nZZ:3\n";
    for (int i = 1; i <= 40; ++i) lines += "AC:CH\nCD:chain\nPL:1,2\n";
    ASSERT_TRUE(Read(lines));
    Written();
    ASSERT_TRUE(ReadPointsAndChainsFile(folder.File("out.pac")));
    EXPECT_EQ(tables.InputPoints.size(), 700U);
    ASSERT_EQ(tables.InputChains.size(), 40U);
    EXPECT_TRUE(tables.InputChains[5].CD.empty());
    EXPECT_EQ(tables.InputChains[5].Others, "chain");
}

}  // namespace
}  // namespace tarvek::test
