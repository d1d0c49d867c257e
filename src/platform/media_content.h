#pragma once
#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/media_audio_reader.h"
#include "platform/midi_sequence.h"

namespace melvane {

/// What a file holds that can be played: one of the two, or nothing when it is damaged or of a format that is
/// not known.
struct MediaContent {
    std::unique_ptr<AudioReader> sound;
    std::optional<MidiSequence> notes;

    bool isEmpty() const { return !sound && !notes; }
};

/// Whether the file says at its start that it is a MIDI file.
bool beginsAsMidi(const std::string& path);

/// Is told how long a file may be, in frames at soundRate, where that is known earlier than what it holds.
using LengthGuess = std::function<void(std::int64_t)>;

/// Reads the file as far as that must be done before it is played. Takes as long as the file is long.
MediaContent readMediaContent(const std::string& path, const LengthGuess& guessed);

/// A file that is being read, by a thread that is left behind when nobody waits for it any more.
/// User-interface thread.
class MediaReading {
 public:
    using Reader = std::function<MediaContent(const LengthGuess& guessed)>;

    /// `atOnce`: it has been read when this returns.
    MediaReading(Reader reader, bool atOnce);

    /// Waits so long at most; whether it has been read.
    bool isOver(std::chrono::milliseconds patience = {});
    /// Once, when it is over.
    MediaContent take();
    /// Frames at soundRate, above 0. Without a better guess it is the longest that a sequence can be.
    std::int64_t guessedLength() const;

 private:
    struct Core;
    const std::shared_ptr<Core> core_;
};

}  // namespace melvane
