#pragma once
#include "platform/media_playable.h"
#include "platform/midi_sequence.h"
#include "platform/sound_message_feed.h"
#include "platform/sound_position.h"
#include "platform/synthesizer.h"

namespace melvane {

/// Plays a MIDI file on the built-in synthesizer, whose channels it has while it sounds.
class MidiPlayer final : public Playable, public MessageFeed {
 public:
    /// `synthesizer` outlives it.
    MidiPlayer(MidiSequence sequence, Synthesizer& synthesizer, const Clock& clock, double delaySeconds);
    ~MidiPlayer() override { halt(); }
    MidiPlayer(const MidiPlayer&) = delete;
    MidiPlayer& operator=(const MidiPlayer&) = delete;

    std::int64_t length() const override { return sequence_.length; }
    /// False while another file has the synthesizer.
    bool start(std::int64_t from, std::int64_t to) override;
    void halt() override;
    std::int64_t position() const override { return position_.heard(); }

    const MidiChannelState& opening() const noexcept override { return opening_; }
    void beginBlock(std::size_t frames, std::int64_t moment) noexcept override;
    std::optional<Due> next() noexcept override;

 private:
    std::optional<Due> nextBehindEnd() noexcept;
    ShortMessage messageAt(std::size_t event) const noexcept;

    /// Messages a block; more of them at one moment come late instead of stopping the sound.
    static constexpr int mostABlock = 1024;

    const MidiSequence sequence_;
    Synthesizer& synthesizer_;
    SoundPosition position_;
    const double ticksPerFrame_;
    MidiChannelState opening_;
    std::size_t next_ = 0;    ///< event
    std::int64_t block_ = 0;  ///< frame of the sequence at which the current block begins
    std::int64_t end_ = 0;    ///< and where it ends
    std::int64_t to_ = 0;
    int playedInBlock_ = 0;
    int endedChannels_ = 0;  ///< at the end: first the sustain of each, then its notes
};

}  // namespace melvane
