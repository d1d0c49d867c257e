#include "core/setup_channel.h"

#include <array>

namespace melvane {

namespace {

constexpr double middle = 0.5;  // of a slider's way

bool isTrack(int track) { return track >= 0 && track <= lastTrackNumber; }

}  // namespace

std::string channelTip(int track) {
    constexpr std::array<const char*, 4> rhythm{"Rythm Channel 1", "Rythm Channel 3", "Rythm Channel 4",
                                                "Rythm Channel 4"};
    const int percussion = percussionChannel(track);
    if (percussion > 0) return rhythm.at(static_cast<std::size_t>(percussion) - 1);
    const std::string caption = channelCaption(track);
    return caption.empty() ? caption : "Select " + caption;
}

std::string channelCaption(int track) {
    if (track >= 0 && isMelodyTrack(track)) return "Channel " + std::to_string(track + 1);
    const int percussion = percussionChannel(track);
    return percussion > 0 ? "Percussion Channel " + std::to_string(percussion) : std::string();
}

void pressChannelButton(Studio& studio, int track) {
    if (!isTrack(track)) return;
    auto& setup = studio.Form3;
    for (int other = 0; other <= lastTrackNumber; ++other) {
        const auto at = static_cast<std::size_t>(other);
        setup.TrackSel[at].set(other == track);
        setup.TrackSel[at].setHighlighted(other == track);
        // One that is hidden already can still be brought back.
        setup.TrackHide[at].setEnabled(other != track || setup.TrackHide[at].ticked());
    }
    setup.SetupChannel = static_cast<Int16>(track);
    showChannelSettings(studio);
}

void showChannelSettings(Studio& studio) {
    auto& setup = studio.Form3;
    const auto at = static_cast<std::size_t>(setup.SetupChannel);
    const ChannelRecord record = studio.tracks.ChannelSettings[at];
    setup.ChannelName.set(channelCaption(setup.SetupChannel));
    setup.LPan.set(std::to_string(record.Pan));
    setup.LReverb.set(std::to_string(record.Reverb));
    setup.LChorus.set(std::to_string(record.Chorus));
    setup.LMod.set(std::to_string(record.Modulation));
    const bool atRest = at < setup.PanAtRest.size() && setup.PanAtRest[at];
    setup.LblPan.setPlace(atRest ? std::optional(middle) : std::nullopt);
}

void setChannelHidden(Studio& studio, int track, bool hidden) {
    if (!isTrack(track)) return;
    const auto at = static_cast<std::size_t>(track);
    studio.Form3.TrackHide[at].set(hidden);
    studio.Form3.TrackSel[at].setEnabled(!hidden);
    studio.tracks.TrackShown[at] = !hidden;
}

void showChannelVolume(Studio& studio, int track) {
    if (!isTrack(track)) return;
    studio.Form3.Label2.set(std::to_string(studio.tracks.TrackVolume[static_cast<std::size_t>(track)]));
    studio.Form3.Label15.set("Ch #" + std::to_string(track + 1) + " Volume");
}

void bringSetupToolbarTo(Studio& studio, int track) {
    if (!isTrack(track)) return;
    pressChannelButton(studio, track);
    studio.tracks.TrackVisible[static_cast<std::size_t>(track)] = true;
    showChannelVolume(studio, track);
}

}  // namespace melvane
