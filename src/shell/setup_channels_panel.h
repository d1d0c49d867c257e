#pragma once
#include <QAbstractButton>
#include <QIcon>
#include <QWidget>

#include "core/studio.h"

namespace melvane {

class Engine;

/// The number of the Setup toolbar's channel on its colour.
class ChannelChip : public QWidget {
    Q_OBJECT

 public:
    ChannelChip(Studio& studio, QWidget* parent);

 protected:
    void paintEvent(QPaintEvent* event) override;

 private:
    const Studio& studio_;
};

/// A button of the Setup toolbar that selects a channel: its number on its colour, and its name.
class ChannelButton : public QAbstractButton {
    Q_OBJECT

 public:
    ChannelButton(Studio& studio, int track, QWidget* parent);
    QSize sizeHint() const override;

 protected:
    void paintEvent(QPaintEvent* event) override;

 private:
    const CheckControl& state_;
    Colour colour_;
    QString number_;
};

/// The box beside it that hides the channel: an eye while the channel is shown, black while it is hidden.
class HideBox : public QAbstractButton {
    Q_OBJECT

 public:
    HideBox(Studio& studio, int track, QWidget* parent);
    QSize sizeHint() const override { return {24, 24}; }

 protected:
    void paintEvent(QPaintEvent* event) override;

 private:
    QIcon eye_;
};

/// The twelve channels with their boxes: melody in two columns, percussion in the third.
class SetupChannelsPanel : public QWidget {
    Q_OBJECT

 public:
    SetupChannelsPanel(Studio& studio, Engine& engine, QWidget* parent);
};

}  // namespace melvane
