// A list of texts in which letter case counts for nothing.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace filter {

// Items are numbered from 0. Out of range reads as empty text and 0.
class cList {
public:
    // Appends a text, kept as it is written.
    void AddItem(std::string_view text);
    // The first item that is this text in any letter case, -1 when there is none. Quick once the list is in order.
    int FindItem(std::string_view text) const;
    // A number that goes with an item; 0 at first.
    std::int32_t ItemData(int index) const { return InRange(index) ? At(index).data : 0; }
    void SetItemData(int index, std::int32_t data);
    int ListCount() const { return static_cast<int>(items_.size()); }
    // Where the last AddItem put its text; -1 once the list has been sorted or cleared.
    int NewIndex() const { return newIndex_; }
    const std::string& List(int index) const;
    // By the lower-cased texts, byte by byte; equal ones stay in their order.
    void Sort();
    void Clear();

private:
    struct Item {
        std::string key;  // the text in lower case
        std::string text;
        std::int32_t data = 0;
    };
    bool InRange(int index) const { return index >= 0 && index < ListCount(); }
    const Item& At(int index) const { return items_[static_cast<std::size_t>(index)]; }

    std::vector<Item> items_;
    bool sorted_ = true;
    int newIndex_ = -1;
};

}  // namespace filter
