#include "core/flat_buttons.h"

#include "core/names.h"

namespace melvane {

void FlatButtons::setShown(int index, bool shown) const {
    if (has(index)) buttons_[static_cast<std::size_t>(index)].setVisible(shown);
}

void FlatButtons::comeNear(int index) const {
    if (!has(index)) return;
    setShown(index, true);
    setShown(index - 1, false);
    setShown(index + 1, false);
}

void FlatButtons::hideAll() const {
    for (int index = first_; has(index); ++index) hide(index);
}

void FlatButtons::setPicture(int index, const std::string& art) const {
    if (!has(index)) return;
    pictures_[static_cast<std::size_t>(index)].setPicture(art);
    buttons_[static_cast<std::size_t>(index)].setPicture(art);
}

void FlatButtons::setTip(int index, const std::string& tip) const {
    if (!has(index)) return;
    pictures_[static_cast<std::size_t>(index)].setTip(tip);
    buttons_[static_cast<std::size_t>(index)].setTip(tip);
}

void listArt(StateTable& table, const std::string& name, std::span<const PictureControl> pictures,
             int first) {
    table.add({name + ".Picture", 1,
               [pictures, first](StateTable::Indices at) -> std::optional<Value> {
                   if (at[0] < first || at[0] >= static_cast<int>(pictures.size())) return {};
                   return pictures[static_cast<std::size_t>(at[0])].picture();
               },
               [](StateTable::Indices, const Value&) { return false; }});
}

}  // namespace melvane
