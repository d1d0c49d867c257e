#include "core/file_operations.h"

#include <array>
#include <filesystem>
#include <fstream>

#include "core/names.h"
#include "platform/files.h"
#include "platform/system_path.h"

namespace melvane {

namespace {

namespace fs = std::filesystem;

// 204 and 205 have no data.
constexpr std::array samples{"101.sng", "102.sng", "103.sng", "104.sng",  "105.sng",  "201.sng", "202.sng",
                             "203.sng", "204.sng", "205.sng", "104a.sng", "104b.sng", "333.mid", "301.sng"};

constexpr std::int64_t settleMilliseconds = 200;

}  // namespace

bool FileOperations::FileExists(const std::string& path) const { return fileExists(path); }

void FileOperations::DeleteFileAndWait(const std::string& path) {
    std::error_code error;
    // A device or a folder of that name is no file to be made anew.
    const fs::path name = systemPath(path);
    if (fs::exists(name, error) && !fs::is_regular_file(name, error)) return;
    if (!std::ofstream(name, std::ios::binary | std::ios::app).is_open()) return;
    if (!fs::remove(name, error) || error) return;
    waitForFileSystem();
}

void FileOperations::waitForFileSystem() {
    loop_.waitUntil(clock_.counter() + clock_.frequency() * settleMilliseconds / 1000);
}

bool FileOperations::WriteBytesFile(const std::string& path, const std::string& bytes) {
    return !writeFileWhole(path, bytes).has_value();
}

void FileOperations::InstallMediaFiles() {
    std::error_code error;
    fs::create_directories(directories_.media(), error);
    for (const char* name : samples) {
        const auto target = (directories_.media() / name).string();
        if (FileExists(target)) continue;
        if (const auto bytes = readFile((directories_.resources / "scores" / name).string())) {
            WriteBytesFile(target, *bytes);
        }
    }
}

void FileOperations::RemoveMediaFiles() {
    for (const char* name : samples) {
        const auto path = (directories_.media() / name).string();
        if (FileExists(path)) DeleteFileAndWait(path);
    }
}

void FileOperations::listNames(NameTables& tables) {
    auto& operations = tables.operations;
    operations.add("form1", "FileExists", this, &FileOperations::FileExists);
    operations.add("form1", "DeleteFileAndWait", this, &FileOperations::DeleteFileAndWait);
    operations.add("form1", "WriteBytesFile", this, &FileOperations::WriteBytesFile);
    operations.add("form1", "InstallMediaFiles", this, &FileOperations::InstallMediaFiles);
    operations.add("form1", "RemoveMediaFiles", this, &FileOperations::RemoveMediaFiles);
}

}  // namespace melvane
