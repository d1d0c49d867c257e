#include "soak/x_session.h"

#include <X11/Xatom.h>
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>

#include <algorithm>
#include <thread>

#include "soak/watch.h"

namespace melvane::soak {

namespace {

/// Windows go while they are looked at; what is asked of one that is gone has no answer, and that is all.
int passOver(Display*, XErrorEvent*) { return 0; }

constexpr Point placeAgain{60, 60};
constexpr int narrowest = 320;  // pixels: less than that no window is left, by a user who sees it
constexpr unsigned widthAgain = 700;

struct Freed {
    void operator()(void* memory) const {
        if (memory != nullptr) XFree(memory);
    }
};

}  // namespace

std::unique_ptr<XSession> XSession::open() {
    Display* const display = XOpenDisplay(nullptr);
    if (display == nullptr) return nullptr;
    int unused = 0;
    if (XTestQueryExtension(display, &unused, &unused, &unused, &unused) == False) return nullptr;
    return std::unique_ptr<XSession>(new XSession(display));
}

XSession::XSession(Display* display) : display_(display), root_(DefaultRootWindow(display)) {
    XSetErrorHandler(passOver);
    XSelectInput(display_, root_, StructureNotifyMask);  // the toolkit sends its answers so
}

XSession::~XSession() { XCloseDisplay(display_); }

std::vector<unsigned long> XSession::property(Window window, const char* name) const {
    Atom type = 0;
    int format = 0;
    unsigned long count = 0, left = 0;
    unsigned char* data = nullptr;
    constexpr long most = 4096;
    if (XGetWindowProperty(display_, window, atom(name), 0, most, False, AnyPropertyType, &type, &format,
                           &count, &left, &data) != Success)
        return {};
    const std::unique_ptr<unsigned char, Freed> held(data);
    if (data == nullptr || format != 32) return {};
    const auto* const values = reinterpret_cast<const unsigned long*>(data);
    return {values, values + count};
}

std::string XSession::titleOf(Window window) const {
    XTextProperty text{};
    if (XGetTextProperty(display_, window, &text, atom("_NET_WM_NAME")) == 0 || text.value == nullptr)
        return {};
    const std::unique_ptr<unsigned char, Freed> held(text.value);
    return reinterpret_cast<const char*>(text.value);
}

std::optional<VisibleWindow> XSession::look(Window window, bool popup) const {
    XWindowAttributes attributes{};
    if (XGetWindowAttributes(display_, window, &attributes) == 0 || attributes.map_state != IsViewable)
        return {};
    int x = 0, y = 0;
    Window child = 0;
    if (XTranslateCoordinates(display_, window, root_, 0, 0, &x, &y, &child) == False) return {};
    const auto states = property(window, "_NET_WM_STATE");
    const bool modal = std::ranges::find(states, atom("_NET_WM_STATE_MODAL")) != states.end();
    return VisibleWindow{window, titleOf(window), x, y, attributes.width, attributes.height, popup, modal};
}

bool XSession::isOf(Window window, pid_t process) const {
    const auto owner = property(window, "_NET_WM_PID");
    return !owner.empty() && static_cast<pid_t>(owner[0]) == process;
}

void XSession::restore(pid_t process) {
    for (const unsigned long window : property(root_, "_NET_CLIENT_LIST")) {
        const auto state = property(window, "WM_STATE");
        if (!isOf(window, process) || state.empty()) continue;
        if (state[0] == IconicState) activate(window);
        const auto seen = look(window, false);
        if (seen && !isReachable(*seen)) XMoveWindow(display_, window, placeAgain.x, placeAgain.y);
        if (seen && !seen->modal && seen->width < narrowest)
            XResizeWindow(display_, window, widthAgain, static_cast<unsigned>(seen->height));
    }
    XFlush(display_);
}

bool XSession::isReachable(const VisibleWindow& window) const {
    const Point middle{window.x + window.width / 2, window.y + window.height / 2}, there = onScreen(middle);
    return there.x == middle.x && there.y == middle.y;
}

Point XSession::screenSize() const {
    const int screen = DefaultScreen(display_);
    return {DisplayWidth(display_, screen), DisplayHeight(display_, screen)};
}

Point XSession::onScreen(Point place) const {
    const Point size = screenSize();
    return {std::clamp(place.x, 0, size.x - 1), std::clamp(place.y, 0, size.y - 1)};
}

void XSession::tell(Window window, const char* kind, const std::array<long, 3>& data, bool manager) {
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = window;
    event.xclient.message_type = atom(kind);
    event.xclient.format = 32;
    std::ranges::copy(data, std::begin(event.xclient.data.l));
    XSendEvent(display_, manager ? root_ : window, False,
               manager ? SubstructureNotifyMask | SubstructureRedirectMask : NoEventMask, &event);
    XFlush(display_);
}

void XSession::activate(Window window) {
    constexpr long askedByTheUser = 2;
    tell(window, "_NET_ACTIVE_WINDOW", {askedByTheUser}, true);
}

std::vector<VisibleWindow> XSession::windowsOf(pid_t process) {
    std::vector<VisibleWindow> windows;
    const auto add = [&](Window window, bool popup) {
        if (!isOf(window, process)) return;
        if (auto seen = look(window, popup)) windows.push_back(std::move(*seen));
    };
    for (const unsigned long window : property(root_, "_NET_CLIENT_LIST_STACKING")) add(window, false);
    Window root = 0, parent = 0, *children = nullptr;
    unsigned count = 0;
    if (XQueryTree(display_, root_, &root, &parent, &children, &count) == 0) return windows;
    const std::unique_ptr<Window, Freed> held(children);
    for (unsigned at = 0; at < count; ++at) {
        XWindowAttributes attributes{};
        if (XGetWindowAttributes(display_, children[at], &attributes) != 0 &&
            attributes.override_redirect != 0)
            add(children[at], true);
    }
    return windows;
}

void XSession::moveTo(Point place) {
    XTestFakeMotionEvent(display_, -1, place.x, place.y, CurrentTime);
    XFlush(display_);
}

void XSession::press(unsigned button) {
    XTestFakeButtonEvent(display_, button, True, CurrentTime);
    XFlush(display_);
}

void XSession::release(unsigned button) {
    XTestFakeButtonEvent(display_, button, False, CurrentTime);
    XFlush(display_);
}

void XSession::pressKey(const std::string& name) {
    const KeyCode code = XKeysymToKeycode(display_, XStringToKeysym(name.c_str()));
    if (code != 0) XTestFakeKeyEvent(display_, code, True, CurrentTime);
    XFlush(display_);
}

void XSession::releaseKey(const std::string& name) {
    const KeyCode code = XKeysymToKeycode(display_, XStringToKeysym(name.c_str()));
    if (code != 0) XTestFakeKeyEvent(display_, code, False, CurrentTime);
    XFlush(display_);
}

std::string XSession::inputState() {
    Window focused = 0;
    int unused = 0;
    XGetInputFocus(display_, &focused, &unused);
    const int pointer =
        XGrabPointer(display_, root_, False, 0, GrabModeAsync, GrabModeAsync, None, None, CurrentTime);
    const int keyboard = XGrabKeyboard(display_, root_, False, GrabModeAsync, GrabModeAsync, CurrentTime);
    XUngrabPointer(display_, CurrentTime);
    XUngrabKeyboard(display_, CurrentTime);
    XFlush(display_);
    return "the keyboard is at '" + titleOf(focused) + "', the pointer is " +
           (pointer == GrabSuccess ? "free" : "held") + ", the keyboard is " +
           (keyboard == GrabSuccess ? "free" : "held");
}

void XSession::close(Window window) {
    tell(window, "WM_PROTOCOLS", {static_cast<long>(atom("WM_DELETE_WINDOW"))}, false);
}

std::optional<std::chrono::milliseconds> XSession::timeToAnswer(pid_t process,
                                                                std::chrono::milliseconds patience) {
    using std::chrono::steady_clock;
    constexpr std::chrono::milliseconds patienceOfOne(1000);  // a window may go before it answers
    const auto start = steady_clock::now();
    for (;;) {
        const auto windows = windowsOf(process);
        const auto asked = std::ranges::find(windows, false, &VisibleWindow::popup);
        const bool answered =
            asked == windows.end() || hasEnded(process) || answers(asked->id, patienceOfOne);
        const auto taken = std::chrono::duration_cast<std::chrono::milliseconds>(steady_clock::now() - start);
        if (answered) return taken;
        if (taken > patience) return {};
    }
}

bool XSession::answers(Window window, std::chrono::milliseconds patience) {
    using std::chrono::steady_clock;
    const long ping = static_cast<long>(atom("_NET_WM_PING")), number = ++pings_;
    tell(window, "WM_PROTOCOLS", {ping, number, static_cast<long>(window)}, false);
    const auto limit = steady_clock::now() + patience;
    while (steady_clock::now() < limit) {
        while (XPending(display_) > 0) {
            XEvent event;
            XNextEvent(display_, &event);
            const auto& message = event.xclient;
            if (event.type == ClientMessage && message.message_type == atom("WM_PROTOCOLS") &&
                message.data.l[0] == ping && message.data.l[1] == number)
                return true;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return false;
}

}  // namespace melvane::soak
