#pragma once
#include <QLineEdit>
#include <QWidget>
#include <array>
#include <functional>
#include <optional>

#include "core/qt_mouse.h"
#include "core/studio.h"
#include "synth/piano_geometry.h"

namespace melvane {

/// NoteX: the label of a key. While it is disabled it is only its text, painted on the key.
class KeyLabelField : public QLineEdit {
    Q_OBJECT

 public:
    KeyLabelField(KeyLabel& label, int index, QWidget* parent);

 protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    // The whole text stays selected.
    void mouseMoveEvent(QMouseEvent*) override {}
    void mouseReleaseEvent(QMouseEvent*) override {}
    void mouseDoubleClickEvent(QMouseEvent*) override { selectAll(); }

 private:
    void followEdit();

    const KeyLabel& label_;
};

/// Picture5: the keys with their labels on their ground. Keys by index, 0 to 43.
class PianoView : public QWidget {
    Q_OBJECT

 public:
    static constexpr int margin = 10;  ///< pixels of ground around the keys
    PianoView(Studio& studio, QWidget* parent);
    ~PianoView() override;

    using KeyHandler = std::function<void(int index, int button, int shift, double x, double y)>;
    /// The mouse on a key: 1 left, 2 right, 4 middle; x and y in pixels of the key. From the press to the
    /// release the key keeps the mouse.
    KeyHandler pressed, moved, released;
    /// The mouse on the ground beside the keys: it only moves there.
    MouseHandlers ground;

    /// Pixels that keys of the most natural shape ask for at that width, with the ground around them.
    static int naturalHeight(int width);
    QRect keyRect(int index) const;

 protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

 private:
    PianoGeometry geometry() const;
    QPoint origin() const;
    int keyAt(QPoint at) const;
    void tell(const KeyHandler& handler, int index, int button, const QMouseEvent& event) const;
    /// The key whose button came up while another window had the mouse is no longer held.
    void letGo(Qt::MouseButtons down);
    void paintKeys(QPainter& painter, const QRect& area, bool black) const;

    Studio& studio_;
    std::array<KeyLabelField*, Keyboard::keys> labels_{};
    struct Held {
        int key;
        Qt::MouseButton button;
    };
    std::optional<Held> held_;  ///< the key that has the mouse, until that button comes up
};

}  // namespace melvane
