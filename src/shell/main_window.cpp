#include "shell/main_window.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QLabel>
#include <QLayout>
#include <QMouseEvent>
#include <QScreen>
#include <algorithm>

#include "core/mouse_buttons.h"
#include "core/side_bar_view.h"
#include "core/strip_view.h"
#include "core/tableau_view.h"
#include "core/tablet_view.h"
#include "shell/channel_labels_panel.h"
#include "shell/engine.h"
#include "shell/main_toolbar.h"
#include "shell/qt_keys.h"
#include "shell/quick_compose_panel.h"
#include "shell/tablet_panel.h"
#include "shell/top_bar_panel.h"
#include "ui/qt_bindings.h"

namespace melvane {

namespace {

// Pixels.
constexpr int usualTableauHeight = 60, tableauSpace = 4;
constexpr int barMargin = 8;
constexpr int smallestTablet = 180;  // with what lies around it; the tableau leaves it so much

}  // namespace

form1::form1(Studio& studio)
    : FramedWindow(studio,
                   {.name = "form1",
                    .title = "Melvane  v2.3 ",
                    .buttons = {.minimises = true, .maximises = true, .helps = true},
                    .resizes = true,
                    .kind = Qt::Window},
                   nullptr),
      studio_(studio),
      toolbar_(new MainToolbar(studio, client())),
      Picmain_(new TabletPanel(studio, client())),
      tableauName_(new QLabel("Beats", client())),
      Beatbox_(new TableauView(studio, client())),
      quickCompose_(new QuickComposePanel(studio, client())) {
    client()->installEventFilter(this);
    tableauName_->setAlignment(Qt::AlignRight | Qt::AlignTop);
    tableauName_->setContentsMargins(0, 3, 0, 0);
    tableauName_->setIndent(5);
    auto& tableau = studio.form1.Beatbox;
    // Its height and visibility are the engine's to change, and move the rest of the window.
    bindShown(*Beatbox_, tableau, [this] {
        studio_.form1.Check2.set(studio_.form1.Beatbox.visible());
        if (tableauHeight() != laidOutTableau_) layOut();
    });
    studio.form1.Check2.acted = [&studio] { studio.form1.Beatbox.setVisible(studio.form1.Check2.ticked()); };
    Picmain_->tablet().setFocus();
}

form1::~form1() = default;

void form1::attach(Engine& engine) {
    engine_ = &engine;
    useSettings(engine.settings);
    useLoop(engine.outside.loop);
    setHelp([&engine] { engine.menus.Cmdhelp_Click(); });
    toolbar_->attach(engine);
    Picmain_->attach(engine);
    Beatbox_->mouse = mouseHandlers(engine.tableau, &TableauEntry::Beatbox_MouseDown,
                                    &TableauEntry::Beatbox_MouseMove, &TableauEntry::Beatbox_MouseUp);
    Beatbox_->gotFocus = [&engine] { engine.tableau.Beatbox_GotFocus(); };
    quickCompose_->attach(engine);
    addKeys(*this, engine);
    layOut();
}

// Pictures

void form1::DrawNoteArray() {
    Picmain_->tablet().redraw();
    DrawTopBar();
    quickCompose_->channels().showCurrentTrack();
}

void form1::clearTablet() { Picmain_->tablet().clearTablet(); }
void form1::GetRow(int row) { Picmain_->tablet().GetRow(row); }
void form1::PutRow(int row) { Picmain_->tablet().PutRow(row); }
void form1::GetColumn(int column) { Picmain_->tablet().GetColumn(column); }
void form1::PutColumn(int column) { Picmain_->tablet().PutColumn(column); }
void form1::GetBox() { Picmain_->tablet().GetBox(); }
void form1::PutBox() { Picmain_->tablet().PutBox(); }
void form1::drawPlayCursor(int column) { Picmain_->tablet().drawPlayCursor(column); }
void form1::setPointer(Area area, DrawingPointer pointer) {
    area == Area::tablet ? Picmain_->tablet().setPointer(pointer) : Beatbox_->setPointer(pointer);
}
void form1::drawHead(Area area, int column, int row) {
    area == Area::tablet ? Picmain_->tablet().drawHead(column, row) : Beatbox_->drawHead(column, row);
}
void form1::drawDraggedNote(Area area, int column, int lastColumn, int row) {
    area == Area::tablet ? Picmain_->tablet().drawDraggedNote(column, lastColumn, row)
                         : Beatbox_->drawDraggedNote(column, lastColumn, row);
}
void form1::drawSelectionLine(int column) { Picmain_->tablet().drawSelectionLine(column); }
void form1::drawSelectionBand(int column, int lastColumn) {
    Picmain_->tablet().drawSelectionBand(column, lastColumn);
}
void form1::markTestedNote(int x1, int y1, int x2, int y2) {
    Picmain_->tablet().markTestedNote(QRect(QPoint(x1, y1), QPoint(x2, y2)));
}
void form1::drawSelectorCursor(int column, Colour colour) {
    Picmain_->selector().drawSelectorCursor(column, colour);
}
void form1::drawChordRing(int column, int row, Colour colour) {
    Picmain_->tablet().drawChordRing(column, row, colour);
}
void form1::DrawBeatArray() { Beatbox_->redraw(); }
void form1::DrawSideBar() {
    // The rows of the page are known anew.
    placeSurfaces();
    Picmain_->sideBar().redraw();
}
void form1::DrawTopBar() { Picmain_->topBar().DrawTopBar(studio_); }
void form1::DrawSelectorGrid() { Picmain_->selector().redraw(); }
void form1::DrawBarStrip() { Picmain_->selector().redraw(); }
void form1::DrawPolyStrip() { Picmain_->polynotes().redraw(); }
void form1::fillPolyCell(int x, Colour colour) { Picmain_->polynotes().fillPolyCell(x, colour); }
void form1::focusTablet() { Picmain_->tablet().setFocus(); }
void form1::focusTableau() { Beatbox_->setFocus(); }

// Frame

double form1::screenWidth() const { return roomWidth(); }
double form1::screenHeight() const { return roomHeight(); }
WindowPlace form1::place() const { return placeInTwips(); }
void form1::setPlace(const WindowPlace& place) { placeWholly(place); }

void form1::ApplySkin() {
    FramedWindow::ApplySkin();
    layOut();
}

void form1::show() { QWidget::show(); }
void form1::hide() { QWidget::hide(); }
void form1::unload() { close(); }

void form1::imgTitleClose_Click() {
    if (engine_ != nullptr) engine_->startUp.Command3_Click();
}

/// The page and the scroll bars stand still meanwhile.
void form1::setResizing(bool on) {
    FramedWindow::setResizing(on);
    if (!on) layOut();
}

void form1::Picmain_MouseDown(int button, int, double, double) {
    if (button == mouse::left) DragWindow();
    if (button == mouse::right && engine_ != nullptr) engine_->menus.openProgramMenu();
}

void form1::Picture11_MouseDown(int button, int shift, double X, double Y) {
    Picmain_MouseDown(button, shift, X, Y);
}

void form1::toolbMenu_MouseDown(int button, int shift, double X, double Y) {
    Picmain_MouseDown(button, shift, X, Y);
}

void form1::closeEvent(QCloseEvent* event) {
    event->accept();
    if (unloaded_ || engine_ == nullptr) return;
    unloaded_ = true;
    engine_->startUp.Form_Unload();
}

void form1::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::RightButton && engine_ != nullptr) return engine_->menus.openProgramMenu();
    FramedWindow::mousePressEvent(event);
}

bool form1::event(QEvent* event) {
    const bool known = FramedWindow::event(event);
    if (event->type() == QEvent::WindowActivate && engine_ != nullptr && !unloaded_) {
        // The frame is known only now; with it the window may reach past the screen.
        if (!framed_) setPlace(place());
        framed_ = true;
        engine_->startUp.Form_Activate();
    }
    return known;
}

void form1::changeEvent(QEvent* event) {
    const bool stateChanged = event->type() == QEvent::WindowStateChange;
    if (stateChanged) studio_.shell.Minimised = isMinimized();
    FramedWindow::changeEvent(event);
    if (stateChanged || event->type() == QEvent::FontChange) layOut();
}

/// The bar's panels may need other rows than they have.
bool form1::eventFilter(QObject* watched, QEvent* event) {
    if (watched == client() && event->type() == QEvent::LayoutRequest) {
        if (quickCompose_->heightForWidth(quickCompose_->width()) != quickCompose_->height()) layOut();
    }
    return FramedWindow::eventFilter(watched, event);
}

void form1::resizeEvent(QResizeEvent* event) {
    FramedWindow::resizeEvent(event);
    layOut();
}

// Layout

int form1::tableauHeight() const {
    const auto& tableau = studio_.form1.Beatbox;
    if (!tableau.visible()) return 0;
    return tableau.height() > 0 ? tableau.height() : usualTableauHeight;
}

void form1::layOut() {
    if (layingOut_ || isMinimized()) return;
    layingOut_ = true;
    const int width = client()->width(), height = client()->height();
    Picmain_->setEdge(edgeWidth());
    toolbar_->setGeometry(0, 0, width, MainToolbar::height);
    const int barWidth = width - 2 * barMargin;
    const int barHeight = quickCompose_->heightForWidth(barWidth);
    quickCompose_->setGeometry(barMargin, height - barHeight - barMargin, barWidth, barHeight);
    surfacesBottom_ = height - barHeight - 2 * barMargin;
    laidOutTableau_ = tableauHeight();
    const int roomForTableau = surfacesBottom_ - MainToolbar::height - smallestTablet;
    const int tableau = std::clamp(laidOutTableau_, 0, std::max(0, roomForTableau));
    const int bottom = surfacesBottom_ - (tableau > 0 ? tableau + tableauSpace : 0);
    tableauName_->setVisible(tableau > 0);
    Picmain_->setGeometry(0, MainToolbar::height, width, std::max(0, bottom - MainToolbar::height));
    Picmain_->tellSize();
    auto& model = studio_.form1;
    model.client.setWidth(this->width());
    model.client.setHeight(this->height());
    model.Beatbox.setWidth(Picmain_->columnsWidth());
    if (model.Beatbox.height() == 0) model.Beatbox.setHeight(usualTableauHeight);
    placeSurfaces();
    if (engine_ != nullptr) engine_->page.Form_Resize();
    layingOut_ = false;
}

/// The tableau follows the tablet's strips, and has what a page of few rows leaves free.
void form1::placeSurfaces() {
    Picmain_->layOut();
    const int top = Picmain_->geometry().bottom() + 1 - Picmain_->unusedHeight() + tableauSpace;
    const int height = std::max(0, surfacesBottom_ - top);
    tableauName_->setGeometry(edgeWidth(), top, TabletPanel::sideBarWidth - edgeWidth(), height);
    Beatbox_->setGeometry(TabletPanel::sideBarWidth, top, Picmain_->columnsWidth(), height);
}

}  // namespace melvane
