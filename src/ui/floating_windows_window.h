#pragma once
#include <QPointer>
#include <QWidget>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/main_frame.h"

namespace melvane {

/// The floating windows beside the main one. A window is listed with a function that makes it; it is made
/// when it is first shown, and belongs to the main window from then on.
class FloatingWindows : public ToolWindows {
 public:
    using Make = std::function<QWidget*()>;
    /// `name` is the window's given name; `kind` how the player and the dialogs know it, if
    /// they do.
    void list(std::optional<Window> kind, std::string name, Make make);

    /// Until letGo() a window that is asked for waits, because the system keeps it above its owner only when
    /// that is on the screen before it. It is shown then without taking the focus.
    void holdBack() { heldBack_ = true; }
    void letGo();

    /// Makes the window of that name unless it is made already, and has it laid out and painted once where
    /// nobody sees it: shown later, it comes at once. False when there was nothing to do. For moments in
    /// which nothing waits: it takes some tens of milliseconds.
    bool prepare(const char* name);

    /// A window that is shown again does not take the focus.
    void setShown(Window window, bool shown) override;
    void setEnabled(Window window, bool enabled) override;
    /// One that is shown already comes before the others that float, without the focus.
    bool showWindow(const char* name) override;
    void unloadWindow(const char* name) override;
    void unloadAll() override;

 private:
    struct Entry {
        std::optional<Window> kind;
        std::string name;
        Make make;
        QPointer<QWidget> window;
        bool waits = false;
    };
    QWidget* loaded(Window kind) const;

    std::vector<Entry> entries_;
    bool heldBack_ = false;
};

}  // namespace melvane
