#include "drive/commands.h"

namespace melvane::drive {

namespace {

std::optional<std::int64_t> millisecondsOf(const Word& word) {
    const auto number = wholeNumberOf(word);
    return number && *number >= 0 ? std::optional<std::int64_t>(*number) : std::nullopt;
}

}  // namespace

std::string waitAWhile(Bench& bench, Words words) {
    const auto milliseconds = millisecondsOf(words[0]);
    if (!milliseconds) return "milliseconds are a whole number from 0";
    VirtualTime& time = bench.world.time;
    time.waitUntil(time.counter() + *milliseconds * VirtualTime::ticksAMillisecond);
    return {};
}

std::string runLater(Bench& bench, Words words) {
    const auto milliseconds = millisecondsOf(words[0]);
    if (!milliseconds) return "milliseconds are a whole number from 0";
    return bench.schedule(*milliseconds, words.subspan(1));
}

std::string restartProgram(Bench& bench, Words) {
    bench.restartWanted = true;
    if (bench.host.running()) bench.host.askToEnd();
    return {};
}

}  // namespace melvane::drive
