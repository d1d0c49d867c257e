#include "platform/sound_fluid_engine.h"

#include <fluidsynth.h>

#include <algorithm>
#include <ranges>

#include "platform/sound_font.h"

// FluidSynth computes reverb and chorus in an OpenMP region of one thread, for which the OpenMP runtime
// allocates a team at every block. The linker takes this definition before the runtime's: the region runs
// where it stands, which is what OpenMP allows for any region.
extern "C" void GOMP_parallel(void (*region)(void*), void* data, unsigned /*threads*/, unsigned /*flags*/) {
    region(data);
}

namespace melvane {

namespace {

constexpr int firstJoiningMode = 124;
constexpr int drumChannel = 9;
constexpr int drumBank = 128;
constexpr int allChannels = -1;
constexpr double outputGain = 0.6;

// General MIDI drum keys that cut each other off: scratches, hi-hats, whistles, guiros, cuicas, triangles.
constexpr std::array<std::uint8_t, 13> keysThatCutEachOther = {29, 30, 42, 44, 46, 71, 72,
                                                               73, 74, 78, 79, 80, 81};
constexpr std::size_t laneOfThoseKeys = 1;  // the one whose mean error is least

struct DeleteSettings {
    void operator()(fluid_settings_t* settings) const { delete_fluid_settings(settings); }
};
struct DeleteSynth {
    void operator()(fluid_synth_t* synth) const { delete_fluid_synth(synth); }
};

void keepFluidSynthQuiet() {
    for (const int level : {FLUID_PANIC, FLUID_ERR, FLUID_WARN, FLUID_INFO, FLUID_DBG}) {
        fluid_set_log_function(level, nullptr, nullptr);
    }
}

}  // namespace

struct FluidEngine::Voices {
    std::unique_ptr<fluid_settings_t, DeleteSettings> settings{new_fluid_settings()};
    std::unique_ptr<fluid_synth_t, DeleteSynth> synth;

    bool open(const std::string& soundFont, int sampleRate);
};

bool FluidEngine::Voices::open(const std::string& soundFont, int sampleRate) {
    if (!settings) return false;
    const int lanes = static_cast<int>(laneCount);
    fluid_settings_setnum(settings.get(), "synth.gain", outputGain);
    fluid_settings_setnum(settings.get(), "synth.sample-rate", sampleRate);
    fluid_settings_setint(settings.get(), "synth.midi-channels", static_cast<int>(channelCount) * lanes);
    fluid_settings_setint(settings.get(), "synth.audio-channels", lanes);
    fluid_settings_setint(settings.get(), "synth.audio-groups", lanes);
    // Loading samples at a program change would stall the audio callback.
    fluid_settings_setint(settings.get(), "synth.dynamic-sample-loading", 0);
    // Only the rendering thread calls it, so it needs no lock of its own.
    fluid_settings_setint(settings.get(), "synth.threadsafe-api", 0);
    synth.reset(new_fluid_synth(settings.get()));
    return synth && fluid_synth_sfload(synth.get(), soundFont.c_str(), 1) != FLUID_FAILED;
}

std::unique_ptr<FluidEngine> FluidEngine::load(const std::string& soundFont, int sampleRate) {
    keepFluidSynthQuiet();
    if (!looksLikeSoundFont(soundFont)) return nullptr;
    auto voices = std::make_unique<Voices>();
    if (!voices->open(soundFont, sampleRate)) return nullptr;
    return std::unique_ptr<FluidEngine>(new FluidEngine(std::move(voices)));
}

FluidEngine::FluidEngine(std::unique_ptr<Voices> voices) : voices_(std::move(voices)) { setUpChannels(); }

FluidEngine::~FluidEngine() = default;

namespace {

// FluidSynth sends channel n to audio group n modulo the groups, so the lanes of one MIDI channel lie side by
// side.
constexpr int laneChannel(std::uint8_t channel, std::size_t lane, std::size_t lanes) {
    return static_cast<int>(channel * lanes + lane);
}

}  // namespace

void FluidEngine::setUpChannels() {
    for (std::uint8_t channel = 0; channel < channelCount; ++channel) {
        const bool isDrum = channel == drumChannel;
        for (std::size_t lane = 0; lane < laneCount; ++lane) {
            const int id = laneChannel(channel, lane, laneCount);
            fluid_synth_set_channel_type(voices_->synth.get(), id,
                                         isDrum ? CHANNEL_TYPE_DRUM : CHANNEL_TYPE_MELODIC);
            fluid_synth_bank_select(voices_->synth.get(), id, isDrum ? drumBank : 0);
            fluid_synth_program_change(voices_->synth.get(), id, 0);
        }
    }
}

std::size_t FluidEngine::laneFor(const ShortMessage& note) const {
    const bool isCut = note.channel == drumChannel &&
                       std::ranges::find(keysThatCutEachOther, note.first) != keysThatCutEachOther.end();
    if (isCut) return laneOfThoseKeys;
    const std::size_t wait = (gridFrames - phase_) % gridFrames;
    return laneCount - 1 - wait / laneStep;
}

void FluidEngine::startNote(const ShortMessage& message) {
    const std::size_t lane = laneFor(message);
    std::uint8_t& lanes = lanesOfKey_[message.channel][message.first];
    const auto bit = static_cast<std::uint8_t>(1U << lane);
    // FluidSynth ends the earlier note of a key itself, but only within one lane.
    endNote(message.channel, message.first, lanes & ~static_cast<unsigned>(bit));
    lanes = bit;
    restFrames_ = 0;
    fluid_synth_noteon(voices_->synth.get(), laneChannel(message.channel, lane, laneCount), message.first,
                       message.second);
}

void FluidEngine::endNote(std::uint8_t channel, std::uint8_t key, unsigned lanes) {
    for (std::size_t lane = 0; lane < laneCount; ++lane) {
        if ((lanes >> lane & 1U) == 0) continue;
        fluid_synth_noteoff(voices_->synth.get(), laneChannel(channel, lane, laneCount), key);
    }
}

void FluidEngine::playInEveryLane(const ShortMessage& message) {
    fluid_synth_t* synth = voices_->synth.get();
    for (std::size_t lane = 0; lane < laneCount; ++lane) {
        const int id = laneChannel(message.channel, lane, laneCount);
        switch (message.kind) {
            case message_kind::keyPressure:
                fluid_synth_key_pressure(synth, id, message.first, message.second);
                break;
            case message_kind::controlChange:
                fluid_synth_cc(synth, id, message.first, message.second);
                break;
            case message_kind::programChange:
                fluid_synth_program_change(synth, id, message.first);
                break;
            case message_kind::channelPressure:
                fluid_synth_channel_pressure(synth, id, message.first);
                break;
            case message_kind::pitchBend:
                fluid_synth_pitch_bend(synth, id, message.first | message.second << 7);
                break;
            default:
                break;
        }
    }
}

void FluidEngine::play(const ShortMessage& message) {
    const bool strikes = message.kind == message_kind::noteOn && message.second > 0;
    if (strikes) {
        startNote(message);
    } else if (message.kind == message_kind::noteOn || message.kind == message_kind::noteOff) {
        endNote(message.channel, message.first, lanesOfKey_[message.channel][message.first]);
        lanesOfKey_[message.channel][message.first] = 0;
    } else if (message.kind != message_kind::controlChange || message.first < firstJoiningMode) {
        playInEveryLane(message);
    }
}

void FluidEngine::silence() {
    fluid_synth_t* synth = voices_->synth.get();
    if (fluid_synth_get_active_voice_count(synth) > 0) {
        fadeOutWhatSounds();
        fluid_synth_all_sounds_off(synth, allChannels);
        dropReverberation();
    }
    for (int id = 0; id < static_cast<int>(channelCount * laneCount); ++id) {
        fluid_synth_cc(synth, id, midi_controller::sustain, 0);
    }
    for (auto& keys : lanesOfKey_) keys.fill(0);
}

void FluidEngine::startAnew() {
    silence();
    fluid_synth_system_reset(voices_->synth.get());
    setUpChannels();
}

// Renders the next few milliseconds ahead and keeps them, falling to silence, to be added to what follows.
void FluidEngine::fadeOutWhatSounds() {
    std::array<float, fadeFrames * 2> ahead{};
    mixBlock(ahead);
    for (std::size_t frame = 0; frame < fadeFrames; ++frame) {
        const float level = 1.0F - static_cast<float>(frame + 1) / static_cast<float>(fadeFrames);
        fade_[2 * frame] += ahead[2 * frame] * level;
        fade_[2 * frame + 1] += ahead[2 * frame + 1] * level;
    }
    fadeLeft_ = fadeFrames;
}

// What FluidSynth has rendered of its block already, and the reverberation, still hold the old notes. Half a
// second of silence takes a millisecond or two to render and lets them die away unheard, by some 30 dB.
void FluidEngine::dropReverberation() {
    renderLanes((gridFrames - phase_) % gridFrames);
    for (std::size_t block = 0; block < reverberationBlocks; ++block) renderLanes(gridFrames);
    for (LaneSide& side : sides_) side.fill(0.0F);
}

void FluidEngine::mix(std::span<float> interleaved) {
    if (fadeLeft_ > 0) mixFade(interleaved);
    while (!interleaved.empty() && !isAtRest()) {
        const std::size_t values = std::min(interleaved.size(), blockFrames * 2);
        mixBlock(interleaved.first(values));
        interleaved = interleaved.subspan(values);
    }
}

// The reverberation of the last note has gone as well.
bool FluidEngine::isAtRest() const { return restFrames_ >= framesUntilRest; }

void FluidEngine::mixFade(std::span<float> interleaved) {
    const std::size_t values = std::min(interleaved.size(), fade_.size());
    for (std::size_t i = 0; i < values; ++i) interleaved[i] += fade_[i];
    const auto rest = std::shift_left(fade_.begin(), fade_.end(), static_cast<std::ptrdiff_t>(values));
    std::fill(rest, fade_.end(), 0.0F);
    fadeLeft_ -= std::min(fadeLeft_, values / 2);
}

void FluidEngine::renderLanes(std::size_t frames) {
    std::array<float*, laneCount * 2> out{};
    for (std::size_t index = 0; index < sides_.size(); ++index) {
        float* block = sides_[index].data() + index / 2 * laneStep;
        std::fill_n(block, frames, 0.0F);
        out[index] = block;
    }
    // Reverb and chorus of all lanes go with the first.
    std::array<float*, 4> effects = {out[0], out[1], out[0], out[1]};
    fluid_synth_process(voices_->synth.get(), static_cast<int>(frames), static_cast<int>(effects.size()),
                        effects.data(), static_cast<int>(out.size()), out.data());
    phase_ = (phase_ + frames) % gridFrames;
    const bool sounds = fluid_synth_get_active_voice_count(voices_->synth.get()) > 0;
    restFrames_ = sounds ? 0 : restFrames_ + frames;
}

void FluidEngine::mixBlock(std::span<float> interleaved) {
    const std::size_t frames = interleaved.size() / 2;
    renderLanes(frames);
    for (std::size_t index = 0; index < sides_.size(); ++index) {
        LaneSide& side = sides_[index];
        for (std::size_t frame = 0; frame < frames; ++frame)
            interleaved[2 * frame + index % 2] += side[frame];
        // The lane's own delay: its last frames are heard at the start of the next block.
        std::copy_n(side.begin() + static_cast<std::ptrdiff_t>(frames), index / 2 * laneStep, side.begin());
    }
}

}  // namespace melvane
