#pragma once
#include <memory>

#include "platform/media_playable.h"
#include "platform/media_unit.h"

namespace melvane {

/// Plays a file by commands. One frame of its time format is 1/30 second, whatever the file is.
class MediaPlayer final : public MediaUnit {
 public:
    explicit MediaPlayer(std::unique_ptr<Playable> sound) : sound_(std::move(sound)) {}

    MediaDevice::Answer act(const MediaCommand& command) override;
    bool isPlaying() const override { return state_ == State::playing; }
    void catchUp() override { sound_->catchUp(); }

    static constexpr std::int64_t framesASecond = 30;

 private:
    using Answer = MediaDevice::Answer;
    enum class State { stopped, playing, paused };

    Answer play(const MediaCommand& command);
    Answer start(std::int64_t from, std::int64_t to);
    Answer resume();
    std::int64_t soundFrame(std::int64_t units) const;
    std::int64_t endFrame(std::int64_t units) const;
    void halt(State state);
    std::int64_t toUnits(std::int64_t soundFrames) const;

    std::unique_ptr<Playable> sound_;
    State state_ = State::stopped;
    std::int64_t end_ = 0;  ///< of what plays or is paused, in frames of the sound
    bool inFrames_ = false;
};

}  // namespace melvane
