#pragma once
#include <deque>
#include <string>
#include <utility>
#include <vector>

#include "platform/dialogs.h"
#include "platform/virtual_time.h"

namespace melvane {

/// Dialogs that are answered from queues and written down instead of shown.
///
/// A file dialog with no queued choice is cancelled. A message box with no queued answer waits while calls
/// are pending on the clock, since one of them may queue an answer, and then takes its default: ok, or yes.
class ScriptedDialogs final : public Dialogs {
 public:
    explicit ScriptedDialogs(VirtualTime& time) : time_(time) {}

    FileChoice openFile(const FileQuestion& question) override;
    FileChoice saveFile(const FileQuestion& question) override;
    BoxAnswer messageBox(BoxKind kind, const std::string& title, const std::string& text,
                         BoxButtons buttons) override;

    void queueAnswer(BoxAnswer answer) { answers_.push_back(answer); }
    void queueChoice(FileChoice choice) { choices_.push_back(std::move(choice)); }

    /// `box KIND "TITLE" "TEXT"` for each box since the last call.
    std::vector<std::string> takeBoxes() { return std::exchange(boxes_, {}); }
    /// `dialog open|save "TITLE" "FILTER" "PROPOSED"` for each file dialog since the last call.
    std::vector<std::string> takeFileDialogs() { return std::exchange(fileDialogs_, {}); }

 private:
    FileChoice answerFile(const char* direction, const FileQuestion& question);

    VirtualTime& time_;
    std::deque<BoxAnswer> answers_;
    std::deque<FileChoice> choices_;
    std::vector<std::string> boxes_, fileDialogs_;
};

}  // namespace melvane
