#include "ui/qt_bindings.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QSignalBlocker>

namespace melvane {

namespace {

constexpr const char* tipFollows = "tipFollows";
constexpr const char* focusReturns = "focusReturns";

/// A widget that is disabled with the focus does not push it to a neighbour, and has it back afterwards, as
/// a window that comes to the front has it: nobody moved it.
void setEnabled(QWidget& widget, bool enabled) {
    if (!enabled && widget.window()->focusWidget() == &widget) {
        widget.clearFocus();
        widget.setProperty(focusReturns, true);
    }
    widget.setEnabled(enabled);
    if (!enabled || !widget.property(focusReturns).toBool()) return;
    widget.setProperty(focusReturns, false);
    if (widget.window()->focusWidget() == nullptr) widget.setFocus(Qt::ActiveWindowFocusReason);
}

void followState(QWidget& widget, const Control& control) {
    if (widget.isHidden() == control.visible()) widget.setVisible(control.visible());
    setEnabled(widget, control.enabled());
    // A widget whose control never had a tip keeps its own.
    if (control.tip().empty() && !widget.property(tipFollows).toBool()) return;
    widget.setProperty(tipFollows, true);
    widget.setToolTip(QString::fromStdString(control.tip()));
}

void fillList(QComboBox& list, const ListControl& entries) {
    const auto& items = entries.items();
    bool same = list.count() == static_cast<int>(items.size());
    for (int index = 0; same && index < list.count(); ++index) {
        same = list.itemText(index).toStdString() == items[static_cast<std::size_t>(index)];
    }
    if (same) return;
    list.clear();
    for (const auto& item : items) list.addItem(QString::fromStdString(item));
}

}  // namespace

void bindShown(QWidget& widget, Control& control, std::function<void()> show) {
    control.changed = [&widget, &control, show = std::move(show)] {
        const QSignalBlocker quiet(widget);
        followState(widget, control);
        show();
    };
    control.changed();
    QObject::connect(&widget, &QObject::destroyed, [&control] { control.changed = nullptr; });
}

void bind(QLabel& label, TextControl& text) {
    bindShown(label, text, [&] { label.setText(QString::fromStdString(text.text())); });
}

namespace {

void showText(QLineEdit& field, const TextControl& text) {
    const auto shown = QString::fromStdString(text.text());
    if (field.text() != shown) field.setText(shown);
}

}  // namespace

void bindNumber(QLineEdit& field, TextControl& number, std::function<void()> shown) {
    bindShown(field, number, [&field, &number, shown = std::move(shown)] {
        showText(field, number);
        if (shown) shown();
    });
    QObject::connect(&field, &QLineEdit::textEdited, &field, [&field, &number](const QString& typed) {
        if (!typed.isEmpty() || !field.hasFocus()) number.userPut(typed.toStdString());
    });
    QObject::connect(&field, &QLineEdit::editingFinished, &field,
                     [&field, &number] { showText(field, number); });
}

void bind(QLineEdit& field, TextControl& text) {
    bindShown(field, text, [&] { showText(field, text); });
    QObject::connect(&field, &QLineEdit::textEdited, &field,
                     [&text](const QString& typed) { text.userPut(typed.toStdString()); });
}

void bind(QAbstractButton& button, CheckControl& check) {
    button.setCheckable(true);
    bindShown(button, check, [&] { button.setChecked(check.ticked()); });
    QObject::connect(&button, &QAbstractButton::toggled, &button,
                     [&check](bool on) { check.userPut(Value(on)); });
}

void bind(QAbstractButton& button, ButtonControl& control) {
    bindShown(button, control, [&] { button.setText(QString::fromStdString(control.caption())); });
    QObject::connect(&button, &QAbstractButton::clicked, &button,
                     [&control] { control.userPut(Value(1LL)); });
}

void bind(QComboBox& list, ListControl& entries) {
    bindShown(list, entries, [&] {
        fillList(list, entries);
        list.setCurrentIndex(entries.index());
    });
    QObject::connect(&list, &QComboBox::activated, &list,
                     [&entries](int index) { entries.userPut(Value(static_cast<long long>(index))); });
}

void bind(QScrollBar& bar, ScrollControl& scroll) {
    bindShown(bar, scroll, [&] {
        bar.setRange(scroll.minimum(), scroll.maximum());
        bar.setPageStep(scroll.largeChange());
        bar.setValue(scroll.value());
    });
    QObject::connect(&bar, &QScrollBar::valueChanged, &bar,
                     [&scroll](int value) { scroll.userPut(Value(static_cast<long long>(value))); });
}

QString memberName(const char* array, int index) { return QStringLiteral("%1(%2)").arg(array).arg(index); }

}  // namespace melvane
