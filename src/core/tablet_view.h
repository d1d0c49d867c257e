#pragma once
#include <optional>

#include "core/qt_tablet_painter.h"
#include "core/surface_view.h"
#include "core/surfaces.h"

namespace melvane {

/// The music tablet, MusicBox: the sheet of staff paper on which the melody tracks stand.
class TabletView : public SurfaceView {
    Q_OBJECT

 public:
    TabletView(const Studio& studio, QWidget* parent);

    void clearTablet();
    // Saved pixels; columns and rows of the page. What lies outside the tablet is neither saved nor put back.
    void GetRow(int row);
    void PutRow(int row);
    void GetColumn(int column);
    void PutColumn(int column);
    void GetBox();
    void PutBox();
    /// Shows the cursor on the screen, beside the kept picture; a repaint or PutColumn removes it.
    void drawPlayCursor(int column);
    void drawChordRing(int column, int row, Colour colour);
    // What a press or a drag shows, in CurrentTrackColor; the next repaint wipes it.
    void drawHead(int column, int row);
    void drawDraggedNote(int column, int lastColumn, int row);
    void drawSelectionLine(int column);
    void drawSelectionBand(int column, int lastColumn);
    /// `box` in any order of its corners; the line lies 2 pixels to either side of its edges.
    void markTestedNote(QRect box);
    /// The kept picture with the play cursor, as the user sees it.
    QImage screenPicture();

 Q_SIGNALS:
    /// The user asks for other rows or columns, by the wheel or the keys.
    void rowsWanted(int rows);
    void columnsWanted(int columns);

 protected:
    void paintSurface(QPainter& painter, QSize size) override;
    void paintOver(QPainter& painter) override;
    void surfaceRedrawn() override { cursorColumn_.reset(); }
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

 private:
    /// The hidden scratch picture, as large as the tablet.
    QImage& swapScreen();
    QRect rowStrip(int y) const;
    QRect columnStrip(int x) const;

    const Studio& studio_;
    TabletPainter painter_;
    QImage swapScreen_;
    std::optional<int> cursorColumn_;
    int wheelRest_ = 0;  // eighths of a degree
};

}  // namespace melvane
