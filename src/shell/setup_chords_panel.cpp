#include "shell/setup_chords_panel.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QPainter>

#include "core/qt_pixels.h"
#include "ui/qt_bindings.h"
#include "ui/qt_style.h"

namespace melvane {

namespace {

constexpr int space = 4, captionSpace = 12, listWidth = 330;  // pixels
constexpr double corner = 4;
constexpr QColor off(0xF0, 0xF0, 0xF0);

struct SwitchRow {
    const char *caption, *name, *tip;
    std::array<CheckControl, 8> SetupControls::*switches;
};

constexpr std::array<SwitchRow, 2> rows{
    {{"Channel Chord >", "Ch", "Play every note of channel %1 as a chord", &SetupControls::Ch},
     {"Strumming >", "Chkstrum", "Strum the chords of channel %1", &SetupControls::Chkstrum}}};

/// A tick, left of the number.
void paintTick(QPainter& painter, const QPointF& at) {
    painter.drawPolyline(QPolygonF({at + QPointF(0, 4), at + QPointF(3, 7), at + QPointF(9, 0)}));
}

}  // namespace

ChannelSwitch::ChannelSwitch(CheckControl& state, Colour colour, int channel, QWidget* parent)
    : QAbstractButton(parent), colour_(toQt(colour)) {
    setText(QString::number(channel));
    setFocusPolicy(Qt::StrongFocus);
    setFixedSize(sizeHint());
    bind(*this, state);
}

void ChannelSwitch::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor ground = !isEnabled() ? palette::panel : isChecked() ? colour_ : off;
    painter.setPen(isChecked() ? QPen(palette::text, 2) : QPen(palette::fieldEdge, 1));
    painter.setBrush(underMouse() && isEnabled() ? ground.lighter(104) : ground);
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), corner, corner);
    if (!isChecked()) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(colour_);
        painter.drawRoundedRect(QRectF(6, height() - 7, width() - 12, 3), 1.5, 1.5);
    }
    if (hasFocus()) {
        painter.setPen(QPen(palette::accent, 2));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(rect()).adjusted(3, 3, -3, -3), corner - 1, corner - 1);
    }
    const QColor ink = isChecked() ? readableOn(ground) : palette::text;
    painter.setPen(QPen(ink, 2));
    if (isChecked()) paintTick(painter, QPointF(8, height() / 2.0 - 3));
    painter.setPen(isEnabled() ? ink : palette::disabledText);
    painter.drawText(rect().adjusted(isChecked() ? 14 : 0, 0, 0, isChecked() ? 0 : -3), Qt::AlignCenter,
                     text());
}

SetupChordsPanel::SetupChordsPanel(Studio& studio, QWidget* parent) : QWidget(parent) {
    auto* const grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(space);
    grid->setVerticalSpacing(space);
    int row = 0;
    for (const auto& entry : rows) {
        grid->addWidget(new QLabel(entry.caption, this), row, 0);
        auto& switches = studio.Form3.*entry.switches;
        for (std::size_t channel = 0; channel < switches.size(); ++channel) {
            const int number = static_cast<int>(channel) + 1;
            auto* const part =
                new ChannelSwitch(switches[channel], studio.tracks.TrackColor[channel], number, this);
            part->setObjectName(memberName(entry.name, number - 1));
            part->setToolTip(QString(entry.tip).arg(number));
            part->setAccessibleName(QStringLiteral("%1 %2").arg(entry.caption).arg(number));
            grid->addWidget(part, row, number + 1);
        }
        ++row;
    }
    auto* const list = new QComboBox(this);
    list->setObjectName("Combo3");
    list->setToolTip("The chord of the ticked channels");
    list->setAccessibleName("Chord");
    list->setMinimumWidth(listWidth);
    bind(*list, studio.Form3.Combo3);
    grid->addWidget(new QLabel("Chord", this), row, 0);
    grid->addWidget(list, row, 2, 1, 8);
    grid->setColumnMinimumWidth(1, captionSpace - space);
    grid->setColumnStretch(10, 1);
    grid->setRowStretch(row + 1, 1);
}

}  // namespace melvane
