#include "shell/setup_toolbar_window.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QScreen>
#include <QTabBar>
#include <QTabWidget>

#include "core/main_frame.h"
#include "shell/engine.h"
#include "shell/setup_channels_panel.h"
#include "shell/setup_chords_panel.h"
#include "shell/setup_configuration_panel.h"
#include "shell/setup_score_panel.h"
#include "shell/setup_sound_panel.h"
#include "ui/qt_bindings.h"
#include "ui/qt_window_place.h"

namespace melvane {

namespace {

constexpr int outerMargin = 8, pageMargin = 12, groupSpace = 24;  // pixels
constexpr double roomBelow = 400;                                 // twips, under its usual place

}  // namespace

Form3::Form3(Studio& studio, Engine& engine, QWidget* parent)
    : FramedWindow(studio, {.name = "Form3", .title = "Setup Toolbar", .resizes = false}, parent),
      studio_(studio),
      engine_(engine),
      pages_(new QTabWidget(client())) {
    useSettings(engine.settings);
    useLoop(engine.outside.loop);
    auto* const box = new QVBoxLayout(client());
    box->setContentsMargins(outerMargin, outerMargin, outerMargin, outerMargin);
    box->addWidget(pages_);
    pages_->setObjectName("SSTab1");
    pages_->setAccessibleName("Pages of the Setup toolbar");
    pages_->tabBar()->setDrawBase(false);
    auto* const setup =
        static_cast<QHBoxLayout*>(addPage("Setup", "Channels, tempo and instruments")->layout());
    setup->addWidget(new SetupChannelsPanel(studio, engine, this), 0, Qt::AlignTop);
    setup->addSpacing(groupSpace);
    setup->addWidget(new SetupScorePanel(studio, engine, this), 1, Qt::AlignTop);
    addPage("Sound", "Volume and effects of the channel")
        ->layout()
        ->addWidget(new SetupSoundPanel(studio, engine, this));
    addPage("Chords", "Chords and strumming of the channels")
        ->layout()
        ->addWidget(new SetupChordsPanel(studio, this));
    addPage("Configuration", "Size of the score, lines and MIDI device")
        ->layout()
        ->addWidget(new SetupConfigurationPanel(studio, engine, this));
    bindPages();
    fit();
}

void Form3::bindPages() {
    auto& page = studio_.Form3.SSTab1;
    bindShown(*pages_, page, [this, &page] { pages_->setCurrentIndex(page.index()); });
    connect(pages_, &QTabWidget::currentChanged, this,
            [&page](int index) { page.userPut(static_cast<long long>(index)); });
}

QWidget* Form3::addPage(const char* title, const char* tip) {
    auto* const page = new QWidget(pages_);
    auto* const row = new QHBoxLayout(page);
    row->setContentsMargins(pageMargin, pageMargin, pageMargin, pageMargin);
    row->setSpacing(0);
    pages_->setTabToolTip(pages_->addTab(page, title), tip);
    return page;
}

/// As large as its contents ask for.
void Form3::fit() { setFixedSize(sizeAround(client()->layout()->sizeHint())); }

void Form3::placeItself() {
    const QRect room = (parentWidget() != nullptr ? parentWidget()->screen() : screen())->availableGeometry();
    const auto& setup = studio_.Form3;
    const int left = setup.left ? pixelsOfTwips(*setup.left) : room.left() + (room.width() - width()) / 2;
    const int top =
        setup.top ? pixelsOfTwips(*setup.top) : room.bottom() + 1 - height() - pixelsOfTwips(roomBelow);
    placeOnScreen(*this, {left, top});
    placed_ = true;
    studio_.Form3.left = pos().x() * twipsAPixel;
    studio_.Form3.top = pos().y() * twipsAPixel;
}

bool Form3::event(QEvent* event) {
    const bool known = FramedWindow::event(event);
    if (event->type() == QEvent::WindowActivate) engine_.setup.Form_Activate();
    if (event->type() == QEvent::WindowDeactivate) engine_.setup.Form_LostFocus();
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) fit();
    return known;
}

void Form3::showEvent(QShowEvent* event) {
    if (!event->spontaneous() && !studio_.Form3.loaded) {
        engine_.setup.Form_Load();
        placed_ = false;
    }
    FramedWindow::showEvent(event);
    studio_.Form3.shown = true;
    studio_.shell.Form3Open = true;
    if (!placed_) placeItself();
}

void Form3::hideEvent(QHideEvent* event) {
    FramedWindow::hideEvent(event);
    if (!event->spontaneous()) studio_.Form3.shown = false;
}

void Form3::moveEvent(QMoveEvent* event) {
    FramedWindow::moveEvent(event);
    if (!placed_) return;
    studio_.Form3.left = pos().x() * twipsAPixel;
    studio_.Form3.top = pos().y() * twipsAPixel;
}

void Form3::closeEvent(QCloseEvent* event) {
    event->accept();
    if (!studio_.Form3.loaded) return;
    // Closing it is leaving it, and by then the focus comes too late.
    if (isActiveWindow()) engine_.setup.Form_LostFocus();
    engine_.setup.Form_Unload();
}

}  // namespace melvane
