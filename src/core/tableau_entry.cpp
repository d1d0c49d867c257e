#include "core/tableau_entry.h"

#include <algorithm>

#include "core/drag.h"
#include "core/instrument_names.h"
#include "core/mouse_buttons.h"
#include "core/names.h"
#include "core/note_writer.h"
#include "core/setup_channel.h"

namespace melvane {

namespace {

constexpr int firstPercussionTrack = 8;
constexpr int tallestTableau = 10000;  // pixels

int tableauRow(double Y) { return cellAt(Y, Page::tableauRow); }

}  // namespace

void TableauEntry::Beatbox_GotFocus() {
    studio_.form1.MusicBox.setTip({});
    if (!isMelodyTrack(track())) return;
    parts_.channels.Label8_Click(firstPercussionTrack);
    bringSetupToolbarTo(studio_, firstPercussionTrack);
}

void TableauEntry::MusicBox_GotFocus() {
    if (isMelodyTrack(track())) return;
    parts_.channels.Label8_Click(0);
    bringSetupToolbarTo(studio_, 0);
}

void TableauEntry::Beatbox_MouseDown(int button, int, double X, double Y) {
    if (!takeInstrument() || studio_.player.Playing) return;
    auto& drag = studio_.drag;
    drag.MouseIsDown = true;
    assign(drag.DragColumn, pageColumn(X));
    assign(drag.DragRow, tableauRow(Y));
    assign(studio_.sounds.NoteColumn, column());
    const int mode = studio_.selection.EditMode;
    if (mode == edit_mode::draw && button == mouse::right && !studio_.form1.Check4.ticked()) pressRight();
    if (mode == edit_mode::draw && button == mouse::left) startBeat();
    if (mode == edit_mode::position) parts_.selecting.placeOnTableau();
    if (mode == edit_mode::select) pressInSelectMode(button);
}

/// Makes a percussion track current and gives it the instrument in hand; false when that is no percussion.
bool TableauEntry::takeInstrument() {
    auto& tracks = studio_.tracks;
    if (isMelodyTrack(track())) {
        tracks.CurrentTrack = firstPercussionTrack;
        tracks.TrackActive[firstPercussionTrack] = true;
        tracks.CurrentTrackColor = tracks.TrackColor[firstPercussionTrack];
        parts_.instruments.Combo5_Click();
        bringSetupToolbarTo(studio_, firstPercussionTrack);
    }
    const auto at = static_cast<std::size_t>(track());
    tracks.TrackIsPercussion[at] = true;
    tracks.TrackInstrument[at] = studio_.instruments.PercussionInstrument;
    studio_.form1.LblTrk.set(std::to_string(std::max(shownTrackNumber(track()), 9)));
    return isPercussionInstrument(studio_.instruments.PercussionInstrument);
}

/// The chord mode of the right button has no meaning here: it erases as well.
void TableauEntry::pressRight() {
    if (studio_.selection.RightClickMode == right_click::menu) {
        openMenuOrGoOn(openMenu, {});
    } else if (!cell::isEmpty(studio_.score.noteCell(track(), column()))) {
        eraseBeat(column());
    }
}

void TableauEntry::eraseBeat(int from) {
    auto& score = studio_.score;
    int at = startOfNote(score, track(), from);
    do {
        score.NoteArray.set(track(), at, cell::empty);
        score.InstArray.set(track(), at, 0);
        ++at;
    } while (at <= score.NumNotes && cell::isContinuation(score.noteCell(track(), at)));
    parts_.surfaces.DrawBeatArray();
}

void TableauEntry::startBeat() {
    auto& drag = studio_.drag;
    auto& score = studio_.score;
    auto& tracks = studio_.tracks;
    tracks.LastTrack = tracks.CurrentTrack;
    const int velocity = score.VolumeArray.get(track(), drag.DragColumn, fullVelocity);
    tracks.TrackVolume[static_cast<std::size_t>(track())] =
        static_cast<Int16>(velocity >= 1 ? velocity : fullVelocity);
    if (!studio_.isHidden(track())) parts_.sounder.StartNoteBtnDn(studio_.page.FirstRow + drag.DragRow);
    drag.PressColumn = drag.DragColumn;
    if (studio_.form1.Check4.ticked()) return;
    tracks.TrackIsPercussion[static_cast<std::size_t>(track())] = true;
    drag.DragStartColumn = drag.DragColumn;
    parts_.surfaces.drawHead(Area::tableau, drag.DragColumn, drag.DragRow);
    score.UsedTrackCount = std::max(score.UsedTrackCount, tracks.CurrentTrack);
    if (const Int16 channel = percussionChannel(track()); channel > 0) score.PercussionCount = channel;
}

void TableauEntry::pressInSelectMode(int button) {
    if (button == mouse::right) parts_.selecting.clearOnTableau();
    if (button == mouse::left) parts_.selecting.pressOnTableau();
}

void TableauEntry::Beatbox_MouseMove(int button, int shift, double X, double Y) {
    const bool left = (button & mouse::left) != 0, right = (button & mouse::right) != 0;
    const int mode = studio_.selection.EditMode;
    noteColumnUnderMouse(studio_, X);
    if (button == 0) return showTip(X);
    if (studio_.player.Playing || !studio_.drag.MouseIsDown) return;
    if (mode == edit_mode::draw && left) {
        dragBeat(X);
    } else if (mode == edit_mode::select && left) {
        parts_.selecting.dragOnTableau(X);
    } else if (right && !(mode == edit_mode::draw && studio_.selection.RightClickMode == right_click::menu)) {
        Beatbox_MouseDown(mouse::right, shift, X, Y);
    }
}

void TableauEntry::showTip(double X) {
    const int at = studio_.page.FirstColumn + pageColumn(X);
    const bool empty = isMelodyTrack(track()) || cell::isEmpty(studio_.score.noteCell(track(), at));
    studio_.form1.Beatbox.setTip(
        empty ? std::string() : std::string(instrumentName(studio_.score.InstArray.get(track(), at, -1))));
}

void TableauEntry::dragBeat(double X) {
    parts_.surfaces.setPointer(Area::tableau, DrawingPointer::pencil);
    if (!takeDragEnd(studio_, X)) return;
    const auto& drag = studio_.drag;
    parts_.surfaces.drawDraggedNote(Area::tableau, drag.DragColumn, drag.DragEndColumn, drag.DragRow);
}

void TableauEntry::Beatbox_MouseUp(int button, int, double X, double Y) {
    noteColumnUnderMouse(studio_, X);
    parts_.surfaces.setPointer(Area::tableau, DrawingPointer::upArrow);
    if (isMelodyTrack(track()) || studio_.player.Playing) return;
    if (button == mouse::right) enlarge(Y);
    if (!studio_.drag.MouseIsDown) return;
    studio_.drag.MouseIsDown = false;
    const bool test = studio_.form1.Check4.ticked();
    if (test) parts_.sounder.reset();
    if (button != mouse::left) return;
    if (studio_.selection.EditMode == edit_mode::draw && !test) finishBeat(X);
    // The press has begun a selection whether or not notes are only tested.
    if (studio_.selection.EditMode == edit_mode::select) parts_.selecting.releaseOnTableau(X);
}

/// The only way to make room for more rows.
void TableauEntry::enlarge(double Y) {
    const auto height = narrowed<int>(Y + Page::tableauRow);
    if (height && *height > 0 && *height < tallestTableau) studio_.form1.Beatbox.setHeight(*height);
    parts_.surfaces.DrawBeatArray();
}

void TableauEntry::finishBeat(double X) {
    auto& drag = studio_.drag;
    const int first = studio_.page.FirstColumn;
    assign(drag.DragColumn, std::min<int>(pageColumn(X), studio_.page.PageColumns));
    studio_.tracks.LastTrack = studio_.tracks.CurrentTrack;
    const int row = studio_.page.FirstRow + drag.DragRow;
    parts_.sounder.StopNoteBtnUp(row);
    drag.DragColumn = std::max(drag.DragColumn, drag.DragStartColumn);
    const bool written = writeNote(studio_, first + drag.DragStartColumn, first + drag.DragColumn, row);
    parts_.audition.StopColumnNotes();
    parts_.sounder.reset();
    if (written) cutNoteBehind(studio_, first + drag.DragColumn);
    parts_.surfaces.DrawBeatArray();
    parts_.surfaces.DrawNoteArray();
}

void TableauEntry::listNames(NameTables& tables) {
    auto& operations = tables.operations;
    operations.add("form1", "Beatbox_GotFocus", this, &TableauEntry::Beatbox_GotFocus);
    operations.add("form1", "MusicBox_GotFocus", this, &TableauEntry::MusicBox_GotFocus);
    operations.add("form1", "Beatbox_MouseDown", this, &TableauEntry::Beatbox_MouseDown);
    operations.add("form1", "Beatbox_MouseMove", this, &TableauEntry::Beatbox_MouseMove);
    operations.add("form1", "Beatbox_MouseUp", this, &TableauEntry::Beatbox_MouseUp);
}

}  // namespace melvane
