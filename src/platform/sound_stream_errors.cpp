#include "platform/sound_stream_errors.h"

#include <filesystem>
#include <string>
#include <system_error>

namespace melvane {

bool hasAlsaDevice(char direction) {
    std::error_code none;
    for (const auto& entry : std::filesystem::directory_iterator("/dev/snd", none)) {
        const std::string name = entry.path().filename().string();
        if (name.starts_with("pcm") && name.ends_with(direction)) return true;
    }
    return false;
}

}  // namespace melvane
