#pragma once
#include "platform/media_command.h"
#include "platform/media_device.h"

namespace melvane {

/// What stands behind an alias. User-interface thread.
class MediaUnit {
 public:
    virtual ~MediaUnit() = default;
    /// Carries out a command other than those that open and close.
    virtual MediaDevice::Answer act(const MediaCommand& command) = 0;
    /// Whether a file of it may be sounding.
    virtual bool isPlaying() const { return false; }
    /// Another one is about to play a file. noteFile() always follows and tells whether it does.
    virtual void expectFile() {}
    virtual void noteFile(bool /*plays*/) {}
    /// A MIDI output has been opened.
    virtual void noteOutput() {}
    /// Does at once what the unit's own thread does now and then. Any thread.
    virtual void catchUp() {}
};

}  // namespace melvane
