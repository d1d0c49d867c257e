#pragma once
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace melvane::drive {

/// A name of the program as a script writes it: "Tempo", "NoteArray(0,5)", "Form3.TrackHide(2).enabled",
/// "ChannelTable(3).Name".
struct Path {
    std::vector<std::string> names;         ///< what the dots part, without indices
    std::vector<std::vector<int>> indices;  ///< of each name

    /// The names joined by dots, and all indices in a row: how the state is listed.
    std::string joinedNames() const;
    std::vector<int> joinedIndices() const;
};

/// Nothing when `text` is no path.
std::optional<Path> parsePath(std::string_view text);

/// What of a control is asked for.
enum class ControlPart { shown, enabled, visible, tip, index, count };

/// A path read as a control: "WINDOW.CONTROL(INDEX).PART".
struct ControlPath {
    std::string window, name;
    std::optional<int> index;
    ControlPart part = ControlPart::shown;
};

/// Nothing when the path cannot mean a control.
std::optional<ControlPath> asControl(const Path& path);

}  // namespace melvane::drive
