#include "files/midi_export.h"

#include <algorithm>
#include <bit>

#include "core/names.h"
#include "core/song_walk.h"
#include "files/midi_layout.h"
#include "files/midi_track_walk.h"
#include "platform/files.h"

namespace melvane {

namespace {

constexpr const char* bufferSetting = "NumBytes";
constexpr std::int32_t usualBuffer = 10000;
constexpr int spareBytes = 1000;
constexpr int mostTracksWithFewPolynotes = 3;

constexpr int lengthBytes = 4;

/// A place in the file as it is kept: it stands still at the last byte that can be counted.
Int16 index(int at) { return static_cast<Int16>(std::min(at, MidiExportState::lastByte)); }

/// The last element that a buffer of this size has.
int lastElement(std::int32_t size) { return std::clamp<std::int32_t>(size, 0, MidiExportState::lastByte); }

}  // namespace

void MidiExport::MidiFile() {
    // The pause of the deletion serves events: the grids are whole again before it, and it may choose another
    // name.
    const Built file = build();
    const std::string path = studio_.score.SaveFileName;
    // The test is this way round on purpose: what exists is not deleted.
    if (!files_.FileExists(path)) files_.DeleteFileAndWait(path);
    overwriteFile(path, file.bytes);
}

MidiExport::Built MidiExport::build() {
    Built file = fillBuffer();
    voices_.cleanUp();
    return file;
}

MidiExport::Built MidiExport::fillBuffer() {
    newBuffer();
    const int last = lastTrack();
    writeMidiHead(studio_);
    findSongEnd(studio_);
    assign(studio_.player.SongEndColumn, studio_.player.SongEndColumn + 1);
    Built file;
    for (int track = 0; track <= last; ++track) {
        if (!writeTrack(track)) file.whole = false;
    }
    const auto& state = studio_.midiExport;
    const int count = std::min<int>(state.MidiWriteIndex, lastElement(state.MidiBufferSize));
    file.bytes.assign(state.MidiBuffer.begin() + 1, state.MidiBuffer.begin() + 1 + count);
    return file;
}

void MidiExport::newBuffer() {
    auto& state = studio_.midiExport;
    settings_.read(bufferSetting, usualBuffer, state.MidiBufferSize);
    state.MidiBuffer.fill(0);
}

/// The number of tracks follows two high-water marks, and is not always 13.
int MidiExport::lastTrack() const {
    const auto& score = studio_.score;
    const bool differs =
        score.TopPolyTrack > mostTracksWithFewPolynotes && score.UsedTrackCount <= score.TopPolyTrack;
    return lastTrackNumber + (differs ? score.UsedTrackCount - score.TopPolyTrack + 1 : 0);
}

/// Answers whether all its bytes have found a place.
bool MidiExport::writeTrack(int track) {
    auto& state = studio_.midiExport;
    auto& player = studio_.player;
    const MidiBytes bytes(state);
    player.LastPlayedCell[static_cast<std::size_t>(track)] = -1;
    player.LastPlayedInstrument[static_cast<std::size_t>(track)] = -1;
    state.LastEventColumn = 0;
    state.TrackByteCount = 0;
    int at = state.MidiWriteIndex + 1;
    for (const char letter : {'M', 'T', 'r', 'k'}) at = bytes.add(at, letter);
    at += lengthBytes;
    state.TrackDataStart = index(at);
    if (!studio_.isHidden(track)) at = writeTrackColumns(studio_, track, at, voices_);
    state.DeltaColumns = static_cast<Int16>(player.SongEndColumn - state.LastEventColumn);
    at = bytes.addDelta(at, state.DeltaColumns);
    at = bytes.add(at, 255);
    at = bytes.add(at, 47);
    bytes.add(at, 0);
    state.MidiWriteIndex = index(at);
    state.TrackByteCount = static_cast<Int16>(state.MidiWriteIndex - state.TrackDataStart + 1);
    const bool fitted = growBuffer() && at <= MidiExportState::lastByte;
    writeTrackLength(state);
    return fitted;
}

/// Too small a buffer gets the size of the one track, not of the file, and may become smaller by it. What was
/// written past its end is lost. Answers whether it was large enough.
bool MidiExport::growBuffer() {
    auto& state = studio_.midiExport;
    if (state.MidiBufferSize >= state.MidiWriteIndex) return true;
    const int before = lastElement(state.MidiBufferSize);
    state.MidiBufferSize = state.TrackByteCount + spareBytes;
    for (int at = before + 1; at <= lastElement(state.MidiBufferSize); ++at)
        state.MidiBuffer[static_cast<std::size_t>(at)] = 0;
    settings_.save(bufferSetting, state.MidiBufferSize);
    return false;
}

std::string MidiExport::ToBinaryText(std::int32_t value) {
    std::string digits;
    for (unsigned power = std::bit_floor(static_cast<unsigned>(std::max(value, 0))); power != 0; power /= 2)
        digits += (static_cast<unsigned>(value) & power) != 0 ? '1' : '0';
    return digits.empty() ? "0" : digits;
}

void MidiExport::VlqWriter() {
    auto& state = studio_.midiExport;
    state.MidiWriteIndex = index(MidiBytes(state).addDelta(state.MidiWriteIndex, state.DeltaColumns));
}

void MidiExport::NextMidiByte() {
    assign(studio_.midiExport.MidiWriteIndex, studio_.midiExport.MidiWriteIndex + 1);
}

void MidiExport::WriteTempo() { writeMidiTempo(studio_); }

void MidiExport::WriteTrackLength() { writeTrackLength(studio_.midiExport); }

void MidiExport::WriteNoteOn(int track, int column) {
    auto& state = studio_.midiExport;
    state.MidiWriteIndex = index(writeNoteOn(studio_, track, column, state.MidiWriteIndex));
}

void MidiExport::WriteNoteOff(int track) {
    auto& state = studio_.midiExport;
    state.MidiWriteIndex = index(writeNoteOff(studio_, track, state.MidiWriteIndex));
}

void MidiExport::listNames(NameTables& tables) {
    auto& operations = tables.operations;
    operations.add("form1", "MidiFile", this, &MidiExport::MidiFile);
    operations.add("form1", "ToBinaryText", &MidiExport::ToBinaryText);
    operations.add("form1", "VlqWriter", this, &MidiExport::VlqWriter);
    operations.add("form1", "NextMidiByte", this, &MidiExport::NextMidiByte);
    operations.add("form1", "WriteTempo", this, &MidiExport::WriteTempo);
    operations.add("form1", "WriteTrackLength", this, &MidiExport::WriteTrackLength);
    operations.add("form1", "WriteNoteOn", this, &MidiExport::WriteNoteOn);
    operations.add("form1", "WriteNoteOff", this, &MidiExport::WriteNoteOff);
    listState(tables.state);
}

void MidiExport::listState(StateTable& table) {
    auto& state = studio_.midiExport;
    table.add("MidiBufferSize", state.MidiBufferSize);
    table.add("MidiWriteIndex", state.MidiWriteIndex);
    table.add("TrackDataStart", state.TrackDataStart);
    table.add("TrackByteCount", state.TrackByteCount);
    table.add("DeltaColumns", state.DeltaColumns);
    table.add("LastEventColumn", state.LastEventColumn);
    table.add("ExportPercussion", state.ExportPercussion);
    table.add("ExportPercussionKey", state.ExportPercussionKey);
    table.add("ExportInstrument", state.ExportInstrument);
    table.add("ExportChannel", state.ExportChannel);
    const auto has = [&state](int at) { return at >= 0 && at <= lastElement(state.MidiBufferSize); };
    table.add({"MidiBuffer", 1,
               [&state, has](StateTable::Indices at) -> std::optional<Value> {
                   if (!has(at[0])) return std::nullopt;
                   return toValue(state.MidiBuffer[static_cast<std::size_t>(at[0])]);
               },
               [&state, has](StateTable::Indices at, const Value& value) {
                   const auto byte = fromValue<std::uint8_t>(value);
                   if (!byte || !has(at[0])) return false;
                   state.MidiBuffer[static_cast<std::size_t>(at[0])] = *byte;
                   return true;
               }});
}

}  // namespace melvane
