#pragma once
#ifdef _WIN32
#include "platform/desktop.h"

namespace melvane {

/// The desktop of Windows: its own mixer, and the encoder in library files beside the program.
class WindowsDesktop final : public DesktopWithoutEntries {
 public:
    bool openMixer() override;
    std::vector<std::string_view> encoderFiles() const override { return encoderLibraryFiles(); }
};

}  // namespace melvane
#endif
