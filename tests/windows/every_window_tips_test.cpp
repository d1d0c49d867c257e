#include <QAccessible>
#include <QTabBar>
#include <algorithm>
#include <array>

#include "every_window.h"

namespace melvane::test {

namespace {

/// A control that has no tip, and why.
struct Untold {
    const char *window, *part, *reason;
};

constexpr std::array<Untold, 7> untold{{{"form1", "ImgPic(13)", "it does nothing"},
                                        {"form1", "MusicBox", "it tells the note under the mouse"},
                                        {"Form2", "ImgPic(7)", "its tip is empty"},
                                        {"frmsynth", "Optbeat(4)", "its tip is empty"},
                                        {"frmsynth", "Picture5", "each key tells its own label"},
                                        {"frmLog", "Text1", "a page to read, which a tip would cover"},
                                        {"Help", "page", "a page to read, which a tip would cover"}}};

/// A tip that is fixed, word for word.
struct Fixed {
    const char *window, *part, *tip;
};

constexpr std::array fixed{Fixed{"form1", "Label5", "Note Number & Name"},
                           Fixed{"form1", "LblVol", "Note Velocity"},
                           Fixed{"form1", "LblInst", "Instrument"},
                           Fixed{"form1", "Label7", "Chord Name"},
                           Fixed{"form1", "lblVolume", "Note Volume"},
                           Fixed{"form1", "T1", "Modulation Value"},
                           Fixed{"form1", "T2", "Pan Value"},
                           Fixed{"form1", "T3", "Reverb Value"},
                           Fixed{"form1", "T4", "Chorus Value"},
                           Fixed{"form1", "Combo3", "Chord Selector"},
                           Fixed{"form1", "Text5", "Instrument Selector"},
                           Fixed{"form1", "CmdInst", "Change instrument"},
                           Fixed{"form1", "Check1", "Single Note Effects"},
                           Fixed{"form1", "Picmain", "Right click for menu"},
                           Fixed{"form1", "Picture11", "Right click for menu"},
                           Fixed{"form1", "toolbMenu", "Right click for menu"},
                           Fixed{"form1", "ImgPic(3)", "Erase note on right-click"},
                           Fixed{"Form2", "ImgPic(1)", "Clear all notes"},
                           Fixed{"Form2", "ImgPic(2)", "Open File"},
                           Fixed{"Form2", "ImgPic(3)", "Save as  Score (sng) or MIDI file (mid)"},
                           Fixed{"Form2", "ImgPic(4)", "Play notes"},
                           Fixed{"Form2", "ImgPic(5)", "Play Selection"},
                           Fixed{"Form2", "ImgPic(6)", "Pause"},
                           Fixed{"Form2", "ImgPic(8)", "Return to Start"},
                           Fixed{"Form2", "ImgPic(9)", "Show playing position"},
                           Fixed{"Form2", "ImgPic(10)", "Loop song"},
                           Fixed{"Form2", "ImgPic(11)", "Draw/Select mode toggle"},
                           Fixed{"Form2", "ImgPic(12)", "Copy Selection"},
                           Fixed{"Form2", "ImgPic(13)", "Cut Selection"},
                           Fixed{"Form2", "ImgPic(14)", "Paste (Overwrite)"},
                           Fixed{"Form2", "ImgPic(15)", "Paste (Insert)"},
                           Fixed{"Form2", "ImgPic(16)", "Insert # Space(s) "},
                           Fixed{"Form2", "ImgPic(17)", "Duplicate notes"},
                           Fixed{"Form2", "TransposeBut(0)", "Move All Notes Up One"},
                           Fixed{"Form2", "TransposeBut(1)", "Move All Notes Down One"},
                           Fixed{"Form2", "Command7", "Copy notes"},
                           Fixed{"Form2", "Text3", "Total duplicated notes"},
                           Fixed{"Form2", "Text4", "Total # of notes in duplicated cycle"},
                           Fixed{"Form2", "Text5", "Total # of Playable notes in duplicated cycle"},
                           Fixed{"Form2", "Text1", "Insert # of spaces"},
                           Fixed{"Form2", "Check2", "Duplicate Instrument section"},
                           Fixed{"Form2", "Check1", "Duplicate Percussion section"},
                           Fixed{"Form2", "Check3", "Edit All Tracks"},
                           Fixed{"Form3", "TrackHide(3)", "Hide this channel"},
                           Fixed{"Form3", "TrackSel(8)", "Rythm Channel 1"},
                           Fixed{"Form3", "TrackSel(10)", "Rythm Channel 3"},
                           Fixed{"Form3", "TrackSel(11)", "Rythm Channel 4"},
                           Fixed{"Form3", "TrackSel(12)", "Rythm Channel 4"},
                           Fixed{"Form3", "LblTempo", "Beats Per Minute"},
                           Fixed{"Record", "Optsourcesng", "Record from SNG file or notes"},
                           Fixed{"Record", "Optsourcemid", "Record from MID file"},
                           Fixed{"Record", "Optsourcekeyboard", "Record from MID file"},
                           Fixed{"Record", "CmdrecordSNG", "Start Recording WAV File"},
                           Fixed{"Record", "Command20", "Start Encoding from WAV file"},
                           Fixed{"Record", "CmdLog", "Show Recording Log"},
                           Fixed{"Record", "Command1", "Show system sound mixer"},
                           Fixed{"Record", "cbxFormat", "Select WAV recording format"},
                           Fixed{"Record", "Check4", "Show playing position"},
                           Fixed{"Record", "Check2", "Encode to MP3 automatically"},
                           Fixed{"Record", "Check3", "Delete WAV file on completion of encoding"},
                           Fixed{"Record", "Combo3", "MP3 Quality Selector"},
                           Fixed{"Record", "Combo4", "MP3 Bitrate selector"},
                           Fixed{"Record", "ImgR(0)", "Open File"},
                           Fixed{"Record", "ImgR(1)", "Play from File"},
                           Fixed{"Record", "ImgR(2)", "Pause"},
                           Fixed{"Record", "ImgR(3)", "Stop"},
                           Fixed{"Record", "ImgR(4)", "Open File"},
                           Fixed{"Record", "Cmd2(1)", "Play"},
                           Fixed{"Record", "Cmd2(4)", "Save File As"},
                           Fixed{"Wiz", "L1(0)", "Click to perform this step"},
                           Fixed{"Wiz", "LQ1(8)", "Click to perform this step"},
                           Fixed{"frmsynth", "Label4", "Move cursor over Panic Bar to stop sound"},
                           Fixed{"frmsynth", "chkRunning", "Metronome On/Off"},
                           Fixed{"frmsynth", "Optbeat(0)", "30 beats per minute"},
                           Fixed{"frmsynth", "Optbeat(3)", "180 beats per minute"},
                           Fixed{"frmsynth", "Check3", "Insert pauses"},
                           Fixed{"frmsynth", "Check6", "Pause / Play"},
                           Fixed{"frmsynth", "Command5", "Instrument:  Click to select"}};

}  // namespace

class EveryWindowsTips : public EveryWindow {
 protected:
    bool isUntold(const QWidget& part) const {
        return std::ranges::any_of(untold, [&](const Untold& entry) {
            return window->objectName() == entry.window && part.objectName() == entry.part;
        });
    }
    /// Of a bar of tabs, empty when one of them has none.
    static QString tipOf(const QWidget& part) {
        const auto* const bar = qobject_cast<const QTabBar*>(&part);
        if (bar == nullptr) return part.toolTip();
        QString tips;
        for (int tab = 0; tab < bar->count(); ++tab) {
            if (bar->tabToolTip(tab).isEmpty()) return {};
            tips += bar->tabToolTip(tab);
        }
        return tips;
    }
};

TEST_P(EveryWindowsTips, EachControlHasATip) {
    for (const QWidget* const part : controls())
        EXPECT_EQ(tipOf(*part).isEmpty(), isUntold(*part)) << called(*part);
}

TEST_P(EveryWindowsTips, TipsAreShownWhileAnotherWindowIsInFront) {
    EXPECT_TRUE(window->testAttribute(Qt::WA_AlwaysShowToolTips));
}

TEST_P(EveryWindowsTips, TipsThatAreFixedAreWordForWord) {
    for (const auto& [name, part, tip] : fixed) {
        if (window->objectName() != name) continue;
        const auto* const told = window->findChild<QWidget*>(part);
        ASSERT_NE(told, nullptr) << part;
        EXPECT_EQ(told->toolTip(), tip) << part;
    }
}

TEST_P(EveryWindowsTips, EachControlHasAName) {
    for (QWidget* const part : controls()) {
        const auto* const spoken = QAccessible::queryAccessibleInterface(part);
        ASSERT_NE(spoken, nullptr) << called(*part);
        const QString name = spoken->text(QAccessible::Name);
        EXPECT_FALSE(name.isEmpty()) << called(*part);
        EXPECT_NE(name, part->objectName());
        EXPECT_FALSE(QString(part->metaObject()->className()).endsWith(name)) << called(*part);
    }
}

INSTANTIATE_TEST_SUITE_P(All, EveryWindowsTips, testing::ValuesIn(windowStates()), nameOf);

}  // namespace melvane::test
