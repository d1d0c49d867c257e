#pragma once
#include <functional>

#include "recorder_fixture.h"

namespace melvane::test {

/// The recorder with a score of four columns, which is not encoded.
class RecordingRunTest : public RecorderTest {
 protected:
    RecordingRunTest() {
        window().Check2.set(false);
        write(0, 1, 67, 2);
    }
    using RecorderTest::write;
    /// Called in the course of the run.
    void at(int milliseconds, std::function<void()> call) { time.at(milliseconds, std::move(call)); }
    static void press(ButtonControl& button) { button.userPut(Value(1LL)); }
    void record() { press(window().CmdrecordSNG); }
    std::string midiFile() { return write("song.mid", "MThd"); }
    void chooseMidi(const std::string& file) {
        window().Optsourcemid.userPut(Value(1LL));
        window().Text6.set(file);
    }
};

inline const std::vector<std::string> savedMessages{"Started playing notes",      "Recording Stopped!",
                                                    "File Can be saved",          "File was saved as ",
                                                    "Recording buffer Deleted! ", "Recording Closed "};

}  // namespace melvane::test
