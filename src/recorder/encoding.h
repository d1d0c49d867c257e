#pragma once
#include "core/settings.h"
#include "platform/desktop.h"
#include "platform/dialogs.h"
#include "platform/directories.h"
#include "recorder/recorder_log.h"
#include "recorder/wav_encoder.h"

namespace melvane {

/// The button that encodes the file in hand, and the encoding that follows a recording by itself.
class Encoding {
 public:
    struct Parts {
        RecorderLog& log;
        Settings& settings;
        Dialogs& dialogs;
        Desktop& desktop;
        Clock& clock;
        EventLoop& loop;
        const Directories& directories;
    };
    Encoding(Studio& studio, Parts parts);

    /// Fills the lists of qualities and bit rates; those that the settings name are chosen.
    void fillLists();
    void saveLists();

    /// Starts an encoding, or cancels the one that runs: the caption says which.
    void Command20_Click();
    /// After a recording: two seconds later what it made is encoded.
    void AutoEncode();
    /// False when nothing was tried, because the user gave no usable name or there is nothing to go by. The
    /// second name is not looked at: the target has that of the source, or the one that the user gives.
    bool EncodeFile(const std::string& source, const std::string& target);
    bool EncodeStream(const std::string& source, const std::string& target);

    void listNames(NameTables& tables);

 private:
    bool takeSource();
    bool hasLibraries();
    void encodeSource();
    std::string chooseTarget(const std::string& source);
    std::string askForTarget();
    void reset();

    Studio& studio_;
    Parts parts_;
    WavEncoder encoder_;
    bool encoding_ = false;
};

}  // namespace melvane
