#pragma once
#include <optional>

#include "core/studio.h"
#include "core/surface_view.h"

namespace melvane {

/// Paint the two strips under the tablet; sizes in logical pixels.
void paintSelectorStrip(QPainter& painter, const Studio& studio, QSize size);
/// `mark` is the colour in which a column with a chord is marked.
void paintPolyStrip(QPainter& painter, const Studio& studio, QSize size, const QColor& mark);

/// What both strips share: columns in line with the tablet's, and the mouse, whose hovering counts too.
class StripView : public SurfaceView {
    Q_OBJECT

 public:
    explicit StripView(const Studio& studio, QWidget* parent) : SurfaceView(parent), studio_(studio) {
        setFocusPolicy(Qt::StrongFocus);
        setCursor(Qt::PointingHandCursor);
        setMouseTracking(true);
    }

 protected:
    const Studio& studio() const { return studio_; }

 private:
    const Studio& studio_;
};

/// The note selector, Pic2a: inspects the current track column by column.
class SelectorStripView : public StripView {
    Q_OBJECT

 public:
    SelectorStripView(const Studio& studio, QWidget* parent);
    /// Repaints the strip with its cursor, an outline around a column of the page, from 0. A redraw keeps it
    /// on that column of the score.
    void drawSelectorCursor(int column, Colour colour);

 protected:
    void paintSurface(QPainter& painter, QSize size) override;

 private:
    struct Cursor {
        int column;  ///< of the score
        Colour colour;
    };
    std::optional<Cursor> cursor_;
};

/// The polynote selector, Pic3: marks the columns whose notes sound as chords.
class PolyStripView : public StripView {
    Q_OBJECT

 public:
    PolyStripView(const Studio& studio, QWidget* parent);
    /// Fills a cell from (x + 1, 0) to (x + 11, 16); x in pixels.
    void fillPolyCell(int x, Colour colour);

 protected:
    void paintSurface(QPainter& painter, QSize size) override;
};

}  // namespace melvane
