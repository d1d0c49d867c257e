#pragma once

namespace melvane {

/// Screen readers know the widgets that the program draws itself for what they are from then on: a slider by
/// its number and range, a surface as a picture, and others by these properties, which must be set before
/// their accessible name. Once, before the first window.
void tellScreenReaders();

inline constexpr const char* spokenAsPicture = "spokenAsPicture";  ///< any value
/// Of a button: one of several, chosen or not.
inline constexpr const char* spokenAsChosen = "spokenAsChosen";

}  // namespace melvane
