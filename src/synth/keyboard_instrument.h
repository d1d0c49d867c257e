#pragma once
#include <functional>

#include "core/picker.h"
#include "core/settings.h"
#include "synth/keyboard_channels.h"

namespace melvane {

/// The instrument on which the keys sound, and the device that sounds it. The instrument in hand is the
/// composer's too; an empty name means that none was chosen.
class KeyboardInstrument {
 public:
    struct Parts {
        Settings& settings;
        MidiOutput& output;
        Picker& picker;
        KeyboardChannels& channels;
    };
    KeyboardInstrument(Studio& studio, Parts parts);

    /// At the start of the window: the stored instrument, unless one was chosen before, goes out on the
    /// keyboard's channel.
    void loadInstrument();
    /// Another instrument by the picker. Nothing on the percussion channel, which the keys cannot reach.
    void LblInstrument_DblClick();
    void Command5_Click() { LblInstrument_DblClick(); }

    /// The stored device, or the one behind it where that does not open. Whether one of the two did.
    bool openDevice();
    void FillDeviceList();
    /// The user has chosen a device: it is stored and opened, then the picker is opened.
    void Combo1_Click();
    /// Lets go of the keys that are held, before their device is closed; set where the parts are joined.
    std::function<void()> releaseHeldKeys;

    void listNames(NameTables& tables);

 private:
    void sendProgram();
    /// The instrument in hand becomes the channel's.
    void takeInstrument();

    Studio& studio_;
    Parts parts_;
};

}  // namespace melvane
