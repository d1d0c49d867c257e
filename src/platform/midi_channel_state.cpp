#include "platform/midi_channel_state.h"

#include <initializer_list>

namespace melvane {

namespace {

constexpr std::uint8_t firstChannelMode = midi_controller::allSoundOff;

}  // namespace

void MidiChannelState::hear(const ShortMessage& message) {
    Channel& channel = channels_.at(message.channel & 0x0FU);
    const auto first = static_cast<std::int8_t>(message.first & 0x7FU);
    const auto second = static_cast<std::int8_t>(message.second & 0x7FU);
    switch (message.kind) {
        case message_kind::controlChange:
            control(channel, message.first & 0x7FU, second);
            break;
        case message_kind::programChange:
            channel.program = first;
            break;
        case message_kind::channelPressure:
            channel.pressure = first;
            break;
        case message_kind::pitchBend:
            channel.bendLow = first;
            channel.bendHigh = second;
            break;
        default:
            break;
    }
}

void MidiChannelState::control(Channel& channel, std::uint8_t number, std::int8_t value) {
    switch (number) {
        case midi_controller::dataEntry:
        case midi_controller::fineDataEntry:
            enterData(channel, number, value);
            break;
        case midi_controller::unregisteredLow:
        case midi_controller::unregisteredHigh:
            channel.chosenLow = channel.chosenHigh = noParameter;
            break;
        case midi_controller::registeredLow:
            channel.chosenLow = value;
            break;
        case midi_controller::registeredHigh:
            channel.chosenHigh = value;
            break;
        case midi_controller::resetAllControllers:
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
    (number == midi_controller::dataEntry ? channel.registered.at(low).coarse
                                          : channel.registered.at(low).fine) = value;
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
