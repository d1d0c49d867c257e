#include "synth/key_colours.h"

namespace melvane {

namespace {

constexpr Colour soundingColour{255, 0, 0}, whiteColour{255, 255, 255}, blackColour{0, 0, 0};
constexpr double highestBlackTop = -100;  // twips

bool isKey(int index) { return index >= 0 && index < Keyboard::keys; }

void paint(Studio& studio, int index, Colour colour) {
    const auto at = static_cast<std::size_t>(index);
    studio.frmsynth.CmdKey[at].setBackColour(colour);
    studio.frmsynth.NoteX[at].setBackColour(colour);
}

}  // namespace

void paintSounding(Studio& studio, int index) {
    if (isKey(index)) paint(studio, index, soundingColour);
}

void paintResting(Studio& studio, int index) {
    if (!isKey(index)) return;
    const auto& key = studio.frmsynth.CmdKey[static_cast<std::size_t>(index)];
    paint(studio, index, key.place().top > highestBlackTop ? whiteColour : blackColour);
}

void paintResting(Studio& studio, int first, int last) {
    for (int index = std::max(first, 0); index <= std::min(last, Keyboard::keys - 1); ++index) {
        paintResting(studio, index);
    }
}

}  // namespace melvane
