#include <array>
#include <utility>

#include "drive/commands.h"

namespace melvane::drive {

namespace {

constexpr std::array<std::pair<std::string_view, BoxAnswer>, 4> answers{
    {{"yes", BoxAnswer::yes}, {"no", BoxAnswer::no}, {"ok", BoxAnswer::ok}, {"cancel", BoxAnswer::cancel}}};

}  // namespace

std::string printBoxes(Bench& bench, Words) {
    bench.output.lines(bench.world.dialogs.takeBoxes());
    return {};
}

std::string queueAnswer(Bench& bench, Words words) {
    for (const auto& [name, answer] : answers) {
        if (words[0].text != name) continue;
        bench.world.dialogs.queueAnswer(answer);
        return {};
    }
    return "an answer is yes, no, ok or cancel";
}

std::string queueChoice(Bench& bench, Words words) {
    FileChoice choice{words[0].text, 1};
    if (words.size() > 1) {
        const auto entry = wholeNumberOf(words[1]);
        if (!entry || *entry < 1) return "filter entries are counted from 1";
        choice.filterIndex = *entry;
    }
    bench.world.dialogs.queueChoice(choice);
    return {};
}

std::string printDialogs(Bench& bench, Words) {
    bench.output.lines(bench.world.dialogs.takeFileDialogs());
    return {};
}

std::string queuePick(Bench& bench, Words words) {
    bench.world.menus.queuePick(words[0].text);
    return {};
}

std::string printMenus(Bench& bench, Words) {
    bench.output.lines(bench.world.menus.take());
    return {};
}

}  // namespace melvane::drive
