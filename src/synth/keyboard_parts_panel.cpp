#include "synth/keyboard_parts_panel.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <cmath>

#include "ui/qt_bindings.h"
#include "ui/qt_icons.h"
#include "ui/qt_panel_parts.h"
#include "ui/slider_panel.h"

namespace melvane {

namespace {

constexpr int rowSpace = 4, rowHeight = 24, sliderWidth = 132;  // pixels
constexpr double places = 100;

/// A number with many places behind its point, as a reader wants it.
QString readable(const std::string& text) {
    const QString whole = QString::fromStdString(text);
    bool isNumber = false;
    const double value = whole.toDouble(&isNumber);
    if (!isNumber || !whole.contains('.')) return whole;
    return QString::number(std::round(value * places) / places);
}

void attach(SliderTrack& track, KeyboardSliders& sliders, KeyboardSliders::Slider slider) {
    track.pressed = [&sliders, slider](int button, double x) { sliders.press(slider, button, x); };
    track.moved = [&sliders, slider](int button, double x) { sliders.move(slider, button, x); };
    track.released = [&sliders, slider](int, double) { sliders.release(slider); };
    track.stepped = [&sliders, slider](int steps) { sliders.step(slider, steps); };
}

}  // namespace

QPushButton* makeToggle(const char* name, const char* text, const char* tip, CheckControl& toggle,
                        QWidget* parent) {
    auto* const button = new QPushButton(text, parent);
    button->setObjectName(name);
    button->setToolTip(tip);
    bind(*button, toggle);
    return button;
}

QPushButton* makeKeyboardButton(const char* name, const char* text, const char* tip, PictureControl& button,
                                QWidget* parent) {
    auto* const widget = new QPushButton(text, parent);
    widget->setObjectName(name);
    widget->setToolTip(tip);
    bindShown(*widget, button,
              [widget, &button] { widget->setIcon(icon(QString::fromStdString(button.picture()))); });
    QObject::connect(widget, &QPushButton::clicked, widget, [&button] { button.userPut(Value(1LL)); });
    return widget;
}

QWidget* makeKeyboardSlider(KeyboardSliders& sliders, KeyboardSliders::Slider slider, const char* caption,
                            const char* readoutName, TextControl& readout, QWidget* parent) {
    auto* const box = new QWidget(parent);
    auto* const number = new QLabel(box);
    number->setObjectName(readoutName);
    number->setToolTip(caption);
    number->setAccessibleName(caption);
    number->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    auto& control = sliders.control(slider);
    auto* const track = new SliderTrack(control, box);
    track->setObjectName(KeyboardSliders::name(slider));
    track->setAccessibleName(caption);
    track->setToolTip(QStringLiteral("%1; the right button puts it to rest").arg(caption));
    track->setMouseTracking(true);
    attach(*track, sliders, slider);
    bindShown(*track, control, [track] { track->showNumber(); });
    bindShown(*number, readout, [number, track, &readout] {
        number->setText(readable(readout.text()));
        track->showNumber();
    });
    auto* const grid = new QGridLayout(box);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(rowSpace);
    for (const int line : {0, 1}) grid->setRowMinimumHeight(line, rowHeight);
    grid->addWidget(makeCaption(caption, box), 0, 0);
    grid->addWidget(number, 0, 1);
    grid->addWidget(track, 1, 0, 1, 2);
    grid->setColumnStretch(1, 1);
    box->setMinimumWidth(sliderWidth);
    return box;
}

}  // namespace melvane
