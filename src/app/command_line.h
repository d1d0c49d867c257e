#pragma once
#include <filesystem>
#include <string>

namespace melvane {

/// What the program is asked to do by its arguments.
struct CommandLine {
    enum class Action { studio, picture, help, version, misused };
    Action action = Action::studio;
    std::filesystem::path picture;  ///< absolute; with Action::picture
    std::filesystem::path score;    ///< absolute; empty when none is to be opened
    std::string complaint;          ///< one line; with Action::misused
};

/// Relative paths are taken from the current folder.
CommandLine readCommandLine(int count, const char* const* arguments);

/// What --help prints.
extern const char* const commandLineHelp;

}  // namespace melvane
