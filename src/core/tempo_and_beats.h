#pragma once
#include "core/studio.h"
#include "core/surfaces.h"

namespace melvane {

struct NameTables;

/// The Setup toolbar's boxes of the speed and of the bars.
class TempoAndBeats {
 public:
    TempoAndBeats(Studio& studio, Surfaces& surfaces) : studio_(studio), surfaces_(surfaces) {}

    /// Tempo takes whatever is typed, 0 for what is no number; there is no limit.
    void TempoLabel_Change();
    /// The tempo changes with the beats, so that a bar keeps its length.
    void TxBeats_Change();

    void listNames(NameTables& tables);

 private:
    void keepBarLength(double beats);

    Studio& studio_;
    Surfaces& surfaces_;
};

}  // namespace melvane
