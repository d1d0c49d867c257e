#pragma once
#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include <vector>

#include "core/form_controls.h"
#include "core/grid.h"
#include "core/keyboard_controls.h"
#include "core/midi_export_state.h"
#include "core/note_names.h"
#include "core/numbers.h"
#include "core/record_controls.h"
#include "core/recorder.h"
#include "core/track_array.h"
#include "core/track_colours.h"
#include "core/tutorial_controls.h"

/// The whole state of the program, as plain values. Made once by main and once by each test; handed down by
/// reference. Fields that the design keeps as 16-bit values are 16-bit here; assign through assign()
/// (core/numbers.h) wherever a result may not fit. User-interface thread only.
namespace melvane {

using Int16 = std::int16_t;
template <class Entry>
using PerTrack = TrackArray<Entry, Grid::tracks>;

/// The highest track in use; loops over tracks run from 0 to this.
inline constexpr int lastTrackNumber = 12;
/// Tracks 0 to 7 are melody tracks, on the tablet.
constexpr bool isMelodyTrack(int track) { return track < 8; }
/// The number under which the user knows a track: track + 1 up to 9, the track itself above.
constexpr int shownTrackNumber(int track) { return track <= 9 ? track + 1 : track; }

/// The number of a percussion track among the four, from 1; 0 for any other track.
constexpr Int16 percussionChannel(int track) {
    switch (track) {
        case 8:
            return 1;
        case 10:
            return 2;
        case 11:
            return 3;
        case 12:
            return 4;
        default:
            return 0;
    }
}

/// The document. Value grids (velocity and effects) are addressed one column right of the note's start,
/// PolyArray one track below the note's track; readers, writers and players all rely on both shifts.
struct Score {
    std::int32_t NumNotes = 1000;  ///< index of the last column
    Grid NoteArray, InstArray, VolumeArray, ModArray, PanArray, ReverbArray, ChorusArray, PolyArray;
    Int16 Tempo = 100;
    Int16 BeatsPerMeasure = 4;  ///< columns between bar lines
    Int16 UsedTrackCount = 1;
    Int16 TopPolyTrack = 0;
    Int16 PercussionCount = 0;
    std::string ScoreFileName;  ///< the score in hand
    std::string SaveFileName;   ///< the path of the last save
    std::int32_t MaxUsedColumn = 0;

    int noteCell(int track, int column) const { return NoteArray.get(track, column, cell::empty); }
    /// The chord number of a cell of `track`, 0 where there is none.
    int chordOf(int track, int column) const { return PolyArray.get(track + 1, column, 0); }
};

/// The last column of `track` that holds a note or its continuation, looking from NumNotes down.
inline std::optional<int> lastUsedColumn(const Score& score, int track) {
    const auto cells = score.NoteArray.row(track);
    int column = std::min(score.NumNotes, static_cast<std::int32_t>(cells.size()) - 1);
    while (column >= 0 && cell::isEmpty(cells[static_cast<std::size_t>(column)])) --column;
    return column < 0 ? std::nullopt : std::optional(column);
}

/// The clipboard: a grid for each of the score's.
struct Clipboard {
    Grid ClipNoteArray, ClipInstArray, ClipVolumeArray, ClipModArray, ClipPanArray, ClipReverbArray,
        ClipChorusArray, ClipPolyArray;
    Int16 ClipLength = 0;  ///< the last offset of the clip: its width is one more
    Int16 ClipTrack = 0;   ///< where a clip of one track alone was taken from
};

/// What is set for a MIDI channel as a whole.
struct ChannelRecord {
    Int16 Instrument = 0, Volume = 0, Pan = 0, Reverb = 0, Chorus = 0, Modulation = 0;
};

struct Tracks {
    Int16 CurrentTrack = 0;
    Int16 LastTrack = 0;  ///< track of the note last sounded or edited
    PerTrack<Int16> TrackVolume{};
    PerTrack<Int16> TrackInstrument{};
    PerTrack<bool> TrackIsPercussion{};
    PerTrack<Int16> PercussionKey{};
    TrackArray<bool, 13> TrackActive{};
    PerTrack<bool> TrackVisible{};
    PerTrack<bool> TrackShown{};  ///< not hidden by the Setup toolbar
    PerTrack<ChannelRecord> ChannelSettings{};
    std::array<Colour, 13> TrackColor = trackColours;
    std::array<Colour, 13> TrackPaleColor = trackPaleColours;
    Colour CurrentTrackColor = trackColours[0];
    std::int32_t ChannelNumber = 1;  ///< 1-based number of the channel selected last
    /// Instruments of the tableau's lanes: (track - 7, position), both used from 1.
    std::array<std::array<Int16, 16>, 16> PercussionLanes{};
};

/// The part of the score that the tablet shows.
struct Page {
    Int16 FirstColumn = 0, LastColumn = 39, FirstRow = 42, LastRow = 50;
    Int16 PageColumns = 39, PageRows = 8, HalfPageColumns = 20, HalfPageRows = 4;
    Int16 LineHeight = 8;             ///< pixels a row
    std::array<Int16, 5> StaffY{};    ///< pixels from the tablet's top
    std::vector<bool> SharpRowFlags;  ///< by visible row
    Int16 ShowSharpGuides = 1;
    bool NoScrollRedraw = false;
    NoteNameTable NoteNames = buildNoteNames();

    static constexpr int columnWidth = 12;  ///< pixels, on every surface
    static constexpr int tableauRow = 12;   ///< pixels
};

struct Selection {
    Int16 SelStart = -1, SelEnd = -1;  ///< columns, both included; -1 when nothing is selected
    Int16 InsertPosition = 0;          ///< column
    Int16 EditMode = 0;                ///< 0 draw, 1 insertion position, 2 select
    Int16 RightClickMode = 0;          ///< 0 erase, 1 menu, 2 polynotes
    bool CopyonlyOneTrack = false;
};

/// How "Duplicate notes" lays its copies, in columns, as the Editing toolbar's fields say.
struct DuplicateValues {
    Int16 DuplicateNotes = 60;   ///< how far from InsertPosition copies may begin
    Int16 DuplicateRepeat = 12;  ///< from the start of one copy to that of the next
    Int16 DuplicateBeats = 12;   ///< the motif at the score's start
    Int16 ToolbarFirstChannel = 0, ToolbarLastChannel = 12;  ///< tracks; none when the last is lower
};

/// A press on the tablet or the tableau in progress; columns and rows of the page.
struct Drag {
    Int16 DragColumn = 0, DragRow = 0, DragStartColumn = 0, DragEndColumn = 0, DragLastColumn = 0,
          PressColumn = 0;
    bool MouseIsDown = false;
};

struct Instruments {
    Int16 MelodyInstrument = 0, PercussionInstrument = 0, NoteInstrument = 0;
    std::string MelodyInstrumentName, PercussionInstrumentName, NoteInstrumentName;
    bool PickingNoteInstrument = false;
};

/// What one sounding note needs.
struct Sounds {
    std::uint32_t MidiOutHandle = 0;
    std::int32_t MidiDeviceId = 0;
    std::uint32_t MidiResult = 0;
    Int16 NoteKey = 0, NoteChannel = 0;
    Int16 NoteColumn = 0;                                   ///< absolute column under the mouse
    Int16 ChordStep1 = 3, ChordStep2 = 7, ChordStep3 = 12;  ///< semitones over the root
};

/// A playback in progress, and how it is to go.
struct Playback {
    bool Playing = false, PauseRequested = false, LoopSong = false, ShowPlayingPosition = true;
    bool PlayingSelection = false, RecordingSong = false;
    bool StopPressed = false;  ///< set by each stop; whoever ends on it clears it first
    float StepTime = 0;        ///< seconds a column
    Int16 PlayColumn = 0, SongEndColumn = 0;
    PerTrack<Int16> LastPlayedCell{}, LastPlayedInstrument{};
    Int16 PreviousCellState = 0, CurrentCellState = 0;  ///< 0 rest, 1 start, 2 sustain
    Int16 PlayRangeStart = 0, PlayRangeEnd = 0;
    Int16 PlayCursorColumn = 0;  ///< column of the page
    bool PlayCursorValid = false, SkipCursorRestore = false;
    std::int32_t RecordProgressColumns = 0;
    std::int32_t PlayStopWatch = 0;  ///< slot number, from 1
};

/// The windows with a frame of the program's own, beside the main one.
inline constexpr std::array<std::string_view, 9> framedWindows{
    "Form2", "Form3", "Form5", "FrmInst", "Record", "frmsynth", "Wiz", "frminfo", "frmLog"};

/// Which windows are open, and what keeps re-entered handlers apart.
struct Shell {
    bool Busy = false, Resizing = false;
    /// An edge of the window is in the mouse's hand, by window; that of the main window is Resizing. The last
    /// is for windows without a name of the design's.
    std::array<bool, framedWindows.size() + 1> FramedResizing{};
    bool& resizingOf(std::string_view window) {
        if (window == "form1") return Resizing;
        const auto found = std::ranges::find(framedWindows, window);
        return FramedResizing[static_cast<std::size_t>(found - framedWindows.begin())];
    }
    bool Minimised = false;  ///< the main window
    Int16 WindowState = 0;   ///< the last that any window took: 0 normal, 1 minimised, 2 maximised
    bool Ending = false;     ///< the main window is being unloaded, and the program with it
    bool XPInterface = true;
    bool Form2Open = false, Form3Open = false, RecorderOpen = false, WizardOpen = false;
    /// Which tool window was the last in front.
    bool Form2Active = false, Form3Active = false, RecordActive = false, WizActive = false;

    /// `window` is one of the four flags above; the three others are cleared.
    void markActive(bool Shell::*window) {
        Form2Active = Form3Active = RecordActive = WizActive = false;
        this->*window = true;
    }
};

struct Studio {
    Score score;
    Clipboard clipboard;
    Tracks tracks;
    Page page;
    Selection selection;
    DuplicateValues duplicate;
    Drag drag;
    Instruments instruments;
    Sounds sounds;
    Playback player;
    MidiExportState midiExport;
    Keyboard keyboard;
    Recorder recorder;
    Shell shell;
    MainControls form1;
    EditingControls Form2;
    SetupControls Form3;
    TestPanelControls Form5;
    PickerControls FrmInst;
    MenuControls Frmmenu;
    KeyboardControls frmsynth;
    WizardControls Wiz;
    TipControls frminfo;
    RecordControls Record;
    LogControls frmLog;

    /// Whether the Setup toolbar's switch hides `track`; a track without a switch is not hidden.
    bool isHidden(int track) const {
        return track >= 0 && track <= lastTrackNumber &&
               Form3.TrackHide[static_cast<std::size_t>(track)].ticked();
    }
};

}  // namespace melvane
