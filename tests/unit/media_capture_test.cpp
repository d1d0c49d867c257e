#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "file_size_limit.h"
#include "media_capture_fixture.h"
#include "platform/media_system.h"
#include "platform/offline_midi_port.h"

namespace melvane {
namespace {

using namespace sound_test;

/// The numbers of the open files without a name that lie in the folder.
std::vector<ino_t> namelessFilesIn(const std::filesystem::path& folder) {
    std::vector<ino_t> numbers;
    for (const auto& each : std::filesystem::directory_iterator("/proc/self/fd")) {
        std::error_code failed;
        const std::string file = std::filesystem::read_symlink(each.path(), failed).string();
        struct stat state {};
        if (!file.starts_with(folder.string() + "/") || stat(each.path().c_str(), &state) != 0) continue;
        if (state.st_nlink == 0) numbers.push_back(state.st_ino);
    }
    return numbers;
}

TEST_F(Capturing, SavesEverySampleOfTheMixFromTheStartToTheStop) {
    source.sound = stereoTone(440, 0.5, -1.5, 30 * soundRate);
    run(0.7);
    openCapture("samplespersec 44100 channels 2 bitspersample 16 alignment 4 bytespersec 176400");
    run(0.3);
    done("record capture");
    const auto heard = run(20.0);
    done("stop capture");
    run(1.0);
    EXPECT_EQ(done("capability capture can save"), "true");
    done("save capture " + path);
    EXPECT_EQ(samplesIn(path), samplesOf(heard));
    EXPECT_EQ(bytesOf(path).substr(0, waveHeaderSize), waveHeader({}, heard.size() * 2));
    EXPECT_EQ(folder.fileCount(), 1U);
}

/// Strikes and ends notes at uneven frames, letting the time run to each by `runTo(frame)`.
template <typename RunTo, typename Send>
void playTune(RunTo runTo, Send send) {
    send(program(0, squareLead));
    for (std::uint32_t turn = 0; turn < 40; ++turn) {
        runTo(turn * 9'973 + turn * turn * 7 % 501);
        send(noteOn(turn % 3 == 0 ? drums : 0, 50 + turn % 20));
        runTo(turn * 9'973 + 7'000);
        send(noteOff(turn % 3 == 0 ? drums : 0, 50 + turn % 20));
    }
    runTo(41 * 9'973);
}

TEST_F(Capturing, EqualsTheRenderingOfTheSameNotesIntoAFile) {
    const std::string rendered = folder.file("rendered.wav");
    {
        FrameClock tick;
        Synthesizer other(tick, 0.0);
        ASSERT_EQ(other.loadSoundFont(anySoundFont()), std::nullopt);
        WavWriter writer(rendered);
        OfflineMidiPort port(tick, other, writer);
        MidiPort::Handle handle = 0;
        ASSERT_EQ(port.midiOutOpen(handle, 0), MidiPort::ok);
        playTune([&](std::uint32_t frame) { tick.now = frame; },
                 [&](std::uint32_t message) { port.midiOutShortMsg(handle, message); });
        ASSERT_EQ(port.finish(0.0), std::nullopt);
    }
    ASSERT_EQ(synthesizer.loadSoundFont(anySoundFont()), std::nullopt);
    run(0.1234);
    openCapture();
    done("record capture");
    const std::int64_t start = clock.now;
    playTune([&](std::uint32_t frame) { run(static_cast<double>(start + frame - clock.now) / soundRate); },
             [&](std::uint32_t message) { synthesizer.send(message); });
    done("stop capture");
    done("save capture " + path);
    EXPECT_EQ(samplesIn(path), samplesIn(rendered));
    EXPECT_GT(std::ranges::max(samplesIn(path)), 1000);
}

TEST_F(Capturing, GoesOnWhereItStoppedWhenItIsStartedAgain) {
    source.sound = stereoTone(440, 0.5, 0.5, 10 * soundRate);
    openCapture();
    done("record capture");
    auto heard = run(1.0);
    done("stop capture");
    run(1.0);
    done("record capture");
    done("record capture");
    const auto more = run(1.0);
    heard.insert(heard.end(), more.begin(), more.end());
    done("stop capture");
    done("save capture " + path);
    EXPECT_EQ(samplesIn(path), samplesOf(heard));
}

TEST_F(Capturing, CanBeSavedWhileItGoesOn) {
    source.sound = stereoTone(440, 0.5, 0.5, 10 * soundRate);
    openCapture();
    done("record capture");
    const auto heard = run(1.0);
    done("save capture " + path);
    EXPECT_EQ(samplesIn(path), samplesOf(heard));
    run(1.0);
    done("stop capture");
    done("save capture " + path);
    EXPECT_EQ(samplesIn(path).size(), heard.size() * 2);
}

TEST_F(Capturing, IsEmptyBeforeItIsStartedAndOnceItIsDeleted) {
    openCapture();
    done("stop capture");
    done("save capture " + path);
    EXPECT_EQ(bytesOf(path), waveHeader({}, 0));
    done("record capture");
    run(1.0);
    device->catchUp();
    EXPECT_EQ(number("status capture length"), 1000);
    done("stop capture");
    done("delete capture");
    EXPECT_EQ(number("status capture length"), 0);
    done("save capture " + path);
    EXPECT_EQ(bytesOf(path), waveHeader({}, 0));
}

TEST_F(Capturing, TakesEachFormatAndRefusesOthers) {
    openCapture();
    done("set capture samplespersec 48000 channels 2 bitspersample 16 alignment 4 bytespersec 192000");
    done("record capture");
    run(1.0);
    done("stop capture");
    done("save capture " + path);
    EXPECT_NEAR(static_cast<double>(bytesOf(path).size()), 44 + 192000.0, 8);
    EXPECT_EQ(refused("set capture samplespersec 44100 channels 2 bitspersample 16"),
              MediaError::formatRefused)
        << "while it holds sound of another";
    done("delete capture");
    EXPECT_EQ(refused("set capture samplespersec 0 channels 0 bitspersample 0 alignment 0 bytespersec 0"),
              MediaError::formatRefused);
    done("set capture samplespersec 22050 channels 1 bitspersample 8 alignment 1 bytespersec 22050");
    done("record capture");
    run(0.5);
    done("stop capture");
    done("save capture " + path);
    const std::string bytes = bytesOf(path);
    EXPECT_EQ(bytes.substr(0, 44), waveHeader({22050, 1, 8}, 11025));
    EXPECT_EQ(bytes.size(), 44U + 11026U) << "an odd length is padded";
}

TEST_F(Capturing, RefusesWhatOnlyAPlayerCan) {
    openCapture();
    for (const char* command :
         {"play capture", "pause capture", "resume capture", "set capture time format ms"}) {
        EXPECT_EQ(refused(command), MediaError::wrongKind) << command;
    }
    EXPECT_EQ(refused("save capture "), MediaError::noFile);
}

TEST_F(Capturing, IsGoneOnceItIsClosed) {
    openCapture();
    EXPECT_EQ(refused("open new type waveaudio alias CAPTURE"), MediaError::aliasInUse);
    done("record capture");
    run(0.1);
    done("close capture ");
    run(0.1);
    for (const char* command : {"stop capture", "record capture", "close capture", "save capture /x",
                                "delete capture", "capability capture can save", "status capture length"}) {
        EXPECT_EQ(refused(command), MediaError::notOpen) << command;
    }
    openCapture();
    done("close all");
    EXPECT_EQ(refused("stop capture"), MediaError::notOpen);
    done("Close All");
}

TEST_F(Capturing, LeavesTheMixToTheRecordingThatHasIt) {
    openCapture();
    done("open new type waveaudio alias second");
    done("record capture");
    EXPECT_EQ(refused("record second"), MediaError::inUse);
    EXPECT_EQ(refused("stop second"), MediaError::inUse);
    source.sound = stereoTone(440, 0.5, 0.5, 44'100);
    const auto heard = run(1.0);
    done("stop capture");
    done("save capture " + path);
    EXPECT_EQ(samplesIn(path), samplesOf(heard));
}

TEST_F(Capturing, KeepsWhatThereIsWhenTheDiskIsFull) {
    source.sound = stereoTone(440, 0.5, 0.5, 10 * soundRate);
    openCapture();
    std::vector<float> heard;
    {
        const test::FileSizeLimit limit(waveHeaderSize + 100'002);
        done("record capture");
        heard = run(3.0);
        EXPECT_EQ(refused("stop capture"), MediaError::noRoom);
    }
    done("save capture " + path);
    heard.resize(50'000);
    EXPECT_EQ(samplesIn(path), samplesOf(heard)) << "whole frames only";
    done("delete capture");
    done("record capture");
    run(0.1);
    done("stop capture");
}

TEST_F(Capturing, KeepsTheEarlierFileWhenTheDiskIsFullAtTheSave) {
    folder.make("my take 1.wav", "earlier");
    openCapture();
    done("record capture");
    const auto heard = run(3.0);
    device->catchUp();
    {
        // While it goes on a copy is saved.
        const test::FileSizeLimit limit(100'000);
        EXPECT_EQ(refused("save capture " + path), MediaError::notSaved);
    }
    EXPECT_EQ(bytesOf(path), "earlier");
    EXPECT_EQ(folder.fileCount(), 1U);
    done("stop capture");
    EXPECT_EQ(refused("save capture " + folder.file("none/a.wav")), MediaError::notSaved);
    done("save capture " + path);
    EXPECT_EQ(samplesIn(path), samplesOf(heard));
}

TEST_F(Capturing, NeedsNoRoomToBeSavedBesideItsSpool) {
    folder.make("my take 1.wav", "earlier");
    recordings = folder.path().string();
    openCapture();
    done("record capture");
    const auto heard = run(3.0);
    done("stop capture");
    {
        const test::FileSizeLimit limit(1000);
        done("save capture " + path);
    }
    EXPECT_EQ(samplesIn(path), samplesOf(heard));
    EXPECT_EQ(folder.fileCount(), 1U);
}

TEST_F(Capturing, IsNotCopiedWhenItIsSavedBesideItsSpool) {
    recordings = folder.path().string();
    openCapture();
    done("record capture");
    run(0.5);
    EXPECT_EQ(folder.fileCount(), 0U) << "it has no name yet";
    const auto before = namelessFilesIn(folder.path());
    ASSERT_EQ(before.size(), 1U);
    done("stop capture");
    done("save capture " + path);
    struct stat saved {};
    ASSERT_EQ(stat(path.c_str(), &saved), 0);
    EXPECT_EQ(saved.st_ino, before.front());
    const mode_t mask = umask(0);
    umask(mask);
    EXPECT_EQ(saved.st_mode & 07777U, 0666U & ~mask);
}

TEST_F(Capturing, LiesWhereTheProgramSavesRecordings) {
    MediaSystem system(clock, synthesizer, {.recordingsFolder = [this] { return folder.path().string(); }});
    EXPECT_EQ(system.device().send("open new type waveaudio alias capture").code, 0);
    EXPECT_EQ(namelessFilesIn(folder.path()).size(), 1U);
    EXPECT_EQ(system.sources().size(), 1U);
    ASSERT_EQ(system.taps().size(), 1U);
    EXPECT_EQ(system.device().send("record capture").code, 0);
    system.taps().front()->hear(stereoTone(441, 0.5, 0.5, 4410), 0);
    EXPECT_EQ(system.device().send("stop capture").code, 0);
    EXPECT_EQ(system.device().send("save capture " + path).code, 0);
    EXPECT_EQ(samplesIn(path), samplesOf(stereoTone(441, 0.5, 0.5, 4410)));
}

TEST_F(Capturing, LeavesTheFileThatIsSavedAlone) {
    recordings = folder.path().string();
    openCapture();
    done("record capture");
    auto heard = run(0.5);
    done("stop capture");
    done("save capture " + path);
    const std::string first = bytesOf(path);
    const std::string second = folder.file("second.wav"), third = folder.file("third.wav");
    done("save capture " + second);
    EXPECT_EQ(bytesOf(second), first);
    done("record capture");
    const auto more = run(0.5);
    done("stop capture");
    done("save capture " + third);
    EXPECT_EQ(bytesOf(path), first);
    EXPECT_EQ(bytesOf(second), first);
    heard.insert(heard.end(), more.begin(), more.end());
    EXPECT_EQ(samplesIn(third), samplesOf(heard));
    done("delete capture");
    EXPECT_EQ(samplesIn(third), samplesOf(heard));
    done("record capture");
    const auto anew = run(0.25);
    done("stop capture");
    done("save capture " + path);
    EXPECT_EQ(samplesIn(path), samplesOf(anew));
    EXPECT_EQ(samplesIn(third), samplesOf(heard));
}

TEST_F(Capturing, SavesOntoAnotherFileSystem) {
    // One of the two is not that of the folder; either way the file is whole.
    for (const char* const where : {"/dev/shm", "/var/tmp"}) {
        recordings = where;
        openCapture();
        done("record capture");
        const auto heard = run(0.5);
        done("stop capture");
        done("save capture /dev/null");
        EXPECT_TRUE(std::filesystem::is_character_file("/dev/null"));
        done("save capture " + path);
        EXPECT_EQ(samplesIn(path), samplesOf(heard)) << where;
        done("close all");
    }
    EXPECT_EQ(folder.fileCount(), 1U);
}

TEST_F(Capturing, CountsWhatTheRingCouldNotHold) {
    openCapture();
    done("record capture");
    std::vector<float> block(CaptureRing::frames * soundChannels * 3);
    mixer.render(ticket, block, [] { return 0; });
    const auto answer = device->send("stop capture");
    EXPECT_EQ(static_cast<MediaError>(answer.code), MediaError::framesLost);
    EXPECT_EQ(answer.text, "The machine was too slow, and sound was lost. Missing seconds: 12.0");
    done("delete capture");
    done("record capture");
    done("stop capture");
}

TEST_F(Capturing, EndsAtTheMostThatAFileHolds) {
    setting.mostCaptureBytes = 100'001;
    PortableMediaDevice small(clock, synthesizer, setting);
    SoundMixer stream({}, {&small.tap()}, soundRate);
    EXPECT_EQ(small.send("open new type waveaudio alias capture").code, 0);
    EXPECT_EQ(small.send("record capture").code, 0);
    std::vector<float> block(40'000 * soundChannels);
    stream.render(stream.handOver(), block, [] { return 0; });
    EXPECT_EQ(static_cast<MediaError>(small.send("stop capture").code), MediaError::tooLong);
    EXPECT_EQ(small.send("save capture " + path).code, 0);
    EXPECT_EQ(bytesOf(path).size(), 44U + 100'000U);
}

TEST_F(Capturing, LeavesNoTemporaryFileBehind) {
    setenv("TMPDIR", folder.path().c_str(), 1);
    openCapture();
    EXPECT_EQ(folder.fileCount(), 0U) << "it has no name while it is used";
    done("record capture");
    run(0.5);
    EXPECT_EQ(folder.fileCount(), 0U);
    unsetenv("TMPDIR");
}

TEST_F(Capturing, CannotBeOpenedWithoutATemporaryFile) {
    openCapture();  // once with files: the sanitizers need some for what they see for the first time
    done("close capture");
    EXPECT_EQ(refused("record capture"), MediaError::notOpen);
    {
        const test::OpenFilesLimit limit(0);
        EXPECT_EQ(refused("open new type waveaudio alias capture"), MediaError::noSpool);
    }
    EXPECT_EQ(refused("record capture"), MediaError::notOpen);
    openCapture();
}

TEST_F(Capturing, TakesAnotherFolderWhenTheChosenOneHasNoRoomForATemporaryFile) {
    for (const char* const chosen : {"/proc", ""}) {
        setenv("TMPDIR", chosen, 1);
        openCapture();
        unsetenv("TMPDIR");
        done("record capture");
        const auto heard = run(0.5);
        done("stop capture");
        done("save capture " + path);
        EXPECT_EQ(samplesIn(path), samplesOf(heard)) << chosen;
        done("close capture");
    }
}

}  // namespace
}  // namespace melvane
