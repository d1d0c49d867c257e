#include "synth/keyboard_window.h"

#include <QCloseEvent>
#include <QScreen>
#include <QScrollArea>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "core/qt_mouse.h"
#include "synth/keyboard_compose_panel.h"
#include "synth/keyboard_playing_panel.h"
#include "synth/keyboard_setup_panel.h"
#include "synth/keyboard_sound_panel.h"
#include "synth/keyboard_toolbar.h"
#include "synth/panic_bar_panel.h"
#include "synth/piano_view.h"
#include "ui/qt_bindings.h"
#include "ui/qt_window_place.h"

namespace melvane {

namespace {

// Pixels.
constexpr int smallestUsual = 1120, largestUsual = 1600, usualHeight = 640;  // of the contents
constexpr double usualShare = 0.85;                                          // of the screen's width
constexpr int space = 4, pageTop = 6, bottomMargin = 20, leastKeys = 120;
constexpr QMargins tabsMargins(6, 0, 7, 26);          // 200 and 400 twips in all
constexpr int framesNarrower = 20, framesLower = 33;  // than the tabs: 300 and 500 twips
constexpr int paneBorder = 1;

}  // namespace

frmsynth::frmsynth(Studio& studio, KeyboardCommands& commands)
    : FramedWindow(studio,
                   {.name = "frmsynth",
                    .title = "Melvane  Keyboard  v1.0",
                    .buttons = {.minimises = true, .maximises = true, .helps = true},
                    .resizes = true,
                    .kind = Qt::Window},
                   nullptr),
      studio_(studio),
      commands_(commands),
      toolbar_(new KeyboardToolbar(studio, client())),
      Label4_(new PanicBarPanel(studio.frmsynth.Label4, client())),
      Picture5_(new PianoView(studio, client())),
      Picture2_(makePages()),
      keyPreview_(studio, *this, commands) {
    setHelp([&commands] { commands.window.Cmd2_Click(3); });
    bindShown(*Picture2_, studio.frmsynth.Picture2, [this] { followPages(); });
    attachKeys();
    client()->installEventFilter(this);
    resize(sizeAround(usualSize()));
    Picture5_->setFocus();
    commands_.window.frame = this;
}

frmsynth::~frmsynth() {
    if (commands_.window.frame == this) commands_.window.frame = nullptr;
}

QSize frmsynth::usualSize() const {
    const int share = static_cast<int>(screen()->availableGeometry().width() * usualShare);
    return {std::clamp(share, smallestUsual, largestUsual), usualHeight};
}

QWidget* frmsynth::makePages() {
    auto* const panel = new QWidget(client());
    panel->setObjectName("Picture2");
    auto* const box = new QVBoxLayout(panel);
    box->setContentsMargins(tabsMargins);
    SSTab1_ = new QTabWidget(panel);
    SSTab1_->setObjectName("SSTab1");
    SSTab1_->setAccessibleName("Pages of the keyboard");
    SSTab1_->tabBar()->setDrawBase(false);
    SSTab1_->setProperty("onGround", true);
    box->addWidget(SSTab1_);
    addPage(new KeyboardSetupPanel(studio_, panel), "Setup", "MIDI device and key scheme");
    addPage(new KeyboardComposePanel(studio_, commands_.sliders, panel), "Compose",
            "Capture what is played, replay it and save it");
    addPage(new KeyboardSoundPanel(studio_, commands_.sliders, panel), "Sound 1",
            "Channel, effects and metronome");
    addPage(new KeyboardPlayingPanel(studio_, commands_.sliders, commands_.instrument, panel), "Sound  2",
            "Chords, strumming, instrument and octave");
    return panel;
}

/// A page that has not enough room can be scrolled.
void frmsynth::addPage(QWidget* page, const QString& title, const QString& tip) {
    auto* const around = new QWidget;
    auto* const box = new QVBoxLayout(around);
    box->addWidget(page, 1);
    auto* const area = new QScrollArea(SSTab1_);
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidget(around);
    SSTab1_->setTabToolTip(SSTab1_->addTab(area, title), tip);
}

void frmsynth::attachKeys() {
    auto& mouse = commands_.mouse;
    Picture5_->pressed = [&mouse](int index, int button, int shift, double x, double y) {
        mouse.CmdKey_MouseDown(index, button, shift, x, y);
    };
    Picture5_->moved = [&mouse](int index, int button, int shift, double x, double y) {
        mouse.CmdKey_MouseMove(index, button, shift, x, y);
    };
    Picture5_->released = [&mouse](int index, int button, int shift, double x, double y) {
        mouse.CmdKey_MouseUp(index, button, shift, x, y);
    };
    Picture5_->ground.moved = [&mouse](int button, int shift, double x, double y) {
        mouse.Picture5_MouseMove(button, shift, x, y);
    };
    Label4_->mouse = mouseHandlers(mouse, &KeyMouse::Label4_MouseDown, &KeyMouse::Label4_MouseMove,
                                   &KeyMouse::Label4_MouseUp);
}

// Events

void frmsynth::showEvent(QShowEvent* event) {
    if (!event->spontaneous() && !loaded()) commands_.window.Form_Load();
    FramedWindow::showEvent(event);
    followSize();
}

void frmsynth::tellPlace() {
    if (isMinimized()) return;
    studio_.frmsynth.place = placeInTwips();
    if (fullHeight_) studio_.frmsynth.place.height = *fullHeight_ * double{twipsAPixel};
}

/// Without the pages the window is as high as the keys ask for; the height that it had comes back with them,
/// and is the one that counts as its own.
void frmsynth::followPages() {
    const bool pages = studio_.frmsynth.Picture2.visible();
    if (loaded() && pages == fullHeight_.has_value() && !isMaximized()) {
        const int before = height();
        const int wanted = pages ? *fullHeight_ : before - (Picture2_->height() + 2 * space) + spareKeys();
        fullHeight_ = pages ? std::nullopt : std::optional(before);
        resize(width(), std::max(wanted, minimumHeight()));
    }
    layOut();
}

/// How much higher the keys would like to be.
int frmsynth::spareKeys() const {
    return std::max(0, PianoView::naturalHeight(Picture5_->width()) - Picture5_->height());
}

void frmsynth::followSize() {
    if (!loaded() || isMinimized()) return;
    tellPlace();
    commands_.window.Form_Resize();
    layOut();
}

void frmsynth::moveEvent(QMoveEvent* event) {
    FramedWindow::moveEvent(event);
    if (loaded()) tellPlace();
}

void frmsynth::resizeEvent(QResizeEvent* event) {
    FramedWindow::resizeEvent(event);
    followSize();
    layOut();
}

void frmsynth::changeEvent(QEvent* event) {
    FramedWindow::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange) followSize();
    if (event->type() == QEvent::FontChange) layOut();
}

void frmsynth::closeEvent(QCloseEvent* event) {
    event->accept();
    commands_.window.Form_Unload();
}

/// A larger font asks for other heights.
bool frmsynth::eventFilter(QObject* watched, QEvent* event) {
    if (watched == client() && event->type() == QEvent::LayoutRequest) layOut();
    return FramedWindow::eventFilter(watched, event);
}

// Layout

/// What the tallest page asks for, with the tabs over it and the ground around them.
int frmsynth::pagesHeight(int outerWidth) const {
    const int width = outerWidth - tabsMargins.left() - tabsMargins.right();
    int tallestPage = 0;
    for (int at = 0; at < SSTab1_->count(); ++at) {
        const auto* const area = static_cast<const QScrollArea*>(SSTab1_->widget(at));
        tallestPage = std::max(tallestPage, area->widget()->heightForWidth(width - 2 * paneBorder));
    }
    return tallestPage + tabsMargins.top() + tabsMargins.bottom() + SSTab1_->tabBar()->sizeHint().height() +
           2 * paneBorder;
}

/// The ground around the frame of each page.
void frmsynth::layOutFrames() {
    const QSize tabs = SSTab1_->size(), page = SSTab1_->currentWidget()->size();
    const int side = (framesNarrower - (tabs.width() - page.width())) / 2;
    const int below = framesLower - (tabs.height() - page.height()) - pageTop;
    for (int at = 0; at < SSTab1_->count(); ++at) {
        const auto* const area = static_cast<const QScrollArea*>(SSTab1_->widget(at));
        area->widget()->layout()->setContentsMargins(std::max(0, side), pageTop, std::max(0, side),
                                                     std::max(0, below));
    }
}

/// The keys have the shape of a piano's where the pages leave them the height.
void frmsynth::layOut() {
    if (Picture2_ == nullptr) return;
    const auto& synth = studio_.frmsynth;
    const int keysWidth = pixelsOfTwips(synth.Picture5.place().width);
    const int width = keysWidth > 0 ? keysWidth : client()->width();
    const int left = (client()->width() - width) / 2;
    toolbar_->setGeometry(left, 0, width, KeyboardToolbar::height);
    const int barHeight = Label4_->sizeHint().height();
    Label4_->setGeometry(left, KeyboardToolbar::height, width, barHeight);
    const int top = KeyboardToolbar::height + barHeight + space;
    const int floor = height() - bottomMargin - client()->y();
    const int room = std::max(0, floor - top);
    const bool pages = synth.Picture2.visible();
    const int spare = room - (pages ? pagesHeight(width) + 2 * space : 0);
    const int keys = std::clamp(spare, leastKeys, std::max(leastKeys, PianoView::naturalHeight(width)));
    Picture5_->setGeometry(left, top, width, keys);
    const int below = top + keys + 2 * space;
    Picture2_->setGeometry(left, below, width, std::max(0, floor - below));
    layOutFrames();
}

}  // namespace melvane
