#include "shell/main_toolbar_commands.h"

#include <array>
#include <functional>

#include "core/names.h"
#include "shell/editing_pictures.h"

namespace melvane {

MainToolbarCommands::Press MainToolbarCommands::press(int index) {
    using Toolbar = MainToolbarCommands;
    static constexpr std::array<Press, 15> presses{
        [](Toolbar& t) { t.clearScore(); },
        [](Toolbar& t) { t.aroundDialog(&ScoreFiles::Command33_Click); },
        [](Toolbar& t) { t.aroundDialog(&ScoreFiles::mSaveAs_Click); },
        [](Toolbar& t) { t.menuWithoutTip(3); },
        [](Toolbar& t) { t.player_.RewindBut_Click(); },
        [](Toolbar& t) { t.player_.PlayAndStop_Click(0); },
        [](Toolbar& t) { t.player_.PlayAndStop_Click(1); },
        [](Toolbar& t) { t.panic_.Command32_Click(); },
        [](Toolbar& t) { t.menu(8); },
        [](Toolbar& t) { t.toolWindows_.showWindow("Form2"); },
        [](Toolbar& t) { t.toolWindows_.showWindow("Record"); },
        [](Toolbar& t) { t.toolWindows_.showWindow("Wiz"); },
        [](Toolbar& t) { t.menuWithoutTip(12); },
        nullptr,
        [](Toolbar& t) { t.startUp_.OpenKeyboardWindow(); }};
    return index >= 0 && index < static_cast<int>(presses.size()) ? presses[static_cast<std::size_t>(index)]
                                                                  : nullptr;
}

void MainToolbarCommands::Cmd2_Click(int Index) {
    if (const Press pressed = press(Index)) pressed(*this);
}

void MainToolbarCommands::clearScore() {
    score_.ClearAll();
    channels_.Label8_Click(studio_.tracks.CurrentTrack);
}

void MainToolbarCommands::menuWithoutTip(int button) {
    toolWindows_.unloadWindow("frminfo");
    menu(button);
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
