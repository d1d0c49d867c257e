#include "midi/player.h"

#include <vector>

#include "core/names.h"

namespace melvane {

namespace {

constexpr double songFactor = 0.046, selectionFactor = 0.04;
constexpr double shortestStep = 0.01, longestStep = 10;  // seconds

/// Seconds a column. A tempo of 0 has none.
std::optional<float> stepTime(int tempo, double factor) {
    if (tempo == 0) return std::nullopt;
    return static_cast<float>(300.0 / tempo * factor);
}

}  // namespace

void Player::PlayAndStop_Click(int Index) {
    auto& player = studio_.player;
    if (Index != 0) {
        player.StopPressed = true;
        EnableControls();
        player.Playing = false;
    } else if (!player.Playing) {
        player.Playing = true;
        DisableControls();
        loop_.Idle();
        PlaySong2();
    }
    EnableControls();
    player.Playing = false;
}

/// A loop with the position shown begins each round as a play of its own inside the last one, and at the end
/// every round runs its own end steps. The rounds that wait stand in a list and not on the stack, so a loop
/// may run for days.
void Player::play(Entry entry) {
    std::vector<Round> waiting;
    Round round{entry};
    auto ending = playFromStart(round);
    while (true) {
        if (ending == Ending::again) {
            waiting.push_back(round);
            round = {studio_.player.PlayingSelection ? Entry::selection : Entry::song};
            ending = playFromStart(round);
            if (ending == Ending::refused && !mayGoOn(round)) studio_.player.Playing = false;
            continue;
        }
        if (ending == Ending::ranOut) finish(round.entry);
        if (waiting.empty() || loop_.ended()) return;
        round = waiting.back();
        waiting.pop_back();
        loop_.runQueue();
        afterColumn(round);
        ending = playColumns(round);
    }
}

Player::Ending Player::playFromStart(Round& round) {
    if (!(round.entry == Entry::song ? beginSong() : beginSelection())) return Ending::refused;
    // A stop watch that cannot start skips the columns, not the end steps.
    if (stopWatches_.StopWatchStart(studio_.player.PlayStopWatch) == 0) return Ending::ranOut;
    return playColumns(round);
}

/// Whether the round before one that was refused goes on. It does after a song, which has begun anew by then.
/// After a selection it would stand past its end, where no stop reaches it, and without a step it would never
/// wait.
bool Player::mayGoOn(const Round& refused) const {
    return refused.entry == Entry::song && studio_.player.StepTime > 0 && studio_.score.Tempo != 0;
}

bool Player::beginSong() {
    auto& player = studio_.player;
    cursor_.showInsertPosition(PlayCursor::Clamp::columns);
    player.PlayColumn = player.PauseRequested ? studio_.selection.InsertPosition : Int16{0};
    player.PauseRequested = false;
    cursor_.begin();
    notes_.forgetPlayedCells();
    notes_.FindSongEnd();
    const auto step = stepTime(studio_.score.Tempo, songFactor);
    if (step) player.StepTime = *step;
    return step && *step >= shortestStep && *step <= longestStep;
}

bool Player::beginSelection() {
    auto& player = studio_.player;
    if (player.PlayRangeEnd < 1 || player.PlayRangeEnd - player.PlayRangeStart < 1) return false;
    player.PauseRequested = false;
    player.PlayingSelection = true;
    cursor_.showInsertPosition(PlayCursor::Clamp::pages);
    player.PlayColumn = studio_.selection.InsertPosition;
    cursor_.begin();
    notes_.forgetPlayedCells();
    player.SongEndColumn = player.PlayRangeEnd;
    player.StepTime = stepTime(studio_.score.Tempo, selectionFactor).value_or(player.StepTime);
    return true;
}

Player::Ending Player::playColumns(Round& round) {
    auto& player = studio_.player;
    while (player.Playing && !loop_.ended()) {
        stopWatches_.WaitSeconds(player.PlayStopWatch, player.StepTime);
        if (loop_.ended()) break;
        if (player.PauseRequested) {
            pauseHere(round.entry);
            return Ending::paused;
        }
        notes_.PlayNotes();
        cursor_.advance();
        assign(player.PlayColumn, player.PlayColumn + 1);
        if (player.PlayColumn > player.SongEndColumn && passEnd()) return Ending::again;
        loop_.runQueue();
        afterColumn(round);
    }
    return loop_.ended() ? Ending::closed : Ending::ranOut;
}

void Player::afterColumn(Round& round) {
    if (studio_.shell.RecorderOpen) {
        countProgress(round.entry == Entry::song ? studio_.player.RecordProgressColumns : round.columns);
    }
    if (round.entry == Entry::song)
        loop_.Idle();
    else
        loop_.runQueue();
}

/// PauseRequested stays set for the next play, and PlayingSelection where it was.
void Player::pauseHere(Entry entry) {
    if (entry == Entry::song) output_.reset();
    EnableControls();
    studio_.player.Playing = false;
    studio_.selection.InsertPosition = studio_.player.PlayColumn;
    surfaces_.DrawNoteArray();
}

/// True when another round is to begin. Without the position shown the same round goes on at column 0, in a
/// selection too.
bool Player::passEnd() {
    auto& player = studio_.player;
    if (!player.LoopSong) {
        player.Playing = false;
        return false;
    }
    if (player.ShowPlayingPosition) {
        player.Playing = true;
        return true;
    }
    player.PlayColumn = 0;
    return false;
}

void Player::countProgress(std::int32_t& columns) {
    ++columns;
    const int end = studio_.player.SongEndColumn;
    if (recorder != nullptr && end != 0) recorder->showProgress(static_cast<double>(columns) / end);
}

void Player::finish(Entry entry) {
    auto& player = studio_.player;
    stopWatches_.WaitSeconds(player.PlayStopWatch, player.StepTime);
    if (loop_.ended()) return;
    notes_.stopVisibleNotes();
    if (entry == Entry::song) output_.reset();
    if (studio_.shell.RecorderOpen && recorder != nullptr) recorder->clearProgress();
    if (entry == Entry::selection) {
        surfaces_.DrawNoteArray();
        player.PlayingSelection = false;
        EnableControls();
        return;
    }
    studio_.selection.SelStart = studio_.selection.SelEnd = -1;
    studio_.selection.InsertPosition = 0;
    player.PlayRangeStart = player.PlayRangeEnd = 0;
    surfaces_.DrawNoteArray();
    if (player.RecordingSong) {
        player.RecordingSong = false;
        if (recorder != nullptr) recorder->CmdStopRecording_Click();
    }
    EnableControls();
    player.RecordProgressColumns = 0;
}

/// One column forward outside a loop of its own.
void Player::AdvancePlayColumn() {
    auto& player = studio_.player;
    cursor_.advance();
    assign(player.PlayColumn, player.PlayColumn + 1);
    if (player.PlayColumn > player.SongEndColumn && passEnd())
        play(player.PlayingSelection ? Entry::selection : Entry::song);
    loop_.runQueue();
}

void Player::DisableControls() {
    if (studio_.shell.WizardOpen) toolWindows_.setEnabled(ToolWindows::Window::tutorial, false);
    enableTablet(false);
}

void Player::EnableControls() {
    const auto& shell = studio_.shell;
    if (shell.Form2Open) toolWindows_.setEnabled(ToolWindows::Window::editing, true);
    if (shell.Form3Open) toolWindows_.setEnabled(ToolWindows::Window::setup, true);
    if (shell.RecorderOpen) toolWindows_.setEnabled(ToolWindows::Window::recorder, true);
    if (shell.WizardOpen) toolWindows_.setEnabled(ToolWindows::Window::tutorial, true);
    enableTablet(true);
}

void Player::enableTablet(bool enabled) {
    auto& main = studio_.form1;
    main.Picture11.setEnabled(enabled);
    main.MusicBox.setEnabled(enabled);
    main.Beatbox.setEnabled(enabled);
    main.HScroll1.setEnabled(enabled);
    main.VScroll1.setEnabled(enabled);
}

void Player::RewindBut_Click() {
    if (studio_.player.Playing) return;
    auto& page = studio_.page;
    surfaces_.clearTablet();
    page.FirstColumn = 0;
    page.LastColumn = page.PageColumns;
    studio_.selection.InsertPosition = 0;
    surfaces_.DrawNoteArray();
    surfaces_.DrawBeatArray();
    studio_.form1.HScroll1.set(page.HalfPageColumns);
    loop_.Idle();
}

void Player::listNames(NameTables& tables) {
    auto& operations = tables.operations;
    operations.add("form1", "PlayAndStop_Click", this, &Player::PlayAndStop_Click);
    operations.add("form1", "RewindBut_Click", this, &Player::RewindBut_Click);
    operations.add("form1", "PlaySong2", this, &Player::PlaySong2);
    operations.add("form1", "PlaySelection", this, &Player::PlaySelection);
    operations.add("form1", "AdvancePlayColumn", this, &Player::AdvancePlayColumn);
    operations.add("form1", "DisableControls", this, &Player::DisableControls);
    operations.add("form1", "EnableControls", this, &Player::EnableControls);
    notes_.listNames(tables);
}

}  // namespace melvane
