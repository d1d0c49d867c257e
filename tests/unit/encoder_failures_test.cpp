#include "encoding_fixture.h"

// What the encoder refuses, and what becomes of the files then.

namespace melvane::test {
namespace {

/// The encoder with an edge of its own: it refuses the chunk of that number, from 1.
class FailingStreams final : public EncoderStreams {
 public:
    int failsAt = 0;
    int opened = 0, closed = 0, flushed = 0;

    EncoderError beInitStream(const BE_CONFIG& config, Sizes& sizes, std::uint32_t& handle) override {
        chunks_ = 0;
        const auto error = EncoderStreams::beInitStream(config, sizes, handle);
        if (error == EncoderError::none) ++opened;
        return error;
    }
    EncoderError beEncodeChunk(std::uint32_t handle, std::span<const std::int16_t> samples,
                               std::span<unsigned char> output, std::uint32_t& written) override {
        if (++chunks_ == failsAt) return EncoderError::bufferTooSmall;
        return EncoderStreams::beEncodeChunk(handle, samples, output, written);
    }
    EncoderError beDeinitStream(std::uint32_t handle, std::span<unsigned char> output,
                                std::uint32_t& written) override {
        ++flushed;
        return EncoderStreams::beDeinitStream(handle, output, written);
    }
    EncoderError beCloseStream(std::uint32_t handle) override {
        const auto error = EncoderStreams::beCloseStream(handle);
        if (error == EncoderError::none) ++closed;
        return error;
    }

 private:
    int chunks_ = 0;
};

class EncoderFailuresTest : public EncodingTest {
 protected:
    FailingStreams streams;
    Directories directories{folder.path(), MELVANE_RESOURCES};
    // Takes the window's button.
    Encoding encoding{studio,
                      {recorder().log, engine.settings, dialogs, desktop, time, time, directories, streams}};
    std::string wav = tone("a.wav", 1152 * 20);
    std::string target = folder.file("a.mp3");
};

TEST_F(EncoderFailuresTest, AChunkThatIsRefusedEndsTheFileThereAndTheWindowSaysNothingOfIt) {
    streams.failsAt = 11;
    shown();
    encode(wav);
    EXPECT_EQ(shown(), (Lines{"Encoding in progress"}));
    EXPECT_EQ(window().Text2.text(), "");
    EXPECT_TRUE(dialogs.takeBoxes().empty());
    EXPECT_EQ((Lines{std::to_string(streams.opened), std::to_string(streams.closed),
                     std::to_string(streams.flushed)}),
              (Lines{"1", "1", "0"}));
    // The incomplete file stays as far as it was written, without what the encoder still held.
    const std::string whole = mp3Of(read(wav), chosen());
    EXPECT_GT(read(target).size(), whole.size() / 4);
    EXPECT_LT(read(target).size(), whole.size() * 11 / 20);
    EXPECT_TRUE(whole.starts_with(read(target)));
    EXPECT_TRUE(exists(wav));
    EXPECT_EQ(window().Text6.text(), target);
    EXPECT_EQ(window().Command20.caption() + window().Label8.text() + window().Status.text(), "Encode File");
    EXPECT_TRUE(window().CmdrecordSNG.enabled());
}

TEST_F(EncoderFailuresTest, TheFilesAreClosedAfterAFailure) {
    streams.failsAt = 5;
    encode(wav);
    clsFileIo source, made;
    EXPECT_TRUE(source.OpenFile(wav));
    EXPECT_TRUE(made.OpenFile(target));
}

TEST_F(EncoderFailuresTest, WithTheTickTheWaveGoesAfterAFailureToo) {
    window().Check3.set(true);
    streams.failsAt = 11;
    encode(wav);
    EXPECT_FALSE(exists(wav));
    EXPECT_TRUE(exists(target));
}

TEST_F(EncoderFailuresTest, TheFailureIsPassedUpWithTheEncodersName) {
    streams.failsAt = 3;
    const auto outcome = encoding.EncodeStream(wav, target);
    EXPECT_EQ(outcome.failure, (EncoderFailure{"Lame", "Buffer too small"}));
    window().cbxFormat.set(-1);  // no rate
    const auto refused = encoding.EncodeStream(wav, folder.file("b.mp3"));
    EXPECT_EQ(refused.failure, (EncoderFailure{"Lame", "Invalid format parameters"}));
    EXPECT_FALSE(exists(folder.file("b.mp3")));
    window().cbxFormat.set(3);
    streams.failsAt = 0;
    EXPECT_EQ(encoding.EncodeStream(wav, folder.file("b.mp3")).failure, std::nullopt);
}

TEST_F(EncoderFailuresTest, AFailedEncodingIsFollowedByAGoodOne) {
    streams.failsAt = 2;
    encode(wav);
    std::filesystem::remove(target);
    streams.failsAt = 0;
    encode(wav);
    EXPECT_EQ(read(target), mp3Of(read(wav), chosen()));
    EXPECT_EQ(erbox(), "Finished Encoding " + wav);
}

}  // namespace
}  // namespace melvane::test
