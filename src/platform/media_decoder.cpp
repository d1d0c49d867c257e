#include "platform/media_decoder.h"

#include <array>
#include <fstream>
#include <string_view>

#include "platform/files.h"
#include "platform/text.h"

namespace melvane {

namespace {

/// A tag of information, or the eleven set bits of a frame.
bool beginsAsMp3(const std::string& path) {
    std::array<char, 3> head{};
    std::ifstream(path, std::ios::binary).read(head.data(), head.size());
    const bool hasFrame = head[0] == '\xFF' && (static_cast<unsigned char>(head[1]) & 0xE0U) == 0xE0U;
    return hasFrame || std::string_view(head.data(), head.size()) == "ID3";
}

}  // namespace

std::unique_ptr<MediaDecoder> openSoundFile(const std::string& path) {
    if (!fileExists(path)) return nullptr;
    if (beginsAsMp3(path)) return openMp3File(path);
    auto samples = openSampleFile(path);
    return !samples && endsWithNoCase(path, ".mp3") ? openMp3File(path) : std::move(samples);
}

}  // namespace melvane
