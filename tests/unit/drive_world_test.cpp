#include "drive_fixture.h"

namespace melvane::drive {
namespace {

TEST_F(DriveTest, FilesArePrintedWithSizeAndHashUnderThePathAsGiven) {
    folder.make("empty");
    folder.make("a.txt", "foobar");
    EXPECT_EQ(run("file \"$HERE/empty\"\nfile \"$PROGRAM/a.txt\"\nfile \"$HERE/none\"\nfile \"$HERE\"\n"),
              "$HERE/empty: 0 bytes cbf29ce484222325\n$PROGRAM/a.txt: 6 bytes 85944171f73967e8\n"
              "$HERE/none: missing\n$HERE: missing\n");
}

TEST_F(DriveTest, TextPrintsTheLinesAlone) {
    folder.make("a.txt", "one\r\n\r\nthree");
    EXPECT_EQ(run("text \"$HERE/a.txt\"\ntext \"$HERE/none\"\n"), "one\n\nthree\n$HERE/none: missing\n");
}

TEST_F(DriveTest, SettingsArePrintedSortedWithKeysInLowerCase) {
    EXPECT_EQ(
        run("setting Tempo \"90\"\nsetting \"form1 Left\" \"a b\"\nsetting form1 top \"7\"\nsettings\n"),
        "form1 left=a b\nform1 top=7\ntempo=90\n");
    EXPECT_EQ(run("setting Tempo 90\n"), "error: 1: the value of a setting stands in quotes\n");
}

TEST_F(DriveTest, DevicesAndRefusalsDecideWhatAnOpenAnswers) {
    run("devices 3\nrefuse 2 1\nrefuse -1 -1\n");
    MidiPort::Handle handle = 0;
    EXPECT_EQ(world.port.midiOutGetNumDevs(), 3);
    EXPECT_EQ(world.port.midiOutOpen(handle, 2), MidiPort::allocated);
    EXPECT_EQ(world.port.midiOutOpen(handle, 2), MidiPort::ok);
    EXPECT_EQ(world.port.midiOutOpen(handle, -1), MidiPort::allocated);
    EXPECT_EQ(run("devices -1\n"), "error: 1: the number of devices is a whole number from 0\n");
}

TEST_F(DriveTest, MediaCommandsArePrintedWithTheirAnswers) {
    run("reply \"record\" 5 \"No \"\"card\"\"\"\n");
    world.media.send("Record capture");
    EXPECT_EQ(run("media\nmedia\n"), "0 \"Record capture\" -> 5 \"No \"\"card\"\"\"\n");
}

TEST_F(DriveTest, ClearForgetsWhatWouldBePrintedAndKeepsTheQueues) {
    EXPECT_EQ(run("form1.Note\nanswer no\nform1.Ask\nanswer "
                  "no\nclear\nmidi\nmedia\nboxes\ndialogs\nmenus\nform1.Ask\n"),
              "Ask = false\nAsk = false\n");
}

TEST_F(DriveTest, FileDialogsTakeTheQueuedChoices) {
    run("choose \"$HERE/a.sng\" 2\nchoose \"\"\n");
    const FileChoice first = world.dialogs.openFile({"Open", "S|*", "", ""});
    EXPECT_EQ(first.path, folder.file("a.sng"));
    EXPECT_EQ(first.filterIndex, 2);
    EXPECT_EQ(world.dialogs.openFile({"Open", "S|*", "", ""}).path, "");
    EXPECT_EQ(run("dialogs\n"), "dialog open \"Open\" \"S|*\" \"\"\ndialog open \"Open\" \"S|*\" \"\"\n");
    EXPECT_EQ(run("choose \"a\" 0\n"), "error: 1: filter entries are counted from 1\n");
}

TEST_F(DriveTest, MenusAreWrittenDownAndTakeTheQueuedPick) {
    run("pick \"Menu\"\npick \"Grey\"\npick \"None\"\n");
    const std::vector<MenuEntry> entries{
        {"Erase", true, true}, {"Menu", false, true}, {"Grey", false, false}};
    EXPECT_EQ(world.menus.choose("mnupopup5", entries), 1U);
    EXPECT_EQ(run("menus\n"), "menu mnupopup5\n*Erase\nMenu\n-Grey\n");
    EXPECT_EQ(world.menus.choose("mnupopup5", entries), std::nullopt) << "a disabled entry cannot be picked";
    EXPECT_EQ(world.menus.choose("mnupopup5", entries), std::nullopt);
    EXPECT_EQ(world.menus.choose("mnupopup5", entries), std::nullopt) << "with no pick it closes at once";
}

}  // namespace
}  // namespace melvane::drive
