#pragma once
#include <optional>
#include <string>
#include <vector>

struct _XDisplay;

namespace melvane::e2e {

/// A window as the display shows it, in pixels of the screen.
struct ShownWindow {
    unsigned long id = 0;
    int left = 0, top = 0, width = 0, height = 0;
};

/// The hand at the mouse and the keyboard of a display. What it does comes to the programs as from the
/// devices. It waits for nothing but the display.
class XHand {
 public:
    /// `display` runs.
    explicit XHand(const std::string& display);
    ~XHand();
    XHand(const XHand&) = delete;
    XHand& operator=(const XHand&) = delete;

    /// The window of this title, when it is on the screen.
    std::optional<ShownWindow> find(const std::string& title) const;
    /// Whether the window is what the mouse would meet at this place of the screen.
    bool isInFront(const ShownWindow& window, int x, int y) const;
    /// Whether the keyboard's focus is in the window.
    bool hasFocus(const ShownWindow& window) const;

    /// The pixels of a part of the screen, row by row; empty when it is not wholly on it.
    std::vector<unsigned long> look(int left, int top, int width, int height) const;

    /// Goes there and clicks with the left button.
    void click(int x, int y);
    /// `key` by its X name, such as "Return", "a" or "slash". Held down, or let go.
    void hold(const std::string& key, bool down);
    void strike(const std::string& key);
    /// Types a text of ASCII characters, with Shift where it takes one.
    void type(const std::string& text);

 private:
    void send() const;

    _XDisplay* display_;
};

}  // namespace melvane::e2e
