#pragma once
#include <QWidget>
#include <array>
#include <vector>

#include "core/studio.h"

class QLabel;

namespace melvane {

/// The bar numbers above the tablet: the thirteen labels TopBar(0) to TopBar(12). A number may be wider than
/// its bar; it is shown whole, and those that it would run into are left out.
class TopBarPanel : public QWidget {
    Q_OBJECT

 public:
    static constexpr int height = 20;  // pixels
    /// Pixels from this panel's left edge to the first column.
    static constexpr int firstColumnLeft = 32;

    explicit TopBarPanel(QWidget* parent);
    /// Places the numbers of the page and hides the labels that are left over.
    void DrawTopBar(const Studio& studio);
    /// Where the numbers that are shown stand, from the left; pixels of this panel.
    std::vector<QRect> shownNumbers() const;

 protected:
    void paintEvent(QPaintEvent* event) override;

 private:
    /// Calls `show(label, area)` for each number that has room.
    template <class Show>
    void walkShownNumbers(Show&& show) const;

    std::array<QLabel*, 13> labels_{};
};

}  // namespace melvane
