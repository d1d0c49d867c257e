#include "every_window.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QTabBar>
#include <QTabWidget>

#include "tutorial/lessons.h"

namespace melvane::test {

namespace {

template <int page>
void openPage(Program&, QWidget& window) {
    window.findChild<QTabWidget*>("SSTab1")->setCurrentIndex(page);
}

void nothing(Program&, QWidget&) {}

void showTableau(Program& program, QWidget&) { program.studio().form1.Beatbox.setVisible(true); }

void tickEffects(Program&, QWidget& window) { window.findChild<QAbstractButton*>("Check1")->click(); }

void selectNotes(Program& program, QWidget&) { program.engine().editing.Cmd2_Click(11); }

void loadPicker(Program& program, QWidget&) { program.engine().picker.Form_Load(); }

void tellTip(Program& program, QWidget&) {
    program.studio().frminfo.Label1.set("Click the first button.\nThen click the second one.");
}

/// The labels of the keys take what is typed.
void editLabels(Program& program, QWidget&) { program.studio().frmsynth.Check1.userPut(Value(true)); }

void disable(Program&, QWidget& window) { window.setEnabled(false); }

void addLessons(std::vector<WindowState>& states) {
    for (int lesson = 0; const Lesson* const table : lessons()) {
        states.push_back({"Wiz", table->labels,
                          [lesson](Program& program, QWidget&) { program.studio().Wiz.SSTab1.set(lesson); }});
        ++lesson;
    }
}

}  // namespace

const std::vector<WindowState>& windowStates() {
    static const std::vector<WindowState> all = [] {
        std::vector<WindowState> states{{"form1", "Drawing", nothing},
                                        {"form1", "Tableau", showTableau},
                                        {"form1", "Effects", tickEffects},
                                        {"Form2", "Drawing", nothing},
                                        {"Form2", "Selecting", selectNotes},
                                        {"Form3", "Setup", openPage<0>},
                                        {"Form3", "Sound", openPage<1>},
                                        {"Form3", "Chords", openPage<2>},
                                        {"Form3", "Configuration", openPage<3>},
                                        {"Form5", "Note", nothing},
                                        {"FrmInst", "Lists", loadPicker},
                                        {"Record", "Stopped", nothing},
                                        {"Record", "Disabled", disable},
                                        {"frmLog", "Empty", nothing},
                                        {"frminfo", "Tip", tellTip},
                                        {"frmsynth", "Setup", openPage<0>},
                                        {"frmsynth", "Compose", openPage<1>},
                                        {"frmsynth", "FirstSound", openPage<2>},
                                        {"frmsynth", "SecondSound", openPage<3>},
                                        {"frmsynth", "Editing", editLabels},
                                        {"Help", "Topics", nothing}};
        addLessons(states);
        return states;
    }();
    return all;
}

void PrintTo(const WindowState& state, std::ostream* out) { *out << state.window << ' ' << state.state; }

std::string nameOf(const testing::TestParamInfo<WindowState>& state) {
    return std::string(state.param.window) + state.param.state;
}

EveryWindow::EveryWindow() {
    time.serveToolkit = serve;
    program.start();
    serve();
    const std::string name = GetParam().window;
    if (name == "Help") {
        program.engine().menus.Cmdhelp_Click();
        time.waitUntil(time.counter() + time.frequency());
    } else if (name != "form1") {
        EXPECT_TRUE(program.toolWindows().showWindow(name.c_str()));
    }
    for (QWidget* const widget : QApplication::topLevelWidgets()) {
        if (widget->objectName().toStdString() == name && widget->isVisible()) window = widget;
    }
    if (window == nullptr) throw std::runtime_error("there is no window " + name);
    window->activateWindow();
    serve();
    GetParam().bring(program, *window);
    serve();
}

EveryWindow::~EveryWindow() { program.window().unload(); }

void EveryWindow::serve() {
    for (int turn = 0; turn < 3; ++turn) QCoreApplication::processEvents();
}

bool EveryWindow::isSeen(const QWidget& part) const {
    return part.isVisibleTo(window) && !part.visibleRegion().isEmpty();
}

std::string EveryWindow::called(const QWidget& part) {
    const QString text = part.property("text").toString();
    return part.objectName().toStdString() + " (" + part.metaObject()->className() + ' ' +
           text.toStdString() + ')';
}

namespace {

/// A part of a control that the toolkit has made for it.
bool isOwnMake(const QWidget& part) {
    if (qobject_cast<const QTabBar*>(&part) != nullptr) return false;
    if (part.objectName().startsWith("qt_")) return true;
    for (const QWidget* outer = part.parentWidget(); outer != nullptr; outer = outer->parentWidget()) {
        if (qobject_cast<const QComboBox*>(outer) != nullptr ||
            qobject_cast<const QLineEdit*>(outer) != nullptr ||
            qobject_cast<const QTabBar*>(outer) != nullptr || outer->objectName().startsWith("qt_"))
            return true;
    }
    return false;
}

}  // namespace

std::vector<QWidget*> EveryWindow::parts() const {
    std::vector<QWidget*> found;
    for (QWidget* const part : window->findChildren<QWidget*>()) {
        if (part->window() == window && isSeen(*part) && !isOwnMake(*part)) found.push_back(part);
    }
    return found;
}

std::vector<QWidget*> EveryWindow::controls() const {
    std::vector<QWidget*> found;
    for (QWidget* const part : parts()) {
        const bool acts =
            qobject_cast<QAbstractButton*>(part) != nullptr ||
            qobject_cast<QAbstractSlider*>(part) != nullptr || qobject_cast<QLineEdit*>(part) != nullptr ||
            qobject_cast<QComboBox*>(part) != nullptr || qobject_cast<QAbstractItemView*>(part) != nullptr ||
            part->focusPolicy() != Qt::NoFocus;
        // Its bar of tabs has the keys.
        if (acts && qobject_cast<QTabWidget*>(part) == nullptr) found.push_back(part);
    }
    return found;
}

}  // namespace melvane::test
