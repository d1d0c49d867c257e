#include "core/qt_tableau_painter.h"

#include <algorithm>

#include "core/qt_column_lines.h"
#include "core/shown_notes.h"

namespace melvane {

void TableauPainter::paint(QPainter& painter, const Studio& studio, QSize size) {
    PixelPainter pixels(painter);
    pixels.box(0, 0, size.width() - 1, size.height() - 1, surface_colours::paper);
    paintBarLines(pixels, studio, size.width(), size.height());
    for (int track = 8; track <= lastTrackNumber; ++track) paintTrack(pixels, studio, size.height(), track);
}

void TableauPainter::paintTrack(PixelPainter& pixels, const Studio& studio, int height, int track) {
    const auto& page = studio.page;
    const auto at = static_cast<std::size_t>(track);
    if (!studio.tracks.TrackActive[at] || studio.isHidden(track)) return;
    const bool isCurrent = track == studio.tracks.CurrentTrack;
    const QColor colour = toQt(isCurrent ? studio.tracks.TrackColor[at] : studio.tracks.TrackPaleColor[at]);
    walkShownNotes(studio.score, page, track, [&](const ShownNote& note) {
        // A note below the tableau stands on its last row.
        const int y = std::min((note.row - page.FirstRow) * Page::tableauRow, height - Page::tableauRow);
        const int x1 = (note.column - page.FirstColumn) * Page::columnWidth;
        const int x2 = (note.lastColumn - page.FirstColumn) * Page::columnWidth;
        pixels.box(x1 + 2, y + 4, x2 + 11, y + 7, colour);
        if (note.hasHead) pictures_.head(pixels, x1, y, colour);
    });
}

}  // namespace melvane
