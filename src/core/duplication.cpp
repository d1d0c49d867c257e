#include "core/duplication.h"

#include <algorithm>

#include "core/names.h"

namespace melvane {

void Duplication::takeToolbarChannels() {
    auto& values = studio_.duplicate;
    values.ToolbarFirstChannel = studio_.Form2.Check2.ticked() ? 0 : 8;
    values.ToolbarLastChannel = studio_.Form2.Check1.ticked() ? 12 : 7;
}

void Duplication::CopyNotes(int firstChannel, int lastChannel) {
    Command6_Click();
    // No column is selected by this: it makes room on the clipboard and leaves ClipLength at -1.
    studio_.selection.SelStart = 0;
    blocks_.CopySelectedArea();
    takePattern({firstChannel, lastChannel});
    DuplicateCycles(firstChannel, lastChannel);
    if (loop_.ended()) return;
    surfaces_.DrawNoteArray();
    surfaces_.DrawBeatArray();
    studio_.selection.InsertPosition = 0;
}

void Duplication::Command6_Click() {
    const int beats = studio_.duplicate.DuplicateBeats;
    assign(studio_.clipboard.ClipLength, beats - 1);
    eraseClipNotes(studio_);
    copyToClip(studio_, {0, beats - 1});
    mendClipStart(studio_);
    studio_.selection.SelStart = studio_.selection.SelEnd = -1;
    blocks_.PasteBut_Click();
    surfaces_.DrawNoteArray();
    surfaces_.DrawBeatArray();
}

/// One column wider than the motif, notes and instruments alone.
void Duplication::takePattern(TrackRange channels) {
    auto& selection = studio_.selection;
    const Int16 beats = studio_.duplicate.DuplicateBeats;
    studio_.clipboard.ClipLength = beats;
    eraseClipNotes(studio_);
    copyCellsToClip(studio_, {0, beats}, channels, noteGridPairs);
    mendClipStart(studio_, channels);
    selection.SelStart = selection.SelEnd = -1;
}

void Duplication::DuplicateCycles(int firstChannel, int lastChannel) {
    const TrackRange channels{firstChannel, lastChannel};
    const int start = studio_.selection.InsertPosition;
    const int end = start + studio_.duplicate.DuplicateNotes;
    const int step = studio_.duplicate.DuplicateRepeat;
    if (step == 0 && start <= end) return layUntilStopped(start, channels);
    // Copies that walk to the left never come to the end; they are over when they have left the score.
    const auto reachesScore = [&](int first) { return first + studio_.clipboard.ClipLength + 1 >= 0; };
    for (int first = start; first <= end && (step > 0 || reachesScore(first)); first += step)
        layCopy(first, channels);
}

void Duplication::layCopy(int first, TrackRange channels) {
    const int end = lastScoreColumn(studio_);
    const int last = std::min(first + studio_.clipboard.ClipLength, end);
    for (const int track : editedTracks(studio_, channels)) {
        for (const auto& [score, clip, blank] : noteGridPairs)
            copyColumns(studio_.clipboard.*clip, track, studio_.score.*score, track, {first, last}, -first);
    }
    if (last < end) mendNotes(studio_, last + 1, channels);
}

void Duplication::layUntilStopped(int first, TrackRange channels) {
    auto& stopPressed = studio_.player.StopPressed;
    auto& status = studio_.form1.StatusText;
    stopPressed = false;
    status.set("Every copy comes to the same place. Press stop to end this.");
    loop_.waitFor([&] {
        layCopy(first, channels);
        return stopPressed;
    });
    if (!loop_.ended()) status.set({});
}

void Duplication::listNames(NameTables& tables) {
    auto& operations = tables.operations;
    operations.add("form1", "CopyNotes", this, &Duplication::CopyNotes);
    operations.add("form1", "Command6_Click", this, &Duplication::Command6_Click);
    operations.add("form1", "DuplicateCycles", this, &Duplication::DuplicateCycles);
    tables.state.add("DuplicateNotes", studio_.duplicate.DuplicateNotes);
    tables.state.add("DuplicateRepeat", studio_.duplicate.DuplicateRepeat);
    tables.state.add("DuplicateBeats", studio_.duplicate.DuplicateBeats);
    tables.state.add("ToolbarFirstChannel", studio_.duplicate.ToolbarFirstChannel);
    tables.state.add("ToolbarLastChannel", studio_.duplicate.ToolbarLastChannel);
}

}  // namespace melvane
