#include "shell/editing_pictures.h"

#include "core/names.h"

namespace melvane {

namespace {

constexpr std::size_t positionToggle = 9, loopToggle = 10, toolSwitch = 11;
constexpr auto firstEditing = static_cast<std::size_t>(EditingControls::firstEditing);

struct Button {
    const char* picture;
    const char* tip;
};

/// By index. The blank at the end of one tip belongs to it.
constexpr std::array<Button, EditingControls::buttons> buttons{
    {{"", ""},
     {"clear", "Clear all notes"},
     {"open", "Open File"},
     {"save", "Save as  Score (sng) or MIDI file (mid)"},
     {"play", "Play notes"},
     {"play_selection", "Play Selection"},
     {"pause", "Pause"},
     {"stop", ""},
     {"rewind", "Return to Start"},
     {"position_on", "Show playing position"},
     {"loop_off", "Loop song"},
     {"tool_draw", "Draw/Select mode toggle"},
     {"copy", "Copy Selection"},
     {"cut", "Cut Selection"},
     {"paste_over", "Paste (Overwrite)"},
     {"paste_insert", "Paste (Insert)"},
     {"insert_spaces", "Insert # Space(s) "},
     {"duplicate", "Duplicate notes"}}};

struct IdleButton {
    PictureControl& button;
    const char* picture;
    const char* tip;
};

/// What is drawn and has no action.
void setUpIdleButtons(EditingControls& toolbar) {
    const IdleButton idle[] = {{toolbar.TransposeBut[0], "transpose_up", "Move All Notes Up One"},
                               {toolbar.TransposeBut[1], "transpose_down", "Move All Notes Down One"},
                               {toolbar.Command7, "copy_notes", "Copy notes"}};
    for (const auto& [button, picture, tip] : idle) {
        button.setPicture(picture);
        button.setTip(tip);
        button.setEnabled(false);
    }
}

void takePicture(EditingControls& toolbar, std::size_t index, const PictureControl& art) {
    toolbar.ImgPic[index].setPicture(art.picture());
    toolbar.Cmd2[index].setPicture(art.picture());
}

}  // namespace

void showPlayingPosition(Studio& studio) {
    auto& toolbar = studio.Form2;
    takePicture(toolbar, positionToggle, toolbar.ImgLine[studio.player.ShowPlayingPosition ? 0 : 1]);
}

void showLoopSong(Studio& studio) {
    auto& toolbar = studio.Form2;
    takePicture(toolbar, loopToggle, toolbar.ImgLoop[studio.player.LoopSong ? 1 : 2]);
}

EditingPictures::EditingPictures(Studio& studio)
    : studio_(studio), row_(studio.Form2.Cmd2, studio.Form2.ImgPic, EditingControls::firstButton) {
    auto& toolbar = studio.Form2;
    toolbar.ImgLine[0].setPicture("position_on");
    toolbar.ImgLine[1].setPicture("position_off");
    toolbar.ImgLoop[1].setPicture("loop_on");
    toolbar.ImgLoop[2].setPicture("loop_off");
    toolbar.Imgup.setPicture("tool_draw");
    toolbar.Imgdown.setPicture("tool_select");
    setUpIdleButtons(toolbar);
    for (std::size_t index = EditingControls::firstButton; index < buttons.size(); ++index) {
        const auto& [picture, tip] = buttons[index];
        row_.setPicture(static_cast<int>(index), picture);
        row_.setTip(static_cast<int>(index), tip);
        if (index < firstEditing) continue;
        toolbar.ImgPicy[index].setPicture(picture);
        toolbar.ImgPicx[index].setPicture(std::string(picture) + EditingControls::disabledArt);
    }
}

void EditingPictures::ImgPic_MouseMove(int Index, int, int, double, double) { row_.comeNear(Index); }

void EditingPictures::Cmd2_MouseUp(int Index, int, int, double, double) { row_.hide(Index); }

void EditingPictures::showTool(bool selects) {
    auto& toolbar = studio_.Form2;
    takePicture(toolbar, toolSwitch, selects ? toolbar.Imgdown : toolbar.Imgup);
    for (std::size_t index = firstEditing; index < buttons.size(); ++index) {
        takePicture(toolbar, index, (selects ? toolbar.ImgPicy : toolbar.ImgPicx)[index]);
        toolbar.ImgPic[index].setEnabled(selects);
        if (!selects) toolbar.Cmd2[index].setVisible(false);
    }
}

void EditingPictures::listNames(NameTables& tables) {
    auto& operations = tables.operations;
    operations.add("Form2", "ImgPic_MouseMove", this, &EditingPictures::ImgPic_MouseMove);
    operations.add("Form2", "Cmd2_MouseUp", this, &EditingPictures::Cmd2_MouseUp);
    for (const char* const part :
         {"Form", "Picture2", "Picture5", "Picture6", "ToolbCompose", "toolbEdit", "Image1", "Text3"}) {
        operations.addMouse("Form2", std::string(part) + "_MouseMove",
                            [this](int, double) { hideButtons(); });
    }
    operations.add("Form2", "Label6_MouseMove", this, &EditingPictures::Label6_MouseMove);
}

}  // namespace melvane
