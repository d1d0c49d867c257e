#include "app/program.h"

#include <algorithm>
#include <array>
#include <system_error>
#include <utility>

#include "platform/text.h"
#include "recorder/log_window.h"
#include "recorder/record_window.h"
#include "shell/editing_toolbar_window.h"
#include "shell/note_test_window.h"
#include "shell/setup_toolbar_window.h"
#include "tutorial/tutorial_tip_window.h"
#include "tutorial/tutorial_window.h"
#include "ui/qt_window_place.h"

namespace melvane {

namespace {

constexpr std::int64_t helpPause = 10;  // milliseconds

/// The topics at which the windows open the help; the main window leaves it where it was.
struct WindowTopic {
    const char *window, *topic;
};
constexpr std::array topics{
    WindowTopic{"Form2", "65-editing.md"},     WindowTopic{"Form3", "67-setup.md"},
    WindowTopic{"Form5", "40-selector.md"},    WindowTopic{"FrmInst", "40-selector.md"},
    WindowTopic{"frmsynth", "75-keyboard.md"}, WindowTopic{"Record", "77-recorder.md"},
    WindowTopic{"frmLog", "77-recorder.md"},   WindowTopic{"Wiz", "12-tutorial.md"}};

}  // namespace

Program::Program(Outside& outside)
    : outside_(outside),
      window_(studio_),
      engine_(studio_, outside, window_, window_, toolWindows_),
      picker_(studio_, engine_.picker, &window_),
      menus_(studio_, engine_.menus, &window_) {
    window_.attach(engine_);
    engine_.menus.showHelp = [this] { showHelp(); };
    joinFrame(picker_);
    listWindows();
}

/// The main window goes after the engine, so the windows that it owns and that let go of the engine go first.
Program::~Program() {
    outside_.loop.stopTimer(helpTimer_);
    for (auto* const window : window_.findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
        if (window->isWindow() && window != &picker_ && window != &menus_) delete window;
    }
}

void Program::joinFrame(FramedWindow& window) {
    window.useSettings(engine_.settings);
    window.useLoop(outside_.loop);
    giveHelp(window);
}

void Program::giveHelp(FramedWindow& window) {
    const auto found = std::ranges::find_if(
        topics, [&window](const WindowTopic& entry) { return window.objectName() == entry.window; });
    if (found == topics.end()) return;
    window.setHelp([this, topic = found->topic] { showHelp(topic); });
}

void Program::listWindows() {
    toolWindows_.list({}, "FrmInst", [this] { return &picker_; });
    toolWindows_.list({}, "Frmmenu", [this] { return &menus_; });
    toolWindows_.list({}, "Form5", [this] {
        auto* const panel = new Form5(studio_, engine_.noteTest, &window_);
        joinFrame(*panel);
        return panel;
    });
    toolWindows_.list(ToolWindows::Window::setup, "Form3", [this] {
        auto* const toolbar = new Form3(studio_, engine_, &window_);
        giveHelp(*toolbar);
        return toolbar;
    });
    toolWindows_.list(ToolWindows::Window::editing, "Form2", [this] {
        auto* const toolbar = new Form2(studio_, engine_.editing, &window_);
        joinFrame(*toolbar);
        return toolbar;
    });
    listTutorial();
    toolWindows_.list(ToolWindows::Window::recorder, "Record", [this] {
        auto* const recorder = new Record(studio_, engine_.recorder, &window_);
        joinFrame(*recorder);
        return recorder;
    });
    toolWindows_.list({}, "frmLog", [this] {
        auto* const log = new frmLog(studio_, engine_.recorder.window, &window_);
        joinFrame(*log);
        return log;
    });
    toolWindows_.list({}, "frmsynth", [this] { return makeKeyboard(); });
}

void Program::listTutorial() {
    toolWindows_.list(ToolWindows::Window::tutorial, "Wiz", [this] {
        auto* const tutorial = new Wiz(studio_, engine_.tutorial, &window_);
        joinFrame(*tutorial);
        return tutorial;
    });
    toolWindows_.list({}, "frminfo", [this] {
        auto* const tip = new frminfo(studio_, engine_.tutorial.tip, &window_);
        joinFrame(*tip);
        return tip;
    });
}

/// It does not belong to the main window, which is hidden while it is open.
QWidget* Program::makeKeyboard() {
    keyboard_ = std::make_unique<frmsynth>(studio_, engine_.keyboard);
    joinFrame(*keyboard_);
    engine_.keyboard.window.showHelp = [this] { showHelp("75-keyboard.md"); };
    return keyboard_.get();
}

HelpWindow& Program::help() {
    if (help_ == nullptr) {
        help_ = new HelpWindow(studio_, &window_);
        joinFrame(*help_);
    }
    return *help_;
}

/// A moment later, so that the windows which the same command shows again are there before it, and a column
/// of a playback does not have to wait for all of them.
void Program::showHelp(const QString& topic) {
    if (!topic.isEmpty()) help().showTopic(topic);
    if (helpTimer_ != 0) return;
    helpTimer_ = outside_.loop.startTimer(helpPause, [this] {
        outside_.loop.stopTimer(std::exchange(helpTimer_, 0));
        putBeforeActiveWindow(help());
        help().show();
        help().raise();
        help().activateWindow();
    });
}

bool Program::mayStart() { return engine_.startUp.IsOsSupported() && !engine_.startUp.IsAlreadyRunning(); }

void Program::start() {
    std::error_code failed;  // without it, only relative names of the user's would lie elsewhere
    std::filesystem::current_path(outside_.directories.program, failed);
    toolWindows_.holdBack();
    engine_.startUp.Form_Load();
    window_.show();
    toolWindows_.letGo();
    outside_.loop.Idle();
}

bool Program::prepareWindow() {
    for (const char* const name : {"Form3", "Form2", "Form5", "Wiz"}) {
        if (toolWindows_.prepare(name)) return true;
    }
    if (help_ != nullptr) return false;
    help().grab();
    return true;
}

void Program::openScore(const std::filesystem::path& path) {
    studio_.score.SaveFileName = lowerCase(path.string());
    studio_.score.ScoreFileName = studio_.score.SaveFileName;
    engine_.files.OpenPoliFile(path.string());
}

}  // namespace melvane
