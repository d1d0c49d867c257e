#include "shell/main_toolbar_commands.h"

#include <array>
#include <functional>

#include "core/names.h"
#include "shell/editing_pictures.h"

namespace melvane {

void MainToolbarCommands::Cmd2_Click(int Index) {
    switch (Index) {
        case 0:
            score_.ClearAll();
            channels_.Label8_Click(studio_.tracks.CurrentTrack);
            break;
        case 1:
            aroundDialog(&ScoreFiles::Command33_Click);
            break;
        case 2:
            aroundDialog(&ScoreFiles::mSaveAs_Click);
            break;
        case 3:
        case 12:
            toolWindows_.unloadWindow("frminfo");
            menu(Index);
            break;
        case 4:
            player_.RewindBut_Click();
            break;
        case 5:
            player_.PlayAndStop_Click(0);
            break;
        case 6:
            player_.PlayAndStop_Click(1);
            break;
        case 7:
            panic_.Command32_Click();
            break;
        case 8:
            menu(Index);
            break;
        case 9:
            toolWindows_.showWindow("Form2");
            break;
        case 10:
            toolWindows_.showWindow("Record");
            break;
        case 11:
            toolWindows_.showWindow("Wiz");
            break;
        case 14:
            startUp_.OpenKeyboardWindow();
            break;
        default:
            break;
    }
}

void MainToolbarCommands::pause() {
    if (studio_.player.Playing) studio_.player.PauseRequested = true;
}

void MainToolbarCommands::toggleLoop() {
    auto& loops = studio_.player.LoopSong;
    loops = !loops;
    showLoopSong(studio_);
    studio_.form1.StatusText.set(loops ? "The song repeats." : "The song plays once.");
}

void MainToolbarCommands::aroundDialog(void (ScoreFiles::*command)()) {
    setToolWindows(false);
    std::invoke(command, files_);
    setToolWindows(true);
}

/// The Setup toolbar counts as closed while it is hidden, if it had the focus, and comes back all the same;
/// one that was closed meanwhile stays closed.
void MainToolbarCommands::setToolWindows(bool shown) {
    using Window = ToolWindows::Window;
    constexpr std::array kinds{Window::editing, Window::setup, Window::recorder, Window::tutorial};
    const auto& shell = studio_.shell;
    if (!shown) setAside_ = {shell.Form2Open, shell.Form3Open, shell.RecorderOpen, shell.WizardOpen};
    const std::array loaded{shell.Form2Open, studio_.Form3.loaded, shell.RecorderOpen, shell.WizardOpen};
    for (std::size_t at = 0; at < kinds.size(); ++at) {
        if (setAside_[at] && loaded[at]) toolWindows_.setShown(kinds[at], shown);
    }
}

void MainToolbarCommands::listNames(NameTables& tables) {
    tables.operations.add("form1", "Cmd2_Click", this, &MainToolbarCommands::Cmd2_Click);
    pictures.listNames(tables);
}

}  // namespace melvane
