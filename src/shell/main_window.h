#pragma once
#include "core/main_frame.h"
#include "core/studio.h"
#include "core/surfaces.h"
#include "ui/framed_window.h"

class QLabel;

namespace melvane {

class Engine;
class MainToolbar;
class QuickComposePanel;
class TableauView;
class TabletPanel;

/// The main window, which the user knows as Melvane: toolbar, music tablet, percussion tableau and Quick
/// Compose bar. Made before the engine, which takes it as its pictures and its frame, and attached to it
/// before it is shown.
class form1 : public FramedWindow, public Surfaces, public MainFrame {
    Q_OBJECT

 public:
    explicit form1(Studio& studio);
    ~form1() override;
    void attach(Engine& engine);

    void DrawNoteArray() override;
    void clearTablet() override;
    void GetRow(int row) override;
    void PutRow(int row) override;
    void GetColumn(int column) override;
    void PutColumn(int column) override;
    void GetBox() override;
    void PutBox() override;
    void drawPlayCursor(int column) override;
    void setPointer(Area area, DrawingPointer pointer) override;
    void drawHead(Area area, int column, int row) override;
    void drawDraggedNote(Area area, int column, int lastColumn, int row) override;
    void drawSelectionLine(int column) override;
    void drawSelectionBand(int column, int lastColumn) override;
    void markTestedNote(int x1, int y1, int x2, int y2) override;
    void drawSelectorCursor(int column, Colour colour) override;
    void drawChordRing(int column, int row, Colour colour) override;
    void DrawBeatArray() override;
    void DrawSideBar() override;
    void DrawTopBar() override;
    void DrawSelectorGrid() override;
    void DrawBarStrip() override;
    void DrawPolyStrip() override;
    void fillPolyCell(int x, Colour colour) override;
    void focusTablet() override;
    void focusTableau() override;

    double screenWidth() const override;
    double screenHeight() const override;
    WindowPlace place() const override;
    void setPlace(const WindowPlace& place) override;
    void ApplySkin() override;
    void show() override;
    void hide() override;
    void unload() override;
    void imgTitleClose_Click() override;

    // A press on a bare part: the left button moves the window, the right one opens the menu of the program.
    Q_INVOKABLE void Picmain_MouseDown(int button, int shift, double X, double Y);
    Q_INVOKABLE void Picture11_MouseDown(int button, int shift, double X, double Y);
    Q_INVOKABLE void toolbMenu_MouseDown(int button, int shift, double X, double Y);

 protected:
    void setResizing(bool on) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

 private:
    void layOut();
    void placeSurfaces();
    int tableauHeight() const;

    Studio& studio_;
    Engine* engine_ = nullptr;
    MainToolbar* toolbar_;
    TabletPanel* Picmain_;
    QLabel* tableauName_;
    TableauView* Beatbox_;
    QuickComposePanel* quickCompose_;
    int surfacesBottom_ = 0;   ///< pixels, where the tableau ends, or the tablet's panel without it
    int laidOutTableau_ = -1;  ///< pixels, the height that the layout has given room
    bool framed_ = false;
    bool unloaded_ = false;
    bool layingOut_ = false;
};

}  // namespace melvane
