#pragma once

/// The mouse buttons as the handlers count them: one in a press or release, those held added together in a
/// move.
namespace melvane::mouse {

inline constexpr int left = 1, right = 2, middle = 4;

}  // namespace melvane::mouse
