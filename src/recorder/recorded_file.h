#pragma once
#include <string>

#include "core/studio.h"
#include "platform/dialogs.h"
#include "recorder/recorder_log.h"

namespace melvane {

/// "Save File As": gives the file in hand a name of its own.
class RecordedFile {
 public:
    RecordedFile(Studio& studio, RecorderLog& log, Dialogs& dialogs)
        : studio_(studio), log_(log), dialogs_(dialogs) {}

    /// Asks for a name and moves the file there; a name without an ending has that of the file.
    void RenameFile2(std::string file);

    void listNames(NameTables& tables);

 private:
    std::string askForName(const std::string& file);
    /// No file has that name, or the user lets it be replaced.
    bool mayTake(const std::string& name);

    Studio& studio_;
    RecorderLog& log_;
    Dialogs& dialogs_;
};

}  // namespace melvane
