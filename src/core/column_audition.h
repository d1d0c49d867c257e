#pragma once
#include "core/sounder.h"
#include "core/studio.h"

namespace melvane {

struct NameTables;

/// Ends what a press has made sound in one column of all tracks.
class ColumnAudition {
 public:
    ColumnAudition(Studio& studio, Sounder& sounder) : studio_(studio), sounder_(sounder) {}

    /// On every active track that is not hidden, the note at the press's column ends.
    void StopColumnNotes();

    void listNames(NameTables& tables);

 private:
    Studio& studio_;
    Sounder& sounder_;
};

}  // namespace melvane
