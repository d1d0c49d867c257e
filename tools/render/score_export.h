#pragma once
#include <string>

#include "render/render_result.h"

namespace melvane {

/// Writes a score as a MIDI file, byte for byte as the studio exports it with the largest buffer. The file is
/// complete or, after a failure, as it was before. A score that such a file cannot hold (more than 32,767
/// bytes, a tempo below 4) is a failure.
RenderResult exportScore(const std::string& scorePath, const std::string& midiPath);

}  // namespace melvane
