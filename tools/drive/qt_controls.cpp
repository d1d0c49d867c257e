#include "drive/qt_controls.h"

#include <QAbstractButton>
#include <QAbstractSlider>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QSpinBox>
#include <QTabWidget>

#include "core/controls.h"
#include "ui/slider_panel.h"

namespace melvane::drive {

namespace {

QString objectNameOf(const ControlPath& control) {
    const QString name = QString::fromStdString(control.name);
    return control.index ? QStringLiteral("%1(%2)").arg(name).arg(*control.index) : name;
}

QWidget* findNamed(const QWidget& window, const QString& name) {
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        if (widget->window() == &window && widget->objectName().compare(name, Qt::CaseInsensitive) == 0)
            return widget;
    }
    return nullptr;
}

Value whole(long long number) { return number; }
Value text(const QString& shown) { return shown.toStdString(); }

/// A list that gets the focus has a current row without a choice.
int chosenRow(const QListWidget& list) {
    if (list.selectionMode() == QAbstractItemView::NoSelection) return list.currentRow();
    const auto chosen = list.selectedItems();
    return chosen.isEmpty() ? -1 : list.row(chosen.front());
}

std::optional<Value> shownBy(const QWidget& widget) {
    if (const auto* label = qobject_cast<const QLabel*>(&widget)) return text(label->text());
    if (const auto* field = qobject_cast<const QLineEdit*>(&widget)) return text(field->text());
    if (const auto* page = qobject_cast<const QPlainTextEdit*>(&widget)) return text(page->toPlainText());
    if (const auto* combo = qobject_cast<const QComboBox*>(&widget)) return whole(combo->currentIndex());
    if (const auto* list = qobject_cast<const QListWidget*>(&widget)) return whole(chosenRow(*list));
    if (const auto* slider = qobject_cast<const QAbstractSlider*>(&widget)) return whole(slider->value());
    if (const auto* bar = qobject_cast<const QProgressBar*>(&widget)) return whole(bar->value());
    if (const auto* spin = qobject_cast<const QSpinBox*>(&widget)) return whole(spin->value());
    if (const auto* pages = qobject_cast<const QTabWidget*>(&widget)) return whole(pages->currentIndex());
    if (const auto* track = qobject_cast<const SliderTrack*>(&widget)) return track->control().shown();
    if (const auto* group = qobject_cast<const QGroupBox*>(&widget)) return text(group->title());
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) {
        return button->isCheckable() ? whole(button->isChecked() ? 1 : 0) : text(button->text());
    }
    return std::nullopt;
}

std::optional<long long> entryCount(const QWidget& widget) {
    if (const auto* combo = qobject_cast<const QComboBox*>(&widget)) return combo->count();
    if (const auto* list = qobject_cast<const QListWidget*>(&widget)) return list->count();
    if (const auto* pages = qobject_cast<const QTabWidget*>(&widget)) return pages->count();
    return std::nullopt;
}

std::optional<Value> entryText(const QWidget& widget, int index) {
    const auto count = entryCount(widget);
    if (!count || index < 0 || index >= *count) return std::nullopt;
    if (const auto* combo = qobject_cast<const QComboBox*>(&widget)) return text(combo->itemText(index));
    if (const auto* pages = qobject_cast<const QTabWidget*>(&widget)) return text(pages->tabText(index));
    return text(qobject_cast<const QListWidget*>(&widget)->item(index)->text());
}

/// Its own state, whatever that of the panel around it.
bool isSwitchedOff(const QWidget& widget) { return widget.testAttribute(Qt::WA_ForceDisabled); }
bool isTakenAway(const QWidget& widget) {
    return widget.isHidden() && widget.testAttribute(Qt::WA_WState_ExplicitShowHide);
}

std::optional<Value> partOf(const QWidget& widget, ControlPart part) {
    switch (part) {
        case ControlPart::shown:
            return shownBy(widget);
        case ControlPart::enabled:
            return whole(isSwitchedOff(widget) ? 0 : 1);
        case ControlPart::visible:
            return whole(isTakenAway(widget) ? 0 : 1);
        case ControlPart::tip:
            return text(widget.toolTip());
        case ControlPart::index:
            return entryCount(widget) ? shownBy(widget) : std::nullopt;
        case ControlPart::count: {
            const auto count = entryCount(widget);
            return count ? std::optional<Value>(*count) : std::nullopt;
        }
    }
    return std::nullopt;
}

PutResult type(QLineEdit& field, const Value& value) {
    const auto number = wholeNumber(value);
    const auto* typed = std::get_if<std::string>(&value);
    if (!number && typed == nullptr) return PutResult::refused;
    const QString shown = number ? QString::number(*number) : QString::fromStdString(*typed);
    field.setText(shown);
    Q_EMIT field.textEdited(shown);
    return PutResult::done;
}

PutResult click(QAbstractButton& button, const Value& value) {
    const auto number = wholeNumber(value);
    if (!number) return PutResult::refused;
    const bool wanted = *number != 0;
    if (button.isCheckable() ? button.isChecked() != wanted : wanted) button.click();
    return PutResult::done;
}

PutResult choose(QWidget& widget, const Value& value) {
    const auto number = wholeNumber(value);
    if (!number || *number < 0 || *number >= *entryCount(widget)) return PutResult::refused;
    const int index = static_cast<int>(*number);
    if (auto* combo = qobject_cast<QComboBox*>(&widget)) {
        combo->setCurrentIndex(index);
        Q_EMIT combo->activated(index);
    } else if (auto* list = qobject_cast<QListWidget*>(&widget)) {
        list->setCurrentRow(index);
        Q_EMIT list->itemClicked(list->item(index));
    } else if (auto* pages = qobject_cast<QTabWidget*>(&widget)) {
        pages->setCurrentIndex(index);
    }
    return PutResult::done;
}

template <class Ranged>
PutResult move(Ranged& ranged, const Value& value) {
    const auto number = wholeNumber(value);
    if (!number || *number < ranged.minimum() || *number > ranged.maximum()) return PutResult::refused;
    ranged.setValue(static_cast<int>(*number));
    return PutResult::done;
}

PutResult act(QWidget& widget, const Value& value) {
    if (auto* field = qobject_cast<QLineEdit*>(&widget)) return type(*field, value);
    if (auto* button = qobject_cast<QAbstractButton*>(&widget)) return click(*button, value);
    if (entryCount(widget)) return choose(widget, value);
    if (auto* slider = qobject_cast<QAbstractSlider*>(&widget)) return move(*slider, value);
    if (auto* spin = qobject_cast<QSpinBox*>(&widget)) return move(*spin, value);
    if (auto* track = qobject_cast<SliderTrack*>(&widget)) {
        return track->control().userPut(value) ? PutResult::done : PutResult::refused;
    }
    return PutResult::noControl;
}

}  // namespace

QWidget* findWidget(const QWidget& window, const ControlPath& control) {
    return findNamed(window, objectNameOf(control));
}

std::optional<Value> readWidget(const QWidget& window, const ControlPath& control) {
    if (const QWidget* widget = findWidget(window, control)) return partOf(*widget, control.part);
    const QWidget* whole = findNamed(window, QString::fromStdString(control.name));
    if (whole == nullptr || !control.index || control.part != ControlPart::shown) return std::nullopt;
    return entryText(*whole, *control.index);
}

PutResult putWidget(const QWidget& window, const ControlPath& control, const Value& value) {
    QWidget* widget = findWidget(window, control);
    if (widget == nullptr) return PutResult::noControl;
    if (!widget->isEnabled() && shownBy(*widget)) return PutResult::done;
    return act(*widget, value);
}

}  // namespace melvane::drive
