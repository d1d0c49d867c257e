#pragma once
#include <QAbstractButton>
#include <QFrame>
#include <array>

#include "core/studio.h"

namespace melvane {

class Engine;

/// One channel label: the channel's number on its colour, with a ring while it is the current one.
class ChannelLabel : public QAbstractButton {
    Q_OBJECT

 public:
    static constexpr int width = 28, height = 24;  // pixels
    ChannelLabel(TextControl& label, const QString& name, QWidget* parent);
    bool isCurrent() const;
    void setCurrent(bool current);

 protected:
    void paintEvent(QPaintEvent* event) override;

 private:
    const TextControl& label_;
};

/// The channel labels Label8 in their track colours: a click makes a track the current one. The button Check2
/// beside them opens and closes the percussion tableau.
class ChannelLabelsPanel : public QFrame {
    Q_OBJECT

 public:
    ChannelLabelsPanel(Studio& studio, QWidget* parent);
    void attach(Engine& engine);
    /// Moves the ring to the current track.
    void showCurrentTrack();

 private:
    Studio& studio_;
    std::array<ChannelLabel*, 13> labels_{};  ///< by track; none for track 9
};

}  // namespace melvane
