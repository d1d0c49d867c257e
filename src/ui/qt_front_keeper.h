#pragma once
#include <QObject>

class QWidget;

namespace melvane {

/// Keeps a floating window in front of whichever window of the program that stands by itself is active: the
/// main window, or the keyboard, which does not own it and would cover it. The focus stays where it is.
class FrontKeeper : public QObject {
    Q_OBJECT

 public:
    /// Belongs to `floating`.
    explicit FrontKeeper(QWidget& floating);

 protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    void putBefore(QWidget& active);

    QWidget& floating_;
};

}  // namespace melvane
