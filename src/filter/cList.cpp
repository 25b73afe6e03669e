#include "filter/cList.h"

#include <algorithm>

#include "text/Case.h"

namespace filter {

void cList::AddItem(std::string_view text) {
    Item item{text::Lower(text), std::string(text)};
    sorted_ = sorted_ && (items_.empty() || items_.back().key <= item.key);
    newIndex_ = ListCount();
    items_.push_back(std::move(item));
}

int cList::FindItem(std::string_view text) const {
    const std::string key = text::Lower(text);
    const auto found = sorted_ ? std::ranges::lower_bound(items_, key, {}, &Item::key)
                               : std::ranges::find(items_, key, &Item::key);
    return found != items_.end() && found->key == key ? static_cast<int>(found - items_.begin()) : -1;
}

void cList::SetItemData(int index, std::int32_t data) {
    if (InRange(index)) items_[static_cast<std::size_t>(index)].data = data;
}

const std::string& cList::List(int index) const {
    static const std::string kNothing;
    return InRange(index) ? At(index).text : kNothing;
}

void cList::Sort() {
    newIndex_ = -1;
    if (sorted_) return;
    std::ranges::stable_sort(items_, {}, &Item::key);
    sorted_ = true;
}

void cList::Clear() {
    *this = {};
}

}  // namespace filter
