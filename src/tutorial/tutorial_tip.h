#pragma once
#include <functional>
#include <string>

#include "core/main_frame.h"
#include "core/studio.h"
#include "platform/clock.h"
#include "platform/event_loop.h"

namespace melvane {

struct NameTables;

/// The modal tip window frminfo. A window shows studio.frminfo.
class TutorialTip {
 public:
    TutorialTip(Studio& studio, ToolWindows& toolWindows, Clock& clock, EventLoop& loop)
        : studio_(studio), toolWindows_(toolWindows), clock_(clock), loop_(loop) {}

    /// Whether the window that was in front before the tip is there again; set by the window.
    std::function<bool()> focusIsBack;

    /// Shows the text and returns when the window was closed; at least a second later.
    void showModal(const std::string& text);
    /// Serves events for a second.
    void Form_Load();
    /// Closes it; the step that it explains goes on.
    void Form_Unload();

    void listNames(NameTables& tables);

 private:
    void waitForFocus();

    Studio& studio_;
    ToolWindows& toolWindows_;
    Clock& clock_;
    EventLoop& loop_;
};

}  // namespace melvane
