#include "core/block_editing.h"

#include <algorithm>

#include "core/clip_blocks.h"
#include "core/names.h"
#include "core/song_walk.h"

namespace melvane {

namespace {

/// Beyond it no note is mended behind a block, however long the score is.
constexpr int mendLimit = 1000;
/// More columns than any score has.
constexpr int farAway = 1'000'000;

}  // namespace

void BlockEditing::copyIt() {
    if (studio_.selection.SelStart < 0) return;
    CopySelectedArea();
    forgetSelection();
    draw();
}

void BlockEditing::CopySelectedArea() {
    const auto& selection = studio_.selection;
    assign(studio_.clipboard.ClipLength, selection.SelEnd - selection.SelStart);
    eraseClipNotes(studio_);
    resizeClipValues(studio_);
    copyToClip(studio_, {selection.SelStart, selection.SelEnd});
    mendClipStart(studio_);
}

void BlockEditing::CutBut_Click() {
    const auto& selection = studio_.selection;
    const int width = selection.SelEnd - selection.SelStart + 1;
    if (selection.SelStart < 0 || width < 1) return;
    CopySelectedArea();
    closeGap(width);
    mendNotes(studio_, selection.SelStart);
    clearEnd(width);
    forgetSelection();
    draw();
}

void BlockEditing::closeGap(int width) {
    const Columns left{studio_.selection.SelStart, lastScoreColumn(studio_) - width};
    for (const int track : editedTracks(studio_)) {
        for (const auto& pair : gridPairs) {
            Grid& grid = studio_.score.*pair.score;
            copyColumns(grid, track, grid, track, left, width);
        }
    }
}

void BlockEditing::clearEnd(int width) {
    const int last = lastScoreColumn(studio_);
    for (const int track : visibleTracks(studio_)) {
        for (const auto& pair : noteGridPairs)
            fillColumns(studio_.score.*pair.score, track, {last + 1 - width, last}, pair.blank);
    }
}

void BlockEditing::PasteBut_Click() {
    const int first = studio_.selection.InsertPosition;
    const int last = std::min(first + studio_.clipboard.ClipLength, lastScoreColumn(studio_));
    pasteCells(first, last);
    if (last < mendLimit) mendNotes(studio_, last + 1);
    draw();
}

/// All tracks take the clip's own rows, those that were not copied too: their notes read as 0, which is a
/// note on row 0.
void BlockEditing::pasteCells(int first, int last) {
    const bool oneTrack = studio_.selection.CopyonlyOneTrack;
    for (const int track : editedTracks(studio_)) {
        const int source = oneTrack ? studio_.clipboard.ClipTrack : track;
        for (const auto& [score, clip, blank] : gridPairs)
            copyColumns(studio_.clipboard.*clip, source, studio_.score.*score, track, {first, last}, -first);
    }
}

void BlockEditing::PasteIntoBut_Click() {
    InsertSpaces(studio_.clipboard.ClipLength + 1);
    PasteBut_Click();
}

void BlockEditing::ReverseSelection() {
    const auto& selection = studio_.selection;
    const bool selected = selection.SelStart >= 0;
    if (!selected) findSongEnd(studio_);
    const Columns columns =
        selected ? Columns{selection.SelStart, selection.SelEnd} : Columns{0, studio_.player.SongEndColumn};
    for (const int track : visibleTracks(studio_))
        mirrorColumns(studio_.score.NoteArray, studio_.score.InstArray, track, columns);
    if (selected && columns.last < mendLimit) mendNotes(studio_, columns.last + 1);
    surfaces_.DrawNoteArray();
}

void BlockEditing::InsertSpaces(int count) {
    const int gap = studio_.selection.InsertPosition;
    count = std::clamp(count, -farAway, farAway);
    if (count != 0) moveTail(count);
    for (const int track : editedTracks(studio_)) {
        for (const auto& pair : gridPairs)
            fillColumns(studio_.score.*pair.score, track, {gap, gap + count - 1}, pair.blank);
    }
    mendNotes(studio_, gap + count);
}

/// From the end of the score down to the gap. A negative count moves to the left in the same order, over what
/// it has moved before.
void BlockEditing::moveTail(int count) {
    auto& score = studio_.score;
    const Columns moved{studio_.selection.InsertPosition + count, lastScoreColumn(studio_)};
    for (const int track : editedTracks(studio_)) {
        for (const auto& pair : gridPairs) {
            Grid& grid = score.*pair.score;
            if (pair.score == &Score::PolyArray)
                copyColumns(studio_.clipboard.ClipPolyArray, track, grid, track, moved, -count);
            else if (count > 0)
                copyColumns(grid, track, grid, track, moved, -count);
            else
                repeatColumnsBackwards(grid, track, moved, -count);
        }
    }
}

void BlockEditing::InsertColumnBut_Click() {
    Int16 count = 0;
    if (assign(count, leadingNumber(studio_.Form2.Text1.text()))) InsertSpaces(count);
    draw();
}

void BlockEditing::forgetSelection() { studio_.selection.SelStart = studio_.selection.SelEnd = -1; }

void BlockEditing::draw() {
    surfaces_.DrawNoteArray();
    surfaces_.DrawBeatArray();
}

void BlockEditing::listNames(NameTables& tables) {
    auto& operations = tables.operations;
    operations.add("form1", "copyIt", this, &BlockEditing::copyIt);
    operations.add("form1", "CopySelectedArea", this, &BlockEditing::CopySelectedArea);
    operations.add("form1", "CutBut_Click", this, &BlockEditing::CutBut_Click);
    operations.add("form1", "PasteBut_Click", this, &BlockEditing::PasteBut_Click);
    operations.add("form1", "PasteIntoBut_Click", this, &BlockEditing::PasteIntoBut_Click);
    operations.add("form1", "ReverseSelection", this, &BlockEditing::ReverseSelection);
    operations.add("form1", "InsertSpaces", this, &BlockEditing::InsertSpaces);
    operations.add("form1", "InsertColumnBut_Click", this, &BlockEditing::InsertColumnBut_Click);
}

}  // namespace melvane
