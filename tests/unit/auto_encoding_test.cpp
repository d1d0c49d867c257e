#include "encoding_fixture.h"
#include "recorder/recording_buttons.h"

namespace melvane::test {
namespace {

class AutoEncodingTest : public EncodingTest {
 protected:
    AutoEncodingTest() { RecorderTest::write(0, 1, 67, 2); }
    Lines encoded() {
        Lines names;
        for (const auto& entry : std::filesystem::directory_iterator(folder.path() / "Songs"))
            if (entry.path().extension() == ".mp3") names.push_back(entry.path().string());
        return names;
    }
    void record() { window().CmdrecordSNG.userPut(Value(1LL)); }
};

TEST_F(AutoEncodingTest, ARecordingIsEncodedTwoSecondsLater) {
    std::string during, before;
    time.at(690 + 1990, [&] { before = erbox() + std::to_string(window().CmdrecordSNG.enabled()); });
    record();
    EXPECT_EQ(before, "0");
    EXPECT_EQ(time.tickCount(), 690 + 2000);
    ASSERT_EQ(encoded().size(), 1U);
    EXPECT_EQ(window().Text6.text(), encoded()[0]);
    EXPECT_EQ(recordings().size(), 1U);
    EXPECT_EQ(window().Label8.text() + window().Status.text(), "");
    EXPECT_TRUE(window().CmdrecordSNG.enabled());
    EXPECT_FALSE(window().CmdStopRecording.enabled());
}

TEST_F(AutoEncodingTest, TheStateIsToldInAWord) {
    Lines words;
    window().Label8.changed = [&] { words.push_back(window().Label8.text()); };
    record();
    EXPECT_EQ(words, (Lines{"Recording", "", "Encoding", ""}));
}

TEST_F(AutoEncodingTest, WhileAnEncodingRunsNoOtherIsWaitedFor) {
    put(tone("a.wav", 2000));
    window().Command20.setCaption("Stop Encoding");
    window().Label8.set("Encoding");
    window().Status.set("50.00%");
    recorder().log.show("as before");
    DisableRecording(window());
    recorder().encoding.AutoEncode();
    EXPECT_EQ(time.tickCount(), 0);
    EXPECT_FALSE(exists(folder.file("a.mp3")));
    EXPECT_FALSE(studio.recorder.EncodeCancel);
    EXPECT_EQ(erbox(), "as before");
    EXPECT_EQ(window().Label8.text() + window().Status.text(), "");
    EXPECT_EQ(window().Command20.caption(), "Stop Encoding");
    EXPECT_TRUE(window().CmdrecordSNG.enabled());
    EXPECT_FALSE(window().CmdStopRecording.enabled());
}

TEST_F(AutoEncodingTest, WithoutTheLibraryItTriesAllTheSame) {
    std::filesystem::remove(folder.file("lame_enc.dll"));
    Lines words;
    window().Label8.changed = [&] { words.push_back(window().Label8.text()); };
    record();
    EXPECT_EQ(words, (Lines{"Recording", "", "Encoding", ""}));
    EXPECT_EQ(erbox(), "Encoding library \"lame_enc.dll\" is not found...can't encode.");
    EXPECT_EQ(recordings().size(), 1U);
    EXPECT_EQ(window().Text6.text(), recordings().at(0));
}

TEST_F(AutoEncodingTest, WithTheTickOnlyTheMp3IsLeft) {
    window().Check3.set(true);
    record();
    EXPECT_EQ(encoded().size(), 1U);
    EXPECT_TRUE(recordings().empty());
}

TEST_F(AutoEncodingTest, AStopDuringTheWaitLeavesTheRecording) {
    time.at(690 + 1000, [&] { window().CmdStopRecording.userPut(Value(1LL)); });
    record();
    EXPECT_EQ(recordings().size(), 1U);
    EXPECT_EQ(encoded().size(), 1U);
}

TEST_F(AutoEncodingTest, TheWindowMayCloseDuringTheWait) {
    time.at(690 + 1000, [&] { recorder().window.Form_Unload(); });
    record();
    EXPECT_EQ(recordings().size(), 1U);
    EXPECT_TRUE(encoded().empty());
}

TEST_F(AutoEncodingTest, AMidiRecordingIsEncodedToo) {
    window().Optsourcemid.userPut(Value(1LL));
    put(RecorderTest::write("a.mid", "MThd"));
    record();
    EXPECT_EQ(encoded().size(), 1U);
    EXPECT_EQ(decode(encoded()[0]).channels, 1);
}

TEST_F(AutoEncodingTest, AStopOfTheScoreIsFollowedByTheEncoding) {
    time.at(200, [&] { window().CmdStopRecording.userPut(Value(1LL)); });
    record();
    EXPECT_EQ(encoded().size(), 1U);
}

}  // namespace
}  // namespace melvane::test
