#include "encoding_fixture.h"

// Where the recorder's file dialogs open.

namespace melvane::test {
namespace {

/// Dialogs that keep the questions and choose nothing, or that file.
class KeptDialogs final : public Dialogs {
 public:
    std::vector<FileQuestion> questions;
    std::string chosen;
    BoxAnswer answer = BoxAnswer::no;

    FileChoice openFile(const FileQuestion& question) override { return keep(question); }
    FileChoice saveFile(const FileQuestion& question) override { return keep(question); }
    BoxAnswer messageBox(BoxKind, const std::string&, const std::string&, BoxButtons) override {
        return answer;
    }

 private:
    FileChoice keep(const FileQuestion& question) {
        questions.push_back(question);
        return {chosen, 1};
    }
};

class RecorderDialogsTest : public EncodingTest {
 protected:
    RecorderDialogsTest() {
        program.startUp.Form_Load();
        program.recorder.window.Form_Load();
        other.Record.Check3.set(false);
    }
    static void press(Control& control) { control.userPut(Value(1LL)); }

    KeptDialogs kept;
    Studio other;
    Outside world{time,    time,  port, media,
                  desktop, store, kept, Directories{folder.path(), MELVANE_RESOURCES}};
    Engine program{other, world, surfaces, frame, toolWindows};
};

TEST_F(RecorderDialogsTest, FilesAreOpenedFromTheFolderOfRecordings) {
    other.recorder.AudioFolder = "elsewhere";
    press(other.Record.Cmd2[0]);
    EXPECT_EQ(kept.questions.at(0).folder, folder.file("Songs"));
    EXPECT_EQ(other.recorder.AudioFolder, folder.file("Songs"));
    other.recorder.AudioFolder = "elsewhere";
    press(other.Record.Optsourcemid);
    press(other.Record.CmdrecordSNG);
    EXPECT_EQ(kept.questions.at(1).folder, folder.file("Songs"));
    EXPECT_EQ(kept.questions.at(1).title, "Open MIDI File");
}

TEST_F(RecorderDialogsTest, AFileIsSavedAsWhereItLiesUnlessAnotherFolderIsChosen) {
    std::filesystem::create_directory(folder.file("takes"));
    const std::string file = write("takes/a.wav", "sound");
    other.Record.Text6.set(file);
    press(other.Record.Cmd2[4]);
    EXPECT_EQ(kept.questions.at(0).folder, folder.file("takes") + "/");
    EXPECT_EQ(kept.questions.at(0).proposed, "a.wav");
    EXPECT_TRUE(kept.questions.at(0).callerAsks);
    kept.chosen = folder.file("b.wav");
    press(other.Record.Cmd2[4]);
    EXPECT_TRUE(exists(folder.file("b.wav")));
    EXPECT_FALSE(exists(file));
}

TEST_F(RecorderDialogsTest, AnotherNameForAnEncodingIsAskedForInTheCurrentFolder) {
    std::filesystem::create_directory(folder.file("now"));
    other.Record.Text6.set(tone("a.wav", 2000));
    write("a.mp3", "old");
    std::filesystem::current_path(folder.file("now"));
    press(other.Record.Command20);
    EXPECT_TRUE(std::filesystem::equivalent(kept.questions.at(0).folder, folder.file("now")));
    EXPECT_EQ(kept.questions.at(0).proposed, "audio.mp3");
    EXPECT_EQ(read(folder.file("a.mp3")), "old");
    // An existing file of the chosen name is deleted, and the encoding goes to the program's folder.
    kept.chosen = write("b.mp3", "older");
    press(other.Record.Command20);
    EXPECT_EQ(read(folder.file("b.mp3")), mp3Of(read(folder.file("a.wav")), chosen()));
    EXPECT_TRUE(std::filesystem::equivalent(std::filesystem::current_path(), folder.path()));
}

}  // namespace
}  // namespace melvane::test
