#include "core/setup_channel.h"

namespace melvane {

void bringSetupToolbarTo(Studio& studio, int track) {
    auto& setup = studio.Form3;
    for (int other = 0; other <= lastTrackNumber; ++other) {
        setup.TrackSel[static_cast<std::size_t>(other)].set(other == track);
    }
    setup.SetupChannel = track;
    studio.tracks.TrackVisible[static_cast<std::size_t>(track)] = true;
    setup.Label2.set(std::to_string(studio.tracks.TrackVolume[static_cast<std::size_t>(track)]));
    setup.Label15.set("Ch #" + std::to_string(track + 1) + " Volume");
}

}  // namespace melvane
