// A recording from the first click to the sound that comes back, by the program itself on a display, with a
// sound server.
#include <algorithm>
#include <cmath>

#include "chord_finder.h"
#include "heard_player.h"
#include "measured.h"
#include "onset_finder.h"
#include "patience.h"
#include "recorder/encoder_settings.h"
#include "recorder_user.h"
#include "sound_comparison.h"
#include "sound_files.h"
#include "studio_test.h"

namespace melvane::e2e {
namespace {

using sound_test::MonitorRecording;
using sound_test::wrongEachTime;

// When the machine is so busy that the server starves, the sound that it does not play is not recorded
// either.
constexpr int times = 3;
constexpr double savePatience = 40, encodePatience = 30;  // seconds, beyond what is recorded
// What the sound callback places itself does not depend on when the program is woken.
constexpr double exactOnset = 0.006, exactOnAverage = 0.001;  // seconds

double now() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

class Recording : public StudioTest {
 protected:
    void SetUp() override {
        ASSERT_NO_FATAL_FAILURE(StudioTest::SetUp());
        ASSERT_EQ(server.start(), "");
    }
};

TEST_F(Recording, AScoreBecomesAnMp3FileThatThePlayerPlays) {
    const Tune tune = makeTune(18);
    studio.start(folder.make("tune.sng", tune.asScore()));
    RecorderUser recorder(studio);
    recorder.chooseLastFormat();
    std::string path;
    std::optional<Sound> recorded;
    EXPECT_EQ(wrongEachTime(
                  [&] {
                      recorder.start();
                      path = studio.waitForRecording(savePatience, file("kept.wav"));
                      recorded = readPlainWav(file("kept.wav"));
                      const bool deleted =
                          comesTrue(encodePatience, [&] { return studio.filesEnding(".wav").empty(); });
                      if (!deleted || !recorded)
                          return path + (deleted ? " cannot be read" : " is not deleted");
                      return tuneFaults(recorded->left, recorded->rate, tune,
                                        {tune.playedSpacing(), Tune::latestChord, Tune::lateOnAverage});
                  },
                  times),
              "");
    ASSERT_TRUE(recorded);
    EXPECT_EQ(recorded->rate, 48000);
    EXPECT_EQ(recorded->channels, 2);

    const std::string encodedPath = path.substr(0, path.size() - 4) + ".mp3";
    const auto encoded = readMp3(encodedPath);
    ASSERT_TRUE(encoded) << encodedPath;
    // The encoder's table goes by the place in the list of formats and not by what stands there: it takes
    // these frames, 48,000 a second, for 44,100 a second. So the file has every frame and lasts so much
    // longer.
    const BE_CONFIG assumed = encoderSettings(4, "224", encoderQualities.back());
    EXPECT_EQ(encoded->rate, static_cast<int>(assumed.dwSampleRate));
    EXPECT_EQ(encoded->channels, 2);
    constexpr std::size_t mostPadding = 4 * 1152;  // the encoder's delay, and the last frame's rest
    EXPECT_GE(encoded->left.size(), recorded->left.size());
    EXPECT_LE(encoded->left.size(), recorded->left.size() + mostPadding);
    EXPECT_GT(bestCorrelation(recorded->left, encoded->left, mostPadding), 0.99);

    EXPECT_EQ(heardFaults(server, recorder, *encoded, recorded->rate, tune.chords), "");
    EXPECT_EQ(studio.close(), 0);
}

TEST_F(Recording, AMidiFileIsPlayedAndRecorded) {
    const Tune tune = makeTune(10);
    const std::string midi = file("tune.mid");
    ASSERT_EQ(sound_test::ChildProcess::start({MELVANE_RENDER, folder.make("tune.sng", tune.asScore()), midi})
                  .wait(),
              0);
    studio.start();
    RecorderUser recorder(studio);
    recorder.chooseSource("Optsourcemid");
    recorder.switchEncodingOff();
    std::optional<Sound> recorded;
    EXPECT_EQ(wrongEachTime(
                  [&] {
                      studio.removeRecordings();
                      recorder.start();
                      studio.chooseFile("Open MIDI File", midi);
                      MonitorRecording monitor(server);
                      recorded = readPlainWav(studio.waitForRecording(savePatience));
                      if (!recorded) return std::string("the recording cannot be read");
                      if (soundingLevel(monitor.take()) < soundingLevel(recorded->left) / 2)
                          return std::string("the MIDI file was not heard");
                      return tuneFaults(recorded->left, recorded->rate, tune,
                                        {tune.exportedSpacing(), exactOnset, exactOnAverage});
                  },
                  times),
              "");
    ASSERT_TRUE(recorded);
    EXPECT_EQ(recorded->rate, 44100);
    EXPECT_EQ(recorded->channels, 2);
    recorder.waitForRecording(false, savePatience);

    EXPECT_EQ(heardFaults(server, recorder, *recorded, recorded->rate, tune.chords), "");
    EXPECT_EQ(studio.close(), 0);
}

/// A key of the computer and the MIDI key that stands behind it in the scheme that comes with the program.
struct PlayedKey {
    const char* name;
    int key;
};

TEST_F(Recording, KeysAreRecordedInTheirOrder) {
    constexpr PlayedKey played[] = {{"q", 36 + 17},     {"u", 36 + 28}, {"2", 36 + 18},
                                    {"comma", 36 + 12}, {"k", 36 + 42}, {"z", 36}};
    constexpr double held = 0.3, pause = 0.5, latest = (held + pause) / 2;  // seconds
    studio.start();
    RecorderUser recorder(studio);
    recorder.chooseSource("Optsourcekeyboard");
    recorder.start();
    studio.waitForFocus("frmsynth");
    recorder.waitForRecording(true, savePatience);
    std::vector<int> keys;
    std::vector<double> moments;
    for (const PlayedKey& key : played) {
        keys.push_back(key.key);
        moments.push_back(now());
        studio.hand().hold(key.name, true);
        rest(held);
        studio.hand().hold(key.name, false);
        rest(pause);
    }
    recorder.stop();
    studio.waitForRecording(savePatience, file("kept.wav"));
    const auto recorded = readPlainWav(file("kept.wav"));
    ASSERT_TRUE(recorded);
    EXPECT_EQ(sound_test::pitchFaults(recorded->left, recorded->rate, keys), "");
    EXPECT_EQ(distanceFaults(recorded->left, recorded->rate, moments, latest), "");
    studio.click("frmsynth", "Cmd2(4)");
    EXPECT_EQ(studio.waitForEnd(), 0);
}

}  // namespace
}  // namespace melvane::e2e
