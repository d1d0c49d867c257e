#pragma once
#include <X11/Xlib.h>
#include <sys/types.h>

#include <array>
#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace melvane::soak {

struct Point {
    int x, y;  ///< pixels of the screen
};

/// A window as the user sees it.
struct VisibleWindow {
    Window id;
    std::string title;
    int x, y, width, height;  ///< pixels, without the window manager's frame
    bool popup;               ///< a menu, an open list, a tool tip
    bool modal;               ///< a dialog that keeps the others from answering
};

/// The display as a user has it: looks at windows, moves the mouse and presses keys through the server, so
/// that the program cannot tell them from real ones. One thread.
class XSession {
 public:
    /// The display of $DISPLAY; nothing when there is none, or it cannot make events.
    static std::unique_ptr<XSession> open();
    ~XSession();
    XSession(const XSession&) = delete;
    XSession& operator=(const XSession&) = delete;

    /// Those of the process, from the lowest to the one in front.
    std::vector<VisibleWindow> windowsOf(pid_t process);
    /// Brings the minimised windows of the process back, as a task bar does, and those that were moved off
    /// the screen. Widens those that are too narrow to be used.
    void restore(pid_t process);
    /// Gives the window the keyboard, and brings it to the front.
    void activate(Window window);
    Point screenSize() const;  ///< pixels
    /// The place of the screen next to it, which is where the pointer goes.
    Point onScreen(Point place) const;
    void moveTo(Point place);
    /// How long the process took to answer the ping of a window manager, which it does as it serves events;
    /// nothing when it did not within `patience`. At once when it has ended, or has no window.
    std::optional<std::chrono::milliseconds> timeToAnswer(pid_t process, std::chrono::milliseconds patience);
    /// Buttons count from 1; 4 and 5 are the wheel.
    void press(unsigned button);
    void release(unsigned button);
    /// Under its name in the X protocol ("F5", "a", "Return"); one that the keyboard lacks does nothing.
    void pressKey(const std::string& name);
    void releaseKey(const std::string& name);
    /// Who has the keyboard, and whether somebody holds the pointer or the keyboard for itself; for a
    /// failure.
    std::string inputState();
    /// Asks the window to close, as the window manager's button does.
    void close(Window window);

 private:
    explicit XSession(Display* display);
    std::vector<unsigned long> property(Window window, const char* name) const;
    bool isReachable(const VisibleWindow& window) const;
    bool isOf(Window window, pid_t process) const;
    std::string titleOf(Window window) const;
    std::optional<VisibleWindow> look(Window window, bool popup) const;
    Atom atom(const char* name) const { return XInternAtom(display_, name, False); }

    /// A client message to the window itself, or about it to the window manager.
    void tell(Window window, const char* kind, const std::array<long, 3>& data, bool manager);
    bool answers(Window window, std::chrono::milliseconds patience);

    Display* display_;
    Window root_;
    long pings_ = 0;
};

}  // namespace melvane::soak
