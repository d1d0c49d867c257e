#include "recorder/encoding.h"

#include "encoding_fixture.h"
#include "file_size_limit.h"
#include "open_file_exchange.h"
#include "recorder/recording_buttons.h"

namespace melvane::test {
namespace {

// The button

TEST_F(EncodingTest, OnlyAWaveFileThatExistsIsEncoded) {
    for (const auto& file : {std::string(), folder.file("none.wav"), write("a.mp3", "x")}) {
        encode(file);
        EXPECT_EQ(erbox(), "The Source file is not a Wave file, or does not exist.");
        EXPECT_EQ(window().Command20.caption(), "Encode File");
        EXPECT_EQ(window().Text6.text(), file);
    }
}

TEST_F(EncodingTest, BlanksAroundTheNameDoNotCount) {
    const std::string wav = tone("a.wav", 2000);
    encode("  " + wav + " ");
    EXPECT_TRUE(exists(folder.file("a.mp3")));
    EXPECT_EQ(window().InputPath.text(), wav);
}

TEST_F(EncodingTest, BothLibraryFilesMustLieBesideTheProgram) {
    const std::string wav = tone("a.wav", 2000);
    std::filesystem::remove(folder.file("lame_enc.dll"));
    encode(wav);
    EXPECT_EQ(erbox(), "Encoding library \"lame_enc.dll\" is not found...can't encode.");
    std::filesystem::remove(folder.file("akrip32.dll"));
    press();
    EXPECT_EQ(erbox(), "One of the encoding library files was not found...can't encode.");
    EXPECT_TRUE(window().Command20.enabled());
    EXPECT_FALSE(exists(folder.file("a.mp3")));
}

TEST_F(EncodingTest, WhereTheEncoderIsLinkedNoFileIsAskedFor) {
    EXPECT_TRUE(SystemDesktop().encoderFiles().empty());
}

TEST_F(EncodingTest, TheWindowShowsTheProgress) {
    Lines states;
    atTurn([&](int turn) {
        if (turn <= 2) {
            states.push_back(window().Status.text() + " " + window().Label8.text() + " " +
                             window().Command20.caption() + std::to_string(window().Command20.enabled()) +
                             std::to_string(window().CmdStopRecording.enabled()) +
                             std::to_string(window().CmdrecordSNG.enabled()) + " " + erbox());
        }
    });
    encode(tone("a.wav", 4586));  // with the header 9216 bytes: four chunks
    EXPECT_EQ(states, (Lines{"25.00% Encoding Stop Encoding100 Encoding in progress",
                             "50.00% Encoding Stop Encoding100 Encoding in progress"}));
    EXPECT_EQ(window().Status.text() + window().Label8.text(), "");
    EXPECT_EQ(window().Command20.caption(), "Encode File");
    EXPECT_TRUE(window().CmdrecordSNG.enabled());
    EXPECT_EQ(WavEncoder::progressText(1, 1), "100.00%");
    EXPECT_EQ(WavEncoder::progressText(1, 30), "03.33%");
    EXPECT_EQ(WavEncoder::progressText(1, 32), "03.13%");
}

TEST_F(EncodingTest, AnEncodingStoppedHalfWayLeavesHalfAnMp3AndWithTheTickNoWave) {
    window().Check3.set(true);
    const std::string wav = tone("a.wav", 1152 * 40 - 22);  // 40 chunks with the header
    std::string told;
    atTurn([&](int turn) {
        if (turn != 20) return;
        told = window().Status.text();
        press();
        told += window().Command20.caption() + std::to_string(window().CmdrecordSNG.enabled()) +
                window().Status.text();
    });
    const std::string bytes = read(wav);
    encode(wav);
    EXPECT_EQ(told, "50.00%Encode File1");
    EXPECT_EQ(erbox(), "Finished Encoding " + wav);
    EXPECT_FALSE(exists(wav));
    // The press is seen behind the next chunk, and the stream is closed as one that has come to its end.
    EXPECT_EQ(read(folder.file("a.mp3")), mp3Of(bytes, chosen(), 21));
    EXPECT_NE(read(folder.file("a.mp3")), mp3Of(bytes, chosen(), 20));
    EXPECT_EQ(window().Status.text(), "");
}

TEST_F(EncodingTest, APressAfterTheCancellingWaitsForItsEnd) {
    const std::string wav = tone("a.wav", 1152 * 10);
    const std::string other = tone("b.wav", 1152 * 10);
    atTurn([&](int turn) {
        if (turn != 2) return;
        press();
        put(other);
        press();
        EXPECT_EQ(window().Command20.caption(), "Encode File");
        EXPECT_TRUE(studio.recorder.EncodeCancel);
    });
    encode(wav);
    EXPECT_TRUE(dialogs.takeBoxes().empty());
    EXPECT_EQ(read(folder.file("a.mp3")), mp3Of(read(wav), chosen(), 3));
    EXPECT_FALSE(exists(folder.file("b.mp3")));
    encode(other);
    EXPECT_EQ(read(folder.file("b.mp3")), mp3Of(read(other), chosen()));
}

TEST_F(EncodingTest, EachChunkIsInTheFileAtOnce) {
    const std::string wav = tone("a.wav", 1152 * 20);
    std::vector<std::string> parts;
    atTurn([&](int) { parts.push_back(read(folder.file("a.mp3"))); });
    encode(wav);
    const std::string whole = read(folder.file("a.mp3"));
    ASSERT_EQ(parts.size(), 21U);
    for (std::size_t turn = 1; turn < parts.size(); ++turn) {
        EXPECT_GE(parts[turn].size(), parts[turn - 1].size());
        EXPECT_TRUE(whole.starts_with(parts[turn]));
    }
    EXPECT_GT(parts[10].size(), whole.size() / 3);
    EXPECT_LT(parts[10].size(), whole.size() * 2 / 3);
}

TEST_F(EncodingTest, TheTickDeletesTheWaveAfterwards) {
    window().Check3.set(true);
    const std::string wav = tone("a.wav", 2000);
    encode(wav);
    EXPECT_FALSE(exists(wav));
    EXPECT_TRUE(exists(folder.file("a.mp3")));
}

TEST_F(EncodingTest, TheWindowMayCloseInTheMiddle) {
    window().Check3.set(true);
    const std::string wav = tone("a.wav", 1152 * 40);
    atTurn([&](int turn) {
        if (turn == 5) recorder().window.Form_Unload();
    });
    encode(wav);
    EXPECT_TRUE(exists(wav));
    EXPECT_LT(decode(folder.file("a.mp3")).frames, 10U * 1152U);
}

TEST_F(EncodingTest, TheProgramMayEndInTheMiddle) {
    window().Check3.set(true);
    const std::string wav = tone("a.wav", 1152 * 40);
    atTurn([&](int turn) {
        if (turn == 5) engine.startUp.Form_Unload();
    });
    encode(wav);
    EXPECT_TRUE(exists(wav));
}

TEST_F(EncodingTest, AFullDiskKeepsTheSourceAndIsTold) {
    window().Check3.set(true);
    const std::string wav = tone("a.wav", 1152 * 400);
    {
        const FileSizeLimit limit(4096);
        encode(wav);
    }
    EXPECT_TRUE(exists(wav));
    EXPECT_EQ(window().Text6.text(), wav);
    EXPECT_EQ(logged(),
              (Lines{folder.file("a.mp3") + " could not be written as a whole; its source is kept."}));
    EXPECT_TRUE(window().CmdrecordSNG.enabled());
}

TEST_F(EncodingTest, ATargetThatIsNoFileKeepsTheSource) {
    window().Check3.set(true);
    const std::string wav = tone("a.wav", 1152 * 4);
    std::filesystem::create_directory(folder.file("a.mp3"));
    encode(wav);
    EXPECT_TRUE(exists(wav));
    EXPECT_EQ(logged(), Lines{});
}

TEST_F(EncodingTest, AnMp3ThatDoesNotReachTheDiskKeepsTheSource) {
    window().Check3.set(true);
    const std::string wav = tone("a.wav", 1152 * 4), target = folder.file("a.mp3");
    atTurn([&](int turn) {
        if (turn != 2) return;
        EXPECT_TRUE(exchangeOpenFile(target, "/dev/null", O_WRONLY));
    });
    encode(wav);
    EXPECT_TRUE(exists(wav));
    EXPECT_EQ(window().Text6.text(), wav);
    EXPECT_EQ(logged(), (Lines{target + " could not be written as a whole; its source is kept."}));
}

// The source

TEST_F(EncodingTest, AWaveThatAnotherHoldsOpenIsKeptAndNoMp3OfItIsMade) {
    window().Check3.set(true);
    const std::string wav = tone("a.wav", 1152 * 4), bytes = read(wav);
    {
        clsFileIo other;
        ASSERT_TRUE(other.OpenFile(wav));
        encode(wav);
    }
    EXPECT_EQ(read(wav), bytes);
    EXPECT_FALSE(exists(folder.file("a.mp3")));
    EXPECT_EQ(window().Text6.text(), wav);
    EXPECT_EQ(erbox(), "Finished Encoding " + wav);
    EXPECT_EQ(logged(), (Lines{wav + " could not be read as a whole; it is kept."}));
    EXPECT_TRUE(window().CmdrecordSNG.enabled());
    encode(wav);
    EXPECT_EQ(read(folder.file("a.mp3")), mp3Of(bytes, chosen()));
}

TEST_F(EncodingTest, AWaveThatCannotBeReadIsKeptAndNoMp3OfItIsMade) {
    window().Check3.set(true);
    const std::string wav = folder.file("a.wav");
    std::filesystem::create_symlink("/proc/self/mem", wav);  // opens, and has nothing at its start
    encode(wav);
    EXPECT_TRUE(std::filesystem::is_symlink(wav));
    EXPECT_FALSE(exists(folder.file("a.mp3")));
    EXPECT_EQ(window().Text6.text(), wav);
    EXPECT_EQ(logged(), (Lines{wav + " could not be read as a whole; it is kept."}));
}

TEST_F(EncodingTest, AWaveThatCannotBeReadToItsEndIsKeptAndTheMp3EndsThere) {
    window().Check3.set(true);
    const std::string wav = tone("a.wav", 1152 * 400), bytes = read(wav);
    atTurn([&](int turn) {
        if (turn != 50) return;
        EXPECT_TRUE(exchangeOpenFile(wav, "/dev/null", O_WRONLY));
    });
    encode(wav);
    EXPECT_EQ(read(wav), bytes);
    const std::string made = read(folder.file("a.mp3"));
    EXPECT_TRUE(made.size() > 1000 && made.size() < mp3Of(bytes, chosen(), 100).size());
    EXPECT_EQ(window().Text6.text(), wav);
    EXPECT_EQ(erbox(), "Finished Encoding " + wav);
    EXPECT_EQ(logged(), (Lines{wav + " could not be read as a whole; it is kept."}));
    EXPECT_TRUE(window().CmdrecordSNG.enabled());
}

TEST_F(EncodingTest, AWaveThatIsCutMeanwhileIsKept) {
    window().Check3.set(true);
    const std::string wav = tone("a.wav", 1152 * 400);
    atTurn([&](int turn) {
        if (turn == 50) std::filesystem::resize_file(wav, 1152 * 600);
    });
    encode(wav);
    EXPECT_TRUE(exists(wav));
    EXPECT_EQ(logged(), (Lines{wav + " could not be read as a whole; it is kept."}));
}

// The target

TEST_F(EncodingTest, AnExistingTargetIsReplacedOnYes) {
    const std::string target = write("a.mp3", "old");
    encode(tone("a.wav", 2000));
    EXPECT_EQ(dialogs.takeBoxes(), (Lines{"box question \"Melvane\" \"" + target +
                                          " already exists. Do you want to replace the file?\""}));
    EXPECT_GT(std::filesystem::file_size(target), 100U);
}

TEST_F(EncodingTest, AFailedEncodingLeavesNeitherFile) {
    window().Check3.set(true);
    const std::string target = write("a.mp3", "old"), wav = tone("a.wav", 2000);
    window().cbxFormat.set(-1);  // no rate
    encode(wav);
    EXPECT_FALSE(exists(target));
    EXPECT_FALSE(exists(wav));
    EXPECT_EQ(erbox(), "Encoding in progress");
    EXPECT_TRUE(window().CmdrecordSNG.enabled());
}

TEST_F(EncodingTest, OnNoAnotherNameIsAskedFor) {
    const std::string target = write("a.mp3", "old"), other = write("b.mp3", "older");
    dialogs.queueAnswer(BoxAnswer::no);
    dialogs.queueChoice({other, 1});
    encode(tone("a.wav", 2000));
    EXPECT_EQ(dialogs.takeFileDialogs(),
              (Lines{"dialog save \"Save As\" \"MP3 (*.mp3)|*.mp3\" \"audio.mp3\""}));
    EXPECT_EQ(read(target), "old");
    EXPECT_GT(std::filesystem::file_size(other), 100U);
    EXPECT_EQ(window().OutPutPath.text(), other);
    EXPECT_EQ(window().Text6.text(), target);
}

TEST_F(EncodingTest, ANameThatIsNoneEndsItWithTheWaveInPlace) {
    window().Check3.set(true);
    const std::string target = write("a.mp3", "old"), wav = tone("a.wav", 2000);
    for (const std::string name : {"", "other.wav", "with blank.mp3"}) {
        dialogs.queueAnswer(BoxAnswer::no);
        dialogs.queueChoice({name.empty() ? name : folder.file(name), 1});
        encode(wav);
        EXPECT_EQ(erbox(), "Error in File name selection. Try another file name.");
        EXPECT_TRUE(exists(wav));
        EXPECT_EQ(window().Text6.text(), wav);
        EXPECT_EQ(window().Command20.caption(), "Encode File");
    }
    EXPECT_EQ(read(target), "old");
}

TEST_F(EncodingTest, WhatWasNotSelectedIsAskedFor) {
    window().Check3.set(true);
    const std::string wav = tone("a.wav", 2000);
    window().Combo3.set(-1);
    encode(wav);
    window().Combo3.set(9);
    window().Combo4.set(-1);
    encode(wav);
    EXPECT_EQ(dialogs.takeBoxes(), (Lines{"box plain \"Melvane\" \"You didn't select quality...\"",
                                          "box plain \"Melvane\" \"You didn't select Bitrate...\""}));
    EXPECT_TRUE(exists(wav));
    EXPECT_FALSE(exists(folder.file("a.mp3")));
}

TEST_F(EncodingTest, AMissingSourceAndATargetInTheWayEndTheStream) {
    recorder().encoding.EncodeStream(folder.file("none.wav"), folder.file("none.mp3"));
    EXPECT_EQ(erbox(), "Source File not found...");
    const std::string wav = tone("a.wav", 2000), target = write("a.mp3", "old");
    recorder().log.show("as before");
    recorder().encoding.EncodeStream(wav, target);
    EXPECT_EQ(erbox(), "as before");
    EXPECT_EQ(logged(), Lines{});
    EXPECT_EQ(read(target), "old");
}

TEST_F(EncodingTest, AMissingSourceBringsTheWindowBack) {
    window().Label8.set("Encoding");
    window().Status.set("50.00%");
    window().Command20.setCaption("Stop Encoding");
    DisableRecording(window());
    recorder().encoding.EncodeStream(folder.file("none.wav"), folder.file("none.mp3"));
    EXPECT_EQ(window().Label8.text() + window().Status.text(), "");
    EXPECT_EQ(window().Command20.caption(), "Encode File");
    EXPECT_TRUE(window().CmdrecordSNG.enabled() && window().Command20.enabled());
    EXPECT_FALSE(window().CmdStopRecording.enabled());
}

TEST_F(EncodingTest, AChosenNameMayHaveItsEndingInCapitals) {
    const std::string target = write("a.mp3", "old");
    dialogs.queueAnswer(BoxAnswer::no);
    dialogs.queueChoice({folder.file("B.MP3"), 1});
    encode(tone("a.wav", 2000));
    EXPECT_EQ(read(target), "old");
    EXPECT_TRUE(exists(folder.file("B.MP3")));
    EXPECT_EQ(window().OutPutPath.text(), folder.file("B.MP3"));
}

TEST_F(EncodingTest, ATargetThatCannotBeWrittenIsNotNoticed) {
    const std::string wav = tone("a.wav", 2000);
    recorder().encoding.EncodeStream(wav, folder.file("none/a.mp3"));
    EXPECT_EQ(erbox(), "Finished Encoding ");
    EXPECT_FALSE(exists(folder.file("none/a.mp3")));
}

TEST_F(EncodingTest, AWaveThatMayOnlyBeReadIsEncodedAllTheSame) {
    const std::string wav = tone("a.wav", 30000);
    encode(wav);
    const std::string usual = read(folder.file("a.mp3"));
    removeMp3();
    std::filesystem::permissions(wav, std::filesystem::perms::owner_read);
    encode(wav);
    EXPECT_EQ(read(folder.file("a.mp3")), usual);
}

}  // namespace
}  // namespace melvane::test
