#pragma once
#include <array>
#include <cstdint>

namespace melvane {

/// A MIDI file in the making. It is counted in bytes from 1 and in 16 bits, so it ends at byte 32767 at the
/// latest.
struct MidiExportState {
    static constexpr int lastByte = INT16_MAX;

    /// Byte n of the file is element n; 0 is not used. The buffer ends at MidiBufferSize: what stands above
    /// that is lost, and 0 when the buffer grows over it.
    std::array<std::uint8_t, lastByte + 1> MidiBuffer{};
    std::int32_t MidiBufferSize = 0;  ///< the buffer's last element; stored among the settings as "NumBytes"
    std::int16_t MidiWriteIndex = 0;  ///< the byte in hand
    std::int16_t TrackDataStart = 0;  ///< the first byte of the track's data
    std::int16_t TrackByteCount = 0;
    std::int16_t DeltaColumns = 0;     ///< columns since the last event
    std::int16_t LastEventColumn = 0;  ///< of this track
    /// Set by the last change of an instrument, and kept from one track to the next.
    bool ExportPercussion = false;
    std::int16_t ExportPercussionKey = 0;  ///< MIDI key of the percussion sound
    std::int16_t ExportInstrument = 0;
    std::int16_t ExportChannel = 0;  ///< from 0

    bool operator==(const MidiExportState&) const = default;
};

}  // namespace melvane
