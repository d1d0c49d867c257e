#pragma once
#include <array>

#include "core/controls.h"
#include "core/keyboard.h"
#include "core/main_frame.h"

namespace melvane {

/// A coloured rectangle: a key of the piano, or a panel under it. Its place is in twips inside what holds it.
/// It shows its colour.
class BoxControl : public Control {
 public:
    BoxControl() = default;
    explicit BoxControl(Colour colour) : backColour_(colour) {}
    const WindowPlace& place() const { return place_; }
    void setPlace(const WindowPlace& place) { store(place_, place); }
    Colour backColour() const { return backColour_; }
    void setBackColour(Colour colour) { store(backColour_, colour); }
    /// Blue, green, red from the high byte down.
    Value shown() const override { return colourNumber(backColour_); }

    static long long colourNumber(Colour colour) {
        return colour.red + colour.green * 256LL + colour.blue * 65536LL;
    }

 private:
    WindowPlace place_;
    Colour backColour_{255, 255, 255};
};

/// The label of a key: a field that takes nothing from the user while it is disabled. Place in twips.
class KeyLabel : public TextControl {
 public:
    const WindowPlace& place() const { return place_; }
    void setPlace(const WindowPlace& place) { store(place_, place); }
    bool userPut(const Value& value) override { return !enabled() || TextControl::userPut(value); }

 private:
    WindowPlace place_;
};

/// The strip along the keys that stops all sound.
class PanicBar : public TextControl {
 public:
    using TextControl::TextControl;
    Colour textColour() const { return textColour_; }
    void setTextColour(Colour colour) { store(textColour_, colour); }

 private:
    Colour textColour_{0xC0, 0xC0, 0xC0};  // as its ground: the text does not show
};

/// The keyboard window. Its controls keep what they hold while it is closed.
struct KeyboardControls {
    bool loaded = false;
    WindowPlace place;  ///< twips

    // the piano and its scheme
    std::array<BoxControl, Keyboard::keys> CmdKey;
    std::array<KeyLabel, Keyboard::keys> NoteX;
    BoxControl Picture1{{0x11, 0x71, 0xC5}};  ///< holds the keys
    BoxControl Picture5{{0x11, 0x71, 0xC5}};  ///< around Picture1
    TextControl Text14;                       ///< width of Picture1 at load, twips
    TextControl Label3{"keyboard.key"};       ///< file name of the scheme
    CheckControl Check1;                      ///< the labels are edited
    PictureControl CmdEd, Command1, Command6;
    PanicBar Label4{
        "                 Move curser over this bar to stop sound            Move curser over this bar to "
        "stop "
        "sound"};

    // playing
    CheckControl Check10, Check8, Check2;  ///< single notes, always polynotes, polynotes on Spacebar down
    CheckControl Chkstrum, ChkSustain, ChkMute;
    TextControl Text1{"1"};  ///< strum value, 1 to 11
    TextControl Text4{"0"};  ///< chord type, 0 to 10
    TextControl Label5;      ///< the Spacebar gate; hidden
    TextControl Text7{"0"};  ///< row of the key struck last; hidden
    TextControl LblChord{" Note"}, LblOctave, LblChannel{" Ch 01"}, LblInstrument;
    std::array<CheckControl, 6> Option5;
    std::array<CheckControl, 8> OptOct;
    std::array<CheckControl, 11> optChord;
    ScrollControl VsbOctave;
    PictureControl Command5;
    ListControl Combo1;  ///< MIDI devices, index 0 "MIDI Mapper"
    TextControl Label11{"127"}, LMod{"0"}, LPan{"64"}, LReverb{"0"}, LChorus{"0"};

    // the metronome
    CheckControl chkRunning, Check9;  ///< runs; sounds
    TextControl txtValue{"120"};      ///< beats a minute
    std::array<CheckControl, 5> Optbeat;
    BoxControl Picmetro;
    std::array<BoxControl, 4> pctBeat;

    // the composer and its saving
    TextControl Label8{"OFF"};  ///< the run flag of the capture, with the colour of a lamp
    TextControl Text2{"10"};    ///< tick, milliseconds
    TextControl Text11{"13"};   ///< length of pauses
    TextControl Text9;          ///< the item that is played; hidden
    TextControl Text12{"2.5"};  ///< compression
    TextControl Text8{"200"};   ///< file tempo
    CheckControl Check3, Check4, Check5, Check6, Check7;
    PictureControl Command2, CmdRec, CmdRecord, Command11, Command4, Command10;

    // the window
    std::array<PictureControl, 7> Cmd2;   ///< the toolbar, used from 1
    std::array<PictureControl, 14> Cmd4;  ///< used: 1, 6, 11, 12, 13; hidden
    PictureControl CmdEdit;
    BoxControl Picture2{{207, 207, 207}};  ///< the tabbed panel

    // Sliders whose number is shown in other words, or has a fraction, count in a number of their own.
    TextControl ChNumber{"0"}, OctNumber{"0"};
    SliderControl lblVolume{Label11, {0, 127, 127}}, LblMod{LMod, {0, 127, 0}}, LblPan{LPan, {0, 128, 0}},
        LblReverb{LReverb, {0, 127, 0}}, LblChorus{LChorus, {0, 127, 0}}, LblCh{ChNumber, {0, 8, 0}},
        LblOct{OctNumber, {0, 10, 0}}, LblCrd{Text4, {0, 10, 0}}, LblStrum{Text1, {1, 10, 1}},
        LblSpeed{Text2, {13, 12, 9, -1}}, LblPauses{Text11, {13, 12, 1, -1}},
        LblTempo{Text8, {0, 125, 200, 4}}, LblFileSpeed{Text12, {1, 6, 2}}, Lblbeats{txtValue, {0, 300, 120}};
};

}  // namespace melvane
