#pragma once
#include <optional>
#include <string>

namespace melvane {

/// What a rendering came to.
struct RenderResult {
    std::optional<std::string> failure;  ///< one line for the user; no value when the file is complete
    bool hasNotes = true;                ///< a text that is no score reads as one without notes
    double seconds = 0;                  ///< of music
};

}  // namespace melvane
