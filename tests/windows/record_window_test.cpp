#include "recorder/record_window.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTest>
#include <QWindow>
#include <filesystem>
#include <fstream>

#include "main_window_fixture.h"
#include "recorder/log_window.h"

namespace melvane::test {

class RecordWindow : public MainWindowTest {
 protected:
    RecordWindow() {
        floatingWindows.list(ToolWindows::Window::recorder, "Record", [this] {
            record = new Record(studio, engine.recorder, &window);
            record->useSettings(engine.settings);
            return record;
        });
        floatingWindows.list({}, "frmLog", [this] {
            log = new frmLog(studio, engine.recorder.window, &window);
            return log;
        });
        engine.toolbar.Cmd2_Click(10);
        QCoreApplication::processEvents();
        // A test before this one may have ended with a button down, which would go on into each movement.
        for (const auto held : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton})
            QTest::mouseRelease(record->windowHandle(), held, {}, {2, 2});
    }
    ~RecordWindow() override {
        if (log != nullptr) log->close();
        record->close();
    }

    template <class Widget = QWidget>
    Widget* part(const QString& name) {
        auto* const widget = record->findChild<Widget*>(name);
        EXPECT_NE(widget, nullptr) << name.toStdString();
        return widget;
    }
    void press(const char* name) { part<QAbstractButton>(name)->click(); }
    /// Moves the mouse to the middle of `widget`, over whatever lies there.
    void point(QWidget& widget) {
        QTest::mouseMove(record->windowHandle(), widget.mapTo(record, widget.rect().center()));
        QCoreApplication::processEvents();
    }

    Record* record = nullptr;
    frmLog* log = nullptr;
};

TEST_F(RecordWindow, TheMainToolbarOpensIt) {
    EXPECT_TRUE(record->isVisible());
    EXPECT_TRUE(record->loaded());
    EXPECT_EQ(record->windowTitle(), "Sound Recorder");
    EXPECT_EQ(record->pos(), QPoint(static_cast<int>(studio.Record.place.left / twipsAPixel),
                                    static_cast<int>(studio.Record.place.top / twipsAPixel)));
}

TEST_F(RecordWindow, ItGoesBeforeTheKeyboardThatOpensAndBackWithoutTakingTheFocus) {
    const auto before = [this] { return record->windowHandle()->transientParent(); };
    const QPoint place = record->pos();
    studio.Record.Text6.set("a.wav");
    QWidget keyboard;  // as the keyboard, it does not own the recorder
    for (QWidget* const active : {&keyboard, static_cast<QWidget*>(&window)}) {
        active->show();
        active->activateWindow();
        QCoreApplication::processEvents();
        EXPECT_EQ(before(), active->windowHandle());
        EXPECT_TRUE(record->isVisible());
        EXPECT_TRUE(active->isActiveWindow());
        EXPECT_EQ(record->pos(), place);
    }
    EXPECT_EQ(part<QLineEdit>("Text6")->text(), "a.wav");
}

TEST_F(RecordWindow, ADialogLeavesItWhereItIs) {
    QDialog dialog(record);
    dialog.show();
    dialog.activateWindow();
    QCoreApplication::processEvents();
    EXPECT_EQ(record->windowHandle()->transientParent(), window.windowHandle());
}

TEST_F(RecordWindow, EachControlShowsWhatItHolds) {
    EXPECT_EQ(part<QAbstractButton>("CmdrecordSNG")->text(), "Start Recording");
    EXPECT_EQ(part<QAbstractButton>("Optsourcesng")->text(), "Notes (SNG)");
    EXPECT_EQ(part<QAbstractButton>("Optsourcekeyboard")->toolTip(), "Record from MID file");
    EXPECT_EQ(part<QComboBox>("cbxFormat")->currentText(), "44.100Hz, 16bit Stereo, 172k/sec");
    EXPECT_EQ(part<QComboBox>("Combo3")->currentText(), "Studio");
    EXPECT_EQ(part<QComboBox>("Combo4")->currentText(), "224");
    EXPECT_TRUE(part<QAbstractButton>("Check2")->isChecked());
    EXPECT_EQ(part<QLabel>("Label8")->text(), "Stopped");
    studio.Record.Erbox.set("a message");
    EXPECT_EQ(part<QLabel>("Erbox")->text(), "a message");
    studio.Record.Command20.setCaption("Stop Encoding");
    EXPECT_EQ(part<QAbstractButton>("Command20")->text(), "Stop Encoding");
}

TEST_F(RecordWindow, EverythingIsCalledByItsName) {
    const std::tuple<const char*, const char*, const char*> buttons[] = {
        {"Optsourcesng", "Notes (SNG)", "Record from SNG file or notes"},
        {"Optsourcemid", "Files (MID)", "Record from MID file"},
        {"Optsourcekeyboard", "Keyboard", "Record from MID file"},
        {"CmdrecordSNG", "Start Recording", "Start Recording WAV File"},
        {"CmdStopRecording", "Stop Recording", "Stop Recording"},
        {"Command20", "Encode File", "Start Encoding from WAV file"},
        {"CmdLog", "Show Log", "Show Recording Log"},
        {"Command1", "Volume Control", "Show system sound mixer"},
        {"Check2", "Auto-Encode to MP3", "Encode to MP3 automatically"},
        {"Check3", "Delete WAV file", "Delete WAV file on completion of encoding"},
        {"Check4", "Show Note position", "Show playing position"}};
    for (const auto& [name, text, tip] : buttons) {
        EXPECT_EQ(part<QAbstractButton>(name)->text(), text);
        EXPECT_EQ(part<QAbstractButton>(name)->toolTip(), tip);
    }
    EXPECT_EQ(part("cbxFormat")->toolTip(), "Select WAV recording format");
    EXPECT_EQ(part("Combo3")->toolTip(), "MP3 Quality Selector");
    EXPECT_EQ(part("Combo4")->toolTip(), "MP3 Bitrate selector");
    const std::pair<const char*, const char*> flat[] = {{"Open File", "Open File"},
                                                        {"Play", "Play from File"},
                                                        {"Pause", "Pause"},
                                                        {"Stop", "Stop"},
                                                        {"Save File As", "Open File"}};
    for (int index = 0; index < 5; ++index) {
        EXPECT_EQ(part(QString("Cmd2(%1)").arg(index))->toolTip(), flat[index].first);
        EXPECT_EQ(part(QString("ImgR(%1)").arg(index))->toolTip(), flat[index].second);
    }
    QStringList shown;
    for (const auto* const label : record->findChildren<QLabel*>()) shown.append(label->text());
    for (const char* const text :
         {"Recording Source:", "Recording Controls", "View Recording Log",
          "Adjust System  Recording Settings", "WAV Recording Format", "MP3 Quality", "MP3 Bitrate", "kbps"})
        EXPECT_EQ(shown.count(text), 1) << text;
}

TEST_F(RecordWindow, EachListShowsItsRows) {
    const std::pair<const char*, QStringList> lists[] = {
        {"cbxFormat",
         {"44.100Hz, 8bit Mono, 43k/sec", "44.100Hz, 8bit Stereo, 86k/sec", "44.100Hz, 16bit Mono, 86k/sec",
          "44.100Hz, 16bit Stereo, 172k/sec", "48.000Hz, 16bit Stereo, 192k/sec"}},
        {"Combo3", {"Low", "Normal", "High", "Voice", "Phone", "Radio", "Tape", "Hifi", "CD", "Studio"}},
        {"Combo4",
         {"32", "40", "48", "56", "64", "80", "96", "112", "128", "160", "192", "224", "256", "320"}}};
    for (const auto& [name, rows] : lists) {
        const auto* const list = part<QComboBox>(name);
        QStringList shown;
        for (int row = 0; row < list->count(); ++row) shown.append(list->itemText(row));
        EXPECT_EQ(shown, rows) << name;
    }
}

TEST_F(RecordWindow, TheHiddenFieldsAreNotShown) {
    for (const char* const name : {"InputPath", "OutPutPath", "Text2"})
        EXPECT_EQ(record->findChild<QWidget*>(name), nullptr) << name;
    EXPECT_TRUE(part("picMP3")->isHidden());
}

TEST_F(RecordWindow, WhatIsPlayedBelongsToAWindowWhereASystemShowsIt) {
    ASSERT_TRUE(engine.recorder.audio.pictureWindow);
    EXPECT_EQ(engine.recorder.audio.pictureWindow(), 0);  // these windows are pictures in memory
    delete part("picMP3");
    EXPECT_EQ(engine.recorder.audio.pictureWindow(), 0);
}

TEST_F(RecordWindow, WhatTheUserDoesReachesTheRecorder) {
    press("Optsourcemid");
    EXPECT_TRUE(studio.Record.Optsourcemid.ticked());
    EXPECT_FALSE(part<QAbstractButton>("Optsourcesng")->isChecked());
    QTest::keyClicks(part<QLineEdit>("Text6"), "x.mp3");
    EXPECT_EQ(studio.Record.Text6.text(), "x.mp3");
    press("Command20");
    EXPECT_EQ(part<QLabel>("Erbox")->text(), "The Source file is not a Wave file, or does not exist.");
    auto* const bitrates = part<QComboBox>("Combo4");
    bitrates->setCurrentIndex(2);
    Q_EMIT bitrates->activated(2);
    EXPECT_EQ(store.read("MP3 bitrate"), "2");
    press("Command1");
    EXPECT_EQ(dialogs.takeBoxes().size(), 1U);
}

TEST_F(RecordWindow, WhileItRecordsTheStopAloneCanBePressed) {
    write(0, 1, 67, 2);
    press("Check2");
    bool start = true, stop = false, player = true;
    time.at(200, [&] {
        start = part("CmdrecordSNG")->isEnabled();
        stop = part("CmdStopRecording")->isEnabled();
        player = part("ImgR(1)")->isEnabled();
        QTest::mouseClick(part("CmdStopRecording"), Qt::LeftButton);
    });
    press("CmdrecordSNG");
    EXPECT_FALSE(start);
    EXPECT_TRUE(stop);
    EXPECT_FALSE(player);
    EXPECT_EQ(part<QLabel>("Erbox")->text(), "Recording Stopped!");
    EXPECT_TRUE(part("CmdrecordSNG")->isEnabled());
    EXPECT_TRUE(part("ImgR(1)")->isEnabled());
}

TEST_F(RecordWindow, ItMayBeClosedInTheMiddleOfAnything) {
    namespace fs = std::filesystem;
    const auto recordings = [this] {
        int count = 0;
        for (const auto& entry : fs::directory_iterator(fs::path(folder.path()) / "Songs"))
            if (entry.path().extension() == ".wav") ++count;
        return count;
    };
    const auto expectFresh = [this] {
        EXPECT_FALSE(record->isVisible());
        engine.toolbar.Cmd2_Click(10);
        EXPECT_TRUE(record->isVisible());
        EXPECT_TRUE(part("CmdrecordSNG")->isEnabled());
        EXPECT_FALSE(part("CmdStopRecording")->isEnabled());
        EXPECT_EQ(part<QAbstractButton>("Command20")->text(), "Encode File");
        EXPECT_EQ(part<QLabel>("Label8")->text(), "Stopped");
    };
    const int before = recordings();
    write(0, 1, 67, 20);
    time.at(1000, [this] { record->close(); });
    press("CmdrecordSNG");
    EXPECT_EQ(recordings(), before + 1);
    expectFresh();

    press("Optsourcekeyboard");
    studio.Record.CmdrecordSNG.userPut(Value(1LL));
    record->close();
    EXPECT_EQ(recordings(), before + 2);
    expectFresh();

    std::ofstream(folder.file("a.mp3")) << "xxxx";
    studio.Record.Text6.set(folder.file("a.mp3"));
    time.at(1600, [this] { record->close(); });
    engine.recorder.buttons.Cmd2_Click(1);
    expectFresh();

    for (const char* const library : {"akrip32.dll", "lame_enc.dll"})
        std::ofstream(folder.file(library)) << "x";
    std::ofstream(folder.file("b.wav")) << std::string(100000, 'x');
    studio.Record.Text6.set(folder.file("b.wav"));
    time.at(0, [this] { record->close(); });
    press("Command20");
    EXPECT_TRUE(fs::exists(folder.file("b.wav")));
    EXPECT_TRUE(fs::exists(folder.file("b.mp3")));
    expectFresh();
}

TEST_F(RecordWindow, TheBarFillsItsGround) {
    engine.recorder.showProgress(0.25);
    EXPECT_EQ(part("L2")->width(), RecordControls::barWidth / 4);
    EXPECT_EQ(part("P2")->width(), RecordControls::barWidth);
    engine.recorder.showProgress(3);
    EXPECT_EQ(part("L2")->width(), RecordControls::barWidth);
}

TEST_F(RecordWindow, TheReadOutComesWithThePlay) {
    EXPECT_TRUE(part("Picture5")->isHidden());
    std::ofstream(folder.file("a.mp3")) << "xxxx";
    studio.Record.Text6.set(folder.file("a.mp3"));
    QString shown;
    time.at(1600, [&] { shown = part<QLabel>("lblTime")->text(); });
    engine.recorder.buttons.Cmd2_Click(1);
    EXPECT_EQ(shown, "00:01");
    EXPECT_FALSE(part("Picture5")->isHidden());
}

TEST_F(RecordWindow, AButtonComesUnderTheMouseAndGoesWithIt) {
    point(*part("ImgR(1)"));
    EXPECT_TRUE(part("Cmd2(1)")->isVisible());
    point(*part("ImgR(2)"));
    EXPECT_FALSE(part("Cmd2(1)")->isVisible());
    EXPECT_TRUE(part("Cmd2(2)")->isVisible());
    point(*part("Erbox"));
    EXPECT_FALSE(part("Cmd2(2)")->isVisible());
}

TEST_F(RecordWindow, APressOnAPictureActs) {
    QTest::mouseClick(part("ImgR(3)"), Qt::LeftButton);
    EXPECT_EQ(part<QLabel>("Erbox")->text(), "Music File was previously closed.");
}

TEST_F(RecordWindow, TheLogsWindowShowsTheLog) {
    engine.recorder.log.add("first");
    press("CmdLog");
    ASSERT_NE(log, nullptr);
    EXPECT_EQ(log->windowTitle(), "Recording Log");
    auto* const page = log->findChild<QPlainTextEdit*>("Text1");
    EXPECT_EQ(page->toPlainText(), "00:00:00  first\n");
    EXPECT_TRUE(page->isReadOnly());
    engine.recorder.log.add("second");
    log->close();
    press("CmdLog");
    EXPECT_EQ(page->toPlainText(), "00:00:00  first\n00:00:00  second\n");
}

TEST_F(RecordWindow, TheLogsTextCanBeSelectedAndNotDraggedAway) {
    engine.recorder.log.add("first");
    press("CmdLog");
    ASSERT_NE(log, nullptr);
    auto* const page = log->findChild<QPlainTextEdit*>("Text1");
    page->selectAll();
    const QPoint middle = page->cursorRect(page->document()->find("first")).center();
    QTest::mousePress(page->viewport(), Qt::LeftButton, Qt::ShiftModifier, middle);
    EXPECT_TRUE(page->textCursor().hasSelection());
    QTest::mouseRelease(page->viewport(), Qt::LeftButton, Qt::ShiftModifier, middle);
    page->selectAll();
    QTest::mousePress(page->viewport(), Qt::LeftButton, {}, middle);
    EXPECT_FALSE(page->textCursor().hasSelection());
    QTest::mouseMove(page->viewport(), middle - QPoint(40, 0));
    QTest::mouseRelease(page->viewport(), Qt::LeftButton, {}, middle - QPoint(40, 0));
    EXPECT_TRUE(page->textCursor().hasSelection());
}

TEST_F(RecordWindow, ClosingAndOpeningItBeginsAnewAtItsPlace) {
    record->move(30, 40);
    QCoreApplication::processEvents();
    studio.Record.Erbox.set("a message");
    record->close();
    EXPECT_FALSE(studio.shell.RecorderOpen);
    EXPECT_EQ(store.read("record left"), "450");
    EXPECT_EQ(store.read("record top"), "600");
    engine.toolbar.Cmd2_Click(10);
    EXPECT_TRUE(record->isVisible());
    EXPECT_EQ(part<QLabel>("Erbox")->text(), "");
    EXPECT_EQ(record->pos(), QPoint(30, 40));
}

TEST_F(RecordWindow, NothingIsCutOffWithALargerFontToo) {
    const QFont usual = QApplication::font();
    for (const int larger : {0, 1, 4}) {
        QFont font = usual;
        font.setPointSize(usual.pointSize() + larger);
        QApplication::setFont(font);
        for (int turn = 0; turn < 5; ++turn) QCoreApplication::processEvents();
        for (const char* const name :
             {"Optsourcesng", "Optsourcekeyboard", "CmdrecordSNG", "Command20", "CmdLog", "Command1",
              "cbxFormat", "Combo3", "Combo4", "Check2", "Check3", "Check4", "Text6", "Picture7"}) {
            const QWidget& widget = *part(name);
            EXPECT_GE(widget.width(), widget.minimumSizeHint().width()) << name << larger;
            EXPECT_GE(widget.height(), widget.minimumSizeHint().height()) << name << larger;
            const QRect place(widget.mapTo(record, QPoint(0, 0)), widget.size());
            EXPECT_TRUE(record->rect().adjusted(4, 4, -4, -4).contains(place)) << name << larger;
        }
    }
    QApplication::setFont(usual);
}

TEST_F(RecordWindow, EverythingThatCanBePressedHasATipAndAName) {
    for (const auto* const button : record->findChildren<QAbstractButton*>()) {
        if (button->objectName().isEmpty() || button->objectName().startsWith("imgTitle")) continue;
        EXPECT_FALSE(button->toolTip().isEmpty()) << button->objectName().toStdString();
        EXPECT_FALSE(button->accessibleName().isEmpty() && button->text().isEmpty())
            << button->objectName().toStdString();
    }
}

}  // namespace melvane::test
