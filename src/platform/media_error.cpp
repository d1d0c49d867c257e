#include "platform/media_error.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <utility>

namespace melvane {

namespace {

constexpr std::array texts{
    std::pair{MediaError::notUnderstood, "The command is not understood."},
    std::pair{MediaError::notOpen, "The device is not open."},
    std::pair{MediaError::unknownType, "There is no device of this type."},
    std::pair{MediaError::noFile, "The file cannot be found."},
    std::pair{MediaError::damagedFile, "The file is damaged or of an unknown format."},
    std::pair{MediaError::outOfRange, "The position lies outside the file."},
    std::pair{MediaError::wrongKind, "The device cannot do this."},
    std::pair{MediaError::aliasInUse, "The alias is in use already."},
    std::pair{MediaError::inUse, "The device is in use."},
    std::pair{MediaError::formatRefused, "The format is not supported."},
    std::pair{MediaError::noInput, "There is no sound input to record from."},
    std::pair{MediaError::noRoom, "The recording has ended early; what there is can be saved. Reason:"},
    std::pair{MediaError::tooLong,
              "The recording has ended early, as a WAV file holds 4 GB at most; what there is can be saved."},
    std::pair{MediaError::framesLost, "The machine was too slow, and sound was lost."},
    std::pair{MediaError::inputLost, "The sound input was lost during the recording."},
    std::pair{MediaError::notSaved, "The recording is not saved."},
    std::pair{MediaError::noSpool, "No temporary file can be made to record into:"},
    std::pair{MediaError::inputOverran, "The sound input was read too late, and sound was lost."},
    std::pair{MediaError::tooLarge, "The file is too large: a MIDI file may have 16 MB."},
};

}  // namespace

std::string missingSeconds(double seconds) {
    const auto tenths = static_cast<std::int64_t>(std::ceil(seconds * 10));
    return "Missing seconds: " + std::to_string(tenths / 10) + "." + std::to_string(tenths % 10);
}

MediaDevice::Answer answerOf(MediaError error, std::string_view detail) {
    const auto* const found = std::ranges::find(texts, error, &std::pair<MediaError, const char*>::first);
    std::string text = found == texts.end() ? "" : found->second;
    if (!detail.empty()) text.append(" ").append(detail);
    return {static_cast<int>(error), text};
}

}  // namespace melvane
