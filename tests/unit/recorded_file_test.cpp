#include "recorder/recorded_file.h"

#include <sys/stat.h>
#include <unistd.h>

#include "file_size_limit.h"
#include "ordinary_user.h"
#include "recorder/recorder_paths.h"
#include "recorder_fixture.h"

namespace melvane::test {
namespace {

class RecordedFileTest : public RecorderTest {
 protected:
    std::string file = write("a.wav", "sound");
    void save(const std::string& chosen) {
        window().Text6.set(file);
        dialogs.queueChoice({chosen, 1});
        window().Cmd2[4].userPut(Value(1LL));
    }
};

TEST_F(RecordedFileTest, TheFileIsMovedToItsName) {
    const std::string name = folder.file("my song.wav");
    save(name);
    EXPECT_EQ(dialogs.takeFileDialogs(),
              (Lines{"dialog save \"Save As\" \"Wave Audio (*.wav)|*.wav\" \"a.wav\""}));
    EXPECT_EQ(erbox(), file + " has been saved as " + name);
    EXPECT_EQ(window().Text6.text(), name);
    EXPECT_EQ(read(name), "sound");
    EXPECT_FALSE(exists(file));
}

TEST_F(RecordedFileTest, AMissingFileEndsItWithoutADialog) {
    file = folder.file("none.wav");
    save(folder.file("b.wav"));
    EXPECT_EQ(erbox(), "Invalid source file");
    EXPECT_TRUE(dialogs.takeFileDialogs().empty());
}

TEST_F(RecordedFileTest, ACancelledDialogIsTold) {
    save("");
    EXPECT_EQ(erbox(), "Cancelled");
    EXPECT_EQ(window().Text6.text(), file);
}

TEST_F(RecordedFileTest, ANameWithoutAnEndingHasThatOfTheFile) {
    save(folder.file("b"));
    EXPECT_EQ(read(folder.file("b.wav")), "sound");
    EXPECT_EQ(window().Text6.text(), folder.file("b.wav"));
}

TEST_F(RecordedFileTest, TheFilesOwnNameAndOneWithAShortEndingAreRefused) {
    for (const std::string name : {"a.wav", "a", "b.", "b.w", "b.wa"}) {
        save(folder.file(name));
        EXPECT_TRUE(erbox().starts_with("Can't rename as " + folder.file(name))) << erbox();
        EXPECT_TRUE(exists(file));
    }
}

TEST_F(RecordedFileTest, ANameWithoutAnEndingIsRefusedWhenTheFileHasNoneEither) {
    file = write("plain", "sound");
    save(folder.file("b"));
    EXPECT_EQ(erbox(), "Can't rename as " + folder.file("b"));
    EXPECT_EQ(read(file), "sound");
    EXPECT_FALSE(exists(folder.file("b")));
}

TEST_F(RecordedFileTest, AFileInTheWayIsDeletedAfterAQuestion) {
    const std::string name = write("b.wav", "other");
    dialogs.queueAnswer(BoxAnswer::no);
    save(name);
    EXPECT_EQ(erbox(), "Cancelled");
    EXPECT_EQ(read(name), "other");
    save(name);
    EXPECT_EQ(dialogs.takeBoxes().back(),
              "box question \"Melvane\" \"" + name + " already exists. Do you want to replace the file?\"");
    EXPECT_EQ(read(name), "sound");
}

TEST_F(RecordedFileTest, AFileInTheWayStaysUntilTheOtherHasItsPlace) {
    const std::string name = write("b.wav", "other");
    time.at(100, [this] { std::filesystem::remove(file); });  // while the question is asked
    save(name);
    EXPECT_EQ(dialogs.takeBoxes().size(), 1U);
    EXPECT_EQ(erbox(), "Can't rename as " + name);
    EXPECT_EQ(read(name), "other");
}

TEST_F(RecordedFileTest, AFileInTheWayThatMayNotBeReadIsAskedAboutToo) {
    const std::string name = write("b.wav", "other");
    chmod(name.c_str(), 0);
    chmod(folder.path().c_str(), 0777);
    {
        const OrdinaryUser user;
        dialogs.queueAnswer(BoxAnswer::no);
        save(name);
    }
    EXPECT_EQ(dialogs.takeBoxes().size(), 1U);
    EXPECT_EQ(erbox(), "Cancelled");
    chmod(name.c_str(), 0600);
    EXPECT_EQ(read(name), "other");
    EXPECT_EQ(read(file), "sound");
}

TEST_F(RecordedFileTest, WhatIsNoFileIsNeverReplacedAndTakesNothing) {
    std::filesystem::create_directory(folder.file("folder.wav"));
    ASSERT_EQ(mkfifo(folder.file("pipe.wav").c_str(), 0600), 0);
    std::filesystem::create_symlink("/dev/null", folder.file("device.wav"));
    for (const char* const name : {"folder.wav", "pipe.wav", "device.wav"}) {
        const auto type = std::filesystem::symlink_status(folder.file(name)).type();
        save(folder.file(name));
        EXPECT_EQ(erbox(), "Can't rename as " + folder.file(name));
        EXPECT_EQ(std::filesystem::symlink_status(folder.file(name)).type(), type) << name;
        EXPECT_EQ(read(file), "sound");
    }
    EXPECT_TRUE(dialogs.takeBoxes().empty());
}

/// The names lie on another file system than the file, where the machine has two.
class FileAcrossABorderTest : public RecordedFileTest {
 protected:
    FileAcrossABorderTest() {
        file = there.make("a.wav", content);
        chmod(file.c_str(), 0600);
    }

    const std::string content = std::string(200'000, 's') + "end";
    const TemporaryFolder there{access("/dev/shm", W_OK) == 0 ? "/dev/shm/" : testing::TempDir()};
};

TEST_F(FileAcrossABorderTest, TheFileComesWholeWithItsRightsAndIsGoneThere) {
    const std::string name = folder.file("b.wav");
    save(name);
    EXPECT_EQ(erbox(), file + " has been saved as " + name);
    EXPECT_EQ(read(name), content);
    EXPECT_EQ(std::filesystem::status(name).permissions(), std::filesystem::perms(0600));
    EXPECT_FALSE(exists(file));
}

TEST_F(FileAcrossABorderTest, AFileInTheWayIsReplaced) {
    const std::string name = write("b.wav", "other");
    save(name);
    EXPECT_EQ(read(name), content);
    EXPECT_FALSE(exists(file));
}

TEST_F(RecordedFileTest, ACopyReplacesAFileAsAWholeOrNotAtAll) {
    const std::string content = std::string(200'000, 's') + "end";
    const std::string from = write("a.wav", content), name = write("b.wav", "other");
    const auto files = folder.fileCount();
    {
        const FileSizeLimit limit(100'000);
        EXPECT_FALSE(copyFile(from, name));
    }
    EXPECT_EQ(read(name), "other");
    EXPECT_EQ(folder.fileCount(), files);
    EXPECT_TRUE(copyFile(from, name));
    EXPECT_EQ(read(name), content);
    EXPECT_EQ(read(from), content);
    EXPECT_EQ(folder.fileCount(), files);
}

TEST_F(RecordedFileTest, ACopyOfWhatCannotBeReadReplacesNone) {
    const std::string name = write("b.wav", "other");
    EXPECT_FALSE(copyFile("/proc/self/mem", name));  // opens, and has nothing at its start
    EXPECT_FALSE(copyFile(folder.file("none.wav"), name));
    EXPECT_EQ(read(name), "other");
}

TEST_F(RecordedFileTest, AFolderThatIsNotThereLeavesTheFile) {
    save(folder.file("none/b.wav"));
    EXPECT_EQ(erbox(), "Can't rename as " + folder.file("none/b.wav"));
    EXPECT_EQ(read(file), "sound");
}

TEST_F(RecordedFileTest, EachKindOfFileHasItsFilter) {
    const std::pair<const char*, const char*> kinds[] = {{"x.MID", "MIDI (*.mid)|*.mid"},
                                                         {"x.mp3", "MP3 (*.mp3)|*.mp3"},
                                                         {"x.sng", "SNG (*.sng)|*.sng"},
                                                         {"x.ogg", ""}};
    for (const auto& [name, filter] : kinds) {
        file = write(name, "x");
        save("");
        EXPECT_EQ(dialogs.takeFileDialogs().back(),
                  std::string("dialog save \"Save As\" \"") + filter + "\" \"" + name + "\"");
    }
}

}  // namespace
}  // namespace melvane::test
