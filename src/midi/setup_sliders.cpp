#include "midi/setup_sliders.h"

#include <functional>

#include "core/mouse_buttons.h"
#include "core/names.h"

namespace melvane {

namespace {

struct SliderEntry {
    const char* name;
    SliderControl SetupControls::*control;
    bool rests;  ///< whether the right button does anything
};

constexpr std::array<SliderEntry, SetupSliders::count> sliders{
    {{"LblMod", &SetupControls::LblMod, true},
     {"LblPan", &SetupControls::LblPan, true},
     {"LblReverb", &SetupControls::LblReverb, true},
     {"LblChorus", &SetupControls::LblChorus, true},
     {"lblVolume", &SetupControls::lblVolume, true},
     {"LblTempo", &SetupControls::LblTempo, false},
     {"Lblbeats", &SetupControls::Lblbeats, false}}};

struct Effect {
    Int16 ChannelRecord::*field;
    void (MidiOutput::*send)(Int16 value, Int16 channel);
};

// By slider: modulation, pan, reverb, chorus.
constexpr std::array<Effect, 4> effects{{{&ChannelRecord::Modulation, &MidiOutput::SendModulation},
                                         {&ChannelRecord::Pan, &MidiOutput::SendPan},
                                         {&ChannelRecord::Reverb, &MidiOutput::SendReverb},
                                         {&ChannelRecord::Chorus, &MidiOutput::SendChorus}}};

const SliderEntry& entryOf(SetupSliders::Slider slider) { return sliders[static_cast<std::size_t>(slider)]; }

}  // namespace

SetupSliders::SetupSliders(Studio& studio, MidiOutput& output) : studio_(studio), output_(output) {
    for (int index = 0; index < count; ++index) {
        const auto slider = static_cast<Slider>(index);
        control(slider).acted = [this, slider] { take(slider); };
    }
}

const char* SetupSliders::name(Slider slider) { return entryOf(slider).name; }
SliderControl& SetupSliders::control(Slider slider) const { return studio_.Form3.*entryOf(slider).control; }

void SetupSliders::move(Slider slider, int button, double X) {
    if (!held(slider)) return;
    auto& moved = control(slider);
    if ((button & mouse::left) != 0) {
        moved.drag(X);
        take(slider);
        return moved.setPlace(moved.fractionAt(X));
    } else if ((button & mouse::right) != 0 && entryOf(slider).rests) {
        moved.set(moved.scale().resting);
    } else {
        return;
    }
    take(slider);
}

void SetupSliders::step(Slider slider, int steps) {
    control(slider).step(steps);
    take(slider);
}

void SetupSliders::take(Slider slider) {
    const auto value = static_cast<Int16>(control(slider).number());
    switch (slider) {
        case volume:
            return takeVolume(value);
        case tempo:
            studio_.score.Tempo = value;
            return;
        case beats:
            return;  // the box's own change does it
        default:
            return takeEffect(slider, value);
    }
}

/// The pan goes out as it is shown, without an offset of 64: a number below 0 sets the high bits of the
/// message.
void SetupSliders::takeEffect(Slider slider, Int16 value) {
    const auto& effect = effects[static_cast<std::size_t>(slider)];
    const Int16 channel = studio_.Form3.SetupChannel;
    studio_.tracks.ChannelSettings[static_cast<std::size_t>(channel)].*effect.field = value;
    std::invoke(effect.send, output_, value, channel);
    if (slider == pan) leaveRest(channel);
}

/// From now on the knob stands where its number says.
void SetupSliders::leaveRest(int channel) {
    auto& setup = studio_.Form3;
    if (channel >= 0 && static_cast<std::size_t>(channel) < setup.PanAtRest.size()) {
        setup.PanAtRest[static_cast<std::size_t>(channel)] = false;
    }
    setup.LblPan.setPlace(std::nullopt);
}

/// Every velocity of the track goes with the slider while the track's button is pressed.
void SetupSliders::takeVolume(Int16 value) {
    const int track = studio_.tracks.CurrentTrack;
    const auto at = static_cast<std::size_t>(track);
    studio_.tracks.TrackVolume[at] = value;
    const auto& buttons = studio_.Form3.TrackSel;
    if (at >= buttons.size() || !buttons[at].ticked()) return;
    studio_.score.VolumeArray.fillTrack(track, value, studio_.score.NumNotes);
}

void SetupSliders::listNames(NameTables& tables) {
    for (int index = 0; index < count; ++index) {
        const auto slider = static_cast<Slider>(index);
        const std::string strip = name(slider);
        tables.controls.add("Form3", strip, control(slider));
        tables.controls.add("Form3", strip + "Ptr", control(slider).pointer);
        tables.operations.addMouse("Form3", strip + "_MouseDown",
                                   [this, slider](int, double) { press(slider); });
        tables.operations.addMouse("Form3", strip + "_MouseMove",
                                   [this, slider](int button, double X) { move(slider, button, X); });
        tables.operations.addMouse("Form3", strip + "_MouseUp",
                                   [this, slider](int, double) { release(slider); });
    }
}

}  // namespace melvane
