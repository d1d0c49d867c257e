#include <array>
#include <memory>
#include <random>

#include "block_reference.h"
#include "core/block_editing.h"
#include "core/duplication.h"
#include "core/grid_pairs.h"
#include "platform/virtual_time.h"
#include "render/null_surfaces.h"

#include <gtest/gtest.h>

namespace melvane::test {
namespace {

constexpr int operations = 100'000;
constexpr int lowestRow = 127;

/// The eight grids of a score, or of a clipboard, and what else an operation on blocks may change.
struct Picture {
    explicit Picture(const Studio& studio)
        : numNotes(studio.score.NumNotes),
          clipLength(studio.clipboard.ClipLength),
          clipTrack(studio.clipboard.ClipTrack),
          selStart(studio.selection.SelStart),
          selEnd(studio.selection.SelEnd),
          position(studio.selection.InsertPosition) {
        for (const auto& pair : gridPairs) {
            score.push_back(studio.score.*pair.score);
            clip.push_back(studio.clipboard.*pair.clip);
        }
    }
    bool operator==(const Picture&) const = default;

    std::vector<Grid> score, clip;
    int numNotes, clipLength, clipTrack, selStart, selEnd, position;
};

enum Operation : std::size_t { copy, copyArea, cut, paste, pasteInto, insert, reverse, duplicate, kinds };

struct Step {
    Operation operation;
    int count;        ///< of spaces
    int first, last;  ///< channels
};

/// The program's own operations, without a picture.
struct Blocks {
    explicit Blocks(Studio& studio)
        : editing(studio, surfaces), duplication(studio, surfaces, editing, time) {}
    void run(const Step& step);

    VirtualTime time;
    NullSurfaces surfaces;
    BlockEditing editing;
    Duplication duplication;
};

void Blocks::run(const Step& step) {
    switch (step.operation) {
        case copy:
            return editing.copyIt();
        case copyArea:
            return editing.CopySelectedArea();
        case cut:
            return editing.CutBut_Click();
        case paste:
            return editing.PasteBut_Click();
        case pasteInto:
            return editing.PasteIntoBut_Click();
        case insert:
            return editing.InsertSpaces(step.count);
        case reverse:
            return editing.ReverseSelection();
        default:
            return duplication.CopyNotes(step.first, step.last);
    }
}

void run(BlockReference& reference, const Step& step) {
    switch (step.operation) {
        case copy:
            return reference.copyIt();
        case copyArea:
            return reference.copySelectedArea();
        case cut:
            return reference.cut();
        case paste:
            return reference.paste();
        case pasteInto:
            return reference.pasteInto();
        case insert:
            return reference.insertSpaces(step.count);
        case reverse:
            return reference.reverse();
        default:
            return reference.copyNotes(step.first, step.last);
    }
}

/// A small score with notes on every track, and marks on the tracks that nothing may touch.
class BlockProperties : public testing::Test {
 protected:
    int pick(int from, int to) { return std::uniform_int_distribution(from, to)(random); }
    bool chance(int percent) { return pick(1, 100) <= percent; }

    static void makeScore(Studio& studio, int lastColumn) {
        studio.score.NumNotes = lastColumn;
        for (const auto& pair : gridPairs) {
            (studio.score.*pair.score).create(lastColumn, pair.blank);
            (studio.clipboard.*pair.clip).create(lastColumn);
        }
    }
    void writeNotes(Studio& studio, int track) {
        auto& score = studio.score;
        score.NoteArray.fillTrack(track, cell::empty, score.NoteArray.lastColumn());
        for (int column = 0; column <= score.NoteArray.lastColumn();) {
            const int row = pick(0, lowestRow), length = pick(1, 6);
            for (int at = column; at < column + length; ++at) {
                score.NoteArray.set(track, at, at == column ? row : 1000 + row);
                for (const auto& pair : std::span(gridPairs).subspan(1))
                    (score.*pair.score).set(track, at, pick(0, 127));
            }
            column += length + pick(0, 2);
        }
    }
    void fill(Studio& studio) {
        for (int track = 0; track < Grid::tracks; ++track) writeNotes(studio, track);
    }
    /// Notes, fields and switches as a user leaves them between two operations, and beyond: `wild` takes
    /// numbers that no user can give.
    void prepare(Studio& studio, bool wild) {
        const int last = studio.score.NumNotes, below = wild ? -5 : 0, above = wild ? 12 : 0;
        const auto column = [&] { return static_cast<Int16>(pick(below, last + above)); };
        auto& selection = studio.selection;
        if (chance(70)) {
            selection.SelStart = column();
            selection.SelEnd =
                wild && chance(10) ? column() : static_cast<Int16>(selection.SelStart + pick(0, 9));
        }
        if (chance(60)) selection.InsertPosition = column();
        if (chance(20)) studio.tracks.CurrentTrack = static_cast<Int16>(pick(0, wild ? 15 : lastTrackNumber));
        if (chance(20)) selection.CopyonlyOneTrack = chance(50);
        if (chance(20))
            studio.Form3.TrackHide[static_cast<std::size_t>(pick(0, lastTrackNumber))].set(chance(40));
        if (chance(30)) writeNotes(studio, pick(0, lastTrackNumber));
        auto& fields = studio.duplicate;
        fields.DuplicateNotes = static_cast<Int16>(pick(below, last));
        fields.DuplicateRepeat = static_cast<Int16>(pick(1, 20));
        fields.DuplicateBeats = static_cast<Int16>(pick(below, 15));
    }
    static void resize(Studio& studio, int lastColumn) {
        auto& score = studio.score;
        auto& clip = studio.clipboard;
        score.NumNotes = lastColumn;
        for (const auto& pair : gridPairs) (score.*pair.score).resize(lastColumn);
        for (Grid* grid : {&clip.ClipNoteArray, &clip.ClipInstArray, &clip.ClipPolyArray})
            grid->resize(lastColumn);
    }

    std::mt19937 random{11};
};

void copyState(const Studio& from, Studio& to) {
    for (const auto& pair : gridPairs) {
        to.score.*pair.score = from.score.*pair.score;
        to.clipboard.*pair.clip = from.clipboard.*pair.clip;
    }
    to.score.NumNotes = from.score.NumNotes;
    to.clipboard.ClipLength = from.clipboard.ClipLength;
    to.clipboard.ClipTrack = from.clipboard.ClipTrack;
    to.selection = from.selection;
    to.duplicate = from.duplicate;
    to.tracks.CurrentTrack = from.tracks.CurrentTrack;
    for (std::size_t track = 0; track <= lastTrackNumber; ++track)
        to.Form3.TrackHide[track].set(from.Form3.TrackHide[track].ticked());
}

bool sameTrack(const std::vector<Grid>& before, const std::vector<Grid>& after, int track) {
    for (std::size_t grid = 0; grid < before.size(); ++grid) {
        if (!std::ranges::equal(before[grid].row(track), after[grid].row(track))) return false;
    }
    return true;
}

/// What holds after every operation on blocks.
void expectUntouched(const Studio& studio, const Picture& before, const Picture& after) {
    ASSERT_EQ(after.numNotes, before.numNotes);
    for (const auto& grid : after.score) ASSERT_EQ(grid.lastColumn(), before.score.front().lastColumn());
    for (int track = 0; track < Grid::tracks; ++track) {
        if (track <= lastTrackNumber && !studio.isHidden(track)) continue;
        ASSERT_TRUE(sameTrack(before.score, after.score, track)) << "track " << track;
    }
    for (int track = 0; track <= lastTrackNumber; ++track) {
        for (const int value : studio.score.NoteArray.row(track)) {
            ASSERT_TRUE(value >= cell::empty && (value < 0 || cell::row(value) <= lowestRow)) << value;
            ASSERT_LT(value, 2 * cell::continuation);
        }
    }
}

void expectSelectionGone(const Picture& after) {
    ASSERT_EQ(after.selStart, -1);
    ASSERT_EQ(after.selEnd, -1);
}

/// The last columns of every visible track are without notes after a cut of `width` columns.
void expectEndCleared(const Studio& studio, int width) {
    for (int track = 0; track <= lastTrackNumber; ++track) {
        if (studio.isHidden(track)) continue;
        for (int column = std::max(0, studio.score.NumNotes + 1 - width); column <= studio.score.NumNotes;
             ++column) {
            ASSERT_EQ(studio.score.noteCell(track, column), cell::empty) << track << " " << column;
            ASSERT_EQ(studio.score.InstArray.get(track, column, -1), 0);
        }
    }
}

/// A continuation follows a cell of its own row.
void expectWholeNotes(const Score& score) {
    for (int track = 0; track <= lastTrackNumber; ++track) {
        int before = cell::empty;
        for (const int value : score.NoteArray.row(track)) {
            if (cell::isContinuation(value)) {
                ASSERT_FALSE(cell::isEmpty(before)) << "track " << track;
                ASSERT_EQ(cell::row(value), cell::row(before)) << "track " << track;
            }
            before = value;
        }
    }
}

/// What one kind of operation promises beyond that.
void expectPromise(Operation operation, const Studio& studio, const Picture& before, const Picture& after) {
    const int width = before.selEnd - before.selStart + 1;
    if (operation == copy || operation == copyArea) {
        ASSERT_EQ(after.score, before.score);
    }
    if (operation == copy && before.selStart >= 0) expectSelectionGone(after);
    if (operation == cut && before.selStart >= 0 && width > 0) {
        expectSelectionGone(after);
        expectEndCleared(studio, width);
    }
    if (operation == paste) {
        ASSERT_EQ(after.clip, before.clip);
    }
    if (operation == duplicate) {
        expectSelectionGone(after);
        ASSERT_EQ(after.clipLength, studio.duplicate.DuplicateBeats);
    }
    ASSERT_EQ(after.position, operation == duplicate ? 0 : before.position);
}

TEST_F(BlockProperties, AnyOperationsDoCellForCellWhatTheyPromise) {
    const auto studio = std::make_unique<Studio>(), slow = std::make_unique<Studio>();
    Blocks blocks(*studio);
    BlockReference reference(*slow);
    makeScore(*studio, 40);
    fill(*studio);
    std::array<int, kinds> made{};
    for (int number = 0; number < operations; ++number) {
        if (chance(3)) {
            resize(*studio, pick(20, 60));
            if (chance(50)) fill(*studio);
        }
        prepare(*studio, true);
        copyState(*studio, *slow);
        const Picture before(*studio);
        const Step step{static_cast<Operation>(pick(0, kinds - 1)), pick(-6, 50), pick(0, 9), pick(4, 12)};
        blocks.run(step);
        run(reference, step);
        const Picture after(*studio);
        ASSERT_EQ(after, Picture(*slow)) << "operation " << step.operation << " in step " << number;
        expectUntouched(*studio, before, after);
        expectPromise(step.operation, *studio, before, after);
        if (HasFatalFailure()) FAIL() << "operation " << step.operation << " in step " << number;
        ++made[step.operation];
    }
    for (const int count : made) EXPECT_GT(count, operations / kinds / 2);
}

TEST_F(BlockProperties, OrdinaryOperationsLeaveNoNoteWithoutItsHead) {
    const auto studio = std::make_unique<Studio>();
    Blocks blocks(*studio);
    makeScore(*studio, 80);
    fill(*studio);
    for (int number = 0; number < 20'000; ++number) {
        prepare(*studio, false);
        if (chance(2)) fill(*studio);
        expectWholeNotes(studio->score);
        const Step step{static_cast<Operation>(pick(0, kinds - 1)), pick(0, 20), 0, lastTrackNumber};
        blocks.run(step);
        expectWholeNotes(studio->score);
        if (HasFatalFailure()) FAIL() << "operation " << step.operation << " in step " << number;
    }
}

}  // namespace
}  // namespace melvane::test
