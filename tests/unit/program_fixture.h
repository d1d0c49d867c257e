#pragma once
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/recording_media_device.h"
#include "platform/recording_midi_port.h"
#include "platform/scripted_dialogs.h"
#include "platform/settings_store.h"
#include "platform/virtual_time.h"
#include "shell/engine.h"
#include "temporary_folder.h"

namespace melvane::test {

/// Surfaces that write down what they are asked for.
class RecordingSurfaces final : public Surfaces {
 public:
    std::vector<std::string> calls;
    DrawingPointer tabletPointer = DrawingPointer::upArrow, tableauPointer = DrawingPointer::upArrow;

    void DrawNoteArray() override { note("DrawNoteArray"); }
    void clearTablet() override { note("clearTablet"); }
    void GetRow(int row) override { note("GetRow", row); }
    void PutRow(int row) override { note("PutRow", row); }
    void GetColumn(int column) override { note("GetColumn", column); }
    void PutColumn(int column) override { note("PutColumn", column); }
    void GetBox() override { note("GetBox"); }
    void PutBox() override { note("PutBox"); }
    void drawPlayCursor(int column) override { note("drawPlayCursor", column); }
    void setPointer(Area area, DrawingPointer pointer) override {
        (area == Area::tablet ? tabletPointer : tableauPointer) = pointer;
    }
    void drawHead(Area area, int column, int row) override {
        calls.push_back(std::string(area == Area::tablet ? "head " : "beat head ") + std::to_string(column) +
                        " " + std::to_string(row));
    }
    void drawDraggedNote(Area area, int column, int lastColumn, int row) override {
        calls.push_back(std::string(area == Area::tablet ? "bar " : "beat bar ") + std::to_string(column) +
                        " " + std::to_string(lastColumn) + " " + std::to_string(row));
    }
    void drawSelectionLine(int column) override { note("drawSelectionLine", column); }
    void drawSelectionBand(int column, int lastColumn) override {
        calls.push_back("band " + std::to_string(column) + " " + std::to_string(lastColumn));
    }
    void markTestedNote(int x1, int y1, int x2, int y2) override {
        std::string call = "markTestedNote";
        for (const int at : {x1, y1, x2, y2}) call += " " + std::to_string(at);
        calls.push_back(call);
    }
    void drawSelectorCursor(int column, Colour) override { note("drawSelectorCursor", column); }
    void drawChordRing(int column, int row, Colour colour) override {
        calls.push_back("ring " + std::to_string(column) + " " + std::to_string(row) +
                        (colour.green == 0 ? " red" : " white"));
    }
    void DrawBeatArray() override { note("DrawBeatArray"); }
    void DrawSideBar() override { note("DrawSideBar"); }
    void DrawTopBar() override { note("DrawTopBar"); }
    void DrawSelectorGrid() override { note("DrawSelectorGrid"); }
    void DrawBarStrip() override { note("DrawBarStrip"); }
    void DrawPolyStrip() override { note("DrawPolyStrip"); }
    void fillPolyCell(int x, Colour) override { note("fillPolyCell", x); }
    void focusTablet() override { note("focusTablet"); }
    void focusTableau() override { note("focusTableau"); }

    std::size_t count(const std::string& call) const {
        return static_cast<std::size_t>(std::ranges::count(calls, call));
    }

 private:
    void note(const char* name) { calls.emplace_back(name); }
    void note(const char* name, int number) {
        calls.push_back(std::string(name) + " " + std::to_string(number));
    }
};

/// A main window that is only a place on a screen of 1280 by 1024 pixels.
class PlainFrame final : public MainFrame {
 public:
    WindowPlace at{0, 0, 9000, 6000};
    bool hidden = false, unloaded = false;

    double screenWidth() const override { return 1280 * twipsAPixel; }
    double screenHeight() const override { return 1024 * twipsAPixel; }
    WindowPlace place() const override { return at; }
    void setPlace(const WindowPlace& place) override { at = place; }
    void ApplySkin() override {}
    void show() override { hidden = false; }
    void hide() override { hidden = true; }
    void unload() override { unloaded = true; }
};

class RecordingToolWindows final : public ToolWindows {
 public:
    std::vector<std::string> calls;
    bool shows = false;  ///< whether it has the windows that are asked for

    void setShown(Window window, bool shown) override {
        calls.push_back((shown ? "show " : "hide ") + std::to_string(static_cast<int>(window)));
    }
    void setEnabled(Window window, bool enabled) override {
        calls.push_back((enabled ? "enable " : "disable ") + std::to_string(static_cast<int>(window)));
    }
    bool showWindow(const char* name) override {
        calls.push_back(std::string("load ") + name);
        return shows;
    }
    void unloadWindow(const char* name) override { calls.emplace_back(std::string("unload ") + name); }
    void unloadAll() override { calls.emplace_back("unloadAll"); }
};

/// The whole engine on a virtual clock, with a recording port and nothing on the screen.
class ProgramTest : public testing::Test {
 protected:
    /// The messages since the last call, without their moments.
    std::vector<std::string> sent() {
        std::vector<std::string> lines;
        for (const auto& line : port.log().take()) lines.push_back(line.substr(line.find(' ') + 1));
        return lines;
    }
    /// The messages since the last call, with their moments in milliseconds.
    std::vector<std::string> sentWithMoments() { return port.log().take(); }

    /// The program as it stands after its start, with nothing in the logs. The Setup toolbar counts as
    /// closed.
    void start() {
        engine.startUp.Form_Load();
        engine.startUp.Form_Activate();
        studio.shell.Form3Open = false;
        studio.form1.client.setWidth(70 + 12 * 41);
        studio.form1.Picmain.setHeight(600);
        engine.page.Form_Resize();
        port.log().take();
        surfaces.calls.clear();
    }
    /// A note of `length` columns with `instrument`.
    void write(int track, int column, int row, int length = 1, int instrument = 0) {
        for (int at = column; at < column + length; ++at) {
            studio.score.NoteArray.set(track, at, at == column ? row : 1000 + row);
            studio.score.InstArray.set(track, at, instrument);
        }
    }

    TemporaryFolder folder;
    VirtualTime time;
    RecordingMidiPort port{time};
    RecordingMediaDevice media{time};
    BareDesktop desktop;
    MemorySettingsStore store;
    ScriptedDialogs dialogs{time};
    RecordingSurfaces surfaces;
    PlainFrame frame;
    RecordingToolWindows toolWindows;
    Studio studio;
    Outside outside{time,    time,  port,    media,
                    desktop, store, dialogs, Directories{folder.path(), MELVANE_RESOURCES}};
    Engine engine{studio, outside, surfaces, frame, toolWindows};
};

}  // namespace melvane::test
