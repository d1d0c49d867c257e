#include "platform/sound_mixer.h"

#include <thread>
#include <utility>

namespace melvane {

SoundMixer::SoundMixer(std::vector<SoundSource*> sources, std::vector<SoundTap*> taps,
                       std::int64_t clockFrequency)
    : sources_(std::move(sources)), taps_(std::move(taps)), clockFrequency_(clockFrequency) {}

SoundMixer::Ticket SoundMixer::handOver() {
    const std::lock_guard lock(handing_);
    if (closed_) return 0;
    return holder_ = ++lastTicket_;
}

void SoundMixer::close() {
    {
        const std::lock_guard lock(handing_);
        closed_ = true;
        holder_ = 0;
    }
    while (rendering_) std::this_thread::yield();
}

void SoundMixer::mix(std::span<float> interleaved, std::int64_t moment) noexcept {
    for (SoundSource* source : sources_) source->mix(interleaved, moment);
    for (SoundTap* tap : taps_) tap->hear(interleaved, moment);
    const auto frames = static_cast<std::int64_t>(interleaved.size() / soundChannels);
    renderedUpTo_ = moment + frames * clockFrequency_ / soundRate;
}

}  // namespace melvane
