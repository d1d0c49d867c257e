#include "private_display.h"

#include <X11/Xlib.h>

#include <fstream>

#include "patience.h"

namespace melvane::e2e {

namespace {

using sound_test::ChildProcess;

constexpr double startPatience = 15;  // seconds

/// The number that the server writes when it is ready, with its line end; empty before.
std::string numberIn(const std::string& file) {
    std::ifstream text(file);
    std::string line;
    const bool whole = std::getline(text, line) && !text.eof();
    return whole ? line : std::string();
}

/// A window manager tells itself by a property of the root window.
bool isManaged(const std::string& name) {
    Display* const display = XOpenDisplay(name.c_str());
    if (display == nullptr) return false;
    const Atom check = XInternAtom(display, "_NET_SUPPORTING_WM_CHECK", False);
    Atom type = None;
    int format = 0;
    unsigned long count = 0, left = 0;
    unsigned char* value = nullptr;
    XGetWindowProperty(display, DefaultRootWindow(display), check, 0, 1, False, AnyPropertyType, &type,
                       &format, &count, &left, &value);
    if (value != nullptr) XFree(value);
    XCloseDisplay(display);
    return count == 1;
}

}  // namespace

std::string PrivateDisplay::start() {
    const std::string numberFile = folder_ + "/display", log = folder_ + "/display.log";
    const std::string size = std::to_string(width) + "x" + std::to_string(height) + "x24";
    server_ = ChildProcess::start(
        {"Xvfb", "-displayfd", "1", "-screen", "0", size, "-dpi", "96", "-nolisten", "tcp", "-noreset"},
        numberFile, log);
    if (!server_.isRunning()) return "Xvfb cannot be started: install xvfb";
    const bool answered =
        comesTrue(startPatience, [&] { return !numberIn(numberFile).empty() || !server_.isRunning(); });
    if (!server_.isRunning()) return "Xvfb ended at once; see " + log;
    if (!answered) return "Xvfb does not answer; see " + log;
    name_ = ":" + numberIn(numberFile);

    manager_ = ChildProcess::start({"env", "DISPLAY=" + name_, "openbox", "--sm-disable"}, {},
                                   folder_ + "/manager.log");
    if (!comesTrue(startPatience, [&] { return isManaged(name_); }))
        return "openbox does not answer: install openbox, or see " + folder_ + "/manager.log";
    return {};
}

}  // namespace melvane::e2e
