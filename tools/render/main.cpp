#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <memory>
#include <optional>
#include <string>

#include "platform/audio_file_mp3_writer.h"
#include "platform/audio_file_wav_writer.h"
#include "platform/text.h"
#include "render/score_export.h"
#include "render/score_render.h"

namespace {

using namespace melvane;

enum ExitStatus { done = 0, failed = 1, misused = 2 };

constexpr const char* help =
    "Usage: melvane-render SCORE.sng OUT.wav\n"
    "       melvane-render SCORE.sng OUT.mp3\n"
    "       melvane-render SCORE.sng OUT.mid\n"
    "\n"
    "Plays a Melvane score into a sound file, as fast as the machine can, or writes it as a MIDI file. The "
    "ending\n"
    "of the output tells its kind:\n"
    "  .wav  16 bits, 44.1 kHz, stereo\n"
    "  .mp3  192 kbit/s, 44.1 kHz, stereo\n"
    "  .mid  Standard MIDI File, format 1, without effects\n"
    "The output is complete or, after a failure, as it was before.\n"
    "\n"
    "  --help     shows this text\n"
    "  --version  shows the version\n"
    "\n"
    "Exit status: 0 done, 1 failed, 2 wrong use.\n";

/// Null when no sound file of this ending can be written.
std::unique_ptr<AudioSink> sinkFor(const std::string& path) {
    if (endsWithNoCase(path, ".wav")) return std::make_unique<WavWriter>(path);
    if (endsWithNoCase(path, ".mp3")) return std::make_unique<Mp3Writer>(path);
    return nullptr;
}

/// One line that counts the percent, on a terminal only.
class ProgressLine {
 public:
    void show(int column, int lastColumn) {
        const int percent = lastColumn > 0 ? 100 * column / lastColumn : 100;
        if (!onTerminal_ || percent == shown_) return;
        shown_ = percent;
        std::fprintf(stderr, "\rcolumn %d of %d, %d %%", column, lastColumn, percent);
    }
    ~ProgressLine() {
        if (shown_ >= 0) std::fputs("\r\033[K", stderr);
    }

 private:
    const bool onTerminal_ = isatty(STDERR_FILENO) == 1;
    int shown_ = -1;
};

RenderResult renderWithProgress(const std::string& score, AudioSink& sink) {
    ProgressLine line;
    return renderScore(score, sink, [&line](int column, int lastColumn) { line.show(column, lastColumn); });
}

/// Nothing for an ending that tells no kind of file.
std::optional<RenderResult> renderByEnding(const std::string& score, const std::string& output) {
    if (endsWithNoCase(output, ".mid")) return exportScore(score, output);
    if (const auto sink = sinkFor(output)) return renderWithProgress(score, *sink);
    return std::nullopt;
}

int render(const std::string& score, const std::string& output) {
    const auto rendered = renderByEnding(score, output);
    if (!rendered) {
        std::fprintf(stderr, "melvane-render: \"%s\" must end in .wav, .mp3 or .mid.\n", output.c_str());
        return misused;
    }
    const RenderResult& result = *rendered;
    if (result.failure) {
        std::fprintf(stderr, "melvane-render: %s\n", result.failure->c_str());
        return failed;
    }
    if (!result.hasNotes) std::fprintf(stderr, "melvane-render: \"%s\" holds no notes.\n", score.c_str());
    std::printf("%s: %.1f seconds\n", output.c_str(), result.seconds);
    return done;
}

}  // namespace

int main(int argc, char** argv) {
    for (int index = 1; index < argc; ++index) {
        if (std::strcmp(argv[index], "--help") == 0 || std::strcmp(argv[index], "-h") == 0) {
            std::fputs(help, stdout);
            return done;
        }
        if (std::strcmp(argv[index], "--version") == 0) {
            std::puts("melvane-render " MELVANE_VERSION);
            return done;
        }
    }
    if (argc != 3) {
        std::fputs(help, stderr);
        return misused;
    }
    return render(argv[1], argv[2]);
}
