#pragma once
#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "platform/clock.h"
#include "platform/sound_output.h"
#include "platform/sound_source.h"

namespace melvane {

struct SoundCardCore;

/// The machine's sound output. Mixes the sources into one stream in the one audio callback and hands the mix
/// to the taps. While the machine has no output, the same stream is taken in real time by a thread and thrown
/// away; an output that comes (back) is used within two seconds.
///
/// Construction and destruction are quick whatever the sound server does: a thread of the card talks to it.
class SoundCard {
 public:
    /// The delay for a Synthesizer that is played through the card. It must cover one block of 256 frames (6
    /// ms) and the unevenness with which a sound server asks for blocks (10 to 15 ms measured); 25 ms leaves
    /// some margin. The output's own buffer comes on top.
    static constexpr double messageDelaySeconds = 0.025;

    /// How often the card's thread looks.
    struct Watch {
        std::chrono::milliseconds atOutput{200};    ///< whether the output still plays
        std::chrono::milliseconds forOutput{2000};  ///< whether there is one now
    };

    /// The clock, the sources and the taps must outlive the card.
    SoundCard(const Clock& clock, std::vector<SoundSource*> sources, std::vector<SoundTap*> taps);
    SoundCard(const Clock& clock, std::vector<SoundSource*> sources, std::vector<SoundTap*> taps,
              SoundOutput::Opener opener, Watch watch);
    ~SoundCard();
    SoundCard(const SoundCard&) = delete;
    SoundCard& operator=(const SoundCard&) = delete;

    /// What the user is to be told, once: no output, output lost, output back. Any thread.
    std::optional<std::string> takeNotice();
    /// Whether an output of the machine plays the stream now. Any thread.
    bool hasOutput() const;

    static constexpr const char* noOutputNotice = "There is no sound output; playing goes on without sound.";
    static constexpr const char* lostNotice = "The sound output is lost; playing goes on without sound.";
    static constexpr const char* backNotice = "The sound output is back.";

 private:
    std::shared_ptr<SoundCardCore>
        core_;  ///< shared with the threads: one that hangs in the server is left behind
    std::thread puller_;
    std::thread watcher_;
};

}  // namespace melvane
