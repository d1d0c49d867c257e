#pragma once
#include <QColor>
#include <QImage>
#include <QPainter>
#include <span>

#include "core/controls.h"

namespace melvane {

inline QColor toQt(Colour colour) { return QColor(colour.red, colour.green, colour.blue); }

/// What the design fixes for every surface with columns.
namespace surface_colours {
inline constexpr QColor paper(255, 255, 255);
inline constexpr QColor guideFill(248, 241, 231), guideOutline(224, 224, 224);
inline constexpr QColor columnGrid(237, 237, 237), barLine(68, 204, 255), staff(128, 128, 128);
inline constexpr QColor playCursor(255, 192, 192);
inline constexpr QColor selectionEdge(0, 0, 255), testedNote(255, 255, 0);
inline constexpr int blendAlpha = 100;  // of 255
/// White paper under it has the colour of a button's face, (207, 207, 207).
inline constexpr QColor selectionBand(0, 0, 0, 255 - 207);
inline constexpr QColor selection(0, 0, 255, blendAlpha), insertion(255, 0, 0, blendAlpha);
}  // namespace surface_colours

/// Paints in logical pixels with every edge on a whole pixel of the device, so that lines stay sharp at any
/// ratio. Takes the painter over for its lifetime and gives it back as it was.
class PixelPainter {
 public:
    explicit PixelPainter(QPainter& painter);
    ~PixelPainter();
    PixelPainter(const PixelPainter&) = delete;
    PixelPainter& operator=(const PixelPainter&) = delete;

    /// Device pixels for a logical one.
    double ratio() const { return ratio_; }
    /// A filled box; both corners belong to it. Nothing when it has no extent.
    void box(int left, int top, int right, int bottom, const QColor& colour);
    /// A filled box with a line of one pixel around it, corners included.
    void framedBox(int left, int top, int right, int bottom, const QColor& fill, const QColor& line);
    /// The outline of a box, `line` pixels wide inwards from its corners.
    void frame(int left, int top, int right, int bottom, int line, const QColor& colour);
    void verticalLine(int x, int top, int bottom, const QColor& colour) { box(x, top, x, bottom, colour); }
    /// The same at each of `places`, all at once.
    void verticalLines(std::span<const int> places, int top, int bottom, const QColor& colour);
    /// `picture` is made for ratio(); its top left corner comes to (x, y).
    void picture(int x, int y, const QImage& picture);

 private:
    int device(int logical) const;
    void fill(QRect box, const QColor& colour) const;

    QPainter& painter_;
    double ratio_;
    QImage* kept_ = nullptr;   ///< the picture that is painted on, where its pixels can be set directly
    uchar* pixels_ = nullptr;  ///< of it
};

/// Copies the pixels of `area` to `target` at `to`, all in device pixels; what lies outside either is left.
/// Both pictures have the same format.
void copyPixels(QImage& target, QPoint to, const QImage& source, QRect area);

}  // namespace melvane
