// Lists that share their storage until one of them is changed.

#include <gtest/gtest.h>

#include <string>

#include "support/testSupport.hpp"
#include "surveyfiles/modSharedList.hpp"

namespace tarvek {
namespace {

using List = SharedList<std::string>;

// Long enough for several blocks, with the last one half full.
constexpr std::size_t ManyRecords = 1000;

List NumberedList(std::size_t count) {
    List list;
    for (std::size_t i = 0; i < count; ++i) list.Append(std::to_string(i));
    return list;
}

void ExpectNumbered(const List& list, std::size_t count) {
    ASSERT_EQ(list.size(), count);
    for (std::size_t i = 0; i < count; ++i) ASSERT_EQ(list[i], std::to_string(i));
}

TEST(SharedList, IsAllocatedByItsFirstRecord) {
    List list;
    EXPECT_FALSE(list.IsAllocated());
    EXPECT_EQ(list.size(), 0U);
    EXPECT_TRUE(list.begin() == list.end());
    list.Append("");
    EXPECT_TRUE(list.IsAllocated());
    EXPECT_EQ(list.size(), 1U);
}

TEST(SharedList, KeepsItsRecordsInOrderAtEveryLength) {
    for (const std::size_t count : {1U, 255U, 256U, 257U, 511U, 512U, 513U}) {
        SCOPED_TRACE(count);
        ExpectNumbered(NumberedList(count), count);
    }
}

TEST(SharedList, IteratesOverEveryRecordOnce) {
    std::size_t next = 0;
    for (const std::string& record : NumberedList(ManyRecords)) ASSERT_EQ(record, std::to_string(next++));
    EXPECT_EQ(next, ManyRecords);
}

TEST(SharedList, NeverMovesARecordWhenItGrows) {
    List list = NumberedList(1);
    const std::string* const first = &list[0];
    for (std::size_t i = 1; i < ManyRecords; ++i) list.Append(std::to_string(i));
    EXPECT_EQ(&list[0], first);
}

TEST(SharedList, SharesTheRecordsOfACopy) {
    const List original = NumberedList(ManyRecords);
    const List copy = original;
    for (std::size_t i = 0; i < ManyRecords; ++i) ASSERT_EQ(&copy[i], &original[i]);
}

TEST(SharedList, ChangesACopyAndLeavesTheOriginal) {
    const List original = NumberedList(ManyRecords);
    List copy = original;
    copy.Change(300) = "changed";
    EXPECT_EQ(copy[300], "changed");
    ExpectNumbered(original, ManyRecords);
    EXPECT_EQ(copy[299], "299");
    EXPECT_EQ(copy[301], "301");
}

TEST(SharedList, ChangesTheOriginalAndLeavesTheCopy) {
    List original = NumberedList(ManyRecords);
    const List copy = original;
    original.Change(ManyRecords - 1) = "changed";
    EXPECT_EQ(original[ManyRecords - 1], "changed");
    ExpectNumbered(copy, ManyRecords);
}

TEST(SharedList, SharesOnAfterAChangeElsewhere) {
    const List original = NumberedList(ManyRecords);
    List copy = original;
    copy.Change(0) = "changed";
    EXPECT_NE(&copy[0], &original[0]);
    EXPECT_EQ(&copy[ManyRecords - 1], &original[ManyRecords - 1]);
}

TEST(SharedList, ChangesARecordOfItsOwnInPlace) {
    List list = NumberedList(3);
    const std::string* const second = &list[1];
    list.Change(1) = "changed";
    EXPECT_EQ(&list[1], second);
}

TEST(SharedList, ChangesInPlaceOnceTheOtherListIsGone) {
    List list = NumberedList(3);
    { const List copy = list; }
    const std::string* const second = &list[1];
    list.Change(1) = "changed";
    EXPECT_EQ(&list[1], second);
}

TEST(SharedList, GrowsACopyAndLeavesTheOriginal) {
    for (const std::size_t count : {3U, 256U}) {
        SCOPED_TRACE(count);
        const List original = NumberedList(count);
        List copy = original;
        copy.Append(std::to_string(count));
        ExpectNumbered(original, count);
        ExpectNumbered(copy, count + 1);
    }
}

TEST(SharedList, LetsTwoCopiesGrowApart) {
    List one = NumberedList(10);
    List other = one;
    one.Append("one");
    other.Append("other");
    EXPECT_EQ(one[10], "one");
    EXPECT_EQ(other[10], "other");
}

TEST(SharedList, CopyAllocatedCopiesAList) { ExpectNumbered(CopyAllocated(NumberedList(4)), 4); }

TEST(SharedList, CopyAllocatedFaultsOnAListThatNobodyFilled) {
    EXPECT_EQ(test::FaultMessageOf([] { CopyAllocated(List()); }),
              "Run-time error '9': Subscript out of range");
}

}  // namespace
}  // namespace tarvek
