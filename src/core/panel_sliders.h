#pragma once
#include "core/studio.h"

namespace melvane {

struct NameTables;

/// The five sliders of the Quick Compose bar: a pointer dragged along a track, whose place is a number for
/// the next edits. X in pixels from the track's left edge; `button` 1 left, 2 right, in a move added
/// together.
class PanelSliders {
 public:
    enum Slider { volume, modulation, pan, reverb, chorus };
    static constexpr int count = 5;

    explicit PanelSliders(Studio& studio) : studio_(studio) {}

    /// From a press to the release a slider follows: the left button drags, the right one puts it to rest.
    void press(Slider slider) { held(slider) = true; }
    void move(Slider slider, int button, double X);
    void release(Slider slider) { held(slider) = false; }
    /// One step up or down of its number, inside its range.
    void step(Slider slider, int steps) { control(slider).step(steps); }
    /// To its resting value; the velocity of the current track goes with its slider.
    void rest(Slider slider);

    void listNames(NameTables& tables);

 private:
    SliderControl& control(Slider slider) const;
    bool& held(Slider slider) { return held_[static_cast<std::size_t>(slider)]; }

    Studio& studio_;
    std::array<bool, count> held_{};
};

}  // namespace melvane
