#include "core/studio_names.h"

#include "core/keyboard_names.h"
#include "core/recorder_names.h"

namespace melvane {

namespace {

/// A colour as the design counts it: blue, green, red from the high byte down.
Value colourValue(Colour colour) {
    return static_cast<long long>(colour.red) + colour.green * 256LL + colour.blue * 65536LL;
}

template <std::size_t Count>
void listColours(StateTable& table, std::string name, std::array<Colour, Count>& colours) {
    table.add({std::move(name), 1,
               [&colours](StateTable::Indices at) -> std::optional<Value> {
                   if (at[0] < 0 || static_cast<std::size_t>(at[0]) >= Count) return std::nullopt;
                   return colourValue(colours[static_cast<std::size_t>(at[0])]);
               },
               [](StateTable::Indices, const Value&) { return false; }});
}

bool isLane(StateTable::Indices at) { return at[0] >= 0 && at[0] < 16 && at[1] >= 0 && at[1] < 16; }

void listLanes(StateTable& table, Tracks& tracks) {
    const auto lane = [&tracks](StateTable::Indices at) -> Int16& {
        return tracks.PercussionLanes[static_cast<std::size_t>(at[0])][static_cast<std::size_t>(at[1])];
    };
    table.add({"PercussionLanes", 2,
               [lane](StateTable::Indices at) {
                   return isLane(at) ? std::optional(Value(static_cast<long long>(lane(at)))) : std::nullopt;
               },
               [lane](StateTable::Indices at, const Value& value) {
                   const auto number = fromValue<Int16>(value);
                   if (!number || !isLane(at)) return false;
                   lane(at) = *number;
                   return true;
               }});
}

void listScore(StateTable& table, Score& score) {
    table.add("NumNotes", score.NumNotes);
    table.add("NoteArray", score.NoteArray);
    table.add("InstArray", score.InstArray);
    table.add("VolumeArray", score.VolumeArray);
    table.add("ModArray", score.ModArray);
    table.add("PanArray", score.PanArray);
    table.add("ReverbArray", score.ReverbArray);
    table.add("ChorusArray", score.ChorusArray);
    table.add("PolyArray", score.PolyArray);
    table.add("Tempo", score.Tempo);
    table.add("BeatsPerMeasure", score.BeatsPerMeasure);
    table.add("UsedTrackCount", score.UsedTrackCount);
    table.add("TopPolyTrack", score.TopPolyTrack);
    table.add("PercussionCount", score.PercussionCount);
    table.add("ScoreFileName", score.ScoreFileName);
    table.add("SaveFileName", score.SaveFileName);
    table.add("MaxUsedColumn", score.MaxUsedColumn);
}

void listClipboard(StateTable& table, Clipboard& clipboard) {
    table.add("ClipNoteArray", clipboard.ClipNoteArray);
    table.add("ClipInstArray", clipboard.ClipInstArray);
    table.add("ClipVolumeArray", clipboard.ClipVolumeArray);
    table.add("ClipModArray", clipboard.ClipModArray);
    table.add("ClipPanArray", clipboard.ClipPanArray);
    table.add("ClipReverbArray", clipboard.ClipReverbArray);
    table.add("ClipChorusArray", clipboard.ClipChorusArray);
    table.add("ClipPolyArray", clipboard.ClipPolyArray);
    table.add("ClipLength", clipboard.ClipLength);
    table.add("ClipTrack", clipboard.ClipTrack);
}

void listChannelSettings(StateTable& table, PerTrack<ChannelRecord>& channels) {
    struct Field {
        const char* name;
        Int16 ChannelRecord::*held;
    };
    constexpr std::array<Field, 6> fields{{{"Instrument", &ChannelRecord::Instrument},
                                           {"Volume", &ChannelRecord::Volume},
                                           {"Pan", &ChannelRecord::Pan},
                                           {"Reverb", &ChannelRecord::Reverb},
                                           {"Chorus", &ChannelRecord::Chorus},
                                           {"Modulation", &ChannelRecord::Modulation}}};
    for (const auto& field : fields) {
        const auto find = [&channels, held = field.held](StateTable::Indices at) -> Int16* {
            auto& records = channels.entries();
            if (at[0] < 0 || static_cast<std::size_t>(at[0]) >= records.size()) return nullptr;
            return &(records[static_cast<std::size_t>(at[0])].*held);
        };
        table.add({std::string("ChannelSettings.") + field.name, 1,
                   [find](StateTable::Indices at) -> std::optional<Value> {
                       const Int16* const found = find(at);
                       return found ? std::optional<Value>(static_cast<long long>(*found)) : std::nullopt;
                   },
                   [find](StateTable::Indices at, const Value& value) {
                       const auto number = fromValue<Int16>(value);
                       Int16* const found = find(at);
                       if (number && found) *found = *number;
                       return number && found;
                   }});
    }
}

void listTracks(StateTable& table, Tracks& tracks) {
    table.add("CurrentTrack", tracks.CurrentTrack);
    table.add("LastTrack", tracks.LastTrack);
    table.add("TrackVolume", tracks.TrackVolume);
    table.add("TrackInstrument", tracks.TrackInstrument);
    table.add("TrackIsPercussion", tracks.TrackIsPercussion);
    table.add("PercussionKey", tracks.PercussionKey);
    table.add("TrackActive", tracks.TrackActive);
    table.add("TrackVisible", tracks.TrackVisible);
    table.add("TrackShown", tracks.TrackShown);
    listChannelSettings(table, tracks.ChannelSettings);
    table.add("ChannelNumber", tracks.ChannelNumber);
    listColours(table, "TrackColor", tracks.TrackColor);
    listColours(table, "TrackPaleColor", tracks.TrackPaleColor);
    table.add(
        {"CurrentTrackColor", 0,
         [&tracks](StateTable::Indices) { return std::optional(colourValue(tracks.CurrentTrackColor)); },
         [](StateTable::Indices, const Value&) { return false; }});
    listLanes(table, tracks);
}

void listPage(StateTable& table, Page& page) {
    table.add("FirstColumn", page.FirstColumn);
    table.add("LastColumn", page.LastColumn);
    table.add("FirstRow", page.FirstRow);
    table.add("LastRow", page.LastRow);
    table.add("PageColumns", page.PageColumns);
    table.add("PageRows", page.PageRows);
    table.add("HalfPageColumns", page.HalfPageColumns);
    table.add("HalfPageRows", page.HalfPageRows);
    table.add("LineHeight", page.LineHeight);
    table.add("StaffY", page.StaffY);
    table.add("SharpRowFlags", page.SharpRowFlags);
    table.add("ShowSharpGuides", page.ShowSharpGuides);
    table.add("NoScrollRedraw", page.NoScrollRedraw);
    table.add("NoteNames", page.NoteNames);
}

void listSelection(StateTable& table, Selection& selection) {
    table.add("SelStart", selection.SelStart);
    table.add("SelEnd", selection.SelEnd);
    table.add("InsertPosition", selection.InsertPosition);
    table.add("EditMode", selection.EditMode);
    table.add("RightClickMode", selection.RightClickMode);
    table.add("CopyonlyOneTrack", selection.CopyonlyOneTrack);
}

void listDrag(StateTable& table, Drag& drag) {
    table.add("DragColumn", drag.DragColumn);
    table.add("DragRow", drag.DragRow);
    table.add("DragStartColumn", drag.DragStartColumn);
    table.add("DragEndColumn", drag.DragEndColumn);
    table.add("DragLastColumn", drag.DragLastColumn);
    table.add("PressColumn", drag.PressColumn);
    table.add("MouseIsDown", drag.MouseIsDown);
}

void listInstruments(StateTable& table, Instruments& instruments) {
    table.add("MelodyInstrument", instruments.MelodyInstrument);
    table.add("PercussionInstrument", instruments.PercussionInstrument);
    table.add("NoteInstrument", instruments.NoteInstrument);
    table.add("MelodyInstrumentName", instruments.MelodyInstrumentName);
    table.add("PercussionInstrumentName", instruments.PercussionInstrumentName);
    table.add("NoteInstrumentName", instruments.NoteInstrumentName);
    table.add("PickingNoteInstrument", instruments.PickingNoteInstrument);
    table.add("NoteInstrumentMode", instruments.PickingNoteInstrument);
}

void listSounds(StateTable& table, Sounds& sounds) {
    table.add("MidiOutHandle", sounds.MidiOutHandle);
    table.add("MidiDeviceId", sounds.MidiDeviceId);
    table.add("MidiResult", sounds.MidiResult);
    table.add("NoteKey", sounds.NoteKey);
    table.add("NoteChannel", sounds.NoteChannel);
    table.add("NoteColumn", sounds.NoteColumn);
    table.add("ChordStep1", sounds.ChordStep1);
    table.add("ChordStep2", sounds.ChordStep2);
    table.add("ChordStep3", sounds.ChordStep3);
}

void listPlayback(StateTable& table, Playback& player) {
    table.add("Playing", player.Playing);
    table.add("PauseRequested", player.PauseRequested);
    table.add("LoopSong", player.LoopSong);
    table.add("ShowPlayingPosition", player.ShowPlayingPosition);
    table.add("PlayingSelection", player.PlayingSelection);
    table.add("RecordingSong", player.RecordingSong);
    table.add("StepTime", player.StepTime);
    table.add("PlayColumn", player.PlayColumn);
    table.add("SongEndColumn", player.SongEndColumn);
    table.add("LastPlayedCell", player.LastPlayedCell);
    table.add("LastPlayedInstrument", player.LastPlayedInstrument);
    table.add("PreviousCellState", player.PreviousCellState);
    table.add("CurrentCellState", player.CurrentCellState);
    table.add("PlayRangeStart", player.PlayRangeStart);
    table.add("PlayRangeEnd", player.PlayRangeEnd);
    table.add("PlayCursorColumn", player.PlayCursorColumn);
    table.add("PlayCursorValid", player.PlayCursorValid);
    table.add("SkipCursorRestore", player.SkipCursorRestore);
    table.add("RecordProgressColumns", player.RecordProgressColumns);
    table.add("PlayStopWatch", player.PlayStopWatch);
}

void listShell(StateTable& table, Shell& shell) {
    table.add("Busy", shell.Busy);
    table.add("Resizing", shell.Resizing);
    for (std::size_t at = 0; at < framedWindows.size(); ++at) {
        table.add(std::string(framedWindows[at]) + ".Resizing", shell.FramedResizing[at]);
    }
    table.add("Form2Open", shell.Form2Open);
    table.add("Form3Open", shell.Form3Open);
    table.add("RecorderOpen", shell.RecorderOpen);
    table.add("WizardOpen", shell.WizardOpen);
    table.add("Form2Active", shell.Form2Active);
    table.add("Form3Active", shell.Form3Active);
    table.add("RecordActive", shell.RecordActive);
    table.add("WizActive", shell.WizActive);
    table.add("XPInterface", shell.XPInterface);
    table.add("WindowState", shell.WindowState);
}

void listMain(ControlTable& table, MainControls& form1) {
    table.add("form1", "Picmain", form1.Picmain);
    table.add("form1", "MusicBox", form1.MusicBox);
    table.add("form1", "Beatbox", form1.Beatbox);
    table.add("form1", "PicX", form1.PicX);
    table.add("form1", "Pic2", form1.Pic2);
    table.add("form1", "Pic2a", form1.Pic2a);
    table.add("form1", "Pic3", form1.Pic3);
    table.add("form1", "Picture11", form1.Picture11);
    table.add("form1", "HScroll1", form1.HScroll1);
    table.add("form1", "VScroll1", form1.VScroll1);
    table.add("form1", "Combo1", form1.Combo1);
    table.add("form1", "Combo2", form1.Combo2);
    table.add("form1", "Combo3", form1.Combo3);
    table.add("form1", "Combo5", form1.Combo5);
    table.add("form1", "Text5", form1.Text5);
    table.add("form1", "Picture7", form1.Picture7);
    table.add("form1", "Picture9", form1.Picture9);
    table.add("form1", "Picture10", form1.Picture10);
    table.add("form1", "SideBar", form1.SideBar);
    table.add("form1", "CmdInst", form1.CmdInst);
    table.add("form1", "Label5", form1.Label5);
    table.add("form1", "Label7", form1.Label7);
    table.add("form1", "LblTrk", form1.LblTrk);
    table.add("form1", "LblNote", form1.LblNote);
    table.add("form1", "LblNoteName", form1.LblNoteName);
    table.add("form1", "LblVol", form1.LblVol);
    table.add("form1", "LblInst", form1.LblInst);
    table.add("form1", "vol3", form1.vol3);
    table.add("form1", "T1", form1.T1);
    table.add("form1", "T2", form1.T2);
    table.add("form1", "T3", form1.T3);
    table.add("form1", "T4", form1.T4);
    table.add("form1", "Check1", form1.Check1);
    table.add("form1", "Check4", form1.Check4);
    table.add("form1", "Check2", form1.Check2);
    for (int track = 0; track <= lastTrackNumber; ++track) {
        // There is no label with the index 9.
        if (track != 9)
            table.addMember("form1", "Label8", track, form1.Label8[static_cast<std::size_t>(track)]);
    }
    table.add("form1", "FunctionBut", form1.FunctionBut);
    table.add("form1", "StatusText", form1.StatusText);
}

void listSetup(ControlTable& table, SetupControls& Form3) {
    table.add("Form3", "SSTab1", Form3.SSTab1);
    table.add("Form3", "TrackSel", Form3.TrackSel);
    table.add("Form3", "TrackHide", Form3.TrackHide);
    table.add("Form3", "LblInst1", Form3.LblInst1);
    table.add("Form3", "LblInst2", Form3.LblInst2);
    table.add("Form3", "TempoLabel", Form3.TempoLabel);
    table.add("Form3", "TxBeats", Form3.TxBeats);
    table.add("Form3", "Label15", Form3.Label15);
    table.add("Form3", "Label2", Form3.Label2);
    table.add("Form3", "LMod", Form3.LMod);
    table.add("Form3", "LPan", Form3.LPan);
    table.add("Form3", "LReverb", Form3.LReverb);
    table.add("Form3", "LChorus", Form3.LChorus);
    table.add("Form3", "Ch", Form3.Ch);
    table.add("Form3", "Chkstrum", Form3.Chkstrum);
    table.add("Form3", "Combo3", Form3.Combo3);
    table.add("Form3", "Text1", Form3.Text1);
    table.add("Form3", "Text2", Form3.Text2);
    table.add("Form3", "Text3", Form3.Text3);
    table.add("Form3", "VScroll3", Form3.VScroll3);
    table.add("Form3", "Check1", Form3.Check1);
    table.add("Form3", "Combo2", Form3.Combo2);
}

void listTestPanel(ControlTable& table, TestPanelControls& Form5) {
    table.add("Form5", "Text5", Form5.Text5);
    table.add("Form5", "LblNote", Form5.LblNote);
    table.add("Form5", "LblNoteName", Form5.LblNoteName);
    table.add("Form5", "LblTrk", Form5.LblTrk);
    table.add("Form5", "LblMod", Form5.LblMod);
    table.add("Form5", "LblPan", Form5.LblPan);
    table.add("Form5", "LblReverb", Form5.LblReverb);
    table.add("Form5", "LblChorus", Form5.LblChorus);
    table.add("Form5", "vol3", Form5.vol3);
    table.add("Form5", "lblVolume", Form5.lblVolume);
    table.add("Form5", "lblVolumePtr", Form5.lblVolume.pointer);
    table.add("Form5", "Combo3", Form5.Combo3);
    table.add("Form5", "CmdInst", Form5.CmdInst);
    table.add("Form5", "Check4", Form5.Check4);
    table.add("Form5", "Pic2", Form5.Pic2);
    table.add("Form5", "Pic2a", Form5.Pic2a);
    table.add("Form5", "Pic3", Form5.Pic3);
    table.add("Form5", "Picture4", Form5.Picture4);
    table.add("Form5", "Picture10", Form5.Picture10);
    table.add("Form5", "Pt1", Form5.Pt1);
}

}  // namespace

void listStudio(NameTables& tables, Studio& studio) {
    listScore(tables.state, studio.score);
    listClipboard(tables.state, studio.clipboard);
    listTracks(tables.state, studio.tracks);
    listPage(tables.state, studio.page);
    listSelection(tables.state, studio.selection);
    listDrag(tables.state, studio.drag);
    listInstruments(tables.state, studio.instruments);
    listSounds(tables.state, studio.sounds);
    listPlayback(tables.state, studio.player);
    listShell(tables.state, studio.shell);
    tables.state.add("SetupChannel", studio.Form3.SetupChannel);
    listMain(tables.controls, studio.form1);
    listKeyboard(tables, studio);
    listRecorder(tables, studio);
    listEditingControls(tables, studio.Form2);
    listSetup(tables.controls, studio.Form3);
    listTestPanel(tables.controls, studio.Form5);
    tables.controls.add("FrmInst", "LstInstruments", studio.FrmInst.LstInstruments);
    tables.controls.add("FrmInst", "LstInstruments2", studio.FrmInst.LstInstruments2);
}

}  // namespace melvane
