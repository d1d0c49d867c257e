#include "core/text_list.h"

namespace melvane {

TextList::Item TextList::at(int index) const {
    if (!has(index)) return std::nullopt;
    const std::int32_t item = items_[static_cast<std::size_t>(index)];
    return item == emptyText ? std::nullopt : Item(item);
}

std::string TextList::text(int index) const {
    const Item item = at(index);
    return item ? std::to_string(*item) : std::string();
}

void TextList::set(int index, Item item) {
    if (has(index)) items_[static_cast<std::size_t>(index)] = item.value_or(emptyText);
}

void TextList::remove(int index) {
    if (has(index)) items_.erase(items_.begin() + index);
}

void TextList::clear() {
    items_.clear();
    items_.shrink_to_fit();
}

}  // namespace melvane
