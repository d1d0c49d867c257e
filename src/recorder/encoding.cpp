#include "recorder/encoding.h"

#include <algorithm>
#include <array>
#include <filesystem>

#include "core/names.h"
#include "platform/files.h"
#include "platform/text.h"
#include "recorder/mci_commands.h"
#include "recorder/recorder_paths.h"
#include "recorder/recording_buttons.h"

namespace melvane {

namespace {

constexpr const char* startCaption = "Encode File";
constexpr const char* stopCaption = "Stop Encoding";
constexpr std::int64_t secondsBefore = 2;  // an encoding that comes by itself

struct Library {
    std::string_view file;
    const char* missing;
};
// In the order in which they are looked for.
constexpr std::array<Library, 2> libraries{
    {{"akrip32.dll", "One of the encoding library files was not found...can't encode."},
     {"lame_enc.dll", "Encoding library \"lame_enc.dll\" is not found...can't encode."}}};

struct StoredList {
    ListControl RecordControls::*list;
    const char* key;
    int otherwise;
};
constexpr std::array<StoredList, 2> storedLists{
    {{&RecordControls::Combo4, "MP3 bitrate", 11}, {&RecordControls::Combo3, "MP3 quality", 9}}};

}  // namespace

Encoding::Encoding(Studio& studio, Parts parts)
    : studio_(studio), parts_(parts), encoder_(studio, parts.loop, parts.streams) {
    auto& Record = studio_.Record;
    Record.Command20.acted = [this] { Command20_Click(); };
    for (const auto& stored : storedLists) {
        auto& list = Record.*stored.list;
        list.acted = [this, &list, &stored] { parts_.settings.save(stored.key, list.index()); };
    }
}

void Encoding::fillLists() {
    auto& Record = studio_.Record;
    Record.Combo3.fill(qualityTexts());
    Record.Combo4.fill(bitrateTexts());
    for (const auto& stored : storedLists) {
        int index = -1;
        parts_.settings.read(stored.key, stored.otherwise, index);
        (Record.*stored.list).set(index);
    }
}

void Encoding::saveLists() {
    for (const auto& stored : storedLists)
        parts_.settings.save(stored.key, (studio_.Record.*stored.list).index());
}

// The button

void Encoding::Command20_Click() {
    if (studio_.Record.Command20.caption() == stopCaption) {
        studio_.recorder.EncodeCancel = true;
        return reset();
    }
    if (encoding_) return;  // a cancelled one is about to end
    studio_.recorder.EncodeCancel = false;
    if (!takeSource() || !hasLibraries()) return reset();
    encodeSource();
}

void Encoding::reset() {
    auto& Record = studio_.Record;
    Record.Command20.setCaption(startCaption);
    Record.Label8.set({});
    Record.Status.set({});
    enableUnlessRecording(studio_);
}

bool Encoding::takeSource() {
    auto& Record = studio_.Record;
    const std::string source = shortPath(trimmed(Record.Text6.text()));
    if (!endsWithNoCase(source, ".wav") || !fileExists(source)) {
        parts_.log.show("The Source file is not a Wave file, or does not exist.");
        return false;
    }
    Record.Text6.set(source);
    Record.InputPath.set(source);
    return true;
}

bool Encoding::hasLibraries() {
    const auto wanted = parts_.desktop.encoderFiles();
    for (const auto& library : libraries) {
        if (std::ranges::find(wanted, library.file) == wanted.end()) continue;
        if (fileExists((parts_.directories.program / library.file).string())) continue;
        parts_.log.show(library.missing);
        return false;
    }
    return true;
}

void Encoding::encodeSource() {
    auto& Record = studio_.Record;
    const std::int32_t closings = studio_.recorder.closings;
    const std::string source = Record.Text6.text();
    Record.Label8.set("Encoding");
    parts_.log.show("Encoding in progress");
    DisableRecording(Record);
    Record.Command20.setCaption(stopCaption);
    Record.Command20.setEnabled(true);
    Record.CmdStopRecording.setEnabled(false);
    encoding_ = true;
    // A failure of the encoder's own is passed over: no text of the library's reaches the user.
    const bool isMade = EncodeFile(source, Record.OutPutPath.text()).isMade;
    encoding_ = false;
    // A window that was closed meanwhile leaves the source as it is.
    if (studio_.recorder.closings != closings || parts_.loop.ended()) return;
    if (isMade) {
        Record.Text6.set(withOtherEnding(source, ".mp3"));
        if (Record.Check3.ticked()) removeFile(source);
    }
    reset();
}

void Encoding::AutoEncode() {
    auto& Record = studio_.Record;
    const std::int32_t closings = studio_.recorder.closings;
    if (Record.Command20.caption() == startCaption) {
        DisableRecording(Record);
        parts_.log.show({});
        parts_.loop.waitUntil(parts_.clock.counter() + secondsBefore * parts_.clock.frequency());
        if (studio_.recorder.closings != closings || parts_.loop.ended()) return;
        Record.Label8.set("Encoding");
        Command20_Click();
    }
    if (studio_.recorder.closings != closings) return;
    Record.Label8.set({});
    Record.Status.set({});
    enableUnlessRecording(studio_);
}

// The file

Encoding::Outcome Encoding::EncodeFile(const std::string& source, const std::string&) {
    const std::string target = chooseTarget(source);
    return target.empty() ? Outcome{} : EncodeStream(source, target);
}

/// Empty when there is none.
std::string Encoding::chooseTarget(const std::string& source) {
    auto& shown = studio_.Record.OutPutPath;
    const std::string target = withOtherEnding(source, ".mp3");
    shown.set(target);
    if (!fileExists(target)) return target;
    const auto answer = parts_.dialogs.messageBox(
        BoxKind::question, "Melvane", target + " already exists. Do you want to replace the file?",
        BoxButtons::yesNo);
    if (answer == BoxAnswer::yes) {
        removeFile(target);
        return target;
    }
    const std::string chosen = askForTarget();
    if (!chosen.empty()) shown.set(chosen);
    return chosen;
}

std::string Encoding::askForTarget() {
    std::error_code failed;
    const auto choice = parts_.dialogs.saveFile(
        {"Save As", "MP3 (*.mp3)|*.mp3", std::filesystem::current_path(failed).string(), "audio.mp3"});
    const std::string chosen = choice.path.substr(0, choice.path.find(' '));
    if (!endsWithNoCase(chosen, ".mp3")) {
        parts_.log.show("Error in File name selection. Try another file name.");
        return {};
    }
    removeFile(chosen);
    return chosen;
}

Encoding::Outcome Encoding::EncodeStream(const std::string& source, const std::string& target) {
    auto& Record = studio_.Record;
    std::error_code failed;
    std::filesystem::current_path(parts_.directories.program, failed);
    if (!fileExists(source)) {
        parts_.log.show("Source File not found...");
        reset();
        return {};
    }
    studio_.recorder.EncodeCancel = false;
    const int quality = Record.Combo3.index();
    if (quality < 0 || quality >= static_cast<int>(encoderQualities.size())) {
        parts_.dialogs.messageBox(BoxKind::plain, "Melvane", "You didn't select quality...");
        return {};
    }
    if (Record.Combo4.text().empty()) {
        parts_.dialogs.messageBox(BoxKind::plain, "Melvane", "You didn't select Bitrate...");
        return {};
    }
    const auto config = encoderSettings(Record.cbxFormat.index(), Record.Combo4.text(),
                                        encoderQualities[static_cast<std::size_t>(quality)]);
    const auto result = encoder_.encode(source, target, config);
    if (result.isWhole) parts_.log.show("Finished Encoding " + Record.Text6.text());
    if (result.isWhole && !result.isRead)
        parts_.log.add(source + " could not be read as a whole; it is kept.");
    if (result.isWhole && !result.isWritten)
        parts_.log.add(target + " could not be written as a whole; its source is kept.");
    return {result.isRead && result.isWritten, result.failure};
}

namespace {

std::string raised(const Encoding::Outcome& outcome) {
    return outcome.failure ? outcome.failure->source + ": " + outcome.failure->text : std::string();
}

}  // namespace

std::string Encoding::encodeFile(const std::string& source, const std::string& target) {
    return raised(EncodeFile(source, target));
}
std::string Encoding::encodeStream(const std::string& source, const std::string& target) {
    return raised(EncodeStream(source, target));
}

void Encoding::listNames(NameTables& tables) {
    auto& operations = tables.operations;
    operations.add("Record", "Command20_Click", this, &Encoding::Command20_Click);
    operations.add("Record", "AutoEncode", this, &Encoding::AutoEncode);
    operations.add("Record", "EncodeFile", this, &Encoding::encodeFile);
    operations.add("Record", "EncodeStream", this, &Encoding::encodeStream);
}

}  // namespace melvane
