#pragma once
#include <QPainter>
#include <QSize>

#include "core/qt_note_pictures.h"
#include "core/studio.h"

namespace melvane {

/// Paints the percussion tableau, the small tablet of tracks 8 to 12.
class TableauPainter {
 public:
    void paint(QPainter& painter, const Studio& studio, QSize size);
    /// The pictures that beats are put together from.
    NotePictures& pictures() { return pictures_; }

 private:
    void paintTrack(PixelPainter& pixels, const Studio& studio, int height, int track);

    NotePictures pictures_;
};

}  // namespace melvane
