#pragma once
#include "core/file_operations.h"
#include "core/settings.h"
#include "core/studio.h"
#include "platform/dialogs.h"
#include "platform/directories.h"
#include "platform/event_loop.h"
#include "synth/key_scheme_file.h"

namespace melvane {

/// The labels of the keys, which are the whole of the key map: their files, and their editing. No failure is
/// told to the user.
class KeySchemes {
 public:
    struct Parts {
        Settings& settings;
        FileOperations& files;
        Dialogs& dialogs;
        EventLoop& loop;
        const Directories& directories;
    };
    KeySchemes(Studio& studio, Parts parts);

    /// Puts the schemes that come with the program beside it, where they are not there yet.
    void installSchemes();
    /// The labels and the name that stand without a scheme.
    void showDefault();
    /// At the start of the window: the scheme of the setting "keyfile", else "004.key" beside the program,
    /// else none.
    void loadAtStart();
    /// At its end: the setting takes the scheme's name, with the program's folder in place of its own.
    void storeAtEnd();

    /// Takes the labels from a file and shows its name; the labels are empty when it cannot be read.
    void OpenKeyScheme(const std::string& path);
    /// Replaces the file; one that cannot be written stays as it is.
    void SaveKeyScheme(const std::string& path);
    // The same with a dialog before them.
    void Command1_Click();
    void Command6_Click();

    /// While it is ticked the labels can be edited, and no key plays.
    void Check1_Click();
    void CmdEd_Click();
    /// A label has changed: the next press of any key is a new one.
    void NoteX_Change(int index);

    void listNames(NameTables& tables);

 private:
    std::string besideProgram(const std::string& name) const;

    Studio& studio_;
    Parts parts_;
};

}  // namespace melvane
