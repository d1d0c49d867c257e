#pragma once
#include <deque>
#include <functional>
#include <span>

#include "core/block_editing.h"
#include "core/main_frame.h"
#include "core/settings.h"
#include "core/studio.h"
#include "files/score_files.h"
#include "midi/panic.h"
#include "midi/player.h"
#include "shell/main_toolbar_commands.h"
#include "shell/start_up.h"

namespace melvane {

struct NameTables;
class PopupMenus;

/// One line of a popup menu: a command, a command with a check mark, a menu inside it, or, without a caption,
/// a line.
struct PopupEntry {
    const char* name = "";
    const char* caption = "";
    void (PopupMenus::*chosen)() = nullptr;
    CheckControl MenuControls::*mark = nullptr;
    std::span<const PopupEntry> inner{};
};

struct Popup {
    const char* name;
    const char* caption;
    std::span<const PopupEntry> entries;
};

/// What shows a menu to the user. It returns while the menu is open, so that a playback goes on; later it
/// runs the entry that was chosen, if any, and then `closed`, once.
class PopupView {
 public:
    virtual ~PopupView() = default;
    virtual void show(const Popup& popup, std::function<void()> closed) = 0;
};

/// The five popup menus of Frmmenu, a window that is never shown: loaded for the moment of a popup, unloaded
/// after it. The entries do no work of their own.
class PopupMenus {
 public:
    struct Parts {
        Settings& settings;
        ToolWindows& toolWindows;
        BlockEditing& blocks;
        ScoreFiles& files;
        Player& player;
        Panic& panic;
        StartUp& startUp;
        MainToolbarCommands& toolbar;
    };
    PopupMenus(Studio& studio, Parts parts) : studio_(studio), parts_(parts) {}

    PopupView* view = nullptr;       ///< without one, a menu closes at once
    std::function<void()> showHelp;  ///< opens the help window

    /// Sets the check marks that tell the look of the windows.
    void Form_Load();
    void Form_Unload();

    void Command1_Click();  ///< popup2: the whole program
    void Command2_Click();  ///< popup: the tablet
    void Command3_Click();  ///< popup3: help
    void Command4_Click();  ///< popup4: which parts are shown
    void Command5_Click();  ///< popup5: what a right click does

    /// The right-button menu of the tablet, loaded and unloaded around it; `closed` runs last.
    void openTabletMenu(std::function<void()> closed);
    /// The menu of the program, on a bare part of the main window.
    void openProgramMenu();
    /// The menus of the main toolbar's buttons 3, 8 and 12.
    void openToolbarMenu(int button);

    /// Makes the tool tips and the picture of toolbar button 3 follow RightClickMode.
    void Check3_Click();
    void Cmdhelp_Click();

    // the entries
    void mnuNew_Click();
    void mnuCut_Click();
    void mnuCopy_Click();
    void mnuPasteInsert_Click();
    void mnuPasteoverwrite_Click();
    void mnuOpen_Click();
    void mnuSaveAs2_Click();
    void mnuSave2_Click();
    void mnuCancel_Click() {}
    void mnuClearall_Click();
    void mnuFile_Click();
    void mnuSave_Click();
    void mnuRewind_Click();
    void mnuPlay_Click();
    void mnuStopPlaying_Click();
    void mnuStopall_Click();
    void mnuSetup_Click();
    void mnuEdittool_Click();
    void mnuRecordtool_Click();
    void mnu3D_Click();
    void mnuXP_Click();
    void mnuTutorial_Click();
    void mnuHelp_Click();
    void mnuExit_Click();
    void mnuHelpfile_Click();
    void mnuSetupToolBar_Click();
    void mnuPercussion_Click();
    void mnuerase_Click();
    void mnuMenu_Click();
    void mnuPoli_Click();

    void listNames(NameTables& tables);

 private:
    void listEntries(NameTables& tables, std::span<const PopupEntry> entries);
    EntryControl& listCaption(NameTables& tables, const char* name, const char* caption);
    void pop(const Popup& popup);
    void loadFor(void (PopupMenus::*command)(), std::function<void()> closed);
    void setLook(bool flat);
    void setRightClickMode(int mode);

    Studio& studio_;
    Parts parts_;
    std::function<void()> closed_;       ///< what follows the menu that is opened next
    std::deque<EntryControl> captions_;  ///< the menus, and their entries without a check mark
};

}  // namespace melvane
