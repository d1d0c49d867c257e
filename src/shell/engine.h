#pragma once
#include "core/block_editing.h"
#include "core/channel_selection.h"
#include "core/chords.h"
#include "core/duplication.h"
#include "core/file_operations.h"
#include "core/instrument_choice.h"
#include "core/main_frame.h"
#include "core/names.h"
#include "core/note_entry.h"
#include "core/quick_compose.h"
#include "core/score_model.h"
#include "core/selection_gestures.h"
#include "core/settings.h"
#include "core/studio.h"
#include "core/tableau_entry.h"
#include "core/tablet_page.h"
#include "core/tablet_tools.h"
#include "files/midi_export.h"
#include "files/score_files.h"
#include "midi/midi_output.h"
#include "midi/note_instrument.h"
#include "midi/panic.h"
#include "midi/player.h"
#include "midi/sounding.h"
#include "midi/stop_watch.h"
#include "platform/outside.h"
#include "recorder/recorder_commands.h"
#include "shell/editing_toolbar_commands.h"
#include "shell/instrument_picker.h"
#include "shell/main_toolbar_commands.h"
#include "shell/note_test.h"
#include "shell/popup_menus.h"
#include "shell/setup_toolbar_commands.h"
#include "shell/start_up.h"
#include "synth/keyboard_commands.h"
#include "tutorial/tutorial.h"

namespace melvane {

/// Everything that the program does, joined: each part made once, in the order in which they need each other.
/// The windows show `studio` and call the parts; the bench and the lessons call them by name through
/// `tables`. User-interface thread.
class Engine {
 public:
    Engine(Studio& studio, Outside& outside, Surfaces& surfaces, MainFrame& frame, ToolWindows& toolWindows);

    Studio& studio;
    Outside& outside;
    Settings settings;
    FileOperations fileOperations;
    Chords chords;
    MidiOutput output;
    Sounding sounding;
    StopWatches stopWatches;
    InstrumentChoice instruments;
    PanelSliders sliders;
    QuickCompose panel;
    ChannelSelection channels;
    InstrumentPicker picker;
    NoteInstrument noteInstrument;
    ColumnAudition audition;
    NoteSelector selector;
    NoteTest noteTest;
    SelectionGestures selecting;
    NoteEntry entry;
    TableauEntry tableau;
    TabletTools tools;
    BlockEditing blocks;
    Duplication duplication;
    ScoreModel score;
    TabletPage page;
    Panic panic;
    Player player;
    ScoreFiles files;
    MidiExport midiExport;
    SetupToolbarCommands setup;
    StartUp startUp;
    MainToolbarCommands toolbar;
    PopupMenus menus;
    EditingToolbarCommands editing;
    KeyboardCommands keyboard;
    Tutorial tutorial;
    RecorderCommands recorder;
    NameTables tables;

 private:
    void connectControls();
    void listSurfaces();
    void listNames();

    Surfaces& surfaces_;
};

}  // namespace melvane
