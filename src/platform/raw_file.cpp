#include "platform/raw_file.h"

#include <algorithm>
#include <array>
#include <cstring>

#include <unistd.h>

#include "platform/descriptor.h"

namespace melvane {

namespace {

constexpr std::size_t headerSize = 44, aheadSize = 65536;  // bytes

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
    descriptor_ = openAlone(name);
    if (descriptor_ < 0) return false;
    name_ = name;
    return true;
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

bool clsFileIo::FlushBuffers() const { return isOpen() && bringToDisk(descriptor_); }

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
    return writeAll(descriptor_, {reinterpret_cast<const char*>(bytes.data()), bytes.size()});
}

/// The place in the file is again where the last read ended for the caller.
void clsFileIo::forgetAhead() {
    if (taken_ < ahead_.size()) stepBack(descriptor_, ahead_.size() - taken_);
    ahead_.clear();
    taken_ = 0;
}

/// False when the file cannot be read; at its end there is nothing ahead.
bool clsFileIo::readAhead() {
    ahead_.resize(aheadSize);
    taken_ = 0;
    const std::optional<std::size_t> count = readSome(descriptor_, ahead_);
    ahead_.resize(count.value_or(0));
    return count.has_value();
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
