#include "core/clip_blocks.h"

#include <algorithm>

namespace melvane {

std::vector<int> visibleTracks(const Studio& studio, TrackRange range) {
    std::vector<int> tracks;
    for (int track = std::max(range.first, 0); track <= std::min(range.last, lastTrackNumber); ++track) {
        if (!studio.isHidden(track)) tracks.push_back(track);
    }
    return tracks;
}

std::vector<int> editedTracks(const Studio& studio, TrackRange range) {
    const int current = studio.tracks.CurrentTrack;
    return visibleTracks(studio, studio.selection.CopyonlyOneTrack ? TrackRange{current, current} : range);
}

int lastScoreColumn(const Studio& studio) {
    constexpr int farAway = 1'000'000;
    return std::clamp(static_cast<int>(studio.score.NumNotes), -farAway, farAway);
}

void eraseClipNotes(Studio& studio) {
    for (const auto& pair : noteGridPairs) {
        Grid& clip = studio.clipboard.*pair.clip;
        clip.create(clip.lastColumn());
        clip.resize(studio.score.NumNotes);
    }
}

void resizeClipValues(Studio& studio) {
    for (const auto& pair : std::span(gridPairs).subspan<noteGridPairs.size()>())
        (studio.clipboard.*pair.clip).resize(studio.score.NumNotes);
}

void copyCellsToClip(Studio& studio, Columns columns, TrackRange range, std::span<const GridPair> pairs) {
    const Columns offsets{0, columns.last - columns.first};
    for (const int track : editedTracks(studio, range)) {
        for (const auto& [score, clip, blank] : pairs)
            copyColumns(studio.score.*score, track, studio.clipboard.*clip, track, offsets, columns.first);
    }
}

void copyToClip(Studio& studio, Columns columns) {
    if (columns.last < columns.first) return;
    if (studio.selection.CopyonlyOneTrack) studio.clipboard.ClipTrack = studio.tracks.CurrentTrack;
    copyCellsToClip(studio, columns, {}, gridPairs);
}

void mendClipStart(Studio& studio, TrackRange range) {
    for (int track = std::max(range.first, 0); track <= std::min(range.last, lastTrackNumber); ++track)
        makeStart(studio.clipboard.ClipNoteArray, track, 0);
}

void mendNotes(Studio& studio, int column, TrackRange range) {
    for (const int track : visibleTracks(studio, range)) makeStart(studio.score.NoteArray, track, column);
}

}  // namespace melvane
