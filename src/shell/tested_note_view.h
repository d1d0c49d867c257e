#pragma once
#include <QWidget>

#include "core/qt_mouse.h"
#include "core/qt_note_pictures.h"
#include "core/studio.h"

namespace melvane {

/// A picture of some columns of the current track on the test panel, Pt1, Pic2a or Pic3, painted from the
/// score whenever it is shown.
class TestedColumnsView : public QWidget {
    Q_OBJECT

 public:
    TestedColumnsView(const Studio& studio, AreaControl& area, int height, QWidget* parent);
    /// Who answers the mouse; nobody at first.
    MouseHandlers mouse;

 protected:
    const Studio& studio() const { return studio_; }
    int track() const { return studio_.tracks.CurrentTrack; }
    int firstColumn() const { return studio_.Form5.firstColumn; }
    /// Pixels, of a column of the score.
    int leftOf(int column) const { return (column - firstColumn()) * Page::columnWidth; }
    virtual void paintColumns(PixelPainter& pixels) = 0;
    /// `ground` with the lines of the columns and the measures.
    void paintGround(PixelPainter& pixels, const QColor& ground) const;

    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

 private:
    const Studio& studio_;
    AreaControl& area_;
};

/// Pt1: the note under inspection as the tablet shows it, beside a band in its channel's colour.
class TestedNoteView : public TestedColumnsView {
    Q_OBJECT

 public:
    TestedNoteView(Studio& studio, QWidget* parent);

 protected:
    void paintColumns(PixelPainter& pixels) override;

 private:
    NotePictures pictures_;
};

/// Pic2a: the column under inspection among its neighbours.
class TestedSelectorView : public TestedColumnsView {
    Q_OBJECT

 public:
    TestedSelectorView(Studio& studio, QWidget* parent);

 protected:
    void paintColumns(PixelPainter& pixels) override;
};

/// Pic3: which of the columns have a chord.
class TestedPolynotesView : public TestedColumnsView {
    Q_OBJECT

 public:
    TestedPolynotesView(Studio& studio, QWidget* parent);

 protected:
    void paintColumns(PixelPainter& pixels) override;
};

}  // namespace melvane
