#pragma once
#include <array>
#include <atomic>
#include <thread>

#include "platform/sound_source.h"

namespace melvane {

/// Sources that come and go while the stream runs.
class SoundVoices final : public SoundSource {
 public:
    static constexpr std::size_t most = 16;

    /// Not the rendering thread, as with remove(). False when there are too many.
    bool add(SoundSource& voice) {
        for (auto& slot : slots_) {
            SoundSource* empty = nullptr;
            if (slot.compare_exchange_strong(empty, &voice)) return true;
        }
        return false;
    }
    /// Returns once the voice is not being mixed any more. A voice that is not there is passed over.
    void remove(SoundSource& voice) {
        for (auto& slot : slots_) {
            SoundSource* there = &voice;
            slot.compare_exchange_strong(there, nullptr);
        }
        while (mixing_) std::this_thread::yield();
    }

    void mix(std::span<float> interleaved, std::int64_t moment) noexcept override {
        mixing_ = true;
        for (auto& slot : slots_) {
            if (SoundSource* const voice = slot) voice->mix(interleaved, moment);
        }
        mixing_ = false;
    }

 private:
    std::array<std::atomic<SoundSource*>, most> slots_{};
    std::atomic<bool> mixing_{false};
};

}  // namespace melvane
