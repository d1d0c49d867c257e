// Drawing with the mouse on the real main window of 1920 by 1080 pixels over a full score: from an event of
// the system to what it comes to. Each row's time is the mean; the limit is on its median.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QTest>
#include <algorithm>
#include <chrono>
#include <filesystem>
#include <optional>
#include <vector>

#include "core/tablet_view.h"
#include "full_score.h"
#include "platform/media_error.h"
#include "platform/qt_event_loop.h"
#include "render/null_midi_port.h"
#include "render/null_windows.h"
#include "shell/engine.h"
#include "shell/main_window.h"
#include "ui/floating_windows_window.h"
#include "ui/qt_style.h"

namespace {

using namespace melvane;
using Moment = std::chrono::steady_clock::time_point;

constexpr int rounds = 200, warmUps = 20;
constexpr double pressLimit = 50, moveLimit = 1000, releaseLimit = 6000;  // microseconds

Moment now() { return std::chrono::steady_clock::now(); }
double seconds(Moment from, Moment to) { return std::chrono::duration<double>(to - from).count(); }

/// Counts what is painted on the screen.
class PaintWatch : public QObject {
 public:
    PaintWatch() { qApp->installEventFilter(this); }
    int paints = 0;

 protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) ++paints;
        return false;
    }
};

/// Notes when the first message since forget() arrived, and runs `arrived` then.
class FirstMessagePort final : public NullMidiPort {
 public:
    std::optional<Moment> first;
    std::function<void()> arrived;
    void forget() { first.reset(); }

    Result midiOutShortMsg(Handle, std::uint32_t) override {
        if (first) return ok;
        first = now();
        if (arrived) arrived();
        return ok;
    }
};

/// The main window with the whole engine behind it, over a score whose eight melody tracks are full.
class Stage {
 public:
    Stage() {
        window.attach(engine);
        engine.startUp.Form_Load();
        window.show();
        window.setGeometry(0, 0, 1920, 1080);
        QCoreApplication::processEvents();
        studio.Form3.Text3.set("12");
        engine.page.Form_Resize();
        fill();
        window.DrawNoteArray();
        window.activateWindow();
        tablet = window.findChild<TabletView*>("MusicBox");
        tablet->setFocus();
        QCoreApplication::processEvents();
    }

    /// A cell of the page, in the window's pixels.
    QPoint cell(int column, int row) const {
        return tablet->mapTo(&window, QPoint(column * 12 + 6, row * 12 + 6));
    }
    void press(QPoint at) { QTest::mousePress(window.windowHandle(), Qt::LeftButton, {}, at); }
    void move(QPoint to) {
        QTest::mouseMove(window.windowHandle(), to);
        QCoreApplication::processEvents();
    }
    void release(QPoint at) {
        QTest::mouseRelease(window.windowHandle(), Qt::LeftButton, {}, at);
        QCoreApplication::processEvents();
    }

    SteadyClock clock;
    QtEventLoop loop{clock};
    FirstMessagePort port;
    NoMediaDevice media;
    BareDesktop desktop;
    MemorySettingsStore store;
    NullDialogs dialogs;
    Studio studio;
    form1 window{studio};
    FloatingWindows floatingWindows;
    Outside outside{
        clock,   loop,
        port,    media,
        desktop, store,
        dialogs, Directories{std::filesystem::temp_directory_path() / "melvane-bench", MELVANE_RESOURCES}};
    Engine engine{studio, outside, window, window, floatingWindows};
    PaintWatch watch;
    TabletView* tablet = nullptr;

 private:
    void fill() {
        for (int track = 0; track < 8; ++track) {
            const auto at = static_cast<std::size_t>(track);
            studio.tracks.TrackActive[at] = studio.tracks.TrackVisible[at] = true;
            for (int column = 0; column <= studio.score.NumNotes; ++column) {
                studio.score.NoteArray.set(track, column, 45 + track * 6 + column % 5);
            }
        }
        studio.score.UsedTrackCount = 8;
    }
};

bool passed = true;

/// Runs `round`, which answers the seconds that it measured or nothing when it failed.
template <class Round>
void measure(benchmark::State& state, double limit, Round round) {
    std::vector<double> times;
    for (int warmUp = 0; warmUp < warmUps; ++warmUp) round(warmUp);
    int number = warmUps;
    for (auto unused : state) {
        (void)unused;
        const std::optional<double> took = round(number++);
        if (!took) {
            passed = false;
            state.SkipWithError("what was to be measured did not happen");
            return;
        }
        state.SetIterationTime(*took);
        times.push_back(*took * 1e6);
    }
    std::ranges::sort(times);
    const double median = times[times.size() / 2];
    state.counters["median_us"] = median;
    state.counters["best_us"] = times.front();
    state.counters["worst_us"] = times.back();
    state.counters["limit_us"] = limit;
    passed = passed && median <= limit;
}

/// The first message of the preview must also come before anything is painted, on the screen or on the kept
/// picture.
void pressToFirstMessage(benchmark::State& state) {
    Stage stage;
    measure(state, pressLimit, [&](int round) -> std::optional<double> {
        const QPoint at = stage.cell(3 + round % 100, 4 + round % 30);
        stage.move(at);
        const int paints = stage.watch.paints;
        const qint64 picture = stage.tablet->picture().cacheKey();
        bool unpainted = false;
        stage.port.arrived = [&] {
            unpainted = stage.watch.paints == paints && stage.tablet->picture().cacheKey() == picture;
        };
        stage.port.forget();
        const Moment before = now();
        stage.press(at);
        const auto first = stage.port.first;
        const bool painted = stage.tablet->picture().cacheKey() != picture;
        stage.port.arrived = nullptr;
        stage.release(at);
        return first && unpainted && painted ? std::optional(seconds(before, *first)) : std::nullopt;
    });
}
BENCHMARK(pressToFirstMessage)->Iterations(rounds)->UseManualTime()->Unit(benchmark::kMicrosecond);

void moveToPaintedBand(benchmark::State& state) {
    Stage stage;
    measure(state, moveLimit, [&](int round) -> std::optional<double> {
        const int row = 4 + round % 30, column = 10 + round % 20;
        if (round % 20 == 0) stage.press(stage.cell(9, row));
        const int paints = stage.watch.paints;
        const qint64 picture = stage.tablet->picture().cacheKey();
        const Moment before = now();
        stage.move(stage.cell(column, row));
        const double took = seconds(before, now());
        const bool painted = stage.watch.paints > paints && stage.tablet->picture().cacheKey() != picture;
        if (round % 20 == 19) stage.release(stage.cell(column, row));
        return painted ? std::optional(took) : std::nullopt;
    });
}
BENCHMARK(moveToPaintedBand)->Iterations(rounds)->UseManualTime()->Unit(benchmark::kMicrosecond);

void releaseToFinishedRepaint(benchmark::State& state) {
    Stage stage;
    measure(state, releaseLimit, [&](int round) -> std::optional<double> {
        const int row = 4 + round % 30, column = 10 + round % 100;
        stage.press(stage.cell(column, row));
        stage.move(stage.cell(column + 3, row));
        const int paints = stage.watch.paints;
        const Moment before = now();
        stage.release(stage.cell(column + 3, row));
        const double took = seconds(before, now());
        const int written = stage.studio.score.noteCell(0, column);
        const bool good = written == stage.studio.page.FirstRow + row && stage.watch.paints > paints;
        return good ? std::optional(took) : std::nullopt;
    });
}
BENCHMARK(releaseToFinishedRepaint)->Iterations(rounds)->UseManualTime()->Unit(benchmark::kMicrosecond);

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
