#include "synth/performance_lists.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "core/numbers.h"

namespace melvane::test {
namespace {

using Texts = std::vector<std::string>;

/// A list box as the program's ways with it were told: texts, removals one by one.
class ListBox {
 public:
    Texts items;
    int count() const { return static_cast<int>(items.size()); }
    std::string operator()(int at) const {
        return at >= 0 && at < count() ? items[static_cast<std::size_t>(at)] : std::string();
    }
    int value(int at) const { return static_cast<int>(leadingNumber((*this)(at))); }
    void add(const std::string& text) { items.push_back(text); }
    void add(int number) { add(std::to_string(number)); }
    void set(int at, const std::string& text) {
        if (at >= 0 && at < count()) items[static_cast<std::size_t>(at)] = text;
    }
    void remove(int at) {
        if (at >= 0 && at < count()) items.erase(items.begin() + at);
    }
};

int rounded(double value) { return static_cast<int>(roundTiesToEven(value)); }

// Each step as it was told, loop by loop.

ListBox pauses(const ListBox& List1, const ListBox& List3, double rate) {
    ListBox List4;
    int Run = 0;
    for (int n = 1; n <= List3.count(); ++n) {
        if (List1(n) == "1") {
            List4.add("-1");
        } else if (List3(n) == List3(n + 1)) {
            ++Run;
            List4.add(List3(n));
        } else if (Run > 4) {
            const int Keep = rounded(Run * rate * 0.1), end = List4.count() - 1;
            for (int j = end - Run + Keep; j <= end; ++j) List4.set(j, "-1");
            Run = 0;
        }
    }
    return List4;
}

void thin(ListBox& List5, double rate, double unit, bool back, int& Run) {
    Run = 0;
    const int end = List5.count();
    for (int i = 0; i <= end; ++i) {
        if (List5(i) != "-1") continue;
        const int s = i;
        ++Run;
        while (List5(i) == "-1" && i <= List5.count() - 1) {
            ++i;
            ++Run;
        }
        const int e = i;
        Run = rounded(Run * rate * unit);
        int j = s + Run;
        for (; j <= e; ++j) {
            if (List5(j) != "-1") continue;
            List5.remove(j);
            if (back) --j;
        }
        i = j + 2;
    }
}

void cutDown(ListBox& List5, int Run, double rate) {
    const int R = rounded(Run * rate * 0.2), c = List5.count();
    const int from = c - 1 - Run + R < 10 ? c - 1 - R : c - 1 - Run - R;
    for (int j = from; j <= c - 1; ++j) List5.remove(j);
    const int end = List5.count() - 1;
    for (int j = rounded(c - 1 - R * 0.25); j <= end; ++j) List5.set(j, "-1");
}

ListBox cells(const ListBox& List4, double rate) {
    ListBox List5;
    List5.add(List4.value(0));
    List5.add(List4.value(0) + 1000);
    int Run = 0;
    for (int i = 2; i <= List4.count() - 2; ++i) {
        if (List4(i) == List4(i + 1)) {
            if (List4(i) == "-1") {
                List5.add("-1");
                continue;
            }
            ++Run;
            if (List4(i) == List4(i - 1)) {
                List5.add(List4.value(i - 1) + 1000);
                continue;
            }
            List5.add(List4(i));
            int j = i;
            for (; j <= List4.count() - 1; ++j) {
                if (List4(j) == "-1") break;
                if (List4(j) == List4(j + 1)) List5.add(List4.value(j) + 1000);
            }
            i = j;
        } else {
            if (Run < 100)
                List5.add("-1");
            else
                cutDown(List5, Run, rate);
            Run = 0;
        }
    }
    int ignored = 0;
    thin(List5, 1, 0.1, false, ignored);
    return List5;
}

void shape(ListBox& List5, double rate, int shift) {
    int Run = 0;
    thin(List5, rate, 0.01, true, Run);
    for (int i = 0; i < List5.count(); ++i) {
        if (List5(i) != "-1") List5.set(i, std::to_string(List5.value(i) - shift));
    }
    const int end = List5.count() - 1;
    for (int i = 0; i <= end; ++i) {
        if (List5(i + 1) == "-1") {
            ++Run;
            if (Run > 8) {
                while (List5(i + 1) == "-1" && i <= List5.count() - 1) List5.remove(i + 1);
                ++i;
                Run = 0;
            }
        }
    }
}

TextList listOf(const Texts& texts) {
    TextList list;
    for (const auto& text : texts) {
        list.add(text.empty() ? TextList::Item()
                              : TextList::Item(static_cast<std::int32_t>(leadingNumber(text))));
    }
    return list;
}

Texts textsOf(const TextList& list) {
    Texts texts;
    for (int at = 0; at < list.count(); ++at) texts.push_back(list.text(at));
    return texts;
}

struct Ticks {
    ListBox repeats, rows;
    /// `ticks` of one row; `first` where it is the capture's first key, struck anew.
    void hold(int row, int ticks, bool first = false) {
        for (int tick = 1; tick <= ticks; ++tick) {
            repeats.add(first ? tick : 0);
            rows.add(row);
        }
    }
    TextList asRepeats() const { return listOf(repeats.items); }
    TextList asRows() const { return listOf(rows.items); }
};

Texts played(const Ticks& ticks) {
    const TextList repeats = ticks.asRepeats(), rows = ticks.asRows();
    TextList list;
    performance::asPlayed({repeats, rows}, list);
    return textsOf(list);
}

Texts withPauses(const Ticks& ticks, double rate) {
    const TextList repeats = ticks.asRepeats(), rows = ticks.asRows();
    TextList list;
    performance::withPauses({repeats, rows}, rate, list);
    return textsOf(list);
}

TEST(PerformanceLists, TheFirstTickIsPassedOverAndTheReadPastTheEndIsEmpty) {
    Ticks ticks;
    ticks.hold(60, 3, true);
    EXPECT_EQ(played(ticks), (Texts{"60", "60", ""}));
}

TEST(PerformanceLists, TheFirstKeyStruckAgainLeavesARest) {
    Ticks ticks;
    ticks.hold(60, 2, true);
    ticks.hold(62, 2);
    ticks.hold(60, 2, true);
    EXPECT_EQ(played(ticks), (Texts{"60", "62", "62", "-1", "60", ""}));
}

TEST(PerformanceLists, OfALongNoteARateOfFiveLeavesHalf) {
    Ticks ticks;
    ticks.hold(60, 12, true);
    ticks.hold(62, 2);
    // 11 equal neighbours but the last: 10 samples, 5 kept, and one rest more than the other 5.
    const Texts list = withPauses(ticks, 5);
    EXPECT_EQ(list, (Texts{"60", "60", "60", "60", "-1", "-1", "-1", "-1", "-1", "-1", "62", ""}));
}

TEST(PerformanceLists, ARateOfTenMakesOneRestAndAHigherOneNone) {
    Ticks ticks;
    ticks.hold(60, 12, true);
    ticks.hold(62, 2);
    EXPECT_EQ(withPauses(ticks, 10),
              (Texts{"60", "60", "60", "60", "60", "60", "60", "60", "60", "-1", "62", ""}));
    EXPECT_EQ(withPauses(ticks, 13),
              (Texts{"60", "60", "60", "60", "60", "60", "60", "60", "60", "60", "62", ""}));
}

TEST(PerformanceLists, AShortNoteGetsNoPauseAndLosesASample) {
    Ticks ticks;
    ticks.hold(60, 4, true);
    ticks.hold(62, 3);
    EXPECT_EQ(withPauses(ticks, 5), (Texts{"60", "60", "62", "62", ""}));
}

TEST(PerformanceLists, ShortNotesCountTogetherUntilAPauseIsMade) {
    Ticks ticks;
    ticks.hold(60, 4, true);
    ticks.hold(62, 4);
    EXPECT_EQ(withPauses(ticks, 5), (Texts{"60", "-1", "-1", "-1", "-1", ""}));
}

TEST(PerformanceLists, ThreeTicksAreTwoCells) {
    Ticks ticks;
    ticks.hold(60, 3, true);
    const TextList performance = listOf(withPauses(ticks, 2.5));
    TextList cells;
    performance::toCells(performance, 2.5, cells);
    performance::thinToShape(cells, 2.5, 0);
    EXPECT_EQ(textsOf(cells), (Texts{"60", "1060"}));
}

TEST(PerformanceLists, ARestAtTheStartIsAStartAndAHeldCellAllTheSame) {
    TextList cells;
    performance::toCells(listOf({"-1", "-1"}), 2.5, cells);
    // The start itself goes with the thinning of the rests.
    EXPECT_EQ(textsOf(cells), (Texts{"999"}));
}

TEST(PerformanceLists, AKeyHeldForLongIsCutToAFraction) {
    Ticks ticks;
    ticks.hold(60, 1000, true);
    ticks.hold(62, 20);
    ticks.hold(64, 20);
    TextList cells;
    performance::toCells(listOf(withPauses(ticks, 2.5)), 2.5, cells);
    performance::thinToShape(cells, 2.5, 0);
    int held = 0;
    for (int at = 0; at < cells.count(); ++at) held += cells.value(at) == 1060;
    EXPECT_GT(held, 20);
    EXPECT_LT(held, 300);
}

TEST(PerformanceLists, TheOctaveShiftMovesTheRowsAndKeepsTheHeldCode) {
    TextList cells = listOf({"60", "1060", "-1", "62"});
    performance::thinToShape(cells, 2.5, 12);
    EXPECT_EQ(cells.text(0), "48");
    EXPECT_EQ(cells.text(1), "1048");
}

TEST(PerformanceLists, ExactHalvesOfAShareRoundToEven) {
    TextList cells = listOf({"60", "1060"});
    for (int at = 0; at < 124; ++at) cells.add(performance::rest);
    for (const int cell : {62, 1062, -1, -1, -1, -1, -1, 64, 1064, 1064}) cells.add(cell);
    // 125 x 2.8 x 0.01 is 3.5 and gives 4.
    performance::thinToShape(cells, 2.8, 0);
    EXPECT_EQ(textsOf(cells),
              (Texts{"60", "1060", "-1", "-1", "-1", "-1", "62", "1062", "64", "1064", "1064"}));
}

int longestRest(const TextList& cells) {
    int longest = 0, run = 0;
    for (int at = 0; at < cells.count(); ++at) {
        run = cells.at(at) == performance::rest ? run + 1 : 0;
        longest = std::max(longest, run);
    }
    return longest;
}

/// Any capture at all: the quick lists hold what the told steps leave in list boxes.
TEST(PerformanceLists, AnyCaptureComesToWhatTheStepsLeave) {
    std::mt19937 random(20);
    const auto below = [&random](int limit) {
        return static_cast<int>(random() % static_cast<unsigned>(limit));
    };
    for (int round = 0; round < 200; ++round) {
        Ticks ticks;
        const int notes = 1 + below(12), longest = round % 4 == 0 ? 900 : 40;
        for (int note = 0; note < notes; ++note)
            ticks.hold(48 + below(round % 3 == 0 ? 2 : 40), 1 + below(longest), below(3) == 0);
        // Low rates too, which a slider does not give: there the end of a note near the start is another
        // case.
        const double rate = (round % 5 == 0 ? 0.1 : 1) + below(61) * (round % 5 == 0 ? 0.01 : 0.1);
        const int shift = below(61) - 24;
        ListBox performance = pauses(ticks.repeats, ticks.rows, rate);
        ASSERT_EQ(withPauses(ticks, rate), performance.items) << round;
        // Now and then rests that no capture has.
        for (int rests = below(3) * below(60), at = below(performance.count() + 1); rests > 0; --rests) {
            performance.items.insert(performance.items.begin() + at, "-1");
        }
        ListBox told = cells(performance, rate);
        TextList quick;
        performance::toCells(listOf(performance.items), rate, quick);
        ASSERT_EQ(textsOf(quick), told.items) << round;
        shape(told, rate, shift);
        performance::thinToShape(quick, rate, shift);
        ASSERT_EQ(textsOf(quick), told.items) << round;
        ASSERT_LE(longestRest(quick), 10) << round;
    }
}

}  // namespace
}  // namespace melvane::test
