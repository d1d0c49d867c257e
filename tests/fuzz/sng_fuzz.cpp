#include <cstdint>

#include "files/sng_reader.h"
#include "files/sng_writer.h"
#include "fuzz/fuzz_target.h"

using namespace melvane;

namespace {

/// A small score, so that fields beyond its end are reached soon.
constexpr int lastColumn = 60;

void sizeGrids(Studio& studio) {
    Score& score = studio.score;
    score.NumNotes = lastColumn;
    for (Grid* grid : {&score.NoteArray, &score.InstArray, &score.VolumeArray, &score.ModArray,
                       &score.PanArray, &score.ReverbArray, &score.ChorusArray, &score.PolyArray}) {
        grid->create(lastColumn);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    for (const SngManner& manner : {openPoliFile, openFile, openSegment}) {
        Studio studio;
        sizeGrids(studio);
        readSng(fuzz::asText(data, size), studio, manner);
        fuzz::require(studio.score.NumNotes == lastColumn, "reading leaves the length of the score");
        const std::string written = writeSng(studio);
        Studio again;
        sizeGrids(again);
        readSng(written, again, openPoliFile);
    }
    return 0;
}
