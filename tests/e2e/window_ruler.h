#pragma once
#include <memory>
#include <optional>
#include <string>

class QWidget;

namespace melvane::e2e {

/// A place in a window, in pixels from its left upper corner.
struct PlaceInWindow {
    int x = 0, y = 0;
};

/// Tells where in the program's windows a control stands, so that a test can go there with the mouse: it
/// holds the windows themselves once more, where nobody sees them, and lays them out at the size that the
/// display tells. Nothing else of them is used, and nothing passes between them and the program.
class WindowRuler {
 public:
    /// The application is there, with the style of the program.
    WindowRuler();
    ~WindowRuler();
    WindowRuler(const WindowRuler&) = delete;
    WindowRuler& operator=(const WindowRuler&) = delete;

    /// The title of the window of this given name.
    std::string titleOf(const std::string& window);
    /// Where `control` is to be clicked, in the window at this size; nothing when it shows no such control.
    std::optional<PlaceInWindow> placeOf(const std::string& window, const std::string& control, int width,
                                         int height);

 private:
    class Studio;
    QWidget& open(const std::string& window);

    std::unique_ptr<Studio> studio_;
};

}  // namespace melvane::e2e
