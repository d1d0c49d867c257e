#include "recorder/mci_commands.h"

#include "core/names.h"
#include "core/numbers.h"
#include "recorder/capture_formats.h"

namespace melvane {

namespace {

constexpr std::size_t longestErrorText = 127;  // bytes
constexpr const char* childWindow = "1073741824";
constexpr const char* section = "MCI";

}  // namespace

std::string MciCommands::word(const std::string& command) {
    const Answer answer = send(command);
    return answer.code == 0 ? success : answer.text.substr(0, longestErrorText);
}

std::int64_t MciCommands::number(const std::string& question) {
    const Answer answer = send(question);
    if (answer.code != 0) return none;
    return narrowed<std::int64_t>(leadingNumber(answer.text)).value_or(none);
}

std::string MciCommands::MciOpenMedia(std::int64_t parentWindow, const std::string& alias,
                                      const std::string& file, const std::string& deviceType) {
    return word("open " + shortPath(file) + " type " + deviceType + " Alias " + alias + " parent " +
                std::to_string(parentWindow) + " Style " + childWindow);
}

std::string MciCommands::MciPlay(const std::string& alias, const std::string& from, const std::string& to) {
    const std::string begin = leadingNumber(from) == 0 ? "0" : from;
    const std::string end = leadingNumber(to) == 0 ? std::to_string(MciFrames(alias)) : to;
    return word("play " + alias + " from " + begin + " to " + end);
}

std::int64_t MciCommands::MciFrames(const std::string& alias) {
    send("set " + alias + " time format frames");
    return number("status " + alias + " length");
}

std::int64_t MciCommands::MciMilliseconds(const std::string& alias) {
    send("set " + alias + " time format ms");
    const std::int64_t length = number("status " + alias + " length");
    send("set " + alias + " time format frames");
    return length;
}

std::int64_t MciCommands::MciPosition(const std::string& alias) {
    return number("status " + alias + " position");
}

std::int64_t MciCommands::MciFrameRate(const std::string& alias) {
    const std::int64_t frames = MciFrames(alias);
    const std::int64_t milliseconds = MciMilliseconds(alias);
    if (frames == none || milliseconds == none) return none;
    if (milliseconds == 0) return 0;
    return static_cast<std::int64_t>(static_cast<double>(frames) * 1000 / static_cast<double>(milliseconds));
}

bool MciCommands::MciIsAtEnd(const std::string& alias, std::int64_t& length) {
    if (length == 0) length = MciFrames(alias);
    const std::int64_t position = MciPosition(alias);
    if (length == none || position == none) return false;
    return position >= length;
}

MciCommands::Answer MciCommands::CaptureSet(const CaptureFormat& format) {
    return send("set capture samplespersec " + std::to_string(format.samplesPerSecond) + " channels " +
                std::to_string(format.channels) + " bitspersample " + std::to_string(format.bits) +
                " alignment " + std::to_string(format.alignment()) + " bytespersec " +
                std::to_string(format.bytesPerSecond()));
}

int MciCommands::setCapture(int samplesPerSecond, int channels, int bits) {
    return CaptureSet({{}, samplesPerSecond, channels, bits}).code;
}

std::string MciCommands::ReadMciEntry(const std::string& key) const {
    constexpr std::size_t longestEntry = 254;  // bytes
    return desktop_.readEntry(section, key, "None").substr(0, longestEntry);
}

void MciCommands::WriteMciEntry(const std::string& key, const std::string& value) {
    desktop_.writeEntry(section, key, value);
}

void MciCommands::listNames(NameTables& tables) {
    auto& operations = tables.operations;
    operations.add("Record", "MciOpenMedia", this, &MciCommands::MciOpenMedia);
    operations.add("Record", "MciPlay", this, &MciCommands::MciPlay);
    operations.add("Record", "MciClose", this, &MciCommands::MciClose);
    operations.add("Record", "MciPause", this, &MciCommands::MciPause);
    operations.add("Record", "MciResume", this, &MciCommands::MciResume);
    operations.add("Record", "MciStop", this, &MciCommands::MciStop);
    operations.add("Record", "MciCloseAll", this, &MciCommands::MciCloseAll);
    operations.add("Record", "MciFrames", this, &MciCommands::MciFrames);
    operations.add("Record", "MciMilliseconds", this, &MciCommands::MciMilliseconds);
    operations.add("Record", "MciPosition", this, &MciCommands::MciPosition);
    operations.add("Record", "MciFrameRate", this, &MciCommands::MciFrameRate);
    operations.add("Record", "MciIsAtEnd", this, &MciCommands::isAtEnd);
    operations.add("Record", "CaptureOpen", this, &MciCommands::openCapture);
    operations.add("Record", "CaptureSet", this, &MciCommands::setCapture);
    operations.add("Record", "CaptureRecord", this, &MciCommands::CaptureRecord);
    operations.add("Record", "CaptureStop", this, &MciCommands::stopCapture);
    operations.add("Record", "CaptureCanSave", this, &MciCommands::CaptureCanSave);
    operations.add("Record", "CaptureSaveTo", this, &MciCommands::saveCapture);
    operations.add("Record", "CaptureSaveOld", this, &MciCommands::CaptureSaveOld);
    operations.add("Record", "CaptureDelete", this, &MciCommands::deleteCapture);
    operations.add("Record", "CaptureClose", this, &MciCommands::closeCapture);
    operations.add("Record", "CaptureCloseOld", this, &MciCommands::CaptureCloseOld);
    operations.add("Record", "ReadMciEntry", this, &MciCommands::ReadMciEntry);
    operations.add("Record", "WriteMciEntry", this, &MciCommands::WriteMciEntry);
}

}  // namespace melvane
