#include "recorder/recording_panel.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QPushButton>
#include <QRadioButton>

#include "ui/panel_group_panel.h"
#include "ui/qt_bindings.h"
#include "ui/qt_icons.h"
#include "ui/qt_panel_parts.h"

namespace melvane {

namespace {

constexpr int space = 8, buttonWidth = 148;  // pixels

QPushButton* makeButton(const char* name, ButtonControl& control, QWidget* parent, const char* art = "") {
    auto* const button = new QPushButton(parent);
    button->setObjectName(name);
    button->setMinimumWidth(buttonWidth);
    if (*art != '\0') button->setIcon(icon(art));
    bind(*button, control);
    return button;
}

QRadioButton* makeSource(const char* name, const char* text, CheckControl& source, QWidget* parent) {
    auto* const option = makeOption(name, text, QString(), source, parent);
    option->setAccessibleName(QString());  // two tips are alike; the text tells more
    return option;
}

QComboBox* makeList(const char* name, ListControl& entries, QWidget* parent) {
    auto* const list = new QComboBox(parent);
    list->setObjectName(name);
    list->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    bind(*list, entries);
    return list;
}

/// A caption over its list.
void addList(PanelGroup& group, const char* caption, QComboBox* list) {
    list->setAccessibleName(caption);
    group.rows().addWidget(makeCaption(caption, &group));
    group.addRow({list});
}

}  // namespace

RecordingPanel::RecordingPanel(RecordControls& Record, QWidget* parent) : QWidget(parent), Record_(Record) {
    auto* const grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(space);
    grid->addWidget(makeSources(), 0, 0);
    grid->addWidget(makeControls(), 0, 1);
    grid->addWidget(makeRecordingFormat(), 1, 0);
    grid->addWidget(makeEncoderFormat(), 1, 1);
    grid->addWidget(makeLog(), 2, 0);
    grid->addWidget(makeMixer(), 2, 1);
}

QWidget* RecordingPanel::makeSources() {
    auto* const group = new PanelGroup("Recording Source:", this);
    group->addRow({makeSource("Optsourcesng", "Notes (SNG)", Record_.Optsourcesng, group)});
    group->addRow({makeSource("Optsourcemid", "Files (MID)", Record_.Optsourcemid, group)});
    group->addRow({makeSource("Optsourcekeyboard", "Keyboard", Record_.Optsourcekeyboard, group)});
    return group;
}

QWidget* RecordingPanel::makeControls() {
    auto* const group = new PanelGroup("Recording Controls", this);
    group->addRow({makeButton("CmdrecordSNG", Record_.CmdrecordSNG, group, "recording")});
    group->addRow({makeButton("CmdStopRecording", Record_.CmdStopRecording, group, "stop")});
    group->addRow({makeButton("Command20", Record_.Command20, group)});
    return group;
}

QWidget* RecordingPanel::makeRecordingFormat() {
    auto* const group = new PanelGroup("Recording", this);
    addList(*group, "WAV Recording Format", makeList("cbxFormat", Record_.cbxFormat, group));
    group->addRow({makeTick("Check4", "Show Note position", "", Record_.Check4, group)});
    return group;
}

QWidget* RecordingPanel::makeEncoderFormat() {
    auto* const group = new PanelGroup("Encoding", this);
    auto* const quality = makeList("Combo3", Record_.Combo3, group);
    auto* const bitrate = makeList("Combo4", Record_.Combo4, group);
    quality->setAccessibleName("MP3 Quality");
    bitrate->setAccessibleName("MP3 Bitrate");
    auto* const lists = new QGridLayout;
    lists->setHorizontalSpacing(space);
    lists->addWidget(makeCaption("MP3 Quality", group), 0, 0);
    lists->addWidget(makeCaption("MP3 Bitrate", group), 0, 1);
    lists->addWidget(quality, 1, 0);
    lists->addWidget(bitrate, 1, 1);
    lists->setColumnStretch(2, 1);
    group->rows().addLayout(lists);
    group->addRow({makeTick("Check2", "Auto-Encode to MP3", "", Record_.Check2, group),
                   makeTick("Check3", "Delete WAV file", "", Record_.Check3, group)});
    return group;
}

QWidget* RecordingPanel::makeLog() {
    auto* const group = new PanelGroup("View Recording Log", this);
    group->addRow({makeButton("CmdLog", Record_.CmdLog, group)});
    return group;
}

QWidget* RecordingPanel::makeMixer() {
    auto* const group = new PanelGroup("Adjust System  Recording Settings", this);
    group->addRow({makeButton("Command1", Record_.Command1, group)});
    return group;
}

}  // namespace melvane
