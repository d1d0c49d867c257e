#include "render/score_export.h"

#include "platform/files.h"
#include "render/null_midi_port.h"
#include "render/render_studio.h"

namespace melvane {

namespace {

constexpr int slowestTempo = 4;              // 24 bits hold no more microseconds a quarter note
constexpr double columnSecondsByTempo = 15;  // a column is a quarter of a quarter note

std::string quoted(const std::string& path) { return "\"" + path + "\""; }

}  // namespace

RenderResult exportScore(const std::string& scorePath, const std::string& midiPath) {
    const auto text = readFile(scorePath);
    if (!text) return {quoted(scorePath) + " cannot be read.", false, 0};
    VirtualTime time;
    NullMidiPort port;
    RenderStudio render(time, port);
    render.settings.write("NumBytes", std::to_string(MidiExportState::lastByte));
    render.open(scorePath, *text);

    RenderResult result;
    result.hasNotes = render.hasNotes();
    const int tempo = render.studio.score.Tempo;
    if (tempo < slowestTempo) {
        result.failure =
            quoted(scorePath) + " cannot be exported at its tempo of " + std::to_string(tempo) + ".";
        return result;
    }
    const auto file = render.engine.midiExport.build();
    if (!file.whole) {
        result.failure = quoted(scorePath) + " is too long: its MIDI file would exceed 32,767 bytes.";
        return result;
    }
    result.failure = writeFileWhole(midiPath, file.bytes);
    result.seconds = render.studio.player.SongEndColumn * columnSecondsByTempo / tempo;
    return result;
}

}  // namespace melvane
