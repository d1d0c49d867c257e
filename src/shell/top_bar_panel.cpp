#include "shell/top_bar_panel.h"

#include <QLabel>
#include <QPainter>

#include "core/tablet_page.h"
#include "ui/qt_bindings.h"

namespace melvane {

namespace {

constexpr int numberSpace = 4;  // pixels, at least, between two numbers

/// The label of a bar: it has the bar's place and number; the panel paints it, over the bar's end if need be.
class BarNumber : public QLabel {
 public:
    using QLabel::QLabel;

 protected:
    void paintEvent(QPaintEvent*) override {}
};

}  // namespace

TopBarPanel::TopBarPanel(QWidget* parent) : QWidget(parent) {
    for (std::size_t at = 0; at < labels_.size(); ++at) {
        labels_[at] = new BarNumber(this);
        labels_[at]->setObjectName(memberName("TopBar", static_cast<int>(at)));
        labels_[at]->hide();
    }
}

void TopBarPanel::DrawTopBar(const Studio& studio) {
    const auto bars = barLabels(studio.page, studio.score.BeatsPerMeasure);
    for (std::size_t at = 0; at < labels_.size(); ++at) {
        QLabel& label = *labels_[at];
        if (at < bars.size()) {
            label.setGeometry(bars[at].left, 0, bars[at].width, height);
            label.setText(QString::fromStdString(bars[at].caption));
        }
        label.setVisible(at < bars.size());
    }
    update();
}

template <class Show>
void TopBarPanel::walkShownNumbers(Show&& show) const {
    int free = 0;
    for (const QLabel* const label : labels_) {
        if (label->isHidden() || label->x() < free) continue;
        const int width = fontMetrics().horizontalAdvance(label->text());
        show(*label, QRect(label->x(), 0, width, height));
        free = label->x() + width + numberSpace;
    }
}

std::vector<QRect> TopBarPanel::shownNumbers() const {
    std::vector<QRect> numbers;
    walkShownNumbers([&](const QLabel&, const QRect& area) { numbers.push_back(area); });
    return numbers;
}

void TopBarPanel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::WindowText));
    walkShownNumbers([&](const QLabel& label, const QRect& area) {
        painter.drawText(area, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextDontClip, label.text());
    });
}

}  // namespace melvane
