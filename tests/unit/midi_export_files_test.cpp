#include "file_size_limit.h"
#include "midi_export_fixture.h"

namespace melvane::test {
namespace {

namespace fs = std::filesystem;

using MidiFileTest = MidiExportTest;

std::string ofWidthSeven(std::string digits) {
    while (digits.size() % 7 != 0) digits.insert(0, "0");
    return digits;
}

/// A time by way of its binary digits: groups of seven, a 1 before each but the last.
std::string timeOf(int columns) {
    const std::string digits = ofWidthSeven(MidiExport::ToBinaryText(columns * 12));
    std::string found;
    for (std::size_t group = 0; group < digits.size(); group += 7) {
        const bool last = group + 7 == digits.size();
        found += static_cast<char>(std::stoi((last ? "0" : "1") + digits.substr(group, 7), nullptr, 2));
    }
    return found;
}

TEST_F(MidiFileTest, BinaryTextBeginsWithTheHighestOne) {
    EXPECT_EQ(MidiExport::ToBinaryText(0), "0");
    EXPECT_EQ(MidiExport::ToBinaryText(1), "1");
    EXPECT_EQ(MidiExport::ToBinaryText(2), "10");
    EXPECT_EQ(MidiExport::ToBinaryText(924), "1110011100");
    EXPECT_EQ(MidiExport::ToBinaryText(INT32_MAX), std::string(31, '1'));
}

TEST_F(MidiFileTest, EveryTimeIsThatOfItsBinaryDigits) {
    auto& state = studio.midiExport;
    for (int columns = 0; columns <= INT16_MAX; ++columns) {
        state.MidiWriteIndex = 5;
        state.DeltaColumns = static_cast<Int16>(columns);
        engine.midiExport.VlqWriter();
        const std::string written(state.MidiBuffer.begin() + 5,
                                  state.MidiBuffer.begin() + state.MidiWriteIndex);
        ASSERT_EQ(hex(written), hex(timeOf(columns))) << columns;
    }
    EXPECT_EQ(hex(timeOf(0)), "00 ");
    EXPECT_EQ(hex(timeOf(77)), "87 1C ");
}

TEST_F(MidiFileTest, TheHelpersWriteAtTheByteInHand) {
    auto& state = studio.midiExport;
    write(2, 4, 60, 1, 0);
    score.VolumeArray.set(2, 5, 99);
    studio.player.LastPlayedCell[2] = 1061;
    state.MidiWriteIndex = 10;
    engine.midiExport.WriteNoteOn(2, 4);
    engine.midiExport.WriteNoteOff(2);
    engine.midiExport.NextMidiByte();
    EXPECT_EQ(state.MidiWriteIndex, 17);
    const std::string written(state.MidiBuffer.begin() + 10, state.MidiBuffer.begin() + 17);
    EXPECT_EQ(hex(written), "92 43 63 82 42 00 00 ");
    EXPECT_EQ(studio.tracks.TrackVolume[2], 99);
    state.TrackDataStart = 14;
    state.TrackByteCount = 0x1234;
    engine.midiExport.WriteTrackLength();
    const std::string length(state.MidiBuffer.begin() + 10, state.MidiBuffer.begin() + 14);
    EXPECT_EQ(hex(length), "00 00 12 34 ");
}

TEST_F(MidiFileTest, TheIndexStandsStillAtItsHighest) {
    auto& state = studio.midiExport;
    state.MidiWriteIndex = INT16_MAX;
    engine.midiExport.NextMidiByte();
    EXPECT_EQ(state.MidiWriteIndex, INT16_MAX);
    state.DeltaColumns = 1000;
    engine.midiExport.VlqWriter();
    EXPECT_EQ(state.MidiWriteIndex, INT16_MAX);
    EXPECT_EQ(state.MidiBuffer[INT16_MAX], 12000 % 128);
}

TEST_F(MidiFileTest, IndicesOutsideTheBufferAreHarmless) {
    auto& state = studio.midiExport;
    state.MidiWriteIndex = INT16_MIN;
    engine.midiExport.VlqWriter();
    engine.midiExport.WriteNoteOn(-1, -1);
    engine.midiExport.WriteNoteOn(99, 99);
    engine.midiExport.WriteNoteOff(99);
    state.TrackDataStart = 2;
    state.TrackByteCount = -1;
    engine.midiExport.WriteTrackLength();
    EXPECT_EQ(state.MidiWriteIndex, INT16_MIN + 1 + 9);
}

TEST_F(MidiFileTest, TheBufferIsNewAtEachExport) {
    exported();
    studio.midiExport.MidiBuffer.fill(0xAA);
    score.BeatsPerMeasure = 3;
    expectFile(head("09 27 C0", "00") + empties(13, "0C"));
    EXPECT_EQ(store.read("NumBytes"), std::nullopt);
    EXPECT_EQ(studio.midiExport.MidiBufferSize, 10000);
}

TEST_F(MidiFileTest, ABufferTooSmallLosesWhatWasPastItsEndAndGrowsByTheTrack) {
    // The fifth track ends at byte 101: its bytes 47 and 0 are past the end.
    storeBufferSize(99);
    auto expected = head() + empties(13, "0C");
    expected[100 - 1] = 0;
    const auto built = engine.midiExport.build();
    EXPECT_EQ(hex(built.bytes), hex(expected));
    EXPECT_FALSE(built.whole);
    EXPECT_EQ(studio.midiExport.MidiBufferSize, 1004);
    EXPECT_EQ(store.read("NumBytes"), "1004");
    expectFile(head() + empties(13, "0C"));
}

TEST_F(MidiFileTest, AFileThatFillsTheBufferIsWhole) {
    storeBufferSize(41 + 13 * 12);
    EXPECT_TRUE(engine.midiExport.build().whole);
    EXPECT_EQ(store.read("NumBytes"), std::to_string(41 + 13 * 12));
}

TEST_F(MidiFileTest, ABufferGrownByAShortTrackCutsTheFile) {
    // 137 notes: 3 + 4 + 136 * 8 + 4 bytes, 4 for the end; with its head each of these chunks has 1111 bytes.
    for (int track = 0; track < 3; ++track) {
        for (int column = 0; column < 137; ++column) write(track, column, 60, 1, 0);
    }
    storeBufferSize(3000);
    const auto first = exported();
    // After the third track 1103 + 1000; after the fourth, whose end has a time of two bytes, 5 + 1000.
    EXPECT_EQ(store.read("NumBytes"), "1005");
    EXPECT_EQ(first.size(), 1005U);
    EXPECT_EQ(studio.midiExport.MidiWriteIndex, 41 + 3 * 1111 + 10 * 13);
    storeBufferSize(5000);
    const auto whole = exported();
    EXPECT_EQ(hex(first), hex(whole.substr(0, 1005)));
}

TEST_F(MidiFileTest, WhatABufferHasLostIsZeroWhenItGrowsAgain) {
    for (const int track : {0, 12}) {
        for (int column = 0; column < 137; ++column) write(track, column, 60, 1, 0);
    }
    storeBufferSize(32767);
    const auto whole = exported();
    // The second track ends at byte 1165 and cuts the buffer to 5 + 1000; the last one, whose length stands
    // at byte 1300, takes it to 1103 + 1000.
    storeBufferSize(1160);
    auto expected = whole.substr(0, 1005) + std::string(2103 - 1005, '\0');
    expected.replace(1300 - 1, 4, bytes("00 00 04 4F"));
    expectFile(expected);
    EXPECT_EQ(store.read("NumBytes"), "2103");
    expectFile(whole.substr(0, 2103));
}

TEST_F(MidiFileTest, SizesThatNoBufferCanHaveAreHarmless) {
    storeBufferSize(-5);
    const auto built = engine.midiExport.build();
    // All bytes of the head and of the first track are lost; then the buffer has 4 + 1000, and takes the
    // length.
    const auto expected = std::string(48, '\0') + '\4' + std::string(4, '\0') + empties(12, "0C");
    EXPECT_EQ(hex(built.bytes), hex(expected));
    EXPECT_EQ(store.read("NumBytes"), "1004");
    storeBufferSize(INT32_MAX);
    expectFile(head() + empties(13, "0C"));
    EXPECT_EQ(studio.midiExport.MidiBufferSize, INT32_MAX);
    store.write("NumBytes", "many");
    expectFile(head() + empties(13, "0C"));
    EXPECT_EQ(studio.midiExport.MidiBufferSize, INT32_MAX);
}

TEST_F(MidiFileTest, AFileEndsAtTheLastByteThatSixteenBitsCount) {
    for (const int track : {0, 1, 2, 3, 4, 5, 6, 7}) {
        for (int column = 0; column < 1000; ++column) write(track, column, 60, 1, 0);
    }
    storeBufferSize(40000);
    const auto built = engine.midiExport.build();
    EXPECT_FALSE(built.whole);
    EXPECT_EQ(built.bytes.size(), 32767U);
    EXPECT_EQ(studio.midiExport.MidiWriteIndex, 32767);
    // The chunks that found no place have left a length of 1, and all their bytes in the last one.
    EXPECT_EQ(hex(built.bytes.substr(32762)), "00 00 00 01 00 ");
    EXPECT_EQ(studio.midiExport.TrackDataStart, 32767);
    EXPECT_EQ(studio.midiExport.TrackByteCount, 1);
    EXPECT_EQ(store.read("NumBytes"), "40000");
}

TEST_F(MidiFileTest, ANewFileComesAfterThePauseOfTheDeletion) {
    exportTo(folder.file("a.mid"));
    EXPECT_EQ(time.tickCount(), 200);
    EXPECT_EQ(hex(readFile(folder.file("a.mid")).value_or("")), hex(head() + empties(13, "0C")));
}

TEST_F(MidiFileTest, AnExistingFileIsOverwrittenInPlaceAndKeepsItsTail) {
    const auto path = folder.make("a.mid", std::string(300, 'x'));
    exportTo(path);
    EXPECT_EQ(time.tickCount(), 0);
    EXPECT_EQ(hex(readFile(path).value_or("")),
              hex(head() + empties(13, "0C") + std::string(300 - 197, 'x')));
    const auto shorter = folder.make("b.mid", "x");
    exportTo(shorter);
    EXPECT_EQ(readFile(shorter).value_or("").size(), 197U);
}

TEST_F(MidiFileTest, AFileThatCannotBeWrittenIsPassedOverInSilence) {
    fs::create_symlink("/dev/full", folder.path() / "full.mid");
    fs::create_directory(folder.path() / "folder.mid");
    for (const auto& path :
         {folder.file("full.mid"), folder.file("folder.mid"), folder.file("no/such/folder.mid"),
          std::string("/proc/read-only.mid"), std::string()}) {
        exportTo(path);
    }
    EXPECT_TRUE(fs::is_symlink(folder.path() / "full.mid"));
    EXPECT_TRUE(fs::is_character_file("/dev/full"));
    EXPECT_TRUE(fs::is_empty(folder.path() / "folder.mid"));
    EXPECT_TRUE(dialogs.takeBoxes().empty());
    EXPECT_EQ(studio.form1.StatusText.text(), "");
}

TEST_F(MidiFileTest, AFullDiskKeepsWhatFittedAndTheTailBehind) {
    const auto path = folder.make("a.mid", std::string(300, 'x'));
    {
        const FileSizeLimit limit(100);
        exportTo(path);
    }
    const auto written = (head() + empties(13, "0C")).substr(0, 100);
    EXPECT_EQ(hex(readFile(path).value_or("")), hex(written + std::string(200, 'x')));
    EXPECT_TRUE(dialogs.takeBoxes().empty());
}

TEST_F(MidiFileTest, TheSaveCommandExportsUnderItsFirstFilterEntry) {
    const auto expected = hex(head() + empties(13, "0C"));
    dialogs.queueChoice({folder.file("song"), 1});
    engine.files.mSaveAs_Click();
    EXPECT_EQ(hex(readFile(folder.file("song.mid")).value_or("")), expected);
    dialogs.queueChoice({" " + folder.file("LOUD.MID") + std::string(1, '\0'), 1});
    engine.files.mSaveAs_Click();
    EXPECT_EQ(hex(readFile(folder.file("LOUD.MID")).value_or("")), expected);
    dialogs.queueChoice({folder.file("score.sng"), 1});
    engine.files.mSaveAs_Click();
    EXPECT_EQ(hex(readFile(folder.file("score.sng.mid")).value_or("")), expected);
    EXPECT_FALSE(fs::exists(folder.file("score.sng")));
    EXPECT_TRUE(dialogs.takeBoxes().empty());
    EXPECT_EQ(score.ScoreFileName, "");
}

TEST_F(MidiFileTest, AnExportDuringThePauseOfAnotherGoesToItsOwnFile) {
    const auto first = folder.file("first.mid"), second = folder.file("second.mid");
    write(0, 5, 60, 1, 0);
    dialogs.queueChoice({second, 1});
    time.at(100, [this] {
        score.NoteArray.fillTrack(0, cell::empty, 1000);
        engine.files.mSaveAs_Click();
    });
    exportTo(first);
    EXPECT_EQ(readFile(second).value_or("").size(), 197U);
    EXPECT_GT(readFile(first).value_or("").size(), 197U);
}

TEST_F(MidiFileTest, AScoreOpenedInThePauseIsLeftAlone) {
    write(0, 0, 60, 4, 0);
    score.PolyArray.set(1, 1, 2);
    score.TopPolyTrack = 0;
    score.UsedTrackCount = 1;
    time.at(100, [this] {
        EXPECT_EQ(score.noteCell(1, 0), cell::empty);
        for (const int track : {1, 2, 3}) score.NoteArray.set(track, 2, 50);
    });
    exportTo(folder.file("chord.mid"));
    for (const int track : {1, 2, 3}) EXPECT_EQ(score.noteCell(track, 2), 50) << track;
}

TEST_F(MidiFileTest, DeletingAndWaitingLeavesWhatIsNoFile) {
    fs::create_symlink("/dev/null", folder.path() / "device");
    fs::create_directory(folder.path() / "folder");
    engine.fileOperations.DeleteFileAndWait(folder.file("device"));
    engine.fileOperations.DeleteFileAndWait(folder.file("folder"));
    EXPECT_TRUE(fs::exists(folder.file("device")));
    EXPECT_TRUE(fs::exists(folder.file("folder")));
    EXPECT_EQ(time.tickCount(), 0);
}

}  // namespace
}  // namespace melvane::test
