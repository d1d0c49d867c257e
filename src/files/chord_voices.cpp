#include "files/chord_voices.h"

namespace melvane {

namespace {

constexpr double voiceVelocity = 0.65;  // of the root's
constexpr Int16 usualVelocity = 127;
constexpr int voices = 3;

}  // namespace

void ChordVoices::makeFrom(int track, int column) {
    const auto& score = studio_.score;
    const int chord = score.chordOf(track, column + 1);
    if (chord <= 0 || track > score.TopPolyTrack) return;
    made_ = true;
    chords_.SelectChord(chord);
    const auto& sounds = studio_.sounds;
    const int first = track + score.UsedTrackCount;
    makeVoice(track, first, column, sounds.ChordStep1);
    makeVoice(track, first + 1, column, sounds.ChordStep2);
    makeVoice(track, first + 2, column, sounds.ChordStep3);
}

/// Velocities are copied in the column itself, though each is read one to the right.
void ChordVoices::makeVoice(int root, int voice, int column, int step) {
    auto& score = studio_.score;
    if (const auto cell = score.NoteArray.find(root, column))
        score.NoteArray.set(voice, column, *cell + step);
    if (const auto instrument = score.InstArray.find(root, column))
        score.InstArray.set(voice, column, *instrument);
    if (const auto velocity = score.VolumeArray.find(root, column))
        score.VolumeArray.set(voice, column, static_cast<int>(roundTiesToEven(*velocity * voiceVelocity)));
}

void ChordVoices::cleanUp() {
    if (!made_) return;
    made_ = false;
    auto& score = studio_.score;
    if (score.TopPolyTrack < 0) return;
    const int lastColumn = studio_.player.SongEndColumn;
    const int last = std::min(score.UsedTrackCount + score.TopPolyTrack + voices, Grid::tracks);
    for (int track = std::max<int>(score.UsedTrackCount, 0); track < last; ++track) {
        score.NoteArray.fillTrack(track, cell::empty, lastColumn);
        score.InstArray.fillTrack(track, 0, lastColumn);
        score.VolumeArray.fillTrack(track, usualVelocity, lastColumn);
    }
}

}  // namespace melvane
