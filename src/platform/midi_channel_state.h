#pragma once
#include <array>
#include <cstdint>

#include "platform/sound_short_message.h"

namespace melvane {

/// What the messages so far have made of a synthesizer's 16 channels: controllers, programs, bends and
/// pressures, without the notes. Neither allocates nor locks.
class MidiChannelState {
 public:
    void hear(const ShortMessage& message);

    /// Calls `play(message)` with what brings channels as they are at the start into this state.
    template <typename Play>
    void replay(Play play) const {
        for (std::uint8_t channel = 0; channel < channels_.size(); ++channel) {
            replayChannel(channel, [&](std::uint8_t kind, int first, int second, std::uint8_t length) {
                play(ShortMessage{kind, channel, static_cast<std::uint8_t>(first),
                                  static_cast<std::uint8_t>(second), length});
            });
        }
    }

 private:
    static constexpr std::int8_t never = -1;
    static constexpr std::size_t parameters = 3;  ///< bend range, fine tuning, coarse tuning
    static constexpr std::int8_t noParameter = 127;

    struct Parameter {
        std::int8_t coarse = never, fine = never;
    };
    struct Channel {
        Channel() { controllers.fill(never); }
        std::array<std::int8_t, 128> controllers{};
        std::array<Parameter, parameters> registered{};
        /// The registered parameter that data entry goes to.
        std::int8_t chosenHigh = noParameter, chosenLow = noParameter;
        std::int8_t program = never, pressure = never, bendLow = never, bendHigh = never;
    };

    static void control(Channel& channel, std::uint8_t number, std::int8_t value);
    static void enterData(Channel& channel, std::uint8_t number, std::int8_t value);
    static void resetControllers(Channel& channel);

    template <typename Send>
    void replayChannel(std::uint8_t index, Send send) const {
        using namespace message_kind;
        using namespace midi_controller;
        const Channel& channel = channels_.at(index);
        for (std::size_t number = 0; number < channel.controllers.size(); ++number) {
            if (const int value = channel.controllers.at(number); value != never) {
                send(controlChange, static_cast<int>(number), value, 3);
            }
        }
        for (std::size_t number = 0; number < parameters; ++number) {
            const auto [coarse, fine] = channel.registered.at(number);
            if (coarse == never) continue;
            send(controlChange, registeredHigh, 0, 3);
            send(controlChange, registeredLow, static_cast<int>(number), 3);
            send(controlChange, dataEntry, coarse, 3);
            if (fine != never) send(controlChange, fineDataEntry, fine, 3);
        }
        if (channel.chosenHigh != noParameter || channel.registered[0].coarse != never) {
            send(controlChange, registeredHigh, channel.chosenHigh, 3);
            send(controlChange, registeredLow, channel.chosenLow, 3);
        }
        if (channel.program != never) send(programChange, channel.program, 0, 2);
        if (channel.pressure != never) send(channelPressure, channel.pressure, 0, 2);
        if (channel.bendHigh != never) send(pitchBend, channel.bendLow, channel.bendHigh, 3);
    }

    std::array<Channel, 16> channels_;
};

}  // namespace melvane
