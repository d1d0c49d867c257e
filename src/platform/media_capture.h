#pragma once
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/media_capture_input.h"
#include "platform/media_capture_writer.h"
#include "platform/media_unit.h"

namespace melvane {

/// Where a capture gets its sound from.
struct CaptureSources {
    /// Hears the program's own sound. Outlives every capture.
    CaptureTap& mix;
    /// Whether what is to be recorded is played by another device than the built-in synthesizer.
    std::function<bool()> soundsElsewhere;
    SoundInput::Opener openInput;
    CaptureInput::Pace pace;
};

/// The device "waveaudio": records the program's own sound, or the machine's sound input while another MIDI
/// output is in use. It follows the outputs while it records.
class MediaCapture final : public MediaUnit {
 public:
    /// `mostBytes`: of a recording. `folders`: where it may lie until it is saved, the first that takes it.
    MediaCapture(const CaptureSources& sources, std::uint64_t mostBytes, std::vector<std::string> folders);
    ~MediaCapture() override;
    MediaCapture(const MediaCapture&) = delete;
    MediaCapture& operator=(const MediaCapture&) = delete;

    MediaDevice::Answer act(const MediaCommand& command) override;
    void catchUp() override { writer_.catchUp(); }
    /// A recording goes on with the program's own sound, which alone has the file in it, from its first
    /// frame.
    void expectFile() override;
    void noteFile(bool plays) override;
    /// Another output that now sounds alone is recorded by the input as soon as that is open; once the
    /// built-in synthesizer is back, the mix is recorded again.
    void noteOutput() override;

    /// A code when there is no place on the disk for recordings; it is of no use then.
    MediaDevice::Answer readiness() const { return writer_.readiness(); }

 private:
    using Answer = MediaDevice::Answer;
    Answer setFormat(const WaveFormat& format);
    Answer record();
    Answer openSource();
    Answer stop();
    Answer save(const std::string& path);
    Answer erase();
    void closeSource();
    void turnToMix();
    void dropInput();
    Answer inputFaults() const;
    Answer length() const;

    const CaptureSources sources_;
    CaptureWriter writer_;
    std::unique_ptr<CaptureInput> input_;
    bool isRecording_ = false;
    bool turnsToMix_ = false;  ///< the mix has the ring while the input is still open
    CaptureInput::Troubles troubles_;
    Answer recordFailure_;  ///< of the last start; a code of 0 when it was none
};

}  // namespace melvane
