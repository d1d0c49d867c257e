#pragma once
#include <optional>
#include <string_view>

#include "platform/midi_sequence.h"

namespace melvane {

/// The most bytes of a MIDI file that is read.
inline constexpr std::size_t mostMidiBytes = 16U << 20U;

/// Reads a standard MIDI file of type 0, 1 or 2, also one in a RIFF file; the tracks of type 2 follow each
/// other. Of a damaged file what is sound is read: a track whose length is wrong ends with its end mark or
/// where the next one begins; data without a status, bytes that cannot belong to a message and unfinished
/// messages are passed over. No value when there is no track, or too much of a file.
std::optional<MidiSequence> readMidiFile(std::string_view bytes);

}  // namespace melvane
