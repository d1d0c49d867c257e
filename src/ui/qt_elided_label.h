#pragma once
#include <QLabel>
#include <QString>

namespace melvane {

/// A label of one line that shortens a text it has no room for, and then tells it whole in its tool tip. What
/// it asks for does not follow its text, so that a new text never moves its neighbours.
class ElidedLabel : public QLabel {
 public:
    using QLabel::QLabel;
    /// It asks for room for `text`, usually the longest that it is to show.
    void setRoomFor(const QString& text);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return {0, QLabel::minimumSizeHint().height()}; }

 protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;

 private:
    int padding() const;
    QRect textRoom() const;
    QString shownText() const;

    QString roomFor_;
};

}  // namespace melvane
