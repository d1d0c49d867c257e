#pragma once
#include <string>

/// Files that get their name when they are complete, so that a program that is killed leaves nothing behind.
/// Paths are bytes as the system has them. Any thread.
namespace melvane {

/// Gives a nameless file its name; an ordinary file that bore it before is replaced at once. False, with
/// errno set, when that fails; nothing is changed then.
bool nameFile(int descriptor, const std::string& target);

/// Where nameless files do not exist: creates a hidden file with a name of its own beside `target`, as
/// openNameless() would, and tells its path. Those that were left there by programs that are gone go first.
int openDraft(const std::string& target, std::string& path);

}  // namespace melvane
