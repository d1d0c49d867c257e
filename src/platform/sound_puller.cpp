#include "platform/sound_puller.h"

namespace melvane {

SoundPuller::SoundPuller(SoundMixer& mixer, std::int64_t clockFrequency)
    : mixer_(mixer), frequency_(clockFrequency), thrownAway_(framesAtOnce * soundChannels) {}

void SoundPuller::start(std::int64_t now) {
    const std::int64_t end = mixer_.renderedUpTo();
    const bool continues = end > 0 && end <= now && now - end < frequency_;
    origin_ = continues ? end : now;
    block_ = 0;
    isPulling_ = true;
    ticket_ = mixer_.handOver();
}

std::int64_t SoundPuller::pull(std::int64_t now) {
    // After a second without a call (a suspended machine) the missed time is not made up.
    if (now - (origin_ + block_ * frequency_ / blocksASecond) > frequency_) {
        origin_ = now;
        block_ = 0;
    }
    for (;; ++block_) {
        const std::int64_t moment = origin_ + block_ * frequency_ / blocksASecond;
        if (moment > now) return moment;
        mixer_.render(ticket_, thrownAway_, [moment] { return moment; });
    }
}

}  // namespace melvane
