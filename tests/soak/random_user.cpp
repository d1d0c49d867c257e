#include "soak/random_user.h"

#include <algorithm>
#include <thread>

namespace melvane::soak {

namespace {

// Tab belongs to the dialogs: in a window it leads to the button that ends the program.
constexpr std::array letters{"a", "s", "d", "f", "g", "h", "j", "k", "q",
                             "w", "e", "r", "t", "y", "u", "z", "x", "c"};
constexpr std::array others{"0",         "1",      "2",      "5",     "9",     "period", "minus",
                            "BackSpace", "Delete", "Return", "Left",  "Up",    "Down",   "Right",
                            "Home",      "End",    "space",  "Prior", "Escape"};
/// Play, pause, repeat and stop, more often than opening and saving.
constexpr std::array commands{"F4", "F5", "F5", "F5", "F6", "F7", "F7", "F8", "F1"};
/// None that could choose the end of the program in a menu.
constexpr std::array inMenus{"Escape", "Left", "Right"};
constexpr std::array fileNames{"one", "two", "three", "four", "five"};

constexpr int titleHeight = 32;                        // pixels: the frame's own, with its buttons
constexpr int closeWidth = 44;                         // pixels from the right
constexpr int toolbarHeight = 90, toolbarMiddle = 50;  // pixels from the top of the main window
constexpr int entryHeight = 34;  // pixels: the last entry of the longest menu is the program's end
constexpr int exitLeft = 226, exitRight = 270, exitTop = 32, exitBottom = 72;  // pixels, in the keyboard
constexpr int narrowest = 300;            // pixels: the keyboard with room for all of its buttons
constexpr std::size_t trailLength = 150;  // the end of the program takes seconds

bool isFileDialog(const VisibleWindow& window) {
    constexpr std::array<std::string_view, 3> words{"Open", "Save", "Sav"};
    return window.modal && window.height > 250 &&
           std::ranges::any_of(words, [&](auto word) { return window.title.starts_with(word); });
}

/// As "12,34 in Melvane", counted from the window's corner.
std::string placeName(const VisibleWindow& window, Point place) {
    return std::to_string(place.x - window.x) + "," + std::to_string(place.y - window.y) + " in '" +
           window.title + "' " + std::to_string(window.width) + "x" + std::to_string(window.height);
}

}  // namespace

bool RandomUser::isMain(const VisibleWindow& window) {
    return !window.popup && !window.modal && window.title.starts_with("Melvane  v");
}

bool RandomUser::isKeyboard(const VisibleWindow& window) {
    return !window.popup && !window.modal && window.title.starts_with("Melvane  Keyboard");
}

int RandomUser::upTo(int most) { return std::uniform_int_distribution<int>(0, std::max(0, most))(random_); }

void RandomUser::pause(int milliseconds) {
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

const VisibleWindow& RandomUser::choose(const std::vector<VisibleWindow>& windows) {
    // What lies on top is what can be reached: a menu first, then a dialog, then any window.
    for (auto at = windows.rbegin(); at != windows.rend(); ++at) {
        if (at->popup && at->height > 30 && upTo(9) < 8) return *at;
    }
    for (auto at = windows.rbegin(); at != windows.rend(); ++at) {
        if (at->modal) return *at;
    }
    return windows[static_cast<std::size_t>(upTo(static_cast<int>(windows.size()) - 1))];
}

bool RandomUser::endsProgram(Point place) const {
    // What is chosen may be covered: any of them may be the one that gets the click.
    return std::ranges::any_of(windows_, [&](const VisibleWindow& window) {
        const bool inside = place.x >= window.x && place.x < window.x + window.width && place.y >= window.y &&
                            place.y < window.y + window.height;
        const bool isClose =
            place.y < window.y + titleHeight && place.x > window.x + window.width - closeWidth;
        // In a window that is too narrow for its buttons they lie on each other.
        const bool overExit =
            window.width < narrowest || (place.x > window.x + exitLeft && place.x < window.x + exitRight);
        const bool isExit =
            isKeyboard(window) && overExit && place.y > window.y + exitTop && place.y < window.y + exitBottom;
        if (isMain(window) || isKeyboard(window)) return inside && (isClose || isExit);
        return inside && window.popup && window.height > entryHeight * 8 &&
               place.y > window.y + window.height - entryHeight;
    });
}

Point RandomUser::placeIn(const VisibleWindow& window) {
    constexpr int mostTries = 100;  // of a window little may be on the screen
    for (int turn = 0;; ++turn) {
        const bool anywhere = turn >= mostTries;
        const Point size = anywhere ? session_.screenSize() : Point{window.width, window.height};
        Point place{upTo(size.x - 1), upTo(size.y - 1)};
        if (isMain(window) && upTo(3) == 0) place.y = upTo(toolbarHeight);
        // Windows reach past the screen, the pointer does not.
        if (!anywhere) place = session_.onScreen({place.x + window.x, place.y + window.y});
        if (!endsProgram(place)) return place;
    }
}

void RandomUser::note(const std::string& action) {
    trail_.push_back(action);
    if (trail_.size() > trailLength) trail_.pop_front();
}

std::string RandomUser::lastActions() const {
    std::string all;
    for (const std::string& action : trail_) all += (all.empty() ? "" : ", ") + action;
    return all;
}

void RandomUser::act(const std::vector<VisibleWindow>& windows) {
    if (windows.empty()) return;
    windows_ = windows;
    const VisibleWindow& window = choose(windows);
    // A user sees where the keys go; who does not look gives the dialog the keyboard first.
    if (window.modal) session_.activate(window.id);
    if (isFileDialog(window)) return answerFileDialog();
    if (window.modal && upTo(2) > 0) return answerDialog(window);
    const int kind = upTo(99);
    if (kind < 58) return click(window);
    if (kind < 68) return drag(window);
    if (kind < 73) return turnWheel(window);
    if (kind >= 73 && kind < 96 && std::ranges::any_of(windows, &VisibleWindow::popup))
        return strike(oneOf(inMenus));
    if (kind < 83) return strike();
    if (kind < 90) return playKeys();
    if (kind < 96) return commandKey();
    const auto main = std::ranges::find_if(windows, isMain);
    if (main != windows.end()) openToolWindow(*main);
}

void RandomUser::answerDialog(const VisibleWindow& dialog) {
    constexpr std::array answers{"Return", "Escape", "space", "Tab"};
    if (upTo(3) == 0) return click(dialog);
    strike(oneOf(answers));
}

void RandomUser::answerFileDialog() {
    if (upTo(3) == 0) return strike("Escape");
    for (const char* letter = oneOf(fileNames); *letter != '\0'; ++letter)
        strike(std::string(1, *letter).c_str());
    strike("Return");
    pause(100);
}

void RandomUser::openToolWindow(const VisibleWindow& main) {
    const Point button =
        session_.onScreen({main.x + 20 + upTo(main.width - 2 * closeWidth), main.y + toolbarMiddle});
    if (endsProgram(button)) return;  // the keyboard lies over it
    note("toolbar");
    session_.moveTo(button);
    session_.press(1);
    session_.release(1);
}

void RandomUser::click(const VisibleWindow& window) {
    const unsigned button = upTo(9) == 0 ? 3 : 1;
    const Point place = placeIn(window);
    note("click " + placeName(window, place));
    session_.moveTo(place);
    const int times = upTo(11) == 0 ? 2 : 1;
    for (int time = 0; time < times; ++time) {
        session_.press(button);
        pause(upTo(30));
        session_.release(button);
    }
}

void RandomUser::drag(const VisibleWindow& window) {
    const Point begin = placeIn(window);
    note("drag " + placeName(window, begin));
    session_.moveTo(begin);
    session_.press(1);
    for (int step = upTo(12); step >= 0; --step) {
        session_.moveTo(placeIn(window));
        pause(upTo(20));
    }
    session_.release(1);
}

void RandomUser::turnWheel(const VisibleWindow& window) {
    session_.moveTo(placeIn(window));
    note("wheel");
    const auto button = static_cast<unsigned>(4 + upTo(1));
    for (int notch = upTo(5); notch >= 0; --notch) {
        session_.press(button);
        session_.release(button);
    }
}

void RandomUser::strike(const char* key) {
    note(key);
    session_.pressKey(key);
    pause(5 + upTo(20));
    session_.releaseKey(key);
}

void RandomUser::strike() { strike(upTo(1) == 0 ? oneOf(letters) : oneOf(others)); }

void RandomUser::playKeys() {
    std::vector<const char*> held;
    for (int key = upTo(4); key >= 0; --key) {
        held.push_back(oneOf(letters));
        note(held.back());
        session_.pressKey(held.back());
        pause(upTo(60));
    }
    for (const char* const key : held) {
        session_.releaseKey(key);
        pause(upTo(40));
    }
}

void RandomUser::commandKey() {
    if (upTo(5) > 0) return strike(oneOf(commands));
    constexpr std::array withControl{"o", "s"};
    session_.pressKey("Control_L");
    strike(oneOf(withControl));
    session_.releaseKey("Control_L");
}

}  // namespace melvane::soak
