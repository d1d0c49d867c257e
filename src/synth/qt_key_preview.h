#pragma once
#include <QObject>
#include <map>
#include <optional>

class QKeyEvent;
class QWidget;

namespace melvane {

class KeyboardCommands;
struct Studio;

/// Brings what is typed in a window to the keyboard's handlers, whichever control has the focus, and keeps it
/// from the controls. These keep what types nothing: the Tab and the arrow keys, and the Return key, which
/// presses the button that has the focus. While the labels are edited they have everything.
///
/// A key that repeats itself comes as further presses. A key is released by its own release, or when the
/// window loses the keyboard to another window.
class KeyPreview : public QObject {
    Q_OBJECT

 public:
    /// All of them outlive it.
    KeyPreview(const Studio& studio, QWidget& window, KeyboardCommands& commands);
    ~KeyPreview() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    bool handle(QKeyEvent& event, bool here);
    bool press(const QKeyEvent& event);
    bool release(const QKeyEvent& event);
    void deliverTyped();
    bool pressFocused() const;
    bool isEditing() const;
    void releaseAll();

    const Studio& studio_;
    QWidget& window_;
    KeyboardCommands& commands_;
    std::optional<int> typed_;  ///< a character whose key's own handler still runs
    std::map<int, int> held_;   ///< the codes of the keys that are down, by keyIdentity
};

}  // namespace melvane
