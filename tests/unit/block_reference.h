#pragma once
#include "core/studio.h"

/// The operations on blocks told cell by cell, one column and one grid after the other and as slow as that
/// is: what the program's own, which move whole stretches, are compared with.
namespace melvane::test {

class BlockReference {
 public:
    explicit BlockReference(Studio& studio) : studio_(studio) {}

    void copyIt() {
        if (selection().SelStart < 0) return;
        copySelectedArea();
        selection().SelStart = selection().SelEnd = -1;
    }
    void copySelectedArea();
    void cut();
    void paste();
    void pasteInto() {
        insertSpaces(clip().ClipLength + 1);
        paste();
    }
    void insertSpaces(int count);
    void reverse();
    void copyNotes(int first, int last);

 private:
    Score& score() { return studio_.score; }
    Clipboard& clip() { return studio_.clipboard; }
    Selection& selection() { return studio_.selection; }
    static void move(Grid& to, int toTrack, int column, const Grid& from, int fromTrack, int fromColumn) {
        if (const auto value = from.find(fromTrack, fromColumn)) to.set(toTrack, column, *value);
    }
    bool edited(int track) {
        if (track < 0 || track > lastTrackNumber || studio_.isHidden(track)) return false;
        return !selection().CopyonlyOneTrack || track == studio_.tracks.CurrentTrack;
    }
    void mend(Grid& notes, int track, int column) {
        const int value = notes.get(track, column, -1);
        if (value >= 1000) notes.set(track, column, value - 1000);
    }
    void mendShown(int column, int first = 0, int last = lastTrackNumber) {
        for (int t = first; t <= last; ++t)
            if (!studio_.isHidden(t)) mend(score().NoteArray, t, column);
    }
    void moveAll(int track, int column, int from);
    void toClip(int track, int offset, int column);
    void fromClip(int track, int column, int source, int offset);
    void eraseClip();
    void song();

    Studio& studio_;
};

inline void BlockReference::moveAll(int t, int c, int from) {
    auto& s = score();
    move(s.NoteArray, t, c, s.NoteArray, t, from);
    move(s.InstArray, t, c, s.InstArray, t, from);
    move(s.PolyArray, t, c, s.PolyArray, t, from);
    move(s.VolumeArray, t, c, s.VolumeArray, t, from);
    move(s.ModArray, t, c, s.ModArray, t, from);
    move(s.PanArray, t, c, s.PanArray, t, from);
    move(s.ReverbArray, t, c, s.ReverbArray, t, from);
    move(s.ChorusArray, t, c, s.ChorusArray, t, from);
}

inline void BlockReference::toClip(int t, int offset, int c) {
    auto& s = score();
    auto& k = clip();
    move(k.ClipNoteArray, t, offset, s.NoteArray, t, c);
    move(k.ClipInstArray, t, offset, s.InstArray, t, c);
    move(k.ClipPolyArray, t, offset, s.PolyArray, t, c);
    move(k.ClipVolumeArray, t, offset, s.VolumeArray, t, c);
    move(k.ClipModArray, t, offset, s.ModArray, t, c);
    move(k.ClipPanArray, t, offset, s.PanArray, t, c);
    move(k.ClipReverbArray, t, offset, s.ReverbArray, t, c);
    move(k.ClipChorusArray, t, offset, s.ChorusArray, t, c);
}

inline void BlockReference::fromClip(int t, int c, int source, int offset) {
    auto& s = score();
    auto& k = clip();
    move(s.NoteArray, t, c, k.ClipNoteArray, source, offset);
    move(s.InstArray, t, c, k.ClipInstArray, source, offset);
    move(s.PolyArray, t, c, k.ClipPolyArray, source, offset);
    move(s.VolumeArray, t, c, k.ClipVolumeArray, source, offset);
    move(s.ModArray, t, c, k.ClipModArray, source, offset);
    move(s.PanArray, t, c, k.ClipPanArray, source, offset);
    move(s.ReverbArray, t, c, k.ClipReverbArray, source, offset);
    move(s.ChorusArray, t, c, k.ClipChorusArray, source, offset);
}

inline void BlockReference::eraseClip() {
    for (Grid* grid : {&clip().ClipNoteArray, &clip().ClipInstArray}) {
        for (int t = 0; t < Grid::tracks; ++t) grid->fillTrack(t, 0, grid->lastColumn());
        grid->resize(score().NumNotes);
    }
}

inline void BlockReference::copySelectedArea() {
    const int from = selection().SelStart, to = selection().SelEnd;
    assign(clip().ClipLength, to - from);
    eraseClip();
    for (Grid* grid : {&clip().ClipPolyArray, &clip().ClipVolumeArray, &clip().ClipModArray,
                       &clip().ClipPanArray, &clip().ClipReverbArray, &clip().ClipChorusArray})
        grid->resize(score().NumNotes);
    for (int c = from; c <= to; ++c) {
        if (selection().CopyonlyOneTrack) clip().ClipTrack = studio_.tracks.CurrentTrack;
        for (int t = 0; t <= lastTrackNumber; ++t)
            if (edited(t)) toClip(t, c - from, c);
    }
    for (int t = 0; t <= lastTrackNumber; ++t) mend(clip().ClipNoteArray, t, 0);
}

inline void BlockReference::cut() {
    const int from = selection().SelStart, width = selection().SelEnd - from + 1;
    if (from < 0 || width <= 0) return;
    copySelectedArea();
    const int last = score().NumNotes;
    for (int c = from; c <= last - width; ++c)
        for (int t = 0; t <= lastTrackNumber; ++t)
            if (edited(t)) moveAll(t, c, c + width);
    mendShown(from);
    for (int c = last + 1 - width; c <= last; ++c) {
        for (int t = 0; t <= lastTrackNumber; ++t) {
            if (studio_.isHidden(t)) continue;
            score().NoteArray.set(t, c, -1);
            score().InstArray.set(t, c, 0);
        }
    }
    selection().SelStart = selection().SelEnd = -1;
}

inline void BlockReference::paste() {
    const int first = selection().InsertPosition;
    int end = first + clip().ClipLength;
    if (end > score().NumNotes) end = score().NumNotes;
    for (int c = first; c <= end; ++c)
        for (int t = 0; t <= lastTrackNumber; ++t)
            if (edited(t)) fromClip(t, c, selection().CopyonlyOneTrack ? clip().ClipTrack : t, c - first);
    if (end < 1000) mendShown(end + 1);
}

inline void BlockReference::insertSpaces(int n) {
    auto& s = score();
    const int first = selection().InsertPosition;
    for (int c = s.NumNotes; n != 0 && c >= first + n; --c) {
        for (int t = 0; t <= lastTrackNumber; ++t) {
            if (!edited(t)) continue;
            move(s.NoteArray, t, c, s.NoteArray, t, c - n);
            move(s.InstArray, t, c, s.InstArray, t, c - n);
            move(s.PolyArray, t, c, clip().ClipPolyArray, t, c - n);
            move(s.VolumeArray, t, c, s.VolumeArray, t, c - n);
            move(s.ModArray, t, c, s.ModArray, t, c - n);
            move(s.PanArray, t, c, s.PanArray, t, c - n);
            move(s.ReverbArray, t, c, s.ReverbArray, t, c - n);
            move(s.ChorusArray, t, c, s.ChorusArray, t, c - n);
        }
    }
    for (int c = first; c <= first + n - 1; ++c) {
        for (int t = 0; t <= lastTrackNumber; ++t) {
            if (!edited(t)) continue;
            s.NoteArray.set(t, c, -1);
            s.InstArray.set(t, c, 0);
            s.PolyArray.set(t, c, 0);
            s.VolumeArray.set(t, c, 127);
            s.ModArray.set(t, c, 0);
            s.PanArray.set(t, c, 64);
            s.ReverbArray.set(t, c, 0);
            s.ChorusArray.set(t, c, 0);
        }
    }
    mendShown(first + n);
}

inline void BlockReference::song() {
    Int16& end = studio_.player.SongEndColumn;
    end = 0;
    for (int t = 0; t <= lastTrackNumber; ++t) {
        if (studio_.isHidden(t)) continue;
        int c = score().NumNotes;
        while (c >= 0 && score().noteCell(t, c) < 0) --c;
        if (c > end) end = static_cast<Int16>(c + 1);
    }
}

inline void BlockReference::reverse() {
    const bool selected = selection().SelStart > -1;
    if (!selected) song();
    const int from = selected ? selection().SelStart : 0;
    const int to = selected ? selection().SelEnd : studio_.player.SongEndColumn;
    const int size = score().NumNotes + 1;
    for (int t = 0; t <= lastTrackNumber; ++t) {
        if (studio_.isHidden(t)) continue;
        std::vector<std::optional<std::int16_t>> notes(static_cast<std::size_t>(size)), sounds = notes;
        for (int c = to; c >= from; --c) {
            const auto note = score().NoteArray.find(t, c);
            if (!note || c >= size) continue;
            notes[static_cast<std::size_t>(c)] = static_cast<std::int16_t>(*note < 0 ? -1 : *note % 1000);
            sounds[static_cast<std::size_t>(c)] = score().InstArray.find(t, c);
        }
        for (int c = from; c <= to; ++c) {
            const int mirrored = from + to - c;
            if (mirrored < 0 || mirrored >= size || !notes[static_cast<std::size_t>(mirrored)]) continue;
            score().NoteArray.set(t, c, *notes[static_cast<std::size_t>(mirrored)]);
            score().InstArray.set(t, c, *sounds[static_cast<std::size_t>(mirrored)]);
        }
    }
    if (selected && to < 1000) mendShown(to + 1);
}

inline void BlockReference::copyNotes(int first, int last) {
    const int beats = studio_.duplicate.DuplicateBeats;
    assign(clip().ClipLength, beats - 1);
    eraseClip();
    for (int c = 0; c < beats; ++c) {
        if (selection().CopyonlyOneTrack) clip().ClipTrack = studio_.tracks.CurrentTrack;
        for (int t = 0; t <= lastTrackNumber; ++t)
            if (edited(t)) toClip(t, c, c);
    }
    for (int t = 0; t <= lastTrackNumber; ++t) mend(clip().ClipNoteArray, t, 0);
    selection().SelStart = selection().SelEnd = -1;
    paste();
    selection().SelStart = 0;
    copySelectedArea();
    selection().SelEnd = clip().ClipLength = static_cast<Int16>(beats);
    eraseClip();
    const auto inHand = [&](int t) {
        return edited(t) && (selection().CopyonlyOneTrack || (t >= first && t <= last));
    };
    for (int c = 0; c <= beats; ++c) {
        for (int t = 0; t <= lastTrackNumber; ++t) {
            if (!inHand(t)) continue;
            move(clip().ClipNoteArray, t, c, score().NoteArray, t, c);
            move(clip().ClipInstArray, t, c, score().InstArray, t, c);
        }
    }
    for (int t = first; t <= last; ++t) mend(clip().ClipNoteArray, t, 0);
    selection().SelStart = selection().SelEnd = -1;
    const int begin = selection().InsertPosition;
    for (int p = begin; p <= begin + studio_.duplicate.DuplicateNotes;
         p += studio_.duplicate.DuplicateRepeat) {
        int end = p + clip().ClipLength;
        if (end > score().NumNotes) end = score().NumNotes;
        for (int c = p; c <= end; ++c) {
            for (int t = 0; t <= lastTrackNumber; ++t) {
                if (!inHand(t)) continue;
                move(score().NoteArray, t, c, clip().ClipNoteArray, t, c - p);
                move(score().InstArray, t, c, clip().ClipInstArray, t, c - p);
            }
        }
        if (end < score().NumNotes) mendShown(end + 1, first, last);
    }
    selection().InsertPosition = 0;
}

}  // namespace melvane::test
