#pragma once
#include <string>

#include "child_process.h"

namespace melvane::e2e {

/// A display of the test's own that nobody sees: Xvfb on a number that is free, with a window manager, so
/// that windows get the focus as on a desktop.
class PrivateDisplay {
 public:
    static constexpr int width = 1280, height = 1024;  // pixels

    /// What the two programs say goes into files in `folder`, which must outlive this.
    explicit PrivateDisplay(std::string folder) : folder_(std::move(folder)) {}

    /// What kept it from starting, as one line; empty when it runs.
    std::string start();
    /// As in DISPLAY, once it runs.
    const std::string& name() const { return name_; }

 private:
    std::string folder_;
    std::string name_;
    sound_test::ChildProcess server_, manager_;  // the manager ends first
};

}  // namespace melvane::e2e
