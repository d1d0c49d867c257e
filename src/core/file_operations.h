#pragma once
#include <string>

#include "platform/clock.h"
#include "platform/directories.h"
#include "platform/event_loop.h"

namespace melvane {

struct NameTables;

/// The file helpers of the program, and the sample scores that it unpacks for the tutorial. Paths are bytes
/// as the system has them. User-interface thread.
class FileOperations {
 public:
    FileOperations(const Directories& directories, Clock& clock, EventLoop& loop)
        : directories_(directories), clock_(clock), loop_(loop) {}

    /// Whether the file can be opened for reading.
    bool FileExists(const std::string& path) const;
    /// Deletes the file, then waits 0.2 seconds while serving events, so that a slow file system can follow.
    /// A file that was not there is made first. A failure ends it quietly, without the wait; so does a name
    /// that stands for something else than a file.
    void DeleteFileAndWait(const std::string& path);
    /// The wait of DeleteFileAndWait alone.
    void waitForFileSystem();
    /// Writes the bytes; answers whether the whole file was written.
    bool WriteBytesFile(const std::string& path, const std::string& bytes);

    /// Makes the media folder and each sample in it that is not there yet. A sample without data writes
    /// nothing.
    void InstallMediaFiles();
    /// Deletes each sample that is there.
    void RemoveMediaFiles();

    void listNames(NameTables& tables);

 private:
    Directories directories_;
    Clock& clock_;
    EventLoop& loop_;
};

}  // namespace melvane
