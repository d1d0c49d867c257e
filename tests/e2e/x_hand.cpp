#include "x_hand.h"

#include <X11/XKBlib.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>

#include <stdexcept>

#include "patience.h"

namespace melvane::e2e {

namespace {

constexpr double hoverSeconds = 0.12;  // some buttons come up only when the mouse is near
constexpr double pressSeconds = 0.03;

/// A window may go while it is looked at, which is no reason to end the test.
int overlook(Display*, XErrorEvent*) { return 0; }

std::vector<Window> childrenOf(Display* display, Window window) {
    Window root = None, parent = None;
    Window* children = nullptr;
    unsigned int count = 0;
    if (XQueryTree(display, window, &root, &parent, &children, &count) == 0) return {};
    std::vector<Window> found(children, children + count);
    if (children != nullptr) XFree(children);
    return found;
}

std::string titleOf(Display* display, Window window) {
    char* name = nullptr;
    if (XFetchName(display, window, &name) == 0 || name == nullptr) return {};
    std::string title = name;
    XFree(name);
    return title;
}

bool isShown(Display* display, Window window) {
    XWindowAttributes attributes{};
    return XGetWindowAttributes(display, window, &attributes) != 0 && attributes.map_state == IsViewable;
}

Window findShown(Display* display, Window below, const std::string& title) {
    if (titleOf(display, below) == title && isShown(display, below)) return below;
    for (const Window child : childrenOf(display, below)) {
        if (const Window found = findShown(display, child, title); found != None) return found;
    }
    return None;
}

bool isInside(Display* display, Window window, Window outer) {
    if (window == outer) return true;
    for (const Window child : childrenOf(display, outer)) {
        if (isInside(display, window, child)) return true;
    }
    return false;
}

}  // namespace

XHand::XHand(const std::string& display) : display_(XOpenDisplay(display.c_str())) {
    if (display_ == nullptr) throw std::runtime_error("the display " + display + " does not answer");
    XSetErrorHandler(overlook);
}

XHand::~XHand() { XCloseDisplay(display_); }

std::optional<ShownWindow> XHand::find(const std::string& title) const {
    const Window root = DefaultRootWindow(display_);
    const Window window = findShown(display_, root, title);
    XWindowAttributes attributes{};
    if (window == None || XGetWindowAttributes(display_, window, &attributes) == 0) return std::nullopt;
    ShownWindow shown{window, 0, 0, attributes.width, attributes.height};
    Window inner = None;
    XTranslateCoordinates(display_, window, root, 0, 0, &shown.left, &shown.top, &inner);
    return shown;
}

bool XHand::isInFront(const ShownWindow& window, int x, int y) const {
    const Window root = DefaultRootWindow(display_);
    Window met = None, deepest = root;
    int there = 0;
    while (XTranslateCoordinates(display_, root, deepest, x, y, &there, &there, &met) != 0 && met != None) {
        deepest = met;
        if (deepest == window.id) return true;
    }
    return false;
}

bool XHand::hasFocus(const ShownWindow& window) const {
    Window focused = None;
    int revert = 0;
    XGetInputFocus(display_, &focused, &revert);
    return focused != None && focused != PointerRoot && isInside(display_, focused, window.id);
}

std::vector<unsigned long> XHand::look(int left, int top, int width, int height) const {
    std::vector<unsigned long> pixels;
    XImage* const image =
        XGetImage(display_, DefaultRootWindow(display_), left, top, static_cast<unsigned>(width),
                  static_cast<unsigned>(height), AllPlanes, ZPixmap);
    if (image == nullptr) return pixels;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) pixels.push_back(XGetPixel(image, x, y));
    }
    XDestroyImage(image);
    return pixels;
}

void XHand::send() const { XSync(display_, False); }

void XHand::click(int x, int y) {
    XTestFakeMotionEvent(display_, -1, x - 1, y, CurrentTime);
    XTestFakeMotionEvent(display_, -1, x, y, CurrentTime);
    send();
    rest(hoverSeconds);
    XTestFakeButtonEvent(display_, Button1, True, CurrentTime);
    send();
    rest(pressSeconds);
    XTestFakeButtonEvent(display_, Button1, False, CurrentTime);
    send();
}

void XHand::hold(const std::string& key, bool down) {
    const KeyCode code = XKeysymToKeycode(display_, XStringToKeysym(key.c_str()));
    if (code == 0) throw std::runtime_error("the display has no key " + key);
    XTestFakeKeyEvent(display_, code, down ? True : False, CurrentTime);
    send();
}

void XHand::strike(const std::string& key) {
    hold(key, true);
    rest(pressSeconds);
    hold(key, false);
}

/// The name of a key that types an ASCII character is the number of the character.
void XHand::type(const std::string& text) {
    for (const char character : text) {
        const auto symbol = static_cast<KeySym>(static_cast<unsigned char>(character));
        const KeyCode code = XKeysymToKeycode(display_, symbol);
        if (code == 0) throw std::runtime_error("the display cannot type " + text);
        const bool shifted = XkbKeycodeToKeysym(display_, code, 0, 0) != symbol;
        if (shifted) hold("Shift_L", true);
        XTestFakeKeyEvent(display_, code, True, CurrentTime);
        XTestFakeKeyEvent(display_, code, False, CurrentTime);
        send();
        if (shifted) hold("Shift_L", false);
    }
}

}  // namespace melvane::e2e
