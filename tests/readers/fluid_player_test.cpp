#include <algorithm>
#include <random>

#include "fluid_reader.h"
#include "platform/files.h"
#include "program_fixture.h"

namespace melvane::test {
namespace {

namespace fs = std::filesystem;

constexpr int ticksAColumn = 12;

/// The events that a score should become: its notes, and a program where a track's instrument changes. A note
/// that another one follows without a gap ends with the sound of that one, and the song's last column ends
/// nothing.
class ExpectedEvents {
 public:
    explicit ExpectedEvents(const Studio& studio) : score_(studio.score), end_(studio.player.SongEndColumn) {
        for (int track = 0; track <= lastTrackNumber; ++track) {
            if (!studio.isHidden(track)) addTrack(track);
        }
        std::ranges::sort(events_);
    }
    const std::vector<FileEvent>& events() const { return events_; }
    int notes() const { return notes_; }

 private:
    void addTrack(int track) {
        int instrument = -1;
        for (int column = 0; column < end_; ++column) {
            if (!cell::isStart(score_.noteCell(track, column))) continue;
            const int before = std::exchange(instrument, score_.InstArray.get(track, column, 0));
            if (instrument != before && instrument < 128) add(column, 0xC0 + track, instrument, 0);
            addNote(track, column, instrument);
        }
    }
    void addNote(int track, int start, int instrument) {
        ++notes_;
        const int row = score_.noteCell(track, start);
        add(start, 0x90 + channel(track, instrument), key(row, instrument),
            score_.VolumeArray.get(track, start + 1, 127));
        int end = start + 1;
        while (score_.noteCell(track, end) >= 1000) ++end;
        if (end >= end_) return;
        const int sound = score_.noteCell(track, end) >= 0 ? score_.InstArray.get(track, end, 0) : instrument;
        add(end, 0x80 + channel(track, sound), key(row, sound), 0);
    }
    static int channel(int track, int instrument) { return instrument < 128 ? track : 9; }
    static int key(int row, int instrument) { return instrument < 128 ? 127 - row : instrument - 93; }
    void add(int column, int status, int first, int second) {
        events_.push_back({column * ticksAColumn, status, first, second});
    }

    const Score& score_;
    int end_;
    int notes_ = 0;
    std::vector<FileEvent> events_;
};

class FluidPlayerTest : public ProgramTest {
 protected:
    using Events = std::vector<FileEvent>;

    static std::string text(Events::const_iterator event, const Events& events) {
        if (event == events.end()) return "nothing";
        return std::to_string(event->tick) + ": " + std::to_string(event->status) + " " +
               std::to_string(event->first) + " " + std::to_string(event->second);
    }

    void SetUp() override {
        start();
        store.write("NumBytes", "32767");
    }

    void expectReadAsWritten() {
        const auto path = folder.file("export.mid");
        const auto built = engine.midiExport.build();
        ASSERT_TRUE(built.whole);
        ASSERT_EQ(writeFileWhole(path, built.bytes), std::nullopt);
        auto reading = readWithFluid(path);
        EXPECT_TRUE(reading.finished);
        EXPECT_EQ(reading.complaints, std::vector<std::string>());
        EXPECT_EQ(reading.microseconds, 60'000'000 / studio.score.Tempo);
        EXPECT_EQ(reading.lastTick, studio.player.SongEndColumn * ticksAColumn);
        for (auto& event : reading.events) {
            EXPECT_LE(event.tick % ticksAColumn, 1);
            event.tick -= event.tick % ticksAColumn;
        }
        std::ranges::sort(reading.events);
        const ExpectedEvents expected(studio);
        EXPECT_GT(expected.notes(), 0);
        EXPECT_EQ(reading.events.size(), expected.events().size());
        const auto [read, wanted] = std::ranges::mismatch(reading.events, expected.events());
        EXPECT_TRUE(read == reading.events.end() && wanted == expected.events().end())
            << "read " << text(read, reading.events) << ", expected " << text(wanted, expected.events());
    }
    /// Notes of one to six columns, here and there without a gap, on the tracks that have an editor.
    void compose(unsigned seed) {
        std::mt19937 random(seed);
        const auto upTo = [&random](unsigned most) { return static_cast<int>(random() % (most + 1)); };
        auto& score = studio.score;
        score.Tempo = static_cast<Int16>(40 + upTo(300));
        score.BeatsPerMeasure = static_cast<Int16>(4 + upTo(16));
        for (const int track : {0, 1, 2, 3, 4, 5, 6, 7, 8, 10, 11, 12}) {
            for (int column = upTo(30); column < 400;) {
                const int length = 1 + upTo(5);
                const int instrument = isMelodyTrack(track) ? upTo(127) : 128 + upTo(46);
                write(track, column, upTo(127), length,
                      upTo(3) > 0 ? track + 128 * !isMelodyTrack(track) : instrument);
                score.VolumeArray.set(track, column + 1, 1 + upTo(126));
                column += length + upTo(1) * upTo(90);
            }
        }
    }
};

TEST_F(FluidPlayerTest, TheScoresOfTheProgramAreReadAsTheyStand) {
    int scores = 0;
    for (const auto& entry : fs::directory_iterator(MELVANE_RESOURCES "/scores")) {
        SCOPED_TRACE(entry.path().filename());
        engine.score.ClearAll();
        engine.files.OpenPoliFile(entry.path().string());
        expectReadAsWritten();
        ++scores;
    }
    EXPECT_GE(scores, 15);
}

TEST_F(FluidPlayerTest, ScoresOfAllKindsAreReadAsTheyStand) {
    for (unsigned seed = 1; seed <= 12; ++seed) {
        SCOPED_TRACE(seed);
        engine.score.ClearAll();
        compose(seed);
        expectReadAsWritten();
    }
}

TEST_F(FluidPlayerTest, AFileCutShortIsComplainedAbout) {
    write(0, 0, 60, 4, 0);
    const auto bytes = engine.midiExport.build().bytes;
    const auto reading = readWithFluid(folder.make("cut.mid", bytes.substr(0, 60)));
    EXPECT_FALSE(reading.complaints.empty());
}

}  // namespace
}  // namespace melvane::test
