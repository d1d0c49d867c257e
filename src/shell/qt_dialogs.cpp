#include "shell/qt_dialogs.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPointer>
#include <QRegularExpression>

#include <utility>

#include "platform/files.h"
#include "platform/text.h"

namespace melvane {

namespace {

/// Whether each row of `table` stands at the index that its `key` is.
template <class Row, std::size_t rows, class Key>
consteval bool isIndexedBy(Key Row::*key, const Row (&table)[rows]) {
    for (std::size_t at = 0; at < rows; ++at) {
        if (static_cast<std::size_t>(table[at].*key) != at) return false;
    }
    return true;
}

struct Icon {
    BoxKind kind;
    QMessageBox::Icon icon;
};
constexpr Icon icons[] = {{BoxKind::plain, QMessageBox::NoIcon},
                          {BoxKind::information, QMessageBox::Information},
                          {BoxKind::critical, QMessageBox::Critical},
                          {BoxKind::exclamation, QMessageBox::Warning},
                          {BoxKind::question, QMessageBox::Question}};
static_assert(isIndexedBy(&Icon::kind, icons));

/// What a set of buttons shows, and what closing the box without a button comes to.
struct Buttons {
    BoxButtons buttons;
    QMessageBox::StandardButtons shown;
    QMessageBox::StandardButton escape;
    BoxAnswer escaped;
};
constexpr Buttons buttonSets[] = {
    {BoxButtons::ok, QMessageBox::Ok, QMessageBox::Ok, BoxAnswer::ok},
    {BoxButtons::okCancel, QMessageBox::Ok | QMessageBox::Cancel, QMessageBox::Cancel, BoxAnswer::cancel},
    {BoxButtons::yesNo, QMessageBox::Yes | QMessageBox::No, QMessageBox::No, BoxAnswer::no}};
static_assert(isIndexedBy(&Buttons::buttons, buttonSets));

struct Answer {
    QMessageBox::StandardButton button;
    BoxAnswer answer;
};
constexpr Answer answers[] = {{QMessageBox::Ok, BoxAnswer::ok},
                              {QMessageBox::Cancel, BoxAnswer::cancel},
                              {QMessageBox::Yes, BoxAnswer::yes},
                              {QMessageBox::No, BoxAnswer::no}};

/// A window over the one in front, which may take it along when it goes.
template <class Window>
class Shown {
 public:
    Shown() : window_(new Window(QApplication::activeWindow())) {}
    ~Shown() { delete window_.data(); }
    Shown(const Shown&) = delete;
    Shown& operator=(const Shown&) = delete;
    bool isThere() const { return !window_.isNull(); }
    Window* operator->() const { return window_; }
    Window& operator*() const { return *window_; }

 private:
    QPointer<Window> window_;
};

/// The ending that the `index`th entry (from 1) of a filter asks for, with its dot; empty when it takes any.
std::string endingOf(const std::string& filter, int index) {
    const QStringList parts = QString::fromStdString(filter).split(QLatin1Char('|'));
    const QString pattern = parts.value(2 * index - 1).section(QLatin1Char(';'), 0, 0).trimmed();
    return pattern.startsWith(QLatin1String("*.")) && pattern != QLatin1String("*.*")
               ? pattern.mid(1).toStdString()
               : std::string();
}

void setUp(QFileDialog& dialog, const FileQuestion& question, bool saves, const std::string& folder) {
    dialog.setWindowTitle(QString::fromStdString(question.title));
    dialog.setAcceptMode(saves ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(saves ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    dialog.setNameFilters(toolkitFilters(question.filter));
    if (!folder.empty()) dialog.setDirectory(QString::fromStdString(folder));
    if (!question.proposed.empty()) dialog.selectFile(QString::fromStdString(question.proposed));
}

FileChoice choiceOf(const QFileDialog& dialog) {
    const QStringList files = dialog.selectedFiles();
    if (files.isEmpty()) return {};
    const auto filter = static_cast<int>(dialog.nameFilters().indexOf(dialog.selectedNameFilter()));
    return {files.first().toStdString(), filter < 0 ? 1 : filter + 1};
}

}  // namespace

QStringList toolkitFilters(const std::string& filter) {
    static const QRegularExpression brackets(QStringLiteral("\\s*\\([^)]*\\)\\s*$"));
    const QStringList parts = QString::fromStdString(filter).split(QLatin1Char('|'));
    QStringList filters;
    for (qsizetype name = 0; name + 1 < parts.size(); name += 2) {
        const QString patterns =
            QString(parts[name + 1]).replace(QLatin1Char(';'), QLatin1Char(' ')).simplified();
        const QString shown = QString(parts[name]).remove(brackets).trimmed();
        filters << QStringLiteral("%1 (%2)").arg(
            shown, patterns == QLatin1String("*.*") ? QStringLiteral("*") : patterns);
    }
    return filters;
}

std::optional<int> QtDialogs::ask(QDialog& dialog) {
    bool over = false;
    std::optional<int> result;
    QObject guard;  // the dialog may outlive this call, its answer may not
    QObject::connect(&dialog, &QDialog::finished, &guard, [&](int code) {
        over = true;
        result = code;
    });
    QObject::connect(&dialog, &QObject::destroyed, &guard, [&] { over = true; });
    dialog.setModal(true);
    dialog.show();
    loop_.waitFor([&] { return over; });
    return result;
}

FileChoice QtDialogs::askForFile(const FileQuestion& question, bool saves, std::string& lastFolder) {
    const std::string& folder = question.folder.empty() ? lastFolder : question.folder;
    Shown<QFileDialog> dialog;
    setUp(*dialog, question, saves, folder);
    dialog->setOption(QFileDialog::DontConfirmOverwrite);  // mayReplace() asks, for the completed name too
    while (dialog.isThere() && ask(*dialog) == QDialog::Accepted) {
        FileChoice choice = choiceOf(*dialog);
        if (saves && !question.callerAsks && !mayReplace(choice, question.filter)) continue;
        lastFolder = QFileInfo(QString::fromStdString(choice.path)).absolutePath().toStdString();
        return choice;
    }
    return {};
}

bool QtDialogs::mayReplace(const FileChoice& choice, const std::string& filter) {
    const std::string ending = endingOf(filter, choice.filterIndex);
    const std::string completed = endsWithNoCase(choice.path, ending) ? choice.path : choice.path + ending;
    const std::string& replaced = fileExists(completed) ? completed : choice.path;
    if (!fileExists(replaced)) return true;
    return messageBox(BoxKind::question, "Melvane",
                      replaced + " already exists. Do you want to replace the file?",
                      BoxButtons::yesNo) == BoxAnswer::yes;
}

FileChoice QtDialogs::openFile(const FileQuestion& question) {
    return askForFile(question, false, lastOpenFolder_);
}

FileChoice QtDialogs::saveFile(const FileQuestion& question) {
    return askForFile(question, true, lastSaveFolder_);
}

BoxAnswer QtDialogs::messageBox(BoxKind kind, const std::string& title, const std::string& text,
                                BoxButtons buttons) {
    const Buttons& set = buttonSets[static_cast<std::size_t>(buttons)];
    Shown<QMessageBox> box;
    box->setIcon(icons[static_cast<std::size_t>(kind)].icon);
    box->setWindowTitle(QString::fromStdString(title));
    box->setTextFormat(Qt::PlainText);
    box->setText(QString::fromStdString(text));
    box->setStandardButtons(set.shown);
    box->setEscapeButton(set.escape);
    const std::optional<int> pressed = ask(*box);
    for (const Answer& answer : answers) {
        if (pressed == static_cast<int>(answer.button)) return answer.answer;
    }
    return set.escaped;
}

}  // namespace melvane
