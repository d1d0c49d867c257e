#pragma once
#include "core/studio.h"
#include "ui/framed_window.h"

class QTabWidget;

namespace melvane {

class Engine;

/// The Setup toolbar: channels, sound, chords and configuration on the pages of one panel. Closing it unloads
/// it; the next time it is shown it is loaded anew.
class Form3 : public FramedWindow {
    Q_OBJECT

 public:
    Form3(Studio& studio, Engine& engine, QWidget* parent);

 protected:
    bool event(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

 private:
    void bindPages();
    QWidget* addPage(const char* title, const char* tip);
    void fit();
    void placeItself();

    Studio& studio_;
    Engine& engine_;
    QTabWidget* pages_;
    bool placed_ = false;
};

}  // namespace melvane
