#include "recorder/recorder_window_commands.h"

#include <array>
#include <filesystem>

#include "core/names.h"
#include "recorder/capture_formats.h"
#include "recorder/recording_buttons.h"

namespace melvane {

namespace {

constexpr const char* driverKey = "MPEGVideo";
constexpr const char* driver = "mciqtz.drv";

struct Tip {
    Control* control;
    const char* text;
};

struct StoredTick {
    CheckControl RecordControls::*check;
    const char* key;
};
constexpr std::array<StoredTick, 3> storedTicks{{{&RecordControls::Check2, "autoencode"},
                                                 {&RecordControls::Check3, "Delete WAV"},
                                                 {&RecordControls::Check4, "Show note position"}}};

void setTips(RecordControls& Record) {
    const Tip tips[] = {{&Record.Optsourcesng, "Record from SNG file or notes"},
                        {&Record.Optsourcemid, "Record from MID file"},
                        {&Record.Optsourcekeyboard, "Record from MID file"},  // the same, on purpose
                        {&Record.CmdrecordSNG, "Start Recording WAV File"},
                        {&Record.CmdStopRecording, "Stop Recording"},
                        {&Record.Command20, "Start Encoding from WAV file"},
                        {&Record.CmdLog, "Show Recording Log"},
                        {&Record.Command1, "Show system sound mixer"},
                        {&Record.cbxFormat, "Select WAV recording format"},
                        {&Record.Check2, "Encode to MP3 automatically"},
                        {&Record.Check3, "Delete WAV file on completion of encoding"},
                        {&Record.Check4, "Show playing position"},
                        {&Record.Combo3, "MP3 Quality Selector"},
                        {&Record.Combo4, "MP3 Bitrate selector"}};
    for (const Tip& tip : tips) tip.control->setTip(tip.text);
}

}  // namespace

RecorderWindowCommands::RecorderWindowCommands(Studio& studio, Parts parts) : studio_(studio), parts_(parts) {
    auto& Record = studio_.Record;
    for (CheckControl* const option : {&Record.Optsourcesng, &Record.Optsourcemid, &Record.Optsourcekeyboard})
        option->acted = [&Record, option] { chooseSource(Record, *option); };
    Record.CmdLog.acted = [this] { CmdLog_Click(); };
    Record.Command1.acted = [this] { Command1_Click(); };
    Record.cbxFormat.acted = [this] { cbxFormat_Click(); };
    Record.P2.setWidth(RecordControls::barWidth);
    Control* const hidden[] = {&Record.InputPath, &Record.OutPutPath, &Record.Text2, &Record.picMP3};
    for (Control* const control : hidden) control->setVisible(false);
    setTips(Record);
    fillFormats();
    clear();
}

// Coming up

void RecorderWindowCommands::Form_Load() {
    studio_.shell.RecorderOpen = true;
    readPlace();
    clear();
    fillFormats();
    parts_.encoding.fillLists();
    takeDriver();
    for (const auto& stored : storedTicks) {
        bool ticked = true;
        parts_.settings.read(stored.key, true, ticked);
        (studio_.Record.*stored.check).set(ticked);
    }
    takeFolders();
}

/// As a window that was just made.
void RecorderWindowCommands::clear() {
    auto& Record = studio_.Record;
    chooseSource(Record, Record.Optsourcesng);
    Record.CmdrecordSNG.setCaption("Start Recording");
    Record.Command20.setCaption("Encode File");
    TextControl* const emptied[] = {&Record.Text6,   &Record.Erbox,      &Record.Status, &Record.Text2,
                                    &Record.lblTime, &Record.lblbitrate, &Record.lblKhz, &Record.lblmode};
    for (TextControl* const text : emptied) text->set({});
    Record.InputPath.set("TEMP.WAV");
    Record.OutPutPath.set("TEMP.MP3");
    Record.Label8.set("Stopped");
    Record.L2.setWidth(0);
    Record.Picture5.setVisible(false);
    EnableRecording(Record);
}

void RecorderWindowCommands::fillFormats() {
    std::vector<std::string> texts;
    for (const auto& format : offeredFormats) texts.emplace_back(format.text);
    studio_.Record.cbxFormat.fill(std::move(texts));
    studio_.Record.cbxFormat.set(usualFormat);
}

/// A first start has it in the middle of the screen, a third of the way down.
void RecorderWindowCommands::readPlace() {
    auto& place = studio_.Record.place;
    const auto stored = [this](const char* key, double otherwise) {
        return wholeNumberText(parts_.settings.GetSetting(key, "")).value_or(otherwise);
    };
    const auto& frame = parts_.mainWindow;
    place.left = stored("record left", (frame.screenWidth() - place.width) / 2);
    place.top = stored("record top", (frame.screenHeight() - place.height) / 3);
}

void RecorderWindowCommands::takeDriver() {
    if (parts_.mci.ReadMciEntry(driverKey) != driver) parts_.mci.WriteMciEntry(driverKey, driver);
}

void RecorderWindowCommands::takeFolders() {
    std::error_code failed;
    std::filesystem::current_path(parts_.directories.program, failed);
    auto& recorder = studio_.recorder;
    const std::string songs = shortPath(recorder.SongsDir);
    if (songs.empty()) return;
    recorder.SongsDir = recorder.OpenFolder = recorder.SaveFolder = recorder.AudioFolder = songs;
}

void RecorderWindowCommands::Form_Activate() { studio_.shell.markActive(&Shell::RecordActive); }

// While it is shown

void RecorderWindowCommands::CmdLog_Click() {
    if (studio_.frmLog.loaded) loadLog();
    parts_.toolWindows.showWindow("frmLog");
}

void RecorderWindowCommands::loadLog() {
    studio_.frmLog.loaded = true;
    studio_.frmLog.Text1.set(studio_.Record.Text2.text());
}

void RecorderWindowCommands::Command1_Click() {
    if (parts_.desktop.openMixer()) return;
    parts_.dialogs.messageBox(BoxKind::exclamation, "Melvane - Error", "Unable to load SndVol32.exe");
}

void RecorderWindowCommands::cbxFormat_Click() {
    parts_.settings.save("WAV format", studio_.Record.cbxFormat.index());
}

// Going

void RecorderWindowCommands::Form_Unload() {
    if (!studio_.shell.RecorderOpen) return;
    studio_.shell.RecorderOpen = false;
    auto& recorder = studio_.recorder;
    ++recorder.closings;
    if (parts_.capture.isToBeSaved()) {  // what was recorded is not lost
        parts_.capture.stop();
        parts_.capture.saveCheck();
    }
    recorder.EncodeCancel = true;
    recorder.StopRequested = true;
    studio_.player.RecordingSong = false;
    parts_.output.CloseMidi();
    parts_.audio.StopMP3();
    parts_.audio.CloseMP3();
    parts_.mci.MciCloseAll();
    parts_.capture.forget();
    storePlace();
    for (const auto& stored : storedTicks)
        parts_.settings.save(stored.key, (studio_.Record.*stored.check).value());
    parts_.encoding.saveLists();
    parts_.settings.read("Playing position", true, studio_.player.ShowPlayingPosition);
    if (showPlayingPosition) showPlayingPosition();
}

void RecorderWindowCommands::storePlace() {
    const auto& place = studio_.Record.place;
    if (const auto left = narrowed<std::int32_t>(place.left)) parts_.settings.save("record left", *left);
    if (const auto top = narrowed<std::int32_t>(place.top)) parts_.settings.save("record top", *top);
}

void RecorderWindowCommands::listNames(NameTables& tables) {
    auto& operations = tables.operations;
    using Commands = RecorderWindowCommands;
    operations.add("Record", "Form_Load", this, &Commands::Form_Load);
    operations.add("Record", "Form_Activate", this, &Commands::Form_Activate);
    operations.add("Record", "Form_Unload", this, &Commands::Form_Unload);
    operations.add("Record", "CmdLog_Click", this, &Commands::CmdLog_Click);
    operations.add("Record", "Command1_Click", this, &Commands::Command1_Click);
    operations.add("Record", "cbxFormat_Click", this, &Commands::cbxFormat_Click);
    operations.add("frmLog", "Form_Load", this, &Commands::loadLog);
}

}  // namespace melvane
