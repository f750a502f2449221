#include "library/modComboBoxList.hpp"
#include "platform/modFaults.hpp"
#include "support/testSupport.hpp"

namespace tarvek::test {
namespace {

ComboBoxList ListOf(std::initializer_list<const char*> texts) {
    ComboBoxList list;
    for (const char* text : texts) list.Add(text);
    return list;
}

std::vector<std::string> TextsOf(const ComboBoxList& list) {
    std::vector<std::string> texts;
    for (const ComboBoxItem& item : list.Items()) texts.push_back(item.text);
    return texts;
}

using Texts = std::vector<std::string>;

TEST(ComboBoxList, ItemsAreAddedAtTheEndOrAtAnIndex) {
    ComboBoxList list;
    EXPECT_EQ(list.ListIndex(), -1);
    list.Add("b", 7);
    list.Insert(0, "a");
    list.Insert(2, "c");
    EXPECT_EQ(TextsOf(list), (Texts{"a", "b", "c"}));
    EXPECT_EQ(list.Items()[1].data, 7);
    EXPECT_EQ(list.Items()[2].data, 0);
    EXPECT_THROW(list.Insert(4, "d"), RuntimeFault);
    EXPECT_THROW(list.Insert(-1, "d"), RuntimeFault);
}

TEST(ComboBoxList, ChosenItemGivesTheText) {
    ComboBoxList list = ListOf({"a", "b"});
    list.SetListIndex(1);
    EXPECT_EQ(list.Text(), "b");
    list.SetListIndex(-1);
    EXPECT_EQ(list.Text(), "");
    EXPECT_THROW(list.SetListIndex(2), RuntimeFault);
    EXPECT_THROW(list.SetListIndex(-2), RuntimeFault);
    list.SetText("a");
    EXPECT_EQ(list.ListIndex(), 0);
    list.SetText("typed");
    EXPECT_EQ(list.ListIndex(), -1);
    EXPECT_EQ(list.Text(), "typed");
}

TEST(ComboBoxList, ChosenItemStaysChosenWhenOthersComeAndGo) {
    ComboBoxList list = ListOf({"a", "b", "c"});
    list.SetListIndex(1);
    list.Insert(0, "x");
    EXPECT_EQ(list.ListIndex(), 2);
    list.Remove(3);
    EXPECT_EQ(list.ListIndex(), 2);
    list.Remove(0);
    EXPECT_EQ(list.ListIndex(), 1);
    EXPECT_EQ(list.Text(), "b");
    list.Remove(1);
    EXPECT_EQ(list.ListIndex(), -1);
    EXPECT_EQ(list.Text(), "");
    EXPECT_THROW(list.Remove(1), RuntimeFault);
}

TEST(ComboBoxList, ClearLeavesNothing) {
    ComboBoxList list = ListOf({"a"});
    list.SetListIndex(0);
    list.Clear();
    EXPECT_EQ(list.Count(), 0);
    EXPECT_EQ(list.ListIndex(), -1);
    EXPECT_EQ(list.Text(), "");
}

TEST(SetComboBoxText, EqualItemGoesBeforeShortName) {
    ComboBoxList list = ListOf({"XY - long name", "XY", "XY"});
    SET_ComboBoxText(list, "XY");
    EXPECT_EQ(list.ListIndex(), 1);
}

TEST(SetComboBoxText, ShortNameIsWhatPrecedesTheFirstHyphen) {
    ComboBoxList list = ListOf({"AB-C - d", "XY - long name", "XY - other"});
    SET_ComboBoxText(list, "XY");
    EXPECT_EQ(list.ListIndex(), 1);
    EXPECT_EQ(list.Text(), "XY - long name");
    SET_ComboBoxText(list, "AB");
    EXPECT_EQ(list.ListIndex(), 0);
    SET_ComboBoxText(list, "AB-C");
    EXPECT_EQ(list.ListIndex(), -1);
}

TEST(SetComboBoxText, NothingThatFitsClearsTheChoice) {
    for (const char* text : {"xy", "XY ", "XY - long", "Z", ""}) {
        ComboBoxList list = ListOf({"XY - long name", "Z1"});
        list.SetListIndex(1);
        SET_ComboBoxText(list, text);
        EXPECT_EQ(list.ListIndex(), -1) << text;
        EXPECT_EQ(list.Text(), "") << text;
    }
    ComboBoxList list = ListOf({"Z", " - no short name"});
    SET_ComboBoxText(list, "");
    EXPECT_EQ(list.ListIndex(), 1);
}

TEST(SetComboBoxPrefix, FirstFourCharactersDecide) {
    ComboBoxList list = ListOf({"500", "5001 - one", "5001 - two", "5002 - three"});
    SET_ComboBoxPrefix(list, "5001xyz");
    EXPECT_EQ(list.ListIndex(), 1);
    SET_ComboBoxPrefix(list, "500");
    EXPECT_EQ(list.ListIndex(), 0);
    SET_ComboBoxPrefix(list, "50");
    EXPECT_EQ(list.ListIndex(), -1);
}

TEST(SetComboBoxItemData, FirstItemOfThatNumberIsChosen) {
    ComboBoxList list;
    list.Add("a", 1983);
    list.Add("b", 1990);
    list.Add("c", 1990);
    SET_ComboBoxItemData(list, " 1990.0 and more");
    EXPECT_EQ(list.ListIndex(), 1);
    SET_ComboBoxItemData(list, "1991");
    EXPECT_EQ(list.ListIndex(), 1);
    SET_ComboBoxItemData(list, "1983.5");
    EXPECT_EQ(list.ListIndex(), 1);
}

TEST(RemoveComboBoxDuplicates, OneOfEachTextStays) {
    ComboBoxList list = ListOf({"b", "a", "b", "B", "a", "b"});
    list.SetListIndex(3);
    REMOVE_ComboBoxDuplicates(list);
    EXPECT_EQ(TextsOf(list), (Texts{"b", "a", "B"}));
    EXPECT_EQ(list.Text(), "B");
    EXPECT_EQ(list.ListIndex(), 2);
}

TEST(RemoveComboBoxItem, EveryEqualItemGoes) {
    ComboBoxList list = ListOf({"None", "a", "None", "none"});
    REMOVE_ComboBoxItem(list, "None");
    EXPECT_EQ(TextsOf(list), (Texts{"a", "none"}));
}

}  // namespace
}  // namespace tarvek::test
