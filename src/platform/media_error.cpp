#include "platform/media_error.h"

#include <algorithm>
#include <array>
#include <utility>

namespace melvane {

namespace {

constexpr std::array texts{
    std::pair{MediaError::notUnderstood, "The command is not understood."},
};

}  // namespace

MediaDevice::Answer answerOf(MediaError error) {
    const auto* const found = std::ranges::find(texts, error, &std::pair<MediaError, const char*>::first);
    return {static_cast<int>(error), found == texts.end() ? "" : found->second};
}

}  // namespace melvane
