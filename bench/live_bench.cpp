// What goes on by itself at the keyboard, in real time: the metronome at 240 beats a minute, a capture while
// keys are struck, and its replay. Prints how late the beats come and what share of a core the other two
// take. An argument is the metronome's seconds (120). Answers 1 when a limit is passed.
#include <ctime>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <span>

#include <QTimer>

#include "keyboard_stage.h"

namespace {

using namespace melvane;
using bench::KeyboardStage;

constexpr double beatLength = 0.25, poll = 0.025;  // seconds
constexpr double pollSlack = 0.005;                // what a poll itself may come late
constexpr double mostDrift = 0.002;                // seconds over the whole run
constexpr double mostShare = 3;                    // percent of a core
constexpr int strikes = 50, strikeEvery = 200;     // milliseconds

bool passed = true;

void judge(bool good, const char* what) {
    if (good) return;
    std::printf("  over the limit: %s\n", what);
    passed = false;
}

double secondsBetween(bench::Moment from, bench::Moment to) {
    return std::chrono::duration<double>(to - from).count();
}

/// Least squares: how much later the beats come at the end than at the start, beyond their due times.
double drift(std::span<const double> lateness) {
    const auto count = static_cast<double>(lateness.size());
    double meanAt = (count - 1) / 2, mean = 0, above = 0, below = 0;
    for (const double late : lateness) mean += late / count;
    for (std::size_t at = 0; at < lateness.size(); ++at) {
        const double way = static_cast<double>(at) - meanAt;
        above += way * (lateness[at] - mean);
        below += way * way;
    }
    return above / below * count;
}

void runMetronome(int seconds) {
    KeyboardStage stage;
    auto& synth = stage.studio.frmsynth;
    synth.txtValue.set("240");
    synth.Check9.userPut(Value{1});
    const auto start = bench::now();
    synth.chkRunning.userPut(Value{1});
    KeyboardStage::serve(seconds * 1000 + 100);
    const auto beats = stage.port.notes;
    synth.chkRunning.userPut(Value{0});

    std::vector<double> lateness;
    for (std::size_t at = 0; at < beats.size(); ++at) {
        lateness.push_back(secondsBetween(start, beats[at]) - beatLength * static_cast<double>(at + 1));
    }
    const auto due = static_cast<std::size_t>(seconds / beatLength);
    std::printf("metronome at 240 for %d s: %zu of %zu beats\n", seconds, beats.size(), due);
    judge(beats.size() == due && due > 2, "the number of beats");
    if (lateness.size() < 3) return;
    const double worst = *std::ranges::max_element(lateness), first = *std::ranges::min_element(lateness);
    const double drifted = drift(lateness);
    std::printf("  after their due times: %.2f to %.2f ms (a poll is 25 ms); drift over the run %.2f ms\n",
                first * 1000, worst * 1000, drifted * 1000);
    judge(worst <= poll + pollSlack && first >= -0.001, "a beat within one poll");
    judge(std::abs(drifted) <= mostDrift + poll / static_cast<double>(due) * 2, "no drift");
}

/// Percent of a core that the process takes while `work` runs.
template <typename Work>
void measureShare(const char* what, Work&& work) {
    const std::clock_t before = std::clock();
    const auto start = bench::now();
    work();
    const double wall = secondsBetween(start, bench::now());
    const double share = 100.0 * static_cast<double>(std::clock() - before) / CLOCKS_PER_SEC / wall;
    std::printf("%s: %.2f %% of a core over %.1f s\n", what, share, wall);
    judge(share < mostShare, "the share of a core");
}

void captureAndReplay() {
    KeyboardStage stage;
    auto& capture = stage.engine.keyboard.capture;
    std::size_t captured = 0;
    measureShare("capture, with five keys a second struck and painted", [&] {
        QTimer hand;
        int struck = 0;
        constexpr char letters[] = "ZXCVBNM";
        QObject::connect(&hand, &QTimer::timeout, [&] {
            if (struck > 0) stage.release(letters[(struck - 1) % 7]);
            if (struck < strikes) stage.press(letters[struck % 7]);
            if (++struck > strikes) capture.Comp2_Click();
        });
        hand.start(strikeEvery);
        capture.Comp1_Click();
        hand.stop();
        captured = static_cast<std::size_t>(stage.studio.keyboard.List1.count());
    });
    std::printf("  %zu ticks\n", captured);
    judge(captured > 0, "a capture with ticks in it");
    stage.port.notes.clear();
    measureShare("replay of it", [&] { stage.engine.keyboard.replay.Command2_Click(); });
    std::printf("  %zu notes\n", stage.port.notes.size());
    judge(!stage.port.notes.empty(), "a replay with notes in it");
}

}  // namespace

int main(int argc, char** argv) {
    return bench::runOnScreen(argc, argv, [](int count, char** arguments) {
        const int seconds = count > 1 ? std::atoi(arguments[1]) : 120;
        captureAndReplay();
        runMetronome(std::max(seconds, 1));
        return passed ? 0 : 1;
    });
}
