#include "platform/recording_midi_port.h"

#include <array>
#include <cstdio>

namespace melvane {

namespace {

std::string messageText(std::uint32_t message) {
    std::array<char, 16> text{};
    if (message > 0xFFFFFFU) {
        std::snprintf(text.data(), text.size(), "0x%08X", message);
    } else {
        std::snprintf(text.data(), text.size(), "%02X %02X %02X", message & 0xFFU, (message >> 8U) & 0xFFU,
                      (message >> 16U) & 0xFFU);
    }
    return text.data();
}

}  // namespace

std::string RecordingMidiPort::midiOutGetDevCapsA(int device) {
    if (device < 0 || device >= devices_) return {};
    return "MIDI Output " + std::to_string(device);
}

MidiPort::Result RecordingMidiPort::resultOfOpen(int device) {
    if (device < -1 || device >= devices_) return badDevice;
    int& refusals = refusals_[device];
    if (refusals == 0) return ok;
    if (refusals > 0) --refusals;
    return allocated;
}

MidiPort::Result RecordingMidiPort::midiOutOpen(Handle& handle, int device) {
    const Result result = resultOfOpen(device);
    if (result == ok) {
        handle = ++lastHandle_;
        open_.insert(handle);
    }
    log_.add("open " + std::to_string(device) + " " + std::to_string(result));
    return result;
}

MidiPort::Result RecordingMidiPort::midiOutClose(Handle handle) {
    log_.add("close");
    return open_.erase(handle) > 0 ? ok : badHandle;
}

MidiPort::Result RecordingMidiPort::midiOutReset(Handle handle) {
    log_.add("reset");
    return open_.contains(handle) ? ok : badHandle;
}

MidiPort::Result RecordingMidiPort::midiOutShortMsg(Handle handle, std::uint32_t message) {
    if (!open_.contains(handle)) return badHandle;
    log_.add(messageText(message));
    return ok;
}

}  // namespace melvane
