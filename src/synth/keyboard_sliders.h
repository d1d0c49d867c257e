#pragma once
#include <array>

#include "synth/keyboard_channels.h"
#include "synth/keyboard_choices.h"

namespace melvane {

/// The fourteen sliders of the keyboard window, and what a new number of each does. X in pixels from the
/// track's left edge; `button` 1 left, 2 right, in a move added together.
class KeyboardSliders {
 public:
    enum Slider {
        volume,
        modulation,
        pan,
        reverb,
        chorus,
        channel,
        octave,
        chord,
        strum,
        speed,
        pauses,
        tempo,
        fileSpeed,
        beats
    };
    static constexpr int count = 14;

    KeyboardSliders(Studio& studio, MidiOutput& output, KeyboardChannels& channels, KeyboardChoices& choices);

    /// From a press to the release a slider follows: the left button drags, the right one puts it to rest.
    /// The press counts as a first move.
    void press(Slider slider, int button, double X);
    /// Without a press, the chord's and the octave's show the number under the mouse as their tool tip.
    void move(Slider slider, int button, double X);
    void release(Slider slider);
    /// Steps to the right or left, by wheel or keys.
    void step(Slider slider, int steps);

    void listNames(NameTables& tables);

    /// The name of its strip.
    static const char* name(Slider slider);
    SliderControl& control(Slider slider) const;

 private:
    using Take = void (KeyboardSliders::*)(double value);
    struct Entry;
    struct Table;
    static const Entry& entryOf(Slider slider);

    double valueAt(Slider slider, double X) const;
    void show(Slider slider, double value);
    void rest(Slider slider);
    /// The number is the user's last word: what waits for the release happens.
    void settle(Slider slider);

    void takeVolume(double value);
    void takeChannel(double value);
    void takeOctave(double value);
    void takeChord(double value);
    void takeTempo(double value);
    /// An effect of the keyboard's channel.
    template <Int16 LiveChannelRecord::*field, void (MidiOutput::*send)(Int16, Int16)>
    void takeEffect(double value);
    void showOctave(int caption);
    bool& held(Slider slider) { return held_[static_cast<std::size_t>(slider)]; }

    Studio& studio_;
    MidiOutput& output_;
    KeyboardChannels& channels_;
    KeyboardChoices& choices_;
    std::array<bool, count> held_{};
};

}  // namespace melvane
