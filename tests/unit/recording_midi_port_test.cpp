#include "platform/recording_midi_port.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/virtual_time.h"

namespace melvane {
namespace {

using Lines = std::vector<std::string>;

class RecordingMidiPortTest : public testing::Test {
 protected:
    MidiPort::Handle open(int device) {
        MidiPort::Handle handle = 0;
        port.midiOutOpen(handle, device);
        return handle;
    }

    VirtualTime time;
    RecordingMidiPort port{time};
};

TEST_F(RecordingMidiPortTest, ShortMessagesAreWrittenLowByteFirst) {
    const auto handle = open(-1);
    EXPECT_EQ(port.midiOutShortMsg(handle, 0x007F3C90), MidiPort::ok);
    EXPECT_EQ(port.log().take(), (Lines{"0 open -1 0", "0 90 3C 7F"}));
}

TEST_F(RecordingMidiPortTest, AValueBeyondThreeBytesIsWrittenWhole) {
    const auto handle = open(0);
    port.log().clear();
    port.midiOutShortMsg(handle, 0xFFFFFF9A);
    port.midiOutShortMsg(handle, 0x01000090);
    EXPECT_EQ(port.log().take(), (Lines{"0 0xFFFFFF9A", "0 0x01000090"}));
}

TEST_F(RecordingMidiPortTest, MomentsAreWholeMillisecondsRoundedToNearest) {
    const auto handle = open(0);
    port.log().clear();
    time.waitUntil(1'499'999);
    port.midiOutReset(handle);
    time.waitUntil(1'500'000);
    port.midiOutReset(handle);
    EXPECT_EQ(port.log().take(), (Lines{"1 reset", "2 reset"}));
}

TEST_F(RecordingMidiPortTest, AClosedPortTakesNoMessagesButItsClosesAndResetsAreWritten) {
    const auto handle = open(0);
    EXPECT_EQ(port.midiOutClose(handle), MidiPort::ok);
    port.log().clear();
    EXPECT_EQ(port.midiOutShortMsg(handle, 0x90), MidiPort::badHandle);
    EXPECT_EQ(port.midiOutReset(handle), MidiPort::badHandle);
    EXPECT_EQ(port.midiOutClose(handle), MidiPort::badHandle);
    EXPECT_EQ(port.log().take(), (Lines{"0 reset", "0 close"}));
}

TEST_F(RecordingMidiPortTest, DevicesExistFromMinusOneToTheCount) {
    MidiPort::Handle handle = 77;
    EXPECT_EQ(port.midiOutOpen(handle, 1), MidiPort::badDevice);
    EXPECT_EQ(handle, 77U);
    port.setDevices(2);
    EXPECT_EQ(port.midiOutOpen(handle, 1), MidiPort::ok);
    port.setDevices(0);
    EXPECT_EQ(port.midiOutOpen(handle, 0), MidiPort::badDevice);
    EXPECT_EQ(port.midiOutOpen(handle, -1), MidiPort::ok);
    EXPECT_EQ(port.midiOutGetNumDevs(), 0);
    EXPECT_EQ(port.midiOutGetDevCapsA(0), "");
    EXPECT_EQ(port.log().take(), (Lines{"0 open 1 2", "0 open 1 0", "0 open 0 2", "0 open -1 0"}));
}

TEST_F(RecordingMidiPortTest, ARefusalCountsDownForItsDeviceOnly) {
    port.setDevices(2);
    port.refuse(1, 1);
    EXPECT_EQ(open(0), 1U);
    open(1);
    open(1);
    port.refuse(-1, -1);
    open(-1);
    open(-1);
    port.refuse(-1, 0);
    open(-1);
    EXPECT_EQ(port.log().take(),
              (Lines{"0 open 0 0", "0 open 1 4", "0 open 1 0", "0 open -1 4", "0 open -1 4", "0 open -1 0"}));
}

TEST_F(RecordingMidiPortTest, OpeningWhileOpenGivesANewHandleAndLeavesTheOldOne) {
    const auto first = open(0), second = open(0);
    EXPECT_NE(first, second);
    EXPECT_EQ(port.midiOutShortMsg(first, 0x90), MidiPort::ok);
    EXPECT_EQ(port.midiOutShortMsg(second, 0x90), MidiPort::ok);
    port.forgetHandles();
    EXPECT_EQ(port.midiOutShortMsg(second, 0x90), MidiPort::badHandle);
}

}  // namespace
}  // namespace melvane
