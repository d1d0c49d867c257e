#include "synth/keyboard_channels.h"

#include "core/names.h"
#include "midi/messages.h"

namespace melvane {

namespace {

constexpr Int16 tableVolume = 127, toldVolume = 100, centrePan = 64;

struct Preset {
    const char* name;
    Int16 program;
};

// The names of the first two are crossed against their programs.
constexpr std::array<Preset, 16> presets{{{"Drawbar Organ", 0},
                                          {"Acoustic Grand Piano", 16},
                                          {"Nylon Guitar", 24},
                                          {"Pick Electric Bass", 34},
                                          {"String Ensemble 1", 48},
                                          {"Synth Strings 1", 50},
                                          {"Choir Aahs", 52},
                                          {"Brass Section", 61},
                                          {"Lead 1 (square)", 80},
                                          {"Percussion", 0},
                                          {"Lead 6 (voice)", 85},
                                          {"Pad 2 (warm)", 89},
                                          {"Pad 4 (choir)", 91},
                                          {"FX 2 (soundtrack)", 97},
                                          {"Woodblock", 115},
                                          {"FX 7 (echoes)", 102}}};

}  // namespace

void KeyboardChannels::InitChannels() {
    for (std::size_t at = 0; at < presets.size(); ++at) {
        auto& record = studio_.keyboard.ChannelTable[at];
        record = {};
        record.Name = presets[at].name;
        record.Instrument = presets[at].program;
        record.Volume = tableVolume;
        record.Pan = centrePan;
        tellPort(static_cast<Int16>(at));
    }
    UpdateControls();
}

void KeyboardChannels::tellPort(Int16 channel) {
    const auto& record = studio_.keyboard.ChannelTable[static_cast<std::size_t>(channel)];
    output_.send(message::programChange(record.Instrument, channel));
    output_.send(message::channelVolume(toldVolume, channel));
    output_.SendPan(centrePan, channel);
    output_.SendReverb(0, channel);
    output_.SendChorus(0, channel);
    output_.SendModulation(0, channel);
    output_.send(message::hold(0, channel));
}

LiveChannelRecord* KeyboardChannels::record() {
    auto& keyboard = studio_.keyboard;
    const auto at = static_cast<std::size_t>(keyboard.LiveChannel);
    return at < keyboard.ChannelTable.size() ? &keyboard.ChannelTable[at] : nullptr;
}

void KeyboardChannels::UpdateControls() {
    const auto* const now = record();
    if (now == nullptr) return;
    auto& synth = studio_.frmsynth;
    synth.LPan.set(std::to_string(now->Pan));
    synth.LReverb.set(std::to_string(now->Reverb));
    synth.LChorus.set(std::to_string(now->Chorus));
    synth.LMod.set(std::to_string(now->Modulation));
}

void KeyboardChannels::listNames(NameTables& tables) {
    tables.operations.add("frmsynth", "InitChannels", this, &KeyboardChannels::InitChannels);
    tables.operations.add("frmsynth", "UpdateControls", this, &KeyboardChannels::UpdateControls);
}

}  // namespace melvane
