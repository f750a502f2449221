// Random points go through a control file and come back as they were, to the digits that the file carries.

#include "randomRecords.hpp"

namespace tarvek {
namespace {

using test::ExpectNothingTold;

constexpr int Points = 2000;

class ControlFileRoundTrip : public test::SurveyTest {
  protected:
    test::RandomRecords random;
};

TEST_F(ControlFileRoundTrip, GivesRandomPointsBack) {
    Tables().OutputHeader.System.HorizontalUnits = "Meters";
    for (int i = 0; i < Points; ++i) Tables().OutputPoints.Append(random.Point());
    ASSERT_TRUE(ReadBytesAsControlFile(Written()));
    ExpectNothingTold(prompts);
    ASSERT_EQ(Tables().InputPoints.size(), static_cast<std::size_t>(Points));
    for (std::size_t i = 0; i < Points; ++i) {
        SCOPED_TRACE(i);
        test::ExpectPointKept(Tables().OutputPoints[i], Tables().InputPoints[i]);
        if (HasFailure()) return;
    }
}

TEST_F(ControlFileRoundTrip, PrintsTheDigitsThatItRead) {
    std::string points;
    for (int i = 0; i < Points; ++i) points += "AC:OS\r\n" + random.PointLines({});
    ASSERT_TRUE(ReadBytesAsControlFile("AC:PR\r\nUL:F\r\n" + points));
    CopyInputToOutput();
    EXPECT_EQ(Written(), "AC:PR\r\nUL:F\r\n" + ProgramAndDate() + points);
    ExpectNothingTold(prompts);
}

}  // namespace
}  // namespace tarvek
