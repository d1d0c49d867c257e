#pragma once
#include <cstdint>
#include <string>

#include "platform/desktop.h"
#include "platform/media_device.h"
#include "platform/short_path.h"

namespace melvane {

struct NameTables;
struct CaptureFormat;

/// The one place where the commands of the media device are put together. Most operations answer a result
/// word: "Success", or what the device says was wrong. Nothing here shows anything or waits.
/// User-interface thread.
class MciCommands {
 public:
    using Answer = MediaDevice::Answer;

    MciCommands(MediaDevice& device, Desktop& desktop) : device_(device), desktop_(desktop) {}

    static constexpr const char* success = "Success";
    static constexpr const char* player = "audiomp3";       ///< alias of the file that is played
    static constexpr const char* playerType = "MPEGVideo";  ///< its device type
    static constexpr std::int64_t none = -1;                ///< a number that the device did not give

    // Files
    /// Any file that the device takes, as a child of the window with that handle.
    std::string MciOpenMedia(std::int64_t parentWindow, const std::string& alias, const std::string& file,
                             const std::string& deviceType);
    /// Frames, as texts; what is no number counts as 0. A `to` of 0 is the whole length. Returns at once.
    std::string MciPlay(const std::string& alias, const std::string& from, const std::string& to);
    std::string MciClose(const std::string& alias) { return word("Close " + alias); }
    std::string MciPause(const std::string& alias) { return word("Pause " + alias); }
    std::string MciResume(const std::string& alias) { return word("Resume " + alias); }
    std::string MciStop(const std::string& alias) { return word("Stop " + alias); }
    std::string MciCloseAll() { return word("Close All"); }
    /// Length in frames, `none` when the device does not say.
    std::int64_t MciFrames(const std::string& alias);
    /// Length in milliseconds; positions count in frames again after it.
    std::int64_t MciMilliseconds(const std::string& alias);
    /// Position in frames.
    std::int64_t MciPosition(const std::string& alias);
    /// Whole frames a second, 0 for a file that lasts no time.
    std::int64_t MciFrameRate(const std::string& alias);
    /// Whether it has come to its end. A `length` of 0 frames is asked for first and handed back.
    bool MciIsAtEnd(const std::string& alias, std::int64_t& length);

    // The capture, whose alias is "capture"
    Answer CaptureOpen() { return send("open new type waveaudio alias capture"); }
    Answer CaptureSet(const CaptureFormat& format);
    void CaptureRecord() { send("record capture"); }
    Answer CaptureStop() { return send("stop capture"); }
    /// "true" when there is something that can be saved.
    std::string CaptureCanSave() { return send("capability capture can save").text; }
    Answer CaptureSaveTo(const std::string& name) { return send("save capture " + name); }
    std::string CaptureSaveOld(const std::string& name) { return word("Save capture " + name); }
    Answer CaptureDelete() { return send("delete capture"); }
    Answer CaptureClose() { return send("close capture"); }
    std::string CaptureCloseOld() { return word("close capture "); }

    // The system's table of media drivers
    /// "None" when there is no such entry.
    std::string ReadMciEntry(const std::string& key) const;
    void WriteMciEntry(const std::string& key, const std::string& value);

    void listNames(NameTables& tables);

 private:
    Answer send(const std::string& command) { return device_.send(command); }
    std::string word(const std::string& command);
    /// The number that the answer of a question is.
    std::int64_t number(const std::string& question);

    // As scripts call them.
    bool isAtEnd(const std::string& alias, std::int64_t length) { return MciIsAtEnd(alias, length); }
    int openCapture() { return CaptureOpen().code; }
    int setCapture(int samplesPerSecond, int channels, int bits);
    int stopCapture() { return CaptureStop().code; }
    int saveCapture(const std::string& name) { return CaptureSaveTo(name).code; }
    int deleteCapture() { return CaptureDelete().code; }
    int closeCapture() { return CaptureClose().code; }

    MediaDevice& device_;
    Desktop& desktop_;
};

}  // namespace melvane
