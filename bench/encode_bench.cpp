// The encoding of a recording of 145 seconds in the recorder's window, beside the library fed with the same
// chunks and settings by a bare loop from file to file: processor time, to reach at most 1.03 times, and how
// late the window answers meanwhile, to reach at most 50 ms. Answers 1 when a limit is passed.
#include <lame/lame.h>

#include <QApplication>
#include <QTimer>
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <vector>

#include "encode_stage.h"
#include "ui/qt_style.h"

namespace {

using namespace melvane;
using namespace melvane::bench;

constexpr double ratioLimit = 1.03, answerLimit = 50;  // times, milliseconds
constexpr int rounds = 5;
constexpr std::size_t seconds = 145, frames = seconds * 44100, headerSize = 44;

double processorSeconds() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

/// Stereo: two voices with overtones that swell and fade, as music does more than a plain tone.
std::vector<std::int16_t> makeMusic() {
    std::vector<std::int16_t> samples;
    samples.reserve(frames * 2);
    for (std::size_t at = 0; at < frames; ++at) {
        const double time = static_cast<double>(at) / 44100;
        const double fade = 0.5 + 0.5 * std::cos(time * 7),
                     root = 220 * std::pow(2, std::floor(time * 4) / 12);
        for (const double pitch : {root, root * 1.5}) {
            double value = 0;
            for (int overtone = 1; overtone <= 6; ++overtone)
                value += std::sin(6.283185 * std::fmod(pitch, 900) * overtone * time) / overtone;
            samples.push_back(static_cast<std::int16_t>(value * fade * 6000));
        }
    }
    return samples;
}

std::string writeWav(const std::filesystem::path& folder, const std::vector<std::int16_t>& samples) {
    const std::string path = (folder / "music.wav").string();
    std::ofstream file(path, std::ios::binary);
    file << std::string(headerSize, '\0');
    file.write(reinterpret_cast<const char*>(samples.data()),
               static_cast<std::streamsize>(samples.size() * sizeof(std::int16_t)));
    return path;
}

/// The settings of a new user: the samples taken for one channel of 44.1 kHz, average 256 and 224 kbit/s at
/// least.
double bareLoop(const std::string& wav, const std::string& mp3) {
    const double before = processorSeconds();
    lame_t lame = lame_init();
    lame_set_num_channels(lame, 1);
    lame_set_in_samplerate(lame, 44100);
    lame_set_mode(lame, MONO);
    lame_set_brate(lame, 224);
    lame_set_bWriteVbrTag(lame, 0);
    lame_set_disable_reservoir(lame, 1);
    lame_set_preset(lame, 256);
    lame_set_VBR(lame, vbr_abr);
    lame_set_VBR_min_bitrate_kbps(lame, 224);
    lame_init_params(lame);
    std::vector<std::int16_t> chunk(static_cast<std::size_t>(lame_get_framesize(lame)));
    std::vector<unsigned char> output(chunk.size() * 5 / 4 + 7200);
    const int room = static_cast<int>(output.size());
    std::FILE* const from = std::fopen(wav.c_str(), "rb");
    std::FILE* const to = std::fopen(mp3.c_str(), "wb");
    std::fseek(from, headerSize, SEEK_SET);
    while (const std::size_t count = std::fread(chunk.data(), sizeof chunk[0], chunk.size(), from)) {
        const int bytes = lame_encode_buffer(lame, chunk.data(), chunk.data(), static_cast<int>(count),
                                             output.data(), room);
        std::fwrite(output.data(), 1, static_cast<std::size_t>(std::max(bytes, 0)), to);
        std::fflush(to);
    }
    const int bytes = lame_encode_flush(lame, output.data(), room);
    std::fwrite(output.data(), 1, static_cast<std::size_t>(std::max(bytes, 0)), to);
    std::fclose(from);
    std::fclose(to);
    lame_close(lame);
    return processorSeconds() - before;
}

/// How late a timer that should come each 5 milliseconds comes at worst.
class Answers {
 public:
    Answers() {
        timer_.setTimerType(Qt::PreciseTimer);
        QObject::connect(&timer_, &QTimer::timeout, [this] { take(); });
        timer_.start(period);
        last_ = clock_.counter();
    }
    void take() {
        const std::int64_t now = clock_.counter();
        worst_ = std::max(worst_, static_cast<double>(now - last_) / 1e6 - period);
        last_ = now;
        ++count_;
    }
    double worst() const { return worst_; }
    int count() const { return count_; }

 private:
    static constexpr int period = 5;
    SteadyClock clock_;
    QTimer timer_;
    std::int64_t last_ = 0;
    double worst_ = 0;
    int count_ = 0;
};

}  // namespace

int main(int count, char** arguments) {
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" MELVANE_SCREEN);
    const QApplication application(count, arguments);
    applyStyle(*qApp);
    EncodeStage stage;
    const std::string wav = writeWav(stage.folder, makeMusic());
    std::vector<double> bare, ours;
    double worst = 0;
    bool whole = true;
    for (int round = 0; round < rounds; ++round) {
        bare.push_back(bareLoop(wav, (stage.folder / "bare.mp3").string()));
        const Answers answers;
        const double before = processorSeconds();
        stage.encode(wav);
        ours.push_back(processorSeconds() - before);
        worst = std::max(worst, answers.worst());
        whole = whole && answers.count() > 10 &&
                std::filesystem::file_size(stage.folder / "music.mp3") > 2 * seconds * 224'000 / 8;
    }
    const double ratio = std::ranges::min(ours) / std::ranges::min(bare);
    std::printf(
        "encoding 145 s: %.2f s, bare loop %.2f s, ratio %.3f (at most %.2f); latest answer %.1f ms "
        "(at most %.0f)%s\n",
        std::ranges::min(ours), std::ranges::min(bare), ratio, ratioLimit, worst, answerLimit,
        whole ? "" : "; it was not encoded");
    return whole && ratio <= ratioLimit && worst <= answerLimit ? 0 : 1;
}
