#include "library/modComboBoxList.hpp"

#include <algorithm>
#include <functional>
#include <unordered_set>

#include "library/modLibraryNames.hpp"
#include "platform/modFaults.hpp"
#include "platform/modNumbers.hpp"

namespace tarvek {
namespace {

constexpr std::size_t PrefixLength = 4;

// The index of the first item that fits; -1 where none does.
int FindItem(const ComboBoxList& list, const std::function<bool(const ComboBoxItem&)>& fits) {
    const auto& items = list.Items();
    const auto found = std::find_if(items.begin(), items.end(), fits);
    return found == items.end() ? -1 : static_cast<int>(found - items.begin());
}

int FindText(const ComboBoxList& list, std::string_view text) {
    return FindItem(list, [text](const ComboBoxItem& item) { return item.text == text; });
}

// True for "XY - long name" and the text "XY".
bool HasShortName(const ComboBoxItem& item, std::string_view text) { return ShortNameOf(item.text) == text; }

}  // namespace

void ComboBoxList::Clear() {
    items_.clear();
    SetListIndex(-1);
}

void ComboBoxList::Add(std::string_view text, std::int32_t data) {
    items_.push_back({std::string(text), data});
}

void ComboBoxList::Insert(int index, std::string_view text) {
    if (index < 0 || index > Count()) RaiseFault(Fault::SubscriptOutOfRange);
    items_.insert(items_.begin() + index, {std::string(text), 0});
    if (listIndex_ >= index) ++listIndex_;
}

void ComboBoxList::Remove(int index) {
    if (index < 0 || index >= Count()) RaiseFault(Fault::SubscriptOutOfRange);
    items_.erase(items_.begin() + index);
    if (listIndex_ == index) SetListIndex(-1);
    if (listIndex_ > index) --listIndex_;
}

bool ComboBoxList::Contains(std::string_view text) const { return FindText(*this, text) >= 0; }

void ComboBoxList::SetListIndex(int index) {
    if (index < -1 || index >= Count()) RaiseFault(Fault::SubscriptOutOfRange);
    listIndex_ = index;
    text_ = index < 0 ? std::string() : items_[static_cast<std::size_t>(index)].text;
}

void ComboBoxList::SetText(std::string_view text) {
    listIndex_ = FindText(*this, text);
    text_ = text;
}

void SET_ComboBoxText(ComboBoxList& list, std::string_view text) {
    int index = FindText(list, text);
    if (index < 0)
        index = FindItem(list, [text](const ComboBoxItem& item) { return HasShortName(item, text); });
    list.SetListIndex(index);
}

void SET_ComboBoxPrefix(ComboBoxList& list, std::string_view text) {
    const std::string_view prefix = text.substr(0, PrefixLength);
    list.SetListIndex(FindItem(list, [prefix](const ComboBoxItem& item) {
        return std::string_view(item.text).substr(0, PrefixLength) == prefix;
    }));
}

void SET_ComboBoxItemData(ComboBoxList& list, std::string_view text) {
    const double number = LeadingNumber(text);
    const int index = FindItem(list, [number](const ComboBoxItem& item) { return item.data == number; });
    if (index >= 0) list.SetListIndex(index);
}

void REMOVE_ComboBoxDuplicates(ComboBoxList& list) {
    std::unordered_set<std::string> seen;
    std::vector<int> repeated;
    for (int i = 0; i < list.Count(); ++i)
        if (!seen.insert(list.Items()[static_cast<std::size_t>(i)].text).second) repeated.push_back(i);
    for (; !repeated.empty(); repeated.pop_back()) list.Remove(repeated.back());
}

void REMOVE_ComboBoxItem(ComboBoxList& list, std::string_view text) {
    for (int index; (index = FindText(list, text)) >= 0;) list.Remove(index);
}

}  // namespace tarvek
