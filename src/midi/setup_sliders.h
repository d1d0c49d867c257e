#pragma once
#include "core/studio.h"
#include "midi/midi_output.h"

namespace melvane {

/// The seven sliders of the Setup toolbar, and what a new number of each does. X in pixels from the track's
/// left edge; `button` 1 left, 2 right, in a move added together.
class SetupSliders {
 public:
    enum Slider { modulation, pan, reverb, chorus, volume, tempo, beats };
    static constexpr int count = 7;

    SetupSliders(Studio& studio, MidiOutput& output);

    /// From a press to the release a slider follows: the left button drags, the right one puts it to rest.
    void press(Slider slider) { held(slider) = true; }
    void move(Slider slider, int button, double X);
    void release(Slider slider) { held(slider) = false; }
    /// Steps up or down, by wheel or keys.
    void step(Slider slider, int steps);

    void listNames(NameTables& tables);

    /// The name of its strip.
    static const char* name(Slider slider);
    SliderControl& control(Slider slider) const;

 private:
    /// Its number is new, by whatever means.
    void take(Slider slider);
    void takeEffect(Slider slider, Int16 value);
    void takeVolume(Int16 value);
    void leaveRest(int channel);
    bool& held(Slider slider) { return held_[static_cast<std::size_t>(slider)]; }

    Studio& studio_;
    MidiOutput& output_;
    std::array<bool, count> held_{};
};

}  // namespace melvane
