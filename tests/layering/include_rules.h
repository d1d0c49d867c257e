#pragma once
#include <string>
#include <vector>

#include "layering/source_tree.h"

namespace melvane::layering {

/// The rooms under src/ and the window files, as cmake/rooms.cmake has them.
struct Layers {
    std::vector<std::string> rooms;  ///< the lowest first; rooms side by side are parted by "|"
    std::vector<std::string>
        windowFiles;  ///< expressions for the names, without ending, of files that may use Qt
    std::vector<std::string> outerFolders;  ///< beside src; included by nothing under it
};

// Each rule answers what breaks it, one line for each include, empty when it holds. Paths are those of the
// tree.

/// An include that points to a higher room, to a room beside, or out of src/.
std::vector<std::string> includesThatPointUp(const SourceTree& tree, const Layers& layers);

/// An include in double quotes under src/ that names no file of the project.
std::vector<std::string> includesOfNothing(const SourceTree& tree);

/// A chain of includes that comes back to where it began.
std::vector<std::string> includeLoops(const SourceTree& tree);

/// A header of Qt, or a file that may use it, included by a file of the engine.
std::vector<std::string> qtInTheEngine(const SourceTree& tree, const Layers& layers);

/// A source file in no room.
std::vector<std::string> filesWithoutARoom(const SourceTree& tree, const Layers& layers);

}  // namespace melvane::layering
