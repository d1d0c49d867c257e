#pragma once
#include <array>

#include "core/controls.h"
#include "core/main_frame.h"

namespace melvane {

/// A bar that fills a panel from the left; it shows its width in pixels.
class BarControl : public AreaControl {
 public:
    Value shown() const override { return static_cast<long long>(width()); }
};

/// The recorder's window: what to record and how, the encoder's settings, and a player of files.
struct RecordControls {
    static constexpr int barWidth = 240;  ///< pixels, of the ground of the progress bar
    static constexpr std::size_t buttons = 5;

    WindowPlace place;  ///< twips; the size is set by the window

    // what is recorded
    CheckControl Optsourcesng{true}, Optsourcemid, Optsourcekeyboard;
    ButtonControl CmdrecordSNG{"Start Recording"}, CmdStopRecording{"Stop Recording"},
        Command20{"Encode File"};  ///< its caption says whether an encoding runs
    ButtonControl CmdLog{"Show Log"}, Command1{"Volume Control"};
    ListControl cbxFormat;      ///< "WAV Recording Format"
    CheckControl Check4{true};  ///< "Show Note position"

    // how it is encoded
    CheckControl Check2{true};   ///< "Auto-Encode to MP3"
    CheckControl Check3{true};   ///< "Delete WAV file"
    ListControl Combo3, Combo4;  ///< "MP3 Quality", "MP3 Bitrate"

    TextControl Text6;                   ///< the file in hand
    TextControl InputPath{"TEMP.WAV"};   ///< of the recording; hidden
    TextControl OutPutPath{"TEMP.MP3"};  ///< of its encoding; hidden
    TextControl Erbox;                   ///< one line of status
    TextControl Label8{"Stopped"};       ///< the state in a word
    TextControl Status;                  ///< how much is done
    TextControl Text2;                   ///< the log; hidden

    // the player
    std::array<PictureControl, buttons> Cmd2, ImgR;  ///< flat buttons, and the pictures over them
    AreaControl Picture7;                            ///< the panel of the player
    AreaControl Picture5;                            ///< its read-out, shown once something was played
    AreaControl P2;                                  ///< the ground of the progress bar
    BarControl L2;                                   ///< its fill
    AreaControl picMP3;                              ///< the parent of what is played; hidden
    TextControl lblTime;                             ///< minutes and seconds
    TextControl lblKhz, lblbitrate, lblmode;         ///< what the file's first bytes say
};

/// The window of the recorder's log.
struct LogControls {
    bool loaded = false;
    TextControl Text1;
};

}  // namespace melvane
