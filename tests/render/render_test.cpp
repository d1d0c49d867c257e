#include <gtest/gtest.h>
#include <sys/wait.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <iterator>
#include <string>
#include <vector>

#include "platform/files.h"
#include "unit/temporary_folder.h"

namespace melvane {
namespace {

namespace fs = std::filesystem;

constexpr int frameRate = 44100;
constexpr double columnSeconds = 0.138;  // at tempo 100

/// A score of `columns` columns at tempo 100 with one note on middle C at its start, in the short form.
std::string shortScore(int columns, const std::string& tempo = "100") {
    std::string text;
    for (int track = 0; track <= 12; ++track) {
        std::string notes = track == 0 ? "67" : "-1";
        std::string instruments = "0";
        for (int column = 1; column < columns; ++column) {
            notes += track == 0 ? ",1067" : ",-1";
            instruments += ",0";
        }
        text += notes + "\r\n" + instruments + "\r\n";
    }
    return text + tempo + "\r\n";
}

/// The 16-bit values behind the plain header of a WAV file.
std::vector<std::int16_t> samplesOf(const std::string& path) {
    const auto bytes = readFile(path).value_or("");
    if (bytes.size() < 44 || bytes.substr(0, 4) != "RIFF") return {};
    std::vector<std::int16_t> samples((bytes.size() - 44) / 2);
    std::memcpy(samples.data(), bytes.data() + 44, samples.size() * 2);
    return samples;
}

bool isSound(std::int16_t value) { return std::abs(value) > 64; }

/// Seconds from the start to the last value that can be heard.
double soundingSeconds(const std::vector<std::int16_t>& samples) {
    const auto last = std::find_if(samples.rbegin(), samples.rend(), isSound);
    return static_cast<double>(std::distance(last, samples.rend())) / 2 / frameRate;
}

class RenderTest : public testing::Test {
 protected:
    /// Runs the program; its exit status. What it prints is in `said` and `complained`.
    int run(const std::string& arguments) {
        const std::string command = MELVANE_RENDER " " + arguments + " >" + folder.file("out.txt") + " 2>" +
                                    folder.file("err.txt") + " </dev/null";
        const int status = std::system(command.c_str());
        said = readFile(folder.file("out.txt")).value_or("");
        complained = readFile(folder.file("err.txt")).value_or("");
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
    bool complainedInOneLine() const {
        return std::ranges::count(complained, '\n') == 1 && complained.starts_with("melvane-render: ");
    }

    test::TemporaryFolder folder;
    std::string score = folder.make("tune.sng", shortScore(10));
    std::string said, complained;
};

TEST_F(RenderTest, ANoteSoundsForItsColumnsAndThenDiesAway) {
    ASSERT_EQ(run(score + " " + folder.file("tune.wav")), 0) << complained;
    EXPECT_EQ(complained, "");
    const auto samples = samplesOf(folder.file("tune.wav"));
    ASSERT_FALSE(samples.empty());
    // The first column comes one step after the start; the note lasts ten.
    const auto first = std::ranges::find_if(samples, isSound) - samples.begin();
    EXPECT_NEAR(static_cast<double>(first) / 2 / frameRate, columnSeconds, 0.02);
    EXPECT_GE(soundingSeconds(samples), 11 * columnSeconds - 0.02);
    EXPECT_LT(soundingSeconds(samples), 12 * columnSeconds + 1);
    EXPECT_FALSE(isSound(samples.back()));
}

TEST_F(RenderTest, AScoreLongerThanTheStudioBeginsWithIsPlayedToItsEnd) {
    const std::string longScore = folder.make("long.sng", shortScore(1500, "400"));
    ASSERT_EQ(run(longScore + " " + folder.file("long.wav")), 0) << complained;
    const double length = static_cast<double>(samplesOf(folder.file("long.wav")).size()) / 2 / frameRate;
    EXPECT_GT(length, 1500 * columnSeconds / 4);
    EXPECT_LT(length, 1503 * columnSeconds / 4 + 4);
}

TEST_F(RenderTest, TheSameScoreGivesTheSameFile) {
    ASSERT_EQ(run(score + " " + folder.file("1.wav")), 0);
    ASSERT_EQ(run(score + " " + folder.file("2.wav")), 0);
    EXPECT_EQ(readFile(folder.file("1.wav")), readFile(folder.file("2.wav")));
}

TEST_F(RenderTest, AnMp3IsWrittenForItsEnding) {
    ASSERT_EQ(run(score + " " + folder.file("tune.MP3")), 0) << complained;
    const auto bytes = readFile(folder.file("tune.MP3")).value_or("");
    ASSERT_GT(bytes.size(), 10000U);
    EXPECT_EQ(bytes.substr(0, 2), "\xff\xfb");
}

TEST_F(RenderTest, AMidiFileIsWrittenForItsEnding) {
    folder.make("tune.Mid", std::string(1000, 'x'));
    ASSERT_EQ(run(score + " " + folder.file("tune.Mid")), 0) << complained;
    EXPECT_EQ(complained, "");
    // The last note ends in column 10 of 11, and a column lasts 0.15 seconds in the file.
    EXPECT_EQ(said, folder.file("tune.Mid") + ": 1.6 seconds\n");
    const auto bytes = readFile(folder.file("tune.Mid")).value_or("");
    constexpr std::string_view head("MThd\0\0\0\6\0\1\0\16\0\60MTrk\0\0\0\23\0\xFF\x51\3\x09\x27\xC0", 29);
    constexpr std::string_view track("MTrk\0\0\0\17\0\xC0\0\0\x90\x3C\x7F\x78\x80\x3C\0\x0C\xFF\x2F\0", 23);
    EXPECT_EQ(bytes.substr(0, head.size()), head);
    EXPECT_EQ(bytes.substr(41, track.size()), track);
    EXPECT_EQ(bytes.size(), 41 + track.size() + 12 * 13);
}

TEST_F(RenderTest, AScoreThatNoMidiFileHoldsIsAFailureAndKeepsTheEarlierFile) {
    std::string notes = "67";
    for (int column = 1; column < 800; ++column) notes += ",67";
    std::string text;
    for (int track = 0; track <= 12; ++track) text += notes + "\r\n0\r\n";
    folder.make("tune.mid", "earlier");
    const std::string full = folder.make("full.sng", text + "100\r\n");
    EXPECT_EQ(run(full + " " + folder.file("tune.mid")), 1);
    EXPECT_NE(complained.find("32,767 bytes"), std::string::npos) << complained;
    EXPECT_TRUE(complainedInOneLine());
    const std::string slow = folder.make("slow.sng", shortScore(4, "3"));
    EXPECT_EQ(run(slow + " " + folder.file("tune.mid")), 1);
    EXPECT_NE(complained.find("tempo of 3"), std::string::npos) << complained;
    EXPECT_EQ(run(folder.file("missing.sng") + " " + folder.file("tune.mid")), 1);
    EXPECT_EQ(readFile(folder.file("tune.mid")), "earlier");
    EXPECT_EQ(run(score + " " + folder.file("no/folder/tune.mid")), 1);
    EXPECT_TRUE(complainedInOneLine()) << complained;
}

TEST_F(RenderTest, AFailureIsOneLineAndStatusOneAndLeavesNothing) {
    EXPECT_EQ(run(folder.file("missing.sng") + " " + folder.file("x.wav")), 1);
    EXPECT_TRUE(complainedInOneLine()) << complained;
    EXPECT_EQ(run(score + " " + folder.file("no/folder/x.wav")), 1);
    EXPECT_TRUE(complainedInOneLine()) << complained;
    EXPECT_FALSE(fs::exists(folder.file("x.wav")));
}

TEST_F(RenderTest, ATempoThatThePlayerRefusesIsAFailure) {
    const std::string slow = folder.make("slow.sng", shortScore(4, "1"));
    EXPECT_EQ(run(slow + " " + folder.file("x.wav")), 1);
    EXPECT_NE(complained.find("tempo of 1"), std::string::npos) << complained;
    EXPECT_FALSE(fs::exists(folder.file("x.wav")));
}

TEST_F(RenderTest, AFailureKeepsTheEarlierFile) {
    folder.make("x.wav", "earlier");
    EXPECT_EQ(run(folder.file("missing.sng") + " " + folder.file("x.wav")), 1);
    EXPECT_EQ(readFile(folder.file("x.wav")), "earlier");
}

TEST_F(RenderTest, AnUnknownEndingIsWrongUse) {
    EXPECT_EQ(run(score + " " + folder.file("tune.ogg")), 2);
    EXPECT_TRUE(complainedInOneLine()) << complained;
}

TEST_F(RenderTest, TheWrongNumberOfArgumentsShowsTheUse) {
    EXPECT_EQ(run(""), 2);
    EXPECT_NE(complained.find("Usage: melvane-render"), std::string::npos);
    EXPECT_EQ(run("a b c"), 2);
    EXPECT_EQ(run("--help"), 0);
    EXPECT_NE(said.find("Usage: melvane-render"), std::string::npos);
}

TEST_F(RenderTest, AScoreWithoutNotesIsSilentAndSaidSo) {
    std::string text;
    for (int track = 0; track <= 12; ++track) text += "-1,-1\r\n0,0\r\n";
    folder.make("silent.sng", text + "100\r\n");
    ASSERT_EQ(run(folder.file("silent.sng") + " " + folder.file("silent.wav")), 0) << complained;
    EXPECT_NE(complained.find("holds no notes"), std::string::npos) << complained;
    ASSERT_EQ(run(folder.file("silent.sng") + " " + folder.file("silent.mid")), 0) << complained;
    EXPECT_NE(complained.find("holds no notes"), std::string::npos) << complained;
    EXPECT_EQ(readFile(folder.file("silent.mid")).value_or("").size(), 197U);
    const auto samples = samplesOf(folder.file("silent.wav"));
    ASSERT_FALSE(samples.empty());
    EXPECT_TRUE(std::ranges::none_of(samples, isSound));
}

TEST_F(RenderTest, TheSampleMidiFileIsTheExportOfItsScore) {
    const std::string out = folder.file("sample.mid");
    ASSERT_EQ(run(MELVANE_RESOURCES "/scores/104.sng " + out), 0);
    const auto bytes = readFile(out).value_or("");
    EXPECT_EQ(bytes, readFile(MELVANE_RESOURCES "/scores/333.mid"));
    ASSERT_GT(bytes.size(), 14U);
    EXPECT_EQ(bytes.substr(0, 4), "MThd");
    EXPECT_EQ(bytes[11], 14) << "tracks";
}

}  // namespace
}  // namespace melvane
