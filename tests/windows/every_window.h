#pragma once
#include <gtest/gtest.h>

#include <QWidget>
#include <functional>
#include <vector>

#include "app/program.h"
#include "kept_folder.h"
#include "platform/recording_media_device.h"
#include "platform/recording_midi_port.h"
#include "platform/scripted_dialogs.h"
#include "platform/settings_store.h"
#include "platform/virtual_time.h"
#include "unit/temporary_folder.h"

namespace melvane::test {

/// A window in one of the states in which it shows other controls.
struct WindowState {
    const char* window;                             ///< its given name
    const char* state;                              ///< letters and digits: part of the test's name
    std::function<void(Program&, QWidget&)> bring;  ///< from the window's first state
};
/// How a failed test names it.
void PrintTo(const WindowState& state, std::ostream* out);

/// Every window of the program in each of its states.
const std::vector<WindowState>& windowStates();
std::string nameOf(const testing::TestParamInfo<WindowState>& state);

/// The whole program on a virtual clock, with one of its windows open and in front.
class EveryWindow : public testing::TestWithParam<WindowState> {
 protected:
    EveryWindow();
    ~EveryWindow() override;

    static void serve();
    /// Whether the user can see it, and how a failed test calls it.
    bool isSeen(const QWidget& part) const;
    static std::string called(const QWidget& part);
    /// What lies in the window and is seen; the parts that the toolkit makes for itself are left out.
    std::vector<QWidget*> parts() const;
    /// Those that take input.
    std::vector<QWidget*> controls() const;
    QRect placeOf(const QWidget& part) const { return {part.mapTo(window, QPoint()), part.size()}; }

    KeptFolder keptFolder;
    TemporaryFolder folder;
    VirtualTime time;
    RecordingMidiPort port{time};
    RecordingMediaDevice media{time};
    BareDesktop desktop;
    MemorySettingsStore store;
    ScriptedDialogs dialogs{time};
    Outside outside{time,    time,  port,    media,
                    desktop, store, dialogs, Directories{folder.path(), MELVANE_RESOURCES}};
    Program program{outside};
    QWidget* window = nullptr;
};

}  // namespace melvane::test
