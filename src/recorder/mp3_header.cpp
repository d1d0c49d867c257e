#include "recorder/mp3_header.h"

#include <filesystem>
#include <fstream>

#include "platform/system_path.h"

namespace melvane {

namespace {

// By the value of their field with its bits in reverse order.
constexpr std::array<const char*, 4> kilohertz{"44", "32", "48", ""};
constexpr std::array<const char*, 4> modes{"stereo", "stereo", "stereo", "mono"};
constexpr std::array<const char*, 16> kilobits{"0",  "112", "56", "224", "40", "160", "80", "320",
                                               "32", "128", "64", "256", "48", "192", "96", "0"};

/// The bits of all bytes in one row, those of each byte from the lowest up: what stands at `first` to `last`,
/// counted from 1, with the first one weighing most.
std::size_t field(std::span<const unsigned char, 4> bytes, std::size_t first, std::size_t last) {
    std::size_t value = 0;
    for (std::size_t at = first - 1; at < last; ++at)
        value = value * 2 + ((std::size_t{bytes[at / 8]} >> (at % 8)) & 1U);
    return value;
}

}  // namespace

Mp3Header readMp3Header(std::span<const unsigned char, 4> bytes) {
    return {kilohertz[field(bytes, 19, 20)], kilobits[field(bytes, 21, 24)], modes[field(bytes, 31, 32)]};
}

std::optional<std::array<unsigned char, 4>> firstBytes(const std::string& path) {
    std::error_code failed;
    const std::filesystem::path name = systemPath(path);
    if (!std::filesystem::is_regular_file(name, failed)) return std::nullopt;
    std::ifstream file(name, std::ios::binary);
    std::array<char, 4> read{};
    if (!file.read(read.data(), read.size())) return std::nullopt;
    std::array<unsigned char, 4> bytes{};
    for (std::size_t at = 0; at < bytes.size(); ++at) bytes[at] = static_cast<unsigned char>(read[at]);
    return bytes;
}

}  // namespace melvane
