#pragma once
#include <QAbstractButton>
#include <QWidget>

#include "core/studio.h"

namespace melvane {

/// A switch of one channel: its number in its colour, bright and ticked while it is on.
class ChannelSwitch : public QAbstractButton {
    Q_OBJECT

 public:
    ChannelSwitch(CheckControl& state, Colour colour, int channel, QWidget* parent);
    QSize sizeHint() const override { return {44, 24}; }

 protected:
    void paintEvent(QPaintEvent* event) override;

 private:
    QColor colour_;
};

/// The chord and strum switches of the melody channels, and the chord that the channels play.
class SetupChordsPanel : public QWidget {
    Q_OBJECT

 public:
    SetupChordsPanel(Studio& studio, QWidget* parent);
};

}  // namespace melvane
