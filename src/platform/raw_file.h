#pragma once
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace melvane {

/// One open file as plain bytes, with its name. What is written is with the system at once: nothing is kept
/// back in the program, so a partial file is there whatever happens later. User-interface thread.
class clsFileIo {
 public:
    clsFileIo() = default;
    ~clsFileIo() { CloseFile(); }
    clsFileIo(const clsFileIo&) = delete;
    clsFileIo& operator=(const clsFileIo&) = delete;

    /// Opens it for reading and writing and makes it when there is none; nobody else opens it so meanwhile.
    /// A file that may not be written is opened for reading. A file that was open is closed.
    bool OpenFile(const std::string& name);
    bool CloseFile();
    /// What was written goes to the disk.
    bool FlushBuffers() const;
    /// The header of a WAV file of `dataSize` bytes of samples at the present place: 16 bits, stereo, 44100 a
    /// second.
    bool writeWavHeader(std::uint32_t dataSize);
    /// False when not all of them could be written.
    bool WriteBytes(std::span<const unsigned char> bytes);
    /// At the present place. Reads up to `bytes.size()` bytes; the end of the file is no failure.
    bool ReadBytes(std::span<unsigned char> bytes);
    /// How many the last ReadBytes gave.
    std::size_t bytesRead() const { return bytesRead_; }

 private:
    bool isOpen() const { return !name_.empty() && descriptor_ >= 0; }

    bool readAhead();
    void forgetAhead();

    std::string name_;
    int descriptor_ = -1;
    std::vector<unsigned char> ahead_;  ///< what was read of the file beyond what was asked for
    std::size_t taken_ = 0;             ///< of ahead_
    std::size_t bytesRead_ = 0;
};

}  // namespace melvane
