#pragma once
#include <atomic>
#include <memory>
#include <vector>

#include "platform/media_audio_reader.h"
#include "platform/media_playable.h"
#include "platform/media_worker.h"
#include "platform/sound_position.h"
#include "platform/sound_ring.h"
#include "platform/sound_source.h"
#include "platform/sound_voices.h"

namespace melvane {

/// Plays an audio file: a thread of its own reads ahead into a ring, which the audio callback empties.
class SoundFilePlayer final : public Playable, public SoundSource {
 public:
    /// `voices` outlives it.
    SoundFilePlayer(std::unique_ptr<AudioReader> reader, SoundVoices& voices, const Clock& clock,
                    double delaySeconds);
    ~SoundFilePlayer() override { halt(); }
    SoundFilePlayer(const SoundFilePlayer&) = delete;
    SoundFilePlayer& operator=(const SoundFilePlayer&) = delete;

    std::int64_t length() const override { return reader_->length(); }
    bool start(std::int64_t from, std::int64_t to) override;
    void halt() override;
    std::int64_t position() const override { return position_.heard(); }
    void catchUp() override { worker_.doNow(); }

    void mix(std::span<float> interleaved, std::int64_t moment) noexcept override;

 private:
    static constexpr std::size_t ringFrames = 2 * soundRate;
    static constexpr std::size_t mixFrames = 256;

    void readAhead();
    void readAhead(std::size_t frames);

    std::unique_ptr<AudioReader> reader_;
    SoundVoices& voices_;
    SoundPosition position_;
    const double ticksPerFrame_;
    SoundRing ring_{ringFrames * soundChannels};
    std::vector<float> read_;   ///< what has not gone into the ring yet
    std::size_t readUsed_ = 0;  ///< values of its start that have
    std::int64_t unread_ = 0;   ///< frames of the stretch that are to be put into the ring
    std::int64_t to_ = 0;
    std::atomic<bool> isRead_{false};  ///< the ring gets nothing more
    MediaWorker worker_{[this] { readAhead(); }};
};

}  // namespace melvane
