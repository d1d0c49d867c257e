#pragma once
#include <QFrame>
#include <initializer_list>

#include "synth/keyboard_sliders.h"

class QBoxLayout;
class QCheckBox;
class QPushButton;
class QRadioButton;
class QVBoxLayout;

/// What the pages of the keyboard window are put together from.
namespace melvane {

/// A group of controls under a heading, on a ground of its own.
class KeyboardGroup : public QFrame {
    Q_OBJECT

 public:
    KeyboardGroup(const char* heading, QWidget* parent);
    QVBoxLayout& rows() { return *rows_; }
    /// A row of widgets from the left.
    void addRow(std::initializer_list<QWidget*> widgets);

 private:
    QVBoxLayout* rows_;
};

QCheckBox* makeTick(const char* name, const char* text, const char* tip, CheckControl& tick, QWidget* parent);
QRadioButton* makeOption(const QString& name, const QString& text, const QString& tip, CheckControl& option,
                         QWidget* parent);
/// A button that stays down.
QPushButton* makeToggle(const char* name, const char* text, const char* tip, CheckControl& toggle,
                        QWidget* parent);
/// A press runs the control's handler. `tip` is what it says as long as the control has none.
QPushButton* makeKeyboardButton(const char* name, const char* text, const char* tip, PictureControl& button,
                                QWidget* parent);

/// A slider with its name, and over its track the read-out of its number; a number with more than two places
/// behind its point is shown rounded.
QWidget* makeKeyboardSlider(KeyboardSliders& sliders, KeyboardSliders::Slider slider, const char* caption,
                            const char* readoutName, TextControl& readout, QWidget* parent);

}  // namespace melvane
