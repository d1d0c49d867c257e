#include "synth/qt_key_preview.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QWindow>
#include <utility>

#include "core/qt_mouse.h"
#include "synth/keyboard_commands.h"
#include "synth/qt_key_codes.h"

namespace melvane {

KeyPreview::KeyPreview(const Studio& studio, QWidget& window, KeyboardCommands& commands)
    : studio_(studio), window_(window), commands_(commands) {
    qApp->installEventFilter(this);
}

KeyPreview::~KeyPreview() { qApp->removeEventFilter(this); }

bool KeyPreview::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
            // The system's window has them before any control. A release counts wherever it comes.
            return watched->isWindowType() &&
                   handle(static_cast<QKeyEvent&>(*event), watched == window_.windowHandle());
        case QEvent::WindowDeactivate:
        case QEvent::WindowBlocked:
        case QEvent::Hide:
            if (watched == &window_) releaseAll();
            return false;
        default:
            return false;
    }
}

bool KeyPreview::isEditing() const { return studio_.frmsynth.Check1.ticked(); }

bool KeyPreview::handle(QKeyEvent& event, bool here) {
    deliverTyped();
    if (event.type() == QEvent::KeyRelease) return release(event) && here;
    // An open list has the keyboard for itself.
    if (!here || isEditing() || QApplication::activePopupWidget() != nullptr) return false;
    return press(event);
}

bool KeyPreview::press(const QKeyEvent& event) {
    const auto typed = typedKey(event);
    if (!typed) {
        const bool returns = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
        return returns && !event.isAutoRepeat() && pressFocused();
    }
    held_[keyIdentity(event)] = typed->code;
    typed_ = typed->character;
    commands_.keys.Form_KeyDown(typed->code, shiftMask(event));
    deliverTyped();
    return true;
}

/// The character comes before every later event, also when the handler of its key waits for a strum.
void KeyPreview::deliverTyped() {
    if (const auto character = std::exchange(typed_, std::nullopt)) commands_.keys.Form_KeyPress(*character);
}

/// Whether it was a key of ours.
bool KeyPreview::release(const QKeyEvent& event) {
    const auto held = held_.find(keyIdentity(event));
    if (held == held_.end()) return false;
    if (event.isAutoRepeat()) return true;
    const int code = held->second;
    held_.erase(held);
    commands_.keys.Form_KeyUp(code, shiftMask(event));
    return true;
}

/// The Spacebar is a key of the keyboard: buttons and lists answer to the Return key in its place.
bool KeyPreview::pressFocused() const {
    QWidget* const focused = window_.focusWidget();
    if (auto* const button = qobject_cast<QAbstractButton*>(focused)) {
        button->click();
        return true;
    }
    if (auto* const list = qobject_cast<QComboBox*>(focused)) {
        list->showPopup();
        return true;
    }
    return false;
}

void KeyPreview::releaseAll() {
    deliverTyped();
    held_.clear();
    commands_.releaseHeldKeys();
}

}  // namespace melvane
