#pragma once
#include <QObject>
#include <QPointer>
#include <QWidget>

namespace melvane::drive {

/// Which window is in front. The platform's own activations, which come when it likes, are kept from the
/// windows; the bench moves the focus only where a script does, with the events that it has in real life.
class FocusKeeper : public QObject {
 public:
    FocusKeeper();
    /// Takes the focus from the window that has it and gives it to `window`, at once.
    void moveTo(QWidget* window);
    QWidget* front() const { return front_; }
    /// The program is gone.
    void forget() { front_ = nullptr; }

 protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    void send(QWidget& window, bool active);

    QPointer<QWidget> front_;
    const QEvent* own_ = nullptr;  ///< the event that the bench itself is sending
};

}  // namespace melvane::drive
