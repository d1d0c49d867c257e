#include "shell/note_test_window.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

#include "main_window_fixture.h"
#include "shell/instrument_picker_window.h"
#include "shell/tested_note_view.h"
#include "ui/slider_panel.h"

namespace melvane::test {

class NoteTestWindowTest : public MainWindowTest {
 protected:
    NoteTestWindowTest() {
        floatingWindows.list({}, "Form5",
                             [this] { return panel = new Form5(studio, engine.noteTest, &window); });
    }
    void open() {
        QTest::mouseClick(find("CmdTest"), Qt::LeftButton);
        QCoreApplication::processEvents();
        ASSERT_NE(panel, nullptr);
        ASSERT_TRUE(panel->isVisible());
    }
    template <class Widget = QWidget>
    Widget* part(const char* name) {
        auto* const widget = panel->findChild<Widget*>(name);
        EXPECT_NE(widget, nullptr) << name;
        return widget;
    }
    /// A corner of a ground that none of its parts covers.
    void doubleClick(const char* name, QPoint at = {3, 3}, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseDClick(part(name), button, {}, at);
        QCoreApplication::processEvents();
    }
    QImage picture(const char* name) {
        QCoreApplication::processEvents();
        return part(name)->grab().toImage();
    }

    Form5* panel = nullptr;
    FrmInst picker{studio, engine.picker, &window};
};

TEST_F(NoteTestWindowTest, TheButtonBesideTheSwitchOpensIt) {
    open();
    EXPECT_EQ(panel->windowTitle(), "Static note Test");
    EXPECT_TRUE(panel->isWindow());
    EXPECT_EQ(panel->windowType(), Qt::Tool);
    EXPECT_TRUE(studio.Form5.loaded);
    EXPECT_TRUE(studio.Form5.window.visible());
    EXPECT_EQ(panel->focusWidget(), part("Check4"));
    EXPECT_EQ(part<QComboBox>("Combo3")->count(), 8);
    EXPECT_EQ(part<QComboBox>("Combo3")->currentIndex(), 0);
    EXPECT_EQ((panel->geometry().center() - panel->screen()->availableGeometry().center()).manhattanLength(),
              0);
}

TEST_F(NoteTestWindowTest, ADoubleClickOnABareGroundClosesIt) {
    for (const char* const name : {"Pic2", "Picture10", "Pt1", "LblNoteName"}) {
        open();
        doubleClick(name, {3, 3}, Qt::RightButton);
        EXPECT_TRUE(panel->isVisible()) << name;
        doubleClick(name);
        EXPECT_FALSE(panel->isVisible()) << name;
        EXPECT_FALSE(studio.Form5.loaded);
        EXPECT_FALSE(studio.Form5.window.visible());
    }
    open();
    doubleClick("Picture4");
    EXPECT_TRUE(panel->isVisible());
}

TEST_F(NoteTestWindowTest, ADoubleClickOnANumberLeavesItOpen) {
    open();
    for (const char* const name :
         {"LblNote", "LblTrk", "LblMod", "LblPan", "LblReverb", "LblChorus", "vol3"}) {
        QWidget* const number = part(name);
        QTest::mouseDClick(panel->windowHandle(), Qt::LeftButton, {},
                           number->mapTo(panel, number->rect().center()));
        QCoreApplication::processEvents();
        EXPECT_TRUE(panel->isVisible()) << name;
    }
}

TEST_F(NoteTestWindowTest, EscapeAndTheCloseButtonUnloadIt) {
    open();
    studio.Form5.Combo3.set(4);
    QTest::keyClick(panel, Qt::Key_Escape);
    EXPECT_FALSE(studio.Form5.loaded);
    EXPECT_FALSE(panel->isVisible());
    open();
    EXPECT_EQ(studio.Form5.Combo3.index(), 0);
    panel->close();
    EXPECT_FALSE(studio.Form5.loaded);
}

TEST_F(NoteTestWindowTest, HiddenForAWhileItStaysLoaded) {
    open();
    studio.Form5.Combo3.set(4);
    panel->hide();
    EXPECT_TRUE(studio.Form5.loaded);
    EXPECT_FALSE(studio.Form5.window.visible()) << "no note is marked meanwhile";
    panel->move(10, 20);
    panel->show();
    EXPECT_EQ(studio.Form5.Combo3.index(), 4);
    EXPECT_EQ(panel->pos(), QPoint(10, 20)) << "only a load centres it";
}

TEST_F(NoteTestWindowTest, AHeldMouseMovesItFromItsGrounds) {
    open();
    panel->move(100, 100);
    const auto drag = [this](const char* name) {
        QWidget* const ground = part(name);
        const QPointF from = ground->mapToGlobal(QPointF(3, 3)), to = from + QPointF(40, 20);
        QTest::mousePress(ground, Qt::LeftButton, {}, {3, 3});
        QMouseEvent move(QEvent::MouseMove, ground->mapFromGlobal(to), to, Qt::NoButton, Qt::LeftButton, {});
        QCoreApplication::sendEvent(ground, &move);
        QTest::mouseRelease(ground, Qt::LeftButton, {}, {3, 3});
        const QPoint way = panel->pos() - QPoint(100, 100);
        panel->move(100, 100);
        return way;
    };
    for (const char* const name : {"Pic2", "Picture4", "Picture10", "Pt1", "Text5"}) {
        EXPECT_EQ(drag(name), QPoint(40, 20)) << name;
    }
    for (const char* const name : {"Pic2a", "Pic3", "lblVolume", "Combo3"})
        EXPECT_EQ(drag(name), QPoint()) << name;
    QTest::mouseClick(part("Pic2"), Qt::LeftButton, {}, {3, 3});
    EXPECT_EQ(panel->pos(), QPoint(100, 100)) << "a click is no move";
}

TEST_F(NoteTestWindowTest, ADoubleClickOnTheInstrumentPicksTwice) {
    write(0, 4, 60);
    engine.selector.Pic2a_MouseDown(1, 0, 50, 5);
    open();
    std::vector<bool> forANote;
    for (const int moment : {10, 20}) {
        time.at(moment, [this, &forANote] {
            ASSERT_TRUE(picker.isVisible());
            forANote.push_back(studio.instruments.PickingNoteInstrument);
            studio.FrmInst.LstInstruments.set(73);
            engine.picker.CmdOk_Click();
        });
    }
    doubleClick("Text5");
    EXPECT_EQ(forANote, (std::vector{false, true}));
    EXPECT_TRUE(panel->isVisible());
    EXPECT_EQ(studio.score.InstArray.get(0, 4, 0), 73);
    EXPECT_EQ(part<QLineEdit>("Text5")->text(), "Flute");
}

TEST_F(NoteTestWindowTest, TheNoteIsPaintedInItsChannelsColourAmongPaleNeighbours) {
    write(0, 4, 60, 3);
    write(0, 9, 61, 2);
    studio.score.PolyArray.set(1, 4, 2);
    engine.selector.Pic2a_MouseDown(1, 0, 70, 5);
    open();
    const QColor red(255, 0, 0), pale = toQt(studio.tracks.TrackPaleColor[0]);
    const QImage note = picture("Pt1");
    const int middle = 4 + (52 - 4 - 11) / 2;
    EXPECT_EQ(pixel(note, 70, middle + 5), red) << "the bar of the note";
    EXPECT_EQ(pixel(note, 10 * 12 + 5, middle + 4 + 5), pale) << "a row lower";
    EXPECT_EQ(pixel(note, 300, 1), red) << "the channel's band";
    EXPECT_EQ(pixel(picture("Pic2a"), 5 * 12 + 1, 10), red) << "the cursor";
    EXPECT_EQ(pixel(picture("Pic2a"), 4 * 12 + 1, 10), QColor(255, 255, 255));
    EXPECT_EQ(pixel(picture("Pic3"), 4 * 12 + 5, 5), QColor(0x1E, 0x23, 0x29));
    EXPECT_EQ(pixel(picture("Pic3"), 5 * 12 + 5, 5), red);
    engine.channels.Label8_Click(1);
    EXPECT_EQ(pixel(picture("Pt1"), 300, 1), toQt(studio.tracks.TrackColor[1]));
    EXPECT_EQ(pixel(picture("Pt1"), 70, middle + 5), QColor(255, 255, 255)) << "another channel";
}

TEST_F(NoteTestWindowTest, APressOnItsSelectorInspects) {
    write(0, 4, 60);
    open();
    QTest::mouseClick(part("Pic2a"), Qt::LeftButton, {}, {4 * 12 + 5, 10});
    EXPECT_EQ(studio.form1.LblNote.text(), "5");
    EXPECT_EQ(part<QLabel>("LblNote")->text(), "5");
    EXPECT_EQ(part<QLabel>("LblNoteName")->text(), "G");
    studio.form1.Combo3.set(3);
    QTest::mousePress(part("Pic3"), Qt::LeftButton, {}, {6 * 12 + 5, 5});
    EXPECT_EQ(studio.score.chordOf(0, 6), 3);
    EXPECT_EQ(pixel(picture("Pic3"), 6 * 12 + 5, 5), QColor(0x1E, 0x23, 0x29));
    QTest::mouseRelease(part("Pic3"), Qt::LeftButton, {}, {6 * 12 + 5, 5});
}

TEST_F(NoteTestWindowTest, TheVolumeAnswersToMouseKeysAndWheel) {
    open();
    auto& track = *part<SliderTrack>("lblVolume");
    const int middle = track.height() / 2;
    QTest::mousePress(&track, Qt::LeftButton, {}, {track.width() - 5, middle});
    QMouseEvent move(QEvent::MouseMove, QPointF(0, middle), track.mapToGlobal(QPointF(0, middle)),
                     Qt::NoButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&track, &move);
    QTest::mouseRelease(&track, Qt::LeftButton, {}, {0, middle});
    EXPECT_EQ(part<QLabel>("vol3")->text(), "0");
    QTest::keyClick(&track, Qt::Key_Right);
    EXPECT_EQ(studio.Form5.vol3.text(), "1");
    QTest::keyClick(&track, Qt::Key_Down);
    QTest::keyClick(&track, Qt::Key_Down);
    EXPECT_EQ(studio.Form5.vol3.text(), "0");
}

TEST_F(NoteTestWindowTest, EveryControlHasANameATipAndAPlaceInTheTabOrder) {
    open();
    for (const char* const name : {"Text5", "CmdInst", "Combo3", "Check4", "lblVolume"}) {
        const QWidget& control = *part(name);
        EXPECT_NE(control.focusPolicy() & Qt::TabFocus, 0) << name;
        EXPECT_FALSE(control.toolTip().isEmpty()) << name;
    }
    for (const char* const name :
         {"Text5", "Combo3", "lblVolume", "Pt1", "Pic2a", "Pic3", "LblNote", "LblTrk"}) {
        EXPECT_FALSE(part(name)->accessibleName().isEmpty()) << name;
    }
}

TEST_F(NoteTestWindowTest, NothingIsCutOffWithALargerFont) {
    const QFont usual = QApplication::font();
    QFont larger = usual;
    larger.setPointSize(usual.pointSize() + 1);
    QApplication::setFont(larger);
    open();
    for (const QWidget* const child : panel->findChildren<QWidget*>()) {
        if (child->parentWidget() == panel || !child->isVisible()) continue;
        if (child->parentWidget()->inherits("QComboBox")) continue;
        EXPECT_TRUE(child->parentWidget()->rect().contains(child->geometry()))
            << child->objectName().toStdString();
        EXPECT_GE(child->width(), child->minimumSizeHint().width()) << child->objectName().toStdString();
    }
    QApplication::setFont(usual);
}

TEST_F(NoteTestWindowTest, ItEndsWithTheProgramsWindows) {
    open();
    floatingWindows.unloadAll();
    EXPECT_FALSE(studio.Form5.loaded);
    delete panel;
    open();
    EXPECT_TRUE(studio.Form5.loaded) << "made anew";
}

}  // namespace melvane::test
