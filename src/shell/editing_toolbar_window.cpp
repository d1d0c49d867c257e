#include "shell/editing_toolbar_window.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QToolButton>

#include "shell/editing_toolbar_commands.h"
#include "ui/flat_button_panel.h"
#include "ui/qt_bindings.h"
#include "ui/qt_icons.h"
#include "ui/spin_bar_panel.h"

namespace melvane {

namespace {

// Pixels.
constexpr int outerMargin = 12, space = 8, rowMargin = 4, panelMargin = 12;
constexpr int labelSpace = 4, fieldWidth = 38;

constexpr int playButton = 4, stopButton = 7;

QFrame* makePanel(const char* name, AreaControl& area, QWidget* parent) {
    auto* const panel = new QFrame(parent);
    panel->setObjectName(name);
    panel->setProperty("panel", true);
    bindState(*panel, area);
    return panel;
}

QWidget* makeGround(const char* name, AreaControl& area, QWidget* parent) {
    auto* const ground = new QWidget(parent);
    ground->setObjectName(name);
    bindState(*ground, area);
    return ground;
}

QHBoxLayout* makeRow(QWidget& panel) {
    auto* const row = new QHBoxLayout(&panel);
    row->setContentsMargins(space, rowMargin, space, rowMargin);
    row->setSpacing(0);
    return row;
}

/// A button that is drawn and does nothing.
QToolButton* makeIdleButton(const QString& name, const QString& picture, PictureControl& control,
                            QWidget* parent) {
    auto* const button = new QToolButton(parent);
    button->setObjectName(name);
    button->setIcon(icon(picture));
    button->setIconSize({FlatButton::iconSide, FlatButton::iconSide});
    button->setFixedSize(FlatButton::side, FlatButton::side);
    button->setAutoRaise(true);
    bindState(*button, control);
    button->setAccessibleName(button->toolTip());
    return button;
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

QCheckBox* makeCheck(const char* name, const char* caption, CheckControl& check, QWidget* parent) {
    auto* const box = new QCheckBox(caption, parent);
    box->setObjectName(name);
    bind(*box, check);
    return box;
}

}  // namespace

Form2::Form2(Studio& studio, EditingToolbarCommands& commands, QWidget* parent)
    : FramedWindow(studio, {"Form2", "Editing Toolbar", {}, false, Qt::Tool}, parent),
      studio_(studio),
      commands_(commands) {
    auto* const rows = new QVBoxLayout(client());
    rows->setContentsMargins(outerMargin, outerMargin, outerMargin, outerMargin);
    rows->setSpacing(space);
    rows->addWidget(makeScoreButtons());
    rows->addWidget(makeEditingButtons());
    rows->addWidget(makeFields());
    rows->addStretch();
    for (QWidget* const part : findChildren<QWidget*>()) {
        part->setMouseTracking(true);
        part->installEventFilter(this);
    }
    setMouseTracking(true);
    resize(sizeAround(rows->sizeHint()));
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
    row->addWidget(makeIdleButton("TransposeBut(0)", "transpose_up", toolbar.TransposeBut[0], panel));
    row->addWidget(makeIdleButton("TransposeBut(1)", "transpose_down", toolbar.TransposeBut[1], panel));
    return panel;
}

QFrame* Form2::makeFields() {
    auto* const panel = makePanel("Picture2", studio_.Form2.Picture2, client());
    auto* const row = new QHBoxLayout(panel);
    row->setContentsMargins(panelMargin, panelMargin, panelMargin, panelMargin);
    row->setSpacing(2 * space);
    row->addWidget(makeDuplication(panel));
    auto* const line = new QFrame(panel);
    line->setProperty("divider", true);
    line->setFixedWidth(1);
    row->addWidget(line);
    row->addWidget(makeSpaces(panel));
    return panel;
}

QWidget* Form2::makeSpaces(QWidget* parent) {
    auto* const ground = makeGround("Picture5", studio_.Form2.Picture5, parent);
    auto* const rows = new QVBoxLayout(ground);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(rowMargin);
    auto* const field = new QHBoxLayout;
    field->setSpacing(labelSpace);
    addField(*field, 3, "Text1", studio_.Form2.Text1);
    auto* const button = new QHBoxLayout;
    button->addStretch();
    addButtons(*button, {16});
    rows->addLayout(field);
    rows->addLayout(button);
    return ground;
}

QWidget* Form2::makeDuplication(QWidget* parent) {
    auto& toolbar = studio_.Form2;
    auto* const ground = makeGround("Picture6", toolbar.Picture6, parent);
    auto* const rows = new QVBoxLayout(ground);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(rowMargin);
    auto* const fields = new QHBoxLayout;
    fields->setSpacing(labelSpace);
    addField(*fields, 0, "Text3", toolbar.Text3);
    addBar(*fields, "VScroll2", toolbar.VScroll2, toolbar.Text3);
    fields->addSpacing(space);
    addField(*fields, 1, "Text4", toolbar.Text4);
    addBar(*fields, "VScroll4", toolbar.VScroll4, toolbar.Text4);
    fields->addSpacing(space);
    addField(*fields, 2, "Text5", toolbar.Text5);
    addBar(*fields, "VScroll3", toolbar.VScroll3, toolbar.Text5);
    auto* const channels = new QHBoxLayout;
    channels->setSpacing(2 * space);
    channels->addWidget(makeCheck("Check2", "Melody", toolbar.Check2, ground));
    channels->addWidget(makeCheck("Check1", "Percussion", toolbar.Check1, ground));
    channels->addStretch();
    auto* const buttons = new QHBoxLayout;
    buttons->setSpacing(0);
    addButtons(*buttons, {17});
    buttons->addWidget(makeIdleButton("Command7", "copy_notes", toolbar.Command7, ground));
    channels->addLayout(buttons);
    rows->addLayout(fields);
    rows->addLayout(channels);
    return ground;
}

void Form2::addButtons(QBoxLayout& row, std::initializer_list<int> indices) {
    for (const int index : indices) {
        const auto at = static_cast<std::size_t>(index);
        auto* const button =
            new FlatButton(index, studio_.Form2.Cmd2[at], studio_.Form2.ImgPic[at],
                           index == stopButton ? QStringLiteral("Stop playing") : QString(), client());
        connect(button, &FlatButton::released, this,
                [this, index] { commands_.pictures.Cmd2_MouseUp(index, 1, 0, 0, 0); });
        connect(button, &FlatButton::pressed, this, [this, index] { commands_.Cmd2_Click(index); });
        row.addWidget(button);
    }
}

void Form2::addField(QBoxLayout& row, std::size_t label, const char* name, TextControl& text) {
    auto& caption = studio_.Form2.Label6[label];
    auto* const words = new QLabel(client());
    words->setObjectName(memberName("Label6", static_cast<int>(label)));
    bind(*words, caption);
    auto* const field = new QLineEdit(client());
    field->setObjectName(name);
    field->setAccessibleName(QString::fromStdString(caption.text()));
    field->setMaxLength(static_cast<int>(text.longest()));
    field->setFixedWidth(fieldWidth);
    bind(*field, text);
    words->setBuddy(field);
    row.addWidget(words);
    row.addWidget(field);
}

void Form2::addBar(QBoxLayout& row, const char* name, ScrollControl& bar, const TextControl& text) {
    auto* const arrows = new SpinBar(bar, client());
    arrows->setObjectName(name);
    arrows->setToolTip(QString::fromStdString(text.tip()));
    arrows->setAccessibleName(arrows->toolTip());
    row.addWidget(arrows);
}

// Events

bool Form2::eventFilter(QObject* watched, QEvent* event) {
    const bool moved = event->type() == QEvent::MouseMove &&
                       static_cast<const QMouseEvent&>(*event).buttons() == Qt::NoButton;
    // A larger font needs a larger window.
    if (watched == client() && event->type() == QEvent::LayoutRequest) {
        resize(size().expandedTo(sizeAround(client()->layout()->sizeHint())));
    }
    return (moved && handleMove(*watched)) || FramedWindow::eventFilter(watched, event);
}

/// Whether the move ends here: over a flat button, else it would reach the ground behind.
bool Form2::handleMove(const QObject& watched) {
    const auto* const flat = qobject_cast<const FlatButton*>(watched.parent());
    if (flat != nullptr && &watched == flat->button()) return true;
    if (flat != nullptr && flat->picture()->isEnabled()) {
        commands_.pictures.ImgPic_MouseMove(flat->index(), 0, 0, 0, 0);
        return true;
    }
    commands_.pictures.hideButtons();
    return false;
}

bool Form2::event(QEvent* event) {
    const bool known = FramedWindow::event(event);
    const auto type = event->type();
    if (!loaded()) return known;
    if (type == QEvent::WindowActivate) commands_.Form_Activate();
    if (type == QEvent::Leave || type == QEvent::MouseMove) commands_.pictures.hideButtons();
    return known;
}

void Form2::showEvent(QShowEvent* event) {
    FramedWindow::showEvent(event);
    if (loaded()) return;
    auto& place = studio_.Form2.place;
    place.width = width() * double{twipsAPixel};
    place.height = height() * double{twipsAPixel};
    commands_.Form_Load();
    moveOntoScreen(place.left, place.top);
    tellPlace();
    // Not the first button: a stray blank key would clear the score.
    findChild<QWidget*>(memberName("ImgPic", playButton))->setFocus();
}

void Form2::closeEvent(QCloseEvent* event) {
    event->accept();
    if (!loaded()) return;
    commands_.Form_QueryUnload();
    commands_.Form_Unload();
}

void Form2::tellPlace() {
    studio_.Form2.place = {x() * double{twipsAPixel}, y() * double{twipsAPixel},
                           width() * double{twipsAPixel}, height() * double{twipsAPixel}};
}

void Form2::moveEvent(QMoveEvent* event) {
    FramedWindow::moveEvent(event);
    if (loaded()) tellPlace();
}

void Form2::resizeEvent(QResizeEvent* event) {
    FramedWindow::resizeEvent(event);
    if (loaded()) tellPlace();
}

}  // namespace melvane
