#include "synth/panic_bar_panel.h"

#include <QIcon>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

#include "core/qt_pixels.h"
#include "ui/qt_accessibility.h"
#include "ui/qt_bindings.h"
#include "ui/qt_icons.h"
#include "ui/qt_style.h"

namespace melvane {

namespace {

constexpr QColor ground(0xC0, 0xC0, 0xC0);
constexpr int leastHeight = 24, iconSide = 18, iconMargin = 6;  // pixels
constexpr double corner = 4, outline = 3;                       // pixels

}  // namespace

PanicBarPanel::PanicBarPanel(PanicBar& bar, QWidget* parent) : QWidget(parent), bar_(bar) {
    setObjectName("Label4");
    setProperty(spokenAsPicture, true);
    setAccessibleName("Panic Bar");
    setMouseTracking(true);
    bindShown(*this, bar, [this] { update(); });
}

QSize PanicBarPanel::sizeHint() const { return {200, std::max(leastHeight, fontMetrics().height() + 6)}; }

void PanicBarPanel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(palette::panelEdge, 1));
    painter.setBrush(ground);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), corner, corner);
    const QRect sign(0, 0, iconSide + 2 * iconMargin, height());
    icon("silence").paint(&painter, sign, Qt::AlignCenter);
    const QColor colour = toQt(bar_.textColour());
    if (colour == ground) return;
    // The light text has a dark edge: it reads on the grey ground.
    QFont bold(font());
    bold.setWeight(QFont::DemiBold);
    const QFontMetrics metrics(bold);
    QPainterPath text;
    text.addText(sign.right(), (height() + metrics.ascent() - metrics.descent()) / 2.0, bold,
                 QString::fromStdString(bar_.text()));
    painter.setClipRect(rect());
    painter.strokePath(text, QPen(palette::text, outline, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.fillPath(text, colour);
}

void PanicBarPanel::tell(const MouseHandler& handler, Qt::MouseButtons buttons, const QMouseEvent& event) {
    if (handler) handler(buttonMask(buttons), shiftMask(event), event.position().x(), event.position().y());
}

void PanicBarPanel::mouseMoveEvent(QMouseEvent* event) { tell(mouse.moved, event->buttons(), *event); }
void PanicBarPanel::mousePressEvent(QMouseEvent* event) { tell(mouse.pressed, event->button(), *event); }
void PanicBarPanel::mouseReleaseEvent(QMouseEvent* event) { tell(mouse.released, event->button(), *event); }

}  // namespace melvane
