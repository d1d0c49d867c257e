#include "shell/editing_toolbar_window.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QMouseEvent>
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
    : FramedWindow(studio, {"Form2", "Editing Toolbar", {}, false, Qt::Tool}, parent),
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
