#include "tune.h"

#include <algorithm>

#include "files/sng_writer.h"

namespace melvane::e2e {

namespace {

constexpr int usualColumns = 1000, spareColumns = 8;
constexpr int strength = 100, middle = 64;

void makeGrids(Score& score, int instrument, int columns) {
    score.NumNotes = columns;
    for (Grid* const grid : {&score.NoteArray, &score.InstArray, &score.VolumeArray, &score.ModArray,
                             &score.PanArray, &score.ReverbArray, &score.ChorusArray, &score.PolyArray}) {
        grid->create(columns, grid == &score.NoteArray ? cell::empty : 0);
    }
    for (int track = 0; track <= lastTrackNumber; ++track) {
        score.VolumeArray.fillTrack(track, strength, columns);
        score.PanArray.fillTrack(track, middle, columns);
        score.InstArray.fillTrack(track, instrument, columns);
    }
}

void writeNote(Score& score, int track, int column, int key) {
    const int row = 127 - key;
    score.NoteArray.set(track, column, row);
    score.NoteArray.set(track, column + 1, cell::continuation + row);
}

/// It goes round in fifths, so that each twelve chords have every note of an octave.
int upperKey(int index) {
    constexpr int lowest = 72, octave = 12, fifth = 7;
    return lowest + index * fifth % octave;
}

}  // namespace

std::string Tune::asScore() const {
    Studio studio;
    studio.score.Tempo = static_cast<std::int16_t>(tempo);
    makeGrids(studio.score, instrument, std::max(usualColumns, columns() + spareColumns));
    int column = 1;
    for (const Chord& chord : chords) {
        int track = 0;
        for (const int key : chord) writeNote(studio.score, track++, column, key);
        column += columnsAChord;
    }
    return writeSng(studio);
}

std::vector<double> Tune::moments(double spacing) const {
    std::vector<double> moments;
    for (std::size_t at = 0; at < chords.size(); ++at) moments.push_back(static_cast<double>(at) * spacing);
    return moments;
}

Tune makeTune(int count) {
    constexpr int smallestDistance = 3, distances = 4;
    Tune tune;
    for (int index = 0; index < count; ++index) {
        const int upper = upperKey(index);
        tune.chords.push_back({upper, upper - smallestDistance - index % distances});
    }
    return tune;
}

Tune makeSteadyTune(int count) {
    Tune tune;
    tune.instrument = Tune::piano;
    for (int index = 0; index < count; ++index) tune.chords.push_back({upperKey(index)});
    return tune;
}

}  // namespace melvane::e2e
