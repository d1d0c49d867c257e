#pragma once
#include <span>
#include <string>

#include "core/controls.h"

namespace melvane {

class StateTable;

/// A row of flat buttons: each is hidden until the mouse comes near, and its picture, which has its index, is
/// what the user sees until then. An index outside the row does nothing.
class FlatButtons {
 public:
    /// `first` is the lowest index in use; both must outlive this.
    FlatButtons(std::span<PictureControl> buttons, std::span<PictureControl> pictures, int first)
        : buttons_(buttons), pictures_(pictures), first_(first) {}

    /// The mouse is over the picture: its button appears. Only the neighbours are hidden: a button that the
    /// mouse left without touching the ground stays.
    void comeNear(int index) const;
    void hide(int index) const { setShown(index, false); }
    /// Over anything else of the window.
    void hideAll() const;
    /// Both take the art.
    void setPicture(int index, const std::string& art) const;
    void setTip(int index, const std::string& tip) const;

 private:
    bool has(int index) const { return index >= first_ && index < static_cast<int>(buttons_.size()); }
    void setShown(int index, bool shown) const;

    std::span<PictureControl> buttons_, pictures_;
    int first_;
};

/// Lists the art that pictures from index `first` on show, as "NAME.Picture(INDEX)"; it cannot be put.
void listArt(StateTable& table, const std::string& name, std::span<const PictureControl> pictures, int first);

}  // namespace melvane
