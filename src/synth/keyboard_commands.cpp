#include "synth/keyboard_commands.h"

#include "core/names.h"

namespace melvane {

KeyboardCommands::KeyboardCommands(Studio& studio, Parts parts) : switches(studio, parts.output) {}

void KeyboardCommands::listNames(NameTables& tables) { switches.listNames(tables); }

}  // namespace melvane
