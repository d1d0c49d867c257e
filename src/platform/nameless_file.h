#pragma once
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// Files that get their name when they are complete, so that a program that is killed leaves nothing behind.
/// Paths are bytes as the system has them. Any thread.
namespace melvane {

/// Creates a file without a name in the folder (empty: the working one), open for reading and writing, with
/// the rights of an ordinary new file. -1 where the file system has no such files, or none that could be
/// named later; errno then tells why.
int openNameless(const std::string& folder);

/// Gives a nameless file its name; an ordinary file that bore it before is replaced at once. False, with
/// errno set, when that fails; nothing is changed then.
bool nameFile(int descriptor, const std::string& target);

/// Where nameless files do not exist: creates a hidden file with a name of its own beside `target`, as
/// openNameless() would, and tells its path. Those that were left there by programs that are gone go first.
int openDraft(const std::string& target, std::string& path);

/// Writes all of it to the descriptor at this place of the file, in bytes. How much was written before the
/// first failure; errno tells why it is less.
std::size_t writeAt(int descriptor, std::string_view bytes, std::uint64_t place);

}  // namespace melvane
