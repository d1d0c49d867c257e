#include "shell/setup_channels.h"

#include "core/instrument_names.h"
#include "core/names.h"
#include "core/setup_channel.h"
#include "midi/messages.h"

namespace melvane {

namespace {

bool isTrack(int index) { return index >= 0 && index <= lastTrackNumber; }

}  // namespace

SetupChannels::SetupChannels(Studio& studio, Parts parts) : studio_(studio), parts_(parts) {
    for (int index = 0; index <= lastTrackNumber; ++index) {
        const auto at = static_cast<std::size_t>(index);
        studio_.Form3.TrackSel[at].acted = [this, index] { choose(index); };
        studio_.Form3.TrackSel[at].setTip(channelTip(index));
        studio_.Form3.TrackHide[at].acted = [this, index] { TrackHide_Click(index); };
    }
}

/// An option is not let go of by a click on it.
void SetupChannels::choose(int index) {
    auto& buttons = studio_.Form3.TrackSel;
    const bool isNew = buttons[static_cast<std::size_t>(index)].ticked();
    for (int other = 0; isNew && other <= lastTrackNumber; ++other) {
        buttons[static_cast<std::size_t>(other)].set(other == index);
    }
    buttons[static_cast<std::size_t>(index)].set(true);
    TrackSel_MouseDown(index, 0, 0, 0, 0);
    if (isNew) TrackSel_Click(index);
}

void SetupChannels::TrackSel_Click(int index) {
    if (!isTrack(index)) return;
    auto& setup = studio_.Form3;
    const auto at = static_cast<std::size_t>(index);
    parts_.selection.TrackSel_Click(index);
    if (isMelodyTrack(index))
        Combo1_Click();
    else
        Combo5_Click();
    for (auto& box : setup.TrackHide) box.setEnabled(true);
    setup.TrackHide[at].setEnabled(false);
    studio_.tracks.TrackVisible[at] = setup.TrackSel[at].ticked();
    studio_.tracks.CurrentTrack = setup.SetupChannel = static_cast<Int16>(index);
    showChannelSettings(studio_);
    showChannelVolume(studio_, index);
    parts_.selection.showCurrentTrack();
}

void SetupChannels::TrackSel_MouseDown(int index, int, int, double, double) {
    auto& buttons = studio_.Form3.TrackSel;
    for (int other = 0; isTrack(index) && other <= lastTrackNumber; ++other) {
        buttons[static_cast<std::size_t>(other)].setHighlighted(other == index);
    }
}

void SetupChannels::TrackHide_Click(int index) {
    if (!isTrack(index)) return;
    setChannelHidden(studio_, index, studio_.isHidden(index));
    parts_.surfaces.DrawNoteArray();
    if (!isMelodyTrack(index)) parts_.surfaces.DrawBeatArray();
}

void SetupChannels::Combo1_Click() {
    if (!loading) parts_.instruments.Combo1_Click();
}

void SetupChannels::Combo5_Click() {
    if (loading) return;
    parts_.instruments.Combo5_Click();
    studio_.instruments.NoteInstrument = studio_.instruments.PercussionInstrument;
}

void SetupChannels::LblInst1_DblClick() {
    parts_.picker.showModal();
    const auto& in = studio_.instruments;
    if (!isPercussionInstrument(in.MelodyInstrument) && !in.MelodyInstrumentName.empty()) {
        parts_.output.send(message::programChange(in.MelodyInstrument, studio_.tracks.CurrentTrack));
        studio_.Form3.LblInst1.set(in.MelodyInstrumentName);
        parts_.instruments.Combo1_Click();
    }
    parts_.settings.ApplyChannelSettings();
}

void SetupChannels::LblInst2_DblClick() {
    parts_.picker.showModal();
    const auto& in = studio_.instruments;
    if (isPercussionInstrument(in.PercussionInstrument) && !in.PercussionInstrumentName.empty()) {
        parts_.output.send(message::programChange(in.PercussionInstrument, studio_.tracks.CurrentTrack));
        studio_.Form3.LblInst2.set(in.PercussionInstrumentName);
        parts_.instruments.Combo5_Click();
    }
    parts_.settings.ApplyChannelSettings();
}

void SetupChannels::listNames(NameTables& tables) {
    auto& operations = tables.operations;
    operations.add("Form3", "TrackSel_Click", this, &SetupChannels::TrackSel_Click);
    operations.add("Form3", "TrackSel_MouseDown", this, &SetupChannels::TrackSel_MouseDown);
    operations.add("Form3", "TrackHide_Click", this, &SetupChannels::TrackHide_Click);
    operations.add("Form3", "Combo1_Click", this, &SetupChannels::Combo1_Click);
    operations.add("Form3", "Combo5_Click", this, &SetupChannels::Combo5_Click);
    operations.add("Form3", "LblInst1_DblClick", this, &SetupChannels::LblInst1_DblClick);
    operations.add("Form3", "LblInst2_DblClick", this, &SetupChannels::LblInst2_DblClick);
    operations.add("Form3", "Command2_Click", this, &SetupChannels::LblInst1_DblClick);
    operations.add("Form3", "Command3_Click", this, &SetupChannels::LblInst2_DblClick);
}

}  // namespace melvane
