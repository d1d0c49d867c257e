#include "files/midi_bytes.h"

namespace melvane {

int MidiBytes::addLongDelta(MidiBytes bytes, int at, int columns) {
    const int ticks = std::max(columns, 0) * ticksAColumn;
    for (int shift = 21; shift > 0; shift -= 7) {
        if (ticks >> shift != 0) at = bytes.add(at, 0x80 | (ticks >> shift & 0x7F));
    }
    return bytes.add(at, ticks & 0x7F);
}

int MidiBytes::addLongEvent(MidiBytes bytes, int at, int columns, int status, int key, int velocity) {
    at = bytes.addDelta(at, columns);
    for (const int byte : {status, key, velocity}) at = bytes.add(at, byte);
    return at;
}

}  // namespace melvane
