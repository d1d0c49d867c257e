#include "shell/start_up.h"

#include <filesystem>

#include "core/instrument_names.h"
#include "core/names.h"
#include "core/setup_channel.h"

namespace melvane {

namespace {

constexpr double narrowestShare = 0.3;  // of the screen's width; a narrower window was saved while minimised
constexpr double repairedLeft = 500, repairedTop = 500, repairedMargin = 1001;  // twips

}  // namespace

void StartUp::Form_Load() {
    studio_.shell.Busy = true;
    readSettings();
    parts_.score.createGrids();
    parts_.score.ClearAll();
    studio_.shell.Busy = true;  // ClearAll has let go of it
    makeSongsFolder();
    setFirstTrack();
    parts_.chords.fillList();
    parts_.panel.Check1_Click();
    studio_.form1.SideBar.setVisible(false);
    studio_.form1.Beatbox.setTip("Percussion Tableau");
    setFirstPage();
    parts_.setup.Form_Load();  // hidden; the device that it shows is stored
    parts_.channels.setUpLabels();
    surfaces_.DrawSelectorGrid();
    parts_.page.DrawSideBar();
    surfaces_.DrawBarStrip();
    surfaces_.DrawPolyStrip();
    studio_.player.ShowPlayingPosition = true;
    studio_.player.PlayStopWatch = parts_.stopWatches.StopWatchCreate();
    openDevice();
    studio_.tracks.TrackVisible[0] = studio_.tracks.TrackVisible[1] = true;
    if (loadMenus) loadMenus();
    outside_.loop.Idle();
    placeWindow();
    showToolbars();
    studio_.shell.Busy = false;
}

void StartUp::readSettings() {
    auto& settings = parts_.settings;
    auto& score = studio_.score;
    settings.read("Intrumentval", Int16{24}, studio_.instruments.MelodyInstrument);
    settings.read("Intrumentval2", Int16{128}, studio_.instruments.PercussionInstrument);
    settings.read("CopyonlyOneTrack", false, studio_.selection.CopyonlyOneTrack);
    settings.read("NumNotes", std::int32_t{1000}, score.NumNotes);
    studio_.form1.HScroll1.setMaximum(score.NumNotes);
    settings.read("Beats per measure", Int16{4}, score.BeatsPerMeasure);
    settings.read("Line_Height", Int16{8}, studio_.page.LineHeight);
    settings.read("Show_Sharp_guides", Int16{1}, studio_.page.ShowSharpGuides);
}

void StartUp::makeSongsFolder() {
    std::error_code error;
    const auto songs = outside_.directories.songs();
    std::filesystem::create_directories(songs, error);
    auto& recorder = studio_.recorder;
    recorder.SongsDir = recorder.OpenFolder = recorder.SaveFolder = recorder.AudioFolder = songs.string();
}

void StartUp::setFirstTrack() {
    auto& tracks = studio_.tracks;
    tracks.LastTrack = 0;
    for (std::size_t track = 0; track <= 11; ++track) tracks.TrackVolume[track] = 127;
    studio_.sounds.ChordStep1 = 3;
    studio_.sounds.ChordStep2 = 7;
    studio_.sounds.ChordStep3 = 12;
    pressChannelButton(studio_, 0);
    studio_.selection.SelStart = studio_.selection.SelEnd = -1;
    studio_.score.Tempo = 100;
    tracks.CurrentTrack = 0;
    tracks.TrackActive[0] = true;
    tracks.CurrentTrackColor = tracks.TrackColor[0];
    studio_.form1.LblTrk.set("1");
    studio_.form1.LblTrk.setBackColour(tracks.TrackColor[0]);
}

void StartUp::setFirstPage() {
    auto& page = studio_.page;
    page.PageColumns = 39;
    page.PageRows = page.LineHeight;
    page.HalfPageColumns = static_cast<Int16>((page.PageColumns + 1) / 2);
    page.HalfPageRows = static_cast<Int16>((page.PageRows + 1) / 2);
    studio_.selection.EditMode = 0;
    studio_.selection.InsertPosition = 0;
    page.FirstColumn = 0;
    page.LastColumn = 39;
    page.FirstRow = 42;
    assign(page.LastRow, 42 + page.PageRows);
}

void StartUp::openDevice() {
    auto& main = studio_.form1;
    main.Combo1.fill(melodyInstrumentList());
    main.Combo5.fill(percussionInstrumentList());
    main.Combo2.fill(studio_.Form3.Combo2.items());
    main.Combo2.set(studio_.Form3.Combo2.index());
    parts_.output.Device_Click(0);
    parts_.instruments.Combo1_Click();
    parts_.instruments.Combo5_Click();
    main.Combo1.set(studio_.instruments.MelodyInstrument);
    main.Combo5.set(studio_.instruments.PercussionInstrument - firstPercussionInstrument);
    main.Text5.set(std::string(instrumentName(studio_.instruments.MelodyInstrument)));
}

void StartUp::readPlace(const char* key, double otherwise, double& value) {
    const auto text = outside_.settings.read(key);
    value = text ? wholeNumberText(*text).value_or(value) : otherwise;
}

void StartUp::storePlace(const WindowPlace& place) {
    auto& settings = parts_.settings;
    settings.save("form1 left", static_cast<long>(place.left));
    settings.save("form1 top", static_cast<long>(place.top));
    settings.save("form1 Width", static_cast<long>(place.width));
    settings.save("form1 Height", static_cast<long>(place.height));
}

void StartUp::placeWindow() {
    const double screenWidth = frame_.screenWidth(), screenHeight = frame_.screenHeight();
    WindowPlace place = frame_.place();
    readPlace("form1 left", 100, place.left);
    readPlace("form1 top", 200, place.top);
    readPlace("form1 Width", screenWidth - 200, place.width);
    readPlace("form1 Height", screenHeight - 400, place.height);
    if (place.width < narrowestShare * screenWidth) {
        place = {repairedLeft, repairedTop, screenWidth - repairedMargin, screenHeight - repairedMargin};
        storePlace(place);
    }
    frame_.setPlace(place);
}

void StartUp::showToolbars() {
    auto& settings = parts_.settings;
    settings.read("Playing position", true, studio_.player.ShowPlayingPosition);
    bool shown = true;
    settings.read("Percussion", true, shown);
    studio_.form1.Beatbox.setVisible(shown);
    settings.read("XPInterface", true, studio_.shell.XPInterface);
    frame_.ApplySkin();
    bool setupOpen = true;
    settings.read("Form3", true, setupOpen);
    studio_.shell.Form3Open = setupOpen;
    if (setupOpen) toolWindows_.showWindow("Form3");
}

void StartUp::Form_Activate() {
    studio_.player.Playing = false;
    parts_.panic.Command32_Click();
    parts_.output.openAtActivation();
    if (!studio_.shell.Busy) return;
    studio_.shell.Busy = false;
    assign(studio_.score.BeatsPerMeasure, leadingNumber(studio_.Form3.TxBeats.text()));
    for (int click = 0; click < 2; ++click) {
        parts_.channels.Label8_Click(0);
        outside_.loop.Idle();
    }
}

void StartUp::Form_Unload() {
    studio_.shell.Ending = true;
    if (hidden_.setup) studio_.shell.Form3Open = true;  // only the keyboard has hidden it
    parts_.output.CloseMidi();
    storePlace(frame_.place());
    parts_.settings.save("Percussion", studio_.form1.Beatbox.visible());
    // Removing the files serves events: nobody works on in a window that closes, and nobody saves an empty
    // score.
    frame_.hide();
    parts_.files.RemoveMediaFiles();
    parts_.score.ClearNoteArrays();
    toolWindows_.unloadAll();
    if (studio_.Form3.loaded) parts_.setup.Form_Unload();  // it may never have been shown
    outside_.loop.end();
}

void StartUp::Command3_Click() {
    parts_.output.closeForGood();
    frame_.unload();
}

bool StartUp::IsAlreadyRunning() {
    if (!anotherInstanceRuns || !anotherInstanceRuns()) return false;
    outside_.dialogs.messageBox(BoxKind::information, "Melvane", "Melvane is already running.");
    return true;
}

void StartUp::OpenKeyboardWindow() {
    if (IsAlreadyRunning() || !parts_.output.CheckMidiDevices()) return;
    if (!toolWindows_.showWindow("frmsynth")) return;
    hideScoreTools();
    frame_.hide();
}

void StartUp::hideScoreTools() {
    hidden_ = {studio_.shell.Form2Open, studio_.shell.Form3Open};
    if (hidden_.editing) toolWindows_.setShown(ToolWindows::Window::editing, false);
    if (hidden_.setup) toolWindows_.setShown(ToolWindows::Window::setup, false);
}

void StartUp::showScoreTools() {
    if (hidden_.editing) toolWindows_.setShown(ToolWindows::Window::editing, true);
    if (hidden_.setup) toolWindows_.setShown(ToolWindows::Window::setup, true);
    hidden_ = {};
}

void StartUp::listNames(NameTables& tables) {
    auto& operations = tables.operations;
    operations.add("form1", "Form_Load", this, &StartUp::Form_Load);
    operations.add("form1", "Form_Activate", this, &StartUp::Form_Activate);
    operations.add("form1", "Form_Unload", &frame_, &MainFrame::unload);
    operations.add("form1", "Command3_Click", this, &StartUp::Command3_Click);
    operations.add("form1", "IsOsSupported", this, &StartUp::IsOsSupported);
    operations.add("form1", "IsAlreadyRunning", this, &StartUp::IsAlreadyRunning);
    operations.add("form1", "OpenKeyboardWindow", this, &StartUp::OpenKeyboardWindow);
}

}  // namespace melvane
