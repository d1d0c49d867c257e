#include "synth/key_switches.h"

#include "core/names.h"
#include "midi/messages.h"

namespace melvane {

namespace {

constexpr int heldValue = 127;

}  // namespace

KeySwitches::KeySwitches(Studio& studio, MidiOutput& output) : studio_(studio), output_(output) {
    auto& synth = studio.frmsynth;
    synth.Check10.acted = [this] { Check10_Click(); };
    synth.Check8.acted = [this] { Check8_Click(); };
    synth.Check2.acted = [this] { Check2_Click(); };
    synth.ChkSustain.acted = [this] { ChkSustain_Click(); };
    synth.ChkMute.acted = [this] { ChkMute_Click(); };
}

void KeySwitches::choose(CheckControl& chosen) {
    if (!chosen.ticked()) return;
    auto& synth = studio_.frmsynth;
    for (CheckControl* box : {&synth.Check10, &synth.Check8, &synth.Check2}) {
        if (box != &chosen) box->set(false);
    }
}

void KeySwitches::Check10_Click() { choose(studio_.frmsynth.Check10); }
void KeySwitches::Check8_Click() { choose(studio_.frmsynth.Check8); }
void KeySwitches::Check2_Click() { choose(studio_.frmsynth.Check2); }

LiveChannelRecord* KeySwitches::channel() {
    auto& keyboard = studio_.keyboard;
    const auto at = static_cast<std::size_t>(keyboard.LiveChannel);
    return at < keyboard.ChannelTable.size() ? &keyboard.ChannelTable[at] : nullptr;
}

void KeySwitches::ChkSustain_Click() {
    const bool holds = studio_.frmsynth.ChkSustain.ticked();
    if (auto* record = channel()) record->Sustain = holds ? 1 : 0;
    output_.send(message::hold(holds ? heldValue : 0, studio_.keyboard.LiveChannel));
}

void KeySwitches::ChkMute_Click() {
    if (auto* record = channel()) record->Mute = studio_.frmsynth.ChkMute.ticked() ? 1 : 0;
}

void KeySwitches::listNames(NameTables& tables) {
    auto& operations = tables.operations;
    operations.add("frmsynth", "Check10_Click", this, &KeySwitches::Check10_Click);
    operations.add("frmsynth", "Check8_Click", this, &KeySwitches::Check8_Click);
    operations.add("frmsynth", "Check2_Click", this, &KeySwitches::Check2_Click);
    operations.add("frmsynth", "ChkSustain_Click", this, &KeySwitches::ChkSustain_Click);
    operations.add("frmsynth", "ChkMute_Click", this, &KeySwitches::ChkMute_Click);
}

}  // namespace melvane
