#pragma once
#include <QPointer>

#include "core/studio.h"
#include "ui/framed_window.h"

class QLabel;

namespace melvane {

class TutorialTip;

/// The tip that explains a step: a text to be read and closed, in front of all other windows. Shown while
/// studio.frminfo says so.
class frminfo : public FramedWindow {
    Q_OBJECT
    Q_PROPERTY(bool loaded READ loaded)

 public:
    frminfo(Studio& studio, TutorialTip& tip, QWidget* parent);
    ~frminfo() override;
    bool loaded() const { return studio_.frminfo.loaded; }

 protected:
    /// Shown by another than the engine, it is loaded without a wait for its end.
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    void fit();
    void stand();
    void leave();

    Studio& studio_;
    TutorialTip& tip_;
    QLabel* Label1_;
    QPointer<QWidget> before_;  ///< the window that was in front
};

}  // namespace melvane
