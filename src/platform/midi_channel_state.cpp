#include "platform/midi_channel_state.h"

#include <initializer_list>

namespace melvane {

namespace {

constexpr std::uint8_t controlChange = 0xB0;
constexpr std::uint8_t programChange = 0xC0;
constexpr std::uint8_t channelPressure = 0xD0;
constexpr std::uint8_t pitchBend = 0xE0;

constexpr std::uint8_t dataEntry = 6, fineDataEntry = 38;
constexpr std::uint8_t unregisteredLow = 98, unregisteredHigh = 99, registeredLow = 100, registeredHigh = 101;
constexpr std::uint8_t resetAllControllers = 121, firstChannelMode = 120;

}  // namespace

void MidiChannelState::hear(const ShortMessage& message) {
    Channel& channel = channels_.at(message.channel & 0x0FU);
    const auto first = static_cast<std::int8_t>(message.first & 0x7FU);
    const auto second = static_cast<std::int8_t>(message.second & 0x7FU);
    switch (message.kind) {
        case controlChange:
            control(channel, message.first & 0x7FU, second);
            break;
        case programChange:
            channel.program = first;
            break;
        case channelPressure:
            channel.pressure = first;
            break;
        case pitchBend:
            channel.bendLow = first;
            channel.bendHigh = second;
            break;
        default:
            break;
    }
}

void MidiChannelState::control(Channel& channel, std::uint8_t number, std::int8_t value) {
    switch (number) {
        case dataEntry:
        case fineDataEntry:
            enterData(channel, number, value);
            break;
        case unregisteredLow:
        case unregisteredHigh:
            channel.chosenLow = channel.chosenHigh = noParameter;
            break;
        case registeredLow:
            channel.chosenLow = value;
            break;
        case registeredHigh:
            channel.chosenHigh = value;
            break;
        case resetAllControllers:
            resetControllers(channel);
            break;
        default:
            if (number < firstChannelMode) channel.controllers.at(number) = value;
            break;
    }
}

void MidiChannelState::enterData(Channel& channel, std::uint8_t number, std::int8_t value) {
    const auto low = static_cast<std::size_t>(channel.chosenLow);
    if (channel.chosenHigh != 0 || low >= parameters) return;
    (number == dataEntry ? channel.registered.at(low).coarse : channel.registered.at(low).fine) = value;
}

/// Volume, pan, effects and banks stay, as the MIDI recommendation has it.
void MidiChannelState::resetControllers(Channel& channel) {
    for (const std::size_t number : {1U, 2U, 4U, 11U, 64U, 65U, 66U, 67U, 68U, 69U}) {
        channel.controllers.at(number) = never;
    }
    channel.chosenLow = channel.chosenHigh = noParameter;
    channel.pressure = channel.bendLow = channel.bendHigh = never;
}

}  // namespace melvane
