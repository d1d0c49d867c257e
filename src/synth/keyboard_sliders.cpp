#include "synth/keyboard_sliders.h"

#include <algorithm>
#include <cstdio>
#include <functional>

#include "core/mouse_buttons.h"
#include "core/names.h"
#include "midi/messages.h"

namespace melvane {

namespace {

constexpr int middleOctave = 5;  // the slider's number in the middle of its way
constexpr double middle = 0.5;

/// Without a point where there is nothing behind it, else with up to fifteen digits.
std::string decimalText(double value) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.15g", value);
    return text.data();
}

}  // namespace

/// The number at a place of the track follows from the slider's scale: whole steps, or every fraction.
struct KeyboardSliders::Entry {
    const char* name;
    SliderControl KeyboardControls::*control;
    TextControl KeyboardControls::*number;
    double resting;  ///< after the right button
    Take take = nullptr;
    bool fractions = false;
    bool restsInMiddle = false;  ///< the pointer, whatever the number says
    bool shows = false;          ///< the number under the mouse
    bool updates = false;        ///< the release runs UpdateControls
};

using Sliders = KeyboardSliders;
using Controls = KeyboardControls;
using Record = LiveChannelRecord;

struct KeyboardSliders::Table {
    static const std::array<Entry, count> entries;
};

const std::array<Sliders::Entry, Sliders::count> Sliders::Table::entries{
    {{.name = "lblVolume",
      .control = &Controls::lblVolume,
      .number = &Controls::Label11,
      .resting = 127,
      .take = &Sliders::takeVolume},
     {.name = "LblMod",
      .control = &Controls::LblMod,
      .number = &Controls::LMod,
      .resting = 0,
      .take = &Sliders::takeEffect<&Record::Modulation, &MidiOutput::SendModulation>,
      .updates = true},
     {.name = "LblPan",
      .control = &Controls::LblPan,
      .number = &Controls::LPan,
      .resting = 0,
      .take = &Sliders::takeEffect<&Record::Pan, &MidiOutput::SendPan>,
      .restsInMiddle = true,
      .updates = true},
     {.name = "LblReverb",
      .control = &Controls::LblReverb,
      .number = &Controls::LReverb,
      .resting = 0,
      .take = &Sliders::takeEffect<&Record::Reverb, &MidiOutput::SendReverb>,
      .updates = true},
     {.name = "LblChorus",
      .control = &Controls::LblChorus,
      .number = &Controls::LChorus,
      .resting = 0,
      .take = &Sliders::takeEffect<&Record::Chorus, &MidiOutput::SendChorus>,
      .updates = true},
     {.name = "LblCh",
      .control = &Controls::LblCh,
      .number = &Controls::ChNumber,
      .resting = 0,
      .take = &Sliders::takeChannel},
     {.name = "LblOct",
      .control = &Controls::LblOct,
      .number = &Controls::OctNumber,
      .resting = 0,
      .take = &Sliders::takeOctave,
      .restsInMiddle = true,
      .shows = true},
     {.name = "LblCrd",
      .control = &Controls::LblCrd,
      .number = &Controls::Text4,
      .resting = 0,
      .take = &Sliders::takeChord,
      .shows = true},
     {.name = "LblStrum", .control = &Controls::LblStrum, .number = &Controls::Text1, .resting = 1},
     {.name = "LblSpeed",
      .control = &Controls::LblSpeed,
      .number = &Controls::Text2,
      .resting = 9,
      .fractions = true},
     {.name = "LblPauses",
      .control = &Controls::LblPauses,
      .number = &Controls::Text11,
      .resting = 1,
      .fractions = true},
     {.name = "LblTempo",
      .control = &Controls::LblTempo,
      .number = &Controls::Text8,
      .resting = 200,
      .take = &Sliders::takeTempo},
     {.name = "LblFileSpeed",
      .control = &Controls::LblFileSpeed,
      .number = &Controls::Text12,
      .resting = 2.5,
      .fractions = true},
     {.name = "Lblbeats", .control = &Controls::Lblbeats, .number = &Controls::txtValue, .resting = 120}}};

const Sliders::Entry& KeyboardSliders::entryOf(Slider slider) {
    return Table::entries[static_cast<std::size_t>(slider)];
}

KeyboardSliders::KeyboardSliders(Studio& studio, MidiOutput& output, KeyboardChannels& channels,
                                 KeyboardChoices& choices)
    : studio_(studio), output_(output), channels_(channels), choices_(choices) {
    for (int index = 0; index < count; ++index) {
        const auto slider = static_cast<Slider>(index);
        const auto& entry = entryOf(slider);
        control(slider).acted = [this, &entry] {
            const double value = (studio_.frmsynth.*entry.control).value();
            if (entry.take != nullptr) (this->*entry.take)(value);
        };
    }
    control(octave).setPlace(middle);
}

const char* KeyboardSliders::name(Slider slider) { return entryOf(slider).name; }
SliderControl& KeyboardSliders::control(Slider slider) const {
    return studio_.frmsynth.*entryOf(slider).control;
}

double KeyboardSliders::valueAt(Slider slider, double X) const {
    const auto& moved = control(slider);
    if (!entryOf(slider).fractions) return moved.numberAt(X);
    const auto& scale = moved.scale();
    return scale.first + moved.fractionAt(X) * scale.steps * scale.factor;
}

void KeyboardSliders::press(Slider slider, int button, double X) {
    held(slider) = true;
    move(slider, button, X);
}

void KeyboardSliders::move(Slider slider, int button, double X) {
    auto& moved = control(slider);
    if (!held(slider)) {
        if (entryOf(slider).shows) moved.setTip(decimalText(valueAt(slider, X)));
    } else if ((button & mouse::left) != 0) {
        show(slider, valueAt(slider, X));
        moved.setPlace(moved.fractionAt(X));
    } else if ((button & mouse::right) != 0) {
        rest(slider);
    }
}

void KeyboardSliders::release(Slider slider) {
    held(slider) = false;
    settle(slider);
}

void KeyboardSliders::step(Slider slider, int steps) {
    auto& moved = control(slider);
    if (entryOf(slider).fractions) {
        const double next = moved.value() + static_cast<double>(steps) * moved.scale().factor;
        show(slider, std::clamp<double>(next, moved.lowest(), moved.highest()));
    } else {
        moved.step(steps);
        show(slider, moved.value());
    }
    moved.setPlace(std::nullopt);
    settle(slider);
}

void KeyboardSliders::rest(Slider slider) {
    const auto& entry = entryOf(slider);
    show(slider, entry.resting);
    if (slider == octave) showOctave(0);
    control(slider).setPlace(entry.restsInMiddle ? std::optional(middle) : std::nullopt);
}

void KeyboardSliders::show(Slider slider, double value) {
    const auto& entry = entryOf(slider);
    (studio_.frmsynth.*entry.number).set(decimalText(value));
    if (entry.take != nullptr) (this->*entry.take)(value);
}

void KeyboardSliders::settle(Slider slider) {
    if (entryOf(slider).updates) channels_.UpdateControls();
    const auto& running = studio_.frmsynth.chkRunning;
    if (slider == beats && running.ticked() && running.acted) running.acted();
}

// What a number goes to

void KeyboardSliders::takeVolume(double value) {
    const auto number = static_cast<Int16>(value);
    if (auto* record = channels_.record()) record->Volume = number;
    output_.send(message::channelVolume(number, studio_.keyboard.LiveChannel));
}

template <Int16 LiveChannelRecord::*field, void (MidiOutput::*send)(Int16, Int16)>
void KeyboardSliders::takeEffect(double value) {
    const auto number = static_cast<Int16>(value);
    if (auto* record = channels_.record()) record->*field = number;
    std::invoke(send, output_, number, studio_.keyboard.LiveChannel);
}

void KeyboardSliders::takeChannel(double value) {
    const int number = static_cast<int>(value) + 1;
    studio_.keyboard.LiveChannel = static_cast<Int16>(value);
    studio_.frmsynth.LblChannel.set((number < 10 ? " Ch 0" : " Ch ") + std::to_string(number));
    channels_.UpdateControls();
}

/// The caption counts from the middle, the shift from the left end.
void KeyboardSliders::takeOctave(double value) {
    studio_.keyboard.OctaveShift = static_cast<Int16>(value);
    showOctave(static_cast<int>(value) - middleOctave);
}

void KeyboardSliders::showOctave(int caption) { studio_.frmsynth.LblOctave.set(std::to_string(caption)); }

void KeyboardSliders::takeChord(double value) {
    studio_.frmsynth.LblChord.set(choices_.ShowChordName(static_cast<int>(value)));
}

void KeyboardSliders::takeTempo(double value) { studio_.score.Tempo = static_cast<Int16>(value); }

void KeyboardSliders::listNames(NameTables& tables) {
    for (int index = 0; index < count; ++index) {
        const auto slider = static_cast<Slider>(index);
        const std::string strip = name(slider);
        auto& operations = tables.operations;
        operations.addMouse("frmsynth", strip + "_MouseDown",
                            [this, slider](int button, double X) { press(slider, button, X); });
        operations.addMouse("frmsynth", strip + "_MouseMove",
                            [this, slider](int button, double X) { move(slider, button, X); });
        operations.addMouse("frmsynth", strip + "_MouseUp", [this, slider](int, double) { release(slider); });
    }
}

}  // namespace melvane
