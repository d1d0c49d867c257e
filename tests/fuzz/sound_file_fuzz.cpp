#include <sys/mman.h>
#include <unistd.h>

#include <cmath>
#include <string>

#include "fuzz/fuzz_target.h"
#include "platform/media_audio_reader.h"

using namespace melvane;

namespace {

constexpr int mostReads = 200;

void readSome(AudioReader& reader) {
    std::vector<float> sound;
    for (int read = 0; read < mostReads; ++read) {
        sound.clear();
        const bool goesOn = reader.read(sound);
        fuzz::require(sound.size() % 2 == 0, "frames are whole");
        for (const float value : sound) fuzz::require(std::isfinite(value), "every value is a number");
        if (!goesOn) return;
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const int file = memfd_create("sound", MFD_CLOEXEC);
    if (file < 0 || write(file, data, size) != static_cast<ssize_t>(size)) return 0;
    if (const auto reader = AudioReader::open("/proc/self/fd/" + std::to_string(file))) {
        fuzz::require(reader->length() >= 0, "a length is no less than nothing");
        readSome(*reader);
        reader->seek(reader->length() / 2);
        readSome(*reader);
    }
    close(file);
    return 0;
}
