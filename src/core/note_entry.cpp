#include "core/note_entry.h"

#include <algorithm>

#include "core/drag.h"
#include "core/instrument_names.h"
#include "core/mouse_buttons.h"
#include "core/names.h"
#include "core/note_writer.h"
#include "core/setup_channel.h"
#include "core/tested_note.h"

namespace melvane {

namespace {

constexpr int nextPage = 5;           // columns
constexpr double farthestMark = 1e6;  // pixels

}  // namespace

// The press

void NoteEntry::MusicBox_MouseDown(int button, int, double X, double Y) {
    if (!isMelodyTrack(track())) takeFocusBack();
    if (studio_.player.Playing) return;
    parts_.surfaces.setPointer(Area::tablet, DrawingPointer::upArrow);
    studio_.drag.MouseIsDown = true;
    pressX_ = X;
    pressY_ = Y;
    setDragCell(X, Y);
    if (studio_.form1.Check4.ticked()) return testSound();
    switch (studio_.selection.EditMode) {
        case edit_mode::draw:
            return pressInDrawMode(button);
        case edit_mode::position:
        case edit_mode::select:
            return pressTool(button);
        default:
            return;
    }
}

void NoteEntry::takeFocusBack() {
    studio_.tracks.CurrentTrack = 0;
    studio_.tracks.CurrentTrackColor = studio_.tracks.TrackColor[0];
    parts_.instruments.Combo1_Click();
    bringSetupToolbarTo(studio_, 0);
}

void NoteEntry::setDragCell(double X, double Y) {
    auto& drag = studio_.drag;
    assign(drag.DragColumn, pageColumn(X));
    if (studio_.page.LineHeight > 0) assign(drag.DragRow, cellAt(Y, studio_.page.LineHeight));
    assign(studio_.sounds.NoteColumn, column());
}

void NoteEntry::pressInDrawMode(int button) {
    auto& selection = studio_.selection;
    selection.SelStart = selection.SelEnd = -1;
    selection.InsertPosition = 0;
    if (button == mouse::left) startNote();
    if (button == mouse::right) {
        pressRight();
        showTestedNote(studio_);
    }
}

/// The menu leaves the selection to the position tool, and takes it from the selecting one.
void NoteEntry::pressTool(int button) {
    const bool selects = studio_.selection.EditMode == edit_mode::select;
    auto& selecting = parts_.selecting;
    if (button == mouse::left) {
        selects ? selecting.pressOnTablet() : selecting.placeOnTablet();
    } else if (button == mouse::right) {
        menu([&selecting, selects] {
            if (selects) selecting.clearOnTablet();
        });
    }
}

/// The velocity is looked for at the page's column and taken from the score's.
void NoteEntry::startNote() {
    auto& drag = studio_.drag;
    auto& score = studio_.score;
    studio_.tracks.LastTrack = studio_.tracks.CurrentTrack;
    const bool stored = score.VolumeArray.get(track(), drag.DragColumn, fullVelocity) >= 1;
    const int velocity = stored ? score.VolumeArray.get(track(), column() + 1, fullVelocity) : fullVelocity;
    studio_.tracks.TrackVolume[static_cast<std::size_t>(track())] = static_cast<Int16>(velocity);
    const int row = studio_.page.FirstRow + drag.DragRow;
    if (!studio_.isHidden(track())) parts_.sounder.StartNoteBtnDn(row);
    parts_.surfaces.setPointer(Area::tablet, DrawingPointer::pencil);
    drag.PressColumn = drag.DragColumn;
    parts_.surfaces.GetRow(drag.DragRow);
    drag.DragStartColumn = drag.DragColumn;
    if (!isMelodyTrack(track())) return;
    parts_.surfaces.drawHead(Area::tablet, drag.DragColumn, drag.DragRow);
    if (track() >= score.UsedTrackCount) score.UsedTrackCount = static_cast<Int16>(track() + 1);
}

void NoteEntry::pressRight() {
    const int mode = studio_.selection.RightClickMode;
    if (mode == right_click::menu) return menu();
    auto& score = studio_.score;
    if (mode == right_click::chord && score.noteCell(track(), column()) > 0) setChordOfNote(column());
    if (cell::isEmpty(score.noteCell(track(), column())) && score.chordOf(track(), column()) <= 0) return;
    if (mode == right_click::chord) score.PolyArray.set(track() + 1, column(), chordIndex());
    walkToStart();
    if (studio_.form1.Check1.ticked())
        writePanel();
    else if (mode == right_click::erase)
        eraseNote();
}

void NoteEntry::setChordOfNote(int from) {
    auto& score = studio_.score;
    score.PolyArray.set(track() + 1, startOfNote(score, track(), from), chordIndex());
    score.TopPolyTrack = std::max(score.TopPolyTrack, studio_.tracks.CurrentTrack);
}

/// The columns left behind lose their chord and effects: the chord at the page's column, without FirstColumn,
/// the effects at the score's.
void NoteEntry::walkToStart() {
    auto& score = studio_.score;
    while (cell::isContinuation(score.noteCell(track(), column()))) {
        score.PolyArray.set(track() + 1, studio_.drag.DragColumn, 0);
        resetEffects(score, track(), column() + 1);
        assign(studio_.drag.DragColumn, studio_.drag.DragColumn - 1);
        parts_.loop.Idle();
    }
}

void NoteEntry::eraseNote() {
    auto& score = studio_.score;
    const int start = column();
    resetEffects(score, track(), start + 1);
    int at = start;
    do {
        score.NoteArray.set(track(), at, cell::empty);
        score.InstArray.set(track(), at, 0);
        score.PolyArray.set(track() + 1, at, 0);
        ++at;
    } while (at <= score.NumNotes && cell::isContinuation(score.noteCell(track(), at)));
    parts_.surfaces.DrawNoteArray();
}

/// Writes the panel's values onto the note. The walk over its continuation counts FirstColumn twice for the
/// cells and their instruments, and once for the chords, so beyond the first page it misses the note.
void NoteEntry::writePanel() {
    auto& score = studio_.score;
    auto& drag = studio_.drag;
    const int start = column();
    const int instrument = studio_.instruments.NoteInstrument;
    const int row = cell::row(score.noteCell(track(), start));
    writePanelValues(studio_, start, instrument, studio_.tracks.LastTrack);
    assign(studio_.tracks.TrackVolume[static_cast<std::size_t>(track())],
           leadingNumber(studio_.form1.vol3.text()));
    score.PolyArray.set(track() + 1, start, chordIndex());
    const auto shifted = [&] { return drag.DragColumn + studio_.page.FirstColumn; };
    bool inside = assign(drag.DragColumn, start + 1);
    while (inside && drag.DragColumn <= score.NumNotes &&
           cell::isContinuation(score.noteCell(track(), shifted()))) {
        score.InstArray.set(track(), shifted(), instrument);
        score.PolyArray.set(track() + 1, drag.DragColumn, chordIndex());
        inside = assign(drag.DragColumn, drag.DragColumn + 1);
    }
    assign(drag.DragRow, row);
    parts_.sounder.ChangeInstrument(instrument, track());
    if (row >= 0) parts_.sounder.StartNote(row, track());
}

/// Sounds what stands at the page's column, without FirstColumn; a continuation of the top row counts as row
/// 1000.
void NoteEntry::testSound() {
    auto& drag = studio_.drag;
    int value = studio_.score.noteCell(track(), drag.DragColumn);
    if (value > cell::continuation) value -= cell::continuation;
    assign(drag.DragRow, value);
    const bool effects = studio_.form1.Check1.ticked();
    if (effects) parts_.sounder.ChangeInstrument(studio_.instruments.NoteInstrument, track());
    if (!cell::isEmpty(value)) parts_.sounder.StartNote(value, track());
    if (effects) parts_.sounder.ChangeInstrument(studio_.instruments.MelodyInstrument, track());
}

// The drag

void NoteEntry::MusicBox_MouseMove(int button, int shift, double X, double Y) {
    noteColumnUnderMouse(studio_, X);
    if (studio_.form1.Check4.ticked() || moveInMargin(button, X, Y)) return;
    showTip(X);
    if (button != 0 && (studio_.player.Playing || !studio_.drag.MouseIsDown)) return;
    const int mode = studio_.selection.EditMode;
    const bool left = (button & mouse::left) != 0, right = (button & mouse::right) != 0;
    if (mode == edit_mode::select && left) {
        parts_.selecting.dragOnTablet(X);
    } else if (mode == edit_mode::draw && left) {
        dragNote(X);
    } else if (mode == edit_mode::draw && right && !studio_.form1.Check1.ticked() &&
               studio_.selection.RightClickMode != right_click::menu) {
        MusicBox_MouseDown(mouse::right, shift, X, Y);
    }
}

/// True when the move ends here.
bool NoteEntry::moveInMargin(int button, double X, double Y) {
    auto& tablet = studio_.form1.MusicBox;
    if (X <= tablet.width() - rightMargin || studio_.selection.EditMode != edit_mode::draw) return false;
    if ((button & mouse::left) != 0) {
        tablet.setTip("Scroll ahead ");
        MusicBox_MouseUp(mouse::left, 0, X, Y);
        scrollColumns(studio_, 1);
    } else if ((button & mouse::right) != 0) {
        tablet.setTip("Scroll to next page");
        scrollColumns(studio_, nextPage);
    }
    return true;
}

/// The cell is looked for at the page's column, the instrument at the score's: right on the first page only.
void NoteEntry::showTip(double X) {
    const int page = pageColumn(X);
    const int value = studio_.score.noteCell(track(), page);
    auto& tablet = studio_.form1.MusicBox;
    if (cell::isEmpty(value)) {
        tablet.setTip({});
    } else if (studio_.drag.DragRow > 0) {
        const int instrument = studio_.score.InstArray.get(track(), page + studio_.page.FirstColumn, -1);
        tablet.setTip(std::string(NoteName(value)) + " -  " + std::string(instrumentName(instrument)));
    }
}

void NoteEntry::dragNote(double X) {
    parts_.surfaces.setPointer(Area::tablet, DrawingPointer::pencil);
    if (!takeDragEnd(studio_, X)) return;
    const auto& drag = studio_.drag;
    parts_.surfaces.PutRow(drag.DragRow);
    parts_.surfaces.drawDraggedNote(Area::tablet, drag.DragColumn, drag.DragEndColumn, drag.DragRow);
    parts_.loop.Idle();
}

// The release

void NoteEntry::MusicBox_MouseUp(int button, int, double X, double Y) {
    noteColumnUnderMouse(studio_, X);
    if (!isMelodyTrack(track())) return;
    const bool test = studio_.form1.Check4.ticked();
    if (test) parts_.sounder.reset();
    if (studio_.form1.Check1.ticked()) parts_.sounder.reset();
    if (studio_.player.Playing) return;
    parts_.surfaces.setPointer(Area::tablet, DrawingPointer::upArrow);
    if (!studio_.drag.MouseIsDown) return;
    studio_.drag.MouseIsDown = false;
    if (test) return;
    if (studio_.selection.EditMode == edit_mode::draw)
        releaseInDrawMode(button, X, Y);
    else if (studio_.selection.EditMode == edit_mode::select && button == mouse::left)
        parts_.selecting.releaseOnTablet(X);
}

void NoteEntry::releaseInDrawMode(int button, double X, double Y) {
    auto& selection = studio_.selection;
    selection.SelStart = selection.SelEnd = -1;
    selection.InsertPosition = 0;
    assign(studio_.drag.DragColumn, pageColumn(X));
    if (button == mouse::right) parts_.surfaces.DrawPolyStrip();
    if (button == mouse::left) finishNote(X, Y);
}

void NoteEntry::finishNote(double X, double Y) {
    auto& drag = studio_.drag;
    const int first = studio_.page.FirstColumn;
    drag.DragColumn = std::min(drag.DragColumn, studio_.page.PageColumns);
    studio_.tracks.LastTrack = studio_.tracks.CurrentTrack;
    const int row = studio_.page.FirstRow + drag.DragRow;
    parts_.sounder.StopNoteBtnUp(row);
    drag.DragColumn = std::max(drag.DragColumn, drag.DragStartColumn);
    const bool written = writeNote(studio_, first + drag.DragStartColumn, first + drag.DragColumn, row);
    parts_.audition.StopColumnNotes();
    parts_.sounder.reset();
    if (written) cutNoteBehind(studio_, first + drag.DragColumn);
    parts_.surfaces.DrawNoteArray();
    if (studio_.Form5.window.visible()) markTestedNote(X);
    if (studio_.score.UsedTrackCount > 7) parts_.surfaces.DrawBeatArray();
    parts_.selector.Pic2a_MouseDown(mouse::left, 0, X, Y);
}

/// From the press to where the mouse let go, on the height of the press.
void NoteEntry::markTestedNote(double X) {
    const auto pixel = [](double at) {
        return static_cast<int>(std::clamp(at, -farthestMark, farthestMark));
    };
    parts_.surfaces.markTestedNote(pixel(pressX_ - 12), pixel(pressY_ - 10), pixel(X + 10),
                                   pixel(pressY_ + 12));
}

void NoteEntry::listNames(NameTables& tables) {
    auto& operations = tables.operations;
    operations.add("form1", "MusicBox_MouseDown", this, &NoteEntry::MusicBox_MouseDown);
    operations.add("form1", "MusicBox_MouseMove", this, &NoteEntry::MusicBox_MouseMove);
    operations.add("form1", "MusicBox_MouseUp", this, &NoteEntry::MusicBox_MouseUp);
}

}  // namespace melvane
