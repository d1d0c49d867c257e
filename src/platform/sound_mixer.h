#pragma once
#include <algorithm>
#include <atomic>
#include <cstdint>
#include <mutex>
#include <span>
#include <vector>

#include "platform/sound_source.h"

namespace melvane {

/// Adds up the sources and hands the mix to the taps. Whoever renders names itself by a ticket; only the
/// holder of the current one gets sound, so that an output that is given up cannot render beside its
/// successor. No call blocks.
class SoundMixer {
 public:
    using Ticket = std::uint32_t;  ///< above 0

    /// The lists stay as they are; what they point to must live until close() has returned.
    SoundMixer(std::vector<SoundSource*> sources, std::vector<SoundTap*> taps, std::int64_t clockFrequency);

    /// From now on only the renderer of this ticket is served. After close() nobody is. Any thread.
    Ticket handOver();
    /// Serves nobody any more and waits until a running render() has ended. One thread.
    void close();

    /// Fills `interleaved`. `momentOfFirstFrame()` answers a Clock counter; it is asked only while the ticket
    /// is the current one. Silence, and false, when it is not. Rendering threads.
    template <typename Moment>
    bool render(Ticket ticket, std::span<float> interleaved, Moment&& momentOfFirstFrame) noexcept {
        std::ranges::fill(interleaved, 0.0F);
        if (rendering_.exchange(true)) return false;
        const bool isHolder = ticket != 0 && ticket == holder_;
        if (isHolder) mix(interleaved, momentOfFirstFrame());
        rendering_ = false;
        return isHolder;
    }

    /// Where the rendered sound ends, as Clock counter; 0 before the first block. Any thread.
    std::int64_t renderedUpTo() const { return renderedUpTo_; }

 private:
    void mix(std::span<float> interleaved, std::int64_t moment) noexcept;

    const std::vector<SoundSource*> sources_;
    const std::vector<SoundTap*> taps_;
    const std::int64_t clockFrequency_;
    std::mutex handing_;  ///< never taken while rendering
    bool closed_ = false;
    Ticket lastTicket_ = 0;
    std::atomic<Ticket> holder_{0};
    std::atomic<bool> rendering_{false};
    std::atomic<std::int64_t> renderedUpTo_{0};
};

}  // namespace melvane
