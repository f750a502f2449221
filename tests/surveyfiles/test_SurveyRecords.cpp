// The record model: empty states, the marker for no value, and the tables of the process.

#include "surveyfiles/modSurveyRecords.hpp"

#include "surveyTest.hpp"

namespace tarvek {
namespace {

using test::SurveyTest;

// A point with every member away from its empty state.
PointRecord FullPoint() {
    PointRecord point;
    point.PN = "P1";
    point.PD = "PD:text";
    point.Others = "CM:text";
    for (Word PointRecord::*word :
         {&PointRecord::Reserved1, &PointRecord::GM, &PointRecord::CL, &PointRecord::FE,
          &PointRecord::GroupNumber, &PointRecord::Reserved3, &PointRecord::GD, &PointRecord::FileSource,
          &PointRecord::HorizontalUnits, &PointRecord::VerticalUnits, &PointRecord::LatDir,
          &PointRecord::LongDir, &PointRecord::AC, &PointRecord::Reserved4, &PointRecord::GR})
        point.*word = "full";
    for (double PointRecord::*number :
         {&PointRecord::Y, &PointRecord::X, &PointRecord::Z, &PointRecord::LT, &PointRecord::LG,
          &PointRecord::HE, &PointRecord::HG, &PointRecord::CA, &PointRecord::SF})
        point.*number = 1.5;
    point.SY = point.SX = point.SZ = 1.5F;
    point.IsGeographic = point.HorizontalControl = point.VerticalControl = true;
    point.Unchained = false;
    return point;
}

void ExpectEmptyPoint(const PointRecord& point) {
    EXPECT_EQ(point.PN, "");
    EXPECT_EQ(point.PD, "");
    EXPECT_EQ(point.Others, "");
    EXPECT_EQ(point.GM, "P");
    EXPECT_EQ(point.LatDir, "N");
    EXPECT_EQ(point.LongDir, "W");
    for (Word PointRecord::*word :
         {&PointRecord::Reserved1, &PointRecord::CL, &PointRecord::FE, &PointRecord::GroupNumber,
          &PointRecord::Reserved3, &PointRecord::GD, &PointRecord::FileSource, &PointRecord::HorizontalUnits,
          &PointRecord::VerticalUnits, &PointRecord::AC, &PointRecord::Reserved4, &PointRecord::GR})
        EXPECT_TRUE((point.*word).empty());
    for (double PointRecord::*number :
         {&PointRecord::Y, &PointRecord::X, &PointRecord::Z, &PointRecord::LT, &PointRecord::LG,
          &PointRecord::HE, &PointRecord::HG, &PointRecord::CA, &PointRecord::SF})
        EXPECT_EQ(point.*number, -99999.0);
    for (float PointRecord::*single : {&PointRecord::SY, &PointRecord::SX, &PointRecord::SZ})
        EXPECT_EQ(point.*single, -99999.0F);
    EXPECT_FALSE(point.IsGeographic);
    EXPECT_TRUE(point.Unchained);
    EXPECT_FALSE(point.HorizontalControl);
    EXPECT_FALSE(point.VerticalControl);
}

TEST(PointRecord, IsEmptyWhenFresh) { ExpectEmptyPoint(PointRecord()); }

TEST(PointRecord, IsEmptyAgainAfterInitPoint) {
    PointRecord point = FullPoint();
    InitPoint(point);
    ExpectEmptyPoint(point);
}

TEST(NoValue, IsOneExactNumberInBothWidths) {
    EXPECT_FALSE(HasValue(-99999.0));
    EXPECT_FALSE(HasValue(-99999.0F));
    EXPECT_TRUE(HasValue(-99998.99999999999));
    EXPECT_TRUE(HasValue(-99999.01F));
    EXPECT_TRUE(HasValue(-100000.0));
    EXPECT_TRUE(HasValue(0.0));
    EXPECT_STREQ(NoValueText, "-99999");
}

TEST(GeographicSystemName, IsTheNameOfTheLibrary) {
    EXPECT_EQ(GeographicSystem, "GCS - Geographic Coordinates");
}

TEST_F(SurveyTest, ClearsEveryMemberOfTheInputTables) {
    SurveyTables& tables = Tables();
    tables.InputHeader = {"PR:x", "CM:x", {"CS", "ZN", "HD", "Meters", "VD", "Meters"}};
    tables.InputPoints.Append(FullPoint());
    tables.InputChains.Append(test::ChainNamed("C1"));
    tables.OutputHeader.PR = "PR:kept";
    ClearInputTables();
    EXPECT_EQ(tables.InputHeader.PR + tables.InputHeader.HeaderLines, "");
    const CoordSystemRef& system = tables.InputHeader.System;
    EXPECT_EQ(system.CS + system.ZN + system.HD + system.HorizontalUnits + system.VD + system.VerticalUnits,
              "");
    EXPECT_FALSE(tables.InputPoints.IsAllocated());
    EXPECT_FALSE(tables.InputChains.IsAllocated());
    EXPECT_EQ(tables.OutputHeader.PR, "PR:kept");
}

TEST_F(SurveyTest, CopiesTheInputTablesToTheOutput) {
    SurveyTables& tables = Tables();
    tables.InputHeader.System.CS = "VELCRS";
    tables.InputPoints.Append(FullPoint());
    tables.InputChains.Append(test::ChainNamed("C1"));
    CopyInputToOutput();
    EXPECT_EQ(tables.OutputHeader.System.CS, "VELCRS");
    ASSERT_EQ(tables.OutputPoints.size(), 1U);
    EXPECT_EQ(tables.OutputPoints[0].PN, "P1");
    ASSERT_EQ(tables.OutputChains.size(), 1U);
    EXPECT_EQ(tables.OutputChains[0].ChainName, "C1");
    EXPECT_FALSE(tables.CoordinatesConverted);
}

TEST_F(SurveyTest, ChangingTheOutputLeavesTheInput) {
    SurveyTables& tables = Tables();
    tables.InputPoints.Append(FullPoint());
    CopyInputToOutput();
    tables.OutputPoints.Change(0).Y = 7;
    EXPECT_EQ(tables.OutputPoints[0].Y, 7);
    EXPECT_EQ(tables.InputPoints[0].Y, 1.5);
}

TEST_F(SurveyTest, CopiesAnUnallocatedChainListAsIt) {
    Tables().InputPoints.Append({});
    Tables().OutputChains.Append({});
    CopyInputToOutput();
    EXPECT_FALSE(Tables().OutputChains.IsAllocated());
}

TEST_F(SurveyTest, CopyingPointsThatNobodyReadIsASubscriptFault) {
    Tables().OutputPoints.Append(FullPoint());
    EXPECT_EQ(test::FaultOf(CopyInputToOutput), Fault::SubscriptOutOfRange);
}

}  // namespace
}  // namespace tarvek
