// What can be read in each window, measured on its picture.
#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPixmap>
#include <QRadioButton>
#include <QTabBar>
#include <algorithm>
#include <cmath>
#include <map>

#include "every_window.h"

namespace melvane::test {

namespace {

double channel(double value) {
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double luminance(QRgb colour) {
    return 0.2126 * channel(qRed(colour) / 255.0) + 0.7152 * channel(qGreen(colour) / 255.0) +
           0.0722 * channel(qBlue(colour) / 255.0);
}

/// Between the colour that most of the picture has and the one that differs most from it: 1 to 21.
double contrastIn(const QImage& picture) {
    std::map<QRgb, int> counts;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) ++counts[picture.pixel(x, y)];
    }
    if (counts.empty()) return 1;
    const auto most = std::ranges::max_element(counts, {}, [](const auto& entry) { return entry.second; });
    const double ground = luminance(most->first) + 0.05;
    double best = 1;
    for (const auto& entry : counts) {
        const double ink = luminance(entry.first) + 0.05;
        best = std::max({best, ink / ground, ground / ink});
    }
    return best;
}

/// Where the part has its text alone, without edges and marks.
QRect textOf(const QWidget& part) {
    constexpr int edge = 4, mark = 22, arrow = 24;  // pixels
    const bool marked = qobject_cast<const QCheckBox*>(&part) != nullptr ||
                        qobject_cast<const QRadioButton*>(&part) != nullptr;
    const bool opens = qobject_cast<const QComboBox*>(&part) != nullptr;
    return part.rect().adjusted(marked ? mark : edge, edge, opens ? -arrow : -edge, -edge);
}

QString textIn(const QWidget& part) {
    const auto* const list = qobject_cast<const QComboBox*>(&part);
    return list != nullptr ? list->currentText() : part.property("text").toString();
}

}  // namespace

class EveryWindowsColours : public EveryWindow {
 protected:
    void expectReadable() {
        // A little under the 4.5 of the colours themselves: no pixel of a thin letter is all ink.
        constexpr double least = 4.3;
        const QImage picture = window->grab().toImage();
        const double ratio = picture.devicePixelRatio();
        for (const QWidget* const part : parts()) {
            if (!part->isEnabled() || textIn(*part).trimmed().isEmpty()) continue;
            const QRect area = textOf(*part).translated(part->mapTo(window, QPoint()));
            const QRect device(area.topLeft() * ratio, area.size() * ratio);
            EXPECT_GE(contrastIn(picture.copy(device)), least) << called(*part);
        }
    }
};

TEST_P(EveryWindowsColours, EachTextReadsOnItsGroundInBothLooks) {
    expectReadable();
    program.engine().settings.save("XPInterface", false);
    QMetaObject::invokeMethod(window, "ApplySkin");
    serve();
    expectReadable();
}

INSTANTIATE_TEST_SUITE_P(All, EveryWindowsColours, testing::ValuesIn(windowStates()), nameOf);

}  // namespace melvane::test
