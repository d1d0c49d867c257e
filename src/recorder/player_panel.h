#pragma once
#include <QWidget>
#include <array>

#include "core/studio.h"

class QLabel;

namespace melvane {

class FlatButton;
class PlayerButtons;

/// The lower half of the recorder's window: the file in hand, how far a work is, and the player.
class PlayerPanel : public QWidget {
    Q_OBJECT

 public:
    PlayerPanel(RecordControls& Record, PlayerButtons& buttons, QWidget* parent);
    const FlatButton& button(int index) const { return *Cmd2_[static_cast<std::size_t>(index)]; }

 private:
    QWidget* makeState();
    QWidget* makePlayer();
    QWidget* makeReadOut(QWidget* parent);
    QWidget* makeBar(QWidget* parent);
    FlatButton* makeButton(int index, QWidget* parent);

    RecordControls& Record_;
    PlayerButtons& buttons_;
    std::array<FlatButton*, RecordControls::buttons> Cmd2_{};
};

}  // namespace melvane
