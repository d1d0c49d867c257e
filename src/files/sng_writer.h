#pragma once
#include <string>

#include "core/studio.h"

namespace melvane {

/// The score as text in the short form: notes, instruments, tempo and the instruments of the tracks.
std::string writeSngShort(const Studio& studio);

/// The long form: the short form, then chords and effects up to the last used column of any track, or up to
/// `studio.score.MaxUsedColumn` where that is higher.
std::string writeSng(const Studio& studio);

}  // namespace melvane
