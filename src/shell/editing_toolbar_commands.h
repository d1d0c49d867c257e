#pragma once
#include "core/block_editing.h"
#include "core/duplication.h"
#include "core/main_frame.h"
#include "core/tablet_tools.h"
#include "midi/player.h"
#include "shell/editing_fields.h"
#include "shell/editing_pictures.h"
#include "shell/main_toolbar_commands.h"

namespace melvane {

/// The Editing toolbar Form2: transport, files, the draw/select switch, the clipboard, spaces and
/// duplication. It decides nothing about the score: each button calls what the main window has. A window
/// shows studio.Form2; what the user does there comes in through its controls.
class EditingToolbarCommands {
 public:
    struct Parts {
        Settings& settings;
        MainFrame& frame;
        MainToolbarCommands& toolbar;
        Player& player;
        TabletTools& tools;
        BlockEditing& blocks;
        Duplication& duplication;
    };
    EditingToolbarCommands(Studio& studio, Parts parts);

    /// Takes the place, the position toggle and the fields from the settings; the tool is that for drawing.
    /// The window has told its size before.
    void Form_Load();
    /// It comes to the front.
    void Form_Activate();
    /// It is about to close: the tablet draws again.
    void Form_QueryUnload();
    /// Stores what outlives it.
    void Form_Unload();
    /// A press on button `Index`, 1 to 17; another number does nothing.
    void Cmd2_Click(int Index);

    void listNames(NameTables& tables);

    EditingFields fields;
    EditingPictures pictures;

 private:
    using Press = void (*)(EditingToolbarCommands&);
    static Press press(int index);

    void readPlace();
    void playSelection();
    void togglePosition();
    void toggleLoop();
    void toggleTool();
    void showTool(bool selects);
    void duplicateNotes();

    Studio& studio_;
    Parts parts_;
};

}  // namespace melvane
