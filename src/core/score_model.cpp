#include "core/score_model.h"

#include "core/names.h"
#include "core/quick_compose.h"
#include "core/setup_channel.h"

namespace melvane {

namespace {

constexpr int noVelocity = 127;
constexpr int centrePan = 64;

}  // namespace

void ScoreModel::createGrids() {
    auto& score = studio_.score;
    auto& clip = studio_.clipboard;
    const int last = score.NumNotes;
    score.NoteArray.create(last, cell::empty);
    for (Grid* grid : {&score.InstArray, &score.VolumeArray, &score.ModArray, &score.PanArray,
                       &score.ReverbArray, &score.ChorusArray, &score.PolyArray, &clip.ClipNoteArray,
                       &clip.ClipInstArray, &clip.ClipVolumeArray, &clip.ClipModArray, &clip.ClipPanArray,
                       &clip.ClipReverbArray, &clip.ClipChorusArray, &clip.ClipPolyArray}) {
        grid->create(last);
    }
    studio_.page.SharpRowFlags.assign(score.NoteArray.row(0).size(), false);
}

void ScoreModel::resizeGrids(int lastColumn) {
    auto& score = studio_.score;
    auto& clip = studio_.clipboard;
    score.NumNotes = lastColumn;
    for (Grid* grid : {&score.NoteArray, &score.InstArray, &clip.ClipNoteArray, &clip.ClipInstArray,
                       &score.VolumeArray, &score.PolyArray, &clip.ClipPolyArray, &score.ModArray,
                       &score.PanArray, &score.ReverbArray, &score.ChorusArray}) {
        grid->resize(lastColumn);
    }
    studio_.page.SharpRowFlags.resize(score.NoteArray.row(0).size(), false);
}

void ScoreModel::ClearNoteArrays() {
    auto& score = studio_.score;
    for (int track = 0; track <= lastTrackNumber; ++track) {
        score.NoteArray.fillTrack(track, cell::empty, score.NumNotes);
        score.InstArray.fillTrack(track, 0, score.NumNotes);
    }
    ClearPolies();
}

void ScoreModel::ClearPolies() {
    auto& score = studio_.score;
    for (int track = 0; track <= lastTrackNumber; ++track)
        score.PolyArray.fillTrack(track + 1, 0, score.NumNotes);
}

void ScoreModel::ClearAll() {
    studio_.shell.Busy = true;
    forgetPosition();
    ClearNoteArrays();
    resetCounts();
    resetEffects();
    if (studio_.shell.Form3Open) resetSetupToolbar();
    showFromStart(0);
    panel_.ResetAll();
    studio_.shell.Busy = false;
    resetCounts();
}

void ScoreModel::ClearEffects() {
    studio_.shell.Busy = true;
    forgetPosition();
    ClearPolies();
    for (int track = 0; track <= lastTrackNumber; ++track) {
        studio_.score.InstArray.fillTrack(track, studio_.instruments.MelodyInstrument,
                                          studio_.score.NumNotes);
    }
    resetCounts();
    resetEffects();
    if (studio_.shell.Form3Open) resetSetupToolbar();
    showFromStart(0);
    studio_.shell.Busy = false;
    resetCounts();
}

void ScoreModel::CmdBeatactivate() {
    studio_.shell.Busy = true;
    studio_.form1.Beatbox.setHeight(48);
    forgetPosition();
    ClearNoteArrays();
    pressChannel(8);
    showFromStart(8);
    surfaces_.focusTableau();
    studio_.shell.Busy = false;
}

void ScoreModel::mNew_Click() {
    studio_.shell.Busy = true;
    studio_.score.ScoreFileName.clear();
    ClearNoteArrays();
    for (int track = 0; track <= lastTrackNumber; ++track) {
        const auto at = static_cast<std::size_t>(track);
        studio_.Form3.TrackSel[at].set(false);
        setChannelHidden(studio_, track, false);
        studio_.tracks.TrackInstrument[at] = 0;
    }
    pressChannel(0);
    studio_.tracks.LastTrack = studio_.tracks.CurrentTrack = 0;
    sounder_.ChangeInstrument(studio_.tracks.TrackInstrument[0], 0);
    studio_.form1.Combo1.set(0);
    studio_.selection.InsertPosition = 0;
    returnToStart();
    surfaces_.DrawNoteArray();
    surfaces_.focusTablet();
    studio_.shell.Busy = false;
}

void ScoreModel::forgetPosition() {
    studio_.score.ScoreFileName.clear();
    studio_.selection.SelStart = studio_.selection.SelEnd = -1;
    studio_.selection.InsertPosition = 0;
}

void ScoreModel::resetCounts() {
    studio_.score.UsedTrackCount = 1;
    studio_.score.TopPolyTrack = 0;
    studio_.score.PercussionCount = 0;
}

void ScoreModel::resetEffects() {
    auto& score = studio_.score;
    for (int track = 0; track <= lastTrackNumber; ++track) {
        studio_.tracks.TrackActive[static_cast<std::size_t>(track)] = false;
        score.VolumeArray.fillTrack(track, noVelocity, score.NumNotes);
        score.ModArray.fillTrack(track, 0, score.NumNotes);
        score.PanArray.fillTrack(track, centrePan, score.NumNotes);
        score.ReverbArray.fillTrack(track, 0, score.NumNotes);
        score.ChorusArray.fillTrack(track, 0, score.NumNotes);
    }
}

void ScoreModel::resetSetupToolbar() {
    pressChannel(0);
    showChannelVolume(studio_, 0);
    for (auto& chord : studio_.Form3.Ch) chord.set(false);
    for (auto& strum : studio_.Form3.Chkstrum) strum.set(false);
    studio_.score.Tempo = 100;
    studio_.Form3.TempoLabel.set("100");
}

/// A button pressed by the program moves the button and CurrentTrack; no track is opened and no test note
/// sounds.
void ScoreModel::pressChannel(int track) {
    pressChannelButton(studio_, track);
    studio_.tracks.CurrentTrack = static_cast<Int16>(track);
}

/// The view at the first column, without a redraw.
void ScoreModel::returnToStart() {
    auto& bar = studio_.form1.HScroll1;
    studio_.page.NoScrollRedraw = true;
    bar.set(bar.minimum());
    studio_.page.NoScrollRedraw = false;
}

void ScoreModel::showFromStart(int track) {
    studio_.tracks.LastTrack = static_cast<Int16>(track);
    studio_.tracks.CurrentTrackColor = studio_.tracks.TrackColor[static_cast<std::size_t>(track)];
    returnToStart();
    surfaces_.DrawNoteArray();
    surfaces_.DrawBeatArray();
}

void ScoreModel::listNames(NameTables& tables) {
    auto& operations = tables.operations;
    operations.add("form1", "ClearNoteArrays", this, &ScoreModel::ClearNoteArrays);
    operations.add("form1", "ClearPolies", this, &ScoreModel::ClearPolies);
    operations.add("form1", "ClearAll", this, &ScoreModel::ClearAll);
    operations.add("form1", "ClearEffects", this, &ScoreModel::ClearEffects);
    operations.add("form1", "CmdUndo_Click", this, &ScoreModel::ClearEffects);
    operations.add("form1", "CmdBeatactivate", this, &ScoreModel::CmdBeatactivate);
    operations.add("form1", "mNew_Click", this, &ScoreModel::mNew_Click);
}

}  // namespace melvane
