#pragma once
#include <QPointer>

#include <filesystem>
#include <string>

#include "core/studio.h"
#include "platform/outside.h"
#include "shell/engine.h"
#include "shell/help_window.h"
#include "shell/instrument_picker_window.h"
#include "shell/main_window.h"
#include "shell/popup_menus_window.h"
#include "ui/floating_windows_window.h"

namespace melvane {

/// The studio and its windows over one outside world, from the start to the end of the process.
class Program {
 public:
    explicit Program(Outside& outside);

    /// Whether the start may go on: on a system that it supports, and as the only one of its user. Asks once,
    /// with a message when it may not.
    bool mayStart();
    /// Loads and shows the main window.
    void start();
    /// As the open command does with a chosen file.
    void openScore(const std::filesystem::path& path);

    Studio& studio() { return studio_; }
    Engine& engine() { return engine_; }
    form1& window() { return window_; }
    FloatingWindows& toolWindows() { return toolWindows_; }

 private:
    void listWindows();

    Outside& outside_;
    Studio studio_;
    FloatingWindows toolWindows_;
    form1 window_;
    Engine engine_;
    void showHelp();

    FrmInst picker_;
    Frmmenu menus_;
    QPointer<HelpWindow> help_;
};

}  // namespace melvane
