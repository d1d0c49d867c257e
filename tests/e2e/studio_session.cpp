#include "studio_session.h"

#include <filesystem>
#include <stdexcept>

#include "patience.h"
#include "platform/files.h"
#include "platform/qt_settings_store.h"

namespace melvane::e2e {

namespace {

namespace fs = std::filesystem;

constexpr double windowPatience = 20, endPatience = 10;  // seconds
constexpr double stillSeconds = 0.15;
constexpr int lookWidth = 48, lookHeight = 16;  // pixels

/// Of the user's session, these would reach the program and change what is tested.
constexpr const char* foreign[] = {"WAYLAND_DISPLAY",      "DBUS_SESSION_BUS_ADDRESS",
                                   "SESSION_MANAGER",      "QT_QPA_PLATFORM",
                                   "QT_QPA_PLATFORMTHEME", "QT_STYLE_OVERRIDE",
                                   "QT_SCALE_FACTOR",      "QT_IM_MODULE",
                                   "XDG_CONFIG_HOME",      "XDG_DATA_HOME",
                                   "XDG_CACHE_HOME"};

[[noreturn]] void fail(const std::string& what) { throw std::runtime_error(what); }

bool isSame(const ShownWindow& one, const ShownWindow& other) {
    return one.id == other.id && one.left == other.left && one.top == other.top && one.width == other.width &&
           one.height == other.height;
}

}  // namespace

StudioSession::StudioSession(WindowRuler& ruler, const PrivateDisplay& display, Place place)
    : ruler_(ruler),
      display_(display),
      place_(std::move(place)),
      songs_(place_.home + "/.local/share/melvane/Songs"),
      seenSongs_(songs_) {}

void StudioSession::setColumns(int columns) const {
    const std::string folder = place_.home + "/.config/Melvane";
    fs::create_directories(folder);
    QtSettingsStore(folder + "/" + QtSettingsStore::applicationName + ".conf")
        .write("NumNotes", std::to_string(columns));
}

void StudioSession::start(const std::string& score, const std::vector<std::string>& launcher) {
    hand_ = std::make_unique<XHand>(display_.name());
    const std::string session = place_.home + "/session", temporary = place_.home + "/temporary";
    fs::create_directories(session);
    fs::create_directories(temporary);
    fs::permissions(session, fs::perms::owner_all);
    std::vector<std::string> command{"env"};
    for (const char* const name : foreign) command.insert(command.end(), {"-u", name});
    // No device of the machine's is opened, whether there is a sound server or not.
    command.insert(command.end(),
                   {"HOME=" + place_.home, "XDG_RUNTIME_DIR=" + session, "TMPDIR=" + temporary,
                    "DISPLAY=" + display_.name(), "LC_ALL=C.UTF-8", "QT_FONT_DPI=96",
                    "PULSE_SERVER=unix:" + place_.soundFolder + "/native", "ALSA_CONFIG_PATH=/dev/null"});
    command.insert(command.end(), launcher.begin(), launcher.end());
    command.emplace_back(MELVANE_PROGRAM);
    if (!score.empty()) command.push_back(score);
    program_ = sound_test::ChildProcess::start(command, {}, place_.home + "/complaints");
    waitForWindow("form1");
}

std::string StudioSession::complaints() const { return readFile(place_.home + "/complaints").value_or(""); }

int StudioSession::close() {
    click("form1", "imgTitleClose");
    return waitForEnd();
}

int StudioSession::waitForEnd() {
    if (!comesTrue(endPatience, [this] { return !program_.isRunning(); })) fail("the program does not end");
    return program_.wait();
}

ShownWindow StudioSession::waitFor(const std::string& title) const {
    std::optional<ShownWindow> found;
    comesTrue(windowPatience, [&] { return (found = hand_->find(title)).has_value(); });
    if (!found) fail("there is no window \"" + title + "\"");
    return *found;
}

/// A window manager may move a window when it is already shown.
ShownWindow StudioSession::waitUntilStill(const std::string& title) const {
    ShownWindow before = waitFor(title);
    for (;;) {
        rest(stillSeconds);
        const ShownWindow now = waitFor(title);
        if (isSame(before, now)) return now;
        before = now;
    }
}

void StudioSession::waitForWindow(const std::string& window, bool shown) {
    const std::string title = ruler_.titleOf(window);
    if (shown) return static_cast<void>(waitFor(title));
    if (!comesTrue(windowPatience, [&] { return !hand_->find(title); }))
        fail("\"" + title + "\" does not go");
}

void StudioSession::waitForFocus(const std::string& window) {
    const ShownWindow shown = waitUntilStill(ruler_.titleOf(window));
    if (!comesTrue(windowPatience, [&] { return hand_->hasFocus(shown); }))
        fail(window + " does not get the focus");
}

StudioSession::Spot StudioSession::spotOf(const std::string& window, const std::string& control) const {
    const ShownWindow shown = waitUntilStill(ruler_.titleOf(window));
    const auto place = ruler_.placeOf(window, control, shown.width, shown.height);
    if (!place) fail(window + " shows no " + control);
    const Spot spot{shown, shown.left + place->x, shown.top + place->y};
    if (!comesTrue(windowPatience, [&] { return hand_->isInFront(shown, spot.x, spot.y); }))
        fail("another window covers " + control + " of " + window);
    return spot;
}

void StudioSession::click(const std::string& window, const std::string& control) {
    const Spot spot = spotOf(window, control);
    hand_->click(spot.x, spot.y);
}

StudioSession::Look StudioSession::lookAt(const std::string& window, const std::string& control) {
    const Spot spot = spotOf(window, control);
    return hand_->look(spot.x - lookWidth / 2, spot.y - lookHeight / 2, lookWidth, lookHeight);
}

void StudioSession::chooseFile(const std::string& title, const std::string& path) {
    const ShownWindow dialog = waitUntilStill(title);
    if (!comesTrue(windowPatience, [&] { return hand_->hasFocus(dialog); }))
        fail(title + " does not get the focus");
    hand_->type(path);
    hand_->strike("Return");
    if (!comesTrue(windowPatience, [&] { return !hand_->find(title); }))
        fail(title + " does not take " + path);
}

std::vector<std::string> StudioSession::filesEnding(const std::string& ending) const {
    std::vector<std::string> found;
    std::error_code failed;
    for (const auto& entry : fs::directory_iterator(seenSongs_, failed)) {
        if (entry.path().extension() == ending) found.push_back(entry.path().string());
    }
    return found;
}

void StudioSession::removeRecordings() const {
    for (const std::string& path : filesEnding(".wav")) fs::remove(path);
}

std::string StudioSession::waitForRecording(double seconds) {
    std::vector<std::string> found;
    comesTrue(seconds, [&] {
        found = filesEnding(".wav");
        return !found.empty() || !program_.isRunning();
    });
    if (found.empty()) fail("no recording is saved");
    return found.front();
}

std::string StudioSession::waitForRecording(double seconds, const std::string& kept) {
    const std::string path = waitForRecording(seconds);
    fs::remove(kept);
    fs::create_hard_link(path, kept);
    return path;
}

}  // namespace melvane::e2e
