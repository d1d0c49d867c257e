#pragma once
#include "app/command_line.h"

namespace melvane {

/// A screen of 1280 by 800 pixels in the place of a missing display. Before the QApplication is made; nothing
/// when the environment names a display or a platform.
void useScreenWithoutDisplay();

/// Saves a picture of the main window, with the score when one is named, on settings and folders of its own.
/// Answers the exit status.
int savePicture(const CommandLine& line);

}  // namespace melvane
