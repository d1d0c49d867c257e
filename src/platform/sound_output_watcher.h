#pragma once
#include <atomic>
#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

#include "platform/clock.h"
#include "platform/sound_mixer.h"
#include "platform/sound_output.h"
#include "platform/sound_puller.h"

namespace melvane {

/// What the threads of a sound card share.
struct SoundCardCore {
    SoundCardCore(const Clock& clockOfAll, std::vector<SoundSource*> sources, std::vector<SoundTap*> taps)
        : clock(clockOfAll),
          frequency(clock.frequency()),
          mixer(std::move(sources), std::move(taps), frequency),
          puller(mixer, frequency) {}

    const Clock& clock;  ///< may be gone once the mixer is closed
    const std::int64_t frequency;
    SoundMixer mixer;

    std::mutex mutex;  ///< guards what follows; the audio callback never takes it
    std::condition_variable changed;
    SoundPuller puller;
    std::deque<std::string> notices;
    bool isEnding = false;
    bool watcherEnded = false;
    std::atomic<bool> hasOutput{false};
};

/// Looks after the output of a sound card: opens it, sees when it is lost or no longer asks for sound, lets
/// the puller take over, and gives the stream back. One thread, which may hang in the sound server.
class OutputWatcher {
 public:
    OutputWatcher(std::shared_ptr<SoundCardCore> core, SoundOutput::Opener opener);
    ~OutputWatcher();

    /// One look. True while an output plays or may play again by itself.
    bool look();

 private:
    /// One opened output's end of the stream; its callback may outlive the watcher's interest.
    struct Stream;

    void tryToOpen();
    void useOutput();
    void giveToPuller();
    void tell(const char* notice);  ///< once, until an output is there again

    std::shared_ptr<SoundCardCore> core_;
    SoundOutput::Opener opener_;
    std::shared_ptr<Stream> stream_;
    std::unique_ptr<SoundOutput> output_;
    std::uint64_t blocksSeen_ = 0;
    unsigned looksWithoutBlock_ = 0;
    bool userWasTold_ = false;
};

}  // namespace melvane
