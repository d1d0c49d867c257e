#pragma once
#include <atomic>
#include <cstdint>
#include <thread>

#include "platform/sound_ring.h"
#include "platform/sound_source.h"

namespace melvane {

/// Sound that was heard and waits to be written down; what comes while it is full is counted and lost.
struct CaptureRing {
    /// Six seconds: longer than a busy disk keeps a writer waiting.
    static constexpr std::size_t frames = std::size_t{6} * soundRate;

    SoundRing ring{frames * soundChannels};
    std::atomic<std::uint64_t> lostFrames{0};
};

/// Hears a stream of sound for a capture, while there is one.
class CaptureTap final : public SoundTap {
 public:
    void hear(std::span<const float> interleaved, std::int64_t) noexcept override {
        hearing_ = true;
        if (CaptureRing* const into = into_) {
            const std::size_t taken = into->ring.push(interleaved);
            if (taken < interleaved.size()) into->lostFrames += (interleaved.size() - taken) / soundChannels;
        }
        hearing_ = false;
    }

    bool isFree() const { return into_ == nullptr; }
    bool feeds(const CaptureRing& ring) const { return into_ == &ring; }
    /// From now on what is heard goes there; null: nowhere. Returns once no block is on its way to the former
    /// one. Not the hearing thread.
    void setRing(CaptureRing* ring) {
        into_ = ring;
        while (hearing_) std::this_thread::yield();
    }
    /// The same with null, if that is where it goes.
    void letGo(CaptureRing& ring) {
        CaptureRing* there = &ring;
        into_.compare_exchange_strong(there, nullptr);
        while (hearing_) std::this_thread::yield();
    }

 private:
    std::atomic<CaptureRing*> into_{nullptr};
    std::atomic<bool> hearing_{false};
};

}  // namespace melvane
