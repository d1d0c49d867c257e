#include "recorder/player_buttons.h"

#include "core/names.h"
#include "platform/files.h"
#include "platform/text.h"

namespace melvane {

namespace {

struct Button {
    const char *tip, *pictureTip, *art;
};
constexpr std::array<Button, RecordControls::buttons> buttons{{{"Open File", "Open File", "open"},
                                                               {"Play", "Play from File", "play"},
                                                               {"Pause", "Pause", "pause"},
                                                               {"Stop", "Stop", "stop"},
                                                               {"Save File As", "Open File", "save"}}};

}  // namespace

PlayerButtons::PlayerButtons(Studio& studio, Parts parts)
    : studio_(studio), parts_(parts), row_(studio.Record.Cmd2, studio.Record.ImgR, 0) {
    for (std::size_t at = 0; at < buttons.size(); ++at) {
        auto& button = studio.Record.Cmd2[at];
        const int index = static_cast<int>(at);
        row_.setPicture(index, buttons[at].art);
        button.setTip(buttons[at].tip);
        studio.Record.ImgR[at].setTip(buttons[at].pictureTip);
        button.acted = [this, index] { Cmd2_Click(index); };
    }
    hideButtons();
}

void PlayerButtons::Cmd2_Click(int Index) {
    switch (Index) {
        case 0:
            return open();
        case 1:
            studio_.player.PauseRequested = false;
            return play();
        case 2:
            return parts_.audio.togglePause();
        case 3:
            return stop();
        case 4:
            return parts_.file.RenameFile2(studio_.Record.Text6.text());
        default:
            return;
    }
}

void PlayerButtons::open() {
    if (setToolWindows) setToolWindows(false);
    parts_.dialogs.closeOthers();
    parts_.dialogs.openFile();
    if (setToolWindows) setToolWindows(true);
}

/// The port is let go, which may be the device that the file needs; a score takes it back.
void PlayerButtons::play() {
    parts_.output.CloseMidi();
    const std::string path = shortPath(studio_.Record.Text6.text());
    if (path.empty() || !fileExists(path)) return;
    studio_.Record.Picture5.setVisible(true);
    if (endsWithNoCase(path, ".sng")) {
        parts_.output.openClosed();
        return parts_.player.PlayAndStop_Click(0);
    }
    parts_.audio.OpenMP3(path, MciCommands::player);
    parts_.audio.PlayMP3();
}

void PlayerButtons::stop() {
    parts_.audio.StopMP3();
    parts_.audio.CloseMP3();
}

void PlayerButtons::Cmd2_MouseUp(int Index, int, int, double, double) { row_.hide(Index); }

void PlayerButtons::ImgR_MouseMove(int Index, int, int, double, double) { row_.comeNear(Index); }

void PlayerButtons::listNames(NameTables& tables) {
    auto& operations = tables.operations;
    operations.add("Record", "Cmd2_Click", this, &PlayerButtons::Cmd2_Click);
    operations.add("Record", "Cmd2_MouseUp", this, &PlayerButtons::Cmd2_MouseUp);
    operations.add("Record", "ImgR_MouseMove", this, &PlayerButtons::ImgR_MouseMove);
}

}  // namespace melvane
