#pragma once
#include "ui/framed_window.h"

class QFrame;

namespace melvane {

class NoteTest;

/// The note test panel, a small window beside the main one. It is loaded when it is shown and unloaded when
/// it is closed. A bare part of it moves it with the mouse, and closes it at a double click.
class Form5 : public FramedWindow {
    Q_OBJECT

 public:
    Form5(Studio& studio, NoteTest& panel, QWidget* parent);
    ~Form5() override;

 protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    QFrame* makeNote();
    QFrame* makeColumns();
    QFrame* makeEffects();
    void fit();
    void centre();
    void passOnMouse(const QEvent& event);

    Studio& studio_;
    NoteTest& panel_;
};

}  // namespace melvane
