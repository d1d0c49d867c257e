#include "fuzz/fuzz_target.h"
#include "platform/midi_channel_state.h"
#include "platform/midi_file_reader.h"

using namespace melvane;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto sequence = readMidiFile(fuzz::asText(data, size));
    if (!sequence) return 0;
    fuzz::require(sequence->events.size() <= size, "a message takes two bytes at least");
    fuzz::require(sequence->length <= MidiSequence::longest, "a day is the most");
    std::uint32_t last = 0;
    MidiChannelState state;
    for (const auto& [frame, packed] : sequence->events) {
        fuzz::require(frame >= last, "messages are in the order of time");
        last = frame;
        const auto message = decodeShortMessage(packed);
        fuzz::require(message.has_value(), "every message is one of a channel");
        state.hear(*message);
    }
    fuzz::require(last <= sequence->length, "no message lies behind the end");
    state.replay([](const ShortMessage& message) {
        fuzz::require(message.first < 128 && message.second < 128, "data have seven bits");
    });
    return 0;
}
