#pragma once
// A drop-down list without its window: what a dialog fills a list from, and the ways in which an item of it
// is chosen. Items count from 0; index -1 stands for no item.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tarvek {

struct ComboBoxItem {
    std::string text;
    std::int32_t data = 0;
};

class ComboBoxList {
  public:
    // Removes all items; nothing is chosen and the text is empty.
    void Clear();
    // Adds an item at the end.
    void Add(std::string_view text, std::int32_t data = 0);
    // Adds an item before the one at `index`. The chosen item stays chosen. Fault::SubscriptOutOfRange for an
    // index beyond the end.
    void Insert(int index, std::string_view text);
    // Removes an item; if it was the chosen one, nothing is chosen and the text is empty.
    void Remove(int index);

    const std::vector<ComboBoxItem>& Items() const { return items_; }
    int Count() const { return static_cast<int>(items_.size()); }
    bool Contains(std::string_view text) const;

    int ListIndex() const { return listIndex_; }
    // Chooses an item, whose text becomes the list's, or with -1 none, and the text is empty.
    // Fault::SubscriptOutOfRange for any other index.
    void SetListIndex(int index);

    const std::string& Text() const { return text_; }
    // Sets the text as if typed: the first item equal to it is chosen, or none.
    void SetText(std::string_view text);

  private:
    std::vector<ComboBoxItem> items_;
    int listIndex_ = -1;
    std::string text_;
};

// Chooses the first item equal to `text`; else the first one with a "-" whose text before the first "-",
// without blanks at its ends, equals it; else none. Letter case counts.
void SET_ComboBoxText(ComboBoxList& list, std::string_view text);
// Chooses the first item with the same first four characters as `text`; else none.
void SET_ComboBoxPrefix(ComboBoxList& list, std::string_view text);
// Chooses the first item whose data equals the number at the beginning of `text` (0 where there is none); the
// choice stays where there is no such item.
void SET_ComboBoxItemData(ComboBoxList& list, std::string_view text);

// Removes every item that repeats the text of an earlier one.
void REMOVE_ComboBoxDuplicates(ComboBoxList& list);
// Removes every item equal to `text`.
void REMOVE_ComboBoxItem(ComboBoxList& list, std::string_view text);

}  // namespace tarvek
