#pragma once
#include "drive/bench.h"

/// The commands by topic, each one function; command_table.cpp gives them their names.
namespace melvane::drive {

// names of the program: name_commands.cpp
std::string printPath(Bench& bench, Words words);
std::string putPath(Bench& bench, Words words);
std::string printRow(Bench& bench, Words words);
/// `WINDOW.NAME ARG...`, the first word included.
std::string callName(Bench& bench, Words words);

// windows: window_commands.cpp
std::string loadWindow(Bench& bench, Words words);
std::string unloadWindow(Bench& bench, Words words);
std::string focusWindow(Bench& bench, Words words);
std::string resizeWindow(Bench& bench, Words words);
std::string shootWindow(Bench& bench, Words words);

// the outside world: world_commands.cpp
std::string setDevices(Bench& bench, Words words);
std::string refuseOpens(Bench& bench, Words words);
std::string printMidi(Bench& bench, Words words);
std::string printMedia(Bench& bench, Words words);
std::string setReply(Bench& bench, Words words);
std::string clearLogs(Bench& bench, Words words);

// questions to the user: dialog_commands.cpp
std::string printBoxes(Bench& bench, Words words);
std::string queueAnswer(Bench& bench, Words words);
std::string queueChoice(Bench& bench, Words words);
std::string printDialogs(Bench& bench, Words words);
std::string queuePick(Bench& bench, Words words);
std::string printMenus(Bench& bench, Words words);

// what is kept: storage_commands.cpp
std::string printSettings(Bench& bench, Words words);
std::string storeSetting(Bench& bench, Words words);
std::string printFile(Bench& bench, Words words);
std::string printText(Bench& bench, Words words);

// time: time_commands.cpp
std::string waitAWhile(Bench& bench, Words words);
std::string runLater(Bench& bench, Words words);
std::string restartProgram(Bench& bench, Words words);

}  // namespace melvane::drive
