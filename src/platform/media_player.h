#pragma once
#include <functional>
#include <memory>
#include <optional>

#include "platform/media_content.h"
#include "platform/media_playable.h"
#include "platform/media_unit.h"

namespace melvane {

/// Plays a file by commands. One frame of its time format is 1/30 second, whatever the file is. What is
/// wanted of a file that has not been read yet is done with the first command behind that. The length that
/// was told first stays the length, so that a caller which keeps it finds the end there, whatever the file
/// really has.
class MediaPlayer final : public MediaUnit {
 public:
    using MakeSound = std::function<std::unique_ptr<Playable>(MediaContent content)>;

    MediaPlayer(MediaReading reading, MakeSound makeSound);

    MediaDevice::Answer act(const MediaCommand& command) override;
    /// Also while it will sound as soon as it has been read.
    bool isPlaying() const override { return state_ == State::playing; }
    void catchUp() override;
    /// As far as it is known.
    bool isDamaged() const { return isDamaged_; }

    static constexpr std::int64_t framesASecond = 30;

 private:
    using Answer = MediaDevice::Answer;
    enum class State { stopped, playing, paused };

    void settle();
    void beginWhatWaits();
    Answer actUnread(const MediaCommand& command);
    Answer actRead(const MediaCommand& command);
    Answer play(const MediaCommand& command);
    Answer start(std::int64_t from, std::int64_t to);
    Answer resume();
    std::int64_t length() const;
    std::int64_t position() const;
    std::int64_t soundFrame(std::int64_t units) const;
    std::int64_t endFrame(std::int64_t units) const;
    void halt(State state);
    std::int64_t toUnits(std::int64_t soundFrames) const;

    std::optional<MediaReading> reading_;  ///< until it has been read
    const MakeSound makeSound_;
    std::unique_ptr<Playable> sound_;
    bool isDamaged_ = false;
    State state_ = State::stopped;
    std::optional<MediaCommand> waiting_;  ///< play, for a file that has not been read
    bool waitsInFrames_ = false;           ///< its unit
    Answer lateFailure_;                   ///< of that play; a code of 0 when there is none to be told
    std::optional<std::int64_t> guessed_;  ///< length that was told before the true one was known
    std::int64_t end_ = 0;                 ///< of what plays or is paused, in frames of the sound
    bool inFrames_ = false;
};

}  // namespace melvane
