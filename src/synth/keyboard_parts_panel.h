#pragma once
#include "synth/keyboard_sliders.h"
#include "ui/panel_group_panel.h"

class QPushButton;

/// What the pages of the keyboard window are put together from.
namespace melvane {

using KeyboardGroup = PanelGroup;

/// A button that stays down.
QPushButton* makeToggle(const char* name, const char* text, const char* tip, CheckControl& toggle,
                        QWidget* parent);
/// A press runs the control's handler. `tip` is what it says as long as the control has none.
QPushButton* makeKeyboardButton(const char* name, const char* text, const char* tip, PictureControl& button,
                                QWidget* parent);

/// A slider with its name, and over its track the read-out of its number; a number with more than two places
/// behind its point is shown rounded.
QWidget* makeKeyboardSlider(KeyboardSliders& sliders, KeyboardSliders::Slider slider, const char* caption,
                            const char* readoutName, TextControl& readout, QWidget* parent);

}  // namespace melvane
