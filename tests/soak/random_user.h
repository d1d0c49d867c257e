#pragma once
#include <array>
#include <deque>
#include <random>
#include <string>
#include <vector>

#include "soak/x_session.h"

namespace melvane::soak {

/// Somebody who plays with everything and reads nothing: clicks, drags, wheel, keys and chords of keys at
/// random places of random windows, names in the file dialogs. Does not end the program: the one thing it
/// leaves alone. The same seed gives the same choices, as long as the same windows are there.
class RandomUser {
 public:
    RandomUser(XSession& session, unsigned seed) : session_(session), random_(seed) {}

    /// One action upon the windows, in the order of `XSession::windowsOf`. Leaves no key or button down.
    void act(const std::vector<VisibleWindow>& windows);
    /// What was done last, the latest behind.
    std::string lastActions() const;
    /// The window of the program that is looked at as the main one: the one whose close ends the program.
    static bool isMain(const VisibleWindow& window);
    /// The keyboard stands in the main window's place, and its close ends the program too.
    static bool isKeyboard(const VisibleWindow& window);
    /// Its button that leads back to the main window.
    static Point wayBack(const VisibleWindow& keyboard) { return {keyboard.x + 158, keyboard.y + 52}; }

 private:
    int upTo(int most);  ///< 0 to `most`
    template <std::size_t count>
    const char* oneOf(const std::array<const char*, count>& values) {
        return values[static_cast<std::size_t>(upTo(static_cast<int>(count) - 1))];
    }
    const VisibleWindow& choose(const std::vector<VisibleWindow>& windows);
    Point placeIn(const VisibleWindow& window);
    bool endsProgram(Point place) const;
    void answerDialog(const VisibleWindow& dialog);
    void answerFileDialog();
    void openToolWindow(const VisibleWindow& main);
    void click(const VisibleWindow& window);
    void drag(const VisibleWindow& window);
    void turnWheel(const VisibleWindow& window);
    void strike();
    void strike(const char* key);
    void playKeys();
    void commandKey();
    void pause(int milliseconds);

    void note(const std::string& action);

    XSession& session_;
    std::mt19937 random_;
    std::deque<std::string> trail_;
    std::vector<VisibleWindow> windows_;  ///< at the last look
};

}  // namespace melvane::soak
