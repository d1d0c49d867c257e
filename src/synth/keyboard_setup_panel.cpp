#include "synth/keyboard_setup_panel.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "synth/keyboard_parts_panel.h"
#include "ui/qt_bindings.h"
#include "ui/qt_flow_layout.h"
#include "ui/qt_panel_parts.h"

namespace melvane {

namespace {

constexpr int groupSpace = 8, deviceWidth = 280, fileWidth = 200;  // pixels

QWidget* makeDevice(KeyboardControls& synth, QWidget* parent) {
    auto* const group = new KeyboardGroup("MIDI Device", parent);
    auto* const list = new QComboBox(group);
    list->setObjectName("Combo1");
    list->setToolTip("The device on which the keyboard sounds");
    list->setAccessibleName("MIDI Device");
    list->setMinimumWidth(deviceWidth);
    bind(*list, synth.Combo1);
    group->rows().addWidget(list);
    return group;
}

QWidget* makeScheme(KeyboardControls& synth, QWidget* parent) {
    auto* const group = new KeyboardGroup("Keyboard Setup File", parent);
    group->rows().addWidget(makeReadout("Label3", "The key scheme in use", synth.Label3, fileWidth, group));
    group->addRow(
        {makeKeyboardButton("Command1", "Open .key file", "Open a key scheme", synth.Command1, group),
         makeKeyboardButton("Command6", "Save Keyboard setup", "Save the labels as a key scheme",
                            synth.Command6, group)});
    return group;
}

QWidget* makeEditing(KeyboardControls& synth, QWidget* parent) {
    auto* const group = new KeyboardGroup("Labels of the keys", parent);
    group->addRow({makeTick("Check1", "Edit mode", "The labels can be changed; no key plays meanwhile",
                            synth.Check1, group),
                   makeKeyboardButton("CmdEd", "Edit Keyboard setup",
                                      "Begin or end the editing of the labels", synth.CmdEd, group)});
    group->rows().addWidget(makeCaption("Press a label on the keys and type its character.", group));
    return group;
}

}  // namespace

KeyboardSetupPanel::KeyboardSetupPanel(Studio& studio, QWidget* parent) : QWidget(parent) {
    setObjectName("Frame4");
    auto* const groups = new FlowLayout(groupSpace);
    setLayout(groups);
    groups->addWidget(makeDevice(studio.frmsynth, this));
    groups->addWidget(makeScheme(studio.frmsynth, this));
    groups->addWidget(makeEditing(studio.frmsynth, this));
}

}  // namespace melvane
