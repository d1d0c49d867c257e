#include "platform/raw_file.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace melvane {

namespace {

constexpr mode_t usualRights = 0666;
constexpr std::size_t headerSize = 44, aheadSize = 65536;  // bytes

bool isOrdinary(int descriptor) {
    struct stat about {};
    return fstat(descriptor, &about) == 0 && S_ISREG(about.st_mode);
}

/// Little endian.
template <std::size_t Size>
void put(std::array<unsigned char, headerSize>& header, std::size_t offset, std::uint32_t value) {
    for (std::size_t at = 0; at < Size; ++at)
        header[offset + at] = static_cast<unsigned char>(value >> (8 * at));
}

}  // namespace

bool clsFileIo::OpenFile(const std::string& name) {
    CloseFile();
    if (name.empty()) return false;
    constexpr int always = O_CLOEXEC | O_NONBLOCK;  // a pipe of that name holds nobody up
    descriptor_ = open(name.c_str(), O_RDWR | O_CREAT | always, usualRights);
    if (descriptor_ < 0 && (errno == EACCES || errno == EROFS))
        descriptor_ = open(name.c_str(), O_RDONLY | always);
    if (descriptor_ < 0) return false;
    name_ = name;
    if (isOrdinary(descriptor_) && flock(descriptor_, LOCK_EX | LOCK_NB) == 0) return true;
    CloseFile();
    return false;
}

bool clsFileIo::CloseFile() {
    if (!isOpen()) return false;
    ahead_.clear();
    taken_ = 0;
    const bool closed = close(descriptor_) == 0;
    descriptor_ = -1;
    name_.clear();
    return closed;
}

bool clsFileIo::FlushBuffers() const { return isOpen() && fsync(descriptor_) == 0; }

bool clsFileIo::writeWavHeader(std::uint32_t dataSize) {
    std::array<unsigned char, headerSize> header{};
    std::memcpy(header.data(), "RIFF    WAVEfmt ", 16);
    std::memcpy(header.data() + 36, "data", 4);
    put<4>(header, 4, dataSize + 36);
    put<4>(header, 16, 16);
    put<2>(header, 20, 1);       // PCM
    put<2>(header, 22, 2);       // channels
    put<4>(header, 24, 44100);   // samples a second
    put<4>(header, 28, 176400);  // bytes a second
    put<2>(header, 32, 4);       // block alignment
    put<2>(header, 34, 16);      // bits a sample
    put<4>(header, 40, dataSize);
    return WriteBytes(header) && FlushBuffers();
}

bool clsFileIo::WriteBytes(std::span<const unsigned char> bytes) {
    if (!isOpen()) return false;
    forgetAhead();
    while (!bytes.empty()) {
        const ssize_t written = write(descriptor_, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return false;
        bytes = bytes.subspan(static_cast<std::size_t>(written));
    }
    return true;
}

/// The place in the file is again where the last read ended for the caller.
void clsFileIo::forgetAhead() {
    if (taken_ < ahead_.size()) lseek(descriptor_, -static_cast<off_t>(ahead_.size() - taken_), SEEK_CUR);
    ahead_.clear();
    taken_ = 0;
}

/// False when the file cannot be read; at its end there is nothing ahead.
bool clsFileIo::readAhead() {
    ahead_.resize(aheadSize);
    taken_ = 0;
    ssize_t count = -1;
    do {
        count = read(descriptor_, ahead_.data(), ahead_.size());
    } while (count < 0 && errno == EINTR);
    ahead_.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
    return count >= 0;
}

bool clsFileIo::ReadBytes(std::span<unsigned char> bytes) {
    bytesRead_ = 0;
    if (!isOpen()) return false;
    while (!bytes.empty()) {
        if (taken_ == ahead_.size() && !readAhead()) return false;
        const std::size_t count = std::min(bytes.size(), ahead_.size() - taken_);
        if (count == 0) break;
        std::copy_n(ahead_.begin() + static_cast<std::ptrdiff_t>(taken_), count, bytes.begin());
        taken_ += count;
        bytesRead_ += count;
        bytes = bytes.subspan(count);
    }
    return true;
}

}  // namespace melvane
