#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QScreen>
#include <QTabWidget>

#include "every_window.h"
#include "ui/flat_button_panel.h"
#include "ui/qt_elided_label.h"

namespace melvane::test {

namespace {

/// Whether it may lie over its neighbours: the edges and grips of the frame do, and the button of a picture.
bool liesOver(const QWidget& part) {
    const QString name = part.objectName();
    return name.startsWith("Winedge(") || name.startsWith("Resizer(") ||
           qobject_cast<const FlatButton*>(part.parentWidget()) != nullptr;
}

/// It shows a text, which asks for its room.
bool isText(const QWidget& part) {
    return (qobject_cast<const QLabel*>(&part) != nullptr &&
            dynamic_cast<const ElidedLabel*>(&part) == nullptr) ||
           (qobject_cast<const QAbstractButton*>(&part) != nullptr &&
            !part.property("text").toString().isEmpty());
}

/// Whether it lies on a panel, whose ground is lighter than the window's.
bool liesOnPanel(const QWidget& part) {
    for (const QWidget* outer = part.parentWidget(); outer != nullptr; outer = outer->parentWidget()) {
        const bool page =
            qobject_cast<const QTabWidget*>(outer) != nullptr && !outer->property("onGround").toBool();
        if (page || outer->property("panel").toBool()) return true;
    }
    return false;
}

}  // namespace

class EveryWindowsLayout : public EveryWindow {
 protected:
    void expectOnScreen() const {
        const QRect room = window->screen()->availableGeometry(), place = window->frameGeometry();
        EXPECT_TRUE(room.contains(place))
            << place.x() << ' ' << place.y() << ' ' << place.width() << ' ' << place.height();
    }
    void expectInside() const {
        for (const QWidget* const part : parts()) {
            const QWidget& outer = *part->parentWidget();
            EXPECT_TRUE(outer.rect().contains(part->geometry())) << called(*part) << " in " << called(outer);
        }
    }
    void expectApart() const {
        const auto all = parts();
        for (const QWidget* const part : all) {
            for (const QWidget* const other : all) {
                if (part >= other || part->parentWidget() != other->parentWidget()) continue;
                if (liesOver(*part) || liesOver(*other)) continue;
                EXPECT_FALSE(part->geometry().intersects(other->geometry()))
                    << called(*part) << " and " << called(*other);
            }
        }
    }
    void expectRoomForTexts() const {
        for (const QWidget* const part : parts()) {
            if (!isText(*part)) continue;
            EXPECT_GE(part->width(), part->minimumSizeHint().width()) << called(*part);
            EXPECT_GE(part->height(), part->minimumSizeHint().height()) << called(*part);
        }
    }
};

TEST_P(EveryWindowsLayout, TheWindowStandsOnItsScreen) { expectOnScreen(); }
TEST_P(EveryWindowsLayout, EachPartLiesInsideWhatHoldsIt) { expectInside(); }
TEST_P(EveryWindowsLayout, NothingLiesOverItsNeighbour) { expectApart(); }
TEST_P(EveryWindowsLayout, EachTextHasTheRoomThatItAsksFor) { expectRoomForTexts(); }

/// On the window's own ground its contrast would be too low.
TEST_P(EveryWindowsLayout, PaleTextLiesOnAPanel) {
    for (const QWidget* const part : parts()) {
        if (part->property("secondary").toBool()) {
            EXPECT_TRUE(liesOnPanel(*part)) << called(*part);
        }
    }
}

TEST_P(EveryWindowsLayout, AFontOneSizeLargerHasRoomToo) {
    const QFont usual = QApplication::font();
    QFont larger = usual;
    larger.setPointSize(usual.pointSize() + 1);
    QApplication::setFont(larger);
    serve();
    expectInside();
    expectApart();
    expectRoomForTexts();
    QApplication::setFont(usual);
}

INSTANTIATE_TEST_SUITE_P(All, EveryWindowsLayout, testing::ValuesIn(windowStates()), nameOf);

}  // namespace melvane::test
