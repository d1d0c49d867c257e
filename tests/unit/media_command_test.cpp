#include <gtest/gtest.h>

#include "platform/media_command.h"
#include "platform/media_error.h"

namespace melvane {
namespace {

MediaCommand read(std::string_view text) {
    const auto command = readMediaCommand(text);
    EXPECT_TRUE(command) << text;
    return command.value_or(MediaCommand{});
}

TEST(MediaCommand, OpensAFileWithBlanksInItsName) {
    const auto command =
        read("open /music/my best songs.mp3 type MPEGVideo Alias AudioMP3 parent 8192 Style 1073741824");
    EXPECT_EQ(command.verb, MediaVerb::open);
    EXPECT_EQ(command.path, "/music/my best songs.mp3");
    EXPECT_EQ(command.type, "mpegvideo");
    EXPECT_EQ(command.alias, "audiomp3");
}

TEST(MediaCommand, TakesQuotesAndSurplusBlanksAwayFromAPath) {
    EXPECT_EQ(read("open \"/a b.wav\" type MPEGVideo alias a").path, "/a b.wav");
    EXPECT_EQ(read("open   /a b.wav   type MPEGVideo alias a").path, "/a b.wav");
    EXPECT_EQ(read("save capture \"/a b.wav\"").path, "/a b.wav");
    EXPECT_EQ(read("Save capture   /a b.wav ").path, "/a b.wav");
}

TEST(MediaCommand, LeavesAFileThatNamesATypeItsName) {
    const auto command = read("open /my type of music.mp3 type MPEGVideo alias a");
    EXPECT_EQ(command.path, "/my type of music.mp3");
    EXPECT_EQ(read("open /x type y alias z type MPEGVideo alias type").path, "/x type y alias z");
}

TEST(MediaCommand, OpensNothingWhenThePathIsEmpty) {
    EXPECT_EQ(read("open  type MPEGVideo Alias audiomp3 parent 1 Style 1073741824").path, "");
}

TEST(MediaCommand, KeepsTheCaseOfPathsOnly) {
    const auto command = read("OPEN NEW TYPE WaveAudio ALIAS Capture");
    EXPECT_EQ(command.path, "NEW");
    EXPECT_EQ(command.type, "waveaudio");
    EXPECT_EQ(command.alias, "capture");
}

TEST(MediaCommand, ReadsEachVerbOfPlaying) {
    const auto play = read("play audiomp3 from 0 to 300");
    EXPECT_EQ(play.verb, MediaVerb::play);
    EXPECT_EQ(play.from, 0);
    EXPECT_EQ(play.to, 300);
    EXPECT_EQ(read("play audiomp3").from, std::nullopt);
    EXPECT_EQ(read("Pause audiomp3").verb, MediaVerb::pause);
    EXPECT_EQ(read("Resume audiomp3").verb, MediaVerb::resume);
    EXPECT_EQ(read("Stop audiomp3").verb, MediaVerb::stop);
    EXPECT_EQ(read("Close audiomp3").verb, MediaVerb::close);
    EXPECT_EQ(read("close capture ").alias, "capture");
    EXPECT_EQ(read("Close All").verb, MediaVerb::closeAll);
    EXPECT_EQ(read("status audiomp3 length").verb, MediaVerb::length);
    EXPECT_EQ(read("status audiomp3 position").verb, MediaVerb::position);
    EXPECT_TRUE(read("set audiomp3 time format frames").inFrames);
    EXPECT_FALSE(read("set audiomp3 time format ms").inFrames);
}

TEST(MediaCommand, ReadsEachVerbOfCapturing) {
    EXPECT_EQ(read("record capture").verb, MediaVerb::record);
    EXPECT_EQ(read("capability capture can save").verb, MediaVerb::canSave);
    EXPECT_EQ(read("delete capture").verb, MediaVerb::erase);
    EXPECT_EQ(read("save capture /a.wav").verb, MediaVerb::save);
    EXPECT_EQ(read("save capture").path, "");
    const auto set =
        read("set capture samplespersec 22050 channels 1 bitspersample 8 alignment 1 bytespersec 22050");
    EXPECT_EQ(set.verb, MediaVerb::setWaveFormat);
    EXPECT_EQ(set.format, (WaveFormat{22050, 1, 8}));
}

TEST(MediaCommand, ReadsAFormatThatNothingSupportsAsOne) {
    const WaveFormat none{0, 0, 0};
    EXPECT_EQ(read("set capture samplespersec 0 channels 0 bitspersample 0 alignment 0 bytespersec 0").format,
              none);
    EXPECT_EQ(read("set capture samplespersec 44100 channels 2 bitspersample 16 alignment 2").format, none);
    EXPECT_EQ(read("set capture samplespersec 44100 channels 2 bitspersample 16 bytespersec 1").format, none);
    EXPECT_EQ(read("set capture samplespersec 48000 channels 1 bitspersample 16").format, none);
    EXPECT_EQ(read("set capture samplespersec -9 channels 2 bitspersample 999999999999").format, none);
}

TEST(MediaCommand, RefusesWhatIsNone) {
    for (const char* text : {"",
                             " ",
                             "open",
                             "open a.mp3",
                             "open a.mp3 type MPEGVideo",
                             "open a.mp3 type MPEGVideo alias",
                             "open a.mp3 type MPEGVideo alias a parent x",
                             "open a.mp3 type MPEGVideo alias a alias b",
                             "open a.mp3 type MPEGVideo alias a shareable",
                             "close",
                             "close a b",
                             "play",
                             "play a to",
                             "play a from x",
                             "play a from 1 from 2",
                             "play a from 1x",
                             "play a to 99999999999999999999",
                             "play a now",
                             "pause",
                             "pause a b",
                             "status a",
                             "status a volume",
                             "status a length now",
                             "set a",
                             "set a time",
                             "set a time format",
                             "set a time format tmsf",
                             "set a time format ms ms",
                             "set a channels 2",
                             "set a samplespersec 44100 channels 2 bitspersample",
                             "set a colour 1",
                             "record",
                             "capability a",
                             "capability a can eject",
                             "capability a can save now",
                             "save",
                             "delete",
                             "seek a to 3",
                             "play a\nfrom 0"}) {
        EXPECT_FALSE(readMediaCommand(text)) << text;
    }
    EXPECT_FALSE(readMediaCommand(std::string_view("play a\0b", 8)));
}

TEST(MediaError, HasATextThatFitsTheAnswerBufferForEachCode) {
    for (const MediaError error :
         {MediaError::notUnderstood, MediaError::notOpen, MediaError::unknownType, MediaError::noFile,
          MediaError::damagedFile, MediaError::outOfRange, MediaError::wrongKind, MediaError::aliasInUse,
          MediaError::inUse, MediaError::formatRefused, MediaError::noInput, MediaError::noRoom,
          MediaError::tooLong, MediaError::framesLost, MediaError::inputLost, MediaError::notSaved,
          MediaError::noSpool, MediaError::inputOverran, MediaError::tooLarge}) {
        const auto answer = answerOf(error);
        EXPECT_NE(answer.code, 0);
        EXPECT_GT(answer.text.size(), 10U) << answer.code;
        EXPECT_LT(answer.text.size(), 128U) << answer.code;
    }
    EXPECT_EQ(answerOf(MediaError::notSaved, "Why.").text, "The recording is not saved. Why.");
}

}  // namespace
}  // namespace melvane
