#include "core/song_walk.h"

namespace melvane {

void findSongEnd(Studio& studio) {
    Int16& end = studio.player.SongEndColumn;
    end = 0;
    for (int track = 0; track <= lastTrackNumber; ++track) {
        if (studio.isHidden(track)) continue;
        const int last = lastUsedColumn(studio.score, track).value_or(-1);
        if (last > end) assign(end, last + 1);
    }
}

}  // namespace melvane
