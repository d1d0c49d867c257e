#include "synth/performance_lists.h"

#include <algorithm>
#include <limits>

#include "core/numbers.h"

namespace melvane::performance {

namespace {

constexpr int longestKept = 4;    // ticks of a row that are left whole
constexpr int cutDownFrom = 100;  // equal neighbours of a note that is cut down
constexpr int startOfScore = 10;  // cells

bool isRest(TextList::Item item) { return item == rest; }

/// Rounded, ties to even, within what an index can be.
int rounded(double value) {
    constexpr double most = std::numeric_limits<int>::max() / 4;
    return static_cast<int>(roundTiesToEven(std::clamp(value, -most, most)));
}

/// A row and what is added to it, as far as 32 bits go.
std::int32_t sum(std::int32_t row, std::int64_t added) {
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(
        row + added, std::numeric_limits<int>::min() + 1, std::numeric_limits<int>::max()));
}

void silence(TextList& list, int from) {
    for (int at = std::max(0, from); at < list.count(); ++at) list.set(at, rest);
}

/// Counts up from `from` to `to` while the list shrinks: what moves into a removed item's place stays.
void removeEverySecond(TextList& list, int from, int to) {
    for (int at = std::max(0, from); at <= std::min(to, list.count()); ++at) list.remove(at);
}

/// The way from row to row of a performance.
class CellWriter {
 public:
    CellWriter(const TextList& performance, double rate, TextList& cells)
        : performance_(performance), rate_(rate), cells_(cells) {}

    void write() {
        cells_.add(performance_.value(0));
        cells_.add(sum(performance_.value(0), heldCode));
        const int last = performance_.count() - 2;
        for (int at = 2; at <= last; ++at) {
            const auto item = performance_.at(at);
            if (item != performance_.at(at + 1))
                endNote();
            else if (isRest(item))
                cells_.add(rest);
            else
                at = goOn(at);
        }
    }

 private:
    /// A row that stays. Answers the index that the count goes on from.
    int goOn(int at) {
        ++run_;
        if (performance_.at(at) == performance_.at(at - 1)) {
            cells_.add(sum(performance_.value(at - 1), heldCode));
            return at;
        }
        cells_.add(performance_.at(at));
        // Over the ends of notes too, up to the next rest.
        int ahead = at;
        for (; ahead <= performance_.count() - 1 && !isRest(performance_.at(ahead)); ++ahead) {
            if (performance_.at(ahead) == performance_.at(ahead + 1)) {
                cells_.add(sum(performance_.value(ahead), heldCode));
            }
        }
        return ahead;
    }

    void endNote() {
        run_ < cutDownFrom ? cells_.add(rest) : cutDown();
        run_ = 0;
    }

    void cutDown() {
        const int kept = rounded(run_ * rate_ * 0.2), count = cells_.count(), last = count - 1;
        const bool isAtStart = static_cast<double>(last) - run_ + kept < startOfScore;
        removeEverySecond(cells_, isAtStart ? last - kept : last - run_ - kept, last);
        silence(cells_, rounded(last - kept * 0.25));
    }

    const TextList& performance_;
    double rate_;
    TextList& cells_;
    int run_ = 0;
};

/// Rests from `from` to `to` as the list stands at each step.
int removeRests(TextList& list, int from, int to, bool whole) {
    for (int at = std::max(0, from); at <= to && at < list.count(); ++at) {
        if (!isRest(list.at(at))) continue;
        list.remove(at);
        if (whole) --at;
    }
    return std::max(from, to + 1);
}

/// Takes rests out of each run of them, from `rate` times `unit` of its count on: all of them, or every
/// second one. The count goes on from run to run with what that came to; answers the last.
int thinRests(TextList& cells, double rate, double unit, bool whole) {
    const int last = cells.count();
    int run = 0;
    for (int at = 0; at <= last && at < cells.count(); ++at) {
        if (!isRest(cells.at(at))) continue;
        const int start = at;
        ++run;
        for (; isRest(cells.at(at)) && at <= cells.count() - 1; ++at) ++run;
        run = rounded(run * rate * unit);  // in this order: exact halves stay exact
        at = removeRests(cells, start + run, at, whole) + 2;
    }
    return run;
}

void shift(TextList& cells, int octaveShift) {
    for (int at = 0; at < cells.count(); ++at) {
        if (!isRest(cells.at(at))) cells.set(at, sum(cells.value(at), -octaveShift));
    }
}

/// `run`: rests that count as met already.
void shortenRests(TextList& cells, int run) {
    constexpr int longest = 8;
    const int last = cells.count() - 1;
    for (int at = 0; at <= last && at < cells.count(); ++at) {
        if (!isRest(cells.at(at + 1))) continue;
        if (++run <= longest) continue;
        while (isRest(cells.at(at + 1))) cells.remove(at + 1);
        ++at;
        run = 0;
    }
}

}  // namespace

void asPlayed(const Capture& capture, TextList& performance) {
    performance.clear();
    for (int tick = 1; tick <= capture.rows.count(); ++tick) {
        performance.add(capture.repeats.at(tick) == 1 ? TextList::Item(rest) : capture.rows.at(tick));
    }
}

void withPauses(const Capture& capture, double rate, TextList& performance) {
    performance.clear();
    int run = 0;
    for (int tick = 1; tick <= capture.rows.count(); ++tick) {
        const auto row = capture.rows.at(tick);
        if (capture.repeats.at(tick) == 1) {
            performance.add(rest);
        } else if (row == capture.rows.at(tick + 1)) {
            ++run;
            performance.add(row);
        } else if (run > longestKept) {
            silence(performance, performance.count() - 1 - run + rounded(run * rate * 0.1));
            run = 0;
        }
    }
}

void toCells(const TextList& performance, double rate, TextList& cells) {
    cells.clear();
    CellWriter(performance, rate, cells).write();
    thinRests(cells, 1, 0.1, false);
}

void thinToShape(TextList& cells, double rate, int octaveShift) {
    const int run = thinRests(cells, rate, 0.01, true);
    shift(cells, octaveShift);
    shortenRests(cells, run);
}

}  // namespace melvane::performance
