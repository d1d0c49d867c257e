#include "ui/qt_panel_parts.h"

#include <QGridLayout>
#include <QPainter>

#include "core/qt_pixels.h"
#include "ui/qt_bindings.h"
#include "ui/qt_style.h"

namespace melvane {

namespace {

constexpr int controlHeight = 24;  // pixels

}  // namespace

QGridLayout* makePanelGrid(QFrame& frame) {
    frame.setProperty("panel", true);
    auto* const grid = new QGridLayout(&frame);
    grid->setContentsMargins(12, 12, 12, 12);
    grid->setHorizontalSpacing(6);
    grid->setVerticalSpacing(4);
    return grid;
}

QLabel* makeCaption(const char* text, QWidget* parent) {
    auto* const caption = new QLabel(text, parent);
    caption->setProperty("secondary", true);
    return caption;
}

ElidedLabel* makeReadout(const char* name, const char* tip, TextControl& text, int width, QWidget* parent) {
    auto* const readout = new ElidedLabel(parent);
    readout->setObjectName(name);
    readout->setToolTip(tip);
    readout->setAccessibleName(tip);
    readout->setProperty("readout", true);
    readout->setFixedHeight(controlHeight);
    readout->setMinimumWidth(width);
    bind(*readout, text);
    return readout;
}

InstrumentField::InstrumentField(TextControl& instrument, QWidget* parent) : QLineEdit(parent) {
    setObjectName("Text5");
    setReadOnly(true);
    setMinimumWidth(120);
    bind(*this, instrument);
}

void InstrumentField::mouseDoubleClickEvent(QMouseEvent*) {
    if (doubleClicked) doubleClicked();
}

InstrumentReadout::InstrumentReadout(QWidget* parent) : ElidedLabel(parent) {
    setProperty("readout", true);
    setFixedHeight(controlHeight);
}

void InstrumentReadout::mouseDoubleClickEvent(QMouseEvent*) {
    if (doubleClicked) doubleClicked();
}

ChannelBox::ChannelBox(TextControl& track, QWidget* parent) : QLabel(parent), track_(track) {
    setObjectName("LblTrk");
    setToolTip("Current channel");
    setAccessibleName("Current channel");
    setFixedSize(32, 24);
    bindShown(*this, track, [this] {
        setText(QString::fromStdString(track_.text()));
        update();
    });
}

void ChannelBox::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor ground = toQt(track_.backColour());
    painter.setPen(QPen(palette::secondaryText, 1));
    painter.setBrush(ground);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
    painter.setPen(readableOn(ground));
    painter.drawText(rect(), Qt::AlignCenter, text());
}

}  // namespace melvane
