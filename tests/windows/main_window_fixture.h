#pragma once
#include <gtest/gtest.h>

#include <QCoreApplication>

#include "core/tablet_view.h"
#include "kept_folder.h"
#include "platform/recording_media_device.h"
#include "platform/recording_midi_port.h"
#include "platform/scripted_dialogs.h"
#include "platform/settings_store.h"
#include "platform/virtual_time.h"
#include "shell/engine.h"
#include "shell/main_window.h"
#include "ui/floating_windows_window.h"
#include "unit/temporary_folder.h"

QT_BEGIN_NAMESPACE
/// How a failed comparison prints a colour.
inline void PrintTo(const QColor& colour, std::ostream* out) { *out << colour.name().toStdString(); }
QT_END_NAMESPACE

namespace melvane::test {

/// The main window with the whole engine behind it, shown on a screen of 1600 by 1000 pixels.
class MainWindowTest : public testing::Test {
 protected:
    MainWindowTest() {
        time.serveToolkit = [] { QCoreApplication::processEvents(); };
        window.attach(engine);
        engine.startUp.Form_Load();
        window.show();
        resizeTo(1280, 720);
        QCoreApplication::processEvents();
    }

    ~MainWindowTest() override { window.hide(); }

    void resizeTo(int width, int height) {
        window.resize(width, height);
        QCoreApplication::processEvents();
    }
    template <class Widget = QWidget>
    Widget* find(const char* name) {
        auto* const widget = window.findChild<Widget*>(name);
        EXPECT_NE(widget, nullptr) << name;
        return widget;
    }
    void write(int track, int column, int row, int length = 1) {
        for (int at = column; at < column + length; ++at) {
            studio.score.NoteArray.set(track, at, at == column ? row : 1000 + row);
        }
    }
    TabletView& tablet() { return *find<TabletView>("MusicBox"); }
    /// The middle of a logical pixel.
    static QColor pixel(const QImage& picture, int x, int y) {
        const double ratio = picture.devicePixelRatio();
        return picture.pixelColor(static_cast<int>((x + 0.5) * ratio), static_cast<int>((y + 0.5) * ratio));
    }
    /// The kept tablet.
    QColor kept(int x, int y) { return pixel(tablet().picture(), x, y); }
    /// The tablet as the user sees it.
    QColor seen(int x, int y) { return pixel(tablet().screenPicture(), x, y); }

    KeptFolder keptFolder;
    TemporaryFolder folder;
    VirtualTime time;
    RecordingMidiPort port{time};
    RecordingMediaDevice media{time};
    BareDesktop desktop;
    MemorySettingsStore store;
    ScriptedDialogs dialogs{time};
    Studio studio;
    form1 window{studio};
    FloatingWindows floatingWindows;
    Outside outside{time,    time,  port,    media,
                    desktop, store, dialogs, Directories{folder.path(), MELVANE_RESOURCES}};
    Engine engine{studio, outside, window, window, floatingWindows};
};

}  // namespace melvane::test
