#include <gtest/gtest.h>

#include <map>

#include "platform/midi_devices.h"
#include "platform_sound_helpers.h"

namespace melvane {
namespace {

using namespace sound_test;

using Bytes = std::vector<std::uint8_t>;

/// Ports as the test sets them; what is sent is kept by port index.
class ScriptedSystem final : public SystemMidi {
 public:
    std::vector<std::string> names() override { return ports; }
    std::unique_ptr<SystemMidiOutput> open(std::size_t index) override {
        if (refuses) return nullptr;
        return std::make_unique<Output>(*this, index);
    }

    std::vector<std::string> ports = {"First port", "Second port"};
    bool refuses = false;
    bool isGone = false;
    std::map<std::size_t, std::vector<Bytes>> sent;

 private:
    class Output final : public SystemMidiOutput {
     public:
        Output(ScriptedSystem& system, std::size_t index) : system_(system), index_(index) {}
        bool send(std::span<const std::uint8_t> bytes) override {
            if (system_.isGone) return false;
            system_.sent[index_].emplace_back(bytes.begin(), bytes.end());
            return true;
        }

     private:
        ScriptedSystem& system_;
        std::size_t index_;
    };
};

class Devices : public testing::Test {
 protected:
    MidiPort::Handle open(int device) {
        MidiPort::Handle handle = 0;
        EXPECT_EQ(port.midiOutOpen(handle, device), MidiPort::ok);
        return handle;
    }

    FrameClock clock;
    Synthesizer synthesizer{clock, 0.0};
    ScriptedSystem system;
    MidiDevices port{synthesizer, system};
};

TEST_F(Devices, ListsTheSynthesizerBeforeThePortsOfTheSystem) {
    EXPECT_EQ(port.midiOutGetNumDevs(), 3);
    EXPECT_EQ(port.midiOutGetDevCapsA(0), "Melvane Synthesizer");
    EXPECT_EQ(port.midiOutGetDevCapsA(1), "First port");
    EXPECT_EQ(port.midiOutGetDevCapsA(2), "Second port");
    EXPECT_EQ(port.midiOutGetDevCapsA(3), "");
    EXPECT_EQ(port.midiOutGetDevCapsA(-2), "");
}

TEST_F(Devices, SoundElsewhereWhileOnlyPortsOfTheSystemAreOpen) {
    EXPECT_FALSE(port.soundsElsewhere());
    const auto outside = open(1);
    EXPECT_TRUE(port.soundsElsewhere());
    const auto builtIn = open(0);
    EXPECT_FALSE(port.soundsElsewhere());
    port.midiOutClose(builtIn);
    EXPECT_TRUE(port.soundsElsewhere());
    port.midiOutClose(outside);
    EXPECT_FALSE(port.soundsElsewhere());
}

TEST_F(Devices, TellOfEachThatIsOpened) {
    std::vector<bool> elsewhere;
    port.whenOpened = [&] { elsewhere.push_back(port.soundsElsewhere()); };
    const auto outside = open(1);
    port.midiOutClose(outside);
    open(0);
    MidiPort::Handle handle = 0;
    EXPECT_NE(port.midiOutOpen(handle, 99), MidiPort::ok);
    EXPECT_EQ(elsewhere, (std::vector<bool>{true, false}));
}

TEST_F(Devices, AreOneAtLeast) {
    system.ports.clear();
    EXPECT_EQ(port.midiOutGetNumDevs(), 1);
}

TEST_F(Devices, CutALongNameTo31BytesBetweenCharacters) {
    system.ports = {std::string(40, 'x'), std::string(30, 'x') + "\u00e9"};
    EXPECT_EQ(port.midiOutGetDevCapsA(1), std::string(31, 'x'));
    EXPECT_EQ(port.midiOutGetDevCapsA(2), std::string(30, 'x'));
}

TEST_F(Devices, OpenTheSynthesizerAsTheMapperAndAsDevice0) {
    ASSERT_EQ(synthesizer.loadSoundFont(anySoundFont()), std::nullopt);
    for (const int device : {-1, 0}) {
        const auto handle = open(device);
        EXPECT_EQ(port.midiOutShortMsg(handle, noteOn(drums, claves)), MidiPort::ok);
        EXPECT_GT(peak(render(synthesizer, 8000)), 0.01F);
        EXPECT_EQ(port.midiOutReset(handle), MidiPort::ok);
        EXPECT_EQ(port.midiOutClose(handle), MidiPort::ok);
    }
}

TEST_F(Devices, RefuseWhatDoesNotExistAndLeaveTheHandle) {
    MidiPort::Handle handle = 77;
    EXPECT_EQ(port.midiOutOpen(handle, 3), MidiPort::badDevice);
    EXPECT_EQ(port.midiOutOpen(handle, -2), MidiPort::badDevice);
    system.refuses = true;
    EXPECT_EQ(port.midiOutOpen(handle, 1), MidiPort::allocated);
    EXPECT_EQ(handle, 77U);
}

TEST_F(Devices, AnswerBadHandleOnceTheyAreClosed) {
    const auto handle = open(-1);
    EXPECT_EQ(port.midiOutClose(handle), MidiPort::ok);
    EXPECT_EQ(port.midiOutClose(handle), MidiPort::badHandle);
    EXPECT_EQ(port.midiOutReset(handle), MidiPort::badHandle);
    EXPECT_EQ(port.midiOutShortMsg(handle, noteOn(0, 60)), MidiPort::badHandle);
    EXPECT_EQ(port.midiOutShortMsg(0, noteOn(0, 60)), MidiPort::badHandle);
}

TEST_F(Devices, SendASystemPortEachMessageInItsRealLength) {
    const auto handle = open(2);
    port.midiOutShortMsg(handle, noteOn(1, 60, 90));
    port.midiOutShortMsg(handle, program(2, 24));
    port.midiOutShortMsg(handle, 0xFFFF'0AB0);
    EXPECT_EQ(system.sent[1], (std::vector<Bytes>{{0x91, 60, 90}, {0xC2, 24}}));
    EXPECT_TRUE(system.sent[0].empty());
}

TEST_F(Devices, ResetASystemPortByNoteAndByChannelButKeepPrograms) {
    const auto handle = open(1);
    port.midiOutShortMsg(handle, noteOn(1, 60));
    port.midiOutShortMsg(handle, noteOn(1, 64));
    port.midiOutShortMsg(handle, noteOff(1, 64));
    system.sent.clear();
    EXPECT_EQ(port.midiOutReset(handle), MidiPort::ok);
    const auto& sent = system.sent[0];
    EXPECT_EQ(std::ranges::count(sent, Bytes{0x81, 60, 0}), 1);
    EXPECT_EQ(std::ranges::count(sent, Bytes{0x81, 64, 0}), 0);
    for (std::uint8_t channel = 0; channel < 16; ++channel) {
        const auto status = static_cast<std::uint8_t>(0xB0 | channel);
        for (const std::uint8_t number : Bytes{64, 120, 123}) {
            EXPECT_EQ(std::ranges::count(sent, Bytes{status, number, 0}), 1);
        }
    }
    EXPECT_EQ(sent.size(), 1U + 16U * 3U);
}

TEST_F(Devices, GoOnWhenAPortDisappearsWhilePlaying) {
    const auto handle = open(1);
    system.isGone = true;
    system.ports.clear();
    EXPECT_EQ(port.midiOutShortMsg(handle, noteOn(0, 60)), MidiPort::ok);
    EXPECT_EQ(port.midiOutReset(handle), MidiPort::ok);
    EXPECT_EQ(port.midiOutClose(handle), MidiPort::ok);
}

TEST(SystemMidiPorts, AnswerNothingForAPortThatDoesNotExist) {
    SystemMidiPorts ports;
    EXPECT_EQ(ports.open(ports.names().size() + 100), nullptr);
}

}  // namespace
}  // namespace melvane
