#include "shell/note_readout_panel.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>
#include <string>
#include <vector>

#include "core/instrument_names.h"
#include "shell/engine.h"
#include "ui/qt_bindings.h"
#include "ui/qt_elided_label.h"
#include "ui/qt_icons.h"
#include "ui/qt_panel_parts.h"

namespace melvane {

namespace {

/// The widest of `texts`, for a label to have room for.
template <class Texts>
QString widest(const QFontMetrics& metrics, const Texts& texts) {
    QString found;
    for (const auto& entry : texts) {
        const QString text = QString::fromStdString(std::string(entry));
        if (metrics.horizontalAdvance(text) > metrics.horizontalAdvance(found)) found = text;
    }
    return found;
}

QToolButton* makeOpener(const char* name, const char* iconName, const char* tip, QWidget* parent) {
    auto* const button = new QToolButton(parent);
    button->setObjectName(name);
    button->setIcon(icon(iconName));
    button->setToolTip(tip);
    button->setAccessibleName(tip);
    button->setAutoRaise(true);
    button->setFixedSize(24, 24);
    button->setIconSize({18, 18});
    button->setFocusPolicy(Qt::TabFocus);
    return button;
}

}  // namespace

NoteReadoutPanel::NoteReadoutPanel(Studio& studio, QWidget* parent) : QFrame(parent) {
    auto& model = studio.form1;
    QGridLayout& grid = *makePanelGrid(*this);
    grid.addWidget(makeCaption("Channel", this), 0, 0);
    grid.addWidget(new ChannelBox(model.LblTrk, this), 0, 1);
    grid.addWidget(makeCaption("Note", this), 0, 2);
    grid.addWidget(makeReadout("Label5", "Note Number & Name", model.Label5, 68, this), 0, 3);
    grid.addWidget(makeReadout("LblNoteName", "Note Name", model.LblNoteName, 36, this), 0, 4);
    grid.addWidget(makeCaption("Velocity", this), 0, 5);
    grid.addWidget(makeReadout("LblVol", "Note Velocity", model.LblVol, 40, this), 0, 6);
    grid.addWidget(makeCaption("Column", this), 1, 0);
    grid.addWidget(makeReadout("LblNote", "Note Number", model.LblNote, 44, this), 1, 1);
    auto* const instrument = makeReadout("LblInst", "Instrument", model.LblInst, 32, this);
    instrument->setRoomFor(widest(fontMetrics(), melodyInstrumentNames));
    grid.addWidget(instrument, 1, 2, 1, 5);
    grid.setColumnStretch(3, 1);
}

ChordPanel::ChordPanel(Studio& studio, QWidget* parent) : QFrame(parent) {
    QGridLayout& grid = *makePanelGrid(*this);
    auto* const list = new QComboBox(this);
    list->setObjectName("Combo3");
    list->setToolTip("Chord Selector");
    list->setAccessibleName("Chord Selector");
    list->setMinimumWidth(130);
    list->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    bind(*list, studio.form1.Combo3);
    grid.addWidget(makeCaption("Chord", this), 0, 0);
    grid.addWidget(list, 0, 1);
    grid.addWidget(makeReadout("Label7", "Chord Name", studio.form1.Label7, 196, this), 1, 0, 1, 2);
    grid.setColumnStretch(1, 1);
}

void ChordPanel::attach(Engine& engine) {
    std::vector<std::string> texts;
    for (int chord = 0; chord < findChild<QComboBox*>("Combo3")->count(); ++chord) {
        texts.push_back(engine.chords.textOf(chord));
    }
    static_cast<ElidedLabel*>(findChild<QLabel*>("Label7"))->setRoomFor(widest(fontMetrics(), texts));
}

NoteInstrumentPanel::NoteInstrumentPanel(Studio& studio, QWidget* parent) : QFrame(parent) {
    auto& model = studio.form1;
    QGridLayout& grid = *makePanelGrid(*this);
    auto* const instrument = new InstrumentField(model.Text5, this);
    instrument->setToolTip("Instrument Selector");
    instrument->setAccessibleName("Instrument Selector");
    auto* const change = new QPushButton("Change", this);
    change->setObjectName("CmdInst");
    change->setToolTip("Change instrument");
    bindState(*change, model.CmdInst);
    auto* const effects = new QCheckBox("Effects", this);
    effects->setObjectName("Check1");
    effects->setToolTip("Single Note Effects");
    bind(*effects, model.Check1);
    auto* const test = new QCheckBox("Static note Test", this);
    test->setObjectName("Check4");
    test->setToolTip("Static note Test");
    bind(*test, model.Check4);
    auto* const opener = makeOpener("CmdTest", "note_test", "Open the note test panel", this);
    auto* const undo = new QPushButton("Undo Effects", this);
    undo->setObjectName("CmdUndo");
    undo->setToolTip("Clear all chords and effects of the whole score");
    undo->setEnabled(false);
    grid.addWidget(makeCaption("Instrument", this), 0, 0);
    grid.addWidget(instrument, 0, 1);
    grid.addWidget(change, 0, 2);
    grid.addWidget(effects, 1, 0);
    auto* const testRow = new QHBoxLayout;
    testRow->setSpacing(4);
    testRow->addWidget(test);
    testRow->addWidget(opener);
    testRow->addStretch();
    grid.addLayout(testRow, 1, 1);
    grid.addWidget(undo, 1, 2);
    grid.setColumnStretch(1, 1);
}

void NoteInstrumentPanel::attach(Engine& engine) {
    auto* const undo = findChild<QPushButton*>("CmdUndo");
    undo->setEnabled(true);
    const auto pick = [&engine] { engine.noteInstrument.Text5_DblClick(); };
    connect(findChild<QPushButton*>("CmdInst"), &QPushButton::clicked, this, pick);
    static_cast<InstrumentField*>(findChild<QLineEdit*>("Text5"))->doubleClicked = pick;
    connect(findChild<QToolButton*>("CmdTest"), &QToolButton::clicked, this,
            [&engine] { engine.noteTest.open(); });
    connect(undo, &QPushButton::clicked, this, [&engine] { engine.score.ClearEffects(); });
}

}  // namespace melvane
