#pragma once
#include <QWidget>

#include "core/controls.h"

class QAbstractButton;
class QComboBox;
class QLabel;
class QLineEdit;
class QScrollBar;

/// Join a widget to the control that it shows: the widget follows each change of the control without
/// answering it, and what the user does goes to the control. The control must outlive the widget; a control
/// is shown by one widget at a time. User-interface thread.
namespace melvane {

void bind(QLabel& label, TextControl& text);
void bind(QLineEdit& field, TextControl& text);
void bind(QAbstractButton& button, CheckControl& check);
void bind(QAbstractButton& button, ButtonControl& control);
void bind(QComboBox& list, ListControl& entries);
void bind(QScrollBar& bar, ScrollControl& scroll);

/// A box for a number, typed in one go: while it is empty under the user's hand nothing is put, and one that
/// is left empty has its number back. `shown` runs after each change.
void bindNumber(QLineEdit& field, TextControl& number, std::function<void()> shown = {});

/// The general case: `show` brings the widget to the control's contents; it runs at once and after each
/// change. Visibility, enabled state and, where the control has one, the tool tip follow by themselves.
void bindShown(QWidget& widget, Control& control, std::function<void()> show);
/// For areas, of which only those follow.
inline void bindState(QWidget& widget, Control& control) {
    bindShown(widget, control, [] {});
}

/// An array member's name: "TrackHide(2)".
QString memberName(const char* array, int index);

}  // namespace melvane
