// What the Tab key does in each window.
#include <QApplication>
#include <QPixmap>
#include <QTest>
#include <QTextBrowser>
#include <QWindow>
#include <algorithm>

#include "every_window.h"

namespace melvane::test {

class EveryWindowsKeys : public EveryWindow {
 protected:
    /// What the Tab key reaches, one after the other, until it comes round. `look` sees each with the focus.
    std::vector<QWidget*> reached(const std::function<void(QWidget&)>& look = {}) {
        constexpr int most = 300;
        std::vector<QWidget*> found;
        for (int press = 0; press < most; ++press) {
            QTest::keyClick(window->windowHandle(), Qt::Key_Tab);
            QWidget* const now = window->focusWidget();
            if (now == nullptr || (!found.empty() && now == found.front())) return found;
            const bool amongLinks =
                !found.empty() && now == found.back() && qobject_cast<QTextBrowser*>(now) != nullptr;
            if (amongLinks) continue;
            found.push_back(now);
            if (look) look(*now);
        }
        ADD_FAILURE() << "the Tab key does not come round";
        return found;
    }
    static bool takesTab(const QWidget& part) {
        return part.isEnabled() && (part.focusPolicy() & Qt::TabFocus) != 0;
    }
    /// The title bar's buttons come last.
    static bool inTitle(const QWidget& part) { return part.parentWidget()->objectName() == "TopBar"; }
};

TEST_P(EveryWindowsKeys, TabReachesEachControlOnce) {
    const auto found = reached();
    for (const QWidget* const part : controls()) {
        EXPECT_EQ(std::ranges::count(found, part), takesTab(*part) ? 1 : 0) << called(*part);
    }
}

TEST_P(EveryWindowsKeys, TabGoesInReadingOrder) {
    auto found = reached();
    // The window may have begun in its middle.
    const auto title = std::ranges::find_if(found, [](const QWidget* part) { return inTitle(*part); });
    const auto after = std::find_if(title, found.end(), [](const QWidget* part) { return !inTitle(*part); });
    std::rotate(found.begin(), after, found.end());
    for (std::size_t at = 1; at < found.size(); ++at) {
        const QPoint before = placeOf(*found[at - 1]).center(), now = placeOf(*found[at]).center();
        EXPECT_TRUE(now.x() > before.x() || now.y() > before.y() || inTitle(*found[at]))
            << called(*found[at - 1]) << " then " << called(*found[at]);
    }
}

TEST_P(EveryWindowsKeys, TheFocusIsSeen) {
    QWidget* last = nullptr;
    QImage withFocus;
    reached([&](QWidget& now) {
        if (last != nullptr) {
            EXPECT_NE(last->grab().toImage(), withFocus) << called(*last);
        }
        last = &now;
        withFocus = now.grab().toImage();
    });
}

INSTANTIATE_TEST_SUITE_P(All, EveryWindowsKeys, testing::ValuesIn(windowStates()), nameOf);

}  // namespace melvane::test
