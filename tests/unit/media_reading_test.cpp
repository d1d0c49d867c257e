#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <filesystem>
#include <memory>
#include <thread>

#include "media_player_fixture.h"
#include "midi_file_builder.h"
#include "platform/media_command.h"
#include "platform/media_midi_player.h"
#include "platform/media_player.h"
#include "platform/media_sound_file_player.h"

namespace melvane {
namespace {

using namespace sound_test;

/// Keeps a file from being read until it is opened.
struct Gate {
    std::atomic<bool> isOpen{false};
    std::atomic<bool> hasGuessed{false};

    void open() {
        isOpen = true;
        isOpen.notify_all();
    }
};

/// A file of four seconds that is read behind a gate.
class ReadingAFile : public MediaPlaying {
 protected:
    static constexpr std::int64_t noGuess = 0;

    void begin(std::int64_t guess, const std::string& file) {
        gate = std::make_shared<Gate>();
        isMade = false;
        const auto reader = [held = gate, guess, file](const LengthGuess& guessed) {
            if (guess != noGuess) guessed(guess);
            held->hasGuessed = true;
            held->hasGuessed.notify_all();
            held->isOpen.wait(false);
            return readMediaContent(file, {});
        };
        player = std::make_unique<MediaPlayer>(MediaReading(reader, false), [this](MediaContent content) {
            return playable(std::move(content));
        });
        gate->hasGuessed.wait(false);
        act("set a time format frames");
    }
    std::unique_ptr<Playable> playable(MediaContent content) {
        isMade = true;
        if (content.notes) {
            return std::make_unique<MidiPlayer>(std::move(*content.notes), synthesizer, clock, delaySeconds);
        }
        return std::make_unique<SoundFilePlayer>(std::move(content.sound), voices, clock, delaySeconds);
    }
    void TearDown() override {
        if (gate) gate->open();
    }
    MediaDevice::Answer act(const std::string& command) { return player->act(*readMediaCommand(command)); }
    long numberOf(const std::string& question) {
        const auto answer = act(question);
        EXPECT_EQ(answer.code, 0) << answer.text;
        return std::stol(answer.text);
    }
    /// Lets it be read, and waits for that.
    void read() {
        gate->open();
        const auto patience = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        while (!isMade && !player->isDamaged() && std::chrono::steady_clock::now() < patience) {
            std::this_thread::yield();
            player->catchUp();
        }
    }
    std::vector<float> hear(double seconds) {
        auto frames = static_cast<std::size_t>(seconds * soundRate);
        std::vector<float> sound;
        for (; frames > 0; frames -= std::min<std::size_t>(frames, 256)) {
            player->catchUp();
            std::vector<float> block(std::min<std::size_t>(frames, 256) * soundChannels);
            voices.mix(block, clock.now);
            sound.insert(sound.end(), block.begin(), block.end());
            clock.now += static_cast<std::int64_t>(block.size() / soundChannels);
        }
        return sound;
    }

    std::shared_ptr<Gate> gate;
    bool isMade = false;
    SoundVoices voices;
    std::unique_ptr<MediaPlayer> player;
};

TEST_F(ReadingAFile, DoesWhatIsWantedOnceItHasBeenRead) {
    begin(noGuess, path);
    act("play a from 30 to 60");
    EXPECT_TRUE(player->isPlaying());
    EXPECT_EQ(numberOf("status a position"), 0);
    EXPECT_EQ(peak(hear(0.5)), 0.0F);
    read();
    const auto sound = hear(2.0);
    EXPECT_NEAR(sound[1001], tone[2 * soundRate + 1001], 2.0 / 32768) << "from where it was wanted";
    EXPECT_EQ(peak(std::span(sound).subspan(2 * soundRate)), 0.0F);
    EXPECT_EQ(numberOf("status a position"), 60);
    EXPECT_EQ(numberOf("status a length"), 120) << "no other was told";
}

/// A caller keeps the length that it was told, and waits for it.
TEST_F(ReadingAFile, KeepsToTheLengthThatItToldHoweverLongItIs) {
    for (const long told : {60L, 119L, 120L, 121L, 300L}) {
        begin(told * soundRate / 30, path);
        EXPECT_EQ(numberOf("status a length"), told);
        EXPECT_EQ(act("play a from 0 to " + std::to_string(told)).code, 0);
        read();
        EXPECT_EQ(numberOf("status a length"), told);
        hear(2.5);
        EXPECT_EQ(numberOf("status a position"), std::min(74L, told - 1)) << told;
        hear(1.4);
        EXPECT_LT(numberOf("status a position"), told);
        hear(0.2);
        EXPECT_EQ(numberOf("status a position"), told);
        EXPECT_EQ(act("play a from " + std::to_string(told + 1)).code,
                  static_cast<int>(MediaError::outOfRange));
        act("set a time format ms");
        EXPECT_EQ(numberOf("status a position"), numberOf("status a length"));
    }
}

TEST_F(ReadingAFile, TellsTheLongestLengthWithoutAGuess) {
    begin(noGuess, path);
    EXPECT_EQ(numberOf("status a length"), 24 * 3600 * 30);
    EXPECT_EQ(act("play a from 0 to 2592000").code, 0);
    read();
    EXPECT_NEAR(hear(4.5)[1001], tone[1001], 2.0 / 32768);
    EXPECT_EQ(numberOf("status a position"), 24 * 3600 * 30);
}

TEST_F(ReadingAFile, PausesResumesAndStopsBeforeItHasBeenRead) {
    begin(noGuess, path);
    act("play a from 0");
    act("pause a");
    EXPECT_FALSE(player->isPlaying());
    read();
    EXPECT_EQ(peak(hear(0.5)), 0.0F);
    act("resume a");
    EXPECT_NEAR(hear(0.5)[1001], tone[1001], 2.0 / 32768);

    begin(noGuess, path);
    act("play a from 0");
    act("pause a");
    act("resume a");
    EXPECT_TRUE(player->isPlaying());
    act("stop a");
    act("resume a");
    EXPECT_FALSE(player->isPlaying());
    read();
    EXPECT_EQ(peak(hear(0.5)), 0.0F);
}

TEST_F(ReadingAFile, RefusesBeforeItWhatItRefusesBehindIt) {
    begin(noGuess, path);
    EXPECT_EQ(act("play a from -1").code, static_cast<int>(MediaError::outOfRange));
    EXPECT_EQ(act("play a to -1").code, static_cast<int>(MediaError::outOfRange));
    EXPECT_EQ(act("record a").code, static_cast<int>(MediaError::wrongKind));
    EXPECT_FALSE(player->isPlaying());
}

TEST_F(ReadingAFile, TellsOfADamagedFileFromThenOn) {
    begin(noGuess, folder.make("damaged.mp3", "no sound"));
    EXPECT_EQ(act("play a from 0").code, 0);
    read();
    for (const char* const command : {"status a position", "status a length", "play a", "stop a"}) {
        EXPECT_EQ(act(command), answerOf(MediaError::damagedFile)) << command;
    }
    EXPECT_FALSE(player->isPlaying());
}

TEST_F(ReadingAFile, TellsOnceThatItCouldNotBegin) {
    const std::string song = folder.make("a.mid", midiFile(0, 500, {note(0, 60) + trackEnd(1000)}));
    openFile(song);
    done("play audiomp3");
    begin(noGuess, song);
    EXPECT_EQ(act("play a from 0").code, 0);
    read();
    EXPECT_FALSE(player->isPlaying());
    EXPECT_EQ(act("status a position"), answerOf(MediaError::inUse));
    EXPECT_EQ(act("status a position"), (MediaDevice::Answer{0, "0"}));
    done("close audiomp3");
    EXPECT_EQ(act("play a from 0").code, 0);
}

TEST_F(ReadingAFile, IsNotWaitedForWhenItIsClosed) {
    begin(noGuess, path);
    act("play a from 0");
    player.reset();
    EXPECT_FALSE(gate->isOpen);
}

/// With the device's own threads: what is heard does not depend on who was quicker.
TEST_F(MediaPlaying, PlaysALargeFileThatItsOpeningDoesNotWaitFor) {
    setting.mostReadAtOnce = 0;
    setting.readPatience = std::chrono::milliseconds(0);
    PortableMediaDevice quick(clock, synthesizer, setting);
    const auto send = [&](const std::string& command) {
        const auto answer = quick.send(command);
        EXPECT_EQ(answer.code, 0) << command << ": " << answer.text;
        return answer.text;
    };
    send("open " + path + " type MPEGVideo alias audiomp3");
    send("set audiomp3 time format frames");
    const std::string length = send("status audiomp3 length");
    send("play audiomp3 from 0 to " + length);
    std::vector<float> heard, block(512);
    const auto patience = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (send("status audiomp3 position") != length && std::chrono::steady_clock::now() < patience) {
        quick.catchUp();
        std::ranges::fill(block, 0.0F);
        quick.voices().mix(block, clock.now);
        clock.now += 256;
        if (peak(block) > 0 || !heard.empty()) heard.insert(heard.end(), block.begin(), block.end());
    }
    ASSERT_GE(heard.size(), tone.size());
    for (std::size_t at = 0; at < tone.size(); ++at) ASSERT_NEAR(heard[at], tone[at], 2.0 / 32768) << at;
    EXPECT_EQ(send("status audiomp3 position"), length);
}

TEST_F(MediaPlaying, RefusesAMidiFileThatIsTooLargeWithoutReadingIt) {
    const std::string large = folder.make("large.mid", midiHead(1, 1, 96));
    std::filesystem::resize_file(large, 250U << 20U);
    EXPECT_EQ(device->send("open " + large + " type MPEGVideo alias a"), answerOf(MediaError::tooLarge));
}

}  // namespace
}  // namespace melvane
