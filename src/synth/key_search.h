#pragma once
#include <string_view>

#include "core/studio.h"

/// Which key bears a label. The lowest index wins; Keyboard::noKey (44) when none does.
namespace melvane {

int findLabel(const Studio& studio, std::string_view label);
/// The typed character as a pattern (isLike).
int findLabelLike(const Studio& studio, std::string_view typed);

}  // namespace melvane
