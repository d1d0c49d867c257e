#pragma once
#include <optional>
#include <string>
#include <string_view>

/// Whole files. Paths are bytes as the system has them. Any thread.
namespace melvane {

/// The bytes of an ordinary file of at most 256 MB; nothing when it cannot be read.
std::optional<std::string> readFile(const std::string& path);

/// Whether `path` is a file that can be opened for reading.
bool fileExists(const std::string& path);

/// Writes the file so that it is complete or as it was before; only where the folder takes no new file is one
/// that may be written changed where it lies. What failed, as one line for the user; no
/// value when the file is complete. A link is followed, and an earlier file's rights stay.
std::optional<std::string> writeFileWhole(const std::string& path, std::string_view bytes);

/// Puts the bytes at the start of the file, which is made when there is none. What an earlier file holds
/// behind them stays, and so does what was written before a failure. Answers whether all of them were
/// written.
bool overwriteFile(const std::string& path, std::string_view bytes);

/// `path` itself when it exists; else the first existing path, in the order of the alphabet, that differs
/// from it only in the case of ASCII letters; else `path`.
std::string findNoCase(const std::string& path);

}  // namespace melvane
