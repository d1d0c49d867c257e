#include "synth/piano_geometry.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "synth/key_colours.h"

namespace melvane {

namespace {

constexpr int semitones = 12, whitesAnOctave = 7;

/// By semitone over C: how many white keys of the octave lie below the key, and for a black key how far its
/// middle stands right of the joint, in widths of a white key.
struct Place {
    int whitesBelow;
    double shift = 0;
};

constexpr std::array<Place, semitones> places{
    {{0}, {1, -0.10}, {1}, {2, 0.10}, {2}, {3}, {4, -0.12}, {4}, {5, 0}, {5}, {6, 0.12}, {6}}};

constexpr double blackWidth = 0.58, blackHeight = 0.62;  // shares of a white key
// Pixels.
constexpr int whiteLabelHeight = 22, whiteLabelRise = 10, blackLabelHeight = 20, blackLabelRise = 8;
constexpr int whiteLabelMargin = 6, blackLabelMargin = 2;

bool isKey(int index) { return index >= 0 && index < Keyboard::keys; }

const Place& placeOf(int index) { return places[static_cast<std::size_t>(index % semitones)]; }

int whitesBelow(int index) { return index / semitones * whitesAnOctave + placeOf(index).whitesBelow; }

}  // namespace

int PianoGeometry::joint(int white) const {
    return static_cast<int>(std::lround(static_cast<double>(white) * width_ / whiteKeys));
}

KeyBox PianoGeometry::key(int index) const {
    if (!isKey(index)) return {};
    const int whites = whitesBelow(index);
    if (!isBlackKey(index)) return {joint(whites), 0, joint(whites + 1) - joint(whites), height_};
    const double white = static_cast<double>(width_) / whiteKeys;
    const double middle = (whites + placeOf(index).shift) * white;
    const int width = std::max(1, static_cast<int>(std::lround(white * blackWidth)));
    return {static_cast<int>(std::lround(middle - width / 2.0)), 0, width,
            static_cast<int>(std::lround(height_ * blackHeight))};
}

KeyBox PianoGeometry::label(int index) const {
    const KeyBox box = key(index);
    const bool black = isBlackKey(index);
    const int margin = black ? blackLabelMargin : whiteLabelMargin;
    const int height = black ? blackLabelHeight : whiteLabelHeight;
    const int bottom = box.height - (black ? blackLabelRise : whiteLabelRise);
    return {box.left + margin, bottom - height, std::max(0, box.width - 2 * margin), height};
}

int PianoGeometry::keyAt(int x, int y) const {
    for (const bool black : {true, false}) {
        for (int index = 0; index < Keyboard::keys; ++index) {
            if (isBlackKey(index) == black && key(index).has(x, y)) return index;
        }
    }
    return Keyboard::noKey;
}

}  // namespace melvane
