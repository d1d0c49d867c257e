// How late the columns of a playback come while everything that can be opened, switched and moved is opened,
// switched and moved, each in the last moment before a column is due. Each round is a program of its own, so
// that everything happens for the first time in each. Answers 1 when a limit is passed.
#include <QApplication>
#include <QProcess>
#include <algorithm>
#include <cstdio>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "playback_gestures.h"
#include "playback_stage.h"
#include "ui/qt_style.h"

namespace {

using namespace melvane;
using namespace melvane::bench;

constexpr int rounds = 7;
constexpr double latest = 5;                           // milliseconds
constexpr auto lead = std::chrono::microseconds(300);  // from a gesture to the column that it may delay
constexpr const char* oneRound = "--round";
constexpr std::size_t told = 5;  // gestures

/// By gesture, what each round measured, in milliseconds; "" is the playback with nothing done.
using Lateness = std::map<std::string, std::vector<double>>;

/// The value below which `share` of them lie, 0 to 1.
double quantile(std::vector<double> values, double share) {
    std::ranges::sort(values);
    return values[static_cast<std::size_t>(share * static_cast<double>(values.size() - 1))];
}

// One round

void print(const std::string& gesture, double late) { std::printf("%.4f %s\n", late, gesture.c_str()); }

/// The gestures of a round in their turn, as the columns come.
class Hand {
 public:
    explicit Hand(std::vector<Gesture> gestures) : gestures_(std::move(gestures)) {}

    void columnCame() { names_.emplace_back(); }
    /// In the column that came last, which has one gesture at most.
    void act() {
        if (next_ == gestures_.size() || names_.empty() || !names_.back().empty()) return;
        lookBack();
        names_.back() = gestures_[next_].name;
        if (!gestures_[next_].run()) complain(gestures_[next_], "could not be done");
        ++next_;
    }
    void finish() {
        lookBack();
        if (next_ < gestures_.size()) complain(gestures_[next_], "was not done");
    }
    const std::string& nameIn(std::size_t column) const { return names_[column]; }
    bool good() const { return good_; }

 private:
    void lookBack() {
        if (next_ == 0) return;
        const auto& last = gestures_[next_ - 1];
        if (last.check && !last.check()) complain(last, "did nothing");
    }
    void complain(const Gesture& gesture, const char* what) {
        std::fprintf(stderr, "%s: %s\n", gesture.name.c_str(), what);
        good_ = false;
    }

    std::vector<Gesture> gestures_;
    std::size_t next_ = 0;
    std::vector<std::string> names_;  ///< by column
    bool good_ = true;
};

bool playWithGestures(Stage& stage) {
    Hand hand(allGestures(stage));
    Prompter prompter([&hand] { hand.act(); });
    stage.port.columnCame = [&] {
        hand.columnCame();
        prompter.callAt(stage.port.columns.back() + Stage::stepTime() - lead);
    };
    const auto late = stage.play();
    stage.port.columnCame = nullptr;
    hand.finish();
    for (std::size_t at = 0; at < late.size(); ++at) {
        if (!hand.nameIn(at).empty()) print(hand.nameIn(at), late[at]);
    }
    return hand.good();
}

int playRound() {
    Stage stage;
    stage.program.engine().noteTest.open();
    stage.loop.runQueue();
    for (const double late : stage.play()) print("", late);
    return playWithGestures(stage) ? 0 : 1;
}

// All rounds

bool runRound(Lateness& lateness) {
    QProcess round;
    round.setProcessChannelMode(QProcess::SeparateChannels);
    round.start(QCoreApplication::applicationFilePath(), {oneRound});
    const bool good = round.waitForFinished() && round.exitStatus() == QProcess::NormalExit;
    for (const QByteArray& line : round.readAllStandardOutput().split('\n')) {
        const auto blank = line.indexOf(' ');
        if (blank > 0) lateness[line.mid(blank + 1).toStdString()].push_back(line.left(blank).toDouble());
    }
    if (good && round.exitCode() == 0) return true;
    std::printf("%s", round.readAllStandardError().constData());
    return false;
}

void printSpread(const char* what, const std::vector<double>& all) {
    std::printf("%-24s median %6.3f ms, worst %6.3f ms\n", what, quantile(all, 0.5), quantile(all, 1));
}

/// The lower quartile of the rounds is what the program does, not what else the machine was busy with.
double printLatest(const Lateness& lateness) {
    std::vector<std::pair<double, std::string>> gestures;
    std::vector<double> all;
    for (const auto& [gesture, late] : lateness) {
        if (gesture.empty()) continue;
        gestures.emplace_back(quantile(late, 0.25), gesture);
        all.insert(all.end(), late.begin(), late.end());
    }
    std::ranges::sort(gestures, std::greater());
    printSpread((std::to_string(gestures.size()) + " gestures").c_str(), all);
    std::printf("the latest, each the lower quartile of the rounds (at most %g ms):\n", latest);
    for (std::size_t at = 0; at < std::min(told, gestures.size()); ++at) {
        std::printf("%10.3f ms  %s\n", gestures[at].first, gestures[at].second.c_str());
    }
    return gestures.empty() ? latest + 1 : gestures.front().first;
}

int playRounds() {
    Lateness lateness;
    for (int round = 0; round < rounds; ++round) {
        if (!runRound(lateness)) return 1;
    }
    std::printf("columns of %.1f ms on %d tracks, how late beyond their step, %d rounds:\n",
                Stage::step * 1000, Stage::tracks, rounds);
    printSpread("nothing done", lateness[""]);
    return printLatest(lateness) <= latest ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" MELVANE_SCREEN);
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    applyStyle(application);
    return argc > 1 && std::string_view(argv[1]) == oneRound ? playRound() : playRounds();
}
