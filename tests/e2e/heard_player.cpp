#include "heard_player.h"

#include <cmath>

#include "chord_finder.h"
#include "measured.h"
#include "patience.h"
#include "platform/sound_source.h"
#include "sound_comparison.h"

namespace melvane::e2e {

namespace {

constexpr double afterTheEnd = 1.2;  // seconds, in which the player finds the end too
constexpr double mostLouder = 0.2;   // or softer, as a share
// A busy server drops some milliseconds now and then.
constexpr double fewestHeard = 0.85;  // as a share of the chords
constexpr int times = 3;

}  // namespace

std::string heardFaults(const sound_test::PrivateSoundServer& server, RecorderUser& recorder,
                        const Sound& file, int recordedRate, const std::vector<Chord>& chords) {
    // Counted in the recording's frames, the pitches are those of the score.
    const int toldRate = static_cast<int>(std::lround(double{soundRate} * recordedRate / file.rate));
    const auto measure = [&] {
        sound_test::MonitorRecording monitor(server);
        recorder.play();
        rest(file.seconds() + afterTheEnd);
        const auto heard = monitor.take();
        std::string faults;
        const int count = chordsInOrder(heard, toldRate, chords);
        if (count < fewestHeard * static_cast<double>(chords.size()))
            faults = std::to_string(count) + " chords of " + std::to_string(chords.size()) + " are heard; ";
        const double share = soundingLevel(heard) / soundingLevel(file.left);
        if (std::abs(share - 1.0) > mostLouder)
            faults += "the level heard is the file's times " + std::to_string(share);
        return faults;
    };
    return sound_test::wrongEachTime(measure, times);
}

}  // namespace melvane::e2e
