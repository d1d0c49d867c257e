#pragma once
#include <functional>
#include <string>

#include "core/file_operations.h"
#include "core/score_model.h"
#include "core/studio.h"
#include "core/surfaces.h"
#include "core/tablet_page.h"
#include "files/sng_reader.h"
#include "platform/dialogs.h"
#include "platform/directories.h"

namespace melvane {

/// The open and save commands, and the readers and writers of score files by path.
class ScoreFiles {
 public:
    ScoreFiles(Studio& studio, Surfaces& surfaces, ScoreModel& score, TabletPage& page, FileOperations& files,
               Dialogs& dialogs, const Directories& directories)
        : studio_(studio),
          surfaces_(surfaces),
          score_(score),
          page_(page),
          files_(files),
          dialogs_(dialogs),
          directories_(directories) {}

    /// The save command: asks for a name, then writes a score or, under the first filter entry, a MIDI file.
    void mSaveAs_Click();
    void Command34_Click() { mSaveAs_Click(); }
    /// The open command.
    void Command33_Click();

    /// The long form to SaveFileName. The old file goes only when the new one is complete.
    void SaveSongFile();
    /// The short form to SaveFileName, and to "temp.sng" in the program's folder.
    void SaveSongFileShort();
    void SaveTempSong();

    /// Reads either form; tracks with notes become active.
    void OpenPoliFile(const std::string& path);
    /// Reads the short form.
    void OpenFile(const std::string& path);
    void OpenSegment(const std::string& path);

    /// Writes SaveFileName as a MIDI file; set where the parts are joined.
    std::function<void()> MidiFile;

    void listNames(NameTables& tables);

 private:
    bool read(const std::string& path, const SngManner& manner);
    void write(const std::string& path, const std::string& text);
    void showTempo();
    void showFromStart();

    Studio& studio_;
    Surfaces& surfaces_;
    ScoreModel& score_;
    TabletPage& page_;
    FileOperations& files_;
    Dialogs& dialogs_;
    Directories directories_;
};

}  // namespace melvane
