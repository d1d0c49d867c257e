#include "midi/sounding.h"

#include "core/instrument_names.h"
#include "core/names.h"
#include "midi/messages.h"

namespace melvane {

namespace {

constexpr int firstStrumPause = 45, laterStrumPause = 35;  // milliseconds
constexpr int fullVelocity = 127;

bool isTrack(int track) { return track >= 0 && track < Grid::tracks; }

template <std::size_t Count>
bool isTicked(const std::array<CheckControl, Count>& switches, int track) {
    return track >= 0 && static_cast<std::size_t>(track) < Count &&
           switches[static_cast<std::size_t>(track)].ticked();
}

}  // namespace

void Sounding::ChangeInstrument(int instrument, int track) {
    if (!isTrack(track)) return;
    const auto at = static_cast<std::size_t>(track);
    if (isPercussionInstrument(instrument)) {
        studio_.tracks.TrackIsPercussion[at] = true;
        studio_.tracks.PercussionKey[at] = static_cast<Int16>(percussionKey(instrument));
        return;
    }
    output_.send(message::bankSelectMsb(track));
    output_.send(message::bankSelectLsb(track));
    output_.send(message::programChange(instrument, track));
    studio_.tracks.TrackIsPercussion[at] = false;
}

void Sounding::setKeyAndChannel(int row, int track) {
    const auto at = static_cast<std::size_t>(track);
    auto& sounds = studio_.sounds;
    if (studio_.tracks.TrackIsPercussion[at]) {
        sounds.NoteKey = studio_.tracks.PercussionKey[at];
        sounds.NoteChannel = message::percussionChannel;
    } else {
        sounds.NoteKey = static_cast<Int16>(127 - row);
        sounds.NoteChannel = static_cast<Int16>(track);
    }
}

bool Sounding::channelChord(int track) const { return isTicked(studio_.Form3.Ch, track); }

void Sounding::StartNote(int row, int track) {
    if (!isTrack(track)) return;
    if (!isMelodyTrack(track)) studio_.tracks.TrackIsPercussion[static_cast<std::size_t>(track)] = true;
    setKeyAndChannel(row, track);
    const int column = studio_.player.PlayColumn;
    // The selected track's velocity is written, and the playing track's is used: so a note of the selected
    // track takes its own value and the others the one before it.
    if (const auto velocity = studio_.score.VolumeArray.find(track, column + 1)) {
        volumeOf(studio_.tracks.CurrentTrack) = *velocity;
    }
    startAt(column, track, playing);
}

void Sounding::StartNoteBtnDn(int row) {
    const int track = studio_.tracks.LastTrack;
    if (!isTrack(track)) return;
    setKeyAndChannel(row, track);
    startAt(studio_.sounds.NoteColumn, track, drawing);
}

void Sounding::startAt(int column, int track, const Manner& manner) {
    auto& sounds = studio_.sounds;
    // PolyArray stands one track below the note's, without a shift of the column.
    const int chord = studio_.score.chordOf(track, column);
    const bool mayScale = !manner.melodyOnly || isMelodyTrack(track);
    if (mayScale && (chord >= 1 || channelChord(track)))
        assign(volumeOf(track), volumeOf(track) * manner.rootFactor);
    sendEffects(column);
    noteOn(sounds.NoteKey, track);
    if (sounds.NoteChannel == message::percussionChannel || chord == 0) return;
    if (manner.selectsChord) {
        chords_.SelectChord(chord);
        studio_.form1.Combo3.set(chord);
    }
    startVoices(track, manner);
}

/// The grids are read at the channel, not the track: all percussion takes the row of track 9. They are
/// addressed one column right of the note, so a note in the last column has no effects to send.
void Sounding::sendEffects(int column) {
    const auto& score = studio_.score;
    const Int16 channel = studio_.sounds.NoteChannel;
    if (!score.ModArray.contains(channel, column + 1)) return;
    const auto value = [&](const Grid& grid) { return static_cast<Int16>(grid.get(channel, column + 1, 0)); };
    output_.SendModulation(value(score.ModArray), channel);
    output_.SendPan(value(score.PanArray), channel);
    output_.SendReverb(value(score.ReverbArray), channel);
    output_.SendChorus(value(score.ChorusArray), channel);
}

void Sounding::startVoices(int track, const Manner& manner) {
    const auto& sounds = studio_.sounds;
    assign(volumeOf(track), volumeOf(track) * manner.voicesFactor);
    strumPause(track, firstStrumPause);
    noteOn(sounds.NoteKey + sounds.ChordStep1, track);
    strumPause(track, laterStrumPause);
    if (sounds.ChordStep2 > 0) {
        noteOn(sounds.NoteKey + sounds.ChordStep2, track);
        strumPause(track, laterStrumPause);
    }
    if (sounds.ChordStep3 > 0) noteOn(sounds.NoteKey + sounds.ChordStep3, track);
    volumeOf(track) = fullVelocity;
}

void Sounding::strumPause(int track, int milliseconds) {
    if (isTicked(studio_.Form3.Chkstrum, track)) loop_.pause(milliseconds);
}

void Sounding::noteOn(int key, int track) {
    output_.send(message::noteOn(key, volumeOf(track), studio_.sounds.NoteChannel));
}

void Sounding::StopNote(int row) {
    const int track = studio_.tracks.LastTrack;
    if (!isTrack(track)) return;
    const int column = studio_.player.PlayColumn;
    setKeyAndChannel(row, track);
    output_.send(message::noteOff(studio_.sounds.NoteKey, studio_.sounds.NoteChannel));
    if (studio_.sounds.NoteChannel == message::percussionChannel) return;
    const auto& score = studio_.score;
    if (score.chordOf(track, column) == 0 && score.chordOf(track, column - 1) == 0 && !channelChord(track))
        return;
    noteOffChord();
    loop_.Idle();
}

void Sounding::StopNoteBtnUp(int row) {
    const int track = studio_.tracks.LastTrack;
    if (!isTrack(track)) return;
    setKeyAndChannel(row, track);
    output_.send(message::noteOff(studio_.sounds.NoteKey, studio_.sounds.NoteChannel));
    if (studio_.sounds.NoteChannel == message::percussionChannel) return;
    if (studio_.score.chordOf(track, studio_.sounds.NoteColumn - 1) == 0 && !channelChord(track)) return;
    noteOffChord();
}

/// By the steps in force now, which another track's chord may have changed since the start; none of them is
/// tested.
void Sounding::noteOffChord() {
    const auto& sounds = studio_.sounds;
    for (const int step : {sounds.ChordStep1, sounds.ChordStep2, sounds.ChordStep3}) {
        output_.send(message::noteOff(sounds.NoteKey + step, sounds.NoteChannel));
    }
}

void Sounding::listNames(NameTables& tables) {
    auto& operations = tables.operations;
    operations.add("form1", "ChangeInstrument", this, &Sounding::ChangeInstrument);
    operations.add("form1", "StartNote", this, &Sounding::StartNote);
    operations.add("form1", "StopNote", this, &Sounding::StopNote);
    operations.add("form1", "StartNoteBtnDn", this, &Sounding::StartNoteBtnDn);
    operations.add("form1", "StopNoteBtnUp", this, &Sounding::StopNoteBtnUp);
}

}  // namespace melvane
