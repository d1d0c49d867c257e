#include "midi/channel_settings.h"

#include "core/names.h"
#include "core/setup_channel.h"
#include "midi/messages.h"

namespace melvane {

namespace {

constexpr Int16 restingVolume = 100, centrePan = 64;

}  // namespace

void ChannelSettings::ResetChannels() {
    for (int channel = 0; channel <= lastTrackNumber; ++channel) {
        setAtRest(channel);
        tellPort(static_cast<Int16>(channel));
    }
    ApplyChannelSettings();
}

void ChannelSettings::setAtRest(int channel) {
    const auto& in = studio_.instruments;
    const auto at = static_cast<std::size_t>(channel);
    auto& record = studio_.tracks.ChannelSettings[at];
    record = {};
    record.Instrument = isMelodyTrack(channel) ? in.MelodyInstrument : in.PercussionInstrument;
    record.Volume = restingVolume;
    record.Pan = centrePan;
    studio_.Form3.PanAtRest[at] = true;
}

void ChannelSettings::tellPort(Int16 channel) {
    output_.send(message::programChange(studio_.instruments.MelodyInstrument, channel));
    output_.SendPan(centrePan, channel);
    output_.SendReverb(0, channel);
    output_.SendChorus(0, channel);
    output_.SendModulation(0, channel);
}

void ChannelSettings::ApplyChannelSettings() {
    showChannelSettings(studio_);
    const int channel = studio_.Form3.SetupChannel;
    const ChannelRecord record = studio_.tracks.ChannelSettings[static_cast<std::size_t>(channel)];
    auto& score = studio_.score;
    score.ModArray.fillTrack(channel, record.Modulation, score.NumNotes);
    score.PanArray.fillTrack(channel, record.Pan, score.NumNotes);
    score.ReverbArray.fillTrack(channel, record.Reverb, score.NumNotes);
    score.ChorusArray.fillTrack(channel, record.Chorus, score.NumNotes);
}

void ChannelSettings::listNames(NameTables& tables) {
    tables.operations.add("Form3", "ResetChannels", this, &ChannelSettings::ResetChannels);
    tables.operations.add("Form3", "ApplyChannelSettings", this, &ChannelSettings::ApplyChannelSettings);
}

}  // namespace melvane
