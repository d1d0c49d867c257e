#pragma once
#include "core/studio.h"

/// Which of the recorder's buttons can be pressed, and which source is chosen.
namespace melvane {

/// Nothing is recorded: all but the stop.
inline void EnableRecording(RecordControls& Record) {
    Record.CmdrecordSNG.setEnabled(true);
    Record.Command20.setEnabled(true);
    Record.CmdStopRecording.setEnabled(false);
    Record.Picture7.setEnabled(true);
}

/// Something is: the stop alone.
inline void DisableRecording(RecordControls& Record) {
    Record.CmdrecordSNG.setEnabled(false);
    Record.Command20.setEnabled(false);
    Record.CmdStopRecording.setEnabled(true);
    Record.Picture7.setEnabled(false);
}

/// Something else has ended: while a recording runs, its stop stays the one button.
inline void enableUnlessRecording(Studio& studio) {
    studio.player.RecordingSong ? DisableRecording(studio.Record) : EnableRecording(studio.Record);
}

inline void chooseSource(RecordControls& Record, CheckControl& source) {
    for (CheckControl* const option : {&Record.Optsourcesng, &Record.Optsourcemid, &Record.Optsourcekeyboard})
        option->set(option == &source);
}

}  // namespace melvane
