#pragma once
#include <QWidget>
#include <array>
#include <functional>
#include <optional>

#include "core/studio.h"
#include "platform/event_loop.h"
#include "ui/frame_geometry.h"
#include "ui/title_bar_panel.h"

namespace melvane {

class Settings;

/// What distinguishes the frame of one window from another's.
struct FrameOptions {
    const char* name;  ///< the window's given name, which also decides how round its corners are
    QString title;
    TitleButtons buttons{};
    bool resizes = true;  ///< its edges can be dragged
    Qt::WindowType kind = Qt::Tool;
};

/// The base of every window: without the system's frame, with a title bar, edges and rounded corners of its
/// own in one of two looks. Contents go into client(), which reaches from side to side: at its left and right
/// the edges cover frameThickness pixels. The look follows the setting "XPInterface" at each resize.
///
/// Where the session lets programs place windows, an edge that is dragged changes the window once, when it is
/// let go; where it does not, the session's own resize is used. Nothing here depends on where the window is.
class FramedWindow : public QWidget {
    Q_OBJECT

 public:
    FramedWindow(Studio& studio, const FrameOptions& options, QWidget* parent);

    /// Where the look is read; without it the window is flat.
    void useSettings(const Settings& settings);
    /// Its queue is run after a resize by the mouse; without it the resize is all.
    void useLoop(EventLoop& loop) { loop_ = &loop; }
    /// What the title bar's help button and F1 do; without it neither acts.
    void setHelp(std::function<void()> help);

    QWidget* client() { return client_; }
    /// Pixels that the edges cover at each side: none while maximised.
    int edgeWidth() const { return isMaximized() ? 0 : frameThickness; }
    /// Moves the window, kept wholly on a screen that exists; twips (15 a pixel).
    void moveOntoScreen(double left, double top);
    /// Where the window stands, in twips.
    WindowPlace placeInTwips() const;
    /// Moves and sizes the window, kept wholly on a screen that exists.
    void placeWholly(const WindowPlace& place);
    /// The room that its screen has, in twips.
    double roomWidth() const;
    double roomHeight() const;
    /// The size with which client() is that large.
    QSize sizeAround(QSize client) const;

    /// Reads the look and lays the frame out for the present size and state.
    Q_INVOKABLE virtual void ApplySkin();
    Q_INVOKABLE void LayoutFrameXP(bool maximised);
    Q_INVOKABLE void LayoutFrame3D(bool maximised);
    Q_INVOKABLE void LayoutResizers(bool maximised);
    /// Rounds the corners.
    Q_INVOKABLE void SetWindowShape();
    /// Hands the window to the system to be moved with the mouse; nothing while it is maximised.
    Q_INVOKABLE void DragWindow();
    /// By the distance that the cursor went, in pixels, on the sides that grip `index` owns.
    Q_INVOKABLE void ResizeFromGrip(int startX, int startY, int endX, int endY, int index);
    /// X and Y in pixels of the grip.
    Q_INVOKABLE void Resizer_MouseDown(int index, int button, int shift, double X, double Y);
    Q_INVOKABLE void Resizer_MouseUp(int index, int button, int shift, double X, double Y);
    /// A press of the left button on the title or on a bare part of its bar moves the window.
    Q_INVOKABLE void lblTitle_MouseDown(int button, int shift, double X, double Y);
    Q_INVOKABLE void TopBar_MouseDown(int button, int shift, double X, double Y);
    Q_INVOKABLE virtual void imgTitleClose_Click();
    Q_INVOKABLE void imgTitleMinimize_Click();
    Q_INVOKABLE void imgTitleMaxRestore_Click();
    Q_INVOKABLE void imgTitleHelp_Click();

 protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

    /// An edge is in the mouse's hand.
    virtual void setResizing(bool on) { resizing_ = on; }
    bool& resizing_;  ///< the window's own flag Resizing

 private:
    void helpFront();
    void makeStripsAndGrips();
    void layOutFrame(bool maximised);
    void layOutParts(bool maximised);
    void putTitleButtonsLast();
    bool placesItself() const;
    void moveWith(QPoint cursor);

    Studio& studio_;
    const Settings* settings_ = nullptr;
    EventLoop* loop_ = nullptr;
    const FrameOptions options_;
    std::function<void()> help_;
    FrameLook look_ = FrameLook::flat;
    TitleBar* titleBar_;
    QWidget* client_;
    std::array<QWidget*, frameParts> Winedge_{};
    std::array<QWidget*, frameParts> Resizer_{};
    QPoint gripPress_;                 ///< cursor, pixels of the screen
    std::optional<QPoint> barePress_;  ///< a press on a bare part, pixels of the window
    std::optional<QPoint> carriedAt_;  ///< the same while the window is carried without the system's help
    bool shownOnce_ = false;
};

}  // namespace melvane
