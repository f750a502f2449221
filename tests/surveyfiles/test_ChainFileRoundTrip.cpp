// Random points and chains go through points-and-chains, project, edited and calculated files: what the
// format carries comes back, and what it loses is lost exactly as it is told here.

#include "chainFamilies.hpp"
#include "platform/modText.hpp"
#include "randomRecords.hpp"

namespace tarvek::test {
namespace {

constexpr std::size_t Points = 1000;
constexpr std::size_t Chains = 200;

class ChainFileRoundTrip : public SurveyTest, public ::testing::WithParamInterface<ChainFamily> {
  protected:
    bool IsProject() const { return GetParam().read == ReadProjectFile; }

    // Writes the output tables and reads the file.
    void WriteAndRead() {
        ASSERT_TRUE(GetParam().write(folder.File("out")));
        ASSERT_TRUE(GetParam().read(folder.File("out")));
        ExpectNothingTold(prompts);
    }

    PointRecord Point() {
        PointRecord point = random.Point();
        point.GM = random.Letters(1);
        point.HorizontalControl = random.Toss();
        point.VerticalControl = random.Toss();
        point.IsGeographic = random.Toss();
        if (random.Toss()) point.AC = random.Toss() ? "OS" : "SS" + random.Letters(3);
        if (random.Toss()) point.GroupNumber = std::to_string(random.Whole(0, 99));
        point.GD = "GEOID99";
        point.FileSource = "a file";
        point.Unchained = false;
        return point;
    }

    std::string PointNames(long long count) {
        std::string names = random.Letters(8);
        while (--count > 0) names += "," + random.Letters(8);
        return names;
    }

    ChainRecord Chain() {
        ChainRecord chain;
        chain.PL = "PL:" + PointNames(random.Whole(1, 40));
        if (random.Toss()) chain.FE = random.Letters(6);
        if (random.Toss()) chain.CD = random.Letters(9) + (random.Toss() ? "\r\n" + random.Letters(9) : "");
        if (random.Toss()) chain.FG = random.Letters(4);
        if (random.Toss()) chain.CH = "CH:" + random.Letters(4) + (random.Toss() ? "\r\nCH:7" : "");
        if (random.Toss()) chain.Others = "ZQ:" + random.Letters(4) + (random.Toss() ? "\r\nQZ:" : "");
        if (random.Toss()) chain.GR = random.Letters(2);
        if (random.Toss()) chain.CL = random.Letters(2);
        chain.ChainName = "NAME";
        chain.Station = "10+00";
        chain.ChainSource = "a file";
        return chain;
    }

    // What the file makes of a point, but for the digits: plane coordinates of a geographic point, its being
    // one, and whatever has no tag.
    PointRecord Carried(const PointRecord& point, const Word& nextActivity) const {
        PointRecord carried = point;
        carried.HorizontalControl = IsProject() && point.HorizontalControl;
        // The tag of a plane point's elevation follows its other coordinates.
        carried.VerticalControl =
            IsProject() && (point.IsGeographic ? point.VerticalControl : point.HorizontalControl);
        if (point.IsGeographic) carried.X = carried.Y = NoValue;
        carried.AC = IsProject() ? nextActivity : Word();
        // The group number stands under the tag of the group, behind it.
        if (!IsProject() && !point.GroupNumber.empty()) carried.GR = point.GroupNumber;
        return carried;
    }

    static void ExpectCarried(const PointRecord& expected, const PointRecord& after) {
        ExpectPointKept(expected, after, true);
        EXPECT_EQ(after.HorizontalControl, expected.HorizontalControl);
        EXPECT_EQ(after.VerticalControl, expected.VerticalControl);
        EXPECT_EQ(after.AC.Text(), expected.AC.Text());
        EXPECT_FALSE(after.IsGeographic);
        EXPECT_TRUE(after.Unchained);
        EXPECT_TRUE(after.GroupNumber.empty());
        EXPECT_TRUE(after.GD.empty());
        EXPECT_TRUE(after.FileSource.empty());
    }

    // The names of a point list, whatever lines it stands in.
    static std::string NamesIn(const std::string& list) {
        return ReplaceAll(ReplaceAll(list, "\r\n", ""), "PL:", "");
    }

    void ExpectCarried(const ChainRecord& before, const ChainRecord& after) const {
        EXPECT_EQ(after.FE, before.FE);
        EXPECT_EQ(after.FG, before.FG);
        EXPECT_EQ(after.CH, before.CH);
        EXPECT_EQ(NamesIn(after.PL), NamesIn(before.PL));
        // A description stands without a tag, so that its lines are other lines.
        std::string others = before.CD;
        if (!before.Others.empty()) AppendLine(others, before.Others);
        EXPECT_EQ(after.Others, others);
        EXPECT_EQ(after.Pending, !IsProject());
        EXPECT_EQ(after.CD + after.GR + after.CL + after.ChainName + after.Station + after.ChainSource, "");
    }

    RandomRecords random;
};

INSTANTIATE_TEST_SUITE_P(Families, ChainFileRoundTrip, ::testing::ValuesIn(ChainFamilies), NameOfFamily);

TEST_P(ChainFileRoundTrip, GivesRandomPointsAndChainsBack) {
    SurveyTables& tables = Tables();
    tables.OutputHeader.System.HorizontalUnits = "Meters";
    for (std::size_t i = 0; i < Points; ++i) tables.OutputPoints.Append(Point());
    for (std::size_t i = 0; i < Chains; ++i) tables.OutputChains.Append(Chain());
    WriteAndRead();

    ASSERT_EQ(tables.InputPoints.size(), Points);
    ASSERT_EQ(tables.InputChains.size(), Chains);
    PointRecord last = Carried(tables.OutputPoints[Points - 1], {});
    for (const ChainRecord& chain : tables.OutputChains) {
        // Group and class of a chain go to the point that is still open, the last one.
        if (!chain.GR.empty()) last.GR = chain.GR;
        if (!chain.CL.empty()) last.CL = chain.CL;
    }
    for (std::size_t i = 0; i + 1 < Points && !HasFailure(); ++i) {
        SCOPED_TRACE(i);
        ExpectCarried(Carried(tables.OutputPoints[i], tables.OutputPoints[i + 1].AC), tables.InputPoints[i]);
    }
    ExpectCarried(last, tables.InputPoints[Points - 1]);
    for (std::size_t i = 0; i < Chains && !HasFailure(); ++i) {
        SCOPED_TRACE(i);
        ExpectCarried(tables.OutputChains[i], tables.InputChains[i]);
    }
}

TEST_P(ChainFileRoundTrip, PrintsTheLinesThatItRead) {
    std::string read;
    std::string printed;
    for (std::size_t i = 0; i < Points; ++i) {
        const bool isControl = IsProject() && random.Toss();
        const std::string lines = random.PointLines({isControl, true, true});
        const std::string activity = IsProject() ? "A" + random.Letters(4) : "PD";
        // In a project file each activity moves to the point before.
        const bool isShifted = IsProject() && i > 0;
        if (isShifted) printed.insert(printed.rfind("AC:\r\n") + 3, activity);
        read += "AC:" + activity + "\r\n" + lines;
        printed += (IsProject() ? "AC:\r\n" : "AC:PD\r\n") + lines;
    }
    std::string chains = "BG:BEGIN CHAIN LIST\r\n";
    for (std::size_t i = 0; i < Chains; ++i) {
        chains += "AC:CH\r\n";
        if (random.Toss()) chains += "FE:" + random.Letters(6) + "\r\n";
        if (random.Toss()) chains += "FG:" + random.Letters(6) + "\r\n";
        chains += "PL:" + PointNames(random.Whole(1, 8)) + "\r\n";  // 75 characters at most
        if (random.Toss()) chains += "CH:" + random.Letters(6) + "\r\n";
        if (random.Toss()) chains += "ZQ:" + random.Letters(6) + "\r\n";
    }
    chains += "EG:END CHAIN LIST\r\n";
    const std::string head = "PR:JOB\r\nAC:PR\r\nCM:note\r\n";
    const std::string system = "CS:SPC83\r\nZN:2600\r\nHD:NAD 83\r\nVD:NAVD 88\r\nUL:I\r\n";
    const std::string path = folder.Put("in", head + system + read + chains + "CP:01/01/2020 8:00:00\r\n");
    ASSERT_TRUE(GetParam().read(path));
    CopyInputToOutput();
    ASSERT_TRUE(GetParam().write(folder.File("out")));
    EXPECT_EQ(ReadBytes(folder.File("out")),
              head + system + ProgramAndDate() + printed + chains + "CP:02/02/2026 2:40:00\r\n");
    ExpectNothingTold(prompts);
}

TEST_P(ChainFileRoundTrip, HeaderComesBackInItsShortForm) {
    ProjectHeader& header = Tables().OutputHeader;
    header = {.PR = "PR:JOB",
              .HeaderLines = "CM:one\r\nRE:two",
              .System = {.CS = "VELCRS - Of the counties",
                         .ZN = "12 - Kite County",
                         .HD = "NAD 83",
                         .HorizontalUnits = "International Feet",
                         .VD = "None",
                         .VerticalUnits = "Meters"}};
    Tables().OutputPoints.Append({});
    WriteAndRead();
    const ProjectHeader& after = Tables().InputHeader;
    EXPECT_EQ(after.PR, "PR:JOB");
    EXPECT_EQ(after.HeaderLines, "CM:one\r\nRE:two\r\nCO:Kite County\r\nVR:Tarvek Translator " TARVEK_VERSION
                                 "\r\nDT:02/02/2026");
    EXPECT_EQ(after.System.CS, "VELCRS");
    EXPECT_EQ(after.System.ZN, "12");
    EXPECT_EQ(after.System.HD, "NAD 83");
    EXPECT_EQ(after.System.VD, "");
    EXPECT_EQ(after.System.HorizontalUnits, "International Feet");
    EXPECT_EQ(after.System.VerticalUnits, "International Feet");
}

TEST_P(ChainFileRoundTrip, SecondRoundChangesNothingMoreButTheActivities) {
    SurveyTables& tables = Tables();
    tables.OutputHeader.System.HorizontalUnits = "Meters";
    for (std::size_t i = 0; i < Points; ++i) tables.OutputPoints.Append(Point());
    WriteAndRead();
    CopyInputToOutput();
    WriteAndRead();
    for (std::size_t i = 0; i < Points && !HasFailure(); ++i) {
        SCOPED_TRACE(i);
        const PointRecord& before = tables.OutputPoints[i];
        const PointRecord& after = tables.InputPoints[i];
        ExpectPointKept(before, after);
        EXPECT_EQ(after.Y, before.Y);
        EXPECT_EQ(after.HE, before.HE);
        EXPECT_EQ(after.HorizontalControl, before.HorizontalControl);
        const bool isLast = i + 1 == Points;
        EXPECT_EQ(after.AC.Text(), isLast ? "" : tables.OutputPoints[i + 1].AC.Text());
    }
}

}  // namespace
}  // namespace tarvek::test
