#include "app/sound_system.h"

#include <utility>

#include "platform/sound_font.h"

namespace melvane {

namespace {

std::vector<SoundSource*> with(SoundSource& first, std::vector<SoundSource*> others) {
    others.insert(others.begin(), &first);
    return others;
}

}  // namespace

SoundSystem::SoundSystem(const Clock& clock, std::string recordings)
    : synthesizer_(clock, SoundCard::messageDelaySeconds),
      media_(clock, synthesizer_,
             {.soundsElsewhere = [this] { return devices_.soundsElsewhere(); },
              .recordingsFolder = [folder = std::move(recordings)] { return folder; }}),
      card_(clock, with(synthesizer_, media_.sources()), media_.taps()) {
    devices_.whenOpened = [this] { media_.noteOutput(); };
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
