#pragma once
#include "core/studio.h"
#include "recorder/recorder_commands.h"
#include "ui/framed_window.h"

namespace melvane {

class PlayerPanel;

/// The recorder, floating over the main window. Shows studio.Record.
class Record : public FramedWindow {
    Q_OBJECT
    Q_PROPERTY(bool loaded READ loaded)

 public:
    Record(Studio& studio, RecorderCommands& commands, QWidget* parent);
    bool loaded() const { return studio_.shell.RecorderOpen; }

    /// In front of the main window or of the keyboard, whichever is active.
    void setVisible(bool visible) override;

 protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool event(QEvent* event) override;
    /// Watches the mouse over all parts of the window.
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    void makePicture();
    bool handleMove(const QObject& watched);
    void tellPlace();

    Studio& studio_;
    RecorderCommands& commands_;
};

}  // namespace melvane
