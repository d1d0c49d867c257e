#include "drive/commands.h"
#include "drive/names_found.h"

namespace melvane::drive {

namespace {

struct ReadResult {
    std::optional<Value> value;
    std::string error;
};

ReadResult readState(const FoundState& found) {
    auto value = found.entry->get(found.indices);
    if (!value) return {std::nullopt, "an index of " + found.entry->name + " is out of range"};
    return {std::move(value), {}};
}

ReadResult readPath(Bench& bench, const std::string& text) {
    const auto path = parsePath(text);
    if (!path) return {std::nullopt, text + " is no path"};
    if (const auto found = findState(bench, *path)) return readState(*found);
    if (const auto control = asControl(*path)) {
        if (auto shown = readControl(bench, *control)) return {std::move(shown), {}};
    }
    if (const auto found = findStateWithoutWindow(bench, *path)) return readState(*found);
    return {std::nullopt, "nothing has the name " + text};
}

std::string putState(const FoundState& found, const Value& value) {
    if (found.entry->put(found.indices, value)) return {};
    if (!found.entry->get(found.indices)) return "an index of " + found.entry->name + " is out of range";
    return found.entry->name + " cannot take this value";
}

std::vector<Value> valuesOf(Words words, std::string& error) {
    std::vector<Value> values;
    for (const Word& word : words) {
        const auto value = valueOf(word);
        if (!value) {
            error = word.given + " is no value";
            return {};
        }
        values.push_back(*value);
    }
    return values;
}

/// An operation of the engine needs no window of its own to be on the screen; a window's handler does.
CallResult callByName(Bench& bench, const std::string& window, const std::string& name,
                      std::span<const Value> arguments) {
    const std::string notLoaded =
        bench.host.isLoaded(window) ? std::string() : bench.host.loadQuietly(window);
    const OperationTable& operations = bench.host.tables().operations;
    if (operations.has(window, name)) return operations.call(window, name, arguments);
    if (!notLoaded.empty()) return {{}, notLoaded};
    bool known = false;
    CallResult result = bench.host.callHandler(window, name, arguments, known);
    if (!known) return {{}, window + " has no operation " + name};
    return result;
}

}  // namespace

std::string printPath(Bench& bench, Words words) {
    const ReadResult read = readPath(bench, words[0].text);
    if (read.value) bench.output.line(words[0].given + " = " + shownValue(*read.value));
    return read.error;
}

std::string putPath(Bench& bench, Words words) {
    const auto path = parsePath(words[0].text);
    if (!path) return words[0].given + " is no path";
    const auto value = valueOf(words[1]);
    if (!value) return words[1].given + " is no value";
    if (const auto found = findState(bench, *path)) return putState(*found, *value);
    const auto control = asControl(*path);
    const PutResult put = control && control->part == ControlPart::shown ? putControl(bench, *control, *value)
                                                                         : PutResult::noControl;
    if (put == PutResult::done) return {};
    if (put == PutResult::refused) return words[0].given + " cannot take this value";
    if (const auto found = findStateWithoutWindow(bench, *path)) return putState(*found, *value);
    return "nothing that can be put has the name " + words[0].given;
}

std::string printRow(Bench& bench, Words words) {
    const StateTable::Entry* entry = bench.host.tables().state.find(words[0].text);
    if (entry == nullptr || entry->indices != 2) return words[0].given + " is no grid";
    const auto track = wholeNumberOf(words[1]);
    const auto from = wholeNumberOf(words[2]);
    const auto to = wholeNumberOf(words[3]);
    if (!track || !from || !to || *from > *to) return "a track, a first and a last column are whole numbers";
    std::string line =
        words[0].given + "(" + words[1].given + ", " + words[2].given + ".." + words[3].given + ") = ";
    for (int column = *from; column <= *to; ++column) {
        const auto value = entry->get(std::vector{*track, column});
        if (!value) return "an index of " + entry->name + " is out of range";
        line += (column > *from ? "," : "") + shownValue(*value);
    }
    bench.output.line(line);
    return {};
}

std::string callName(Bench& bench, Words words) {
    const std::size_t dot = words[0].text.find('.');
    const std::string window = words[0].text.substr(0, dot);
    const std::string name = words[0].text.substr(dot + 1);
    if (!bench.host.isWindow(window)) return "there is no window " + window;
    std::string error;
    const std::vector<Value> arguments = valuesOf(words.subspan(1), error);
    if (!error.empty()) return error;
    const CallResult result = callByName(bench, window, name, arguments);
    if (!result.error.empty()) return name + ": " + result.error;
    if (!std::holds_alternative<std::monostate>(result.value)) {
        bench.output.line(name + " = " + shownValue(result.value));
    }
    return {};
}

}  // namespace melvane::drive
