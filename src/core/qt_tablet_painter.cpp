#include "core/qt_tablet_painter.h"

#include <algorithm>

#include "core/qt_column_lines.h"
#include "core/shown_notes.h"

namespace melvane {

/// What each step of a repaint needs.
struct TabletPainter::Sheet {
    PixelPainter& pixels;
    const Studio& studio;
    int width, height;

    void clear() const { pixels.box(0, 0, width - 1, height - 1, surface_colours::paper); }
    void paintSharpGuides() const;
    void paintBars() const;
    void paintStaff() const;
    void paintSelection() const;
    void paintInsertion() const;
};

namespace {

constexpr int columnWidth = Page::columnWidth;
constexpr int insertionWidth = 3;

}  // namespace

void TabletPainter::paint(QPainter& painter, const Studio& studio, QSize size) {
    PixelPainter pixels(painter);
    const Sheet sheet{pixels, studio, size.width(), size.height()};
    sheet.clear();
    sheet.paintSharpGuides();
    paintColumnGrid(pixels, sheet.width, sheet.height);
    sheet.paintBars();
    sheet.paintStaff();
    for (int track = 0; isMelodyTrack(track); ++track) paintTrack(sheet, track);
    sheet.paintSelection();
    sheet.paintInsertion();
}

void TabletPainter::Sheet::paintSharpGuides() const {
    const auto& page = studio.page;
    if (page.ShowSharpGuides != 1) return;
    for (int line = 0; line <= page.PageRows; ++line) {
        const auto at = static_cast<std::size_t>(line);
        if (at >= page.SharpRowFlags.size()) break;
        const int y = line * page.LineHeight;
        if (!page.SharpRowFlags[at] || y >= height) continue;
        pixels.framedBox(0, y + 3, width - 1, y + 7, surface_colours::guideFill,
                         surface_colours::guideOutline);
    }
}

void TabletPainter::Sheet::paintBars() const {
    const auto& staff = studio.page.StaffY;
    // A page that begins inside the staff keeps the upper lines of an earlier one: they may stand lower.
    const auto [upper, lower] = std::minmax(staff.front(), staff.back());
    const auto edges = bars(studio.score, studio.page.FirstColumn, width);
    pixels.verticalLines(edges, 0, height - 1, surface_colours::barLine);
    pixels.verticalLines(edges, upper, lower, surface_colours::staff);
}

void TabletPainter::Sheet::paintStaff() const {
    const auto& page = studio.page;
    if (nameOfRow(page.NoteNames, page.FirstRow).empty()) return;
    for (const int y : page.StaffY) pixels.box(0, y, width - 1, y + 1, surface_colours::staff);
}

void TabletPainter::paintTrack(const Sheet& sheet, int track) {
    const auto& studio = sheet.studio;
    const auto& page = studio.page;
    const auto at = static_cast<std::size_t>(track);
    if (!studio.tracks.TrackActive[at] || studio.isHidden(track) || !studio.tracks.TrackVisible[at]) return;
    const bool isCurrent = track == studio.tracks.CurrentTrack;
    const QColor colour = toQt(isCurrent ? studio.tracks.TrackColor[at] : studio.tracks.TrackPaleColor[at]);
    walkShownNotes(studio.score, page, track, [&](const ShownNote& note) {
        const int y = (note.row - page.FirstRow) * page.LineHeight;
        if (y < -2 * columnWidth || y > sheet.height + columnWidth) return;
        const int x1 = (note.column - page.FirstColumn) * columnWidth;
        const int x2 = (note.lastColumn - page.FirstColumn) * columnWidth;
        if (note.hasChord) pictures_.ring(sheet.pixels, x1, y, colour);
        sheet.pixels.box(x1 + 2, y + 4, x2 + 11, y + 7, colour);
        if (note.hasHead) pictures_.head(sheet.pixels, x1, y, colour);
    });
}

void TabletPainter::Sheet::paintSelection() const {
    const auto& page = studio.page;
    const auto& selection = studio.selection;
    if (selection.SelStart < 0 || selection.SelStart > page.LastColumn ||
        selection.SelEnd < page.FirstColumn) {
        return;
    }
    const int left =
        selection.SelStart < page.FirstColumn ? 0 : (selection.SelStart - page.FirstColumn) * columnWidth;
    const int right =
        selection.SelEnd > page.LastColumn ? width - 1 : (selection.SelEnd - page.FirstColumn) * columnWidth;
    pixels.box(left, 0, right, height - 1, surface_colours::selection);
}

void TabletPainter::Sheet::paintInsertion() const {
    const auto& page = studio.page;
    const int column = studio.selection.InsertPosition;
    if (column < page.FirstColumn || column > page.LastColumn) return;
    const int x = (column - page.FirstColumn) * columnWidth;
    pixels.box(x - insertionWidth + 1, 0, x, height - 1, surface_colours::insertion);
}

void TabletPainter::paintChordRing(QPainter& painter, const Studio& studio, int column, int row,
                                   Colour colour) {
    PixelPainter pixels(painter);
    pictures_.ring(pixels, column * columnWidth, row * studio.page.LineHeight, toQt(colour));
}

}  // namespace melvane
