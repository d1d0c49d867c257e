#pragma once
#include "core/studio.h"
#include "ui/tool_window.h"

class QBoxLayout;
class QFrame;

namespace melvane {

class EditingToolbarCommands;

/// The Editing toolbar, floating over the main window. Shows studio.Form2.
class Form2 : public ToolWindow {
    Q_OBJECT

 public:
    Form2(Studio& studio, EditingToolbarCommands& commands, QWidget* parent);

 protected:
    void load() override;
    void comeToFront() override;
    void comeNear(int button) override;
    void leaveButtons() override;
    void closeEvent(QCloseEvent* event) override;

 private:
    QFrame* makeScoreButtons();
    QFrame* makeEditingButtons();
    void addButtons(QBoxLayout& row, std::initializer_list<int> indices);
    QWidget* makeButton(int index);

    Studio& studio_;
    EditingToolbarCommands& commands_;
};

}  // namespace melvane
