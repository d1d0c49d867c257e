#include "render/score_render.h"

#include "platform/files.h"
#include "platform/offline_midi_port.h"
#include "platform/sound_font.h"
#include "render/level_sink.h"
#include "render/render_studio.h"

namespace melvane {

namespace {

constexpr std::int64_t longestTail = 4000;  // milliseconds
constexpr std::int64_t tailStep = 100;
constexpr float silence = 1.0F / 32768;

/// A studio that plays through a synthesizer into a file.
class SoundingStudio {
 public:
    explicit SoundingStudio(AudioSink& sink) : level(sink) {}

    VirtualTime time;
    LevelSink level;
    Synthesizer synthesizer{time, 0};
    OfflineMidiPort port{time, synthesizer, level};
    RenderStudio render{time, port};
};

/// False when the player refuses the tempo, which takes no time.
bool playSong(SoundingStudio& sounding) {
    const std::int64_t before = sounding.time.counter();
    sounding.render.engine.player.PlayAndStop_Click(0);
    return sounding.time.counter() > before;
}

void playUntilSilent(SoundingStudio& sounding) {
    sounding.level.takePeak();
    for (std::int64_t tail = 0; tail < longestTail; tail += tailStep) {
        sounding.time.pause(tailStep);
        if (!sounding.port.renderToNow() || sounding.level.takePeak() < silence) return;
    }
}

void watchColumns(SoundingStudio& sounding, const std::function<void(int, int)>& progress) {
    sounding.render.surfaces.columnPlayed = [&sounding, &progress] {
        auto& player = sounding.render.studio.player;
        if (!sounding.level.works()) player.Playing = false;  // the rest could only be thrown away
        if (progress) progress(player.PlayColumn, player.SongEndColumn);
    };
}

std::string cannotPlay(const std::string& path, int tempo) {
    return "\"" + path + "\" cannot be played at its tempo of " + std::to_string(tempo) + ".";
}

}  // namespace

RenderResult renderScore(const std::string& scorePath, AudioSink& sink,
                         const std::function<void(int, int)>& progress) {
    const auto text = readFile(scorePath);
    if (!text) return {"\"" + scorePath + "\" cannot be read.", false, 0};
    SoundingStudio sounding(sink);
    if (auto failure = sounding.synthesizer.loadSoundFont(installedSoundFonts(soundFontCandidates()))) {
        return {std::move(failure), true, 0};
    }
    auto& render = sounding.render;
    render.open(scorePath, *text);
    watchColumns(sounding, progress);

    RenderResult result;
    result.hasNotes = render.hasNotes();
    if (!playSong(sounding)) return {cannotPlay(scorePath, render.studio.score.Tempo), result.hasNotes, 0};
    playUntilSilent(sounding);
    result.failure = sounding.port.finish(0);
    result.seconds = static_cast<double>(sounding.port.framesRendered()) / soundRate;
    return result;
}

}  // namespace melvane
