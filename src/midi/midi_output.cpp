#include "midi/midi_output.h"

#include "core/instrument_names.h"
#include "core/names.h"
#include "midi/messages.h"

namespace melvane {

namespace {

constexpr const char* mapperName = "MIDI Mapper";
constexpr int mapperDevice = -1;
constexpr int lastRetriedDevice = 8;

}  // namespace

bool MidiOutput::CheckMidiDevices() {
    if (port_.midiOutGetNumDevs() > 0) return true;
    dialogs_.messageBox(BoxKind::critical, "Melvane - Error",
                        "Unable to detect any midi output devices.\n\nTerminating...");
    return false;
}

MidiPort::Result MidiOutput::open(int device) {
    studio_.sounds.MidiResult = port_.midiOutOpen(studio_.sounds.MidiOutHandle, device);
    open_ = studio_.sounds.MidiResult == MidiPort::ok;
    return studio_.sounds.MidiResult;
}

MidiPort::Result MidiOutput::reopen(int device) {
    port_.midiOutReset(studio_.sounds.MidiOutHandle);
    port_.midiOutClose(studio_.sounds.MidiOutHandle);
    return open(device);
}

void MidiOutput::Device_Click(int) {
    auto& device = studio_.sounds.MidiDeviceId;
    settings_.read("Devices", std::int32_t{0}, device);
    if (reopen(device) == MidiPort::ok) {
        send(message::drumKit);
        return;
    }
    if (device > lastRetriedDevice) return;
    reopen(device + 1);  // closed again below, whatever it gave
    if (reopen(device) == MidiPort::ok) return;
    reopen(mapperDevice);
    studio_.Form3.Combo2.set(0);
    settings_.save("Devices", mapperDevice);
}

void MidiOutput::CloseMidi() {
    port_.midiOutClose(studio_.sounds.MidiOutHandle);
    open_ = false;
}

void MidiOutput::closeForGood() {
    open_ = false;
    studio_.sounds.MidiResult = port_.midiOutClose(studio_.sounds.MidiOutHandle);
}

void MidiOutput::chooseDevice() {
    settings_.save("Devices", studio_.Form3.Combo2.index() - 1);
    Device_Click(studio_.Form3.Combo2.index());
}

void MidiOutput::reset() { port_.midiOutReset(studio_.sounds.MidiOutHandle); }

void MidiOutput::openAtActivation() {
    if (openStored())
        send(message::drumKit);
    else
        openNext();
}

void MidiOutput::openUnlessOpen() {
    if (!open_) openAtActivation();
}

bool MidiOutput::openStored() {
    CloseMidi();
    return openClosed();
}

bool MidiOutput::openClosed() {
    auto& device = studio_.sounds.MidiDeviceId;
    settings_.read("Devices", std::int32_t{mapperDevice}, device);
    return open(device) == MidiPort::ok;
}

bool MidiOutput::openNext() {
    const auto device = studio_.sounds.MidiDeviceId;
    CloseMidi();
    return device < INT32_MAX && open(device + 1) == MidiPort::ok;
}

std::vector<std::string> MidiOutput::deviceNames() {
    std::vector<std::string> names{mapperName};
    const int devices = port_.midiOutGetNumDevs();
    for (int device = 0; device < devices; ++device) names.push_back(port_.midiOutGetDevCapsA(device));
    return names;
}

void MidiOutput::fillDeviceList(ListControl& list) {
    list.fill(deviceNames());
    list.set(0);
    std::int32_t stored = mapperDevice;
    settings_.read("Devices", std::int32_t{0}, stored);
    if (stored < INT32_MAX) list.set(stored + 1);
    settings_.save("Devices", list.index() - 1);
}

void MidiOutput::send(std::uint32_t message) { port_.midiOutShortMsg(studio_.sounds.MidiOutHandle, message); }

void MidiOutput::SendModulation(Int16 value, Int16 channel) { send(message::modulation(value, channel)); }
void MidiOutput::SendPan(Int16 value, Int16 channel) { send(message::pan(value, channel)); }
void MidiOutput::SendReverb(Int16 value, Int16 channel) { send(message::reverb(value, channel)); }
void MidiOutput::SendChorus(Int16 value, Int16 channel) { send(message::chorus(value, channel)); }

void MidiOutput::listNames(NameTables& tables) {
    auto& operations = tables.operations;
    operations.add("form1", "CheckMidiDevices", this, &MidiOutput::CheckMidiDevices);
    operations.add("form1", "Device_Click", this, &MidiOutput::Device_Click);
    operations.add("form1", "Combo2_Click", this, &MidiOutput::Combo2_Click);
    operations.add("form1", "ChordName", &ChordName);
    operations.add("form1", "CloseMidi", this, &MidiOutput::CloseMidi);
    operations.add("Form3", "Combo2_Click", this, &MidiOutput::chooseDevice);
    operations.add("form1", "SendModulation", this, &MidiOutput::SendModulation);
    operations.add("form1", "SendPan", this, &MidiOutput::SendPan);
    operations.add("form1", "SendReverb", this, &MidiOutput::SendReverb);
    operations.add("form1", "SendChorus", this, &MidiOutput::SendChorus);
}

}  // namespace melvane
