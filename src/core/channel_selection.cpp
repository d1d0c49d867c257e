#include "core/channel_selection.h"

#include "core/names.h"
#include "core/setup_channel.h"
#include "core/tested_note.h"

namespace melvane {

namespace {

constexpr int noSuchLabel = 9;

bool isTrack(int index) { return index >= 0 && index <= lastTrackNumber; }
bool hasLabel(int index) { return isTrack(index) && index != noSuchLabel; }

}  // namespace

void ChannelSelection::setUpLabels() {
    for (int track = 0; track <= lastTrackNumber; ++track) {
        if (!hasLabel(track)) continue;
        auto& label = studio_.form1.Label8[static_cast<std::size_t>(track)];
        label.set(std::to_string(shownTrackNumber(track)));
        label.setBackColour(studio_.tracks.TrackColor[static_cast<std::size_t>(track)]);
        showTip(track);
    }
}

void ChannelSelection::Label8_Click(int index) {
    if (!hasLabel(index)) return;
    const auto at = static_cast<std::size_t>(index);
    auto& main = studio_.form1;
    if (!isMelodyTrack(index)) main.Beatbox.setVisible(true);
    main.LblTrk.setBackColour(main.Label8[at].backColour());
    studio_.tracks.CurrentTrack = static_cast<Int16>(index);
    studio_.tracks.TrackActive[at] = true;
    main.LblTrk.set(std::to_string(shownTrackNumber(index)));
    TrackSel_Click(index);
    // The test note may have let another label be clicked.
    bringSetupToolbarTo(studio_, studio_.tracks.CurrentTrack);
    if (!isMelodyTrack(studio_.tracks.CurrentTrack)) main.Beatbox.setVisible(true);
    draw();
}

void ChannelSelection::draw() {
    surfaces_.DrawSelectorGrid();
    surfaces_.DrawBarStrip();
    surfaces_.DrawPolyStrip();
    surfaces_.DrawNoteArray();
    if (studio_.score.UsedTrackCount > 7) surfaces_.DrawBeatArray();
    showTestedNote(studio_);
}

void ChannelSelection::showCurrentTrack() {
    const int track = studio_.tracks.CurrentTrack;
    if (!isTrack(track)) return;
    auto& shown = studio_.form1.LblTrk;
    shown.setBackColour(studio_.tracks.TrackColor[static_cast<std::size_t>(track)]);
    shown.set(std::to_string(shownTrackNumber(track)));
    draw();
}

void ChannelSelection::Label8_MouseMove(int index, int, int, double, double) {
    if (hasLabel(index)) showTip(index);
}

void ChannelSelection::showTip(int index) {
    const int shown = index < 9 ? index + 1 : index;
    studio_.form1.Label8[static_cast<std::size_t>(index)].setTip("Click to change to Channel " +
                                                                 std::to_string(shown));
}

void ChannelSelection::TrackSel_Click(int index) {
    if (!isTrack(index)) return;
    auto& tracks = studio_.tracks;
    auto& score = studio_.score;
    tracks.CurrentTrack = static_cast<Int16>(index);
    tracks.TrackActive[static_cast<std::size_t>(index)] = true;
    if (isMelodyTrack(index) && index > score.UsedTrackCount)
        score.UsedTrackCount = static_cast<Int16>(index);
    if (const Int16 channel = percussionChannel(index); channel > 0) score.PercussionCount = channel;
    tracks.LastTrack = static_cast<Int16>(index);
    tracks.CurrentTrackColor = tracks.TrackColor[static_cast<std::size_t>(index)];
    tracks.ChannelNumber = index + 1;
    instruments_.Command9_Click();
}

void ChannelSelection::listNames(NameTables& tables) {
    tables.operations.add("form1", "Label8_Click", this, &ChannelSelection::Label8_Click);
    tables.operations.add("form1", "Label8_MouseMove", this, &ChannelSelection::Label8_MouseMove);
    tables.operations.add("form1", "TrackSel_Click", this, &ChannelSelection::TrackSel_Click);
}

}  // namespace melvane
