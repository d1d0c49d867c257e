#pragma once
#include "core/score_model.h"
#include "core/settings.h"
#include "core/tablet_page.h"

namespace melvane {

/// Adding columns to the score and taking them away, from the Setup toolbar's boxes.
class ScoreSize {
 public:
    ScoreSize(Studio& studio, Settings& settings, ScoreModel& score, TabletPage& page)
        : studio_(studio), settings_(settings), score_(score), page_(page) {}

    /// "Add new notes": the last column becomes the total shown plus the count asked for. New columns hold 0.
    void Command1_Click() { changeBy(1); }
    /// "Subtract notes". A total below 0 is shown and stored, and leaves the grids as they are.
    void Command4_Click() { changeBy(-1); }

    void listNames(NameTables& tables);

 private:
    /// More columns than a grid can have change nothing; the status text says so.
    void changeBy(int sign);

    Studio& studio_;
    Settings& settings_;
    ScoreModel& score_;
    TabletPage& page_;
};

}  // namespace melvane
