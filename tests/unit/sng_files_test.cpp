#include <fstream>
#include <set>
#include <sstream>

#include "file_size_limit.h"
#include "files/sng_writer.h"
#include "program_fixture.h"

namespace melvane::test {
namespace {

using Lines = std::vector<std::string>;

class SngTest : public ProgramTest {
 protected:
    void SetUp() override { start(); }

    static std::string contents(const std::string& path) {
        std::ostringstream bytes;
        bytes << std::ifstream(path, std::ios::binary).rdbuf();
        return bytes.str();
    }
    static Lines lines(const std::string& text) {
        Lines found;
        std::istringstream stream(text);
        for (std::string line; std::getline(stream, line);) {
            EXPECT_TRUE(line.ends_with('\r')) << line;
            found.push_back(line.substr(0, line.size() - 1));
        }
        return found;
    }
    /// The short form of a score with the given first track, tempo line and instruments line.
    static std::string shortForm(const std::string& notes, const std::string& instruments,
                                 const std::string& tempo,
                                 const std::string& trackInstruments = "0,0,0,0,0,0,0,0,0,0,0,0,0") {
        std::string text = notes + "\r\n" + instruments + "\r\n";
        for (int track = 1; track <= 12; ++track) text += "-1\r\n0\r\n";
        return text + tempo + "\r\n" + trackInstruments + "\r\n";
    }
    std::set<std::string> files() const {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder.path())) {
            names.insert(entry.path().filename().string());
        }
        return names;
    }
    void open(const std::string& text) { engine.files.OpenPoliFile(folder.make("score.sng", text)); }
};

TEST_F(SngTest, AnEmptyScoreHasThirteenPairsAndTheShortestSections) {
    const auto text = lines(writeSng(studio));
    ASSERT_EQ(text.size(), 28U + 10U + 5U * 14U);
    for (std::size_t pair = 0; pair < 13; ++pair) {
        EXPECT_EQ(text[2 * pair], "-1");
        EXPECT_EQ(text[2 * pair + 1], "0");
    }
    EXPECT_EQ(text[26], " 100 ");
    EXPECT_EQ(text[27], "24,0,0,0,0,0,0,0,0,0,0,0,0");
    EXPECT_EQ(text[28], "Polyphonics");
    EXPECT_EQ(text[29], "0,0");
    EXPECT_EQ(text[38], "Volume");
    EXPECT_EQ(text[39], "127");
    EXPECT_EQ(text[52], "Modulation_Change");
    EXPECT_EQ(text[66], "Pan_Change");
    EXPECT_EQ(text[67], "64");
    EXPECT_EQ(text[80], "Reverb_Change");
    EXPECT_EQ(text[94], "Chorus_Change");
    EXPECT_EQ(text.back(), "0");
}

TEST_F(SngTest, EachTrackHasItsOwnLengthAndSectionsTheLongest) {
    write(0, 1, 60, 2, 5);
    write(3, 0, 61, 1, 7);
    studio.score.PolyArray.set(4, 0, 2);
    studio.score.VolumeArray.set(3, 1, 99);
    const auto text = lines(writeSng(studio));
    EXPECT_EQ(text[0], "-1,60,1060");
    EXPECT_EQ(text[1], "0,5,5");
    EXPECT_EQ(text[6], "61");
    EXPECT_EQ(text[7], "7");
    EXPECT_EQ(text[29 + 4], "2,0,0,0");
    EXPECT_EQ(text[39 + 3], "99,127,127");
}

TEST_F(SngTest, ASavedScoreOpensAsItWas) {
    write(0, 0, 67, 5, 40);
    write(7, 3, 0, 2, 12);
    write(12, 9, 45, 1, 140);
    studio.score.PolyArray.set(1, 0, 5);
    studio.score.PanArray.set(7, 4, 3);
    studio.score.VolumeArray.set(12, 10, 55);
    studio.score.ChorusArray.set(0, 1, 77);
    studio.score.Tempo = 222;
    studio.score.SaveFileName = folder.file("kept.sng");
    engine.files.SaveSongFile();
    const Score before = studio.score;
    engine.score.ClearAll();
    EXPECT_NE(studio.score.NoteArray, before.NoteArray);
    engine.files.OpenPoliFile(before.SaveFileName);
    EXPECT_EQ(studio.score.NoteArray, before.NoteArray);
    EXPECT_EQ(studio.score.InstArray, before.InstArray);
    EXPECT_EQ(studio.score.PolyArray, before.PolyArray);
    EXPECT_EQ(studio.score.PanArray, before.PanArray);
    EXPECT_EQ(studio.score.VolumeArray, before.VolumeArray);
    EXPECT_EQ(studio.score.ChorusArray, before.ChorusArray);
    EXPECT_EQ(studio.score.Tempo, 222);
    EXPECT_TRUE(studio.tracks.TrackActive[0]);
    EXPECT_TRUE(studio.tracks.TrackActive[12]);
    EXPECT_FALSE(studio.tracks.TrackActive[1]);
    EXPECT_EQ(studio.form1.Beatbox.height(), 36);
    EXPECT_EQ(studio.tracks.PercussionLanes[5][10], 140);
}

TEST_F(SngTest, ASaveOverAFilePausesForTheFileSystem) {
    studio.score.SaveFileName = folder.file("a.sng");
    engine.files.SaveSongFile();
    EXPECT_EQ(time.tickCount(), 0);
    engine.files.SaveSongFile();
    EXPECT_EQ(time.tickCount(), 200);
    engine.files.SaveSongFileShort();
    EXPECT_EQ(time.tickCount(), 200);
    EXPECT_EQ(lines(contents(folder.file("a.sng"))).size(), 28U);
}

TEST_F(SngTest, TheTempoIsLimitedByTwoReadersOfThree) {
    const auto path = folder.make("fast.sng", shortForm("-1", "0", "500"));
    engine.files.OpenPoliFile(path);
    EXPECT_EQ(studio.score.Tempo, 400);
    EXPECT_EQ(studio.Form3.TempoLabel.text(), "400");
    engine.files.OpenSegment(path);
    EXPECT_EQ(studio.score.Tempo, 500);
    EXPECT_EQ(studio.Form3.TempoLabel.text(), "400");
    engine.files.OpenFile(path);
    EXPECT_EQ(studio.score.Tempo, 400);
    EXPECT_EQ(studio.instruments.MelodyInstrument, 24);
}

TEST_F(SngTest, AFileOfTwentySevenLinesTakesTheInstrumentsFromColumnZero) {
    auto text = shortForm("60,61", "33,34", " 90 ");
    text.resize(text.find(" 90 ") + 6);
    open(text);
    EXPECT_EQ(studio.score.Tempo, 90);
    EXPECT_EQ(studio.tracks.TrackInstrument[0], 33);
    EXPECT_EQ(studio.tracks.TrackInstrument[1], 0);
}

TEST_F(SngTest, AShortFormKeepsTheEffectsOfTheScoreBefore) {
    studio.score.VolumeArray.set(0, 5, 31);
    studio.score.PolyArray.set(1, 5, 3);
    open(shortForm("60", "0", " 90 "));
    EXPECT_EQ(studio.score.VolumeArray.get(0, 5, 0), 31);
    EXPECT_EQ(studio.score.chordOf(0, 5), 0);
}

TEST_F(SngTest, DamagedFieldsCountAsZeroAndValuesTooLargeChangeNothing) {
    open(shortForm("x,12abc,,2.5,3.5,40000,-7", "1,2", " 90 "));
    const auto row = studio.score.NoteArray.row(0);
    EXPECT_EQ(std::vector<int>(row.begin(), row.begin() + 8), (std::vector<int>{0, 12, 0, 2, 4, -1, -7, -1}));
}

TEST_F(SngTest, AnEmptyLineChangesNothing) {
    open(shortForm("", "", "", ""));
    EXPECT_EQ(studio.score.noteCell(0, 0), -1);
    EXPECT_EQ(studio.score.Tempo, 100);
    EXPECT_EQ(studio.tracks.TrackInstrument[0], 24);
}

TEST_F(SngTest, ALongerFileIsCutAtTheScoresWidth) {
    engine.score.resizeGrids(2);
    open(shortForm("60,61,62,63,64", "1,2,3,4,5", " 90 "));
    EXPECT_EQ(studio.score.NumNotes, 2);
    EXPECT_EQ(studio.score.noteCell(0, 2), 62);
    EXPECT_EQ(studio.score.noteCell(0, 3), -1);
}

TEST_F(SngTest, ZeroBytesAfterTheLastLineAreALineThatIsDiscarded) {
    open(shortForm("60", "7", " 90 ") + std::string(3, '\0'));
    EXPECT_EQ(studio.score.noteCell(0, 0), 60);
    EXPECT_EQ(studio.score.chordOf(0, 0), 0);
    EXPECT_EQ(studio.tracks.TrackInstrument[0], 0);
}

TEST_F(SngTest, AFileCutShortLeavesTheRest) {
    studio.score.Tempo = 70;
    open("60,1060\r\n5,5\r\n61");
    EXPECT_EQ(studio.score.noteCell(0, 1), 1060);
    EXPECT_EQ(studio.score.noteCell(1, 0), 61);
    EXPECT_EQ(studio.score.noteCell(2, 0), -1);
    EXPECT_EQ(studio.score.Tempo, 70);
}

TEST_F(SngTest, AFileThatCannotBeOpenedLeavesTheScoreClearedAndTheRestAsItWas) {
    write(0, 0, 60);
    studio.score.Tempo = 70;
    studio.tracks.TrackInstrument[2] = 9;
    engine.files.OpenPoliFile(folder.file("nowhere.sng"));
    EXPECT_EQ(studio.score.noteCell(0, 0), -1);
    EXPECT_EQ(studio.score.Tempo, 70);
    EXPECT_EQ(studio.tracks.TrackInstrument[2], 9);
    EXPECT_FALSE(studio.form1.StatusText.text().empty());
}

TEST_F(SngTest, OpeningReturnsToTheFirstPage) {
    studio.form1.HScroll1.set(400);
    open(shortForm("60", "0", " 90 "));
    EXPECT_EQ(studio.page.FirstColumn, 0);
    EXPECT_EQ(studio.form1.HScroll1.value(), studio.page.HalfPageColumns);
}

TEST_F(SngTest, TheOpenCommandKeepsALowerCasePathAndFindsTheFileWithoutRegardToCase) {
    folder.make("Waltz.SNG", shortForm("60", "0", " 90 "));
    dialogs.queueChoice({" " + folder.file("Waltz.SNG") + " ", 1});
    engine.files.Command33_Click();
    EXPECT_EQ(studio.score.noteCell(0, 0), 60);
    EXPECT_TRUE(studio.score.ScoreFileName.ends_with("waltz.sng"));
    EXPECT_EQ(studio.score.SaveFileName, studio.score.ScoreFileName);
    EXPECT_EQ(dialogs.takeFileDialogs(),
              (Lines{"dialog open \"Open Score File\" \"Score Files (*.sng) |*.sng|\" \"\""}));
}

TEST_F(SngTest, ACancelledOrVanishedChoiceChangesNothing) {
    write(0, 0, 60);
    engine.files.Command33_Click();
    EXPECT_EQ(studio.score.SaveFileName, "");
    dialogs.queueChoice({folder.file("Gone.sng"), 1});
    engine.files.Command33_Click();
    EXPECT_TRUE(studio.score.SaveFileName.ends_with("gone.sng"));
    EXPECT_EQ(studio.score.ScoreFileName, "");
    EXPECT_EQ(studio.score.noteCell(0, 0), 60);
}

TEST_F(SngTest, ASaveAddsTheEndingAndLeavesTheScoreInHand) {
    studio.score.ScoreFileName = "in hand";
    dialogs.queueChoice({folder.file("song.TXT"), 2});
    engine.files.mSaveAs_Click();
    EXPECT_TRUE(files().contains("song.TXT.sng"));
    dialogs.queueChoice({folder.file("other.SNG") + std::string(1, '\0'), 2});
    engine.files.mSaveAs_Click();
    EXPECT_TRUE(files().contains("other.SNG"));
    EXPECT_EQ(studio.score.ScoreFileName, "in hand");
}

TEST_F(SngTest, ASaveThatFailsIsTold) {
    studio.score.SaveFileName = folder.file("no such folder/a.sng");
    engine.files.SaveSongFile();
    const auto boxes = dialogs.takeBoxes();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_TRUE(boxes[0].starts_with("box exclamation \"Melvane\" \"The score was not saved. ")) << boxes[0];
}

TEST_F(SngTest, AFullDiskKeepsTheOldFile) {
    const auto path = folder.make("kept.sng", "the old score");
    studio.score.SaveFileName = path;
    {
        const FileSizeLimit limit(100);
        engine.files.SaveSongFile();
    }
    EXPECT_EQ(contents(path), "the old score");
    EXPECT_EQ(files(), (std::set<std::string>{"Songs", "kept.sng"}));
    EXPECT_EQ(dialogs.takeBoxes().size(), 1U);
}

TEST_F(SngTest, AKeptLowerCasePathMeansTheFileItWasOpenedFrom) {
    std::filesystem::create_directory(folder.path() / "Deep");
    folder.make("Deep/Waltz.SNG", shortForm("60", "0", " 90 "));
    studio.score.SaveFileName = folder.file("deep/waltz.sng");
    engine.files.SaveSongFile();
    EXPECT_TRUE(contents(folder.file("Deep/Waltz.SNG")).starts_with("-1\r\n"));
    studio.score.SaveFileName = folder.file("deep/new.sng");
    engine.files.SaveSongFile();
    EXPECT_TRUE(std::filesystem::exists(folder.path() / "Deep" / "new.sng"));
}

TEST_F(SngTest, EveryVoiceOfAnOpenedScoreIsVisible) {
    EXPECT_FALSE(studio.tracks.TrackVisible[5]);
    write(5, 0, 60);
    studio.score.SaveFileName = folder.file("voices.sng");
    engine.files.SaveSongFile();
    engine.files.OpenPoliFile(studio.score.SaveFileName);
    EXPECT_TRUE(studio.tracks.TrackVisible[5]);
    EXPECT_FALSE(studio.tracks.TrackVisible[4]);
}

TEST_F(SngTest, TheSampleScoresOpen) {
    for (const char* name : {"demo", "greensleeves", "101", "104a", "301"}) {
        engine.score.ClearAll();
        engine.files.OpenPoliFile(std::string(MELVANE_RESOURCES) + "/scores/" + name + ".sng");
        int notes = 0;
        for (int track = 0; track <= lastTrackNumber; ++track) {
            for (const int value : studio.score.NoteArray.row(track)) notes += cell::isStart(value) ? 1 : 0;
        }
        EXPECT_GT(notes, 20) << name;
    }
}

}  // namespace
}  // namespace melvane::test
