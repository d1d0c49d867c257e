#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/audio_file_sink.h"
#include "platform/clock.h"
#include "platform/midi_port.h"
#include "platform/synthesizer.h"

namespace melvane {

/// The built-in synthesizer as the only MIDI device, rendered as fast as the machine can: before each message
/// the sound up to the clock's moment goes to the sink. The clock is a virtual one, and its counter at
/// construction is the first frame. The synthesizer must have the delay 0 and be rendered by nobody else. One
/// thread.
class OfflineMidiPort final : public MidiPort {
 public:
    OfflineMidiPort(const Clock& clock, Synthesizer& synthesizer, AudioSink& sink);

    int midiOutGetNumDevs() override { return 1; }
    std::string midiOutGetDevCapsA(int device) override;
    Result midiOutOpen(Handle& handle, int device) override;
    Result midiOutClose(Handle handle) override;
    Result midiOutReset(Handle handle) override;
    Result midiOutShortMsg(Handle handle, std::uint32_t message) override;

    /// Renders up to the clock's moment. False when the sink has failed; nothing more is rendered then.
    bool renderToNow();
    /// Renders up to the clock's moment and `tailSeconds` (0 or more) beyond, then finishes the sink. What
    /// failed, as one line; no value when all went well.
    std::optional<std::string> finish(double tailSeconds);

    /// Frames that went to the sink.
    std::int64_t framesRendered() const { return rendered_; }

 private:
    static constexpr Handle onlyHandle = 1;
    std::int64_t frameAt(std::int64_t counter) const;
    std::int64_t momentOf(std::int64_t frame) const;
    bool renderTo(std::int64_t frame);

    const Clock& clock_;
    Synthesizer& synthesizer_;
    AudioSink& sink_;
    const std::int64_t start_;
    std::int64_t rendered_ = 0;
    bool open_ = false;
    bool sinkWorks_ = true;
    std::vector<float> block_;
};

}  // namespace melvane
