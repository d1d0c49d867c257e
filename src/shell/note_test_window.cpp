#include "shell/note_test_window.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QGridLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <QScreen>

#include "shell/note_test.h"
#include "shell/tested_note_view.h"
#include "ui/qt_bindings.h"
#include "ui/qt_elided_label.h"
#include "ui/qt_panel_parts.h"
#include "ui/slider_panel.h"

namespace melvane {

namespace {

// Pixels.
constexpr int outerMargin = 12, space = 8, groupSpace = 16;
constexpr int fewestColumns = 36;

struct Effect {
    const char *name, *label, *tip;
    TextControl TestPanelControls::*value;
};

constexpr std::array<Effect, 4> effects{
    {{"Mod", "LblMod", "Modulation Value", &TestPanelControls::LblMod},
     {"Pan", "LblPan", "Pan Value", &TestPanelControls::LblPan},
     {"Reverb", "LblReverb", "Reverb Value", &TestPanelControls::LblReverb},
     {"Chorus", "LblChorus", "Chorus Value", &TestPanelControls::LblChorus}}};

QFrame* makeGround(const char* name, QWidget* parent) {
    auto* const ground = new QFrame(parent);
    ground->setObjectName(name);
    return ground;
}

/// Whether the mouse is over the part itself and not over one that lies on it, whose events come here too.
bool isBare(const QObject& part, const QMouseEvent& mouse) {
    return static_cast<const QWidget&>(part).childAt(mouse.position().toPoint()) == nullptr;
}

}  // namespace

Form5::Form5(Studio& studio, NoteTest& panel, QWidget* parent)
    : FramedWindow(studio, {.name = "Form5", .title = "Static note Test", .resizes = false, .kind = Qt::Tool},
                   parent),
      studio_(studio),
      panel_(panel) {
    auto* const rows = new QVBoxLayout(client());
    rows->setContentsMargins(outerMargin + edgeWidth(), outerMargin, outerMargin + edgeWidth(), outerMargin);
    rows->setSpacing(space);
    rows->addWidget(makeNote());
    rows->addWidget(makeColumns());
    rows->addWidget(makeEffects());
    for (const char* const part : {"Pic2", "Picture10", "Pt1", "LblNoteName", "Text5"}) {
        findChild<QWidget*>(part)->installEventFilter(this);
    }
    studio.Form5.window.changed = [this] {
        if (!studio_.Form5.loaded) close();
    };
    panel.dragWindow = [this] { DragWindow(); };
}

Form5::~Form5() {
    studio_.Form5.window.changed = nullptr;
    studio_.Form5.noteChanged = nullptr;
    panel_.dragWindow = nullptr;
}

/// The note in words.
QFrame* Form5::makeNote() {
    auto& model = studio_.Form5;
    auto* const ground = makeGround("Pic2", client());
    QGridLayout& grid = *makePanelGrid(*ground);
    auto* const test = new QCheckBox("Test", ground);
    test->setObjectName("Check4");
    test->setToolTip("Static note Test");
    bind(*test, model.Check4);
    auto* const instrument = new InstrumentField(model.Text5, ground);
    instrument->setToolTip("Instrument of the note");
    instrument->setAccessibleName("Instrument of the note");
    instrument->doubleClicked = [this] { panel_.Text5_DblClick(); };
    auto* const change = new QPushButton("Change instrument", ground);
    change->setObjectName("CmdInst");
    change->setToolTip("Change instrument");
    bindState(*change, model.CmdInst);
    connect(change, &QPushButton::clicked, this, [this] { panel_.Text5_DblClick(); });
    grid.addWidget(makeCaption("Channel", ground), 0, 0);
    grid.addWidget(new ChannelBox(model.LblTrk, ground), 0, 1);
    grid.addWidget(makeCaption("  Column", ground), 0, 2);
    grid.addWidget(makeReadout("LblNote", "Note Number", model.LblNote, 52, ground), 0, 3);
    grid.addWidget(makeCaption("  Note", ground), 0, 4);
    grid.addWidget(makeReadout("LblNoteName", "Note Name", model.LblNoteName, 44, ground), 0, 5);
    grid.addWidget(test, 0, 7, Qt::AlignRight);
    grid.addWidget(makeCaption("Instrument", ground), 1, 0);
    grid.addWidget(instrument, 1, 1, 1, 5);
    grid.addWidget(change, 1, 6, 1, 2);
    grid.setColumnStretch(6, 1);
    bindState(*ground, model.Pic2);
    return ground;
}

/// The note as a picture, over the two strips of its columns, and the chord.
QFrame* Form5::makeColumns() {
    auto& model = studio_.Form5;
    auto* const ground = makeGround("Picture4", client());
    QGridLayout& grid = *makePanelGrid(*ground);
    auto* const note = new TestedNoteView(studio_, ground);
    auto* const selector = new TestedSelectorView(studio_, ground);
    auto* const polynotes = new TestedPolynotesView(studio_, ground);
    selector->mouse = mouseHandlers(panel_, &NoteTest::Pic2a_MouseDown, &NoteTest::Pic2a_MouseMove,
                                    &NoteTest::Pic2a_MouseUp);
    polynotes->mouse =
        mouseHandlers(panel_, &NoteTest::Pic3_MouseDown, &NoteTest::Pic3_MouseMove, &NoteTest::Pic3_MouseUp);
    int row = 0;
    for (QWidget* const view : std::array<QWidget*, 3>{note, selector, polynotes}) {
        view->setMinimumWidth(fewestColumns * Page::columnWidth);
        grid.addWidget(view, row++, 0, 1, 2);
    }
    auto* const chords = new QComboBox(ground);
    chords->setObjectName("Combo3");
    chords->setToolTip("Chord Selector");
    chords->setAccessibleName("Chord Selector");
    chords->setMinimumWidth(160);
    bind(*chords, model.Combo3);
    grid.addWidget(makeCaption("Chord", ground), row, 0);
    grid.addWidget(chords, row, 1, Qt::AlignLeft);
    grid.setColumnStretch(1, 1);
    bindState(*ground, model.Picture4);
    model.noteChanged = [note, selector, polynotes] {
        note->update();
        selector->update();
        polynotes->update();
    };
    return ground;
}

/// The note's effects in numbers, and the panel's volume.
QFrame* Form5::makeEffects() {
    auto& model = studio_.Form5;
    auto* const ground = makeGround("Picture10", client());
    QGridLayout& grid = *makePanelGrid(*ground);
    for (int at = 0; at < static_cast<int>(effects.size()); ++at) {
        const auto& [name, label, tip, value] = effects[static_cast<std::size_t>(at)];
        grid.addWidget(makeCaption(name, ground), 0, at);
        grid.addWidget(makeReadout(label, tip, model.*value, 44, ground), 1, at);
    }
    const SliderBox volume =
        makeSlider({"Volume", "Note Volume", "lblVolume", "vol3"}, model.lblVolume, model.vol3, ground);
    volume.track->pressed = [this](int, double) { panel_.pressVolume(); };
    volume.track->moved = [this](int button, double X) { panel_.moveVolume(button, X); };
    volume.track->released = [this](int, double) { panel_.releaseVolume(); };
    volume.track->stepped = [&model](int steps) { model.lblVolume.step(steps); };
    grid.setColumnMinimumWidth(static_cast<int>(effects.size()), groupSpace);
    const int last = static_cast<int>(effects.size()) + 1;
    grid.addLayout(volume.layout, 0, last, 2, 1);
    grid.setColumnStretch(last, 1);
    bindState(*ground, model.Picture10);
    return ground;
}

/// It is as large as its contents are.
void Form5::fit() {
    client()->layout()->activate();
    setFixedSize(sizeAround(client()->layout()->sizeHint()));
}

/// Once after each load.
void Form5::centre() {
    const QRect room = (parentWidget() != nullptr ? parentWidget()->screen() : screen())->availableGeometry();
    move(room.center() - rect().center());
}

void Form5::showEvent(QShowEvent* event) {
    FramedWindow::showEvent(event);
    if (event->spontaneous()) return;
    if (!studio_.Form5.loaded) {
        fit();
        panel_.Form_Load();
        centre();
        findChild<QWidget*>("Check4")->setFocus();
    }
    studio_.Form5.window.setVisible(true);
}

void Form5::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    if (!event->spontaneous()) studio_.Form5.window.setVisible(false);
}

void Form5::closeEvent(QCloseEvent* event) {
    event->accept();
    if (studio_.Form5.loaded) panel_.Form_Unload();
}

void Form5::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) return panel_.Form_Unload();
    QWidget::keyPressEvent(event);
}

/// A double click on a ground or on the note's name closes the panel. The text box, which keeps the mouse to
/// itself, hands it on to the window too, to be moved by it.
bool Form5::eventFilter(QObject* watched, QEvent* event) {
    const bool doubleClicked = event->type() == QEvent::MouseButtonDblClick;
    if (watched->objectName() == "Text5") {
        if (!doubleClicked) passOnMouse(*event);
    } else if (doubleClicked && static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton &&
               isBare(*watched, static_cast<QMouseEvent&>(*event))) {
        panel_.Form_Unload();
        return true;
    }
    return FramedWindow::eventFilter(watched, event);
}

void Form5::passOnMouse(const QEvent& event) {
    const auto* const mouse = dynamic_cast<const QMouseEvent*>(&event);
    if (mouse == nullptr) return;
    QMouseEvent onWindow(mouse->type(), mapFromGlobal(mouse->globalPosition()), mouse->globalPosition(),
                         mouse->button(), mouse->buttons(), mouse->modifiers());
    if (mouse->type() == QEvent::MouseButtonPress) mousePressEvent(&onWindow);
    if (mouse->type() == QEvent::MouseMove) mouseMoveEvent(&onWindow);
    if (mouse->type() == QEvent::MouseButtonRelease) mouseReleaseEvent(&onWindow);
}

}  // namespace melvane
