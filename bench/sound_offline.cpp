// How fast a score becomes a WAV file: audio seconds per second of processor time, ours against fluidsynth -F
// on the same notes, SoundFont and sample format, loading included. Ends with 1 when ours is below 0.95 of
// its.
#include <sys/resource.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <vector>

#include "child_process.h"
#include "platform/audio_file_wav_writer.h"
#include "platform/offline_midi_port.h"
#include "platform/sound_font.h"
#include "sound_notes.h"

namespace melvane::bench {
namespace {

constexpr int defaultColumns = 400;
constexpr int mostColumns = 20'000;
constexpr int rounds = 5;
constexpr double neededRatio = 0.95;

/// A clock that stands at the tick being played.
class TickClock final : public Clock {
 public:
    std::int64_t counter() const override { return now; }
    std::int64_t frequency() const override { return 1'000'000; }
    std::int64_t tickCount() const override { return now / 1000; }
    std::int64_t now = 0;
};

double cpuSeconds(int who) {
    rusage usage{};
    getrusage(who, &usage);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + 1e-6 * static_cast<double>(time.tv_usec);
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

double audioSecondsOf(const std::string& wavFile) {
    std::error_code failed;
    const auto bytes = std::filesystem::file_size(wavFile, failed);
    return failed ? 0.0 : static_cast<double>(bytes - 44) / (4.0 * soundRate);
}

/// Audio seconds per second of processor time; 0 when nothing was written.
/// `seconds`: how much audio it is to be, with the tail.
double renderOurs(const std::vector<TimedMessage>& messages, const std::string& soundFont,
                  const std::string& wavFile, double seconds) {
    const double start = cpuSeconds(RUSAGE_SELF);
    TickClock clock;
    Synthesizer synthesizer(clock, 0.0);
    WavWriter writer(wavFile);
    OfflineMidiPort port(clock, synthesizer, writer);
    MidiPort::Handle handle = 0;
    if (synthesizer.loadSoundFont({soundFont}) || port.midiOutOpen(handle, 0) != MidiPort::ok) return 0.0;
    for (const TimedMessage& each : messages) {
        clock.now = std::int64_t{each.tick} * columnMilliseconds * 1000 / ticksAColumn;
        port.midiOutShortMsg(handle, each.message);
    }
    if (port.finish(seconds - 1e-6 * static_cast<double>(clock.now))) return 0.0;
    return audioSecondsOf(wavFile) / (cpuSeconds(RUSAGE_SELF) - start);
}

double renderTheirs(const std::string& midiFile, const std::string& soundFont, const std::string& wavFile) {
    const double start = cpuSeconds(RUSAGE_CHILDREN);
    const int code =
        sound_test::ChildProcess::start({"fluidsynth", "-n", "-i", "-q", "-r", "44100", "-g", "0.6", "-T",
                                         "wav", "-O", "s16", "-F", wavFile, soundFont, midiFile})
            .wait();
    if (code != 0) return 0.0;
    return audioSecondsOf(wavFile) / (cpuSeconds(RUSAGE_CHILDREN) - start);
}

double median(std::vector<double> values) {
    std::ranges::sort(values);
    return values[values.size() / 2];
}

int compare(int columns, const std::string& soundFont, const std::string& folder) {
    const auto messages = twelveBusyTracks(columns);
    if (!writeMidiFile(folder + "/notes.mid", messages)) return 2;
    std::vector<double> ours;
    std::vector<double> theirs;
    for (int round = 0; round < rounds; ++round) {
        // It renders until the last voice has ended; ours is given the same length.
        theirs.push_back(renderTheirs(folder + "/notes.mid", soundFont, folder + "/theirs.wav"));
        const double seconds = audioSecondsOf(folder + "/theirs.wav");
        ours.push_back(renderOurs(messages, soundFont, folder + "/ours.wav", seconds));
    }
    if (std::ranges::min(ours) <= 0.0 || std::ranges::min(theirs) <= 0.0) {
        std::fprintf(stderr, "A rendering failed.\n");
        return 2;
    }
    const double ratio = median(ours) / median(theirs);
    std::printf("%d columns, twelve tracks, %s, median of %d\n", columns, soundFont.c_str(), rounds);
    std::printf("melvane      %.1f audio seconds per CPU second (%.1f s of audio)\n", median(ours),
                audioSecondsOf(folder + "/ours.wav"));
    std::printf("fluidsynth   %.1f audio seconds per CPU second (%.1f s of audio)\n", median(theirs),
                audioSecondsOf(folder + "/theirs.wav"));
    std::printf("ratio %.3f (needed: at least %.2f)\n", ratio, neededRatio);
    return ratio >= neededRatio ? 0 : 1;
}

std::uintmax_t sizeOf(const std::string& path) { return std::filesystem::file_size(path); }

int run(int columns) {
    const auto fonts = installedSoundFonts(soundFontCandidates());
    if (fonts.empty()) {
        std::fprintf(stderr, "No SoundFont is installed.\n");
        return 2;
    }
    std::string folder = (std::filesystem::temp_directory_path() / "melvane-bench-XXXXXX").string();
    if (!mkdtemp(folder.data())) return 2;
    const std::string smallest = *std::ranges::min_element(fonts, {}, sizeOf);
    int worst = compare(columns, fonts.front(), folder);
    if (smallest != fonts.front()) worst = std::max(worst, compare(columns, smallest, folder));
    std::filesystem::remove_all(folder);
    return worst;
}

}  // namespace
}  // namespace melvane::bench

int main(int count, char** arguments) {
    using namespace melvane::bench;
    const int columns = count > 1 ? std::atoi(arguments[1]) : defaultColumns;
    if (columns < 1 || columns > mostColumns) {
        std::fprintf(stderr, "usage: sound_offline [columns, 1 to %d]\n", mostColumns);
        return 2;
    }
    return run(columns);
}
