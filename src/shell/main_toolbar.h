#pragma once
#include <QWidget>
#include <array>

#include "core/studio.h"

class QToolButton;

namespace melvane {

class Engine;

/// The row of fifteen flat buttons above the tablet, with the status text at its right.
class MainToolbar : public QWidget {
    Q_OBJECT

 public:
    static constexpr int height = 44;  // pixels
    MainToolbar(Studio& studio, QWidget* parent);
    void attach(Engine& engine);
    /// Button 3 carries the picture of what a right click does (RightClickMode, 0 to 2).
    void showRightClickMode(int mode);

 private:
    std::array<QToolButton*, 15> buttons_{};
};

}  // namespace melvane
