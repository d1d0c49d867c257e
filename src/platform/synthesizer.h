#pragma once
#include <atomic>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/clock.h"
#include "platform/midi_channel_state.h"
#include "platform/sound_fluid_engine.h"
#include "platform/sound_message_feed.h"
#include "platform/sound_message_ring.h"
#include "platform/sound_source.h"

namespace melvane {

/// The built-in synthesizer. One thread sends messages, which are stamped with the clock; another renders,
/// and places each message at the frame of its stamp plus one constant delay, so that the spacing heard is
/// the spacing sent. Without a SoundFont it is silent and forgets what it is sent.
class Synthesizer final : public SoundSource {
 public:
    /// `delaySeconds`: from the sending of a message to its frame; 0 when the clock stands still while
    /// rendering.
    Synthesizer(const Clock& clock, double delaySeconds);
    ~Synthesizer() override;

    /// Loads the first of `soundFonts` that is whole. The message to show when there is none. Before it
    /// sounds, or while it sounds, but only once with success; may take some 100 ms, on any thread. What is
    /// sent meanwhile waits.
    std::optional<std::string> loadSoundFont(const std::vector<std::string>& soundFonts);
    /// Keeps what is sent from now on until loadSoundFont has ended, instead of forgetting it.
    void expectSoundFont() { state_ = State::loading; }

    /// Sending thread. A message that is no channel message or has a data byte above 127 is ignored.
    void send(std::uint32_t packed) { send(packed, clock_.counter()); }
    /// The same with a stamp of its own, in Clock counter ticks; stamps must not go back.
    void send(std::uint32_t packed, std::int64_t moment);
    /// Sending thread. Ends every note, sustained ones included; programs and other controllers stay.
    void reset() { reset(clock_.counter()); }
    void reset(std::int64_t moment);

    /// From now on the channels belong to the feed, beside what is sent, and begin anew in its opening state;
    /// with null they are again as what was sent has made them. All notes end. Returns once the former feed
    /// is not called any more. Not the rendering thread.
    void setFeed(MessageFeed* feed);
    MessageFeed* feed() const { return feed_; }

    /// Rendering thread. Messages that are due before `moment` play at the first frame.
    void mix(std::span<float> interleaved, std::int64_t moment) noexcept override;

    /// Messages that came to the renderer after their frame had gone.
    std::uint64_t lateMessages() const { return late_; }
    /// Messages that found the ring full; all notes end then.
    std::uint64_t droppedMessages() const { return dropped_; }

 private:
    enum class State { silent, loading, ready };

    void push(const StampedMessage& message);
    std::size_t frameOf(const StampedMessage& message, std::int64_t moment);
    void play(const StampedMessage& message);
    void forgetMessages();
    void giveChannelsTo(MessageFeed* feed);
    static void passOver(MessageFeed* feed, std::size_t frames, std::int64_t moment);
    void renderBlock(std::span<float> interleaved, std::int64_t moment, MessageFeed* feed);

    const Clock& clock_;
    const std::int64_t delay_;  ///< counter ticks
    MessageRing ring_;
    std::unique_ptr<FluidEngine> engine_;  ///< the renderer looks at it only in the state ready
    MidiChannelState sent_;                ///< by the messages of the ring; rendering thread
    std::atomic<State> state_{State::silent};
    std::atomic<MessageFeed*> feed_{nullptr};
    std::atomic<bool> feedHasChannels_{false};
    std::atomic<bool> isMixing_{false};
    std::atomic<bool> overflowed_{false};
    std::atomic<std::uint64_t> late_{0};
    std::atomic<std::uint64_t> dropped_{0};
};

}  // namespace melvane
