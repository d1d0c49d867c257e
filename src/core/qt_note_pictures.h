#pragma once
#include <QColor>
#include <QImage>
#include <map>
#include <utility>

#include "core/qt_pixels.h"

namespace melvane {

/// The heads and chord rings of notes, drawn once for each colour and pixel ratio and copied from then on.
class NotePictures {
 public:
    /// A circle of radius 5 with a black line and a white dot, for a note whose bar box begins at (x, y) in
    /// logical pixels.
    void head(PixelPainter& pixels, int x, int y, const QColor& colour);
    /// The ring of radius 7 around that head.
    void ring(PixelPainter& pixels, int x, int y, const QColor& colour);

    /// A note in hand, whose cell begins at (x, y) and whose last cell begins at `lastX`: its bar, then its
    /// head.
    void draggedNote(PixelPainter& pixels, int x, int lastX, int y, const QColor& colour);

 private:
    using Key = std::pair<QRgb, int>;  // colour, ratio in 64ths
    using Pictures = std::map<Key, QImage>;
    template <class Draw>
    const QImage& kept(Pictures& pictures, double ratio, const QColor& colour, int margin, Draw draw);

    Pictures heads_, rings_;
};

}  // namespace melvane
