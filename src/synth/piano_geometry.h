#pragma once
#include "core/keyboard.h"

namespace melvane {

/// A rectangle in logical pixels.
struct KeyBox {
    int left = 0, top = 0, width = 0, height = 0;
    bool operator==(const KeyBox&) const = default;
    bool has(int x, int y) const { return x >= left && x < left + width && y >= top && y < top + height; }
};

/// Where the keys are drawn in an area of that size: the white ones side by side and equally wide, the black
/// ones over the joints as on a piano. What the keys' own places say in twips stays the measure of the
/// engine.
class PianoGeometry {
 public:
    static constexpr int whiteKeys = 26;

    PianoGeometry(int width, int height) : width_(width), height_(height) {}

    /// Key `index` (0 to 43); an empty box for another index.
    KeyBox key(int index) const;
    /// Where its label stands on it.
    KeyBox label(int index) const;
    /// The key at a pixel; Keyboard::noKey beside them.
    int keyAt(int x, int y) const;

 private:
    int joint(int white) const;

    int width_, height_;
};

}  // namespace melvane
