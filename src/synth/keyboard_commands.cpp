#include "synth/keyboard_commands.h"

#include "core/names.h"

namespace melvane {

KeyboardCommands::KeyboardCommands(Studio& studio, Parts parts)
    : layout(studio, parts.loop),
      schemes(studio, {parts.settings, parts.files, parts.dialogs, parts.loop, parts.directories}),
      sounds(studio, parts.output),
      switches(studio, parts.output),
      notes(studio, {sounds, parts.clock, parts.loop}),
      keys(studio, notes),
      mouse(studio, sounds, parts.loop),
      cMetronome1(studio.keyboard.cMetronome1, parts.clock, parts.loop),
      beats(studio, cMetronome1, sounds),
      capture(studio, {parts.dialogs, parts.stopWatches, parts.loop}),
      replay(studio, {sounds, capture, parts.loop}),
      saving(studio, {parts.dialogs, capture, parts.directories}),
      channels(studio, parts.output),
      choices(studio),
      sliders(studio, parts.output, channels, choices),
      instrument(studio, {parts.settings, parts.output, parts.picker, channels}),
      window(studio, {parts.settings, parts.output, parts.stopWatches, parts.mainWindow, parts.directories,
                      layout, schemes, keys, beats, channels, instrument}) {
    instrument.releaseHeldKeys = [this] { releaseHeldKeys(); };
    layout.layKeys();
}

void KeyboardCommands::releaseHeldKeys() {
    notes.endStrums();
    mouse.releaseClickedKey();
    keys.releaseHeldKeys();
}

void KeyboardCommands::listNames(NameTables& tables) {
    tables.operations.add("frmsynth", "releaseHeldKeys", this, &KeyboardCommands::releaseHeldKeys);
    layout.listNames(tables);
    schemes.listNames(tables);
    sounds.listNames(tables);
    switches.listNames(tables);
    notes.listNames(tables);
    keys.listNames(tables);
    mouse.listNames(tables);
    cMetronome1.listNames(tables);
    beats.listNames(tables);
    capture.listNames(tables);
    replay.listNames(tables);
    saving.listNames(tables);
    channels.listNames(tables);
    choices.listNames(tables);
    sliders.listNames(tables);
    instrument.listNames(tables);
    window.listNames(tables);
}

}  // namespace melvane
