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

    void setShown(Window window, bool shown) override;
    void setEnabled(Window window, bool enabled) override;
    bool showWindow(const char* name) override;
    void unloadWindow(const char* name) override;
    void unloadAll() override;

 private:
    struct Entry {
        std::optional<Window> kind;
        std::string name;
        Make make;
        QPointer<QWidget> window;
    };
    QWidget* loaded(Window kind) const;

    std::vector<Entry> entries_;
};

}  // namespace melvane
