#include "platform/raw_file.h"

#include <array>
#include <filesystem>

#include "temporary_folder.h"

namespace melvane::test {
namespace {

class RawFileTest : public testing::Test {
 protected:
    static std::span<const unsigned char> bytesOf(std::string_view text) {
        return {reinterpret_cast<const unsigned char*>(text.data()), text.size()};
    }
    std::string contents() const {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    TemporaryFolder folder;
    std::string path = folder.file("a.bin");
};

TEST_F(RawFileTest, AFileIsMadeAndKeepsWhatItHolds) {
    clsFileIo file;
    ASSERT_TRUE(file.OpenFile(path));
    EXPECT_TRUE(file.WriteBytes(bytesOf("abc")));
    EXPECT_EQ(contents(), "abc");
    EXPECT_TRUE(file.FlushBuffers());
    EXPECT_TRUE(file.CloseFile());
    ASSERT_TRUE(file.OpenFile(path));
    std::array<unsigned char, 8> read{};
    EXPECT_TRUE(file.ReadBytes(read));
    EXPECT_EQ(file.bytesRead(), 3U);
    EXPECT_EQ(read[2], 'c');
    EXPECT_TRUE(file.ReadBytes(read));
    EXPECT_EQ(file.bytesRead(), 0U);
}

TEST_F(RawFileTest, AWriteGoesWhereTheLastReadEnded) {
    std::ofstream(path) << "abcdefgh";
    clsFileIo file;
    ASSERT_TRUE(file.OpenFile(path));
    std::array<unsigned char, 3> read{};
    EXPECT_TRUE(file.ReadBytes(read));
    EXPECT_TRUE(file.WriteBytes(bytesOf("XY")));
    EXPECT_EQ(contents(), "abcXYfgh");
    EXPECT_TRUE(file.ReadBytes(read));
    EXPECT_EQ(read[0], 'f');
    EXPECT_TRUE(file.ReadBytes(read));
    EXPECT_EQ(file.bytesRead(), 0U);
}

TEST_F(RawFileTest, NothingWorksOnAFileThatIsNotOpen) {
    clsFileIo file;
    std::array<unsigned char, 4> read{};
    EXPECT_FALSE(file.OpenFile(""));
    EXPECT_FALSE(file.CloseFile());
    EXPECT_FALSE(file.FlushBuffers());
    EXPECT_FALSE(file.WriteBytes(bytesOf("x")));
    EXPECT_FALSE(file.ReadBytes(read));
    EXPECT_FALSE(file.writeWavHeader(1));
    EXPECT_FALSE(file.OpenFile("/none/at/all"));
    EXPECT_FALSE(file.OpenFile("/dev/null"));
    EXPECT_FALSE(file.WriteBytes(bytesOf("x")));
}

TEST_F(RawFileTest, AFileIsOpenOnceAtATime) {
    clsFileIo first, second;
    ASSERT_TRUE(first.OpenFile(path));
    EXPECT_FALSE(second.OpenFile(path));
    first.CloseFile();
    EXPECT_TRUE(second.OpenFile(path));
}

TEST_F(RawFileTest, TheWavHeaderHasFixedValues) {
    clsFileIo file;
    ASSERT_TRUE(file.OpenFile(path));
    ASSERT_TRUE(file.writeWavHeader(0x01020304));
    using namespace std::string_literals;
    EXPECT_EQ(
        contents(),
        "RIFF\x28\x03\x02\x01WAVEfmt \x10\0\0\0\x01\0\x02\0\x44\xAC\0\0\x10\xB1\x02\0\x04\0\x10\0data\x04\x03\x02\x01"s);
}

TEST_F(RawFileTest, TheWavHeaderGoesWhereTheFileStands) {
    clsFileIo file;
    ASSERT_TRUE(file.OpenFile(path));
    ASSERT_TRUE(file.WriteBytes(bytesOf("abc")));
    ASSERT_TRUE(file.writeWavHeader(8));
    EXPECT_EQ(contents().size(), 3U + 44U);
    EXPECT_TRUE(contents().starts_with("abcRIFF"));
}

}  // namespace
}  // namespace melvane::test
