#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QScrollBar>
#include <QTabWidget>
#include <QTest>
#include <array>
#include <utility>

#include "main_window_fixture.h"
#include "shell/instrument_picker_window.h"
#include "shell/setup_toolbar_window.h"
#include "ui/qt_bindings.h"
#include "ui/slider_panel.h"

namespace melvane::test {

class SetupToolbarTest : public MainWindowTest {
 protected:
    SetupToolbarTest() {
        toolbar.show();
        QCoreApplication::processEvents();
    }

    template <class Widget = QWidget>
    Widget& part(const QString& name) {
        auto* const found = toolbar.findChild<Widget*>(name);
        EXPECT_NE(found, nullptr) << name.toStdString();
        return *found;
    }
    QTabWidget& pages() { return part<QTabWidget>("SSTab1"); }
    void open(int page) {
        pages().setCurrentIndex(page);
        QCoreApplication::processEvents();
    }
    void press(QWidget& widget, QPoint at, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mousePress(&widget, button, {}, at);
        QTest::mouseRelease(&widget, button, {}, at);
    }
    /// Every control of the page that is open: whole, inside the page, apart from the others.
    void expectWholeAndApart() {
        QList<QWidget*> parts;
        for (QWidget* const child : pages().currentWidget()->findChildren<QWidget*>()) {
            const bool isLeaf = child->findChildren<QWidget*>(Qt::FindDirectChildrenOnly).isEmpty();
            const bool isField = qobject_cast<QLineEdit*>(child) || qobject_cast<QComboBox*>(child) ||
                                 qobject_cast<QScrollBar*>(child);
            const auto* const around = child->parentWidget();
            const bool isInner =
                qobject_cast<const QComboBox*>(around) || qobject_cast<const QLineEdit*>(around);
            if (child->isVisible() && !isInner && (isLeaf || isField)) parts.push_back(child);
        }
        EXPECT_GE(parts.size(), 9);
        for (const QWidget* const one : parts) {
            const std::string name = one->objectName().toStdString();
            EXPECT_TRUE(toolbar.rect().contains(place(*one))) << name;
            EXPECT_GE(one->width(), one->minimumSizeHint().width()) << name;
            EXPECT_GE(one->height(), one->minimumSizeHint().height()) << name;
            for (const QWidget* const other : parts) {
                EXPECT_TRUE(one == other || !place(*one).intersects(place(*other)))
                    << name << " " << other->objectName().toStdString();
            }
        }
    }
    QRect place(const QWidget& widget) { return {widget.mapTo(&toolbar, QPoint(0, 0)), widget.size()}; }

    Form3 toolbar{studio, engine, &window};
};

TEST_F(SetupToolbarTest, ItHasFourPages) {
    ASSERT_EQ(pages().count(), 4);
    EXPECT_EQ(pages().tabText(0), "Setup");
    EXPECT_EQ(pages().tabText(3), "Configuration");
    EXPECT_EQ(toolbar.windowTitle(), "Setup Toolbar");
    EXPECT_TRUE(studio.shell.Form3Open);
}

TEST_F(SetupToolbarTest, EveryControlStandsWholeAndApart) {
    for (int page = 0; page < pages().count(); ++page) {
        open(page);
        expectWholeAndApart();
    }
    EXPECT_LE(toolbar.width(), 1280);
    EXPECT_LE(toolbar.height(), 720 / 3);
}

TEST_F(SetupToolbarTest, ALargerFontCutsNothingOff) {
    const QFont usual = QApplication::font();
    QFont larger = usual;
    larger.setPointSize(usual.pointSize() + 1);
    QApplication::setFont(larger);
    QCoreApplication::processEvents();
    for (int page = 0; page < pages().count(); ++page) {
        open(page);
        expectWholeAndApart();
    }
    EXPECT_LE(toolbar.width(), 1280);
    QApplication::setFont(usual);
    QCoreApplication::processEvents();
}

TEST_F(SetupToolbarTest, EveryControlShowsItsModelAndHasATipAndAName) {
    studio.Form3.LblInst2.set("Cowbell");
    studio.Form3.TrackHide[6].userPut(true);
    studio.Form3.Ch[2].set(true);
    int compared = 0;
    for (const auto& entry : engine.tables.controls.all()) {
        if (entry.window != "Form3" || entry.index == 9) continue;
        const QString name =
            entry.index ? memberName(entry.name.c_str(), *entry.index) : QString::fromStdString(entry.name);
        if (name.endsWith("Ptr")) continue;
        const QWidget& widget = part(name);
        EXPECT_FALSE(widget.accessibleName().isEmpty() && widget.property("text").toString().isEmpty())
            << name.toStdString();
        // A tip of the pages would stand over everything on them.
        const bool needsNone = name == "Label15" || name == "SSTab1";
        EXPECT_TRUE(needsNone || !widget.toolTip().isEmpty()) << name.toStdString();
        if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
            EXPECT_EQ(Value(label->text().toStdString()), entry.control->shown()) << entry.name;
        } else if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) {
            EXPECT_EQ(Value(static_cast<long long>(button->isChecked())), entry.control->shown())
                << name.toStdString();
            EXPECT_EQ(button->isEnabled(), entry.control->enabled()) << name.toStdString();
        } else if (const auto* field = qobject_cast<const QLineEdit*>(&widget)) {
            EXPECT_EQ(Value(field->text().toStdString()), entry.control->shown()) << entry.name;
        } else if (const auto* list = qobject_cast<const QComboBox*>(&widget)) {
            EXPECT_EQ(Value(static_cast<long long>(list->currentIndex())), entry.control->shown());
        }
        ++compared;
    }
    EXPECT_GE(compared, 60);
}

TEST_F(SetupToolbarTest, ThePageInFrontGoesWithItsControl) {
    auto& pages = part<QTabWidget>("SSTab1");
    ASSERT_EQ(static_cast<std::size_t>(pages.count()), studio.Form3.SSTab1.items().size());
    for (int page = 0; page < pages.count(); ++page) {
        EXPECT_EQ(pages.tabText(page).toStdString(),
                  studio.Form3.SSTab1.items()[static_cast<std::size_t>(page)]);
    }
    studio.Form3.SSTab1.userPut(2LL);
    EXPECT_EQ(pages.currentIndex(), 2);
    pages.setCurrentIndex(3);
    EXPECT_EQ(studio.Form3.SSTab1.index(), 3);
}

TEST_F(SetupToolbarTest, AChannelStandsUnderItsNameAndNumber) {
    EXPECT_EQ(part<QAbstractButton>("TrackSel(0)").text(), "Channel 1");
    EXPECT_EQ(part<QAbstractButton>("TrackSel(7)").text(), "Channel 8");
    EXPECT_EQ(part<QAbstractButton>("TrackSel(8)").text(), "Percussion Channel 1");
    EXPECT_EQ(part<QAbstractButton>("TrackSel(12)").text(), "Percussion Channel 4");
    EXPECT_EQ(toolbar.findChild<QWidget*>("TrackSel(9)"), nullptr);
    EXPECT_EQ(toolbar.findChild<QWidget*>("TrackHide(9)"), nullptr);
}

TEST_F(SetupToolbarTest, AClickSelectsAChannelAndASecondLeavesItSelected) {
    auto& button = part<QAbstractButton>("TrackSel(4)");
    press(button, {10, 10});
    EXPECT_EQ(studio.tracks.CurrentTrack, 4);
    EXPECT_TRUE(button.isChecked());
    EXPECT_FALSE(part<QAbstractButton>("TrackSel(0)").isChecked());
    press(button, {10, 10});
    EXPECT_TRUE(button.isChecked());
    EXPECT_FALSE(part("TrackHide(4)").isEnabled());
    EXPECT_EQ(part<QLabel>("ChannelName").text(), "Channel 5");
}

TEST_F(SetupToolbarTest, AHiddenChannelsBoxIsBlackAndItsButtonDisabled) {
    auto& box = part<QAbstractButton>("TrackHide(3)");
    const auto middle = [&box] { return box.grab().toImage().pixelColor(5, 5); };
    EXPECT_EQ(middle(), QColor(255, 255, 255));
    press(box, {10, 10});
    EXPECT_EQ(middle(), QColor(0, 0, 0));
    EXPECT_FALSE(part("TrackSel(3)").isEnabled());
    press(box, {10, 10});
    EXPECT_TRUE(part("TrackSel(3)").isEnabled());
}

TEST_F(SetupToolbarTest, AClickOnASliderCountsWithoutAMove) {
    open(1);
    auto& track = part<SliderTrack>("LblReverb");
    press(track, {track.width() - 2, 10});
    EXPECT_EQ(studio.tracks.ChannelSettings[0].Reverb, 127);
    EXPECT_EQ(part<QLabel>("LReverb").text(), "127");
    press(track, {track.width() / 2, 10}, Qt::RightButton);
    EXPECT_EQ(part<QLabel>("LReverb").text(), "0");
}

TEST_F(SetupToolbarTest, ASliderAnswersToArrowsAndWheel) {
    auto& tempo = part<SliderTrack>("LblTempo");
    tempo.setFocus();
    QTest::keyClick(&tempo, Qt::Key_Right);
    EXPECT_EQ(studio.score.Tempo, 104);
    QTest::keyClick(&tempo, Qt::Key_Down);
    EXPECT_EQ(part<QLineEdit>("TempoLabel").text(), "100");
    QWheelEvent turn(QPointF(5, 5), tempo.mapToGlobal(QPointF(5, 5)), {}, {0, 120}, Qt::NoButton, {},
                     Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&tempo, &turn);
    EXPECT_EQ(studio.score.Tempo, 104);
}

TEST_F(SetupToolbarTest, TypingReachesTheTempoAndAnEmptyBoxIsNotYetANumber) {
    toolbar.activateWindow();
    auto& beats = part<QLineEdit>("TxBeats");
    beats.setFocus();
    ASSERT_TRUE(beats.hasFocus());
    beats.selectAll();
    QTest::keyClick(&beats, Qt::Key_Backspace);
    EXPECT_EQ(studio.score.Tempo, 100);
    QTest::keyClicks(&beats, "8");
    EXPECT_EQ(studio.score.Tempo, 200);
    EXPECT_EQ(part<QLineEdit>("TempoLabel").text(), "200");
    beats.selectAll();
    QTest::keyClick(&beats, Qt::Key_Backspace);
    part("TempoLabel").setFocus();
    EXPECT_EQ(beats.text(), "8") << "a box left empty has its number back";
    EXPECT_EQ(studio.score.BeatsPerMeasure, 8);
}

TEST_F(SetupToolbarTest, AChordSwitchShowsItsStateWithoutItsColourToo) {
    open(2);
    auto& chord = part<QAbstractButton>("Ch(1)");
    const QImage off = chord.grab().toImage();
    press(chord, {20, 10});
    EXPECT_TRUE(studio.Form3.Ch[1].ticked());
    EXPECT_EQ(studio.score.PolyArray.get(2, 500, -1), 1);
    const QImage on = chord.grab().toImage();
    EXPECT_NE(off.convertToFormat(QImage::Format_Grayscale8), on.convertToFormat(QImage::Format_Grayscale8));
    EXPECT_EQ(chord.text(), "2");
}

TEST_F(SetupToolbarTest, TheButtonsOfTheSizeWork) {
    open(3);
    auto& count = part<QLineEdit>("Text2");
    count.setFocus();
    count.selectAll();
    QTest::keyClicks(&count, "50");
    press(part("Command1"), {5, 5});
    EXPECT_EQ(part<QLineEdit>("Text1").text(), "1050");
    press(part("Command4"), {5, 5});
    EXPECT_EQ(studio.score.NumNotes, 1000);
    EXPECT_TRUE(part<QLineEdit>("Text1").isReadOnly());
    part<QScrollBar>("VScroll3").setValue(14);
    EXPECT_EQ(part<QLineEdit>("Text3").text(), "14");
    EXPECT_EQ(studio.page.LineHeight, 14);
}

TEST_F(SetupToolbarTest, EveryPageIsReachedByTheTabKeyInReadingOrder) {
    const QList<QStringList> wanted{
        {"SSTab1", "TrackSel(0)", "TrackSel(1)", "TrackHide(1)", "TempoLabel", "LblTempo", "TxBeats",
         "Lblbeats", "Command2", "Command3"},
        {"lblVolume", "LblMod", "LblPan", "LblReverb", "LblChorus"},
        {"Ch(0)", "Ch(7)", "Chkstrum(0)", "Chkstrum(7)", "Combo3"},
        {"Text2", "Command1", "Command4", "Text3", "VScroll3", "Check1", "Combo2"}};
    QStringList chain;
    for (QWidget* widget = toolbar.nextInFocusChain(); widget != &toolbar;
         widget = widget->nextInFocusChain()) {
        if ((widget->focusPolicy() & Qt::TabFocus) != 0) chain.push_back(widget->objectName());
    }
    for (const auto& page : wanted) {
        qsizetype last = -1;
        for (const auto& name : page) {
            if (name == "SSTab1") continue;
            const auto at = chain.indexOf(name);
            EXPECT_GT(at, last) << name.toStdString();
            last = at;
        }
    }
}

TEST_F(SetupToolbarTest, ItOpensAtTheMiddleNearTheBottomOfTheScreen) {
    const QRect room = window.screen()->availableGeometry();
    EXPECT_EQ(toolbar.x(), room.left() + (room.width() - toolbar.width()) / 2);
    EXPECT_EQ(toolbar.y(), room.bottom() + 1 - toolbar.height() - 27);
}

TEST_F(SetupToolbarTest, ADoubleClickOnAnInstrumentPicks) {
    FrmInst picker(studio, engine.picker, &window);
    for (const char* const name : {"LblInst1", "LblInst2"}) {
        bool shown = false;
        time.at(10, [&] {
            shown = picker.isVisible();
            engine.picker.CmdCancel_Click();
        });
        QTest::mouseDClick(&part(name), Qt::LeftButton);
        EXPECT_TRUE(shown) << name;
    }
}

TEST_F(SetupToolbarTest, WhatItSaysIsWhatEachPartDoes) {
    const std::array<std::pair<const char*, const char*>, 9> expected{
        {{"TempoLabel", "Tempo (playing speed)"},
         {"LblTempo", "Beats Per Minute"},
         {"Text1", "Total notes currently available"},
         {"Command1", "Add new notes"},
         {"Command4", "Subtract notes"},
         {"Check1", "Show Sharp # Notes Guide"},
         {"Combo2", "Midi Device"},
         {"Ch(0)", "Channel Chord >"},
         {"Chkstrum(0)", "Strumming >"}}};
    QString shown;
    for (const QLabel* const label : toolbar.findChildren<QLabel*>()) shown += label->text() + '\n';
    for (const QAbstractButton* const button : toolbar.findChildren<QAbstractButton*>())
        shown += button->text() + '\n';
    for (const auto& [name, text] : expected) {
        QWidget& widget = part(name);
        const QString own = widget.toolTip() + '\n' + widget.accessibleName() + '\n' + shown;
        EXPECT_TRUE(own.contains(text)) << name << ": " << own.toStdString();
    }
}

TEST_F(SetupToolbarTest, ClosingUnloadsItAndShowingLoadsItAnewAtItsPlace) {
    toolbar.move(100, 40);
    studio.score.Tempo = 150;
    toolbar.close();
    EXPECT_FALSE(studio.Form3.loaded);
    EXPECT_FALSE(studio.shell.Form3Open);
    EXPECT_EQ(store.read("form3 left"), "1500");
    EXPECT_EQ(store.read("form3 top"), "600");
    store.write("form3 left", "90000");
    toolbar.show();
    EXPECT_TRUE(studio.Form3.loaded);
    EXPECT_EQ(studio.score.Tempo, 100);
    EXPECT_TRUE(window.screen()->availableGeometry().contains(toolbar.frameGeometry()));
    EXPECT_EQ(toolbar.y(), 40);
}

TEST_F(SetupToolbarTest, HiddenAndShownAgainItKeepsEverything) {
    studio.Form3.TempoLabel.set("150");
    toolbar.hide();
    EXPECT_FALSE(studio.Form3.shown);
    toolbar.show();
    EXPECT_EQ(studio.score.Tempo, 150);
    EXPECT_TRUE(studio.Form3.loaded);
}

TEST_F(SetupToolbarTest, TheFocusAppliesTheChannelsSettings) {
    studio.score.ReverbArray.set(0, 5, 77);
    QEvent front(QEvent::WindowActivate), back(QEvent::WindowDeactivate);
    QCoreApplication::sendEvent(&toolbar, &front);
    EXPECT_EQ(studio.score.ReverbArray.get(0, 5, -1), 0);
    studio.score.ReverbArray.set(0, 5, 77);
    QCoreApplication::sendEvent(&toolbar, &back);
    EXPECT_EQ(studio.score.ReverbArray.get(0, 5, -1), 0);
}

}  // namespace melvane::test
