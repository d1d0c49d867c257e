#pragma once
#include "core/settings.h"
#include "core/studio.h"
#include "platform/dialogs.h"
#include "platform/midi_port.h"

namespace melvane {

struct NameTables;

/// The one MIDI output: the shared handle, the choice of device with its fall-backs, and the plain messages.
class MidiOutput {
 public:
    MidiOutput(Studio& studio, Settings& settings, MidiPort& port, Dialogs& dialogs)
        : studio_(studio), settings_(settings), port_(port), dialogs_(dialogs) {}

    /// False, after a message, when there is no device at all.
    bool CheckMidiDevices();
    /// Reopens the device that the setting "Devices" names, with the fall-backs; the argument is not used.
    void Device_Click(int Index);
    /// The main window's device list.
    void Combo2_Click() { Device_Click(studio_.form1.Combo2.index()); }
    /// The Setup toolbar's device list: stores the entry and opens its device.
    void chooseDevice();
    void CloseMidi();
    /// The same, with the result kept.
    void closeForGood();
    /// Silences every note at once; programs and controllers stay.
    void reset();
    /// The opening of the device when the main window comes to the front.
    void openAtActivation();
    /// The same where none is open, as after a file that the media device has played.
    void openUnlessOpen();
    /// Closes the output and opens the stored device, without a stored one the mapper. Whether it opened.
    bool openStored();
    /// The same on an output that is closed already.
    bool openClosed();
    /// After a failure: the device behind it.
    bool openNext();
    /// "MIDI Mapper", then the name of each device: the list index of device id n is n + 1.
    std::vector<std::string> deviceNames();
    /// Builds the list of devices in `list` and stores the selected one again.
    void fillDeviceList(ListControl& list);

    void send(std::uint32_t message);
    void SendModulation(Int16 value, Int16 channel);
    void SendPan(Int16 value, Int16 channel);
    void SendReverb(Int16 value, Int16 channel);
    void SendChorus(Int16 value, Int16 channel);

    void listNames(NameTables& tables);

 private:
    MidiPort::Result open(int device);
    /// Reset, close, open.
    MidiPort::Result reopen(int device);

    Studio& studio_;
    Settings& settings_;
    MidiPort& port_;
    Dialogs& dialogs_;
    bool open_ = false;
};

}  // namespace melvane
