#pragma once
#include <functional>
#include <string>

#include "drive/drive_host.h"
#include "drive/printing.h"
#include "drive/scripted_world.h"
#include "drive/words.h"

namespace melvane::drive {

/// What the commands of a script work on.
struct Bench {
    ScriptedWorld& world;
    DriveHost& host;
    Output& output;
    std::function<std::string(std::int64_t milliseconds, Words command)> schedule;  ///< for `at`
    bool restartWanted = false;  ///< the program is made anew once it has come down
};

/// Runs a command on the words behind its name and answers what went wrong, empty when nothing did.
using CommandFunction = std::string (*)(Bench&, Words);

struct Command {
    std::string_view name;
    std::string_view usage;   ///< its words, as an error shows them
    std::size_t least, most;  ///< how many words may follow the name
    bool needsProgram;        ///< it makes no sense once the program has ended
    CommandFunction run;
};

/// Nothing when no command has this name.
const Command* findCommand(std::string_view name);

}  // namespace melvane::drive
