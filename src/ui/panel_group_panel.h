#pragma once
#include <QFrame>
#include <initializer_list>

#include "core/controls.h"

class QCheckBox;
class QRadioButton;
class QVBoxLayout;

namespace melvane {

/// A group of controls under a heading, on a ground of its own.
class PanelGroup : public QFrame {
    Q_OBJECT

 public:
    PanelGroup(const char* heading, QWidget* parent);
    QVBoxLayout& rows() { return *rows_; }
    /// A row of widgets from the left.
    void addRow(std::initializer_list<QWidget*> widgets);

 private:
    QVBoxLayout* rows_;
};

QCheckBox* makeTick(const char* name, const char* text, const char* tip, CheckControl& tick, QWidget* parent);
/// `tip` is its accessible name too.
QRadioButton* makeOption(const QString& name, const QString& text, const QString& tip, CheckControl& option,
                         QWidget* parent);

}  // namespace melvane
