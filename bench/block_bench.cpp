// A paste with insertion at column 0 of a score of 32,000 columns with all 13 tracks full, without drawing,
// beside memmove of the same bytes; and one copy of the whole score to the clipboard. The argument is the
// clip's width.
#include <benchmark/benchmark.h>

#include <cstring>
#include <vector>

#include "core/block_editing.h"
#include "core/grid_pairs.h"
#include "full_score.h"
#include "render/null_surfaces.h"

namespace {

using namespace melvane;

constexpr int lastColumn = 31'999;
constexpr int columns = lastColumn + 1;
constexpr int verse = 128, half = columns / 2;

void pasteInto(benchmark::State& state) {
    const auto studio = bench::fullStudio(lastColumn);
    NullSurfaces surfaces;
    BlockEditing blocks(*studio, surfaces);
    studio->selection.SelStart = 0;
    studio->selection.SelEnd = static_cast<Int16>(state.range(0) - 1);
    blocks.copyIt();
    for (auto _ : state) {
        blocks.PasteIntoBut_Click();
        benchmark::ClobberMemory();
    }
}
BENCHMARK(pasteInto)->Arg(verse)->Arg(half)->Unit(benchmark::kMicrosecond);

/// The tail of each row to the right and the clip into the gap, in rows that lie as those of the grids do.
void moveSameBytes(benchmark::State& state) {
    const auto width = static_cast<std::size_t>(state.range(0));
    const auto all = static_cast<std::size_t>(columns);
    std::vector<std::vector<Int16>> score, clip;
    for (std::size_t grid = 0; grid < gridPairs.size(); ++grid) {
        score.emplace_back(all * Grid::tracks, Int16{1});
        clip.emplace_back(all * Grid::tracks, Int16{2});
    }
    for (auto _ : state) {
        for (std::size_t track = 0; track <= lastTrackNumber; ++track) {
            for (std::size_t grid = 0; grid < gridPairs.size(); ++grid) {
                Int16* const row = score[grid].data() + track * all;
                std::memmove(row + width, row, (all - width) * sizeof(Int16));
                std::memmove(row, clip[grid].data() + track * all, width * sizeof(Int16));
            }
        }
        benchmark::ClobberMemory();
    }
}
BENCHMARK(moveSameBytes)->Arg(verse)->Arg(half)->Unit(benchmark::kMicrosecond);

void copyWholeScore(benchmark::State& state) {
    const auto studio = bench::fullStudio(lastColumn);
    NullSurfaces surfaces;
    BlockEditing blocks(*studio, surfaces);
    for (auto _ : state) {
        studio->selection.SelStart = 0;
        studio->selection.SelEnd = lastColumn;
        blocks.CopySelectedArea();
        benchmark::ClobberMemory();
    }
}
BENCHMARK(copyWholeScore)->Unit(benchmark::kMicrosecond);

}  // namespace
