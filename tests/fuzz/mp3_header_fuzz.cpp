#include <algorithm>

#include "fuzz/fuzz_target.h"
#include "recorder/mp3_header.h"

using namespace melvane;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::array<unsigned char, 4> bytes{};
    std::copy_n(data, std::min(size, bytes.size()), bytes.begin());
    const Mp3Header header = readMp3Header(bytes);
    fuzz::require(header.mode == "mono" || header.mode == "stereo", "a mode is one of two");
    fuzz::require(!header.kilobits.empty() && header.kilobits.size() <= 3, "a bit rate is a number");
    fuzz::require(header.kilohertz.empty() || header.kilohertz.size() == 2, "a sampling rate has two digits");
    return 0;
}
