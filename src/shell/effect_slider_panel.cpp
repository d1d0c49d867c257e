#include "shell/effect_slider_panel.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

#include "shell/engine.h"
#include "ui/qt_accessibility.h"
#include "ui/qt_bindings.h"
#include "ui/qt_style.h"
#include "ui/slider_panel.h"

namespace melvane {

namespace {

constexpr int panelMargin = 12, rowHeight = 24, rowSpace = 4;  // pixels

struct SliderEntry {
    SliderTexts texts;
    SliderControl MainControls::*slider;
    TextControl MainControls::*number;
};

constexpr std::array<SliderEntry, 5> sliders{
    {{{"Volume", "Note Volume", "lblVolume", "vol3"}, &MainControls::lblVolume, &MainControls::vol3},
     {{"Modulation", "Modulation Value", "LblMod", "T1"}, &MainControls::LblMod, &MainControls::T1},
     {{"Pan", "Pan Value", "LblPan", "T2"}, &MainControls::LblPan, &MainControls::T2},
     {{"Reverb", "Reverb Value", "LblReverb", "T3"}, &MainControls::LblReverb, &MainControls::T3},
     {{"Chorus", "Chorus Value", "LblChorus", "T4"}, &MainControls::LblChorus, &MainControls::T4}}};

constexpr std::array effectNames{"Mod", "Pan", "Rev", "Cho"};
constexpr int mostEffect = 127;

/// One line of the effect read-out: its name and a small pointer over its way.
class EffectGauge : public QWidget {
 public:
    EffectGauge(const char* name, const ScrollControl& value, QWidget* parent)
        : QWidget(parent), name_(name), value_(value) {
        setProperty(spokenAsPicture, true);
    }
    void showValue() {
        setAccessibleName(QStringLiteral("%1 %2").arg(name_).arg(value_.value()));
        update();
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

}  // namespace

EffectSlidersPanel::EffectSlidersPanel(Studio& studio, QWidget* parent) : QFrame(parent) {
    setProperty("panel", true);
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(panelMargin, panelMargin, panelMargin, panelMargin);
    row->setSpacing(12);
    for (std::size_t at = 0; at < sliders.size(); ++at) {
        const auto& entry = sliders[at];
        const SliderBox box =
            makeSlider(entry.texts, studio.form1.*entry.slider, studio.form1.*entry.number, this);
        row->addLayout(box.layout);
        tracks_[at] = box.track;
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
        bindShown(*gauge, value, [gauge] { gauge->showValue(); });
        lines->addWidget(gauge);
    }
}

}  // namespace melvane
