#pragma once
#include "platform/media_device.h"

namespace melvane {

/// What a media command can fail of. The values are the codes of the answers.
enum class MediaError {
    notUnderstood = 261,
};

/// The answer with its code and its text.
MediaDevice::Answer answerOf(MediaError error);

/// The device of a program that neither records nor plays files: it understands no command.
class NoMediaDevice final : public MediaDevice {
 public:
    Answer send(const std::string&) override { return answerOf(MediaError::notUnderstood); }
};

}  // namespace melvane
