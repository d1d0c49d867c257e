#pragma once
#include <cstdint>
#include <string>

namespace melvane {

/// The recorder: what is captured, encoded and played beside the score. RecordingSong and PauseRequested
/// belong to the playback.
struct Recorder {
    bool StopRequested = false;  ///< a capture has ended; the player of files ends on it
    bool PlayerStopped = false;  ///< the player was stopped since it last began
    bool EncodeCancel = false;   ///< the encoding ends behind its present chunk

    std::string SongsDir;  ///< where recordings go
    // Where the file dialogs open next.
    std::string OpenFolder, SaveFolder, AudioFolder;

    std::string OpenMediaFile;  ///< opened last

    // The open file, as decimal texts. Frames and seconds are whole numbers, cut.
    std::string MediaFrames, MediaSeconds;        ///< length
    std::string MediaFrameRate;                   ///< frames a second
    std::string MediaPosition, MediaTimeSeconds;  ///< position, in frames and in seconds

    /// Counts the closings of the window: what began before one leaves the window alone after it.
    std::int32_t closings = 0;
};

}  // namespace melvane
