#include "synth/keyboard_instrument.h"

#include "core/names.h"
#include "midi/messages.h"

namespace melvane {

namespace {

constexpr Int16 usualInstrument = 24;
constexpr const char* usualName = "Nylon Guitar";
constexpr std::int32_t mapperDevice = -1;

}  // namespace

KeyboardInstrument::KeyboardInstrument(Studio& studio, Parts parts) : studio_(studio), parts_(parts) {
    auto& synth = studio_.frmsynth;
    synth.Combo1.acted = [this] { Combo1_Click(); };
    synth.Command5.acted = [this] { Command5_Click(); };
    synth.Command5.setTip("Instrument:  Click to select");
}

void KeyboardInstrument::sendProgram() {
    parts_.output.send(
        message::programChange(studio_.instruments.MelodyInstrument, studio_.keyboard.LiveChannel));
}

void KeyboardInstrument::loadInstrument() {
    auto& in = studio_.instruments;
    if (in.MelodyInstrumentName.empty()) {
        parts_.settings.read("Intrumentval", usualInstrument, in.MelodyInstrument);
        in.MelodyInstrumentName = parts_.settings.GetSetting("Inst Name", usualName);
    }
    sendProgram();
    studio_.frmsynth.LblInstrument.set(in.MelodyInstrumentName);
}

void KeyboardInstrument::takeInstrument() {
    const auto& in = studio_.instruments;
    if (in.MelodyInstrumentName.empty()) return;
    sendProgram();
    if (auto* const record = parts_.channels.record()) {
        record->Instrument = in.MelodyInstrument;
        record->Name = in.MelodyInstrumentName;
    }
    studio_.frmsynth.LblInstrument.set(in.MelodyInstrumentName);
    parts_.settings.save("Intrumentval", in.MelodyInstrument);
    parts_.settings.SaveSetting("Inst Name", in.MelodyInstrumentName);
}

void KeyboardInstrument::LblInstrument_DblClick() {
    if (studio_.keyboard.LiveChannel == message::percussionChannel) return;
    parts_.picker.showModal();
    takeInstrument();
}

bool KeyboardInstrument::openDevice() { return parts_.output.openStored() || parts_.output.openNext(); }

void KeyboardInstrument::FillDeviceList() {
    auto& list = studio_.frmsynth.Combo1;
    list.fill(parts_.output.deviceNames());
    list.set(0);
    std::int32_t stored = mapperDevice;
    parts_.settings.read("Devices", mapperDevice, stored);
    if (stored < INT32_MAX) list.set(stored + 1);
}

void KeyboardInstrument::Combo1_Click() {
    if (releaseHeldKeys) releaseHeldKeys();
    parts_.settings.save("Devices", studio_.frmsynth.Combo1.index() - 1);
    if (openDevice()) parts_.output.send(message::drumKit);
    takeInstrument();
    Command5_Click();
}

void KeyboardInstrument::listNames(NameTables& tables) {
    auto& operations = tables.operations;
    operations.add("frmsynth", "LblInstrument_DblClick", this, &KeyboardInstrument::LblInstrument_DblClick);
    operations.add("frmsynth", "Command5_Click", this, &KeyboardInstrument::Command5_Click);
    operations.add("frmsynth", "FillDeviceList", this, &KeyboardInstrument::FillDeviceList);
    operations.add("frmsynth", "Combo1_Click", this, &KeyboardInstrument::Combo1_Click);
}

}  // namespace melvane
