#include "shell/main_toolbar_pictures.h"

#include <array>

#include "core/names.h"

namespace melvane {

namespace {

struct Button {
    const char* picture;
    const char* tip;
    bool works;  ///< whether a press does anything yet
};

constexpr std::array<Button, MainToolbarPictures::buttons> entries{
    {{"clear", "Clear all notes", true},
     {"open", "Open score (Ctrl+O)", true},
     {"save", "Save as score or MIDI file (Ctrl+S)", true},
     {"right_erase", "Erase note on right-click", true},
     {"rewind", "Return to start (F4)", true},
     {"play", "Play notes (F5), pause with F6, repeat with F8", true},
     {"stop", "Stop playing (F7)", true},
     {"silence", "Stop all sound", true},
     {"setup", "Setup", true},
     {"editing", "Editing toolbar", true},
     {"recording", "Recording toolbar", true},
     {"tutorial", "Tutorial", true},
     {"help", "Help", true},
     {"emblem", "", false},
     {"keyboard", "Keyboard", true}}};

constexpr int rightClickButton = 3;

/// Button 3 by RightClickMode.
struct RightClick {
    const char *picture, *tip;
};
constexpr std::array<RightClick, 3> rightClicks{{{"right_erase", "Erase note on right-click"},
                                                 {"right_menu", "Menu on right-click"},
                                                 {"right_polynotes", "Set Polynotes on right-click"}}};

}  // namespace

const char* MainToolbarPictures::tip(int index) {
    return index >= 0 && index < buttons ? entries[static_cast<std::size_t>(index)].tip : "";
}

MainToolbarPictures::MainToolbarPictures(Studio& studio)
    : studio_(studio), row_(studio.form1.Cmd2, studio.form1.ImgPic, 0) {
    for (int index = 0; index < buttons; ++index) {
        const auto at = static_cast<std::size_t>(index);
        row_.setPicture(index, entries[at].picture);
        row_.setTip(index, entries[at].tip);
        studio.form1.Cmd2[at].setEnabled(entries[at].works);
        studio.form1.ImgPic[at].setEnabled(entries[at].works);
    }
    hideButtons();
}

void MainToolbarPictures::ImgPic_MouseMove(int Index, int, int, double, double) { row_.comeNear(Index); }

void MainToolbarPictures::Cmd2_MouseUp(int Index, int, int, double, double) { row_.hide(Index); }

void MainToolbarPictures::showRightClickMode() const {
    const auto mode = static_cast<std::size_t>(studio_.selection.RightClickMode);
    if (mode >= rightClicks.size()) return;
    row_.setPicture(rightClickButton, rightClicks[mode].picture);
    row_.setTip(rightClickButton, rightClicks[mode].tip);
}

void MainToolbarPictures::listNames(NameTables& tables) {
    auto& operations = tables.operations;
    operations.add("form1", "ImgPic_MouseMove", this, &MainToolbarPictures::ImgPic_MouseMove);
    operations.add("form1", "Cmd2_MouseUp", this, &MainToolbarPictures::Cmd2_MouseUp);
    for (const char* const ground : {"Form", "toolbMenu", "Picmain", "Picture11"}) {
        operations.addMouse("form1", std::string(ground) + "_MouseMove",
                            [this](int, double) { hideButtons(); });
    }
    tables.controls.add("form1", "Cmd2", studio_.form1.Cmd2);
    tables.controls.add("form1", "ImgPic", studio_.form1.ImgPic);
    listArt(tables.state, "form1.Cmd2", studio_.form1.Cmd2, 0);
    listArt(tables.state, "form1.ImgPic", studio_.form1.ImgPic, 0);
}

}  // namespace melvane
