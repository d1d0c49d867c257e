#include "drive/commands.h"

namespace melvane::drive {

std::string setDevices(Bench& bench, Words words) {
    const auto count = wholeNumberOf(words[0]);
    if (!count || *count < 0) return "the number of devices is a whole number from 0";
    bench.world.port.setDevices(*count);
    return {};
}

std::string refuseOpens(Bench& bench, Words words) {
    const auto device = wholeNumberOf(words[0]);
    const auto count = wholeNumberOf(words[1]);
    if (!device || !count || *count < -1) return "a device id and a count (-1 for all) are whole numbers";
    bench.world.port.refuse(*device, *count);
    return {};
}

std::string printMidi(Bench& bench, Words) {
    bench.output.lines(bench.world.port.log().take());
    return {};
}

std::string printMedia(Bench& bench, Words) {
    bench.output.lines(bench.world.media.log().take());
    return {};
}

std::string setReply(Bench& bench, Words words) {
    const auto code = wholeNumberOf(words[1]);
    if (!code) return "the code of a reply is a whole number";
    bench.world.media.setReply(words[0].text, {*code, words[2].text});
    return {};
}

std::string clearLogs(Bench& bench, Words) {
    ScriptedWorld& world = bench.world;
    world.port.log().clear();
    world.media.log().clear();
    world.dialogs.takeBoxes();
    world.dialogs.takeFileDialogs();
    world.menus.take();
    return {};
}

}  // namespace melvane::drive
