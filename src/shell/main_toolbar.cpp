#include "shell/main_toolbar.h"

#include <QHBoxLayout>
#include <QSignalBlocker>
#include <QToolButton>
#include <algorithm>

#include "shell/engine.h"
#include "ui/qt_bindings.h"
#include "ui/qt_elided_label.h"
#include "ui/qt_icons.h"

namespace melvane {

namespace {

constexpr int buttonSide = 36, iconSide = 24, groupSpace = 8;  // pixels

struct Button {
    const char* icon;
    bool beginsGroup;
    bool works;  ///< whether a press does anything yet
};

constexpr std::array<Button, 15> buttons{{{"clear", false, true},
                                          {"open", false, true},
                                          {"save", false, true},
                                          {"right_erase", true, true},
                                          {"rewind", true, true},
                                          {"play", false, true},
                                          {"stop", false, true},
                                          {"silence", false, true},
                                          {"setup", true, true},
                                          {"editing", false, true},
                                          {"recording", false, false},
                                          {"tutorial", false, false},
                                          {"help", true, true},
                                          {"emblem", false, false},
                                          {"keyboard", true, true}}};

constexpr int rightClickButton = 3;
constexpr std::array rightClickIcons{"right_erase", "right_menu", "right_polynotes"};

QToolButton* makeButton(int index, QWidget* parent) {
    auto* const button = new QToolButton(parent);
    const auto& entry = buttons[static_cast<std::size_t>(index)];
    button->setObjectName(memberName("Cmd2", index));
    button->setIcon(icon(entry.icon));
    button->setIconSize({iconSide, iconSide});
    button->setFixedSize(buttonSide, buttonSide);
    button->setAutoRaise(true);
    button->setFocusPolicy(*MainToolbarCommands::tip(index) != 0 ? Qt::TabFocus : Qt::NoFocus);
    button->setCheckable(true);
    return button;
}

/// A press is a command, not a choice: which buttons stay down is for the program to say.
void bindButton(QToolButton& button, CheckControl& state, std::function<void()> showPicture) {
    bindShown(button, state, [&, showPicture = std::move(showPicture)] {
        if (showPicture) showPicture();
        button.setChecked(state.ticked());
        button.setAccessibleName(QString::fromStdString(state.tip()));
    });
    QObject::connect(&button, &QToolButton::toggled, &button, [&] {
        const QSignalBlocker quiet(button);
        button.setChecked(state.ticked());
    });
}

}  // namespace

MainToolbar::MainToolbar(Studio& studio, QWidget* parent) : QWidget(parent) {
    setObjectName("toolbMenu");
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(8, 4, 12, 4);
    row->setSpacing(0);
    for (int index = 0; index < static_cast<int>(buttons_.size()); ++index) {
        const auto at = static_cast<std::size_t>(index);
        if (buttons[at].beginsGroup) row->addSpacing(groupSpace);
        buttons_[at] = makeButton(index, this);
        auto& state = studio.form1.Cmd2[at];
        state.setEnabled(buttons[at].works);
        state.setTip(MainToolbarCommands::tip(index));
        std::function<void()> showPicture;
        if (index == rightClickButton) {
            showPicture = [this, &studio] { showRightClickMode(studio.selection.RightClickMode); };
        }
        bindButton(*buttons_[at], state, std::move(showPicture));
        row->addWidget(buttons_[at]);
    }
    setToolTip("Right click for menu");
    row->addSpacing(groupSpace);
    auto* const status = new ElidedLabel(this);
    status->setObjectName("StatusText");
    status->setAccessibleName("Status");
    status->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    status->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    bind(*status, studio.form1.StatusText);
    row->addWidget(status, 1);
}

void MainToolbar::attach(Engine& engine) {
    for (int index = 0; index < static_cast<int>(buttons_.size()); ++index) {
        connect(buttons_[static_cast<std::size_t>(index)], &QToolButton::clicked, this,
                [&engine, index] { engine.toolbar.Cmd2_Click(index); });
    }
}

void MainToolbar::showRightClickMode(int mode) {
    const auto at = static_cast<std::size_t>(std::clamp(mode, 0, 2));
    buttons_[rightClickButton]->setIcon(icon(rightClickIcons[at]));
}

}  // namespace melvane
