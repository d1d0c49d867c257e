#pragma once
#include "core/studio.h"
#include "recorder/recorder_window_commands.h"
#include "ui/framed_window.h"

namespace melvane {

/// The recorder's log. Shows studio.frmLog.
class frmLog : public FramedWindow {
    Q_OBJECT
    Q_PROPERTY(bool loaded READ loaded)

 public:
    frmLog(Studio& studio, RecorderWindowCommands& commands, QWidget* parent);
    bool loaded() const { return studio_.frmLog.loaded; }

 protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

 private:
    Studio& studio_;
    RecorderWindowCommands& commands_;
};

}  // namespace melvane
