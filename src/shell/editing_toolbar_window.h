#pragma once
#include "core/studio.h"
#include "ui/framed_window.h"

class QBoxLayout;
class QFrame;

namespace melvane {

class EditingToolbarCommands;

/// The Editing toolbar, floating over the main window. Shows studio.Form2.
class Form2 : public FramedWindow {
    Q_OBJECT
    Q_PROPERTY(bool loaded READ loaded)

 public:
    Form2(Studio& studio, EditingToolbarCommands& commands, QWidget* parent);
    bool loaded() const { return studio_.shell.Form2Open; }

 protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool event(QEvent* event) override;
    /// Watches the mouse over all parts of the window.
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    QFrame* makeScoreButtons();
    QFrame* makeEditingButtons();
    void addButtons(QBoxLayout& row, std::initializer_list<int> indices);
    QWidget* makeButton(int index);
    bool handleMove(const QObject& watched);
    void tellPlace();

    Studio& studio_;
    EditingToolbarCommands& commands_;
};

}  // namespace melvane
