#pragma once
#include <array>
#include <cstdint>
#include <optional>

#include "core/controls.h"
#include "core/editing_controls.h"

/// The controls whose contents the engine reads or sets: of the main window, the Setup toolbar, the note
/// test, the menus and the instrument picker.
namespace melvane {

struct MainControls {
    AreaControl client;  ///< the window's client area
    // the tablet and what lies around it
    AreaControl Picmain, MusicBox, Beatbox, PicX, Pic2, Pic2a, Pic3, Picture11;
    ScrollControl HScroll1, VScroll1;
    // Quick Compose bar
    ListControl Combo1;  ///< melody instruments
    ListControl Combo2;  ///< MIDI devices
    ListControl Combo3;  ///< chords, index 0 "Single Note"
    ListControl Combo5;  ///< percussion instruments
    TextControl Text5;   ///< instrument of the next note
    TextControl Label5, Label7, LblTrk, LblNote, LblNoteName, LblVol, LblInst;
    TextControl vol3{"127"}, T1{"0"}, T2{"0"}, T3{"0"}, T4{"0"};
    AreaControl Picture7, Picture9;  ///< the grounds of the instrument and the chord
    // A drag counts from 1 on the three effects, and from -63 on the pan, whose middle therefore reads 1.
    SliderControl lblVolume{vol3, {0, 127, 127}}, LblMod{T1, {1, 127, 0}}, LblPan{T2, {-63, 128, 1}},
        LblReverb{T3, {1, 127, 0}}, LblChorus{T4, {1, 127, 0}};
    CheckControl Check1;                 ///< "Effects"
    CheckControl Check4;                 ///< "Static note Test"
    CheckControl Check2{true};           ///< the percussion tableau is open
    std::array<TextControl, 13> Label8;  ///< channel labels; index 9 is not offered
    /// The effect read-out: modulation, pan, reverb and chorus of the note under inspection, 0 to 127.
    std::array<ScrollControl, 4> Picture10;
    std::array<PictureControl, 15> Cmd2, ImgPic;  ///< the main toolbar: buttons, and the pictures over them
    CheckControl CmdInst;                         ///< "Change instrument"
    std::array<CheckControl, 3> FunctionBut;      ///< the tablet's tools, by EditMode; not shown
    TextControl SideBar;                          ///< the row names as one text; usually hidden
    TextControl StatusText;                       ///< what the user is told without a box
};

/// The Setup toolbar. Its controls keep what they hold while it is closed.
struct SetupControls {
    SetupControls() {
        PanAtRest.fill(true);
        SSTab1.fill({"Setup", "Sound", "Chords", "Configuration"});
        SSTab1.set(0);
    }
    bool loaded = false;
    bool shown = false;  ///< on the screen
    /// Its top left corner in twips; nothing before it has one.
    std::optional<double> left, top;

    ListControl SSTab1;  ///< the page that is in front

    std::array<CheckControl, 13> TrackSel, TrackHide;  ///< index 9 is not offered
    TextControl LblInst1, LblInst2;                    ///< instruments of the melody and the percussion group
    TextControl TempoLabel{"100"}, TxBeats{"4"};
    SliderControl LblTempo{TempoLabel, {0, 125, 0, 4}}, Lblbeats{TxBeats, {4, 12, 4}};

    TextControl ChannelName;  ///< whose volume and effects the sliders are
    TextControl Label15{"Channel  Volume"}, Label2{"127"};
    TextControl LMod{"0"}, LPan{"64"}, LReverb{"0"}, LChorus{"0"};
    SliderControl lblVolume{Label2, {0, 127, 127}}, LblMod{LMod, {0, 127, 0}}, LblPan{LPan, {-64, 128, 0}},
        LblReverb{LReverb, {0, 127, 0}}, LblChorus{LChorus, {0, 127, 0}};
    /// By channel: the pan has not been moved, and its knob stands in the middle although it reads 64.
    std::array<bool, 16> PanAtRest{};

    std::array<CheckControl, 8> Ch, Chkstrum;
    ListControl Combo3;  ///< chords, without "Single Note"

    TextControl Text1{"1000"}, Text2{"100"}, Text3{"8"};
    ScrollControl VScroll3;
    CheckControl Check1{true};  ///< "Show Sharp # Notes Guide"
    ListControl Combo2;         ///< MIDI devices, index 0 "MIDI Mapper"

    std::int16_t SetupChannel = 0;  ///< the channel whose sliders are shown, from 0
};

/// The note test panel: a view of the note under inspection, with a chord list and a volume of its own.
/// `window` is shown while it is open.
struct TestPanelControls {
    TestPanelControls() { window.setVisible(false); }
    bool loaded = false;
    AreaControl window;
    TextControl Text5, LblNote, LblNoteName, LblTrk;
    TextControl LblMod, LblPan, LblReverb, LblChorus;  ///< the note's effects, the pan from -64 up
    TextControl vol3{"127"};
    SliderControl lblVolume{vol3, {0, 127, 127}};
    ListControl Combo3;                          ///< chords, index 0 "Single Note"
    CheckControl CmdInst;                        ///< "Change instrument"
    CheckControl Check4;                         ///< "Test": the same switch as the main window's
    AreaControl Pic2, Picture4, Picture10, Pt1;  ///< the grounds
    AreaControl Pic2a, Pic3;                     ///< the strips, whose columns begin at firstColumn
    int firstColumn = 0;                         ///< of the score
    std::function<void()> noteChanged;           ///< set by the window: the strips are to be painted anew
};

/// The marks of the popup menus.
struct MenuControls {
    bool loaded = false;
    CheckControl mnu3D, mnuXP, mnuSetupToolBar, mnuPercussion, mnuerase, mnuMenu, mnuPoli;
};

/// The instrument picker; `window` is shown while it is open.
struct PickerControls {
    PickerControls() { window.setVisible(false); }
    bool loaded = false;
    bool placed = false;  ///< on the screen, since it was loaded
    AreaControl window;
    ListControl LstInstruments, LstInstruments2;
};

}  // namespace melvane
