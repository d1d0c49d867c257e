#pragma once
#include <QWidget>
#include <algorithm>

#include "core/studio.h"

class QScrollBar;
class QLabel;

namespace melvane {

class Engine;
class PolyStripView;
class SelectorStripView;
class SideBarView;
class TabletView;
class TopBarPanel;

/// The tablet and what lies around it, Picmain: bar numbers, side bar, scroll bars and the two strips, whose
/// columns stand in line.
class TabletPanel : public QWidget {
    Q_OBJECT

 public:
    static constexpr int sideBarWidth = 50;    ///< pixels, at the window's left, the frame's edge included
    static constexpr int scrollBarWidth = 20;  ///< pixels, VScroll1 and the frame's edge

    TabletPanel(Studio& studio, QWidget* parent);
    void attach(Engine& engine);
    /// Pixels that the window's frame covers at the left and the right.
    void setEdge(int width) { edge_ = width; }
    /// Lays the children out for the present size and the page's rows, and tells the model their sizes.
    void layOut();
    /// Tells the model the panel's own size, by which the rows of the page are reckoned.
    void tellSize();
    /// Pixels, the width of every surface with columns.
    int columnsWidth() const { return std::max(0, width() - sideBarWidth - scrollBarWidth); }
    /// Pixels at the bottom that the children leave free, because the page has no more rows.
    int unusedHeight() const { return unusedHeight_; }

    TabletView& tablet() { return *MusicBox_; }
    SideBarView& sideBar() { return *PicX_; }
    TopBarPanel& topBar() { return *topBar_; }
    SelectorStripView& selector() { return *Pic2a_; }
    PolyStripView& polynotes() { return *Pic3_; }

 private:
    void makeScrollBars();
    int rowsHeight() const;
    void tellSizes();

    Studio& studio_;
    int unusedHeight_ = 0;
    int edge_ = 0;
    TopBarPanel* topBar_;
    SideBarView* PicX_;
    TabletView* MusicBox_;
    QScrollBar* VScroll1_;
    QScrollBar* HScroll1_;
    QLabel* Pic2_;
    QLabel* polynoteName_;
    SelectorStripView* Pic2a_;
    PolyStripView* Pic3_;
};

}  // namespace melvane
