#include "synth/key_search.h"

#include <algorithm>

#include "synth/key_characters.h"

namespace melvane {

namespace {

template <class Fits>
int firstKey(const Studio& studio, Fits fits) {
    const auto& labels = studio.frmsynth.NoteX;
    const auto found =
        std::ranges::find_if(labels, [&](const KeyLabel& label) { return fits(label.text()); });
    return static_cast<int>(found - labels.begin());
}

}  // namespace

int findLabel(const Studio& studio, std::string_view label) {
    return firstKey(studio, [label](std::string_view text) { return text == label; });
}

int findLabelLike(const Studio& studio, std::string_view typed) {
    return firstKey(studio, [typed](std::string_view text) { return isLike(text, typed); });
}

}  // namespace melvane
