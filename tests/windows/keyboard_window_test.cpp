#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLayout>
#include <QScrollArea>
#include <QTabWidget>
#include <QToolTip>

#include "keyboard_window_fixture.h"
#include "synth/piano_view.h"
#include "ui/qt_bindings.h"
#include "ui/slider_panel.h"

namespace melvane::test {

namespace {

bool isField(const QWidget& widget) {
    return qobject_cast<const QLineEdit*>(&widget) != nullptr ||
           qobject_cast<const QComboBox*>(&widget) != nullptr;
}

/// The controls of a page that are shown, without what they are made of.
QList<QWidget*> leavesOf(const QWidget& page) {
    QList<QWidget*> leaves;
    for (QWidget* const child : page.findChildren<QWidget*>()) {
        const bool isLeaf = child->findChildren<QWidget*>(Qt::FindDirectChildrenOnly).isEmpty();
        if (child->isVisible() && !isField(*child->parentWidget()) && (isLeaf || isField(*child)))
            leaves.push_back(child);
    }
    return leaves;
}

}  // namespace

TEST_F(KeyboardWindowTest, ItHasItsTitleAndItsFourPages) {
    EXPECT_EQ(keyboard.windowTitle(), "Melvane  Keyboard  v1.0");
    QStringList titles;
    for (int page = 0; page < pages().count(); ++page) titles.push_back(pages().tabText(page));
    EXPECT_EQ(titles, (QStringList{"Setup", "Compose", "Sound 1", "Sound  2"}));
    EXPECT_FALSE(keyboard.isModal());
    EXPECT_EQ(keyboard.parentWidget(), nullptr) << "the main window is hidden meanwhile";
}

TEST_F(KeyboardWindowTest, EachPageHoldsItsFrame) {
    const QStringList frames{"Frame4", "Frame9", "Frame7", "Frame2"};
    for (int page = 0; page < frames.size(); ++page) {
        EXPECT_TRUE(pages().widget(page)->isAncestorOf(&part(frames[page]))) << page;
    }
    EXPECT_TRUE(part("Frame9").isAncestorOf(&part("Frame10")));
}

class KeyboardWindowSizes : public KeyboardWindowTest {
 protected:
    /// Nothing of a page is cut off, covered or behind a scroll bar.
    void expectPagesWhole() {
        for (int page = 0; page < pages().count(); ++page) {
            open(page);
            const auto& area = static_cast<const QScrollArea&>(*pages().widget(page));
            EXPECT_LE(area.widget()->height(), area.viewport()->height()) << page;
            expectApart(leavesOf(area), page);
        }
    }

 private:
    QRect place(const QWidget& widget) { return {widget.mapTo(&keyboard, QPoint(0, 0)), widget.size()}; }
    void expectApart(const QList<QWidget*>& leaves, int page) {
        EXPECT_GE(leaves.size(), 8) << page;
        for (const QWidget* const one : leaves) {
            const std::string name = std::to_string(page) + " " + one->objectName().toStdString();
            EXPECT_TRUE(keyboard.rect().contains(place(*one))) << name;
            EXPECT_GE(one->width(), one->minimumSizeHint().width()) << name;
            EXPECT_GE(one->height(), one->minimumSizeHint().height()) << name;
            const auto* const label = qobject_cast<const QLabel*>(one);
            EXPECT_TRUE(label == nullptr || label->width() >= label->sizeHint().width())
                << name << label->text().toStdString();
            for (const QWidget* const other : leaves) {
                EXPECT_TRUE(one == other || !place(*one).intersects(place(*other)))
                    << name << " " << other->objectName().toStdString();
            }
        }
    }
};

TEST_F(KeyboardWindowSizes, EveryControlStandsWholeAndApart) { expectPagesWhole(); }

TEST_F(KeyboardWindowSizes, ALargerFontCutsNothingOff) {
    const QFont usual = QApplication::font();
    QFont larger = usual;
    larger.setPointSize(usual.pointSize() + 1);
    QApplication::setFont(larger);
    QCoreApplication::processEvents();
    expectPagesWhole();
    QApplication::setFont(usual);
    QCoreApplication::processEvents();
}

TEST_F(KeyboardWindowSizes, ItsOwnSizeHoldsThePagesToo) {
    keyboard.resize(1120, 720);
    QCoreApplication::processEvents();
    expectPagesWhole();
}

TEST_F(KeyboardWindowTest, ASmallWindowScrollsItsPagesAndBreaksNothing) {
    for (const QSize size : {QSize(600, 400), QSize(57, 90), QSize(300, 900), QSize(1600, 1000)}) {
        keyboard.resize(size);
        QCoreApplication::processEvents();
        EXPECT_GE(part<PianoView>("Picture5").width(), 0);
        EXPECT_FALSE(keyboard.grab().isNull());
    }
    keyboard.resize(700, 500);
    open(3);
    const auto& area = static_cast<const QScrollArea&>(*pages().currentWidget());
    EXPECT_GT(area.widget()->height(), area.viewport()->height());
}

TEST_F(KeyboardWindowTest, ThePartsStandAsWideAsTheDesignHasThem) {
    const auto& keys = part("Picture5");
    EXPECT_EQ(keys.width(), 1280 - 50);
    EXPECT_EQ(controls().Picture5.place().width, (1280 - 50) * twipsAPixel);
    const auto& pagesPanel = part("Picture2");
    EXPECT_EQ(pagesPanel.width(), keys.width());
    EXPECT_GT(pagesPanel.y(), keys.y() + keys.height());
    EXPECT_EQ(pagesPanel.mapTo(&keyboard, QPoint(0, pagesPanel.height())).y(), 720 - 20);
    const QSize tabs = pages().size();
    EXPECT_EQ(tabs, QSize(pagesPanel.width() - 200 / twipsAPixel, pagesPanel.height() - 400 / twipsAPixel));
    for (int page = 0; page < pages().count(); ++page) {
        open(page);
        const auto* const area = static_cast<const QScrollArea*>(pages().currentWidget());
        const auto* const frame = area->widget()->layout()->itemAt(0)->widget();
        EXPECT_EQ(frame->width(), tabs.width() - 300 / twipsAPixel) << page;
        EXPECT_EQ(frame->height(), tabs.height() - 500 / twipsAPixel) << page;
    }
    const auto& bar = part("Label4");
    EXPECT_LE(bar.y() + bar.height(), keys.y());
}

TEST_F(KeyboardWindowTest, TheGroundOfTheKeysHasARaisedEdge) {
    const QImage keys = part("Picture5").grab().toImage();
    const int middle = keys.width() / 2;
    const QColor above = keys.pixelColor(middle, 0), ground = keys.pixelColor(middle, 5),
                 below = keys.pixelColor(middle, keys.height() - 1);
    EXPECT_GT(above.lightness(), ground.lightness());
    EXPECT_LT(below.lightness(), ground.lightness());
}

TEST_F(KeyboardWindowTest, WithoutThePagesTheWindowIsAsHighAsItsKeys) {
    const int before = part("Picture5").height();
    engine.keyboard.window.Cmd2_Click(1);
    QCoreApplication::processEvents();
    EXPECT_FALSE(part("Picture2").isVisible());
    const auto& keys = part("Picture5");
    EXPECT_GE(keys.height(), before);
    EXPECT_EQ(keys.mapTo(&keyboard, QPoint(0, keys.height())).y(), keyboard.height() - 20);
    EXPECT_EQ(controls().place.height, 720 * twipsAPixel) << "its own height is that with the pages";
    engine.keyboard.window.Cmd2_Click(1);
    QCoreApplication::processEvents();
    EXPECT_TRUE(part("Picture2").isVisible());
    EXPECT_EQ(keyboard.height(), 720);
    EXPECT_EQ(part("Picture5").height(), before);
}

TEST_F(KeyboardWindowTest, ClosedWithoutItsPagesItStoresTheHeightThatItHasWithThem) {
    engine.keyboard.window.Cmd2_Click(1);
    QCoreApplication::processEvents();
    keyboard.close();
    EXPECT_EQ(store.read("formS height"), std::to_string(720 * twipsAPixel));
}

TEST_F(KeyboardWindowTest, EveryControlHasATipAndAName) {
    int looked = 0;
    for (const auto& entry : engine.tables.controls.all()) {
        if (entry.window != "frmsynth") continue;
        const QString name =
            entry.index ? memberName(entry.name.c_str(), *entry.index) : QString::fromStdString(entry.name);
        const QWidget* const widget = keyboard.findChild<QWidget*>(name);
        if (widget == nullptr) continue;
        ++looked;
        const auto* const button = qobject_cast<const QAbstractButton*>(widget);
        if (name == "Picture2") continue;  // the ground of the pages
        EXPECT_FALSE(widget->accessibleName().isEmpty() && (button == nullptr || button->text().isEmpty()))
            << name.toStdString();
        const bool isGround = name == "Picture5" || name == "Picmetro";
        if (name == "Optbeat(4)") {
            EXPECT_TRUE(widget->toolTip().isEmpty());  // by the design
            continue;
        }
        EXPECT_TRUE(isGround || name.startsWith("NoteX") || !widget->toolTip().isEmpty())
            << name.toStdString();
    }
    EXPECT_GE(looked, 130);
}

TEST_F(KeyboardWindowTest, WhatHasNoWidgetIsHiddenInTheDesignOrShownInOtherWords) {
    const QStringList known{"CmdKey", "Picture1",  "Text14",   "Label5",    "Text7",     "Text4",
                            "OptOct", "VsbOctave", "Command4", "Command10", "Command11", "CmdEdit",
                            "Text2",  "Text9",     "Text11",   "Text12",    "Cmd4"};
    for (const auto& entry : engine.tables.controls.all()) {
        const QString name = QString::fromStdString(entry.name);
        if (entry.window != "frmsynth" || name.endsWith("ptr", Qt::CaseInsensitive)) continue;
        const QString member = entry.index ? memberName(entry.name.c_str(), *entry.index) : name;
        EXPECT_NE(keyboard.findChild<QWidget*>(member) != nullptr, known.contains(name)) << entry.name;
    }
}

TEST_F(KeyboardWindowTest, TheTabKeyGoesOverThePagesInReadingOrder) {
    const QList<QStringList> wanted{
        {"Cmd2(1)", "Cmd2(2)", "Cmd2(6)", "Cmd2(3)", "Cmd2(4)", "qt_tabwidget_tabbar"},
        {"Combo1", "Command1", "Command6", "Check1", "CmdEd"},
        {"CmdRec", "LblSpeed", "Check7", "Command2", "Check6", "Check4", "Check5", "Check3", "LblPauses",
         "LblFileSpeed", "LblTempo", "CmdRecord"},
        {"LblCh", "ChkSustain", "ChkMute", "lblVolume", "LblMod", "LblPan", "LblReverb", "LblChorus",
         "chkRunning", "Check9", "Optbeat(0)", "Optbeat(4)", "Lblbeats"},
        {"Check10", "Check8", "Check2", "Chkstrum", "LblStrum", "Command5", "LblCrd", "optChord(0)",
         "optChord(10)", "LblOct", "Option5(0)", "Option5(5)"}};
    QStringList chain;
    for (QWidget* widget = keyboard.nextInFocusChain(); widget != &keyboard;
         widget = widget->nextInFocusChain()) {
        if ((widget->focusPolicy() & Qt::TabFocus) != 0) chain.push_back(widget->objectName());
    }
    for (const auto& page : wanted) {
        qsizetype last = -1;
        for (const auto& name : page) {
            const auto at = chain.indexOf(name);
            EXPECT_GT(at, last) << name.toStdString();
            last = at;
        }
    }
    EXPECT_FALSE(chain.contains("NoteX(0)")) << "a label is no tab stop while it is not edited";
}

TEST_F(KeyboardWindowTest, ASlidersReadOutIsRoundedAndItsTextIsNot) {
    open(1);
    auto& track = part<SliderTrack>("LblSpeed");
    track.resize(133, 24);
    QTest::mousePress(&track, Qt::LeftButton, {}, QPoint(45, 10));
    QTest::mouseRelease(&track, Qt::LeftButton, {}, QPoint(45, 10));
    EXPECT_EQ(controls().Text2.text(), "9.09756097560976");
    EXPECT_EQ(part<QLabel>("Text2Shown").text(), "9.1");
}

TEST_F(KeyboardWindowTest, ASliderAnswersToMouseWheelAndArrows) {
    open(2);
    auto& track = part<SliderTrack>("LblReverb");
    QTest::mouseClick(&track, Qt::LeftButton, {}, QPoint(track.width() - 1, 10));
    EXPECT_EQ(part<QLabel>("LReverb").text(), "127");
    QTest::mouseClick(&track, Qt::RightButton, {}, QPoint(20, 10));
    EXPECT_EQ(part<QLabel>("LReverb").text(), "0");
    track.setFocus();
    press(Qt::Key_Right, {});
    EXPECT_EQ(part<QLabel>("LReverb").text(), "1") << "the arrow keys stay with the control";
    QWheelEvent turn(QPointF(5, 5), track.mapToGlobal(QPointF(5, 5)), {}, {0, 120}, Qt::NoButton, {},
                     Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&track, &turn);
    EXPECT_EQ(part<QLabel>("LReverb").text(), "2");
    EXPECT_EQ(sent(), (std::vector<std::string>{"B0 5B 7F", "B0 5B 00", "B0 5B 01", "B0 5B 02"}));
}

TEST_F(KeyboardWindowTest, AHoverShowsTheChordsNumberAsItsTip) {
    open(3);
    auto& track = part<SliderTrack>("LblCrd");
    moveMouse(track, QPoint(track.width() - 1, 10));
    EXPECT_EQ(track.toolTip(), "10");
    EXPECT_EQ(controls().Text4.text(), "0");
}

TEST_F(KeyboardWindowTest, TheMetronomesLightsKeepTheirRoom) {
    open(2);
    const int before = part("Frame7").height();
    EXPECT_FALSE(part("Picmetro").isVisible());
    part<QCheckBox>("chkRunning").click();
    QCoreApplication::processEvents();
    EXPECT_TRUE(part("Picmetro").isVisible());
    EXPECT_EQ(part("Frame7").height(), before);
    controls().pctBeat[0].setBackColour({0, 255, 0});
    const QImage light = part("pctBeat(0)").grab().toImage();
    EXPECT_EQ(light.pixelColor(light.width() / 2, light.height() / 2), QColor(0, 255, 0));
}

TEST_F(KeyboardWindowTest, ADoubleClickOnTheInstrumentOpensThePicker) {
    open(3);
    time.at(10, [this] {
        EXPECT_TRUE(studio.FrmInst.window.visible());
        studio.FrmInst.LstInstruments.set(40);
        engine.picker.CmdOk_Click();
    });
    QTest::mouseDClick(&part("LblInstrument"), Qt::LeftButton);
    EXPECT_EQ(part<QLabel>("LblInstrument").text(), "Violin");
    EXPECT_EQ(studio.keyboard.ChannelTable[0].Instrument, 40);
}

TEST_F(KeyboardWindowTest, ClosingItClosesTheMainWindowToo) {
    keyboard.close();
    EXPECT_FALSE(controls().loaded);
    EXPECT_FALSE(window.isVisible());
    EXPECT_TRUE(time.ended());
    EXPECT_TRUE(store.read("formS width"));
}

TEST_F(KeyboardWindowTest, HiddenByTheComposerItStaysLoaded) {
    window.hide();
    engine.keyboard.window.Cmd2_Click(6);
    EXPECT_FALSE(keyboard.isVisible());
    EXPECT_TRUE(window.isVisible());
    EXPECT_TRUE(controls().loaded);
    controls().LblInstrument.set("as it was");
    keyboard.show();
    EXPECT_EQ(controls().LblInstrument.text(), "as it was");
}

TEST_F(KeyboardWindowTest, ItsPlaceIsThatOfTheWindow) {
    keyboard.move(90, 60);
    QCoreApplication::processEvents();
    EXPECT_EQ(controls().place, (WindowPlace{1350, 900, 1280 * twipsAPixel, 720 * twipsAPixel}));
}

TEST_F(KeyboardWindowTest, BothLooksHaveTheSameContents) {
    const QSize keys = part("Picture5").size();
    keyboard.LayoutFrame3D(false);
    EXPECT_EQ(part("Picture5").size(), keys);
    EXPECT_FALSE(keyboard.grab().isNull());
    keyboard.LayoutFrameXP(false);
}

}  // namespace melvane::test
