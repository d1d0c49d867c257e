#include "synth/key_layout.h"

#include <algorithm>
#include <cmath>

#include "core/names.h"
#include "synth/key_colours.h"

namespace melvane {

namespace {

struct KindOfKey {
    double top, height, width, labelTop, labelWidth;
};

constexpr KindOfKey whiteKey{-15, 1800, 345, 1125, 315}, blackKey{-450, 1200, 210, 600, 210};
constexpr double labelHeight = 240;
constexpr double blackOffset = 120;      // a black key's left from that of the key before
constexpr double whiteLabelMargin = 15;  // its left from the key's
constexpr double scaleLoss = 0.14;
constexpr double resizedOverlap = 15;    // of a white key over the one before
constexpr double resizedLabelLoss = 30;  // of the first key's width

/// What sets the first layout and a later one apart.
struct Manner {
    double scale, overlap;
    bool labelsByKind;  ///< their width by kind of key; else all as wide as the first key allows
};

/// The places of all keys, from the left.
class Layout {
 public:
    Layout(KeyboardControls& synth, Manner manner) : synth_(synth), manner_(manner) {}

    void layAll() {
        for (int index = 0; index < Keyboard::keys; ++index) lay(index);
    }

 private:
    void lay(int index) {
        const bool black = isBlackKey(index);
        const KindOfKey& kind = black ? blackKey : whiteKey;
        const auto at = static_cast<std::size_t>(index);
        const double width = std::max(0.0, kind.width * manner_.scale);
        const double left = leftOf(index, black);
        synth_.CmdKey[at].setPlace({left, kind.top, width, kind.height});
        const double labelWidth = manner_.labelsByKind
                                      ? kind.labelWidth
                                      : std::max(0.0, synth_.CmdKey[0].place().width - resizedLabelLoss);
        synth_.NoteX[at].setPlace(
            {left + (black ? 0 : whiteLabelMargin), kind.labelTop, labelWidth, labelHeight});
    }

    double leftOf(int index, bool black) const {
        if (index == 0) return 0;
        const WindowPlace& before = synth_.CmdKey[static_cast<std::size_t>(index) - 1].place();
        return black ? before.left + blackOffset : before.left + before.width - manner_.overlap;
    }

    KeyboardControls& synth_;
    Manner manner_;
};

void widen(BoxControl& box, double width) {
    WindowPlace place = box.place();
    place.width = width;
    box.setPlace(place);
}

}  // namespace

void KeyLayout::layKeys() {
    auto& synth = studio_.frmsynth;
    Layout(synth, {1, 0, true}).layAll();
    const WindowPlace& last = synth.CmdKey.back().place();
    widen(synth.Picture1, last.left + last.width);
    widen(synth.Picture5, synth.Picture1.place().width);
    synth.Text14.set(std::to_string(static_cast<long long>(synth.Picture1.place().width)));
    paintResting(studio_, 0, Keyboard::keys - 1);
}

void KeyLayout::ResizeKeys(double Scale) {
    if (!std::isfinite(Scale)) return;
    auto& synth = studio_.frmsynth;
    synth.Picture1.setVisible(false);
    Layout(synth, {Scale - scaleLoss, resizedOverlap, false}).layAll();
    for (KeyLabel& label : synth.NoteX) label.setEnabled(false);
    synth.Picture1.setVisible(true);
    loop_.Idle();
}

void KeyLayout::listNames(NameTables& tables) {
    tables.operations.add("frmsynth", "ResizeKeys", this, &KeyLayout::ResizeKeys);
}

}  // namespace melvane
