// Recordings by the program itself while what lies around it fails.
#include <filesystem>
#include <memory>

#include "chord_finder.h"
#include "heard_player.h"
#include "measured.h"
#include "patience.h"
#include "recorder_user.h"
#include "small_disk.h"
#include "sound_files.h"
#include "studio_test.h"

namespace melvane::e2e {
namespace {

namespace fs = std::filesystem;
using sound_test::wrongEachTime;

// As when the sound is measured elsewhere: a server that starves drops some of it.
constexpr int times = 3;
constexpr double patience = 30;         // seconds, beyond what is recorded
constexpr double lateAtAFault = 0.075;  // seconds

class RecordingFaults : public StudioTest {
 protected:
    /// Starts the program with the tune and opens the recorder, without encoding.
    void open(const Tune& tune, const std::vector<std::string>& launcher = {}) {
        studio.start(folder.make("tune.sng", tune.asScore()), launcher);
        recorder = std::make_unique<RecorderUser>(studio);
        recorder->switchEncodingOff();
    }

    /// What is wrong with the recording of the tune that is saved next, which stays in `recorded`.
    std::string faultsOfNext(const Tune& tune, double lateOnAverage) {
        recorded = readPlainWav(studio.waitForRecording(patience));
        if (!recorded) return "the recording cannot be read";
        return tuneFaults(recorded->left, recorded->rate, tune,
                          {tune.playedSpacing(), Tune::latestChord, lateOnAverage});
    }

    std::string faultsOfEachTry(const Tune& tune) {
        return wrongEachTime(
            [&] {
                studio.removeRecordings();
                recorder->start();
                return faultsOfNext(tune, Tune::lateOnAverage);
            },
            times);
    }

    std::unique_ptr<RecorderUser> recorder;
    std::optional<Sound> recorded;
};

TEST_F(RecordingFaults, ASoundServerThatEndsAndComesBackLeavesTheRecordingWhole) {
    const Tune tune = makeTune(14);
    ASSERT_EQ(server.start(), "");
    open(tune);
    EXPECT_EQ(wrongEachTime(
                  [&] {
                      studio.removeRecordings();
                      recorder->start();
                      recorder->waitForRecording(true, patience);
                      rest(1.2);
                      server.kill();
                      rest(1.2);
                      const std::string failure = server.start();
                      return failure.empty() ? faultsOfNext(tune, lateAtAFault) : failure;
                  },
                  times),
              "");
    ASSERT_TRUE(recorded);
    recorder->waitForRecording(false, patience);
    EXPECT_EQ(heardFaults(server, *recorder, *recorded, recorded->rate, tune.chords), "");
    EXPECT_EQ(studio.close(), 0);
}

TEST_F(RecordingFaults, WithoutASoundServerTheRecordingIsTheSame) {
    const Tune tune = makeTune(8);
    open(tune);
    EXPECT_EQ(faultsOfEachTry(tune), "");
    EXPECT_EQ(studio.close(), 0);
}

TEST_F(RecordingFaults, OnAFullDiskWhatHadRoomIsKeptAndTheNextRecordingIsWhole) {
    const Tune tune = makeTune(6);
    SmallDisk disk(studio.songs());
    open(tune, disk.launcher());
    recorder->start();
    const std::string seen = disk.seenFrom(studio.process());
    studio.seeSongsAt(seen);
    recorder->waitForRecording(true, patience);
    recorder->waitForRecording(false, patience);
    const std::string part = studio.waitForRecording(patience);
    const auto kept = readPlainWav(part);
    ASSERT_TRUE(kept);
    EXPECT_GT(kept->seconds(), SmallDisk::seconds / 2);
    EXPECT_LE(kept->seconds(), SmallDisk::seconds);
    EXPECT_EQ(std::distance(fs::directory_iterator(seen), {}), 1);  // and no other file

    fs::remove(part);
    ASSERT_TRUE(disk.makeRoom(studio.process()));
    EXPECT_EQ(faultsOfEachTry(tune), "");
    EXPECT_EQ(studio.close(), 0);
}

}  // namespace
}  // namespace melvane::e2e
