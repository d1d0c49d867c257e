#pragma once
#include "core/main_frame.h"
#include "core/studio.h"
#include "core/surfaces.h"
#include "midi/column_notes.h"
#include "midi/midi_output.h"
#include "midi/play_cursor.h"
#include "midi/sounding.h"
#include "midi/stop_watch.h"
#include "platform/event_loop.h"

namespace melvane {

struct NameTables;

/// The recorder, as a playback drives it.
class PlaybackRecorder {
 public:
    virtual ~PlaybackRecorder() = default;
    /// How much of the song has been played, 0 and up; 1 is the whole.
    virtual void showProgress(double ratio) = 0;
    virtual void clearProgress() = 0;
    virtual void CmdStopRecording_Click() = 0;
};

/// The one loop that walks the score column by column: waits, plays, moves the cursor. It runs on the
/// user-interface thread and serves events in its waits; Playing and PauseRequested steer it.
class Player {
 public:
    Player(Studio& studio, Surfaces& surfaces, ToolWindows& toolWindows, MidiOutput& output,
           Sounding& sounding, StopWatches& stopWatches, EventLoop& loop)
        : studio_(studio),
          surfaces_(surfaces),
          toolWindows_(toolWindows),
          output_(output),
          stopWatches_(stopWatches),
          loop_(loop),
          notes_(studio, sounding),
          cursor_(studio, surfaces) {}

    /// Index 0 plays, any other stops; play during a playback stops it too.
    void PlayAndStop_Click(int Index);
    /// Back to the start of the score; nothing while Playing.
    void RewindBut_Click();
    /// The whole song, from column 0, or from InsertPosition after a pause. Nothing for a step outside 0.01
    /// to 10 seconds.
    void PlaySong2() { play(Entry::song); }
    /// InsertPosition to PlayRangeEnd, 15 percent faster. The caller sets Playing and clears it afterwards.
    void PlaySelection() { play(Entry::selection); }
    void DisableControls();
    void EnableControls();

    void listNames(NameTables& tables);

    PlaybackRecorder* recorder = nullptr;  ///< where there is one; its progress is shown while it is open

 private:
    enum class Entry { song, selection };
    enum class Ending {
        refused,  ///< it did not begin
        ranOut,   ///< Playing was cleared
        paused,
        again,  ///< the score is over and is to be played once more
        closed  ///< the program ends
    };

    /// One pass over the score or the selection.
    struct Round {
        Entry entry;
        std::int32_t columns = 0;  ///< played so far, counted for a selection
    };

    void play(Entry entry);
    Ending playFromStart(Round& round);
    bool mayGoOn(const Round& refused) const;
    bool beginSong();
    bool beginSelection();
    Ending playColumns(Round& round);
    void afterColumn(Round& round);
    void finish(Entry entry);
    void pauseHere(Entry entry);
    void AdvancePlayColumn();
    bool passEnd();
    void countProgress(std::int32_t& columns);
    void enableTablet(bool enabled);

    Studio& studio_;
    Surfaces& surfaces_;
    ToolWindows& toolWindows_;
    MidiOutput& output_;
    StopWatches& stopWatches_;
    EventLoop& loop_;
    ColumnNotes notes_;
    PlayCursor cursor_;
};

}  // namespace melvane
