#pragma once
#include <QPainter>
#include <QSize>

#include "core/qt_note_pictures.h"
#include "core/studio.h"

namespace melvane {

/// Paints the music tablet from the score: the same for the window, a test's picture and a printed page. The
/// painter's scale says how many device pixels a logical one has.
class TabletPainter {
 public:
    /// The whole tablet, `size` logical pixels.
    void paint(QPainter& painter, const Studio& studio, QSize size);
    /// A ring of radius 7 around the head at a column and row of the page, from 0.
    void paintChordRing(QPainter& painter, const Studio& studio, int column, int row, Colour colour);
    /// The pictures that notes are put together from.
    NotePictures& pictures() { return pictures_; }

 private:
    struct Sheet;
    void paintTrack(const Sheet& sheet, int track);

    NotePictures pictures_;
};

}  // namespace melvane
