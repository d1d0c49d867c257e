#include "platform/offline_midi_port.h"

#include <algorithm>
#include <cmath>

#include "platform/midi_devices.h"

namespace melvane {

namespace {

constexpr std::int64_t framesAtOnce = 2048;

}  // namespace

OfflineMidiPort::OfflineMidiPort(const Clock& clock, Synthesizer& synthesizer, AudioSink& sink)
    : clock_(clock), synthesizer_(synthesizer), sink_(sink), start_(clock.counter()) {
    block_.reserve(static_cast<std::size_t>(framesAtOnce) * soundChannels);
}

std::string OfflineMidiPort::midiOutGetDevCapsA(int device) {
    return device == -1 || device == 0 ? builtInDeviceName : "";
}

MidiPort::Result OfflineMidiPort::midiOutOpen(Handle& handle, int device) {
    if (device != -1 && device != 0) return badDevice;
    open_ = true;
    handle = onlyHandle;
    return ok;
}

MidiPort::Result OfflineMidiPort::midiOutClose(Handle handle) {
    if (!open_ || handle != onlyHandle) return badHandle;
    open_ = false;
    return ok;
}

MidiPort::Result OfflineMidiPort::midiOutReset(Handle handle) {
    if (!open_ || handle != onlyHandle) return badHandle;
    renderToNow();
    synthesizer_.reset();
    return ok;
}

MidiPort::Result OfflineMidiPort::midiOutShortMsg(Handle handle, std::uint32_t message) {
    if (!open_ || handle != onlyHandle) return badHandle;
    renderToNow();
    synthesizer_.send(message);
    return ok;
}

// Whole seconds and the rest apart, so that no product overflows.
std::int64_t OfflineMidiPort::frameAt(std::int64_t counter) const {
    const std::int64_t passed = counter - start_;
    const std::int64_t frequency = clock_.frequency();
    return passed / frequency * soundRate + passed % frequency * soundRate / frequency;
}

std::int64_t OfflineMidiPort::momentOf(std::int64_t frame) const {
    const std::int64_t frequency = clock_.frequency();
    return start_ + frame / soundRate * frequency + frame % soundRate * frequency / soundRate;
}

bool OfflineMidiPort::renderTo(std::int64_t frame) {
    while (sinkWorks_ && rendered_ < frame) {
        const std::int64_t frames = std::min(framesAtOnce, frame - rendered_);
        block_.assign(static_cast<std::size_t>(frames) * soundChannels, 0.0F);
        synthesizer_.mix(block_, momentOf(rendered_));
        sinkWorks_ = sink_.write(block_);
        rendered_ += frames;
    }
    return sinkWorks_;
}

bool OfflineMidiPort::renderToNow() { return renderTo(frameAt(clock_.counter())); }

std::optional<std::string> OfflineMidiPort::finish(double tailSeconds) {
    const auto tail = static_cast<std::int64_t>(std::llround(std::max(0.0, tailSeconds) * soundRate));
    renderTo(frameAt(clock_.counter()) + tail);
    return sink_.finish();
}

}  // namespace melvane
