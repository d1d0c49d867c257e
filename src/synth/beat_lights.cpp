#include "synth/beat_lights.h"

#include "core/names.h"

namespace melvane {

namespace {

constexpr std::array<const char*, 5> tempos{"30", "60", "120", "180", "240"};
constexpr std::array<const char*, 4> tempoTips{"30 beats per minute", "60 beats per minute",
                                               "120 beats per minute", "180 beats per minute"};
constexpr double tempoRange = 300;  // of the slider, beats a minute
constexpr Colour firstDark{0, 0x80, 0}, otherDark{0x80, 0, 0};
constexpr Colour firstBright{0, 255, 0}, otherBright{255, 0, 0};
constexpr int beatChannel = 14;
constexpr std::array<int, 4> beatNotes{54, 64, 70, 72};

}  // namespace

BeatLights::BeatLights(Studio& studio, Metronome& metronome, KeySounds& sounds)
    : studio_(studio), metronome_(metronome), sounds_(sounds) {
    auto& synth = studio.frmsynth;
    synth.Picmetro.setVisible(false);
    synth.chkRunning.setTip("Metronome On/Off");
    synth.chkRunning.acted = [this] { chkRunning_Click(); };
    for (std::size_t index = 0; index < tempos.size(); ++index) {
        if (index < tempoTips.size()) synth.Optbeat[index].setTip(tempoTips[index]);
        synth.Optbeat[index].acted = [this, index] { choose(static_cast<int>(index)); };
    }
    metronome_.onBeat = [this](std::int32_t& Beat) { onBeat(Beat); };
    metronome_.onStop = [this] { onStop(); };
    ResetColors();
}

void BeatLights::chkRunning_Click() {
    auto& synth = studio_.frmsynth;
    const bool runs = synth.chkRunning.ticked();
    synth.Picmetro.setVisible(runs);
    metronome_.StopMetronome();
    if (!runs) return;
    assign(studio_.keyboard.cMetronome1.BeatsPerMinute, leadingNumber(synth.txtValue.text()));
    metronome_.StartMetronome();
}

/// One of a row of options; a click on the one that is on changes nothing else.
void BeatLights::choose(int index) {
    auto& buttons = studio_.frmsynth.Optbeat;
    const bool isNew = buttons[static_cast<std::size_t>(index)].ticked();
    for (int other = 0; other < static_cast<int>(buttons.size()); ++other) {
        if (isNew || other == index) buttons[static_cast<std::size_t>(other)].set(other == index);
    }
    if (isNew) Optbeat_Click(index);
}

void BeatLights::Optbeat_Click(int Index) {
    auto& synth = studio_.frmsynth;
    const auto at = static_cast<std::size_t>(Index);
    if (at >= tempos.size() || !synth.Optbeat[at].ticked()) return;
    synth.txtValue.set(tempos[at]);
    auto& slider = synth.Lblbeats;
    const double left =
        leadingNumber(tempos[at]) * slider.trackWidth / tempoRange - slider.pointerWidth / 2.0;
    const double way = slider.trackWidth - slider.pointerWidth;
    if (way > 0) slider.setPlace(left / way);
    if (synth.chkRunning.ticked()) chkRunning_Click();
}

void BeatLights::ResetColors() {
    auto& lights = studio_.frmsynth.pctBeat;
    for (std::size_t at = 0; at < lights.size(); ++at)
        lights[at].setBackColour(at == 0 ? firstDark : otherDark);
}

void BeatLights::onBeat(int Beat) {
    ResetColors();
    light(Beat);
    if (studio_.frmsynth.Check9.ticked()) sound(Beat);
}

void BeatLights::light(int beat) {
    auto& lights = studio_.frmsynth.pctBeat;
    const auto at = static_cast<std::size_t>(beat) - 1;
    if (at < lights.size()) lights[at].setBackColour(at == 0 ? firstBright : otherBright);
}

/// Ends the sound of the beat before and begins its own. The octave moves the fourth alone.
void BeatLights::sound(int beat) {
    constexpr int beats = static_cast<int>(beatNotes.size());
    for (int slot = 0; slot < beats; ++slot) {
        const bool isLast = slot == beats - 1;
        sounds_.setNote(
            slot, beatNotes[static_cast<std::size_t>(slot)] + (isLast ? studio_.keyboard.OctaveShift : 0));
    }
    if (beat < 1 || beat > beats) return;
    sounds_.noteOff((beat + beats - 2) % beats, beatChannel);
    sounds_.noteOn(beat - 1, beatChannel);
}

void BeatLights::listNames(NameTables& tables) {
    auto& operations = tables.operations;
    operations.add("frmsynth", "chkRunning_Click", this, &BeatLights::chkRunning_Click);
    operations.add("frmsynth", "Optbeat_Click", this, &BeatLights::Optbeat_Click);
    operations.add("frmsynth", "onBeat", this, &BeatLights::onBeat);
    operations.add("frmsynth", "onStop", this, &BeatLights::onStop);
    operations.add("frmsynth", "cMetronome1_onBeat", this, &BeatLights::onBeat);
    operations.add("frmsynth", "cMetronome1_onStop", this, &BeatLights::onStop);
    operations.add("frmsynth", "ResetColors", this, &BeatLights::ResetColors);
}

}  // namespace melvane
