#include "drive/names_found.h"

namespace melvane::drive {

namespace {

std::optional<FoundState> listed(Bench& bench, const std::string& name, std::vector<int> indices) {
    const StateTable::Entry* entry = bench.host.tables().state.find(name);
    if (entry == nullptr || entry->indices != indices.size()) return std::nullopt;
    return FoundState{entry, std::move(indices)};
}

Value bare(bool on) { return static_cast<long long>(on ? 1 : 0); }

/// Entry `index` of a list that is no member of an array.
std::optional<Value> listEntry(const Control& control, int index) {
    const auto* list = dynamic_cast<const ListControl*>(&control);
    if (list == nullptr || index < 0 || static_cast<std::size_t>(index) >= list->items().size()) return {};
    return list->items()[static_cast<std::size_t>(index)];
}

std::optional<Value> partOf(const Control& control, ControlPart part) {
    const auto* list = dynamic_cast<const ListControl*>(&control);
    switch (part) {
        case ControlPart::shown:
            return control.shown();
        case ControlPart::enabled:
            return bare(control.enabled());
        case ControlPart::visible:
            return bare(control.visible());
        case ControlPart::tip:
            return control.tip();
        case ControlPart::index:
            return list ? std::optional<Value>(static_cast<long long>(list->index())) : std::nullopt;
        case ControlPart::count:
            return list ? std::optional<Value>(static_cast<long long>(list->items().size())) : std::nullopt;
    }
    return std::nullopt;
}

/// The control as the engine holds it.
std::optional<Value> readModel(Bench& bench, const ControlPath& path) {
    const ControlTable& controls = bench.host.tables().controls;
    if (const Control* control = controls.find(path.window, path.name, path.index)) {
        return partOf(*control, path.part);
    }
    const Control* whole = controls.find(path.window, path.name, std::nullopt);
    if (whole == nullptr || !path.index || path.part != ControlPart::shown) return std::nullopt;
    return listEntry(*whole, *path.index);
}

PutResult putModel(Bench& bench, const ControlPath& path, const Value& value) {
    Control* control = bench.host.tables().controls.find(path.window, path.name, path.index);
    if (control == nullptr) return PutResult::noControl;
    return control->userPut(value) ? PutResult::done : PutResult::refused;
}

/// Loads the window of a control that was not found; false when that cannot help.
bool loadFor(Bench& bench, const ControlPath& control) {
    return bench.host.isWindow(control.window) && !bench.host.isLoaded(control.window) &&
           bench.host.loadQuietly(control.window).empty();
}

}  // namespace

std::optional<FoundState> findState(Bench& bench, const Path& path) {
    return listed(bench, path.joinedNames(), path.joinedIndices());
}

std::optional<FoundState> findStateWithoutWindow(Bench& bench, const Path& path) {
    if (path.names.size() < 2 || !bench.host.isWindow(path.names[0]) || !path.indices[0].empty())
        return std::nullopt;
    Path rest = path;
    rest.names.erase(rest.names.begin());
    rest.indices.erase(rest.indices.begin());
    return listed(bench, rest.joinedNames(), rest.joinedIndices());
}

std::optional<Value> readControl(Bench& bench, const ControlPath& control) {
    if (auto shown = bench.host.readControl(control)) return shown;
    if (auto shown = readModel(bench, control)) return shown;
    return loadFor(bench, control) ? bench.host.readControl(control) : std::nullopt;
}

PutResult putControl(Bench& bench, const ControlPath& control, const Value& value) {
    if (const PutResult put = bench.host.putControl(control, value); put != PutResult::noControl) return put;
    const PutResult put = putModel(bench, control, value);
    if (put == PutResult::done) return put;
    // What a window fills when it is loaded takes a value only then.
    return loadFor(bench, control) ? bench.host.putControl(control, value) : put;
}

}  // namespace melvane::drive
