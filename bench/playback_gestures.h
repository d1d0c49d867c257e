#pragma once
#include <functional>
#include <string>
#include <vector>

#include "playback_stage.h"

namespace melvane::bench {

/// One event of the mouse or the keyboard.
struct Gesture {
    std::string name;
    std::function<bool()> run;    ///< false when there was nothing to do it with
    std::function<bool()> check;  ///< whether it had its effect, asked before the next one; may be empty
};

/// Everything that can be opened, switched and moved while the score plays, in an order in which it can be
/// done: each popup menu, each tool window, each page of the Setup toolbar and each slider.
std::vector<Gesture> allGestures(Stage& stage);

}  // namespace melvane::bench
