#include "shell/instrument_picker_window.h"

#include <QListWidget>
#include <QPushButton>
#include <QTest>

#include "main_window_fixture.h"

namespace melvane::test {

/// The picker as the mouse and the keyboard use it.
class InstrumentPickerWindowTest : public MainWindowTest {
 protected:
    /// Opens it as for the melody instrument and does `act` in front of it, which is to close it.
    void inPicker(std::function<void()> act) {
        time.at(10, [this, act = std::move(act)] {
            ASSERT_TRUE(picker.isVisible());
            act();
            ASSERT_FALSE(picker.isVisible());
        });
        engine.picker.showModal();
    }
    QListWidget& list(const char* name) { return *picker.findChild<QListWidget*>(name); }
    QListWidget& melody() { return list("LstInstruments"); }
    QListWidget& percussion() { return list("LstInstruments2"); }
    void click(QListWidget& widget, int row) {
        widget.scrollToItem(widget.item(row));
        QTest::mouseClick(widget.viewport(), Qt::LeftButton, {},
                          widget.visualItemRect(widget.item(row)).center());
    }
    void doubleClick(QListWidget& widget, int row) {
        click(widget, row);
        QTest::mouseDClick(widget.viewport(), Qt::LeftButton, {},
                           widget.visualItemRect(widget.item(row)).center());
    }
    void pressButton(const char* name) {
        QTest::mouseClick(picker.findChild<QPushButton*>(name), Qt::LeftButton);
    }
    const Instruments& in = studio.instruments;

    FrmInst picker{studio, engine.picker, &window};
};

TEST_F(InstrumentPickerWindowTest, ItOpensOnTheInstrumentInHandWithTheFocus) {
    inPicker([this] {
        EXPECT_EQ(melody().currentRow(), 24);
        EXPECT_TRUE(melody().item(24)->isSelected());
        EXPECT_TRUE(
            melody().viewport()->rect().contains(melody().visualItemRect(melody().item(24)).center()));
        EXPECT_EQ(picker.focusWidget(), &melody());
        EXPECT_EQ(percussion().currentRow(), 0);
        pressButton("CmdOk");
    });
    EXPECT_EQ(in.MelodyInstrumentName, "Nylon Guitar");
}

TEST_F(InstrumentPickerWindowTest, ADoubleClickTakesAMelodyInstrument) {
    inPicker([this] { doubleClick(melody(), 73); });
    EXPECT_EQ(in.MelodyInstrument, 73);
    EXPECT_EQ(in.MelodyInstrumentName, "Flute");
    EXPECT_EQ(in.PercussionInstrument, 128);
}

TEST_F(InstrumentPickerWindowTest, ADoubleClickTakesAPercussionSound) {
    inPicker([this] { doubleClick(percussion(), 45); });
    EXPECT_EQ(in.PercussionInstrument, 128 + 45);
    EXPECT_EQ(in.PercussionInstrumentName, "Mute Triangle");
    EXPECT_EQ(in.MelodyInstrument, 24);
    EXPECT_EQ(studio.form1.Text5.text(), "Mute Triangle");
}

TEST_F(InstrumentPickerWindowTest, TheOkButtonTakesTheMelodyListAlone) {
    inPicker([this] {
        click(melody(), 40);
        click(percussion(), 7);
        pressButton("CmdOk");
    });
    EXPECT_EQ(in.MelodyInstrument, 40);
    EXPECT_EQ(in.PercussionInstrument, 128);
}

TEST_F(InstrumentPickerWindowTest, TheCancelButtonEmptiesTheName) {
    studio.instruments.MelodyInstrumentName = "Violin";
    inPicker([this] {
        click(melody(), 40);
        pressButton("CmdCancel");
    });
    EXPECT_EQ(in.MelodyInstrument, 24);
    EXPECT_EQ(in.MelodyInstrumentName, "");
    EXPECT_FALSE(studio.FrmInst.loaded);
}

TEST_F(InstrumentPickerWindowTest, TheArrowKeysChooseAndReturnTakes) {
    inPicker([this] {
        QTest::keyClick(&melody(), Qt::Key_Down);
        QTest::keyClick(&melody(), Qt::Key_Down);
        QTest::keyClick(&melody(), Qt::Key_Return);
    });
    EXPECT_EQ(in.MelodyInstrument, 26);
    inPicker([this] {
        percussion().setFocus();
        QTest::keyClick(&percussion(), Qt::Key_End);
        QTest::keyClick(&percussion(), Qt::Key_Enter);
    });
    EXPECT_EQ(in.PercussionInstrument, 128 + 46);
    EXPECT_EQ(in.MelodyInstrument, 26);
}

TEST_F(InstrumentPickerWindowTest, TypingALetterFindsItsInstruments) {
    inPicker([this] {
        QTest::keyClicks(&melody(), "viol");
        QTest::keyClick(&melody(), Qt::Key_Return);
    });
    EXPECT_EQ(in.MelodyInstrumentName, "Violin");
}

TEST_F(InstrumentPickerWindowTest, EscapeAndTheTitleBarCancel) {
    for (const bool byKey : {true, false}) {
        studio.instruments.MelodyInstrumentName = "Violin";
        inPicker([this, byKey] {
            byKey ? QTest::keyClick(&melody(), Qt::Key_Escape) : picker.imgTitleClose_Click();
        });
        EXPECT_EQ(in.MelodyInstrumentName, "") << byKey;
        EXPECT_FALSE(studio.FrmInst.loaded) << byKey;
        EXPECT_EQ(melody().count(), 0) << byKey;
    }
}

TEST_F(InstrumentPickerWindowTest, WithNothingSelectedItAsksForASelection) {
    studio.instruments.MelodyInstrument = 300;
    inPicker([this] {
        EXPECT_TRUE(melody().selectedItems().isEmpty()) << "the focus chooses nothing";
        pressButton("CmdOk");
        EXPECT_TRUE(picker.isVisible());
        EXPECT_EQ(dialogs.takeBoxes(),
                  (std::vector<std::string>{"box plain \"Melvane\" \"Make a selection\""}));
        click(melody(), 9);
        pressButton("CmdOk");
    });
    EXPECT_EQ(in.MelodyInstrument, 9);
}

TEST_F(InstrumentPickerWindowTest, ShownByAnotherItFillsItsLists) {
    picker.show();
    EXPECT_TRUE(studio.FrmInst.loaded);
    EXPECT_TRUE(studio.FrmInst.window.visible());
    EXPECT_EQ(melody().count(), 128);
    EXPECT_EQ(melody().currentRow(), 24);
    picker.close();
    EXPECT_EQ(melody().count(), 0);
}

TEST_F(InstrumentPickerWindowTest, ItStandsInTheMiddleOfTheScreenOnceForEachLoad) {
    inPicker([this] {
        const QPoint middle = window.screen()->availableGeometry().center();
        EXPECT_LE((picker.geometry().center() - middle).manhattanLength(), 2);
        picker.move(30, 40);
        pressButton("CmdOk");
    });
    inPicker([this] {
        EXPECT_EQ(picker.pos(), QPoint(30, 40)) << "hidden it stays loaded";
        pressButton("CmdCancel");
    });
    inPicker([this] {
        EXPECT_NE(picker.pos(), QPoint(30, 40));
        pressButton("CmdOk");
    });
}

TEST_F(InstrumentPickerWindowTest, NothingBehindItCanBePressed) {
    inPicker([this] {
        EXPECT_EQ(QApplication::activeModalWidget(), &picker);
        EXPECT_EQ(picker.windowModality(), Qt::ApplicationModal);
        pressButton("CmdOk");
    });
}

TEST_F(InstrumentPickerWindowTest, OnlyTheLeftButtonTakesByADoubleClick) {
    inPicker([this] {
        for (QListWidget* const widget : {&melody(), &percussion()}) {
            QTest::mouseDClick(widget->viewport(), Qt::RightButton, {},
                               widget->visualItemRect(widget->currentItem()).center());
            EXPECT_TRUE(picker.isVisible());
        }
        pressButton("CmdCancel");
    });
    EXPECT_EQ(store.read("Intrumentval"), std::nullopt);
    EXPECT_EQ(store.read("Intrumentval2"), std::nullopt);
}

}  // namespace melvane::test
