#include "playback_gestures.h"

#include <QAbstractSlider>
#include <QApplication>
#include <QMenu>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <QWindow>
#include <memory>

#include "midi/setup_sliders.h"
#include "ui/slider_panel.h"

namespace melvane::bench {

namespace {

constexpr int apart =
    1000;  // milliseconds between two events, as they are stamped: none makes a double click

/// Where the mouse is, in pixels of the window; no window when there is nothing to aim at.
struct Target {
    QWindow* window = nullptr;
    QPointF at;
};
using Aim = std::function<Target()>;

/// A part of a window that the user can reach now.
QWidget* reachable(const char* window, const char* name) {
    QWidget* found = nullptr;
    for (QWidget* const top : QApplication::topLevelWidgets()) {
        if (top->objectName() == window && top->isVisible()) found = top->findChild<QWidget*>(name);
    }
    return found != nullptr && found->isVisible() && found->isEnabled() ? found : nullptr;
}

/// `x` and `y` from 0 to 1 over the part's width and height.
Aim at(const char* window, const char* name, double x = 0.5, double y = 0.5) {
    return [=]() -> Target {
        QWidget* const part = reachable(window, name);
        if (part == nullptr) return {};
        const QPointF inside(x * part->width(), y * part->height());
        return {part->window()->windowHandle(), part->mapTo(part->window(), inside)};
    };
}

QMenu* openMenu() { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); }

/// An entry of a menu that is open, or of the one that it was opened from.
Aim atEntry(const char* caption) {
    return [=]() -> Target {
        for (QWidget* const top : QApplication::topLevelWidgets()) {
            const auto* const menu = qobject_cast<QMenu*>(top);
            if (menu == nullptr || !menu->isVisible()) continue;
            for (QAction* const action : menu->actions()) {
                if (action->text() == caption)
                    return {menu->windowHandle(), QPointF(menu->actionGeometry(action).center())};
            }
        }
        return {};
    };
}

QTabBar* tabs() {
    auto* const pages = static_cast<QTabWidget*>(reachable("Form3", "SSTab1"));
    return pages != nullptr ? pages->tabBar() : nullptr;
}

Aim atTab(int page) {
    return [=]() -> Target {
        const QTabBar* const bar = tabs();
        if (bar == nullptr) return {};
        return {bar->window()->windowHandle(),
                bar->mapTo(bar->window(), QPointF(bar->tabRect(page).center()))};
    };
}

/// What a slider or a bar shows.
std::optional<int> shownBy(const char* window, const char* name) {
    QWidget* const part = reachable(window, name);
    if (const auto* const track = qobject_cast<SliderTrack*>(part)) return track->control().number();
    if (const auto* const bar = qobject_cast<QAbstractSlider*>(part)) return bar->value();
    return std::nullopt;
}

bool sendMouse(const Aim& aim, QEvent::Type type, Qt::MouseButton button) {
    static Qt::MouseButtons held;
    static int stamp = 0;
    const Target target = aim();
    if (target.window == nullptr) return false;
    if (type == QEvent::MouseButtonPress) held |= button;
    if (type == QEvent::MouseButtonRelease) held &= ~button;
    qt_handleMouseEvent(target.window, target.at, target.window->mapToGlobal(target.at), held,
                        type == QEvent::MouseMove ? Qt::NoButton : button, type, {}, stamp += apart);
    return true;
}

bool escape() {
    QMenu* const menu = openMenu();
    if (menu == nullptr) return false;
    qt_handleKeyEvent(menu->windowHandle(), QEvent::KeyPress, Qt::Key_Escape, {});
    return true;
}

/// The gestures as they are put together.
class Script {
 public:
    std::vector<Gesture> gestures;

    void addMenus(Stage& stage);
    void addEditingToolbar();
    void addSetupToolbar();
    void addRest();

 private:
    void addMouse(const std::string& name, const Aim& aim, QEvent::Type type,
                  Qt::MouseButton button = Qt::LeftButton);
    void addClick(const std::string& name, const Aim& aim, Qt::MouseButton button = Qt::LeftButton);
    void addPick(const std::string& name, const char* button, const char* caption);
    void addClosing(const std::string& menu);
    void addSlider(const char* window, const char* strip);
    void addBar(const char* window, const char* bar, double x, double y);
    void addPage(int page);
    void expectChange(const char* window, const char* name);
};

void Script::addMouse(const std::string& name, const Aim& aim, QEvent::Type type, Qt::MouseButton button) {
    gestures.push_back({name, [=] { return sendMouse(aim, type, button); }, {}});
}

void Script::addClick(const std::string& name, const Aim& aim, Qt::MouseButton button) {
    addMouse("press to " + name, aim, QEvent::MouseButtonPress, button);
    addMouse("let go to " + name, aim, QEvent::MouseButtonRelease, button);
}

void Script::addPick(const std::string& name, const char* button, const char* caption) {
    addClick("open the menu to " + name, at("form1", button));
    addClick(name, atEntry(caption));
}

void Script::addClosing(const std::string& menu) { gestures.push_back({"close " + menu, escape, {}}); }

/// The last gesture must change what a slider or a bar shows.
void Script::expectChange(const char* window, const char* name) {
    auto& gesture = gestures.back();
    const auto before = std::make_shared<std::optional<int>>();
    gesture.run = [=, run = gesture.run] {
        *before = shownBy(window, name);
        return run();
    };
    gesture.check = [=] { return *before && shownBy(window, name) != *before; };
}

void Script::addSlider(const char* window, const char* strip) {
    const std::string name = std::string(" ") + window + "." + strip;
    addMouse("press" + name, at(window, strip, 0.3), QEvent::MouseButtonPress);
    addMouse("move" + name, at(window, strip, 0.6), QEvent::MouseMove);
    expectChange(window, strip);
    addMouse("move on" + name, at(window, strip, 0.9), QEvent::MouseMove);
    expectChange(window, strip);
    addMouse("let go of" + name, at(window, strip, 0.9), QEvent::MouseButtonRelease);
}

void Script::addBar(const char* window, const char* bar, double x, double y) {
    const std::string name = std::string(" ") + window + "." + bar;
    addMouse("press" + name, at(window, bar, x, y), QEvent::MouseButtonPress);
    expectChange(window, bar);
    addMouse("let go of" + name, at(window, bar, x, y), QEvent::MouseButtonRelease);
}

void Script::addPage(int page) {
    addClick("come to page " + std::to_string(page), atTab(page));
    gestures.back().check = [page] { return tabs() != nullptr && tabs()->currentIndex() == page; };
}

void Script::addMenus(Stage& stage) {
    for (const char* const button : {"ImgPic(3)", "ImgPic(8)", "ImgPic(12)"}) {
        addClick(std::string("open the menu of ") + button, at("form1", button));
        addClosing(std::string("the menu of ") + button);
    }
    addClick("open the program's menu", at("form1", "toolbMenu", 0.004), Qt::RightButton);
    addClick("open the menu inside it", atEntry("Interface"));
    addClosing("the inner menu");
    addClosing("the program's menu");
    // No press reaches the tablet now, so its menu comes without one.
    gestures.push_back({"open the tablet's menu",
                        [&stage] {
                            stage.program.engine().menus.openTabletMenu({});
                            return openMenu() != nullptr;
                        },
                        {}});
    addClosing("the tablet's menu");
}

void Script::addEditingToolbar() {
    addClick("show the Editing toolbar", at("form1", "ImgPic(9)"));
    addMouse("come near its switch", at("Form2", "ImgPic(11)"), QEvent::MouseMove);
    addClick("switch it to selecting", at("Form2", "Cmd2(11)"));
    for (const char* const bar : {"VScroll2", "VScroll4", "VScroll3"}) addBar("Form2", bar, 0.5, 0.25);
    addClick("close the Editing toolbar", at("Form2", "imgTitleClose"));
    addClick("show the Editing toolbar again", at("form1", "ImgPic(9)"));
}

void Script::addSetupToolbar() {
    using Sliders = SetupSliders;
    addPick("show the Setup toolbar", "ImgPic(8)", "Setup Toolbar");
    addSlider("Form3", Sliders::name(Sliders::tempo));
    addSlider("Form3", Sliders::name(Sliders::beats));
    addPage(1);
    for (const auto slider :
         {Sliders::volume, Sliders::modulation, Sliders::pan, Sliders::reverb, Sliders::chorus}) {
        addSlider("Form3", Sliders::name(slider));
    }
    addPage(2);
    addPage(3);
    addBar("Form3", "VScroll3", 0.95, 0.5);
    addPage(0);
    addPick("hide the Setup toolbar", "ImgPic(8)", "Setup Toolbar");
    addPick("show the Setup toolbar again", "ImgPic(8)", "Setup Toolbar");
    addClick("close the Setup toolbar", at("Form3", "imgTitleClose"));
    addPick("open the Setup toolbar anew", "ImgPic(8)", "Setup Toolbar");
}

void Script::addRest() {
    addSlider("Form5", "lblVolume");
    addClick("close the note test", at("Form5", "imgTitleClose"));
    addPick("show the help", "ImgPic(12)", "Help");
    addClick("close the help", at("Help", "imgTitleClose"));
}

}  // namespace

std::vector<Gesture> allGestures(Stage& stage) {
    Script script;
    script.addMenus(stage);
    script.addEditingToolbar();
    script.addSetupToolbar();
    script.addRest();
    return std::move(script.gestures);
}

}  // namespace melvane::bench
