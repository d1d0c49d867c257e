#include "recorder/recorded_file.h"

#include <array>
#include <filesystem>

#include "core/names.h"
#include "platform/files.h"
#include "platform/text.h"
#include "recorder/recorder_paths.h"

namespace melvane {

namespace {

struct Filter {
    const char *ending, *text;
};
constexpr std::array<Filter, 4> filters{{{".wav", "Wave Audio (*.wav)|*.wav"},
                                         {".mid", "MIDI (*.mid)|*.mid"},
                                         {".mp3", "MP3 (*.mp3)|*.mp3"},
                                         {".sng", "SNG (*.sng)|*.sng"}}};

std::string filterFor(const std::string& file) {
    for (const auto& filter : filters) {
        if (endsWithNoCase(file, filter.ending)) return filter.text;
    }
    return {};
}

/// Three characters or more stand behind its dot.
bool hasWholeEnding(const std::string& name) {
    constexpr std::size_t dotAndThree = 4;
    return endingOf(name).size() >= dotAndThree;
}

}  // namespace

/// By value: it is usually Text6, which changes.
void RecordedFile::RenameFile2(std::string file) {
    if (!fileExists(file)) return log_.show("Invalid source file");
    std::string name = askForName(file);
    if (name.empty()) return log_.show("Cancelled");
    if (endingOf(name).empty()) name += endingOf(file);
    if (isSamePath(name, file) || !hasWholeEnding(name)) return log_.show("Can't rename as " + name);
    if (!mayTake(name)) return log_.show("Cancelled");
    if (!moveFile(file, name)) return log_.show("Can't rename as " + name);
    studio_.Record.Text6.set(name);
    log_.show(file + " has been saved as " + name);
}

std::string RecordedFile::askForName(const std::string& file) {
    const std::string folder = file.substr(0, file.size() - fileNameOf(file).size());
    return answeredPath(dialogs_.saveFile({"Save As", filterFor(file), folder, fileNameOf(file), true}).path);
}

bool RecordedFile::mayTake(const std::string& name) {
    std::error_code failed;
    if (!std::filesystem::is_regular_file(name, failed)) return true;
    const auto answer =
        dialogs_.messageBox(BoxKind::question, "Melvane",
                            name + " already exists. Do you want to replace the file?", BoxButtons::yesNo);
    return answer == BoxAnswer::yes;
}

void RecordedFile::listNames(NameTables& tables) {
    tables.operations.add("Record", "RenameFile2", this, &RecordedFile::RenameFile2);
}

}  // namespace melvane
