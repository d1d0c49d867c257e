#include "platform/media_system_device.h"

#ifdef _WIN32
#include <windows.h>
// After it, whose types it needs.
#include <mmsystem.h>

#include <array>

namespace melvane {

namespace {

constexpr UINT answerSize = 260, errorSize = 128;

}  // namespace

MediaDevice::Answer SystemMediaDevice::send(const std::string& command) {
    std::array<char, answerSize> answer{};
    const MCIERROR code = mciSendStringA(command.c_str(), answer.data(), answerSize, nullptr);
    if (code == 0) return {0, answer.data()};
    std::array<char, errorSize> text{};
    mciGetErrorStringA(code, text.data(), errorSize);
    return {static_cast<int>(code), text.data()};
}

}  // namespace melvane
#endif
