#include "shell/editing_toolbar_window.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QToolButton>

#include "shell/editing_fields_panel.h"
#include "shell/editing_toolbar_commands.h"
#include "ui/flat_button_panel.h"
#include "ui/qt_bindings.h"
#include "ui/qt_icons.h"

namespace melvane {

namespace {

// Pixels.
constexpr int outerMargin = 12, space = 8, rowMargin = 4;

constexpr int playButton = 4, stopButton = 7;

QFrame* makePanel(const char* name, AreaControl& area, QWidget* parent) {
    auto* const panel = new QFrame(parent);
    panel->setObjectName(name);
    panel->setProperty("panel", true);
    bindState(*panel, area);
    return panel;
}

QHBoxLayout* makeRow(QWidget& panel) {
    auto* const row = new QHBoxLayout(&panel);
    row->setContentsMargins(space, rowMargin, space, rowMargin);
    row->setSpacing(0);
    return row;
}

QToolButton* makeTracksButton(CheckControl& one, QWidget* parent) {
    auto* const button = new QToolButton(parent);
    button->setObjectName("Check3");
    button->setCheckable(true);
    button->setIconSize({FlatButton::iconSide, FlatButton::iconSide});
    button->setFixedSize(FlatButton::side, FlatButton::side);
    button->setFocusPolicy(Qt::TabFocus);
    bindShown(*button, one, [button, &one] {
        button->setChecked(one.ticked());
        button->setIcon(icon(one.ticked() ? "tracks_one" : "tracks_all"));
        button->setAccessibleName(QString::fromStdString(one.tip()));
    });
    QObject::connect(button, &QToolButton::toggled, button, [&one](bool on) { one.userPut(Value(on)); });
    return button;
}

}  // namespace

Form2::Form2(Studio& studio, EditingToolbarCommands& commands, QWidget* parent)
    : ToolWindow(studio, {.name = "Form2", .title = "Editing Toolbar", .resizes = false, .kind = Qt::Tool},
                 {studio.Form2.place, studio.shell.Form2Open}, parent),
      studio_(studio),
      commands_(commands) {
    auto* const rows = new QVBoxLayout(client());
    rows->setContentsMargins(outerMargin, outerMargin, outerMargin, outerMargin);
    rows->setSpacing(space);
    rows->addWidget(makeScoreButtons());
    rows->addWidget(makeEditingButtons());
    rows->addWidget(new EditingFieldsPanel(
        studio, [this](int index) { return makeButton(index); }, client()));
    rows->addStretch();
    holdContents();
}

// Parts

QFrame* Form2::makeScoreButtons() {
    auto* const panel = makePanel("ToolbCompose", studio_.Form2.ToolbCompose, client());
    auto* const row = makeRow(*panel);
    addButtons(*row, {1, 2, 3});
    row->addSpacing(space);
    addButtons(*row, {4, 5, 6, 7, 8});
    row->addSpacing(space);
    addButtons(*row, {9, 10});
    row->addStretch();
    return panel;
}

QFrame* Form2::makeEditingButtons() {
    auto& toolbar = studio_.Form2;
    auto* const panel = makePanel("toolbEdit", toolbar.toolbEdit, client());
    auto* const row = makeRow(*panel);
    addButtons(*row, {11});
    row->addSpacing(space);
    addButtons(*row, {12, 13, 14, 15});
    row->addSpacing(space);
    row->addWidget(makeTracksButton(toolbar.Check3, panel));
    row->addStretch();
    row->addWidget(makeIdleButton("TransposeBut(0)", toolbar.TransposeBut[0], panel));
    row->addWidget(makeIdleButton("TransposeBut(1)", toolbar.TransposeBut[1], panel));
    return panel;
}

void Form2::addButtons(QBoxLayout& row, std::initializer_list<int> indices) {
    for (const int index : indices) row.addWidget(makeButton(index));
}

QWidget* Form2::makeButton(int index) {
    const auto at = static_cast<std::size_t>(index);
    auto* const button =
        new FlatButton(index, studio_.Form2.Cmd2[at], studio_.Form2.ImgPic[at],
                       index == stopButton ? QStringLiteral("Stop playing") : QString(), client());
    connect(button, &FlatButton::released, this,
            [this, index](int mouse) { commands_.pictures.Cmd2_MouseUp(index, mouse, 0, 0, 0); });
    connect(button, &FlatButton::pressed, this, [this, index] { commands_.Cmd2_Click(index); });
    return button;
}

// Events

void Form2::load() {
    commands_.Form_Load();
    // Not the first button: a stray blank key would clear the score.
    findChild<QWidget*>(memberName("ImgPic", playButton))->setFocus();
}

void Form2::comeToFront() { commands_.Form_Activate(); }
void Form2::comeNear(int button) { commands_.pictures.ImgPic_MouseMove(button, 0, 0, 0, 0); }
void Form2::leaveButtons() { commands_.pictures.hideButtons(); }

void Form2::closeEvent(QCloseEvent* event) {
    event->accept();
    if (!loaded()) return;
    commands_.Form_QueryUnload();
    commands_.Form_Unload();
}

}  // namespace melvane
