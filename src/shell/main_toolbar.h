#pragma once
#include <QWidget>
#include <array>

#include "core/studio.h"

namespace melvane {

class Engine;
class FlatButton;

/// The row of fifteen flat buttons above the tablet, with the status text at its right.
class MainToolbar : public QWidget {
    Q_OBJECT

 public:
    static constexpr int height = 44;  // pixels
    MainToolbar(Studio& studio, QWidget* parent);
    void attach(Engine& engine);

 protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;

 private:
    void addButtons(Studio& studio);
    void hideButtons() const;

    std::array<FlatButton*, 15> buttons_{};
    Engine* engine_ = nullptr;
};

}  // namespace melvane
