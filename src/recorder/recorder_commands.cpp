#include "recorder/recorder_commands.h"

#include "core/names.h"
#include "recorder/recording_buttons.h"

namespace melvane {

RecorderCommands::RecorderCommands(Studio& studio, Parts parts)
    : mci(parts.media, parts.desktop),
      log(studio, parts.clock),
      capture(studio, {mci, log, parts.panic, parts.dialogs}),
      audio(studio, {mci, log, parts.clock, parts.loop}),
      dialogs(studio, {mci, capture, parts.files, parts.output, parts.dialogs}),
      file(studio, log, parts.dialogs),
      buttons(studio, {audio, dialogs, file, parts.output, parts.player}),
      encoding(studio, {log, parts.settings, parts.dialogs, parts.desktop, parts.clock, parts.loop,
                        parts.directories, streams}),
      run(studio,
          {log, capture, audio, dialogs, encoding, parts.player, parts.clock, parts.loop, parts.directories}),
      window(studio, {parts.settings, parts.mainWindow, parts.toolWindows, mci, capture, audio, encoding,
                      parts.output, parts.dialogs, parts.desktop, parts.directories}),
      studio_(studio),
      toolWindows_(parts.toolWindows) {
    parts.player.recorder = this;
    run.showKeyboard = [this] { toolWindows_.showWindow("frmsynth"); };
}

void RecorderCommands::openForKeyboard() {
    toolWindows_.showWindow("Record");
    chooseSource(studio_.Record, studio_.Record.Optsourcekeyboard);
}

void RecorderCommands::showProgress(double ratio) {
    auto& Record = studio_.Record;
    Record.L2.setWidth(narrowed<std::int32_t>(ratio * Record.P2.width()).value_or(Record.P2.width()));
    if (ratio < 2) Record.Status.set(percentText(ratio, 1));
}

void RecorderCommands::clearProgress() {
    studio_.Record.L2.setWidth(1);
    studio_.Record.Status.set({});
}

void RecorderCommands::EnableButtons() { EnableRecording(studio_.Record); }
void RecorderCommands::DisableButtons() { DisableRecording(studio_.Record); }

void RecorderCommands::listNames(NameTables& tables) {
    tables.operations.add("Record", "EnableRecording", this, &RecorderCommands::EnableButtons);
    tables.operations.add("Record", "DisableRecording", this, &RecorderCommands::DisableButtons);
    mci.listNames(tables);
    capture.listNames(tables);
    audio.listNames(tables);
    dialogs.listNames(tables);
    file.listNames(tables);
    buttons.listNames(tables);
    encoding.listNames(tables);
    run.listNames(tables);
    window.listNames(tables);
}

}  // namespace melvane
