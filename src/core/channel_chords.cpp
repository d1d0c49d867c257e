#include "core/channel_chords.h"

#include "core/names.h"

namespace melvane {

namespace {

struct ChannelChord {
    const char* entry;
    Int16 first, second, third;  ///< semitones over the note
};

constexpr std::array<ChannelChord, 7> channelChords{
    {{"Major (4 note chord: 5C 5E 5G 6C )", 4, 7, 12},
     {"Minor (4 note chord: 5C 5D#  5G 6C )", 3, 7, 12},
     {"Major 7th (4 note chord: 5C 5E 5G  5B )", 4, 7, 11},
     {"Minor 7th (4 note chord: 5C 5D# 5G 5A# )", 3, 7, 10},
     {"Minor 7th -5 (4 note chord: 5C 5D 5F# 5A# )", 3, 6, 10},
     {"2 Octave combo (2 notes: 5C 4C )", -12, 0, 0},
     {"3 Octave combo (3 notes: 5C 4C 6C )", -12, 12, 0}}};

}  // namespace

void ChannelChords::fillList() {
    std::vector<std::string> entries;
    for (const auto& chord : channelChords) entries.emplace_back(chord.entry);
    studio_.Form3.Combo3.fill(std::move(entries));
    studio_.Form3.Combo3.set(1);
}

void ChannelChords::Ch_Click(int index) {
    const auto& boxes = studio_.Form3.Ch;
    if (index < 0 || static_cast<std::size_t>(index) >= boxes.size()) return;
    const int chord = boxes[static_cast<std::size_t>(index)].ticked() ? studio_.Form3.Combo3.index() : 0;
    studio_.score.PolyArray.fillTrack(index + 1, chord, studio_.score.NumNotes);
    if (index == studio_.tracks.CurrentTrack) surfaces_.DrawPolyStrip();
    surfaces_.DrawNoteArray();
}

void ChannelChords::Combo3_Click() {
    const int index = studio_.Form3.Combo3.index();
    if (index < 0 || static_cast<std::size_t>(index) >= channelChords.size()) return;
    const auto& chord = channelChords[static_cast<std::size_t>(index)];
    studio_.sounds.ChordStep1 = chord.first;
    studio_.sounds.ChordStep2 = chord.second;
    studio_.sounds.ChordStep3 = chord.third;
    for (int channel = 0; channel < static_cast<int>(studio_.Form3.Ch.size()); ++channel) {
        if (studio_.Form3.Ch[static_cast<std::size_t>(channel)].ticked()) Ch_Click(channel);
    }
}

void ChannelChords::listNames(NameTables& tables) {
    tables.operations.add("Form3", "Ch_Click", this, &ChannelChords::Ch_Click);
    tables.operations.add("Form3", "Combo3_Click", this, &ChannelChords::Combo3_Click);
}

}  // namespace melvane
