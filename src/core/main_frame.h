#pragma once

namespace melvane {

/// A window's place, in twips (15 a logical pixel).
struct WindowPlace {
    double left = 0, top = 0, width = 0, height = 0;
    bool operator==(const WindowPlace&) const = default;
};

inline constexpr int twipsAPixel = 15;

/// A window that keeps its place, as the engine handles it as a whole: the main window, and the keyboard's.
/// The window implements it; tests stand in for it.
class MainFrame {
 public:
    virtual ~MainFrame() = default;
    /// The screen on which the window stands, in twips.
    virtual double screenWidth() const = 0;
    virtual double screenHeight() const = 0;
    virtual WindowPlace place() const = 0;
    /// Moves and sizes the window, kept wholly on a screen that exists.
    virtual void setPlace(const WindowPlace& place) = 0;
    /// Shows the frame in the look that XPInterface names.
    virtual void ApplySkin() = 0;
    virtual void show() = 0;
    virtual void hide() = 0;
    /// Closes the window for good: its Form_Unload runs, then the program ends.
    virtual void unload() = 0;
};

/// The floating windows beside the main one, hidden while a file dialog is open and disabled or enabled by
/// the player.
class ToolWindows {
 public:
    enum class Window { editing, setup, recorder, tutorial };
    virtual ~ToolWindows() = default;
    virtual void setShown(Window window, bool shown) = 0;
    virtual void setEnabled(Window window, bool enabled) = 0;
    /// Loads and shows a window by its given name ("Form3"), before the others that float; false when the
    /// program has no such window.
    virtual bool showWindow(const char* name) = 0;
    /// Closes a window if it is loaded; another name does nothing.
    virtual void unloadWindow(const char* name) = 0;
    virtual void unloadAll() = 0;
};

}  // namespace melvane
