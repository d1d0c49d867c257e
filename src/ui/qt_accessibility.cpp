#include "ui/qt_accessibility.h"

#include <QAbstractButton>
#include <QAccessibleWidget>

#include "core/surface_view.h"
#include "ui/slider_panel.h"

namespace melvane {

namespace {

class SpokenSlider final : public QAccessibleWidget, public QAccessibleValueInterface {
 public:
    explicit SpokenSlider(SliderTrack& track)
        : QAccessibleWidget(&track, QAccessible::Slider), track_(track) {}

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::ValueInterface) return static_cast<QAccessibleValueInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }
    QString text(QAccessible::Text wanted) const override {
        return wanted == QAccessible::Value ? currentValue().toString() : QAccessibleWidget::text(wanted);
    }
    QVariant currentValue() const override { return control().number(); }
    QVariant minimumValue() const override { return control().lowest(); }
    QVariant maximumValue() const override { return control().highest(); }
    QVariant minimumStepSize() const override { return 1; }
    void setCurrentValue(const QVariant& value) override {
        const int steps = value.toInt() - control().number();
        if (track_.stepped && track_.isEnabled() && steps != 0) track_.stepped(steps);
    }

 private:
    const SliderControl& control() const { return track_.control(); }

    SliderTrack& track_;
};

/// A button that is one of several.
class SpokenChoice final : public QAccessibleWidget {
 public:
    explicit SpokenChoice(QAbstractButton& button)
        : QAccessibleWidget(&button, QAccessible::RadioButton), button_(button) {}

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.checkable = true;
        state.checked = button_.property(spokenAsChosen).toBool();
        return state;
    }
    QStringList actionNames() const override { return QAccessibleWidget::actionNames() << pressAction(); }
    void doAction(const QString& name) override {
        name == pressAction() ? button_.click() : QAccessibleWidget::doAction(name);
    }

 private:
    QAbstractButton& button_;
};

bool has(const QObject& object, const char* property) { return object.property(property).isValid(); }

/// One of ours by what it is, nothing for the toolkit's own.
QAccessibleInterface* spoken(const QString&, QObject* object) {
    auto* const widget = qobject_cast<QWidget*>(object);
    if (widget == nullptr) return nullptr;
    if (auto* const track = qobject_cast<SliderTrack*>(widget)) return new SpokenSlider(*track);
    auto* const button = qobject_cast<QAbstractButton*>(widget);
    if (button != nullptr && has(*button, spokenAsChosen)) return new SpokenChoice(*button);
    if (qobject_cast<SurfaceView*>(widget) != nullptr || has(*widget, spokenAsPicture))
        return new QAccessibleWidget(widget, QAccessible::Canvas);
    return nullptr;
}

}  // namespace

void tellScreenReaders() { QAccessible::installFactory(spoken); }

}  // namespace melvane
