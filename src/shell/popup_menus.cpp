#include "shell/popup_menus.h"

#include <array>
#include <utility>

#include "core/drag.h"
#include "core/names.h"

namespace melvane {

namespace {

using Menus = PopupMenus;
using Marks = MenuControls;

constexpr PopupEntry line{};

constexpr std::array<PopupEntry, 12> tabletEntries{{
    {"mnuNew", "Clear All", &Menus::mnuNew_Click},
    line,
    {"mnuCut", "Cut selection", &Menus::mnuCut_Click},
    {"mnuCopy", "Copy selection", &Menus::mnuCopy_Click},
    {"mnuPasteInsert", "Paste (insert)", &Menus::mnuPasteInsert_Click},
    {"mnuPasteoverwrite", "Paste (overwrite)", &Menus::mnuPasteoverwrite_Click},
    line,
    {"mnuOpen", "Open File", &Menus::mnuOpen_Click},
    {"mnuSaveAs2", "Save as", &Menus::mnuSaveAs2_Click},
    {"mnuSave2", "Save", &Menus::mnuSave2_Click},
    line,
    {"mnuCancel", "Cancel", &Menus::mnuCancel_Click},
}};

constexpr std::array<PopupEntry, 2> lookEntries{{
    {"mnu3D", "3D stylized", &Menus::mnu3D_Click, &Marks::mnu3D},
    {"mnuXP", "XP style", &Menus::mnuXP_Click, &Marks::mnuXP},
}};

constexpr std::array<PopupEntry, 18> programEntries{{
    {"mnuClearall", "Clear All", &Menus::mnuClearall_Click},
    {"mnuFile", "File", &Menus::mnuFile_Click},
    {"mnuSave", "Save", &Menus::mnuSave_Click},
    line,
    {"mnuRewind", "Rewind", &Menus::mnuRewind_Click},
    {"mnuPlay", "Play", &Menus::mnuPlay_Click},
    {"mnuStopPlaying", "Stop Playing", &Menus::mnuStopPlaying_Click},
    {"mnuStopall", "Stop all sound", &Menus::mnuStopall_Click},
    line,
    {"mnuSetup", "Setup Toolbar", &Menus::mnuSetup_Click},
    {"mnuEdittool", "Editing Toolbar", &Menus::mnuEdittool_Click},
    {"mnuRecordtool", "Recording Toolbar", &Menus::mnuRecordtool_Click},
    line,
    {"mnuInterface", "Interface", nullptr, nullptr, lookEntries},
    line,
    {"mnuTutorial", "Tutorial", &Menus::mnuTutorial_Click},
    {"mnuHelp", "Help", &Menus::mnuHelp_Click},
    {"mnuExit", "Exit", &Menus::mnuExit_Click},
}};

constexpr std::array<PopupEntry, 1> helpEntries{{
    {"mnuHelpfile", "Help", &Menus::mnuHelpfile_Click},
}};

constexpr std::array<PopupEntry, 2> partsEntries{{
    {"mnuSetupToolBar", "Setup Toolbar", &Menus::mnuSetupToolBar_Click, &Marks::mnuSetupToolBar},
    {"mnuPercussion", "Percussion Tableau", &Menus::mnuPercussion_Click, &Marks::mnuPercussion},
}};

constexpr std::array<PopupEntry, 3> rightClickEntries{{
    {"mnuerase", "Erase on Right-click", &Menus::mnuerase_Click, &Marks::mnuerase},
    {"mnuMenu", "Menu on Right-Click", &Menus::mnuMenu_Click, &Marks::mnuMenu},
    {"mnuPoli", "Set Polynotes on Right-Click", &Menus::mnuPoli_Click, &Marks::mnuPoli},
}};

constexpr Popup tabletPopup{"mnupopup", "popup", tabletEntries};
constexpr Popup programPopup{"mnupopup2", "popup2", programEntries};
constexpr Popup helpPopup{"mnupopup3", "popup3", helpEntries};
constexpr Popup partsPopup{"mnupopup4", "popup4", partsEntries};
constexpr Popup rightClickPopup{"mnupopup5", "popup5", rightClickEntries};

constexpr std::array popups{&tabletPopup, &programPopup, &helpPopup, &partsPopup, &rightClickPopup};

struct ToolbarMenu {
    int button;
    void (PopupMenus::*open)();
};
constexpr std::array<ToolbarMenu, 3> toolbarMenus{
    {{3, &Menus::Command5_Click}, {8, &Menus::Command4_Click}, {12, &Menus::Command3_Click}}};

}  // namespace

// Loading and opening

void PopupMenus::Form_Load() {
    bool flat = true;
    parts_.settings.read("XPInterface", true, flat);
    studio_.Frmmenu.mnu3D.set(!flat);
    studio_.Frmmenu.mnuXP.set(flat);
    studio_.Frmmenu.loaded = true;
}

void PopupMenus::Form_Unload() { studio_.Frmmenu.loaded = false; }

void PopupMenus::pop(const Popup& popup) {
    auto closed = std::exchange(closed_, {});
    if (view != nullptr) return view->show(popup, std::move(closed));
    if (closed) closed();
}

void PopupMenus::Command1_Click() { pop(programPopup); }

void PopupMenus::Command2_Click() { pop(tabletPopup); }

void PopupMenus::Command3_Click() { pop(helpPopup); }

void PopupMenus::Command4_Click() {
    studio_.Frmmenu.mnuSetupToolBar.set(studio_.shell.Form3Open);
    studio_.Frmmenu.mnuPercussion.set(studio_.form1.Beatbox.visible());
    pop(partsPopup);
}

void PopupMenus::Command5_Click() {
    const int mode = studio_.selection.RightClickMode;
    studio_.Frmmenu.mnuerase.set(mode == right_click::erase);
    studio_.Frmmenu.mnuMenu.set(mode == right_click::menu);
    studio_.Frmmenu.mnuPoli.set(mode == right_click::chord);
    pop(rightClickPopup);
}

void PopupMenus::loadFor(void (PopupMenus::*command)(), std::function<void()> closed) {
    Form_Load();
    closed_ = [this, closed = std::move(closed)] {
        Form_Unload();
        if (closed) closed();
    };
    (this->*command)();
}

void PopupMenus::openTabletMenu(std::function<void()> closed) {
    loadFor(&PopupMenus::Command2_Click, std::move(closed));
}

void PopupMenus::openProgramMenu() { loadFor(&PopupMenus::Command1_Click, {}); }

void PopupMenus::openToolbarMenu(int button) {
    for (const auto& [of, open] : toolbarMenus) {
        if (of == button) loadFor(open, {});
    }
}

// The tablet's menu

void PopupMenus::mnuNew_Click() { parts_.toolbar.Cmd2_Click(0); }
void PopupMenus::mnuCut_Click() { parts_.blocks.CutBut_Click(); }
void PopupMenus::mnuCopy_Click() { parts_.blocks.copyIt(); }
void PopupMenus::mnuPasteInsert_Click() { parts_.blocks.PasteIntoBut_Click(); }
void PopupMenus::mnuPasteoverwrite_Click() { parts_.blocks.PasteBut_Click(); }
void PopupMenus::mnuOpen_Click() { parts_.files.Command33_Click(); }
void PopupMenus::mnuSaveAs2_Click() { parts_.files.Command34_Click(); }
void PopupMenus::mnuSave2_Click() { parts_.files.Command34_Click(); }

// The program's menu

void PopupMenus::mnuClearall_Click() { parts_.toolbar.Cmd2_Click(0); }
void PopupMenus::mnuFile_Click() { parts_.files.Command33_Click(); }
void PopupMenus::mnuSave_Click() { parts_.files.Command34_Click(); }
void PopupMenus::mnuRewind_Click() { parts_.player.RewindBut_Click(); }
void PopupMenus::mnuPlay_Click() { parts_.player.PlayAndStop_Click(0); }
void PopupMenus::mnuStopPlaying_Click() { parts_.player.PlayAndStop_Click(1); }
void PopupMenus::mnuStopall_Click() { parts_.panic.Command32_Click(); }
void PopupMenus::mnuSetup_Click() { parts_.toolWindows.showWindow("Form3"); }
void PopupMenus::mnuEdittool_Click() { parts_.toolWindows.showWindow("Form2"); }
void PopupMenus::mnuRecordtool_Click() { parts_.toolWindows.showWindow("Record"); }
void PopupMenus::mnu3D_Click() { setLook(false); }
void PopupMenus::mnuXP_Click() { setLook(true); }
void PopupMenus::mnuTutorial_Click() { parts_.toolWindows.showWindow("Wiz"); }
void PopupMenus::mnuHelp_Click() { Cmdhelp_Click(); }
void PopupMenus::mnuExit_Click() { parts_.startUp.Command3_Click(); }

/// Each window takes the new look at its next resize.
void PopupMenus::setLook(bool flat) {
    parts_.settings.save("XPInterface", flat);
    studio_.shell.XPInterface = flat;
    studio_.Frmmenu.mnu3D.set(!flat);
    studio_.Frmmenu.mnuXP.set(flat);
}

// Help

void PopupMenus::mnuHelpfile_Click() {
    parts_.toolbar.setToolWindows(false);
    Cmdhelp_Click();
    parts_.toolbar.setToolWindows(true);
    Cmdhelp_Click();  // in front of the windows that came back
}

void PopupMenus::Cmdhelp_Click() {
    if (showHelp) showHelp();
}

// What is shown

void PopupMenus::mnuSetupToolBar_Click() {
    if (!studio_.shell.Form3Open) {
        parts_.toolWindows.showWindow("Form3");
        return;
    }
    parts_.toolWindows.setShown(ToolWindows::Window::setup, false);
    studio_.shell.Form3Open = false;
}

void PopupMenus::mnuPercussion_Click() {
    auto& tableau = studio_.form1.Beatbox;
    tableau.setVisible(!tableau.visible());
    studio_.Frmmenu.mnuPercussion.set(tableau.visible());
}

// The right button

void PopupMenus::mnuerase_Click() { setRightClickMode(right_click::erase); }
void PopupMenus::mnuMenu_Click() { setRightClickMode(right_click::menu); }
void PopupMenus::mnuPoli_Click() { setRightClickMode(right_click::chord); }

void PopupMenus::setRightClickMode(int mode) {
    studio_.selection.RightClickMode = static_cast<Int16>(mode);
    Check3_Click();
}

void PopupMenus::Check3_Click() {
    const int mode = studio_.selection.RightClickMode;
    if (mode < right_click::erase || mode > right_click::chord) return;
    parts_.toolbar.pictures.showRightClickMode();
    studio_.form1.MusicBox.setTip("");
    studio_.form1.Picmain.setTip("");
}

void PopupMenus::listNames(NameTables& tables) {
    auto& operations = tables.operations;
    operations.add("form1", "Check3_Click", this, &PopupMenus::Check3_Click);
    operations.add("form1", "Cmdhelp_Click", this, &PopupMenus::Cmdhelp_Click);
    struct Handler {
        const char* name;
        void (PopupMenus::*run)();
    };
    constexpr std::array<Handler, 7> handlers{{{"Form_Load", &Menus::Form_Load},
                                               {"Form_Unload", &Menus::Form_Unload},
                                               {"Command1_Click", &Menus::Command1_Click},
                                               {"Command2_Click", &Menus::Command2_Click},
                                               {"Command3_Click", &Menus::Command3_Click},
                                               {"Command4_Click", &Menus::Command4_Click},
                                               {"Command5_Click", &Menus::Command5_Click}}};
    for (const auto& [name, run] : handlers) operations.add("Frmmenu", name, this, run);
    for (const Popup* const popup : popups) {
        listCaption(tables, popup->name, popup->caption);
        listEntries(tables, popup->entries);
    }
}

EntryControl& PopupMenus::listCaption(NameTables& tables, const char* name, const char* caption) {
    auto& control = captions_.emplace_back(caption);
    tables.controls.add("Frmmenu", name, control);
    return control;
}

void PopupMenus::listEntries(NameTables& tables, std::span<const PopupEntry> entries) {
    for (const auto& entry : entries) {
        if (*entry.caption == 0) continue;
        listEntries(tables, entry.inner);
        std::function<void()> choose;
        if (entry.chosen != nullptr) {
            tables.operations.add("Frmmenu", std::string(entry.name) + "_Click", this, entry.chosen);
            choose = [this, chosen = entry.chosen] { (this->*chosen)(); };
        }
        if (entry.mark == nullptr) {
            listCaption(tables, entry.name, entry.caption).acted = choose;
            continue;
        }
        auto& mark = studio_.Frmmenu.*entry.mark;
        mark.acted = choose;
        tables.controls.add("Frmmenu", entry.name, mark);
    }
}

}  // namespace melvane
