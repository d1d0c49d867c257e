#include "core/names.h"

#include "platform/text.h"

namespace melvane {

namespace {

std::string key(std::string_view window, std::string_view name) {
    return lowerCase(window) + "." + lowerCase(name);
}

std::string key(std::string_view window, std::string_view name, std::optional<int> index) {
    return index ? key(window, name) + "(" + std::to_string(*index) + ")" : key(window, name);
}

}  // namespace

void OperationTable::addCall(std::string_view window, std::string_view name, Call call) {
    calls_[key(window, name)] = {std::string(window) + "." + std::string(name), std::move(call)};
}

void OperationTable::addMouse(std::string_view window, std::string_view name,
                              std::function<void(int button, double X)> handler) {
    addCall(window, name, [handler = std::move(handler)](std::span<const Value> arguments) {
        return invoke<void, int, int, double, double>(
            [&](int button, int, double X, double) { handler(button, X); }, arguments,
            std::make_index_sequence<4>());
    });
}

const OperationTable::Call* OperationTable::find(std::string_view window, std::string_view name) const {
    const auto found = calls_.find(key(window, name));
    return found == calls_.end() ? nullptr : &found->second.second;
}

CallResult OperationTable::call(std::string_view window, std::string_view name,
                                std::span<const Value> arguments) const {
    const Call* found = find(window, name);
    if (found == nullptr) return {{}, "there is no such operation"};
    return (*found)(arguments);
}

std::vector<std::string> OperationTable::names() const {
    std::vector<std::string> names;
    for (const auto& [unused, named] : calls_) names.push_back(named.first);
    return names;
}

void StateTable::add(Entry entry) {
    std::string name = lowerCase(entry.name);
    entries_.insert_or_assign(std::move(name), std::move(entry));
}

void StateTable::add(std::string name, Grid& grid) {
    add({std::move(name), 2,
         [&grid](Indices at) -> std::optional<Value> {
             const auto found = grid.find(at[0], at[1]);
             return found ? std::optional<Value>(static_cast<long long>(*found)) : std::nullopt;
         },
         [&grid](Indices at, const Value& value) {
             const auto cell = fromValue<std::int16_t>(value);
             if (!cell || !grid.contains(at[0], at[1])) return false;
             grid.set(at[0], at[1], *cell);
             return true;
         }});
}

void StateTable::add(std::string name, std::vector<bool>& flags) {
    add({std::move(name), 1,
         [&flags](Indices at) -> std::optional<Value> {
             if (!inRange(at[0], flags.size())) return std::nullopt;
             return Flag{flags[static_cast<std::size_t>(at[0])]};
         },
         [&flags](Indices at, const Value& value) {
             const auto flag = fromValue<bool>(value);
             if (!flag || !inRange(at[0], flags.size())) return false;
             flags[static_cast<std::size_t>(at[0])] = *flag;
             return true;
         }});
}

const StateTable::Entry* StateTable::find(std::string_view name) const {
    const auto found = entries_.find(lowerCase(name));
    return found == entries_.end() ? nullptr : &found->second;
}

std::vector<std::string> StateTable::names() const {
    std::vector<std::string> names;
    for (const auto& [unused, entry] : entries_) names.push_back(entry.name);
    return names;
}

void ControlTable::add(std::string_view window, std::string_view name, Control& control) {
    byName_[key(window, name)] = &control;
    all_.push_back({std::string(window), std::string(name), std::nullopt, &control});
}

void ControlTable::addMember(std::string_view window, std::string_view name, int index, Control& control) {
    byName_[key(window, name, index)] = &control;
    all_.push_back({std::string(window), std::string(name), index, &control});
}

Control* ControlTable::find(std::string_view window, std::string_view name, std::optional<int> index) const {
    const auto found = byName_.find(key(window, name, index));
    return found == byName_.end() ? nullptr : found->second;
}

}  // namespace melvane
