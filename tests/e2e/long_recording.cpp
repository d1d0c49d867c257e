// Records a score of many minutes in real time, as a user does, and holds the file against the rendering of
// the same score without a clock: long_recording [MINUTES]. The exit status tells whether the file is whole.
#include <QApplication>
#include <QTemporaryDir>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <fstream>

#include "drive/qt_screen.h"
#include "long_recording_report.h"
#include "private_display.h"
#include "private_sound_server.h"
#include "recorder_user.h"
#include "sound_files.h"
#include "studio_session.h"
#include "tune.h"
#include "ui/qt_style.h"

namespace {

using namespace melvane;
using namespace melvane::e2e;

constexpr double usualMinutes = 10, slowestByFar = 1.2, savePatience = 60;  // the last in seconds
constexpr int spareColumns = 16;

int complain(const std::string& what) {
    std::fprintf(stderr, "long_recording: %s\n", what.c_str());
    return 2;
}

/// The path of the recording.
std::string recordScore(const std::string& folder, const std::string& score, const Tune& tune,
                        const PrivateDisplay& display, const sound_test::PrivateSoundServer& server) {
    WindowRuler ruler;
    const std::string home = folder + "/home", kept = folder + "/recording.wav";
    std::filesystem::create_directory(home);
    StudioSession studio(ruler, display, {home, server.folder()});
    studio.setColumns(tune.columns() + spareColumns);
    studio.start(score);
    RecorderUser recorder(studio);
    recorder.switchEncodingOff();
    recorder.start();
    const double seconds = tune.playedSpacing() * static_cast<double>(tune.chords.size());
    studio.waitForRecording(seconds * slowestByFar + savePatience, kept);
    return kept;
}

int run(double minutes) {
    const QTemporaryDir temporary;
    const std::string folder = temporary.path().toStdString();
    const Tune tune = makeSteadyTune(std::max(2, static_cast<int>(minutes * 60 / Tune().playedSpacing())));
    const std::string score = folder + "/tune.sng", rendered = folder + "/rendered.wav";
    std::ofstream(score, std::ios::binary) << tune.asScore();
    PrivateDisplay display(folder);
    sound_test::PrivateSoundServer server;
    for (const std::string& failure : {display.start(), server.start()}) {
        if (!failure.empty()) return complain(failure);
    }
    if (sound_test::ChildProcess::start({MELVANE_RENDER, score, rendered}).wait() != 0)
        return complain("the score cannot be rendered");
    const auto played = readPlainWav(recordScore(folder, score, tune, display, server));
    const auto exact = readPlainWav(rendered);
    if (!played || !exact || played->rate != exact->rate) return complain("the files cannot be compared");
    const LongRecordingReport report = compareRecordings(played->left, exact->left, exact->rate);
    print(report, static_cast<int>(tune.chords.size()));
    return isWhole(report, static_cast<int>(tune.chords.size())) ? 0 : 1;
}

}  // namespace

int main(int count, char** arguments) {
    const double minutes = count > 1 ? std::atof(arguments[1]) : usualMinutes;
    if (count > 2 || !(minutes > 0)) return complain("the one argument is a number of minutes");
    const QTemporaryDir folder;
    drive::prepareScreen(folder.path().toStdString());
    const QApplication application(count, arguments);
    QApplication::setQuitOnLastWindowClosed(false);
    applyStyle(*qApp);
    try {
        return run(minutes);
    } catch (const std::exception& failure) {
        return complain(failure.what());
    }
}
