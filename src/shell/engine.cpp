#include "shell/engine.h"

#include "core/studio_names.h"
#include "shell/editing_pictures.h"

namespace melvane {

Engine::Engine(Studio& studioToUse, Outside& outsideToUse, Surfaces& surfaces, MainFrame& frame,
               ToolWindows& toolWindows)
    : studio(studioToUse),
      outside(outsideToUse),
      settings(outside.settings),
      fileOperations(outside.directories, outside.clock, outside.loop),
      chords(studio, surfaces),
      output(studio, settings, outside.port, outside.dialogs),
      sounding(studio, output, chords, outside.loop),
      stopWatches(outside.clock, outside.loop),
      instruments(studio, settings, sounding, outside.clock, outside.loop),
      sliders(studio),
      panel(studio, instruments, sliders),
      channels(studio, surfaces, instruments),
      picker(studio, settings, outside.dialogs, outside.loop),
      noteInstrument(studio, picker, output, instruments, outside.dialogs),
      audition(studio, sounding),
      selector(studio, surfaces, chords),
      noteTest(studio, {toolWindows, chords, selector, picker, noteInstrument}),
      selecting(studio, surfaces, outside.loop),
      entry(studio, {surfaces, sounding, instruments, audition, selector, selecting, outside.loop}),
      tableau(studio, {surfaces, sounding, instruments, channels, audition, selecting}),
      tools(studio, surfaces),
      blocks(studio, surfaces),
      duplication(studio, surfaces, blocks, outside.loop),
      score(studio, surfaces, sounding, panel),
      page(studio, surfaces),
      panic(studio, output, instruments),
      player(studio, surfaces, toolWindows, output, sounding, stopWatches, outside.loop),
      files(studio, surfaces, score, page, fileOperations, outside.dialogs, outside.directories),
      midiExport(studio, settings, chords, fileOperations),
      setup(studio, {settings, surfaces, output, score, page, channels, instruments, picker}),
      startUp(studio, outside, surfaces, frame, toolWindows,
              {settings, fileOperations, score, channels, instruments, chords, panel, page, output, panic,
               stopWatches, setup}),
      toolbar(studio, toolWindows, score, channels, files, player, panic, startUp),
      menus(studio, {settings, toolWindows, blocks, files, player, panic, startUp, toolbar}),
      editing(studio, {settings, frame, toolbar, player, tools, blocks, duplication}),
      keyboard(studio, {settings, fileOperations, output, outside.dialogs, outside.clock, outside.loop,
                        outside.directories, picker, stopWatches, frame}),
      tutorial(studio, {settings, fileOperations, output, frame, toolWindows, outside.clock, outside.loop,
                        outside.directories, tables}),
      recorder(studio, {settings, output, panic, player, files, frame, toolWindows, outside.media,
                        outside.desktop, outside.dialogs, outside.clock, outside.loop, outside.directories}),
      surfaces_(surfaces) {
    connectControls();
    listNames();
}

void Engine::connectControls() {
    entry.openMenu = [this](auto closed) { menus.openTabletMenu(std::move(closed)); };
    tableau.openMenu = entry.openMenu;
    startUp.loadMenus = [this] { menus.Form_Load(); };
    toolbar.openMenu = [this](int button) { menus.openToolbarMenu(button); };
    auto& main = studio.form1;
    main.HScroll1.acted = [this] { page.HScroll1_Change(); };
    main.VScroll1.acted = [this] { page.VScroll1_Change(); };
    main.Combo1.acted = [this] { instruments.Combo1_Click(); };
    main.Combo2.acted = [this] { output.Combo2_Click(); };
    main.Combo3.acted = [this] { chords.Combo3_Click(); };
    main.Check1.acted = [this] { panel.Check1_Click(); };
    main.CmdInst.acted = [this] { noteInstrument.Text5_DblClick(); };
    main.Combo5.acted = [this] { instruments.Combo5_Click(); };
    keyboard.window.showedComposer = [this] { startUp.showScoreTools(); };
    keyboard.window.openRecorder = [this] { recorder.openForKeyboard(); };
    recorder.buttons.setToolWindows = [this](bool shown) { toolbar.setToolWindows(shown); };
    recorder.run.showPlayingPosition = [this] { showPlayingPosition(studio); };
    recorder.window.showPlayingPosition = recorder.run.showPlayingPosition;
    files.MidiFile = [this] { midiExport.MidiFile(); };
}

void Engine::listSurfaces() {
    auto& operations = tables.operations;
    operations.add("form1", "DrawNoteArray", &surfaces_, &Surfaces::DrawNoteArray);
    operations.add("form1", "GetRow", &surfaces_, &Surfaces::GetRow);
    operations.add("form1", "PutRow", &surfaces_, &Surfaces::PutRow);
    operations.add("form1", "GetColumn", &surfaces_, &Surfaces::GetColumn);
    operations.add("form1", "PutColumn", &surfaces_, &Surfaces::PutColumn);
    operations.add("form1", "GetBox", &surfaces_, &Surfaces::GetBox);
    operations.add("form1", "PutBox", &surfaces_, &Surfaces::PutBox);
    operations.add("form1", "DrawBeatArray", &surfaces_, &Surfaces::DrawBeatArray);
    operations.add("form1", "DrawTopBar", &surfaces_, &Surfaces::DrawTopBar);
    operations.add("form1", "DrawSelectorGrid", &surfaces_, &Surfaces::DrawSelectorGrid);
    operations.add("form1", "DrawBarStrip", &surfaces_, &Surfaces::DrawBarStrip);
    operations.add("form1", "DrawPolyStrip", &surfaces_, &Surfaces::DrawPolyStrip);
}

void Engine::listNames() {
    listStudio(tables, studio);
    listSurfaces();
    settings.listNames(tables);
    tables.operations.add("form1", "Idle", &outside.loop, &EventLoop::Idle);
    fileOperations.listNames(tables);
    chords.listNames(tables);
    output.listNames(tables);
    sounding.listNames(tables);
    stopWatches.listNames(tables);
    instruments.listNames(tables);
    panel.listNames(tables);
    sliders.listNames(tables);
    channels.listNames(tables);
    picker.listNames(tables);
    noteInstrument.listNames(tables);
    audition.listNames(tables);
    selector.listNames(tables);
    noteTest.listNames(tables);
    entry.listNames(tables);
    tableau.listNames(tables);
    tools.listNames(tables);
    blocks.listNames(tables);
    duplication.listNames(tables);
    score.listNames(tables);
    page.listNames(tables);
    panic.listNames(tables);
    player.listNames(tables);
    files.listNames(tables);
    midiExport.listNames(tables);
    setup.listNames(tables);
    startUp.listNames(tables);
    toolbar.listNames(tables);
    menus.listNames(tables);
    editing.listNames(tables);
    keyboard.listNames(tables);
    tutorial.listNames(tables);
    recorder.listNames(tables);
}

}  // namespace melvane
