#include "core/side_bar_view.h"

#include <algorithm>

#include "core/note_names.h"
#include "core/qt_pixels.h"

namespace melvane {

namespace {

constexpr int nameLeft = 3;               // pixels
constexpr int smallestRowWithSharps = 6;  // pixels

/// Where the name of a sharp row begins: behind its blanks and clear of the natural rows' letters, unless a
/// long name needs the room.
int sharpLeft(const QFontMetrics& metrics, const QString& printed, int width) {
    const int behindBlanks = metrics.horizontalAdvance(QString(sharpRowIndent, ' '));
    const int behindNaturals = metrics.horizontalAdvance("6   G") + 4;
    const int last = width - 2 - metrics.horizontalAdvance(printed.trimmed());
    return std::min(nameLeft + std::max(behindBlanks, behindNaturals), last);
}

}  // namespace

int rowNamePoints(int lineHeight) {
    if (lineHeight > 8) return 7;
    return lineHeight > 5 ? 6 : 5;
}

void paintSideBar(QPainter& painter, const Studio& studio, QSize size, const QFont& font,
                  const QColor& ground, const QColor& text) {
    const auto& page = studio.page;
    painter.fillRect(QRect(QPoint(0, 0), size), ground);
    QFont small(font);
    small.setPointSize(rowNamePoints(page.LineHeight));
    painter.setFont(small);
    painter.setPen(text);
    const QFontMetrics metrics(small, painter.device());
    // The head of a row's note stands 5 pixels under the row's top; the name is centred on it.
    const int baseline = 5 + (metrics.capHeight() + 1) / 2;
    for (int line = 0; line <= page.PageRows && line * page.LineHeight < size.height(); ++line) {
        const auto name = nameOfRow(page.NoteNames, page.FirstRow + line);
        const int y = line * page.LineHeight;
        if (y + baseline > size.height()) break;  // a name that would be cut off
        const QString printed = QString::fromStdString(printedRowName(name));
        if (!isSharp(name)) {
            painter.drawText(nameLeft, y + baseline, printed);
        } else if (page.LineHeight >= smallestRowWithSharps) {
            const int left = sharpLeft(metrics, printed, size.width());
            painter.fillRect(left - 2, y + 1, size.width() - left + 1, page.LineHeight, Qt::white);
            painter.drawText(left, y + baseline, printed.trimmed());
        }
    }
}

SideBarView::SideBarView(const Studio& studio, QWidget* parent) : SurfaceView(parent), studio_(studio) {
    setObjectName("PicX");
    setAccessibleName("Row names");
    setToolTip("Row names");
}

void SideBarView::paintSurface(QPainter& painter, QSize size) {
    paintSideBar(painter, studio_, size, font(), palette().color(QPalette::Window),
                 palette().color(QPalette::WindowText));
}

}  // namespace melvane
