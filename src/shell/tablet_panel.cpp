#include "shell/tablet_panel.h"

#include <QLabel>
#include <QScrollBar>
#include <algorithm>

#include "core/side_bar_view.h"
#include "core/strip_view.h"
#include "core/tablet_view.h"
#include "shell/engine.h"
#include "shell/top_bar_panel.h"
#include "ui/qt_bindings.h"

namespace melvane {

namespace {

// Pixels.
constexpr int acrossHeight = 20, selectorHeight = 27, polynoteHeight = 17, stripSpace = 4;
constexpr int belowTablet = acrossHeight + stripSpace + selectorHeight + stripSpace + polynoteHeight;

void moveBy(QScrollBar& bar, int steps) {
    const int to = std::clamp(bar.value() + steps, bar.minimum(), bar.maximum());
    bar.setValue(to);
}

QLabel* makeStripName(const QString& name, QWidget* parent) {
    auto* const label = new QLabel(name, parent);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setContentsMargins(0, 0, 5, 0);
    return label;
}

void tell(AreaControl& area, const QWidget& widget) {
    area.setWidth(widget.width());
    area.setHeight(widget.height());
}

}  // namespace

TabletPanel::TabletPanel(Studio& studio, QWidget* parent)
    : QWidget(parent),
      studio_(studio),
      topBar_(new TopBarPanel(this)),
      PicX_(new SideBarView(studio, this)),
      MusicBox_(new TabletView(studio, this)),
      VScroll1_(new QScrollBar(Qt::Vertical, this)),
      HScroll1_(new QScrollBar(Qt::Horizontal, this)),
      Pic2_(makeStripName("Note", this)),
      polynoteName_(makeStripName("Poly", this)),
      Pic2a_(new SelectorStripView(studio, this)),
      Pic3_(new PolyStripView(studio, this)) {
    setObjectName("Picmain");
    auto& model = studio.form1;
    model.Picmain.setTip("Right click for menu");
    bindState(*this, model.Picmain);
    bindState(*PicX_, model.PicX);
    bindState(*MusicBox_, model.MusicBox);
    Pic2_->setObjectName("Pic2");
    bindState(*Pic2_, model.Pic2);
    bindState(*Pic2a_, model.Pic2a);
    bindState(*Pic3_, model.Pic3);
    makeScrollBars();
}

void TabletPanel::makeScrollBars() {
    VScroll1_->setObjectName("VScroll1");
    VScroll1_->setAccessibleName("Rows shown");
    VScroll1_->setToolTip("Scroll the rows");
    HScroll1_->setObjectName("HScroll1");
    HScroll1_->setAccessibleName("Columns shown");
    HScroll1_->setToolTip("Scroll the columns");
    for (QScrollBar* const bar : {VScroll1_, HScroll1_}) bar->setFocusPolicy(Qt::TabFocus);
    bind(*VScroll1_, studio_.form1.VScroll1);
    bind(*HScroll1_, studio_.form1.HScroll1);
    connect(MusicBox_, &TabletView::rowsWanted, this, [this](int rows) { moveBy(*VScroll1_, rows); });
    connect(MusicBox_, &TabletView::columnsWanted, this,
            [this](int columns) { moveBy(*HScroll1_, columns); });
}

void TabletPanel::attach(Engine& engine) {
    MusicBox_->mouse = mouseHandlers(engine.entry, &NoteEntry::MusicBox_MouseDown,
                                     &NoteEntry::MusicBox_MouseMove, &NoteEntry::MusicBox_MouseUp);
    MusicBox_->gotFocus = [&engine] { engine.tableau.MusicBox_GotFocus(); };
    Pic2a_->mouse = mouseHandlers(engine.selector, &NoteSelector::Pic2a_MouseDown,
                                  &NoteSelector::Pic2a_MouseMove, &NoteSelector::Pic2a_MouseUp);
    Pic3_->mouse =
        mouseHandlers(engine.chords, &Chords::Pic3_MouseDown, &Chords::Pic3_MouseMove, &Chords::Pic3_MouseUp);
    Pic3_->gotFocus = [&engine] { engine.chords.Pic3_GotFocus(); };
}

void TabletPanel::layOut() {
    const int columnsWidth = this->columnsWidth();
    const int tabletTop = TopBarPanel::height;
    const int tabletHeight = std::max(0, std::min(height() - tabletTop - belowTablet, rowsHeight()));
    const int numbersLeft = sideBarWidth - TopBarPanel::firstColumnLeft;
    topBar_->setGeometry(numbersLeft, 0, std::max(0, width() - numbersLeft), TopBarPanel::height);
    const int nameWidth = sideBarWidth - edge_;
    PicX_->setGeometry(edge_, tabletTop, nameWidth, tabletHeight);
    MusicBox_->setGeometry(sideBarWidth, tabletTop, columnsWidth, tabletHeight);
    VScroll1_->setGeometry(sideBarWidth + columnsWidth, tabletTop, scrollBarWidth - edge_, tabletHeight);
    int y = tabletTop + tabletHeight;
    HScroll1_->setGeometry(sideBarWidth, y, columnsWidth, acrossHeight);
    y += acrossHeight + stripSpace;
    Pic2_->setGeometry(edge_, y, nameWidth, selectorHeight);
    Pic2a_->setGeometry(sideBarWidth, y, columnsWidth, selectorHeight);
    y += selectorHeight + stripSpace;
    polynoteName_->setGeometry(edge_, y, nameWidth, polynoteHeight);
    Pic3_->setGeometry(sideBarWidth, y, columnsWidth, polynoteHeight);
    unusedHeight_ = std::max(0, height() - y - polynoteHeight);
    tellSizes();
}

/// Nothing is drawn below the page's last row.
int TabletPanel::rowsHeight() const {
    const auto& page = studio_.page;
    return page.LineHeight > 0 ? (page.PageRows + 1) * page.LineHeight : height();
}

void TabletPanel::tellSize() { tell(studio_.form1.Picmain, *this); }

void TabletPanel::tellSizes() {
    auto& model = studio_.form1;
    tell(model.PicX, *PicX_);
    tell(model.MusicBox, *MusicBox_);
    tell(model.Pic2, *Pic2_);
    tell(model.Pic2a, *Pic2a_);
    tell(model.Pic3, *Pic3_);
}

}  // namespace melvane
