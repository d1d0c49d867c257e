// How long a key of the machine takes to the note at the port: a key event in the queue of the system's
// events, through the running event loop and the keyboard window, to the root's message. The keys' painting
// and everything else that the window does goes on meanwhile, as it would. Each row's time is the mean; the
// limits are on its median and its 99th percentile.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QEventLoop>
#include <QTest>
#include <QTimer>
#include <QWindow>
#include <algorithm>
#include <array>
#include <chrono>
#include <filesystem>
#include <optional>
#include <vector>

#include "platform/media_error.h"
#include "platform/qt_event_loop.h"
#include "shell/engine.h"
#include "shell/main_window.h"
#include "synth/keyboard_window.h"
#include "ui/floating_windows_window.h"
#include "ui/qt_style.h"

namespace {

using namespace melvane;
using Moment = std::chrono::steady_clock::time_point;

constexpr int rounds = 2000, warmUps = 50;
constexpr double medianLimit = 200, lateLimit = 1000;  // microseconds
constexpr int pause = 1;                               // milliseconds between a release and the next press

Moment now() { return std::chrono::steady_clock::now(); }

/// Notes when the first note on since forget() arrived.
class NotePort final : public MidiPort {
 public:
    std::optional<Moment> first;

    int midiOutGetNumDevs() override { return 1; }
    std::string midiOutGetDevCapsA(int) override { return "bench"; }
    Result midiOutOpen(Handle& handle, int) override {
        handle = 1;
        return ok;
    }
    Result midiOutClose(Handle) override { return ok; }
    Result midiOutReset(Handle) override { return ok; }
    Result midiOutShortMsg(Handle, std::uint32_t message) override {
        if ((message & 0xF0U) == 0x90U && !first) first = now();
        return ok;
    }
};

class NoDialogs final : public Dialogs {
 public:
    FileChoice openFile(const FileQuestion&) override { return {}; }
    FileChoice saveFile(const FileQuestion&) override { return {}; }
    BoxAnswer messageBox(BoxKind, const std::string&, const std::string&, BoxButtons) override {
        return BoxAnswer::ok;
    }
};

/// The keyboard window in front, with the whole engine behind it.
class Stage {
 public:
    Stage() {
        std::filesystem::create_directories(outside.directories.program);
        window.attach(engine);
        engine.startUp.Form_Load();
        keyboard.show();
        keyboard.resize(1280, 720);
        keyboard.activateWindow();
        QCoreApplication::processEvents();
    }

    /// Microseconds from the event to the note; nothing when no note came.
    std::optional<double> strike(char letter) {
        const auto key = static_cast<Qt::Key>(letter);
        const QString text = QString(QChar(letter)).toLower();
        port.first.reset();
        const Moment before = now();
        qt_handleKeyEvent(keyboard.windowHandle(), QEvent::KeyPress, key, {}, text, false, 1);
        serve(0);
        const auto first = port.first;
        qt_handleKeyEvent(keyboard.windowHandle(), QEvent::KeyRelease, key, {}, text, false, 1);
        serve(pause);
        if (!first) return std::nullopt;
        return std::chrono::duration<double, std::micro>(*first - before).count();
    }

    Studio studio;

 private:
    /// The real event loop, until so many milliseconds have passed and nothing is pending.
    static void serve(int milliseconds) {
        QEventLoop loop;
        QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
        loop.exec();
    }

    SteadyClock clock;
    QtEventLoop loop{clock};
    NotePort port;
    NoMediaDevice media;
    MemorySettingsStore store;
    NoDialogs dialogs;
    form1 window{studio};
    FloatingWindows floatingWindows;
    Outside outside{clock,
                    loop,
                    port,
                    media,
                    store,
                    dialogs,
                    Directories{std::filesystem::temp_directory_path() / "melvane-bench", MELVANE_RESOURCES}};
    Engine engine{studio, outside, window, window, floatingWindows};
    frmsynth keyboard{studio, engine.keyboard};
};

bool passed = true;

/// Strikes the letters one after another.
void measure(benchmark::State& state, Stage& stage) {
    constexpr std::array letters{'Z', 'X', 'C', 'V', 'B', 'N', 'Q', 'W', 'E', 'R', 'A', 'K'};
    std::vector<double> times;
    for (int round = -warmUps; round < rounds; ++round) {
        const auto at = static_cast<std::size_t>(round + warmUps) % letters.size();
        const auto took = stage.strike(letters[at]);
        if (!took) {
            passed = false;
            state.SkipWithError("a key was struck and no note came");
            return;
        }
        if (round >= 0) times.push_back(*took);
    }
    std::ranges::sort(times);
    std::size_t at = 0;
    for (auto unused : state) {
        (void)unused;
        state.SetIterationTime(times[at++] / 1e6);
    }
    const double median = times[times.size() / 2], late = times[times.size() * 99 / 100];
    state.counters["median_us"] = median;
    state.counters["p99_us"] = late;
    state.counters["worst_us"] = times.back();
    state.counters["limit_median_us"] = medianLimit;
    state.counters["limit_p99_us"] = lateLimit;
    passed = passed && median <= medianLimit && late <= lateLimit;
}

void keyToNote(benchmark::State& state) {
    Stage stage;
    measure(state, stage);
}
BENCHMARK(keyToNote)->Iterations(rounds)->UseManualTime()->Unit(benchmark::kMicrosecond);

/// The root goes out first, ahead of the chord and of the keys' painting.
void keyToRootOfChord(benchmark::State& state) {
    Stage stage;
    stage.studio.frmsynth.Check8.set(true);
    stage.studio.frmsynth.Text4.set("3");
    measure(state, stage);
}
BENCHMARK(keyToRootOfChord)->Iterations(rounds)->UseManualTime()->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" MELVANE_SCREEN);
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    applyStyle(application);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return passed ? 0 : 1;
}
