#pragma once
#include <optional>
#include <string>

#include "drive/bench.h"

/// Where the names in a script's paths are found: the state, the widgets of loaded windows, and the controls
/// that live without a widget.
namespace melvane::drive {

struct FoundState {
    const StateTable::Entry* entry = nullptr;
    std::vector<int> indices;
};

/// The state of that name: as it is listed or, when no control bears the name, without its window.
std::optional<FoundState> findState(Bench& bench, const Path& path);
std::optional<FoundState> findStateWithoutWindow(Bench& bench, const Path& path);

/// What a control shows, wherever it is found; its window is loaded when nothing else helps.
std::optional<Value> readControl(Bench& bench, const ControlPath& control);
PutResult putControl(Bench& bench, const ControlPath& control, const Value& value);

}  // namespace melvane::drive
