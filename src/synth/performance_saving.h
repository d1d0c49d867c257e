#pragma once
#include "platform/dialogs.h"
#include "platform/directories.h"
#include "synth/performance_capture.h"

namespace melvane {

/// Makes a score of the capture and writes it as a file that the main window opens: the performance is on the
/// first track, with one instrument. User-interface thread.
class PerformanceSaving {
 public:
    struct Parts {
        Dialogs& dialogs;
        PerformanceCapture& capture;
        const Directories& directories;
    };
    PerformanceSaving(Studio& studio, Parts parts);

    /// "Save as SNG file". Nothing happens during a capture. A file that cannot be written is passed over,
    /// and the recording is gone all the same.
    void CmdRecord_Click();
    /// List4 from the capture, with pauses.
    void Command11_Click();
    /// List4, and List5 of it.
    void Command4_Click();
    /// Thins and shifts List5.
    void Command10_Click();
    void WritePerformance(const std::string& path);

    void listNames(NameTables& tables);

 private:
    double rate() const;
    std::string scoreText();

    Studio& studio_;
    Dialogs& dialogs_;
    PerformanceCapture& capture_;
    Directories directories_;
};

}  // namespace melvane
