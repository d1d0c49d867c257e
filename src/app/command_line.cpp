#include "app/command_line.h"

#include <string_view>

namespace melvane {

const char* const commandLineHelp =
    "Usage: melvane [SCORE.sng]\n"
    "       melvane --picture FILE.png [SCORE.sng]\n"
    "\n"
    "Starts the studio, with the score when one is named.\n"
    "\n"
    "  --picture FILE.png  saves a picture of the main window and ends; needs no display\n"
    "  --help              shows this text\n"
    "  --version           shows the version\n"
    "\n"
    "Exit status: 0 done, 1 failed, 2 wrong use.\n";

namespace {

CommandLine misused(std::string complaint) {
    CommandLine line;
    line.action = CommandLine::Action::misused;
    line.complaint = std::move(complaint);
    return line;
}

std::filesystem::path fromHere(std::string_view path) {
    std::error_code failed;
    const std::filesystem::path whole = std::filesystem::absolute(path, failed);
    return failed ? std::filesystem::path(path) : whole;
}

}  // namespace

CommandLine readCommandLine(int count, const char* const* arguments) {
    CommandLine line;
    for (int index = 1; index < count; ++index) {
        const std::string_view argument = arguments[index];
        if (argument == "--help" || argument == "-h") {
            line.action = CommandLine::Action::help;
            return line;
        }
        if (argument == "--version") {
            line.action = CommandLine::Action::version;
            return line;
        }
        if (argument == "--picture") {
            if (++index == count) return misused("--picture needs the name of a file.");
            line.action = CommandLine::Action::picture;
            line.picture = fromHere(arguments[index]);
        } else if (argument.starts_with('-')) {
            return misused("There is no option \"" + std::string(argument) + "\"; see --help.");
        } else if (argument.empty() || !line.score.empty()) {
            return misused("One score can be opened; see --help.");
        } else {
            line.score = fromHere(argument);
        }
    }
    return line;
}

}  // namespace melvane
