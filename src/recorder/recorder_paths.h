#pragma once
#include <string>
#include <string_view>

/// Names of files as the recorder handles them.
namespace melvane {

/// The file's name without its folder.
std::string fileNameOf(const std::string& path);
/// The ending with its dot, as it is written; empty without one.
std::string endingOf(const std::string& path);
/// `path` with `ending` (with its dot) in place of its own, or behind it when it has none.
std::string withOtherEnding(const std::string& path, std::string_view ending);
/// Whether both name the same file, which need not exist.
bool isSamePath(const std::string& path, const std::string& other);
/// Quietly.
void removeFile(const std::string& path);
/// The copy has the file's rights. Whether the whole of it is there: an earlier file of that name stays
/// otherwise.
bool copyFile(const std::string& from, const std::string& to);
/// Moves it over a border between file systems too. Whether it is there: an earlier file of that name is
/// replaced by the whole of it or stays, and what is no file, such as a folder or a device, always stays.
bool moveFile(const std::string& from, const std::string& to);

}  // namespace melvane
