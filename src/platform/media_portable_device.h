#pragma once
#include <map>
#include <memory>
#include <string>

#include "platform/media_capture.h"
#include "platform/media_content.h"
#include "platform/media_device.h"
#include "platform/media_playable.h"
#include "platform/media_unit.h"
#include "platform/sound_voices.h"
#include "platform/synthesizer.h"

namespace melvane {

/// The media device of systems that have none of their own: records what the program plays, and plays WAV,
/// MP3 and MIDI files into the program's own sound. tap() and voices() belong into the sound card's lists.
class PortableMediaDevice final : public MediaDevice {
 public:
    struct Setting {
        /// Whether another MIDI output than the built-in synthesizer is in use.
        std::function<bool()> soundsElsewhere = [] { return false; };
        SoundInput::Opener openInput = &openMachineInput;
        /// From the moment of a block to its being heard.
        double outputDelaySeconds = 0.030;
        CaptureInput::Pace inputPace = {};
        /// Where recordings will be saved; they lie there from the start, without a name. Empty: unknown.
        std::function<std::string()> recordingsFolder = [] { return std::string(); };
        std::uint64_t mostCaptureBytes = mostWaveData;
        /// Files up to this size are read by the command that opens them, larger ones by a thread, for which
        /// it waits no longer than the patience.
        std::uint64_t mostReadAtOnce = 1U << 20U;
        std::chrono::milliseconds readPatience{40};
    };

    /// The clock and the synthesizer outlive it.
    PortableMediaDevice(const Clock& clock, Synthesizer& synthesizer, Setting setting);
    ~PortableMediaDevice() override;

    Answer send(const std::string& command) override;

    SoundSource& voices() { return voices_; }
    SoundTap& tap() { return mixTap_; }
    /// A MIDI output has been opened. User-interface thread.
    void noteOutput();
    /// Does at once what the threads of captures and players do now and then, for a stream that is rendered
    /// faster than it is heard. User-interface thread.
    void catchUp();

 private:
    Answer open(const MediaCommand& command);
    Answer close(const MediaCommand& command);
    Answer act(const MediaCommand& command);
    Answer startFile(MediaUnit& unit, const MediaCommand& command);
    Answer openCapture(const std::string& alias);
    Answer openFile(const std::string& alias, const std::string& path);
    std::unique_ptr<Playable> playableOf(MediaContent content);
    bool aFilePlays() const;

    const Clock& clock_;
    Synthesizer& synthesizer_;
    const Setting setting_;
    CaptureTap mixTap_;
    SoundVoices voices_;
    std::map<std::string, std::unique_ptr<MediaUnit>> units_;  ///< by alias in lower case
};

}  // namespace melvane
