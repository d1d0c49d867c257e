#include <algorithm>

#include "fuzz/fuzz_target.h"
#include "synth/performance_lists.h"

using namespace melvane;

/// The first two bytes are the rate and the octave shift, each further pair a row with its number of ticks;
/// row 0 is the capture's first key, struck anew.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2) return 0;
    const double rate = data[0] * 0.1;
    const int shift = data[1] - 128;
    TextList repeats, rows, played, performance, cells;
    for (std::size_t at = 2; at + 1 < size; at += 2) {
        for (int tick = 1; tick <= data[at + 1]; ++tick) {
            repeats.add(data[at] == 0 ? tick : 0);
            rows.add(data[at] == 0 ? 91 : data[at]);
        }
    }
    const performance::Capture capture{repeats, rows};
    performance::asPlayed(capture, played);
    fuzz::require(played.count() == rows.count(), "every tick but the first is played, and one past the end");
    performance::withPauses(capture, rate, performance);
    fuzz::require(performance.count() <= rows.count(), "pauses add nothing");
    performance::toCells(performance, rate, cells);
    performance::thinToShape(cells, rate, shift);
    int run = 0, longest = 0;
    for (int at = 0; at < cells.count(); ++at) {
        run = cells.at(at) == performance::rest ? run + 1 : 0;
        longest = std::max(longest, run);
    }
    fuzz::require(longest <= 10, "no rest is much longer than 9 cells");
    return 0;
}
