#pragma once
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

/// Open files by their descriptors, in all that differs between systems; each has its own implementation.
/// Bytes are never changed on their way, and programs that this one starts inherit nothing. What fails
/// answers -1, false or nothing, and errno then tells why. Paths are bytes as the system has them, on Windows
/// UTF-8. Any thread.
namespace melvane {

int openForReading(const std::string& path);
/// A file that is there, for writing.
int openForWriting(const std::string& path);
/// For writing; an empty file is made when there is none. A pipe that nobody reads fails.
int openOrMake(const std::string& path);
/// A file that is there, for reading and writing.
int openForBoth(const std::string& path);
/// For reading and writing, made when there is none, or for reading alone where it may not be written. It is
/// an ordinary file that nobody else has opened so. What is held up by nobody at the other end, as a pipe,
/// fails.
int openAlone(const std::string& path);
/// Creates a file without a name in the folder (empty: the working one), for reading and writing, with the
/// rights of an ordinary new file. Fails where the system has no such files, or none that could be named
/// later.
int openNameless(const std::string& folder);
/// Creates a file for reading and writing with a name that no other has: the last six characters of `path`,
/// "XXXXXX", are chosen. It has the rights of an ordinary new file, and is in use until it is closed.
int openUnique(std::string& path);

/// Writes all of it at the present place.
bool writeAll(int descriptor, std::string_view bytes);
/// Writes all of it at this place of the file, in bytes. How much was written before the first failure.
std::size_t writeAt(int descriptor, std::string_view bytes, std::uint64_t place);
/// Reads at the present place. How many bytes there were, at most `bytes.size()`; 0 at the end of the file.
std::optional<std::size_t> readSome(int descriptor, std::span<unsigned char> bytes);
/// The present place is so many bytes nearer to the start of the file.
bool stepBack(int descriptor, std::size_t bytes);
bool setLength(int descriptor, std::uint64_t bytes);
/// What was written goes to the disk.
bool bringToDisk(int descriptor);

/// Marks the file as in use, until it is closed or given free; false when another descriptor has done so.
bool markInUse(int descriptor);
bool giveFree(int descriptor);
/// Removes a file that nobody has in use.
void removeUnused(const std::string& path);

/// Whether something other than an ordinary file, such as a device or a folder, has that name.
bool isNoOrdinaryFile(const std::string& path);
/// The rights of an earlier file, as giveRights() takes them; nothing when there is none.
std::optional<unsigned> rightsOf(const std::string& path);
bool mayBeWritten(const std::string& path);
/// Rights that cannot be given are left as they are.
void giveRights(int descriptor, unsigned rights);

/// Gives a nameless file a name that no file has.
bool linkAs(int descriptor, const std::string& name);
/// The open file takes a name, in place of the file that has it, at once. Where only closed files can, it is
/// closed, and `descriptor` is -1.
bool renameOpen(int& descriptor, const std::string& from, const std::string& to);

}  // namespace melvane
