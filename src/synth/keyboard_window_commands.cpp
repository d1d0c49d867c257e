#include "synth/keyboard_window_commands.h"

#include <algorithm>
#include <filesystem>

#include "core/names.h"
#include "midi/messages.h"

namespace melvane {

namespace {

constexpr Colour windowGround{207, 207, 207}, keyGround{0x11, 0x71, 0xC5};
constexpr double usualLeft = 100, usualTop = 200, repairedLeft = 500, repairedTop = 500;  // twips
constexpr Int16 usualVolume = 127;
constexpr std::size_t recorderButton = 5;

// Twips.
constexpr double sideRoom = 50.0 * twipsAPixel;  // what the ground of the keys leaves of the window's width
constexpr double keyRoom = 20.0 * twipsAPixel;   // what the keys leave of that

constexpr std::array<const char*, 7> tips{
    "",        "Setup", "Stop all sound", "Help", "Close the keyboard and the program", "Recording Toolbar",
    "Composer"};

void widen(BoxControl& box, double width) {
    WindowPlace place = box.place();
    place.width = std::max(0.0, width);
    box.setPlace(place);
}

}  // namespace

const char* KeyboardWindowCommands::tip(int index) {
    return index >= 0 && static_cast<std::size_t>(index) < tips.size() ? tips[static_cast<std::size_t>(index)]
                                                                       : "";
}

KeyboardWindowCommands::KeyboardWindowCommands(Studio& studio, Parts parts) : studio_(studio), parts_(parts) {
    auto& synth = studio_.frmsynth;
    for (std::size_t at = 0; at < synth.Cmd2.size(); ++at) {
        synth.Cmd2[at].acted = [this, at] { Cmd2_Click(static_cast<int>(at)); };
    }
    for (std::size_t at = 0; at < synth.Cmd4.size(); ++at) {
        synth.Cmd4[at].acted = [this, at] { Cmd4_Click(static_cast<int>(at)); };
        synth.Cmd4[at].setVisible(false);
    }
    synth.CmdEdit.acted = [this] { CmdEdit_Click(); };
    Control* const hidden[] = {&synth.Text14,   &synth.Label5,    &synth.Text7,    &synth.Text9,
                               &synth.Command4, &synth.Command10, &synth.Command11};
    for (Control* const control : hidden) control->setVisible(false);
}

// Coming up

void KeyboardWindowCommands::Form_Load() {
    auto& synth = studio_.frmsynth;
    synth.loaded = loading_ = true;
    parts_.keys.forget();
    makeSongsFolder();
    openDevice();
    setColours();
    layOutToolbar();
    parts_.layout.layKeys();
    parts_.instrument.FillDeviceList();
    centre();
    parts_.channels.InitChannels();
    parts_.schemes.installSchemes();
    parts_.schemes.loadAtStart();
    studio_.keyboard.ComposerStopWatch = parts_.stopWatches.StopWatchCreate();
    placeWindow();
    Int16 volume = usualVolume;
    parts_.settings.read("Volume", usualVolume, volume);
    parts_.output.send(message::channelVolume(volume, studio_.keyboard.LiveChannel));
    if (frame != nullptr) frame->ApplySkin();
    parts_.instrument.loadInstrument();
    parts_.beats.ResetColors();
    loading_ = false;
    Form_Resize();
}

void KeyboardWindowCommands::makeSongsFolder() {
    const auto songs = parts_.directories.songs();
    std::error_code failed;
    std::filesystem::create_directories(songs, failed);
    auto& keyboard = studio_.keyboard;
    keyboard.OpenFolder = keyboard.SaveFolder = keyboard.ScoreFolder = songs.string();
}

void KeyboardWindowCommands::openDevice() {
    parts_.instrument.openDevice();
    parts_.output.send(message::drumKit);
}

void KeyboardWindowCommands::setColours() {
    auto& synth = studio_.frmsynth;
    synth.Picture2.setBackColour(windowGround);
    synth.Picture5.setBackColour(keyGround);
    synth.Picture1.setBackColour(keyGround);
}

void KeyboardWindowCommands::layOutToolbar() {
    auto& buttons = studio_.frmsynth.Cmd2;
    for (std::size_t at = 0; at < buttons.size(); ++at) buttons[at].setTip(tip(static_cast<int>(at)));
    buttons[recorderButton].setEnabled(openRecorder != nullptr);
}

/// At the horizontal centre of the screen, a third of the way down.
void KeyboardWindowCommands::centre() {
    if (frame == nullptr) return;
    WindowPlace place = frame->place();
    place.left = (frame->screenWidth() - place.width) / 2;
    place.top = (frame->screenHeight() - place.height) / 3;
    frame->setPlace(place);
}

void KeyboardWindowCommands::placeWindow() {
    if (frame == nullptr) return;
    auto& settings = parts_.settings;
    WindowPlace place = frame->place();
    settings.read("formS width", place.width, place.width);
    settings.read("formS Height", frame->screenHeight(), place.height);
    settings.read("formS left", usualLeft, place.left);
    settings.read("formS top", usualTop, place.top);
    settings.read("Playing position", true, studio_.player.ShowPlayingPosition);
    studio_.frmsynth.place = place;
    if (place.width > frame->screenWidth()) {
        studio_.frmsynth.place = {repairedLeft, repairedTop, frame->screenWidth(), frame->screenHeight()};
        storePlace();
    }
    frame->setPlace(studio_.frmsynth.place);
}

void KeyboardWindowCommands::storePlace() {
    const auto save = [this](const char* key, double measure) {
        std::int32_t twips = 0;
        if (assign(twips, measure)) parts_.settings.save(key, twips);
    };
    const auto& place = studio_.frmsynth.place;
    save("formS left", place.left);
    save("formS top", place.top);
    save("formS Width", place.width);
    save("formS Height", place.height);
}

// While it is shown

void KeyboardWindowCommands::Form_Resize() {
    auto& synth = studio_.frmsynth;
    if (!synth.loaded || loading_) return;
    widen(synth.Picture5, synth.place.width - sideRoom);
    widen(synth.Picture1, synth.Picture5.place().width - keyRoom);
    widen(synth.Picture2, synth.Picture5.place().width);
    const double loaded = leadingNumber(synth.Text14.text());
    if (loaded > 0) parts_.layout.ResizeKeys(synth.Picture5.place().width / loaded);
    for (KeyLabel& label : synth.NoteX) label.setEnabled(synth.Check1.ticked());
}

void KeyboardWindowCommands::Cmd2_Click(int Index) {
    switch (Index) {
        case 1:
            return CmdEdit_Click();
        case 2:
            return parts_.output.reset();
        case 3:
            if (showHelp) showHelp();
            return;
        case 4:
            return unload();
        case 5:
            if (openRecorder) openRecorder();
            return;
        case 6:
            return showComposer();
        default:
            return;
    }
}

void KeyboardWindowCommands::Cmd4_Click(int Index) {
    switch (Index) {
        case 1:
            studio_.frmsynth.CmdRec.userPut(Value(1LL));
            return;
        case 6:
            return unload();
        case 11:
            return parts_.schemes.CmdEd_Click();
        case 12:
            return parts_.schemes.Command1_Click();
        case 13:
            return parts_.schemes.Command6_Click();
        default:
            return;
    }
}

void KeyboardWindowCommands::CmdEdit_Click() {
    auto& panel = studio_.frmsynth.Picture2;
    panel.setVisible(!panel.visible());
    Form_Resize();
}

void KeyboardWindowCommands::showComposer() {
    parts_.mainWindow.show();
    if (showedComposer) showedComposer();
    if (frame != nullptr) frame->hide();
}

// Going down

void KeyboardWindowCommands::unload() {
    if (frame != nullptr) frame->unload();
}

void KeyboardWindowCommands::Form_Unload() {
    if (!studio_.frmsynth.loaded) return;
    studio_.frmsynth.loaded = false;
    if (frame != nullptr) frame->hide();
    parts_.output.reset();
    parts_.output.CloseMidi();
    storePlace();
    parts_.schemes.storeAtEnd();
    parts_.mainWindow.unload();  // with all other windows
}

void KeyboardWindowCommands::listNames(NameTables& tables) {
    auto& operations = tables.operations;
    operations.add("frmsynth", "Form_Load", this, &KeyboardWindowCommands::Form_Load);
    operations.add("frmsynth", "Form_Resize", this, &KeyboardWindowCommands::Form_Resize);
    operations.add("frmsynth", "Form_Unload", this, &KeyboardWindowCommands::unload);
    operations.add("frmsynth", "Cmd2_Click", this, &KeyboardWindowCommands::Cmd2_Click);
    operations.add("frmsynth", "Cmd4_Click", this, &KeyboardWindowCommands::Cmd4_Click);
    operations.add("frmsynth", "CmdEdit_Click", this, &KeyboardWindowCommands::CmdEdit_Click);
}

}  // namespace melvane
