#include "recorder/recording_name.h"

#include <filesystem>
#include <random>

namespace melvane {

std::string RecordingName::next(const std::string& folder, std::int64_t moment) {
    constexpr int last = 99999;
    std::seed_seq seed{static_cast<std::uint32_t>(moment), static_cast<std::uint32_t>(moment >> 32),
                       names_++};
    std::mt19937 random(seed);
    int number = last_;
    while (number == last_)
        number = static_cast<int>(static_cast<double>(random()) / 4294967296.0 * last) + 1;
    last_ = number;
    return (std::filesystem::path(folder) / (std::to_string(number) + ".wav")).string();
}

}  // namespace melvane
