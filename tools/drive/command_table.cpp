#include <array>

#include "drive/commands.h"

namespace melvane::drive {

namespace {

constexpr std::size_t many = 1000;

constexpr std::array<Command, 27> commands{{
    {"answer", "answer yes|no|ok|cancel", 1, 1, false, queueAnswer},
    {"at", "at MS COMMAND", 2, many, false, runLater},
    {"boxes", "boxes", 0, 0, false, printBoxes},
    {"choose", "choose \"PATH\" [N]", 1, 2, false, queueChoice},
    {"clear", "clear", 0, 0, false, clearLogs},
    {"devices", "devices N", 1, 1, false, setDevices},
    {"dialogs", "dialogs", 0, 0, false, printDialogs},
    {"file", "file \"PATH\"", 1, 1, false, printFile},
    {"focus", "focus WINDOW", 1, 1, true, focusWindow},
    {"load", "load WINDOW", 1, 1, true, loadWindow},
    {"media", "media", 0, 0, false, printMedia},
    {"menus", "menus", 0, 0, false, printMenus},
    {"midi", "midi", 0, 0, false, printMidi},
    {"pick", "pick \"CAPTION\"", 1, 1, false, queuePick},
    {"print", "print PATH", 1, 1, true, printPath},
    {"put", "put PATH VALUE", 2, 2, true, putPath},
    {"refuse", "refuse ID COUNT", 2, 2, false, refuseOpens},
    {"reply", "reply \"PREFIX\" CODE \"ANSWER\"", 3, 3, false, setReply},
    {"resize", "resize WINDOW W H", 3, 3, true, resizeWindow},
    {"restart", "restart", 0, 0, false, restartProgram},
    {"row", "row GRID TRACK FROM TO", 4, 4, true, printRow},
    {"setting", "setting KEY \"VALUE\"", 2, many, false, storeSetting},
    {"settings", "settings", 0, 0, false, printSettings},
    {"shot", "shot WINDOW \"FILE.png\"", 2, 2, true, shootWindow},
    {"text", "text \"PATH\"", 1, 1, false, printText},
    {"unload", "unload WINDOW", 1, 1, true, unloadWindow},
    {"wait", "wait MS", 1, 1, false, waitAWhile},
}};

}  // namespace

const Command* findCommand(std::string_view name) {
    for (const Command& command : commands) {
        if (command.name == name) return &command;
    }
    return nullptr;
}

}  // namespace melvane::drive
