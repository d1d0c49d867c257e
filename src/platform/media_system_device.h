#pragma once
#ifdef _WIN32
#include "platform/media_device.h"

namespace melvane {

/// The media device that Windows has: every command goes to it as it is.
class SystemMediaDevice final : public MediaDevice {
 public:
    Answer send(const std::string& command) override;
};

}  // namespace melvane
#endif
