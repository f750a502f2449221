#include "platform/modClock.hpp"

#include <ctime>

#include "environment.hpp"
#include "support/testSupport.hpp"

namespace tarvek {
namespace {

using test::Variable;

TEST(Clock, HonoursSourceDateEpochInUtc) {
    const Variable zone("TZ", "America/Chicago");
    ::tzset();
    const Variable epoch("SOURCE_DATE_EPOCH", "1000000000");  // 2001-09-09T01:46:40Z
    EXPECT_EQ(DateTimeText(Now()), "09/09/2001 1:46:40");
    EXPECT_EQ(DateText(Now()), "09/09/2001");
}

TEST(Clock, KnowsLeapDaysAndTheEndsOfItsRange) {
    const char* const table[][2] = {{"0", "01/01/1970 0:00:00"},
                                    {"951782400", "02/29/2000 0:00:00"},
                                    {"4107542399", "02/28/2100 23:59:59"},
                                    {"4107542400", "03/01/2100 0:00:00"},
                                    {"253402300799", "12/31/9999 23:59:59"}};
    for (const auto& row : table) {
        const Variable epoch("SOURCE_DATE_EPOCH", row[0]);
        EXPECT_EQ(DateTimeText(Now()), row[1]);
    }
}

TEST(Clock, TellsLocalTimeWithoutAUsableEpoch) {
    const Variable zone("TZ", "XXX+5");  // five hours behind UTC, no summer time
    ::tzset();
    for (const char* unusable :
         {static_cast<const char*>(nullptr), "", "yesterday", "-1", "253402300800", "1e300", "nan"}) {
        const Variable epoch("SOURCE_DATE_EPOCH", unusable);
        const std::time_t before = std::time(nullptr);
        const DateTime now = Now();
        const std::time_t after = std::time(nullptr);
        std::tm parts{};
        parts.tm_year = now.year - 1900;
        parts.tm_mon = now.month - 1;
        parts.tm_mday = now.day;
        parts.tm_hour = now.hour;
        parts.tm_min = now.minute;
        parts.tm_sec = now.second;
        const std::time_t told = ::timegm(&parts) + 5 * 3600;
        EXPECT_LE(before, told) << (unusable ? unusable : "not set");
        EXPECT_LE(told, after) << (unusable ? unusable : "not set");
    }
}

TEST(Clock, PadsDatesAndNotTheHour) {
    EXPECT_EQ(DateText({987, 1, 2, 0, 0, 0}), "01/02/0987");
    EXPECT_EQ(DateTimeText({2024, 12, 31, 0, 5, 9}), "12/31/2024 0:05:09");
    EXPECT_EQ(DateTimeText({2024, 12, 31, 23, 15, 59}), "12/31/2024 23:15:59");
}

}  // namespace
}  // namespace tarvek
