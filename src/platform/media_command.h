#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/media_wave_format.h"

namespace melvane {

enum class MediaVerb {
    open,
    close,
    closeAll,
    play,
    pause,
    resume,
    stop,
    setTimeFormat,
    setWaveFormat,
    length,
    position,
    record,
    canSave,
    save,
    erase,
};

/// One media command, taken apart.
struct MediaCommand {
    MediaVerb verb = MediaVerb::closeAll;
    std::string alias = {};  ///< in lower case; empty for closeAll
    std::string path = {};   ///< open, save: without blanks and quotes around it; may be empty
    std::string type = {};   ///< open: in lower case
    std::optional<std::int64_t> from = {}, to = {};  ///< play: in the device's time format
    bool inFrames = false;                           ///< setTimeFormat: else milliseconds
    WaveFormat format = {};                          ///< setWaveFormat: as it was told
};

/// Words are read without regard to case. A path may hold blanks, with quotes around it or without; the path
/// of "open" ends where " type " and what belongs behind it follows. No value when the text is no command.
std::optional<MediaCommand> readMediaCommand(std::string_view text);

}  // namespace melvane
