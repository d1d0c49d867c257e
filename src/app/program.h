#pragma once
#include <QPointer>

#include <filesystem>
#include <memory>
#include <string>

#include "core/studio.h"
#include "platform/outside.h"
#include "shell/engine.h"
#include "shell/help_window.h"
#include "shell/instrument_picker_window.h"
#include "shell/main_window.h"
#include "shell/popup_menus_window.h"
#include "synth/keyboard_window.h"
#include "ui/floating_windows_window.h"

namespace melvane {

/// The studio and its windows over one outside world, from the start to the end of the process.
class Program {
 public:
    explicit Program(Outside& outside);
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    /// Whether the start may go on: on a system that it supports, and as the only one of its user. Asks once,
    /// with a message when it may not.
    bool mayStart();
    /// Loads and shows the main window.
    void start();
    /// Makes one of the windows that may be opened during a playback, which then does not have to wait for
    /// it. False when there is nothing left to do. Not during a playback.
    bool prepareWindow();
    /// As the open command does with a chosen file.
    void openScore(const std::filesystem::path& path);

    Studio& studio() { return studio_; }
    Engine& engine() { return engine_; }
    form1& window() { return window_; }
    FloatingWindows& toolWindows() { return toolWindows_; }

 private:
    void listWindows();
    void listTutorial();
    void joinFrame(FramedWindow& window);
    void giveHelp(FramedWindow& window);
    QWidget* makeKeyboard();

    HelpWindow& help();
    /// At a topic by its file's name, or where it was left.
    void showHelp(const QString& topic = {});

    Outside& outside_;
    Studio studio_;
    FloatingWindows toolWindows_;
    form1 window_;
    Engine engine_;
    FrmInst picker_;
    Frmmenu menus_;
    QPointer<HelpWindow> help_;
    int helpTimer_ = 0;  ///< runs while the help is about to be shown
    std::unique_ptr<frmsynth> keyboard_;
};

}  // namespace melvane
