#include "shell/instrument_picker_window.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QMouseEvent>
#include <QPushButton>
#include <QScreen>
#include <QSignalBlocker>

#include "shell/instrument_picker.h"
#include "ui/qt_window_place.h"

namespace melvane {

namespace {

constexpr QSize usualSize(480, 440);
constexpr int outerMargin = 12, space = 8;  // pixels

void showList(QListWidget& widget, const ListControl& list) {
    const QSignalBlocker quiet(widget);
    if (widget.count() != static_cast<int>(list.items().size())) {
        widget.clear();
        for (const auto& item : list.items()) widget.addItem(QString::fromStdString(item));
    }
    widget.setCurrentRow(list.index());
    if (list.index() < 0) widget.clearSelection();
}

QPushButton* makeButton(const char* name, const QString& text, const QString& tip, QWidget* parent) {
    auto* const button = new QPushButton(text, parent);
    button->setObjectName(name);
    button->setToolTip(tip);
    button->setAutoDefault(true);
    return button;
}

}  // namespace

FrmInst::FrmInst(Studio& studio, InstrumentPicker& picker, QWidget* parent)
    : FramedWindow(studio, {.name = "FrmInst", .title = "Instruments", .resizes = true, .kind = Qt::Dialog},
                   parent),
      studio_(studio),
      picker_(picker) {
    setWindowModality(Qt::ApplicationModal);
    auto* const grid = new QGridLayout(client());
    grid->setContentsMargins(outerMargin, outerMargin, outerMargin, outerMargin);
    grid->setSpacing(space);
    grid->addWidget(new QLabel("Melody", client()), 0, 0);
    grid->addWidget(new QLabel("Percussion (double click)", client()), 0, 1);
    LstInstruments_ = makeList("LstInstruments", "Melody instruments", studio.FrmInst.LstInstruments);
    LstInstruments2_ = makeList("LstInstruments2", "Percussion sounds, a double click takes one",
                                studio.FrmInst.LstInstruments2);
    grid->addWidget(LstInstruments_, 1, 0);
    grid->addWidget(LstInstruments2_, 1, 1);
    auto* const ok = makeButton("CmdOk", "OK", "Take the melody instrument", client());
    auto* const cancel = makeButton("CmdCancel", "Cancel", "Leave the instruments as they are", client());
    auto* const row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(ok);
    row->addWidget(cancel);
    grid->addLayout(row, 2, 0, 1, 2);
    connect(ok, &QPushButton::clicked, this, [this] { picker_.CmdOk_Click(); });
    connect(cancel, &QPushButton::clicked, this, [this] { picker_.CmdCancel_Click(); });
    resize(sizeAround(usualSize));
    studio.FrmInst.window.changed = [this] { follow(); };
}

QListWidget* FrmInst::makeList(const char* name, const char* title, ListControl& list) {
    auto* const widget = new QListWidget(client());
    widget->setObjectName(name);
    widget->setAccessibleName(title);
    widget->setToolTip(title);
    widget->viewport()->installEventFilter(this);
    list.changed = [widget, &list] { showList(*widget, list); };
    // Not the current row: a list that gets the focus has one without a choice.
    connect(widget, &QListWidget::itemSelectionChanged, this, [widget, &list] {
        const auto chosen = widget->selectedItems();
        list.set(chosen.isEmpty() ? -1 : widget->row(chosen.front()));
    });
    return widget;
}

void FrmInst::follow() {
    if (!studio_.FrmInst.window.visible()) return hide();
    if (!studio_.FrmInst.placed) centre();
    studio_.FrmInst.placed = true;
    putBeforeActiveWindow(*this);
    show();
    LstInstruments_->setFocus();
    LstInstruments_->scrollToItem(LstInstruments_->currentItem(), QAbstractItemView::PositionAtCenter);
}

/// Once after each load: a place that the user chose is kept.
void FrmInst::centre() {
    const QRect room = (parentWidget() != nullptr ? parentWidget()->screen() : screen())->availableGeometry();
    move(room.center() - rect().center());
}

void FrmInst::showEvent(QShowEvent* event) {
    FramedWindow::showEvent(event);
    if (event->spontaneous()) return;
    if (!studio_.FrmInst.loaded) picker_.Form_Load();
    studio_.FrmInst.window.setVisible(true);
}

void FrmInst::closeEvent(QCloseEvent* event) {
    event->accept();
    if (studio_.FrmInst.window.visible()) picker_.CmdCancel_Click();
    if (studio_.FrmInst.loaded) picker_.Form_Unload();
}

/// A double click of the left button on an entry takes it.
bool FrmInst::eventFilter(QObject* watched, QEvent* event) {
    for (const auto* const list : {LstInstruments_, LstInstruments2_}) {
        if (watched != list->viewport() || event->type() != QEvent::MouseButtonDblClick) continue;
        const auto& mouse = static_cast<const QMouseEvent&>(*event);
        if (mouse.button() != Qt::LeftButton || list->itemAt(mouse.position().toPoint()) == nullptr) break;
        list == LstInstruments_ ? picker_.CmdOk_Click() : picker_.LstInstruments2_DblClick();
        return true;
    }
    return FramedWindow::eventFilter(watched, event);
}

void FrmInst::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Escape:
            return picker_.CmdCancel_Click();
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return focusWidget() == LstInstruments2_ ? picker_.LstInstruments2_DblClick()
                                                     : picker_.CmdOk_Click();
        default:
            QWidget::keyPressEvent(event);
    }
}

}  // namespace melvane
