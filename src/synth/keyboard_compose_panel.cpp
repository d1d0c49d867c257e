#include "synth/keyboard_compose_panel.h"

#include <QCheckBox>
#include <QPainter>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

#include "core/qt_pixels.h"
#include "synth/keyboard_parts_panel.h"
#include "ui/qt_bindings.h"
#include "ui/qt_flow_layout.h"
#include "ui/qt_icons.h"
#include "ui/qt_style.h"

namespace melvane {

namespace {

constexpr int groupSpace = 8, lampSide = 24, buttonSide = 36, iconSide = 24;  // pixels
constexpr double lampRadius = 8;                                              // pixels

/// Label8: whether a capture runs, as a lamp.
class Lamp : public QWidget {
 public:
    Lamp(TextControl& state, QWidget* parent) : QWidget(parent), state_(state) {
        setObjectName("Label8");
        bindShown(*this, state, [this] {
            setToolTip(state_.text() == "ON" ? "A capture is on" : "A capture is off");
            setAccessibleName(toolTip());
            update();
        });
    }
    QSize sizeHint() const override {
        return {lampSide + fontMetrics().horizontalAdvance("OFF") + 4, lampSide};
    }

 protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const QColor colour = toQt(state_.backColour());
        painter.setPen(QPen(colour.darker(160), 1.5));
        const QPointF middle(lampSide / 2.0, height() / 2.0);
        QRadialGradient light(middle - QPointF(2, 2), lampRadius * 1.5);
        light.setColorAt(0, colour.lighter(150));
        light.setColorAt(1, colour);
        painter.setBrush(light);
        painter.drawEllipse(middle, lampRadius, lampRadius);
        painter.setPen(palette::text);
        painter.drawText(rect().adjusted(lampSide, 0, 0, 0), Qt::AlignVCenter,
                         QString::fromStdString(state_.text()));
    }

 private:
    const TextControl& state_;
};

QToolButton* makePlay(CheckControl& play, QWidget* parent) {
    auto* const button = new QToolButton(parent);
    button->setObjectName("Check7");
    button->setIcon(icon("play"));
    button->setIconSize({iconSide, iconSide});
    button->setFixedSize(buttonSide, buttonSide);
    button->setToolTip("Play what was captured");
    button->setAccessibleName("Play what was captured");
    button->setFocusPolicy(Qt::TabFocus);
    bind(*button, play);
    return button;
}

QWidget* makeCapture(KeyboardControls& synth, KeyboardSliders& sliders, QWidget* parent) {
    auto* const group = new KeyboardGroup("Composer", parent);
    group->addRow({makeKeyboardButton("CmdRec", "Start / Stop Composing",
                                      "Capture what is played, from the next key on", synth.CmdRec, group),
                   new Lamp(synth.Label8, group)});
    group->rows().addWidget(makeKeyboardSlider(sliders, KeyboardSliders::speed, "Playing Speed", "Text2Shown",
                                               synth.Text2, group));
    return group;
}

QWidget* makePlaying(KeyboardControls& synth, KeyboardSliders& sliders, QWidget* parent) {
    auto* const group = new KeyboardGroup("Replay", parent);
    group->addRow(
        {makePlay(synth.Check7, group),
         makeKeyboardButton("Command2", "Play Recording", "Play what was captured", synth.Command2, group),
         makeToggle("Check6", "Pause", "Pause / Play", synth.Check6, group),
         makeToggle("Check4", "Stop Playing", "Stop Playing", synth.Check4, group)});
    group->addRow({makeTick("Check5", "Loop Play", "Begin again at the end", synth.Check5, group),
                   makeTick("Check3", "Pauses", "Insert pauses", synth.Check3, group)});
    group->rows().addWidget(makeKeyboardSlider(sliders, KeyboardSliders::pauses, "Length of Pauses",
                                               "Text11Shown", synth.Text11, group));
    return group;
}

QWidget* makeSaving(KeyboardControls& synth, KeyboardSliders& sliders, QWidget* parent) {
    auto* const group = new KeyboardGroup("File Saving Options", parent);
    group->setObjectName("Frame10");
    auto* const row = new QHBoxLayout;
    row->setSpacing(2 * groupSpace);
    row->addWidget(makeKeyboardSlider(sliders, KeyboardSliders::fileSpeed, "Compression", "Text12Shown",
                                      synth.Text12, group));
    row->addWidget(
        makeKeyboardSlider(sliders, KeyboardSliders::tempo, "File Tempo", "Text8", synth.Text8, group));
    group->rows().addLayout(row);
    group->addRow(
        {makeKeyboardButton("CmdRecord", "Save as SNG file",
                            "Save what was captured as a score for the composer", synth.CmdRecord, group)});
    return group;
}

}  // namespace

KeyboardComposePanel::KeyboardComposePanel(Studio& studio, KeyboardSliders& sliders, QWidget* parent)
    : QWidget(parent) {
    setObjectName("Frame9");
    auto* const groups = new FlowLayout(groupSpace);
    setLayout(groups);
    groups->addWidget(makeCapture(studio.frmsynth, sliders, this));
    groups->addWidget(makePlaying(studio.frmsynth, sliders, this));
    groups->addWidget(makeSaving(studio.frmsynth, sliders, this));
}

}  // namespace melvane
