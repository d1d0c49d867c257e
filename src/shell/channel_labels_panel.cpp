#include "shell/channel_labels_panel.h"

#include <QAccessible>
#include <QGridLayout>
#include <QPainter>
#include <QPushButton>

#include "core/qt_pixels.h"
#include "shell/engine.h"
#include "ui/qt_accessibility.h"
#include "ui/qt_bindings.h"
#include "ui/qt_style.h"

namespace melvane {

namespace {

constexpr int labelsARow = 6;
constexpr double corner = 4;

}  // namespace

ChannelLabel::ChannelLabel(TextControl& label, const QString& name, QWidget* parent)
    : QAbstractButton(parent), label_(label) {
    setObjectName(name);
    setProperty(spokenAsChosen, false);
    setFixedSize(width, height);
    setFocusPolicy(Qt::TabFocus);
    setCursor(Qt::PointingHandCursor);
    bindShown(*this, label, [this] {
        setText(QString::fromStdString(label_.text()));
        setAccessibleName("Channel " + text());
        update();
    });
}

bool ChannelLabel::isCurrent() const { return property(spokenAsChosen).toBool(); }

void ChannelLabel::setCurrent(bool current) {
    if (current == isCurrent()) return;
    setProperty(spokenAsChosen, current);
    update();
    QAccessible::State changed;
    changed.checked = true;
    QAccessibleStateChangeEvent event(this, changed);
    QAccessible::updateAccessibility(&event);
}

void ChannelLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor ground = toQt(label_.backColour());
    const QRectF edge = QRectF(rect()).adjusted(1, 1, -1, -1);
    painter.setPen(isCurrent() ? QPen(palette::text, 2) : QPen(palette::panelEdge, 1));
    painter.setBrush(isDown() ? ground.darker(110) : underMouse() ? ground.lighter(108) : ground);
    painter.drawRoundedRect(edge, corner, corner);
    if (hasFocus()) {
        painter.setPen(QPen(palette::accent, 2));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(edge.adjusted(2, 2, -2, -2), corner - 1, corner - 1);
    }
    QFont bold(font());
    bold.setBold(isCurrent());
    painter.setFont(bold);
    painter.setPen(readableOn(ground));
    painter.drawText(rect(), Qt::AlignCenter, text());
}

ChannelLabelsPanel::ChannelLabelsPanel(Studio& studio, QWidget* parent) : QFrame(parent), studio_(studio) {
    setProperty("panel", true);
    auto* const grid = new QGridLayout(this);
    grid->setContentsMargins(12, 12, 12, 12);
    grid->setSpacing(4);
    int place = 0;
    for (std::size_t track = 0; track < labels_.size(); ++track) {
        // Track 9 is not offered and has no label.
        if (track == 9) continue;
        const QString name = memberName("Label8", static_cast<int>(track));
        labels_[track] = new ChannelLabel(studio.form1.Label8[track], name, this);
        grid->addWidget(labels_[track], place / labelsARow, place % labelsARow);
        ++place;
    }
    auto* const percussion = new QPushButton("Percussion", this);
    percussion->setObjectName("Check2");
    percussion->setToolTip("Open or close the percussion tableau");
    percussion->setAccessibleName("Percussion tableau");
    bind(*percussion, studio.form1.Check2);
    grid->setColumnMinimumWidth(labelsARow, 4);
    grid->addWidget(percussion, 1, labelsARow + 1);
    grid->setColumnStretch(labelsARow + 2, 1);
}

void ChannelLabelsPanel::attach(Engine& engine) {
    for (std::size_t track = 0; track < labels_.size(); ++track) {
        if (labels_[track] == nullptr) continue;
        connect(labels_[track], &QAbstractButton::clicked, this, [this, &engine, track] {
            engine.channels.Label8_Click(static_cast<int>(track));
            showCurrentTrack();
        });
    }
}

void ChannelLabelsPanel::showCurrentTrack() {
    for (std::size_t track = 0; track < labels_.size(); ++track) {
        if (labels_[track] != nullptr)
            labels_[track]->setCurrent(static_cast<int>(track) == studio_.tracks.CurrentTrack);
    }
}

}  // namespace melvane
