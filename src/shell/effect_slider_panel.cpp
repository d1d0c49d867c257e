#include "shell/effect_slider_panel.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <algorithm>
#include <array>

#include "core/numbers.h"
#include "core/qt_mouse.h"
#include "shell/engine.h"
#include "ui/qt_bindings.h"
#include "ui/qt_style.h"

namespace melvane {

namespace {

constexpr int wheelNotch = 120;
constexpr int panelMargin = 12, rowHeight = 24, rowSpace = 4;  // pixels

struct SliderEntry {
    const char *name, *tip, *track, *number;
    SliderControl MainControls::*slider;
    TextControl MainControls::*value;
    SliderScale scale;
};

// A drag counts from 1 on the three effects and from -63 on the pan; 0 stands left of their way.
constexpr SliderScale fromZero{0, 127}, fromOne{1, 127}, aroundZero{-63, 128};
constexpr std::array<SliderEntry, 5> sliders{
    {{"Volume", "Note Volume", "lblVolume", "vol3", &MainControls::lblVolume, &MainControls::vol3, fromZero},
     {"Modulation", "Modulation Value", "LblMod", "T1", &MainControls::LblMod, &MainControls::T1, fromOne},
     {"Pan", "Pan Value", "LblPan", "T2", &MainControls::LblPan, &MainControls::T2, aroundZero},
     {"Reverb", "Reverb Value", "LblReverb", "T3", &MainControls::LblReverb, &MainControls::T3, fromOne},
     {"Chorus", "Chorus Value", "LblChorus", "T4", &MainControls::LblChorus, &MainControls::T4, fromOne}}};

constexpr std::array effectNames{"Mod", "Pan", "Rev", "Cho"};
constexpr int mostEffect = 127;

/// One line of the effect read-out: its name and a small pointer over its way.
class EffectGauge : public QWidget {
 public:
    EffectGauge(const char* name, const ScrollControl& value, QWidget* parent)
        : QWidget(parent), name_(name), value_(value) {
        setAccessibleName(name_);
    }
    QSize sizeHint() const override { return {wayLeft() + 48, (2 * rowHeight + rowSpace) / lines}; }

 protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        const int middle = height() / 2, left = wayLeft();
        painter.setPen(isEnabled() ? palette::secondaryText : palette::disabledText);
        painter.drawText(0, middle + (fontMetrics().capHeight() + 1) / 2, name_);
        painter.fillRect(left, middle - 1, width() - left, 2, palette::panelEdge);
        const int way = width() - left - pointer;
        const int x = left + std::clamp(value_.value(), 0, mostEffect) * way / mostEffect;
        painter.fillRect(x, middle - 5, pointer, 10, isEnabled() ? palette::accent : palette::disabledText);
    }

 private:
    static constexpr int lines = 4, pointer = 4;
    int wayLeft() const { return fontMetrics().horizontalAdvance("Mod") + 8; }

    QString name_;
    const ScrollControl& value_;
};

SliderTrack* makeSlider(const SliderEntry& entry, Studio& studio, QHBoxLayout& row, QWidget* parent) {
    auto* const name = new QLabel(entry.name, parent);
    name->setProperty("secondary", true);
    auto* const number = new QLabel(parent);
    number->setObjectName(entry.number);
    number->setAccessibleName(entry.tip);
    number->setToolTip(entry.tip);
    number->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    auto* const track = new SliderTrack(entry.scale, studio.form1.*entry.slider, parent);
    track->setObjectName(entry.track);
    track->setAccessibleName(entry.name);
    track->setToolTip(entry.tip);
    bindState(*track, studio.form1.*entry.slider);
    auto& value = studio.form1.*entry.value;
    bindShown(*number, value, [number, track, &value] {
        number->setText(QString::fromStdString(value.text()));
        track->showNumber(static_cast<int>(leadingNumber(value.text())));
    });
    auto* const grid = new QGridLayout;
    grid->setSpacing(rowSpace);
    for (const int line : {0, 1}) grid->setRowMinimumHeight(line, rowHeight);
    grid->addWidget(name, 0, 0);
    grid->addWidget(number, 0, 1);
    grid->addWidget(track, 1, 0, 1, 2);
    grid->setColumnMinimumWidth(1, 26);
    grid->setColumnStretch(0, 1);
    row.addLayout(grid);
    return track;
}

}  // namespace

SliderTrack::SliderTrack(SliderScale scale, SliderControl& control, QWidget* parent)
    : QWidget(parent), scale_(scale), control_(control) {
    setFocusPolicy(Qt::StrongFocus);
    control_.pointerWidth = pointerWidth;
}

void SliderTrack::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    control_.trackWidth = width();
}

void SliderTrack::showNumber(int number) {
    number_ = number;
    update();
}

void SliderTrack::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double way = width() - pointerWidth;
    const double fraction = std::clamp(static_cast<double>(number_ - scale_.first) / scale_.steps, 0.0, 1.0);
    const double x = way * fraction, middle = height() / 2.0;
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette::panelEdge);
    painter.drawRoundedRect(QRectF(0, middle - 2, width(), 4), 2, 2);
    painter.setBrush(isEnabled() ? palette::accent : palette::disabledText);
    const double origin = scale_.first < 0 ? way / 2 : 0;
    painter.drawRoundedRect(
        QRectF(std::min(origin, x) + pointerWidth / 2.0, middle - 2, std::abs(x - origin), 4), 2, 2);
    painter.setPen(QPen(hasFocus() ? palette::accent : palette::fieldEdge, hasFocus() ? 2 : 1));
    painter.setBrush(isEnabled() ? palette::field : palette::panel);
    painter.drawRoundedRect(QRectF(x + 1, middle - 8, pointerWidth - 2, 16), 3, 3);
}

void SliderTrack::mousePressEvent(QMouseEvent* event) {
    if (pressed) pressed(buttonMask(event->button()), event->position().x());
}

void SliderTrack::mouseMoveEvent(QMouseEvent* event) {
    if (moved) moved(buttonMask(event->buttons()), event->position().x());
}

void SliderTrack::mouseReleaseEvent(QMouseEvent* event) {
    if (released) released(buttonMask(event->button()), event->position().x());
}

void SliderTrack::wheelEvent(QWheelEvent* event) {
    wheelRest_ += event->angleDelta().y();
    const int steps = wheelRest_ / wheelNotch;
    wheelRest_ -= steps * wheelNotch;
    if (stepped && steps != 0) stepped(steps);
    event->accept();
}

void SliderTrack::keyPressEvent(QKeyEvent* event) {
    const bool up = event->key() == Qt::Key_Up || event->key() == Qt::Key_Right;
    const bool down = event->key() == Qt::Key_Down || event->key() == Qt::Key_Left;
    if (!up && !down) return QWidget::keyPressEvent(event);
    if (stepped) stepped(up ? 1 : -1);
}

EffectSlidersPanel::EffectSlidersPanel(Studio& studio, QWidget* parent) : QFrame(parent) {
    setProperty("panel", true);
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(panelMargin, panelMargin, panelMargin, panelMargin);
    row->setSpacing(12);
    for (std::size_t at = 0; at < sliders.size(); ++at) {
        tracks_[at] = makeSlider(sliders[at], studio, *row, this);
    }
}

void EffectSlidersPanel::attach(Engine& engine) {
    for (std::size_t at = 0; at < tracks_.size(); ++at) {
        const auto slider = static_cast<PanelSliders::Slider>(at);
        auto& track = *tracks_[at];
        // A click without a move counts as well.
        track.pressed = [&engine, slider](int, double) { engine.sliders.press(slider); };
        track.moved = [&engine, slider](int button, double x) { engine.sliders.move(slider, button, x); };
        track.released = [&engine, slider](int, double) { engine.sliders.release(slider); };
        track.stepped = [&engine, slider](int steps) { engine.sliders.step(slider, steps); };
    }
}

EffectReadoutPanel::EffectReadoutPanel(Studio& studio, QWidget* parent) : QFrame(parent) {
    setObjectName("Picture10");
    setProperty("panel", true);
    setToolTip("Effects of the note under inspection");
    auto* const lines = new QVBoxLayout(this);
    lines->setContentsMargins(panelMargin, panelMargin, panelMargin, panelMargin);
    lines->setSpacing(0);
    for (std::size_t at = 0; at < effectNames.size(); ++at) {
        auto& value = studio.form1.Picture10[at];
        auto* const gauge = new EffectGauge(effectNames[at], value, this);
        bindShown(*gauge, value, [gauge] { gauge->update(); });
        lines->addWidget(gauge);
    }
}

}  // namespace melvane
