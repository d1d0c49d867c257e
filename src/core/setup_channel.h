#pragma once
#include "core/studio.h"

/// What belongs together in the Setup toolbar's channel row. Tracks from 0 to 12; another number does
/// nothing. No handler of the toolbar runs.
namespace melvane {

/// Presses one channel's button, lets go of the others, and shows that channel's sliders. The selected
/// channel cannot be hidden.
void pressChannelButton(Studio& studio, int track);

/// "Channel 1" to "Channel 8", "Percussion Channel 1" to "Percussion Channel 4"; empty for a track that is
/// not offered.
std::string channelCaption(int track);
/// The tool tip of the channel's button. Those of the percussion channels bear other numbers than the
/// channels.
std::string channelTip(int track);

/// The name of the toolbar's channel, the numbers beside its effect sliders, and their knobs.
void showChannelSettings(Studio& studio);

/// Hides a channel or brings it back: a hidden one cannot be selected.
void setChannelHidden(Studio& studio, int track, bool hidden);

/// The number and caption of the volume slider.
void showChannelVolume(Studio& studio, int track);

/// Brings the Setup toolbar to a track that was chosen elsewhere: its selected channel, pressed button,
/// volume and caption.
void bringSetupToolbarTo(Studio& studio, int track);

}  // namespace melvane
