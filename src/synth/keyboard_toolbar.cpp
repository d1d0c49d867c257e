#include "synth/keyboard_toolbar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>

#include "ui/qt_bindings.h"
#include "ui/qt_elided_label.h"
#include "ui/qt_icons.h"

namespace melvane {

namespace {

constexpr int buttonSide = 36, iconSide = 24, groupSpace = 8;  // pixels

struct Button {
    int index;  ///< of Cmd2
    const char* icon;
    bool beginsGroup;
};

// In the order in which they stand.
constexpr std::array<Button, 6> buttons{{{1, "setup", false},
                                         {2, "silence", false},
                                         {5, "recording", true},
                                         {6, "composer", false},
                                         {3, "help", true},
                                         {4, "exit", true}}};

QToolButton* makeButton(const Button& entry, PictureControl& state, QWidget* parent) {
    auto* const button = new QToolButton(parent);
    button->setObjectName(memberName("Cmd2", entry.index));
    button->setIcon(icon(entry.icon));
    button->setIconSize({iconSide, iconSide});
    button->setFixedSize(buttonSide, buttonSide);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    bindShown(*button, state,
              [button, &state] { button->setAccessibleName(QString::fromStdString(state.tip())); });
    QObject::connect(button, &QToolButton::clicked, button, [&state] { state.userPut(Value(1LL)); });
    return button;
}

}  // namespace

KeyboardToolbar::KeyboardToolbar(Studio& studio, QWidget* parent) : QWidget(parent) {
    setObjectName("toolbMenu");
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(0, 4, 0, 4);
    row->setSpacing(0);
    for (const auto& entry : buttons) {
        if (entry.beginsGroup) row->addSpacing(groupSpace);
        row->addWidget(makeButton(entry, studio.frmsynth.Cmd2[static_cast<std::size_t>(entry.index)], this));
    }
    row->addSpacing(2 * groupSpace);
    auto* const hint =
        new ElidedLabel("Play on the keys of the computer, or press a key with the mouse.", this);
    hint->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    hint->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    row->addWidget(hint, 1);
}

}  // namespace melvane
