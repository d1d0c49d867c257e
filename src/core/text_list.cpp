#include "core/text_list.h"

namespace melvane {

std::int32_t TextList::held(int index) const {
    const auto at = static_cast<std::size_t>(index);
    return at < front_.size() ? front_[at] : back_[fromBehind(at)];
}

std::size_t TextList::fromBehind(std::size_t index) const {
    return back_.size() - 1 - (index - front_.size());
}

TextList::Item TextList::at(int index) const {
    if (!has(index)) return std::nullopt;
    const std::int32_t item = held(index);
    return item == emptyText ? std::nullopt : Item(item);
}

std::string TextList::text(int index) const {
    const Item item = at(index);
    return item ? std::to_string(*item) : std::string();
}

void TextList::add(Item item) {
    moveGap(front_.size() + back_.size());
    front_.push_back(item.value_or(emptyText));
}

void TextList::set(int index, Item item) {
    if (!has(index)) return;
    const auto at = static_cast<std::size_t>(index);
    (at < front_.size() ? front_[at] : back_[fromBehind(at)]) = item.value_or(emptyText);
}

void TextList::remove(int index) {
    if (!has(index)) return;
    moveGap(static_cast<std::size_t>(index));
    back_.pop_back();
}

void TextList::clear() {
    front_ = {};
    back_ = {};
}

/// `index` items stand before the gap then.
void TextList::moveGap(std::size_t index) {
    for (; front_.size() > index; front_.pop_back()) back_.push_back(front_.back());
    for (; front_.size() < index; back_.pop_back()) front_.push_back(back_.back());
}

}  // namespace melvane
