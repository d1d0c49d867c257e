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
        EncoderStreams& streams;
    };
    Encoding(Studio& studio, Parts parts);

    /// Fills the lists of qualities and bit rates; those that the settings name are chosen.
    void fillLists();
    void saveLists();

    /// Starts an encoding, or cancels the one that runs: the caption says which.
    void Command20_Click();
    /// After a recording: two seconds later what it made is encoded.
    void AutoEncode();
    /// What an encoding came to.
    struct Outcome {
        /// False when there is no MP3 to go on with: the user gave no usable name, there is nothing to go by,
        /// the source cannot be read, or the disk did not take it.
        bool isMade = false;
        std::optional<EncoderFailure> failure = {};  ///< the encoder's own
    };
    /// The second name is not looked at: the target has that of the source, or the one that the user gives.
    Outcome EncodeFile(const std::string& source, const std::string& target);
    Outcome EncodeStream(const std::string& source, const std::string& target);

    void listNames(NameTables& tables);

 private:
    bool takeSource();
    bool hasLibraries();
    void encodeSource();
    std::string chooseTarget(const std::string& source);
    std::string askForTarget();
    void reset();

    // As scripts call them: what the encoder raised, or an empty text.
    std::string encodeFile(const std::string& source, const std::string& target);
    std::string encodeStream(const std::string& source, const std::string& target);

    Studio& studio_;
    Parts parts_;
    WavEncoder encoder_;
    bool encoding_ = false;
};

}  // namespace melvane
