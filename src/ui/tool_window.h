#pragma once
#include "ui/framed_window.h"

namespace melvane {

/// The base of the windows that float beside the main one and stay loaded between two looks at them. It loads
/// the window when it is shown, and tells its place and size while it is loaded.
class ToolWindow : public FramedWindow {
    Q_OBJECT
    Q_PROPERTY(bool loaded READ loaded)

 public:
    /// What of the studio the window shows: where it stands, and whether it is loaded.
    struct State {
        WindowPlace& place;
        const bool& loaded;
    };
    ToolWindow(Studio& studio, const FrameOptions& options, State state, QWidget* parent);
    bool loaded() const { return state_.loaded; }

 protected:
    /// Its Form_Load, which chooses the place; the window has told its size before.
    virtual void load() = 0;
    /// Its Form_Activate.
    virtual void comeToFront() = 0;
    /// The mouse is over a flat button's picture, or over anything else of the window.
    virtual void comeNear(int) {}
    virtual void leaveButtons() {}

    /// Once the contents stand: the window is as large as they ask for, grows with them, and watches the
    /// mouse over all of them.
    void holdContents();

    void showEvent(QShowEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    bool handleMove(const QObject& watched);
    void tellPlace();

    State state_;
};

}  // namespace melvane
