#pragma once
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <functional>

#include "core/controls.h"
#include "ui/qt_elided_label.h"

class QGridLayout;

/// What the panels of the windows are put together from.
namespace melvane {

/// Makes `frame` a panel, a group of controls on a ground of its own, and gives it a grid.
QGridLayout* makePanelGrid(QFrame& frame);

/// A label that names a control.
QLabel* makeCaption(const char* text, QWidget* parent);

/// A box that shows `text`, at least `width` pixels wide; `tip` is its accessible name too.
ElidedLabel* makeReadout(const char* name, const char* tip, TextControl& text, int width, QWidget* parent);

/// Text5: shows an instrument and opens the picker at a double click.
class InstrumentField : public QLineEdit {
    Q_OBJECT

 public:
    InstrumentField(TextControl& instrument, QWidget* parent);
    std::function<void()> doubleClicked;

 protected:
    void mouseDoubleClickEvent(QMouseEvent* event) override;
};

/// An instrument's name in a box: a double click opens the picker.
class InstrumentReadout : public ElidedLabel {
 public:
    explicit InstrumentReadout(QWidget* parent);
    std::function<void()> doubleClicked;

 protected:
    void mouseDoubleClickEvent(QMouseEvent* event) override;
};

/// LblTrk: the number of a channel on the channel's colour.
class ChannelBox : public QLabel {
    Q_OBJECT

 public:
    ChannelBox(TextControl& track, QWidget* parent);

 protected:
    void paintEvent(QPaintEvent* event) override;

 private:
    const TextControl& track_;
};

}  // namespace melvane
