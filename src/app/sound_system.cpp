#include "app/sound_system.h"

#include <utility>

#include "platform/sound_font.h"

namespace melvane {

SoundSystem::SoundSystem(const Clock& clock)
    : synthesizer_(clock, SoundCard::messageDelaySeconds),
      media_(clock, synthesizer_, {.soundsElsewhere = [this] { return devices_.soundsElsewhere(); }}),
      card_(clock, {&synthesizer_, &media_.voices()}, {&media_.tap()}) {
    synthesizer_.expectSoundFont();
    loading_ = std::jthread([this] { loadSoundFont(); });
}

void SoundSystem::loadSoundFont() {
    auto failure = synthesizer_.loadSoundFont(installedSoundFonts(soundFontCandidates()));
    const std::lock_guard held(noticeLock_);
    soundFontNotice_ = std::move(failure);
}

std::optional<std::string> SoundSystem::takeNotice() {
    {
        const std::lock_guard held(noticeLock_);
        if (soundFontNotice_) return std::exchange(soundFontNotice_, std::nullopt);
    }
    return card_.takeNotice();
}

}  // namespace melvane
