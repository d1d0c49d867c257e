#pragma once
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "platform/audio_file_sink.h"

namespace melvane {

/// What a rendering came to.
struct RenderResult {
    std::optional<std::string> failure;  ///< one line for the user; no value when the sound is complete
    bool hasNotes = true;                ///< a text that is no score reads as one without notes
    double seconds = 0;                  ///< of sound
};

/// Plays a score from its first column to its last, as the studio does with everything as it is at the start,
/// and gives the sound to `sink` as fast as the machine can; then goes on until it has died away, four
/// seconds at most. `progress(column, lastColumn)` is called after each column.
RenderResult renderScore(const std::string& scorePath, AudioSink& sink,
                         const std::function<void(int, int)>& progress = {});

}  // namespace melvane
