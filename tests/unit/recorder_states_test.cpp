#include <random>

#include "encoding_fixture.h"

// Whatever is pressed at whatever moment, by the user or by a call: nothing hangs, what was captured is kept,
// and the recorder works afterwards.

namespace melvane::test {
namespace {

/// The recorder in the midst of something.
class Midst : public EncodingTest {
 public:
    using Act = std::function<void(Midst&)>;

    Midst() {
        window().Check2.set(false);
        RecorderTest::write(0, 29, 67, 1);  // 30 columns and the wait behind them: 4278 ms
    }
    void TestBody() override {}

    // States: each is entered, left to `act` in its middle, and runs out.
    void idle(const Act& act) { act(*this); }
    void recordingTheScore(const Act& act) {
        atMoment(1000, act);
        start();
    }
    void recordingAPausedScore(const Act& act) {
        time.at(1000, [this] { studio.player.PauseRequested = true; });
        start();
        act(*this);
        studio.player.PauseRequested = false;
        engine.player.PlayAndStop_Click(0);
    }
    void recordingAFile(const Act& act) {
        chooseMidi();
        atMoment(3100, act);
        start();
    }
    void betweenTheTwoStops(const Act& act) {
        chooseMidi();
        time.at(3100, [this] { stop(); });
        atMoment(3200, act);
        start();
    }
    void recordingTheKeyboard(const Act& act) {
        window().Optsourcekeyboard.userPut(Value(1LL));
        start();
        seconds(1);
        act(*this);
        seconds(1);
    }
    void waitingToEncode(const Act& act) {
        window().Check2.set(true);
        atMoment(4278 + 1000, act);
        start();
    }
    void encoding(const Act& act) {
        atTurn([this, &act](int turn) {
            if (turn == 5) act(*this);
        });
        put(tone("a.wav", 1152 * 20));
        press();
    }
    void endingAnEncoding(const Act& act) {
        atTurn([this, &act](int turn) {
            if (turn != 5) return;
            press();
            act(*this);
        });
        put(tone("a.wav", 1152 * 20));
        press();
    }
    void askingForTheTarget(const Act& act) {
        write("a.mp3", "old");
        atMoment(100, act);
        put(tone("a.wav", 2000));
        press();
    }
    void playingAFile(const Act& act) {
        put(write("song.mp3", "any"));
        atMoment(3000, act);
        recorder().buttons.Cmd2_Click(1);
    }
    void pausingAFile(const Act& act) {
        put(write("song.mp3", "any"));
        time.at(2000, [this] { recorder().audio.togglePause(); });
        atMoment(3000, act);
        recorder().buttons.Cmd2_Click(1);
    }

    // Actions
    void start() { window().CmdrecordSNG.userPut(Value(1LL)); }
    void stop() { window().CmdStopRecording.userPut(Value(1LL)); }
    void encode() { press(); }
    template <std::size_t Index>
    void player() {
        if (window().Picture7.enabled()) window().Cmd2[Index].userPut(Value(1LL));
    }
    void startByCall() { recorder().run.CmdrecordSNG_Click(); }
    void runByCall() { recorder().run.RecordWav(); }
    void fileRunByCall() { recorder().run.RecordWavFromMid(); }
    void stopByCall() { recorder().run.CmdStopRecording_Click(); }
    void encodeByCall() { recorder().encoding.Command20_Click(); }
    void autoEncodeByCall() { recorder().encoding.AutoEncode(); }
    template <int Index>
    void playerByCall() {
        recorder().buttons.Cmd2_Click(Index);
    }
    void lessonsOpen() { recorder().dialogs.C4_Click(); }
    void chooseNotes() { window().Optsourcesng.userPut(Value(1LL)); }
    void chooseFiles() { window().Optsourcemid.userPut(Value(1LL)); }
    void chooseKeyboard() { window().Optsourcekeyboard.userPut(Value(1LL)); }
    void chooseFormat() { window().cbxFormat.userPut(Value(0LL)); }
    void pauseTheScore() { studio.player.PauseRequested = true; }
    void playTheScore() { engine.player.PlayAndStop_Click(0); }
    void stopTheScore() { engine.player.PlayAndStop_Click(1); }
    void silence() { engine.panic.Command32_Click(); }
    void log() { window().CmdLog.userPut(Value(1LL)); }
    void mixer() { window().Command1.userPut(Value(1LL)); }
    void close() { recorder().window.Form_Unload(); }
    void open() { recorder().window.Form_Load(); }

    /// What still runs comes to its end; a capture without one is stopped as the user would.
    void settle() {
        time.serveToolkit = nullptr;
        if (!studio.shell.RecorderOpen) {
            log_ += window().Text2.text();
            recorder().window.Form_Load();
        }
        seconds(30);
        if (window().CmdStopRecording.enabled()) stop();
        log_ += window().Text2.text();
    }
    std::string buttons() {
        return std::to_string(window().CmdrecordSNG.enabled()) +
               std::to_string(window().CmdStopRecording.enabled()) +
               std::to_string(window().Command20.enabled()) + std::to_string(window().Picture7.enabled()) +
               window().Command20.caption() + std::to_string(studio.player.RecordingSong);
    }
    bool tells(const std::string& message) const { return log_.find(message) != std::string::npos; }
    bool keeps(std::uintmax_t bytes) {
        return std::ranges::any_of(recordings(), [bytes](const std::string& name) {
            return std::filesystem::file_size(name) >= bytes;
        });
    }
    std::size_t kept() { return recordings().size(); }
    /// Recordings that the device was told to forget before it had saved them.
    int lost() {
        int count = 0;
        bool captured = false;
        for (const std::string& line : commands()) {
            const bool forgets = line.starts_with("\"close capture") || line.starts_with("\"Close All") ||
                                 line.starts_with("\"open new ");
            if (line.starts_with("\"record capture\" -> 0")) captured = true;
            if (line.starts_with("\"save capture ") && line.ends_with(" -> 0 \"\"")) captured = false;
            if (!captured || !forgets) continue;
            ++count;
            captured = false;
        }
        return count;
    }
    /// Every ten seconds for ten minutes a file that was paused goes on.
    void relentAgainAndAgain() {
        for (int moment = 10; moment < 600; moment += 10) {
            time.at(moment * 1000, [this] { relent(); });
        }
    }
    void at(int milliseconds, std::function<void()> call) { time.at(milliseconds, std::move(call)); }
    void prepare() {
        put(write("song.mid", "MThd"));
        window().Check2.set(true);
        seconds(0);
    }
    void recordOnceMore() {
        window().Optsourcesng.userPut(Value(1LL));
        window().Check2.set(false);
        studio.player.PauseRequested = false;
        RecorderTest::write(0, 0, 60, 1);
        start();
    }

 private:
    /// What was paused goes on; a score in between has taken the flag of the pause.
    void relent() {
        studio.player.PauseRequested = false;
        recorder().audio.ResumeMP3();
    }
    void atMoment(int milliseconds, const Act& act) {
        time.at(milliseconds, [this, &act] { act(*this); });
        // A file that was paused would stand there for ever.
        time.at(milliseconds + 20000, [this] { relent(); });
    }
    void chooseMidi() {
        window().Optsourcemid.userPut(Value(1LL));
        put(write("song.mid", "MThd"));
    }
    void seconds(int count) { time.waitUntil(time.counter() + count * time.frequency()); }

    std::string log_;
};

struct State {
    const char* name;
    void (Midst::*enter)(const Midst::Act& act);
    int captured;  ///< milliseconds that were captured before the action; 0: nothing is
};
void PrintTo(const State& state, std::ostream* out) { *out << state.name; }

struct Action {
    const char* name;
    void (Midst::*act)();
};
constexpr Action actions[] = {{"start", &Midst::start},
                              {"stop", &Midst::stop},
                              {"encode", &Midst::encode},
                              {"open", &Midst::player<0>},
                              {"play", &Midst::player<1>},
                              {"pause", &Midst::player<2>},
                              {"stop the file", &Midst::player<3>},
                              {"save as", &Midst::player<4>},
                              {"start by a call", &Midst::startByCall},
                              {"run by a call", &Midst::runByCall},
                              {"file run by a call", &Midst::fileRunByCall},
                              {"stop by a call", &Midst::stopByCall},
                              {"encode by a call", &Midst::encodeByCall},
                              {"encode later by a call", &Midst::autoEncodeByCall},
                              {"open by a call", &Midst::playerByCall<0>},
                              {"play by a call", &Midst::playerByCall<1>},
                              {"pause by a call", &Midst::playerByCall<2>},
                              {"stop the file by a call", &Midst::playerByCall<3>},
                              {"save as by a call", &Midst::playerByCall<4>},
                              {"open as a lesson does", &Midst::lessonsOpen},
                              {"notes", &Midst::chooseNotes},
                              {"files", &Midst::chooseFiles},
                              {"keyboard", &Midst::chooseKeyboard},
                              {"format", &Midst::chooseFormat},
                              {"pause the score", &Midst::pauseTheScore},
                              {"play the score", &Midst::playTheScore},
                              {"stop the score", &Midst::stopTheScore},
                              {"silence", &Midst::silence},
                              {"log", &Midst::log},
                              {"mixer", &Midst::mixer},
                              {"close", &Midst::close}};

TEST(RecorderAtRandom, LosesNoRecordingAndComesToRest) {
    for (unsigned seed = 0; seed < 60; ++seed) {
        SCOPED_TRACE(seed);
        std::mt19937 random(seed);
        Midst program;
        program.prepare();
        program.relentAgainAndAgain();
        const auto count = 2 + random() % 15;
        for (auto number = count; number > 0; --number) {
            const Action& action = actions[random() % std::size(actions)];
            const bool reopens = action.act == &Midst::close;
            program.at(static_cast<int>(random() % 15000), [&program, &action, reopens] {
                (program.*action.act)();
                if (reopens) program.open();
            });
        }
        program.start();
        program.settle();
        program.settle();
        EXPECT_EQ(program.lost(), 0);
        EXPECT_EQ(program.buttons(), "1011Encode File0");
        const auto before = program.kept();
        program.recordOnceMore();
        EXPECT_EQ(program.kept(), before + 1);
    }
}

class RecorderStates : public testing::TestWithParam<State> {};

TEST_P(RecorderStates, TakeAnyActionAndKeepWhatWasCaptured) {
    const State& state = GetParam();
    for (const Action& action : actions) {
        SCOPED_TRACE(action.name);
        Midst program;
        int times = 0;
        (program.*state.enter)([&](Midst& midst) {
            ++times;
            (midst.*action.act)();
        });
        program.settle();
        EXPECT_EQ(times, 1);
        EXPECT_EQ(program.lost(), 0);
        EXPECT_EQ(program.buttons(), "1011Encode File0");
        if (state.captured > 0) {
            const auto bytes = static_cast<std::uintmax_t>(state.captured) * 1764 / 10;
            EXPECT_TRUE(program.keeps(bytes));
            EXPECT_TRUE(program.tells("File was saved as "));
        }
        const auto before = program.kept();
        program.recordOnceMore();
        EXPECT_EQ(program.kept(), before + 1);
    }
}

INSTANTIATE_TEST_SUITE_P(EachOfThem, RecorderStates,
                         testing::Values(State{"idle", &Midst::idle, 0},
                                         State{"score", &Midst::recordingTheScore, 1000},
                                         State{"pausedScore", &Midst::recordingAPausedScore, 1000},
                                         State{"file", &Midst::recordingAFile, 3100},
                                         State{"betweenTwoStops", &Midst::betweenTheTwoStops, 3100},
                                         State{"keyboard", &Midst::recordingTheKeyboard, 1000},
                                         State{"waitingToEncode", &Midst::waitingToEncode, 4200},
                                         State{"encoding", &Midst::encoding, 0},
                                         State{"endingAnEncoding", &Midst::endingAnEncoding, 0},
                                         State{"askingForTheTarget", &Midst::askingForTheTarget, 0},
                                         State{"playingAFile", &Midst::playingAFile, 0},
                                         State{"pausingAFile", &Midst::pausingAFile, 0}),
                         [](const auto& state) { return std::string(state.param.name); });

}  // namespace
}  // namespace melvane::test
