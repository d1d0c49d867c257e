#pragma once
#include <QStringList>

#include <optional>
#include <string>

#include "platform/dialogs.h"
#include "platform/event_loop.h"

class QDialog;
class QFileDialog;

namespace melvane {

/// The questions as windows of the toolkit, over the window in front. Each is answered through the event
/// loop, so timers and waits around it go on; the end of the process cancels it. User-interface thread.
///
/// A name that exists, with the ending of the chosen filter or without, is asked for again before saveFile
/// answers it. The names themselves are answered as they were typed.
class QtDialogs final : public Dialogs {
 public:
    explicit QtDialogs(EventLoop& loop) : loop_(loop) {}

    FileChoice openFile(const FileQuestion& question) override;
    FileChoice saveFile(const FileQuestion& question) override;
    BoxAnswer messageBox(BoxKind kind, const std::string& title, const std::string& text,
                         BoxButtons buttons = BoxButtons::ok) override;

 private:
    /// Nothing when the dialog was cancelled or its window is gone.
    std::optional<int> ask(QDialog& dialog);
    FileChoice askForFile(const FileQuestion& question, bool saves, std::string& lastFolder);
    bool mayReplace(const FileChoice& choice, const std::string& filter);

    EventLoop& loop_;
    std::string lastOpenFolder_;
    std::string lastSaveFolder_;
};

/// "Name|pattern|Name|pattern" in the toolkit's form, one entry for each pair: "Name (pattern pattern)".
/// Patterns are parted by semicolons; a pattern in the name's own brackets is not repeated.
QStringList toolkitFilters(const std::string& filter);

}  // namespace melvane
