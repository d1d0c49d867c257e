#include "recorder/player_panel.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QStyle>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>

#include "recorder/player_buttons.h"
#include "ui/flat_button_panel.h"
#include "ui/panel_group_panel.h"
#include "ui/qt_bindings.h"
#include "ui/qt_elided_label.h"
#include "ui/qt_panel_parts.h"

namespace melvane {

namespace {

constexpr int space = 8, barHeight = 8, textHeight = 24;                          // pixels
constexpr int stateWidth = 96, statusWidth = 72, timeWidth = 56, unitWidth = 44;  // pixels
constexpr int refreshPeriod = 100;                                                // milliseconds

/// How much is done. An encoding tells it thousands of times a second, which nobody can read: it is painted
/// ten times.
class StatusLabel : public QLabel {
 public:
    StatusLabel(RecordControls& Record, QWidget* parent) : QLabel(parent), status_(Record.Status) {
        setObjectName("StatusShown");
        setAccessibleName("How much is done");
        setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        setFixedWidth(statusWidth);
        timer_.setSingleShot(true);
        timer_.setInterval(refreshPeriod);
        QObject::connect(&timer_, &QTimer::timeout, this, [this] { show(); });
        bindShown(*this, status_, [this] { show(); });
        status_.changed = [this, &Record] {  // nothing but its text ever changes
            if (!timer_.isActive() || Record.Label8.text() != "Encoding") show();
        };
    }

 private:
    void show() {
        const QString now = QString::fromStdString(status_.text());
        if (text() == now) return;
        setText(now);
        timer_.start();
    }

    TextControl& status_;
    QTimer timer_;
};

QLabel* makeText(const char* name, const char* spoken, TextControl& text, int width, QWidget* parent) {
    auto* const label = new QLabel(parent);
    label->setObjectName(name);
    label->setAccessibleName(spoken);
    label->setToolTip(spoken);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setFixedSize(width, textHeight);
    bind(*label, text);
    return label;
}

}  // namespace

PlayerPanel::PlayerPanel(RecordControls& Record, PlayerButtons& buttons, QWidget* parent)
    : QWidget(parent), Record_(Record), buttons_(buttons) {
    auto* const rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(space);
    rows->addWidget(makeState());
    rows->addWidget(makePlayer());
}

QWidget* PlayerPanel::makeState() {
    auto* const group = new PanelGroup("File", this);
    auto* const file = new QLineEdit(group);
    file->setObjectName("Text6");
    file->setAccessibleName("File");
    file->setToolTip("The file to be encoded, played or saved");
    bind(*file, Record_.Text6);
    group->rows().addWidget(file);
    auto* const row = new QHBoxLayout;
    row->setSpacing(space);
    row->addWidget(makeReadout("Erbox", "What happened last", Record_.Erbox, stateWidth, group), 1);
    auto* const state = new ElidedLabel(group);
    state->setObjectName("Label8");
    state->setAccessibleName("State of the recorder");
    state->setProperty("heading", true);
    state->setFixedWidth(stateWidth);
    state->setAlignment(Qt::AlignCenter);
    bindShown(*state, Record_.Label8, [this, state] {
        const QString text = QString::fromStdString(Record_.Label8.text());
        state->setText(text);
        state->setProperty("recording", text == "Recording");
        state->style()->polish(state);
    });
    row->addWidget(state);
    row->addWidget(new StatusLabel(Record_, group));
    group->rows().addLayout(row);
    return group;
}

QWidget* PlayerPanel::makePlayer() {
    auto* const panel = new QFrame(this);
    panel->setObjectName("Picture7");
    panel->setProperty("panel", true);
    bindState(*panel, Record_.Picture7);
    auto* const row = new QHBoxLayout(panel);
    row->setContentsMargins(space, space / 2, space, space / 2);
    row->setSpacing(0);
    for (int index = 0; index < static_cast<int>(Cmd2_.size()); ++index) {
        if (index == 1 || index == 4) row->addSpacing(space);
        row->addWidget(makeButton(index, panel));
    }
    row->addSpacing(space);
    row->addStretch();
    row->addWidget(makeReadOut(panel));
    return panel;
}

FlatButton* PlayerPanel::makeButton(int index, QWidget* parent) {
    const auto at = static_cast<std::size_t>(index);
    auto* const button = new FlatButton(index, Record_.Cmd2[at], Record_.ImgR[at], QString(), parent, "ImgR");
    connect(button, &FlatButton::released, this,
            [this, index](int mouse) { buttons_.Cmd2_MouseUp(index, mouse, 0, 0, 0); });
    connect(button, &FlatButton::pressed, this, [this, at] { Record_.Cmd2[at].userPut(Value(1LL)); });
    Cmd2_[at] = button;
    return button;
}

QWidget* PlayerPanel::makeReadOut(QWidget* parent) {
    auto* const readOut = new QWidget(parent);
    readOut->setObjectName("Picture5");
    QSizePolicy keepsRoom = readOut->sizePolicy();
    keepsRoom.setRetainSizeWhenHidden(true);
    readOut->setSizePolicy(keepsRoom);
    auto* const rows = new QVBoxLayout(readOut);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    auto* const texts = new QHBoxLayout;
    texts->setSpacing(space / 2);
    texts->addWidget(makeText("lblTime", "Minutes and seconds played", Record_.lblTime, timeWidth, readOut));
    texts->addStretch();
    texts->addWidget(makeText("lblKhz", "Kilohertz", Record_.lblKhz, unitWidth / 2, readOut));
    texts->addWidget(makeCaption("kHz", readOut));
    texts->addWidget(makeText("lblbitrate", "Kilobits a second", Record_.lblbitrate, unitWidth, readOut));
    texts->addWidget(makeCaption("kbps", readOut));
    texts->addWidget(makeText("lblmode", "Channels", Record_.lblmode, unitWidth, readOut));
    rows->addLayout(texts);
    rows->addWidget(makeBar(readOut));
    bindState(*readOut, Record_.Picture5);
    return readOut;
}

QWidget* PlayerPanel::makeBar(QWidget* parent) {
    auto* const ground = new QFrame(parent);
    ground->setObjectName("P2");
    ground->setProperty("progressGround", true);
    ground->setFixedSize(RecordControls::barWidth, barHeight);
    ground->setAccessibleName("How far it is played");
    auto* const fill = new QFrame(ground);
    fill->setObjectName("L2");
    fill->setProperty("progressFill", true);
    bindShown(*fill, Record_.L2, [this, fill] {
        fill->setGeometry(0, 0, std::clamp(Record_.L2.width(), 0, RecordControls::barWidth), barHeight);
    });
    return ground;
}

}  // namespace melvane
