#pragma once
#include "core/studio.h"
#include "recorder/recorder_commands.h"
#include "ui/tool_window.h"

namespace melvane {

/// The recorder, floating over the main window. Shows studio.Record.
class Record : public ToolWindow {
    Q_OBJECT

 public:
    Record(Studio& studio, RecorderCommands& commands, QWidget* parent);

    /// In front of the main window or of the keyboard, whichever is active.
    void setVisible(bool visible) override;

 protected:
    void load() override;
    void comeToFront() override;
    void comeNear(int button) override;
    void leaveButtons() override;
    void closeEvent(QCloseEvent* event) override;

 private:
    void makePicture();

    RecorderCommands& commands_;
};

}  // namespace melvane
