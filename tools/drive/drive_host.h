#pragma once
#include <span>
#include <string>
#include <string_view>

#include "core/names.h"
#include "drive/path.h"

namespace melvane::drive {

/// What became of setting a control.
enum class PutResult { done, refused, noControl };

/// The program, as the commands of a script reach it. Functions that answer a text answer what went wrong,
/// empty when nothing did. Window names are taken without regard to case.
class DriveHost {
 public:
    virtual ~DriveHost() = default;

    /// Makes the program and shows its main window.
    virtual void start() = 0;
    /// The program has ended, or is to end here: closes it in its own way if it still runs and takes it down.
    /// Not to be called inside one of its waits.
    virtual void finish() = 0;
    /// Asks the program to end in its own way.
    virtual void askToEnd() = 0;
    /// Between two lines of a script: serves what the windows have queued and lets go of closed ones.
    virtual void settle() = 0;
    /// False before start() and once the program has ended.
    virtual bool running() const = 0;

    // of a running program
    virtual NameTables& tables() = 0;
    virtual bool isWindow(std::string_view name) const = 0;
    virtual bool isLoaded(std::string_view window) const = 0;
    /// As a call of one of its handlers does: without moving the focus.
    virtual std::string loadQuietly(std::string_view window) = 0;
    virtual std::string load(std::string_view window) = 0;
    virtual std::string unload(std::string_view window) = 0;
    virtual std::string focus(std::string_view window) = 0;
    virtual std::string resize(std::string_view window, int width, int height) = 0;
    virtual std::string shot(std::string_view window, const std::string& path) = 0;

    /// A handler that the window itself has; `known` tells whether there is one.
    virtual CallResult callHandler(std::string_view window, std::string_view name,
                                   std::span<const Value> arguments, bool& known) = 0;
    /// What the widget of that name shows; nothing when the window is not loaded or has no such widget.
    virtual std::optional<Value> readControl(const ControlPath& control) = 0;
    virtual PutResult putControl(const ControlPath& control, const Value& value) = 0;
};

}  // namespace melvane::drive
