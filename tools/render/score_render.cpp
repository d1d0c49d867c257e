#include "render/score_render.h"

#include <algorithm>
#include <string_view>

#include "platform/files.h"
#include "platform/offline_midi_port.h"
#include "platform/settings_store.h"
#include "platform/sound_font.h"
#include "platform/virtual_time.h"
#include "render/level_sink.h"
#include "render/null_surfaces.h"
#include "render/null_windows.h"
#include "shell/engine.h"

namespace melvane {

namespace {

constexpr int usualColumns = 1000;
constexpr int mostColumns = 32000;          // a column is a 16-bit number in the player
constexpr std::int64_t longestTail = 4000;  // milliseconds
constexpr std::int64_t tailStep = 100;
constexpr float silence = 1.0F / 32768;

/// The engine with nothing around it but a synthesizer and a clock that runs as fast as it is served.
class RenderStudio {
 public:
    explicit RenderStudio(AudioSink& sink) : level(sink) {}

    VirtualTime time;
    LevelSink level;
    Synthesizer synthesizer{time, 0};
    OfflineMidiPort port{time, synthesizer, level};
    MemorySettingsStore settings;
    NullDialogs dialogs;
    NullSurfaces surfaces;
    NullFrame frame;
    NullToolWindows toolWindows;
    Studio studio;
    // No folder can be made below a device, so the start leaves no trace on the disk.
    Outside outside{time, time, port, settings, dialogs, Directories{"/dev/null", "/dev/null"}};
    Engine engine{studio, outside, surfaces, frame, toolWindows};
};

/// The index of the last column that a score's text has room for: one field for each column, in the longest
/// line.
int lastColumnOf(std::string_view text) {
    std::ptrdiff_t longest = 0;
    while (!text.empty()) {
        const std::string_view line = text.substr(0, text.find_first_of("\r\n"));
        longest = std::max(longest, std::ranges::count(line, ','));
        text.remove_prefix(std::min(text.size(), line.size() + 1));
    }
    return static_cast<int>(std::clamp<std::ptrdiff_t>(longest + 1, usualColumns, mostColumns));
}

bool hasNotes(const Score& score) {
    for (int track = 0; track <= lastTrackNumber; ++track) {
        if (std::ranges::any_of(score.NoteArray.row(track), cell::isStart)) return true;
    }
    return false;
}

/// False when the player refuses the tempo, which takes no time.
bool playSong(RenderStudio& render) {
    const std::int64_t before = render.time.counter();
    render.engine.player.PlayAndStop_Click(0);
    return render.time.counter() > before;
}

void playUntilSilent(RenderStudio& render) {
    render.level.takePeak();
    for (std::int64_t tail = 0; tail < longestTail; tail += tailStep) {
        render.time.pause(tailStep);
        if (!render.port.renderToNow() || render.level.takePeak() < silence) return;
    }
}

void watchColumns(RenderStudio& render, const std::function<void(int, int)>& progress) {
    render.surfaces.columnPlayed = [&render, &progress] {
        auto& player = render.studio.player;
        if (!render.level.works()) player.Playing = false;  // the rest could only be thrown away
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
    RenderStudio render(sink);
    if (auto failure = render.synthesizer.loadSoundFont(installedSoundFonts(soundFontCandidates()))) {
        return {std::move(failure), true, 0};
    }
    render.settings.write("NumNotes", std::to_string(lastColumnOf(*text)));
    render.engine.startUp.Form_Load();
    render.engine.startUp.Form_Activate();
    render.engine.files.OpenPoliFile(scorePath);
    watchColumns(render, progress);

    RenderResult result;
    result.hasNotes = hasNotes(render.studio.score);
    if (!playSong(render)) return {cannotPlay(scorePath, render.studio.score.Tempo), result.hasNotes, 0};
    playUntilSilent(render);
    result.failure = render.port.finish(0);
    result.seconds = static_cast<double>(render.port.framesRendered()) / soundRate;
    return result;
}

}  // namespace melvane
