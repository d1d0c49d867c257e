#include "platform/midi_devices.h"

#include <algorithm>

namespace melvane {

namespace {

constexpr std::size_t longestName = 31;  // bytes

bool isBuiltIn(int device) { return device == -1 || device == 0; }

/// At most 31 bytes, without half a character of UTF-8 at the end.
std::string cutName(std::string name) {
    if (name.size() <= longestName) return name;
    std::size_t end = longestName;
    while (end > 0 && (static_cast<unsigned char>(name[end]) & 0xC0U) == 0x80U) --end;
    name.resize(end);
    return name;
}

ShortMessage threeBytes(std::uint8_t kind, std::uint8_t channel, std::uint8_t first) {
    return {.kind = kind, .channel = channel, .first = first, .second = 0, .length = 3};
}

}  // namespace

MidiDevices::MidiDevices(Synthesizer& synthesizer, SystemMidi& system)
    : synthesizer_(synthesizer), system_(system) {}

MidiDevices::~MidiDevices() = default;

int MidiDevices::midiOutGetNumDevs() { return 1 + static_cast<int>(system_.names().size()); }

std::string MidiDevices::midiOutGetDevCapsA(int device) {
    if (isBuiltIn(device)) return builtInDeviceName;
    const auto names = system_.names();
    const auto index = static_cast<std::size_t>(device) - 1;
    return device > 0 && index < names.size() ? cutName(names[index]) : std::string();
}

MidiPort::Result MidiDevices::midiOutOpen(Handle& handle, int device) {
    Device opened;
    if (!isBuiltIn(device)) {
        if (device < 0 || device >= midiOutGetNumDevs()) return badDevice;
        opened.output = system_.open(static_cast<std::size_t>(device) - 1);
        if (!opened.output) return allocated;
    }
    handle = ++lastHandle_;
    open_.emplace(handle, std::move(opened));
    whenOpened();
    return ok;
}

MidiPort::Result MidiDevices::midiOutClose(Handle handle) {
    return open_.erase(handle) == 1 ? ok : badHandle;
}

MidiPort::Result MidiDevices::midiOutReset(Handle handle) {
    const auto found = open_.find(handle);
    if (found == open_.end()) return badHandle;
    if (found->second.output) {
        silence(found->second);
    } else {
        synthesizer_.reset();
    }
    return ok;
}

MidiPort::Result MidiDevices::midiOutShortMsg(Handle handle, std::uint32_t message) {
    const auto found = open_.find(handle);
    if (found == open_.end()) return badHandle;
    if (!found->second.output) {
        synthesizer_.send(message);
    } else if (const auto decoded = decodeShortMessage(message)) {
        sendToSystem(found->second, *decoded);
    }
    return ok;
}

bool MidiDevices::soundsElsewhere() const {
    const auto isSystem = [](const auto& each) { return each.second.output != nullptr; };
    return !open_.empty() && std::ranges::all_of(open_, isSystem);
}

// Notes one by one as well, for devices that do not know the silencing controllers.
void MidiDevices::silence(Device& device) {
    for (std::uint8_t channel = 0; channel < 16; ++channel) {
        for (std::uint8_t key = 0; key < 128; ++key) {
            if (device.struck[channel].test(key))
                sendToSystem(device, threeBytes(message_kind::noteOff, channel, key));
        }
        for (const std::uint8_t controller :
             {midi_controller::sustain, midi_controller::allNotesOff, midi_controller::allSoundOff}) {
            sendToSystem(device, threeBytes(message_kind::controlChange, channel, controller));
        }
    }
}

void MidiDevices::sendToSystem(Device& device, const ShortMessage& message) {
    if (message.kind == message_kind::noteOn || message.kind == message_kind::noteOff) {
        device.struck[message.channel].set(message.first,
                                           message.kind == message_kind::noteOn && message.second > 0);
    }
    const std::array<std::uint8_t, 3> bytes = {message.status(), message.first, message.second};
    // A device that is gone must not end the playing, so a message that fails is passed over.
    static_cast<void>(device.output->send(std::span(bytes).first(message.length)));
}

}  // namespace melvane
