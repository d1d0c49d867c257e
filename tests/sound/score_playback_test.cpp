// A score opened, played by the real program in its windows, and heard at the other end of a sound server.
#include <gtest/gtest.h>

#include <QApplication>

#include <cmath>
#include <sstream>

#include "files/sng_writer.h"
#include "measured.h"
#include "onset_finder.h"
#include "platform/files.h"
#include "platform/media_error.h"
#include "platform/midi_devices.h"
#include "platform/qt_event_loop.h"
#include "platform/sound_card.h"
#include "platform/sound_font.h"
#include "private_sound_server.h"
#include "shell/engine.h"
#include "shell/main_window.h"
#include "shell/qt_dialogs.h"
#include "ui/floating_windows_window.h"
#include "unit/temporary_folder.h"

namespace melvane {
namespace {

using namespace sound_test;

class NoSystemPorts final : public SystemMidi {
 public:
    std::vector<std::string> names() override { return {}; }
    std::unique_ptr<SystemMidiOutput> open(std::size_t) override { return nullptr; }
};

const std::vector<int> keys{57, 60, 64, 69, 72, 76, 81};
constexpr int columnsANote = 3;  // two sound, one rests
constexpr int squareLead = 80;
constexpr double columnSeconds = 0.138;  // at tempo 100

/// A score with one note a key, as a file.
std::string makeScore(const test::TemporaryFolder& folder) {
    Studio studio;
    auto& score = studio.score;
    for (Grid* grid : {&score.NoteArray, &score.InstArray, &score.VolumeArray, &score.ModArray,
                       &score.PanArray, &score.ReverbArray, &score.ChorusArray, &score.PolyArray}) {
        grid->create(score.NumNotes, grid == &score.NoteArray ? cell::empty : 0);
    }
    for (int track = 0; track <= lastTrackNumber; ++track) {
        score.VolumeArray.fillTrack(track, 100, score.NumNotes);
        score.PanArray.fillTrack(track, 64, score.NumNotes);
    }
    int column = 1;
    for (const int key : keys) {
        score.NoteArray.set(0, column, 127 - key);
        score.NoteArray.set(0, column + 1, cell::continuation + 127 - key);
        score.InstArray.set(0, column, squareLead);
        score.InstArray.set(0, column + 1, squareLead);
        column += columnsANote;
    }
    return folder.make("scale.sng", writeSng(studio));
}

class ScorePlayback : public testing::Test {
 protected:
    void SetUp() override {
        ASSERT_EQ(server.start(), "");
        ASSERT_EQ(synthesizer.loadSoundFont(installedSoundFonts(soundFontCandidates())), std::nullopt);
    }

    /// The seconds that it took.
    double play(Engine& engine) const {
        const auto begin = clock.counter();
        engine.player.PlayAndStop_Click(0);
        return static_cast<double>(clock.counter() - begin) / static_cast<double>(clock.frequency());
    }

    static std::string playbackFaults(const Studio& studio, double seconds, const std::vector<float>& sound) {
        const double columns = studio.player.SongEndColumn + 2;
        std::ostringstream faults;
        if (std::abs(seconds - columns * columnSeconds) > 0.25) faults << seconds << " s; ";
        const double spacing = spacingOf(findOnsets(sound, soundRate), soundRate).mean;
        if (std::abs(spacing - 1000 * columnsANote * columnSeconds) > 3.0) faults << spacing << " ms; ";
        return faults.str() + pitchFaults(sound, soundRate, keys);
    }

    test::TemporaryFolder folder;
    PrivateSoundServer server;
    SteadyClock clock;
    QtEventLoop loop{clock};
    Synthesizer synthesizer{clock, SoundCard::messageDelaySeconds};
    NoSystemPorts system;
    MidiDevices port{synthesizer, system};
    NoMediaDevice media;
    BareDesktop desktop;
    MemorySettingsStore settings;
    QtDialogs dialogs{loop};
    Outside outside{clock,   loop,     port,    media,
                    desktop, settings, dialogs, Directories{folder.path(), folder.path()}};
};

TEST_F(ScorePlayback, EveryNoteIsHeardInItsTimeAndAtItsPitch) {
    SoundCard card(clock, {&synthesizer}, {});
    Studio studio;
    FloatingWindows toolWindows;
    form1 window(studio);
    Engine engine(studio, outside, window, window, toolWindows);
    window.attach(engine);
    engine.startUp.Form_Load();
    window.show();
    loop.waitFor([&] { return card.hasOutput(); });
    loop.waitUntil(clock.counter() + clock.frequency() / 2);

    engine.files.OpenPoliFile(makeScore(folder));
    EXPECT_EQ(wrongEachTime([&] {
                  MonitorRecording recording(server);
                  const double seconds = play(engine);
                  loop.waitUntil(clock.counter() + clock.frequency() / 2);
                  return playbackFaults(studio, seconds, recording.take());
              }),
              "");
    engine.startUp.Form_Unload();
}

}  // namespace
}  // namespace melvane

int main(int count, char** arguments) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&count, arguments);
    const QApplication application(count, arguments);
    return RUN_ALL_TESTS();
}
