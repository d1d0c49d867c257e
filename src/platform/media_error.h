#pragma once
#include <string>
#include <string_view>

#include "platform/media_device.h"

namespace melvane {

/// What a media command can fail of. The values are the codes of the answers.
enum class MediaError {
    notUnderstood = 261,
    notOpen = 263,
    unknownType = 266,
    noFile = 275,
    damagedFile = 277,
    outOfRange = 282,
    wrongKind = 284,
    aliasInUse = 289,
    inUse = 320,
    formatRefused = 322,
    noInput = 324,
    noRoom = 330,
    tooLong = 331,
    framesLost = 332,
    inputLost = 333,
    notSaved = 334,
    noSpool = 335,
    inputOverran = 336,
    tooLarge = 337,
};

/// The answer with its code and its text, and behind that `detail`, where there is one.
MediaDevice::Answer answerOf(MediaError error, std::string_view detail = {});

/// A detail: how much of a recording is missing, to a tenth, rounded up.
std::string missingSeconds(double seconds);

/// The device of a program that neither records nor plays files: it understands no command.
class NoMediaDevice final : public MediaDevice {
 public:
    Answer send(const std::string&) override { return answerOf(MediaError::notUnderstood); }
};

}  // namespace melvane
