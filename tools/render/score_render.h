#pragma once
#include <functional>
#include <string>

#include "platform/audio_file_sink.h"
#include "render/render_result.h"

namespace melvane {

/// Plays a score from its first column to its last, as the studio does with everything as it is at the start,
/// and gives the sound to `sink` as fast as the machine can; then goes on until it has died away, four
/// seconds at most. `progress(column, lastColumn)` is called after each column.
RenderResult renderScore(const std::string& scorePath, AudioSink& sink,
                         const std::function<void(int, int)>& progress = {});

}  // namespace melvane
