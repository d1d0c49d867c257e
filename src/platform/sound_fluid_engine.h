#pragma once
#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>

#include "platform/sound_short_message.h"

namespace melvane {

/// The voices of the built-in synthesizer: FluidSynth with one SoundFont. One thread at a time; play(),
/// silence(), startAnew() and mix() neither allocate nor lock.
///
/// FluidSynth starts voices only at its own block boundaries, every 64 frames. To place notes finer than
/// that, each MIDI channel exists once in each of four lanes, and each lane is heard 16 frames later than the
/// one before; a note goes to the lane that brings it nearest to its frame. So a note starts 48 to 63 frames
/// after its moment, on a grid of 16 frames. Keys that cut each other off (open and closed hi-hat) must share
/// a lane and stay on the grid of 64.
class FluidEngine {
 public:
    /// Frames between a note's moment and its start, at least.
    static constexpr std::size_t leadFrames = 48;

    /// Null when the SoundFont is missing or damaged. Frames a second: 8000 to 96000.
    static std::unique_ptr<FluidEngine> load(const std::string& soundFont, int sampleRate);
    ~FluidEngine();
    FluidEngine(const FluidEngine&) = delete;
    FluidEngine& operator=(const FluidEngine&) = delete;

    /// Takes effect at the next frame that mix() renders. The channel modes omni, mono and poly (controllers
    /// 124 to 127) are ignored: they would join channels across lanes.
    void play(const ShortMessage& message);
    /// Ends every note within 6 ms without a click and releases the sustain; programs and other controllers
    /// stay.
    void silence();
    /// The same, and every channel is as it was when it was loaded.
    void startAnew();
    /// Adds the next frames to `interleaved` (left, right, left ...). Costs nothing while all is silent.
    void mix(std::span<float> interleaved);

 private:
    static constexpr std::size_t gridFrames = 64;
    static constexpr std::size_t laneCount = 4;
    static constexpr std::size_t laneStep = gridFrames / laneCount;
    static constexpr std::size_t blockFrames = 512;
    static constexpr std::size_t fadeFrames = 4 * gridFrames;
    static constexpr std::size_t reverberationBlocks = 345;
    static constexpr std::size_t framesUntilRest = 88'200;
    static constexpr std::size_t channelCount = 16;

    struct Voices;
    /// One side of one lane: what is still to be heard of the last block, then the block being rendered.
    using LaneSide = std::array<float, leadFrames + blockFrames>;

    explicit FluidEngine(std::unique_ptr<Voices> voices);
    void setUpChannels();
    std::size_t laneFor(const ShortMessage& note) const;
    void startNote(const ShortMessage& message);
    void endNote(std::uint8_t channel, std::uint8_t key, unsigned lanes);
    void playInEveryLane(const ShortMessage& message);
    void mixBlock(std::span<float> interleaved);
    void renderLanes(std::size_t frames);
    bool isAtRest() const;
    void mixFade(std::span<float> interleaved);
    void fadeOutWhatSounds();
    void dropReverberation();

    std::unique_ptr<Voices> voices_;
    std::size_t phase_ = 0;  ///< frames rendered since FluidSynth's last block boundary, 0 to 63
    /// Bit n is set while the key is struck in lane n.
    std::array<std::array<std::uint8_t, 128>, channelCount> lanesOfKey_{};
    std::array<LaneSide, laneCount * 2> sides_{};  ///< lane 0 left, lane 0 right, lane 1 left ...
    std::array<float, fadeFrames * 2> fade_{};     ///< the fading end of what a reset cut off, then zeros
    std::size_t fadeLeft_ = 0;                     ///< frames of it still to be heard
    std::size_t restFrames_ = framesUntilRest;     ///< rendered since the last voice ended
};

}  // namespace melvane
