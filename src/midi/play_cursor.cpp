#include "midi/play_cursor.h"

#include <algorithm>

namespace melvane {

namespace {

/// One before the last column of the score.
int lastShownColumn(const Score& score) { return std::max(score.NumNotes, INT32_MIN + 1) - 1; }

}  // namespace

void PlayCursor::showInsertPosition(Clamp clamp) {
    auto& page = studio_.page;
    const int position = studio_.selection.InsertPosition;
    if (position > page.FirstColumn + page.PageColumns || position < page.FirstColumn) {
        assign(page.FirstColumn, position);
        assign(page.LastColumn, page.FirstColumn + page.PageColumns);
    }
    const int last = lastShownColumn(studio_.score);
    if (clamp == Clamp::columns) {
        if (page.FirstColumn > last) assign(page.FirstColumn, last);
        if (page.LastColumn > last) assign(page.LastColumn, last);
    } else if (page.FirstColumn > last - page.PageColumns) {
        assign(page.FirstColumn, last - page.PageColumns);
        assign(page.LastColumn, last);
    }
}

void PlayCursor::begin() {
    auto& page = studio_.page;
    surfaces_.GetColumn(page.FirstColumn);
    studio_.form1.HScroll1.set(page.FirstColumn + page.HalfPageColumns);
    studio_.player.PlayCursorValid = false;
    studio_.player.SkipCursorRestore = false;
    surfaces_.DrawNoteArray();
}

void PlayCursor::advance() {
    restoreUnderCursor();
    studio_.player.SkipCursorRestore = false;
    if (studio_.player.ShowPlayingPosition) moveCursor();
}

void PlayCursor::restoreUnderCursor() {
    auto& player = studio_.player;
    if (player.PlayCursorColumn < studio_.page.PageColumns && player.PlayCursorValid &&
        !player.SkipCursorRestore) {
        surfaces_.PutColumn(player.PlayCursorColumn);
    } else {
        player.PlayCursorValid = true;
    }
}

void PlayCursor::moveCursor() {
    auto& player = studio_.player;
    assign(player.PlayCursorColumn, player.PlayColumn - studio_.page.FirstColumn);
    if (player.PlayCursorColumn > studio_.page.PageColumns) turnPage();
    surfaces_.GetColumn(player.PlayCursorColumn);
    surfaces_.drawPlayCursor(player.PlayCursorColumn);
}

void PlayCursor::turnPage() {
    auto& page = studio_.page;
    const int last = lastShownColumn(studio_.score);
    const int first = studio_.player.PlayColumn;
    assign(page.FirstColumn, std::min(first, last));
    assign(page.LastColumn, std::min(first + page.PageColumns, last));
    studio_.player.PlayCursorColumn = 0;
    page.NoScrollRedraw = true;
    studio_.form1.HScroll1.set(page.FirstColumn + page.HalfPageColumns);
    page.NoScrollRedraw = false;
    surfaces_.DrawNoteArray();
    surfaces_.DrawBeatArray();
    studio_.player.SkipCursorRestore = false;
}

}  // namespace melvane
