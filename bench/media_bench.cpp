// What a capture of hours costs in memory, fed as fast as it is written down, and how long it keeps the
// window waiting when it is saved and closed, or when large files are opened; and how far the position of a
// file that plays lies from what is heard through a private sound server. Ends with 1 when one of them is too
// much.
#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "heard_position.h"
#include "platform/audio_file_mp3_writer.h"
#include "platform/files.h"
#include "platform/media_portable_device.h"
#include "platform/midi_file_reader.h"

namespace melvane::bench {
namespace {

constexpr int defaultMinutes = 240, mostMinutes = 400;
constexpr long mostMemory = 16 * 1024;    // KB over idle
constexpr double mostWait = 50;           // milliseconds for a command
constexpr double mostPositionError = 50;  // milliseconds
constexpr int positionTimes = 5, blockFrames = 1024, blocksBetween = 100;

/// Of this process, in KB: "VmRSS:" now, "VmHWM:" at most.
long memory(const char* what) {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with(what)) return std::atol(line.c_str() + std::strlen(what));
    }
    return -1;
}

/// What was done wrong; null when nothing was.
const char* capture(PortableMediaDevice& device, const Clock& clock, std::int64_t frames) {
    if (device.send("open new type waveaudio alias capture").code != 0) return "open";
    if (device.send("record capture").code != 0) return "record";
    std::vector<float> block(blockFrames * soundChannels);
    for (std::size_t at = 0; at < block.size(); ++at) block[at] = static_cast<float>(at % 100) / 200;
    std::int64_t fed = 0;
    for (int turn = 0; fed < frames; ++turn, fed += blockFrames) {
        device.tap().hear(block, clock.counter());
        if (turn % blocksBetween == 0) device.catchUp();
    }
    const auto stopped = device.send("stop capture");
    if (stopped.code != 0) return "stop";
    const long milliseconds = std::atol(device.send("status capture length").text.c_str());
    return milliseconds == fed * 1000 / soundRate ? nullptr : "length";
}

/// How long the device takes for it, in milliseconds; nothing when it refuses.
std::optional<double> timeOf(PortableMediaDevice& device, const std::string& command) {
    const auto begin = std::chrono::steady_clock::now();
    const auto answer = device.send(command);
    const std::chrono::duration<double, std::milli> took = std::chrono::steady_clock::now() - begin;
    if (answer.code == 0) return took.count();
    std::printf("%s: %s\n", command.c_str(), answer.text.c_str());
    return std::nullopt;
}

/// Saves what is captured as the recorder does.
bool measureSave(PortableMediaDevice& device, const std::filesystem::path& folder) {
    double longest = 0;
    for (const std::string& command : {"save capture " + (folder / "take.wav").string(),
                                       std::string("delete capture"), std::string("close capture")}) {
        const auto took = timeOf(device, command);
        if (!took) return false;
        std::printf("  %-7s %.1f ms\n", command.substr(0, command.find(' ')).c_str(), *took);
        longest = std::max(longest, *took);
    }
    return longest <= mostWait;
}

bool measureCapture(int minutes) {
    const SteadyClock clock;
    Synthesizer synthesizer(clock, 0.0);
    const auto folder = std::filesystem::current_path() / "media_bench_recordings";
    std::filesystem::create_directories(folder);
    PortableMediaDevice device(clock, synthesizer, {.recordingsFolder = [&] { return folder.string(); }});
    const long idle = memory("VmRSS:");
    const auto begin = std::chrono::steady_clock::now();
    if (const char* const failed = capture(device, clock, std::int64_t{minutes} * 60 * soundRate)) {
        std::printf("the capture failed at \"%s\"\n", failed);
        return false;
    }
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - begin;
    const long more = memory("VmHWM:") - idle;
    std::printf("capture of %d minutes: %.1f MB over idle at most (%ld MB allowed), %.0f times real time\n",
                minutes, static_cast<double>(more) / 1024, mostMemory / 1024, minutes * 60 / took.count());
    const bool isQuick = measureSave(device, folder);
    std::filesystem::remove_all(folder);
    return isQuick && more <= mostMemory;
}

std::string repeated(const std::string& piece, std::size_t size) {
    std::string bytes;
    bytes.reserve(size + piece.size());
    while (bytes.size() < size) bytes += piece;
    return bytes;
}

/// Ten seconds of noise, so that no frame is like the other.
std::string makeMp3(const std::filesystem::path& folder) {
    const std::string path = (folder / "piece.mp3").string();
    std::minstd_rand random;
    std::vector<float> noise(10 * soundRate * soundChannels);
    for (float& value : noise) value = static_cast<float>(random() % 1000) / 2500 - 0.2F;
    Mp3Writer writer(path);
    if (!writer.write(noise) || writer.finish()) return {};
    return readFile(path).value_or("");
}

/// A wait of one tick and a note, as often as a file may hold it.
std::string makeMidi() {
    const std::string notes =
        repeated(std::string("\x01\x90\x3C\x64\x01\x80\x3C\x40", 8), mostMidiBytes - 100);
    std::string size(4, '\0');
    for (std::size_t byte = 0; byte < 4; ++byte)
        size[byte] = static_cast<char>(notes.size() >> (24 - 8 * byte));
    return std::string("MThd\0\0\0\6\0\0\0\1\1\xE0", 14) + "MTrk" + size + notes;
}

/// Opens it as the recorder does; the longest that a command takes, in milliseconds.
std::optional<double> openingOf(PortableMediaDevice& device, const std::string& path) {
    double longest = 0;
    for (const std::string& command :
         {"open " + path + " type MPEGVideo Alias audiomp3 parent 0 Style 1073741824",
          std::string("set audiomp3 time format frames"), std::string("status audiomp3 length"),
          std::string("play audiomp3 from 0"), std::string("status audiomp3 position"),
          std::string("close audiomp3")}) {
        const auto took = timeOf(device, command);
        if (!took) return std::nullopt;
        longest = std::max(longest, *took);
    }
    return longest;
}

/// Whether files as large as they can be keep the window waiting no longer than they may.
bool measureOpening() {
    const auto folder = std::filesystem::current_path() / "media_bench_files";
    std::filesystem::create_directories(folder);
    const SteadyClock clock;
    Synthesizer synthesizer(clock, 0.0);
    PortableMediaDevice device(clock, synthesizer, {});
    const std::array files{std::pair{"200 MB of MP3", repeated(makeMp3(folder), 200U << 20U)},
                           std::pair{"16 MB of MIDI", makeMidi()}};
    bool isQuick = true;
    for (const auto& [name, bytes] : files) {
        const std::string path = (folder / "large").string();
        std::ofstream(path, std::ios::binary) << bytes;
        const auto took = openingOf(device, path);
        isQuick = isQuick && took && *took <= mostWait;
        std::printf("opening %s: %.1f ms for a command at most (%.0f allowed)\n", name, took.value_or(-1),
                    mostWait);
    }
    std::filesystem::remove_all(folder);
    return isQuick;
}

bool measurePosition() {
    sound_test::PrivateSoundServer server;
    if (const std::string failed = server.start(); !failed.empty()) {
        std::printf("%s\n", failed.c_str());
        return false;
    }
    std::vector<double> ahead;
    for (int time = 0; time < positionTimes; ++time) {
        if (const auto one = sound_test::positionAheadOfSound(server)) ahead.push_back(*one);
    }
    if (ahead.empty()) {
        std::printf("no click was heard\n");
        return false;
    }
    std::ranges::sort(ahead);
    const double middle = ahead[ahead.size() / 2];
    std::printf(
        "player's position: %+.0f ms from what is heard, %+.0f to %+.0f in %zu plays (%.0f allowed)\n",
        middle, ahead.front(), ahead.back(), ahead.size(), mostPositionError);
    return std::abs(middle) <= mostPositionError;
}

}  // namespace
}  // namespace melvane::bench

int main(int count, char** arguments) {
    using namespace melvane::bench;
    const int minutes = count > 1 ? std::atoi(arguments[1]) : defaultMinutes;
    if (minutes < 1 || minutes > mostMinutes) {
        std::fprintf(stderr, "usage: media_bench [minutes, 1 to %d]\n", mostMinutes);
        return 2;
    }
    const bool isLight = measureCapture(minutes);
    const bool isQuick = measureOpening();
    const bool isHeard = measurePosition();
    return isLight && isQuick && isHeard ? 0 : 1;
}
