#include "shell/setup_channels_panel.h"

#include <QGridLayout>
#include <QIcon>
#include <QMouseEvent>
#include <QPainter>

#include "core/qt_mouse.h"
#include "core/qt_pixels.h"
#include "core/setup_channel.h"
#include "shell/engine.h"
#include "ui/qt_bindings.h"
#include "ui/qt_icons.h"
#include "ui/qt_style.h"

namespace melvane {

namespace {

constexpr int controlHeight = 24, chipWidth = 22, chipMargin = 4, textSpace = 6;  // pixels
constexpr int channelsAColumn = 4;
constexpr double corner = 4;
constexpr QColor resting(0xF0, 0xF0, 0xF0), hovered(0xFA, 0xFA, 0xFA), selected(0xBF, 0xD8, 0xEE);

/// Paints the colour of a channel with its number.
void paintChip(QPainter& painter, const QRect& chip, const QColor& colour, const QString& number,
               bool enabled) {
    const QColor ground = enabled ? colour : palette::panel;
    painter.setPen(QPen(enabled ? palette::secondaryText : palette::panelEdge, 1));
    painter.setBrush(ground);
    painter.drawRoundedRect(QRectF(chip).adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
    painter.setPen(enabled ? readableOn(ground) : palette::disabledText);
    painter.drawText(chip, Qt::AlignCenter, number);
}

}  // namespace

ChannelChip::ChannelChip(Studio& studio, QWidget* parent) : QWidget(parent), studio_(studio) {
    setFixedSize(chipWidth, controlHeight - 2 * chipMargin);
}

void ChannelChip::paintEvent(QPaintEvent*) {
    const int track = studio_.Form3.SetupChannel;
    if (track < 0 || track > lastTrackNumber) return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    paintChip(painter, rect(), toQt(studio_.tracks.TrackColor[static_cast<std::size_t>(track)]),
              QString::number(shownTrackNumber(track)), isEnabled());
}

ChannelButton::ChannelButton(Studio& studio, int track, QWidget* parent)
    : QAbstractButton(parent),
      state_(studio.Form3.TrackSel[static_cast<std::size_t>(track)]),
      colour_(studio.tracks.TrackColor[static_cast<std::size_t>(track)]),
      number_(QString::number(shownTrackNumber(track))) {
    setObjectName(memberName("TrackSel", track));
    setText(QString::fromStdString(channelCaption(track)));
    setAccessibleName(text());
    setFocusPolicy(Qt::StrongFocus);
    setFixedHeight(controlHeight);
    auto& state = studio.Form3.TrackSel[static_cast<std::size_t>(track)];
    bind(*this, state);
    bindShown(*this, state, [this] {
        setChecked(state_.ticked());
        update();
    });
}

QSize ChannelButton::sizeHint() const {
    QFont bold(font());
    bold.setBold(true);
    const int text = QFontMetrics(bold).horizontalAdvance(this->text());
    return {chipMargin + chipWidth + textSpace + text + 2 * chipMargin, controlHeight};
}

void ChannelButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const bool marked = isEnabled() && (isChecked() || state_.highlighted());
    painter.setPen(marked ? QPen(palette::accent, 2) : QPen(palette::fieldEdge, 1));
    painter.setBrush(isChecked() ? selected : isEnabled() && underMouse() ? hovered : resting);
    const double inset = marked ? 1 : 0.5;
    painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), corner, corner);
    if (hasFocus()) {
        painter.setPen(QPen(palette::accent, 2));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(rect()).adjusted(3, 3, -3, -3), corner - 1, corner - 1);
    }
    const QRect chip(chipMargin, chipMargin, chipWidth, height() - 2 * chipMargin);
    paintChip(painter, chip, toQt(colour_), number_, isEnabled());
    QFont bold(font());
    bold.setBold(isChecked());
    painter.setFont(bold);
    painter.setPen(isEnabled() ? palette::text : palette::disabledText);
    painter.drawText(rect().adjusted(chip.right() + textSpace, 0, 0, 0), Qt::AlignVCenter, text());
}

HideBox::HideBox(Studio& studio, int track, QWidget* parent)
    : QAbstractButton(parent), eye_(melvane::icon("eye")) {
    setObjectName(memberName("TrackHide", track));
    setToolTip("Hide this channel");
    setAccessibleName("Hide " + QString::fromStdString(channelCaption(track)));
    setFocusPolicy(Qt::StrongFocus);
    setFixedSize(sizeHint());
    bind(*this, studio.Form3.TrackHide[static_cast<std::size_t>(track)]);
}

void HideBox::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(hasFocus() ? QPen(palette::accent, 2) : QPen(palette::fieldEdge, 1));
    painter.setBrush(isChecked() ? QColor(Qt::black) : isEnabled() ? palette::field : palette::panel);
    const double inset = hasFocus() ? 3 : 2.5;
    painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), 3, 3);
    if (isChecked()) return;
    const auto mode = !isEnabled() ? QIcon::Disabled : underMouse() ? QIcon::Active : QIcon::Normal;
    eye_.paint(&painter, rect().adjusted(4, 4, -4, -4), Qt::AlignCenter, mode);
}

SetupChannelsPanel::SetupChannelsPanel(Studio& studio, Engine& engine, QWidget* parent) : QWidget(parent) {
    auto* const grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(4);
    grid->setVerticalSpacing(4);
    int place = 0;
    for (int track = 0; track <= lastTrackNumber; ++track) {
        if (channelCaption(track).empty()) continue;
        auto* const button = new ChannelButton(studio, track, this);
        const int row = place % channelsAColumn, column = 3 * (place / channelsAColumn);
        grid->addWidget(button, row, column);
        grid->addWidget(new HideBox(studio, track, this), row, column + 1);
        connect(button, &QAbstractButton::pressed, this,
                [&engine, track] { engine.setup.channels.TrackSel_MouseDown(track, 1, 0, 0, 0); });
        ++place;
    }
    for (const int gap : {2, 5}) grid->setColumnMinimumWidth(gap, 8);
}

}  // namespace melvane
