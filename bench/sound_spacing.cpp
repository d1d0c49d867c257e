// How evenly notes are heard, measured in the sound itself: the same columns through a private sound server,
// once by this program's sound and once by fluidsynth from a .mid file. Ends with 1 when ours are less even
// than its.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <optional>
#include <thread>

#include "onset_finder.h"
#include "platform/midi_devices.h"
#include "platform/sound_card.h"
#include "platform/sound_font.h"
#include "private_sound_server.h"
#include "sound_notes.h"

namespace melvane::bench {
namespace {

using namespace std::chrono_literals;
using sound_test::ChildProcess;
using sound_test::MonitorRecording;
using sound_test::PrivateSoundServer;
using sound_test::Spacing;

constexpr int defaultColumns = 200;
constexpr int mostColumns = 2000;
constexpr int attempts = 3;  // a busy machine may break either's sound, and then there is nothing to compare
constexpr int measureEdge = 5;  // onsets left out at the start, while an output settles

class NoSystemPorts final : public SystemMidi {
 public:
    std::vector<std::string> names() override { return {}; }
    std::unique_ptr<SystemMidiOutput> open(std::size_t) override { return nullptr; }
};

/// Waits as the program's event loop does: asleep until shortly before the moment, then awake.
void waitUntil(const Clock& clock, std::int64_t counter) {
    constexpr std::int64_t awake = 300'000;
    const std::int64_t left = counter - clock.counter() - awake;
    if (left > 0) std::this_thread::sleep_for(std::chrono::nanoseconds(left));
    while (clock.counter() < counter) {
    }
}

std::vector<float> recordOurs(const PrivateSoundServer& server, const std::vector<TimedMessage>& messages,
                              const std::string& soundFont) {
    SteadyClock clock;
    Synthesizer synthesizer(clock, SoundCard::messageDelaySeconds);
    if (const auto message = synthesizer.loadSoundFont({soundFont})) return {};
    SoundCard card(clock, {&synthesizer}, {});
    NoSystemPorts system;
    MidiDevices port(synthesizer, system);
    MidiPort::Handle handle = 0;
    port.midiOutOpen(handle, -1);
    std::this_thread::sleep_for(1s);

    MonitorRecording recording(server);
    const std::int64_t start = clock.counter() + 100'000'000;
    std::int64_t latest = 0;
    for (const TimedMessage& each : messages) {
        const std::int64_t moment =
            start + std::int64_t{each.tick} * columnMilliseconds * 1'000'000 / ticksAColumn;
        waitUntil(clock, moment);
        latest = std::max(latest, clock.counter() - moment);
        port.midiOutShortMsg(handle, each.message);
    }
    // What is sent late is heard late; on a busy machine this, not the sound, makes the deviation.
    std::printf("melvane's messages were sent %.2f ms late at most; %llu came too late for their frame\n",
                1e-6 * static_cast<double>(latest),
                static_cast<unsigned long long>(synthesizer.lateMessages()));
    std::this_thread::sleep_for(500ms);
    return recording.take();
}

std::vector<float> recordTheirs(const PrivateSoundServer& server, const std::vector<TimedMessage>& messages,
                                const std::string& soundFont) {
    const std::string file = server.folder() + "/columns.mid";
    if (!writeMidiFile(file, messages)) return {};
    MonitorRecording recording(server);
    ChildProcess::start({"fluidsynth", "-n", "-i", "-q", "-a", "pulseaudio", "-z", "512", "-c", "4", "-r",
                         "44100", "-g", "0.6", soundFont, file})
        .wait();
    std::this_thread::sleep_for(300ms);
    return recording.take();
}

std::optional<Spacing> measure(const char* name, const std::vector<float>& sound, int columns) {
    auto onsets = sound_test::findOnsets(sound, soundRate);
    if (onsets.size() != static_cast<std::size_t>(columns)) {
        std::printf("%-12s %zu of %d onsets heard\n", name, onsets.size(), columns);
        return std::nullopt;
    }
    onsets.erase(onsets.begin(), onsets.begin() + measureEdge);
    const Spacing spacing = sound_test::spacingOf(onsets, soundRate);
    std::printf("%-12s spacing %.3f ms, standard deviation %.3f ms, at worst %.3f ms off\n", name,
                spacing.mean, spacing.deviation, spacing.largestError);
    return spacing;
}

int run(int columns) {
    PrivateSoundServer server;
    if (const std::string failure = server.start(); !failure.empty()) {
        std::fprintf(stderr, "%s\n", failure.c_str());
        return 2;
    }
    const auto fonts = installedSoundFonts(soundFontCandidates());
    if (fonts.empty()) {
        std::fprintf(stderr, "No SoundFont is installed.\n");
        return 2;
    }
    const auto messages = clavesInEveryColumn(columns);
    for (int attempt = 0; attempt < attempts; ++attempt) {
        const auto ours = measure("melvane", recordOurs(server, messages, fonts.front()), columns);
        const auto theirs = measure("fluidsynth", recordTheirs(server, messages, fonts.front()), columns);
        if (!ours || !theirs) continue;
        const double ratio = ours->deviation / theirs->deviation;
        std::printf("ratio of the deviations %.2f (needed: at most 1)\n", ratio);
        return ratio <= 1.0 ? 0 : 1;
    }
    std::printf("No attempt was heard whole.\n");
    return 1;
}

}  // namespace
}  // namespace melvane::bench

int main(int count, char** arguments) {
    using namespace melvane::bench;
    const int columns = count > 1 ? std::atoi(arguments[1]) : defaultColumns;
    if (columns <= measureEdge + 1 || columns > mostColumns) {
        std::fprintf(stderr, "usage: sound_spacing [columns, %d to %d]\n", measureEdge + 2, mostColumns);
        return 2;
    }
    return run(columns);
}
