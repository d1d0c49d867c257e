#include "platform/synthesizer.h"

#include <algorithm>
#include <cmath>
#include <thread>

namespace melvane {

Synthesizer::Synthesizer(const Clock& clock, double delaySeconds)
    : clock_(clock), delay_(std::llround(delaySeconds * static_cast<double>(clock.frequency()))) {}

Synthesizer::~Synthesizer() = default;

std::optional<std::string> Synthesizer::loadSoundFont(const std::vector<std::string>& soundFonts) {
    if (state_ == State::ready) return std::nullopt;
    for (const std::string& path : soundFonts) {
        engine_ = FluidEngine::load(path, soundRate);
        if (!engine_) continue;
        state_ = State::ready;
        return std::nullopt;
    }
    state_ = State::silent;
    if (soundFonts.empty()) {
        return "There is no SoundFont, so the built-in synthesizer is silent. The package timgm6mb-soundfont "
               "has one.";
    }
    return "The SoundFont \"" + soundFonts.front() +
           "\" cannot be read, so the built-in synthesizer is silent.";
}

void Synthesizer::send(std::uint32_t packed, std::int64_t moment) {
    if (decodeShortMessage(packed)) push({moment, packed, false});
}

void Synthesizer::reset(std::int64_t moment) { push({moment, 0, true}); }

void Synthesizer::push(const StampedMessage& message) {
    if (ring_.push(message)) return;
    ++dropped_;
    overflowed_ = true;
}

std::size_t Synthesizer::frameOf(const StampedMessage& message, std::int64_t moment) {
    const std::int64_t wait = message.moment + delay_ - moment;
    const double frames = static_cast<double>(wait) * soundRate / static_cast<double>(clock_.frequency());
    if (frames <= -0.5) {
        ++late_;
        return 0;
    }
    return static_cast<std::size_t>(std::llround(frames));
}

void Synthesizer::play(const StampedMessage& message) {
    if (message.isReset) {
        engine_->silence();
    } else if (const auto decoded = decodeShortMessage(message.packed)) {
        sent_.hear(*decoded);
        engine_->play(*decoded);
    }
}

void Synthesizer::forgetMessages() {
    while (ring_.front()) ring_.pop();
}

void Synthesizer::setFeed(MessageFeed* feed) {
    feed_ = nullptr;
    while (isMixing_) std::this_thread::yield();
    if (feed == nullptr) return;
    feedHasChannels_ = false;
    feed_ = feed;
}

void Synthesizer::giveChannelsTo(MessageFeed* feed) {
    feedHasChannels_ = feed != nullptr;
    engine_->startAnew();
    const MidiChannelState& state = feed ? feed->opening() : sent_;
    state.replay([this](const ShortMessage& message) { engine_->play(message); });
}

/// Time goes on in a feed that nobody can hear.
void Synthesizer::passOver(MessageFeed* feed, std::size_t frames, std::int64_t moment) {
    if (feed == nullptr) return;
    feed->beginBlock(frames, moment);
    while (feed->next()) {
    }
}

void Synthesizer::mix(std::span<float> interleaved, std::int64_t moment) noexcept {
    isMixing_ = true;
    MessageFeed* const feed = feed_;
    const State state = state_;
    if (state == State::silent) {
        forgetMessages();
        passOver(feed, interleaved.size() / soundChannels, moment);
    } else if (state == State::ready) {
        if (feedHasChannels_ != (feed != nullptr)) giveChannelsTo(feed);
        renderBlock(interleaved, moment, feed);
    }
    isMixing_ = false;
}

void Synthesizer::renderBlock(std::span<float> interleaved, std::int64_t moment, MessageFeed* feed) {
    std::size_t done = 0;
    const std::size_t frames = interleaved.size() / soundChannels;
    const auto mixUpTo = [&](std::size_t frame) {
        engine_->mix(interleaved.subspan(done * soundChannels, (frame - done) * soundChannels));
        done = frame;
    };
    if (feed) feed->beginBlock(frames, moment);
    const auto nextFed = [feed] { return feed ? feed->next() : std::nullopt; };
    auto fed = nextFed();
    for (;;) {
        const StampedMessage* const message = ring_.front();
        const std::size_t sentFrame = message ? std::max(done, frameOf(*message, moment)) : frames;
        const std::size_t fedFrame = fed ? std::max(done, fed->frame) : frames;
        if (std::min(sentFrame, fedFrame) >= frames) break;
        mixUpTo(std::min(sentFrame, fedFrame));
        if (sentFrame <= fedFrame) {
            play(*message);
            ring_.pop();
        } else {
            engine_->play(fed->message);
            fed = nextFed();
        }
    }
    // A lost note-off would let its note hang for ever.
    if (overflowed_.exchange(false)) engine_->silence();
    mixUpTo(frames);
}

}  // namespace melvane
