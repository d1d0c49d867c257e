#pragma once
#include <QInputEvent>
#include <Qt>
#include <functional>

#include "core/mouse_buttons.h"

namespace melvane {

/// Buttons as the handlers count them, added together.
inline int buttonMask(Qt::MouseButtons buttons) {
    return (buttons.testFlag(Qt::LeftButton) ? mouse::left : 0) +
           (buttons.testFlag(Qt::RightButton) ? mouse::right : 0) +
           (buttons.testFlag(Qt::MiddleButton) ? mouse::middle : 0);
}

/// Modifier keys as the handlers count them: 1 Shift, 2 Ctrl, 4 Alt, added together.
inline int shiftMask(const QInputEvent& event) {
    const auto keys = event.modifiers();
    return (keys.testFlag(Qt::ShiftModifier) ? 1 : 0) + (keys.testFlag(Qt::ControlModifier) ? 2 : 0) +
           (keys.testFlag(Qt::AltModifier) ? 4 : 0);
}

/// A press, move or release: the one button of a press or release, all that are held in a move, the keys, and
/// the position in logical pixels.
using MouseHandler = std::function<void(int button, int shift, double x, double y)>;

struct MouseHandlers {
    MouseHandler pressed, moved, released;
};

/// The three handlers as members of `part`, which must outlive them.
template <class Part>
MouseHandlers mouseHandlers(Part& part, void (Part::*press)(int, int, double, double),
                            void (Part::*move)(int, int, double, double),
                            void (Part::*release)(int, int, double, double)) {
    const auto handler = [&part](auto member) {
        return [&part, member](int button, int shift, double x, double y) {
            (part.*member)(button, shift, x, y);
        };
    };
    return {handler(press), handler(move), handler(release)};
}

}  // namespace melvane
