#include "ui/qt_flow_layout.h"

#include <algorithm>

namespace melvane {

FlowLayout::FlowLayout(int spacing) {
    setSpacing(spacing);
    setContentsMargins(0, 0, 0, 0);
}

FlowLayout::~FlowLayout() = default;

void FlowLayout::addItem(QLayoutItem* item) { items_.emplace_back(item); }

QLayoutItem* FlowLayout::itemAt(int index) const {
    return index >= 0 && index < count() ? items_[static_cast<std::size_t>(index)].get() : nullptr;
}

QLayoutItem* FlowLayout::takeAt(int index) {
    if (index < 0 || index >= count()) return nullptr;
    QLayoutItem* const item = items_[static_cast<std::size_t>(index)].release();
    items_.erase(items_.begin() + index);
    return item;
}

std::vector<FlowLayout::Row> FlowLayout::filledRows(int width) const {
    std::vector<Row> rows;
    for (std::size_t at = 0; at < items_.size(); ++at) {
        const QSize size = items_[at]->sizeHint();
        if (rows.empty() || rows.back().width + spacing() + size.width() > width) {
            rows.push_back({at, 1, size.width(), size.height()});
            continue;
        }
        Row& row = rows.back();
        ++row.count;
        row.width += spacing() + size.width();
        row.height = std::max(row.height, size.height());
    }
    return rows;
}

std::vector<FlowLayout::Row> FlowLayout::rowsFor(int width) const {
    // The narrowest filling that needs no more rows spreads the panels evenly over them.
    return filledRows(std::min(width, widthForRows(filledRows(width).size())));
}

int FlowLayout::widthForRows(std::size_t rows) const {
    int tooNarrow = 0, enough = spacing() * count();
    for (const auto& item : items_) enough += item->sizeHint().width();
    while (enough - tooNarrow > 1) {
        const int between = (tooNarrow + enough) / 2;
        const auto filled = filledRows(between);
        // A panel wider than the row stands in it alone.
        const bool fits = filled.size() <= rows && std::ranges::all_of(filled, [between](const Row& row) {
                              return row.width <= between;
                          });
        (fits ? enough : tooNarrow) = between;
    }
    return enough;
}

int FlowLayout::heightForWidth(int width) const {
    int height = -spacing();
    for (const Row& row : rowsFor(width)) height += row.height + spacing();
    return std::max(0, height);
}

QSize FlowLayout::minimumSize() const {
    QSize smallest;
    for (const auto& item : items_) smallest = smallest.expandedTo(item->minimumSize());
    return smallest;
}

void FlowLayout::setGeometry(const QRect& area) {
    QLayout::setGeometry(area);
    int y = area.top();
    for (const Row& row : rowsFor(area.width())) {
        place(row, QRect(area.left(), y, area.width(), row.height));
        y += row.height + spacing();
    }
}

bool FlowLayout::grows(std::size_t at) const {
    return items_[at]->expandingDirections().testFlag(Qt::Horizontal);
}

void FlowLayout::place(const Row& row, QRect area) const {
    int spare = std::max(0, area.width() - row.width);
    int growing = 0;
    for (std::size_t at = row.first; at < row.first + row.count; ++at) growing += grows(at) ? 1 : 0;
    int x = area.left();
    for (std::size_t at = row.first; at < row.first + row.count; ++at) {
        const int share = grows(at) ? spare / growing-- : 0;
        spare -= share;
        const int width = items_[at]->sizeHint().width() + share;
        items_[at]->setGeometry(QRect(x, area.top(), width, area.height()));
        x += width + spacing();
    }
}

}  // namespace melvane
