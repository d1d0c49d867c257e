#include "platform/scripted_dialogs.h"

#include "platform/quoted_text.h"

namespace melvane {

namespace {

const char* nameOf(BoxKind kind) {
    switch (kind) {
        case BoxKind::information:
            return "information";
        case BoxKind::critical:
            return "critical";
        case BoxKind::exclamation:
            return "exclamation";
        case BoxKind::question:
            return "question";
        case BoxKind::plain:
            break;
    }
    return "plain";
}

}  // namespace

FileChoice ScriptedDialogs::answerFile(const char* direction, const FileQuestion& question) {
    fileDialogs_.push_back(std::string("dialog ") + direction + " " + quoted(question.title) + " " +
                           quoted(question.filter) + " " + quoted(question.proposed));
    if (choices_.empty()) return {};
    FileChoice choice = std::move(choices_.front());
    choices_.pop_front();
    return choice;
}

FileChoice ScriptedDialogs::openFile(const FileQuestion& question) { return answerFile("open", question); }
FileChoice ScriptedDialogs::saveFile(const FileQuestion& question) { return answerFile("save", question); }

BoxAnswer ScriptedDialogs::messageBox(BoxKind kind, const std::string& title, const std::string& text,
                                      BoxButtons buttons) {
    boxes_.push_back(std::string("box ") + nameOf(kind) + " " + quoted(title) + " " + quoted(text));
    if (answers_.empty()) {
        time_.waitFor([this] { return !answers_.empty() || !time_.hasPending(); });
    }
    if (answers_.empty()) return buttons == BoxButtons::yesNo ? BoxAnswer::yes : BoxAnswer::ok;
    const BoxAnswer answer = answers_.front();
    answers_.pop_front();
    return answer;
}

}  // namespace melvane
