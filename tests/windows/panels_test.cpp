#include <QFrame>
#include <QTest>

#include "core/instrument_names.h"
#include "main_window_fixture.h"

namespace melvane::test {

struct WindowCase {
    int width, height, fontLargerBy;
};

/// The panels of the Quick Compose bar in windows of different widths.
class PanelsTest : public MainWindowTest, public testing::WithParamInterface<WindowCase> {
 protected:
    PanelsTest() {
        QFont font = usual;
        font.setPointSize(font.pointSize() + GetParam().fontLargerBy);
        QApplication::setFont(font);
        resizeTo(GetParam().width + 1, GetParam().height);
        resizeTo(GetParam().width, GetParam().height);
    }
    ~PanelsTest() override { QApplication::setFont(usual); }

    std::vector<QFrame*> panels() {
        std::vector<QFrame*> found;
        for (QFrame* const panel : window.findChildren<QFrame*>()) {
            if (panel->property("panel").toBool()) found.push_back(panel);
        }
        EXPECT_EQ(found.size(), 6U);
        return found;
    }
    QRect place(const QWidget& widget) { return {widget.mapTo(&window, QPoint(0, 0)), widget.size()}; }
    static std::vector<const QWidget*> shownParts(const QFrame& panel) {
        std::vector<const QWidget*> parts;
        for (const QWidget* const part : panel.findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
            if (part->isVisible()) parts.push_back(part);
        }
        return parts;
    }
    void expectWholeAndApart(const QFrame& panel) {
        const auto parts = shownParts(panel);
        for (const QWidget* const part : parts) {
            const std::string name = part->objectName().toStdString();
            EXPECT_TRUE(panel.rect().adjusted(12, 12, -12, -12).contains(part->geometry())) << name;
            EXPECT_GE(part->width(), part->minimumSizeHint().width()) << name;
            EXPECT_GE(part->height(), part->minimumSizeHint().height()) << name;
            for (const QWidget* const other : parts) {
                EXPECT_TRUE(part == other || !part->geometry().intersects(other->geometry())) << name;
            }
        }
    }
    /// How many rows the panels stand in, all of them inside the window and below the tablet's panel.
    std::size_t rows() {
        std::vector<int> tops;
        for (const QFrame* const panel : panels()) {
            EXPECT_TRUE(window.rect().contains(place(*panel)));
            EXPECT_FALSE(place(*panel).intersects(place(*find("Picmain"))));
            EXPECT_FALSE(place(*panel).intersects(place(*find("Beatbox"))));
            if (std::ranges::count(tops, place(*panel).top()) == 0) tops.push_back(place(*panel).top());
        }
        return tops.size();
    }
    void tellLongTexts() {
        studio.form1.LblInst.set("Acoustic Grand Piano, and a good deal of text behind its name");
        studio.form1.Label7.set("4 note chord: 5C 5E 5G 6C and as many notes again in one line");
        studio.form1.Label5.set("1000-C#, the last of them all");
        studio.form1.Text5.set("Acoustic Grand Piano, and a good deal of text behind its name");
        studio.form1.StatusText.set(std::string(400, 'x'));
        QCoreApplication::processEvents();
    }

 private:
    QFont usual = QApplication::font();
};

TEST_P(PanelsTest, EveryControlStandsWholeAndApart) {
    for (const QFrame* const panel : panels()) expectWholeAndApart(*panel);
    EXPECT_LE(rows(), 2U);
    EXPECT_GE(tablet().height(), 300);
}

TEST_P(PanelsTest, ALongTextMovesNothing) {
    std::vector<QRect> before, after;
    for (const QFrame* const panel : panels()) before.push_back(place(*panel));
    tellLongTexts();
    for (const QFrame* const panel : panels()) after.push_back(place(*panel));
    EXPECT_EQ(after, before);
    for (const QFrame* const panel : panels()) expectWholeAndApart(*panel);
    EXPECT_LE(rows(), 2U);
}

TEST_P(PanelsTest, ALaterFontIsLaidOutToo) {
    QFont font = QApplication::font();
    font.setPointSize(font.pointSize() + 1);
    QApplication::setFont(font);
    QCoreApplication::processEvents();
    for (const QFrame* const panel : panels()) expectWholeAndApart(*panel);
    EXPECT_LE(rows(), 2U);
}

TEST_P(PanelsTest, TheLongestNamesAreShownWhole) {
    const auto* const label = find("LblInst");
    for (const auto name : melvane::melodyInstrumentNames) {
        const QString text = QString::fromStdString(std::string(name));
        EXPECT_LE(label->fontMetrics().horizontalAdvance(text), label->width() - 14) << name;
    }
    const auto* const chord = find("Label7");
    for (int index = 0; index < 7; ++index) {
        const QString text = QString::fromStdString(engine.chords.textOf(index));
        EXPECT_LE(chord->fontMetrics().horizontalAdvance(text), chord->width() - 14) << index;
    }
}

INSTANTIATE_TEST_SUITE_P(Windows, PanelsTest,
                         testing::Values(WindowCase{1280, 720, 0}, WindowCase{1280, 720, 1},
                                         WindowCase{1864, 1000, 0}, WindowCase{1907, 973, 0},
                                         WindowCase{1920, 1000, 0}, WindowCase{1920, 1053, 1}));

using PanelRows = MainWindowTest;

TEST_F(PanelRows, AThousandPixelsStillHaveTwoRows) {
    resizeTo(1003, 700);
    const int barTop = find("Label8(0)")->mapTo(&window, QPoint(0, 0)).y();
    const int undoTop = find("CmdUndo")->mapTo(&window, QPoint(0, 0)).y();
    EXPECT_LT(undoTop - barTop, 2 * 84) << "a third row";
}

TEST_F(PanelRows, AWindowMayBeSmallerThanIsOfUse) {
    for (const QSize size : {QSize(57, 90), QSize(320, 200), QSize(640, 480)}) {
        resizeTo(size.width(), size.height());
        EXPECT_EQ(window.size(), size);
        EXPECT_EQ(studio.form1.client.width(), size.width());
    }
}

TEST_F(PanelRows, AWideWindowHasOneRow) {
    resizeTo(1920, 1000);
    const int barTop = find("Label8(0)")->mapTo(&window, QPoint(0, 0)).y();
    EXPECT_EQ(find("Combo3")->mapTo(&window, QPoint(0, 0)).y(), barTop);
    EXPECT_EQ(find("Text5")->mapTo(&window, QPoint(0, 0)).y(), barTop);
}

}  // namespace melvane::test
