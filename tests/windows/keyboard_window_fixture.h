#pragma once
#include <QMouseEvent>
#include <QTabWidget>
#include <QTest>
#include <QWindow>

#include "main_window_fixture.h"
#include "synth/keyboard_window.h"

namespace melvane::test {

/// The keyboard window, loaded and in front, 1280 by 720 pixels large, with the scheme "004.key".
class KeyboardWindowTest : public MainWindowTest {
 protected:
    KeyboardWindowTest() {
        keyboard.useSettings(engine.settings);
        keyboard.show();
        keyboard.resize(1280, 720);
        keyboard.activateWindow();
        QCoreApplication::processEvents();
        port.log().take();
    }

    template <class Widget = QWidget>
    Widget& part(const QString& name) {
        auto* const found = keyboard.findChild<Widget*>(name);
        EXPECT_NE(found, nullptr) << name.toStdString();
        return *found;
    }
    QTabWidget& pages() { return part<QTabWidget>("SSTab1"); }
    void open(int page) {
        pages().setCurrentIndex(page);
        QCoreApplication::processEvents();
    }
    /// The messages since the last call, without their moments.
    std::vector<std::string> sent() {
        std::vector<std::string> lines;
        for (const auto& line : port.log().take()) lines.push_back(line.substr(line.find(' ') + 1));
        return lines;
    }
    // A key of the machine, as the system tells it.
    void press(int key, const QString& text, bool repeats = false, Qt::KeyboardModifiers modifiers = {}) {
        send(QEvent::KeyPress, key, text, repeats, modifiers);
    }
    void release(int key, const QString& text = {}, bool repeats = false) {
        send(QEvent::KeyRelease, key, text, repeats, {});
    }
    void send(QEvent::Type type, int key, const QString& text, bool repeats,
              Qt::KeyboardModifiers modifiers) {
        QKeyEvent event(type, key, modifiers, text, repeats);
        QCoreApplication::sendEvent(keyboard.windowHandle(), &event);
    }
    static void moveMouse(QWidget& widget, QPoint to, Qt::MouseButtons down = {}) {
        QMouseEvent move(QEvent::MouseMove, to, widget.mapToGlobal(to), Qt::NoButton, down, {});
        QCoreApplication::sendEvent(&widget, &move);
    }
    KeyboardControls& controls() { return studio.frmsynth; }

    frmsynth keyboard{studio, engine.keyboard};
};

}  // namespace melvane::test
