#pragma once
#include <functional>
#include <string>
#include <vector>

#include "platform/clock.h"
#include "platform/sound_source.h"
#include "platform/synthesizer.h"
#ifdef _WIN32
#include "platform/media_system_device.h"
#else
#include "platform/media_portable_device.h"
#endif

namespace melvane {

/// What a media device asks the program around it.
struct MediaSurroundings {
    /// Whether another MIDI output than the built-in synthesizer is in use.
    std::function<bool()> soundsElsewhere = [] { return false; };
    /// The folder in which recordings are saved.
    std::function<std::string()> recordingsFolder = [] { return std::string(); };
};

/// The one place that chooses the media device: the system's own where it has one, else the portable one.
/// User-interface thread.
class MediaSystem {
 public:
    /// The clock and the synthesizer outlive it.
    MediaSystem(const Clock& clock, Synthesizer& synthesizer, MediaSurroundings around);

    MediaDevice& device() { return device_; }
    /// What belongs into the sound card's lists.
    std::vector<SoundSource*> sources();
    std::vector<SoundTap*> taps();
    /// A MIDI output has been opened.
    void noteOutput();

 private:
#ifdef _WIN32
    SystemMediaDevice device_;
#else
    PortableMediaDevice device_;
#endif
};

}  // namespace melvane
