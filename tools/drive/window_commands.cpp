#include "drive/commands.h"

namespace melvane::drive {

namespace {

std::string unknownWindow(const Word& word) { return "there is no window " + word.given; }

/// Runs one of the host's functions on a window that is loaded.
template <class Function>
std::string onLoaded(Bench& bench, const Word& window, Function function) {
    if (!bench.host.isWindow(window.text)) return unknownWindow(window);
    if (!bench.host.isLoaded(window.text)) return window.given + " is not loaded";
    return function();
}

}  // namespace

std::string loadWindow(Bench& bench, Words words) {
    if (!bench.host.isWindow(words[0].text)) return unknownWindow(words[0]);
    return bench.host.load(words[0].text);
}

std::string unloadWindow(Bench& bench, Words words) {
    if (!bench.host.isWindow(words[0].text)) return unknownWindow(words[0]);
    return bench.host.isLoaded(words[0].text) ? bench.host.unload(words[0].text) : std::string();
}

std::string focusWindow(Bench& bench, Words words) {
    return onLoaded(bench, words[0], [&] { return bench.host.focus(words[0].text); });
}

std::string resizeWindow(Bench& bench, Words words) {
    const auto width = wholeNumberOf(words[1]);
    const auto height = wholeNumberOf(words[2]);
    if (!width || !height || *width < 1 || *height < 1) return "width and height are pixels from 1";
    return onLoaded(bench, words[0], [&] { return bench.host.resize(words[0].text, *width, *height); });
}

std::string shootWindow(Bench& bench, Words words) {
    const auto path = bench.world.startFolder / words[1].text;
    return onLoaded(bench, words[0], [&] { return bench.host.shot(words[0].text, path.string()); });
}

}  // namespace melvane::drive
